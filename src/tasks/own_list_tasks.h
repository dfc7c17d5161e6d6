// The user's own folders, and the own files and registry keys.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

void cleanOwnFolders(settings::Program& program, const CleaningTask& task);
void cleanOwnFiles(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
