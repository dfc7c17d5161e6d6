#include "tasks/file_task.h"

#include "base/numbers.h"
#include "base/text.h"
#include "removal/folder_stats.h"
#include "removal/folder_sweep.h"
#include "settings/frmOptions.h"

namespace tidvane::tasks {

void logCounts(settings::Program& program, const std::string& label, std::uint64_t files, std::uint64_t bytes) {
    program.report().AddLogLine(label + " " + base::numberText(static_cast<std::int64_t>(files)) + " " +
                                program.LangText(500) + " (" + removal::FormatSize(bytes, program.locale()) + ")");
}

void logFolderAndCounts(settings::Program& program, const std::string& name, const std::string& folder,
                        std::uint64_t files, std::uint64_t bytes) {
    program.report().AddLogLine(name + ": " + folder);
    logCounts(program, name, files, bytes);
}

namespace {

// Folders, and links to folders by their attribute.
bool isFolder(settings::Program& program, const platform::FolderEntry& entry, const std::string& path) {
    if (entry.kind != platform::EntryKind::Link) return entry.kind == platform::EntryKind::Folder;
    unsigned attributes = 0;
    return ok(program.platform.files.GetAttributes(path, attributes)) &&
           (attributes & platform::attribute::Directory) != 0;
}

}  // namespace

void logFilesIfWanted(settings::Program& program, const std::string& folder) {
    if (!program.get<settings::frmOptions>().chkMoreLogDetails.ticked()) return;
    std::vector<platform::FolderEntry> entries;
    if (!ok(program.platform.files.ReadFolder(folder, entries))) return;
    const std::string prefix = base::withBackslash(folder);
    for (const platform::FolderEntry& entry : entries) {
        const std::string path = prefix + entry.name;
        if (!isFolder(program, entry, path)) program.report().AddLogLine(path + " <OK>");
    }
}

void endFolderNotFound(settings::Program& program, const CleaningTask& task) {
    program.report().AddLogLine(taskName(program, task) + " <Nicht gefunden>");
    endRow(program, task, 498, kIconNotFound);
}

void endFolderMissing(settings::Program& program, const CleaningTask& task) {
    endNotFound(program, task, 550, 498);
}

bool tellFolder(settings::Program& program, const CleaningTask& task, const std::string& folder, FolderEnd endMissing) {
    removal::FolderCounters counters;
    removal::FolderStats(program.platform.files, folder, counters);
    if (!program.platform.files.FolderExists(folder)) {
        endMissing(program, task);
        return false;
    }
    logFolderAndCounts(program, taskName(program, task), folder, counters.files, counters.bytes);
    logFilesIfWanted(program, folder);
    return true;
}

void runFolderTask(settings::Program& program, const CleaningTask& task, const std::string& folder,
                   const BeginWords& words, FolderEnd endMissing) {
    if (beginTask(program, task, words) != Begin::Go) return;
    if (!tellFolder(program, task, folder, endMissing)) return;
    removal::PurgeFolder(program, folder);
    endCleaned(program, task);
}

}  // namespace tidvane::tasks
