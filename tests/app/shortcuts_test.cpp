#include "app/shortcuts.h"

#include <gtest/gtest.h>

#include <set>

#include "support/app_fixture.h"

namespace tidvane::app {
namespace {

struct ShortcutsTest : tests::AppFixture {};

TEST_F(ShortcutsTest, BelongToControlsOfTheWindowThatCanBePressed) {
    for (const Shortcut& row : shortcuts()) {
        const forms::Control* control = main().control(row.control);
        ASSERT_NE(control, nullptr) << row.control;
        EXPECT_TRUE(control->kind == forms::ControlKind::Menu || control->kind == forms::ControlKind::ThemedButton)
            << row.control;
    }
}

TEST_F(ShortcutsTest, AreGivenOnce) {
    std::set<std::string> keys;
    std::set<std::string> controls;
    for (const Shortcut& row : shortcuts()) {
        EXPECT_TRUE(keys.insert(row.keys).second) << row.keys;
        EXPECT_TRUE(controls.insert(row.control).second) << row.control;
    }
}

TEST_F(ShortcutsTest, AreFoundByTheNameOfTheirControl) {
    EXPECT_EQ(shortcutOf("cmdClean"), "F9");
    EXPECT_EQ(shortcutOf("mnuExit"), "Ctrl+Q");
    EXPECT_EQ(shortcutOf("cmdClearLog"), "") << "a log is not emptied by a slip of the hand";
}

// A key that starts a cleaning or ends the program must not lie on one that is hit in passing.
TEST_F(ShortcutsTest, LeaveEnterEscapeAndPlainLettersAlone) {
    for (const Shortcut& row : shortcuts()) {
        const std::string keys = row.keys;
        EXPECT_TRUE(keys.find('+') != std::string::npos || (keys[0] == 'F' && keys.size() > 1)) << keys;
        EXPECT_EQ(keys.find("Enter"), std::string::npos);
        EXPECT_EQ(keys.find("Esc"), std::string::npos);
    }
}

}  // namespace
}  // namespace tidvane::app
