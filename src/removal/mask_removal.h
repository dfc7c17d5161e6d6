// Removing by one mask in one folder: what the junk search and the search wizard have in common.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::removal {

// True for what a directory look-up without attributes finds: neither hidden, nor system, nor a folder.
bool isFoundByLookUp(platform::FileSystem& files, const std::string& path);

// Units in a recycle bin keep their extension. Under the recycle method a walk stays out of the bins of a drive: it
// would take for good what it has just put there. `folder` ends in a backslash.
bool isBinInUse(settings::Program& program, const std::string& folder, const std::string& name);

// The lines of a walk's own log.
struct MaskLines {
    std::function<void()> removed;  // behind the first attempt, whatever came of it
    std::function<void()> failed;   // behind the second one
};

// Removes what the mask matches by the method of cboKillMethod, read now, and then once more by the plain delete: that
// second attempt is made whatever the user chose, also where no method can be read. `folder` ends in a backslash;
// `matches` are the names that were found, for the count of what the recycle bin refused and the second attempt took.
void removeByMask(settings::Program& program, const std::string& folder, const std::string& mask,
                  const std::vector<std::string>& matches, const MaskLines& log);

}  // namespace tidvane::removal
