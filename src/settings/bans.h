// The door of the own lists: which entries may not get in.
#pragma once

#include <cstddef>
#include <string>

#include "settings/program.h"

namespace tidvane::settings {

inline constexpr std::size_t kBanBlockSize = 10240;
inline constexpr const char* kBanMessage = "For system safety reasons this specific location has been banned.";

// True when a line of the file, ended by CR LF, ends with the text, or when the file starts with it. Case and blanks
// around the text do not matter; nothing is expanded and there are no wildcards. The file is searched block by block,
// and a line that straddles two blocks is only found where the file has it in capitals. False for a file that is
// missing or cannot be read.
bool FindInFile(Program& program, const std::string& file, const std::string& text, std::size_t blockSize);

// A hive of the registry, or one of its keys that hold everything else: nobody may list them for removal.
bool isProtectedRegistryEntry(const std::string& text);

}  // namespace tidvane::settings
