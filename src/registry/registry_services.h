// What of the platform the registry's classes need.
#pragma once

#include "platform/platform.h"

namespace tidvane::registry {

struct RegistryServices {
    RegistryServices(platform::RegistryApi& theRegistry, platform::Environment& theEnvironment,
                     platform::SystemInfo& theSystem)
        : registry(theRegistry), environment(theEnvironment), system(theSystem) {}
    // Not explicit: whoever holds a platform just passes it.
    RegistryServices(const platform::Platform& platform)
        : registry(platform.registry), environment(platform.environment), system(platform.system) {}

    platform::RegistryApi& registry;
    platform::Environment& environment;  // expands REG_EXPAND_SZ
    platform::SystemInfo& system;        // code page, locale, the program's name
};

}  // namespace tidvane::registry
