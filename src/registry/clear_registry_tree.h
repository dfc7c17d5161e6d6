// Empties and removes a key that is given as one text.
#pragma once

#include <string>

#include "registry/registry_services.h"

namespace tidvane::registry {

// `Path`: the long name of a hive in any case, a backslash, the key. Every other text, a file path for one, names
// nothing and changes nothing. What cannot be removed stays, silently.
void ClearRegistryTree(const RegistryServices& services, const std::string& Path);

}  // namespace tidvane::registry
