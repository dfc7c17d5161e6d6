// The gain of a run, in the log and in the results window.
#include "app/disk_statistics.h"

#include "app/frmDiskSizeStats.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

namespace {
constexpr std::uint64_t kMB = 1024ULL * 1024;
constexpr std::uint64_t kGB = 1024 * kMB;
const std::string kHead = "======================== ";
const std::string kWide(116, '-');
}  // namespace

struct DiskStatistics : AppFixture {
    DiskStatistics() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    app::frmDiskSizeStats& window() { return program.get<app::frmDiskSizeStats>(); }
    // A run over which the free space goes from one number to the other.
    void run(std::uint64_t before, std::uint64_t after, std::uint64_t total) {
        main();
        machine.files.addDrive('C', platform::DriveType::Fixed, before, total);
        main().stepDone.connect([this, after, total](const app::StepResult& step) {
            if (step.task->step == 30) machine.files.addDrive('C', platform::DriveType::Fixed, after, total);
        });
        clean();
    }
    std::vector<std::string> block() {
        std::vector<std::string> lines = logFrom(kHead + text(432));
        return lines;
    }
    std::string head() { return kHead + text(432) + " " + std::string(25, '='); }
};

TEST_F(DiskStatistics, TellAGainInMegabytes) {
    run(40 * kGB, 40 * kGB + 512 * kMB, 100 * kGB);
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 100", text(434) + " 40 GB",
                                                 text(435) + " 40.5 GB", kWide, text(436) + " 512.00 MB", kWide}));
    EXPECT_EQ(window().lblSpaceTotal.Caption, "C:\\ 100");
    EXPECT_EQ(window().lblFreeSpace.Caption, "40 GB");
    EXPECT_EQ(window().lblFreeSpaceAfter.Caption, "40.5 GB");
    EXPECT_EQ(window().lblFreedSpace.Caption, "512.00 MB (" + text(439) + ")");
    EXPECT_EQ(window().lblFreeSpace.ForeColor, 128u);
    EXPECT_TRUE(window().ImgFreedSpace.Visible);
    EXPECT_FALSE(window().ImgSysClean.Visible);
}

TEST_F(DiskStatistics, NeedAGainOfAThousandForGigabytesWithADecimalPoint) {
    run(40 * kGB, 1039 * kGB, 2000 * kGB);
    EXPECT_EQ(block()[5], text(436) + " " + std::to_string(999 * 1024) + ".00 MB");
}

TEST_F(DiskStatistics, TellAGainOfAThousandInGigabytes) {
    run(40 * kGB, 1040 * kGB, 2000 * kGB);
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 2000", text(434) + " 40 GB",
                                                 text(435) + " 1040 GB", kWide, text(436) + " 1000.0000 GB", kWide}));
    EXPECT_EQ(window().lblFreedSpace.Caption, "1000.0000 GB (" + text(439) + ")");
}

TEST_F(DiskStatistics, TellAGainOfOneInGigabytesWithADecimalComma) {
    speakGerman();
    run(40 * kGB, 41 * kGB + 512 * kMB, 100 * kGB);
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 100", text(434) + " 40 GB",
                                                 text(435) + " 41,5 GB", kWide, text(436) + " 1,5000 GB", kWide}));
    EXPECT_EQ(window().lblFreedSpace.Caption, "1,5000 GB (" + text(439) + ")");
}

TEST_F(DiskStatistics, TellHalfAGigabyteInMegabytesWithADecimalComma) {
    speakGerman();
    run(40 * kGB, 40 * kGB + 512 * kMB, 100 * kGB);
    EXPECT_EQ(block()[5], text(436) + " 512,00 MB");
    EXPECT_EQ(window().lblFreedSpace.Caption, "512,00 MB (" + text(439) + ")");
}

TEST_F(DiskStatistics, KeepFourDecimalsOfTheDriveWithADecimalComma) {
    speakGerman();
    run(1000 * kGB + kGB / 3, 1001 * kGB, 2000 * kGB);
    // The text of the box has four decimals; the number that was read of it has the seven digits of a single.
    EXPECT_EQ(block()[2], text(434) + " 1000,3333 GB");
    EXPECT_EQ(block()[3], text(435) + " 1001 GB");
}

TEST_F(DiskStatistics, TellThatNothingWasGained) {
    run(40 * kGB, 40 * kGB, 100 * kGB);
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 100", kWide, text(437), kWide}));
    EXPECT_EQ(window().lblFreedSpace.Caption, text(437));
    EXPECT_EQ(window().lblFreeSpace.Caption, "40 GB");
    EXPECT_EQ(window().lblFreeSpaceAfter.Caption, "40 GB");
    EXPECT_EQ(window().lblFreeSpace.ForeColor, 32768u);
    EXPECT_FALSE(window().ImgFreedSpace.Visible);
    EXPECT_TRUE(window().ImgSysClean.Visible);
}

TEST_F(DiskStatistics, ShowNothingNegativeWhenSpaceWentDown) {
    run(40 * kGB, 30 * kGB, 100 * kGB);
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 100", kWide, text(437), kWide}));
    EXPECT_EQ(window().lblFreeSpaceAfter.Caption, "40 GB");
}

TEST_F(DiskStatistics, CallMegabytesGigabytes) {
    run(800 * kMB, 810 * kMB, 4 * kGB);
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 4", text(434) + " 800 GB",
                                                 text(435) + " 810 GB", kWide, text(436) + " 10240.00 MB", kWide}));
}

TEST_F(DiskStatistics, OfAnUnreadableDriveAreTheThirdForm) {
    main();
    machine.files.setReady('C', false);
    clean();
    EXPECT_EQ(block(), (std::vector<std::string>{head(), text(433) + " C:\\ 0", kWide, text(437), kWide}));
    EXPECT_EQ(window().lblFreeSpace.Caption, "0 GB");
}

TEST_F(DiskStatistics, CompareInSinglePrecision) {
    // 500000 and 500000.01 are one single: no gain.
    run(500000 * kGB, 500000 * kGB + kGB / 100 + 1000, 600000 * kGB);
    EXPECT_EQ(block()[3], text(437));
}

TEST_F(DiskStatistics, ReachTheLogWhateverTheStopAndTheWindow) {
    store({"chkDisksizeInfo=0"}, "frmMoreToConfigure");
    main().stepDone.connect([this](const app::StepResult& step) {
        if (step.task->step == 1) main().cmdStop.press();
    });
    clean();
    EXPECT_EQ(block().size(), 5u);
    EXPECT_FALSE(display.wasShown("frmDiskSizeStats"));
}

TEST_F(DiskStatistics, ShowTheWindowOverTheMainOneOnRequest) {
    store({"chkDisksizeInfo=1"}, "frmMoreToConfigure");
    clean();
    ASSERT_TRUE(display.wasShown("frmDiskSizeStats"));
    for (const auto& shown : display.shown) {
        if (shown.window != "frmDiskSizeStats") continue;
        EXPECT_EQ(shown.owner, "frmMain");
        EXPECT_FALSE(shown.modal);
    }
}

TEST_F(DiskStatistics, TakeTheChosenDrive) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 7 * kGB, 9 * kGB);
    main().drvDiskSizeDrive.ListIndex = 1;
    clean();
    EXPECT_EQ(block()[1], text(433) + " D:\\ 9");
}

struct ResultsWindow : DiskStatistics {};

TEST_F(ResultsWindow, HasItsTextsAndTitle) {
    main();
    EXPECT_EQ(window().Caption, "Tidvane - " + text(432));
    EXPECT_EQ(window().lblDiskSizeTotal.Caption, text(433));
    EXPECT_EQ(window().lblDiskSizeFree.Caption, text(434));
    EXPECT_EQ(window().lblDiskSizeFreeAfter.Caption, text(435));
    EXPECT_EQ(window().lblDiskSizeFreed.Caption, text(436));
    for (const auto* button : {&window().cmdExit, &window().cmdBackground, &window().cmdReclean}) {
        EXPECT_FALSE(button->Caption.get().empty()) << button->Name;
    }
}

TEST_F(ResultsWindow, ClosesByOkAndKeepsItsPlace) {
    main();
    window().Left = 1234;
    window().cmdOK.press();
    EXPECT_EQ(program.windows.ifLoaded("frmDiskSizeStats"), nullptr);
    EXPECT_EQ(storedValue("WindowStateDiskSize", "Left"), "1234");
    EXPECT_EQ(window().Left, 1234);
}

TEST_F(ResultsWindow, CleansAgainByTheTimer) {
    main();
    window().cmdReclean.press();
    EXPECT_EQ(program.windows.ifLoaded("frmDiskSizeStats"), nullptr);
    EXPECT_TRUE(display.wasShown("frmMain"));
    EXPECT_TRUE(main().tmrCleanButton.Enabled);
}

TEST_F(ResultsWindow, GoesToTheBackgroundWithTheMainWindow) {
    main();
    window().cmdBackground.press();
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_EQ(display.hidden.back(), "frmMain");
    EXPECT_EQ(program.windows.ifLoaded("frmDiskSizeStats"), nullptr);
}

TEST_F(ResultsWindow, EndsTheProgramByItsExit) {
    main();
    display.addTrayIcon("x");
    window().cmdExit.press();
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_TRUE(program.windows.loadedNames().empty());
    EXPECT_GE(display.ends, 1);
}

TEST_F(ResultsWindow, ShowsAndHidesTheLogByAClickOnTheGain) {
    main();
    const int height = window().Height;
    EXPECT_FALSE(window().txtLog.Visible);
    window().lblFreedSpace.Click();
    EXPECT_TRUE(window().txtLog.Visible);
    EXPECT_EQ(window().txtLog.Text(), main().txtLog.Text());
    EXPECT_GT(window().Height.get(), height);
    window().lblFreedSpace.Click();
    EXPECT_FALSE(window().txtLog.Visible);
    EXPECT_EQ(window().Height, height);
}

TEST_F(ResultsWindow, HoldsASizeThatTheLogFitsInWhileItIsShown) {
    main();
    window().lblFreedSpace.Click();
    const int enlarged = window().Height;
    window().Height = 100;
    window().resized();
    EXPECT_EQ(window().Height, enlarged);
    window().lblFreedSpace.Click();
    EXPECT_EQ(window().Height, app::frmDiskSizeStats::kMinHeight);
}

TEST_F(ResultsWindow, IsLeftAloneWhileMinimised) {
    main();
    window().State = forms::WindowState::Minimized;
    window().Width = 100;
    window().Height = 50;
    window().resized();
    EXPECT_EQ(window().Width, 100);
    EXPECT_EQ(window().Height, 50);
}

TEST_F(ResultsWindow, TakesTheFontOfTheLog) {
    machine.files.putFile(inFolder("td_flog.dat"), "Courier New\r\n11\r\nFalse\r\nTrue\r\n");
    main();
    EXPECT_EQ(window().txtLog.FontName, "Courier New");
    EXPECT_TRUE(window().txtLog.FontItalic);
}

TEST_F(ResultsWindow, ChangesTheColourOfItsLinkUnderThePointer) {
    main();
    const unsigned usual = window().lblFacebook.ForeColor;
    window().hoverCommunity(true);
    EXPECT_NE(window().lblFacebook.ForeColor, usual);
    window().hoverCommunity(false);
    EXPECT_EQ(window().lblFacebook.ForeColor, usual);
}

}  // namespace tidvane::tests
