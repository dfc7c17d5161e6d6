#include "console/guards.h"

#include <algorithm>
#include <array>

#include "console/split_lines.h"
#include "platform/common/directory_lookup.h"
#include "settings/bans.h"
#include "settings/frmOptions.h"
#include "settings/list_files.h"
#include "settings/own_entries.h"

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

std::string whyNotToSearch(settings::Program& program) {
    if (!program.get<settings::frmOptions>().chkSearchTasks.ticked()) return {};
    std::string masks;
    for (const std::string& mask : settings::masksThatMatchEveryName(program)) {
        masks += (masks.empty() ? "\"" : ", \"") + mask + "\"";
    }
    if (masks.empty()) return {};
    return "The junk search would remove every file of its drives, since every name matches " + masks +
           "; take that out with \"lists remove masks\", untick chkSearchTasks, or give --force.";
}

bool allowsChangedLines(settings::Program& program, forms::Display& display) {
    const auto& options = program.get<settings::frmOptions>();
    const std::array gates{&options.chkActivateOwnFolder, &options.chkActivateOwnFiles, &options.chkSearchTasks};
    std::vector<settings::SplitLine> lines = settings::splitLinesOfLists(program);
    std::erase_if(lines, [&](const settings::SplitLine& line) {
        const auto file = std::find(settings::kListFiles.begin(), settings::kListFiles.end(), line.file);
        return !gates.at(static_cast<std::size_t>(file - settings::kListFiles.begin()))->ticked();
    });
    if (lines.empty()) return true;
    const int style = forms::msgbox::YesNo + forms::msgbox::Question + forms::msgbox::DefaultButton2;
    return display.MsgBox(tellSplitLines(lines) + "\r\nClean with these entries?", style, "Tidvane") ==
           forms::msgbox::Yes;
}

}  // namespace tidvane::console
