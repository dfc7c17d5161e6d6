// Lines of list files that come back as other entries than they read, as their user is told of them.
#pragma once

#include <string>
#include <vector>

#include "settings/own_entries.h"

namespace tidvane::frontend {

// Each line with its file and below it what is read of it, for the front of a question. Of many the first ones and how
// many there are more. Empty: there are none.
std::string tellSplitLines(const settings::Program& program, const std::vector<settings::SplitLine>& lines);

}  // namespace tidvane::frontend
