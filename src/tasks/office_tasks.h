// The five tasks of the group Office.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

void cleanOffice(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
