// What follows the summary of a run.
#include "settings/frmMoreToConfigure.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

namespace {
const std::string kThin(90, '-');
constexpr const char* kRecycleBinWindow = "explorer.exe ::{645FF040-5081-101B-9F08-00AA002F954E}";
}  // namespace

struct AfterRun : AppFixture {
    AfterRun() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    void stopAtFirstStep() {
        main().stepDone.connect([this](const app::StepResult& step) {
            if (step.task->step == 1) main().cmdStop.press();
        });
    }
    // The log behind the disk figures.
    std::vector<std::string> tail() {
        std::vector<std::string> lines = logLines();
        for (std::size_t i = lines.size(); i > 0; --i) {
            if (lines[i - 1] == std::string(116, '-')) {
                return {lines.begin() + static_cast<std::ptrdiff_t>(i), lines.end()};
            }
        }
        return lines;
    }
};

struct MemoryTrim : AfterRun {
    MemoryTrim() {
        machine.files.putFile(inFolder("memtrim.exe"));
        store({"chkCleanRAM=1", "chkHideAlertMessage=1"});
    }
};

TEST_F(MemoryTrim, RunsTheSiblingAndTellsIt) {
    main();
    std::string panelWhileItRuns;
    machine.processes.onStart = [&](const std::string&) { panelWhileItRuns = panel(1); };
    clean();
    const std::string begin = text(535) + ": " + text(552) + "... " + text(626);
    EXPECT_EQ(tail(), (std::vector<std::string>{kThin, begin, text(552) + " <OK>"}));
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, inFolder("memtrim.exe"));
    EXPECT_EQ(panelWhileItRuns, begin);
    EXPECT_EQ(panel(1), text(552) + " <OK>");
}

// The box beside the check of a drive is stored and nothing more.
TEST_F(AppFixture, ARunWithTheDriveCheckTickedStartsNoProgram) {
    store({"chkVolumeCheck=1", "chkTempFolder=1", "txtPurgeSpeed=0"});
    machine.files.putFile("C:\\Windows\\System32\\chkdsk.exe");
    main();
    EXPECT_TRUE(options().chkVolumeCheck.ticked());
    clean();
    EXPECT_TRUE(machine.processes.started.empty());
}

TEST_F(MemoryTrim, DoesNotRunAfterAStop) {
    stopAtFirstStep();
    clean();
    EXPECT_TRUE(machine.processes.started.empty());
    EXPECT_TRUE(tail().empty());
}

TEST_F(MemoryTrim, ShowsTheGermanBoxWhenItCannotBeStarted) {
    main();
    machine.processes.failToStart = true;
    tick(options().chkClipboard);
    clean();
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].title, "Task kann nicht ausgeführt werden ...");
    EXPECT_EQ(display.boxes[0].text,
              "Es ist ein Fehler beim Starten eines externen Prozesses von Tidvane aufgetreten.");
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Exclamation);
    EXPECT_TRUE(logHas(text(552) + " <OK>"));
}

struct RegistryAddIn : AfterRun {
    RegistryAddIn() { store({"chkAddInRegClean=1", "txtAddInRegCleanPath=C:\\tools\\regsweep.exe"}); }
    void SetUp() override { options().chkClipboard.Value = 1; }
};

TEST_F(RegistryAddIn, IsWaitedForAndTold) {
    machine.files.putFile("C:\\tools\\regsweep.exe");
    main().rebuildTaskRows();
    display.boxes.clear();
    clean();
    EXPECT_EQ(tail(), (std::vector<std::string>{kThin, text(535) + ": " + text(542) + "...",
                                                text(543) + " " + text(510), "C:\\tools\\regsweep.exe " + text(543),
                                                text(544), text(545), text(546), text(547), text(548)}));
    EXPECT_EQ(panel(1), text(549));
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "C:\\tools\\regsweep.exe");
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(RegistryAddIn, IsMissedWithABox) {
    main().rebuildTaskRows();
    display.boxes.clear();
    clean();
    EXPECT_EQ(tail(),
              (std::vector<std::string>{kThin, text(535) + ": " + text(542) + "...", text(543) + " " + text(510),
                                        "C:\\tools\\regsweep.exe " + text(543) + " " + text(550)}));
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].title, "regsweep.exe " + text(550));
    EXPECT_EQ(display.boxes[0].text, text(551) + "\r\n" + text(550) + " " + text(543));
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Exclamation);
}

TEST_F(RegistryAddIn, IsMissedInSilenceWithMessagesHidden) {
    store({"chkHideAlertMessage=1"});
    options().chkHideAlertMessage.Value = 1;
    main().rebuildTaskRows();
    display.boxes.clear();
    clean();
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_TRUE(logHas("C:\\tools\\regsweep.exe " + text(543) + " " + text(550)));
}

TEST_F(RegistryAddIn, DoesNotRunAfterAStop) {
    machine.files.putFile("C:\\tools\\regsweep.exe");
    stopAtFirstStep();
    clean();
    EXPECT_TRUE(machine.processes.started.empty());
    EXPECT_TRUE(tail().empty());
}

TEST_F(AfterRun, ComesInTheOrderTrimAddInLog) {
    machine.files.putFile(inFolder("memtrim.exe"));
    machine.files.putFile("C:\\tools\\regsweep.exe");
    store({"chkCleanRAM=1", "chkAddInRegClean=1", "txtAddInRegCleanPath=C:\\tools\\regsweep.exe", "chkAutoLog=1",
           "txtTidvaneLog=C:\\"});
    clean();
    const std::vector<std::string> lines = tail();
    ASSERT_EQ(lines.size(), 14u);
    EXPECT_EQ(lines[2], text(552) + " <OK>");
    EXPECT_EQ(lines[11], text(548));
    EXPECT_EQ(lines[12], kThin);
    EXPECT_EQ(lines[13], text(535) + ": " + text(534) + " C:\\\\td_log.txt <OK>");
}

TEST_F(AfterRun, GoesToTheTrayOnRequest) {
    store({"chkMinimizeSystray=1"});
    clean();
    EXPECT_EQ(display.trayTip, " - Tidvane - " + text(566));
    EXPECT_EQ(display.hidden.back(), "frmMain");
}

TEST_F(AfterRun, PlaysTheSoundAlsoAfterAStop) {
    store({"chkPurgeSound=1", "txtPurgeSound=C:\\ding.wav"});
    stopAtFirstStep();
    clean();
    EXPECT_EQ(display.sounds, std::vector<std::string>{"C:\\ding.wav"});
}

TEST_F(AfterRun, TakesTheWindowFromTheTop) {
    main();
    clean();
    EXPECT_EQ(display.topmost, (std::vector<std::pair<std::string, bool>>{{"frmMain", false}}));
}

TEST_F(AfterRun, OpensTheRecycleBinBeforeAndAsksToEmptyItBehind) {
    store({"chkOpenRecycleBinAsPreview=1", "cboKillMethod=1"});
    machine.shell.putRecycled("C:\\a.txt", "x");
    machine.shell.confirmsEmptying = true;
    main();
    stopAtFirstStep();  // the question comes also then
    clean();
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, kRecycleBinWindow);
    EXPECT_EQ(display.topmost, (std::vector<std::pair<std::string, bool>>{{"frmMain", true}, {"frmMain", false}}));
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_EQ(machine.shell.emptiedRoots, std::vector<std::string>{""});
}

struct CustomApplication : AfterRun {
    CustomApplication() {
        store({"chkEnableCustomApp=1", "chkRunCustomAppAfterTidvane=1", "txtCustomAppPath=C:\\tools\\my.exe",
               "txtCustomAppCommandlineParameter=/x y"},
              "frmMoreToConfigure");
        machine.files.putFile("C:\\tools\\my.exe");
    }
};

TEST_F(CustomApplication, IsStartedLastAndWaitedForWithoutEvents) {
    main();
    const std::uint64_t pumps = machine.events.pumps;
    clean();
    const std::string line = text(535) + ": C:\\tools\\my.exe " + text(990) + " /x y";
    EXPECT_EQ(tail(), (std::vector<std::string>{line, line + " <OK>"}));
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_EQ(machine.shell.started[0].file, "C:\\tools\\my.exe");
    EXPECT_EQ(machine.shell.started[0].parameters, "/x y");
    EXPECT_EQ(machine.shell.started[0].directory, "");
    EXPECT_EQ(machine.shell.started[0].show, 1);
    EXPECT_TRUE(machine.shell.started[0].waited);
    EXPECT_EQ(machine.events.pumps, pumps);
    EXPECT_EQ(display.pointers, (std::vector<int>{forms::pointer::Hourglass, forms::pointer::Default,
                                                  forms::pointer::Arrow, forms::pointer::Default}));
    EXPECT_FALSE(main().cmdClean.Value);
}

TEST_F(CustomApplication, NeedsBothOfItsBoxes) {
    for (const char* box : {"chkEnableCustomApp", "chkRunCustomAppAfterTidvane"}) {
        AppFixtureRun fresh;
        fresh.store({"txtPurgeSpeed=0"});
        fresh.store({std::string(box) + "=1", "txtCustomAppPath=C:\\tools\\my.exe"}, "frmMoreToConfigure");
        fresh.clean();
        EXPECT_TRUE(fresh.machine.shell.started.empty()) << box;
        EXPECT_FALSE(fresh.main().cmdClean.Value) << box;
    }
}

TEST_F(CustomApplication, LeavesTheButtonPressedAfterAStopAndNothingIsClosed) {
    store({"chkCloseAfterClean=1"});
    stopAtFirstStep();
    clean();
    EXPECT_TRUE(main().cmdClean.Value);
    EXPECT_TRUE(main().cmdClean.Enabled);
    EXPECT_TRUE(machine.shell.started.empty());
    EXPECT_EQ(display.ends, 0);
    EXPECT_FALSE(logHas(text(578)));
}

TEST_F(CustomApplication, IsFollowedByTheEndOfTheProgram) {
    store({"chkCloseAfterClean=1"});
    clean();
    EXPECT_EQ(machine.shell.started.size(), 1u);
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

TEST_F(CustomApplication, IsStartedFromThePaneWhereItIsSet) {
    main().ExplorerBar1.ItemClick(0, 2);
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].parameters, "/x y");
    EXPECT_EQ(display.pointers, (std::vector<int>{forms::pointer::Hourglass, forms::pointer::Default}));
    machine.files.take("C:\\tools\\my.exe");
    main().ExplorerBar1.ItemClick(0, 2);
    EXPECT_EQ(machine.shell.started.size(), 1u);
}

TEST_F(AfterRun, ThePaneShowsTheExtendedSettingsWithoutACustomApplication) {
    main().ExplorerBar1.ItemClick(0, 2);
    EXPECT_TRUE(display.wasShown("frmMoreToConfigure"));
    EXPECT_TRUE(machine.shell.started.empty());
}

}  // namespace tidvane::tests
