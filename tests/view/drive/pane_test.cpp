// The task pane of the real program under a real mouse.
#include <gtest/gtest.h>

#include "view/drive/gui_run.h"

namespace tidvane::tests {
namespace {

constexpr const char* kOptions = "^Options";

TEST(DrivePane, AClickOnItsEntryOpensTheOptions) {
    Desktop::get();
    GuiRun gui;
    gui.start();
    gui.inWindow(GuiRun::kMain);
    // The reader calls the pane by what has the focus in it: its first title, which stands open.
    const auto pane = gui.reader().placeOf("Cleaning [-]");
    // The fourth entry or the fifth, by the height of the letters: both open the options.
    gui.clickAt(pane.x + 80, pane.y + 150);
    EXPECT_TRUE(gui.waitForWindow(kOptions));
    gui.inWindow(kOptions);
    gui.key({"Escape"});
    EXPECT_TRUE(gui.waitForNoWindow(kOptions));
    gui.inWindow(GuiRun::kMain);
    gui.key({"ctrl+q"});
    EXPECT_EQ(gui.waitForEnd(), 0);
}

}  // namespace
}  // namespace tidvane::tests
