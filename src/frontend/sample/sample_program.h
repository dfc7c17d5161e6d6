// The program folder that goes with a sample machine: own lists and ticked plug-ins that find something there.
#pragma once

#include <string>

namespace tidvane::frontend {

// Whether there is nothing yet in the way of settings: no such folder, or an empty one. False: `error` is one sentence.
bool isNewProgramFolder(const std::string& folder, std::string& error);

// In a new folder: the delivered files, three lists, and the ticks of the plug-ins. Nothing that is there already is
// written over. False: `error` is one sentence.
bool createSampleProgram(const std::string& folder, std::string& error);

}  // namespace tidvane::frontend
