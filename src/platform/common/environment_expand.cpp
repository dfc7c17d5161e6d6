#include "platform/common/environment_expand.h"

namespace tidvane::platform {

std::size_t expandEnvironmentStrings(Environment& environment, const base::CodePage& page, const std::string& text,
                                     std::size_t size, std::string& output) {
    std::string expanded;
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t open = text.find('%', position);
        const std::size_t close = open == std::string::npos ? open : text.find('%', open + 1);
        if (close == std::string::npos) break;
        expanded.append(text, position, open - position);
        const auto value = environment.get(text.substr(open + 1, close - open - 1));
        if (value) {
            expanded += *value;
        } else {
            expanded.append(text, open, close - open + 1);
        }
        position = close + 1;
    }
    expanded.append(text, position, std::string::npos);

    const std::size_t needed = page.encodedLength(expanded) + 1;
    output.clear();
    if (needed <= size) output = std::move(expanded);
    return needed;
}

}  // namespace tidvane::platform
