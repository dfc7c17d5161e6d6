// The shell of a program with windows: what a person asks to see is shown by the desktop.
#pragma once

#include <functional>
#include <string>

#include "platform/shell.h"

namespace tidvane::view {

// A machine in a directory starts nothing. A page on the net, a folder of the machine and a plug-in, which is a text of
// the program's own, can be shown all the same, by the user's own browser, file manager and editor; programs of the
// machine and files that would start some are left alone.
class WindowShell final : public platform::Shell {
public:
    explicit WindowShell(platform::Shell& shell) : shell_(shell) {}

    // Where a folder of the machine lies on the host; empty: nowhere, or it is none.
    std::function<std::string(const std::string& folder)> hostFolderOf;
    // The same of a file.
    std::function<std::string(const std::string& file)> hostFileOf;
    // Where the plug-ins lie on the machine, with its trailing backslash.
    std::string plugInFolder;
    // Shows an address, a folder or a text of the host. False: the desktop has nothing that could.
    std::function<bool(const std::string& target)> show;
    // What of the machine or of the net was to be shown, and was not.
    std::function<void(const std::string& target)> onNotShown;
    // Asked in front of an emptying that is to be agreed to. Empty: the platform asks, or says no.
    std::function<bool()> agreesToEmpty;

    // False: there is no such folder.
    bool showFolder(const std::string& folder);

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
    // Nothing is asked about a bin that is empty.
    long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) override;

private:
    [[nodiscard]] std::string shownTarget(const std::string& file) const;
    [[nodiscard]] bool isPlugIn(const std::string& file) const;
    platform::Shell& shell_;
};

// By the user's own browser, file manager and editor.
bool showOnDesktop(const std::string& target);

}  // namespace tidvane::view
