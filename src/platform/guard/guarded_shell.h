// A shell with the same refusals for its file operation; and it starts nothing by an empty name.
#pragma once

#include <string>

#include "platform/guard/guard.h"
#include "platform/shell.h"

namespace tidvane::platform {

class GuardedShell final : public Shell {
public:
    GuardedShell(Shell& shell, Guard& guard) : shell_(shell), guard_(guard) {}

    // 5 for a protected place, and for a mask in one that leaves no name out; 123 for a path that is not a full one or
    // ends in a backslash, and for a pFrom that is not one path and two NULs.
    int SHFileOperationA(const ShFileOp& operation) override;
    // An empty file would open the current folder; here it is not found (2).
    int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int show) override;
    bool ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int show) override;

    std::string SpecialFolder(int number) override { return shell_.SpecialFolder(number); }
    std::string TemporaryFolder() override { return shell_.TemporaryFolder(); }
    std::uint64_t GetForegroundWindow() override { return shell_.GetForegroundWindow(); }
    long SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) override {
        return shell_.SHQueryRecycleBinA(root, info);
    }
    long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) override {
        return shell_.SHEmptyRecycleBinA(hwnd, root, flags);
    }

private:
    Shell& shell_;
    Guard& guard_;
};

}  // namespace tidvane::platform
