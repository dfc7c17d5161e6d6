// The eight tasks of the group Internet Explorer, and the step that clears everything at once.
#pragma once

#include "tasks/cleaning_task.h"

namespace tidvane::tasks {

void clearAllOfInternetExplorer(settings::Program& program, const CleaningTask& task);
void cleanIeHistory(settings::Program& program, const CleaningTask& task);
void cleanIeCookies(settings::Program& program, const CleaningTask& task);
void cleanIeCache(settings::Program& program, const CleaningTask& task);
void cleanIeTypedAddresses(settings::Program& program, const CleaningTask& task);
void cleanIeAutoComplete(settings::Program& program, const CleaningTask& task);
void cleanIeFolder(settings::Program& program, const CleaningTask& task);
void cleanIeToolbarButton(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
