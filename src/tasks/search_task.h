// The junk search by the user's masks over whole drives.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

// Sweeps all fixed drives, or the one of cboDrives. While its box is off it says nothing at all. The row is the first
// of the task list, whatever it is called, and its icon stays.
void SearchMaskFiles(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
