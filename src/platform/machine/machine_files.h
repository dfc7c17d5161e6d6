// The files of a machine that lies in a directory of the host.
//
// Every look-up goes from a drive's open root downwards and never leaves the machine: a link on the way ends it, a
// mount point too, and a drive that points outside is none. The program's own folder is a mount onto a host directory
// of its own; it is shown in its parent folder as a link, so that no sweep goes into it.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/machine/folder_rights.h"
#include "platform/machine/path_resolver.h"
#include "platform/machine/tree_walk.h"
#include "platform/rehearsal.h"
#include "platform/removal_counter.h"

namespace tidvane::platform::machine {

class FileReplacement;

class MachineFiles final : public FilesWithRehearsal {
public:
    explicit MachineFiles(RemovalCounter& counter) : counter_(counter) {}

    // `hostFolder` becomes the root of the drive. False: it cannot be opened.
    bool addDrive(char letter, DriveType type, const std::string& hostFolder);
    // The same with the folder open already.
    bool addDrive(char letter, DriveType type, Handle root);
    // `hostFolder` becomes the program's folder, `place` on the machine ("C:\Program Files\Tidvane").
    bool mountProgram(const std::string& place, const std::string& hostFolder);

    Status ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) override;
    Status ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) override;
    Status GetAttributes(const std::string& path, unsigned& attributes) override;
    Status SetAttributes(const std::string& path, unsigned attributes) override;
    Status LookAt(const std::string& path, EntryDetails& details) override;
    Status GetSize(const std::string& path, std::uint64_t& bytes) override;
    Status GetFileTimes(const std::string& path, FileTimes& times) override;
    bool FileExists(const std::string& path) override;
    bool FolderExists(const std::string& path) override;
    Status MeasureFolder(const std::string& folder, FolderTotals& totals) override;

    Status RemoveFile(const std::string& file) override;
    Status KillFiles(const std::string& pathOrMask) override;
    Status RemoveFolder(const std::string& folder) override;
    Status DeleteFolder(const std::string& folder, bool force) override;
    Status OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) override;

    Status RenameEntry(const std::string& from, const std::string& to) override;
    Status MakeFolder(const std::string& folder) override;

    Status ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit = UINT64_MAX) override;
    Status WriteFileBytes(const std::string& file, std::string_view bytes) override;
    Status CopyFileBytes(const std::string& from, const std::string& to) override;

    Rehearsed Rehearse(Intent intent, const std::string& path, const Circumstances& now, bool withAttributes) override;
    std::string TargetOfLink(const std::string& link) override;
    Status RehearseSetAttributes(const std::string& path, unsigned attributes, const Circumstances& now,
                                 unsigned& becomes) override;
    Status RehearseDeleteFolder(const std::string& folder, Extent extent, bool force, const Circumstances& now,
                                TreeVisitor& visitor, RehearsedTree& tree) override;

    std::vector<Drive> Drives() override;
    Status GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes, std::uint64_t& totalBytes) override;

private:
    // The folder and the state of a file that is about to be written.
    struct Target {
        Handle folder;
        std::string name;
        bool exists = false;
        struct stat info {};
    };

    Status find(const std::string& path, FoundEntry& entry);
    [[nodiscard]] TreeWalk::Exceptions walkExceptions();
    static Status startReplacement(const Target& target, FileReplacement& replacement);
    Status findFile(const std::string& path, FoundEntry& entry);
    Status findTarget(const std::string& path, Target& target);
    Status removeFound(const FoundEntry& entry);
    Status deleteOneFolder(const MachinePath& path, bool force);
    Status countFailure(Status status);
    Status rehearse(Intent intent, const MachinePath& path, const Circumstances& now, const FoundEntry& entry,
                    const struct statx& state);
    Status openToRehearse(const MachinePath& path, Extent extent, Handle& parent, std::string& name, Handle& folder,
                          FolderIdentity& identity);
    // Asked once for the steps that follow each other in one folder.
    const FolderRights& rightsOf(int folder, const FolderIdentity& identity, std::optional<bool> readOnly);

    struct KnownRights {
        FolderRights rights;
        FolderIdentity folder;
        std::optional<bool> readOnly;
        std::chrono::steady_clock::time_point asked;
    };
    RemovalCounter& counter_;
    PathResolver resolver_;
    std::vector<Drive> drives_;
    std::optional<KnownRights> rights_;
    FolderIdentity programRoot_;
    FolderIdentity programParent_;
};

}  // namespace tidvane::platform::machine
