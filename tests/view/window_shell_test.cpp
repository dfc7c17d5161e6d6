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

TEST_F(WindowShellTest, AnAddressWithoutItsSchemeIsOneOfTheWeb) {
    EXPECT_GT(shell.ShellExecuteA("open", "www.tidvane.example", "", "", 1), 32);
    EXPECT_EQ(shown, std::vector<std::string>{"http://www.tidvane.example"});
}

TEST_F(WindowShellTest, OnlyPlugInsOfTheProgramAreShownAsTexts) {
    shell.plugInFolder = "C:\\Program Files\\Tidvane\\PlugIns\\";
    shell.hostFileOf = [](const std::string& file) { return "/p/" + file.substr(file.rfind('\\') + 1); };
    EXPECT_GT(shell.ShellExecuteA("open", "c:\\program files\\tidvane\\PLUGINS\\a.TDP", "", "", 1), 32);
    EXPECT_EQ(shown, std::vector<std::string>{"/p/a.TDP"});
    for (const char* other : {"C:\\Program Files\\Tidvane\\PlugIns\\a.exe",
                              "C:\\Program Files\\Tidvane\\PlugIns\\deep\\a.tdp", "C:\\Users\\a.tdp", "a.tdp"}) {
        (void)shell.ShellExecuteA("open", other, "", "", 1);
    }
    EXPECT_EQ(shown.size(), 1U);
    EXPECT_EQ(started(), 4U);
}

TEST_F(WindowShellTest, ABinIsEmptiedOnlyBehindAYes) {
    machine.shell.putRecycled("C:\\a.txt", "x");
    bool answer = false;
    int asked = 0;
    shell.agreesToEmpty = [&] {
        ++asked;
        return answer;
    };
    EXPECT_EQ(shell.SHEmptyRecycleBinA(0, "", 0), platform::kErrorCancelled);
    EXPECT_TRUE(machine.shell.emptiedRoots.empty());
    answer = true;
    EXPECT_EQ(shell.SHEmptyRecycleBinA(0, "", 0), 0);
    EXPECT_EQ(machine.shell.emptiedRoots.size(), 1U);
    EXPECT_EQ(asked, 2);
}

TEST_F(WindowShellTest, NothingIsAskedAboutAnEmptyBinAndWhereNoQuestionIsWanted) {
    int asked = 0;
    shell.agreesToEmpty = [&] {
        ++asked;
        return true;
    };
    EXPECT_EQ(shell.SHEmptyRecycleBinA(0, "", 0), 0);
    machine.shell.putRecycled("C:\\a.txt", "x");
    EXPECT_EQ(shell.SHEmptyRecycleBinA(0, "", platform::kSherbNoConfirmation), 0);
    EXPECT_EQ(asked, 0);
}

TEST_F(WindowShellTest, ADesktopThatCannotShowItSaysThatNothingCould) {
    std::vector<std::string> notShown;
    shell.onNotShown = [&](const std::string& target) { notShown.push_back(target); };
    desktopCan = false;
    EXPECT_EQ(shell.ShellExecuteA("open", "https://tidvane.example", "", "", 1), 31);
    EXPECT_EQ(notShown, std::vector<std::string>{"https://tidvane.example"});
    EXPECT_EQ(started(), 0U);
}

}  // namespace
}  // namespace tidvane::tests
