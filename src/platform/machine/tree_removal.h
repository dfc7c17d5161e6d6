// Removing a folder with everything in it.
#pragma once

#include <sys/stat.h>

#include "platform/machine/tree_walk.h"
#include "platform/removal_counter.h"
#include "platform/status.h"

namespace tidvane::platform::machine {

class TreeRemoval final : private TreeWalk {
public:
    // `force`: what is read-only goes too.
    TreeRemoval(RemovalCounter& counter, bool force) : counter_(counter), force_(force) {}

    using TreeWalk::Exceptions;
    // Empties the open folder `folder`, then removes it from `parent` under its host name. Ok, or the first failure.
    Status run(int parent, const char* name, int folder, const FolderIdentity& identity, const Exceptions& exceptions);

private:
    bool onFile(int folder, const char* name, bool& kept) override;
    bool onFolder(int folder, const char* name, bool& enter, bool& kept) override;
    bool onRefused(int folder, const char* name, int error, bool& kept) override;
    bool onLeave(int parent, const char* name, bool keptInside, bool& kept, bool& again) override;

    bool unlinkEntry(int folder, const char* name, std::uint64_t bytes);
    // Removes an empty folder. 0 or an errno.
    int removeEmpty(int parent, const char* name);
    void failed(int error, bool& kept);

    RemovalCounter& counter_;
    bool force_;
    Status first_ = Status::Ok;
    std::uint64_t removed_ = 0;      // entries so far
    std::uint64_t removedSeen_ = 0;  // at the last second visit of a folder
};

// Whether no one may write: what Windows calls read-only.
[[nodiscard]] constexpr bool isReadOnlyMode(mode_t mode) {
    return (mode & 0222) == 0;
}

// The bytes that removing this entry frees: none while the content stays under a further name.
[[nodiscard]] inline std::uint64_t freedBytes(const struct stat& info) {
    return S_ISREG(info.st_mode) && info.st_nlink == 1 ? static_cast<std::uint64_t>(info.st_size) : 0;
}

}  // namespace tidvane::platform::machine
