#include "app/plug_in_step.h"

#include "tasks/not_there_yet.h"

namespace tidvane::app {

void cleanPlugIns(settings::Program& program, const tasks::CleaningTask& task) {
    tasks::notThereYetPlugIns(program, task);
}

}  // namespace tidvane::app
