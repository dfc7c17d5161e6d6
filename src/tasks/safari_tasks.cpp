// The Safari tasks that are more than a list of files. Their rows show what the last step found: intended.
#include "removal/folder_stats.h"
#include "tasks/browser_folders.h"
#include "tasks/browser_tasks.h"
#include "tasks/file_task.h"

namespace tidvane::tasks {

void cleanSafariHistory(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    platform::FileSystem& files = program.platform.files;
    const std::string history = below(folders.profile(), "History.plist");
    const std::string session = below(folders.profile(), "LastSession.plist");
    if (!files.FileExists(history) && !files.FileExists(session)) return endNotFound(program, task);
    kill(program, history);
    kill(program, session);

    const std::string previews = below(folders.second(), "Webpage Previews\\");
    const std::string pages = below(folders.second(), "History\\");
    removal::FolderCounters previewCounters;
    removal::FolderStats(files, previews, previewCounters);
    removal::FolderCounters pageCounters;
    removal::FolderStats(files, pages, pageCounters);
    // Without previews the task is over without a line, and the pages stay: intended.
    if (!files.FolderExists(previews)) return endRow(program, task, 507, kIconDone);
    const std::string name = taskName(program, task);
    logFolderAndCounts(program, name + " (Webpage Previews)", previews, previewCounters.files, previewCounters.bytes);
    logFilesIfWanted(program, previews);
    purge(program, previews);
    // Not found, although files have gone by now: intended.
    if (!files.FolderExists(pages)) return endNotFound(program, task);
    logFolderAndCounts(program, name, pages, pageCounters.files, pageCounters.bytes);
    purge(program, pages);
    endCleaned(program, task);
}

void cleanSafariCookies(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    platform::FileSystem& files = program.platform.files;
    const std::string storage = below(folders.second(), "LocalStorage\\");
    removal::FolderCounters counters;
    removal::FolderStats(files, storage, counters);
    if (files.FolderExists(storage)) {
        program.report().AddLogLine(taskName(program, task) + ": " + storage);
        logCounts(program, "Safari Local Storage (Cookies)", counters.files, counters.bytes);
        logFilesIfWanted(program, storage);
        purge(program, storage);
    } else {
        endRow(program, task, 508, kIconNotFound);
    }
    const std::string cookies = below(folders.profile(), "Cookies\\cookies.plist");
    if (!files.FileExists(cookies)) return endNotFound(program, task);
    kill(program, cookies);
    endCleaned(program, task);
}

}  // namespace tidvane::tasks
