// The menus of the main window, by name, and where each leads.
#pragma once

#include <span>
#include <string_view>

namespace tidvane::app {

enum class MenuAction {
    None,         // a title, or a command of another file
    OptionsTab,   // options window: tab `a`, inner tab control `inner` on `b`
    StarterTab,   // start page on tab `a`
    Window,       // the window named in `inner`, over the main window
    FreeWindow,   // the window named in `inner`, which stays in sight while the main window is hidden
    Page,         // page `a` of the main window
    NotThereYet,  // a command that is still to be built: the entry is grey
};

struct MenuRow {
    const char* name;
    const char* parent;   // the menu it lies in; empty: a title of the bar or of a pop-up
    const char* caption;  // of the design, German; stays where no language file has one
    MenuAction action = MenuAction::None;
    int a = 0;
    const char* inner = nullptr;
    int b = 0;
    bool atRightEnd = false;  // of the menu bar
};

// In the order in which the entries stand in their menus.
std::span<const MenuRow> menuTable();

// Whether a line stands above the entry, to tell groups of commands apart.
bool beginsMenuGroup(std::string_view name);
// Whether the title is of a pop-up alone and never stands in the bar.
bool isPopUpTitle(std::string_view name);

}  // namespace tidvane::app
