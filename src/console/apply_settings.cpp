#include "console/apply_settings.h"

#include <algorithm>

#include "app/task_catalogue.h"
#include "base/text.h"
#include "console/stored_windows.h"
#include "forms/simple_controls.h"
#include "settings/control_lookup.h"
#include "settings/frmIEInDepthClean.h"
#include "settings/frmOptions.h"
#include "settings/modFormINI.h"

namespace tidvane::console {

namespace {

constexpr const char* kAll = "all";

// Whether one of the words that stand for several steps was given, and these are its steps.
bool isGroupWord(const std::string& word) {
    if (base::equalNoCase(word, kAll)) return true;
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        if (task.gate.control != nullptr && base::equalNoCase(word, app::groupName(task.group))) return true;
    }
    return false;
}

// The box of the one step that clears all of Internet Explorer, saved passwords included.
forms::CheckBox* boxOfAll(settings::Program& program) {
    return settings::findControl<forms::CheckBox>(program, settings::frmIEInDepthClean::kName, "chkIEINDepthCleanAll");
}

// Whether a word names that very box, so that its user knows what he ticks.
bool namesBoxOfAll(settings::Program& program, const std::string& word) {
    std::string error;
    return !isGroupWord(word) && findStoredControl(program, word, error) == boxOfAll(program);
}

bool set(settings::Program& program, const std::string& assignment, std::set<std::string>& changed,
         std::string& error) {
    const std::size_t sign = assignment.find('=');
    if (sign == std::string::npos) {
        error = "\"" + assignment + "\" has no \"=\"; write --set CONTROL=VALUE.";
        return false;
    }
    forms::Control* control = findStoredControl(program, assignment.substr(0, sign), error);
    if (control == nullptr) return false;
    changed.insert(control->form().Name);
    return assignValue(*control, assignment.substr(sign + 1), error);
}

}  // namespace

bool tick(settings::Program& program, const std::string& what, int value, std::set<std::string>& changed,
          std::string& error) {
    if (isGroupWord(what)) {
        for (const tasks::CleaningTask& task : app::taskCatalogue()) {
            if (task.gate.control == nullptr) continue;
            if (!base::equalNoCase(what, kAll) && !base::equalNoCase(what, app::groupName(task.group))) continue;
            auto* box = settings::findControl<forms::CheckBox>(program, task.gate.window, task.gate.control);
            if (box == nullptr) continue;
            box->Value = value;
            changed.insert(task.gate.window);
        }
        return true;
    }
    forms::Control* control = findStoredControl(program, what, error);
    if (base::equalNoCase(what, app::groupName(tasks::Group::PlugIns))) {
        error =
            "The plug-ins have no check box; tick one with --plugin NAME for this run, or with \"plugins --tick\" for "
            "all later ones.";
        return false;
    }
    if (control == nullptr || control->kind != forms::ControlKind::CheckBox) {
        error = "\"" + what + "\" is neither a task's check box nor a group; the command \"tasks\" lists both.";
        return false;
    }
    static_cast<forms::CheckBox*>(control)->Value = value;
    changed.insert(control->form().Name);
    return true;
}

bool applySettings(settings::Program& program, const Options& options, std::set<std::string>& changed,
                   std::string& error) {
    if (options.method) {
        program.get<settings::frmOptions>().cboKillMethod.setListIndex(*options.method);
        changed.insert(settings::frmOptions::kName);
    }
    for (const std::string& assignment : options.set) {
        if (!set(program, assignment, changed, error)) return false;
    }
    const forms::CheckBox* all = boxOfAll(program);
    bool ask = false;
    for (const std::string& what : options.tick) {
        const bool before = all != nullptr && all->ticked();
        if (!tick(program, what, 1, changed, error)) return false;
        if (all != nullptr && !before && all->ticked()) ask = true;
    }
    for (const std::string& what : options.untick) {
        if (!tick(program, what, 0, changed, error)) return false;
    }
    const auto byName = [&](const std::string& what) { return namesBoxOfAll(program, what); };
    if (ask && std::none_of(options.tick.begin(), options.tick.end(), byName)) {
        auto& window = program.get<settings::frmIEInDepthClean>();
        if (!window.confirmAll()) {
            program.display.warn(window.chkIEINDepthCleanAll.Name + " stays off and " + window.chkIEINDepthClean.Name +
                                 " is on in its place; agree with --answer yes, or tick it by its name.");
        }
    }
    return true;
}

void saveWindows(settings::Program& program, const std::set<std::string>& windows) {
    for (const std::string& window : windows) {
        forms::Form* form = settings::findWindow(program, window);
        if (form == nullptr) continue;
        settings::tellOfEmptiedBoxes(program, *form);
        settings::SaveFormINI(program, *form);
    }
}

}  // namespace tidvane::console
