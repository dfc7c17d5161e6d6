#include "frontend/last_machine.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/machine/directory_handle.h"
#include "platform/machine/whole_file.h"

namespace tidvane::frontend {

namespace machine = platform::machine;

namespace {

constexpr const char* kFile = "last-machine";
constexpr std::uint64_t kLongest = 4097;  // a path of the host, and a line end

machine::Handle openFolder(const std::string& folder) {
    return machine::Handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

// The file holds one line, the directory.
std::string lastMachine(const std::string& userData) {
    const machine::Handle folder = openFolder(userData);
    machine::Handle file;
    struct stat info {};
    std::string bytes;
    if (!folder || !platform::ok(machine::openPlainFile(folder.get(), kFile, O_RDONLY, file, info)) ||
        !platform::ok(machine::readWholeFile(file.get(), bytes, kLongest))) {
        return {};
    }
    bytes.resize(std::min(bytes.find('\n'), bytes.size()));
    return bytes.starts_with('/') ? bytes : std::string();
}

bool rememberMachine(const std::string& userData, const std::string& directory) {
    if (userData.empty() || !directory.starts_with('/') || directory.find('\n') != std::string::npos) return false;
    if (lastMachine(userData) == directory) return true;
    std::error_code problem;
    std::filesystem::create_directories(userData, problem);
    const machine::Handle folder = openFolder(userData);
    if (problem || !folder) return false;
    struct stat old {};
    const bool there = ::fstatat(folder.get(), kFile, &old, AT_SYMLINK_NOFOLLOW) == 0;
    machine::FileReplacement file;
    return platform::ok(file.start(folder.get(), there ? &old : nullptr)) &&
           platform::ok(file.write(directory + "\n")) && platform::ok(file.publish(kFile, there));
}

}  // namespace tidvane::frontend
