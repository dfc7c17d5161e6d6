#include "console/guards.h"

#include "app/task_catalogue.h"
#include "platform/common/directory_lookup.h"
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

void warnOfMissingProtection(settings::Program& program, forms::Display& display) {
    if (program.platform.files.FileExists(program.inProgramFolder("td_ban.dat"))) return;
    display.warn(
        "td_ban.dat is missing in the program folder, so that no own entry is checked against the list of protected "
        "places; put it back from the delivery.");
}

void warnOfMissingTexts(settings::Program& program, forms::Display& display) {
    if (platform::anyMatch(program.platform.files, program.inProgramFolder("*.lng"))) return;
    display.warn(
        "The program folder holds no language file (*.lng), so that names and log lines are empty; put one back from "
        "the delivery.");
}

void warnOfStepsNotThere(settings::Program& program, forms::Display& display) {
    std::string names;
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        if (!app::isNotThereYet(task) || tasks::gateValue(program, task.gate) != 1) continue;
        names += (names.empty() ? "" : ", ") + std::to_string(task.step) + " (" + tasks::taskName(program, task) + ")";
    }
    if (!names.empty()) display.warn("Ticked, but not there yet, and so nothing is cleaned by: " + names + ".");
}

}  // namespace tidvane::console
