#include "platform/guard/guarded_file_system.h"

namespace tidvane::platform {

Status GuardedFileSystem::ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) {
    out.clear();
    const Status allowed = guard_.checkTree(folder, true);
    return ok(allowed) ? files_.ReadFolderToEmpty(folder, out) : allowed;
}

bool GuardedFileSystem::mayEmpty(const std::string& folder) {
    return ok(guard_.checkTree(folder, true)) && files_.mayEmpty(folder);
}

Status GuardedFileSystem::SetAttributes(const std::string& path, unsigned attributes) {
    const Status allowed = guard_.checkSingle(path);
    return ok(allowed) ? files_.SetAttributes(path, attributes) : allowed;
}

Status GuardedFileSystem::RemoveFile(const std::string& file) {
    const Status allowed = guard_.checkSingle(file);
    return ok(allowed) ? files_.RemoveFile(file) : allowed;
}

Status GuardedFileSystem::KillFiles(const std::string& pathOrMask) {
    const Status allowed = guard_.checkSingle(pathOrMask);
    return ok(allowed) ? files_.KillFiles(pathOrMask) : allowed;
}

// A protected folder stays even where it is empty: what lives in it expects to find it.
Status GuardedFileSystem::RemoveFolder(const std::string& folder) {
    const Status allowed = guard_.checkTree(folder, false);
    return ok(allowed) ? files_.RemoveFolder(folder) : allowed;
}

Status GuardedFileSystem::DeleteFolder(const std::string& folder, bool force) {
    const Status allowed = guard_.checkTree(folder, false);
    return ok(allowed) ? files_.DeleteFolder(folder, force) : allowed;
}

Status GuardedFileSystem::OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) {
    handle.reset();
    const Status allowed = guard_.checkSingle(file);
    return ok(allowed) ? files_.OpenForOverwrite(file, handle) : allowed;
}

Status GuardedFileSystem::RenameEntry(const std::string& from, const std::string& to) {
    // Under another name a protected place would be one no longer.
    Status allowed = guard_.checkTree(from, false);
    if (ok(allowed)) allowed = guard_.checkSingle(to);
    return ok(allowed) ? files_.RenameEntry(from, to) : allowed;
}

Status GuardedFileSystem::WriteFileBytes(const std::string& file, std::string_view bytes) {
    const Status allowed = guard_.checkSingle(file);
    return ok(allowed) ? files_.WriteFileBytes(file, bytes) : allowed;
}

Status GuardedFileSystem::CopyFileBytes(const std::string& from, const std::string& to) {
    const Status allowed = guard_.checkSingle(to);
    return ok(allowed) ? files_.CopyFileBytes(from, to) : allowed;
}

}  // namespace tidvane::platform
