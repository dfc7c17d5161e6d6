// Free and total space of a drive as texts.
#pragma once

#include <string>

#include "settings/program.h"

namespace tidvane::app {

// The number of the largest unit up to GB whose count is not below 1, cut to two decimals, in the system's number
// format. `unit` tells the unit; nobody asks for it, and the numbers are always labelled GB: intended. "0" for a drive
// that cannot be read.
std::string GetFreeSpaceText(settings::Program& program, const std::string& drive, std::string* unit = nullptr);
std::string GetTotalSpaceText(settings::Program& program, const std::string& drive, std::string* unit = nullptr);

// The text of a byte count, by the same rules.
std::string spaceText(std::uint64_t bytes, const base::Locale& locale, std::string* unit = nullptr);

}  // namespace tidvane::app
