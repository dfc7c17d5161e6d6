// The environment of a session on the machine, put together from its registry as Windows does at a logon. The host's
// own environment plays no part.
#pragma once

#include <string>

#include "platform/environment.h"
#include "platform/machine/machine_registry.h"

namespace tidvane::platform::machine {

void fillEnvironment(const MachineRegistry& registry, Environment& environment);

// The text with its variables replaced; those that are unknown stay.
std::string expanded(Environment& environment, const std::string& text);

// A value of the registry, expanded. Empty if it is missing, or if a variable in it is unknown.
std::string expandedValue(const MachineRegistry& registry, Environment& environment, const std::string& key,
                          const std::string& name);

// The key of the user's hive, "User\<SID>\" in front of a path in it.
std::string userKey(const MachineRegistry& registry, const std::string& path);

}  // namespace tidvane::platform::machine
