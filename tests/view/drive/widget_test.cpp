// The small window that stays in sight, moved and used with the mouse.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "view/drive/gui_run.h"

namespace tidvane::tests {
namespace {

constexpr const char* kOnTop = "Always on top";

class DriveWidget : public testing::Test {
protected:
    // Shown at each start; a cleaning has been, or the start page would stand in front of all.
    DriveWidget() {
        Desktop::get();
        gui.set({"txtPurgeSpeed=0", "frmWidget.chkAutostart=1"});
        std::ofstream(gui.places().program() + "/td_last.dat") << "#2009-11-02#\r\n#07:05:09#\r\n";
        start();
    }

    void start() {
        gui.startAgain();
        if (!GuiRun::waitUntil([this] { return gui.windowsOf(GuiRun::kMain).size() == 2; })) {
            throw std::runtime_error("the widget does not come");
        }
    }
    void leave() {
        const std::string main = bySize().back();
        EXPECT_TRUE(GuiRun::waitUntil([&] {
            gui.xdotool({"windowactivate", main});
            return gui.xdotool({"getwindowfocus"}) == main;
        }));
        gui.key({"ctrl+q"});
        EXPECT_EQ(gui.waitForEnd(), 0);
    }
    // Takes it at its edge, where nothing is clicked.
    void dragBy(int x, int y) {
        const std::vector<int> at = place();
        gui.drag(at[0] + 5, at[1] + at[3] / 2, at[0] + 5 + x, at[1] + at[3] / 2 + y);
    }
    ::testing::AssertionResult comesTo(int x, int y) {
        const auto there = [&] {
            const std::vector<int> at = place();
            return std::abs(at[0] - x) <= 2 && std::abs(at[1] - y) <= 2;
        };
        if (GuiRun::waitUntil(there)) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "it is at " << place()[0] << ", " << place()[1];
    }

    // Both windows have the same title: the widget is the smaller one, and the first of these.
    [[nodiscard]] std::vector<std::string> bySize() const {
        std::vector<std::string> windows = gui.windowsOf(GuiRun::kMain);
        std::sort(windows.begin(), windows.end(), [this](const std::string& one, const std::string& other) {
            return gui.placeOfWindow(one)[2] < gui.placeOfWindow(other)[2];
        });
        return windows;
    }
    [[nodiscard]] std::vector<int> place() const { return gui.placeOfWindow(bySize().front()); }

    GuiRun gui;
};

TEST_F(DriveWidget, IsDraggedByTheMouseAndItsBoxesStillWork) {
    const std::vector<int> before = place();
    dragBy(-300, -200);
    EXPECT_TRUE(comesTo(before[0] - 300, before[1] - 200));
    for (const bool ticked : {true, false}) {
        gui.click(kOnTop);
        EXPECT_TRUE(GuiRun::waitUntil([&] { return gui.reader().isTicked(kOnTop) == ticked; })) << ticked;
    }
    EXPECT_TRUE(comesTo(before[0] - 300, before[1] - 200)) << "a click moves nothing";
    dragBy(40, 30);
    EXPECT_TRUE(comesTo(before[0] - 260, before[1] - 170)) << "and is taken once more";
    leave();
}

TEST_F(DriveWidget, ThatWasDraggedIntoTheCornerComesBackThere) {
    const std::vector<int> before = place();
    dragBy(-before[0], -before[1]);
    ASSERT_TRUE(comesTo(0, 0));
    leave();
    start();
    EXPECT_TRUE(comesTo(0, 0));
    leave();
}

}  // namespace
}  // namespace tidvane::tests
