#include "tasks/not_there_yet.h"

#include <array>

#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

void notThereYet(settings::Program& program, const CleaningTask& task) {
    reportUnticked(program, taskName(program, task));
}

void notThereYetSilent(settings::Program&, const CleaningTask&) {}

namespace {
struct OfficeLabel {
    int step;
    const char* log;
    const char* panel;
};
// What a disabled Office task is called in front of the word for "not ticked", without a further blank. The missing
// blank of the first and the two blanks of the last are intended.
constexpr std::array kOfficeLabels{
    OfficeLabel{57, "Microsoft Office Access History ", "Microsoft Office Access History"},
    OfficeLabel{58, "Microsoft Office Excel History ", "Microsoft Office Excel History "},
    OfficeLabel{59, "Microsoft Office PowerPoint History ", "Microsoft Office PowerPoint History "},
    OfficeLabel{60, "Microsoft Office Word History ", "Microsoft Office Word History "},
    OfficeLabel{61, "Microsoft Office FrontPage History ", "Microsoft Office FrontPage History  "},
};
}  // namespace

void notThereYetOffice(settings::Program& program, const CleaningTask& task) {
    for (const OfficeLabel& label : kOfficeLabels) {
        if (label.step != task.step) continue;
        program.report().AddLogLine(label.log + program.LangText(509));
        program.report().setPanel(1, label.panel + program.LangText(509));
        program.report().setPanel(1, program.LangText(507));
    }
}

void notThereYetPlugIns(settings::Program& program, const CleaningTask&) {
    settings::RunReport& report = program.report();
    report.AddLogHeading(std::string(22, '=') + " " + program.LangText(104) + " " + std::string(25, '='));
    report.AddLogLine(program.LangText(553) + " ...");
    report.setPanel(1, program.LangText(558));
    report.AddLogLine(program.LangText(558));
}

}  // namespace tidvane::tasks
