// Masks that a user types.
#pragma once

#include <string>

namespace tidvane::frontend {

// A name on a volume of Windows has no separator in it, and none is made of dots and blanks alone.
inline bool canMatchNothing(const std::string& mask) {
    return mask.find_first_of("\\/:") != std::string::npos || mask.find_first_not_of(". ") == std::string::npos;
}

}  // namespace tidvane::frontend
