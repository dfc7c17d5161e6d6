#include "platform/machine/file_attributes.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdint>

#include "platform/file_system.h"
#include "platform/machine/directory_handle.h"
#include "platform/machine/tree_removal.h"

namespace tidvane::platform::machine {

namespace {

constexpr const char* kStored = "user.DOSATTRIB";
constexpr unsigned kStoredBits = attribute::Hidden | attribute::System | attribute::Archive;

std::string handlePath(int handle) {
    return "/proc/self/fd/" + std::to_string(handle);
}

// Reads the extended attribute of an entry below a directory handle. Kernels from 6.13 on have a call for that, which
// the C library does not know yet; older ones need the way through /proc, which costs several times as much.
ssize_t readStored(int parent, const std::string& name, char* text, std::size_t size) {
#if defined(__x86_64__) || defined(__aarch64__)
    constexpr long kGetxattrat = 464;
    struct {
        std::uint64_t value;
        std::uint32_t size;
        std::uint32_t flags;
    } arguments{reinterpret_cast<std::uintptr_t>(text), static_cast<std::uint32_t>(size), 0};
    static bool known = true;
    if (known) {
        const long length =
            ::syscall(kGetxattrat, parent, name.c_str(), AT_SYMLINK_NOFOLLOW, kStored, &arguments, sizeof arguments);
        if (length >= 0 || (errno != ENOSYS && errno != EPERM)) return length;
        known = false;
    }
#endif
    return ::lgetxattr((handlePath(parent) + "/" + name).c_str(), kStored, text, size);
}

std::string storedText(unsigned bits) {
    char digits[16];
    return "0x" + std::string(digits, std::to_chars(digits, digits + sizeof digits, bits, 16).ptr);
}

Status storeAttributes(int parent, const std::string& name, unsigned bits) {
    const Handle handle(::openat(parent, name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!handle) return statusOf(errno);
    const std::string path = handlePath(handle.get());
    if (bits == 0) {
        const bool gone = ::removexattr(path.c_str(), kStored) == 0 || errno == ENODATA || errno == ENOTSUP;
        return gone ? Status::Ok : statusOf(errno);
    }
    const std::string text = storedText(bits);
    if (::setxattr(path.c_str(), kStored, text.data(), text.size(), 0) == 0) return Status::Ok;
    // A volume without extended attributes: an archive bit may get lost, a hidden file may not become a visible one.
    if (errno == ENOTSUP && bits == attribute::Archive) return Status::Ok;
    return errno == ENOTSUP ? Status::Failed : statusOf(errno);
}

}  // namespace

unsigned storedAttributes(int parent, const std::string& name) {
    char text[32];
    const ssize_t length = readStored(parent, name, text, sizeof text - 1);
    if (length < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return 0;
    unsigned bits = 0;
    (void)std::from_chars(text + 2, text + length, bits, 16);
    return bits & kStoredBits;
}

void giveStoredAttributes(int file, unsigned stored) {
    if (stored == 0) return;
    const std::string text = storedText(stored);
    // A volume that cannot hold them had none to give.
    (void)::fsetxattr(file, kStored, text.data(), text.size(), 0);
}

bool linksToFolder(int parent, const std::string& name) {
    struct stat target {};
    return ::fstatat(parent, name.c_str(), &target, AT_NO_AUTOMOUNT) == 0 && S_ISDIR(target.st_mode);
}

unsigned attributesOf(int parent, const std::string& name, const struct stat& info) {
    if (S_ISLNK(info.st_mode)) {
        return attribute::ReparsePoint | (parent >= 0 && linksToFolder(parent, name) ? attribute::Directory : 0u);
    }
    unsigned bits = S_ISDIR(info.st_mode) ? attribute::Directory : 0u;
    if (isReadOnlyMode(info.st_mode)) bits |= attribute::ReadOnly;
    if (parent >= 0 && (S_ISREG(info.st_mode) || S_ISDIR(info.st_mode))) bits |= storedAttributes(parent, name);
    return bits == 0 ? attribute::Normal : bits;
}

Status changeAttributes(int parent, const std::string& name, const struct stat& info, unsigned attributes) {
    if (!S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode)) return Status::Denied;
    const bool readOnly = (attributes & attribute::ReadOnly) != 0;
    const unsigned stored = storedAttributes(parent, name);
    const unsigned wanted = attributes & kStoredBits;
    const mode_t mode = info.st_mode & 07777;
    // Made writable first and read-only last: on a read-only file the extended attribute cannot be changed.
    if (!readOnly && isReadOnlyMode(mode) &&
        ::fchmodat(parent, name.c_str(), mode | S_IWUSR, AT_SYMLINK_NOFOLLOW) != 0) {
        return statusOf(errno);
    }
    if (stored != wanted) {
        if (const Status status = storeAttributes(parent, name, wanted); !ok(status)) return status;
    }
    if (readOnly && !isReadOnlyMode(mode) &&
        ::fchmodat(parent, name.c_str(), mode & ~mode_t{0222}, AT_SYMLINK_NOFOLLOW) != 0) {
        return statusOf(errno);
    }
    return Status::Ok;
}

}  // namespace tidvane::platform::machine
