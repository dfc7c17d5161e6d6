// A registry file in text form cut into its keys, by the least that can be known about the form: what a cleaning may
// and may not change in it is compared byte by byte.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace tidvane::tests {

struct RegistrySection {
    std::string header;              // "[path] time"
    std::vector<std::string> lines;  // below it, those that begin with "#" too; no empty ones

    // Without what tells when the key was written.
    [[nodiscard]] std::vector<std::string> valueLines() const;
};

struct RegistrySections {
    std::string beginning;                            // everything in front of the first key
    std::vector<std::string> order;                   // the paths as they stand between the brackets
    std::map<std::string, RegistrySection> sections;  // by path
};

RegistrySections registrySections(const std::string& text);

// "Software\Name" as the path between the brackets. For names of ASCII letters, digits and blanks.
std::string sectionPath(const std::string& key);

// Whether the path between the brackets is this one's or lies below it. Case does not count.
bool isAtOrBelow(const std::string& section, const std::string& parent);

}  // namespace tidvane::tests
