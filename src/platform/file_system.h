// Looks at and removes files of one machine.
//
// Paths are absolute Windows paths in UTF-8: a drive letter, ":\" and names joined by "\", or a share
// ("\\server\share\..."). Names compare without regard to case. A host name that is not UTF-8 travels as its raw bytes
// and comes back unchanged.
// "." and ".." are resolved by text before anything is looked up; ".." never climbs above the drive's root. A name that
// no Windows path can hold (one with "\", "/", ":", "*" or "?") takes part in tree removals and counts, and is not
// listed: as a path it would mean another file, or many.
//
// No operation throws. None follows a link: a link is itself an entry, and is removed as a link. A link on the way to
// the target is followed only if the machine's own layout put it there (a drive of a prefix).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace tidvane::platform {

// The bits of a file's attributes, as on Windows.
namespace attribute {
inline constexpr unsigned ReadOnly = 0x1;
inline constexpr unsigned Hidden = 0x2;
inline constexpr unsigned System = 0x4;
inline constexpr unsigned Directory = 0x10;
inline constexpr unsigned Archive = 0x20;
inline constexpr unsigned Normal = 0x80;
inline constexpr unsigned ReparsePoint = 0x400;
}  // namespace attribute

// Folder means a real folder; a link that points to a folder is a Link, is never listed among the subfolders and never
// entered. Other: fifo, socket, device.
enum class EntryKind { File, Folder, Link, Other };

struct FolderEntry {
    std::string name;
    EntryKind kind;
};

struct FolderTotals {
    std::uint64_t folders = 0;  // at all depths, the top folder not counted
    std::uint64_t files = 0;    // at all depths; links and fifos count as files
    std::uint64_t bytes = 0;    // lengths without clusters; a link counts 0
    bool partial = false;       // something in it is no part of the machine and was passed over: a mount, the program
};

// One entry as it stands in its folder, never what it points to.
struct EntryDetails {
    std::string name;  // as the volume spells it; empty for a root: a drive's, or the program's own folder
    EntryKind kind = EntryKind::File;
    bool readOnly = false;
    std::uint64_t length = 0;  // of a file; 0 for all else
    std::uint64_t names = 1;   // how many entries lead to its content
    // Which content that is: the same under all its names, and only there.
    std::uint64_t volume = 0;
    std::uint64_t content = 0;
};

// A moment in UTC: 100 nanosecond steps since 1601-01-01, as FILETIME has it.
using FileTime = std::uint64_t;

struct FileTimes {
    FileTime creation = 0;
    FileTime lastAccess = 0;
    FileTime lastWrite = 0;
};

// The types of a drive, numbered as the folder object's Drive.DriveType numbers them.
enum class DriveType { Unknown = 0, Removable = 1, Fixed = 2, Remote = 3, CdRom = 4, RamDisk = 5 };

struct Drive {
    char letter;  // upper case
    DriveType type;
};

// A file that is open for writing over its content. Closing happens at destruction at the latest.
class OverwriteHandle {
public:
    virtual ~OverwriteHandle() = default;
    // Length in bytes at the time of opening.
    [[nodiscard]] virtual std::uint64_t length() const = 0;
    // Writes at the current position and moves it. Denied, InUse, DiskFull, Failed.
    virtual Status write(std::string_view bytes) = 0;
    // The same block `times` times over; stops at the first failure and tells how many went out. Memory holds the one
    // block.
    virtual Status writeRepeated(std::string_view block, std::uint64_t times, std::uint64_t& written) {
        for (written = 0; written < times; ++written) {
            if (const Status status = write(block); !ok(status)) return status;
        }
        return Status::Ok;
    }
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    // --- looking ---------------------------------------------------------------------------------------------------

    // All entries of a folder but "." and "..", hidden ones included, in no particular order. NotFound, PathNotFound,
    // Denied (also: not a folder, or a link), InvalidName, NotReady. On failure `out` is empty.
    virtual Status ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) = 0;

    // The same for a caller that is about to empty the folder: a place that no one may empty answers Denied, an empty
    // or relative path PathNotFound. A trailing backslash is allowed, as for ReadFolder.
    virtual Status ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) = 0;

    // Asked once by a caller that is about to empty or remove a folder in several steps, so that a refusal is told
    // once: false where ReadFolderToEmpty would refuse the path by its text alone.
    virtual bool mayEmpty(const std::string& /*folder*/) { return true; }

    // The attributes of the entry itself, never of what a link points to. A plain file without any bit reads Normal.
    virtual Status GetAttributes(const std::string& path, unsigned& attributes) = 0;

    // Only ReadOnly, Hidden, System and Archive can be set; 0 and Normal clear them all.
    virtual Status SetAttributes(const std::string& path, unsigned attributes) = 0;

    // A trailing backslash is allowed for a folder. NotFound, PathNotFound, Denied.
    virtual Status LookAt(const std::string& path, EntryDetails& details) = 0;

    // Length in bytes. NotFound, Denied for a folder.
    virtual Status GetSize(const std::string& path, std::uint64_t& bytes) = 0;

    // The three times of a file (the file is opened for it, sharing everything). NotFound, Denied.
    virtual Status GetFileTimes(const std::string& path, FileTimes& times) = 0;

    // The folder object's tests. A trailing backslash is allowed for a folder. Links answer by what they are: not a
    // folder; a link to a file counts as a file.
    virtual bool FileExists(const std::string& path) = 0;
    virtual bool FolderExists(const std::string& path) = 0;

    // Counts and sizes of the whole tree in one walk that stops at links and mount points. One folder in it that cannot
    // be read fails the whole: Denied, and `totals` stays as it was. A mount point is counted, not what lies behind it.
    virtual Status MeasureFolder(const std::string& folder, FolderTotals& totals) = 0;

    // --- removing --------------------------------------------------------------------------------------------------

    // Removes one file or link. A wildcard in the name is InvalidName. NotFound, PathNotFound, Denied (read-only, or a
    // folder), InUse.
    virtual Status RemoveFile(const std::string& file) = 0;

    // The plain delete with wildcards in the last part: every match that is neither hidden nor system nor a folder.
    // Matches that cannot be removed are passed over and the others go on. NotFound if nothing matched; otherwise the
    // first failure, or Ok. Without a wildcard it is RemoveFile for the same kinds of file (hidden: NotFound).
    virtual Status KillFiles(const std::string& pathOrMask) = 0;

    // Removes one empty folder. NotFound, Denied (not a folder; read-only), NotEmpty.
    virtual Status RemoveFolder(const std::string& folder) = 0;

    // Removes a folder with everything in it, with `force` also what is read-only. What cannot be removed stays, with
    // the folders above it, and all else goes; the answer is then the first failure. Wildcards in the last part remove
    // every folder that matches. A trailing backslash is InvalidName, a file PathNotFound, no match NotFound, a link at
    // the top Denied; links inside the tree go as links. Memory does not grow with the number of files.
    virtual Status DeleteFolder(const std::string& folder, bool force) = 0;

    // Opens an existing file for writing over its content from the first byte, without following a link and without
    // changing its length. Denied: read-only, a link, a folder, a file that has a further name (its content may be
    // wanted under that name). NotFound, InUse.
    virtual Status OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) = 0;

    // --- changing --------------------------------------------------------------------------------------------------

    // Renames inside one drive. A change of case alone is a rename. Exists if the target is another entry.
    virtual Status RenameEntry(const std::string& from, const std::string& to) = 0;
    // One level. Exists, PathNotFound.
    virtual Status MakeFolder(const std::string& folder) = 0;

    // --- whole files -----------------------------------------------------------------------------------------------

    // Reads a file whole. NotFound, Denied (also: a folder). At most `limit` bytes are read.
    virtual Status ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit = UINT64_MAX) = 0;
    // Replaces a file as a whole or not at all: on any failure (a full disk included) the old content stays.
    virtual Status WriteFileBytes(const std::string& file, std::string_view bytes) = 0;
    // Copies a file over `to`. NotFound, Denied.
    virtual Status CopyFileBytes(const std::string& from, const std::string& to) = 0;

    // --- drives ----------------------------------------------------------------------------------------------------

    // In the order of their letters.
    virtual std::vector<Drive> Drives() = 0;
    // Bytes free for the user and bytes in total on the volume of a folder or a drive ("C:"). NotFound, NotReady.
    virtual Status GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes,
                                       std::uint64_t& totalBytes) = 0;
};

}  // namespace tidvane::platform
