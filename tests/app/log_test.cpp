// The log box: lines, times, truncation, the four buttons, the bar.
#include "app/log.h"

#include "support/app_fixture.h"

namespace tidvane::tests {

struct LogBox : AppFixture {
    LogBox() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    app::Log& log() { return main().log(); }
    const std::string& content() { return main().txtLog.Text(); }
    void limit(const std::string& characters) { options().txtLogAutoTruncated.setText(characters); }
    void SetUp() override { log().empty(); }
};

TEST_F(LogBox, PutsTheTimeInFrontWhileTheBoxIsUnticked) {
    options().chkLogTimestamp.Value = 0;
    log().AddLogLine("a line");
    log().AddLogHeading("a heading");
    EXPECT_EQ(content(), "12:00:00 PM a line\r\na heading\r\n");
}

TEST_F(LogBox, PutsNoTimeInFrontOfALineWithTheBoxTickedOrGreyed) {
    log().AddLogLine("a line");
    options().chkLogTimestamp.Value = 2;
    log().AddLogLine("another");
    EXPECT_EQ(content(), "a line\r\nanother\r\n");
}

TEST_F(LogBox, WritesTheTimeInTheFormOfTheLocale) {
    machine.system.systemLocale = base::germanLocale();
    machine.clock.setNow({2009, 11, 3, 7, 5, 9});
    options().chkLogTimestamp.Value = 0;
    log().AddLogLine("a line");
    EXPECT_EQ(content(), "07:05:09 a line\r\n");
}

TEST_F(LogBox, PausesBehindLinesAndHeadingsAndNotBehindARawAppend) {
    options().txtPurgeSpeed.setText("40");
    const std::int64_t before = machine.clock.sleptMilliseconds;
    log().AppendLogText("raw");
    EXPECT_EQ(machine.clock.sleptMilliseconds, before);
    log().AddLogLine("line");
    log().AddLogHeading("heading");
    EXPECT_EQ(machine.clock.sleptMilliseconds, before + 80);
}

TEST_F(LogBox, LetsNoEventInWhileItPauses) {
    options().txtPurgeSpeed.setText("40");
    const std::uint64_t before = machine.events.pumps;
    log().AddLogLine("line");
    EXPECT_EQ(machine.events.pumps, before);
}

TEST_F(LogBox, PutsTheCaretBehindWhatItWrote) {
    log().AddLogLine("line");
    EXPECT_EQ(main().txtLog.SelStart(), 6u);
    EXPECT_EQ(main().txtLog.SelLength(), 0u);
}

TEST_F(LogBox, AppendsAtTheEndWhereverTheCaretStood) {
    log().AddLogLine("first");
    main().txtLog.select(0, 3);
    log().AddLogLine("second");
    EXPECT_EQ(content(), "first\r\nsecond\r\n");
}

struct Truncation : LogBox {
    static constexpr const char* kMark = "[Log Auto Truncated]";
};

TEST_F(Truncation, LooksAtTheLengthBeforeTheNewText) {
    limit("100");
    log().AppendLogText(std::string(99, 'a'));
    log().AppendLogText(std::string(20, 'b'));
    EXPECT_EQ(content(), std::string(99, 'a') + std::string(20, 'b'));
    log().AppendLogText("c");
    EXPECT_EQ(content(), std::string(kMark) + "c");
}

TEST_F(Truncation, SparesALogOfExactlyTheLimit) {
    limit("100");
    log().AppendLogText(std::string(100, 'a'));
    log().AppendLogText("b");
    EXPECT_EQ(content(), std::string(100, 'a') + "b");
}

TEST_F(Truncation, CutsFiveThousandCharactersFromTheFront) {
    limit("5999");
    log().AppendLogText(std::string(5000, 'a') + std::string(1000, 'b'));
    log().AppendLogText("c");
    EXPECT_EQ(content(), std::string(kMark) + std::string(1000, 'b') + "c");
}

TEST_F(Truncation, CutsOnceACallAndLeavesOldMarksStanding) {
    limit("10");
    log().AppendLogText(std::string(12000, 'a'));
    log().AppendLogText("b");
    EXPECT_EQ(content(), kMark + std::string(7000, 'a') + "b");
    log().AppendLogText("c");
    // The old mark lies within the 5000 that go.
    EXPECT_EQ(content(), kMark + std::string(2020, 'a') + "bc");
}

TEST_F(Truncation, CountsCharactersWithALineEndAsTwo) {
    limit("10");
    log().AppendLogText("äöüß\r\nabcd");  // 10 characters, 14 bytes
    log().AppendLogText("x");
    EXPECT_EQ(content(), "äöüß\r\nabcdx");
    log().AppendLogText("y");
    EXPECT_EQ(content(), std::string(kMark) + "y");
}

TEST_F(Truncation, CutsBetweenCharactersAndNotWithinThem) {
    limit("5000");
    std::string text;
    for (int i = 0; i < 5001; ++i) text += "€";
    log().AppendLogText(text);
    log().AppendLogText("x");
    EXPECT_EQ(content(), std::string(kMark) + "€x");
}

TEST_F(Truncation, DoesNotHappenWithALimitThatIsNoNumber) {
    for (const char* bad : {"", "abc", "1e999x"}) {
        log().empty();
        limit(bad);
        log().AppendLogText(std::string(200000, 'a'));
        log().AppendLogText("b");
        EXPECT_EQ(content().size(), 200001u) << bad;
    }
}

TEST_F(Truncation, HappensAtEveryLineWithALimitOfZero) {
    limit("0");
    log().AppendLogText("a");
    EXPECT_EQ(content(), "a");
    log().AppendLogText("b");
    EXPECT_EQ(content(), std::string(kMark) + "b");
}

TEST_F(Truncation, ReadsTheLimitByTheLocale) {
    limit("0,5");  // on an English system the comma groups: 5
    log().AppendLogText("abcde");
    log().AppendLogText("f");
    EXPECT_EQ(content(), "abcdef");
    machine.system.systemLocale = base::germanLocale();
    log().empty();
    log().AppendLogText("a");
    log().AppendLogText("f");
    EXPECT_EQ(content(), std::string(kMark) + "f");
}

struct LogButtons : LogBox {};

TEST_F(LogButtons, ClearLeavesOneLine) {
    log().AddLogLine("old");
    main().cmdClearLog.press();
    EXPECT_EQ(content(), text(122) + " <OK>\r\n");
}

TEST_F(LogButtons, CopyPutsTheWholeTextIntoTheClipboardAndTellsIt) {
    log().AddLogLine("old");
    main().cmdCopyLog.press();
    EXPECT_EQ(display.clipboard, "old\r\n");
    EXPECT_EQ(display.clipboardClears, 1);
    EXPECT_EQ(content(), "old\r\n" + text(579) + "\r\n");
    EXPECT_EQ(panel(1), text(579));
}

TEST_F(LogButtons, ViewHidesAndShowsTheLogAndOffersTheOther) {
    main().cmdViewLog.press();
    EXPECT_FALSE(main().txtLog.Visible);
    EXPECT_FALSE(main().LogVisible());
    EXPECT_EQ(main().cmdViewLog.Caption, text(125));
    main().cmdViewLog.press();
    EXPECT_TRUE(main().txtLog.Visible);
    EXPECT_TRUE(main().LogVisible());
    EXPECT_EQ(main().cmdViewLog.Caption, text(126));
}

TEST_F(LogButtons, DoNothingWhileTheyAreDisabled) {
    log().AddLogLine("old");
    main().cmdClearLog.Enabled = false;
    main().cmdClearLog.press();
    EXPECT_EQ(content(), "old\r\n");
}

struct LogBar : LogBox {};

TEST_F(LogBar, HighlightsTheLineOfTheCaret) {
    log().AddLogLine("first");
    log().AddLogLine("second");
    main().txtLog.select(8, 0);  // in the second line
    main().updateLogBar();
    EXPECT_EQ(main().txtLog.SelStart(), 7u);
    EXPECT_EQ(main().txtLog.SelLength(), 6u);
}

TEST_F(LogBar, FollowsTheNewestLine) {
    log().AddLogLine("first");
    main().updateLogBar();
    EXPECT_EQ(main().txtLog.SelStart(), 7u);
    EXPECT_EQ(main().txtLog.SelLength(), 0u);
    log().AppendLogText("open line");
    main().updateLogBar();
    // Still the same line: the caret stays where the writing put it.
    EXPECT_EQ(main().txtLog.SelStart(), 16u);
    EXPECT_EQ(main().txtLog.SelLength(), 0u);
}

TEST_F(LogBar, LeavesASelectionInTheSameLineAlone) {
    log().AddLogLine("first");
    log().AddLogLine("second");
    main().txtLog.select(8, 0);
    main().updateLogBar();
    main().txtLog.select(9, 2);
    main().updateLogBar();
    EXPECT_EQ(main().txtLog.SelStart(), 9u);
    EXPECT_EQ(main().txtLog.SelLength(), 2u);
}

TEST_F(LogBar, MovesWithAClickOfTheUser) {
    log().AddLogLine("first");
    log().AddLogLine("second");
    main().updateLogBar();
    main().txtLog.select(2, 0);
    main().updateLogBar();
    EXPECT_EQ(main().txtLog.SelStart(), 0u);
    EXPECT_EQ(main().txtLog.SelLength(), 5u);
}

}  // namespace tidvane::tests
