// The gain of a run: the free space of one drive before and after.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::app {

// Notes the free space of a drive ("C:") in the results window and answers it as a number of single precision.
float noteFreeSpaceBefore(settings::Program& program, const std::string& drive);

// Measures again, writes the block under `heading` to the log and fills the results window; shows it first if the
// extended settings say so.
void reportDiskStatistics(settings::Program& program, const std::string& drive, float before,
                          const std::string& heading);

}  // namespace tidvane::app
