#include "platform/machine/machine_path.h"

#include "base/wildcard.h"
#include "platform/common/windows_path.h"

namespace tidvane::platform::machine {

Status parseMachinePath(std::string_view text, MachinePath& path) {
    path = {};
    platform::WindowsPath parsed;
    if (!ok(platform::parseWindowsPath(text, parsed)) || parsed.root.size() != 2) return Status::PathNotFound;
    for (const std::string& name : parsed.names) {
        if (name.find(':') != std::string::npos || name.find('\0') != std::string::npos) return Status::InvalidName;
    }
    path.drive = parsed.root[0];
    path.names = std::move(parsed.names);
    path.emptyLastPart = parsed.emptyLastPart;
    if (path.names.empty()) return Status::Ok;
    for (std::size_t i = 0; i + 1 < path.names.size(); ++i) {
        if (base::hasWildcard(path.names[i])) return Status::InvalidName;
    }
    path.wildcard = base::hasWildcard(path.last());
    return Status::Ok;
}

}  // namespace tidvane::platform::machine
