// What a run is refused for: choices of the user that the program would not honour.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::console {

// Empty: go on. Otherwise one sentence. The names of the three ways of removing decide which one is taken; where they
// are empty or equal every choice would mean the first, and files that were to be kept or overwritten would be gone.
std::string whyNotToRun(settings::Program& program);

// One line for every protection that is missing; the run goes on.
void warnOfMissingProtection(settings::Program& program);

}  // namespace tidvane::console
