// The ways in which the main window closes, and what its unload does.
#include <algorithm>

#include "support/app_fixture.h"

namespace tidvane::tests {

struct CloseMain : AppFixture {
    CloseMain() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    bool close(forms::UnloadMode mode) { return program.windows.unload(main(), mode); }
    // The log as the display saw it, since the box goes with the window.
    std::vector<std::string> seen;
    void watchLog() {
        main().log().appended.connect(
            [this](const std::string& line) { seen.push_back(line.substr(0, line.size() - 2)); });
    }
    int seenTimes(const std::string& line) { return static_cast<int>(std::count(seen.begin(), seen.end(), line)); }
};

TEST_F(CloseMain, TheCloseBoxHidesTheWindowInTheTray) {
    EXPECT_FALSE(close(forms::UnloadMode::ControlMenu));
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_EQ(display.hidden.back(), "frmMain");
    EXPECT_EQ(display.ends, 0);
    EXPECT_NE(program.windows.ifLoaded("frmMain"), nullptr);
}

TEST_F(CloseMain, WhereNoTrayIsTheNoteOfItIsInTheProgramsLanguage) {
    speakGerman();
    (void)main();
    display.tray = false;
    EXPECT_FALSE(close(forms::UnloadMode::ControlMenu));
    EXPECT_EQ(main().State, forms::WindowState::Minimized);
    ASSERT_FALSE(display.warnings.empty());
    EXPECT_EQ(display.warnings.back(),
              "Diese Arbeitsoberfläche zeigt keine Symbole im Infobereich: Tidvane wird stattdessen in die Taskleiste "
              "minimiert.");
}

TEST_F(CloseMain, CodeGoesThrough) {
    EXPECT_TRUE(close(forms::UnloadMode::Code));
    EXPECT_EQ(program.windows.ifLoaded("frmMain"), nullptr);
}

TEST_F(CloseMain, TheEndOfWindowsGoesThrough) {
    EXPECT_TRUE(close(forms::UnloadMode::WindowsShutdown));
    EXPECT_EQ(program.windows.ifLoaded("frmMain"), nullptr);
}

TEST_F(CloseMain, ExitUnloadsEverythingAndEnds) {
    display.addTrayIcon("x");
    main().ExitProgram();
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_TRUE(program.windows.loadedNames().empty());
    EXPECT_GE(display.ends, 1);
}

TEST_F(CloseMain, LoadsNoWindowAgainOnItsWayOut) {
    options();
    const auto loads = machine.processes.instanceLockTries;
    main().ExitProgram();
    EXPECT_EQ(machine.processes.instanceLockTries, loads);
}

TEST_F(CloseMain, ExitGoesToTheTrayWhileARunIsUnderWay) {
    main().cmdClean.Value = true;
    main().ExitProgram();
    EXPECT_EQ(display.ends, 0);
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
}

TEST_F(CloseMain, WritesTheTicksOfThePlugIns) {
    machine.files.putFile(inFolder("PlugIns\\a.tdp"));
    machine.files.putFile(inFolder("PlugIns\\b.tdp"));
    main().LstPlugs.setSelected(1, true);
    main().ExitProgram();
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_apps.ini")), "[PlugIns]\r\na=0\r\nb=1\r\n");
}

TEST_F(CloseMain, LogsItsHeadingWithoutATimeAndFillsPanelOne) {
    options().chkLogTimestamp.Value = 0;
    watchLog();
    std::string one;
    main().StatusBar1.viewChanged.connect([&] { one = main().StatusBar1.Panel(1); });
    main().ExitProgram();
    EXPECT_EQ(seenTimes(text(578)), 1);
    EXPECT_EQ(one, text(578)) << "the last text of the panel";
}

TEST_F(CloseMain, WritesTheTicksInFrontOfItsHeadingAndItsPlaceBehindIt) {
    machine.files.putFile(inFolder("PlugIns\\a.tdp"));
    main().LstPlugs.setSelected(0, true);
    std::string ticks;
    std::string width;
    main().log().appended.connect([&](const std::string& line) {
        if (!line.starts_with(text(578))) return;
        ticks = machine.files.bytesOf(inFolder("td_apps.ini")).value_or("");
        width = storedValue("WindowState", "Width");
    });
    main().ExitProgram();
    EXPECT_EQ(ticks, "[PlugIns]\r\na=1\r\n");
    EXPECT_EQ(width, "<none>");
    EXPECT_NE(storedValue("WindowState", "Width"), "<none>");
}

TEST_F(CloseMain, CleansAtExitBehindTheGeometry) {
    store({"chkEndClean=1", "chkTempFolder=1"});
    machine.files.putFile("C:\\Windows\\Temp\\x.tmp");
    main();
    bool geometryWasThere = false;
    main().stepDone.connect([&](const app::StepResult& step) {
        if (step.task->step == 1) geometryWasThere = storedValue("WindowState", "Width") != "<none>";
    });
    watchLog();
    main().ExitProgram();
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\x.tmp"));
    EXPECT_TRUE(geometryWasThere);
    EXPECT_EQ(std::count_if(seen.begin(), seen.end(), [&](const std::string& l) { return l.starts_with(text(491)); }),
              1);
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

TEST_F(CloseMain, DoesNotCleanAtExitAfterAStop) {
    store({"chkEndClean=1"});
    main().cmdStop_Click();
    watchLog();
    main().ExitProgram();
    EXPECT_EQ(seenTimes(text(578)), 1);
    EXPECT_EQ(seen.size(), 1u);
}

TEST_F(CloseMain, DeletesTheLogByOverwritingWhateverMethodIsChosen) {
    store({"chkDeleteLog=1", "txtTidvaneLog=C:\\logs", "cboKillMethod=1"});
    machine.files.putFile("C:\\logs\\td_log.txt", "someone else's");
    main().ExitProgram();
    EXPECT_FALSE(machine.files.has("C:\\logs\\td_log.txt"));
    EXPECT_TRUE(machine.shell.recycled.empty());
    ASSERT_EQ(machine.files.overwritten.size(), 1u);
    EXPECT_EQ(machine.files.overwritten[0].path, "C:\\logs\\td_log.txt");
}

TEST_F(CloseMain, DeletesTheLogBehindTheCleaningAtExit) {
    store({"chkDeleteLog=1", "chkEndClean=1", "chkAutoLog=1", "txtTidvaneLog=C:\\logs"});
    machine.files.putFolder("C:\\logs");
    main().ExitProgram();
    EXPECT_FALSE(machine.files.has("C:\\logs\\td_log.txt"));
}

TEST_F(CloseMain, PassesOverALogThatIsLocked) {
    store({"chkDeleteLog=1", "txtTidvaneLog=C:\\logs"});
    machine.files.putFile("C:\\logs\\td_log.txt", "x");
    machine.files.lock("C:\\logs\\td_log.txt");
    main().ExitProgram();
    EXPECT_TRUE(machine.files.has("C:\\logs\\td_log.txt"));
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

TEST_F(CloseMain, AfterARunEndsTheProgram) {
    store({"chkCloseAfterClean=1", "chkTempFolder=1"});
    watchLog();
    clean();
    EXPECT_EQ(seenTimes(text(578)), 2);  // the line of the run and the heading of the unload
    EXPECT_TRUE(program.windows.loadedNames().empty());
    EXPECT_GE(display.ends, 1);
}

TEST_F(CloseMain, AfterAStoppedRunEndsTheProgramToo) {
    store({"chkCloseAfterClean=1", "chkTempFolder=1"});
    main().stepDone.connect([this](const app::StepResult& step) {
        if (step.task->step == 1) main().cmdStop_Click();
    });
    clean();
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

TEST_F(CloseMain, WithCleaningAtBothEndsRunsTwiceAndStillDeletesTheLog) {
    store({"chkCloseAfterClean=1", "chkEndClean=1", "chkDeleteLog=1", "txtTidvaneLog=C:\\logs"});
    machine.files.putFile("C:\\logs\\td_log.txt", "x");
    int runs = 0;
    main().stepDone.connect([&](const app::StepResult& step) { runs += step.task->step == 1 ? 1 : 0; });
    clean();
    EXPECT_EQ(runs, 2);
    EXPECT_FALSE(machine.files.has("C:\\logs\\td_log.txt"));
    EXPECT_GE(display.trayRemovals, 1);
    EXPECT_TRUE(program.windows.loadedNames().empty());
    EXPECT_GE(display.ends, 1);
}

TEST_F(CloseMain, FromTheRunOfTheStartLeavesNoWindow) {
    store({"chkStartClean=1", "chkCloseAfterClean=1", "chkTempFolder=1"});
    machine.files.putFile("C:\\Windows\\Temp\\x.tmp");
    main();
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\x.tmp"));
    EXPECT_TRUE(program.windows.loadedNames().empty());
    EXPECT_GE(display.ends, 1);
}

TEST_F(CloseMain, FromTheTimersRunLeavesNoWindow) {
    store({"chkCloseAfterClean=1", "chkTempFolder=1"});
    main().tmrCleanButton.Enabled = true;
    main().tmrCleanButton.fire();
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

TEST_F(CloseMain, ReadsTheOptionsAnewWhenTheirWindowIsClosed) {
    store({"chkEndClean=1", "chkTempFolder=1"});
    machine.files.putFile("C:\\Windows\\Temp\\x.tmp");
    program.windows.unload(options());
    const auto starts = machine.processes.instanceLockTries;
    main().ExitProgram();
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\x.tmp"));
    EXPECT_TRUE(program.windows.loadedNames().empty());
    EXPECT_EQ(machine.processes.instanceLockTries, starts);
}

TEST_F(CloseMain, RestartGivesTheLockBackAndStartsTheProgramAnew) {
    main();
    ASSERT_TRUE(machine.processes.holdsInstanceLock);
    main().menu("mnuRestartTidvane").Click();
    EXPECT_FALSE(machine.processes.holdsInstanceLock);
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, inFolder("Tidvane.exe"));
    EXPECT_GE(display.ends, 1);
}

}  // namespace tidvane::tests
