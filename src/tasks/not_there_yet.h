// Stand-ins for workers that are not there yet. Each takes the unticked branch of its step and does nothing else, so
// the log never claims work that was not done.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

// Most steps: name and the word for "not ticked".
void notThereYet(settings::Program& program, const CleaningTask& task);
// The plug-ins: head line, then "no plug-in was ticked".
void notThereYetPlugIns(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
