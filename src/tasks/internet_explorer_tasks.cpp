#include "tasks/internet_explorer_tasks.h"

#include <array>

#include "forms/simple_controls.h"
#include "registry/hst_delete.h"
#include "removal/folder_stats.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/control_lookup.h"
#include "settings/shell_wait.h"
#include "tasks/file_task.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

namespace {

namespace csidl = platform::csidl;
using platform::HKEY_CURRENT_USER_;
using platform::HKEY_LOCAL_MACHINE_;

#define EXPLORER "Software\\Microsoft\\Internet Explorer\\"

// clang-format off
constexpr std::array kTargets{
    // Step, root, key, subkey.
    RegistryTarget{28, HKEY_CURRENT_USER_,  EXPLORER "TypedURLs", ""},
    RegistryTarget{29, HKEY_CURRENT_USER_,  EXPLORER "IntelliForms\\", ""},  // passwords too: the task's name says so
    RegistryTarget{32, HKEY_LOCAL_MACHINE_, EXPLORER "Extensions\\", "{c95fe080-8f5d-11d2-a20b-00aa003c157a}"},
};

struct FolderTarget {
    int step;
    int specialFolder;
    const char* below;
};
constexpr std::array kFolders{
    FolderTarget{26, csidl::Cookies,       ""},
    FolderTarget{27, csidl::InternetCache, ""},
    FolderTarget{30, csidl::Windows,       "\\Downloaded Program Files"},
    FolderTarget{31, csidl::Windows,       "\\Offline Web Pages"},
};

// What the browser's own cleaner is asked to clear.
struct Tracks {
    int step;
    int number;
};
constexpr std::array kTracks{
    Tracks{25, 1},   // history
    Tracks{26, 2},   // cookies
    Tracks{27, 8},   // temporary internet files
    Tracks{29, 16},  // form data
};
// clang-format on

#undef EXPLORER

constexpr const char* kClearTracks = "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess ";
// Everything at once. The other case and the blank behind the comma are intended.
constexpr const char* kClearAllTracks = "RunDll32.exe inetcpl.cpl, ClearMyTracksByProcess 4351";
constexpr int kWindowStyle = -1;

bool isTicked(settings::Program& program, const char* control) {
    const auto* box = settings::findControl<forms::CheckBox>(program, "frmIEInDepthClean", control);
    return box != nullptr && box->ticked();
}

}  // namespace

std::span<const RegistryTarget> ieRegistryTargets() {
    return kTargets;
}

std::string ieFolder(settings::Program& program, int step) {
    for (const FolderTarget& target : kFolders) {
        if (target.step == step) return program.platform.shell.SpecialFolder(target.specialFolder) + target.below;
    }
    return {};
}

void askBrowserToClean(settings::Program& program, const CleaningTask& task) {
    if (!isTicked(program, "chkIEINDepthClean")) return;
    for (const Tracks& tracks : kTracks) {
        if (tracks.step != task.step) continue;
        (void)settings::ShellWait(program, kClearTracks + std::to_string(tracks.number), kWindowStyle);
    }
}

void clearAllOfInternetExplorer(settings::Program& program, const CleaningTask&) {
    settings::RunReport& report = program.report();
    // No row and no word for "not ticked" here.
    if (!isTicked(program, "chkIEINDepthCleanAll") || report.StopRequested()) return;
    report.AddLogLine(program.LangText(231) + " " + program.LangText(510));
    report.AddLogLine(program.LangText(232) + "...");
    report.setPanel(1, program.LangText(232) + "...");
    (void)settings::ShellWait(program, kClearAllTracks, kWindowStyle);
    program.report().AddLogLine(program.LangText(233) + " <OK>");
}

void cleanIeHistory(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task) != Begin::Go) return;
    askBrowserToClean(program, task);
    bool done = false;  // not read: the task calls the history cleared either way
    registry::hstDelete(program.platform.browserCache, done);
    endCleaned(program, task);
}

void cleanIeCookies(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task) != Begin::Go) return;
    // Whether the folder is there is not asked: intended.
    const std::string folder = ieFolder(program, task.step);
    removal::FolderCounters counters;
    removal::FolderStats(program.platform.files, folder, counters);
    logFolderAndCounts(program, taskName(program, task), folder, counters.files, counters.bytes);
    // Intended: this line comes whether there is an index file or not, and its size is the folder's.
    const bool overwritten = program.selectedKillMethod() == removal::KillOverwrite;
    program.report().AddLogLine("Index.dat " + program.LangText(500) + " (" +
                                removal::FormatSize(counters.bytes, program.locale()) + ") " + program.LangText(530) +
                                (overwritten ? "<OK>" : program.LangText(531)));
    logFilesIfWanted(program, folder);
    removal::PurgeFolder(program, folder);
    askBrowserToClean(program, task);
    endCleaned(program, task);
}

void cleanIeTypedAddresses(settings::Program& program, const CleaningTask& task) {
    runRegistryTask(program, task, kTargets);
}

void cleanIeAutoComplete(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task) != Begin::Go) return;
    askBrowserToClean(program, task);
    removeKeys(program, task, kTargets);
}

void cleanIeFolder(settings::Program& program, const CleaningTask& task) {
    runFolderTask(program, task, ieFolder(program, task.step));
}

void cleanIeToolbarButton(settings::Program& program, const CleaningTask& task) {
    RegistryWords words;
    words.missingText = 550;
    words.missingStatus = 498;
    runRegistryTask(program, task, kTargets, words);
}

}  // namespace tidvane::tasks
