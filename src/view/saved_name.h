// What a file is called that is saved under a name its user has typed.
#pragma once

#include <string>

namespace tidvane::view {

// The path, with the extension of the filter's row ("Texts|*.txt|All|*.*", rows from 0) where its last name has none;
// a filter that names none makes texts.
std::string withExtension(const std::string& path, const std::string& filter, int row);

}  // namespace tidvane::view
