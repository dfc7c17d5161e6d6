#include "view/window_shell.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

class WindowShellTest : public ::testing::Test, protected ProgramFixture {
protected:
    WindowShellTest() {
        shell.hostFolderOf = [](const std::string& folder) {
            return folder == "C:\\Users" ? std::string("/m/drive_c/Users") : std::string();
        };
        shell.show = [this](const std::string& target) {
            shown.push_back(target);
            return desktopCan;
        };
    }
    std::size_t started() { return machine.shell.started.size(); }
    view::WindowShell shell{program.platform.shell};
    std::vector<std::string> shown;
    bool desktopCan = true;
};

TEST_F(WindowShellTest, PagesOnTheNetAreShownByTheDesktop) {
    EXPECT_GT(shell.ShellExecuteA("open", "https://tidvane.example/help", "", "", 1), 32);
    EXPECT_GT(shell.ShellExecuteA("Open", "mailto:?Subject=x", "", "", 1), 32);
    EXPECT_EQ(shown, (std::vector<std::string>{"https://tidvane.example/help", "mailto:?Subject=x"}));
    EXPECT_EQ(started(), 0U);
}

TEST_F(WindowShellTest, FoldersOfTheMachineAreShownWhereTheyLie) {
    EXPECT_GT(shell.ShellExecuteA("open", "C:\\Users", "", "", 1), 32);
    EXPECT_EQ(shown, std::vector<std::string>{"/m/drive_c/Users"});
}

TEST_F(WindowShellTest, ProgramsAndFilesAreLeftToThePlatform) {
    (void)shell.ShellExecuteA("open", "C:\\Windows\\notepad.exe", "", "", 1);
    (void)shell.ShellExecuteA("open", "C:\\Users", "/select", "", 1);
    (void)shell.ShellExecuteA("runas", "https://tidvane.example", "", "", 1);
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(started(), 3U);
}

TEST_F(WindowShellTest, ADesktopThatCannotShowItSaysThatNothingCould) {
    desktopCan = false;
    EXPECT_EQ(shell.ShellExecuteA("open", "https://tidvane.example", "", "", 1), 31);
    EXPECT_EQ(started(), 0U);
}

}  // namespace
}  // namespace tidvane::tests
