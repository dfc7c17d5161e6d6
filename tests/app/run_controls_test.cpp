// Entry points, the stop, the timer, and what a run does to the window.
#include <functional>
#include <utility>

#include "support/app_fixture.h"

namespace tidvane::tests {

struct RunControls : AppFixture {
    RunControls() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    // Runs in the walk, behind a step.
    void atStep(int number, std::function<void()> act) {
        main().stepDone.connect([number, act](const app::StepResult& step) {
            if (step.task->step == number) act();
        });
    }
    void stopAtStep(int number) {
        atStep(number, [this] { main().cmdStop.press(); });
    }
    int runs = 0;
    void countRuns() {
        atStep(1, [this] { ++runs; });
    }
};

TEST_F(RunControls, CloseTheEntryPointsWhileARunIsUnderWay) {
    main();
    std::string closed;
    const auto look = [&] {
        closed.clear();
        for (controls::isButton* button :
             {&main().cmdClean, &main().cmdClearLog, &main().cmdCopyLog, &main().cmdSaveLog, &main().cmdViewLog}) {
            if (!button->Enabled) closed += button->Name + " ";
        }
        for (const char* entry :
             {"mnuCleanSystray", "mnuCleanModeSystray", "mnuOptionsSystray", "mnuWidget", "mnuExitSystray"}) {
            if (!main().menu(entry).Enabled) closed += std::string(entry) + " ";
        }
        closed += main().cmdStop.Enabled ? "stop-on" : "stop-off";
        closed += main().cmdClean.Value ? " pressed" : " up";
    };
    atStep(1, look);
    clean();
    EXPECT_EQ(closed,
              "cmdClean cmdClearLog cmdCopyLog cmdSaveLog cmdViewLog mnuCleanSystray mnuCleanModeSystray "
              "mnuOptionsSystray mnuWidget mnuExitSystray stop-on pressed");
    look();
    EXPECT_EQ(closed, "stop-off up");
}

TEST_F(RunControls, ShowTheHourglassDuringTheRunAndTheArrowAfter) {
    main();
    clean();
    ASSERT_EQ(display.pointers.size(), 2u);
    EXPECT_EQ(display.pointers[0], forms::pointer::Hourglass);
    EXPECT_EQ(display.pointers[1], forms::pointer::Default);
}

TEST_F(RunControls, ShowThePointerOnMouseMovesByThePressedLook) {
    main().cmdClean.Value = true;
    main().mouseMove(0, 0);  // nothing
    EXPECT_TRUE(display.pointers.empty());
    main().mouseMove(0, 1);
    EXPECT_EQ(display.pointers.back(), forms::pointer::Hourglass);
    main().cmdClean.Value = false;
    main().mouseMove(0, 0);
    EXPECT_EQ(display.pointers.back(), forms::pointer::Default);
}

TEST_F(RunControls, OfferTheCleaningPageAlone) {
    main().SSTab1.offerOnly(2);
    main().cmdClean_Click();
    for (int tab = 0; tab < 4; ++tab) EXPECT_EQ(main().SSTab1.TabVisible(tab), tab == 0) << tab;
    EXPECT_EQ(main().SSTab1.Tab, 0);
}

TEST_F(RunControls, GiveTheLogItsSystemColourBack) {
    main().txtLog.ForeColor = 255;
    clean();
    EXPECT_EQ(main().txtLog.ForeColor, 0x80000008u);
}

TEST_F(RunControls, StopWritesItsStarsUnevenly) {
    main();
    std::string panelAfterStop;
    atStep(1, [&] {
        main().cmdStop.press();
        panelAfterStop = panel(1);
        EXPECT_FALSE(main().cmdStop.Enabled);
    });
    clean();
    EXPECT_EQ(countOf("***** " + text(554) + " *****"), 1);
    EXPECT_EQ(panelAfterStop, " ***** " + text(554) + "*****");
}

TEST_F(RunControls, StopInTheFirstStepLetsEveryLaterTickedTaskReportIt) {
    store({"chkRunList=1", "chkClipboard=1", "chkTempFolder=1", "chkTrash=1", "chkAlphabetizeFavorites=1"});
    machine.files.putFile("C:\\Windows\\Temp\\x.tmp");
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU");
    stopAtStep(1);
    clean();
    EXPECT_EQ(logLines()[2], "***** " + text(554) + " *****");
    for (const int name : {203, 210, 211, 212, 219}) {
        EXPECT_EQ(status(text(name)), text(506)) << name;
        EXPECT_FALSE(logHas(text(name) + " " + text(504) + " <OK>")) << name;
        EXPECT_FALSE(logHas(text(name) + " " + text(509))) << name;
    }
    EXPECT_TRUE(machine.files.has("C:\\Windows\\Temp\\x.tmp"));
    EXPECT_TRUE(hasKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU"));
    EXPECT_EQ(display.clipboardClears, 0);
    // Unticked tasks are still named, and the walk goes on to its end.
    EXPECT_TRUE(logHas("Microsoft Office FrontPage History " + text(509)));
    EXPECT_TRUE(main().lstTasks.item(main().lstTasks.Count())->selected);
}

TEST_F(RunControls, StopEffectsTheShortSummary) {
    stopAtStep(5);
    clean();
    const std::vector<std::string> end = logFrom(std::string(25, '=') + " " + text(490));
    ASSERT_GE(end.size(), 2u);
    EXPECT_EQ(end[1], text(622) + " (0 " + text(583) + ")");
    EXPECT_FALSE(logHas(std::string(25, '=') + " " + text(128) + " " + std::string(27, '=')));
    EXPECT_EQ(countOf(text(605) + " 0 (" + text(557) + " 64)"), 0);
    EXPECT_TRUE(logHas(text(437)));
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat"))->substr(0, 12), "#2009-11-03#");
    EXPECT_TRUE(main().StopRequested());
}

TEST_F(RunControls, StopIsForgottenByTheNextRun) {
    tick(options().chkClipboard);
    bool stopped = false;
    atStep(1, [&] {
        if (!stopped) main().cmdStop.press();
        stopped = true;
    });
    clean();
    EXPECT_EQ(status(text(211)), text(506));
    clean();
    EXPECT_EQ(status(text(211)), text(507));
    EXPECT_FALSE(main().StopRequested());
}

TEST_F(RunControls, StopWaitsForAPointThatLetsEventsIn) {
    // Registry and folder tasks pump nothing: a click that waits in the queue is not seen before the run's end.
    store({"chkRunList=1", "chkTempFolder=1", "chkTrash=1", "chkMoreLogDetails=1"});
    machine.files.putFile("C:\\Windows\\Temp\\x.tmp");
    main();
    const std::uint64_t pumps = machine.events.pumps;
    machine.events.everyPump = [this] { main().cmdStop.press(); };
    clean();
    EXPECT_EQ(machine.events.pumps, pumps);
    EXPECT_FALSE(main().StopRequested());
}

TEST_F(RunControls, StopIsSeenWhileAnotherProgramIsWaitedFor) {
    store({"chkOpenRecycleBinAsPreview=1", "cboKillMethod=1", "chkClipboard=1"});
    main();
    ASSERT_TRUE(options().chkOpenRecycleBinAsPreview.ticked());
    machine.processes.endsAfterWaits = 3;
    machine.events.onPump(2, [this] { main().cmdStop.press(); });
    clean();
    EXPECT_EQ(status(text(211)), text(506));
}

TEST_F(RunControls, TimerStartsARunOneSecondLaterAndIsOffBehindIt) {
    EXPECT_EQ(main().tmrCleanButton.Interval, 1000);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
    countRuns();
    main().tmrCleanButton.fire();
    EXPECT_EQ(runs, 0);
    main().tmrCleanButton.Enabled = true;
    main().tmrCleanButton.fire();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
}

TEST_F(RunControls, TimerIsNotEnteredFromItsOwnRun) {
    main();
    countRuns();
    atStep(3, [this] { main().tmrCleanButton.fire(); });
    main().tmrCleanButton.Enabled = true;
    main().tmrCleanButton.fire();
    EXPECT_EQ(runs, 1);
}

TEST_F(RunControls, TimerEntersARunThatAClickStarted) {
    main();
    countRuns();
    bool entered = false;
    atStep(3, [&] {
        if (entered) return;
        entered = true;
        main().tmrCleanButton.Enabled = true;
        main().tmrCleanButton.fire();
    });
    clean();
    EXPECT_EQ(runs, 2);
    EXPECT_FALSE(main().cmdClean.Value);
}

TEST_F(RunControls, PaneStartsARunButNoSecondOneInside) {
    main();
    countRuns();
    bool clicked = false;
    atStep(3, [&] {
        if (clicked) return;
        clicked = true;
        main().ExplorerBar1.ItemClick(0, 1);
    });
    main().ExplorerBar1.ItemClick(0, 1);
    EXPECT_EQ(runs, 1);
}

TEST_F(RunControls, PaneStartsARunAlsoUnderTheAutoSwitch) {
    machine.system.commandArguments = "/AUTO";
    main();
    countRuns();
    main().ExplorerBar1.ItemClick(0, 1);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(main().cmdClean.Value);
}

TEST_F(RunControls, TrayEntryAnnouncesARunAndStartsItByTheTimer) {
    tick(options().chkClipboard);
    display.addTrayIcon("x");
    countRuns();
    main().menu("mnuCleanSystray").Click();
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(logLines(), std::vector<std::string>{text(561) + "...[1/64] "});
    EXPECT_EQ(panel(1), text(561) + "...[1/64]");
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_TRUE(display.wasShown("frmMain"));
    EXPECT_TRUE(main().tmrCleanButton.Enabled);
    main().tmrCleanButton.fire();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(logHas(text(561) + "...[1/64] "));
}

TEST_F(RunControls, TheCloseBoxHidesTheWindowAndTheRunGoesOn) {
    main();
    atStep(3, [this] { EXPECT_FALSE(program.windows.unload(main(), forms::UnloadMode::ControlMenu)); });
    clean();
    EXPECT_EQ(display.hidden.back(), "frmMain");
    EXPECT_TRUE(logHas(text(437)));
}

TEST_F(RunControls, RestorePointIsAskedForBeforeAnythingElseAndItsLinesAreWiped) {
    store({"chkCreateRestorePoint=1"});
    int asked = 0;
    bool pressed = false;
    main().menu("mnuCreateRestorePoint").Click.connect([&] {
        ++asked;
        pressed = main().cmdClean.Value;
        main().AddLogLine("restore point");
    });
    clean();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(pressed);
    EXPECT_FALSE(logHas("restore point"));
}

TEST_F(RunControls, SelectTheTasksAlongTheList) {
    store({"chkRunList=1", "chkClipboard=1"});
    std::string selected;
    main().stepDone.connect([&](const app::StepResult& step) {
        if (!step.ticked) return;
        for (const forms::ListItem& row : main().lstTasks.items()) selected += row.selected ? row.key + ";" : "";
    });
    clean();
    EXPECT_EQ(selected, text(203) + ";" + text(211) + ";");
}

TEST_F(RunControls, FindTheStatusColumnByItsKey) {
    store({"chkClipboard=1"});
    std::swap(main().lstTasks.ColumnHeaders[0], main().lstTasks.ColumnHeaders[1]);
    clean();
    EXPECT_EQ(status(text(211)), text(507));
}

}  // namespace tidvane::tests
