// All services of one machine in one hand.
#pragma once

#include "platform/browser_cache.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/network.h"
#include "platform/processes.h"
#include "platform/profile_files.h"
#include "platform/registry_api.h"
#include "platform/removal_counter.h"
#include "platform/script_host.h"
#include "platform/shell.h"
#include "platform/system_info.h"
#include "platform/warnings.h"

namespace tidvane::platform {

// Whoever builds a platform keeps the services alive longer than the program that uses them.
struct Platform {
    FileSystem& files;
    ProfileFiles& profiles;
    RegistryApi& registry;
    Shell& shell;
    Processes& processes;
    Session& session;
    Environment& environment;
    BrowserCache& browserCache;
    SystemInfo& system;
    Network& network;
    RestorePoints& restorePoints;
    ScriptHost& scriptHost;
    Clock& clock;
    EventPump& events;
    RemovalCounter& removed;
};

}  // namespace tidvane::platform
