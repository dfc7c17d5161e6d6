#include "tasks/registry_task.h"

#include "registry/delete_all_keys.h"

namespace tidvane::tasks {

void runRegistryTask(settings::Program& program, const CleaningTask& task, std::span<const RegistryTarget> targets,
                     const RegistryWords& words) {
    if (beginTask(program, task, words.begin) != Begin::Go) return;
    removeKeys(program, task, targets, words);
}

void removeKeys(settings::Program& program, const CleaningTask& task, std::span<const RegistryTarget> targets,
                const RegistryWords& words) {
    long result = -1;  // a task without a key of its own removes nothing
    for (const RegistryTarget& target : targets) {
        if (target.step != task.step) continue;
        registry::DeleteAllKeys(program.platform.registry, target.root, target.key, target.subKey, result);
    }
    if (result != 0) return endNotFound(program, task, words.missingText, words.missingStatus);
    program.report().AddLogLine(taskName(program, task) +
                                (words.cleanedWord ? " " + program.LangText(504) : std::string()) + " <OK>");
    endRow(program, task, 507, kIconDone);
}

}  // namespace tidvane::tasks
