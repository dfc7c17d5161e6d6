// The user's own folders, and the own files and registry keys. Both steps share one row of the task list.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

// Removes the folders of lstFolders, or empties them and leaves them, as the two option buttons say. With neither of
// them selected nothing is done, and the row says "finished" all the same.
void cleanOwnFolders(settings::Program& program, const CleaningTask& task);

// Removes the entries of lstFiles. Nobody asks what an entry is: each is removed as a file and as a registry key, and
// the way that does not fit does nothing.
void cleanOwnFiles(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
