// What a folder holds, and how a size reads in the log.
#pragma once

#include <cstdint>
#include <string>

#include "base/locale.h"
#include "platform/file_system.h"

namespace tidvane::removal {

struct FolderCounters {
    std::uint64_t folders = 0;
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
};

// Adds the subfolders and files at all depths and sets the size. A folder that does not exist changes nothing; one
// whose size cannot be read as a whole (a subfolder refuses) leaves the counters as they are.
void FolderStats(platform::FileSystem& files, const std::string& Path, FolderCounters& counters);

// "0 Byte", "0.98 KB", "1.00 KB": the unit follows the number of decimal digits, the quotient powers of 1024.
std::string FormatSize(std::uint64_t Size, const base::Locale& locale);

// Natural logarithm of x over that of 10; 0 for x not above 0.
double Log10(double x);

}  // namespace tidvane::removal
