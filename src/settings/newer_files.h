// A question in front of copies that would write over newer files: a backup into a folder that holds a later one, or
// its return.
#pragma once

#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::settings {

// Full paths of the machine.
struct PlannedCopy {
    std::string from;
    std::string to;
};

// For a Yes/No box with No as its default; empty where there is nothing to ask. A target that is missing, or not newer
// than its source, is no matter.
std::string questionOfNewerFiles(Program& program, const std::vector<PlannedCopy>& copies);

}  // namespace tidvane::settings
