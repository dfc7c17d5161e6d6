// Which program a name stands for that a user's file gives.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::plugins {

// A full path stands for itself. Any other name is looked for in the program's own folder and nowhere else: the current
// folder and the search path of the system could hold anybody's program. Empty: it stands for none.
std::string startableFile(settings::Program& program, const std::string& name);

}  // namespace tidvane::plugins
