#include "platform/machine/path_resolver.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "base/text.h"
#include "platform/machine/entry_details.h"
#include "platform/machine/folder_rights.h"

namespace tidvane::platform::machine {

namespace {

using Clock = std::chrono::steady_clock;

// How long an open folder is taken to be where it was. Within a burst of removals nothing is asked twice; a folder that
// somebody else moves is noticed soon after, and until then its handle still leads into the same folder.
constexpr std::chrono::milliseconds kTrusted{2};

bool sameFolder(const struct stat& info, const FolderIdentity& identity) {
    const std::uint64_t device = (static_cast<std::uint64_t>(major(info.st_dev)) << 32) | minor(info.st_dev);
    return info.st_ino == identity.inode && device == identity.device;
}

// A cheap look before the full comparison: differing first letters in ASCII settle it.
bool mayBeEqual(char a, char b) {
    if (((a | b) & 0x80) != 0) return true;
    const auto fold = [](char sign) { return sign >= 'a' && sign <= 'z' ? static_cast<char>(sign - 32) : sign; };
    return fold(a) == fold(b);
}

}  // namespace

std::string findFolded(int folder, std::string_view name) {
    DirectoryReader reader;
    DirectoryReader::Entry entry{};
    while (reader.next(folder, entry)) {
        if (mayBeEqual(entry.name[0], name[0]) && base::equalNoCase(entry.name, name)) return entry.name;
    }
    return {};
}

bool PathResolver::addDrive(char letter, Handle root) {
    Root added;
    added.letter = letter;
    if (!identify(root.get(), added.identity)) return false;
    added.handle = std::move(root);
    roots_.push_back(std::move(added));
    return true;
}

bool PathResolver::mountProgram(const MachinePath& place, Handle root) {
    Root added;
    added.letter = place.drive;
    added.place = place;
    if (place.isRoot() || !identify(root.get(), added.identity)) return false;
    added.handle = std::move(root);
    roots_.push_back(std::move(added));
    program_ = roots_.size() - 1;
    return true;
}

PathResolver::Root* PathResolver::rootOf(const MachinePath& path, std::size_t depth, std::size_t& skip) {
    if (program_ != kNone && roots_[program_].letter == path.drive) {
        const std::vector<std::string>& place = roots_[program_].place.names;
        bool below = depth >= place.size();
        for (std::size_t i = 0; below && i < place.size(); ++i) below = base::equalNoCase(place[i], path.names[i]);
        if (below) {
            skip = place.size();
            return &roots_[program_];
        }
    }
    skip = 0;
    for (std::size_t i = 0; i < roots_.size(); ++i) {
        if (i != program_ && roots_[i].letter == path.drive) return &roots_[i];
    }
    return nullptr;
}

void PathResolver::truncate(Root& root, std::size_t levels) {
    if (levels < root.chain.size()) root.chain.resize(levels);
    if (root.firstOpen > levels) root.firstOpen = levels;
}

bool PathResolver::verify(Root& root) {
    root.verified = Clock::now();
    for (std::size_t i = root.firstOpen; i < root.chain.size(); ++i) {
        if (i == root.firstOpen && i > 0) continue;  // the folder above is closed; it is looked at when it is opened
        const int parent = i == 0 ? root.handle.get() : root.chain[i - 1].handle.get();
        struct stat info {};
        if (::fstatat(parent, root.chain[i].hostName.c_str(), &info, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0 ||
            !sameFolder(info, root.chain[i].identity)) {
            truncate(root, i);
            return true;
        }
    }
    return false;
}

// Answers with an errno.
int PathResolver::openLevel(Root& root, int parent, bool parentListable, const std::string& name, Level& level) {
    level.name = name;
    level.hostName = name;
    level.handle = openFolder(parent, name.c_str(), level.listable);
    if (!level.handle && errno == ENOENT && parentListable) {
        level.hostName = findFolded(parent, name);
        if (level.hostName.empty()) return ENOENT;
        level.handle = openFolder(parent, level.hostName.c_str(), level.listable);
    }
    if (!level.handle) return errno;
    if (!identify(level.handle.get(), level.identity)) return errno;
    if (!level.identity.sameMount(root.identity)) return EXDEV;
    const bool inProgram = program_ != kNone && &root == &roots_[program_];
    if (!inProgram && isProgramRoot(level.identity)) return EXDEV;
    return 0;
}

Status PathResolver::walk(Root& root, const MachinePath& path, std::size_t skip, std::size_t depth, bool& cached) {
    const std::size_t wanted = depth - skip;
    std::size_t common = 0;
    while (common < root.chain.size() && common < wanted && root.chain[common].name == path.names[skip + common])
        ++common;
    cached = common == wanted && (wanted == 0 || common > root.firstOpen);
    if (cached) return Status::Ok;

    // From the deepest folder that is still open; where all of the common ones are closed, from the root.
    if (common <= root.firstOpen) common = 0;
    truncate(root, common);
    while (root.chain.size() < wanted) {
        const bool top = root.chain.empty();
        const int parent = top ? root.handle.get() : root.chain.back().handle.get();
        const bool parentListable = top || root.chain.back().listable;
        Level level;
        const std::size_t at = root.chain.size();
        const int error = openLevel(root, parent, parentListable, path.names[skip + at], level);
        if (error != 0) {
            error_ = error;
            if (error == EACCES || error == EPERM) return Status::Denied;
            const bool last = at + 1 == wanted;
            switch (error) {
                case ENOENT:
                case ENAMETOOLONG:
                    return last ? Status::NotFound : Status::PathNotFound;
                case ENOTDIR:
                case ELOOP:
                case EXDEV:
                    return last ? Status::Denied : Status::PathNotFound;
                default:
                    return statusOf(error);
            }
        }
        root.chain.push_back(std::move(level));
        if (root.chain.size() - root.firstOpen > kOpenFolders) root.chain[root.firstOpen++].handle.reset();
    }
    return Status::Ok;
}

OpenFolder PathResolver::current(const Root& root, std::size_t levels) {
    if (levels == 0) return {root.handle.get(), true, root.identity, {}};
    const Level& level = root.chain[levels - 1];
    return {level.handle.get(), level.listable, level.identity, level.hostName};
}

Status PathResolver::folder(const MachinePath& path, std::size_t depth, OpenFolder& found) {
    std::size_t skip = 0;
    Root* root = rootOf(path, depth, skip);
    if (root == nullptr) return Status::PathNotFound;
    if (!root->chain.empty() && Clock::now() - root->verified > kTrusted) verify(*root);
    if (root->chain.empty()) root->verified = Clock::now();
    bool cached = false;
    const Status status = walk(*root, path, skip, depth, cached);
    if (ok(status)) found = current(*root, depth - skip);
    return status;
}

Status PathResolver::folderToRead(const MachinePath& path, OpenFolder& found) {
    const std::size_t depth = path.names.size();
    std::size_t skip = 0;
    Root* root = rootOf(path, depth, skip);
    if (root == nullptr) return Status::PathNotFound;
    bool cached = false;
    Status status = walk(*root, path, skip, depth, cached);
    if ((cached || !ok(status) || Clock::now() - root->verified > kTrusted) && verify(*root)) {
        status = walk(*root, path, skip, depth, cached);
    }
    if (ok(status)) found = current(*root, depth - skip);
    return status;
}

Status PathResolver::parent(const MachinePath& path, OpenFolder& found, bool toRead) {
    const std::size_t depth = path.names.size() - 1;
    std::size_t skip = 0;
    if (Root* root = rootOf(path, depth, skip); toRead && root != nullptr) verify(*root);
    const Status status = folder(path, depth, found);
    if (status == Status::NotFound) return Status::PathNotFound;
    if (status != Status::Denied) return status;
    // A link or a file where a folder should be: the way ends there.
    return error_ == EACCES || error_ == EPERM ? Status::Denied : Status::PathNotFound;
}

// 0 or an errno.
int PathResolver::look(FoundEntry& found, struct statx* state) {
    constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    if (state == nullptr) {
        return ::fstatat(found.parent, found.hostName.c_str(), &found.info, kFlags) == 0 ? 0 : errno;
    }
    const int error = stateOf(found.parent, found.hostName.c_str(), *state);
    if (error == 0) found.info = plainState(*state);
    return error;
}

Status PathResolver::entry(const MachinePath& path, FoundEntry& found, struct statx* state) {
    found = {};
    if (state != nullptr) *state = {};
    const std::size_t count = path.names.size();
    std::size_t skip = 0;
    Root* root = rootOf(path, count, skip);
    if (root == nullptr) return Status::PathNotFound;
    if (count == skip) return ::fstat(root->handle.get(), &found.info) == 0 ? Status::Ok : statusOf(errno);

    for (bool again = false;; again = true) {
        OpenFolder above;
        if (const Status status = parent(path, above); !ok(status)) return status;
        found.parent = above.handle;
        found.parentIdentity = above.identity;
        found.hostName = path.last();
        const int error = look(found, state);
        if (error != ENOENT) return statusOf(error);
        if (wasJustRemoved(above.identity, path.last())) return Status::NotFound;
        if (!again && verify(*root)) continue;
        if (!above.listable) return Status::NotFound;
        found.hostName = findFolded(found.parent, path.last());
        if (found.hostName.empty()) return Status::NotFound;
        return statusOf(look(found, state));
    }
}

void PathResolver::noteRemoved(const FoundEntry& entry) {
    removed_.device = entry.parentIdentity.device;
    removed_.inode = entry.parentIdentity.inode;
    removed_.name = entry.hostName;
    removed_.when = Clock::now();
}

bool PathResolver::wasJustRemoved(const FolderIdentity& parent, const std::string& name) const {
    return removed_.inode == parent.inode && removed_.device == parent.device && removed_.name == name &&
           Clock::now() - removed_.when <= kTrusted;
}

void PathResolver::forget(const MachinePath& path, std::size_t depth) {
    std::size_t skip = 0;
    Root* root = rootOf(path, path.names.size(), skip);
    if (root != nullptr) truncate(*root, depth > skip ? depth - skip : 0);
}

std::string PathResolver::pathOf(const std::string& host) const {
    for (std::size_t i = 0; i < roots_.size(); ++i) {
        std::error_code problem;
        const std::string own = "/proc/self/fd/" + std::to_string(roots_[i].handle.get());
        const std::string root = std::filesystem::read_symlink(own, problem).string();
        if (problem || i == program_ || !host.starts_with(root)) continue;
        std::string path = host.substr(root.size());
        if (!path.empty() && path.front() != '/') continue;
        std::replace(path.begin(), path.end(), '/', '\\');
        return std::string{roots_[i].letter, ':'} + (path.empty() ? "\\" : path);
    }
    return {};
}

bool PathResolver::isProgramFolder(const MachinePath& path) const {
    if (program_ == kNone || roots_[program_].letter != path.drive) return false;
    const std::vector<std::string>& place = roots_[program_].place.names;
    if (place.size() != path.names.size()) return false;
    for (std::size_t i = 0; i < place.size(); ++i) {
        if (!base::equalNoCase(place[i], path.names[i])) return false;
    }
    return true;
}

std::string PathResolver::programNameIn(const MachinePath& folder) const {
    if (program_ == kNone) return {};
    const MachinePath& place = roots_[program_].place;
    MachinePath below = folder;
    below.names.push_back(place.last());
    return isProgramFolder(below) ? place.last() : std::string();
}

bool PathResolver::isProgramRoot(const FolderIdentity& identity) const {
    return program_ != kNone && roots_[program_].identity.sameFolder(identity);
}

bool PathResolver::programParent(FolderIdentity& parent, std::string& name) {
    if (program_ == kNone) return false;
    const MachinePath& place = roots_[program_].place;
    // Looking it up closes the folders that are open near the last path, so it is not done for every tree of a burst.
    if (const auto now = Clock::now(); now - programParentSeen_ > kTrusted) {
        OpenFolder above;
        programParentFound_ = ok(folder(place, place.names.size() - 1, above));
        programParent_ = above.identity;
        programParentSeen_ = now;
    }
    if (!programParentFound_) return false;
    parent = programParent_;
    name = place.last();
    return true;
}

}  // namespace tidvane::platform::machine
