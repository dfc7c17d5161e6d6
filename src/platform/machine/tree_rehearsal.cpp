#include "platform/machine/tree_rehearsal.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/machine/entry_details.h"
#include "platform/machine/tree_removal.h"

namespace tidvane::platform::machine {

namespace {

RehearsedTree since(const RehearsedTree& before, const RehearsedTree& now) {
    RehearsedTree inside = now;
    inside.gone -= before.gone;
    inside.measured.folders -= before.measured.folders;
    inside.measured.files -= before.measured.files;
    inside.measured.bytes -= before.measured.bytes;
    return inside;
}

}  // namespace

void TreeRehearsal::run(int parent, const char* name, int folder, const FolderIdentity& identity,
                        const Exceptions& exceptions, const Circumstances& now) {
    visits_.clear();
    enter(folder, name, now.readOnly);
    if (!TreeWalk::run(folder, identity, exceptions)) return;  // stopped: nobody wants the rest
    Visit& top = visits_.back();
    const bool keptInside = visitor_.ownEntries(tree_) || topKept();
    bool kept = keptInside;
    int error = 0;
    if (parent >= 0 && !keptInside) {
        FolderRights above(parent, now.folderReadOnly);
        error = removeFolder(&above, top);
        if (error != 0) failed(nullptr, error, kept);
    }
    tree_.topGoes = parent >= 0 && !kept;
    leave(tree_.topGoes);
}

void TreeRehearsal::enter(int folder, const char* name, std::optional<bool> readOnly) {
    visits_.push_back({name, FolderRights(folder, readOnly), readOnly, tree_});
    visits_.back().closer = visitor_.enterFolder(name);
}

void TreeRehearsal::leave(bool goes) {
    if (goes) ++tree_.gone.folders;
    const Visit left = std::move(visits_.back());
    visits_.pop_back();
    const bool someWent = left.someWent && !left.unread;
    visitor_.leaveFolder({goes, someWent, left.madeWritable && !goes}, since(left.before, tree_));
    if (!goes || visits_.empty()) return;
    visits_.back().someWent = true;
    if (visits_.back().closer) visitor_.goes(left.name, EntryKind::Folder, 0);
}

void TreeRehearsal::failed(const char* name, int error, bool& kept) {
    kept = true;
    ++tree_.gone.failed;
    if (ok(tree_.first)) tree_.first = error == EXDEV ? Status::Denied : statusOf(error, Status::Failed);
    if (name != nullptr) visitor_.stays(name);
}

int TreeRehearsal::takeOut(Visit& from, const struct statx& entry) const {
    const int error = from.rights.toTakeOut(entry);
    if (error != EACCES || !force_ || !from.rights.canBeMadeWritable()) return error;
    from.rights.makeWritable();
    from.madeWritable = true;
    return from.rights.toTakeOut(entry);
}

int TreeRehearsal::removeFolder(const FolderRights* above, const Visit& folder) const {
    const struct statx& state = folder.rights.state();
    if (!force_ && folder.readOnly.value_or(isReadOnlyMode(state.stx_mode))) return EACCES;
    const int error = above->toTakeOut(state);
    if (error != EACCES || !force_ || !above->canBeMadeWritable()) return error;
    // Only for this step: afterwards the folder above gets its rights back.
    FolderRights opened = *above;
    opened.makeWritable();
    return opened.toTakeOut(state);
}

bool TreeRehearsal::onFile(int folder, const char* name, bool& kept) {
    Visit& visit = visits_.back();
    struct statx state {};
    if (const int error = stateOf(folder, name, state); error != 0) {
        if (error != ENOENT) failed(name, error, kept);
        return true;
    }
    bool readOnly = !S_ISLNK(state.stx_mode) && isReadOnlyMode(state.stx_mode);
    std::uint64_t length = S_ISREG(state.stx_mode) ? state.stx_size : 0;
    if (visit.closer) {
        const TreeVisitor::EntryNow now = visitor_.entry(detailsOf(name, state));
        if (now.stop) return false;
        if (now.gone) return true;
        readOnly = now.readOnly.value_or(readOnly);
        if (now.length) {
            length = *now.length;
            state.stx_nlink = 1;
        }
    }
    ++tree_.measured.files;
    tree_.measured.bytes += length;
    if (!force_ && readOnly) {
        failed(name, EACCES, kept);
        return true;
    }
    if (const int error = takeOut(visit, state); error != 0) {
        failed(name, error, kept);
        return true;
    }
    if (length != 0 && state.stx_nlink > 1) length = visitor_.bytesOfName(detailsOf(name, state));
    ++tree_.gone.files;
    tree_.gone.bytes += length;
    visit.someWent = true;
    if (visit.closer) visitor_.goes(name, kindOfMode(state.stx_mode), length);
    return true;
}

bool TreeRehearsal::onFolder(int /*folder*/, const char* name, bool& enter, bool& /*kept*/) {
    nextReadOnly_.reset();
    if (visits_.back().closer) {
        EntryDetails details;
        details.name = name;
        details.kind = EntryKind::Folder;
        const TreeVisitor::EntryNow now = visitor_.entry(details);
        if (now.stop) return false;
        if (now.gone) {
            enter = false;
            return true;
        }
        nextReadOnly_ = now.readOnly;
    }
    ++tree_.measured.folders;
    enter = true;
    return true;
}

bool TreeRehearsal::onEnter(int folder, const char* name) {
    enter(folder, name, nextReadOnly_);
    return true;
}

void TreeRehearsal::note(int error) {
    if (error == EXDEV || error == EPERM) {
        tree_.measured.partial = true;
    } else {
        tree_.measurable = false;
    }
}

bool TreeRehearsal::onRefused(int /*folder*/, const char* name, int error, bool& kept) {
    while (visits_.size() > depth()) leave(false);  // the walk had to give these up
    note(error);
    // One that cannot be looked into goes if it is empty. That cannot be told from outside: it hardly ever is.
    failed(name, error, kept);
    return true;
}

bool TreeRehearsal::onUnreadable(int /*above*/, const char* /*name*/, int error, bool& kept) {
    note(error);
    visits_.back().unread = true;
    failed(nullptr, error, kept);
    return true;
}

bool TreeRehearsal::onLeave(int /*parent*/, const char* /*name*/, bool keptInside, bool& kept, bool& /*again*/) {
    keptInside = visitor_.ownEntries(tree_) || keptInside;
    kept = kept || keptInside;
    bool goes = !keptInside;
    if (goes) {
        const int error = removeFolder(&visits_[visits_.size() - 2].rights, visits_.back());
        goes = error == 0;
        if (!goes) failed(nullptr, error, kept);
    }
    leave(goes);
    return true;
}

}  // namespace tidvane::platform::machine
