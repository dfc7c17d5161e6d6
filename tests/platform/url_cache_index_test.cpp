#include "platform/common/url_cache_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iterator>
#include <random>

#include "platform/common/url_cache_builder.h"
#include "platform/common/url_cache_format.h"

namespace tidvane::platform {
namespace {

using namespace url_cache;

constexpr std::size_t kRecordsOfOneTable = kFirstBlock + kTableBlocks * kBlockSize;  // where a built one begins them

UrlCacheItem page(const std::string& url, const std::string& file, std::size_t folder = 0, std::uint64_t size = 10) {
    UrlCacheItem item;
    item.url = url;
    item.file = file;
    item.folder = folder;
    item.size = size;
    item.headers = "HTTP/1.1 200 OK\r\n\r\n";
    return item;
}

std::string twoPages() {
    return makeUrlCacheIndex({"AAAAAAAA", "BBBBBBBB"}, {page("http://one.example/", "one[1].htm", 0, 10),
                                                        page("http://two.example/", "two[1].htm", 1, 30)});
}

std::string reference(const std::string& name) {
    std::ifstream in(std::string(TIDVANE_REFERENCE_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> addresses(const std::string& bytes) {
    std::vector<std::string> list;
    const auto index = UrlCacheIndex::read(bytes);
    if (!index) return {"no index"};
    for (std::size_t i = 0; i < index->records().size(); ++i) {
        if (!index->isRemoved(i)) list.push_back(index->records()[i].url);
    }
    std::sort(list.begin(), list.end());
    return list;
}

UrlCacheIndex::Record onlyRecord(const std::string& bytes) {
    const auto index = UrlCacheIndex::read(bytes);
    return index && index->records().size() == 1 ? index->records()[0] : UrlCacheIndex::Record{"not one record"};
}

std::string without(const std::string& bytes, const std::string& url) {
    auto index = UrlCacheIndex::read(bytes);
    if (!index) return "no index";
    for (const std::size_t record : index->find(url)) index->remove(record);
    return index->bytes();
}

// Reads, and removes all it finds, as the worst a caller can do.
void wearOut(const std::string& bytes) {
    auto index = UrlCacheIndex::read(bytes);
    if (!index) return;
    for (std::size_t i = 0; i < index->records().size(); ++i) {
        const UrlCacheIndex::Record& record = index->records()[i];
        EXPECT_FALSE(record.url.empty());
        EXPECT_TRUE(record.file.empty() || isCachedFileName(record.file));
        EXPECT_TRUE(record.folder.empty() || isCacheFolderName(record.folder));
        index->remove(i);
    }
    EXPECT_EQ(index->bytes().size(), bytes.size());
    EXPECT_TRUE(addresses(index->bytes()).empty());
}

// --- what Wine writes ----------------------------------------------------------------------------------------------

TEST(UrlCacheIndex, ReadsWhatWineWrote) {
    const auto index = UrlCacheIndex::read(reference("url_cache_wine.dat"));
    ASSERT_TRUE(index);
    ASSERT_EQ(index->records().size(), 2u);
    const UrlCacheIndex::Record& one = index->records()[index->find("http://one.example/index.htm").at(0)];
    EXPECT_EQ(one.folder, "ZL44C2N2");
    EXPECT_EQ(one.file, "index[0].htm");
    EXPECT_EQ(one.type, url_cache_type::Normal);
    EXPECT_EQ(one.size, 36u);
    EXPECT_EQ(one.lastAccess, 0x01DD79A77F23808Du);
    EXPECT_EQ(index->records()[index->find("http://two.example/a/b?c=d").at(0)].file, "b[0].htm");
}

TEST(UrlCacheIndex, RemovesAsWineDoesAndOverwritesTheRecord) {
    constexpr std::size_t kRecord = 0x5100;
    std::string expected = reference("url_cache_wine_deleted.dat");
    ASSERT_EQ(expected.compare(kRecord, 4, "URL "), 0);
    expected.replace(kRecord, 2 * kBlockSize, 2 * kBlockSize, '\0');
    EXPECT_TRUE(without(reference("url_cache_wine.dat"), "http://two.example/a/b?c=d") == expected);
}

TEST(UrlCacheBuilder, PutsAddressesIntoTheSlotsOfWine) {
    const std::string wine = reference("url_cache_wine.dat");
    const std::string built =
        makeUrlCacheIndex({}, {page("http://one.example/index.htm", "a"), page("http://two.example/a/b?c=d", "b")});
    for (std::size_t i = 0; i < kTableSlots; ++i) {
        const std::size_t slot = kFirstBlock + kSlots + i * kSlotSize;
        EXPECT_EQ(get32(built, slot), get32(wine, slot)) << i;
    }
    EXPECT_EQ(urlCacheHash(""), 0u);
}

// --- lists and removes ---------------------------------------------------------------------------------------------

TEST(UrlCacheIndex, ListsWithTypeTimeAndPlaceOfTheFile) {
    UrlCacheItem item = page("http://a.example/", "a[1].gif", 1, 5'000'000'000);
    item.type = 0x200001;
    item.lastAccess = 0x0123456789ABCDEF;
    const UrlCacheIndex::Record record = onlyRecord(makeUrlCacheIndex({"AAAAAAAA", "BBBBBBBB"}, {item}));
    EXPECT_EQ(record.url, "http://a.example/");
    EXPECT_EQ(record.folder, "BBBBBBBB");
    EXPECT_EQ(record.file, "a[1].gif");
    EXPECT_EQ(record.type, 0x200001u);
    EXPECT_EQ(record.lastAccess, 0x0123456789ABCDEFu);
    EXPECT_EQ(record.size, 5'000'000'000u);
}

TEST(UrlCacheIndex, ACookieLiesBesideTheIndexAndAVisitHasNoFile) {
    const auto index = UrlCacheIndex::read(
        makeUrlCacheIndex({}, {page("Cookie:anna@a.example/", "anna@a[1].txt", UrlCacheItem::besideIndex),
                               page("Visited: anna@http://b.example/", "", UrlCacheItem::besideIndex)}));
    ASSERT_TRUE(index);
    const UrlCacheIndex::Record& cookie = index->records()[index->find("Cookie:anna@a.example/").at(0)];
    EXPECT_EQ(cookie.folder, "");
    EXPECT_EQ(cookie.file, "anna@a[1].txt");
    EXPECT_EQ(index->records()[index->find("Visited: anna@http://b.example/").at(0)].file, "");
}

TEST(UrlCacheIndex, RemovalFreesBlocksMarksTheSlotAndLowersTheCounters) {
    const std::string before = twoPages();
    const std::string after = without(before, "http://two.example/");
    EXPECT_EQ(addresses(after), std::vector<std::string>{"http://one.example/"});
    EXPECT_EQ(get32(before, kBlocksInUse), kTableBlocks + 4);
    EXPECT_EQ(get32(after, kBlocksInUse), kTableBlocks + 2);
    EXPECT_EQ(static_cast<unsigned char>(before[kBitmap + 4]), 0x0F);
    EXPECT_EQ(static_cast<unsigned char>(after[kBitmap + 4]), 0x03);
    EXPECT_EQ(get64(before, kUsage), 40u);
    EXPECT_EQ(get64(after, kUsage), 10u);
    EXPECT_EQ(get32(after, kFolders), 1u);
    EXPECT_EQ(get32(after, kFolders + kFolderSize), 0u);
    const std::size_t slot = kFirstBlock + kSlots + urlCacheHash("http://two.example/") % kRows * kRowSlots * kSlotSize;
    EXPECT_EQ(get32(after, slot), kDeletedSlot);
    EXPECT_EQ(get32(after, kFileSize), after.size());
}

TEST(UrlCacheIndex, ARemovedAddressCanNoLongerBeRead) {
    const std::string after = without(twoPages(), "http://two.example/");
    EXPECT_EQ(after.find("two"), std::string::npos);
    EXPECT_NE(after.find("one"), std::string::npos);
}

TEST(UrlCacheIndex, CountersDoNotFallBelowZero) {
    std::string bytes = twoPages();
    put64(bytes, kUsage, 7);
    put32(bytes, kBlocksInUse, 1);
    put32(bytes, kFolders, 0);
    const std::string after = without(bytes, "http://one.example/");
    EXPECT_EQ(get64(after, kUsage), 0u);
    EXPECT_EQ(get32(after, kBlocksInUse), 0u);
    EXPECT_EQ(get32(after, kFolders), 0u);
}

TEST(UrlCacheIndex, WhatIsKeptForLongIsCountedTwice) {
    std::string bytes = twoPages();
    put64(bytes, kExemptUsage, 35);
    put32(bytes, kRecordsOfOneTable + 2 * kBlockSize + kExemptSeconds, 86400);
    EXPECT_EQ(get64(without(bytes, "http://two.example/"), kExemptUsage), 5u);
    EXPECT_EQ(get64(without(bytes, "http://one.example/"), kExemptUsage), 35u);
}

TEST(UrlCacheIndex, FullRowsGoOnInFurtherTables) {
    std::vector<UrlCacheItem> items;
    items.reserve(3000);
    for (int i = 0; i < 3000; ++i) items.push_back(page("http://many.example/" + std::to_string(i), "f.htm"));
    const std::string bytes = makeUrlCacheIndex({"AAAAAAAA"}, items);
    EXPECT_EQ(addresses(bytes).size(), 3000u);
    auto index = UrlCacheIndex::read(bytes);
    ASSERT_TRUE(index);
    for (int i = 0; i < 3000; i += 2) index->remove(index->find("http://many.example/" + std::to_string(i)).at(0));
    EXPECT_EQ(addresses(index->bytes()).size(), 1500u);
    EXPECT_EQ(get32(index->bytes(), kFolders), 1500u);
    EXPECT_TRUE(index->find("http://many.example/0").empty());
    EXPECT_EQ(index->find("http://many.example/1").size(), 1u);
}

TEST(UrlCacheIndex, RemovingTwiceChangesNothingMore) {
    auto index = UrlCacheIndex::read(twoPages());
    ASSERT_TRUE(index);
    index->remove(0);
    const std::string once = index->bytes();
    index->remove(0);
    EXPECT_EQ(index->bytes(), once);
}

TEST(UrlCacheIndex, AddressesCompareWithCase) {
    const auto index = UrlCacheIndex::read(twoPages());
    ASSERT_TRUE(index);
    EXPECT_TRUE(index->find("http://TWO.example/").empty());
    EXPECT_TRUE(index->find("http://two.example").empty());
    EXPECT_TRUE(index->find("").empty());
}

TEST(UrlCacheIndex, LockedEntriesAreListedAndDeletedAndRedirectedOnesAreNot) {
    const std::size_t slot = kFirstBlock + kSlots + urlCacheHash("http://one.example/") % kRows * kRowSlots * kSlotSize;
    for (const auto& [flags, listed] :
         {std::pair<std::uint32_t, bool>{0, true}, {2, true}, {1, false}, {3, false}, {5, false}}) {
        std::string bytes = twoPages();
        put32(bytes, slot, (get32(bytes, slot) & ~kHashFlags) | flags);
        EXPECT_EQ(addresses(bytes).size(), listed ? 2u : 1u) << flags;
    }
}

// --- names -----------------------------------------------------------------------------------------------------------

TEST(UrlCacheIndex, KnowsNamesThatTheCacheCannotHaveGiven) {
    for (const char* name :
         {"index[1].htm", "anna@site[2].txt", "0A1B2C3D.txt", "a b.htm", "\xE4.htm", "..a", "a..b"}) {
        EXPECT_TRUE(isCachedFileName(name)) << name;
    }
    for (
        const char* name :
        {"",    ".",     "..", "...", "a\\b", "\\a", "..\\a", "a/b",   "C:a",       "C:\\a",     "\\\\server\\share\\a",
         "*",   "*.txt", "a?", "a:b", "a.",   "a ",  " ",     "a\x01", "index.dat", "INDEX.DAT", "Desktop.ini",
         "a|b", "a\"b",  "<a>"}) {
        EXPECT_FALSE(isCachedFileName(name)) << name;
    }
    for (const char* name : {"ZL44C2N2", "a", "01234567"}) EXPECT_TRUE(isCacheFolderName(name)) << name;
    for (const char* name : {"", ".", "..", "..\\..\\..", "ABCDEFGH9", "A B", "A\\B", "A:", "*"}) {
        EXPECT_FALSE(isCacheFolderName(name)) << name;
    }
}

TEST(UrlCacheIndex, ForeignFilesAreNotNamedButTheirRecordsAreListed) {
    for (const char* name : {"..\\..\\secret.doc", "C:\\secret.doc", "*.doc", "index.dat"}) {
        const UrlCacheIndex::Record record = onlyRecord(makeUrlCacheIndex({"AAAAAAAA"}, {page("http://a/", name)}));
        EXPECT_EQ(record.url, "http://a/") << name;
        EXPECT_EQ(record.file, "") << name;
    }
    for (const char* folder : {"..", "..\\..", "C:", "A\\B", ""}) {
        const UrlCacheIndex::Record record = onlyRecord(makeUrlCacheIndex({folder}, {page("http://a/", "a.htm")}));
        EXPECT_EQ(record.folder + record.file, "") << folder;
    }
    // A number that no folder has; 0xFF says that the whole path stands in the file name.
    for (const std::size_t folder : {1, 31, 32, 0x7F, 0xFD, 0xFF}) {
        EXPECT_EQ(onlyRecord(makeUrlCacheIndex({"AAAAAAAA"}, {page("http://a/", "a.htm", folder)})).file, "") << folder;
    }
}

// --- damaged ---------------------------------------------------------------------------------------------------------

TEST(UrlCacheIndex, AnEmptyFileIsNone) {
    EXPECT_FALSE(UrlCacheIndex::read(""));
}

TEST(UrlCacheIndex, AFileOfNulsIsNone) {
    for (const std::size_t size : {std::size_t{1}, kWindowsSignature.size(), kFirstBlock, std::size_t{0x8000}}) {
        EXPECT_FALSE(UrlCacheIndex::read(std::string(size, '\0'))) << size;
    }
}

TEST(UrlCacheIndex, ABinaryFileIsNone) {
    EXPECT_FALSE(UrlCacheIndex::read(std::string(0x8000, '\xFF')));
    std::mt19937 random(20091104);
    for (const std::size_t size : {std::size_t{1}, kFirstBlock - 1, kFirstBlock, std::size_t{0x8000}, kLargestFile}) {
        std::string bytes(size, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        EXPECT_FALSE(UrlCacheIndex::read(bytes)) << size;
    }
}

TEST(UrlCacheIndex, FilesOfOtherVersionsAreNone) {
    EXPECT_FALSE(UrlCacheIndex::read("Client UrlCache MMF Ver 5.2"));
    for (const std::string_view other :
         {"Client UrlCache MMF Ver 4.7", "Client UrlCache MMF Ver 5.3", "client UrlCache"}) {
        std::string bytes = twoPages();
        bytes.replace(0, other.size(), other);
        EXPECT_FALSE(UrlCacheIndex::read(bytes)) << other;
    }
    std::string bytes = twoPages();
    put32(bytes, kFolderCount, 33);
    EXPECT_FALSE(UrlCacheIndex::read(bytes));
}

// A NUL ends every text of an index.
TEST(UrlCacheIndex, NulsCutTheTextsOfARecord) {
    const std::string bytes = makeUrlCacheIndex({"AAAAAAAA"}, {page("http://a.example/", "long.htm")});
    for (const std::size_t place : {kUrlPlace, kFilePlace}) {
        const std::size_t text = kRecordsOfOneTable + get32(bytes, kRecordsOfOneTable + place);
        std::string cut = bytes;
        cut[text + 4] = '\0';
        EXPECT_EQ(onlyRecord(cut).url, place == kUrlPlace ? "http" : "http://a.example/");
        EXPECT_EQ(onlyRecord(cut).file, place == kFilePlace ? "long" : "long.htm");
        cut[text] = '\0';
        EXPECT_EQ(addresses(cut).size(), place == kUrlPlace ? 0u : 1u);
        if (place == kFilePlace) {
            EXPECT_EQ(onlyRecord(cut).file, "");
        }
    }
    std::string cut = bytes;
    cut[kFolders + kFolderName + 3] = '\0';
    EXPECT_EQ(onlyRecord(cut).folder, "AAA");
    cut[kFolders + kFolderName] = '\0';
    EXPECT_EQ(onlyRecord(cut).folder + onlyRecord(cut).file, "");
}

TEST(UrlCacheIndex, NulsOverARecordTakeThatRecordAlone) {
    std::string bytes = twoPages();
    bytes.replace(kRecordsOfOneTable, 2 * kBlockSize, 2 * kBlockSize, '\0');
    EXPECT_EQ(addresses(bytes), std::vector<std::string>{"http://two.example/"});
    wearOut(bytes);
}

TEST(UrlCacheIndex, AHugeFileIsNone) {
    std::string bytes = twoPages();
    bytes.resize(kLargestFile);
    EXPECT_TRUE(UrlCacheIndex::read(bytes));
    bytes += '\0';
    EXPECT_FALSE(UrlCacheIndex::read(bytes));
}

TEST(UrlCacheIndex, CutAtEveryOffsetItListsWhatIsWhole) {
    const std::string bytes = twoPages();
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        const auto index = UrlCacheIndex::read(bytes.substr(0, length));
        EXPECT_EQ(index.has_value(), length >= kFirstBlock) << length;
        if (!index) continue;
        const std::size_t whole = length < kRecordsOfOneTable ? 0 : (length - kRecordsOfOneTable) / (2 * kBlockSize);
        ASSERT_EQ(index->records().size(), std::min<std::size_t>(whole, 2)) << length;
    }
    for (std::size_t length = kFirstBlock; length <= kRecordsOfOneTable + 5 * kBlockSize; length += 31) {
        wearOut(bytes.substr(0, length));
    }
}

TEST(UrlCacheIndex, AChainOfTablesThatComesBackEnds) {
    std::string bytes = twoPages();
    put32(bytes, kFirstBlock + kNextTable, kFirstBlock);
    EXPECT_EQ(addresses(bytes).size(), 2u);

    std::vector<UrlCacheItem> items;
    items.reserve(1000);
    for (int i = 0; i < 1000; ++i) items.push_back(page("http://many.example/" + std::to_string(i), "f.htm"));
    bytes = makeUrlCacheIndex({"AAAAAAAA"}, items);
    std::size_t last = kFirstBlock;
    while (get32(bytes, last + kNextTable) != 0) last = get32(bytes, last + kNextTable);
    ASSERT_NE(last, kFirstBlock);
    put32(bytes, last + kNextTable, kFirstBlock);
    EXPECT_EQ(addresses(bytes).size(), 1000u);
    wearOut(bytes);
}

TEST(UrlCacheIndex, TablesOffTheirBlocksOrOverEachOtherAreLeftOut) {
    for (const std::uint32_t start :
         {0u, 1u, 0x24Fu, 0x3FFFu, 0x4001u, 0x4040u, 0x4080u, 0x7F80u, 0x8000u, 0xFFFFFF80u, 0xFFFFFFFFu}) {
        std::string bytes = twoPages();
        put32(bytes, kFirstTable, start);
        EXPECT_TRUE(addresses(bytes).empty()) << start;
        bytes = twoPages();
        put32(bytes, kFirstBlock + kNextTable, start);
        EXPECT_EQ(addresses(bytes).size(), 2u) << start;
    }
    for (const std::uint32_t blocks : {0u, 1u, 28u, 0x81u, 0x02000000u, 0xFFFFFFFFu}) {
        std::string bytes = twoPages();
        put32(bytes, kFirstBlock + kBlocks, blocks);
        EXPECT_TRUE(addresses(bytes).empty()) << blocks;
    }
}

TEST(UrlCacheIndex, RecordsOffTheirBlocksOrTooLongAreLeftOut) {
    for (const std::uint32_t blocks : {0u, 0x7Fu, 0x02000000u, 0xFFFFFFFFu}) {
        std::string bytes = twoPages();
        put32(bytes, kRecordsOfOneTable + kBlocks, blocks);
        EXPECT_EQ(addresses(bytes), std::vector<std::string>{"http://two.example/"}) << blocks;
        wearOut(bytes);
    }
    const std::size_t slot = kFirstBlock + kSlots + urlCacheHash("http://one.example/") % kRows * kRowSlots * kSlotSize;
    for (const std::uint32_t start :
         {0u, 0x3F80u, 0x4000u, 0x5001u, 0x5080u, 0x7F80u, 0x8000u, 0xFFFFFF80u, 0xFFFFFFFFu}) {
        std::string bytes = twoPages();
        put32(bytes, slot + kSlotRecord, start);
        EXPECT_EQ(addresses(bytes), std::vector<std::string>{"http://two.example/"}) << start;
    }
}

TEST(UrlCacheIndex, TextsThatDoNotEndInTheRecordAreLeftOut) {
    for (const std::uint32_t place : {0u, 0x5Fu, 0x100u, 0x101u, 0x3000u, 0xFFFFFFFFu}) {
        std::string bytes = twoPages();
        put32(bytes, kRecordsOfOneTable + kUrlPlace, place);
        EXPECT_EQ(addresses(bytes), std::vector<std::string>{"http://two.example/"}) << place;
        bytes = makeUrlCacheIndex({"AAAAAAAA"}, {page("http://a/", "a.htm")});
        put32(bytes, kRecordsOfOneTable + kFilePlace, place);
        EXPECT_EQ(onlyRecord(bytes).file, "") << place;
    }
    std::string bytes = twoPages();
    bytes.replace(kRecordsOfOneTable + kTextsOfWriters, 2 * kBlockSize - kTextsOfWriters,
                  2 * kBlockSize - kTextsOfWriters, 'x');
    EXPECT_EQ(addresses(bytes), std::vector<std::string>{"http://two.example/"});
}

TEST(UrlCacheIndex, ARecordOnTopOfAnotherIsLeftOutAndTakesNothingWithIt) {
    // The record of "one" stretches over that of "two".
    std::string bytes = twoPages();
    put32(bytes, kRecordsOfOneTable + kBlocks, 4);
    ASSERT_EQ(addresses(bytes).size(), 1u);
    const std::string left = addresses(bytes).at(0);
    wearOut(bytes);

    // A record inside of a table would take slots with it.
    bytes = twoPages();
    const std::size_t inside = kFirstBlock + 30 * kBlockSize;  // behind the last slot
    bytes.replace(inside, 2 * kBlockSize, bytes.substr(kRecordsOfOneTable, 2 * kBlockSize));
    const std::size_t slot = kFirstBlock + kSlots + urlCacheHash("http://one.example/") % kRows * kRowSlots * kSlotSize;
    put32(bytes, slot + kSlotRecord, static_cast<std::uint32_t>(inside));
    EXPECT_EQ(addresses(bytes), std::vector<std::string>{"http://two.example/"});
}

TEST(UrlCacheIndex, TwoSlotsOfOneRecordAreOneEntry) {
    std::string bytes = twoPages();
    const std::size_t slot = kFirstBlock + kSlots;
    ASSERT_EQ(get32(bytes, slot), kFreeSlot);
    put32(bytes, slot, 0);
    put32(bytes, slot + kSlotRecord, kRecordsOfOneTable);
    EXPECT_EQ(addresses(bytes).size(), 2u);
    const std::string after = without(bytes, "http://one.example/");
    EXPECT_EQ(get32(after, slot), kDeletedSlot);
    EXPECT_EQ(addresses(after), std::vector<std::string>{"http://two.example/"});
}

TEST(UrlCacheIndex, AnyChangeOfAnyByteIsBorne) {
    const std::string bytes = twoPages();
    for (std::size_t at = 0; at < kRecordsOfOneTable + 4 * kBlockSize; ++at) {
        if (at == kBitmap + 0x20) at = kFirstBlock;
        for (const char value : {'\0', '\x01', '\x7F', '\xFF'}) {
            std::string changed = bytes;
            changed[at] = value;
            wearOut(changed);
        }
    }
}

TEST(UrlCacheIndex, NoiseBehindTheSignatureIsBorne) {
    std::mt19937 random(20091103);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = twoPages();
        // Few changes of many bytes, or many of few.
        const std::size_t changes = 1U << random() % 12;
        for (std::size_t i = 0; i < changes; ++i) {
            const std::size_t at = kWindowsSignature.size() + random() % (bytes.size() - kWindowsSignature.size() - 4);
            put32(bytes, at, random() % 2 == 0 ? random() : random() % 0x8000 / kBlockSize * kBlockSize);
        }
        wearOut(bytes);
    }
}

// --- the cost --------------------------------------------------------------------------------------------------------

// Many times of what is needed where each byte is looked at a few times; with a look at a part of the file for each
// slot it would be minutes or hours. Time of this process, so that a busy machine makes no difference.
constexpr double kAmpleSeconds = 5;

class Clock {
public:
    [[nodiscard]] bool isOver() const {
        return static_cast<double>(std::clock() - begin_) / CLOCKS_PER_SEC > kAmpleSeconds;
    }

private:
    std::clock_t begin_ = std::clock();
};

// An index of the largest size without its tables and records.
std::string largestIndex() {
    std::string bytes(kLargestFile, '\0');
    bytes.replace(0, kWindowsSignature.size(), kWindowsSignature);
    put32(bytes, kFirstTable, kFirstBlock);
    return bytes;
}

void putTable(std::string& bytes, std::size_t start, std::size_t next) {
    bytes.replace(start, kTableSignature.size(), kTableSignature);
    put32(bytes, start + kBlocks, kTableBlocks);
    put32(bytes, start + kNextTable, static_cast<std::uint32_t>(next));
    for (std::size_t i = 0; i < kTableSlots; ++i) put32(bytes, start + kSlots + i * kSlotSize, kFreeSlot);
}

void putRecord(std::string& bytes, std::size_t start, std::size_t blocks, std::string_view url) {
    bytes.replace(start, kRecordSignature.size(), kRecordSignature);
    put32(bytes, start + kBlocks, static_cast<std::uint32_t>(blocks));
    put32(bytes, start + kUrlPlace, kTextStart);
    bytes.replace(start + kTextStart, url.size(), url);
}

void putSlot(std::string& bytes, std::size_t slot, std::size_t record) {
    put32(bytes, slot, 0);
    put32(bytes, slot + kSlotRecord, static_cast<std::uint32_t>(record));
}

constexpr std::size_t kHostileTables = 2000;
constexpr std::size_t kTableLength = kTableBlocks * kBlockSize;

// Tables one after the other, the last of them at the end of the file; every slot of all leads to one place behind the
// others. Returns the place.
std::size_t putHostileTables(std::string& bytes, std::size_t count = kHostileTables) {
    const std::size_t record = kFirstBlock + (count - 1) * kTableLength;
    const std::size_t last = bytes.size() - kTableLength;
    for (std::size_t table = 0; table < count; ++table) {
        const bool isLast = table + 1 == count;
        const std::size_t start = isLast ? last : kFirstBlock + table * kTableLength;
        const std::size_t next = table + 2 == count ? last : start + kTableLength;
        putTable(bytes, start, isLast ? 0 : next);
        for (std::size_t i = 0; i < kTableSlots; ++i) putSlot(bytes, start + kSlots + i * kSlotSize, record);
    }
    return record;
}

std::vector<std::string> urlsReadInTime(const std::string& bytes) {
    const Clock clock;
    std::vector<std::string> urls = addresses(bytes);
    EXPECT_FALSE(clock.isOver());
    return urls;
}

TEST(UrlCacheIndex, AHugeRecordWithoutAnEndOfItsAddressIsLookedAtOnce) {
    std::string bytes = largestIndex();
    const std::size_t record = putHostileTables(bytes);
    const std::size_t blocks = (bytes.size() - kTableLength - record) / kBlockSize;
    putRecord(bytes, record, blocks, std::string(blocks * kBlockSize - kTextStart, 'a'));
    EXPECT_TRUE(urlsReadInTime(bytes).empty());
}

TEST(UrlCacheIndex, TheLongestRecordWithoutAnEndOfItsAddressIsLookedAtOnce) {
    std::string bytes = largestIndex();
    const std::size_t record = putHostileTables(bytes, 3900);
    ASSERT_LE(record + kMostRecordBlocks * kBlockSize, bytes.size() - kTableLength);
    putRecord(bytes, record, kMostRecordBlocks, std::string(kMostRecordBlocks * kBlockSize - kTextStart, 'a'));
    EXPECT_TRUE(urlsReadInTime(bytes).empty());
}

TEST(UrlCacheIndex, AHugeAddressThatRunsIntoATableIsLookedAtOnce) {
    std::string bytes = largestIndex();
    const std::size_t record = putHostileTables(bytes);
    const std::size_t room = bytes.size() - kTableLength - record;
    putRecord(bytes, record, room / kBlockSize + 1, std::string(room - kTextStart - 1, 'a'));
    EXPECT_TRUE(urlsReadInTime(bytes).empty());
}

TEST(UrlCacheIndex, AHugeRecordOfAShortAddressThatRunsIntoATableIsLookedAtOnce) {
    std::string bytes = largestIndex();
    const std::size_t record = putHostileTables(bytes);
    const std::size_t room = bytes.size() - kTableLength - record;
    putRecord(bytes, record, room / kBlockSize + 1, "http://a/");
    EXPECT_TRUE(urlsReadInTime(bytes).empty());
    // The longest that stands, and one block more.
    putRecord(bytes, record, kMostRecordBlocks, "http://a/");
    EXPECT_EQ(urlsReadInTime(bytes), std::vector<std::string>{"http://a/"});
    putRecord(bytes, record, kMostRecordBlocks + 1, "http://a/");
    EXPECT_TRUE(urlsReadInTime(bytes).empty());
}

// Records that begin one block after the other, and behind them as many blocks of text without an end, to which the
// address of each leads; over and over to the end of the file.
std::string recordsBeforeOneText(std::size_t recordsOfGroup) {
    constexpr std::size_t kTables = 290;
    std::string bytes = largestIndex();
    const std::size_t first = kFirstBlock + kTables * kTableLength;
    const std::size_t groupLength = 2 * recordsOfGroup * kBlockSize;
    std::size_t slots = 0;
    for (std::size_t table = 0; table < kTables; ++table) {
        const std::size_t start = kFirstBlock + table * kTableLength;
        putTable(bytes, start, table + 1 < kTables ? start + kTableLength : 0);
    }
    for (std::size_t group = first; group + groupLength <= bytes.size(); group += groupLength) {
        const std::size_t end = group + groupLength;
        const std::size_t text = group + groupLength / 2;
        std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(text), bytes.begin() + static_cast<std::ptrdiff_t>(end),
                  'a');
        for (std::size_t record = group; record < text; record += kBlockSize, ++slots) {
            putRecord(bytes, record, (end - record) / kBlockSize, {});
            put32(bytes, record + kUrlPlace, static_cast<std::uint32_t>(text - record));
            putSlot(bytes, kFirstBlock + slots / kTableSlots * kTableLength + kSlots + slots % kTableSlots * kSlotSize,
                    record);
        }
    }
    EXPECT_GT(slots, 50000u);
    return bytes;
}

TEST(UrlCacheIndex, ManyRecordsThatShareOneLongTextAreReadInTime) {
    EXPECT_TRUE(urlsReadInTime(recordsBeforeOneText(kMostRecordBlocks / 2)).empty());
    EXPECT_TRUE(urlsReadInTime(recordsBeforeOneText(55000)).empty());
}

TEST(UrlCacheIndex, OfTablesInEveryBlockOnlyTheFirstStands) {
    // Every block begins a table that leads to the next block: the first stands, the second lies on it and is the end.
    std::string bytes = largestIndex();
    const std::size_t first = bytes.size() - 2 * kBlockSize;
    const std::size_t second = first + kBlockSize;
    for (std::size_t start = kFirstBlock; start + kTableLength <= first; start += kBlockSize) {
        bytes.replace(start, 4, kTableSignature);
        put32(bytes, start + kBlocks, kTableBlocks);
        put32(bytes, start + kNextTable, static_cast<std::uint32_t>(start + kBlockSize));
    }
    putRecord(bytes, first, 1, "http://first/");
    putRecord(bytes, second, 1, "http://second/");
    putSlot(bytes, kFirstBlock + kSlots, first);
    // No slot of the first table, but one of those that begin on its blocks.
    putSlot(bytes, kFirstBlock + kTableLength + kSlots, second);
    EXPECT_EQ(urlsReadInTime(bytes), std::vector<std::string>{"http://first/"});
}

// As many as an index can have, each with an address of its own.
TEST(UrlCacheIndex, VeryManyRecordsAreListedFoundAndRemovedInTime) {
    constexpr std::size_t kTables = 264;
    constexpr std::size_t kRecords = kMostBlocks - kTables * kTableBlocks;
    static_assert(kRecords <= kTables * kTableSlots && kRecords > (kTables - 1) * kTableSlots);
    std::string bytes = largestIndex();
    const std::size_t first = kFirstBlock + kTables * kTableLength;
    for (std::size_t table = 0; table < kTables; ++table) {
        const std::size_t start = kFirstBlock + table * kTableLength;
        putTable(bytes, start, table + 1 < kTables ? start + kTableLength : 0);
    }
    for (std::size_t i = 0; i < kRecords; ++i) {
        const std::size_t record = first + i * kBlockSize;
        putRecord(bytes, record, 1, "http://" + std::to_string(i));
        putSlot(bytes, kFirstBlock + i / kTableSlots * kTableLength + kSlots + i % kTableSlots * kSlotSize, record);
    }
    const Clock clock;
    auto index = UrlCacheIndex::read(bytes);
    ASSERT_TRUE(index);
    ASSERT_EQ(index->records().size(), kRecords);
    for (std::size_t i = 0; i < kRecords; i += 2) {
        const std::vector<std::size_t> found = index->find("http://" + std::to_string(i));
        ASSERT_EQ(found, std::vector<std::size_t>{i});
        index->remove(i);
    }
    EXPECT_EQ(addresses(index->bytes()).size(), kRecords / 2);
    EXPECT_FALSE(clock.isOver());
}

TEST(UrlCacheIndex, ManyRecordsOfOneAddressAreFoundAndRemovedInTime) {
    constexpr std::size_t kRecords = 100000;
    constexpr std::size_t kTables = (kRecords + kTableSlots - 1) / kTableSlots;
    std::string bytes = largestIndex();
    const std::size_t first = kFirstBlock + kTables * kTableLength;
    for (std::size_t table = 0; table < kTables; ++table) {
        const std::size_t start = kFirstBlock + table * kTableLength;
        putTable(bytes, start, table + 1 < kTables ? start + kTableLength : 0);
    }
    for (std::size_t i = 0; i < kRecords; ++i) {
        const std::size_t record = first + i * kBlockSize;
        putRecord(bytes, record, 1, "http://a/");
        putSlot(bytes, kFirstBlock + i / kTableSlots * kTableLength + kSlots + i % kTableSlots * kSlotSize, record);
    }
    const Clock clock;
    auto index = UrlCacheIndex::read(bytes);
    ASSERT_TRUE(index);
    const std::vector<std::size_t> found = index->find("http://a/");
    ASSERT_EQ(found.size(), kRecords);
    // From the front, as a list is walked; each look-up behind it must not pass over what is gone.
    for (const std::size_t record : found) index->remove(record);
    for (std::size_t i = 0; i < kRecords; ++i) EXPECT_TRUE(index->find("http://a/").empty());
    EXPECT_FALSE(clock.isOver());
    EXPECT_TRUE(addresses(index->bytes()).empty());
}

}  // namespace
}  // namespace tidvane::platform
