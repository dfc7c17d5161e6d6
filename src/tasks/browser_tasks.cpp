#include "tasks/browser_tasks.h"

#include "tasks/not_there_yet.h"

namespace tidvane::tasks {

void cleanProfileFiles(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanFirefoxCache(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanFirefoxCrashReports(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanOperaCache(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanOperaIcons(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanChromeCookies(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanChromeCache(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanSafariHistory(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

void cleanSafariCookies(settings::Program& program, const CleaningTask& task) {
    notThereYet(program, task);
}

}  // namespace tidvane::tasks
