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

// The window of the box of the one step that clears all of Internet Explorer, saved passwords included. A stored value
// that cannot be assigned leaves it loaded.
settings::frmIEInDepthClean& inDepth(settings::Program& program) {
    (void)settings::findWindow(program, settings::frmIEInDepthClean::kName);
    return program.get<settings::frmIEInDepthClean>();
}

// Whether the boxes that a word stands for are those of Internet Explorer's steps, that very box among them.
bool isGroupOfAll(const std::string& word) {
    return base::equalNoCase(word, kAll) || base::equalNoCase(word, app::groupName(tasks::Group::InternetExplorer));
}

// Whether a word names that very box, so that its user knows what he ticks.
bool namesBoxOfAll(settings::Program& program, const std::string& word) {
    std::string error;
    return !isGroupWord(word) && findStoredControl(program, word, error) == &inDepth(program).chkIEINDepthCleanAll;
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

namespace {

// Decides about the box of all where a group ticked it. A no, and an untick to come, leave both boxes of its window as
// if the group had no such box: what its tick did to the other one is taken back, unless that was ticked since.
void decideAboutAll(settings::Program& program, const Options& options, int browserBefore) {
    settings::frmIEInDepthClean& window = inDepth(program);
    const int browser = std::max(browserBefore, window.chkIEINDepthClean.Value.get());
    const auto refuses = [&](const std::string& what) { return isGroupOfAll(what) || namesBoxOfAll(program, what); };
    if (std::any_of(options.untick.begin(), options.untick.end(), refuses)) {
        window.chkIEINDepthCleanAll.Value = 0;
    } else if (window.confirmAll()) {
        return;
    } else {
        program.display.warn(window.chkIEINDepthCleanAll.Name +
                             " stays off; agree with --answer yes, or tick it by its name.");
    }
    window.chkIEINDepthClean.Value = browser;
}

bool tickAll(settings::Program& program, const Options& options, std::set<std::string>& changed, std::string& error) {
    const settings::frmIEInDepthClean& window = inDepth(program);
    bool decide = false;
    int browserBefore = 0;
    for (const std::string& what : options.tick) {
        const bool before = window.chkIEINDepthCleanAll.ticked();
        const int browser = window.chkIEINDepthClean.Value;
        if (!tick(program, what, 1, changed, error)) return false;
        if (before || !window.chkIEINDepthCleanAll.ticked()) continue;
        decide = true;
        browserBefore = browser;
    }
    const auto byName = [&](const std::string& what) { return namesBoxOfAll(program, what); };
    if (decide && std::none_of(options.tick.begin(), options.tick.end(), byName)) {
        decideAboutAll(program, options, browserBefore);
    }
    return true;
}

}  // namespace

bool applySettings(settings::Program& program, const Options& options, std::set<std::string>& changed,
                   std::string& error) {
    if (options.method) {
        program.get<settings::frmOptions>().cboKillMethod.setListIndex(*options.method);
        changed.insert(settings::frmOptions::kName);
    }
    for (const std::string& assignment : options.set) {
        if (!set(program, assignment, changed, error)) return false;
    }
    if (!tickAll(program, options, changed, error)) return false;
    for (const std::string& what : options.untick) {
        if (!tick(program, what, 0, changed, error)) return false;
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
