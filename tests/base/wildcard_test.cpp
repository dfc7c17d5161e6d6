#include "base/wildcard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "base/code_page.h"
#include "base/text.h"
#include "settings/built_in_masks.h"
#include "support/reference.h"

namespace tidvane::base {
namespace {

// The built-in masks of the junk search.
const std::vector<std::string> builtInMasks(settings::kBuiltInMasks.begin(), settings::kBuiltInMasks.end());

std::vector<std::size_t> matchesOf(const MaskSet& set, std::string_view name) {
    std::vector<std::size_t> found;
    set.match(name, [&](std::size_t index) { found.push_back(index); });
    return found;
}

// Folder contents and masks, with the names that a look-up delivers.
std::string matchedNames(const tests::ReferenceRow& row) {
    const CodePage page(1252);
    const std::string mask = page.toUtf8(row["mask"]);
    std::vector<std::string> matched;
    for (std::string name : split(row["names"], "|")) {
        if (!name.empty() && name.back() == '/') name.pop_back();
        if (!name.empty() && wildcardMatch(mask, page.toUtf8(name))) matched.push_back(name);
    }
    std::sort(matched.begin(), matched.end());
    std::string joined;
    for (const std::string& name : matched) joined += (joined.empty() ? "" : "|") + name;
    return joined;
}

TEST(Wildcard, AnswersAsTheDirectoryLookUp) {
    const auto rows = tests::readReference("wildcard.tsv");
    const auto decisions = tests::readDecisions("wildcard_decisions.tsv");
    tests::ReferenceCheck check(decisions);
    for (const auto& row : rows) {
        // Masks with a path and those that name the folder itself are no business of the matcher.
        if (row["derived_long"] == "-") continue;
        check.compare(row, row["derived_long"], matchedNames(row));
    }
    EXPECT_EQ(check.report(), "");
    EXPECT_EQ(decisions.unknownIds(rows), "");
}

TEST(MaskSet, AnswersAsEachMaskAlone) {
    const CodePage page(1252);
    std::vector<std::string> masks;
    std::vector<std::string> names;
    for (const auto& row : tests::readReference("wildcard.tsv")) {
        const std::string mask = page.toUtf8(row["mask"]);
        if (std::find(masks.begin(), masks.end(), mask) == masks.end()) masks.push_back(mask);
        for (const std::string& name : split(page.toUtf8(row["names"]), "|")) {
            if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
        }
    }
    const MaskSet set(masks);
    ASSERT_GT(masks.size(), 200U);
    for (const std::string& name : names) {
        std::vector<std::size_t> expected;
        for (std::size_t i = 0; i < masks.size(); ++i) {
            if (wildcardMatch(masks[i], name)) expected.push_back(i);
        }
        EXPECT_EQ(matchesOf(set, name), expected) << name;
        EXPECT_EQ(set.any(name), !expected.empty()) << name;
    }
}

TEST(MaskSet, FindsTheBuiltInMasksInRisingOrder) {
    const MaskSet set(builtInMasks);
    ASSERT_EQ(builtInMasks.size(), 49U);
    EXPECT_EQ(matchesOf(set, "a.tmp"), (std::vector<std::size_t>{9}));
    EXPECT_EQ(matchesOf(set, "~WRL0.LOG"), (std::vector<std::size_t>{10, 13, 32}));
    EXPECT_EQ(matchesOf(set, "thumbcache_32.bak"), (std::vector<std::size_t>{3, 48}));
    EXPECT_EQ(matchesOf(set, "mail00000001.nch"), (std::vector<std::size_t>{45}));
    EXPECT_EQ(matchesOf(set, "report.doc"), (std::vector<std::size_t>{}));
    EXPECT_EQ(matchesOf(set, ""), (std::vector<std::size_t>{}));
    EXPECT_FALSE(set.any("tmp"));
    EXPECT_TRUE(set.any("b.TMP"));
}

TEST(MaskSet, WithoutMasksMatchesNothing) {
    const MaskSet set({});
    EXPECT_FALSE(set.any("a.tmp"));
    EXPECT_TRUE(matchesOf(set, "a.tmp").empty());
}

TEST(Wildcard, QuestionMarkMatchesNothingBeforeADotOrAtTheEnd) {
    EXPECT_TRUE(wildcardMatch("a??.t?p", "a.tmp"));
    EXPECT_TRUE(wildcardMatch("ab??", "ab"));
    EXPECT_FALSE(wildcardMatch("?ab", "ab"));
    EXPECT_FALSE(wildcardMatch("a?b", "a.b"));
}

TEST(Wildcard, DotBeforeAWildcardMatchesTheEnd) {
    EXPECT_TRUE(wildcardMatch("~*.*", "~file"));
    EXPECT_TRUE(wildcardMatch("file.*", "file"));
    EXPECT_TRUE(wildcardMatch("file.???", "file"));
    EXPECT_FALSE(wildcardMatch("file.*", "files"));
}

TEST(Wildcard, ClosingDotAsksForNamesWithoutExtension) {
    EXPECT_TRUE(wildcardMatch("*.", "readme"));
    EXPECT_FALSE(wildcardMatch("*.", "readme.txt"));
    EXPECT_TRUE(wildcardMatch("r*.", "readme"));
}

TEST(Wildcard, LongExtensionsAreNotCutToThreeLetters) {
    EXPECT_FALSE(wildcardMatch("*.htm", "index.html"));
    EXPECT_FALSE(wildcardMatch("*.bak", "opa12.bak_copy"));
}

TEST(Wildcard, IgnoresCaseBeyondAscii) {
    EXPECT_TRUE(wildcardMatch("*\xC3\x84*.tmp", "x\xC3\xA4y.TMP"));
    EXPECT_FALSE(wildcardMatch("*\xC3\x84.tmp", "o.tmp"));
    EXPECT_TRUE(wildcardMatch("?.x", "\xE2\x82\xAC.x"));
}

TEST(Wildcard, TakesBytesThatAreNoUtf8AsCharacters) {
    EXPECT_TRUE(wildcardMatch("*.tmp", "\xFF\xFE.tmp"));
    EXPECT_TRUE(wildcardMatch("?.tmp", "\xE4.tmp"));
    EXPECT_FALSE(wildcardMatch("\xE4.tmp", "\xC3\xA4.tmp"));
    EXPECT_FALSE(wildcardMatch("*\xA4", "\xC3\xA4"));
}

TEST(Wildcard, NothingLeftOfAMaskMatchesNothing) {
    for (const char* mask : {"", ".", "..", " ", ". ."}) {
        EXPECT_FALSE(wildcardMatch(mask, "a")) << mask;
        EXPECT_FALSE(wildcardMatch(mask, "")) << mask;
    }
}

TEST(Wildcard, ManyStarsDoNotExplode) {
    std::string mask;
    for (int i = 0; i < 100; ++i) mask += "*a";
    mask += "*b";
    EXPECT_FALSE(wildcardMatch(mask, std::string(255, 'a')));
    EXPECT_TRUE(wildcardMatch(mask, std::string(255, 'a') + "b"));
}

TEST(Wildcard, KnowsAMaskFromAName) {
    EXPECT_TRUE(hasWildcard("*.tmp"));
    EXPECT_TRUE(hasWildcard("C:\\a?"));
    EXPECT_FALSE(hasWildcard("C:\\a.tmp"));
}

// A generous bound, for a loaded machine and a build without optimisation: looking at the masks one by one takes
// longer.
TEST(MaskSet, TakesAMillionNamesQuickly) {
    const MaskSet set(builtInMasks);
    std::vector<std::string> names;
    names.reserve(1000);
    for (int i = 0; i < 1000; ++i) {
        names.push_back("document" + std::to_string(i) + (i % 3 == 0 ? ".tmp" : i % 3 == 1 ? ".log" : ".docx"));
    }
    std::size_t found = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int round = 0; round < 1000; ++round) {
        for (const std::string& name : names) set.match(name, [&](std::size_t) { ++found; });
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    RecordProperty("milliseconds", static_cast<int>(seconds.count() * 1000));
    EXPECT_EQ(found, 700000U);
    EXPECT_LT(seconds.count(), 10.0);
}

}  // namespace
}  // namespace tidvane::base
