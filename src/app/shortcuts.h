// The keys of the main window, by the control they press.
#pragma once

#include <span>
#include <string_view>

namespace tidvane::app {

struct Shortcut {
    const char* control;  // a button or a menu entry
    const char* keys;     // "Ctrl+Q", "F9"
};

std::span<const Shortcut> shortcuts();
// Empty: the control has none.
std::string_view shortcutOf(std::string_view control);

}  // namespace tidvane::app
