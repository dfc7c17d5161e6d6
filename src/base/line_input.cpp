#include "base/line_input.h"

namespace tidvane::base {

std::string_view takeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\r');
    const std::string_view line = rest.substr(0, end);
    if (end == std::string_view::npos) {
        rest = {};
    } else {
        const bool pair = end + 1 < rest.size() && rest[end + 1] == '\n';
        rest.remove_prefix(end + (pair ? 2 : 1));
    }
    return line;
}

}  // namespace tidvane::base
