#include "registry/delete_all_keys.h"

namespace tidvane::registry {

void DeleteAllKeys(platform::RegistryApi& registry, platform::HKey Root, const std::string& Key,
                   const std::string& SubKey, long& Result) {
    platform::HKey key = 0;
    // A failed open leaves the null handle, on which the removal itself fails: this is how "not found" shows.
    if (registry.RegOpenKeyExA(Root, Key, platform::kKeyAllAccess, key) != 0) key = 0;
    Result = registry.SHDeleteKeyA(key, SubKey);
    (void)registry.RegCloseKey(key);
}

}  // namespace tidvane::registry
