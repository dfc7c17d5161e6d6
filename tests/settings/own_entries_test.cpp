#include "settings/own_entries.h"

#include <gtest/gtest.h>

#include "base/wildcard.h"
#include "options_fixture.h"

namespace tidvane::settings {
namespace {

using Texts = std::vector<std::string>;

TEST(MatchesEveryName, IsTrueForMasksThatLeaveNoNameOut) {
    for (const char* mask :
         {"*", "*.*", "?*", "*?", "**", "*.?", "*.*.*", "??*", "*??", "*.???", "* ", "*.* ", "?*.*", "*.*."}) {
        EXPECT_TRUE(matchesEveryName(mask)) << mask;
    }
}

TEST(MatchesEveryName, IsFalseForMasksThatLeaveANameOut) {
    for (const char* mask :
         {"",      " ",  ".",  "..",   "...",   "*.",       "?",     "????????", "????????.???", ".*",  "?.*",
          "*.tmp", "a*", "*a", "*\\*", "..\\*", "sub\\*.*", "C:\\*", "*/*",      "*. .*",        "*..*"}) {
        EXPECT_FALSE(matchesEveryName(mask)) << mask;
    }
}

// Whatever it answers, matching agrees with it.
TEST(MatchesEveryName, AgreesWithMatchingOverAllShortMasks) {
    const std::vector<std::string> names{
        "a",     "b",    "ab",       ".a",      "a.",         "a.b",
        "a.b.c", "..a",  "abcd",     "a b.c d", "x.tmp",      "thumbs",
        "...",   "a..b", "\xC3\xA4", "1",       "README.TXT", "longer name.with.many.dots.and words",
        "q"};
    const std::string letters = "*?.a ";
    int everything = 0;
    for (int number = 0; number < 5 * 5 * 5 * 5 * 5 * 5; ++number) {
        std::string mask;
        for (int left = number; left > 0; left /= 5) mask += letters[static_cast<std::size_t>(left % 5)];
        const base::Wildcard wildcard(mask);
        bool all = true;
        for (const std::string& name : names) all = all && wildcard.matches(name);
        EXPECT_EQ(matchesEveryName(mask), all) << "'" << mask << "'";
        everything += all ? 1 : 0;
    }
    EXPECT_GT(everything, 100);
}

TEST(MatchesEveryName, FindsTheRowsOfTheList) {
    OptionsFixture machine;
    for (const char* mask : {"*.tmp", "*.*", "", "?*"}) machine.options().lstSearchMasks.AddItem(mask);
    EXPECT_EQ(masksThatMatchEveryName(machine.program), (Texts{"*.*", "?*"}));
}

TEST(SplitLinesOfLists, NameFileLineAndEntries) {
    OptionsFixture machine;
    machine.putBeside("td_folders.dat", "C:\\Data, old\r\nC:\\Plain\r\n  C:\\Blanks  \r\n");
    machine.putBeside("td_fkeys.dat", "C:\\x.txt\r\n");
    machine.putBeside("td_ftypes.dat", "*.a,*.b , *.c\r\n");
    const std::vector<SplitLine> lines = splitLinesOfLists(machine.program);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].file, "td_folders.dat");
    EXPECT_EQ(lines[0].line, "C:\\Data, old");
    EXPECT_EQ(lines[0].items, (Texts{"C:\\Data", "old"}));
    EXPECT_TRUE(lines[0].isSeveral());
    EXPECT_EQ(lines[1].file, "td_ftypes.dat");
    EXPECT_EQ(lines[1].items, (Texts{"*.a", "*.b ", "*.c"}));
}

TEST(SplitLinesOfLists, TellALineThatOnlyLosesItsQuotes) {
    OptionsFixture machine;
    machine.putBeside("td_folders.dat", "\"C:\\Data, old\"\r\nC:\\a\"b\r\n");
    const std::vector<SplitLine> lines = splitLinesOfLists(machine.program);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].items, (Texts{"C:\\Data, old"}));
    EXPECT_FALSE(lines[0].isSeveral());
}

TEST(SplitLinesOfLists, AreNoneWithoutFilesAndInFilesThatCannotBeRead) {
    OptionsFixture machine;
    EXPECT_TRUE(splitLinesOfLists(machine.program).empty());
    machine.putBeside("td_folders.dat", "a,b\r\n");
    machine.files().deny(OptionsFixture::inFolder("td_folders.dat"));
    EXPECT_TRUE(splitLinesOfLists(machine.program).empty());
}

}  // namespace
}  // namespace tidvane::settings
