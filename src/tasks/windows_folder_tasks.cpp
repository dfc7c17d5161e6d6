#include <cmath>
#include <cstdint>
#include <optional>

#include "base/numbers.h"
#include "base/runtime_error.h"
#include "removal/delete_older_than.h"
#include "removal/folder_stats.h"
#include "removal/folder_sweep.h"
#include "tasks/file_task.h"
#include "tasks/windows_tasks.h"
#include "tools/frmTempAge.h"

namespace tidvane::tasks {

namespace {

namespace csidl = platform::csidl;

// Both temp tasks test their gate for 0 where all others test for other than 1.
constexpr BeginWords kTempWords{true, " ...", true};

// The age as the conversion reads it: up to the first sign that is no part of a number, cut to 16 bits. Nothing when
// it does not fit: then the statement that would delete is skipped as a whole.
std::optional<std::int16_t> ageLimit(const std::string& text) {
    const double days = std::trunc(base::val(text));
    if (!std::isfinite(days) || days < INT16_MIN || days > INT16_MAX) return std::nullopt;
    return static_cast<std::int16_t>(days);
}

// The filter's window. A stored value that cannot be read ends its load there; the window stays with what it has, and
// the task goes on with that.
tools::frmTempAge& ageFilter(settings::Program& program) {
    try {
        return program.get<tools::frmTempAge>();
    } catch (const base::RuntimeError&) {
        return *program.windows.ifLoaded<tools::frmTempAge>();
    }
}

void deleteOldFiles(settings::Program& program, const std::string& folder) {
    const std::string& age = ageFilter(program).txtAge.Text();
    const auto days = ageLimit(age);
    if (days) removal::DeleteOlderThan(program.platform, folder, *days);
    // The line comes all the same where nothing was old enough, and where the age was no age.
    const double number = days ? *days : base::val(age);
    const std::string shown = std::isfinite(number) ? base::numberText(number, program.locale()) : age;
    program.report().AddLogLine(program.LangText(501) + " " + shown + " " + program.LangText(502) + " <OK>");
}

}  // namespace

void cleanRecentOfficeFiles(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task) != Begin::Go) return;
    platform::FileSystem& files = program.platform.files;
    const std::string office = program.platform.shell.SpecialFolder(csidl::AppData) + "\\Microsoft\\Office\\";
    const std::string english = office + "Recent";
    const std::string german = office + "Zuletzt verwendet";
    // Intended: measured is the German folder, named in the log the English one, whichever of them exists.
    removal::FolderCounters counters;
    removal::FolderStats(files, german, counters);
    if (!files.FolderExists(english) && !files.FolderExists(german)) return endFolderNotFound(program, task);
    logFolderAndCounts(program, taskName(program, task), english, counters.files, counters.bytes);
    logFilesIfWanted(program, english);
    removal::PurgeFolder(program, german);
    removal::PurgeFolder(program, english);
    endCleaned(program, task);
}

void cleanWindowsTemp(settings::Program& program, const CleaningTask& task) {
    if (beginTask(program, task, kTempWords) != Begin::Go) return;
    const std::string folder = program.platform.shell.SpecialFolder(csidl::Windows) + "\\Temp";
    removal::FolderCounters counters;
    removal::FolderStats(program.platform.files, folder, counters);
    if (!program.platform.files.FolderExists(folder)) return endFolderNotFound(program, task);
    logFolderAndCounts(program, taskName(program, task), folder, counters.files, counters.bytes);
    if (ageFilter(program).chkActivite.ticked()) {
        deleteOldFiles(program, folder);
        return endRow(program, task, 507, kIconDone);
    }
    logFilesIfWanted(program, folder);
    removal::PurgeFolder(program, folder);
    endCleaned(program, task);
}

void cleanUserTemp(settings::Program& program, const CleaningTask& task) {
    // The folder was asked for once, when the main window was loaded.
    runFolderTask(program, task, program.temporaryFolder, kTempWords);
}

void cleanPrefetch(settings::Program& program, const CleaningTask& task) {
    runFolderTask(program, task, program.platform.shell.SpecialFolder(csidl::Windows) + "\\Prefetch");
}

}  // namespace tidvane::tasks
