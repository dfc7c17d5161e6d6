#include "tasks/search_task.h"

#include "tasks/not_there_yet.h"

namespace tidvane::tasks {

void SearchMaskFiles(settings::Program& program, const CleaningTask& task) {
    notThereYetSilent(program, task);
}

}  // namespace tidvane::tasks
