#include "tasks/internet_explorer_tasks.h"

#include "tasks/not_there_yet.h"

namespace tidvane::tasks {

void clearAllOfInternetExplorer(settings::Program& program, const CleaningTask& task) {
    notThereYetSilent(program, task);
}

void cleanIeHistory(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanIeCookies(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanIeCache(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanIeTypedAddresses(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanIeAutoComplete(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanIeFolder(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanIeToolbarButton(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

}  // namespace tidvane::tasks
