// Finds the entries of a machine by their Windows paths: from a drive's open root downwards, one name at a time, never
// through a link and never onto another mount.
//
// Names compare without regard to case: the exact spelling is tried first, and only a miss reads the folder. The
// folders of the path looked up last stay open, so that the next look-up near it costs one system call.
#pragma once

#include <sys/stat.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/machine/directory_handle.h"
#include "platform/machine/machine_path.h"

namespace tidvane::platform::machine {

// An open folder. Valid until the next look-up.
struct OpenFolder {
    int handle = -1;
    bool listable = true;
    FolderIdentity identity;
    std::string hostName;  // empty for a root
};

// An entry in its open folder. Valid until the next look-up.
struct FoundEntry {
    int parent = -1;  // -1: a drive's root or the program's folder itself
    std::string hostName;
    struct stat info {};
    FolderIdentity parentIdentity;
};

class PathResolver {
public:
    // At most this many folders of one path stay open; deeper paths re-open what they need.
    static constexpr std::size_t kOpenFolders = 64;

    // `root`: the open folder that is the drive's root. False: it cannot be looked at.
    bool addDrive(char letter, Handle root);
    // The program's own folder: look-ups at `place` and below go to `root`, and no walk enters it.
    bool mountProgram(const MachinePath& place, Handle root);

    // The open folder of the first `depth` names of the path. NotFound, PathNotFound, Denied (no right; the last name
    // is a link, a mount point or no folder).
    Status folder(const MachinePath& path, std::size_t depth, OpenFolder& found);
    // The same for a caller that reads it: makes sure that a folder kept open is still the one at that place.
    Status folderToRead(const MachinePath& path, OpenFolder& found);
    // The open folder in which the path's last name lies. PathNotFound, Denied (no right). `toRead` as for
    // folderToRead.
    Status parent(const MachinePath& path, OpenFolder& found, bool toRead = false);
    // NotFound, PathNotFound, Denied.
    // With `state` it is filled too, which the host gives for the same price; it is zero for a root.
    Status entry(const MachinePath& path, FoundEntry& found, struct statx* state = nullptr);

    // An entry was removed under this spelling. A look-up that follows at once needs no search for other spellings.
    void noteRemoved(const FoundEntry& entry);
    // Closes what is kept open of this path from the given depth on: its folder goes or gets another name.
    void forget(const MachinePath& path, std::size_t depth);

    // The path on the machine of a folder of the host, given by its full path without links. Empty: it lies outside.
    [[nodiscard]] std::string pathOf(const std::string& host) const;

    [[nodiscard]] bool isProgramFolder(const MachinePath& path) const;
    [[nodiscard]] bool hasProgramFolder() const { return program_ != kNone; }
    // The name of the program's folder if `folder` is the folder above it, otherwise empty.
    [[nodiscard]] std::string programNameIn(const MachinePath& folder) const;
    // What a walk over the host's folders has to keep out of.
    [[nodiscard]] bool isProgramRoot(const FolderIdentity& identity) const;
    // The folder above the program's, as far as it exists on the host. False: there is none.
    bool programParent(FolderIdentity& parent, std::string& name);

private:
    struct Level {
        std::string name;  // as it was asked for
        std::string hostName;
        Handle handle;
        bool listable = true;
        FolderIdentity identity;
    };
    struct Root {
        char letter = 0;
        MachinePath place;  // of the program's folder; no names for a drive
        Handle handle;
        FolderIdentity identity;
        std::vector<Level> chain;
        std::size_t firstOpen = 0;  // the levels before it are closed
        std::chrono::steady_clock::time_point verified;
    };
    struct Removed {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::string name;
        std::chrono::steady_clock::time_point when;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    Root* rootOf(const MachinePath& path, std::size_t depth, std::size_t& skip);
    Status walk(Root& root, const MachinePath& path, std::size_t skip, std::size_t depth, bool& cached);
    int openLevel(Root& root, int parent, bool parentListable, const std::string& name, Level& level);
    // Drops the levels whose folder is no longer at its place. True: there were some.
    static bool verify(Root& root);
    static void truncate(Root& root, std::size_t levels);
    static OpenFolder current(const Root& root, std::size_t levels);
    static int look(FoundEntry& found, struct statx* state);
    bool wasJustRemoved(const FolderIdentity& parent, const std::string& name) const;

    std::vector<Root> roots_;
    std::size_t program_ = kNone;
    Removed removed_;
    FolderIdentity programParent_;
    bool programParentFound_ = false;
    std::chrono::steady_clock::time_point programParentSeen_;
    int error_ = 0;  // why the last walk ended early
};

// The host's spelling of a name in an open folder, found without regard to case. Empty: there is none.
std::string findFolded(int folder, std::string_view name);

}  // namespace tidvane::platform::machine
