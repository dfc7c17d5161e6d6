#include "console/json_report.h"

#include <nlohmann/json.hpp>

#include "app/task_catalogue.h"
#include "app/task_rows.h"

namespace tidvane::console {

ReportedStep reportedStep(settings::Program& program, const app::StepResult& result) {
    const tasks::CleaningTask& task = *result.task;
    ReportedStep step;
    step.number = task.step;
    step.key = task.group == tasks::Group::Search ? app::searchRowText(program) : tasks::taskName(program, task);
    if (task.gate.control != nullptr) step.gate = std::string(task.gate.window) + "." + task.gate.control;
    step.ticked = result.ticked;
    step.notThereYet = app::isNotThereYet(task);
    step.status = result.status;
    step.icon = result.icon;
    step.milliseconds = result.milliseconds;
    step.removed = result.removed;
    return step;
}

void writeReport(std::ostream& out, const Report& report) {
    using Json = nlohmann::ordered_json;
    Json steps = Json::array();
    for (const ReportedStep& step : report.steps) {
        steps.push_back({{"number", step.number},
                         {"key", step.key},
                         {"gate", step.gate.empty() ? Json() : Json(step.gate)},
                         {"ticked", step.ticked},
                         {"notThereYet", step.notThereYet},
                         {"status", step.status},
                         {"icon", step.icon},
                         {"milliseconds", step.milliseconds},
                         {"files", step.removed.files},
                         {"folders", step.removed.folders},
                         {"keys", step.removed.keys},
                         {"values", step.removed.values},
                         {"bytes", step.removed.bytes},
                         {"failed", step.removed.failed}});
    }
    Json object = {{"version", report.version},    {"machine", report.machine}, {"method", report.method},
                   {"stopped", report.stopped},    {"elapsed", report.elapsed}, {"freeBefore", report.freeBefore},
                   {"freeAfter", report.freeAfter}};
    object["registryStored"] = report.registryStored;
    object["total"] = {{"files", report.total.files}, {"folders", report.total.folders},
                       {"keys", report.total.keys},   {"values", report.total.values},
                       {"bytes", report.total.bytes}, {"failed", report.total.failed}};
    object["steps"] = std::move(steps);
    constexpr int kIndent = 2;
    out << object.dump(kIndent, ' ', false, Json::error_handler_t::replace) << "\n";
}

}  // namespace tidvane::console
