#include "console/json_report.h"

#include <nlohmann/json.hpp>

#include "app/task_catalogue.h"
#include "app/task_rows.h"

namespace tidvane::console {

namespace {

using Json = nlohmann::ordered_json;

void addTotals(Json& object, const platform::RemovalTotals& totals) {
    object["files"] = totals.files;
    object["folders"] = totals.folders;
    object["keys"] = totals.keys;
    object["values"] = totals.values;
    object["bytes"] = totals.bytes;
    object["failed"] = totals.failed;
}

const char* kindName(platform::RemovedKind kind) {
    switch (kind) {
        case platform::RemovedKind::Folder:
            return "folder";
        case platform::RemovedKind::Key:
            return "key";
        case platform::RemovedKind::Value:
            return "value";
        default:
            return "file";
    }
}

Json entriesOf(const std::vector<platform::RemovedEntry>& entries) {
    Json list = Json::array();
    for (const platform::RemovedEntry& entry : entries) {
        Json object = {{"kind", kindName(entry.kind)}, {"path", entry.path}};
        if (entry.kind == platform::RemovedKind::File) object["bytes"] = entry.bytes;
        if (entry.recycled) object["recycled"] = true;
        list.push_back(std::move(object));
    }
    return list;
}

Json stepsOf(const Report& report) {
    Json steps = Json::array();
    for (const ReportedStep& step : report.steps) {
        Json object = {{"number", step.number},
                       {"key", step.key},
                       {"gate", step.gate.empty() ? Json() : Json(step.gate)},
                       {"ticked", step.ticked},
                       {"status", step.status},
                       {"icon", step.icon},
                       {"milliseconds", step.milliseconds}};
        addTotals(object, step.removed);
        if (report.details) object["entries"] = entriesOf(step.entries);
        steps.push_back(std::move(object));
    }
    return steps;
}

}  // namespace

ReportedStep reportedStep(settings::Program& program, const app::StepResult& result) {
    const tasks::CleaningTask& task = *result.task;
    ReportedStep step;
    step.number = task.step;
    step.key = task.group == tasks::Group::Search ? app::searchRowText(program) : tasks::taskName(program, task);
    if (task.gate.control != nullptr) step.gate = std::string(task.gate.window) + "." + task.gate.control;
    step.ticked = result.ticked;
    step.status = result.status;
    step.icon = result.icon;
    step.milliseconds = result.milliseconds;
    step.removed = result.removed;
    return step;
}

void writeReport(std::ostream& out, const Report& report) {
    Json object = {{"version", report.version}, {"machine", report.machine}, {"method", report.method}};
    if (report.search) {
        object["mask"] = report.search->mask;
        object["folder"] = report.search->folder;
    }
    object["preview"] = report.preview;
    object["stopped"] = report.stopped;
    object["elapsed"] = report.elapsed;
    object["freeBefore"] = report.freeBefore;
    object["freeAfter"] = report.freeAfter;
    // A search touches no registry.
    if (!report.search) object["registryStored"] = report.registryStored;
    Json total = Json::object();
    addTotals(total, report.total);
    object["total"] = std::move(total);
    if (!report.search) object["steps"] = stepsOf(report);
    if (report.details) object[report.search ? "entries" : "otherEntries"] = entriesOf(report.otherEntries);
    constexpr int kIndent = 2;
    out << object.dump(kIndent, ' ', false, Json::error_handler_t::replace) << "\n";
}

bool ReportFile::open(const std::string& name, std::string& error) {
    if (name.empty()) return true;
    name_ = name;
    file_.open(name);
    if (!file_) error = "\"" + name + "\" cannot be written; nothing was removed.";
    return static_cast<bool>(file_);
}

bool ReportFile::write(const Report& report, std::string& error) {
    if (!file_.is_open()) return true;
    writeReport(file_, report);
    file_.close();
    if (!file_) error = "\"" + name_ + "\" could not be written whole.";
    return static_cast<bool>(file_);
}

}  // namespace tidvane::console
