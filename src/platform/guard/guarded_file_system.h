// A file system that refuses what nobody can have wanted: emptying a place the system lives in, and removing or
// changing by a path that is not a full one.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/guard/guard.h"

namespace tidvane::platform {

// Everything else passes through. Nothing that is refused has changed anything.
class GuardedFileSystem final : public FileSystem {
public:
    GuardedFileSystem(FileSystem& files, Guard& guard) : files_(files), guard_(guard) {}

    // Protected: Denied. Relative or empty: PathNotFound. A backslash at the end is fine, as it is for ReadFolder.
    Status ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) override;
    bool mayEmpty(const std::string& folder) override;
    Status SetAttributes(const std::string& path, unsigned attributes) override;
    Status RemoveFile(const std::string& file) override;
    Status KillFiles(const std::string& pathOrMask) override;
    Status RemoveFolder(const std::string& folder) override;
    Status DeleteFolder(const std::string& folder, bool force) override;
    Status OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) override;
    Status RenameEntry(const std::string& from, const std::string& to) override;
    Status WriteFileBytes(const std::string& file, std::string_view bytes) override;
    Status CopyFileBytes(const std::string& from, const std::string& to) override;

    Status ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) override {
        return files_.ReadFolder(folder, out);
    }
    Status GetAttributes(const std::string& path, unsigned& attributes) override {
        return files_.GetAttributes(path, attributes);
    }
    Status LookAt(const std::string& path, EntryDetails& details) override { return files_.LookAt(path, details); }
    Status GetSize(const std::string& path, std::uint64_t& bytes) override { return files_.GetSize(path, bytes); }
    Status GetFileTimes(const std::string& path, FileTimes& times) override { return files_.GetFileTimes(path, times); }
    bool FileExists(const std::string& path) override { return files_.FileExists(path); }
    bool FolderExists(const std::string& path) override { return files_.FolderExists(path); }
    Status MeasureFolder(const std::string& folder, FolderTotals& totals) override {
        return files_.MeasureFolder(folder, totals);
    }
    Status MakeFolder(const std::string& folder) override { return files_.MakeFolder(folder); }
    Status ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit = UINT64_MAX) override {
        return files_.ReadFileBytes(file, bytes, limit);
    }
    std::vector<Drive> Drives() override { return files_.Drives(); }
    Status GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes,
                               std::uint64_t& totalBytes) override {
        return files_.GetDiskFreeSpaceExA(folder, freeBytes, totalBytes);
    }

private:
    FileSystem& files_;
    Guard& guard_;
};

}  // namespace tidvane::platform
