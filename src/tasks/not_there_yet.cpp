#include "tasks/not_there_yet.h"

#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

void notThereYet(settings::Program& program, const CleaningTask& task) {
    reportUnticked(program, taskName(program, task));
}

void notThereYetPlugIns(settings::Program& program, const CleaningTask&) {
    settings::RunReport& report = program.report();
    report.AddLogHeading(std::string(22, '=') + " " + program.LangText(104) + " " + std::string(25, '='));
    report.AddLogLine(program.LangText(553) + " ...");
    report.setPanel(1, program.LangText(558));
    report.AddLogLine(program.LangText(558));
}

}  // namespace tidvane::tasks
