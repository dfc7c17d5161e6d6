#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/common/windows_path.h"
#include "platform/machine/entry_rename.h"
#include "platform/machine/file_attributes.h"
#include "platform/machine/machine_files.h"
#include "platform/machine/tree_removal.h"
#include "platform/machine/whole_file.h"

namespace tidvane::platform::machine {

namespace {

Handle secondHandle(int folder) {
    return Handle(::fcntl(folder, F_DUPFD_CLOEXEC, 0));
}

}  // namespace

Status MachineFiles::findTarget(const std::string& path, Target& target) {
    MachinePath parsed;
    if (const Status status = parseMachinePath(path, parsed); !ok(status)) return status;
    if (parsed.isRoot() || parsed.wildcard) return Status::InvalidName;
    FoundEntry entry;
    const Status status = resolver_.entry(parsed, entry);
    if (!ok(status) && status != Status::NotFound) return status;
    if (ok(status) && entry.parent < 0) return Status::Exists;
    target.exists = ok(status);
    target.info = entry.info;
    target.name = target.exists ? entry.hostName : parsed.last();
    target.folder = secondHandle(entry.parent);
    return target.folder ? Status::Ok : statusOf(errno);
}

Status MachineFiles::RenameEntry(const std::string& from, const std::string& to) {
    MachinePath source;
    MachinePath place;
    if (const Status status = parseMachinePath(from, source); !ok(status)) return status;
    if (const Status status = parseMachinePath(to, place); !ok(status)) return status;
    if (source.isRoot() || source.wildcard || place.isRoot() || place.wildcard) return Status::InvalidName;
    if (!isCreatableName(place.last())) return Status::InvalidName;
    if (source.drive != place.drive) return Status::Failed;

    FoundEntry entry;
    if (const Status status = resolver_.entry(source, entry); !ok(status)) return status;
    if (entry.parent < 0) return Status::Denied;
    const std::string oldName = entry.hostName;
    const ino_t inode = entry.info.st_ino;
    const FolderIdentity oldFolder = entry.parentIdentity;
    const Handle fromFolder = secondHandle(entry.parent);

    const Status there = resolver_.entry(place, entry);
    if (!ok(there) && there != Status::NotFound) return there;
    if (ok(there)) {
        const bool same = entry.parent >= 0 && entry.parentIdentity.sameFolder(oldFolder) &&
                          entry.info.st_ino == inode && entry.hostName == oldName;
        if (!same) return Status::Exists;
        if (place.last() == oldName) return Status::Ok;
    }
    if (const int error = renameNoReplace(fromFolder.get(), oldName, entry.parent, place.last()); error != 0) {
        if (error == EXDEV) return Status::Failed;
        return error == EINVAL ? Status::Denied : statusOf(error);  // a folder into itself
    }
    resolver_.forget(source, source.names.size() - 1);
    resolver_.forget(place, place.names.size() - 1);
    return Status::Ok;
}

Status MachineFiles::MakeFolder(const std::string& folder) {
    Target target;
    if (const Status status = findTarget(folder, target); !ok(status)) return status;
    if (target.exists) return Status::Exists;
    if (!isCreatableName(target.name)) return Status::InvalidName;
    return ::mkdirat(target.folder.get(), target.name.c_str(), 0777) == 0 ? Status::Ok : statusOf(errno);
}

Status MachineFiles::ReadFileBytes(const std::string& file, std::string& bytes, std::uint64_t limit) {
    bytes.clear();
    FoundEntry entry;
    if (const Status status = findFile(file, entry); !ok(status)) return status;
    if (!S_ISREG(entry.info.st_mode)) return Status::Denied;
    Handle opened;
    struct stat info {};
    if (const Status status = openPlainFile(entry.parent, entry.hostName, O_RDONLY, opened, info); !ok(status))
        return status;
    bytes.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(limit, static_cast<std::uint64_t>(info.st_size))));
    return readWholeFile(opened.get(), bytes, limit);
}

Status MachineFiles::startReplacement(const Target& target, FileReplacement& replacement) {
    if (!target.exists) {
        if (!isCreatableName(target.name)) return Status::InvalidName;
        return replacement.start(target.folder.get(), nullptr);
    }
    if (!S_ISREG(target.info.st_mode) || isReadOnlyMode(target.info.st_mode)) return Status::Denied;
    const Status status = replacement.start(target.folder.get(), &target.info);
    if (ok(status)) giveStoredAttributes(replacement.handle(), storedAttributes(target.folder.get(), target.name));
    return status;
}

Status MachineFiles::WriteFileBytes(const std::string& file, std::string_view bytes) {
    Target target;
    if (const Status status = findTarget(file, target); !ok(status))
        return status == Status::Exists ? Status::Denied : status;
    FileReplacement replacement;
    if (const Status status = startReplacement(target, replacement); !ok(status)) return status;
    if (const Status status = replacement.write(bytes); !ok(status)) return status;
    return replacement.publish(target.name, target.exists);
}

Status MachineFiles::CopyFileBytes(const std::string& from, const std::string& to) {
    FoundEntry entry;
    if (const Status status = findFile(from, entry); !ok(status)) return status;
    if (!S_ISREG(entry.info.st_mode)) return Status::Denied;
    Handle source;
    struct stat info {};
    if (const Status status = openPlainFile(entry.parent, entry.hostName, O_RDONLY, source, info); !ok(status))
        return status;

    Target target;
    if (const Status status = findTarget(to, target); !ok(status))
        return status == Status::Exists ? Status::Denied : status;
    if (target.exists && target.info.st_ino == info.st_ino && target.info.st_dev == info.st_dev) return Status::InUse;
    FileReplacement replacement;
    if (const Status status = startReplacement(target, replacement); !ok(status)) return status;
    std::string block(256UL * 1024, '\0');
    for (;;) {
        const ssize_t got = ::read(source.get(), block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return statusOf(errno);
        if (got == 0) break;
        const Status status = replacement.write(std::string_view(block).substr(0, static_cast<std::size_t>(got)));
        if (!ok(status)) return status;
    }
    return replacement.publish(target.name, target.exists);
}

}  // namespace tidvane::platform::machine
