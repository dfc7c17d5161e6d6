#include "platform/machine/entry_rename.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tidvane::platform::machine {

namespace {

VolumeAbility ability = VolumeAbility::All;

constexpr int kNoFollow = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;

bool notKnown(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

int renameExclusively(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
    if (ability != VolumeAbility::All) return EINVAL;
    return ::renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE) == 0 ? 0 : errno;
}

int giveFurtherName(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
    if (ability == VolumeAbility::NoFurtherNames) return EPERM;
    return ::linkat(fromFolder, from.c_str(), toFolder, to.c_str(), 0) == 0 ? 0 : errno;
}

// On a volume without regard to case the new spelling of an entry finds the entry itself.
bool isSameEntry(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && (S_ISDIR(a.st_mode) || a.st_nlink == 1);
}

}  // namespace

void limitVolumes(VolumeAbility limit) {
    ability = limit;
}

bool mayMakeNamelessFiles() {
    return ability == VolumeAbility::All;
}

int renameNoReplace(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
    const int error = renameExclusively(fromFolder, from, toFolder, to);
    if (!notKnown(error)) return error;

    struct stat source {};
    struct stat target {};
    if (::fstatat(fromFolder, from.c_str(), &source, kNoFollow) != 0) return errno;
    if (::fstatat(toFolder, to.c_str(), &target, kNoFollow) == 0) {
        if (!isSameEntry(source, target)) return EEXIST;
    } else if (errno != ENOENT) {
        return errno;
    } else if (!S_ISDIR(source.st_mode)) {
        const int linked = giveFurtherName(fromFolder, from, toFolder, to);
        if (linked == EEXIST || linked == EXDEV || linked == ENOENT || linked == ENOSPC) return linked;
        if (linked == 0) {
            if (::unlinkat(fromFolder, from.c_str(), 0) == 0) return 0;
            const int kept = errno;
            ::unlinkat(toFolder, to.c_str(), 0);
            return kept;
        }
    }
    return ::renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0 ? 0 : errno;
}

}  // namespace tidvane::platform::machine
