// Entries of the own lists that a user of the windows adds, in whichever way.
#pragma once

#include "settings/program.h"

namespace tidvane::frontend {

// From now on the display is warned of each entry that is added and that a run would do nothing with, and the platform
// of each folder that no run may empty. To be called when the windows are on offer, before frmOptions is loaded.
void watchOwnLists(settings::Program& program);

}  // namespace tidvane::frontend
