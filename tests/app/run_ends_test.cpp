// Runs during which the program ends, and runs that nobody may hold up.
#include <gtest/gtest.h>

#include "app/frmDiskSizeStats.h"
#include "settings/frmIEInDepthClean.h"
#include "support/app_fixture.h"

namespace tidvane::app {
namespace {

struct RunEndsTest : tests::AppFixture {};

TEST_F(RunEndsTest, ARunDoesNothingMoreOnceTheProgramHasEnded) {
    machine.files.putFile("C:\\Windows\\Temp\\a.tmp", "x");
    tick(options().chkTempFolder);
    int steps = 0;
    main().stepDone.connect([&](const StepResult& result) {
        ++steps;
        if (result.task->step == 3) program.UnloadAllForms();
    });
    main().cmdClean_Click();
    EXPECT_EQ(steps, 3);
    EXPECT_TRUE(machine.files.has("C:\\Windows\\Temp\\a.tmp"));
    EXPECT_TRUE(program.ended());
    EXPECT_EQ(program.windows.ifLoaded("frmMain"), nullptr);
}

TEST_F(RunEndsTest, TheEndOfWindowsCleansWithoutABox) {
    options().chkEndClean.Value = 1;
    main();
    display.boxes.clear();
    program.windows.unload(main(), forms::UnloadMode::WindowsShutdown);
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_EQ(display.ends, 1);
}

TEST_F(RunEndsTest, AnOrdinaryEndWithNothingTickedStillTellsSo) {
    options().chkEndClean.Value = 1;
    main();
    display.boxes.clear();
    program.windows.unload(main());
    EXPECT_EQ(display.boxes.size(), 2U);
}

TEST_F(RunEndsTest, ABadStoredNumberInAnotherWindowDoesNotEndTheWalk) {
    machine.files.putFile(inFolder("td_config.ini"), "[frmIEInDepthClean]\r\nchkIEINDepthClean=bad\r\n");
    int steps = 0;
    main().stepDone.connect([&](const StepResult&) { ++steps; });
    main().cmdClean_Click();
    EXPECT_EQ(steps, 62);
}

TEST_F(RunEndsTest, TheFreeSpaceBeforeIsToldThoughItsWindowWasClosedMeanwhile) {
    machine.files.putFileOfLength("C:\\Windows\\Temp\\big.tmp", std::uint64_t{2} << 30);
    tick(options().chkTempFolder);
    mainWithoutTimes();
    main().stepDone.connect([&](const StepResult& result) {
        if (result.task->step == 20) program.windows.unload(program.get<frmDiskSizeStats>());
    });
    main().cmdClean_Click();
    bool told = false;
    for (const std::string& line : logLines())
        told = told || line.starts_with(text(434) + " 3") || line.starts_with(text(434) + " 4");
    EXPECT_TRUE(told);
}

TEST_F(RunEndsTest, WhatTheBinRefusedIsToldOnceARunAndCountedAnew) {
    main();
    bool refuse = true;
    main().stepDone.connect([&](const StepResult& result) {
        if (refuse && result.task->step == 1) program.removedForGood = 3;
    });
    display.warnings.clear();
    main().cmdClean_Click();
    ASSERT_EQ(display.warnings.size(), 1U);
    EXPECT_NE(display.warnings[0].find('3'), std::string::npos);
    refuse = false;
    main().cmdClean_Click();
    EXPECT_EQ(display.warnings.size(), 1U);
}

TEST_F(RunEndsTest, TheResultsWindowStoresItsSizeWithoutTheLog) {
    auto& window = program.get<frmDiskSizeStats>();
    const int height = window.Height;
    window.lblFreedSpace.Click();
    EXPECT_GT(window.Height, height);
    program.windows.unload(window);
    EXPECT_EQ(program.get<frmDiskSizeStats>().Height, height);
}

TEST_F(RunEndsTest, TheResultsWindowKeepsItsMinimum) {
    auto& window = program.get<frmDiskSizeStats>();
    window.Width = 10;
    window.Height = 10;
    window.resized();
    EXPECT_EQ(window.Width, frmDiskSizeStats::kMinWidth);
    EXPECT_EQ(window.Height, frmDiskSizeStats::kMinHeight);
}

TEST_F(RunEndsTest, TheCommunityLinkOpensItsPage) {
    auto& window = program.get<frmDiskSizeStats>();
    window.lblFacebook.Click();
    window.ImgFB.Click();
    EXPECT_EQ(machine.shell.started.size(), 2U);
}

TEST_F(RunEndsTest, UnloadGoesTicksHeadingGeometryCleaningLogTrayWindows) {
    machine.files.putFile(inFolder("PlugIns\\a.b.tdp"), "x");
    machine.files.putFolder(inFolder("PlugIns\\folder.tdp"));
    options().chkEndClean.Value = 1;
    options().chkDeleteLog.Value = 1;
    machine.files.putFile(inFolder("td_log.txt"), "log");
    mainWithoutTimes();
    ASSERT_EQ(main().LstPlugs.ListCount(), 2);
    EXPECT_EQ(main().LstPlugs.List(0), "a.b");
    EXPECT_EQ(main().LstPlugs.List(1), "folder");
    main().LstPlugs.setSelected(0, true);
    bool ticksBeforeRun = false;
    bool geometryBeforeRun = false;
    bool headingBeforeRun = false;
    bool logThere = false;
    const std::string heading = text(578);
    bool first = true;
    forms::StatusBar& bar = main().StatusBar1;
    bar.viewChanged.connect([&] { headingBeforeRun = headingBeforeRun || (first && bar.Panel(1) == heading); });
    main().stepDone.connect([&](const StepResult&) {
        if (!first) return;
        first = false;
        ticksBeforeRun = machine.files.bytesOf(inFolder("td_apps.ini")).value_or("").find("a.b=1") != std::string::npos;
        geometryBeforeRun =
            machine.files.bytesOf(inFolder("td_config.ini")).value_or("").find("[WindowState]") != std::string::npos;
        logThere = machine.files.has(inFolder("td_log.txt"));
    });
    program.windows.unload(main());
    EXPECT_FALSE(first);
    EXPECT_TRUE(ticksBeforeRun);
    EXPECT_TRUE(geometryBeforeRun);
    EXPECT_TRUE(headingBeforeRun);
    EXPECT_TRUE(logThere);
    EXPECT_FALSE(machine.files.has(inFolder("td_log.txt")));
    EXPECT_GE(display.trayRemovals, 1);
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

}  // namespace
}  // namespace tidvane::app
