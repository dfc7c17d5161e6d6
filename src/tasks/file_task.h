// The worker of a task that empties a folder.
#pragma once

#include <string>

#include "tasks/cleaning_task.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

// The parts of a file task, for tasks that replace one of them.
void logFolderAndCounts(settings::Program& program, const std::string& name, const std::string& folder,
                        std::uint64_t files, std::uint64_t bytes);
// With chkMoreLogDetails ticked: each file directly in the folder, before anything is removed. The words claim what has
// not been tried yet, and files of subfolders are not listed: intended.
void logFilesIfWanted(settings::Program& program, const std::string& folder);
// "<Nicht gefunden>" in every language, status 498, icon 10.
void endFolderNotFound(settings::Program& program, const CleaningTask& task);

// Measures the folder, tells it, lists its files if wanted, empties it, and calls that cleaned whatever could go.
void runFolderTask(settings::Program& program, const CleaningTask& task, const std::string& folder,
                   const BeginWords& words = {});

}  // namespace tidvane::tasks
