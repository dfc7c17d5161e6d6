// What a preview shows: a table of what would go, step by step.
#pragma once

#include <ostream>

#include "console/json_report.h"

namespace tidvane::console {

// Steps with something in them alone, then what no step names, then the total and one line that says that nothing was
// removed. With details each entry stands below its step, folders with a backslash at their end; under the recycle
// method those that would not go into the bin are marked.
void writePreviewTable(std::ostream& out, const Report& report);

}  // namespace tidvane::console
