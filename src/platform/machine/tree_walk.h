// A walk over a whole tree of the host. It never follows a link, stops at mount points, keeps a bounded number of
// folders open however deep the tree is, and holds one block of names for each of them, never a list.
#pragma once

#include <string>
#include <vector>

#include "platform/machine/directory_handle.h"

namespace tidvane::platform::machine {

class TreeWalk {
public:
    virtual ~TreeWalk() = default;

    // The folders that the walk must not enter, or must not see, besides links and mounts.
    struct Exceptions {
        const FolderIdentity* programRoot = nullptr;    // the program's own folder on the host
        const FolderIdentity* programParent = nullptr;  // a folder in which `programName` is covered by that folder
        std::string programName;
    };

    // Walks the tree below an open folder; `top` stays open, and onLeave is not called for it. False: stopped early.
    bool run(int top, const FolderIdentity& identity, const Exceptions& exceptions);
    // Something in the top folder stayed, or could not be visited.
    [[nodiscard]] bool topKept() const { return topKept_; }

protected:
    // Each answers false to end the whole walk.

    // An entry that is no folder. `kept` is set when it stays though the walk wanted it gone.
    virtual bool onFile(int folder, const char* name, bool& kept) = 0;
    // A folder is about to be entered. `kept` as above, `enter` false to pass it over.
    virtual bool onFolder(int folder, const char* name, bool& enter, bool& kept) = 0;
    // A folder was opened.
    virtual bool onEnter(int /*folder*/, const char* /*name*/) { return true; }
    // A folder that cannot be opened or read (an errno), is a mount point (EXDEV), is the program's own (EPERM), or was
    // moved away during the walk (ESTALE).
    virtual bool onRefused(int folder, const char* name, int error, bool& kept) = 0;
    // The folder that is being visited cannot be read on; `name` is empty for the top. `above`: the folder it lies in,
    // or the top itself.
    virtual bool onUnreadable(int above, const char* name, int error, bool& kept) {
        return onRefused(above, name, error, kept);
    }
    // A folder was visited whole. `keptInside`: something in it stayed. `again`: visit it once more.
    virtual bool onLeave(int parent, const char* name, bool keptInside, bool& kept, bool& again) = 0;

    // The folders from the top down to the one that is being visited.
    [[nodiscard]] std::size_t depth() const { return levels_.size(); }

private:
    // The folders nearest to the top stay open as places to come back to, and so do the deepest ones.
    static constexpr std::size_t kOpenNearTop = 16;
    static constexpr std::size_t kOpenDeepest = 48;

    struct Level {
        std::string name;
        Handle handle;
        int descriptor = -1;  // the handle's, or the caller's for the top
        FolderIdentity identity;
        DirectoryReader reader;
        bool kept = false;
    };

    bool visit(Level& level, const DirectoryReader::Entry& entry, const Exceptions& exceptions);
    bool descend(const char* name, const Exceptions& exceptions);
    bool ascend();
    bool reopen(std::size_t index, int below);

    std::vector<Level> levels_;
    FolderIdentity top_;
    bool topKept_ = false;
};

}  // namespace tidvane::platform::machine
