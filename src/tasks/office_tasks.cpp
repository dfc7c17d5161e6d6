#include "tasks/office_tasks.h"

#include "tasks/not_there_yet.h"

namespace tidvane::tasks {

void cleanOffice(settings::Program& program, const CleaningTask& task) {
    notThereYetOffice(program, task);
}

}  // namespace tidvane::tasks
