// Plug-ins by the names that a user types.
#pragma once

#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::console {

// Of the names, the one that is meant: as it is written, or else in any case of letters. Null: none of them.
const std::string* findName(const std::vector<std::string>& names, const std::string& typed);

// Names that may have been meant: those that hold the typed text and those a few letters away from it, at most five.
std::vector<std::string> nearNames(const std::vector<std::string>& names, const std::string& typed);

// Names of the plug-ins as their list shows them, in its order.
std::vector<std::string> plugInNames(settings::Program& program);

// One sentence for a name that no plug-in has.
std::string noSuchPlugIn(const std::vector<std::string>& names, const std::string& typed);

}  // namespace tidvane::console
