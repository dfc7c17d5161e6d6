// Empties and removes a key that is given as one text.
#pragma once

#include <string>

#include "registry/registry_services.h"

namespace tidvane::registry {

// `Path`: the long name of a hive in any case, a backslash, the key. Every other text, a file path for one, names
// nothing and changes nothing. What cannot be removed stays, silently.
void ClearRegistryTree(const RegistryServices& services, const std::string& Path);

// Whether a text stands below one of those hives: its long name in any case, and a backslash.
bool namesRegistryKey(const std::string& path);

}  // namespace tidvane::registry
