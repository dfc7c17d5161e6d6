// The worker of a task that empties a folder.
#pragma once

#include <cstdint>
#include <string>

#include "tasks/cleaning_task.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

// The parts of a file task, for tasks that replace one of them.
// One line: the label, the number of files, the size in brackets.
void logCounts(settings::Program& program, const std::string& label, std::uint64_t files, std::uint64_t bytes);
// The same behind a line with the folder.
void logFolderAndCounts(settings::Program& program, const std::string& name, const std::string& folder,
                        std::uint64_t files, std::uint64_t bytes);
// With chkMoreLogDetails ticked: each file directly in the folder, before anything is removed. The words claim what has
// not been tried yet, and files of subfolders are not listed: intended.
void logFilesIfWanted(settings::Program& program, const std::string& folder);
// "<Nicht gefunden>" in every language, status 498, icon 10.
void endFolderNotFound(settings::Program& program, const CleaningTask& task);
// The same end in the user's language: entry 550.
void endFolderMissing(settings::Program& program, const CleaningTask& task);

// How a task ends whose folder is not there.
using FolderEnd = void (*)(settings::Program& program, const CleaningTask& task);

// Measures the folder, then tells it with its counts and lists its files if wanted. False: it is not there, and the
// task has come to that end.
bool tellFolder(settings::Program& program, const CleaningTask& task, const std::string& folder,
                FolderEnd endMissing = endFolderNotFound);

// Tells the folder, empties it, and calls that cleaned whatever could go.
void runFolderTask(settings::Program& program, const CleaningTask& task, const std::string& folder,
                   const BeginWords& words = {}, FolderEnd endMissing = endFolderNotFound);

}  // namespace tidvane::tasks
