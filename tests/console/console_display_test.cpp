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
