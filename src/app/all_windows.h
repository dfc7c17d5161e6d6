// The table of all windows of the program.
#pragma once

#include "settings/program.h"

namespace tidvane::app {

// Tells the program how each window is made. Called once, before the first window is used.
void offerAllWindows(settings::Program& program);

}  // namespace tidvane::app
