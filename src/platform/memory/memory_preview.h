// A preview of a machine in memory, beside the machine itself: what is tried out on the one changes nothing on the
// other, so that a test can do both and compare.
#pragma once

#include <vector>

#include "platform/memory/memory_platform.h"
#include "platform/memory/memory_preview_shell.h"
#include "platform/preview/preview_file_system.h"
#include "platform/preview/preview_services.h"

namespace tidvane::platform {

// Registry, environment and browser cache are copies as they are when it is made; files and the bin are looked at when
// they are asked for.
class MemoryPreview {
public:
    // The machine has to outlive it.
    explicit MemoryPreview(MemoryPlatform& previewed) : machine(previewed) {}
    MemoryPreview(const MemoryPreview&) = delete;
    MemoryPreview& operator=(const MemoryPreview&) = delete;

    Platform platform() {
        return Platform{guardedFiles,  profiles,    guardedRegistry, guardedShell,   processes,
                        session,       environment, browserCache,    machine.system, network,
                        restorePoints, scriptHost,  machine.clock,   machine.events, removed};
    }

    MemoryPlatform& machine;
    std::vector<Warning> warnings;
    RemovalCounter removed;
    PreviewFileSystem files{machine.files, removed, [this] { return machine.files.timeOfNewEntries; }};
    MemoryPreviewShell shell{machine.shell, files, removed};
    EnvironmentInMap environment{machine.environment};
    MemoryBrowserCache browserCache{machine.browserCache};
    RegistryTree registryTree{machine.registryTree.copy()};
    RegistryInTree registry{registryTree, removed};
    PreviewProcesses processes{browserCache, PreviewProcesses::Starts::AsIfEnded};
    PreviewSession session;
    PreviewNetwork network;
    PreviewRestorePoints restorePoints;

    ProtectedPlaces protectedPlaces{machine.system, shell};
    Guard guard{protectedPlaces, files, removed, [this](const Warning& warning) { warnings.push_back(warning); }};
    GuardedRegistry guardedRegistry{registry, removed, [this](const Warning& warning) { warnings.push_back(warning); }};
    GuardedFileSystem guardedFiles{files, guard};
    GuardedShell guardedShell{shell, guard};
    ProfileFilesOnFiles profiles{guardedFiles, base::CodePage(1252)};
    ScriptHostOnRegistry scriptHost{guardedRegistry, 1252};
};

}  // namespace tidvane::platform
