// The removal of a tree up to each step that would change something: what TreeRemoval would do, and what TreeMeasure
// counts, in one walk.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/machine/folder_rights.h"
#include "platform/machine/tree_walk.h"
#include "platform/rehearsal.h"

namespace tidvane::platform::machine {

class TreeRehearsal final : private TreeWalk {
public:
    TreeRehearsal(TreeVisitor& visitor, RehearsedTree& tree, bool force)
        : visitor_(visitor), tree_(tree), force_(force) {}

    using TreeWalk::Exceptions;
    // Walks the open folder `folder`, which lies in `parent` under its host name. `parent` -1: only its content goes.
    void run(int parent, const char* name, int folder, const FolderIdentity& identity, const Exceptions& exceptions,
             const Circumstances& now);

private:
    struct Visit {
        std::string name;
        FolderRights rights;
        std::optional<bool> readOnly;  // as the preview has set it
        RehearsedTree before;
        bool closer = false;
        bool someWent = false;
        bool unread = false;  // not all that is in it was seen
        bool madeWritable = false;
    };

    bool onFile(int folder, const char* name, bool& kept) override;
    bool onFolder(int folder, const char* name, bool& enter, bool& kept) override;
    bool onEnter(int folder, const char* name) override;
    bool onRefused(int folder, const char* name, int error, bool& kept) override;
    bool onUnreadable(int above, const char* name, int error, bool& kept) override;
    bool onLeave(int parent, const char* name, bool keptInside, bool& kept, bool& again) override;

    void enter(int folder, const char* name, std::optional<bool> readOnly);
    // Ends the visit of the innermost folder.
    void leave(bool goes);
    // 0 or the errno that would keep the entry in its folder.
    int takeOut(Visit& from, const struct statx& entry) const;
    int removeFolder(const FolderRights* above, const Visit& folder) const;
    // `name`: of the entry that stays; null for the folder that is being visited.
    void failed(const char* name, int error, bool& kept);
    void note(int error);

    TreeVisitor& visitor_;
    RehearsedTree& tree_;
    bool force_;
    std::vector<Visit> visits_;
    std::optional<bool> nextReadOnly_;  // of the folder about to be entered
};

}  // namespace tidvane::platform::machine
