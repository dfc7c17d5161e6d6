// The one routine by which the registry tasks remove a key.
#pragma once

#include <string>

#include "platform/registry_api.h"

namespace tidvane::registry {

// Removes the tree `SubKey` below the key `Key` of the hive `Root`; an empty `SubKey` means `Key` itself. `Result` is 0
// when it is gone, otherwise the code of the removal. A parent that is not there and a key that is not there look
// alike.
void DeleteAllKeys(platform::RegistryApi& registry, platform::HKey Root, const std::string& Key,
                   const std::string& SubKey, long& Result);

}  // namespace tidvane::registry
