// Where the console finds and keeps things on the host.
#pragma once

#include <string>

namespace tidvane::console {

// $XDG_DATA_HOME/tidvane, or ~/.local/share/tidvane. Empty when neither variable tells a home.
std::string userDataDirectory();

// The files that are delivered beside the program: share/tidvane of an installation, or the source tree's data.
// Empty when they are not found.
std::string deliveredData();

// The program's own folder is made of the delivered files where it does not exist yet or is empty; one that has
// anything in it is left alone. It appears whole or not at all. False: `error` is one sentence.
bool fillProgramFolder(const std::string& folder, const std::string& delivered, std::string& error);

}  // namespace tidvane::console
