// Reading a file whole, and replacing one as a whole or not at all.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/machine/directory_handle.h"
#include "platform/status.h"

namespace tidvane::platform::machine {

// Opens a plain file of the folder, never through a link, and never waits (a fifo would). Denied for anything else.
Status openPlainFile(int folder, const std::string& name, int flags, Handle& file, struct stat& info);

Status readWholeFile(int file, std::string& bytes, std::uint64_t limit);

// Writes all of it, however many calls that takes. 0 or an errno.
int writeAll(int file, std::string_view bytes);

// A new content for one name of a folder: written beside the file, forced to the disk, and put in its place at the end.
// The folder itself is not forced out: after a power failure there may be the old file, never half of the new one.
// Until publish() succeeded the old file is untouched; without it nothing is left behind.
class FileReplacement {
public:
    FileReplacement() = default;
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    // `old`: the state of the file that is replaced, or null. It gives its rights and its owner.
    Status start(int folder, const struct stat* old);
    Status write(std::string_view bytes);
    [[nodiscard]] int handle() const { return file_.get(); }
    // Forces it to the disk. What is left for publish() to do needs no room.
    Status complete(bool replace);
    // `replace`: the name exists already. Exists, if it is taken without that.
    Status publish(const std::string& name, bool replace);

private:
    Status giveName(const std::string& name);

    int folder_ = -1;
    Handle file_;
    bool complete_ = false;
    std::string temporary_;  // empty while the new file has no name
};

// Removes what a killed process left in a folder: a replacement that had its temporary name already. For folders that
// only this process writes to, as their lock tells.
void removeStaleReplacements(int folder);

}  // namespace tidvane::platform::machine
