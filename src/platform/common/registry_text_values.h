// The texts of the registry's text form: escapes and value lines, written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/common/registry_tree.h"

namespace tidvane::platform {

inline constexpr std::string_view kRegistryTextMark = "WINE REGISTRY Version 2";

// Appends a UTF-8 text in plain ASCII; the backslash and each sign of `special` get a backslash in front.
void appendEscaped(std::string& out, std::string_view text, std::string_view special);

// Appends `"name"=data` with its line end; long hexadecimal data go on in further lines.
void appendValueLine(std::string& out, const RegistryValue& value);

std::string hexadecimal(std::uint64_t number);

}  // namespace tidvane::platform
