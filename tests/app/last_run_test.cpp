// td_last.dat.
#include "app/last_run.h"

#include "support/app_fixture.h"

namespace tidvane::tests {

struct LastRunFile : AppFixture {
    app::LastRun read(const std::string& bytes) {
        machine.files.putFile(inFolder("td_last.dat"), bytes);
        return app::readLastRun(program);
    }
};

TEST_F(LastRunFile, IsReadInTheFormOfTheLocale) {
    const std::string file = "#2009-11-03#\r\n#07:05:09#\r\n";
    EXPECT_EQ(read(file).date, "11/3/2009");
    EXPECT_EQ(read(file).time, "7:05:09 AM");
    machine.system.systemLocale = base::germanLocale();
    EXPECT_EQ(read(file).date, "03.11.2009");
    EXPECT_EQ(read(file).time, "07:05:09");
}

TEST_F(LastRunFile, ReadsMidnightAsATime) {
    machine.system.systemLocale = base::germanLocale();
    EXPECT_EQ(read("#2009-11-03#\r\n#00:00:00#\r\n").time, "00:00:00");
}

TEST_F(LastRunFile, ThatIsTornTellsWhatCanBeRead) {
    EXPECT_EQ(read("#2009-11-03#\r\n#07:05").date, "11/3/2009");
    EXPECT_EQ(read("#2009-11-03#\r\n#07:05").time, "");
    EXPECT_TRUE(read("#2009-1").exists);
    EXPECT_EQ(read("#2009-1").date, "");
}

TEST_F(LastRunFile, ThatIsEmptyOrForeignIsNoFirstStart) {
    for (const std::string& bytes : {std::string(), std::string("\0\xFF#\0", 4), std::string("hello"),
                                     std::string("##\r\n##\r\n"), std::string("#2009-02-31#\r\n#25:61:00#\r\n"),
                                     std::string("#99999999999-1-1#\r\n#-1:-1:-1#\r\n"), std::string(100000, '#')}) {
        const app::LastRun last = read(bytes);
        EXPECT_TRUE(last.exists);
        EXPECT_EQ(last.date, "");
        EXPECT_EQ(last.time, "");
    }
}

TEST_F(LastRunFile, ThatIsTornLeavesTheStartPageClosed) {
    machine.files.putFile(inFolder("td_last.dat"), "#2009");
    main();
    EXPECT_FALSE(display.wasShown("frmStarter"));
    EXPECT_EQ(panel(1), " " + text(153) + " ");
}

TEST_F(LastRunFile, ThatIsMissingOrAFolderIsAFirstStart) {
    machine.files.take(inFolder("td_last.dat"));
    EXPECT_FALSE(app::readLastRun(program).exists);
    machine.files.putFolder(inFolder("td_last.dat"));
    EXPECT_FALSE(app::readLastRun(program).exists);
}

TEST_F(LastRunFile, ThatCannotBeReadIsNoFirstStart) {
    machine.files.lock(inFolder("td_last.dat"));
    EXPECT_TRUE(app::readLastRun(program).exists);
    EXPECT_EQ(app::readLastRun(program).date, "");
}

TEST_F(LastRunFile, IsWrittenInTwoQuotedLines) {
    machine.clock.setNow({2009, 1, 2, 3, 4, 5});
    machine.system.systemLocale = base::germanLocale();
    app::writeLastRun(program);
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-01-02#\r\n#03:04:05#\r\n");
}

TEST_F(LastRunFile, StaysWhenTheDiskIsFull) {
    machine.files.setDiskFull('C', true);
    app::writeLastRun(program);
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-11-02#\r\n#07:05:09#\r\n");
}

}  // namespace tidvane::tests
