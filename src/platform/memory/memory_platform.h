// A whole machine in memory, for tests: set it up, hand platform() to the program, look at what is left.
#pragma once

#include <string>
#include <vector>

#include "platform/common/environment_in_map.h"
#include "platform/common/profile_files_on_files.h"
#include "platform/common/registry_in_tree.h"
#include "platform/common/registry_tree.h"
#include "platform/common/script_host_on_registry.h"
#include "platform/guard/guard.h"
#include "platform/guard/guarded_file_system.h"
#include "platform/guard/guarded_registry.h"
#include "platform/guard/guarded_shell.h"
#include "platform/guard/protected_places.h"
#include "platform/memory/memory_browser_cache.h"
#include "platform/memory/memory_clock.h"
#include "platform/memory/memory_files.h"
#include "platform/memory/memory_network.h"
#include "platform/memory/memory_processes.h"
#include "platform/memory/memory_shell.h"
#include "platform/memory/memory_system.h"
#include "platform/platform.h"
#include "platform/removal_counter.h"
#include "platform/warnings.h"

namespace tidvane::platform {

// A Windows 7 in English with one user, Anna; code page 1252; noon of 3 November 2009. Drive C: is fixed, 100 GB with
// 40 GB free. The folders that the shell answers exist, and so do C:\Windows\Temp and the program's own folder,
// C:\Program Files\Tidvane, without a file in it.
//
// The members are the bare services, to script and to inspect; platform() gives them behind the guards.
class MemoryPlatform {
public:
    MemoryPlatform();
    MemoryPlatform(const MemoryPlatform&) = delete;
    MemoryPlatform& operator=(const MemoryPlatform&) = delete;

    Platform platform();

    // What the guards told.
    std::vector<Warning> warnings;

    RemovalCounter removed;
    MemoryClock clock;
    MemoryEvents events;
    MemoryFiles files{removed};
    MemoryShell shell{files};
    MemorySystem system;
    MemoryProcesses processes{clock};
    MemorySession session;
    EnvironmentInMap environment;
    MemoryBrowserCache browserCache;
    RegistryTree registryTree;
    RegistryInTree registry{registryTree, removed};

    ProtectedPlaces protectedPlaces{system, shell};
    Guard guard{protectedPlaces, files, removed, [this](const Warning& warning) { warnings.push_back(warning); }};
    GuardedRegistry guardedRegistry{registry, removed, [this](const Warning& warning) { warnings.push_back(warning); }};
    GuardedFileSystem guardedFiles{files, guard};
    GuardedShell guardedShell{shell, guard};
    ProfileFilesOnFiles profiles{guardedFiles, base::CodePage(1252)};
    MemoryNetwork network{guardedFiles};
    MemoryRestorePoints restorePoints;
    ScriptHostOnRegistry scriptHost{guardedRegistry, 1252};

private:
    void furnish();
};

}  // namespace tidvane::platform
