#include "platform/memory/memory_shell.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/wildcard.h"
#include "platform/common/windows_path.h"

namespace tidvane::platform {
namespace {

constexpr int kInvalidParameter = 87;
// HRESULT of "the path was not found".
constexpr long kRootNotFound = static_cast<int>(0x80070003u);

std::string rootOf(const std::string& path) {
    WindowsPath parsed;
    return ok(parseWindowsPath(path, parsed)) ? base::upperCase(parsed.root) : std::string();
}

}  // namespace

void MemoryShell::putRecycled(const std::string& originalPath, std::string_view bytes) {
    RecycledItem item;
    item.originalPath = originalPath;
    item.bytes = bytes;
    item.entry = std::make_unique<memory::Node>();
    item.entry->name = originalPath.substr(originalPath.rfind('\\') + 1);
    item.entry->content->bytes = bytes;
    item.entry->content->length = bytes.size();
    item.totals = MemoryFiles::totalsOf(*item.entry);
    recycled.push_back(std::move(item));
}

std::string MemoryShell::SpecialFolder(int number) {
    const auto found = specialFolders.find(number);
    return found == specialFolders.end() ? std::string() : found->second;
}

Status MemoryShell::recycle(const std::string& path) {
    // Only fixed drives keep a bin; elsewhere the target stays where it is.
    if (files_.driveType(path) != DriveType::Fixed) return files_.has(path) ? Status::Denied : Status::NotFound;
    RecycledItem item;
    if (const Status status = files_.moveOut(path, item.entry); !ok(status)) return status;
    item.originalPath = path;
    item.isFolder = item.entry->isFolder();
    item.bytes = item.entry->content->bytes;
    item.totals = MemoryFiles::totalsOf(*item.entry);
    recycled.push_back(std::move(item));
    return Status::Ok;
}

Status MemoryShell::removeForGood(const std::string& path) {
    if (files_.hasFolder(path)) return files_.DeleteFolder(path, true);
    if ((files_.attributesOf(path) & attribute::ReadOnly) != 0) (void)files_.SetAttributes(path, attribute::Normal);
    return files_.RemoveFile(path);
}

int MemoryShell::SHFileOperationA(const ShFileOp& operation) {
    fileOperations.push_back(operation);
    if (fileOperationFails != 0) return fileOperationFails;
    if (operation.wFunc != kFoDelete) return kInvalidParameter;
    std::string from;
    if (!onePathOf(operation, from)) return static_cast<int>(Status::InvalidName);
    WindowsPath path;
    if (!ok(parseWindowsPath(from, path)) || path.emptyLastPart) return static_cast<int>(Status::InvalidName);
    const bool undo = (operation.fFlags & kFofAllowUndo) != 0;
    const auto removeOne = [this, undo](const std::string& one) { return undo ? recycle(one) : removeForGood(one); };
    const std::string mask = path.names.back();
    if (!base::hasWildcard(mask)) return static_cast<int>(removeOne(path.text()));

    path.names.pop_back();
    const std::string folder = path.text();
    std::vector<FolderEntry> entries;
    if (const Status status = files_.ReadFolder(folder, entries); !ok(status)) return static_cast<int>(status);
    Status first = Status::NotFound;
    for (const FolderEntry& entry : entries) {
        const std::string one = base::withBackslash(folder) + entry.name;
        if (!base::wildcardMatch(mask, entry.name) || (files_.attributesOf(one) & attribute::Directory) != 0) continue;
        if (first == Status::NotFound) first = Status::Ok;
        const Status status = removeOne(one);
        if (ok(first)) first = status;
    }
    return static_cast<int>(first);
}

// `drive`: "C:", or empty for all drives.
bool MemoryShell::knowsRoot(const std::string& root, std::string& drive) {
    drive.clear();
    if (root.empty()) return true;
    drive = rootOf(base::withBackslash(root));
    const std::vector<Drive> drives = files_.Drives();
    return std::any_of(drives.begin(), drives.end(),
                       [&drive](const Drive& one) { return drive.size() == 2 && drive[0] == one.letter; });
}

long MemoryShell::SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) {
    if (queryFails != 0) return queryFails;
    std::string drive;
    if (!knowsRoot(root, drive)) return kRootNotFound;
    info = {};
    for (const RecycledItem& item : recycled) {
        if (!drive.empty() && rootOf(item.originalPath) != drive) continue;
        ++info.items;
        info.bytes += item.totals.bytes;
    }
    return 0;
}

long MemoryShell::SHEmptyRecycleBinA(std::uint64_t /*hwnd*/, const std::string& root, unsigned flags) {
    if (emptyFails != 0) return emptyFails;
    std::string drive;
    if (!knowsRoot(root, drive)) return kRootNotFound;
    if ((flags & kSherbNoConfirmation) == 0 && !confirmsEmptying) return kErrorCancelled;
    emptiedRoots.push_back(root);
    std::erase_if(recycled, [this, &drive](RecycledItem& item) {
        if (!drive.empty() && rootOf(item.originalPath) != drive) return false;
        files_.dropMovedOut(item.originalPath, std::move(item.entry));
        return true;
    });
    return 0;
}

int MemoryShell::ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int show) {
    started.push_back({verb, file, parameters, directory, show, false});
    return shellExecuteResult;
}

bool MemoryShell::ShellExecuteExAndWait(const std::string& verb, const std::string& file, const std::string& parameters,
                                        const std::string& directory, int show) {
    started.push_back({verb, file, parameters, directory, show, true});
    return shellExecuteExStarts;
}

}  // namespace tidvane::platform
