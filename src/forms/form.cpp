#include "forms/form.h"

#include <utility>

#include "base/text.h"

namespace tidvane::forms {

Form::Form(std::string name) : Name(std::move(name)) {}

Control* Form::control(std::string_view name, std::optional<int> index) const {
    for (Control* candidate : controls_) {
        if (index && candidate->Index != index) continue;
        if (base::equalNoCase(candidate->Name, name)) return candidate;
    }
    return nullptr;
}

int Form::arrayCount(std::string_view name) const {
    int count = 0;
    for (const Control* candidate : controls_) {
        if (candidate->Index && base::equalNoCase(candidate->Name, name)) ++count;
    }
    return count;
}

Control::Control(Form& form, ControlKind kindOfControl, std::string name, std::string caption, std::optional<int> index)
    : kind(kindOfControl), Name(std::move(name)), Index(index), Caption(std::move(caption), &viewChanged), form_(form) {
    form.controls_.push_back(this);
}

}  // namespace tidvane::forms
