// The menus of the main window, by name, and where each leads.
#pragma once

#include <span>

namespace tidvane::app {

enum class MenuAction {
    None,        // a title, or a command of another file
    OptionsTab,  // options window: tab `a`, inner tab control `inner` on `b`
    StarterTab,  // start page on tab `a`
    Window,      // the window named in `inner`
    Page,        // page `a` of the main window
};

struct MenuRow {
    const char* name;
    const char* caption;  // of the design, German; stays where no language file has one
    MenuAction action = MenuAction::None;
    int a = 0;
    const char* inner = nullptr;
    int b = 0;
    bool atRightEnd = false;  // of the menu bar
};

std::span<const MenuRow> menuTable();

}  // namespace tidvane::app
