// The start and the end of the program with windows, as a process of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "e2e/process.h"
#include "e2e/screen.h"
#include "platform/machine/machine.h"
#include "support/host_directory.h"

namespace tidvane::tests {
namespace {

constexpr int kDone = 0;
constexpr int kUsage = 2;
constexpr int kMachineUnusable = 4;

class WindowsStart : public ::testing::Test {
protected:
    static void TearDownTestSuite() { screen.reset(); }
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(platform::machine::Machine::create(here / "machine", error)) << error;
        if (screen == nullptr) screen = std::make_unique<Screen>();
    }
    [[nodiscard]] ProcessOptions options() const {
        ProcessOptions made;
        made.environment = screen->environment();
        made.environment.insert(made.environment.end(), {"HOME=" + here.path(), "LANG=C.UTF-8"});
        made.limit = std::chrono::seconds(60);
        return made;
    }
    [[nodiscard]] static std::vector<std::string> command(const std::vector<std::string>& words) {
        std::vector<std::string> made{TIDVANE_GUI};
        made.insert(made.end(), words.begin(), words.end());
        return made;
    }
    [[nodiscard]] std::unique_ptr<Process> start(const std::vector<std::string>& words) const {
        return std::make_unique<Process>(command(words), options());
    }
    [[nodiscard]] std::unique_ptr<Process> startOnMachine(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> words{"--machine", here / "machine", "--program", here / "program"};
        words.insert(words.end(), more.begin(), more.end());
        return start(words);
    }
    static std::string xdotool(const std::vector<std::string>& words) {
        std::vector<std::string> made{"xdotool"};
        made.insert(made.end(), words.begin(), words.end());
        ProcessOptions how;
        how.environment = screen->environment();
        return runProcess(made, how).out;
    }
    // Visible windows of the process.
    static std::size_t windowsOf(const Process& process) {
        const std::string found =
            xdotool({"search", "--onlyvisible", "--all", "--pid", std::to_string(process.id()), "--name", "Tidvane"});
        return static_cast<std::size_t>(std::count(found.begin(), found.end(), '\n'));
    }
    static ::testing::AssertionResult shows(Process& process, std::size_t windows) {
        for (int turn = 0; turn < 200 && process.isRunning(); ++turn) {
            if (windowsOf(process) >= windows) return ::testing::AssertionSuccess();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return ::testing::AssertionFailure() << windowsOf(process) << " windows; " << process.err();
    }
    tests::HostDirectory here;
    static inline std::unique_ptr<Screen> screen;
};

TEST_F(WindowsStart, HelpAndVersionNeedNoScreen) {
    const ProcessResult help = runProcess(command({"--help"}));
    EXPECT_EQ(help.status, kDone);
    EXPECT_NE(help.out.find("--machine DIR"), std::string::npos);
    const ProcessResult version = runProcess(command({"--version"}));
    EXPECT_EQ(version.status, kDone);
    EXPECT_EQ(version.out.rfind("tidvane ", 0), 0U) << version.out;
}

TEST_F(WindowsStart, AnUnknownOptionEndsItBeforeAnythingIsMade) {
    const ProcessResult result = runProcess(command({"--machin", "x"}), options());
    EXPECT_EQ(result.status, kUsage);
    EXPECT_EQ(result.err, "There is no option \"--machin\"; --help lists those that there are.\n");
    EXPECT_FALSE(here.has(".local"));
}

TEST_F(WindowsStart, WithoutAScreenItNamesTheConsole) {
    ProcessOptions blind;
    blind.environment = {"DISPLAY=", "WAYLAND_DISPLAY=", "HOME=" + here.path()};
    const ProcessResult result = runProcess(command({"--machine", here / "machine"}), blind);
    EXPECT_EQ(result.status, kMachineUnusable);
    EXPECT_NE(result.err.find("No display can be opened; the console front end is tidvane-console."), std::string::npos)
        << result.err;
}

TEST_F(WindowsStart, AMachineThatCannotBeOpenedIsToldInABox) {
    const auto process = start({"--machine", here / "nothing"});
    ASSERT_TRUE(shows(*process, 1));
    xdotool({"key", "Return"});
    const ProcessResult result = process->wait();
    EXPECT_EQ(result.status, kMachineUnusable);
    EXPECT_NE(result.err.find("is not a directory"), std::string::npos) << result.err;
}

TEST_F(WindowsStart, TheEndOfTheSessionStoresAndEndsIt) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        const auto process = startOnMachine();
        ASSERT_TRUE(shows(*process, 1));
        process->send(signal);
        const ProcessResult result = process->wait();
        EXPECT_EQ(result.status, kDone) << signal << " " << result.err;
        EXPECT_FALSE(result.timedOut);
        EXPECT_NE(here.content("program/td_config.ini").find("[WindowState]\r\nLeft="), std::string::npos);
    }
}

TEST_F(WindowsStart, ASecondInstanceSaysSoAndABoxDoesNotHoldUpTheEndOfTheSession) {
    const auto first = startOnMachine();
    ASSERT_TRUE(shows(*first, 1));
    const auto second = startOnMachine();
    ASSERT_TRUE(shows(*second, 1));
    second->send(SIGTERM);
    EXPECT_EQ(second->wait().status, kDone);
    EXPECT_TRUE(first->isRunning());
    first->send(SIGTERM);
    EXPECT_EQ(first->wait().status, kDone);
}

TEST_F(WindowsStart, TheFirstWindowOpensWhatItSuggestsAndRemembersIt) {
    std::string error;
    here.folder(".local/share/tidvane");
    ASSERT_TRUE(platform::machine::Machine::create(here / ".local/share/tidvane/machine", error)) << error;
    const auto process = start({});
    ASSERT_TRUE(shows(*process, 1));
    EXPECT_FALSE(here.has(".local/share/tidvane/program")) << "nothing is made before something is chosen";
    // The start page of a first start comes beside the main window.
    for (int turn = 0; turn < 20 && windowsOf(*process) < 2; ++turn) {
        xdotool({"key", "Return"});
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    ASSERT_TRUE(shows(*process, 2));
    process->send(SIGTERM);
    EXPECT_EQ(process->wait().status, kDone);
    EXPECT_NE(here.content(".local/share/tidvane/last-machine").find("/.local/share/tidvane/machine"),
              std::string::npos);
    EXPECT_TRUE(here.has(".local/share/tidvane/program/td_config.ini"));
}

TEST_F(WindowsStart, LeavingTheFirstWindowLeavesNothingBehind) {
    const auto process = start({});
    ASSERT_TRUE(shows(*process, 1));
    for (int turn = 0; turn < 20 && process->isRunning(); ++turn) {
        xdotool({"key", "Escape"});
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    EXPECT_EQ(process->wait().status, kDone);
    EXPECT_FALSE(here.has(".local/share/tidvane"));
}

TEST_F(WindowsStart, TheEndOfTheSessionLeavesTheDialogsOfTheFirstWindow) {
    struct Opened {
        const char* key;
        const char* title;
    };
    for (const Opened& dialog : {Opened{"alt+f", "Folder of a Wine prefix"}, Opened{"alt+s", "Create a sample"}}) {
        const auto process = start({});
        ASSERT_TRUE(shows(*process, 1));
        const auto isOpen = [&] {
            return !xdotool({"search", "--onlyvisible", "--all", "--pid", std::to_string(process->id()), "--name",
                             dialog.title})
                        .empty();
        };
        for (int turn = 0; turn < 100 && !isOpen(); ++turn) {
            xdotool({"key", dialog.key});
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
        }
        ASSERT_TRUE(isOpen()) << dialog.title;
        process->send(SIGTERM);
        const ProcessResult result = process->wait();
        EXPECT_EQ(result.status, kDone) << dialog.title << result.err;
        EXPECT_FALSE(result.timedOut) << dialog.title;
    }
    EXPECT_FALSE(here.has(".local/share/tidvane"));
}

TEST_F(WindowsStart, TheEndOfTheSessionIsHeardAlsoWhileARunIsUnderWay) {
    // Every step has its pause, while which nothing gets in: all of them would take longer than the test waits.
    here.file("program/td_config.ini",
              "[frmOptions]\r\nchkStartClean=1\r\nchkRecentDocuments=1\r\nchkSearchList=1\r\nchkRunList=1\r\n"
              "txtPurgeSpeed=5000\r\n");
    const auto process = startOnMachine();
    ASSERT_TRUE(shows(*process, 1));
    process->send(SIGTERM);
    const ProcessResult result = process->wait();
    EXPECT_EQ(result.status, kDone) << result.err;
    EXPECT_FALSE(result.timedOut);
    EXPECT_NE(here.content("program/td_config.ini").find("[WindowState]"), std::string::npos);
}

}  // namespace
}  // namespace tidvane::tests
