// The gain of a run: the free space of one drive before and after.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::app {

struct FreeSpaceBefore {
    std::string text;  // as measured, in the system's number format
    float number = 0;  // the text as a number of single precision
};

// Notes the free space of a drive ("C:") in the results window.
FreeSpaceBefore noteFreeSpaceBefore(settings::Program& program, const std::string& drive);

// Measures again, writes the block under `heading` to the log and fills the results window; shows it first if the
// extended settings say so.
void reportDiskStatistics(settings::Program& program, const std::string& drive, const FreeSpaceBefore& freeBefore,
                          const std::string& heading);

}  // namespace tidvane::app
