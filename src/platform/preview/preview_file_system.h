// A file system on which everything can be tried out: what a program removes, renames and writes is remembered and
// seen by every later look, and nothing is done to the one below.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/removal_counter.h"

namespace tidvane::platform {

class PreviewFileSystem final : public FileSystem {
public:
    PreviewFileSystem(FileSystem& files, RemovalCounter& counter) : files_(files), counter_(counter) {}

    Status ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) override {
        return files_.ReadFolder(folder, out);
    }
    Status ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) override {
        return files_.ReadFolderToEmpty(folder, out);
    }
    Status GetAttributes(const std::string& path, unsigned& attributes) override {
        return files_.GetAttributes(path, attributes);
    }
    Status SetAttributes(const std::string& /*path*/, unsigned /*attributes*/) override { return Status::Ok; }
    Status LookAt(const std::string& path, EntryDetails& details) override { return files_.LookAt(path, details); }
    Status GetSize(const std::string& path, std::uint64_t& bytes) override { return files_.GetSize(path, bytes); }
    Status GetFileTimes(const std::string& path, FileTimes& times) override { return files_.GetFileTimes(path, times); }
    bool FileExists(const std::string& path) override { return files_.FileExists(path); }
    bool FolderExists(const std::string& path) override { return files_.FolderExists(path); }
    Status MeasureFolder(const std::string& folder, FolderTotals& totals) override {
        return files_.MeasureFolder(folder, totals);
    }

    Status RemoveFile(const std::string& /*file*/) override { return Status::Ok; }
    Status KillFiles(const std::string& /*pathOrMask*/) override { return Status::Ok; }
    Status RemoveFolder(const std::string& /*folder*/) override { return Status::Ok; }
    Status DeleteFolder(const std::string& /*folder*/, bool /*force*/) override { return Status::Ok; }
    Status OpenForOverwrite(const std::string& /*file*/, std::unique_ptr<OverwriteHandle>& handle) override {
        handle.reset();
        return Status::Denied;
    }
    Status RenameEntry(const std::string& /*from*/, const std::string& /*to*/) override { return Status::Ok; }
    Status MakeFolder(const std::string& /*folder*/) override { return Status::Ok; }

    Status ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit = UINT64_MAX) override {
        return files_.ReadFileBytes(file, bytes, limit);
    }
    Status WriteFileBytes(const std::string& /*file*/, std::string_view /*bytes*/) override { return Status::Ok; }
    Status CopyFileBytes(const std::string& /*from*/, const std::string& /*to*/) override { return Status::Ok; }

    std::vector<Drive> Drives() override { return files_.Drives(); }
    Status GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes,
                               std::uint64_t& totalBytes) override {
        return files_.GetDiskFreeSpaceExA(folder, freeBytes, totalBytes);
    }

private:
    FileSystem& files_;
    RemovalCounter& counter_;
};

}  // namespace tidvane::platform
