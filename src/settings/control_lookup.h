// A control of a window that is known by its names alone.
#pragma once

#include <string_view>

#include "forms/form.h"
#include "settings/program.h"

namespace tidvane::settings {

// Loads the window if it was not. Null when there is no such window, no such control, or one of another kind.
template <class C>
C* findControl(Program& program, std::string_view window, std::string_view control) {
    forms::Form* form = program.windows.get(window);
    return form == nullptr ? nullptr : dynamic_cast<C*>(form->control(control));
}

}  // namespace tidvane::settings
