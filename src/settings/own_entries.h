// What a front end asks about the user's own entries before it lets a run work with them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/program.h"

namespace tidvane::settings {

// True for a mask that leaves no file name out, such as "*", "*.*" or "?*": a run with it takes every file of its
// drives. False for an empty mask, for ".." and for a mask with a backslash, which match nothing.
bool matchesEveryName(std::string_view mask);

// Those rows of lstSearchMasks, as the options window holds them now, that match every name; in list order.
std::vector<std::string> masksThatMatchEveryName(Program& program);

// A line of one of the three list files that comes back as several entries, or as another one than it reads: a comma
// ends an entry, and quotation marks around one vanish.
struct SplitLine {
    std::string file;                // "td_folders.dat", without its folder
    std::string line;                // as it stands in the file
    std::vector<std::string> items;  // what the list makes of it, in order
    [[nodiscard]] bool isSeveral() const { return items.size() > 1; }
};

// All such lines of td_folders.dat, td_fkeys.dat and td_ftypes.dat, as they lie beside the program now. A file that is
// missing or cannot be read has none.
std::vector<SplitLine> splitLinesOfLists(Program& program);

}  // namespace tidvane::settings
