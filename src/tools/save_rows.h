// Lists of the manager windows as text files.
#pragma once

#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::tools {

// Asks for a file and writes the rows into it, each on a line, in the code page of the machine. A cancelled question
// writes nothing. No error is shown.
void saveRows(settings::Program& program, const std::vector<std::string>& rows);

}  // namespace tidvane::tools
