#include "frontend/guards.h"

#include "settings/bans.h"
#include "settings/frmOptions.h"
#include "settings/sentences.h"

namespace tidvane::frontend {

namespace {

using settings::englishSentence;
using settings::Sentence;
using settings::sentence;

// A refusal with the way out of it that a front end has. The console's own words are English.
struct Refusal {
    Sentence sentence;
    const char* wayOutOfConsole;
    Sentence wayOutOfWindows;
};
constexpr Refusal kNoThreeMethods{Sentence::NoThreeMethods, "use --method plain", Sentence::FirstMethodInstead};
constexpr Refusal kNoMethod{Sentence::NoMethod, "choose one with --method plain, recycle or overwrite",
                            Sentence::ChooseAMethod};

std::string tellOf(const Refusal& refusal, const settings::Program& program, FrontEnd frontEnd) {
    if (frontEnd == FrontEnd::Console) return englishSentence(refusal.sentence, {refusal.wayOutOfConsole});
    return sentence(program, refusal.sentence, {sentence(program, refusal.wayOutOfWindows)});
}

}  // namespace

std::string whyNotToRun(settings::Program& program, FrontEnd frontEnd) {
    const int chosen = program.get<settings::frmOptions>().cboKillMethod.ListIndex();
    const std::string& plain = program.LangText(732);
    const std::string& recycle = program.LangText(733);
    const std::string& overwrite = program.LangText(734);
    const bool distinct = !plain.empty() && !recycle.empty() && !overwrite.empty() && plain != recycle &&
                          plain != overwrite && recycle != overwrite;
    if (chosen > 0 && !distinct) return tellOf(kNoThreeMethods, program, frontEnd);
    // Without a language file every name is empty, and the first row is the plain way whatever it is called.
    if (chosen < 0 || (distinct && program.selectedKillMethod() < 0)) return tellOf(kNoMethod, program, frontEnd);
    return {};
}

void warnOfMissingProtection(settings::Program& program, forms::Display& display) {
    if (program.platform.files.FileExists(program.inProgramFolder(settings::kBanFile))) return;
    display.warn(sentence(program, Sentence::NoBanFile, {settings::kBanFile}));
}

void warnOfMissingTexts(settings::Program& program, forms::Display& display) {
    // Not whether a file is there: an empty or a damaged one gives no more than none.
    for (int index = 0; index < settings::LangTable::kSize; ++index) {
        if (!program.LangText(index).empty()) return;
    }
    // English: where it is told there is no other language.
    display.warn(
        "The program folder holds no language file (*.lng) with texts, so that names and log lines are empty; put one "
        "back from the delivery.");
}

}  // namespace tidvane::frontend
