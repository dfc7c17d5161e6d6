#include "console/places.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tidvane::console {

namespace fs = std::filesystem;

namespace {

bool isFolder(const fs::path& folder) {
    std::error_code problem;
    return fs::is_directory(folder, problem);
}

// Everything but dot files, which are for those who develop the program.
void copyDelivery(const fs::path& from, const fs::path& to, std::error_code& problem) {
    fs::create_directories(to, problem);
    if (problem) return;
    for (fs::directory_iterator entry(from, problem), end; !problem && entry != end; entry.increment(problem)) {
        const fs::path name = entry->path().filename();
        if (name.string().front() == '.') continue;
        if (entry->is_directory(problem)) {
            copyDelivery(entry->path(), to / name, problem);
        } else if (!problem) {
            fs::copy_file(entry->path(), to / name, problem);
        }
        if (problem) return;
    }
}

}  // namespace

std::string userDataDirectory() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/') return std::string(data) + "/tidvane";
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/') return std::string(home) + "/.local/share/tidvane";
    return {};
}

std::string deliveredData() {
    std::error_code problem;
    const fs::path self = fs::read_symlink("/proc/self/exe", problem);
    if (!problem) {
        const fs::path installed = self.parent_path().parent_path() / "share" / "tidvane";
        if (isFolder(installed)) return installed.string();
    }
#ifdef TIDVANE_DATA_DIR
    if (isFolder(TIDVANE_DATA_DIR)) return TIDVANE_DATA_DIR;
#endif
    return {};
}

bool fillProgramFolder(const std::string& folder, const std::string& delivered, std::string& error) {
    std::error_code problem;
    const fs::path target = fs::absolute(folder, problem).lexically_normal();
    const fs::path place = target.has_filename() ? target : target.parent_path();
    if (fs::is_directory(place, problem)) {
        const bool empty = fs::is_empty(place, problem);
        if (problem || !empty) {
            if (problem) error = "The program folder \"" + folder + "\" cannot be read: " + problem.message() + ".";
            return !problem;
        }
    } else if (fs::exists(place, problem)) {
        error = "The program folder \"" + folder + "\" is no directory; name another one with --program.";
        return false;
    }
    if (delivered.empty()) {
        error =
            "The files that belong into the program folder are not found; install the program again, or name a "
            "filled folder with --program.";
        return false;
    }
    fs::create_directories(place.parent_path(), problem);
    const fs::path building = place.parent_path() / (".tidvane-program-" + std::to_string(::getpid()));
    problem.clear();
    copyDelivery(delivered, building, problem);
    if (!problem) fs::rename(building, place, problem);
    std::error_code ignored;
    if (problem) {
        fs::remove_all(building, ignored);
        error = "The program folder \"" + folder + "\" cannot be made: " + problem.message() +
                "; name another one with --program.";
        return false;
    }
    return true;
}

}  // namespace tidvane::console
