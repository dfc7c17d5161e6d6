#include "platform/common/protected_keys.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/text.h"

namespace tidvane::platform {

namespace {

constexpr std::array<std::string_view, 4> kFirstLevel{"Software", "System", "SAM", "Security"};

std::vector<std::string_view> partsOf(std::string_view path) {
    path = path.substr(0, path.find('\0'));  // the calls see no further
    std::vector<std::string_view> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (end > 0) parts.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

// Below the top of a machine's or a user's hive.
bool isProtectedBelowHive(const std::vector<std::string_view>& parts, std::size_t from) {
    const std::size_t count = parts.size() - from;
    if (count == 0) return true;
    if (count == 1) {
        return std::any_of(kFirstLevel.begin(), kFirstLevel.end(),
                           [&](std::string_view name) { return base::equalNoCase(parts[from], name); });
    }
    // HKEY_CLASSES_ROOT under its other name, and the 32-bit halves of both.
    if (!base::equalNoCase(parts[from], "Software")) return false;
    const bool half = base::equalNoCase(parts[from + 1], "Wow6432Node");
    if (count == 2) return half || base::equalNoCase(parts[from + 1], "Classes");
    return count == 3 && half && base::equalNoCase(parts[from + 2], "Classes");
}

}  // namespace

bool isProtectedKey(HKey hive, std::string_view path) {
    const std::vector<std::string_view> parts = partsOf(path);
    switch (hive) {
        case HKEY_CLASSES_ROOT_:
            return parts.empty();
        case HKEY_CURRENT_USER_:
        case HKEY_LOCAL_MACHINE_:
        case HKEY_CURRENT_CONFIG_:
            return isProtectedBelowHive(parts, 0);
        case HKEY_USERS_:
            return parts.empty() || isProtectedBelowHive(parts, 1);
        default: {
            // Every other predefined handle: at least its root.
            constexpr HKey kPredefined = 0x80000000u;
            return (hive & ~HKey{0xFF}) == kPredefined && parts.empty();
        }
    }
}

}  // namespace tidvane::platform
