// The parts of the sample's tables, from the files that hold them.
#pragma once

#include "frontend/sample/sample_traces.h"

namespace tidvane::frontend {

struct SampleTables {
    std::span<const SampleFile> files;
    std::span<const SampleFolder> folders;
    std::span<const SampleValue> values;
    std::span<const SampleText> texts;
};

SampleTables windowsTraces();
SampleTables internetExplorerTraces();
SampleTables firefoxTraces();
SampleTables operaTraces();
SampleTables chromeTraces();
SampleTables safariTraces();
SampleTables officeTraces();
SampleTables plugInTraces();
SampleTables ownListTraces();

}  // namespace tidvane::frontend
