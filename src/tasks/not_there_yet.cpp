#include "tasks/not_there_yet.h"

#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

void notThereYet(settings::Program& program, const CleaningTask& task) {
    reportUnticked(program, taskName(program, task));
}

void notThereYetSilent(settings::Program&, const CleaningTask&) {}

namespace {
// Panel 1 keeps the line here: these two do not put "finished" behind it.
void reportOwnListUnticked(settings::Program& program, int name) {
    const std::string line = program.LangText(name) + " " + program.LangText(509);
    program.report().AddLogLine(line);
    program.report().setPanel(1, line);
}
}  // namespace

void notThereYetOwnFolders(settings::Program& program, const CleaningTask&) {
    reportOwnListUnticked(program, 524);
}

void notThereYetOwnFiles(settings::Program& program, const CleaningTask&) {
    reportOwnListUnticked(program, 527);
}

void notThereYetPlugIns(settings::Program& program, const CleaningTask&) {
    settings::RunReport& report = program.report();
    report.AddLogHeading(std::string(22, '=') + " " + program.LangText(104) + " " + std::string(25, '='));
    report.AddLogLine(program.LangText(553) + " ...");
    report.setPanel(1, program.LangText(558));
    report.AddLogLine(program.LangText(558));
}

}  // namespace tidvane::tasks
