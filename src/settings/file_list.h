// Fills a file list control from its folder and pattern.
#pragma once

#include "forms/simple_controls.h"
#include "settings/program.h"

namespace tidvane::settings {

// Files that match the pattern, sorted without regard to case; hidden and system files and folders are left out. A
// folder that cannot be read gives an empty list.
void refreshFileList(Program& program, forms::FileList& list);

}  // namespace tidvane::settings
