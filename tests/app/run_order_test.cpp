// The order of what follows the summary of a run.
#include "support/app_fixture.h"

namespace tidvane::tests {

struct RunOrder : AppFixture {
    RunOrder() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    std::string lastRun() { return machine.files.bytesOf(inFolder("td_last.dat")).value_or("<none>"); }
};

TEST_F(RunOrder, AClickWhileTheMemoryIsTrimmedStartsTheNextRun) {
    store({"chkCleanRAM=1", "chkHideAlertMessage=1"});
    machine.files.putFile(inFolder("memtrim.exe"));
    main();
    main().tmrCleanButton.Enabled = true;  // left by a click in front of the run
    bool whileItRuns = true;
    machine.processes.onStart = [&](const std::string&) {
        whileItRuns = main().tmrCleanButton.Enabled;
        main().tmrCleanButton.Enabled = true;
    };
    clean();
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_FALSE(whileItRuns);
    EXPECT_TRUE(main().tmrCleanButton.Enabled);
}

TEST_F(RunOrder, TheDateOfTheRunIsWrittenBehindTheDiskFiguresAndInFrontOfWhatIsStarted) {
    store({"chkCleanRAM=1", "chkHideAlertMessage=1"});
    machine.files.putFile(inFolder("memtrim.exe"));
    main();
    const std::string before = lastRun();
    std::string atDiskFigures;
    std::string atTrim;
    main().log().appended.connect([&](const std::string& line) {
        if (line.starts_with(text(433))) atDiskFigures = lastRun();
        if (line.starts_with(text(535) + ": " + text(552))) atTrim = lastRun();
    });
    clean();
    EXPECT_EQ(atDiskFigures, before);
    EXPECT_EQ(atTrim, lastRun());
    EXPECT_NE(atTrim, before);
}

TEST_F(RunOrder, TheSoundIsPlayedOnceTheWindowLiesInTheTray) {
    store({"chkMinimizeSystray=1", "chkPurgeSound=1", "txtPurgeSound=C:\\ding.wav"});
    main().Visible = true;
    std::size_t soundsBefore = 99;
    main().viewChanged.connect([&] {
        if (!main().Visible) soundsBefore = display.sounds.size();
    });
    clean();
    EXPECT_EQ(soundsBefore, 0u);
    EXPECT_EQ(display.sounds, std::vector<std::string>{"C:\\ding.wav"});
}

TEST_F(RunOrder, PanelOneNamesTheRegistryAddInWhileItRuns) {
    store({"chkAddInRegClean=1", "txtAddInRegCleanPath=C:\\tools\\regsweep.exe"});
    machine.files.putFile("C:\\tools\\regsweep.exe");
    main();
    std::string whileItRuns;
    machine.processes.onStart = [&](const std::string&) { whileItRuns = panel(1); };
    clean();
    EXPECT_EQ(whileItRuns, text(544));
    EXPECT_EQ(panel(1), text(549));
}

}  // namespace tidvane::tests
