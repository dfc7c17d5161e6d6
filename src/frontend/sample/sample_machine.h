// A machine to try the program on: traces for every task that is there, and neighbours of theirs that must survive.
#pragma once

#include <string>

namespace tidvane::frontend {

// In a directory that does not exist yet or is empty. All times are counted back from now. False: `error` is one
// sentence.
bool createSampleMachine(const std::string& directory, std::string& error);

// The same with a program folder that goes with it; none where `program` is empty. A folder that holds anything is
// refused, and nothing is made.
bool createSample(const std::string& directory, const std::string& program, std::string& error);

}  // namespace tidvane::frontend
