#include "base/text.h"

#include <gtest/gtest.h>

#include <map>

namespace tidvane::base {
namespace {

const std::string umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC";         // small
const std::string umlautCapitals = "\xC3\x84\xC3\x96\xC3\x9C";  // capital
const std::string sharpS = "\xC3\x9F";
const std::string smiley = "\xF0\x9F\x98\x80";  // two UTF-16 units

TEST(UpperCase, FoldsLatinGreekAndCyrillic) {
    EXPECT_EQ(upperCase("abcxyz{[`1"), "ABCXYZ{[`1");
    EXPECT_EQ(upperCase(umlauts), umlautCapitals);
    EXPECT_EQ(upperCase("\xC3\xBF"), "\xC5\xB8");                  // y with diaeresis
    EXPECT_EQ(upperCase("\xC5\xA1\xC5\x82"), "\xC5\xA0\xC5\x81");  // s with caron, l with stroke
    EXPECT_EQ(upperCase("\xCE\xB1\xCF\x89"), "\xCE\x91\xCE\xA9");  // alpha, omega
    EXPECT_EQ(upperCase("\xD0\xB0\xD1\x8F\xD1\x91"), "\xD0\x90\xD0\xAF\xD0\x81");
}

TEST(UpperCase, LeavesWhatHasNoSingleCapital) {
    EXPECT_EQ(upperCase(sharpS), sharpS);
    EXPECT_EQ(upperCase("\xC2\xB5\xC4\xB1\xC5\xBF"), "\xC2\xB5\xC4\xB1\xC5\xBF");  // micro sign, dotless i, long s
    EXPECT_EQ(upperCase("\xC3\xB7\xC3\x97"), "\xC3\xB7\xC3\x97");                  // division and multiplication signs
    EXPECT_EQ(upperCase("\xE2\x82\xAC" + smiley), "\xE2\x82\xAC" + smiley);
}

TEST(UpperCase, PassesBytesThatAreNoUtf8) {
    EXPECT_EQ(upperCase("a\xE4\xFF\x80z"), "A\xE4\xFF\x80Z");
    EXPECT_EQ(upperCase("\xC3"), "\xC3");
    EXPECT_EQ(upperCase("\xC0\xAF\xED\xA0\x80\xF5\x80\x80\x80"), "\xC0\xAF\xED\xA0\x80\xF5\x80\x80\x80");
    EXPECT_EQ(upperCase(std::string("a\0b", 3)), std::string("A\0B", 3));
}

TEST(LowerCase, TurnsCapitalsBack) {
    EXPECT_EQ(lowerCase("ABCXYZ[@1"), "abcxyz[@1");
    EXPECT_EQ(lowerCase(umlautCapitals), umlauts);
    EXPECT_EQ(lowerCase("\xCE\xA3"), "\xCF\x83");  // sigma, never the final form
    EXPECT_EQ(lowerCase("\xC4\xB0"), "\xC4\xB0");  // capital I with dot has no single small letter
}

TEST(CompareNoCase, OrdersByCapitals) {
    EXPECT_EQ(compareNoCase("abc", "ABC"), 0);
    EXPECT_LT(compareNoCase("a", "B"), 0);
    EXPECT_GT(compareNoCase("b", "A"), 0);
    EXPECT_LT(compareNoCase("ab", "ABC"), 0);
    EXPECT_GT(compareNoCase("_", "Z"), 0);
    EXPECT_GT(compareNoCase("_", "z"), 0);
    EXPECT_EQ(compareNoCase(umlauts, umlautCapitals), 0);
    EXPECT_LT(compareNoCase("z", umlauts), 0);
    EXPECT_EQ(compareNoCase("", ""), 0);
}

TEST(CompareNoCase, KeepsNamesThatAreNoUtf8Apart) {
    EXPECT_NE(compareNoCase("\xE4", "\xC3\xA4"), 0);
    EXPECT_NE(compareNoCase("\xE4", "\xC4"), 0);
    EXPECT_NE(compareNoCase("\xC3\x84", "\xC3 "), 0);
    EXPECT_EQ(compareNoCase("a\xE4", "A\xE4"), 0);
    std::map<std::string, int, NoCaseLess> names{{"\xE4", 1}, {"\xC4", 2}, {"\xC3\xA4", 3}, {"\xC3\x84", 4}};
    EXPECT_EQ(names.size(), 3U);
}

TEST(EqualNoCase, NeedsTheWholeText) {
    EXPECT_TRUE(equalNoCase("Temp", "tEMP"));
    EXPECT_FALSE(equalNoCase("Temp", "Tempo"));
    EXPECT_FALSE(equalNoCase("\xC3\x9F", "ss"));
}

TEST(StartsWithNoCase, LooksAtTheBeginning) {
    EXPECT_TRUE(startsWithNoCase("C:\\Windows", "c:\\"));
    EXPECT_TRUE(startsWithNoCase("abc", ""));
    EXPECT_FALSE(startsWithNoCase("ab", "abc"));
    EXPECT_FALSE(startsWithNoCase("xabc", "abc"));
}

TEST(TrimBlanks, TakesBlanksAlone) {
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(Split, KeepsEmptyParts) {
    EXPECT_EQ(split("a|b||c|", "|"), (std::vector<std::string>{"a", "b", "", "c", ""}));
    EXPECT_EQ(split("a~|~b", "~|~"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(split("", "|"), (std::vector<std::string>{""}));
    EXPECT_EQ(split("ab", ""), (std::vector<std::string>{"ab"}));
}

TEST(ReplaceAll, DoesNotLookAtWhatItPutIn) {
    EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceAll("x~|~y~|~", "~|~", "\r\n"), "x\r\ny\r\n");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
}

TEST(CharacterCount, CountsAsATextBox) {
    EXPECT_EQ(characterCount("a" + umlauts), 4U);
    EXPECT_EQ(characterCount("a\r\nb"), 4U);
    EXPECT_EQ(characterCount(smiley), 2U);
    EXPECT_EQ(characterCount("\xE4\xFF"), 2U);
}

TEST(ByteOffset, FindsTheCharacter) {
    const std::string text = "a" + umlauts + smiley + "z";
    EXPECT_EQ(byteOffset(text, 0), 0U);
    EXPECT_EQ(byteOffset(text, 2), 3U);
    EXPECT_EQ(byteOffset(text, 4), 7U);
    EXPECT_EQ(byteOffset(text, 5), 7U);  // inside the pair of units
    EXPECT_EQ(byteOffset(text, 6), 11U);
    EXPECT_EQ(byteOffset(text, 7), text.size());
    EXPECT_EQ(byteOffset(text, 99), text.size());
}

TEST(WithBackslash, AddsOneWhereNoneIs) {
    EXPECT_EQ(withBackslash("C:\\a"), "C:\\a\\");
    EXPECT_EQ(withBackslash("C:\\"), "C:\\");
    EXPECT_EQ(withBackslash("C:"), "C:\\");
}

TEST(WithoutBackslash, LeavesADriveRoot) {
    EXPECT_EQ(withoutBackslash("C:\\a\\"), "C:\\a");
    EXPECT_EQ(withoutBackslash("C:\\a"), "C:\\a");
    EXPECT_EQ(withoutBackslash("C:\\"), "C:\\");
    EXPECT_EQ(withoutBackslash(""), "");
}

TEST(IsAbsolutePath, WantsADriveRootOrAShare) {
    for (const char* path : {"C:\\", "c:\\a", "\\\\server\\share", "\\\\server\\share\\a"}) {
        EXPECT_TRUE(isAbsolutePath(path)) << path;
    }
    for (const char* path : {"", "C:", "C:a", "\\a", "a\\b", "1:\\a", "\\\\server", "\\\\server\\", "\\\\\\a",
                             "\\\\?\\C:\\a", "\\\\.\\C:", "/tmp", "C:/a"}) {
        EXPECT_FALSE(isAbsolutePath(path)) << path;
    }
}

}  // namespace
}  // namespace tidvane::base
