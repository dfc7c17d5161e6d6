// All services of a machine in a directory, behind the guards.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/common/browser_cache_on_files.h"
#include "platform/common/environment_in_map.h"
#include "platform/common/profile_files_on_files.h"
#include "platform/common/registry_in_tree.h"
#include "platform/common/script_host_on_registry.h"
#include "platform/guard/guard.h"
#include "platform/guard/guarded_file_system.h"
#include "platform/guard/guarded_registry.h"
#include "platform/guard/guarded_shell.h"
#include "platform/machine/machine.h"
#include "platform/machine/machine_files.h"
#include "platform/machine/machine_services.h"
#include "platform/machine/machine_shell.h"
#include "platform/machine/machine_system.h"
#include "platform/platform.h"
#include "platform/preview/preview_file_system.h"
#include "platform/preview/preview_services.h"

namespace tidvane::platform::machine {

struct MachineOptions {
    std::string programFolder;  // on the host; it has to exist
    std::string arguments;      // the raw argument text of this start
    WarningSink warn;           // may be empty
    // Everything is tried out and nothing done: no file, no registry file and no program is touched, commit() stores
    // nothing and says Ok. The counter ends at what the same calls would really have removed.
    bool preview = false;
    // The machine is open for reading and shared with others: the first change of the registry takes it (see take()).
    bool takeAtFirstChange = false;
};

// Where the program's folder is shown on the machine.
inline constexpr const char* kProgramPlace = "Program Files\\Tidvane";  // below drive C:

class MachinePlatform {
public:
    // Null: `error` is one sentence that says what to do.
    static std::unique_ptr<MachinePlatform> make(std::unique_ptr<Machine> machine, const MachineOptions& options,
                                                 std::string& error);

    Platform platform();
    Machine& machine() { return *machine_; }
    // Past the guards, and past a preview.
    MachineFiles& files() { return files_; }
    HookedEvents& events() { return events_; }
    // The folders of the user's recycle bins that are there, as paths of the machine.
    std::vector<std::string> recycleBins() { return shell_.RecycleBinFolders(); }
    void setWarningSink(const WarningSink& warn);

    // Takes the machine for changes until release(); see Machine. The services see a registry that was read anew, and
    // open keys stay open.
    bool take(std::string& error);
    void release();
    // Drops what was changed in the registry and not written, for what lies on the disk. False: that cannot be read,
    // and nothing has changed.
    bool readAnew();

    // Writes the registry back. Nothing else does: whoever ends the program calls it, and a preview has no more to do
    // than to leave it out. What could not be written is told through the warning sink as well.
    Status commit(std::string& error);

private:
    MachinePlatform(std::unique_ptr<Machine> machine, const MachineOptions& options);

    ChangeLeave leaveForChange();

    std::unique_ptr<Machine> machine_;
    WarningSink warn_;
    std::string toldRefusal_;  // why the machine could not be taken; told once
    int codePage_;
    RemovalCounter removed_;
    EnvironmentInMap environment_;
    MachineFiles files_{removed_};
    std::unique_ptr<PreviewFileSystem> previewFiles_;
    // What every service works on: the machine's files, or a preview of them.
    FileSystem& servedFiles_;
    RegistryInTree registry_;
    MachineSystem system_;
    MachineShell shell_;
    ProtectedPlaces places_;
    Guard guard_;
    GuardedFileSystem guardedFiles_;
    GuardedShell guardedShell_;
    GuardedRegistry guardedRegistry_;
    ProfileFilesOnFiles profiles_;
    ScriptHostOnRegistry scriptHost_;
    BrowserCacheOnFiles browserCache_;
    MachineProcesses processes_;
    std::unique_ptr<PreviewProcesses> previewProcesses_;
    MachineSession session_;
    MachineNetwork network_;
    MachineRestorePoints restorePoints_;
    HostClock clock_;
    HookedEvents events_;
};

}  // namespace tidvane::platform::machine
