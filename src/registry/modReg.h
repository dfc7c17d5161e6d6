// Reads one text of the registry, apart from the class.
#pragma once

#include <optional>
#include <string>

#include "registry/registry_services.h"

namespace tidvane::registry {

// The text of a REG_SZ value up to its first NUL, in UTF-8. Nothing for any other type and for whatever is missing.
std::optional<std::string> ReadRegString(const RegistryServices& services, platform::HKey Root, const std::string& Key,
                                         const std::string& ValueName);

}  // namespace tidvane::registry
