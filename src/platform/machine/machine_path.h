// A Windows path as a machine in a directory looks it up.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace tidvane::platform::machine {

struct MachinePath {
    char drive = 0;                  // upper case
    std::vector<std::string> names;  // "." and ".." resolved; empty for a drive's root
    bool emptyLastPart = false;      // it ended in a backslash; true for a root
    bool wildcard = false;           // the last name holds "*" or "?"

    [[nodiscard]] bool isRoot() const { return names.empty(); }
    [[nodiscard]] const std::string& last() const { return names.back(); }
};

// PathNotFound: not absolute, or a share (a machine in a directory has none). InvalidName: a name with ":" or NUL, or a
// wildcard before the last part.
Status parseMachinePath(std::string_view text, MachinePath& path);

}  // namespace tidvane::platform::machine
