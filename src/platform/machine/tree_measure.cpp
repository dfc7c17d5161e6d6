#include "platform/machine/tree_measure.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace tidvane::platform::machine {

Status TreeMeasure::run(int folder, const FolderIdentity& identity, const Exceptions& exceptions,
                        FolderTotals& totals) {
    totals_ = {};
    status_ = Status::Ok;
    if (!TreeWalk::run(folder, identity, exceptions)) return status_;
    totals = totals_;
    return Status::Ok;
}

bool TreeMeasure::onFile(int folder, const char* name, bool& /*kept*/) {
    struct stat info {};
    if (::fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return true;  // gone meanwhile
    ++totals_.files;
    if (S_ISREG(info.st_mode)) totals_.bytes += static_cast<std::uint64_t>(info.st_size);
    return true;
}

bool TreeMeasure::onFolder(int /*folder*/, const char* /*name*/, bool& enter, bool& /*kept*/) {
    ++totals_.folders;
    enter = true;
    return true;
}

bool TreeMeasure::onRefused(int /*folder*/, const char* /*name*/, int error, bool& /*kept*/) {
    // Mount points and the program's own folder are passed over: they are no part of what is measured.
    if (error == EXDEV || error == EPERM) {
        totals_.partial = true;
        return true;
    }
    status_ = error == EACCES ? Status::Denied : statusOf(error, Status::Failed);
    return false;
}

bool TreeMeasure::onLeave(int /*parent*/, const char* /*name*/, bool /*keptInside*/, bool& /*kept*/, bool& /*again*/) {
    return true;
}

}  // namespace tidvane::platform::machine
