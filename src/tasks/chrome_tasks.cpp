// The Chrome tasks that are more than a list of files.
#include "removal/folder_stats.h"
#include "settings/frmOptions.h"
#include "tasks/browser_folders.h"
#include "tasks/browser_tasks.h"
#include "tasks/file_task.h"

namespace tidvane::tasks {

void cleanChromeCookies(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    platform::FileSystem& files = program.platform.files;
    const std::string profile = folders.profile();

    const std::string storage = below(profile, "Local Storage\\");
    removal::FolderCounters counters;
    removal::FolderStats(files, storage, counters);
    if (files.FolderExists(storage)) {
        program.report().AddLogLine(taskName(program, task) + ": " + storage);
        logCounts(program, "Chrome Local Storage (Cookies)", counters.files, counters.bytes);
        logFilesIfWanted(program, storage);
        purge(program, storage);
        const std::string databases = below(profile, "databases\\");
        counters = {};
        removal::FolderStats(files, databases, counters);
        if (files.FolderExists(databases)) {
            logFolderAndCounts(program, "Chrome Local Storage (databases)", databases, counters.files, counters.bytes);
            purge(program, databases);
        }
    } else {
        // The databases are not looked at then, and the cookies below have the last word: intended.
        endRow(program, task, 507, kIconDone);
    }

    const std::string cookies = below(profile, "cookies");
    if (!files.FileExists(cookies)) return endRow(program, task, 508, kIconNotFound);  // without a line
    kill(program, cookies);
    endCleaned(program, task);
}

void cleanChromeCache(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    platform::FileSystem& files = program.platform.files;
    const std::string cache = folders.cache();
    const std::string profile = folders.profile();
    if (!tellFolder(program, task, cache, endFolderMissing)) return;
    const std::string jumpLists = below(profile, "JumplistIcons");
    const std::string oldJumpLists = below(profile, "JumplistIconsOld");
    if (program.get<settings::frmOptions>().chkChromeINDepthClean.ticked() &&
        (files.FolderExists(jumpLists) || files.FolderExists(oldJumpLists))) {
        purge(program, jumpLists);
        purge(program, oldJumpLists);
        program.report().AddLogLine(taskName(program, task) + " (Jumplist Icons) " + program.LangText(504) + " <OK>");
    }
    purge(program, cache);
    // Two backslashes meet here, which is harmless.
    purge(program, below(profile, "\\Media Cache"));
    kill(program, below(profile, "\\*journal*"));
    kill(program, below(folders.second(), "\\*journal*"));
    endCleaned(program, task);
}

}  // namespace tidvane::tasks
