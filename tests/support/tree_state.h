// What a tree of the host looks like at one moment, to tell whether anything in it was touched.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tidvane::tests {

// Path below the root to everything that a change would show in: kind, rights, owner, size, inode, times of the last
// change of the content and of the inode (which no program can set back), target of a link. Links are not followed.
using TreeState = std::map<std::string, std::string>;

// Every entry below a folder, as far as this process may look. Links are not followed.
std::vector<std::filesystem::path> entriesBelow(const std::string& root);

TreeState treeState(const std::string& root);

// One line for every entry that came, went or changed; empty when both are equal.
std::string changesBetween(const TreeState& before, const TreeState& after);

}  // namespace tidvane::tests
