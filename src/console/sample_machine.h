// A machine to try the program on: traces for every task that is there, and neighbours of theirs that must survive.
#pragma once

#include <string>

namespace tidvane::console {

// In a directory that does not exist yet or is empty. All times are counted back from now. False: `error` is one
// sentence.
bool createSampleMachine(const std::string& directory, std::string& error);

}  // namespace tidvane::console
