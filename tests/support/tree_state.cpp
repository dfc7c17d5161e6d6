#include "support/tree_state.h"

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

std::vector<fs::path> entriesBelow(const std::string& root) {
    std::vector<fs::path> found;
    std::vector<fs::path> folders{root};
    while (!folders.empty()) {
        const fs::path folder = folders.back();
        folders.pop_back();
        std::error_code problem;
        for (fs::directory_iterator at(folder, problem), end; !problem && at != end; at.increment(problem)) {
            found.push_back(at->path());
            std::error_code ignored;
            if (fs::is_directory(at->symlink_status(ignored))) folders.push_back(at->path());
        }
    }
    return found;
}

TreeState treeState(const std::string& root) {
    TreeState state{{".", stateOf(root)}};
    for (const fs::path& path : entriesBelow(root)) state.emplace(path.string().substr(root.size() + 1), stateOf(path));
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
