// The registry value that starts the program with Windows, at the start of the program.
#pragma once

#include "settings/program.h"

namespace tidvane::app {

// What OK of the options does; where the option is on it is logged too, and the value goes from the other root.
void applyAutostartAtStart(settings::Program& program);

}  // namespace tidvane::app
