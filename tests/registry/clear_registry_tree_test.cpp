#include "registry/clear_registry_tree.h"

#include "registry_fixture.h"

namespace tidvane::registry {
namespace {

class ClearTree : public RegistryFixture {
protected:
    // The platform as it is used: with the guard in front.
    std::vector<platform::Warning> warnings;
    platform::GuardedRegistry guarded{registry, removed,
                                      [this](const platform::Warning& warning) { warnings.push_back(warning); }};
    RegistryServices guardedServices{guarded, environment, system};
};

TEST_F(ClearTree, AKeyWithoutSubkeysLosesItsValuesAndGoes) {
    make("A\\B")->setText("n", "v");
    key("A\\B")->setText("", "v");
    ClearRegistryTree(services, "HKEY_CURRENT_USER\\A\\B");
    EXPECT_FALSE(has("A\\B"));
    EXPECT_TRUE(has("A"));
    EXPECT_EQ(removed.totals.keys, 1u);
    EXPECT_EQ(removed.totals.values, 2u);
}

TEST_F(ClearTree, ATreeGoesWhole) {
    for (const char* path : {"A\\1\\x\\y", "A\\1\\z", "A\\2", "A\\3\\x"}) make(path)->setText("n", "v");
    make("B");
    ClearRegistryTree(services, "HKEY_CURRENT_USER\\A");
    EXPECT_FALSE(has("A"));
    EXPECT_TRUE(has("B"));
    EXPECT_EQ(removed.totals.keys, 8u);
    EXPECT_EQ(removed.totals.values, 4u);
    EXPECT_EQ(removed.totals.failed, 0u);
}

TEST_F(ClearTree, TheHiveIsKnownInLowerCase) {
    make("A");
    ClearRegistryTree(services, "hkey_current_user\\A");
    EXPECT_FALSE(has("A"));
}

TEST_F(ClearTree, EachHiveIsKnown) {
    tree.make("Machine\\A");
    tree.make("Machine\\Software\\Classes\\B");
    make("C");
    ClearRegistryTree(services, "HKEY_LOCAL_MACHINE\\A");
    ClearRegistryTree(services, "HKEY_CLASSES_ROOT\\B");
    ClearRegistryTree(services, "HKEY_USERS\\S-1-5-21-0-0-0-1000\\C");
    EXPECT_FALSE(tree.find("Machine\\A"));
    EXPECT_FALSE(tree.find("Machine\\Software\\Classes\\B"));
    EXPECT_FALSE(has("C"));
}

TEST_F(ClearTree, AFilePathChangesNothing) {
    make("Windows\\Temp");
    make("Temp");
    for (const char* path : {"C:\\Windows\\Temp", "C:\\Windows\\Temp\\", "\\\\server\\share", "", "\\", "HKCU\\Temp"}) {
        ClearRegistryTree(guardedServices, path);
    }
    EXPECT_TRUE(has("Windows\\Temp"));
    EXPECT_TRUE(has("Temp"));
    EXPECT_EQ(removed.totals, platform::RemovalTotals{});
    EXPECT_TRUE(warnings.empty());
}

TEST_F(ClearTree, AHiveWithoutABackslashFindsNothing) {
    make("A");
    make("HKEY_CURRENT_USER\\Environment");
    make("Environment");
    ClearRegistryTree(services, "HKEY_CURRENT_USER");
    EXPECT_TRUE(has("A"));
    EXPECT_TRUE(has("Environment"));
    EXPECT_TRUE(has("HKEY_CURRENT_USER\\Environment"));
}

TEST_F(ClearTree, AHiveIsRefusedBeforeItsFirstLeafGoes) {
    make("A\\B")->setText("n", "v");
    ClearRegistryTree(guardedServices, "HKEY_CURRENT_USER\\");
    EXPECT_TRUE(has("A\\B"));
    EXPECT_EQ(removed.totals.values, 0u);
    EXPECT_EQ(removed.totals.keys, 0u);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0].target, "HKEY_CURRENT_USER");
}

TEST_F(ClearTree, AFirstLevelKeyIsRefusedBeforeItsFirstLeafGoes) {
    make("Software\\A\\B")->setText("n", "v");
    for (const char* path : {"HKEY_CURRENT_USER\\Software", "hkey_current_user\\SOFTWARE\\",
                             "HKEY_CURRENT_USER\\\\Software", "HKEY_USERS\\S-1-5-21-0-0-0-1000"}) {
        warnings.clear();
        ClearRegistryTree(guardedServices, path);
        EXPECT_EQ(warnings.size(), 1u) << path;
    }
    EXPECT_EQ(stored(key("Software\\A\\B"), "n"), std::string("1:v\0", 4));
    ClearRegistryTree(guardedServices, "HKEY_CURRENT_USER\\Software\\A");
    EXPECT_FALSE(has("Software\\A"));
    EXPECT_TRUE(has("Software"));
}

TEST_F(ClearTree, EndsWhenASubkeyCannotBeRemoved) {
    make("A\\1\\stuck")->setText("n", "v");
    make("A\\2")->setText("n", "v");
    key("A")->setText("n", "v");
    registry.deny(HKEY_CURRENT_USER_, "A\\1\\stuck");
    ClearRegistryTree(services, "HKEY_CURRENT_USER\\A");
    registry.deny(HKEY_CURRENT_USER_, "A\\1\\stuck", false);
    EXPECT_TRUE(has("A\\1\\stuck"));
    EXPECT_TRUE(has("A\\2"));  // behind the one that stays
    EXPECT_EQ(stored(key("A"), "n"), "none");
}

TEST_F(ClearTree, EndsWhenANameIsTooLongToBeListed) {
    make("A\\" + std::string(255, 'k'));
    ClearRegistryTree(services, "HKEY_CURRENT_USER\\A");
    EXPECT_TRUE(has("A"));
}

TEST_F(ClearTree, DoesNotEmptyWhatALinkLeadsTo) {
    make("Target\\Inner")->setText("n", "v");
    const auto link = make("A\\Link");
    link->isLink = true;
    std::string target;
    for (const char c : "\\Registry\\User\\S-1-5-21-0-0-0-1000\\Target") {
        if (c != '\0') target += std::string{c, '\0'};
    }
    link->set("SymbolicLinkValue", platform::kRegLink, target);
    ClearRegistryTree(services, "HKEY_CURRENT_USER\\A");
    EXPECT_EQ(stored(key("Target\\Inner"), "n"), std::string("1:v\0", 4));
}

}  // namespace
}  // namespace tidvane::registry
