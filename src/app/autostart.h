// The registry value that starts the program with Windows.
#pragma once

#include "settings/program.h"

namespace tidvane::app {

// At every start: off, the value goes from both roots; on, it is written under the chosen root, logged, and goes from
// the other root.
void applyAutostartAtStart(settings::Program& program);

}  // namespace tidvane::app
