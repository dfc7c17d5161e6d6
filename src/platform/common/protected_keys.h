// Which registry keys no one may empty.
#pragma once

#include <string_view>

#include "platform/registry_api.h"

namespace tidvane::platform {

// The hives, each user's hive, what their classes are kept in, and the first-level keys Software, System, SAM and
// Security, written in any case and with any number of backslashes. `hive` is a predefined handle; another one has no
// protected keys.
bool isProtectedKey(HKey hive, std::string_view path);

}  // namespace tidvane::platform
