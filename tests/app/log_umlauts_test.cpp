// The replacement of umlauts: the same text as rewriting the whole log after every line, at the cost of the line.
#include <array>
#include <random>
#include <utility>

#include "app/log.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

namespace {

// What is to be matched: the whole text, letter after letter, each pass over everything.
std::string rewrittenWhole(std::string text) {
    static const std::array<std::pair<const char*, const char*>, 7> kLetters{
        {{"Ä", "Ae"}, {"Ö", "Oe"}, {"Ü", "Ue"}, {"ß", "ss"}, {"ä", "ae"}, {"ö", "oe"}, {"ü", "ue"}}};
    for (const auto& [letter, by] : kLetters) text = base::replaceAll(text, letter, by);
    return text;
}

std::string randomText(std::mt19937& random) {
    static const std::array<const char*, 16> kPieces{"Ä", "Ö", "Ü", "ß", "ä", "ö", "ü",    "é",
                                                     "€", "a", "e", "s", " ", "Ã", "\r\n", "C:\\"};
    std::string text;
    for (std::size_t left = random() % 40; left > 0; --left) text += kPieces[random() % kPieces.size()];
    return text;
}

}  // namespace

struct Umlauts : AppFixture {
    Umlauts() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0", "chkReplaceGerUmlaut=1"}); }
    const std::string& content() { return main().txtLog.Text(); }
    void SetUp() override { main().log().empty(); }
};

TEST_F(Umlauts, AreReplacedInEachOfTheSevenLetters) {
    main().AddLogLine("ÄÖÜßäöü Größe é");
    EXPECT_EQ(content(), "AeOeUessaeoeue Groesse é\r\n");
}

TEST_F(Umlauts, StayWithTheBoxUnticked) {
    options().chkReplaceGerUmlaut.Value = 2;
    main().AddLogLine("Größe");
    EXPECT_EQ(content(), "Größe\r\n");
}

TEST_F(Umlauts, OfOldLinesGoWithTheNextLineAfterTicking) {
    options().chkReplaceGerUmlaut.Value = 0;
    main().AddLogLine("Größe");
    options().chkReplaceGerUmlaut.Value = 1;
    EXPECT_EQ(content(), "Größe\r\n");
    main().AddLogLine("x");
    EXPECT_EQ(content(), "Groesse\r\nx\r\n");
}

TEST_F(Umlauts, MoveTheCaretToTheStart) {
    main().AddLogLine("Größe");
    EXPECT_EQ(main().txtLog.SelStart(), 0u);
    EXPECT_EQ(main().txtLog.SelLength(), 0u);
    main().AddLogLine("no letter of them");
    EXPECT_EQ(main().txtLog.SelStart(), 0u);
}

TEST_F(Umlauts, AreGoneFromTheSavedLogToo) {
    machine.files.putFolder("C:\\logs");
    options().txtTidvaneLog.setText("C:\\logs");
    main().AddLogLine("C:\\Übung");
    main().cmdSaveLog.press();
    const std::string file = *machine.files.bytesOf("C:\\logs\\td_log.txt");
    EXPECT_NE(file.find("C:\\Uebung\r\n"), std::string::npos);
}

TEST_F(Umlauts, ReadLikeTheWholeTextRewrittenOnRandomLines) {
    std::mt19937 random(20091103);
    for (int round = 0; round < 60; ++round) {
        main().log().empty();
        std::string expected;
        for (int line = 0; line < 20; ++line) {
            const std::string text = randomText(random);
            main().log().AppendLogText(text);
            expected = rewrittenWhole(expected + text);
            ASSERT_EQ(content(), expected) << "round " << round << " line " << line;
        }
    }
}

TEST_F(Umlauts, ReadLikeTheWholeTextRewrittenWhenTheBoxIsSwitchedAndTheLogIsCut) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        main().log().empty();
        options().txtLogAutoTruncated.setText("5200");
        main().log().AppendLogText(std::string(4800, 'x'));
        std::string expected = content();
        for (int line = 0; line < 60; ++line) {
            const bool on = random() % 3 != 0;
            options().chkReplaceGerUmlaut.Value = on ? 1 : 0;
            const std::string text = randomText(random);
            main().log().AppendLogText(text);
            if (base::characterCount(expected) > 5200) {
                expected = "[Log Auto Truncated]" + expected.substr(base::byteOffset(expected, 5000));
                if (on) expected = rewrittenWhole(expected);
            }
            expected += text;
            if (on) expected = rewrittenWhole(expected);
            ASSERT_EQ(content(), expected) << "round " << round << " line " << line;
        }
    }
}

TEST_F(Umlauts, ReplaceWhatTheFunctionIsGiven) {
    std::mt19937 random(1);
    for (int i = 0; i < 500; ++i) {
        const std::string text = randomText(random);
        EXPECT_EQ(app::replaceUmlauts(text), rewrittenWhole(text));
    }
    EXPECT_EQ(app::replaceUmlauts("\xC3"), "\xC3");
}

TEST_F(Umlauts, TellWhatCameAndNotTheWholeLog) {
    std::size_t told = 0;
    main().log().appended.connect([&](const std::string& text) { told += text.size(); });
    for (int i = 0; i < 1000; ++i) main().AddLogLine("Größe");
    EXPECT_EQ(told, 1000 * std::string("Groesse\r\n").size());
}

}  // namespace tidvane::tests
