#include "platform/machine/directory_handle.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tidvane::platform::machine {

namespace {

// The kernel's record, which the C library does not declare.
struct KernelEntry {
    std::uint64_t inode;
    std::int64_t offset;
    unsigned short length;
    unsigned char type;
    char name[1];
};

}  // namespace

void Handle::reset() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

bool identify(int descriptor, FolderIdentity& identity) {
    struct statx found {};
    if (::statx(descriptor, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_INO | STATX_MNT_ID, &found) != 0) return false;
    identity.device = (static_cast<std::uint64_t>(found.stx_dev_major) << 32) | found.stx_dev_minor;
    identity.inode = found.stx_ino;
    identity.mount = (found.stx_mask & STATX_MNT_ID) != 0 ? found.stx_mnt_id : 0;
    return true;
}

Handle openFolder(int parent, const char* name, bool& listable) {
    constexpr int kFlags = O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    listable = true;
    Handle folder(::openat(parent, name, kFlags | O_RDONLY | O_NONBLOCK));
    if (!folder && errno == EACCES) {
        listable = false;
        folder = Handle(::openat(parent, name, kFlags | O_PATH));
    }
    return folder;
}

Status statusOf(int error, Status missing) {
    switch (error) {
        case 0:
            return Status::Ok;
        case ENOENT:
        case ENAMETOOLONG:  // longer than any name there: it cannot exist
            return missing;
        case ENOTDIR:
        case ELOOP:
            return Status::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return Status::Denied;
        case EBUSY:
        case ETXTBSY:
        case EAGAIN:
            return Status::InUse;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return Status::DiskFull;
        case EINVAL:
            return Status::InvalidName;
        case ENOTEMPTY:
            return Status::NotEmpty;
        case EEXIST:
            return Status::Exists;
        case ENOMEDIUM:
        case ENODEV:
        case ENXIO:
            return Status::NotReady;
        default:
            return Status::Failed;
    }
}

bool DirectoryReader::next(int folder, Entry& entry) {
    error_ = 0;
    for (;;) {
        if (position_ >= filled_) {
            if (seek_) {
                if (::lseek(folder, behind_, SEEK_SET) < 0) {
                    error_ = errno;
                    return false;
                }
                seek_ = false;
            }
            if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
            const long got = ::syscall(SYS_getdents64, folder, buffer_.get(), kBufferSize);
            position_ = 0;
            filled_ = got > 0 ? static_cast<std::size_t>(got) : 0;
            if (got <= 0) {
                error_ = got < 0 ? errno : 0;
                return false;
            }
        }
        const char* record = buffer_.get() + position_;
        std::uint64_t inode = 0;
        std::int64_t offset = 0;
        unsigned short length = 0;
        std::memcpy(&inode, record + offsetof(KernelEntry, inode), sizeof inode);
        std::memcpy(&offset, record + offsetof(KernelEntry, offset), sizeof offset);
        std::memcpy(&length, record + offsetof(KernelEntry, length), sizeof length);
        position_ += length;
        behind_ = offset;
        const char* name = record + offsetof(KernelEntry, name);
        if (name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0))) continue;
        entry.name = name;
        entry.type = static_cast<unsigned char>(record[offsetof(KernelEntry, type)]);
        entry.inode = inode;
        return true;
    }
}

bool DirectoryReader::rewind(int folder) {
    position_ = filled_ = 0;
    behind_ = 0;
    seek_ = false;
    return ::lseek(folder, 0, SEEK_SET) == 0;
}

void DirectoryReader::suspend() {
    buffer_.reset();
    position_ = filled_ = 0;
    seek_ = true;
}

}  // namespace tidvane::platform::machine
