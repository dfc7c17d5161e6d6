// Counting a folder's tree in one walk.
#pragma once

#include "platform/file_system.h"
#include "platform/machine/tree_walk.h"

namespace tidvane::platform::machine {

class TreeMeasure final : private TreeWalk {
public:
    using TreeWalk::Exceptions;
    // One folder that cannot be read fails the whole: `totals` stays as it was.
    Status run(int folder, const FolderIdentity& identity, const Exceptions& exceptions, FolderTotals& totals);

private:
    bool onFile(int folder, const char* name, bool& kept) override;
    bool onFolder(int folder, const char* name, bool& enter, bool& kept) override;
    bool onRefused(int folder, const char* name, int error, bool& kept) override;
    bool onLeave(int parent, const char* name, bool keptInside, bool& kept, bool& again) override;

    FolderTotals totals_;
    Status status_ = Status::Ok;
};

}  // namespace tidvane::platform::machine
