// The junk search by the user's masks over whole drives.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

void SearchMaskFiles(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
