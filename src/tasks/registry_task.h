// The worker of a task that removes registry keys.
#pragma once

#include <span>

#include "platform/registry_api.h"
#include "tasks/cleaning_task.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

// One key of one task. Rows of a step stand together, in the order of removal.
struct RegistryTarget {
    int step;
    platform::HKey root;
    const char* key;
    const char* subKey;
};

// The words in which registry tasks differ.
struct RegistryWords {
    BeginWords begin;
    bool cleanedWord = true;  // success line: name, word for "cleaned", mark; otherwise name and mark alone
    int missingText = 499;    // behind the name where the key is not there
    int missingStatus = 508;
};

// Removes the keys one after the other. Only the last key's result decides between cleaned and not found: intended, so
// a task of several keys reports by its last.
void runRegistryTask(settings::Program& program, const CleaningTask& task, std::span<const RegistryTarget> targets,
                     const RegistryWords& words = {});
// The same behind the stop test, for tasks that put something in front.
void removeKeys(settings::Program& program, const CleaningTask& task, std::span<const RegistryTarget> targets,
                const RegistryWords& words = {});

}  // namespace tidvane::tasks
