#include "platform/machine/tree_walk.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "base/text.h"

namespace tidvane::platform::machine {

bool TreeWalk::run(int top, const FolderIdentity& identity, const Exceptions& exceptions) {
    levels_.clear();
    topKept_ = false;
    top_ = identity;
    levels_.emplace_back();
    levels_.back().descriptor = top;
    levels_.back().identity = identity;
    for (;;) {
        Level& level = levels_.back();
        DirectoryReader::Entry entry{};
        if (level.reader.next(level.descriptor, entry)) {
            if (!visit(level, entry, exceptions)) return false;
            continue;
        }
        if (const int error = level.reader.error(); error != 0) {
            const int above = levels_.size() == 1 ? level.descriptor : levels_[levels_.size() - 2].descriptor;
            if (!onUnreadable(above, level.name.c_str(), error, level.kept)) return false;
        }
        if (levels_.size() == 1) {
            topKept_ = level.kept;
            return true;
        }
        if (!ascend()) return false;
    }
}

bool TreeWalk::visit(Level& level, const DirectoryReader::Entry& entry, const Exceptions& exceptions) {
    const int folder = level.descriptor;
    bool isFolder = entry.type == DT_DIR;
    if (entry.type == DT_UNKNOWN) {
        struct stat info {};
        isFolder =
            ::fstatat(folder, entry.name, &info, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) == 0 && S_ISDIR(info.st_mode);
    }
    if (exceptions.programParent != nullptr && exceptions.programParent->sameFolder(level.identity) &&
        base::equalNoCase(entry.name, exceptions.programName)) {
        return onRefused(folder, entry.name, EPERM, level.kept);
    }
    if (!isFolder) return onFile(folder, entry.name, level.kept);
    bool enter = true;
    if (!onFolder(folder, entry.name, enter, level.kept)) return false;
    return !enter || descend(entry.name, exceptions);
}

bool TreeWalk::descend(const char* name, const Exceptions& exceptions) {
    Level& parent = levels_.back();
    Level child;
    bool listable = true;
    child.handle = openFolder(parent.descriptor, name, listable);
    int error = child.handle ? 0 : errno;
    if (error == ENOTDIR || error == ELOOP) return onFile(parent.descriptor, name, parent.kept);  // swapped meanwhile
    if (error == ENOENT) return true;                                                             // gone meanwhile
    if (error == 0 && !listable) error = EACCES;
    if (error == 0 && !identify(child.handle.get(), child.identity)) error = errno;
    if (error == 0 && !child.identity.sameMount(top_)) error = EXDEV;
    if (error == 0 && exceptions.programRoot != nullptr && exceptions.programRoot->sameFolder(child.identity))
        error = EPERM;
    if (error != 0) return onRefused(parent.descriptor, name, error, parent.kept);
    child.name = name;
    child.descriptor = child.handle.get();
    levels_.push_back(std::move(child));
    if (levels_.size() > kOpenNearTop + kOpenDeepest) {
        Level& closing = levels_[levels_.size() - 1 - kOpenDeepest];
        closing.reader.suspend();
        closing.handle.reset();
        closing.descriptor = -1;
    }
    return onEnter(levels_.back().descriptor, levels_.back().name.c_str());
}

// Back to the folder above, which may have to be opened again: through "..", if that is still the folder it was.
bool TreeWalk::reopen(std::size_t index, int below) {
    Level& level = levels_[index];
    if (level.descriptor >= 0) return true;
    Handle handle(::openat(below, "..", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    FolderIdentity identity;
    if (!handle || !identify(handle.get(), identity)) return false;
    if (!identity.sameFolder(level.identity) || !identity.sameMount(level.identity)) return false;
    level.handle = std::move(handle);
    level.descriptor = level.handle.get();
    return true;
}

bool TreeWalk::ascend() {
    const std::size_t below = levels_.size() - 1;
    if (!reopen(below - 1, levels_[below].descriptor)) {
        // Somebody moved the folder while the walk was inside it. What lies between it and the nearest folder that is
        // still open is left as it is.
        std::size_t open = below - 1;
        while (levels_[open].descriptor < 0) --open;
        const std::string name = levels_[open + 1].name;
        levels_.resize(open + 1);
        return onRefused(levels_.back().descriptor, name.c_str(), ESTALE, levels_.back().kept);
    }
    Level& child = levels_[below];
    Level& parent = levels_[below - 1];
    bool again = false;
    if (!onLeave(parent.descriptor, child.name.c_str(), child.kept, parent.kept, again)) return false;
    if (again && child.reader.rewind(child.descriptor)) return true;
    levels_.pop_back();
    return true;
}

}  // namespace tidvane::platform::machine
