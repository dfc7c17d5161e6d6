#include "settings/list_files.h"

#include <gtest/gtest.h>

#include "options_fixture.h"

namespace tidvane::settings {
namespace {

using Items = std::vector<std::string>;

TEST(ParseListItems, TakesOneEntryALine) {
    EXPECT_EQ(parseListItems("C:\\A\r\nC:\\B\r\n").items, (Items{"C:\\A", "C:\\B"}));
}

TEST(ParseListItems, EndsALineAtALoneCarriageReturnAndNotAtALineFeed) {
    EXPECT_EQ(parseListItems("a\rb\nc\r\n").items, (Items{"a", "b\nc"}));
}

TEST(ParseListItems, SplitsAtACommaAndTellsTheLine) {
    const ListItems read = parseListItems("C:\\Data, old\r\nC:\\B\r\n");
    EXPECT_EQ(read.items, (Items{"C:\\Data", "old", "C:\\B"}));
    EXPECT_EQ(read.splitLines, (Items{"C:\\Data, old"}));
}

TEST(ParseListItems, RemovesTheQuotesOfAQuotedItemAndKeepsItsComma) {
    const ListItems read = parseListItems("\"C:\\Data, old\"\r\n");
    EXPECT_EQ(read.items, (Items{"C:\\Data, old"}));
    EXPECT_TRUE(read.splitLines.empty());
}

TEST(ParseListItems, StartsANewItemBehindAClosingQuote) {
    EXPECT_EQ(parseListItems("\"a\"b , \"c\" ,d").items, (Items{"a", "b ", "c", "d"}));
}

TEST(ParseListItems, EndsAnOpenQuoteWithItsLine) {
    EXPECT_EQ(parseListItems("\"a,b\r\nc\r\n").items, (Items{"a,b", "c"}));
}

TEST(ParseListItems, KeepsAQuoteInsideAnItem) {
    EXPECT_EQ(parseListItems("a\"b\r\n").items, (Items{"a\"b"}));
}

TEST(ParseListItems, DropsBlanksInFrontAndKeepsThoseBehind) {
    EXPECT_EQ(parseListItems("   a  \r\n").items, (Items{"a  "}));
}

TEST(ParseListItems, KeepsEmptyItemsOut) {
    EXPECT_TRUE(parseListItems("\r\n\r\n  \r\n,,\r\n\"\"\r\n").items.empty());
    EXPECT_TRUE(parseListItems("").items.empty());
}

TEST(ParseListItems, TakesALastLineWithoutAnEnd) {
    EXPECT_EQ(parseListItems("a\r\nb").items, (Items{"a", "b"}));
}

TEST(ListFiles, WriteRowsAsTheyStandInTheCodePage) {
    OptionsFixture machine;
    ASSERT_TRUE(platform::ok(writeListFile(machine.program, "C:\\l.dat", {"C:\\Größe", "a,b", "\"q\""})));
    EXPECT_EQ(machine.files().bytesOf("C:\\l.dat"),
              "C:\\Gr\xF6\xDF"
              "e\r\na,b\r\n\"q\"\r\n");
}

TEST(ListFiles, ReadTheCodePage) {
    OptionsFixture machine;
    machine.files().putFile("C:\\l.dat",
                            "C:\\Gr\xF6\xDF"
                            "e\r\n");
    ListItems read;
    ASSERT_TRUE(platform::ok(readListFile(machine.program, "C:\\l.dat", read)));
    EXPECT_EQ(read.items, (Items{"C:\\Größe"}));
}

TEST(ListFiles, WriteAnEmptyListAsAnEmptyFile) {
    OptionsFixture machine;
    ASSERT_TRUE(platform::ok(writeListFile(machine.program, "C:\\l.dat", {})));
    EXPECT_EQ(machine.files().bytesOf("C:\\l.dat"), "");
}

TEST(ListFiles, TellAMissingFileFromOneThatCannotBeRead) {
    OptionsFixture machine;
    machine.files().putFile("C:\\denied.dat", "x\r\n");
    machine.files().deny("C:\\denied.dat");
    ListItems read;
    EXPECT_EQ(readListFile(machine.program, "C:\\missing.dat", read), platform::Status::NotFound);
    EXPECT_EQ(readListFile(machine.program, "C:\\none\\missing.dat", read), platform::Status::NotFound);
    EXPECT_EQ(readListFile(machine.program, "C:\\denied.dat", read), platform::Status::Denied);
    EXPECT_TRUE(read.items.empty());
}

TEST(ListFiles, LeaveOutARowThatTheCodePageCannotHold) {
    OptionsFixture machine;
    ASSERT_TRUE(platform::ok(writeListFile(machine.program, "C:\\l.dat", {"C:\\A", "C:\\Ж", "C:\\B"})));
    EXPECT_EQ(machine.files().bytesOf("C:\\l.dat"), "C:\\A\r\nC:\\B\r\n");
}

}  // namespace
}  // namespace tidvane::settings
