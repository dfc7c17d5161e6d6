// The task that empties the cache of Internet Explorer: its folders, then its index through the cache manager.
#include <array>

#include "base/runtime_error.h"
#include "removal/folder_stats.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/frmOptions.h"
#include "tasks/file_task.h"
#include "tasks/internet_explorer_tasks.h"
#include "tasks/worker_protocol.h"
#include "tools/frmIECache.h"

namespace tidvane::tasks {

namespace {

namespace csidl = platform::csidl;

// Where the browser keeps its further index files, in the order in which they are emptied.
struct IndexFolder {
    int specialFolder;
    const char* below;
};
// clang-format off
constexpr std::array kIndexFolders{
    IndexFolder{csidl::AppData,       "\\Microsoft\\Windows\\IECompatCache"},
    IndexFolder{csidl::AppData,       "\\Microsoft\\Windows\\IETldCache"},
    IndexFolder{csidl::AppData,       "\\Microsoft\\Windows\\PrivacIE"},
    IndexFolder{csidl::AppData,       "\\Microsoft\\Windows\\IEDownloadHistory"},
    IndexFolder{csidl::InternetCache, "\\Content.IE5"},
    IndexFolder{csidl::LocalAppData,  "\\Microsoft\\Internet Explorer\\DOMStore"},
    IndexFolder{csidl::LocalAppData,  "\\Microsoft\\Windows\\History\\History.IE5"},
};
// clang-format on

// A stored value that cannot be read ends the window's load there; the task goes on with what it has.
tools::frmIECache& cacheManager(settings::Program& program) {
    try {
        return program.get<tools::frmIECache>();
    } catch (const base::RuntimeError&) {
        if (tools::frmIECache* loaded = program.windows.ifLoaded<tools::frmIECache>()) return *loaded;
        throw;  // the program has ended
    }
}

// Of all addresses that may go only the last one stays: intended. Empty where there is none.
std::string lastAddress(const tools::frmIECache& manager) {
    std::string address;
    for (int row = 0; row < manager.lstCache.ListCount(); ++row) {
        if (manager.goesWithAll(row)) address = manager.addressOf(row);
    }
    return address;
}

void cleanIndexFiles(settings::Program& program, const std::string& name) {
    if (!program.get<settings::frmOptions>().chkIEIndexDatFiles.ticked()) return;
    const bool overwritten = program.selectedKillMethod() == removal::KillOverwrite;
    if (overwritten) {
        for (const IndexFolder& folder : kIndexFolders) {
            removal::PurgeFolder(program, program.platform.shell.SpecialFolder(folder.specialFolder) + folder.below);
        }
    }
    program.report().AddLogLine(name + " (Index.dat) " + program.LangText(504) + " " + program.LangText(530) +
                                (overwritten ? "<OK>" : program.LangText(531)));
}

}  // namespace

void cleanIeCache(settings::Program& program, const CleaningTask& task) {
    const std::string name = taskName(program, task);
    if (gateValue(program, task.gate) != 1) return reportUnticked(program, name);
    // From the list as it stood before it is filled anew: intended.
    const std::string address = lastAddress(cacheManager(program));
    cacheManager(program).FillCacheList();
    const int listed = cacheManager(program).lstCache.ListCount();
    if (beginRow(program, task, program.LangText(503) + " " + name + "...",
                 std::to_string(listed) + " " + program.LangText(500)) != Begin::Go) {
        return;
    }
    const std::string folder = ieFolder(program, task.step);
    removal::FolderCounters counters;
    removal::FolderStats(program.platform.files, folder, counters);
    // The number of the list with the size of the folder: intended.
    logFolderAndCounts(program, name, folder, static_cast<std::uint64_t>(listed), counters.bytes);
    logFilesIfWanted(program, folder);
    removal::PurgeFolder(program, folder);
    removal::PurgeFolder(program, folder + "\\Content.IE5");
    // One address by itself, an empty one too, and then all of them: intended.
    (void)program.platform.browserCache.DeleteUrlCacheEntry(address);
    cacheManager(program).cmdDeleteAll.setValue(true);
    cleanIndexFiles(program, name);
    askBrowserToClean(program, task);
    program.report().AddLogLine(name + " " + program.LangText(504) + " <OK>");
    if (!cacheManager(program).chkAllCookies.ticked()) {
        program.report().AddLogLine(name + " (Cookies) " + program.LangText(509));
    }
    endRow(program, task, 507, kIconDone);
}

}  // namespace tidvane::tasks
