#include "removal/folder_stats.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_platform.h"

namespace tidvane::removal {
namespace {

using base::englishLocale;
using base::germanLocale;

TEST(FormatSize, FollowsTheNumberOfDigits) {
    EXPECT_EQ(FormatSize(0, englishLocale()), "0 Byte");
    EXPECT_EQ(FormatSize(1, englishLocale()), "1 Byte");
    EXPECT_EQ(FormatSize(999, englishLocale()), "999 Byte");
    EXPECT_EQ(FormatSize(1000, englishLocale()), "0.98 KB");
    EXPECT_EQ(FormatSize(1024, englishLocale()), "1.00 KB");
    EXPECT_EQ(FormatSize(10240, englishLocale()), "10.0 KB");
    EXPECT_EQ(FormatSize(999999, englishLocale()), "976.6 KB");
    EXPECT_EQ(FormatSize(1000000, englishLocale()), "0.95 MB");
    EXPECT_EQ(FormatSize(1000000000, englishLocale()), "0.93 GB");
    EXPECT_EQ(FormatSize(1000000000000, englishLocale()), "0.91 TB");
}

TEST(FormatSize, KeepsTheOddPatternOfEightDigits) {
    EXPECT_EQ(FormatSize(10000000, englishLocale()), "09.5 MB");
    EXPECT_EQ(FormatSize(10000, englishLocale()), "9.8 KB");
}

TEST(FormatSize, StaysAtTheLastRowForSizesBeyondTheTable) {
    EXPECT_EQ(FormatSize(1000000000000000, englishLocale()), "909.5 TB");
    EXPECT_EQ(FormatSize(10000000000000000ULL, englishLocale()), "9094.9 TB");
}

TEST(FormatSize, WritesTheDecimalSignOfTheLocale) {
    EXPECT_EQ(FormatSize(1024, germanLocale()), "1,00 KB");
}

TEST(Log10, IsZeroForWhatHasNoLogarithm) {
    EXPECT_EQ(Log10(0), 0);
    EXPECT_EQ(Log10(-5), 0);
    EXPECT_NEAR(Log10(100), 2, 1e-12);
}

struct FolderStatsTest : testing::Test {
    platform::MemoryPlatform machine;
};

TEST_F(FolderStatsTest, CountsEachEntryOnceAtAllDepths) {
    machine.files.putFile("C:\\D\\a", std::string(10, 'x'));
    machine.files.putFile("C:\\D\\one\\b", std::string(20, 'x'));
    machine.files.putFile("C:\\D\\one\\two\\c", std::string(30, 'x'));
    FolderCounters counters;
    FolderStats(machine.files, "C:\\D", counters);
    EXPECT_EQ(counters.folders, 2U);
    EXPECT_EQ(counters.files, 3U);
    EXPECT_EQ(counters.bytes, 60U);
}

TEST_F(FolderStatsTest, AddsToTheCountersAndSetsTheSize) {
    machine.files.putFile("C:\\D\\a", std::string(10, 'x'));
    FolderCounters counters{5, 7, 1000};
    FolderStats(machine.files, "C:\\D\\", counters);
    EXPECT_EQ(counters.folders, 5U);
    EXPECT_EQ(counters.files, 8U);
    EXPECT_EQ(counters.bytes, 10U);
}

TEST_F(FolderStatsTest, LeavesTheCountersForAMissingFolder) {
    FolderCounters counters{1, 2, 3};
    FolderStats(machine.files, "C:\\missing", counters);
    EXPECT_EQ(counters.folders, 1U);
    EXPECT_EQ(counters.files, 2U);
    EXPECT_EQ(counters.bytes, 3U);
}

TEST_F(FolderStatsTest, AnUnreadableSubfolderLeavesTheCountersAsTheyWere) {
    machine.files.putFile("C:\\D\\a", "x");
    machine.files.putFile("C:\\D\\closed\\b", "x");
    machine.files.deny("C:\\D\\closed");
    FolderCounters counters;
    FolderStats(machine.files, "C:\\D", counters);
    EXPECT_EQ(counters.files, 0U);
    EXPECT_EQ(counters.bytes, 0U);
}

}  // namespace
}  // namespace tidvane::removal
