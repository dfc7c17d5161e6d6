// Whether entries of an open folder could be removed or made, asked of the host without trying.
#pragma once

#include <sys/stat.h>

#include <optional>

namespace tidvane::platform::machine {

// What is asked of an entry besides its state: sealed files and mounts refuse every removal.
inline constexpr unsigned kStateMask = STATX_BASIC_STATS;

// The state of an entry in its folder, without following it. 0 or an errno.
int stateOf(int folder, const char* name, struct statx& state);
// Of the open file or folder itself.
int stateOf(int handle, struct statx& state);

// One right of this process, by its number in <linux/capability.h>. Asked anew each time.
bool hasCapability(unsigned number);

class FolderRights {
public:
    // `readOnly`: what a preview has set, where that differs from what the folder has.
    explicit FolderRights(int folder, std::optional<bool> readOnly = std::nullopt);

    [[nodiscard]] const struct statx& state() const { return state_; }
    // An entry of a new name. 0 or the errno of the call.
    [[nodiscard]] int toAdd() const { return access_; }
    // unlink, rmdir (of an empty folder) or the loss of the old name at a rename.
    [[nodiscard]] int toTakeOut(const struct statx& entry) const;

    // The folder refuses only because nobody may write to it, and this process may change that.
    [[nodiscard]] bool canBeMadeWritable() const;
    void makeWritable();

private:
    struct statx state_ {};
    bool readOnly_ = false;
    int access_ = 0;  // EACCES, EPERM, EROFS
};

}  // namespace tidvane::platform::machine
