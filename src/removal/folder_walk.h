// The order of a walk over a tree: a folder, then its subfolders with everything in them, each by name.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"

namespace tidvane::removal {

// Says which folder is next; whoever walks visits it and tells what lies in it. Keeps the names that are still to come
// and no call per level, so that a deep tree needs no stack.
class FolderWalk {
public:
    explicit FolderWalk(const std::string& top) : top_(base::withBackslash(top)) {}

    // The next folder, with its backslash. False: the walk is over.
    bool next(std::string& folder) {
        if (!top_.empty()) {
            folder = std::exchange(top_, {});
            return true;
        }
        while (!levels_.empty() && levels_.back().next == levels_.back().names.size()) levels_.pop_back();
        if (levels_.empty()) return false;
        Level& level = levels_.back();
        folder = level.folder + level.names[level.next++] + "\\";
        return true;
    }

    // The subfolders of the folder that came last: they are next.
    void descend(const std::string& folder, std::vector<std::string> names) {
        std::sort(names.begin(), names.end(), base::NoCaseLess{});
        if (!names.empty()) levels_.push_back({folder, std::move(names)});
    }

private:
    struct Level {
        std::string folder;
        std::vector<std::string> names;
        std::size_t next = 0;
    };
    std::string top_;
    std::vector<Level> levels_;
};

}  // namespace tidvane::removal
