// What happens when a command fails in a way that nobody foresaw.
#pragma once

#include <functional>

#include "console/commands.h"

namespace tidvane::console {

// Runs the command and answers with its status. An exception that leaves it becomes one sentence and the status of an
// unusable machine; where something was removed by then the registry is stored all the same, so that it and the files
// tell of one and the same run.
int withLastCatch(Session& session, const std::function<int()>& command);

}  // namespace tidvane::console
