#include "registry/delete_all_keys.h"

#include "registry/hst_delete.h"
#include "registry_fixture.h"

namespace tidvane::registry {
namespace {

class DeleteKeys : public RegistryFixture {
protected:
    long result = -1;
};

TEST_F(DeleteKeys, RemovesASubkeyWithItsTree) {
    make("A\\B\\C\\D")->setText("n", "v");
    make("A\\E");
    DeleteAllKeys(registry, HKEY_CURRENT_USER_, "A", "B\\C", result);
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(has("A\\B\\C"));
    EXPECT_TRUE(has("A\\B"));
    EXPECT_TRUE(has("A\\E"));
    EXPECT_EQ(removed.totals.keys, 2u);
    EXPECT_EQ(removed.totals.values, 1u);
}

TEST_F(DeleteKeys, AnEmptySubkeyMeansTheKeyItself) {
    make("A\\B\\C");
    DeleteAllKeys(registry, HKEY_CURRENT_USER_, "A\\B", "", result);
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(has("A\\B"));
    EXPECT_TRUE(has("A"));
}

TEST_F(DeleteKeys, AMissingParentAndAMissingKeyBothFail) {
    make("A");
    DeleteAllKeys(registry, HKEY_CURRENT_USER_, "A", "B", result);
    EXPECT_NE(result, 0);
    result = 0;
    DeleteAllKeys(registry, HKEY_CURRENT_USER_, "Missing", "B", result);
    EXPECT_NE(result, 0);
    EXPECT_EQ(removed.totals, platform::RemovalTotals{});
}

TEST_F(DeleteKeys, AMissingParentWithAnEmptySubkeyDeletesNothing) {
    make("A\\B");
    const auto before = removed.totals;
    DeleteAllKeys(registry, HKEY_CURRENT_USER_, "Missing", "", result);
    EXPECT_NE(result, 0);
    EXPECT_TRUE(has("A\\B"));
    EXPECT_EQ(removed.totals, before);
}

TEST_F(DeleteKeys, AKeyWithoutRightsLooksLikeAMissingOne) {
    make("A\\B");
    registry.deny(HKEY_CURRENT_USER_, "A");
    DeleteAllKeys(registry, HKEY_CURRENT_USER_, "A", "B", result);
    EXPECT_NE(result, 0);
    registry.deny(HKEY_CURRENT_USER_, "A", false);
    EXPECT_TRUE(has("A\\B"));
}

TEST_F(DeleteKeys, OfSeveralKeysOnlyTheLastResultIsKept) {
    make("A\\1");
    make("A\\2");
    for (const char* name : {"1", "2", "3"}) DeleteAllKeys(registry, HKEY_CURRENT_USER_, "A", name, result);
    EXPECT_NE(result, 0);
    EXPECT_FALSE(has("A\\1"));
    EXPECT_FALSE(has("A\\2"));
    make("A\\3");
    for (const char* name : {"1", "2", "3"}) DeleteAllKeys(registry, HKEY_CURRENT_USER_, "A", name, result);
    EXPECT_EQ(result, 0);
}

TEST_F(DeleteKeys, AProtectedKeyIsRefusedThroughItsHandle) {
    make("Software\\A");
    int warned = 0;
    platform::GuardedRegistry guarded(registry, removed, [&](const platform::Warning&) { ++warned; });
    DeleteAllKeys(guarded, HKEY_CURRENT_USER_, "Software", "", result);
    EXPECT_EQ(result, 5);
    EXPECT_TRUE(has("Software\\A"));
    EXPECT_EQ(warned, 1);
    DeleteAllKeys(guarded, HKEY_CURRENT_USER_, "Missing", "", result);
    EXPECT_EQ(result, 6);
    DeleteAllKeys(guarded, HKEY_CURRENT_USER_, "Software", "A", result);
    EXPECT_EQ(result, 0);
}

class ScriptedCache final : public platform::BrowserCache {
public:
    std::vector<platform::UrlCacheEntry> entries() override { return {}; }
    bool DeleteUrlCacheEntry(const std::string&) override { return false; }
    bool ClearHistory() override { return ++cleared, canBeMade; }
    bool ClearMyTracksByProcess(int) override { return false; }
    bool canBeMade = true;
    int cleared = 0;
};

TEST(HstDelete, TellsWhetherTheHistoryObjectCouldBeMade) {
    ScriptedCache cache;
    bool done = false;
    hstDelete(cache, done);
    EXPECT_TRUE(done);
    EXPECT_EQ(cache.cleared, 1);
    cache.canBeMade = false;
    hstDelete(cache, done);
    EXPECT_FALSE(done);
}

}  // namespace
}  // namespace tidvane::registry
