#include "frontend/guards.h"

#include "platform/common/directory_lookup.h"
#include "settings/bans.h"
#include "settings/frmOptions.h"

namespace tidvane::frontend {

namespace {

// The way out of each refusal, as each front end has it.
struct WaysOut {
    const char* plainInstead;
    const char* chooseOne;
};
constexpr WaysOut kOfConsole{"use --method plain", "choose one with --method plain, recycle or overwrite"};
constexpr WaysOut kOfWindows{"choose the first way in the options (clean method)",
                             "choose one in the options (clean method)"};

const WaysOut& waysOut(FrontEnd frontEnd) {
    return frontEnd == FrontEnd::Console ? kOfConsole : kOfWindows;
}

}  // namespace

std::string whyNotToRun(settings::Program& program, FrontEnd frontEnd) {
    const int chosen = program.get<settings::frmOptions>().cboKillMethod.ListIndex();
    const std::string& plain = program.LangText(732);
    const std::string& recycle = program.LangText(733);
    const std::string& overwrite = program.LangText(734);
    const bool distinct = !plain.empty() && !recycle.empty() && !overwrite.empty() && plain != recycle &&
                          plain != overwrite && recycle != overwrite;
    if (chosen > 0 && !distinct) {
        return std::string(
                   "The language file gives the ways of removing files (entries 732 to 734) no three different names, "
                   "so that the chosen one cannot be honoured; put a whole language file into the program folder, "
                   "or ") +
               waysOut(frontEnd).plainInstead + ".";
    }
    // Without a language file every name is empty, and the first row is the plain way whatever it is called.
    if (chosen < 0 || (distinct && program.selectedKillMethod() < 0)) {
        return std::string("No way of removing files is chosen; ") + waysOut(frontEnd).chooseOne + ".";
    }
    return {};
}

void warnOfMissingProtection(settings::Program& program, forms::Display& display) {
    if (program.platform.files.FileExists(program.inProgramFolder(settings::kBanFile))) return;
    display.warn(
        std::string(settings::kBanFile) +
        " is missing in the program folder, so that no own entry is checked against the list of protected places; put "
        "it back from the delivery.");
}

void warnOfMissingTexts(settings::Program& program, forms::Display& display) {
    if (platform::anyMatch(program.platform.files, program.inProgramFolder("*.lng"))) return;
    display.warn(
        "The program folder holds no language file (*.lng), so that names and log lines are empty; put one back from "
        "the delivery.");
}

}  // namespace tidvane::frontend
