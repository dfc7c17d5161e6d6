// What a program with windows does in the place of programs that the machine cannot start.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/recycle_bin_window.h"
#include "plugins/frmPlugsInfo.h"
#include "support/app_fixture.h"
#include "view/window_program.h"

namespace tidvane::tests {
namespace {

using Lines = std::vector<std::string>;

class StandIns : public testing::Test {
protected:
    StandIns() {
        machine_.files.putFile(AppFixture::inFolder("English.lng"), englishLanguageFile());
        machine_.files.putFile(AppFixture::inFolder("td_last.dat"), "#2009-11-02#\r\n#07:05:09#\r\n");
        machine_.processes.failToStart = true;
        program_.display().onWarning = [this](const std::string& line) { warnings_.push_back(line); };
        program_.shell().hostFolderOf = [this](const std::string& folder) {
            return folder == folder_ ? std::string("/m/there") : std::string();
        };
        program_.shell().show = [this](const std::string& target) {
            shown_.push_back(target);
            return desktopCan_;
        };
        (void)program_.program().get<app::frmMain>();  // loads the texts
    }
    // Whether it counts as started.
    bool start(const std::string& commandLine) {
        return program_.program().platform.processes.CreateProcessA(commandLine, 1) != nullptr;
    }

    platform::MemoryPlatform machine_;
    view::WindowProgram program_{machine_.platform()};
    std::string folder_;  // the only one that is there
    Lines warnings_;
    Lines shown_;
    bool desktopCan_ = true;
};

TEST_F(StandIns, TheRecycleBinIsShownAsTheFolderInWhichItLies) {
    folder_ = "C:\\$Recycle.Bin\\S-1-5-21";
    program_.recycleBins = [this] { return Lines{folder_}; };
    EXPECT_TRUE(start(app::kRecycleBinWindow));
    EXPECT_EQ(shown_, Lines{"/m/there"});
    EXPECT_EQ(warnings_, Lines{});
}

TEST_F(StandIns, WhereNoBinIsYetANoticeTellsSo) {
    EXPECT_TRUE(start(app::kRecycleBinWindow));
    program_.recycleBins = [] { return Lines{}; };
    EXPECT_TRUE(start(app::kRecycleBinWindow));
    EXPECT_EQ(shown_, Lines{});
    EXPECT_EQ(warnings_, (Lines{"The recycle bin is empty.", "The recycle bin is empty."}));
}

TEST_F(StandIns, ADesktopThatShowsNoFolderIsTold) {
    folder_ = "C:\\$Recycle.Bin\\S-1-5-21";
    program_.recycleBins = [this] { return Lines{folder_}; };
    desktopCan_ = false;
    EXPECT_TRUE(start(app::kRecycleBinWindow));
    EXPECT_EQ(warnings_, Lines{"This desktop has no program that shows \"" + folder_ + "\"."});
}

TEST_F(StandIns, InPlaceOfThePlugInEditorTheirFolderIsShown) {
    EXPECT_FALSE(start("notepad.exe")) << "before anything of a plug-in was asked for";
    (void)program_.program().get<plugins::frmPlugsInfo>();
    EXPECT_TRUE(start("notepad.exe"));
    EXPECT_EQ(warnings_, Lines{"This system cannot start notepad.exe."});
    folder_ = AppFixture::inFolder("PlugIns\\");
    EXPECT_TRUE(start("notepad.exe"));
    EXPECT_EQ(shown_, Lines{"/m/there"});
    EXPECT_EQ(warnings_.size(), 1u);
}

TEST_F(StandIns, NothingStandsForOtherPrograms) {
    (void)program_.program().get<plugins::frmPlugsInfo>();
    EXPECT_FALSE(start("C:\\Windows\\regedit.exe"));
    EXPECT_EQ(warnings_, Lines{});
}

TEST_F(StandIns, WhatTheMachineStartsIsNotReplaced) {
    machine_.processes.failToStart = false;
    EXPECT_TRUE(start(app::kRecycleBinWindow));
    EXPECT_EQ(machine_.processes.started.size(), 1u);
    EXPECT_EQ(warnings_, Lines{});
}

TEST_F(StandIns, APlugInOfTheProgramIsTheOneThatTheEditorWouldShow) {
    program_.shell().hostFileOf = [](const std::string& file) { return "/p/" + file.substr(file.rfind('\\') + 1); };
    platform::Shell& shell = program_.program().platform.shell;
    EXPECT_GT(shell.ShellExecuteA("open", AppFixture::inFolder("PlugIns\\a.tdp"), "", "", 1), 32);
    EXPECT_EQ(shown_, Lines{"/p/a.tdp"});
}

TEST_F(StandIns, WhereNobodyMayBeKeptWaitingTheBinStaysFull) {
    machine_.shell.putRecycled("C:\\a.txt", "x");
    machine_.shell.confirmsEmptying = true;  // the question is the only one that says no
    program_.program().unattended = true;
    EXPECT_EQ(program_.program().platform.shell.SHEmptyRecycleBinA(0, "", 0), platform::kErrorCancelled);
    EXPECT_TRUE(machine_.shell.emptiedRoots.empty());
}

}  // namespace
}  // namespace tidvane::tests
