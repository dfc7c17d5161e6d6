// A window or a control of it that is known by its names alone.
#pragma once

#include <string_view>

#include "base/runtime_error.h"
#include "forms/form.h"
#include "settings/program.h"

namespace tidvane::settings {

// Loads the window if it was not. A stored value that cannot be assigned ends the load there; the window is then taken
// as far as it got. Null when there is no such window.
inline forms::Form* findWindow(Program& program, std::string_view window) {
    try {
        return program.windows.get(window);
    } catch (const base::RuntimeError&) {
        return program.windows.ifLoaded(window);
    }
}

// The same window's control. Null when there is no such window, no such control, or one of another kind.
template <class C>
C* findControl(Program& program, std::string_view window, std::string_view control) {
    forms::Form* form = findWindow(program, window);
    return form == nullptr ? nullptr : dynamic_cast<C*>(form->control(control));
}

}  // namespace tidvane::settings
