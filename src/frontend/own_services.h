// The services of a platform with a front end's own in the place of some.
#pragma once

#include "platform/platform.h"

namespace tidvane::frontend {

// Null: the platform's stays.
struct OwnServices {
    platform::ProfileFiles* profiles = nullptr;
    platform::Shell* shell = nullptr;
    platform::Processes* processes = nullptr;
    platform::Clock* clock = nullptr;
    platform::EventPump* events = nullptr;
};

inline platform::Platform withOwn(const platform::Platform& platform, const OwnServices& own) {
    const auto chosen = [](auto* mine, auto& theirs) -> auto& {
        return mine != nullptr ? *mine : theirs;
    };
    return {platform.files,
            chosen(own.profiles, platform.profiles),
            platform.registry,
            chosen(own.shell, platform.shell),
            chosen(own.processes, platform.processes),
            platform.session,
            platform.environment,
            platform.browserCache,
            platform.system,
            platform.network,
            platform.restorePoints,
            platform.scriptHost,
            chosen(own.clock, platform.clock),
            chosen(own.events, platform.events),
            platform.removed};
}

}  // namespace tidvane::frontend
