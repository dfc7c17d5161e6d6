#include "e2e/tree_state.h"

#include <sys/stat.h>

#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace tidvane::tests {

namespace fs = std::filesystem;

namespace {

std::string stateOf(const fs::path& path) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0) return "gone";
    std::ostringstream text;
    text << "mode " << std::oct << info.st_mode << std::dec << " owner " << info.st_uid << " size " << info.st_size
         << " inode " << info.st_ino << " content " << info.st_mtim.tv_sec << "." << info.st_mtim.tv_nsec << " changed "
         << info.st_ctim.tv_sec << "." << info.st_ctim.tv_nsec;
    if (S_ISLNK(info.st_mode)) text << " to " << fs::read_symlink(path).string();
    return text.str();
}

}  // namespace

TreeState treeState(const std::string& root) {
    TreeState state{{".", stateOf(root)}};
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        state.emplace(entry.path().string().substr(root.size() + 1), stateOf(entry.path()));
    }
    return state;
}

std::string changesBetween(const TreeState& before, const TreeState& after) {
    std::string changes;
    for (const auto& [path, state] : before) {
        const auto now = after.find(path);
        if (now == after.end()) {
            changes += path + " went\n";
        } else if (now->second != state) {
            changes.append(path).append(" changed from ").append(state).append(" to ").append(now->second) += "\n";
        }
    }
    for (const auto& [path, state] : after) {
        if (!before.contains(path)) changes += path + " came\n";
    }
    return changes;
}

}  // namespace tidvane::tests
