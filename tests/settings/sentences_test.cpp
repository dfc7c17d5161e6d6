// Sentences of the program in the languages that are delivered, and without any.
#include "settings/sentences.h"

#include "support/app_fixture.h"

namespace tidvane::settings {
namespace {

constexpr int kSentences = static_cast<int>(Sentence::FailedBeforeRemovals) + 1;
const std::vector<std::string> kValues{"<one>", "<two>", "<three>"};

// Each value that a sentence shows, as often as it does.
std::vector<int> shown(const std::string& text) {
    std::vector<int> counts;
    for (const std::string& value : kValues) {
        counts.push_back(static_cast<int>(base::split(text, value).size()) - 1);
    }
    return counts;
}

class Sentences : public tests::AppFixture {
protected:
    void load() { (void)program.get<frmOptions>(); }
};

TEST_F(Sentences, AreInEnglishWhatTheEnglishFileSays) {
    load();
    for (int which = 0; which < kSentences; ++which) {
        const auto one = static_cast<Sentence>(which);
        EXPECT_EQ(sentence(program, one, kValues), englishSentence(one, kValues));
    }
}

TEST_F(Sentences, AreGermanWhereTheTextsAreAndShowTheSameValues) {
    speakGerman();
    load();
    for (int which = 0; which < kSentences; ++which) {
        const auto one = static_cast<Sentence>(which);
        const std::string german = sentence(program, one, kValues);
        EXPECT_NE(german, englishSentence(one, kValues));
        EXPECT_EQ(shown(german), shown(englishSentence(one, kValues))) << german;
    }
}

// A file of an older version lacks them, and an empty question would be taken for none.
TEST_F(Sentences, AreEnglishWhereTheLanguageFileLacksThem) {
    machine.files.putFile(inFolder("English.lng"), "299 Options\r\n");
    load();
    EXPECT_EQ(program.LangText(299), "Options");
    EXPECT_EQ(sentence(program, Sentence::CleanAllTheSame), "Clean all the same?");
    for (int which = 0; which < kSentences; ++which) {
        EXPECT_FALSE(sentence(program, static_cast<Sentence>(which)).empty()) << which;
    }
}

TEST_F(Sentences, ShowAMarkWithinAValueAsItStands) {
    EXPECT_EQ(sentence(program, Sentence::BoxWasEmptied, {"%2", "%1"}),
              "\"%2\" was emptied and keeps its last value: %1");
    EXPECT_EQ(sentence(program, Sentence::MaskMatchesEveryName, {"%TEMP%\\*"}),
              "The mask %TEMP%\\* matches every file name.");
}

TEST_F(Sentences, OfFloorsWithoutALanguageAreToldInTheProgramsOwn) {
    speakGerman();
    load();
    for (int which = static_cast<int>(Sentence::WineServerRuns); which < kSentences; ++which) {
        const auto one = static_cast<Sentence>(which);
        EXPECT_EQ(inLanguageOf(program, englishSentence(one, kValues)), sentence(program, one, kValues));
    }
    EXPECT_EQ(inLanguageOf(program, "\"/my \"own\" folder\" was moved or replaced meanwhile; start again."),
              "\"/my \"own\" folder\" wurde inzwischen verschoben oder ersetzt; starten Sie erneut.");
    EXPECT_EQ(inLanguageOf(program, "The registry of \"/m\" was not written back: No space left on device."),
              "Die Registrierung von \"/m\" wurde nicht zurückgeschrieben: No space left on device.");
}

TEST_F(Sentences, ThatNoRowKnowsStayAsTheyCame) {
    speakGerman();
    load();
    for (const char* told :
         {"", "x", "\"", "\"C:\\x\" was moved", "Something else.", "The registry of \"/m\" is in use by"}) {
        EXPECT_EQ(inLanguageOf(program, told), told);
    }
}

}  // namespace
}  // namespace tidvane::settings
