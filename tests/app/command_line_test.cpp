// The switches of the command line: searched for, not parsed.
#include "support/app_fixture.h"

namespace tidvane::tests {

struct CommandLine : AppFixture {
    app::frmMain& startWith(const std::string& arguments) {
        machine.system.commandArguments = arguments;
        return main();
    }
};

TEST_F(CommandLine, AutoPressesTheButtonAndStartsNoRun) {
    EXPECT_TRUE(startWith("/AUTO").cmdClean.Value);
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_EQ(panel(1), "11/2/2009 " + text(153) + " 7:05:09 AM");
    EXPECT_TRUE(main().cmdClean.Enabled);
}

TEST_F(CommandLine, AutoShowsTheHourglassOnMouseMoves) {
    startWith("/AUTO").mouseMove(1, 0);
    ASSERT_FALSE(display.pointers.empty());
    EXPECT_EQ(display.pointers.back(), forms::pointer::Hourglass);
}

TEST_F(CommandLine, AutoMakesExitGoToTheTray) {
    startWith("/AUTO").ExitProgram();
    EXPECT_EQ(display.ends, 0);
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_EQ(display.hidden.back(), "frmMain");
}

TEST_F(CommandLine, SilentGoesToTheTrayAndPressesTheButton) {
    EXPECT_TRUE(startWith("/SILENT").cmdClean.Value);
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_EQ(display.hidden.back(), "frmMain");
}

TEST_F(CommandLine, BothInEitherOrderAreAuto) {
    for (const char* arguments : {"/AUTO /SILENT", "/SILENT /AUTO"}) {
        AppFixtureRun fresh;
        fresh.machine.system.commandArguments = arguments;
        EXPECT_TRUE(fresh.main().cmdClean.Value) << arguments;
        EXPECT_FALSE(fresh.display.trayTip.has_value()) << arguments;
        EXPECT_TRUE(fresh.display.hidden.empty()) << arguments;
    }
}

TEST_F(CommandLine, IsReadByExactCase) {
    EXPECT_FALSE(startWith("/auto /Silent").cmdClean.Value);
    EXPECT_FALSE(display.trayTip.has_value());
}

TEST_F(CommandLine, FindsASwitchInsideOtherText) {
    EXPECT_TRUE(startWith("x/AUTOy").cmdClean.Value);
}

TEST_F(CommandLine, LeavesTheButtonUpWhenARunFollows) {
    store({"chkStartClean=1"});
    EXPECT_FALSE(startWith("/AUTO").cmdClean.Value);
    EXPECT_TRUE(logFrom("12:").size() > 60);
}

}  // namespace tidvane::tests
