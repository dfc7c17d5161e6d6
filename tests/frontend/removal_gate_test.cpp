// The windows' program on a machine that others use too: what stands between a button and what it removes.
#include "frontend/removal_gate.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "settings/frmOptions.h"
#include "support/host_directory.h"
#include "support/scripted_display.h"
#include "support/wine_server_stand_in.h"
#include "tools/frmIECache.h"
#include "tools/frmManualSearch.h"

namespace tidvane::frontend {
namespace {

constexpr const char* kJunk = "m/drive_c/Windows/Temp/junk.tmp";

class RemovalGate : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(platform::machine::Machine::create(here / "m", error)) << error;
        std::filesystem::create_directories(here / "program");
        std::filesystem::copy(TIDVANE_SOURCE_DIR "/data/English.lng", here / "program/English.lng");
        here.file("program/td_last.dat", "#2009-11-02#\r\n#07:05:09#\r\n");
        here.file("program/td_config.ini", "[frmOptions]\r\nchkTempFolder=1\r\n");
        here.file(kJunk, "junk");
        server = std::make_unique<tests::WineServerStandIn>(here / "m");
        held = HeldMachine::open({here / "m", here / "program"}, error);
        ASSERT_NE(held, nullptr) << error;
        program = std::make_unique<settings::Program>(held->platform().platform(), display);
        app::offerAllWindows(*program);
        connectRemovalGate(*program, *held);
    }
    app::frmMain& main() { return program->get<app::frmMain>(); }
    settings::frmOptions& options() { return program->get<settings::frmOptions>(); }
    bool refusedBecauseOf(const std::string& part) {
        return !display.boxes.empty() && display.boxes.back().text.find(part) != std::string::npos &&
               display.boxes.back().style == forms::msgbox::Exclamation;
    }
    // Another Tidvane could work with the machine.
    bool isFree() {
        return platform::machine::Machine::open(here / "m", platform::machine::Machine::Access::Write, error) !=
               nullptr;
    }

    tests::HostDirectory here;
    std::string error;
    tests::ScriptedDisplay display;
    std::unique_ptr<tests::WineServerStandIn> server;
    std::unique_ptr<HeldMachine> held;
    std::unique_ptr<settings::Program> program;
};

TEST_F(RemovalGate, ARunTakesTheMachineAndTheEndOfItGivesItFree) {
    (void)main();
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_TRUE(isFree()) << error;
    main().cmdClean_Click();
    EXPECT_FALSE(here.has(kJunk));
    EXPECT_FALSE(isFree());
    EXPECT_TRUE(held->settle(error)) << error;
    EXPECT_TRUE(isFree()) << error;
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(RemovalGate, BesideAWineServerARunStopsBeforeAnythingIsRemoved) {
    (void)main();
    ASSERT_TRUE(held->settle(error)) << error;
    server->start();
    const std::string log = main().txtLog.Text();
    main().tmrCleanButton.Enabled = true;
    main().cmdClean_Click();
    EXPECT_TRUE(refusedBecauseOf("running Wine server"));
    EXPECT_TRUE(here.has(kJunk));
    EXPECT_EQ(main().txtLog.Text(), log);
    EXPECT_FALSE(main().tmrCleanButton.Enabled) << "or it would ask every second";
    EXPECT_TRUE(main().cmdClean.Enabled);
    server->end();
    main().cmdClean_Click();
    EXPECT_FALSE(here.has(kJunk));
}

TEST_F(RemovalGate, WhatTheMachineIsRefusedForIsToldInTheProgramsLanguage) {
    std::filesystem::remove(here / "program/English.lng");
    std::filesystem::copy(TIDVANE_SOURCE_DIR "/data/languages/Deutsch (German).lng", here / "program/German.lng");
    (void)main();
    ASSERT_TRUE(held->settle(error)) << error;
    server->start();
    main().cmdClean_Click();
    EXPECT_TRUE(refusedBecauseOf("wird von einem laufenden Wine-Server benutzt")) << display.boxes.back().text;
    server->end();
    const auto other = platform::machine::Machine::open(here / "m", platform::machine::Machine::Access::Write, error);
    ASSERT_NE(other, nullptr) << error;
    main().cmdClean_Click();
    EXPECT_TRUE(refusedBecauseOf("wird von einem anderen Tidvane benutzt")) << display.boxes.back().text;
    EXPECT_TRUE(here.has(kJunk));
}

TEST_F(RemovalGate, ARefusedQuestionLeavesTheMachineFree) {
    here.file("program/td_ftypes.dat", "*\r\n");
    options().chkSearchTasks.Value = 1;
    (void)main();
    ASSERT_TRUE(held->settle(error)) << error;
    display.questionAnswer = forms::msgbox::No;
    main().cmdClean_Click();
    EXPECT_TRUE(here.has(kJunk));
    EXPECT_TRUE(isFree()) << error;
}

TEST_F(RemovalGate, AServerThatComesUpWhileAQuestionStandsIsSeen) {
    here.file("program/td_ftypes.dat", "*\r\n");
    options().chkSearchTasks.Value = 1;
    (void)main();
    display.whileBoxIsUp = [this](const auto&) {
        display.whileBoxIsUp = nullptr;
        server->start();
    };
    main().cmdClean_Click();
    EXPECT_TRUE(refusedBecauseOf("running Wine server"));
    EXPECT_TRUE(here.has(kJunk));
}

TEST_F(RemovalGate, ThePlugInsAloneAreRefusedToo) {
    (void)main();
    server->start();
    main().menu("mnuCleanPlugNow").Click();
    EXPECT_TRUE(refusedBecauseOf("running Wine server"));
    EXPECT_TRUE(main().cmdClean.Enabled);
    EXPECT_FALSE(main().cmdStop.Enabled);
}

TEST_F(RemovalGate, TheWizardIsRefusedAndKeepsItsPage) {
    auto& wizard = program->get<tools::frmManualSearch>();
    wizard.txtSearchMask.setText("*.tmp");
    wizard.tmrManualSearch.fire();
    wizard.cmdNext.press();
    wizard.chkScanAllFixedDrives.Value = 0;
    wizard.txtFolderScanPath.setText("C:\\Windows\\Temp");
    server->start();
    wizard.cmdSearch.press();
    EXPECT_TRUE(refusedBecauseOf("running Wine server"));
    EXPECT_TRUE(here.has(kJunk));
    EXPECT_TRUE(wizard.frmWizardStep2.Visible);
    server->end();
    (void)options();
    const std::string name = program->LangText(732);
    program->LangText.set(732, "another name since the window was loaded");
    wizard.cmdSearch.press();
    EXPECT_TRUE(refusedBecauseOf("No way of removing files is chosen"));
    EXPECT_TRUE(here.has(kJunk));
    program->LangText.set(732, name);
    wizard.cmdSearch.press();
    EXPECT_FALSE(here.has(kJunk));
}

TEST_F(RemovalGate, TheManagersAreRefusedWithoutQuestions) {
    auto& cache = program->get<tools::frmIECache>();
    server->start();
    cache.cmdDeleteAll.setValue(true);
    EXPECT_TRUE(refusedBecauseOf("running Wine server"));
    EXPECT_EQ(display.boxes.size(), 1U);
}

TEST_F(RemovalGate, ACleaningAtTheStartIsHeldBackBesideAWineServer) {
    here.file("program/td_config.ini", "[frmOptions]\r\nchkTempFolder=1\r\nchkStartClean=1\r\n");
    server->start();
    (void)main();
    EXPECT_TRUE(refusedBecauseOf("running Wine server"));
    EXPECT_TRUE(here.has(kJunk));
}

TEST_F(RemovalGate, StepsOfARunAreNotAskedOneByOne) {
    (void)main();
    options().chkIECache.Value = 1;
    bool asked = false;
    const auto gate = program->mayRemove;
    program->mayRemove = [&](settings::Removal act) {
        const bool allowed = gate(act);
        if (act == settings::Removal::Manager) {
            asked = true;
            EXPECT_TRUE(allowed);
        }
        return allowed;
    };
    main().stepDone.connect([this](const app::StepResult& result) {
        if (result.task->step == 1) server->start();
    });
    main().cmdClean_Click();
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_TRUE(asked);
}

}  // namespace
}  // namespace tidvane::frontend
