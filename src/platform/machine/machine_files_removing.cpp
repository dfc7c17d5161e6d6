#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>

#include "base/wildcard.h"
#include "platform/common/windows_path.h"
#include "platform/machine/file_attributes.h"
#include "platform/machine/machine_files.h"
#include "platform/machine/tree_removal.h"
#include "platform/machine/whole_file.h"

namespace tidvane::platform::machine {

namespace {

class OpenFile final : public OverwriteHandle {
public:
    OpenFile(Handle file, std::uint64_t length) : file_(std::move(file)), length_(length) {}
    [[nodiscard]] std::uint64_t length() const override { return length_; }
    Status write(std::string_view bytes) override { return statusOf(writeAll(file_.get(), bytes), Status::Failed); }
    Status writeRepeated(std::string_view block, std::uint64_t times, std::uint64_t& written) override;

private:
    Handle file_;
    std::uint64_t length_;
};

// One call for many blocks, all of them the same memory.
Status OpenFile::writeRepeated(std::string_view block, std::uint64_t times, std::uint64_t& written) {
    constexpr std::size_t kAtOnce = 256;
    std::array<iovec, kAtOnce> blocks;
    blocks.fill({const_cast<char*>(block.data()), block.size()});
    for (written = 0; written < times;) {
        const std::size_t count = std::min<std::uint64_t>(times - written, kAtOnce);
        const ssize_t bytes = ::writev(file_.get(), blocks.data(), static_cast<int>(count));
        if (bytes < 0 && errno == EINTR) continue;
        if (bytes <= 0) return bytes < 0 ? statusOf(errno, Status::Failed) : Status::Failed;
        written += static_cast<std::size_t>(bytes) / block.size();
        // A block that went out in part is brought to its end, so that the next one starts at its place.
        if (const std::size_t part = static_cast<std::size_t>(bytes) % block.size(); part != 0) {
            if (const int error = writeAll(file_.get(), block.substr(part)); error != 0) {
                return statusOf(error, Status::Failed);
            }
            ++written;
        }
    }
    return Status::Ok;
}

}  // namespace

Status MachineFiles::countFailure(Status status) {
    if (!ok(status) && status != Status::NotFound && status != Status::PathNotFound) ++counter_.totals.failed;
    return status;
}

Status MachineFiles::removeFound(const FoundEntry& entry) {
    const bool isLink = S_ISLNK(entry.info.st_mode);
    if (S_ISDIR(entry.info.st_mode)) return countFailure(Status::Denied);
    if (!isLink && isReadOnlyMode(entry.info.st_mode)) return countFailure(Status::Denied);
    if (::unlinkat(entry.parent, entry.hostName.c_str(), 0) != 0) return countFailure(statusOf(errno));
    ++counter_.totals.files;
    if (counter_.wantBytes) counter_.totals.bytes += freedBytes(entry.info);
    resolver_.noteRemoved(entry);
    return Status::Ok;
}

Status MachineFiles::RemoveFile(const std::string& file) {
    FoundEntry entry;
    if (const Status status = findFile(file, entry); !ok(status)) return status;
    return removeFound(entry);
}

Status MachineFiles::KillFiles(const std::string& pathOrMask) {
    constexpr unsigned kNotTaken = attribute::Hidden | attribute::System | attribute::Directory;
    MachinePath path;
    if (const Status status = parseMachinePath(pathOrMask, path); !ok(status)) return status;
    if (path.emptyLastPart) return Status::InvalidName;
    if (!path.wildcard) {
        FoundEntry entry;
        if (const Status status = resolver_.entry(path, entry); !ok(status)) return status;
        if ((attributesOf(entry.parent, entry.hostName, entry.info) & kNotTaken) != 0) return Status::NotFound;
        return removeFound(entry);
    }

    OpenFolder open;
    if (const Status status = resolver_.parent(path, open, true); !ok(status)) return status;
    if (!open.listable) return Status::Denied;
    // The matches are collected first: removing while reading passes over entries on some file systems.
    std::deque<std::string> matches;
    DirectoryReader reader;
    DirectoryReader::Entry found{};
    while (reader.next(open.handle, found)) {
        if (found.type != DT_DIR && isListable(found.name) && base::wildcardMatch(path.last(), found.name)) {
            matches.emplace_back(found.name);
        }
    }
    if (reader.error() != 0) return statusOf(reader.error());

    bool any = false;
    Status first = Status::Ok;
    FoundEntry entry;
    entry.parent = open.handle;
    entry.parentIdentity = open.identity;
    for (std::string& name : matches) {
        entry.hostName = std::move(name);
        constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
        if (::fstatat(entry.parent, entry.hostName.c_str(), &entry.info, kFlags) != 0) continue;  // gone meanwhile
        if ((attributesOf(entry.parent, entry.hostName, entry.info) & kNotTaken) != 0) continue;
        any = true;
        const Status status = removeFound(entry);
        if (!ok(status) && ok(first)) first = status;
    }
    return any ? first : Status::NotFound;
}

Status MachineFiles::RemoveFolder(const std::string& folder) {
    MachinePath path;
    if (const Status status = parseMachinePath(folder, path); !ok(status)) return status;
    if (path.wildcard) return Status::InvalidName;
    FoundEntry entry;
    if (const Status status = resolver_.entry(path, entry); !ok(status)) return status;
    if (entry.parent < 0 || !S_ISDIR(entry.info.st_mode)) return countFailure(Status::Denied);
    if (isReadOnlyMode(entry.info.st_mode)) return countFailure(Status::Denied);
    if (::unlinkat(entry.parent, entry.hostName.c_str(), AT_REMOVEDIR) != 0) return countFailure(statusOf(errno));
    ++counter_.totals.folders;
    resolver_.noteRemoved(entry);
    resolver_.forget(path, path.names.size() - 1);
    return Status::Ok;
}

Status MachineFiles::deleteOneFolder(const MachinePath& path, bool force) {
    FoundEntry entry;
    if (const Status status = resolver_.entry(path, entry); !ok(status)) return status;
    if (entry.parent < 0) return countFailure(Status::Denied);
    if (S_ISLNK(entry.info.st_mode)) return countFailure(Status::Denied);
    if (!S_ISDIR(entry.info.st_mode)) return Status::PathNotFound;

    // Handles of its own: what the resolver keeps open below this folder goes with it.
    const Handle parent(::fcntl(entry.parent, F_DUPFD_CLOEXEC, 0));
    bool listable = true;
    const Handle folder = platform::machine::openFolder(entry.parent, entry.hostName.c_str(), listable);
    FolderIdentity identity;
    if (!folder || !identify(folder.get(), identity)) return countFailure(statusOf(errno));
    if (!parent) return countFailure(Status::Denied);
    if (resolver_.isProgramRoot(identity) || !identity.sameMount(entry.parentIdentity))
        return countFailure(Status::Denied);
    resolver_.forget(path, path.names.size() - 1);
    resolver_.noteRemoved(entry);
    const std::string hostName = entry.hostName;
    const TreeWalk::Exceptions exceptions = walkExceptions();
    return TreeRemoval(counter_, force).run(parent.get(), hostName.c_str(), folder.get(), identity, exceptions);
}

Status MachineFiles::DeleteFolder(const std::string& folder, bool force) {
    MachinePath path;
    if (const Status status = parseMachinePath(folder, path); !ok(status)) return status;
    if (path.emptyLastPart) return Status::InvalidName;
    if (!path.wildcard) return deleteOneFolder(path, force);

    OpenFolder open;
    if (const Status status = resolver_.parent(path, open, true); !ok(status)) return status;
    if (!open.listable) return Status::Denied;
    std::deque<std::string> matches;
    DirectoryReader reader;
    DirectoryReader::Entry found{};
    while (reader.next(open.handle, found)) {
        if ((found.type == DT_DIR || found.type == DT_UNKNOWN) && isListable(found.name) &&
            base::wildcardMatch(path.last(), found.name)) {
            matches.emplace_back(found.name);
        }
    }
    if (reader.error() != 0) return statusOf(reader.error());
    Status first = Status::Ok;
    bool any = false;
    for (std::string& name : matches) {
        path.names.back() = std::move(name);
        const Status status = deleteOneFolder(path, force);
        if (status == Status::NotFound || status == Status::PathNotFound) continue;
        any = true;
        if (!ok(status) && ok(first)) first = status;
    }
    return any ? first : Status::NotFound;
}

Status MachineFiles::OpenForOverwrite(const std::string& file, std::unique_ptr<OverwriteHandle>& handle) {
    handle.reset();
    FoundEntry entry;
    if (const Status status = findFile(file, entry); !ok(status)) return status;
    if (!S_ISREG(entry.info.st_mode) || isReadOnlyMode(entry.info.st_mode)) return Status::Denied;
    Handle opened;
    struct stat info {};
    if (const Status status = openPlainFile(entry.parent, entry.hostName, O_WRONLY, opened, info); !ok(status))
        return status;
    // The content may be wanted under its further name, which may lie anywhere.
    if (info.st_nlink > 1 || isReadOnlyMode(info.st_mode)) return Status::Denied;
    handle = std::make_unique<OpenFile>(std::move(opened), static_cast<std::uint64_t>(info.st_size));
    return Status::Ok;
}

}  // namespace tidvane::platform::machine
