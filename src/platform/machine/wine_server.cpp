#include "platform/machine/wine_server.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <set>

#include "platform/machine/directory_handle.h"

namespace tidvane::platform::machine {

namespace {

std::string hexadecimal(std::uint64_t number) {
    char digits[16];
    return {digits, std::to_chars(digits, digits + sizeof digits, number, 16).ptr};
}

// The name of a directory that the prefix gives, if it is one.
std::string namedByPrefix(const std::string& prefix) {
    const Handle file(::open((prefix + "/wineserver").c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file) return {};
    char text[256];
    const ssize_t length = ::read(file.get(), text, sizeof text);
    if (length <= 0) return {};
    std::string name(text, static_cast<std::size_t>(length));
    name.erase(name.find_last_not_of(" \r\n") + 1);
    const bool plain = name.find('/') == std::string::npos && name.find('\0') == std::string::npos && name != "..";
    return plain ? name : std::string();
}

bool isLocked(const std::string& lockFile) {
    const Handle file(::open(lockFile.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file) return errno == EACCES || errno == EPERM;
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    return ::fcntl(file.get(), F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK;
}

}  // namespace

bool hasWineServer(const std::string& prefix, const std::string& temporaryFolder) {
    struct stat info {};
    if (::stat(prefix.c_str(), &info) != 0) return false;
    // The server runs as the owner of the prefix.
    std::set<std::string> places;
    for (const uid_t user : {info.st_uid, ::getuid(), ::geteuid()}) places.insert(".wine-" + std::to_string(user));
    if (std::string named = namedByPrefix(prefix); !named.empty()) places.insert(std::move(named));
    const std::string server = "/server-" + hexadecimal(info.st_dev) + "-" + hexadecimal(info.st_ino) + "/lock";
    for (const std::string& place : places) {
        if (isLocked(std::string(temporaryFolder).append("/").append(place).append(server))) return true;
    }
    return false;
}

}  // namespace tidvane::platform::machine
