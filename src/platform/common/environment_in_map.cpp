#include "platform/common/environment_in_map.h"

#include "platform/common/environment_expand.h"

namespace tidvane::platform {

std::optional<std::string> EnvironmentInMap::get(const std::string& name) {
    const auto found = variables_.find(name);
    if (found == variables_.end()) return std::nullopt;
    return found->second;
}

void EnvironmentInMap::set(const std::string& name, const std::string& value) {
    if (name.empty() || name.find('=', 1) != std::string::npos) return;
    variables_[name] = value;
}

void EnvironmentInMap::remove(const std::string& name) {
    variables_.erase(name);
}

std::vector<std::pair<std::string, std::string>> EnvironmentInMap::all() {
    return {variables_.begin(), variables_.end()};
}

std::size_t EnvironmentInMap::ExpandEnvironmentStringsA(const std::string& text, std::size_t size,
                                                        std::string& output) {
    return expandEnvironmentStrings(*this, page_, text, size, output);
}

}  // namespace tidvane::platform
