// Replaces %NAME% in a text.
#pragma once

#include <cstddef>
#include <string>

#include "base/code_page.h"
#include "platform/environment.h"

namespace tidvane::platform {

// The rules of ExpandEnvironmentStringsA. The name of a variable reaches to the next "%"; an unknown one stays with its
// percent signs; values are not looked at again. The result is the number of code-page bytes needed, the closing NUL
// included. `output` is the text, or empty where it needs more than `size` bytes: a path cut short names another file.
std::size_t expandEnvironmentStrings(Environment& environment, const base::CodePage& page, const std::string& text,
                                     std::size_t size, std::string& output);

}  // namespace tidvane::platform
