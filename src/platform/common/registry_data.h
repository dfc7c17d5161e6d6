// Value data between the two forms they have: UTF-16 on disk, code-page bytes at the ANSI calls. Only texts differ.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/code_page.h"

namespace tidvane::platform {

// REG_SZ, REG_EXPAND_SZ and REG_MULTI_SZ.
bool isTextType(std::uint32_t type);

// What an ANSI call was given, as it is stored. A text without its closing NUL gets one, as Windows does; an empty one
// stays without.
std::string storedData(std::uint32_t type, std::string_view ansi, const base::CodePage& codePage);
// What an ANSI call gives back. A text stored without its NUL comes without.
std::string ansiData(std::uint32_t type, std::string_view stored, const base::CodePage& codePage);

}  // namespace tidvane::platform
