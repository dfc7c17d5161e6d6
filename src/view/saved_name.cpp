#include "view/saved_name.h"

#include <vector>

namespace tidvane::view {

namespace {

constexpr const char* kUsual = ".txt";

std::vector<std::string> partsOf(const std::string& filter) {
    std::vector<std::string> parts(1);
    for (const char sign : filter) {
        if (sign == '|') {
            parts.emplace_back();
        } else {
            parts.back() += sign;
        }
    }
    return parts;
}

// ".txt" of "*.txt;*.log"; nothing of "*.*".
std::string extensionOf(const std::string& filter, int row) {
    const std::vector<std::string> parts = partsOf(filter);
    const std::size_t at = 2 * static_cast<std::size_t>(row) + 1;
    if (row < 0 || at >= parts.size()) return {};
    const std::string mask = parts[at].substr(0, parts[at].find(';'));
    const std::size_t dot = mask.find_last_of('.');
    const std::string extension = dot == std::string::npos ? std::string() : mask.substr(dot);
    return extension.size() < 2 || extension.find_first_of("*?") != std::string::npos ? std::string() : extension;
}

}  // namespace

std::string withExtension(const std::string& path, const std::string& filter, int row) {
    const std::size_t slash = path.find_last_of("/\\");
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.find_last_of('.');
    const bool endsInDot = dot != std::string::npos && dot + 1 == name.size();
    if (name.empty() || (dot != std::string::npos && dot > 0 && !endsInDot)) return path;
    std::string extension = extensionOf(filter, row);
    if (extension.empty()) extension = kUsual;
    return endsInDot ? path + extension.substr(1) : path + extension;
}

}  // namespace tidvane::view
