// The shell of a machine in a directory: its special folders and its recycle bins. Nothing is ever started.
#pragma once

#include <string>
#include <vector>

#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/machine/machine_registry.h"
#include "platform/machine/recycle_bin.h"
#include "platform/shell.h"

namespace tidvane::platform::machine {

class MachineShell final : public Shell {
public:
    // `environment`: the machine's own. `tell`: of what is taken into a bin; may be empty.
    MachineShell(const MachineRegistry& registry, Environment& environment, FileSystem& files, RemovalCounter& counter,
                 RecycleBin::Tell tell = {});

    // From "User Shell Folders" and "Shell Folders" of the user's registry or the machine's, otherwise the place that
    // Microsoft documents for the version of Windows.
    std::string SpecialFolder(int number) override;
    std::string TemporaryFolder() override;
    std::uint64_t GetForegroundWindow() override { return 0; }
    int SHFileOperationA(const ShFileOp& operation) override;
    long SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) override;
    long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) override;
    int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int show) override;
    bool ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int show) override;
    // The folders of the user's bins that are there, in the order of the drives.
    std::vector<std::string> RecycleBinFolders();

private:
    Status removeOne(const std::string& path, bool undo);
    // The letters of the fixed drives that a root names. False: there is no such drive.
    bool drivesOf(const std::string& root, std::string& letters);

    const MachineRegistry& registry_;
    Environment& environment_;
    FileSystem& files_;
    RecycleBin bin_;
    bool vista_;
};

}  // namespace tidvane::platform::machine
