#include "tasks/cleaning_task.h"

#include "forms/simple_controls.h"
#include "settings/control_lookup.h"

namespace tidvane::tasks {

std::string taskName(settings::Program& program, const CleaningTask& task) {
    return task.name != nullptr ? std::string(task.name) : program.LangText(task.text);
}

int gateValue(settings::Program& program, const Gate& gate) {
    if (gate.window == nullptr || gate.control == nullptr) return 0;
    const forms::Form* form = settings::findWindow(program, gate.window);
    if (form == nullptr) return 0;
    const forms::Control* control = form->control(gate.control);
    if (control == nullptr || control->kind != forms::ControlKind::CheckBox) return 0;
    return static_cast<const forms::CheckBox*>(control)->Value;
}

}  // namespace tidvane::tasks
