#include "console/console_display.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tidvane::console {
namespace {

namespace msgbox = forms::msgbox;

TEST(ConsoleDisplay, AnswersQuestionsAsItWasTold) {
    std::ostringstream err;
    ConsoleDisplay no(err, false);
    EXPECT_EQ(no.MsgBox("Sure?\r\nReally?", msgbox::YesNo | msgbox::Question, "Title"), msgbox::No);
    EXPECT_EQ(err.str(), "[Title] Sure?\nReally?\nAnswer: no\n");
    err.str("");
    ConsoleDisplay yes(err, true);
    EXPECT_EQ(yes.MsgBox("Sure?", msgbox::YesNo | msgbox::DefaultButton2 | msgbox::Exclamation, "Title"), msgbox::Yes);
    EXPECT_EQ(err.str(), "[Title] Sure?\nAnswer: yes\n");
}

TEST(ConsoleDisplay, PressesTheOnlyButtonOfABox) {
    std::ostringstream err;
    ConsoleDisplay display(err, false);
    EXPECT_EQ(display.MsgBox("Done", msgbox::Information, "Title"), msgbox::Ok);
    EXPECT_EQ(err.str(), "[Title] Done\nAnswer: OK\n");
}

TEST(ConsoleDisplay, WritesAWarningAsOneLine) {
    std::ostringstream err;
    ConsoleDisplay display(err, false);
    display.warn("a place");
    EXPECT_EQ(err.str(), "Warning: a place\n");
}

TEST(ConsoleDisplay, LetsNoEntryMoveTheCursor) {
    std::ostringstream err;
    ConsoleDisplay display(err, false);
    display.warn("a\x1B[2J\x7F\tb");
    display.MsgBox("c\x1B\r\nd\b", msgbox::Information, "Title");
    EXPECT_EQ(err.str(), "Warning: a?[2J?\tb\n[Title] c?\nd?\nAnswer: OK\n");
}

TEST(ConsoleDisplay, LetsNoEntryMoveTheCursorWithTheSecondGroupOfControls) {
    std::ostringstream err;
    ConsoleDisplay display(err, false);
    display.warn(
        "a\xC2\x9B"
        "2Jb\xC2\x80\xC2\x9F");
    EXPECT_EQ(err.str(), "Warning: a?2Jb??\n");
}

TEST(Printable, StaysOnOneLine) {
    EXPECT_EQ(printable("a\x1B[2J\x7F\tb\r\nc\xC2\x85"), "a?[2J??b??c?");
    EXPECT_EQ(printable(""), "");
}

TEST(Printable, KeepsEveryOtherSign) {
    const std::string text = "\xC2\xA0 \xC3\x84\xC3\x9B \xE2\x82\xAC \xE5\x90\x9B ~";
    EXPECT_EQ(printable(text), text);
    EXPECT_EQ(printable("cut \xC2"), "cut \xC2");
    EXPECT_EQ(printableLines(text), text);
}

TEST(Printable, KeepsLinesAndTabsWhereAskedTo) {
    EXPECT_EQ(printableLines("a\tb\r\nc\x1B\rd\xC2\x9B"), "a\tb\nc?\nd?");
}

TEST(ConsoleDisplay, NotesTheEnd) {
    std::ostringstream err;
    ConsoleDisplay display(err, false);
    EXPECT_FALSE(display.ended());
    display.endProgram();
    EXPECT_TRUE(display.ended());
}

TEST(HostLineEnds, BothFormsBecomeLineFeeds) {
    EXPECT_EQ(withHostLineEnds("a\r\nb\rc\nd"), "a\nb\nc\nd");
    EXPECT_EQ(withHostLineEnds("\r\r\n"), "\n\n");
    EXPECT_EQ(withHostLineEnds(""), "");
}

}  // namespace
}  // namespace tidvane::console
