// The door of the own lists: which entries may not get in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "settings/program.h"

namespace tidvane::settings {

inline constexpr const char* kBanFile = "td_ban.dat";  // in the program's folder
inline constexpr std::size_t kBanBlockSize = 10240;
// Far above any real file: the delivered one has some 100 KB. What stands behind it does not protect, and a warning
// says so.
inline constexpr std::uint64_t kBanFileLimit = 16ULL * 1024 * 1024;
inline constexpr const char* kBanMessage = "For system safety reasons this specific location has been banned.";

// True when a line of the file, ended by CR LF, ends with the text, or when the file starts with it. Case and blanks
// around the text do not matter; nothing is expanded and there are no wildcards. The file is searched block by block,
// and a line that straddles two blocks is only found where the file has it in capitals. False for a file that is
// missing or cannot be read. Of a file longer than `limit` bytes only these are searched; the display is warned once.
bool FindInFile(Program& program, const std::string& file, const std::string& text, std::size_t blockSize,
                std::uint64_t limit = kBanFileLimit);

// The text as the system reads it: "\" for "/", one separator for several (but for the two of a share), "." and ".."
// resolved, and no blanks and dots behind a name. A text without a separator is no path and keeps all but its blanks.
std::string plainSpelling(const std::string& text);

// A key that the platform empties for no one (isProtectedKey): nobody may list it for removal.
bool isProtectedRegistryEntry(const std::string& text);

}  // namespace tidvane::settings
