// The eight tasks of the group Internet Explorer, and the step that clears everything at once.
#pragma once

#include <span>
#include <string>

#include "tasks/cleaning_task.h"
#include "tasks/registry_task.h"

namespace tidvane::tasks {

// The keys of the registry tasks, by step.
std::span<const RegistryTarget> ieRegistryTargets();
// The folder of a task, by step; empty for a task without one. Where the special folder cannot be told, what is left is
// no absolute path, and nothing is found or emptied there.
std::string ieFolder(settings::Program& program, int step);
// With chkIEINDepthClean ticked: the browser's own cleaner, started by the command line of the task's step and waited
// for. Events get in meanwhile; a stop that comes with them is not seen by the task any more.
void askBrowserToClean(settings::Program& program, const CleaningTask& task);

void clearAllOfInternetExplorer(settings::Program& program, const CleaningTask& task);
void cleanIeHistory(settings::Program& program, const CleaningTask& task);
void cleanIeCookies(settings::Program& program, const CleaningTask& task);
void cleanIeCache(settings::Program& program, const CleaningTask& task);
void cleanIeTypedAddresses(settings::Program& program, const CleaningTask& task);
void cleanIeAutoComplete(settings::Program& program, const CleaningTask& task);
void cleanIeFolder(settings::Program& program, const CleaningTask& task);
void cleanIeToolbarButton(settings::Program& program, const CleaningTask& task);

}  // namespace tidvane::tasks
