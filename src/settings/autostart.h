// The registry value that starts the program with Windows.
#pragma once

#include <string>
#include <string_view>

#include "settings/frmOptions.h"

namespace tidvane::settings {

// The two roots that the value may lie under; the rows of cboAutoStart.
inline constexpr std::string_view kMachineRoot = "HKEY_LOCAL_MACHINE";
inline constexpr std::string_view kUserRoot = "HKEY_CURRENT_USER";

// Full name of the value under a root.
std::string autostartValue(const Program& program, std::string_view root);

// As the options say: on, the value is written under the chosen root, and one under the other root stays until the
// option is turned off; off, it goes from both. What cannot be written or is not there is passed over.
void applyAutostart(Program& program, const frmOptions& options);

}  // namespace tidvane::settings
