// Files of a machine that lives in memory: a real file system over a tree, which can be told to refuse.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common/windows_path.h"
#include "platform/memory/memory_tree.h"
#include "platform/rehearsal.h"
#include "platform/removal_counter.h"

namespace tidvane::platform {

// Sets of operations that a fault applies to.
namespace operation {
inline constexpr unsigned Look = 0x01;        // attributes, length, times, the existence tests
inline constexpr unsigned List = 0x02;        // reading a folder, alone or in a walk
inline constexpr unsigned Read = 0x04;        // reading content, copying from
inline constexpr unsigned Write = 0x08;       // writing content, overwriting, copying to
inline constexpr unsigned Attributes = 0x10;  // setting them
inline constexpr unsigned Rename = 0x20;
inline constexpr unsigned Remove = 0x40;  // alone, by mask or in a walk, and moving to the recycle bin
inline constexpr unsigned Block = 0x80;   // one write into a file that is open for overwriting
inline constexpr unsigned All = ~0u;
}  // namespace operation

class MemoryFiles final : public FilesWithRehearsal {
public:
    explicit MemoryFiles(RemovalCounter& counter) : counter_(counter) {}

    // --- setting up ------------------------------------------------------------------------------------------------
    // These never meet a fault and never count; missing folders and drives on the way are made.

    void addDrive(char letter, DriveType type, std::uint64_t freeBytes, std::uint64_t totalBytes);
    void putFolder(const std::string& path);
    void putFile(const std::string& path, std::string_view bytes = {});
    // A file that has a length and no content; reads as blanks.
    void putFileOfLength(const std::string& path, std::uint64_t length);
    // The kind is taken from what stands at the target now; a link to nothing is one to a file.
    void putLink(const std::string& path, const std::string& target);
    // A further name of an existing file.
    void putHardLink(const std::string& path, const std::string& existing);
    // A fifo, socket or device.
    void putOther(const std::string& path);
    // A file whose name no path can tell, with "\", ":", "*" or "?" in it.
    void putRawName(const std::string& folder, const std::string& name, std::string_view bytes = {});
    // A folder that holds another volume.
    void putMountPoint(const std::string& path);
    void setAttributes(const std::string& path, unsigned attributes);
    void setTimes(const std::string& path, const FileTimes& times);
    // All three times at once.
    void setTime(const std::string& path, FileTime time);
    // Takes an entry away, a folder with everything in it.
    void take(const std::string& path);

    // What new entries get, by set-up and by operations. Attributes: Archive, as Windows gives it to a new file.
    FileTime timeOfNewEntries = 0;
    unsigned attributesOfNewFiles = attribute::Archive;

    // --- inspecting ------------------------------------------------------------------------------------------------
    // Past all faults.

    [[nodiscard]] bool has(const std::string& path) const;
    [[nodiscard]] bool hasFolder(const std::string& path) const;
    [[nodiscard]] bool hasRawName(const std::string& folder, const std::string& name) const;
    [[nodiscard]] bool isLink(const std::string& path) const;
    // Empty when there is no such file.
    [[nodiscard]] std::optional<std::string> bytesOf(const std::string& path) const;
    [[nodiscard]] unsigned attributesOf(const std::string& path) const;
    [[nodiscard]] std::uint64_t freeBytes(char letter) const;
    // Full paths of everything below a folder, sorted; a folder ends in a backslash.
    [[nodiscard]] std::vector<std::string> everythingBelow(const std::string& folder) const;
    // Operations that reached the services, for tests of cost: ReadFolder alone, and all of them.
    std::uint64_t foldersRead = 0;
    std::uint64_t operations = 0;

    // What was written into files opened for overwriting; outlives the files.
    struct Overwritten {
        std::string path;                 // as it was opened
        std::vector<std::size_t> blocks;  // sizes of the writes that succeeded
        std::string bytes;                // content after the last of them; empty for a declared length
    };
    std::vector<Overwritten> overwritten;

    // --- faults ----------------------------------------------------------------------------------------------------

    // The operations of the set on this very entry answer `status`, at most `times` times.
    void refuse(const std::string& path, unsigned operations, Status status, unsigned times = ~0u);
    // Open elsewhere without sharing: InUse for reading, writing, renaming, removing. A look still works.
    void lock(const std::string& path);
    // No right at all but to see that it is there.
    void deny(const std::string& path);
    // Lifts refusals of the path.
    void allow(const std::string& path);
    // Runs the action just before the n-th operation (from 1) on this entry; steps of a walk are operations too.
    void before(const std::string& path, unsigned n, std::function<void()> action);
    // The entry is gone when the n-th operation reaches it.
    void vanishBefore(const std::string& path, unsigned n);
    // A folder is replaced by a link when the n-th operation reaches it; what it held is gone.
    void becomeLinkBefore(const std::string& path, unsigned n, const std::string& target);
    void setDiskFull(char letter, bool full);
    void setReady(char letter, bool ready);

    // --- the services ----------------------------------------------------------------------------------------------

    Status ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) override;
    // Protected places are the business of the guards.
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

    // --- for the recycle bin ---------------------------------------------------------------------------------------

    // Takes an entry out of the tree as a whole, with its room still taken. Refused when a part of it is.
    Status moveOut(const std::string& path, std::unique_ptr<memory::Node>& entry);
    // Drops an entry that moveOut gave, and frees its room.
    void dropMovedOut(const std::string& originalPath, std::unique_ptr<memory::Node> entry);
    // Folders, files and bytes of an entry with everything in it, the entry itself included.
    static FolderTotals totalsOf(const memory::Node& entry);
    // The type of the drive a path lies on.
    [[nodiscard]] DriveType driveType(const std::string& path) const;

private:
    // Where a path leads. `node` is null unless `status` is Ok; `parent` is null for a root and when the way is
    // missing.
    struct Place {
        Status status = Status::Ok;
        memory::Volume* on = nullptr;
        memory::Node* parent = nullptr;
        memory::Node* node = nullptr;
        std::string name;      // the last part as it was spelled
        std::string childKey;  // the same in upper case
        std::string key;
    };
    class Handle;
    struct TreeStep;

    struct Refusal {
        unsigned operations;
        Status status;
        unsigned times;
    };
    struct Interruption {
        unsigned countdown;
        std::function<void()> action;
    };

    memory::Volume& volumeForSetUp(const std::string& root);
    memory::Node& folderForSetUp(const WindowsPath& path, std::size_t depth);
    memory::Node& entryForSetUp(const std::string& path, EntryKind kind);
    memory::Node* peek(const std::string& path) const;

    void interrupt(const std::string& key);
    Status refusal(const std::string& key, unsigned operationOfCall);
    Place resolve(const WindowsPath& path) const;
    Place find(const std::string& path, unsigned operationOfCall, bool trailingBackslashAllowed);
    Status readEntries(const std::string& folder, std::vector<FolderEntry>& out);
    Status removeEntry(const Place& place, bool force);
    Status emptyFolder(memory::Volume& on, const std::string& folderKey, memory::Node& folder, bool force);
    Status measure(const memory::Node& folder, const std::string& folderKey, FolderTotals& totals);
    Status checkMovable(const memory::Node& entry, const std::string& key);
    Status replaceContent(const std::string& file, std::string_view bytes, std::uint64_t length);
    void release(memory::Volume* on, const memory::Node& entry, bool count);
    static bool counts(Status status);
    Status counted(Status status);
    static unsigned attributesOfNode(const memory::Node& node);
    static EntryDetails detailsOf(const memory::Node& node);
    Status rehearse(Intent intent, const Place& place, const Circumstances& now);
    Status rehearseEntry(const memory::Node& node, const std::string& key, const TreeStep& step,
                         const TreeVisitor::EntryNow& now);
    Status rehearseContent(const memory::Node& folder, const std::string& key, const TreeStep& step, bool& someWent);

    RemovalCounter& counter_;
    mutable std::map<std::string, memory::Volume> volumes_;  // "C:" or "\\SERVER\SHARE"
    std::map<std::string, std::vector<Refusal>> refusals_;   // by key: root and names in upper case
    std::map<std::string, std::vector<Interruption>> interruptions_;
};

}  // namespace tidvane::platform
