#include "platform/machine/machine_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/text.h"
#include "platform/common/windows_path.h"
#include "platform/machine/entry_details.h"
#include "platform/machine/file_attributes.h"
#include "platform/machine/tree_measure.h"

namespace tidvane::platform::machine {

namespace {

EntryKind kindOf(unsigned char type) {
    switch (type) {
        case DT_DIR:
            return EntryKind::Folder;
        case DT_LNK:
            return EntryKind::Link;
        case DT_REG:
            return EntryKind::File;
        default:
            return EntryKind::Other;
    }
}

unsigned char typeOf(int folder, const char* name) {
    struct stat info {};
    if (::fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return DT_UNKNOWN;
    return static_cast<unsigned char>(IFTODT(info.st_mode));
}

// A path that names a folder, with or without a trailing backslash.
Status parseFolder(const std::string& text, MachinePath& path) {
    if (const Status status = parseMachinePath(text, path); !ok(status)) return status;
    return path.wildcard ? Status::InvalidName : Status::Ok;
}

FileTime fileTimeOf(const struct statx_timestamp& time) {
    constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;  // from 1601-01-01
    const std::int64_t seconds = time.tv_sec + kSecondsTo1970;
    if (seconds < 0) return 0;
    return static_cast<FileTime>(seconds) * 10'000'000u + time.tv_nsec / 100u;
}

// From this many entries on, the order of the host's records matters for what is done to each of them afterwards: in
// the order of their inodes, neighbouring records lie in the same block.
constexpr std::size_t kWorthSorting = 10'000;

}  // namespace

bool MachineFiles::addDrive(char letter, DriveType type, const std::string& hostFolder) {
    return addDrive(letter, type,
                    Handle(::open(hostFolder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK)));
}

bool MachineFiles::addDrive(char letter, DriveType type, Handle root) {
    if (!root || !resolver_.addDrive(letter, std::move(root))) return false;
    drives_.push_back({letter, type});
    std::sort(drives_.begin(), drives_.end(), [](const Drive& a, const Drive& b) { return a.letter < b.letter; });
    return true;
}

bool MachineFiles::mountProgram(const std::string& place, const std::string& hostFolder) {
    MachinePath path;
    if (!ok(parseFolder(place, path))) return false;
    Handle root(::open(hostFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    return root && identify(root.get(), programRoot_) && resolver_.mountProgram(path, std::move(root));
}

Status MachineFiles::find(const std::string& path, FoundEntry& entry) {
    MachinePath parsed;
    if (const Status status = parseMachinePath(path, parsed); !ok(status)) return status;
    if (parsed.wildcard) return Status::InvalidName;
    const Status status = resolver_.entry(parsed, entry);
    if (ok(status) && parsed.emptyLastPart && !S_ISDIR(entry.info.st_mode)) return Status::NotFound;
    return status;
}

// A path that names a file: nothing may stand behind the name.
Status MachineFiles::findFile(const std::string& path, FoundEntry& entry) {
    MachinePath parsed;
    if (const Status status = parseMachinePath(path, parsed); !ok(status)) return status;
    if (parsed.wildcard || parsed.emptyLastPart) return Status::InvalidName;
    return resolver_.entry(parsed, entry);
}

TreeWalk::Exceptions MachineFiles::walkExceptions() {
    TreeWalk::Exceptions exceptions;
    if (!resolver_.hasProgramFolder()) return exceptions;
    exceptions.programRoot = &programRoot_;
    if (resolver_.programParent(programParent_, exceptions.programName)) exceptions.programParent = &programParent_;
    return exceptions;
}

Status MachineFiles::ReadFolder(const std::string& folder, std::vector<FolderEntry>& out) {
    out.clear();
    MachinePath path;
    if (const Status status = parseFolder(folder, path); !ok(status)) return status;
    OpenFolder open;
    if (const Status status = resolver_.folderToRead(path, open); !ok(status)) return status;
    if (!open.listable) return Status::Denied;

    const std::string program = resolver_.programNameIn(path);
    std::vector<std::uint64_t> inodes;
    DirectoryReader reader;
    DirectoryReader::Entry entry{};
    while (reader.next(open.handle, entry)) {
        const std::string_view name = entry.name;
        if (!isListable(name) || (!program.empty() && base::equalNoCase(name, program))) continue;
        unsigned char type = entry.type;
        if (type == DT_UNKNOWN) {
            type = typeOf(open.handle, entry.name);
            if (type == DT_UNKNOWN) continue;  // gone meanwhile
        }
        out.push_back({std::string(name), kindOf(type)});
        inodes.push_back(entry.inode);
    }
    if (reader.error() != 0) {
        out.clear();
        return statusOf(reader.error());
    }
    if (out.size() >= kWorthSorting) {
        std::vector<std::size_t> order(out.size());
        for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return inodes[a] < inodes[b]; });
        std::vector<FolderEntry> sorted;
        sorted.reserve(out.size());
        for (const std::size_t i : order) sorted.push_back(std::move(out[i]));
        out = std::move(sorted);
    }
    if (!program.empty()) out.push_back({program, EntryKind::Link});
    return Status::Ok;
}

Status MachineFiles::ReadFolderToEmpty(const std::string& folder, std::vector<FolderEntry>& out) {
    MachinePath path;
    if (!ok(parseMachinePath(folder, path)) || path.isRoot()) {
        out.clear();
        return Status::Denied;
    }
    return ReadFolder(folder, out);
}

Status MachineFiles::GetAttributes(const std::string& path, unsigned& attributes) {
    FoundEntry entry;
    const Status status = find(path, entry);
    if (ok(status)) attributes = attributesOf(entry.parent, entry.hostName, entry.info);
    return status;
}

Status MachineFiles::SetAttributes(const std::string& path, unsigned attributes) {
    FoundEntry entry;
    if (const Status status = find(path, entry); !ok(status)) return status;
    if (entry.parent < 0) return Status::Denied;
    return changeAttributes(entry.parent, entry.hostName, entry.info, attributes);
}

Status MachineFiles::LookAt(const std::string& path, EntryDetails& details) {
    FoundEntry entry;
    if (const Status status = find(path, entry); !ok(status)) return status;
    details = detailsOf(entry.parent < 0 ? std::string() : std::move(entry.hostName), entry.info);
    return Status::Ok;
}

Status MachineFiles::GetSize(const std::string& path, std::uint64_t& bytes) {
    FoundEntry entry;
    if (const Status status = findFile(path, entry); !ok(status)) return status;
    if (S_ISDIR(entry.info.st_mode)) return Status::Denied;
    bytes = S_ISREG(entry.info.st_mode) ? static_cast<std::uint64_t>(entry.info.st_size) : 0;
    return Status::Ok;
}

Status MachineFiles::GetFileTimes(const std::string& path, FileTimes& times) {
    FoundEntry entry;
    if (const Status status = findFile(path, entry); !ok(status)) return status;
    if (S_ISDIR(entry.info.st_mode)) return Status::Denied;
    // A file that may not be opened tells no times either.
    if (S_ISREG(entry.info.st_mode) &&
        ::faccessat(entry.parent, entry.hostName.c_str(), R_OK, AT_EACCESS | AT_SYMLINK_NOFOLLOW) != 0) {
        return statusOf(errno);
    }
    struct statx found {};
    constexpr unsigned kWanted = STATX_BTIME | STATX_ATIME | STATX_MTIME | STATX_CTIME;
    if (::statx(entry.parent, entry.hostName.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, kWanted, &found) != 0) {
        return statusOf(errno);
    }
    times.creation = fileTimeOf((found.stx_mask & STATX_BTIME) != 0 ? found.stx_btime : found.stx_ctime);
    times.lastAccess = fileTimeOf(found.stx_atime);
    times.lastWrite = fileTimeOf(found.stx_mtime);
    return Status::Ok;
}

bool MachineFiles::FileExists(const std::string& path) {
    FoundEntry entry;
    if (!ok(findFile(path, entry)) || S_ISDIR(entry.info.st_mode)) return false;
    return !S_ISLNK(entry.info.st_mode) || !linksToFolder(entry.parent, entry.hostName);
}

bool MachineFiles::FolderExists(const std::string& path) {
    FoundEntry entry;
    return ok(find(path, entry)) && S_ISDIR(entry.info.st_mode);
}

Status MachineFiles::MeasureFolder(const std::string& folder, FolderTotals& totals) {
    const TreeWalk::Exceptions exceptions = walkExceptions();
    MachinePath path;
    if (const Status status = parseFolder(folder, path); !ok(status)) return status;
    OpenFolder open;
    if (const Status status = resolver_.folderToRead(path, open); !ok(status)) return status;
    if (!open.listable) return Status::Denied;
    return TreeMeasure().run(open.handle, open.identity, exceptions, totals);
}

std::vector<Drive> MachineFiles::Drives() {
    return drives_;
}

Status MachineFiles::GetDiskFreeSpaceExA(const std::string& folder, std::uint64_t& freeBytes,
                                         std::uint64_t& totalBytes) {
    MachinePath path;
    if (const Status status = parseFolder(folder.size() == 2 ? folder + "\\" : folder, path); !ok(status)) {
        return status == Status::PathNotFound ? Status::NotFound : status;
    }
    OpenFolder open;
    if (const Status status = resolver_.folder(path, path.names.size(), open); !ok(status)) {
        return status == Status::PathNotFound ? Status::NotFound : status;
    }
    struct statvfs volume {};
    if (::fstatvfs(open.handle, &volume) != 0) return Status::NotReady;
    freeBytes = static_cast<std::uint64_t>(volume.f_bavail) * volume.f_frsize;
    totalBytes = static_cast<std::uint64_t>(volume.f_blocks) * volume.f_frsize;
    return Status::Ok;
}

}  // namespace tidvane::platform::machine
