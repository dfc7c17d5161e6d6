#include "platform/common/browser_cache_on_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "base/text.h"
#include "platform/common/url_cache_builder.h"
#include "platform/memory/memory_platform.h"

namespace tidvane::platform {
namespace {

const std::string kPages = "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files\\Content.IE5";
const std::string kLowPages =
    "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files\\Low\\Content.IE5";
const std::string kCookies = "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Cookies";
const std::string kHistory = "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\History\\History.IE5";
const std::string kDay = kHistory + "\\MSHist012009110320091104";
const std::string kExplorer = "Software\\Microsoft\\Internet Explorer";

UrlCacheItem item(const std::string& url, const std::string& file = {},
                  std::size_t folder = UrlCacheItem::besideIndex) {
    UrlCacheItem made;
    made.url = url;
    made.file = file;
    made.folder = folder;
    made.size = 5;
    return made;
}

std::vector<UrlCacheItem> manyPages(int count) {
    std::vector<UrlCacheItem> items;
    items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        items.push_back(item("http://many/" + std::to_string(i), std::to_string(i) + ".htm", 0));
    }
    return items;
}

class BrowserCacheOnFilesTest : public testing::Test {
protected:
    // A user with two pages, a page of the protected mode, a cookie, and visits.
    BrowserCacheOnFilesTest() {
        put(kPages, {"AAAAAAAA", "BBBBBBBB"},
            {item("http://one/", "one[1].htm", 0), item("http://two/", "two[1].htm", 1)});
        machine.files.putFile(kPages + "\\AAAAAAAA\\one[1].htm", "<one>");
        machine.files.putFile(kPages + "\\BBBBBBBB\\two[1].htm", "<two>");
        put(kLowPages, {"CCCCCCCC"}, {item("http://low/", "low[1].htm", 0)});
        machine.files.putFile(kLowPages + "\\CCCCCCCC\\low[1].htm", "<low>");
        put(kCookies, {}, {item("Cookie:anna@one/", "anna@one[1].txt")});
        machine.files.putFile(kCookies + "\\anna@one[1].txt", "crumb");
        put(kHistory, {}, {item("Visited: anna@http://one/")});
        put(kDay, {}, {item(":2009110320091104: anna@http://one/")});
    }

    void put(const std::string& folder, const std::vector<std::string>& folders,
             const std::vector<UrlCacheItem>& items) {
        machine.files.putFile(folder + "\\index.dat", makeUrlCacheIndex(folders, items));
    }

    std::vector<std::string> addresses() {
        std::vector<std::string> list;
        for (const UrlCacheEntry& entry : cache.entries()) list.push_back(entry.sourceUrlName);
        return list;
    }

    BrowserCacheOnFiles cacheWithBound(std::size_t bound) {
        return {machine.guardedFiles, machine.guardedShell, machine.guardedRegistry, base::CodePage(1252), bound};
    }

    bool has(const std::string& path) const { return machine.files.has(path); }

    void putKey(const std::string& path, const std::string& name) {
        HKey key = 0;
        bool created = false;
        ASSERT_EQ(machine.registry.RegCreateKeyExA(HKEY_CURRENT_USER_, path, kKeyAllAccess, key, created), 0);
        ASSERT_EQ(machine.registry.RegSetValueExA(key, name, kRegSz, std::string_view("x\0", 2)), 0);
        machine.registry.RegCloseKey(key);
    }
    bool hasKey(const std::string& path) {
        HKey key = 0;
        const bool there = machine.registry.RegOpenKeyExA(HKEY_CURRENT_USER_, path, kKeyQueryValue, key) == 0;
        machine.registry.RegCloseKey(key);
        return there;
    }

    MemoryPlatform machine;
    BrowserCacheOnFiles cache{machine.guardedFiles, machine.guardedShell, machine.guardedRegistry,
                              base::CodePage(1252)};
};

// In the order of the indexes, and of the rows of each.
const std::vector<std::string> kAll = {"http://two/",
                                       "http://one/",
                                       "http://low/",
                                       "Cookie:anna@one/",
                                       "Visited: anna@http://one/",
                                       ":2009110320091104: anna@http://one/"};

std::vector<std::string> allBut(const std::vector<std::string>& gone) {
    std::vector<std::string> list;
    for (const std::string& url : kAll) {
        if (std::find(gone.begin(), gone.end(), url) == gone.end()) list.push_back(url);
    }
    return list;
}

// --- listing -------------------------------------------------------------------------------------------------------

TEST_F(BrowserCacheOnFilesTest, ListsEveryIndexOfTheUser) {
    EXPECT_EQ(addresses(), kAll);
    EXPECT_EQ(machine.removed.totals, RemovalTotals());
}

TEST_F(BrowserCacheOnFilesTest, TellsTypeTimeAndFile) {
    UrlCacheItem made = item("http://t\xE4st/", "t\xE4st.htm", 0);
    made.type = 0x41;
    made.lastAccess = 123456789;
    put(kPages, {"AAAAAAAA"}, {made});
    const std::vector<UrlCacheEntry> entries = cache.entries();
    EXPECT_EQ(entries[0].sourceUrlName, "http://täst/");
    EXPECT_EQ(entries[0].localFileName, kPages + "\\AAAAAAAA\\täst.htm");
    EXPECT_EQ(entries[0].type, 0x41u);
    EXPECT_EQ(entries[0].lastAccess, 123456789u);
    EXPECT_EQ(entries[2].localFileName, kCookies + "\\anna@one[1].txt");
    EXPECT_EQ(entries[3].localFileName, "");
}

TEST_F(BrowserCacheOnFilesTest, OlderSystemsHaveTheirIndexesAtTheirPlaces) {
    machine.shell.specialFolders[csidl::InternetCache] = "C:\\Windows\\Temporary Internet Files";
    machine.shell.specialFolders[csidl::Cookies] = "C:\\Windows\\Cookies";
    machine.shell.specialFolders[csidl::History] = "C:\\Windows\\History";
    put("C:\\Windows\\Temporary Internet Files\\Content.IE5", {"AAAAAAAA"}, {item("http://old/", "a.htm", 0)});
    put("C:\\Windows\\Cookies", {}, {item("Cookie:old@old/", "old@old[1].txt")});
    put("C:\\Windows\\History\\History.IE5", {}, {item("Visited: old@http://old/")});
    EXPECT_EQ(addresses(), (std::vector<std::string>{"http://old/", "Cookie:old@old/", "Visited: old@http://old/"}));
}

TEST_F(BrowserCacheOnFilesTest, MissingAndDamagedIndexesListNothing) {
    machine.files.take(kPages + "\\index.dat");
    machine.files.putFile(kLowPages + "\\index.dat", "");
    machine.files.putFile(kCookies + "\\index.dat", std::string(0x8000, '\xFF'));
    machine.files.putFile(kHistory + "\\index.dat", makeUrlCacheIndex({}, {item("Visited: x")}).substr(0, 0x4FFF));
    machine.files.refuse(kDay + "\\index.dat", operation::Read, Status::Denied);
    EXPECT_TRUE(addresses().empty());
    for (const std::string& url : kAll) EXPECT_FALSE(cache.DeleteUrlCacheEntry(url));
    EXPECT_EQ(machine.removed.totals, RemovalTotals());
}

// No more of it is read than an index can have.
TEST_F(BrowserCacheOnFilesTest, AHugeIndexListsNothingAndGoesWithItsKind) {
    machine.files.putFileOfLength(kPages + "\\index.dat", 1ULL << 40);
    EXPECT_EQ(addresses(), allBut({"http://one/", "http://two/"}));
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_TRUE(cache.ClearMyTracksByProcess(8));
    EXPECT_FALSE(has(kPages + "\\index.dat"));
    EXPECT_FALSE(has(kPages + "\\AAAAAAAA"));
}

TEST_F(BrowserCacheOnFilesTest, AMachineWithoutTheFoldersHasNothing) {
    machine.shell.specialFolders.clear();
    EXPECT_TRUE(addresses().empty());
    EXPECT_FALSE(cache.ClearHistory());
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://one/"));
    EXPECT_TRUE(cache.ClearMyTracksByProcess(2 + 8));
}

// --- one entry -----------------------------------------------------------------------------------------------------

TEST_F(BrowserCacheOnFilesTest, DeletesOneEntryWithItsFile) {
    machine.removed.wantBytes = true;
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_FALSE(has(kPages + "\\BBBBBBBB\\two[1].htm"));
    EXPECT_TRUE(has(kPages + "\\AAAAAAAA\\one[1].htm"));
    EXPECT_EQ(addresses(), allBut({"http://two/"}));
    EXPECT_EQ(machine.removed.totals.files, 1u);
    EXPECT_EQ(machine.removed.totals.bytes, 5u);
    EXPECT_EQ(machine.removed.totals.failed, 0u);
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
}

TEST_F(BrowserCacheOnFilesTest, DeletesCookiesAndVisitsToo) {
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("Cookie:anna@one/"));
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("Visited: anna@http://one/"));
    EXPECT_TRUE(cache.DeleteUrlCacheEntry(":2009110320091104: anna@http://one/"));
    EXPECT_EQ(addresses(), (std::vector<std::string>{"http://two/", "http://one/", "http://low/"}));
    EXPECT_FALSE(has(kCookies + "\\anna@one[1].txt"));
}

TEST_F(BrowserCacheOnFilesTest, DeletesAnAddressFromEveryIndexThatHasIt) {
    put(kLowPages, {"CCCCCCCC"}, {item("http://two/", "low[1].htm", 0)});
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_FALSE(has(kPages + "\\BBBBBBBB\\two[1].htm"));
    EXPECT_FALSE(has(kLowPages + "\\CCCCCCCC\\low[1].htm"));
}

TEST_F(BrowserCacheOnFilesTest, UnknownAndEmptyAddressesDeleteNothing) {
    for (const char* url : {"", "http://three/", "http://one", "HTTP://ONE/", "*"}) {
        EXPECT_FALSE(cache.DeleteUrlCacheEntry(url)) << url;
    }
    EXPECT_EQ(addresses(), kAll);
}

TEST_F(BrowserCacheOnFilesTest, AnEntryWhoseFileIsGoneIsDeleted) {
    machine.files.take(kPages + "\\BBBBBBBB");
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_EQ(addresses(), allBut({"http://two/"}));
    EXPECT_EQ(machine.removed.totals, RemovalTotals());
}

TEST_F(BrowserCacheOnFilesTest, AReadOnlyFileGoes) {
    machine.files.setAttributes(kPages + "\\BBBBBBBB\\two[1].htm", attribute::ReadOnly | attribute::Hidden);
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_FALSE(has(kPages + "\\BBBBBBBB\\two[1].htm"));
}

TEST_F(BrowserCacheOnFilesTest, AnEntryWhoseFileStaysIsKept) {
    machine.files.lock(kPages + "\\BBBBBBBB\\two[1].htm");
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_EQ(addresses(), kAll);
    EXPECT_EQ(machine.removed.totals.failed, 1u);
}

TEST_F(BrowserCacheOnFilesTest, AnIndexThatCannotBeWrittenIsTold) {
    const std::string before = *machine.files.bytesOf(kPages + "\\index.dat");
    machine.files.refuse(kPages + "\\index.dat", operation::Write, Status::DiskFull);
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_EQ(machine.files.bytesOf(kPages + "\\index.dat"), before);
    EXPECT_EQ(addresses(), kAll);
}

TEST_F(BrowserCacheOnFilesTest, AFolderOrLinkInPlaceOfTheFileIsNotFollowed) {
    machine.files.take(kPages + "\\BBBBBBBB\\two[1].htm");
    machine.files.putFile(kPages + "\\BBBBBBBB\\two[1].htm\\inside");
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_TRUE(has(kPages + "\\BBBBBBBB\\two[1].htm\\inside"));

    machine.files.putFile("C:\\Users\\Anna\\Documents\\letter.doc");
    machine.files.take(kPages + "\\AAAAAAAA\\one[1].htm");
    machine.files.putLink(kPages + "\\AAAAAAAA\\one[1].htm", "C:\\Users\\Anna\\Documents\\letter.doc");
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://one/"));
    EXPECT_FALSE(has(kPages + "\\AAAAAAAA\\one[1].htm"));
    EXPECT_TRUE(has("C:\\Users\\Anna\\Documents\\letter.doc"));

    // A folder of the cache that is a link leads nowhere.
    machine.files.putFile("C:\\Users\\Anna\\Documents\\low[1].htm");
    machine.files.take(kLowPages + "\\CCCCCCCC");
    machine.files.putLink(kLowPages + "\\CCCCCCCC", "C:\\Users\\Anna\\Documents");
    (void)cache.DeleteUrlCacheEntry("http://low/");
    (void)cache.ClearMyTracksByProcess(8);
    EXPECT_TRUE(has("C:\\Users\\Anna\\Documents\\low[1].htm"));
}

TEST_F(BrowserCacheOnFilesTest, NamesThatLeadAwayTouchNoFile) {
    const std::string victim =
        "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files\\victim.txt";
    machine.files.putFile(victim);
    machine.files.putFile("C:\\victim.txt");
    machine.files.putFile(kPages + "\\victim.txt");
    const std::vector<std::string> names = {"..\\victim.txt",
                                            "..\\..\\victim.txt",
                                            "C:\\victim.txt",
                                            "\\victim.txt",
                                            "..",
                                            "*",
                                            "*.txt",
                                            "victim.tx?",
                                            "index.dat",
                                            "victim.txt:stream",
                                            "../victim.txt",
                                            "\\\\?\\C:\\victim.txt",
                                            "C:victim.txt"};
    std::vector<UrlCacheItem> items;
    for (std::size_t i = 0; i < names.size(); ++i) {
        items.push_back(item("http://bad/" + std::to_string(i), names[i], i % 2 == 0 ? 0 : UrlCacheItem::besideIndex));
    }
    put(kPages, {"AAAAAAAA", "..", "..\\.."}, items);
    for (const std::string& name : {std::string("victim.txt"), std::string("two[1].htm")}) {
        items.push_back(item("http://dots/" + name, name, 1));
        items.push_back(item("http://more/" + name, name, 2));
        items.push_back(item("http://whole/" + name, "C:\\" + name, 0xFF));
    }
    put(kPages, {"AAAAAAAA", "..", "..\\.."}, items);
    for (const UrlCacheItem& one : items) EXPECT_TRUE(cache.DeleteUrlCacheEntry(one.url)) << one.url;
    EXPECT_EQ(machine.removed.totals, RemovalTotals());
    EXPECT_TRUE(has(victim));
    EXPECT_TRUE(has("C:\\victim.txt"));
    EXPECT_TRUE(has(kPages + "\\victim.txt"));
    EXPECT_TRUE(has(kPages + "\\index.dat"));

    // Nor when all of it is cleared.
    put(kPages, {"AAAAAAAA", "..", "..\\.."}, items);
    put(kCookies, {}, items);
    put(kHistory, {}, items);
    (void)cache.ClearMyTracksByProcess(4351);
    EXPECT_TRUE(has(victim));
    EXPECT_TRUE(has("C:\\victim.txt"));
    EXPECT_TRUE(has(kPages + "\\victim.txt"));
}

// --- many ------------------------------------------------------------------------------------------------------------

TEST_F(BrowserCacheOnFilesTest, ManyDeletesWriteEachIndexOnceAtTheEnd) {
    machine.files.refuse(kPages + "\\index.dat", operation::Write, Status::Denied);
    {
        const ManyDeletes together(cache);
        EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://one/"));
        EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
        EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
        EXPECT_EQ(addresses(), allBut({"http://one/", "http://two/"}));
        machine.files.allow(kPages + "\\index.dat");
    }
    EXPECT_EQ(addresses(), allBut({"http://one/", "http://two/"}));
}

TEST_F(BrowserCacheOnFilesTest, ManyDeletesThatCannotBeWrittenAreListedAgain) {
    machine.files.refuse(kPages + "\\index.dat", operation::Write, Status::DiskFull);
    {
        const ManyDeletes together(cache);
        EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://one/"));
        EXPECT_TRUE(cache.DeleteUrlCacheEntry("Cookie:anna@one/"));
    }
    EXPECT_EQ(addresses(), allBut({"Cookie:anna@one/"}));
    cache.endDeletes();  // one too many does no harm
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("Visited: anna@http://one/"));
}

TEST_F(BrowserCacheOnFilesTest, TheCostOfManyDeletesDoesNotGrowWithTheIndex) {
    const std::vector<UrlCacheItem> items = manyPages(2000);
    put(kPages, {"AAAAAAAA"}, items);
    const std::uint64_t before = machine.files.operations;
    {
        const ManyDeletes together(cache);
        for (const UrlCacheItem& one : items) EXPECT_TRUE(cache.DeleteUrlCacheEntry(one.url));
    }
    EXPECT_LT(machine.files.operations - before, 2 * items.size());
    EXPECT_EQ(addresses().size(), kAll.size() - 2);
}

TEST_F(BrowserCacheOnFilesTest, IndexesBeyondTheBoundAreDoneAtTheEnd) {
    BrowserCacheOnFiles small = cacheWithBound(1);
    {
        const ManyDeletes together(small);
        EXPECT_TRUE(small.DeleteUrlCacheEntry("http://two/"));
        EXPECT_TRUE(small.DeleteUrlCacheEntry("http://low/"));
        EXPECT_FALSE(small.DeleteUrlCacheEntry("http://two/"));
        EXPECT_FALSE(small.DeleteUrlCacheEntry("http://three/"));
        EXPECT_TRUE(has(kPages + "\\BBBBBBBB\\two[1].htm"));
        EXPECT_EQ(small.entries().size(), kAll.size() - 2);
    }
    EXPECT_EQ(addresses(), allBut({"http://two/", "http://low/"}));
    EXPECT_FALSE(has(kPages + "\\BBBBBBBB\\two[1].htm"));
    EXPECT_FALSE(has(kLowPages + "\\CCCCCCCC\\low[1].htm"));
    EXPECT_TRUE(small.DeleteUrlCacheEntry("http://one/"));
    EXPECT_FALSE(small.DeleteUrlCacheEntry("http://one/"));
    EXPECT_EQ(addresses(), allBut({"http://two/", "http://low/", "http://one/"}));
}

TEST_F(BrowserCacheOnFilesTest, AnIndexThatFitsBehindOneThatDoesNotIsKept) {
    put(kPages, {"BBBBBBBB"}, manyPages(2000));
    const std::size_t size = machine.files.bytesOf(kLowPages + "\\index.dat")->size();
    BrowserCacheOnFiles small = cacheWithBound(size);
    const ManyDeletes together(small);
    EXPECT_TRUE(small.DeleteUrlCacheEntry("http://low/"));
    EXPECT_FALSE(has(kLowPages + "\\CCCCCCCC\\low[1].htm"));
    EXPECT_TRUE(small.DeleteUrlCacheEntry("Cookie:anna@one/"));
    EXPECT_TRUE(has(kCookies + "\\anna@one[1].txt"));
}

TEST_F(BrowserCacheOnFilesTest, AnIndexBeyondTheBoundThatCannotBeWrittenIsListedAgain) {
    BrowserCacheOnFiles small = cacheWithBound(1);
    machine.files.refuse(kPages + "\\index.dat", operation::Write, Status::DiskFull);
    {
        const ManyDeletes together(small);
        EXPECT_TRUE(small.DeleteUrlCacheEntry("http://two/"));
        EXPECT_TRUE(small.DeleteUrlCacheEntry("http://low/"));
    }
    EXPECT_EQ(addresses(), allBut({"http://low/"}));
    EXPECT_FALSE(small.DeleteUrlCacheEntry("http://two/"));
}

TEST_F(BrowserCacheOnFilesTest, AnIndexBeyondTheBoundThatIsGoneAtTheEndIsNoSuccess) {
    BrowserCacheOnFiles small = cacheWithBound(1);
    const std::string index = kPages + "\\index.dat";
    int reads = 0;
    for (unsigned n = 1; n <= 20; ++n) {
        machine.files.before(index, n, [&] {
            if (++reads > 1) machine.files.refuse(index, operation::Read, Status::InUse);
        });
    }
    EXPECT_FALSE(small.DeleteUrlCacheEntry("http://two/"));
    EXPECT_GT(reads, 1);
}

TEST_F(BrowserCacheOnFilesTest, AFileOfAnIndexBeyondTheBoundThatStaysKeepsItsEntry) {
    BrowserCacheOnFiles small = cacheWithBound(1);
    machine.files.lock(kPages + "\\BBBBBBBB\\two[1].htm");
    EXPECT_FALSE(small.DeleteUrlCacheEntry("http://two/"));
    EXPECT_EQ(addresses(), kAll);
    EXPECT_EQ(machine.removed.totals.failed, 1u);
}

// An address in all of many indexes that are not in memory together must not fetch each of them each time.
TEST_F(BrowserCacheOnFilesTest, TheCostOfManyDeletesDoesNotGrowWithIndexesBeyondTheBound) {
    const std::vector<UrlCacheItem> items = manyPages(500);
    for (int day = 10; day < 30; ++day) put(kHistory + "\\MSHist01" + std::to_string(day), {"BBBBBBBB"}, items);
    BrowserCacheOnFiles small = cacheWithBound(1);
    const std::size_t before = small.entries().size();
    const std::uint64_t operations = machine.files.operations;
    {
        const ManyDeletes together(small);
        for (const UrlCacheItem& one : items) EXPECT_TRUE(small.DeleteUrlCacheEntry(one.url));
    }
    // One look at each file that is not there, and a few at each folder.
    EXPECT_LT(machine.files.operations - operations, 20 * items.size() + 1000);
    EXPECT_EQ(small.entries().size(), before - 20 * items.size());
}

TEST_F(BrowserCacheOnFilesTest, AnAddressWhoseFileStayedIsTriedOnceInABatch) {
    const std::string file = kPages + "\\BBBBBBBB\\two[1].htm";
    machine.files.lock(file);
    {
        const ManyDeletes together(cache);
        for (int i = 0; i < 5; ++i) EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
        EXPECT_EQ(machine.removed.totals.failed, 1u);
    }
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://two/"));
    EXPECT_EQ(machine.removed.totals.failed, 2u);
}

// --- all of a kind ---------------------------------------------------------------------------------------------------

TEST_F(BrowserCacheOnFilesTest, ClearHistoryTakesIndexesAndDays) {
    const std::string keys =
        "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\5.0\\Cache\\Extensible Cache";
    putKey(keys + "\\MSHist012009110320091104", "CachePath");
    putKey(keys + "\\UserData", "CachePath");
    machine.files.putFile(kHistory + "\\desktop.ini");
    machine.files.putFile(kHistory + "\\mine.txt");
    machine.files.putFile(kHistory + "\\MSHistories\\mine.txt");
    EXPECT_TRUE(cache.ClearHistory());
    EXPECT_EQ(addresses(), (std::vector<std::string>{"http://two/", "http://one/", "http://low/", "Cookie:anna@one/"}));
    EXPECT_FALSE(has(kHistory + "\\index.dat"));
    EXPECT_FALSE(has(kDay));
    EXPECT_TRUE(has(kHistory + "\\desktop.ini"));
    EXPECT_TRUE(has(kHistory + "\\mine.txt"));
    EXPECT_TRUE(has(kHistory + "\\MSHistories\\mine.txt"));
    EXPECT_FALSE(hasKey(keys + "\\MSHist012009110320091104"));
    EXPECT_TRUE(hasKey(keys + "\\UserData"));
    EXPECT_EQ(machine.removed.totals.files, 2u);
    EXPECT_EQ(machine.removed.totals.folders, 1u);
    EXPECT_EQ(machine.removed.totals.keys, 1u);
    EXPECT_TRUE(cache.ClearHistory());  // again, with nothing left
}

TEST_F(BrowserCacheOnFilesTest, ADamagedIndexGoesFromTheFolderOfItsOwnOnly) {
    const std::string shared = "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\History\\index.dat";
    machine.files.putFile(kHistory + "\\index.dat", "damaged");
    machine.files.putFile(shared, "not of the cache");
    EXPECT_TRUE(cache.ClearHistory());
    EXPECT_FALSE(has(kHistory + "\\index.dat"));
    EXPECT_TRUE(has(shared));
    put("C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\History", {}, {item("Visited: x")});
    EXPECT_TRUE(cache.ClearHistory());
    EXPECT_FALSE(has(shared));
}

TEST_F(BrowserCacheOnFilesTest, WhatStaysIsToldByEveryClearing) {
    machine.files.lock(kHistory + "\\index.dat");
    EXPECT_FALSE(cache.ClearHistory());
    EXPECT_FALSE(cache.ClearMyTracksByProcess(1));
    machine.files.lock(kCookies + "\\anna@one[1].txt");
    EXPECT_FALSE(cache.ClearMyTracksByProcess(2));
    machine.files.lock(kPages + "\\BBBBBBBB\\two[1].htm");
    EXPECT_FALSE(cache.ClearMyTracksByProcess(8));
    EXPECT_TRUE(has(kPages + "\\BBBBBBBB\\two[1].htm"));
    EXPECT_FALSE(has(kPages + "\\AAAAAAAA"));
}

TEST_F(BrowserCacheOnFilesTest, OneIsTheHistoryWithTheTypedAddresses) {
    putKey(kExplorer + "\\TypedURLs", "url1");
    putKey(kExplorer + "\\TypedURLsTime", "url1");
    putKey(kExplorer + "\\Main", "Start Page");
    EXPECT_TRUE(cache.ClearMyTracksByProcess(1));
    EXPECT_EQ(addresses(), (std::vector<std::string>{"http://two/", "http://one/", "http://low/", "Cookie:anna@one/"}));
    EXPECT_FALSE(hasKey(kExplorer + "\\TypedURLs"));
    EXPECT_FALSE(hasKey(kExplorer + "\\TypedURLsTime"));
    EXPECT_TRUE(hasKey(kExplorer + "\\Main"));
}

TEST_F(BrowserCacheOnFilesTest, TwoIsCookies) {
    for (const char* name :
         {"\\0A1B2C3D.txt", "\\0A1B2C3D.cookie", "\\Low\\anna@low[1].txt", "\\notes.txt", "\\notes.doc"}) {
        machine.files.putFile(kCookies + name);
    }
    EXPECT_TRUE(cache.ClearMyTracksByProcess(2));
    EXPECT_EQ(addresses(), allBut({"Cookie:anna@one/"}));
    EXPECT_EQ(machine.files.everythingBelow(kCookies),
              (std::vector<std::string>{kCookies + "\\Low\\", kCookies + "\\notes.doc", kCookies + "\\notes.txt"}));
}

TEST_F(BrowserCacheOnFilesTest, EightIsTheTemporaryInternetFiles) {
    machine.files.putFile(kPages + "\\AAAAAAAA\\known to no index.gif");
    machine.files.putFile(kPages + "\\DDDDDDDD\\old.gif");
    machine.files.putFile(kPages + "\\desktop.ini");
    machine.files.putFile(kPages + "\\Own folder\\mine.txt");
    EXPECT_TRUE(cache.ClearMyTracksByProcess(8));
    EXPECT_EQ(addresses(), allBut({"http://two/", "http://one/", "http://low/"}));
    EXPECT_EQ(machine.files.everythingBelow(kPages),
              (std::vector<std::string>{kPages + "\\Own folder\\", kPages + "\\Own folder\\mine.txt",
                                        kPages + "\\desktop.ini"}));
    EXPECT_TRUE(machine.files.everythingBelow(kLowPages).empty());
}

TEST_F(BrowserCacheOnFilesTest, SixteenIsFormDataAndThirtyTwoPasswords) {
    const std::string forms = kExplorer + "\\IntelliForms";
    putKey(forms, "AskUser");
    for (const char* key : {"\\Storage1", "\\Storage2", "\\SPW"}) putKey(forms + key, "0A1B");
    EXPECT_TRUE(cache.ClearMyTracksByProcess(16));
    EXPECT_FALSE(hasKey(forms + "\\Storage1"));
    EXPECT_TRUE(hasKey(forms + "\\Storage2"));
    EXPECT_TRUE(hasKey(forms + "\\SPW"));
    EXPECT_TRUE(cache.ClearMyTracksByProcess(32));
    EXPECT_FALSE(hasKey(forms + "\\Storage2"));
    EXPECT_FALSE(hasKey(forms + "\\SPW"));
    EXPECT_TRUE(hasKey(forms));
    EXPECT_EQ(addresses(), kAll);
}

TEST_F(BrowserCacheOnFilesTest, TheNumberOfEverythingClearsEverything) {
    const std::string tabs = "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Internet Explorer\\Recovery";
    machine.files.putFile(tabs + "\\Active\\{0A1B2C3D-0000-0000-0000-000000000000}.dat");
    machine.files.putFile(tabs + "\\High\\Last Active\\RecoveryStore.{0A1B2C3D-0000-0000-0000-000000000000}.dat");
    machine.files.putFile("C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Internet Explorer\\brndlog.txt");
    putKey(kExplorer + "\\TypedURLs", "url1");
    putKey(kExplorer + "\\IntelliForms\\Storage1", "0A1B");
    putKey(kExplorer + "\\IntelliForms\\Storage2", "0A1B");
    putKey(kExplorer + "\\Main", "Start Page");
    EXPECT_TRUE(cache.ClearMyTracksByProcess(4351));
    EXPECT_TRUE(addresses().empty());
    for (const char* key : {"\\TypedURLs", "\\IntelliForms\\Storage1", "\\IntelliForms\\Storage2"}) {
        EXPECT_FALSE(hasKey(kExplorer + key)) << key;
    }
    EXPECT_TRUE(hasKey(kExplorer + "\\Main"));
    EXPECT_EQ(machine.files.everythingBelow(tabs),
              (std::vector<std::string>{tabs + "\\Active\\", tabs + "\\High\\", tabs + "\\High\\Last Active\\"}));
    EXPECT_TRUE(has("C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Internet Explorer\\brndlog.txt"));
    EXPECT_EQ(machine.removed.totals.failed, 0u);
    EXPECT_TRUE(machine.warnings.empty());
}

TEST_F(BrowserCacheOnFilesTest, NumbersThatNameNothingClearNothing) {
    for (const int number : {0, 4, 64, 256, 4096, 1 << 30}) EXPECT_TRUE(cache.ClearMyTracksByProcess(number)) << number;
    EXPECT_EQ(addresses(), kAll);
    EXPECT_EQ(machine.removed.totals, RemovalTotals());
}

TEST_F(BrowserCacheOnFilesTest, FoldersThatAreProtectedPlacesAreNotEmptied) {
    machine.shell.specialFolders[csidl::Cookies] = "C:\\Windows";
    machine.files.putFile("C:\\Windows\\anna@one[1].txt");
    machine.files.putFile("C:\\Windows\\01234567.txt");
    EXPECT_FALSE(cache.ClearMyTracksByProcess(2));
    EXPECT_TRUE(has("C:\\Windows\\anna@one[1].txt"));
    EXPECT_TRUE(has("C:\\Windows\\01234567.txt"));
    ASSERT_FALSE(machine.warnings.empty());
    EXPECT_EQ(machine.warnings[0].kind, WarningKind::ProtectedPlace);
}

// A place of the cache that is a link: what it leads to is no cache of this user.
class LinkedCacheFolder : public BrowserCacheOnFilesTest, public testing::WithParamInterface<std::string> {};

TEST_P(LinkedCacheFolder, IsLeftAloneWithWhatItLeadsTo) {
    const std::string documents = "C:\\Users\\Anna\\Documents";
    for (const std::string below : {"", "\\Content.IE5", "\\Low\\Content.IE5", "\\History.IE5", "\\Low\\History.IE5"}) {
        put(documents + below, {"AAAAAAAA"},
            {item("http://mine/", "mine.htm", 0), item("http://beside/", "mine.htm", UrlCacheItem::besideIndex)});
        machine.files.putFile(documents + below + "\\mine.htm");
        machine.files.putFile(documents + below + "\\anna@mine.txt");
        machine.files.putFile(documents + below + "\\AAAAAAAA\\mine.htm");
    }
    const std::vector<std::string> before = machine.files.everythingBelow(documents);
    const std::string index = *machine.files.bytesOf(documents + "\\index.dat");
    machine.files.take(GetParam());
    machine.files.putLink(GetParam(), documents);
    (void)cache.DeleteUrlCacheEntry("http://mine/");
    (void)cache.DeleteUrlCacheEntry("http://beside/");
    EXPECT_EQ(machine.files.everythingBelow(documents), before);
    EXPECT_EQ(machine.files.bytesOf(documents + "\\index.dat"), index);
    (void)cache.ClearMyTracksByProcess(1 + 2 + 8);
    EXPECT_EQ(machine.files.everythingBelow(documents), before);
}

INSTANTIATE_TEST_SUITE_P(Each, LinkedCacheFolder,
                         testing::Values(kPages, kPages.substr(0, kPages.rfind('\\')), kLowPages, kCookies,
                                         kCookies + "\\Low", kHistory, kHistory.substr(0, kHistory.rfind('\\')), kDay));

struct ForeignFolder {
    int special;
    std::string place;    // what the machine answers for it
    std::string folder;   // below it
    std::string another;  // a file that only ClearMyTracksByProcess would take
    int tracks;
};

void PrintTo(const ForeignFolder& given, std::ostream* out) {
    *out << given.special << " is " << given.place;
}

class ProtectedCacheFolder : public BrowserCacheOnFilesTest, public testing::WithParamInterface<ForeignFolder> {};

TEST_P(ProtectedCacheFolder, IsLeftAloneWithAllBelowIt) {
    const ForeignFolder& given = GetParam();
    const std::string top(base::withoutBackslash(given.place));
    machine.shell.specialFolders = {{given.special, given.place}};
    const std::string named = top + "\\" + given.folder + "\\file.bin";
    const std::string another = top + "\\" + given.another;
    machine.files.putFile(named, "12345");
    machine.files.putFile(another, "12345");
    put(top, {given.folder}, {item("http://bad/", "file.bin", 0)});
    put(top + "\\Low", {given.folder}, {item("http://bad/", "file.bin", 0)});

    EXPECT_TRUE(addresses().empty());
    EXPECT_FALSE(cache.DeleteUrlCacheEntry("http://bad/"));
    EXPECT_FALSE(cache.ClearMyTracksByProcess(given.tracks));
    for (const std::string& file : {named, another, top + "\\index.dat", top + "\\Low\\index.dat"}) {
        EXPECT_TRUE(has(file)) << file;
    }
    EXPECT_EQ(machine.removed.totals.files, 0u);
    ASSERT_FALSE(machine.warnings.empty());
    for (const Warning& warning : machine.warnings) EXPECT_EQ(warning.kind, WarningKind::ProtectedPlace);
}

INSTANTIATE_TEST_SUITE_P(
    Each, ProtectedCacheFolder,
    testing::Values(ForeignFolder{csidl::Cookies, "C:\\Windows", "System32", "Low\\schedule@one.txt", 2},
                    ForeignFolder{csidl::Cookies, "C:\\Windows\\", "System32", "abcdefgh.txt", 2},
                    ForeignFolder{csidl::InternetCache, "C:\\", "Windows", "Content.IE5\\AAAAAAAA\\mine.txt", 8},
                    ForeignFolder{csidl::History, "C:\\Users\\Anna", "Pictures", "MSHist01\\mine.txt", 1},
                    ForeignFolder{csidl::Cookies, "C:\\Users\\Anna\\AppData\\Roaming", "Mozilla", "anna@mine.txt", 2},
                    ForeignFolder{csidl::InternetCache, "C:\\Users\\Anna\\AppData\\Local", "Mail",
                                  "Content.IE5\\AAAAAAAA\\mine.txt", 8},
                    ForeignFolder{csidl::History, "C:\\Documents and Settings\\Anna\\Local Settings\\Application Data",
                                  "Mail", "MSHist01\\mine.txt", 1},
                    ForeignFolder{csidl::History, "C:\\", "Users", "MSHist1\\mine.txt", 1}));

TEST_F(BrowserCacheOnFilesTest, AProtectedFolderOfOneKindDoesNotHinderTheOthers) {
    machine.shell.specialFolders[csidl::Cookies] = "C:\\Windows";
    machine.files.putFile("C:\\Windows\\anna@one[1].txt");
    EXPECT_EQ(addresses(), allBut({"Cookie:anna@one/"}));
    EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://two/"));
    machine.warnings.clear();
    EXPECT_TRUE(cache.ClearMyTracksByProcess(1 + 8));
    EXPECT_TRUE(addresses().empty());
    EXPECT_TRUE(has("C:\\Windows\\anna@one[1].txt"));
}

TEST_F(BrowserCacheOnFilesTest, TheUsualFoldersOfEverySystemAreTheCaches) {
    struct Usual {
        const char* pages;
        const char* cookies;
        const char* history;
    };
    for (const Usual& usual :
         {Usual{"C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\INetCache",
                "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\INetCookies",
                "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\History"},
          Usual{"C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\Temporary Internet Files",
                "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Cookies",
                "C:\\Users\\Anna\\AppData\\Local\\Microsoft\\Windows\\History"},
          Usual{"C:\\Documents and Settings\\Anna\\Local Settings\\Temporary Internet Files",
                "C:\\Documents and Settings\\Anna\\Cookies",
                "C:\\Documents and Settings\\Anna\\Local Settings\\History"},
          Usual{"C:\\Windows\\Temporary Internet Files", "C:\\Windows\\Cookies", "C:\\Windows\\History"}}) {
        machine.shell.specialFolders[csidl::InternetCache] = usual.pages;
        machine.shell.specialFolders[csidl::Cookies] = usual.cookies;
        machine.shell.specialFolders[csidl::History] = usual.history;
        const std::string pages = std::string(usual.pages) + "\\Content.IE5";
        put(pages, {"AAAAAAAA"}, {item("http://a/", "a.htm", 0), item("http://b/", "b.htm", 0)});
        machine.files.putFile(pages + "\\AAAAAAAA\\a.htm");
        put(usual.cookies, {}, {item("Cookie:a@a/", "a@a.txt")});
        machine.files.putFile(std::string(usual.cookies) + "\\a@a.txt");
        put(std::string(usual.history) + "\\History.IE5", {}, {item("Visited: a@a")});
        EXPECT_TRUE(cache.DeleteUrlCacheEntry("http://a/")) << usual.pages;
        EXPECT_FALSE(has(pages + "\\AAAAAAAA\\a.htm"));
        EXPECT_TRUE(cache.ClearMyTracksByProcess(1 + 2 + 8)) << usual.pages;
        EXPECT_TRUE(addresses().empty()) << usual.pages;
        EXPECT_FALSE(has(std::string(usual.cookies) + "\\a@a.txt"));
    }
    EXPECT_TRUE(machine.warnings.empty());
}

}  // namespace
}  // namespace tidvane::platform
