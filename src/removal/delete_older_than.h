// The walk that removes what has not been changed for a number of days.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "platform/platform.h"

namespace tidvane::removal {

// Files older than `MaxDays` calendar days at all depths go by the plain delete, whatever kill method is chosen; their
// attributes are cleared first. Folders go when they are empty, never by their own age. Names that begin with "." stay.
// A file whose date cannot be read stays.
void DeleteOlderThan(platform::Platform& platform, const std::string& Path, std::int16_t MaxDays);

// Which of a file's three times.
inline constexpr int kCreation = 0;
inline constexpr int kLastAccess = 1;
inline constexpr int kLastWrite = 2;

// "3/11/2009  07:05:09": day, month, year without padding, two blanks, the time; not converted to local time. Empty
// where there is no such entry or its times cannot be read.
std::string GetFileDate(platform::FileSystem& files, const std::string& Path, int Which);

// Reads such a text back, day first in every locale: read by the locale, 1 December would be 12 January somewhere, and
// young files would go.
std::optional<base::DateTime> parseFileDate(const std::string& text);

}  // namespace tidvane::removal
