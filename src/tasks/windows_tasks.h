// The twenty tasks of the group Windows.
#pragma once

#include <span>

#include "tasks/cleaning_task.h"
#include "tasks/registry_task.h"

namespace tidvane::tasks {

// The keys of the registry tasks, by step.
std::span<const RegistryTarget> windowsRegistryTargets();

void cleanWindowsRegistry(settings::Program& program, const CleaningTask& task);
void sortMenuOrder(settings::Program& program, const CleaningTask& task);
void cleanRecentOfficeFiles(settings::Program& program, const CleaningTask& task);
void emptyRecycleBin(settings::Program& program, const CleaningTask& task);
void emptyClipboard(settings::Program& program, const CleaningTask& task);
void cleanWindowsTemp(settings::Program& program, const CleaningTask& task);
void cleanUserTemp(settings::Program& program, const CleaningTask& task);
void cleanPrefetch(settings::Program& program, const CleaningTask& task);

// Refreshes lblRecyclerFiles and lblRecylcerSize of the options window; an empty root means all drives.
void UpdateRecyclerLabels(settings::Program& program, const std::string& root);

}  // namespace tidvane::tasks
