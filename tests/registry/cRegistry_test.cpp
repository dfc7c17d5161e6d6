#include "registry/cRegistry.h"

#include <functional>

#include "base/runtime_error.h"
#include "registry_fixture.h"

namespace tidvane::registry {
namespace {

using namespace std::string_literals;

class RegistryClass : public RegistryFixture {
protected:
    void at(const std::string& section, const std::string& value = "", std::uint32_t type = platform::kRegSz) {
        object.setClassKey(HKEY_CURRENT_USER_);
        object.setSectionKey(section);
        object.setValueKey(value);
        object.setValueType(type);
    }
    base::RuntimeError errorOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const base::RuntimeError& error) {
            return error;
        }
        return {0, "nothing was thrown", ""};
    }

    cRegistry object{services};
};

// --- the position ---------------------------------------------------------------------------------------------------

TEST_F(RegistryClass, AMachineOfTwoCharactersIsCleared) {
    object.setMachine("abc");
    object.setMachine("ab");
    EXPECT_EQ(object.Machine(), "");
    object.setMachine("\\\\");
    EXPECT_EQ(object.Machine(), "");
}

TEST_F(RegistryClass, AMachineOfThreeCharactersGetsTwoBackslashes) {
    object.setMachine("abc");
    EXPECT_EQ(object.Machine(), "\\\\abc");
    object.setMachine("\\\\abc");
    EXPECT_EQ(object.Machine(), "\\\\abc");
    object.setMachine("\\abc");
    EXPECT_EQ(object.Machine(), "\\\\\\abc");
}

TEST_F(RegistryClass, TheLengthOfAMachineIsCountedInCharacters) {
    object.setMachine("\xC3\xA4\xC3\xB6");  // two letters in four bytes
    EXPECT_EQ(object.Machine(), "");
}

// --- keys -----------------------------------------------------------------------------------------------------------

TEST_F(RegistryClass, KeyExistsTellsWhetherTheKeyCanBeOpened) {
    make("A\\B");
    at("a\\b");
    EXPECT_TRUE(object.KeyExists());
    at("A\\C");
    EXPECT_FALSE(object.KeyExists());
    registry.deny(HKEY_CURRENT_USER_, "A\\B");
    at("A\\B");
    EXPECT_FALSE(object.KeyExists());
}

TEST_F(RegistryClass, CreateKeyMakesTheWholeWay) {
    at("A\\B\\C");
    EXPECT_TRUE(object.CreateKey());
    EXPECT_TRUE(object.CreateKey());
    EXPECT_TRUE(has("A\\B\\C"));
}

TEST_F(RegistryClass, CreateKeyThatFailsTellsTheKeyWithoutTheClosingMark) {
    at("\\A");
    const auto error = errorOf([&] { object.CreateKey(); });
    EXPECT_EQ(error.number, 26001);
    EXPECT_EQ(error.source, "Tidvane.cRegistry");
    EXPECT_EQ(error.description, "Failed to create registry Key: '\\A");
}

TEST_F(RegistryClass, DeleteKeyOfAKeyWithSubkeysIsFalse) {
    make("A\\B");
    at("A");
    EXPECT_FALSE(object.DeleteKey());
    EXPECT_TRUE(has("A\\B"));
    at("A\\B");
    EXPECT_TRUE(object.DeleteKey());
    EXPECT_FALSE(object.DeleteKey());
}

TEST_F(RegistryClass, DeleteValueTellsWhetherItWasThere) {
    make("A")->setText("n", "v");
    at("A", "n");
    EXPECT_TRUE(object.DeleteValue());
    EXPECT_FALSE(object.DeleteValue());
    at("Missing", "n");
    EXPECT_FALSE(object.DeleteValue());
}

TEST_F(RegistryClass, AnEmptyValueKeyMeansTheDefaultValue) {
    make("A")->setText("", "v");
    at("A");
    EXPECT_EQ(object.Value(), RegistryVariant("v"s));
    EXPECT_TRUE(object.DeleteValue());
    EXPECT_EQ(stored(key("A"), ""), "none");
}

// --- reading --------------------------------------------------------------------------------------------------------

TEST_F(RegistryClass, ReadsEachTypeInItsOwnWay) {
    const auto k = make("A");
    environment.set("X", "expanded");
    k->setText("sz", "text");
    k->setText("expand", "<%X%|%UNKNOWN%>", platform::kRegExpandSz);
    k->setText("multi", "one\0two\0"s, platform::kRegMultiSz);
    k->set("dword", platform::kRegDword, "\x01\x02\x03\x80");
    k->set("big", platform::kRegDwordBigEndian, "\x01\x02\x03\x04");
    k->set("binary", platform::kRegBinary, "\xFF\0\x01"s);
    k->set("qword", platform::kRegQword, "12345678");
    const auto read = [&](const std::string& name) {
        at("A", name, 99);
        return object.Value();
    };
    EXPECT_EQ(read("sz"), RegistryVariant("text"s));
    EXPECT_EQ(object.ValueType(), platform::kRegSz);
    EXPECT_EQ(read("expand"), RegistryVariant("<expanded|%UNKNOWN%>"s));
    EXPECT_EQ(read("multi"), RegistryVariant("one\0two\0"s));
    EXPECT_EQ(object.ValueType(), platform::kRegMultiSz);
    EXPECT_EQ(read("dword"), RegistryVariant(static_cast<std::int32_t>(0x80030201)));
    EXPECT_EQ(read("big"), RegistryVariant(std::int32_t{0x01020304}));
    EXPECT_EQ(read("binary"), RegistryVariant(ByteArray{0xFF, 0, 1}));
    EXPECT_EQ(read("qword"), RegistryVariant(ByteArray{'1', '2', '3', '4', '5', '6', '7', '8'}));
    EXPECT_EQ(object.ValueType(), platform::kRegQword);
}

TEST_F(RegistryClass, AnEmptyTextReadsAsAnEmptyText) {
    make("A")->setText("n", "");
    at("A", "n");
    object.setDefault("default"s);
    EXPECT_EQ(object.Value(), RegistryVariant(""s));
}

TEST_F(RegistryClass, ATextOfNoBytesReadsAsAnEmptyText) {
    make("A")->set("n", platform::kRegSz, "");
    at("A", "n");
    EXPECT_EQ(object.Value(), RegistryVariant(""s));
}

TEST_F(RegistryClass, ATextStoredWithoutItsNulLosesItsLastCharacter) {
    make("A")->set("n", platform::kRegSz, "a\0b\0c\0"s);
    at("A", "n");
    EXPECT_EQ(object.Value(), RegistryVariant("ab"s));
}

TEST_F(RegistryClass, TextsGoThroughTheCodePage) {
    at("A", "n");
    object.setValue("Gr\xC3\xBC\xC3\x9F\x65"s);
    EXPECT_EQ(stored(key("A"), "n"), "1:Gr\xFC\xDF\x65\0"s);
    EXPECT_EQ(object.Value(), RegistryVariant("Gr\xC3\xBC\xC3\x9F\x65"s));
}

TEST_F(RegistryClass, WhatCannotBeReadIsTheDefault) {
    object.setDefault("default"s);
    at("Missing", "n");
    EXPECT_EQ(object.Value(), RegistryVariant("default"s));
    make("A");
    at("A", "missing");
    EXPECT_EQ(object.Value(), RegistryVariant("default"s));
    EXPECT_EQ(object.ValueType(), platform::kRegSz);
}

TEST_F(RegistryClass, ValueExOfAMissingValueIsItsDefault) {
    EXPECT_EQ(object.ValueEx(HKEY_CURRENT_USER_, "A", "n", platform::kRegDword, std::int32_t{7}),
              RegistryVariant(std::int32_t{7}));
    EXPECT_EQ(object.ClassKey(), HKEY_CURRENT_USER_);
    EXPECT_EQ(object.SectionKey(), "A");
    EXPECT_EQ(object.ValueKey(), "n");
    EXPECT_EQ(object.ValueType(), platform::kRegDword);
    EXPECT_EQ(object.Default(), RegistryVariant(std::int32_t{7}));
}

// --- writing --------------------------------------------------------------------------------------------------------

TEST_F(RegistryClass, TheTypeOfATextFollowsItsPercentSigns) {
    const std::vector<std::pair<std::string, int>> cases{
        {"plain", 1},  {"50%", 1}, {"a%%b", 1}, {"%%", 1}, {"%", 1},      {"%a%", 2},
        {"x%ab%y", 2}, {"%%%", 2}, {"%%a%", 2}, {"", 1},   {"a%b%c%", 2},
    };
    for (const auto& [text, type] : cases) {
        for (const std::uint32_t asked : {platform::kRegSz, platform::kRegExpandSz}) {
            at("A", "n", asked);
            object.setValue(text);
            EXPECT_EQ(stored(key("A"), "n"), std::to_string(type) + ":" + text + '\0') << text;
        }
    }
}

TEST_F(RegistryClass, OtherValuesAreWrittenAsTheirText) {
    const auto written = [&](const RegistryVariant& value) {
        at("A", "n");
        object.setValue(value);
        return stored(key("A"), "n");
    };
    EXPECT_EQ(written(std::int16_t{-5}), "1:-5\0"s);
    EXPECT_EQ(written(std::int32_t{70000}), "1:70000\0"s);
    EXPECT_EQ(written(1.5), "1:1.5\0"s);
    EXPECT_EQ(written(true), "1:True\0"s);
    EXPECT_EQ(written(std::monostate{}), "1:\0"s);
    EXPECT_EQ(written(ByteArray{'h', 0, 0xE4, 0}), "1:h\xE4\0"s);
    system.systemLocale = base::germanLocale();
    EXPECT_EQ(written(1.5), "1:1,5\0"s);
}

TEST_F(RegistryClass, WritesBytesAsTheyAre) {
    at("A", "n", platform::kRegBinary);
    object.setValue(ByteArray{1, 0, 0xFF});
    EXPECT_EQ(stored(key("A"), "n"), "3:\x01\0\xFF"s);
    object.setValue(ByteArray{});
    EXPECT_EQ(stored(key("A"), "n"), "3:");
}

TEST_F(RegistryClass, BytesAreAskedForAndATextIsRefused) {
    at("A", "n", platform::kRegBinary);
    const auto error = errorOf([&] { object.setValue("text"s); });
    EXPECT_EQ(error.number, 26001);
    EXPECT_EQ(error.source, "Tidvane.cRegistry");
    EXPECT_EQ(error.description, "");
    EXPECT_EQ(stored(key("A"), "n"), "none");
    EXPECT_EQ(object.cachedValue(), RegistryVariant());
}

TEST_F(RegistryClass, WholeNumbersAreWrittenAsType4AlsoWhereBigEndianWasAsked) {
    for (const std::uint32_t asked : {platform::kRegDword, platform::kRegDwordBigEndian}) {
        at("A", "n", asked);
        object.setValue(std::int32_t{0x01020304});
        EXPECT_EQ(stored(key("A"), "n"), "4:\x04\x03\x02\x01");
        object.setValue(std::int16_t{-2});
        EXPECT_EQ(stored(key("A"), "n"), "4:\xFE\xFF\xFF\xFF");
    }
}

TEST_F(RegistryClass, ANumberThatIsNoWholeOneIsNotWrittenAndCountsAsWritten) {
    at("A", "n", platform::kRegDword);
    for (const RegistryVariant& value : {RegistryVariant(1.5), RegistryVariant("7"s), RegistryVariant(true)}) {
        object.setValue(value);
        EXPECT_EQ(stored(key("A"), "n"), "none");
        EXPECT_EQ(object.cachedValue(), value);
    }
}

TEST_F(RegistryClass, OtherTypesWriteNothingAndTheCachedValueChanges) {
    for (const std::uint32_t type : {platform::kRegMultiSz, platform::kRegNone, platform::kRegQword}) {
        at("A", "n", type);
        object.setValue("text "s + std::to_string(type));
        EXPECT_EQ(stored(key("A"), "n"), "none");
        EXPECT_EQ(object.cachedValue(), RegistryVariant("text "s + std::to_string(type)));
    }
    EXPECT_TRUE(has("A"));
}

TEST_F(RegistryClass, AKeyThatCannotBeMadeNamesTheOldValue) {
    at("A", "n");
    object.setValue("old"s);
    at("\\B", "n");
    const auto error = errorOf([&] { object.setValue("new"s); });
    EXPECT_EQ(error.number, 26001);
    EXPECT_EQ(error.source, "Tidvane.cRegistry");
    EXPECT_EQ(error.description,
              "Failed to set registry value Key: '-2147483647',Section: '\\B',Key: 'n' to value: 'old'");
    EXPECT_EQ(object.cachedValue(), RegistryVariant("old"s));
}

// A registry whose writes fail with a chosen code.
class FailingWrites : public platform::RegistryInTree {
public:
    using RegistryInTree::RegistryInTree;
    platform::RegResult RegSetValueExA(platform::HKey, const std::string&, std::uint32_t, std::string_view) override {
        return code;
    }
    platform::RegResult code = 5;
};

TEST_F(RegistryClass, AFailedWritePassesSilently) {
    FailingWrites failing(tree, removed);
    cRegistry writer({failing, environment, system});
    writer.setClassKey(HKEY_CURRENT_USER_);
    writer.setSectionKey("A");
    writer.setValueType(platform::kRegSz);
    writer.setValue("v"s);
    EXPECT_EQ(writer.cachedValue(), RegistryVariant("v"s));
}

TEST_F(RegistryClass, OnlyAStatusOfMinusOneIsAFailure) {
    FailingWrites failing(tree, removed);
    failing.code = -1;
    cRegistry writer({failing, environment, system});
    writer.setClassKey(HKEY_CURRENT_USER_);
    writer.setSectionKey("A");
    writer.setValueType(platform::kRegSz);
    const auto error = errorOf([&] { writer.setValue("v"s); });
    EXPECT_EQ(error.number, static_cast<std::int32_t>(0x800469A9));
    EXPECT_EQ(error.description, "Failed to set registry value Key: '-2147483647',Section: 'A',Key: '' to value: ''");
    EXPECT_EQ(writer.cachedValue(), RegistryVariant());
}

TEST_F(RegistryClass, ValueExStoresTheDefaultForAnEmptyText) {
    object.setValueEx(HKEY_CURRENT_USER_, "A", "n", platform::kRegSz, "default"s, ""s);
    EXPECT_EQ(stored(key("A"), "n"), "1:default\0"s);
    object.setValueEx(HKEY_CURRENT_USER_, "A", "n", platform::kRegSz, "default"s, "given"s);
    EXPECT_EQ(stored(key("A"), "n"), "1:given\0"s);
    object.setValueEx(HKEY_CURRENT_USER_, "A", "n", platform::kRegExpandSz, "default"s, ""s);
    EXPECT_EQ(stored(key("A"), "n"), "1:\0"s);
}

// --- remote computers -----------------------------------------------------------------------------------------------

TEST_F(RegistryClass, AReadFromAnUnreachableMachineIsTheDefault) {
    make("A")->setText("n", "local");
    at("A", "n");
    object.setDefault("default"s);
    object.setMachine("far");
    EXPECT_EQ(object.Value(), RegistryVariant("default"s));
}

TEST_F(RegistryClass, AReadFromARemoteMachineReadsTheLocalRegistry) {
    registry.addRemoteMachine("\\\\far").make(userPath("A"))->setText("n", "remote");
    make("A")->setText("n", "local");
    at("A", "n");
    object.setMachine("far");
    EXPECT_EQ(object.Value(), RegistryVariant("local"s));
}

TEST_F(RegistryClass, AWriteToAnUnreachableMachineEndsInAnErrorOfItsOwn) {
    at("A", "n");
    object.setMachine("far");
    const auto error = errorOf([&] { object.setValue("v"s); });
    EXPECT_EQ(error.number, 28);
    EXPECT_EQ(error.description, "Out of stack space");
    EXPECT_FALSE(has("A"));
}

TEST_F(RegistryClass, AWriteToARemoteMachineWritesLocally) {
    registry.addRemoteMachine("\\\\far");
    at("A", "n");
    object.setMachine("far");
    object.setValue("v"s);
    EXPECT_EQ(stored(key("A"), "n"), "1:v\0"s);
}

// --- enumerations ---------------------------------------------------------------------------------------------------

TEST_F(RegistryClass, EnumeratesValuesAndSubkeys) {
    const auto k = make("A");
    k->setText("second", "");
    k->setText("", "");
    k->setText("a", "");
    make("A\\z");
    make("A\\B");
    at("A");
    std::vector<std::string> names{"left over"};
    int count = 9;
    EXPECT_TRUE(object.EnumerateValues(names, count));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(names, (std::vector<std::string>{"second", "", "a"}));
    EXPECT_TRUE(object.EnumerateSections(names, count));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(names, (std::vector<std::string>{"B", "z"}));
}

TEST_F(RegistryClass, EnumeratingAMissingKeyIsTrueWithNothing) {
    at("Missing");
    std::vector<std::string> names{"left over"};
    int count = 9;
    EXPECT_TRUE(object.EnumerateValues(names, count));
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(names.empty());
    names.emplace_back("left over");
    count = 9;
    EXPECT_TRUE(object.EnumerateSections(names, count));
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(names.empty());
}

TEST_F(RegistryClass, ASubkeyNameOf255CharactersEndsTheEnumeration) {
    make("A\\a");
    make("A\\" + std::string(255, 'b'));
    make("A\\c");
    at("A");
    std::vector<std::string> names;
    int count = 0;
    object.EnumerateSections(names, count);
    EXPECT_EQ(names, std::vector<std::string>{"a"});
    make("B\\" + std::string(254, 'b'));
    make("B\\c");
    at("B");
    object.EnumerateSections(names, count);
    EXPECT_EQ(count, 2);
}

TEST_F(RegistryClass, LeavesNoKeyOpen) {
    class Counting : public platform::RegistryInTree {
    public:
        using RegistryInTree::RegistryInTree;
        platform::RegResult RegOpenKeyExA(platform::HKey p, const std::string& s, std::uint32_t a,
                                          platform::HKey& k) override {
            const auto result = RegistryInTree::RegOpenKeyExA(p, s, a, k);
            open += result == 0 ? 1 : 0;
            return result;
        }
        platform::RegResult RegCreateKeyExA(platform::HKey p, const std::string& s, std::uint32_t a, platform::HKey& k,
                                            bool& created) override {
            const auto result = RegistryInTree::RegCreateKeyExA(p, s, a, k, created);
            open += result == 0 ? 1 : 0;
            return result;
        }
        platform::RegResult RegCloseKey(platform::HKey k) override {
            const auto result = RegistryInTree::RegCloseKey(k);
            open -= result == 0 ? 1 : 0;
            return result;
        }
        int open = 0;
    };
    Counting counting(tree, removed);
    cRegistry user({counting, environment, system});
    user.setClassKey(HKEY_CURRENT_USER_);
    user.setSectionKey("A");
    user.setValueKey("n");
    user.setValueType(platform::kRegSz);
    user.CreateKey();
    user.setValue("v"s);
    (void)user.Value();
    (void)user.DeleteValue();
    std::vector<std::string> names;
    int count = 0;
    user.EnumerateValues(names, count);
    user.EnumerateSections(names, count);
    (void)user.KeyExists();
    EXPECT_EQ(counting.open, 0);
}

}  // namespace
}  // namespace tidvane::registry
