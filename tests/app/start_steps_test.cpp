// What the start does besides its log lines.
#include <array>
#include <utility>

#include "desktop/frmWidget.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmStarter.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct StartSteps : AppFixture {
    settings::frmStarter& starter() { return program.get<settings::frmStarter>(); }
};

TEST_F(StartSteps, TellTheLastRunInPanelOne) {
    main();
    EXPECT_EQ(panel(1), "11/2/2009 " + text(153) + " 7:05:09 AM");
    EXPECT_FALSE(starter().SSTab2.TabEnabled(0));
    EXPECT_FALSE(display.wasShown("frmStarter"));
}

TEST_F(StartSteps, OpenTheStartPageOnAFirstStart) {
    machine.files.take(inFolder("td_last.dat"));
    main();
    EXPECT_EQ(panel(1), text(152));
    ASSERT_TRUE(display.wasShown("frmStarter"));
    EXPECT_EQ(display.shown.front().owner, "frmMain");
    EXPECT_FALSE(display.shown.front().modal);
    EXPECT_TRUE(starter().SSTab2.TabEnabled(0));
    for (int tab = 1; tab <= 4; ++tab) EXPECT_FALSE(starter().SSTab2.TabEnabled(tab)) << tab;
    for (int tab = 5; tab <= 6; ++tab) EXPECT_TRUE(starter().SSTab2.TabEnabled(tab)) << tab;
    EXPECT_EQ(starter().SSTab2.Tab, 0);
}

TEST_F(StartSteps, SetTheColumnsTheCaptionsAndTheStopButton) {
    ASSERT_EQ(main().lstTasks.ColumnHeaders.size(), 2u);
    EXPECT_EQ(main().lstTasks.ColumnHeaders[0].key, "Task");
    EXPECT_EQ(main().lstTasks.ColumnHeaders[0].width, 5000);
    EXPECT_EQ(main().lstTasks.ColumnHeaders[1].key, "Status");
    EXPECT_EQ(main().lstTasks.ColumnHeaders[1].width, 2500);
    EXPECT_EQ(main().Caption, "Tidvane");
    EXPECT_EQ(main().cmdViewLog.Caption, text(126));
    EXPECT_FALSE(main().cmdStop.Enabled);
    EXPECT_TRUE(main().LogVisible());
    EXPECT_FALSE(main().StopRequested());
}

TEST_F(StartSteps, TakeTheTemporaryFolderOnce) {
    main();
    machine.shell.temporaryFolder = "C:\\elsewhere";
    EXPECT_EQ(program.temporaryFolder, "C:\\Users\\Anna\\AppData\\Local\\Temp");
}

TEST_F(StartSteps, TakeTheFontOfTheLogFromItsFile) {
    machine.files.putFile(inFolder("td_flog.dat"), "Courier New\r\n11\r\nTrue\r\nFalse\r\n");
    EXPECT_EQ(main().txtLog.FontName, "Courier New");
    EXPECT_EQ(main().txtLog.FontSize, 11.0);
    EXPECT_TRUE(main().txtLog.FontBold);
    EXPECT_FALSE(main().txtLog.FontItalic);
}

TEST_F(StartSteps, LeaveTheDesignedFontWithoutTheFile) {
    EXPECT_EQ(main().txtLog.FontName, "MS Sans Serif");
}

TEST_F(StartSteps, ShowTheNewsOnRequest) {
    store({"chkInfoServer=0", "chkAutoStartInfoServer=1"}, "frmMoreToConfigure");
    main();
    ASSERT_EQ(display.shown.size(), 1U);
    EXPECT_EQ(display.shown[0].window, "frmStarter");
    EXPECT_EQ(display.shown[0].owner, "frmMain");
    EXPECT_FALSE(display.shown[0].modal);
    EXPECT_EQ(starter().SSTab2.Tab, 1);
}

TEST_F(StartSteps, DoNotShowTheNewsOtherwise) {
    main();
    EXPECT_FALSE(display.wasShown("frmStarter"));
}

TEST_F(StartSteps, ShowTheNewsAlsoWhereAnotherInstanceEndsTheStart) {
    machine.processes.otherInstanceRuns = true;
    store({"chkAutoStartInfoServer=1"}, "frmMoreToConfigure");
    main();
    EXPECT_TRUE(display.wasShown("frmStarter"));
}

TEST_F(StartSteps, ShowTheWidgetIfItsOwnBoxSaysSo) {
    store({"chkAutostart=1"}, "frmWidget");
    main();
    EXPECT_TRUE(display.wasShown("frmWidget"));
}

TEST_F(StartSteps, DoNotShowTheWidgetOtherwise) {
    main();
    EXPECT_FALSE(display.wasShown("frmWidget"));
}

TEST_F(StartSteps, CloseTheLogWithTheLogBarOff) {
    store({"chkLogBarOff=1"});
    EXPECT_FALSE(main().txtLog.Visible);
    EXPECT_FALSE(main().LogVisible());
    EXPECT_EQ(main().cmdViewLog.Caption, text(125));
}

TEST_F(StartSteps, HideTheColumnHeadersOnRequest) {
    store({"chkHideColumnHeaders=1"});
    EXPECT_TRUE(main().lstTasks.HideColumnHeaders);
}

TEST_F(StartSteps, UseTheSmallFontForPlugInsOnRequest) {
    store({"chkSmallAppsFontSize=1"});
    EXPECT_EQ(main().LstPlugs.FontSize, 8.0);
}

TEST_F(StartSteps, GoToTheTrayWhenStartedMinimized) {
    store({"chkStartMinimized=1"});
    main();
    EXPECT_EQ(display.trayTip, "Tidvane");
    EXPECT_EQ(display.hidden, std::vector<std::string>{"frmMain"});
}

TEST_F(StartSteps, PutTheCaretBehindTheLog) {
    EXPECT_EQ(main().txtLog.SelStart(), main().txtLog.length());
    EXPECT_EQ(main().txtLog.SelLength(), 0u);
}

TEST_F(StartSteps, FillTheAboutPage) {
    EXPECT_EQ(main().lblProductName.Caption, "Tidvane");
    EXPECT_EQ(main().lblVersion.Caption, "Version 1.0.0" + main().lblVersionBuild.Caption.get());
    EXPECT_EQ(main().lblCommandLine.Caption, text(990));
    EXPECT_EQ(main().lblCommandLineAuto.Caption, text(991));
    EXPECT_EQ(main().lblCommandLineSilent.Caption, text(992));
}

TEST_F(StartSteps, PutTheKindBehindTheTitlesOfTwoMenus) {
    EXPECT_EQ(main().menu("mnCleanPlugs").Caption, text(104) + " (Plug-ins)");
    EXPECT_EQ(main().menu("mnExtensions").Caption, text(106) + " (Add-ons)");
}

TEST_F(StartSteps, CaptionTheSixthMenuByItsSetting) {
    store({"cboCommunityMenu=1"}, "frmMoreToConfigure");
    EXPECT_EQ(main().menu("mnuCommunityTitle").Caption, "&Homepage");
}

TEST_F(StartSteps, CaptionTheSixthMenuFromTheLanguageForTheOtherThreeChoices) {
    const std::array<std::pair<int, int>, 3> choices{{{0, 159}, {2, 172}, {3, 171}}};
    for (const auto& [row, entry] : choices) {
        AppFixtureRun fresh;
        fresh.store({"cboCommunityMenu=" + std::to_string(row)}, "frmMoreToConfigure");
        EXPECT_EQ(fresh.main().menu("mnuCommunityTitle").Caption, fresh.text(entry)) << row;
    }
}

TEST_F(StartSteps, RestoreTheTicksOfPlugInsInEveryWrittenForm) {
    for (const char* name : {"one", "minus", "true", "german", "zero", "false", "none"}) {
        machine.files.putFile(inFolder(std::string("PlugIns\\") + name + ".tdp"));
    }
    machine.files.putFile(inFolder("td_apps.ini"),
                          "[PlugIns]\r\none=1\r\nminus=-1\r\ntrue=True\r\ngerman=Wahr\r\nzero=0\r\nfalse=False\r\n");
    machine.system.systemLocale = base::germanLocale();
    std::string ticked;
    for (int row = 0; row < main().LstPlugs.ListCount(); ++row) {
        if (main().LstPlugs.Selected(row)) ticked += main().LstPlugs.List(row) + " ";
    }
    EXPECT_EQ(ticked, "german minus one true ");
}

TEST_F(StartSteps, CountTheTickedPlugInsInPanelThree) {
    for (const char* name : {"a", "b", "c"}) machine.files.putFile(inFolder(std::string("PlugIns\\") + name + ".tdp"));
    main().LstPlugs.setSelected(0, true);
    main().LstPlugs.setSelected(2, true);
    EXPECT_EQ(main().tmrStatistic.Interval, 1);
    EXPECT_EQ(main().tmrLogBar.Interval, 1);
    main().tmrStatistic.fire();
    EXPECT_EQ(panel(3), "2");
    EXPECT_EQ(panel(2), "0");
}

TEST_F(StartSteps, RunACleaningLastOfAllWithCleanAtStart) {
    store({"chkStartClean=1", "chkStartMinimized=1", "chkLogTimestamp=1", "chkTempFolder=1"});
    store({"Left=1234"}, "WindowState");
    machine.system.commandArguments = "/AUTO";
    // What the steps in front of it have left by its first step.
    int steps = 0;
    program.windows.offer(app::frmMain::kName, [&] {
        auto made = std::make_unique<app::frmMain>(program);
        made->stepDone.connect([&, form = made.get()](const app::StepResult&) {
            if (steps++ > 0) return;
            EXPECT_EQ(form->Left, 1234);
            EXPECT_EQ(form->menu("mnCleanPlugs").Caption, program.LangText(104) + " (Plug-ins)");
            EXPECT_EQ(form->lblProductName.Caption, "Tidvane");
            EXPECT_TRUE(form->cmdClean.Value);
        });
        return made;
    });
    main();
    EXPECT_GT(steps, 0);
    // Hidden into the tray, then shown for the run; the icon stays.
    EXPECT_TRUE(display.wasShown("frmMain"));
    EXPECT_TRUE(main().Visible);
    EXPECT_EQ(display.trayTip, "Tidvane");
    // The run has emptied the log of the start.
    EXPECT_TRUE(logLines().front().starts_with(text(491) + " [")) << logLines().front();
    EXPECT_FALSE(main().cmdClean.Value);
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat"))->substr(0, 12), "#2009-11-03#");
}

TEST_F(StartSteps, StartNoRunWithoutThatBox) {
    main();
    EXPECT_EQ(countOf(text(490)), 0);
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-11-02#\r\n#07:05:09#\r\n");
}

TEST_F(StartSteps, SurviveLanguageAndSettingsFilesThatAreFoldersOrDamaged) {
    machine.files.take(inFolder("English.lng"));
    machine.files.putFile(inFolder("English.lng"), std::string("\0\xFF\x01"
                                                               "zz\r\n999",
                                                               10));
    machine.files.putFolder(inFolder("td_config.ini"));
    machine.files.putFolder(inFolder("td_ban.dat"));
    EXPECT_EQ(main().Caption, "Tidvane");
    EXPECT_EQ(logLines().size(), 8u);
}

}  // namespace tidvane::tests
