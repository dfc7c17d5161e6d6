// What comes in between: a close box in the middle of a run, the end of the session in front of an open window.
#include <gtest/gtest.h>

#include <csignal>

#include "view/drive/full_temp.h"
#include "view/drive/gui_run.h"
#include "view/x_tray.h"

namespace tidvane::tests {
namespace {

constexpr const char* kOptions = "^Options";
constexpr const char* kNothingToClean = "^Nothing to clean$";
constexpr const char* kTask = "Temporary folder of the user";
constexpr const char* kClean = "Start cleaning";
constexpr int kWholeRun = 90;  // seconds

class Interruption : public testing::Test {
protected:
    // Without pauses between the lines of a log.
    Interruption() {
        Desktop::get();
        gui.set({"txtPurgeSpeed=0"});
    }

    void startRun(const FullTemp& temp) {
        gui.start();
        gui.key({"F9"});
        ASSERT_TRUE(GuiRun::waitUntil([&temp] { return temp.emptied() > 0; })) << "the run begins";
        ASSERT_LT(temp.emptied(), temp.folders()) << "the run is long enough";
    }
    static ::testing::AssertionResult runsToItsEnd(const FullTemp& temp) {
        if (GuiRun::waitUntil([&temp] { return temp.emptied() == temp.folders(); }, kWholeRun)) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << temp.emptied() << " of " << temp.folders() << " folders are empty";
    }
    void bringMainBack() {
        const std::string window = gui.xdotool({"search", "--name", GuiRun::kMain});
        gui.xdotool({"windowactivate", window.substr(window.rfind('\n') + 1)});
        ASSERT_TRUE(gui.waitForWindow(GuiRun::kMain));
    }

    GuiRun gui;
};

TEST_F(Interruption, ByTheCloseBoxMinimisesTheProgramAndTheRunGoesOn) {
    const FullTemp temp(gui);
    startRun(temp);
    gui.closeBox(GuiRun::kMain);
    ASSERT_TRUE(gui.waitForNoWindow(GuiRun::kMain));
    EXPECT_TRUE(gui.isRunning());
    EXPECT_TRUE(runsToItsEnd(temp));
    bringMainBack();
    EXPECT_TRUE(GuiRun::waitUntil([this] { return gui.reader().isEnabled(kClean); })) << "the run ends";
    EXPECT_EQ(gui.leave(), 0);
}

TEST_F(Interruption, ByTheCloseBoxPutsTheProgramIntoTheTrayAndTheRunGoesOn) {
    const FullTemp temp(gui);
    XTray tray;
    startRun(temp);
    gui.closeBox(GuiRun::kMain);
    ASSERT_TRUE(gui.waitForNoWindow(GuiRun::kMain));
    ASSERT_TRUE(GuiRun::waitUntil([&tray] { return tray.icons() == 1; }));
    EXPECT_TRUE(runsToItsEnd(temp));
    EXPECT_TRUE(gui.isRunning());
    gui.send(SIGTERM);
    EXPECT_EQ(gui.waitForEnd(), 0);
}

TEST_F(Interruption, ByTheEndOfTheSessionInARunStopsIt) {
    const FullTemp temp(gui);
    startRun(temp);
    gui.send(SIGTERM);
    EXPECT_EQ(gui.waitForEnd(), 0);
    EXPECT_LT(temp.emptied(), temp.folders());
}

TEST_F(Interruption, ByTheEndOfTheSessionDropsWhatOpenOptionsHold) {
    gui.start();
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    gui.reader().focus(kTask);
    gui.key({"space"});
    ASSERT_TRUE(GuiRun::waitUntil([this] { return gui.reader().isTicked(kTask); }));
    gui.send(SIGTERM);
    EXPECT_EQ(gui.waitForEnd(), 0);
    EXPECT_NE(gui.setting("chkUserTemp"), "1");
    EXPECT_NE(gui.setting("Left", "WindowState"), "<none>") << "the rest is stored";
}

TEST_F(Interruption, ByTheEndOfTheSessionDoesNotWaitForTheAnswerToABox) {
    gui.start();
    gui.key({"F9"});
    ASSERT_TRUE(gui.waitForWindow(kNothingToClean));
    gui.send(SIGTERM);
    EXPECT_EQ(gui.waitForEnd(), 0);
    EXPECT_NE(gui.setting("Left", "WindowState"), "<none>");
}

// The options are modal, and the run waits for them.
TEST_F(Interruption, ByTheOptionsHoldsTheRunUntilTheyAreClosed) {
    gui.set({"chkCloseAfterClean=1"});
    const FullTemp temp(gui);
    startRun(temp);
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    EXPECT_TRUE(gui.isRunning());
    EXPECT_LT(temp.emptied(), temp.folders());
    // A window that a busy program has just opened may miss the first key.
    for (int attempt = 0; attempt < 10 && !gui.window(kOptions).empty(); ++attempt) {
        gui.key({"Escape"});
        (void)GuiRun::waitUntil([this] { return gui.window(kOptions).empty(); }, 3);
    }
    EXPECT_TRUE(runsToItsEnd(temp));
    EXPECT_EQ(gui.waitForEnd(), 0) << "closed behind the cleaning";
}

TEST_F(Interruption, ByTheEndOfTheSessionWithOptionsThatWereOpenedInARun) {
    const FullTemp temp(gui);
    startRun(temp);
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    gui.send(SIGTERM);
    EXPECT_EQ(gui.waitForEnd(), 0);
    EXPECT_LT(temp.emptied(), temp.folders());
}

}  // namespace
}  // namespace tidvane::tests
