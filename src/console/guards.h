// What a run is refused for: choices of the user that the program would not honour.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::console {

// Empty: go on. Otherwise one sentence. The names of the three ways of removing decide which one is taken; where they
// are empty or equal every choice would mean the first, and files that were to be kept or overwritten would be gone.
std::string whyNotToRun(settings::Program& program);

// One line for every protection that is missing; the run goes on.
void warnOfMissingProtection(settings::Program& program, forms::Display& display);

// One line where the program folder holds no language file: every text is empty then.
void warnOfMissingTexts(settings::Program& program, forms::Display& display);

// Empty: go on. Otherwise one sentence: the junk search is ticked, and masks of it match every file name.
std::string whyNotToSearch(settings::Program& program);

// Asks where a list whose step is ticked holds lines that come back as other entries than they read. False: no.
bool allowsChangedLines(settings::Program& program, forms::Display& display);

}  // namespace tidvane::console
