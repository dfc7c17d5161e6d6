#include "frontend/places.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "base/text.h"
#include "platform/machine/directory_handle.h"
#include "platform/machine/whole_file.h"

namespace tidvane::frontend {

namespace fs = std::filesystem;
namespace machine = platform::machine;

namespace {

constexpr const char* kBuilding = ".tidvane-program-";  // and the process: a folder that is not whole yet

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

constexpr const char* kLanguageEnding = ".lng";

bool isLanguageFile(const std::string& name) {
    return base::lowerCase(name).ends_with(kLanguageEnding);
}

// Of the files that the program itself keeps, and of its texts.
bool isOwnName(const std::string& name) {
    const std::string lower = base::lowerCase(name);
    const bool kept = lower.starts_with("td_") && (lower.ends_with(".ini") || lower.ends_with(".dat"));
    return kept || isLanguageFile(name);
}

// Links that lead nowhere are names too.
std::vector<std::string> namesIn(const fs::path& folder, std::error_code& problem) {
    std::vector<std::string> names;
    for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
        names.push_back(entry->path().filename().string());
    }
    return names;
}

// Appears whole or not at all, and never in the place of anything.
void putFolder(const fs::path& from, const fs::path& folder, const std::string& name) {
    const fs::path building = folder / (kBuilding + std::to_string(::getpid()));
    std::error_code problem;
    copyDelivery(from, building, problem);
    if (!problem) fs::rename(building, folder / name, problem);
    std::error_code ignored;
    if (problem) fs::remove_all(building, ignored);
}

void putFile(const fs::path& from, const fs::path& folder, const std::string& name) {
    std::ifstream file(from, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const machine::Handle place(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    machine::FileReplacement copy;
    if (!file || !place || !platform::ok(copy.start(place.get(), nullptr))) return;
    if (platform::ok(copy.write(bytes))) (void)copy.publish(name, false);
}

void completeProgramFolder(const fs::path& folder, const fs::path& delivered) {
    std::error_code problem;
    const std::vector<std::string> there = namesIn(folder, problem);
    if (problem || std::none_of(there.begin(), there.end(), isOwnName)) return;
    const bool hasTexts = std::any_of(there.begin(), there.end(), isLanguageFile);
    for (const std::string& name : namesIn(delivered, problem)) {
        // The machine knows no case of letters in names.
        const bool has = std::any_of(there.begin(), there.end(),
                                     [&](const std::string& other) { return base::equalNoCase(other, name); });
        if (has || name.front() == '.' || (hasTexts && isLanguageFile(name))) continue;
        if (isFolder(delivered / name)) {
            putFolder(delivered / name, folder, name);
        } else {
            putFile(delivered / name, folder, name);
        }
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
            if (!problem && !delivered.empty()) completeProgramFolder(place, delivered);
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
    const fs::path building = place.parent_path() / (kBuilding + std::to_string(::getpid()));
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

}  // namespace tidvane::frontend
