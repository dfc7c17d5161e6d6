// The fixed walk over 62 steps.
#pragma once

#include <span>

#include "tasks/cleaning_task.h"

namespace tidvane::app {

inline constexpr int kSteps = 62;

// In the order of the walk. Never change a step's number: the log, the rows and the reports of runs depend on it.
std::span<const tasks::CleaningTask> taskCatalogue();

// The group's name as the command line knows it ("windows", "ie", ...), and its small icon in the task list.
const char* groupName(tasks::Group group);
int groupIcon(tasks::Group group);

}  // namespace tidvane::app
