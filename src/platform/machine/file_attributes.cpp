#include "platform/machine/file_attributes.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "platform/file_system.h"
#include "platform/machine/directory_handle.h"
#include "platform/machine/folder_rights.h"
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

// The number in front of the value, "0x22" or "0x22 and more". Newer versions of Samba leave the text out and go on in
// binary, least byte first: 2 bytes of padding, 2 bytes version, 4 bytes version again, from version 3 on 4 bytes that
// tell what is valid (bit 0: the attributes), and 4 bytes attributes. A value that cannot be understood may say that
// the file is hidden, and counts as that.
unsigned storedBits(std::string_view value) {
    unsigned bits = 0;
    if (value.size() >= 3 && value[0] == '0' && (value[1] == 'x' || value[1] == 'X')) {
        const auto [end, problem] = std::from_chars(value.data() + 2, value.data() + value.size(), bits, 16);
        return problem == std::errc() && end != value.data() + 2 ? bits & kStoredBits : attribute::Hidden;
    }
    const auto byte = [value](std::size_t at) { return static_cast<unsigned char>(value[at]); };
    if (value.size() >= 16 && byte(0) == 0 && byte(2) >= 3 && byte(2) <= 5 && byte(3) == 0) {
        if ((byte(8) & 1) == 0) return 0;
        return (byte(12) | static_cast<unsigned>(byte(13)) << 8) & kStoredBits;
    }
    return attribute::Hidden;
}

}  // namespace

unsigned storedAttributes(int parent, const std::string& name) {
    char text[256];
    const ssize_t length = readStored(parent, name, text, sizeof text);
    if (length < 0) return errno == EACCES || errno == ERANGE || errno == EIO ? attribute::Hidden : 0u;
    return storedBits(std::string_view(text, static_cast<std::size_t>(length)));
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

Status wouldChangeAttributes(int parent, const std::string& name, const struct statx& state, unsigned attributes,
                             std::optional<bool> readOnly, unsigned& becomes) {
    if (!S_ISREG(state.stx_mode) && !S_ISDIR(state.stx_mode)) return Status::Denied;
    if ((state.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0) return Status::Denied;
    const bool isReadOnly = readOnly.value_or(isReadOnlyMode(state.stx_mode));
    const bool wanted = (attributes & attribute::ReadOnly) != 0;
    if (wanted != isReadOnly && state.stx_uid != ::geteuid() && !hasCapability(CAP_FOWNER)) return Status::Denied;
    const unsigned bits = attributes & kStoredBits;
    becomes = attributes & (kStoredBits | attribute::ReadOnly);
    const unsigned stored = storedAttributes(parent, name);
    if (stored == bits) return Status::Ok;
    const bool unread = ::lgetxattr((handlePath(parent) + "/" + name).c_str(), kStored, nullptr, 0) < 0;
    if (unread && (errno == ENOTSUP || errno == EACCES)) becomes = attributes & attribute::ReadOnly;
    // The answer of a volume that knows no extended attributes.
    if (unread && errno == ENOTSUP) return bits == 0 || bits == attribute::Archive ? Status::Ok : Status::Failed;
    if (unread && errno == EACCES) becomes |= attribute::Hidden;  // whatever is written, it cannot be read
    if (wanted != isReadOnly && !wanted && state.stx_uid == ::geteuid()) return Status::Ok;
    const int flags = AT_EACCESS | AT_SYMLINK_NOFOLLOW;
    return ::faccessat(parent, name.c_str(), W_OK, flags) == 0 ? Status::Ok : statusOf(errno);
}

}  // namespace tidvane::platform::machine
