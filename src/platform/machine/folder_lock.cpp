#include "platform/machine/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace tidvane::platform::machine {

namespace {

LockAbility ability = LockAbility::All;

}  // namespace

void limitLocks(LockAbility limit) {
    ability = limit;
}

LockAnswer lockFolder(int folder) {
    if (ability != LockAbility::All) return LockAnswer::Unsupported;
    if (::flock(folder, LOCK_EX | LOCK_NB) == 0) return LockAnswer::Taken;
    return errno == EWOULDBLOCK ? LockAnswer::Held : LockAnswer::Unsupported;
}

void unlockFolder(int folder) {
    (void)::flock(folder, LOCK_UN);
}

LockAnswer lockFile(int file) {
    if (ability == LockAbility::Nothing) return LockAnswer::Unsupported;
    // Of the open file, not of the process: two machines of one process keep each other out, and reading the same file
    // through another descriptor does not end the lock.
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    if (::fcntl(file, F_OFD_SETLK, &lock) == 0) return LockAnswer::Taken;
    return errno == EAGAIN || errno == EACCES ? LockAnswer::Held : LockAnswer::Unsupported;
}

}  // namespace tidvane::platform::machine
