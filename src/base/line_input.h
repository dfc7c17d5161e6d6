// Text files line by line, as line input reads them.
#pragma once

#include <string_view>

namespace tidvane::base {

// Takes the next line off a text, without its end: CR or CR LF. A lone LF belongs to the text.
std::string_view takeLine(std::string_view& rest);

}  // namespace tidvane::base
