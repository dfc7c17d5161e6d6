// A Windows path taken apart, by text alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace tidvane::platform {

struct WindowsPath {
    std::string root;                // "C:" (upper case) or "\\server\share"
    std::vector<std::string> names;  // below the root, as they were spelled; none of them is ".", ".." or empty
    bool emptyLastPart =
        false;  // there was nothing, or blanks and dots alone, behind the last separator; true for a root

    // The path again, without a trailing backslash but for a root ("C:\").
    [[nodiscard]] std::string text() const;
};

// "/" counts as "\", repeated separators as one, and the prefix "\\?\" is dropped. "." and ".." are resolved; ".."
// never climbs above the root. PathNotFound: neither a drive with a backslash nor a share.
Status parseWindowsPath(std::string_view path, WindowsPath& parsed);

// The path in the one spelling that the system gives it for comparisons: upper case, and no dots or blanks at the end
// of a name.
std::string comparableName(std::string_view name);

// Whether a path can tell this name of a disk. Names with wildcards are left out too: handed to a delete, they would
// stand for their neighbours.
bool isListable(std::string_view name);
// The same of each name of a path; the root alone is fine.
bool isListable(const WindowsPath& path);

// False for a name that Windows could not create: it is empty or holds one of < > : " / \ | ? * or a control character.
bool isCreatableName(std::string_view name);

}  // namespace tidvane::platform
