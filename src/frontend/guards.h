// What a run is refused for: choices of the user that the program would not honour. And what it is warned of.
#pragma once

#include <string>

#include "frontend/front_end.h"
#include "settings/program.h"

namespace tidvane::frontend {

// Empty: go on. Otherwise one sentence. The names of the three ways of removing decide which one is taken; where they
// are empty or equal every choice would mean the first, and files that were to be kept or overwritten would be gone.
// For a run, and for every other act that removes files by the chosen way (the search wizard).
std::string whyNotToRun(settings::Program& program, FrontEnd frontEnd = FrontEnd::Console);

// One line for every protection that is missing; the run goes on.
void warnOfMissingProtection(settings::Program& program, forms::Display& display);

// One line where no language file of the program folder has given a text. Asked once they are loaded.
void warnOfMissingTexts(settings::Program& program, forms::Display& display);

}  // namespace tidvane::frontend
