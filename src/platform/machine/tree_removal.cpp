#include "platform/machine/tree_removal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace tidvane::platform::machine {

namespace {

constexpr int kNoFollow = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;

// A folder that is only read-only does not protect its content on Windows. True: it can be written to now.
bool makeWritable(int folder) {
    struct stat info {};
    if (::fstat(folder, &info) != 0 || !isReadOnlyMode(info.st_mode)) return false;
    return ::fchmod(folder, (info.st_mode & 07777) | S_IWUSR) == 0;
}

}  // namespace

Status TreeRemoval::run(int parent, const char* name, int folder, const FolderIdentity& identity,
                        const Exceptions& exceptions) {
    for (;;) {
        removedSeen_ = removed_;
        if (!TreeWalk::run(folder, identity, exceptions)) return first_;
        if (topKept()) return ok(first_) ? Status::Failed : first_;
        bool kept = false;
        bool again = false;
        (void)onLeave(parent, name, false, kept, again);
        if (!again) return first_;
    }
}

void TreeRemoval::failed(int error, bool& kept) {
    kept = true;
    ++counter_.totals.failed;
    if (ok(first_)) first_ = error == EXDEV ? Status::Denied : statusOf(error, Status::Failed);
}

bool TreeRemoval::unlinkEntry(int folder, const char* name, std::uint64_t bytes) {
    if (::unlinkat(folder, name, 0) != 0) {
        if (errno != EACCES || !force_ || !makeWritable(folder) || ::unlinkat(folder, name, 0) != 0) return false;
    }
    ++removed_;
    ++counter_.totals.files;
    counter_.totals.bytes += bytes;
    return true;
}

bool TreeRemoval::onFile(int folder, const char* name, bool& kept) {
    std::uint64_t bytes = 0;
    if (counter_.wantBytes || !force_) {
        struct stat info {};
        if (::fstatat(folder, name, &info, kNoFollow) != 0) {
            if (errno != ENOENT) failed(errno, kept);
            return true;
        }
        if (!force_ && !S_ISLNK(info.st_mode) && isReadOnlyMode(info.st_mode)) {
            failed(EACCES, kept);
            return true;
        }
        if (counter_.wantBytes) bytes = freedBytes(info);
    }
    if (!unlinkEntry(folder, name, bytes) && errno != ENOENT) failed(errno, kept);
    return true;
}

bool TreeRemoval::onFolder(int /*folder*/, const char* /*name*/, bool& enter, bool& /*kept*/) {
    enter = true;
    return true;
}

bool TreeRemoval::onRefused(int folder, const char* name, int error, bool& kept) {
    // A folder that cannot be looked into may still be empty.
    if (error != EACCES || removeEmpty(folder, name) != 0) failed(error, kept);
    return true;
}

int TreeRemoval::removeEmpty(int parent, const char* name) {
    if (!force_) {
        struct stat info {};
        if (::fstatat(parent, name, &info, kNoFollow) != 0) return errno;
        if (isReadOnlyMode(info.st_mode)) return EACCES;
    }
    if (::unlinkat(parent, name, AT_REMOVEDIR) != 0) {
        const int error = errno;
        struct stat above {};
        if (error != EACCES || !force_ || ::fstat(parent, &above) != 0 || !makeWritable(parent)) return error;
        const int second = ::unlinkat(parent, name, AT_REMOVEDIR) == 0 ? 0 : errno;
        // The folder above may be the one that the target lies in, which stays: as it was.
        (void)::fchmod(parent, above.st_mode & 07777);
        if (second != 0) return second;
    }
    ++removed_;
    ++counter_.totals.folders;
    return 0;
}

bool TreeRemoval::onLeave(int parent, const char* name, bool keptInside, bool& kept, bool& again) {
    if (keptInside) {
        kept = true;  // counted where it happened
        return true;
    }
    const int error = removeEmpty(parent, name);
    if (error == 0 || error == ENOENT) return true;
    // Reading a folder while it shrinks may pass over entries on some file systems, and others may still put files into
    // it: as long as that brings anything, it is read once more.
    if ((error == ENOTEMPTY || error == EEXIST) && removed_ != removedSeen_) {
        removedSeen_ = removed_;
        again = true;
        return true;
    }
    failed(error, kept);
    return true;
}

}  // namespace tidvane::platform::machine
