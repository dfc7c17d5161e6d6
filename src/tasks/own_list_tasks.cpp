#include "tasks/own_list_tasks.h"

#include <vector>

#include "registry/clear_registry_tree.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/frmOptions.h"
#include "settings/pause.h"
#include "settings/sentences.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

namespace {

// Entries of the language table.
constexpr int kOwnFolders = 524;
constexpr int kOwnFiles = 527;

struct FolderMode {
    int panel;        // panel 1 at the start
    int name;         // what the log calls the work
    int announced;    // behind the number of folders
    bool foldersToo;  // the folders go with their content
};
constexpr FolderMode kDeleteFolders{518, 519, 520, true};
constexpr FolderMode kEmptyFolders{521, 522, 523, false};

// Panel 1 keeps the line: no "finished" behind it, unlike the other tasks.
void reportOff(settings::Program& program, int name) {
    const std::string line = program.LangText(name) + " " + program.LangText(509);
    program.report().AddLogLine(line);
    program.report().setPanel(1, line);
}

void announce(settings::Program& program, int name, int announced, const std::vector<std::string>& entries) {
    settings::RunReport& report = program.report();
    report.AddLogLine(program.LangText(name) + " " + program.LangText(510));
    report.AddLogLine("[" + std::to_string(entries.size()) + "] " + program.LangText(announced) + " ...");
    // "<OK>" before anything is done, and also when a stop then leaves every entry alone: intended.
    for (const std::string& entry : entries) report.AddLogLine(entry + " <OK>");
}

bool isStopped(settings::Program& program, const CleaningTask& task) {
    if (!program.report().StopRequested()) return false;
    program.report().setRowStatus(taskName(program, task), program.LangText(506));
    return true;
}

// Names nothing behind its last backslash: such an entry is emptied, and no way of removing takes it.
bool hasEmptyLastPart(const std::string& folder) {
    return folder.ends_with('\\') || folder.ends_with('/');
}

void removeFolder(settings::Program& program, const std::string& folder) {
    // Each step below would tell of a refused place again, and the plain kill would take the files of "C:\Users\*".
    if (!program.platform.files.mayEmpty(folder)) return;
    // Emptied first: under the recycle method the content is in the bin piece by piece when the folder follows.
    removal::PurgeFolder(program, folder);
    const int method = program.selectedKillMethod();
    if (method < 0) return;
    if (hasEmptyLastPart(folder)) {
        program.display.warn(settings::sentence(program, settings::Sentence::FolderStays, {folder}));
        return;
    }
    removal::KillFile(program.platform, folder, method, false);
    if (method != removal::KillRecycle) removal::DelAll(program.platform, folder);
}

// False: stopped.
bool workOnFolders(settings::Program& program, const CleaningTask& task, const FolderMode& mode,
                   const std::vector<std::string>& folders) {
    settings::RunReport& report = program.report();
    report.setPanel(1, program.LangText(mode.panel));
    announce(program, mode.name, mode.announced, folders);
    if (isStopped(program, task)) return false;
    for (const std::string& folder : folders) {
        if (mode.foldersToo) {
            removeFolder(program, folder);
        } else {
            removal::PurgeFolder(program, folder);
        }
    }
    report.AddLogLine(program.LangText(mode.name));
    report.setPanel(1, program.LangText(507));
    return true;
}

}  // namespace

void cleanOwnFolders(settings::Program& program, const CleaningTask& task) {
    const auto& options = program.get<settings::frmOptions>();
    if (!options.chkActivateOwnFolder.ticked()) return reportOff(program, kOwnFolders);

    settings::RunReport& report = program.report();
    const std::vector<std::string> folders = options.lstFolders.rows();
    const std::string row = taskName(program, task);
    report.setRowStatus(row,
                        program.LangText(505) + " " + std::to_string(folders.size()) + " " + program.LangText(517));
    settings::pauseByPurgeSpeed(program);
    report.selectRow(row);
    if (options.optDeleteFolder.selected()) {
        if (!workOnFolders(program, task, kDeleteFolders, folders)) return;
    } else if (options.optDeleteFolderContent.selected()) {
        if (!workOnFolders(program, task, kEmptyFolders, folders)) return;
    }
    endRow(program, task, 507, kIconDone);
}

void cleanOwnFiles(settings::Program& program, const CleaningTask& task) {
    const auto& options = program.get<settings::frmOptions>();
    if (!options.chkActivateOwnFiles.ticked()) return reportOff(program, kOwnFiles);

    settings::RunReport& report = program.report();
    const std::vector<std::string> entries = options.lstFiles.rows();
    const std::string row = taskName(program, task);
    report.setRowStatus(row,
                        program.LangText(505) + " " + std::to_string(entries.size()) + " " + program.LangText(525));
    report.selectRow(row);  // without the pause of the others: intended
    announce(program, kOwnFiles, 526, entries);
    if (isStopped(program, task)) return;
    for (const std::string& entry : entries) {
        removal::KillFile(program.platform, entry, program.selectedKillMethod(), false);
        registry::ClearRegistryTree(program.platform, entry);
    }
    endRow(program, task, 507, kIconDone);
}

}  // namespace tidvane::tasks
