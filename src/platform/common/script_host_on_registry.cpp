#include "platform/common/script_host_on_registry.h"

#include <array>
#include <optional>
#include <string_view>

#include "base/text.h"

namespace tidvane::platform {

namespace {

struct HiveName {
    std::string_view name;
    HKey hive;
};

// There is no short name for HKEY_USERS.
constexpr std::array kHiveNames{
    HiveName{"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT_},
    HiveName{"HKCR", HKEY_CLASSES_ROOT_},
    HiveName{"HKEY_CURRENT_USER", HKEY_CURRENT_USER_},
    HiveName{"HKCU", HKEY_CURRENT_USER_},
    HiveName{"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE_},
    HiveName{"HKLM", HKEY_LOCAL_MACHINE_},
    HiveName{"HKEY_USERS", HKEY_USERS_},
};

struct FullName {
    HKey hive = 0;
    std::string key;
    std::string value;
    bool isKey = false;  // the name ended in a backslash
};

std::optional<FullName> takenApart(const std::string& fullName) {
    const std::size_t first = fullName.find('\\');
    if (first == std::string::npos) return std::nullopt;
    FullName parts;
    for (const HiveName& known : kHiveNames) {
        if (base::equalNoCase(std::string_view(fullName).substr(0, first), known.name)) parts.hive = known.hive;
    }
    if (parts.hive == 0) return std::nullopt;
    const std::size_t last = fullName.rfind('\\');
    parts.isKey = last + 1 == fullName.size();
    parts.value = fullName.substr(last + 1);
    if (last > first) parts.key = fullName.substr(first + 1, last - first - 1);
    return parts;
}

}  // namespace

bool ScriptHostOnRegistry::RegWrite(const std::string& fullName, const std::string& text) {
    const auto parts = takenApart(fullName);
    HKey key = 0;
    bool created = false;
    if (!parts || registry_.RegCreateKeyExA(parts->hive, parts->key, kKeyAllAccess, key, created) != 0) return false;
    const bool good = registry_.RegSetValueExA(key, parts->value, kRegSz, codePage_.fromUtf8(text) + '\0') == 0;
    (void)registry_.RegCloseKey(key);
    return good;
}

bool ScriptHostOnRegistry::RegDelete(const std::string& fullName) {
    const auto parts = takenApart(fullName);
    if (!parts) return false;
    if (parts->isKey) return registry_.RegDeleteKeyA(parts->hive, parts->key) == 0;
    HKey key = 0;
    if (registry_.RegOpenKeyExA(parts->hive, parts->key, kKeyAllAccess, key) != 0) return false;
    const bool good = registry_.RegDeleteValueA(key, parts->value) == 0;
    (void)registry_.RegCloseKey(key);
    return good;
}

}  // namespace tidvane::platform
