// Where the console finds and keeps things on the host.
#pragma once

#include <string>

namespace tidvane::frontend {

// $XDG_DATA_HOME/tidvane, or ~/.local/share/tidvane. Empty when neither variable tells a home.
std::string userDataDirectory();

// The files that are delivered beside the program: share/tidvane of an installation, or the source tree's data.
// Empty when they are not found.
std::string deliveredData();

// The program's own folder is made of the delivered files where it does not exist yet or is empty: it appears whole or
// not at all. False: `error` is one sentence.
//
// One that the program has used before gets what it lacks, as one of an older version does. What it has is never
// replaced, and what its user took out of a folder (a plug-in, say) does not come back: only a folder that is missing
// is filled. A language file is put in where there is none at all, since a second one would change the texts. What
// cannot be put in stays missing. Any other folder that holds something is left alone.
bool fillProgramFolder(const std::string& folder, const std::string& delivered, std::string& error);

}  // namespace tidvane::frontend
