// The tray icon and the menu that the main window has for it.
#pragma once

#include <string>
#include <vector>

#include "forms/form.h"
#include "settings/program.h"
#include "view/wx_display.h"

namespace tidvane::view {

// What stands in the menu of this name, submenus included; entries that are not visible are left out.
std::vector<TrayEntry> entriesOf(const forms::Form& form, const std::string& menu);

// The gestures of the icon reach the main window, and so does a choice in its menu.
void connectTray(WxDisplay& display, settings::Program& program);

}  // namespace tidvane::view
