// Looks for the folders of Firefox, Opera, Chrome and Safari and writes them into the windows that keep them.
#pragma once

#include "settings/frmOptions.h"

namespace tidvane::settings {

// Runs inside the load of the options window. A browser whose window switches the search off keeps what it has. A
// folder that is there fills its boxes; one that is not leaves them as they were stored, and no tick is ever taken
// back. Then each browser's task boxes are on offer if its window says that the folders are known.
void DetectBrowsers(Program& program, frmOptions& options);

}  // namespace tidvane::settings
