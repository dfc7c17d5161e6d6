// The table of all windows: how each form becomes a native window.
#pragma once

#include <span>
#include <string_view>

#include "view/form_window.h"

namespace tidvane::view {

struct WindowLayout {
    const char* form;  // its name
    WindowStyle style;
    void (*layout)(FormWindow& window);
};

// Null: nobody has laid this form out.
const WindowLayout* layoutOf(std::string_view form);
std::span<const WindowLayout> allLayouts();

}  // namespace tidvane::view
