#include "platform/machine/folder_rights.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

#include "platform/machine/tree_removal.h"

namespace tidvane::platform::machine {

namespace {

bool isOwner(const struct statx& state) {
    return state.stx_uid == ::geteuid();
}

bool isReadOnly(const struct statx& state) {
    return isReadOnlyMode(state.stx_mode);
}

}  // namespace

bool hasCapability(unsigned number) {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3]{};
    if (::syscall(SYS_capget, &header, data) != 0) return ::geteuid() == 0;
    return (data[number / 32].effective >> (number % 32) & 1) != 0;
}

int stateOf(int folder, const char* name, struct statx& state) {
    return ::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, kStateMask, &state) == 0 ? 0 : errno;
}

int stateOf(int handle, struct statx& state) {
    return ::statx(handle, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, kStateMask, &state) == 0 ? 0 : errno;
}

FolderRights::FolderRights(int folder, std::optional<bool> readOnly) {
    if (const int error = stateOf(folder, state_); error != 0) {
        access_ = error;
        return;
    }
    readOnly_ = readOnly.value_or(isReadOnly(state_));
    access_ = ::faccessat(folder, ".", W_OK | X_OK, AT_EACCESS) == 0 ? 0 : errno;
    if (readOnly_ == isReadOnly(state_)) return;
    if (readOnly_) {
        if (access_ == 0 && !hasCapability(CAP_DAC_OVERRIDE)) access_ = EACCES;
    } else {
        readOnly_ = true;  // until it is so
        makeWritable();
    }
}

int FolderRights::toTakeOut(const struct statx& entry) const {
    if (access_ != 0) return access_;
    if ((state_.stx_attributes & STATX_ATTR_APPEND) != 0) return EPERM;
    if ((entry.stx_attributes & (STATX_ATTR_APPEND | STATX_ATTR_IMMUTABLE)) != 0) return EPERM;
    if ((state_.stx_mode & S_ISVTX) != 0 && !isOwner(state_) && !isOwner(entry) && !hasCapability(CAP_FOWNER))
        return EPERM;
    // A root of a mount: here a plain file, as folders are compared by their mounts before.
    if ((entry.stx_attributes & entry.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0) return EBUSY;
    return 0;
}

bool FolderRights::canBeMadeWritable() const {
    return access_ == EACCES && readOnly_ && (isOwner(state_) || hasCapability(CAP_FOWNER));
}

void FolderRights::makeWritable() {
    if (!canBeMadeWritable()) return;
    readOnly_ = false;
    // The right to write goes to the owner; to search it as well he must have been given before.
    if (isOwner(state_) && (state_.stx_mode & S_IXUSR) != 0) access_ = 0;
}

}  // namespace tidvane::platform::machine
