#include "console/guards.h"

#include "settings/frmOptions.h"

namespace tidvane::console {

std::string whyNotToRun(settings::Program& program) {
    const int chosen = program.get<settings::frmOptions>().cboKillMethod.ListIndex();
    const std::string& plain = program.LangText(732);
    const std::string& recycle = program.LangText(733);
    const std::string& overwrite = program.LangText(734);
    const bool distinct = !plain.empty() && !recycle.empty() && !overwrite.empty() && plain != recycle &&
                          plain != overwrite && recycle != overwrite;
    if (chosen > 0 && !distinct) {
        return "The language file gives the ways of removing files (entries 732 to 734) no three different names, so "
               "that the chosen one cannot be honoured; put a whole language file into the program folder, or use "
               "--method plain.";
    }
    // Without a language file every name is empty, and the first row is the plain way whatever it is called.
    if (chosen < 0 || (distinct && program.selectedKillMethod() < 0)) {
        return "No way of removing files is chosen; choose one with --method plain, recycle or overwrite.";
    }
    return {};
}

void warnOfMissingProtection(settings::Program& program) {
    if (program.platform.files.FileExists(program.inProgramFolder("td_ban.dat"))) return;
    program.display.warn(
        "td_ban.dat is missing in the program folder, so that no own entry is checked against the list of protected "
        "places; put it back from the delivery.");
}

}  // namespace tidvane::console
