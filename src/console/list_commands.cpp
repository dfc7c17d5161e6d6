// The commands that only look: tasks and settings. They load no main window, so that neither the start of the program
// nor a cleaning at its start can happen behind them.
#include <algorithm>
#include <cstdio>
#include <set>
#include <vector>

#include "app/all_windows.h"
#include "app/plug_in_files.h"
#include "app/task_catalogue.h"
#include "app/task_rows.h"
#include "console/apply_settings.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/instance_lock.h"
#include "console/plug_in_choice.h"
#include "console/stored_windows.h"
#include "console/watched_profiles.h"
#include "frontend/guards.h"
#include "frontend/own_services.h"
#include "settings/modFormINI.h"

namespace tidvane::console {

namespace {

std::string tickMark(int value) {
    return value == 1 ? "yes" : value == 2 ? "greyed" : "no";
}

// The plug-ins have no gate: their step does something as soon as one of them is ticked.
bool isAnyPlugInTicked(settings::Program& program) {
    const std::string ticks = program.inProgramFolder(app::kPlugTicksFile);
    const std::vector<std::string> names = plugInNames(program);
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return app::storedPlugTick(program, ticks, name).value_or(false);
    });
}

int tickOf(settings::Program& program, const tasks::CleaningTask& task) {
    if (task.group == tasks::Group::PlugIns) return isAnyPlugInTicked(program) ? 1 : 0;
    return tasks::gateValue(program, task.gate);
}

std::string gateText(const tasks::CleaningTask& task) {
    return task.gate.control == nullptr ? "-" : std::string(task.gate.window) + "." + task.gate.control;
}

}  // namespace

int tasksCommand(Session& session, const Options& options) {
    ConsoleDisplay display(session.err, options.answerYes);
    settings::Program program(session.platform, display);
    app::offerWindowsWithoutMain(program);
    loadLanguages(program);
    frontend::warnOfMissingTexts(program, display);
    char line[160];
    std::snprintf(line, sizeof line, "%4s  %-8s  %-38s  %-6s  %-3s  %s\n", "Step", "Group", "Gate", "Ticked", "Row",
                  "Name");
    session.out << line;
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        const std::string name =
            task.group == tasks::Group::Search ? app::searchRowText(program) : tasks::taskName(program, task);
        std::snprintf(line, sizeof line, "%4d  %-8s  %-38s  %-6s  %-3s  ", task.step, app::groupName(task.group),
                      gateText(task).c_str(), tickMark(tickOf(program, task)).c_str(),
                      app::wantsRow(program, task) ? "yes" : "no");
        session.out << line << name << "\n";
    }
    session.out << std::flush;
    return exit_status::Done;
}

int settingsCommand(Session& session, const Options& options) {
    InstanceLock lock(session);
    if (options.save && !lock.take()) return exit_status::MachineUnusable;
    ConsoleDisplay display(session.err, options.answerYes);
    WatchedProfiles profiles(session.platform.profiles);
    settings::Program program(frontend::withOwn(session.platform, {.profiles = &profiles}), display);
    app::offerWindowsWithoutMain(program);
    loadLanguages(program);
    frontend::warnOfMissingTexts(program, display);
    std::set<std::string> changed;
    std::string error;
    if (!applySettings(program, options, changed, error)) {
        session.err << error << std::endl;
        return exit_status::Usage;
    }
    forEachStoredControl(program, [&](forms::Form& form, forms::Control& control) {
        session.out << form.Name << "." << settings::profileKey(control) << "=" << printableLines(valueOf(control))
                    << "\n";
    });
    session.out << std::flush;
    if (!options.save) return exit_status::Done;
    saveWindows(program, changed);
    if (profiles.failed()) {
        session.err << kNotStored << std::endl;
        return exit_status::MachineUnusable;
    }
    return exit_status::Done;
}

}  // namespace tidvane::console
