// td_log.txt, byte by byte, by the button and behind a run.
#include "app/log_file.h"

#include "support/app_fixture.h"

namespace tidvane::tests {

struct LogFile : AppFixture {
    LogFile() {
        store({"chkLogTimestamp=1", "txtPurgeSpeed=0", "txtTidvaneLog=C:\\logs"});
        machine.files.putFolder("C:\\logs");
    }
    std::string saved(const std::string& path = "C:\\logs\\td_log.txt") {
        return machine.files.bytesOf(path).value_or("<no file>");
    }
    void startEmpty() { main().log().empty(); }
};

TEST_F(LogFile, ByTheButtonHoldsItsOwnLine) {
    startEmpty();
    main().AddLogLine("first");
    main().cmdSaveLog.press();
    const std::string line = text(580) + " C:\\logs\\td_log.txt <OK>";
    EXPECT_EQ(saved(), "==================\r\n::: Tidvane :::\r\n==================\r\n\r\nfirst\r\n" + line +
                           "\r\n\r\n" + text(536) + " 11/3/2009 12:00:00 PM\r\n");
    EXPECT_EQ(logLines(), (std::vector<std::string>{"first", line}));
    EXPECT_EQ(panel(1), line);
}

TEST_F(LogFile, ByTheDialogIsNotLogged) {
    startEmpty();
    options().chkAskLogLocation.Value = 1;
    main().AddLogLine("first");
    display.files = {"C:\\else\\my.txt"};
    machine.files.putFolder("C:\\else");
    main().cmdSaveLog.press();
    EXPECT_EQ(saved("C:\\else\\my.txt"),
              "==================\r\n::: Tidvane :::\r\n==================\r\n\r\nfirst\r\n\r\n" + text(536) +
                  " 11/3/2009 12:00:00 PM\r\n");
    EXPECT_EQ(logLines(), std::vector<std::string>{"first"});
    ASSERT_EQ(display.fileQuestions.size(), 1u);
    EXPECT_TRUE(display.fileQuestions[0].save);
}

TEST_F(LogFile, ByTheDialogIsNotWrittenWhenItIsCancelled) {
    options().chkAskLogLocation.Value = 1;
    const auto before = machine.files.everythingBelow("C:\\");
    main().cmdSaveLog.press();
    EXPECT_EQ(machine.files.everythingBelow("C:\\"), before);
}

TEST_F(LogFile, IsNotWrittenIntoAFolderThatHasGone) {
    startEmpty();
    machine.files.take("C:\\logs");
    main().cmdSaveLog.press();
    EXPECT_EQ(logLines(), std::vector<std::string>{text(532) + " C:\\logs " + text(533) + " " + text(531)});
    EXPECT_EQ(panel(1), text(532) + " " + text(533) + " " + text(531));
    EXPECT_EQ(saved(), "<no file>");
    EXPECT_FALSE(machine.files.hasFolder("C:\\logs"));
}

TEST_F(LogFile, GetsTwoBackslashesInADriveRoot) {
    options().txtTidvaneLog.setText("C:\\");
    main().cmdSaveLog.press();
    EXPECT_TRUE(logHas(text(580) + " C:\\\\td_log.txt <OK>"));
}

TEST_F(LogFile, IsWrittenInTheCodePage) {
    startEmpty();
    main().AddLogLine("Größe € \xE2\x98\x83");
    main().cmdSaveLog.press();
    EXPECT_NE(saved().find("Gr\xF6\xDF"
                           "e \x80 ?\r\n"),
              std::string::npos);
}

TEST_F(LogFile, IsReplacedOnEveryWrite) {
    machine.files.putFile("C:\\logs\\td_log.txt", std::string(100000, 'z'));
    startEmpty();
    main().cmdSaveLog.press();
    EXPECT_EQ(saved().find('z'), std::string::npos);
}

struct AutoLog : LogFile {
    AutoLog() { store({"chkAutoLog=1", "chkClipboard=1"}); }
};

TEST_F(AutoLog, HoldsTheLogBeforeItsOwnTwoLines) {
    clean();
    std::vector<std::string> lines = logLines();
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines.back(), text(535) + ": " + text(534) + " C:\\logs\\td_log.txt <OK>");
    EXPECT_EQ(lines[lines.size() - 2], std::string(90, '-'));
    lines.resize(lines.size() - 2);
    std::string log;
    for (const std::string& line : lines) log += line + "\r\n";
    const std::string rule(29, '=');
    EXPECT_EQ(saved(), rule + "\r\n::: Tidvane :::\r\n" + rule + "\r\n\r\n" + log + "\r\n" + text(536) +
                           ": 11/3/2009 12:00:00 PM\r\n");
    EXPECT_EQ(panel(1), text(534) + " C:\\logs\\td_log.txt");
}

TEST_F(AutoLog, IsNotWrittenAfterAStopAndTheOldFileStays) {
    machine.files.putFile("C:\\logs\\td_log.txt", "old");
    main().stepDone.connect([this](const app::StepResult& step) {
        if (step.task->step == 1) main().cmdStop.press();
    });
    clean();
    EXPECT_EQ(saved(), "old");
    EXPECT_EQ(logLines().back(), std::string(116, '-'));
}

TEST_F(AutoLog, IsNotWrittenWithItsBoxUnticked) {
    options().chkAutoLog.Value = 0;
    clean();
    EXPECT_EQ(saved(), "<no file>");
}

TEST_F(AutoLog, TellsAFolderThatHasGone) {
    machine.files.take("C:\\logs");
    clean();
    EXPECT_EQ(logLines().back(), text(532) + " C:\\logs " + text(533) + " " + text(531));
    EXPECT_EQ(countOf(std::string(90, '-')), 0);
    EXPECT_EQ(panel(1), text(532) + " " + text(533) + " " + text(531));
}

TEST_F(AutoLog, PassesOverAFileThatIsLocked) {
    machine.files.putFile("C:\\logs\\td_log.txt", "old");
    machine.files.lock("C:\\logs\\td_log.txt");
    clean();
    EXPECT_EQ(saved(), "old");
    EXPECT_FALSE(main().cmdClean.Value);
}

TEST_F(AutoLog, TellsItsDateInGermanForm) {
    speakGerman();
    clean();
    EXPECT_TRUE(saved().ends_with(": 03.11.2009 12:00:00\r\n"));
}

}  // namespace tidvane::tests
