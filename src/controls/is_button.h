// The program's own push button as a model: its look is a value of its own.
#pragma once

#include <string>
#include <utility>

#include "forms/control.h"

namespace tidvane::controls {

// Value is the pressed look. Setting it raises no click: code that sets it starts nothing.
class isButton : public forms::Control {
public:
    isButton(forms::Form& form, std::string name, std::string caption = {})
        : forms::Control(form, forms::ControlKind::ThemedButton, std::move(name), std::move(caption)) {}
    forms::Signal<> Click;
    forms::Property<bool> Value{false, &viewChanged};
    // A user's click: nothing happens on a button that is disabled or hidden.
    void press() {
        if (Enabled && Visible) Click();
    }
};

}  // namespace tidvane::controls
