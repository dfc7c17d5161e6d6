// The shell of a preview of the memory machine: it answers as the machine's own, and moves, empties and starts nothing.
#pragma once

#include <string>
#include <vector>

#include "platform/memory/memory_shell.h"
#include "platform/preview/preview_file_system.h"

namespace tidvane::platform {

class MemoryPreviewShell final : public Shell {
public:
    MemoryPreviewShell(MemoryShell& shell, PreviewFileSystem& files, RemovalCounter& counter)
        : shell_(shell), files_(files), counter_(counter) {}

    std::string SpecialFolder(int number) override { return shell_.SpecialFolder(number); }
    std::string TemporaryFolder() override { return shell_.TemporaryFolder(); }
    std::uint64_t GetForegroundWindow() override { return shell_.GetForegroundWindow(); }
    int SHFileOperationA(const ShFileOp& operation) override;
    // What lies in the machine's bin, and what this preview would have put there.
    long SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) override;
    long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) override;
    int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int show) override;
    bool ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int show) override;

private:
    struct Unit {
        std::string drive;
        FolderTotals totals;
    };

    Status removeOne(const std::string& path, bool undo);
    void putInBin();
    bool knowsRoot(const std::string& root, std::string& drive);

    MemoryShell& shell_;
    PreviewFileSystem& files_;
    RemovalCounter& counter_;
    std::vector<Unit> bin_;
    bool binRead_ = false;
};

}  // namespace tidvane::platform
