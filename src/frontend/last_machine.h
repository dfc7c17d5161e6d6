// The machine that was chosen last, kept in the user's data directory.
#pragma once

#include <string>

namespace tidvane::frontend {

// Empty: none was chosen yet, or the file cannot be read. The directory may be gone by now.
std::string lastMachine(const std::string& userData);

// Replaced as a whole. False: it could not be written; the next start asks without a suggestion, no more.
bool rememberMachine(const std::string& userData, const std::string& directory);

}  // namespace tidvane::frontend
