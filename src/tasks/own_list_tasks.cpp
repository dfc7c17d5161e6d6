#include "tasks/own_list_tasks.h"

#include "tasks/not_there_yet.h"

namespace tidvane::tasks {

void cleanOwnFolders(settings::Program& program, const CleaningTask& task) {
    notThereYetOwnFolders(program, task);
}

void cleanOwnFiles(settings::Program& program, const CleaningTask& task) {
    notThereYetOwnFiles(program, task);
}

}  // namespace tidvane::tasks
