#include "platform/common/registry_in_tree.h"

#include <gtest/gtest.h>

#include "platform/common/utf16.h"

namespace tidvane::platform {
namespace {

class RegistryInTreeTest : public testing::Test {
protected:
    HKey open(const std::string& path, std::uint32_t access = kKeyAllAccess, HKey hive = HKEY_CURRENT_USER_) {
        HKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(hive, path, access, key), 0) << path;
        return key;
    }
    HKey make(const std::string& path, HKey hive = HKEY_CURRENT_USER_) {
        HKey key = 0;
        bool created = false;
        EXPECT_EQ(registry.RegCreateKeyExA(hive, path, kKeyAllAccess, key, created), 0) << path;
        return key;
    }
    bool has(const std::string& path, HKey hive = HKEY_CURRENT_USER_) {
        HKey key = 0;
        return registry.RegOpenKeyExA(hive, path, kKeyQueryValue, key) == 0;
    }
    // A key that leads to another place, named as the kernel names it.
    void makeLink(const std::string& path, const std::string& target) {
        const RegistryKeyPtr link = tree.make(path);
        link->isLink = true;
        link->set("SymbolicLinkValue", kRegLink, utf16leFromUtf8(target));
    }

    RegistryTree tree;
    RemovalCounter removed;
    RegistryInTree registry{tree, removed};
};

TEST_F(RegistryInTreeTest, ListsValuesInTheOrderTheyWereMade) {
    const HKey key = make("A");
    for (const char* name : {"c", "a", "b"}) EXPECT_EQ(registry.RegSetValueExA(key, name, kRegDword, "1234"), 0);
    EXPECT_EQ(registry.RegSetValueExA(key, "c", kRegDword, "5678"), 0);
    EXPECT_EQ(registry.RegDeleteValueA(key, "a"), 0);
    EXPECT_EQ(registry.RegSetValueExA(key, "a", kRegDword, "1234"), 0);
    std::string order;
    std::string name;
    for (std::uint32_t i = 0; registry.RegEnumValueA(key, i, 100, name) == 0; ++i) order += name;
    EXPECT_EQ(order, "cba");
}

TEST_F(RegistryInTreeTest, ClassesRootIsTheClassesOfTheMachine) {
    EXPECT_FALSE(has("Thing", HKEY_CLASSES_ROOT_));
    make("Thing\\shell", HKEY_CLASSES_ROOT_);
    EXPECT_TRUE(has("SOFTWARE\\Classes\\thing\\SHELL", HKEY_LOCAL_MACHINE_));
}

TEST_F(RegistryInTreeTest, CurrentUserIsTheChosenUserAmongTheUsers) {
    make("Mine");
    EXPECT_TRUE(has("S-1-5-21-0-0-0-1000\\Mine", HKEY_USERS_));
    EXPECT_FALSE(has(".Default\\Mine", HKEY_USERS_));
}

TEST_F(RegistryInTreeTest, CurrentConfigIsTheCurrentHardwareProfileOfTheMachine) {
    HKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyExA(HKEY_CURRENT_CONFIG_, "", kKeyQueryValue, key), 2) << "there is none";
    EXPECT_EQ(registry.RegOpenKeyExA(HKEY_CURRENT_CONFIG_, "Software", kKeyQueryValue, key), 2);
    const std::string profile = "System\\CurrentControlSet\\Hardware Profiles\\Current\\";
    make(profile + "Software\\Fonts", HKEY_LOCAL_MACHINE_);
    EXPECT_TRUE(has("SOFTWARE\\fonts", HKEY_CURRENT_CONFIG_));
    EXPECT_TRUE(has("Software\\Fonts", 0xFFFFFFFF80000005u));
    make("Software\\Mine", HKEY_CURRENT_CONFIG_);
    EXPECT_TRUE(has(profile + "Software\\Mine", HKEY_LOCAL_MACHINE_));
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_CONFIG_, "Software\\Mine"), 0);
    EXPECT_FALSE(has(profile + "Software\\Mine", HKEY_LOCAL_MACHINE_));
    EXPECT_TRUE(has(profile + "Software\\Fonts", HKEY_LOCAL_MACHINE_));
    EXPECT_EQ(registry.RegCloseKey(HKEY_CURRENT_CONFIG_), 0);
}

TEST_F(RegistryInTreeTest, CurrentConfigIsReachedOverTheLinksOfTheSystem) {
    tree.make("Machine\\System\\ControlSet001\\Hardware Profiles\\0001\\Software\\Mine");
    makeLink("Machine\\System\\CurrentControlSet", "\\Registry\\Machine\\System\\ControlSet001");
    makeLink("Machine\\System\\ControlSet001\\Hardware Profiles\\Current",
             "\\Registry\\Machine\\System\\ControlSet001\\Hardware Profiles\\0001");
    EXPECT_TRUE(has("Software\\Mine", HKEY_CURRENT_CONFIG_));
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_CONFIG_, "Software\\Mine"), 0);
    EXPECT_FALSE(has("System\\ControlSet001\\Hardware Profiles\\0001\\Software\\Mine", HKEY_LOCAL_MACHINE_));
    EXPECT_TRUE(has("System\\CurrentControlSet\\Hardware Profiles\\Current", HKEY_LOCAL_MACHINE_));
}

TEST_F(RegistryInTreeTest, NothingIsDeletedWhereTheLinksOfCurrentConfigLeadOutOfTheProfiles) {
    const std::string place = "Machine\\System\\CurrentControlSet\\Hardware Profiles\\Current";
    for (const std::string target :
         {"Machine\\Software", "Machine", "Machine\\System", "Machine\\System\\ControlSet001",
          "Machine\\System\\ControlSet001\\Hardware Profiles", "Machine\\System\\ControlSet001\\Services\\0001",
          "Machine\\System\\ControlSet001\\Hardware Profiles\\0001\\System", "Machine\\System\\Hardware Profiles\\0001",
          "Machine\\System\\Other\\Hardware Profiles\\0001",
          "Machine\\Software\\ControlSet001\\Hardware Profiles\\0001",
          "User\\S-1-5-21-0-0-0-1000\\System\\ControlSet001\\Hardware Profiles\\0001", "User"}) {
        const RegistryKeyPtr victim = tree.make(target + "\\Victim");
        victim->setText("Value", "data");
        tree.make(target + "\\Victim\\Leaf");
        makeLink(place, "\\Registry\\" + target);
        RegistryTree rehearsed{tree.copy()};
        RemovalCounter wouldGo;
        RegistryInTree preview{rehearsed, wouldGo};
        for (RegistryInTree* const each : {&registry, &preview}) {
            RemovalCounter& counter = each == &registry ? removed : wouldGo;
            counter = {};
            HKey key = 0;
            ASSERT_EQ(each->RegOpenKeyExA(HKEY_CURRENT_CONFIG_, "Victim", kKeyAllAccess, key), 0) << target;
            EXPECT_EQ(each->RegDeleteKeyA(HKEY_CURRENT_CONFIG_, "Victim\\Leaf"), 5) << target;
            EXPECT_EQ(each->SHDeleteKeyA(HKEY_CURRENT_CONFIG_, "Victim"), 5) << target;
            EXPECT_EQ(each->SHDeleteKeyA(key, ""), 5) << target;
            EXPECT_EQ(each->RegDeleteValueA(key, "Value"), 5) << target;
            EXPECT_EQ(counter.totals.failed, 4u) << target;
            EXPECT_EQ(counter.totals.keys + counter.totals.values, 0u) << target;
        }
        EXPECT_NE(tree.find(target + "\\Victim\\Leaf"), nullptr) << target;
        EXPECT_NE(rehearsed.find(target + "\\Victim\\Leaf"), nullptr) << target;
        EXPECT_NE(victim->findValue("Value"), nullptr) << target;
        tree.find(place)->remove();
    }
}

TEST_F(RegistryInTreeTest, ALinkInsteadOfSystemLeadsOutOfTheProfilesToo) {
    tree.make("Machine\\Software\\Set\\Hardware Profiles\\Current\\Victim");
    makeLink("Machine\\System\\CurrentControlSet", "\\Registry\\Machine\\Software\\Set");
    EXPECT_TRUE(has("Victim", HKEY_CURRENT_CONFIG_));
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_CONFIG_, "Victim"), 5);
    EXPECT_TRUE(has("Victim", HKEY_CURRENT_CONFIG_));
}

TEST_F(RegistryInTreeTest, CurrentConfigOfACopyIsTheCopysOwn) {
    tree.make("Machine\\System\\ControlSet001\\Hardware Profiles\\Current\\Software\\Mine");
    makeLink("Machine\\System\\CurrentControlSet", "\\Registry\\Machine\\System\\ControlSet001");
    RegistryTree copied{tree.copy()};
    RegistryInTree copy{copied, removed};
    HKey key = 0;
    EXPECT_EQ(copy.RegDeleteKeyA(HKEY_CURRENT_CONFIG_, "Software\\Mine"), 0);
    EXPECT_EQ(copy.RegOpenKeyExA(HKEY_CURRENT_CONFIG_, "Software\\Mine", kKeyQueryValue, key), 2);
    EXPECT_TRUE(has("Software\\Mine", HKEY_CURRENT_CONFIG_)) << "as a preview needs it";
}

TEST_F(RegistryInTreeTest, TheOtherHivesOfWindowsAreNone) {
    for (const HKey hive : {HKey{0x80000004u}, HKey{0x80000006u}}) {
        HKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(hive, "", kKeyQueryValue, key), 6) << hive;
    }
}

TEST_F(RegistryInTreeTest, TakesSignExtendedHives) {
    make("Mine");
    EXPECT_TRUE(has("Mine", 0xFFFFFFFF80000001u));
}

TEST_F(RegistryInTreeTest, KeepsTextsInUtf16AndAnswersInTheCodePage) {
    registry.setCodePage(1251);
    const HKey key = make("A");
    EXPECT_EQ(registry.RegSetValueExA(key, "n", kRegSz, std::string_view("\xC6\0", 2)), 0);  // Zhe in Windows-1251
    EXPECT_EQ(tree.find("User\\S-1-5-21-0-0-0-1000\\A")->findValue("n")->data, std::string("\x16\x04\0\0", 4));
    std::string data;
    std::uint32_t type = 0;
    std::uint32_t size = 10;
    EXPECT_EQ(registry.RegQueryValueExA(key, "n", type, &data, size), 0);
    EXPECT_EQ(data, std::string("\xC6\0", 2));
    registry.setCodePage(1252);
    size = 10;
    EXPECT_EQ(registry.RegQueryValueExA(key, "n", type, &data, size), 0);
    EXPECT_EQ(data, std::string("?\0", 2));
}

TEST_F(RegistryInTreeTest, ATextStoredWithoutItsNulComesWithout) {
    const HKey key = make("A");
    tree.find("User\\S-1-5-21-0-0-0-1000\\A")->set("n", kRegSz, std::string("a\0b\0", 4));
    std::string data;
    std::uint32_t type = 0;
    std::uint32_t size = 10;
    EXPECT_EQ(registry.RegQueryValueExA(key, "n", type, &data, size), 0);
    EXPECT_EQ(data, "ab");
}

TEST_F(RegistryInTreeTest, CopiesNothingIntoTooLittleRoom) {
    const HKey key = make("A");
    EXPECT_EQ(registry.RegSetValueExA(key, "n", kRegSz, std::string_view("text\0", 5)), 0);
    std::string data = "untouched";
    std::uint32_t type = 0;
    std::uint32_t size = 4;
    EXPECT_EQ(registry.RegQueryValueExA(key, "n", type, &data, size), 234);
    EXPECT_EQ(size, 5u);
    EXPECT_EQ(data, "untouched");
}

TEST_F(RegistryInTreeTest, CountsWhatATreeHeld) {
    const HKey key = make("A\\B");
    (void)registry.RegSetValueExA(key, "1", kRegDword, "1234");
    (void)registry.RegSetValueExA(key, "2", kRegDword, "1234");
    make("A\\C");
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "A"), 0);
    EXPECT_EQ(removed.totals.keys, 3u);
    EXPECT_EQ(removed.totals.values, 2u);
    EXPECT_EQ(removed.totals.failed, 0u);
}

TEST_F(RegistryInTreeTest, CountsNothingForWhatIsMissing) {
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "Nothing"), 2);
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_USER_, "Nothing"), 2);
    EXPECT_EQ(registry.RegDeleteValueA(make("A"), "nothing"), 2);
    EXPECT_EQ(removed.totals, RemovalTotals{});
}

TEST_F(RegistryInTreeTest, AKeyWithSubkeysStaysAndCountsAsFailed) {
    make("A\\B");
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_USER_, "A"), 5);
    EXPECT_EQ(removed.totals.failed, 1u);
    EXPECT_TRUE(has("A\\B"));
}

TEST_F(RegistryInTreeTest, ADeniedKeyStaysWithTheKeysAboveIt) {
    make("A\\B\\C");
    make("A\\D");
    ASSERT_TRUE(registry.deny(HKEY_CURRENT_USER_, "A\\B"));
    HKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyExA(HKEY_CURRENT_USER_, "A\\B", kKeyQueryValue, key), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "A"), 5);
    EXPECT_FALSE(has("A\\D"));
    EXPECT_EQ(removed.totals.failed, 1u);
    registry.deny(HKEY_CURRENT_USER_, "A\\B", false);
    EXPECT_TRUE(has("A\\B\\C"));
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "A"), 0);
}

TEST_F(RegistryInTreeTest, AHiveIsEmptiedAndStays) {
    make("A\\B");
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, ""), 5);
    EXPECT_FALSE(has("A"));
    EXPECT_TRUE(has(""));
    EXPECT_TRUE(has("S-1-5-21-0-0-0-1000", HKEY_USERS_));
}

TEST_F(RegistryInTreeTest, AHandleInADeletedTreeSeesItselfDeleted) {
    const HKey inner = make("A\\B");
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "A"), 0);
    std::string name;
    EXPECT_EQ(registry.RegEnumKeyA(inner, 0, 100, name), 1018);
    make("A\\B");
    EXPECT_EQ(registry.RegEnumKeyA(inner, 0, 100, name), 1018);
    EXPECT_EQ(registry.RegCloseKey(inner), 0);
    EXPECT_EQ(registry.RegCloseKey(inner), 6);
}

TEST_F(RegistryInTreeTest, OnlyKnownMachinesCanBeReached) {
    HKey key = 0;
    EXPECT_EQ(registry.RegConnectRegistryA("\\\\far", HKEY_LOCAL_MACHINE_, key), 53);
    EXPECT_EQ(key, 0u);
    registry.addRemoteMachine("\\\\FAR").make("Machine\\There");
    EXPECT_EQ(registry.RegConnectRegistryA("\\\\far", HKEY_LOCAL_MACHINE_, key), 0);
    HKey inner = 0;
    EXPECT_EQ(registry.RegOpenKeyExA(key, "There", kKeyQueryValue, inner), 0);
    EXPECT_FALSE(has("There", HKEY_LOCAL_MACHINE_));
}

TEST_F(RegistryInTreeTest, OpensThroughALink) {
    make("System\\ControlSet001\\Control", HKEY_LOCAL_MACHINE_);
    makeLink("Machine\\System\\CurrentControlSet", "\\Registry\\Machine\\System\\ControlSet001");
    EXPECT_TRUE(has("System\\CurrentControlSet", HKEY_LOCAL_MACHINE_));
    EXPECT_TRUE(has("System\\CurrentControlSet\\Control", HKEY_LOCAL_MACHINE_));
    make("System\\CurrentControlSet\\Added", HKEY_LOCAL_MACHINE_);
    EXPECT_TRUE(has("System\\ControlSet001\\Added", HKEY_LOCAL_MACHINE_));
}

TEST_F(RegistryInTreeTest, DeletesNothingThroughALink) {
    const HKey target = make("Target\\Inner");
    (void)registry.RegSetValueExA(target, "n", kRegDword, "1234");
    makeLink("User\\S-1-5-21-0-0-0-1000\\Link", "\\Registry\\User\\S-1-5-21-0-0-0-1000\\Target");
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_USER_, "Link\\Inner"), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "Link\\Inner"), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(open("Link"), ""), 5);
    EXPECT_EQ(registry.RegDeleteValueA(open("Link\\Inner"), "n"), 5);
    EXPECT_EQ(removed.totals.keys, 0u);
    EXPECT_EQ(registry.RegDeleteValueA(open("Target\\Inner"), "n"), 0);
}

TEST_F(RegistryInTreeTest, ATreeRemovalTakesALinkAsALeaf) {
    make("Target\\Inner");
    make("A\\B");
    makeLink("User\\S-1-5-21-0-0-0-1000\\A\\Link", "\\Registry\\User\\S-1-5-21-0-0-0-1000\\Target");
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "A"), 0);
    EXPECT_FALSE(has("A"));
    EXPECT_TRUE(has("Target\\Inner"));
    EXPECT_EQ(removed.totals.keys, 3u);
    EXPECT_EQ(removed.totals.values, 0u);
}

TEST_F(RegistryInTreeTest, LinksInACircleAreNotFound) {
    makeLink("Machine\\One", "\\Registry\\Machine\\Two");
    makeLink("Machine\\Two", "\\Registry\\Machine\\One");
    EXPECT_FALSE(has("One", HKEY_LOCAL_MACHINE_));
}

TEST_F(RegistryInTreeTest, LoadsOnceAtTheFirstUse) {
    int loads = 0;
    registry.loadOnFirstUse([&] {
        ++loads;
        tree.make("Machine\\Loaded");
    });
    EXPECT_EQ(loads, 0);
    EXPECT_TRUE(has("Loaded", HKEY_LOCAL_MACHINE_));
    EXPECT_TRUE(has("Loaded", HKEY_LOCAL_MACHINE_));
    EXPECT_EQ(loads, 1);
}

TEST_F(RegistryInTreeTest, RefusesKeysDeeperThanWindowsAllows) {
    std::string path = "k";
    for (int i = 0; i < 600; ++i) path += "\\k";
    HKey key = 0;
    bool created = false;
    EXPECT_EQ(registry.RegCreateKeyExA(HKEY_CURRENT_USER_, path, kKeyAllAccess, key, created), 87);
    EXPECT_FALSE(has("k"));
}

TEST_F(RegistryInTreeTest, ChangesBelongToTheFileTheyHappenIn) {
    const auto machine = std::make_shared<RegistryKey>();
    const auto user = std::make_shared<RegistryKey>();
    tree.mount("Machine", machine);
    tree.mount("User\\S-1-5-21-0-0-0-1000", user);
    make("A");
    EXPECT_TRUE(user->changed);
    EXPECT_FALSE(machine->changed);
    const HKey key = make("B", HKEY_LOCAL_MACHINE_);
    machine->changed = false;
    EXPECT_EQ(registry.RegSetValueExA(key, "n", kRegDword, "1234"), 0);
    EXPECT_TRUE(machine->changed);
    machine->changed = false;
    EXPECT_EQ(registry.RegSetValueExA(key, "N", kRegDword, "1234"), 0);  // the same once more
    EXPECT_FALSE(machine->changed);
    EXPECT_EQ(registry.RegDeleteValueA(key, "n"), 0);
    EXPECT_TRUE(machine->changed);
}

}  // namespace
}  // namespace tidvane::platform
