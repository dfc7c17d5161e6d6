// A Windows system in a directory of the host: a Wine prefix, or a machine of Tidvane's own of the same shape.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/machine/machine_registry.h"

namespace tidvane::platform::machine {

struct MachineDrive {
    char letter;  // upper case
    DriveType type;
    std::string hostFolder;
    FolderIdentity identity;  // of the folder when the machine was opened
};

// What a new machine is told about itself.
struct NewMachine {
    std::string user = "User";
    std::string computer = "TIDVANE";
};

class Machine {
public:
    // Read: the registry is never written back, and who else has the machine open does not matter.
    enum class Access { Read, Write };

    // Null: the directory is no Windows system, may not be written to, or somebody else has its registry open. `error`
    // is then one sentence that says what to do. For writing, the machine is locked against a second Tidvane until the
    // object goes.
    static std::unique_ptr<Machine> open(const std::string& directory, Access access, std::string& error);

    // Makes an empty machine (Windows 7) in a directory that does not exist yet or is empty. It appears complete or not
    // at all.
    static bool create(const std::string& directory, std::string& error, const NewMachine& description = {});

    // Whether the directory has the shape of a machine that can be opened.
    static bool isMachine(const std::string& directory);

    [[nodiscard]] const std::string& directory() const { return directory_; }
    [[nodiscard]] const std::vector<MachineDrive>& drives() const { return drives_; }
    MachineRegistry& registry() { return registry_; }

    // The open folder that is the drive's root, reached from the machine's open directory without following links.
    // Empty: it cannot be opened, or another folder stands in its place by now.
    [[nodiscard]] Handle openDrive(const MachineDrive& drive) const;

    // A machine that was opened for reading is taken for changes for a while, as if it had been opened for writing: the
    // same refusals, the same lock. Where the registry's files changed since they were read they are read anew, through
    // `replace` (see MachineRegistry), unless something waits to be written. False: `error` is one sentence. May be
    // called again while it is taken, as programs of others heed no lock of ours.
    bool take(const std::function<void(RegistryTree&&)>& replace, std::string& error);
    [[nodiscard]] bool taken() const { return access_ == Access::Write; }
    // From here on it is open for reading again, and others may take it.
    void release();
    // Empty: take() would not be refused for its rights or a Wine server. Otherwise its sentence.
    [[nodiscard]] std::string whyNotTaken() const;
    bool readAnew(const std::function<void(RegistryTree&&)>& replace, std::string& error) {
        return registry_.readAnew(handle_.get(), replace, error);
    }
    [[nodiscard]] bool registryIsCurrent() const { return registry_.isCurrent(handle_.get()); }

    // Writes the changed registry files back, each atomically. InUse, and nothing is written: another program changed
    // one of them, or has the registry open by now. Denied: opened for reading.
    Status commit(std::string& error);

private:
    Machine() = default;
    bool findDrives(std::string& error);
    void findDrive(char letter);
    [[nodiscard]] bool mayBeTaken(const std::string& shown, std::string& error) const;
    bool takeFor(const std::string& shown, std::string& error);
    bool lock(const std::string& directory, std::string& error);
    [[nodiscard]] Handle openBelow(const std::string& place, bool& listable) const;
    DriveType driveType(char letter) const;

    std::string directory_;
    Handle handle_;
    Handle lockedFile_;  // where the volume locks no folders
    Access access_ = Access::Read;
    MachineRegistry registry_;
    std::vector<MachineDrive> drives_;
};

}  // namespace tidvane::platform::machine
