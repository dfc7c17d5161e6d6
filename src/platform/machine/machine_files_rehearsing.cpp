#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/common/windows_path.h"
#include "platform/machine/entry_details.h"
#include "platform/machine/file_attributes.h"
#include "platform/machine/machine_files.h"
#include "platform/machine/tree_rehearsal.h"
#include "platform/machine/tree_removal.h"

namespace tidvane::platform::machine {

namespace {

// As long as the folders that are kept open are taken to be where they were.
constexpr std::chrono::milliseconds kTrusted{2};

// Whether content may be written. A file that the preview made writable is one of this user's own.
int mayWrite(const FoundEntry& entry, std::optional<bool> readOnly) {
    if (::faccessat(entry.parent, entry.hostName.c_str(), W_OK, AT_EACCESS | AT_SYMLINK_NOFOLLOW) == 0) return 0;
    const int error = errno;
    const bool made = readOnly == false && isReadOnlyMode(entry.info.st_mode) && entry.info.st_uid == ::geteuid();
    return error == EACCES && made ? 0 : error;
}

bool counts(Status status) {
    return !ok(status) && status != Status::NotFound && status != Status::PathNotFound;
}

}  // namespace

const FolderRights& MachineFiles::rightsOf(int folder, const FolderIdentity& identity, std::optional<bool> readOnly) {
    const auto now = std::chrono::steady_clock::now();
    const bool known = rights_ && rights_->folder.sameFolder(identity) && rights_->readOnly == readOnly &&
                       now - rights_->asked <= kTrusted;
    if (!known) rights_ = KnownRights{FolderRights(folder, readOnly), identity, readOnly, now};
    return rights_->rights;
}

Status MachineFiles::rehearse(Intent intent, const MachinePath& path, const Circumstances& now, const FoundEntry& entry,
                              const struct statx& state) {
    const mode_t mode = entry.info.st_mode;
    const bool readOnly = now.readOnly.value_or(!S_ISLNK(mode) && isReadOnlyMode(mode));
    if (entry.parent < 0) return Status::Denied;
    const FolderRights& rights = rightsOf(entry.parent, entry.parentIdentity, now.folderReadOnly);
    switch (intent) {
        case Intent::RemoveFile:
            if (S_ISDIR(mode) || (readOnly && !S_ISLNK(mode))) return Status::Denied;
            return statusOf(rights.toTakeOut(state));
        case Intent::RemoveFolder:
            if (!S_ISDIR(mode) || readOnly) return Status::Denied;
            return statusOf(rights.toTakeOut(state));
        case Intent::MoveAway: {
            int error = rights.toTakeOut(state);
            // In a folder that moves, the way up changes.
            if (error == 0 && S_ISDIR(mode)) error = mayWrite(entry, now.readOnly);
            return statusOf(error);
        }
        case Intent::ReplaceFile: {
            if (!S_ISREG(mode) || readOnly) return Status::Denied;
            const int error = rights.toAdd();
            return statusOf(error != 0 ? error : rights.toTakeOut(state));
        }
        case Intent::OverwriteFile:
            if (!S_ISREG(mode) || readOnly || (entry.info.st_nlink > 1 && !now.onlyName)) return Status::Denied;
            return statusOf(mayWrite(entry, now.readOnly));
        case Intent::Create:
            if (!isCreatableName(path.last())) return Status::InvalidName;
            return statusOf(rights.toAdd());
    }
    return Status::Failed;
}

Rehearsed MachineFiles::Rehearse(Intent intent, const std::string& path, const Circumstances& now,
                                 bool withAttributes) {
    Rehearsed answer;
    MachinePath parsed;
    answer.status = parseMachinePath(path, parsed);
    const bool folderMeant = intent == Intent::RemoveFolder || intent == Intent::MoveAway || intent == Intent::Create;
    if (ok(answer.status) && (parsed.wildcard || (parsed.emptyLastPart && !folderMeant)))
        answer.status = Status::InvalidName;
    if (ok(answer.status) && parsed.isRoot() && intent != Intent::RemoveFolder) answer.status = Status::InvalidName;
    if (!ok(answer.status)) return answer;

    FoundEntry entry;
    struct statx state {};
    if (intent == Intent::Create) {
        OpenFolder above;
        answer.status = resolver_.parent(parsed, above);
        entry.parent = above.handle;
        entry.parentIdentity = above.identity;
    } else {
        answer.status = resolver_.entry(parsed, entry, &state);
    }
    if (!ok(answer.status)) return answer;
    if (intent != Intent::Create) {
        answer.details = detailsOf(entry.parent < 0 ? std::string() : entry.hostName, entry.info);
        if (withAttributes) answer.attributes = attributesOf(entry.parent, entry.hostName, entry.info);
    }
    answer.status = rehearse(intent, parsed, now, entry, state);
    answer.counts = (intent == Intent::RemoveFile || intent == Intent::RemoveFolder) && counts(answer.status);
    return answer;
}

std::string MachineFiles::TargetOfLink(const std::string& link) {
    FoundEntry entry;
    if (!ok(findFile(link, entry)) || entry.parent < 0 || !S_ISLNK(entry.info.st_mode)) return {};
    std::error_code problem;
    const std::string parent = "/proc/self/fd/" + std::to_string(entry.parent) + "/";
    const std::string host = std::filesystem::canonical(parent + entry.hostName, problem).string();
    return problem ? std::string() : resolver_.pathOf(host);
}

Status MachineFiles::RehearseSetAttributes(const std::string& path, unsigned attributes, const Circumstances& now,
                                           unsigned& becomes) {
    MachinePath parsed;
    if (const Status status = parseMachinePath(path, parsed); !ok(status)) return status;
    if (parsed.wildcard) return Status::InvalidName;
    FoundEntry entry;
    struct statx state {};
    if (const Status status = resolver_.entry(parsed, entry, &state); !ok(status)) return status;
    if (entry.parent < 0) return Status::Denied;
    return wouldChangeAttributes(entry.parent, entry.hostName, state, attributes, now.readOnly, becomes);
}

Status MachineFiles::openToRehearse(const MachinePath& path, Extent extent, Handle& parent, std::string& name,
                                    Handle& folder, FolderIdentity& identity) {
    if (extent == Extent::Content) {
        OpenFolder open;
        if (const Status status = resolver_.folderToRead(path, open); !ok(status)) return status;
        if (!open.listable) return Status::Denied;
        // Opened anew: a second handle of the same opening would share the place up to which the folder was read.
        folder = Handle(::openat(open.handle, ".", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        identity = open.identity;
        return folder ? Status::Ok : statusOf(errno);
    }
    FoundEntry entry;
    if (const Status status = resolver_.entry(path, entry); !ok(status)) return status;
    if (entry.parent < 0 || S_ISLNK(entry.info.st_mode)) return Status::Denied;
    if (!S_ISDIR(entry.info.st_mode)) return Status::PathNotFound;
    parent = Handle(::fcntl(entry.parent, F_DUPFD_CLOEXEC, 0));
    name = entry.hostName;
    bool listable = true;
    folder = platform::machine::openFolder(entry.parent, name.c_str(), listable);
    if (!folder || !identify(folder.get(), identity)) return statusOf(errno);
    const bool outside = resolver_.isProgramRoot(identity) || !identity.sameMount(entry.parentIdentity);
    return !parent || outside ? Status::Denied : Status::Ok;
}

Status MachineFiles::RehearseDeleteFolder(const std::string& folder, Extent extent, bool force,
                                          const Circumstances& now, TreeVisitor& visitor, RehearsedTree& tree) {
    MachinePath path;
    if (const Status status = parseMachinePath(folder, path); !ok(status)) return status;
    if (path.wildcard || (path.emptyLastPart && extent == Extent::Folder)) return Status::InvalidName;
    const TreeWalk::Exceptions exceptions = walkExceptions();
    Handle parent;
    Handle top;
    std::string name;
    FolderIdentity identity;
    if (const Status status = openToRehearse(path, extent, parent, name, top, identity); !ok(status)) return status;
    TreeRehearsal(visitor, tree, force).run(parent.get(), name.c_str(), top.get(), identity, exceptions, now);
    return Status::Ok;
}

}  // namespace tidvane::platform::machine
