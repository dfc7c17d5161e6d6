#include "registry/clear_registry_tree.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "registry/cRegistry.h"

namespace tidvane::registry {

namespace {

constexpr std::array<std::pair<std::string_view, platform::HKey>, 4> kHives{{
    {"HKEY_CLASSES_ROOT", platform::HKEY_CLASSES_ROOT_},
    {"HKEY_CURRENT_USER", platform::HKEY_CURRENT_USER_},
    {"HKEY_LOCAL_MACHINE", platform::HKEY_LOCAL_MACHINE_},
    {"HKEY_USERS", platform::HKEY_USERS_},
}};

// A path with any other first part has no hive; nothing is found then.
platform::HKey hiveOf(const std::string& path) {
    const std::string first = base::upperCase(path.substr(0, path.find('\\')));
    for (const auto& [name, hive] : kHives) {
        if (first == name) return hive;
    }
    return 0;
}

// Everything behind the first backslash.
std::string keyOf(const std::string& path) {
    return path.substr(path.find('\\') + 1);
}

// The registry itself goes no deeper. Only a link to a key above itself leads further down, and without end.
constexpr int kDeepestKey = 512;

// True: something was removed.
bool clearTree(const RegistryServices& services, const std::string& path, int depth) {
    if (depth > kDeepestKey) return false;
    // The platform may refuse places that no one may empty. It has to be asked before the first leaf goes.
    const platform::HKey hive = hiveOf(path);
    if (hive != 0 && !services.registry.mayClearTree(hive, keyOf(path))) return false;

    cRegistry key(services);
    key.setClassKey(hive);
    key.setSectionKey(keyOf(path));

    bool removedAny = false;
    for (;;) {
        std::vector<std::string> subKeys;
        std::vector<std::string> valueNames;
        int subKeyCount = 0;
        int valueCount = 0;
        key.EnumerateSections(subKeys, subKeyCount);
        key.EnumerateValues(valueNames, valueCount);

        bool removedNow = false;
        for (const std::string& name : valueNames) {
            key.setValueKey(name);
            removedNow = key.DeleteValue() || removedNow;
        }
        if (subKeyCount == 0) return key.DeleteKey() || removedNow || removedAny;

        // Depth first, always through the first subkey that is left. One that cannot be removed comes up again: a pass
        // that removed nothing would be repeated for ever.
        removedNow = clearTree(services, path + "\\" + subKeys.front(), depth + 1) || removedNow;
        removedAny = removedAny || removedNow;
        if (!removedNow) return removedAny;
    }
}

}  // namespace

void ClearRegistryTree(const RegistryServices& services, const std::string& Path) {
    // A hive's name alone names no key: nothing is found.
    if (Path.find('\\') == std::string::npos) return;
    (void)clearTree(services, Path, 0);
}

bool namesRegistryKey(const std::string& path) {
    return path.find('\\') != std::string::npos && hiveOf(path) != 0;
}

}  // namespace tidvane::registry
