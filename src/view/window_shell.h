// The shell of a program with windows: what a person asks to see is shown by the desktop.
#pragma once

#include <functional>
#include <string>

#include "platform/shell.h"

namespace tidvane::view {

// A machine in a directory starts nothing. A page on the net and a folder of the machine can be shown all the same, by
// the user's own browser and file manager; programs of the machine and files that would start some are left alone.
class WindowShell final : public platform::Shell {
public:
    explicit WindowShell(platform::Shell& shell) : shell_(shell) {}

    // Where a folder of the machine lies on the host; empty: nowhere, or it is none.
    std::function<std::string(const std::string& folder)> hostFolderOf;
    // Shows an address or a folder of the host. False: the desktop has nothing that could.
    std::function<bool(const std::string& target)> show;

    int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int showAs) override;

    bool ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int showAs) override {
        return shell_.ShellExecuteExAndWait(verb, file, parameters, directory, showAs);
    }
    std::string SpecialFolder(int number) override { return shell_.SpecialFolder(number); }
    std::string TemporaryFolder() override { return shell_.TemporaryFolder(); }
    std::uint64_t GetForegroundWindow() override { return shell_.GetForegroundWindow(); }
    int SHFileOperationA(const platform::ShFileOp& operation) override { return shell_.SHFileOperationA(operation); }
    long SHQueryRecycleBinA(const std::string& root, platform::RecycleBinInfo& info) override {
        return shell_.SHQueryRecycleBinA(root, info);
    }
    long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) override {
        return shell_.SHEmptyRecycleBinA(hwnd, root, flags);
    }

private:
    platform::Shell& shell_;
};

// By the user's own browser and file manager.
bool showOnDesktop(const std::string& target);

}  // namespace tidvane::view
