#include "platform/memory/memory_preview_shell.h"

#include <algorithm>

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

Status MemoryPreviewShell::removeOne(const std::string& path, bool undo) {
    EntryDetails details;
    const Status there = files_.LookAt(path, details);
    if (undo) {
        const std::string root = rootOf(path);
        const std::vector<Drive> drives = files_.Drives();
        const bool fixed = std::any_of(drives.begin(), drives.end(), [&root](const Drive& drive) {
            return drive.type == DriveType::Fixed && root == std::string{drive.letter, ':'};
        });
        // Only fixed drives keep a bin; elsewhere the target stays where it is.
        if (!fixed) return ok(there) ? Status::Denied : Status::NotFound;
        putInBin();
        Unit unit{root, {}};
        const Status status = files_.takeOut(path, unit.totals);
        if (status == Status::Denied || status == Status::InUse) ++counter_.totals.failed;
        if (!ok(status)) return status;
        counter_.totals.files += unit.totals.files;
        counter_.totals.folders += unit.totals.folders;
        if (counter_.wantBytes) counter_.totals.bytes += unit.totals.bytes;
        bin_.push_back(unit);
        return Status::Ok;
    }
    if (ok(there) && details.kind == EntryKind::Folder) return files_.DeleteFolder(path, true);
    if (ok(there) && details.readOnly) (void)files_.SetAttributes(path, attribute::Normal);
    return files_.RemoveFile(path);
}

// What the machine's own bin holds counts as if it had come before.
void MemoryPreviewShell::putInBin() {
    if (binRead_) return;
    binRead_ = true;
    for (const RecycledItem& item : shell_.recycled) bin_.push_back({rootOf(item.originalPath), item.totals});
}

int MemoryPreviewShell::SHFileOperationA(const ShFileOp& operation) {
    if (shell_.fileOperationFails != 0) return shell_.fileOperationFails;
    if (operation.wFunc != kFoDelete) return kInvalidParameter;
    std::string from;
    if (!onePathOf(operation, from)) return static_cast<int>(Status::InvalidName);
    WindowsPath path;
    if (!ok(parseWindowsPath(from, path)) || path.emptyLastPart) return static_cast<int>(Status::InvalidName);
    const bool undo = (operation.fFlags & kFofAllowUndo) != 0;
    const std::string mask = path.names.back();
    if (!base::hasWildcard(mask)) return static_cast<int>(removeOne(path.text(), undo));

    path.names.pop_back();
    const std::string folder = path.text();
    std::vector<FolderEntry> entries;
    if (const Status status = files_.ReadFolder(folder, entries); !ok(status)) return static_cast<int>(status);
    Status first = Status::NotFound;
    for (const FolderEntry& entry : entries) {
        const std::string one = base::withBackslash(folder) + entry.name;
        unsigned attributes = 0;
        if (!base::wildcardMatch(mask, entry.name) || !ok(files_.GetAttributes(one, attributes))) continue;
        if ((attributes & attribute::Directory) != 0) continue;
        if (first == Status::NotFound) first = Status::Ok;
        const Status status = removeOne(one, undo);
        if (ok(first)) first = status;
    }
    return static_cast<int>(first);
}

bool MemoryPreviewShell::knowsRoot(const std::string& root, std::string& drive) {
    RecycleBinInfo ignored;
    drive = root.empty() ? std::string() : rootOf(base::withBackslash(root));
    return shell_.SHQueryRecycleBinA(root, ignored) == 0;
}

long MemoryPreviewShell::SHQueryRecycleBinA(const std::string& root, RecycleBinInfo& info) {
    if (shell_.queryFails != 0) return shell_.queryFails;
    std::string drive;
    if (!knowsRoot(root, drive)) return kRootNotFound;
    putInBin();
    info = {};
    for (const Unit& unit : bin_) {
        if (!drive.empty() && unit.drive != drive) continue;
        ++info.items;
        info.bytes += unit.totals.bytes;
    }
    return 0;
}

long MemoryPreviewShell::SHEmptyRecycleBinA(std::uint64_t /*hwnd*/, const std::string& root, unsigned flags) {
    if (shell_.emptyFails != 0) return shell_.emptyFails;
    std::string drive;
    if (!knowsRoot(root, drive)) return kRootNotFound;
    if ((flags & kSherbNoConfirmation) == 0 && !shell_.confirmsEmptying) return kErrorCancelled;
    putInBin();
    std::erase_if(bin_, [this, &drive](const Unit& unit) {
        if (!drive.empty() && unit.drive != drive) return false;
        counter_.totals.files += unit.totals.files;
        counter_.totals.folders += unit.totals.folders;
        if (counter_.wantBytes) counter_.totals.bytes += unit.totals.bytes;
        return true;
    });
    return 0;
}

int MemoryPreviewShell::ShellExecuteA(const std::string& /*verb*/, const std::string& /*file*/,
                                      const std::string& /*parameters*/, const std::string& /*directory*/,
                                      int /*show*/) {
    return shell_.shellExecuteResult;
}

bool MemoryPreviewShell::ShellExecuteExAndWait(const std::string& /*verb*/, const std::string& /*file*/,
                                               const std::string& /*parameters*/, const std::string& /*directory*/,
                                               int /*show*/) {
    return shell_.shellExecuteExStarts;
}

}  // namespace tidvane::platform
