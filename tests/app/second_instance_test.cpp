// A second start while the program runs already.
#include "support/app_fixture.h"

namespace tidvane::tests {

struct SecondInstance : AppFixture {
    SecondInstance() {
        machine.processes.otherInstanceRuns = true;
        store({"chkLogTimestamp=1"});
    }
};

TEST_F(SecondInstance, TellsItAndEnds) {
    EXPECT_TRUE(main().secondInstance());
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].text, text(154));
    EXPECT_EQ(display.boxes[0].title, "Tidvane");
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Information);
    EXPECT_GE(display.ends, 1);
}

TEST_F(SecondInstance, EndsInSilenceWithMessagesHidden) {
    store({"chkHideAlertMessage=1"});
    main();
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_GE(display.ends, 1);
}

TEST_F(SecondInstance, HasWrittenTheStartLinesAndTheAutostartValueByThen) {
    store({"chkStartWindows=1", "cboAutoStart=1"});
    main();
    EXPECT_TRUE(logHas("Tidvane " + text(572) + " <OK>"));
    EXPECT_TRUE(logHas(text(581) + " " + text(510)));
    EXPECT_TRUE(hasKey("SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION\\RUN"));
}

TEST_F(SecondInstance, DoesNotReachTheLaterSteps) {
    store({"chkStartMinimized=1", "chkLogBarOff=1", "chkStartClean=1"});
    machine.system.commandArguments = "/SILENT";
    main();
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_TRUE(main().LogVisible());
    EXPECT_FALSE(main().cmdClean.Value);
    EXPECT_EQ(countOf(text(490)), 0);
}

TEST_F(SecondInstance, WritesNothingAndCleansNothingOnItsWayOut) {
    store({"Left=777"}, "WindowState");
    store({"chkEndClean=1", "chkDeleteLog=1", "txtTidvaneLog=C:\\logs", "chkTempFolder=1"});
    machine.files.putFile("C:\\logs\\td_log.txt", "mine");
    machine.files.putFile("C:\\Windows\\Temp\\x.tmp");
    machine.files.putFile(inFolder("PlugIns\\a.tdp"));
    main();
    program.UnloadAllForms();
    EXPECT_EQ(storedValue("WindowState", "Left"), "777");
    EXPECT_EQ(storedValue("WindowState", "Width"), "<none>");
    EXPECT_TRUE(machine.files.has("C:\\Windows\\Temp\\x.tmp"));
    EXPECT_TRUE(machine.files.has("C:\\logs\\td_log.txt"));
    EXPECT_FALSE(machine.files.has(inFolder("td_apps.ini")));
    EXPECT_TRUE(program.windows.loadedNames().empty());
}

}  // namespace tidvane::tests
