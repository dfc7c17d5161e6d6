// The table of all windows of the program.
#pragma once

#include "settings/program.h"

namespace tidvane::app {

// Tells the program how each window is made. Called once, before the first window is used.
void offerAllWindows(settings::Program& program);
// All but the main window, for looking at the settings: its load is the start of the program, which may clean.
void offerWindowsWithoutMain(settings::Program& program);

}  // namespace tidvane::app
