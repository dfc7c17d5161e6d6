// The Firefox tasks that are more than a list of files.
#include "removal/folder_stats.h"
#include "settings/frmOptions.h"
#include "tasks/browser_folders.h"
#include "tasks/browser_tasks.h"
#include "tasks/file_task.h"

namespace tidvane::tasks {

void cleanFirefoxCache(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kBrowserWords) != Begin::Go) return;
    const BrowserFolders folders(program, task);
    if (!folders.known()) return;
    platform::FileSystem& files = program.platform.files;
    const auto& options = program.get<settings::frmOptions>();
    const std::string name = taskName(program, task);
    const std::string cache = folders.cache();
    const std::string local = folders.second();
    const std::string offline = below(local, "\\OfflineCache");
    // Measured before anything is looked for or goes.
    removal::FolderCounters offlineCounters;
    removal::FolderStats(files, offline, offlineCounters);

    if (!tellFolder(program, task, cache, endFolderMissing)) return;
    purge(program, cache);
    const std::string jumpLists = below(local, "\\jumplistcache");
    if (files.FolderExists(jumpLists)) {
        program.report().AddLogLine(name + ": " + jumpLists);
        purge(program, jumpLists);
    }
    if (options.chkMozillaINDepthCleanOfflineCache.ticked() && folders.known() && files.FolderExists(offline)) {
        logFolderAndCounts(program, name + " (OfflineCache)", offline, offlineCounters.files, offlineCounters.bytes);
        purge(program, offline);
    }
    const std::string errorLog = below(folders.profile(), "\\TestPilotErrorLog.log");
    if (options.chkMozillaINDepthCleanTestPilotErrorLogs.ticked() && files.FileExists(errorLog)) {
        kill(program, errorLog);
        program.report().AddLogLine(name + " (TestPilot Error Logs) " + program.LangText(504) + " <OK>");
    }
    purge(program, below(local, "\\startupCache"));
    endCleaned(program, task);
}

void cleanFirefoxCrashReports(settings::Program& program, const CleaningTask& task) {
    // Needs no profile, and so asks nothing of the location window; the words of panel 1 are those of other tasks too.
    runFolderTask(program, task, belowAppData(program, "\\Mozilla\\FireFox\\Crash Reports\\"), {}, endFolderMissing);
}

}  // namespace tidvane::tasks
