// The last step of a run: the ticked plug-ins.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::app {

void cleanPlugIns(settings::Program& program, const tasks::CleaningTask& task);

}  // namespace tidvane::app
