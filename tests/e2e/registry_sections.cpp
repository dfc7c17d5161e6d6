#include "e2e/registry_sections.h"

#include <strings.h>

#include <algorithm>

#include "base/text.h"

namespace tidvane::tests {

std::vector<std::string> RegistrySection::valueLines() const {
    std::vector<std::string> result;
    for (const std::string& line : lines) {
        if (!line.starts_with("#time=")) result.push_back(line);
    }
    return result;
}

RegistrySections registrySections(const std::string& text) {
    RegistrySections result;
    RegistrySection* current = nullptr;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string line = text.substr(at, end - at);
        at = end + 1;
        if (line.starts_with('[')) {
            const std::string path = line.substr(1, line.rfind(']') - 1);
            result.order.push_back(path);
            current = &result.sections[path];
            current->header = line;
        } else if (current == nullptr) {
            result.beginning += line + "\n";
        } else if (!line.empty()) {
            current->lines.push_back(line);
        }
    }
    return result;
}

std::string sectionPath(const std::string& key) {
    return base::replaceAll(key, "\\", "\\\\");
}

bool isAtOrBelow(const std::string& section, const std::string& parent) {
    if (section.size() < parent.size() || ::strncasecmp(section.c_str(), parent.c_str(), parent.size()) != 0) {
        return false;
    }
    return section.size() == parent.size() || section.compare(parent.size(), 2, "\\\\") == 0;
}

}  // namespace tidvane::tests
