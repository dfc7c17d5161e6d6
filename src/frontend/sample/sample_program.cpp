#include "frontend/sample/sample_program.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <span>
#include <system_error>

#include "base/text.h"
#include "frontend/places.h"
#include "frontend/sample/sample_traces.h"
#include "platform/machine/directory_handle.h"
#include "platform/machine/whole_file.h"

namespace tidvane::frontend {

namespace fs = std::filesystem;
namespace machine = platform::machine;

namespace {

// In front of each entry, behind it, and in front of them all. The entries are plain ASCII, so that the code page of
// the machine does not matter.
struct ListFile {
    const char* name;
    std::span<const char* const> (*entries)();
    const char* head;
    const char* behind;
};
constexpr std::array kFiles{
    ListFile{"td_folders.dat", sampleOwnFolders, "", "\r\n"},
    ListFile{"td_fkeys.dat", sampleOwnFiles, "", "\r\n"},
    ListFile{"td_ftypes.dat", sampleMasks, "", "\r\n"},
    ListFile{"td_apps.ini", samplePlugIns, "[PlugIns]\r\n", "=1\r\n"},
};

std::string contentOf(const ListFile& file) {
    std::string text = file.head;
    for (const char* entry : file.entries()) text += base::replaceAll(entry, "<user>", kSampleUser) + file.behind;
    return text;
}

// 0, or the number of what went wrong.
int writeNew(const fs::path& path, const std::string& bytes) {
    const machine::Handle file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    return file ? machine::writeAll(file.get(), bytes) : errno;
}

}  // namespace

bool isNewProgramFolder(const std::string& folder, std::string& error) {
    std::error_code problem;
    if (!fs::exists(fs::symlink_status(folder, problem))) return true;
    if (fs::is_directory(folder, problem) && fs::is_empty(folder, problem) && !problem) return true;
    error = "The program folder \"" + folder +
            "\" holds something already; name a new one with --program, or leave it out for a machine alone.";
    return false;
}

bool createSampleProgram(const std::string& folder, std::string& error) {
    if (!isNewProgramFolder(folder, error) || !fillProgramFolder(folder, deliveredData(), error)) return false;
    for (const ListFile& file : kFiles) {
        const int problem = writeNew(fs::path(folder) / file.name, contentOf(file));
        if (problem == 0) continue;
        error = std::string(file.name) + " could not be written into the program folder \"" + folder +
                "\": " + std::strerror(problem) + ".";
        return false;
    }
    return true;
}

}  // namespace tidvane::frontend
