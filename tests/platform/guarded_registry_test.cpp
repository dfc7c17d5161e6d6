#include "platform/guard/guarded_registry.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/common/protected_keys.h"
#include "platform/common/registry_in_tree.h"

namespace tidvane::platform {
namespace {

class GuardedRegistryTest : public testing::Test {
protected:
    GuardedRegistryTest() {
        for (const char* path : {"Software\\Product\\Recent", "System\\x", "SAM\\x", "Security\\x", "Other\\x"}) {
            tree.make("Machine\\" + std::string(path));
            tree.make("User\\S-1-5-21-0-0-0-1000\\" + std::string(path));
        }
        tree.make("Machine\\Software\\Classes\\.txt");
        tree.make("Machine\\System\\CurrentControlSet\\Hardware Profiles\\Current\\Software\\x");
        tree.find("User\\S-1-5-21-0-0-0-1000\\Software")->setText("v", "1");
        tree.find("User\\S-1-5-21-0-0-0-1000\\Software\\Product")->setText("v", "1");
    }
    HKey open(HKey parent, const std::string& path) {
        HKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(parent, path, kKeyAllAccess, key), 0) << path;
        return key;
    }
    static std::size_t keysBelow(const RegistryKey& key) {
        std::size_t count = 0;
        for (const RegistryKeyPtr& child : key.children()) count += 1 + keysBelow(*child);
        return count;
    }

    RegistryTree tree;
    RemovalCounter removed;
    RegistryInTree store{tree, removed};
    std::vector<Warning> warnings;
    GuardedRegistry registry{store, removed, [this](const Warning& warning) { warnings.push_back(warning); }};
};

TEST_F(GuardedRegistryTest, RefusesHivesAndFirstLevelKeysAndChangesNothing) {
    const std::size_t before = keysBelow(*tree.root());
    struct Place {
        HKey hive;
        const char* path;
    };
    const std::vector<Place> places{
        {HKEY_CURRENT_USER_, ""},
        {HKEY_CURRENT_USER_, "Software"},
        {HKEY_CURRENT_USER_, "SOFTWARE\\"},
        {HKEY_CURRENT_USER_, "system"},
        {HKEY_CURRENT_USER_, "SAM"},
        {HKEY_CURRENT_USER_, "security"},
        {HKEY_LOCAL_MACHINE_, ""},
        {HKEY_LOCAL_MACHINE_, "Software"},
        {HKEY_LOCAL_MACHINE_, "System"},
        {HKEY_LOCAL_MACHINE_, "\\"},
        {HKEY_LOCAL_MACHINE_, "\\\\"},
        {HKEY_LOCAL_MACHINE_, "software\\classes"},
        {HKEY_CLASSES_ROOT_, ""},
        {HKEY_USERS_, ""},
        {HKEY_USERS_, "s-1-5-21-0-0-0-1000"},
        {HKEY_USERS_, "S-1-5-21-0-0-0-1000\\Software"},
        {0xFFFFFFFF80000001u, "Software"},
        {HKEY_CURRENT_CONFIG_, ""},
        {HKEY_CURRENT_CONFIG_, "Software"},
        {HKEY_CURRENT_CONFIG_, "system\\"},
    };
    std::size_t warned = 0;
    for (const Place& place : places) {
        EXPECT_EQ(registry.SHDeleteKeyA(place.hive, place.path), 5) << place.hive << place.path;
        EXPECT_EQ(registry.RegDeleteKeyA(place.hive, place.path), 5) << place.hive << place.path;
        EXPECT_FALSE(registry.mayClearTree(place.hive, place.path)) << place.hive << place.path;
        warned += 3;
        ASSERT_EQ(warnings.size(), warned) << place.path;
        EXPECT_EQ(warnings.back().kind, WarningKind::ProtectedKey);
    }
    EXPECT_EQ(warnings.back().target, "HKEY_CURRENT_CONFIG\\system");
    EXPECT_EQ(keysBelow(*tree.root()), before);
    EXPECT_EQ(removed.totals.keys, 0u);
}

TEST_F(GuardedRegistryTest, FollowsHandlesToWhereTheyLead) {
    const HKey hive = open(HKEY_CURRENT_USER_, "");
    const HKey software = open(hive, "Software");
    const HKey same = open(software, "");
    const HKey user = open(HKEY_USERS_, "S-1-5-21-0-0-0-1000");
    HKey created = 0;
    bool isNew = false;
    ASSERT_EQ(registry.RegCreateKeyExA(user, "Software", kKeyAllAccess, created, isNew), 0);
    EXPECT_EQ(registry.SHDeleteKeyA(hive, ""), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(hive, "Software"), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(software, ""), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(same, ""), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(user, ""), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(created, ""), 5);
    EXPECT_EQ(registry.RegDeleteValueA(software, "v"), 5);
    EXPECT_EQ(registry.RegDeleteValueA(HKEY_CURRENT_USER_, "v"), 5);
    EXPECT_EQ(warnings.size(), 8u);
    EXPECT_EQ(warnings[1].target, "HKEY_CURRENT_USER\\Software");
    EXPECT_EQ(registry.SHDeleteKeyA(software, "Product"), 0);
}

TEST_F(GuardedRegistryTest, LetsEverythingBelowGo) {
    EXPECT_EQ(registry.RegDeleteValueA(open(HKEY_CURRENT_USER_, "Software\\Product"), "v"), 0);
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_CURRENT_USER_, "Software\\Product\\Recent"), 0);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "Software\\Product"), 0);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_LOCAL_MACHINE_, "Other"), 0);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CLASSES_ROOT_, ".txt"), 0);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_CONFIG_, "Software\\x"), 0);
    EXPECT_EQ(registry.RegDeleteKeyA(HKEY_LOCAL_MACHINE_, "Software\\Product\\Missing"), 2);
    EXPECT_TRUE(registry.mayClearTree(HKEY_CURRENT_USER_, "Software\\Product"));
    EXPECT_TRUE(warnings.empty());
}

TEST_F(GuardedRegistryTest, CountsARefusedTargetOnlyWhenItIsThere) {
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_CURRENT_USER_, "Software"), 5);
    EXPECT_EQ(removed.totals.failed, 1u);
    EXPECT_EQ(registry.SHDeleteKeyA(HKEY_USERS_, "S-1-5-18"), 5);
    EXPECT_EQ(registry.RegDeleteValueA(open(HKEY_CURRENT_USER_, "Software"), "missing"), 5);
    EXPECT_EQ(removed.totals.failed, 1u);
    EXPECT_EQ(registry.RegDeleteValueA(open(HKEY_CURRENT_USER_, "Software"), "v"), 5);
    EXPECT_EQ(removed.totals.failed, 2u);
}

TEST_F(GuardedRegistryTest, TheNullHandleNeverReachesTheStore) {
    class Counting : public RegistryInTree {
    public:
        using RegistryInTree::RegistryInTree;
        RegResult RegDeleteKeyA(HKey, const std::string&) override { return ++calls, 0; }
        RegResult SHDeleteKeyA(HKey, const std::string&) override { return ++calls, 0; }
        RegResult RegDeleteValueA(HKey, const std::string&) override { return ++calls, 0; }
        int calls = 0;
    };
    Counting inner(tree, removed);
    GuardedRegistry guarded(inner, removed, nullptr);
    EXPECT_EQ(guarded.RegDeleteKeyA(0, "x"), 6);
    EXPECT_EQ(guarded.SHDeleteKeyA(0, ""), 6);
    EXPECT_EQ(guarded.RegDeleteValueA(0, "x"), 6);
    EXPECT_EQ(inner.calls, 0);
    EXPECT_EQ(guarded.SHDeleteKeyA(HKEY_CURRENT_USER_, "Other"), 0);
    EXPECT_EQ(inner.calls, 1);
}

TEST_F(GuardedRegistryTest, ARemoteMachineIsGuardedAlike) {
    store.addRemoteMachine("\\\\far").make("Machine\\Software\\x");
    HKey remote = 0;
    ASSERT_EQ(registry.RegConnectRegistryA("\\\\far", HKEY_LOCAL_MACHINE_, remote), 0);
    EXPECT_EQ(registry.SHDeleteKeyA(remote, "Software"), 5);
    EXPECT_EQ(registry.SHDeleteKeyA(remote, "Software\\x"), 0);
}

TEST_F(GuardedRegistryTest, WorksWithoutASink) {
    GuardedRegistry quiet(store, removed, nullptr);
    EXPECT_EQ(quiet.SHDeleteKeyA(HKEY_CURRENT_USER_, "Software"), 5);
}

TEST(ProtectedKeys, NearMissesAreNotProtected) {
    EXPECT_FALSE(isProtectedKey(HKEY_CURRENT_USER_, "Software2"));
    EXPECT_FALSE(isProtectedKey(HKEY_CURRENT_USER_, " Software"));
    EXPECT_FALSE(isProtectedKey(HKEY_CURRENT_USER_, "Soft\\ware"));
    EXPECT_FALSE(isProtectedKey(HKEY_CURRENT_USER_, "Software\\System"));
    EXPECT_FALSE(isProtectedKey(HKEY_CLASSES_ROOT_, "Software"));
    EXPECT_FALSE(isProtectedKey(HKEY_LOCAL_MACHINE_, "Software\\Classes\\.txt"));
    EXPECT_FALSE(isProtectedKey(0x100, ""));
    EXPECT_TRUE(isProtectedKey(HKEY_CURRENT_USER_, std::string_view("Software\0x", 10)));
    EXPECT_TRUE(isProtectedKey(HKEY_USERS_, "anyone\\\\SYSTEM\\"));
}

}  // namespace
}  // namespace tidvane::platform
