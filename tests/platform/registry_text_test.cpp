#include "platform/common/registry_text.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/common/registry_in_tree.h"
#include "platform/common/utf16.h"

namespace tidvane::platform {
namespace {

const std::string kHead =
    "WINE REGISTRY Version 2\n"
    ";; All keys relative to \\\\User\\\\S-1-5-21-0-0-0-1000\n"
    "\n"
    "#arch=win64\n"
    "\n";

const std::string kFirst =
    "[Control Panel\\\\Desktop] 1685112345\n"
    "#time=1d98f5e1a2b3c4d\n"
    "#class=\"Some class\"\n"
    "@=\"default\"\n"
    "\"Text\"=\"one \\\"two\\\" \\\\three\\n\"\n"
    "\"Expand\"=str(2):\"%TEMP%\\\\x\"\n"
    "\"Multi\"=str(7):\"one\\0two\\0\"\n"
    "\"Number\"=dword:0000002a\n"
    "\"Bytes\"=hex:01,02,\\\n"
    "  03,ff\n"
    "\"Wide\"=hex(b):01,00,00,00,00,00,00,00\n"
    "\n";

const std::string kSecond =
    "[Software\\\\B\\xe4r\\\\x\\[1\\]] 1685112346\n"
    "#time=1d98f5e1a2b3c4e\n"
    "#future=line of a later version\n"
    "\"\\x416\"=\"\\xfe0f9\"\n"
    "\"later\"=float:1.5\n"
    "\n";

const std::string kThird =
    "[Software\\\\Deep\\\\Way\\\\Leaf] 1685112347\n"
    "\"n\"=\"v\"\n"
    "\n"
    "[Software\\\\Link] 1685112348\n"
    "#link\n"
    "\"SymbolicLinkValue\"=hex(6):5c,00\n";

const std::string kSample = kHead + kFirst + kSecond + kThird;

std::string utf16(std::string_view text) {
    return utf16leFromUtf8(text);
}

class RegistryText : public testing::Test {
protected:
    bool read(const std::string& text) { return file.read(text, error); }
    RegistryKeyPtr key(const std::string& path) {
        RegistryKeyPtr found = file.root();
        for (const std::string_view part : keyPathParts(path)) {
            if (found) found = found->find(part);
        }
        return found;
    }
    const RegistryValue& value(const std::string& path, const std::string& name) {
        static const RegistryValue none{"missing", 999, "", 0, false};
        const RegistryKeyPtr found = key(path);
        const RegistryValue* const there = found ? found->findValue(name) : nullptr;
        return there != nullptr ? *there : none;
    }

    RegistryTextFile file;
    RegistryTextError error;
};

TEST_F(RegistryText, ReadsEveryKindOfValue) {
    ASSERT_TRUE(read(kSample)) << error.text;
    EXPECT_EQ(value("Control Panel\\Desktop", "").data, utf16(std::string("default\0", 8)));
    EXPECT_EQ(value("control panel\\desktop", "text").data, utf16(std::string("one \"two\" \\three\n\0", 18)));
    EXPECT_EQ(value("Control Panel\\Desktop", "Expand").type, kRegExpandSz);
    EXPECT_EQ(value("Control Panel\\Desktop", "Multi").type, kRegMultiSz);
    EXPECT_EQ(value("Control Panel\\Desktop", "Multi").data, utf16(std::string("one\0two\0\0", 9)));
    EXPECT_EQ(value("Control Panel\\Desktop", "Number").data, std::string("*\0\0\0", 4));
    EXPECT_EQ(value("Control Panel\\Desktop", "Bytes").data, "\x01\x02\x03\xff");
    EXPECT_EQ(value("Control Panel\\Desktop", "Wide").type, kRegQword);
    EXPECT_TRUE(key("Software\\Link")->isLink);
    EXPECT_EQ(value("Software\\Link", "SymbolicLinkValue").type, kRegLink);
}

TEST_F(RegistryText, ReadsNamesBeyondAscii) {
    ASSERT_TRUE(read(kSample));
    EXPECT_EQ(value("software\\B\xC3\x84R\\x[1]", "\xD0\xB6").data, utf16(std::string("\xEF\xB8\x8F"
                                                                                      "9\0",
                                                                                      5)));
}

TEST_F(RegistryText, TellsWhereItsKeysBelong) {
    ASSERT_TRUE(read(kSample));
    EXPECT_EQ(file.place(), "User\\S-1-5-21-0-0-0-1000");
    EXPECT_EQ(file.architecture(), "win64");
    ASSERT_TRUE(read("WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n"));
    EXPECT_EQ(file.place(), "Machine");
}

TEST_F(RegistryText, WritesBackByteForByteWhatIsUnchanged) {
    ASSERT_TRUE(read(kSample));
    EXPECT_FALSE(file.changed());
    EXPECT_EQ(file.serialize(), kSample);
}

TEST_F(RegistryText, KeepsLineEndsOfBothKinds) {
    std::string text;
    for (const char c : kSample) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
    ASSERT_TRUE(read(text)) << error.text;
    EXPECT_EQ(value("Control Panel\\Desktop", "Bytes").data, "\x01\x02\x03\xff");
    EXPECT_EQ(file.serialize(), text);
}

TEST_F(RegistryText, ARemovedValueIsGoneWithAllItsLines) {
    ASSERT_TRUE(read(kSample));
    EXPECT_TRUE(key("Control Panel\\Desktop")->removeValue("bytes"));
    EXPECT_TRUE(file.changed());
    std::string expected = kSample;
    expected.erase(expected.find("\"Bytes\""), std::string("\"Bytes\"=hex:01,02,\\\n  03,ff\n").size());
    EXPECT_EQ(file.serialize(), expected);
}

TEST_F(RegistryText, AValueOfUnknownFormCanBeRemovedAndOtherwiseStays) {
    ASSERT_TRUE(read(kSample));
    EXPECT_EQ(value("Software\\B\xC3\xA4r\\x[1]", "later").type, kRegNone);
    key("Software\\B\xC3\xA4r\\x[1]")->set("new", kRegDword, "1234");
    EXPECT_NE(file.serialize().find("\"later\"=float:1.5\n"), std::string::npos);
    key("Software\\B\xC3\xA4r\\x[1]")->removeValue("later");
    EXPECT_EQ(file.serialize().find("later\"="), std::string::npos);
}

TEST_F(RegistryText, ARemovedKeyIsGoneWithItsSection) {
    ASSERT_TRUE(read(kSample));
    key("Software\\B\xC3\xA4r")->remove();
    EXPECT_EQ(file.serialize(), kHead + kFirst + kThird);
}

TEST_F(RegistryText, AKeyOnTheWayStaysWhenItsLastSubkeyGoes) {
    ASSERT_TRUE(read(kSample));
    key("Software\\Deep\\Way\\Leaf")->remove();
    const std::string written = file.serialize();
    EXPECT_EQ(written.find("Leaf"), std::string::npos);
    ASSERT_TRUE(read(written)) << error.text;
    EXPECT_TRUE(key("Software\\Deep\\Way"));
}

TEST_F(RegistryText, AChangedValueStaysInItsPlace) {
    ASSERT_TRUE(read(kSample));
    key("Control Panel\\Desktop")->setText("EXPAND", "%A%", kRegExpandSz);
    std::string expected = kSample;
    expected.replace(expected.find("%TEMP%\\\\x"), 9, "%A%");
    EXPECT_EQ(file.serialize(), expected);
}

TEST_F(RegistryText, ANewValueComesBehindTheOthers) {
    ASSERT_TRUE(read(kSample));
    key("Control Panel\\Desktop")->setText("New", "x");
    std::string expected = kSample;
    expected.insert(kHead.size() + kFirst.size() - 1, "\"New\"=\"x\"\n");
    EXPECT_EQ(file.serialize(), expected);
}

TEST_F(RegistryText, ANewKeyCarriesItsTime) {
    ASSERT_TRUE(read(kSample));
    file.root()->findOrAdd("Made")->setText("", "now");
    const std::string written = file.serialize(0x1d98f5e1a2b3c4d);
    EXPECT_EQ(written, kSample + "\n[Made] " + std::to_string(0x1d98f5e1a2b3c4d / 10000000 - 11644473600) +
                           "\n#time=1d98f5e1a2b3c4d\n@=\"now\"\n");
}

TEST_F(RegistryText, AKeyMadeAnewDoesNotBringBackItsOldValues) {
    ASSERT_TRUE(read(kSample));
    key("Software\\Deep\\Way\\Leaf")->remove();
    key("Software\\Deep\\Way")->findOrAdd("Leaf")->setText("other", "x");
    ASSERT_TRUE(read(file.serialize()));
    EXPECT_EQ(key("Software\\Deep\\Way\\Leaf")->values().size(), 1u);
}

TEST_F(RegistryText, SectionsOfOneKeyAreJoinedAndTheLaterValueCounts) {
    const std::string text = kHead + "[A]\n\"n\"=\"1\"\n\"m\"=\"x\"\n\n[B]\n\n[a]\n\"N\"=\"2\"\n";
    ASSERT_TRUE(read(text));
    EXPECT_EQ(value("A", "n").data, utf16(std::string("2\0", 2)));
    EXPECT_EQ(file.serialize(), text);
    key("A")->setText("n", "3");
    EXPECT_EQ(file.serialize(), kHead + "[A]\n\"m\"=\"x\"\n\n[B]\n\n[a]\n\"N\"=\"3\"\n");
    key("A")->removeValue("n");
    EXPECT_EQ(file.serialize(), kHead + "[A]\n\"m\"=\"x\"\n\n[B]\n\n[a]\n");
}

TEST_F(RegistryText, EveryUnitSurvivesWritingAndReading) {
    std::string units;
    for (unsigned unit = 0; unit < 0x10000; unit += unit < 0x300 ? 1 : 61) {
        for (const char next : {'7', 'f', '8', 'z', '"'}) {
            units += static_cast<char>(unit & 0xFF);
            units += static_cast<char>(unit >> 8);
            units += next;
            units += '\0';
        }
    }
    const std::string data = units + std::string(2, '\0');
    RegistryTextFile made;
    made.create("Machine", "win32");
    made.root()->findOrAdd("K")->set("text", kRegSz, data);
    ASSERT_TRUE(read(made.serialize())) << error.text;
    EXPECT_EQ(value("K", "text").data, data);
}

TEST_F(RegistryText, EveryNameSurvivesWritingAndReading) {
    RegistryTextFile made;
    made.create("User\\.Default", "");
    const std::vector<std::string> names{"a]b[c", "quote\"", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
                                         "1\x01"
                                         "2\t",
                                         "[x] 1"};
    for (const std::string& name : names) made.root()->findOrAdd(name)->setText(name, name);
    ASSERT_TRUE(read(made.serialize())) << error.text;
    EXPECT_EQ(file.place(), "User\\.Default");
    for (const std::string& name : names) {
        EXPECT_EQ(value(name, name).data, utf16(name) + std::string(2, '\0')) << name;
        ASSERT_TRUE(key(name)) << name;
        EXPECT_EQ(key(name)->name(), name);
    }
}

TEST_F(RegistryText, DataOfWrongLengthForTheirTypeSurvive) {
    RegistryTextFile made;
    RegistryKey& k = *made.root()->findOrAdd("K");
    k.set("odd", kRegSz, "abc");
    k.set("open", kRegSz, std::string("a\0", 2));
    k.set("empty", kRegSz, "");
    k.set("dword", kRegDword, "12");
    k.set("big", kRegDwordBigEndian, "1234");
    k.set("none", kRegNone, "\x01");
    k.set("strange", 0x80000005, "xyz");
    k.set("long", kRegBinary, std::string(1000, '\xAB'));
    ASSERT_TRUE(read(made.serialize())) << error.text;
    for (const RegistryValue& original : k.values()) {
        EXPECT_EQ(value("K", original.name).type, original.type) << original.name;
        EXPECT_EQ(value("K", original.name).data, original.data) << original.name;
    }
}

TEST_F(RegistryText, AFileCutOffWithinALineIsRefused) {
    for (std::size_t length = 0; length < kSample.size(); ++length) {
        const std::string cut = kSample.substr(0, length);
        if (read(cut)) {
            // Between two lines nothing can be told from a shorter file; nothing of it gets lost either.
            EXPECT_TRUE(cut.ends_with('\n')) << length;
            EXPECT_EQ(file.serialize(), cut) << length;
        } else {
            EXPECT_FALSE(error.text.empty()) << length;
            EXPECT_TRUE(file.root()->children().empty());
        }
    }
}

TEST_F(RegistryText, AFileCutOffWithinAValueOfSeveralLinesIsRefused) {
    EXPECT_FALSE(read(kHead + "[A]\n\"n\"=hex:01,02,\\\n"));
}

TEST_F(RegistryText, OtherFilesAreRefused) {
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read("\n"));
    EXPECT_FALSE(read("Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\A]\n"));
    EXPECT_FALSE(read("WINE REGISTRY Version 1\n[A]\n"));
    EXPECT_FALSE(read(kHead + "\"value before a key\"=\"x\"\n"));
    EXPECT_FALSE(read(kHead + "[no end\n"));
    EXPECT_FALSE(read(kSample + std::string(1, '\0') + "\n"));
    EXPECT_TRUE(file.root()->children().empty());
}

TEST_F(RegistryText, RandomBytesNeverCrash) {
    std::mt19937 random(7);
    const std::string signs = "[]\"=\\@#\n\n,:0x1fhexstr(2)dword ;\t\r\x01\x80\xFF";
    int good = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text = kHead + "[A]\n";
        for (unsigned i = random() % 60; i > 0; --i) text += signs[random() % signs.size()];
        text += '\n';
        if (!read(text)) continue;
        ++good;
        EXPECT_EQ(file.serialize(), text);
    }
    EXPECT_GT(good, 100);
}

TEST_F(RegistryText, FlippedBytesNeverCrash) {
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        std::string text = kSample;
        for (int i = 0; i < 3; ++i) text[random() % text.size()] = static_cast<char>(random());
        if (read(text)) {
            EXPECT_EQ(file.serialize(), text);
        }
    }
}

TEST_F(RegistryText, KeysDeeperThanTheRegistryAllowsAreRefused) {
    std::string path = "a";
    for (int i = 0; i < 100000; ++i) path += "\\\\a";
    EXPECT_FALSE(read(kHead + "[" + path + "]\n"));
    EXPECT_FALSE(error.text.empty());
}

TEST_F(RegistryText, AHundredMegabytesAreReadInOneKey) {
    std::string text = kHead + "[A]\n";
    text.reserve(101000000);
    for (int i = 0; text.size() < 100000000; ++i)
        text += "\"value " + std::to_string(i) + "\"=\"" + std::string(2000, 'x') + "\"\n";
    const std::size_t size = text.size();
    ASSERT_TRUE(file.read(std::move(text), error)) << error.text;
    EXPECT_EQ(file.serialize().size(), size);
}

TEST_F(RegistryText, VeryManySubkeysAreFoundInOrder) {
    std::string text = kHead;
    for (int i = 0; i < 50000; ++i) text += "[Top\\\\Key " + std::to_string(i) + "]\n\n";
    text += "[Top\\\\KEY 5]\n\"n\"=\"v\"\n";
    ASSERT_TRUE(read(text)) << error.text;
    const auto& keys = key("Top")->children();
    ASSERT_EQ(keys.size(), 50000u);
    EXPECT_EQ(keys[1]->name(), "Key 1");
    EXPECT_EQ(keys[2]->name(), "Key 10");
    EXPECT_EQ(value("Top\\key 5", "n").type, kRegSz);
    EXPECT_EQ(file.serialize(), text);
}

TEST_F(RegistryText, AHundredMegabytesWithoutSenseAreRefused) {
    EXPECT_FALSE(file.read(std::string(100000000, 'x'), error));
    EXPECT_FALSE(file.read(kHead + "[" + std::string(20000000, 'x') + "]\n", error));
}

TEST_F(RegistryText, ServesTheRegistryCalls) {
    ASSERT_TRUE(read(kSample));
    RegistryTree tree;
    tree.mount(file.place(), file.root());
    RemovalCounter removed;
    RegistryInTree registry(tree, removed);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "Control Panel"), 0);
    EXPECT_TRUE(file.changed());
    EXPECT_EQ(file.serialize(), kHead + kSecond + kThird);
    EXPECT_EQ(removed.totals.keys, 2u);
    EXPECT_EQ(removed.totals.values, 7u);
}

}  // namespace
}  // namespace tidvane::platform
