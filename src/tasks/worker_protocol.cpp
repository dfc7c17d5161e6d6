#include "tasks/worker_protocol.h"

#include "settings/pause.h"

namespace tidvane::tasks {

void reportUnticked(settings::Program& program, const std::string& name) {
    const std::string line = name + " " + program.LangText(509);
    program.report().AddLogLine(line);
    program.report().setPanel(1, line);
    program.report().setPanel(1, program.LangText(507));
}

Begin beginTask(settings::Program& program, const CleaningTask& task, const BeginWords& words) {
    const std::string name = taskName(program, task);
    const int gate = gateValue(program, task.gate);
    if (gate != 1) {
        // Intended: the greyed state ends these tasks without a word, all others call it unticked.
        if (!(words.greyedIsSilent && gate != 0)) reportUnticked(program, name);
        return Begin::Unticked;
    }
    return beginRow(program, task, (words.verb ? program.LangText(503) + " " : std::string()) + name + words.dots);
}

Begin beginRow(settings::Program& program, const CleaningTask& task, const std::string& panel,
               const std::string& behindRunning) {
    settings::RunReport& report = program.report();
    const std::string name = taskName(program, task);
    report.setPanel(1, panel);
    report.setRowStatus(name, program.LangText(505) + behindRunning);
    settings::pauseByPurgeSpeed(program);
    report.selectRow(name);
    if (report.StopRequested()) {
        report.setRowStatus(name, program.LangText(506));
        return Begin::Stopped;
    }
    return Begin::Go;
}

void endRow(settings::Program& program, const CleaningTask& task, int statusText, int icon) {
    const std::string name = taskName(program, task);
    program.report().setRowStatus(name, program.LangText(statusText));
    program.report().setRowIcon(name, icon);
}

void endCleaned(settings::Program& program, const CleaningTask& task) {
    program.report().AddLogLine(taskName(program, task) + " " + program.LangText(504) + " <OK>");
    endRow(program, task, 507, kIconDone);
}

void endNotFound(settings::Program& program, const CleaningTask& task, int text, int status) {
    program.report().AddLogLine(taskName(program, task) + " " + program.LangText(text));
    endRow(program, task, status, kIconNotFound);
}

}  // namespace tidvane::tasks
