// Notes in the log which other cleaning programs are installed.
#pragma once

#include "settings/program.h"

namespace tidvane::app {

void noteOtherCleaners(settings::Program& program);

}  // namespace tidvane::app
