// The shell of the memory machine: special folders, a recycle bin that tests can look into, a record of what was
// started.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/memory/memory_files.h"
#include "platform/shell.h"

namespace tidvane::platform {

// One unit of the recycle bin: a file, or a folder with everything in it.
struct RecycledItem {
    std::string originalPath;
    FolderTotals totals;  // the unit itself included
    bool isFolder = false;
    std::string bytes;  // content of a file
    std::unique_ptr<memory::Node> entry;
};

struct StartedDocument {
    std::string verb;
    std::string file;
    std::string parameters;
    std::string directory;
    int show = 0;
    bool waited = false;  // by ShellExecuteExAndWait
};

class MemoryShell final : public Shell {
public:
    explicit MemoryShell(MemoryFiles& files) : files_(files) {}

    // --- to script and to inspect ------------------------------------------------------------------------------------

    std::map<int, std::string> specialFolders;
    std::string temporaryFolder;
    std::uint64_t foregroundWindow = 0x10010;
    std::vector<RecycledItem> recycled;     // in the order in which they came
    std::vector<ShFileOp> fileOperations;   // every call of SHFileOperationA
    std::vector<std::string> emptiedRoots;  // every call of SHEmptyRecycleBinA that reached the bin
    std::vector<StartedDocument> started;
    int fileOperationFails = 0;     // other than 0: every SHFileOperationA answers it and does nothing
    long queryFails = 0;            // the same for SHQueryRecycleBinA
    long emptyFails = 0;            // and for SHEmptyRecycleBinA
    bool confirmsEmptying = false;  // what the user answers when SHEmptyRecycleBinA asks
    int shellExecuteResult = 42;
    bool shellExecuteExStarts = true;

    // Puts something into the bin as if it had been recycled before the program started.
    void putRecycled(const std::string& originalPath, std::string_view bytes);

    // --- the services ------------------------------------------------------------------------------------------------

    std::string SpecialFolder(int number) override;
    std::string TemporaryFolder() override { return temporaryFolder; }
    std::uint64_t GetForegroundWindow() override { return foregroundWindow; }
    int SHFileOperationA(const ShFileOp& operation) override;
    long SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) override;
    long SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) override;
    int ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                      const std::string& directory, int show) override;
    bool ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int show) override;

private:
    Status recycle(const std::string& path);
    Status removeForGood(const std::string& path);
    bool knowsRoot(const std::string& root, std::string& drive);

    MemoryFiles& files_;
};

}  // namespace tidvane::platform
