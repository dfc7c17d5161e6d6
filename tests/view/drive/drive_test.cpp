// A person at the desktop: the real program with its windows, driven by keys and clicks, read by a screen reader.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "view/drive/full_temp.h"
#include "view/drive/gui_run.h"
#include "view/x_tray.h"

namespace tidvane::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOptions = "^Options";
constexpr const char* kTask = "Temporary folder of the user";
constexpr const char* kLog = "Log";
constexpr const char* kClean = "Start cleaning";
constexpr const char* kStop = "Stop";

void pause(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

class Drive : public testing::Test {
protected:
    // Without pauses between the lines of a log.
    Drive() {
        Desktop::get();
        gui.set({"txtPurgeSpeed=0"});
    }

    void fillTemp(int files) const {
        for (int file = 0; file < files; ++file) {
            std::ofstream(gui.places().drive() + kUserTemp + "/trace" + std::to_string(file) + ".tmp") << "x";
        }
        ASSERT_EQ(filesInTemp(), files);
    }
    [[nodiscard]] int filesInTemp() const {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(gui.places().drive() + kUserTemp)) {
            count += entry.is_regular_file() ? 1 : 0;
        }
        return count;
    }

    GuiRun gui;
};

TEST_F(Drive, aPersonTicksATaskRunsItReadsTheLogAndLeaves) {
    fillTemp(3);
    gui.start();
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    gui.reader().focus(kTask);
    ASSERT_FALSE(gui.reader().isTicked(kTask));
    gui.key({"space"});
    ASSERT_TRUE(GuiRun::waitUntil([this] { return gui.reader().isTicked(kTask); }));
    gui.key({"Return"});
    ASSERT_TRUE(gui.waitForNoWindow(kOptions));
    ASSERT_TRUE(GuiRun::waitUntil([this] { return gui.setting("chkUserTemp") == "1"; }));

    gui.inWindow(GuiRun::kMain);
    gui.click(kClean);
    ASSERT_TRUE(GuiRun::waitUntil([this] { return filesInTemp() == 0; }));
    ASSERT_TRUE(GuiRun::waitUntil([this] { return gui.reader().isEnabled(kClean); })) << "the run ends";
    const std::string log = gui.reader().textOf(kLog);
    EXPECT_NE(log.find("Temporary folder of the user 3 files (3 Byte)"), std::string::npos) << log;
    EXPECT_EQ(gui.leave(), 0);
}

TEST_F(Drive, cancelledOptionsLeaveTheTaskUnticked) {
    gui.start();
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    gui.reader().focus(kTask);
    gui.key({"space"});
    ASSERT_TRUE(GuiRun::waitUntil([this] { return gui.reader().isTicked(kTask); }));
    gui.key({"Escape"});
    ASSERT_TRUE(gui.waitForNoWindow(kOptions));
    gui.inWindow(GuiRun::kMain);
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    EXPECT_FALSE(gui.reader().isTicked(kTask));
    gui.key({"Escape"});
    EXPECT_EQ(gui.leave(), 0);
}

TEST_F(Drive, aStopInTheMiddleOfASweepIsHeardAndTheRestStays) {
    const FullTemp temp(gui);
    gui.start();
    const Reader::Place stop = gui.reader().placeOf(kStop);
    gui.key({"F9"});
    ASSERT_TRUE(GuiRun::waitUntil([&temp] { return temp.emptied() > 0; })) << "the sweep begins";
    gui.clickAt(stop.x + stop.width / 2, stop.y + stop.height / 2);
    ASSERT_TRUE(GuiRun::waitUntil([this] { return gui.reader().isEnabled(kClean); })) << "the run ends";
    const int done = temp.emptied();
    EXPECT_LT(done, temp.folders()) << "stopped in the middle";
    pause(500);
    EXPECT_EQ(temp.emptied(), done) << "nothing goes behind the stop";
    EXPECT_EQ(gui.leave(), 0);
}

TEST_F(Drive, theCloseBoxPutsTheProgramIntoTheTrayAndADoubleClickBringsItBack) {
    XTray tray;
    gui.start();
    gui.closeBox(GuiRun::kMain);
    ASSERT_TRUE(gui.waitForNoWindow(GuiRun::kMain));
    ASSERT_TRUE(GuiRun::waitUntil([&tray] { return tray.icons() == 1; }));
    EXPECT_TRUE(gui.isRunning());
    // Where every icon is, however small it asks to be. What comes before it has settled there is made again.
    for (int attempt = 0; attempt < 10 && gui.window(GuiRun::kMain).empty(); ++attempt) {
        gui.xdotool({"mousemove", "8", "8", "sleep", "0.3", "click", "--repeat", "2", "--delay", "80", "1"});
        (void)GuiRun::waitUntil([this] { return !gui.window(GuiRun::kMain).empty(); }, 3);
    }
    ASSERT_TRUE(gui.waitForWindow(GuiRun::kMain));
    EXPECT_TRUE(GuiRun::waitUntil([&tray] { return tray.icons() == 0; })) << "the icon goes when the window comes";
    EXPECT_EQ(gui.leave(), 0);
}

TEST_F(Drive, whereThereIsNoTrayTheCloseBoxMinimises) {
    gui.start();
    gui.closeBox(GuiRun::kMain);
    ASSERT_TRUE(gui.waitForNoWindow(GuiRun::kMain));
    EXPECT_TRUE(gui.isRunning());
    // The task bar still has it.
    const std::string window = gui.xdotool({"search", "--name", GuiRun::kMain});
    gui.xdotool({"windowactivate", window.substr(window.rfind('\n') + 1)});
    EXPECT_TRUE(gui.waitForWindow(GuiRun::kMain));
    EXPECT_EQ(gui.leave(), 0);
}

TEST_F(Drive, aRestartFindsWindowColumnsAndTicksAsTheyWereLeft) {
    gui.start();
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    gui.reader().focus(kTask);
    gui.key({"space"});
    gui.key({"Return"});
    ASSERT_TRUE(gui.waitForNoWindow(kOptions));
    gui.inWindow(GuiRun::kMain);
    gui.xdotool({"windowsize", gui.window(GuiRun::kMain), "1100", "700"});
    gui.xdotool({"windowmove", gui.window(GuiRun::kMain), "160", "120"});
    pause(500);
    const Reader::Place title = gui.reader().columnTitle(0);
    gui.drag(title.x + title.width - 1, title.y + title.height / 2, title.x + title.width + 59,
             title.y + title.height / 2);
    pause(300);
    const int column = gui.reader().columnTitle(0).width;
    EXPECT_NEAR(column, title.width + 60, 4) << "the column was drawn wider";
    const std::vector<int> place = gui.placeOf(GuiRun::kMain);
    EXPECT_EQ(gui.leave(), 0);

    gui.start();
    pause(500);
    const std::vector<int> again = gui.placeOf(GuiRun::kMain);
    for (std::size_t at = 0; at < place.size(); ++at) {
        EXPECT_NEAR(again[at], place[at], 2) << "of x, y, width, height the " << at;
    }
    EXPECT_NEAR(gui.reader().columnTitle(0).width, column, 2);
    gui.key({"ctrl+t"});
    gui.inWindow(kOptions);
    EXPECT_TRUE(gui.reader().isTicked(kTask));
    gui.key({"Escape"});
    EXPECT_EQ(gui.leave(), 0);
}

}  // namespace
}  // namespace tidvane::tests
