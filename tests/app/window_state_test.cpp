// The place of the main window and what was chosen in it, over two starts.
#include "support/app_fixture.h"

namespace tidvane::tests {

struct WindowStateOfMain : AppFixture {};

TEST_F(WindowStateOfMain, IsAppliedAtTheStart) {
    store({"Left=120", "Top=-240", "Height=9000", "Width=12345", "TaskWidth=4000", "StatusWidth=3000"}, "WindowState");
    EXPECT_EQ(main().Left, 120);
    EXPECT_EQ(main().Top, -240);
    EXPECT_EQ(main().Height, 9000);
    EXPECT_EQ(main().Width, 12345);
    EXPECT_EQ(main().lstTasks.column("Task")->width, 4000);
    EXPECT_EQ(main().lstTasks.column("Status")->width, 3000);
}

TEST_F(WindowStateOfMain, PassesOverWhatIsNoNumberOfSixteenBits) {
    store({"Left=abc", "Top=", "Height=40000", "Width= 12000 "}, "WindowState");
    AppFixtureRun untouched;
    EXPECT_EQ(main().Left, untouched.main().Left.get());
    EXPECT_EQ(main().Top, untouched.main().Top.get());
    EXPECT_EQ(main().Height, untouched.main().Height.get());
    EXPECT_EQ(main().Width, 12000);
}

TEST_F(WindowStateOfMain, BringsThePageBackThatWasSeenLast) {
    store({"MainTab=2"}, "frmMain");
    EXPECT_EQ(main().SSTab1.Tab, 2);
    for (int tab = 0; tab < 4; ++tab) EXPECT_EQ(main().SSTab1.TabVisible(tab), tab == 2) << tab;
    EXPECT_TRUE(main().menu("mnExtensions").Visible);
    EXPECT_FALSE(main().cmdClean.Visible);
}

TEST_F(WindowStateOfMain, PassesOverAPageThatDoesNotExist) {
    store({"MainTab=9"}, "frmMain");
    EXPECT_EQ(main().SSTab1.Tab, 0);
    EXPECT_TRUE(main().SSTab1.TabVisible(0));
}

TEST_F(WindowStateOfMain, ChoosesTheDriveOfTheDiskFigures) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 1, 2);
    store({"DiskSizeDrive=1"}, "frmMain");
    EXPECT_EQ(main().diskSizeDrive(), "D:");
}

TEST_F(WindowStateOfMain, KeepsTheProgramsDriveForARowThatIsNone) {
    for (const char* row : {"-1", "7", "x"}) {
        AppFixtureRun fresh;
        fresh.store({std::string("DiskSizeDrive=") + row}, "frmMain");
        EXPECT_EQ(fresh.main().diskSizeDrive(), "C:") << row;
    }
}

TEST_F(WindowStateOfMain, OfAMinimisedWindowIsTheMinimisedRectangle) {
    main().State = forms::WindowState::Minimized;
    main().Width = 2400;
    main().Height = 405;
    main().resized();
    EXPECT_EQ(main().Width, 2400);
    main().ExitProgram();
    EXPECT_EQ(storedValue("WindowState", "Width"), "2400");
    EXPECT_EQ(storedValue("WindowState", "Height"), "405");
}

TEST_F(WindowStateOfMain, IsWrittenAtTheEnd) {
    app::frmMain& window = main();
    window.Left = 300;
    window.Width = 12000;
    window.lstTasks.column("Status")->width = 1111;
    window.SSTab1.offerOnly(3);
    window.ExitProgram();
    EXPECT_EQ(storedValue("WindowState", "Left"), "300");
    EXPECT_EQ(storedValue("WindowState", "Width"), "12000");
    EXPECT_EQ(storedValue("WindowState", "StatusWidth"), "1111");
    EXPECT_EQ(storedValue("frmMain", "MainTab"), "3");
    EXPECT_EQ(storedValue("frmMain", "DiskSizeDrive"), "0");
    // In the order in which they are read.
    const std::string file = *machine.files.bytesOf(inFolder("td_config.ini"));
    std::size_t last = 0;
    for (const char* key : {"[WindowState]", "Left=", "Top=", "Height=", "Width=", "TaskWidth=", "StatusWidth=",
                            "[frmMain]", "ExtensionsCat=", "MainTab=", "DiskSizeDrive="}) {
        const std::size_t place = file.find(std::string(key), last);
        ASSERT_NE(place, std::string::npos) << key;
        last = place;
    }
}

TEST_F(WindowStateOfMain, HoldsTheSmallestSizeOnResize) {
    main().Width = 5;
    main().Height = 7;
    main().resized();
    EXPECT_EQ(main().Width, 11430);
    EXPECT_EQ(main().Height, 5050);
    main().Width = 11431;
    main().resized();
    EXPECT_EQ(main().Width, 11431);
}

}  // namespace tidvane::tests
