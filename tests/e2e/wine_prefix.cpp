#include "e2e/wine_prefix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "e2e/console_run.h"

namespace tidvane::tests {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNoHome = "/dev/null/home";   // which not even a superuser can make
constexpr auto kLongest = std::chrono::minutes(4);  // the first start of a prefix, on a busy machine

ProcessOptions wineOptions(const std::string& prefix) {
    ProcessOptions options;
    // No debug output, no questions for what is not installed, no menu entries on the host, and no screen.
    options.environment = {"WINEPREFIX=" + prefix, "WINEDEBUG=-all",
                           "WINEDLLOVERRIDES=mscoree,mshtml=,winemenubuilder.exe=d", "WINEARCH=win64",
                           // Links to a home would stand in the place of the folders of the user.
                           "HOME=" + std::string(kNoHome)};
    options.limit = kLongest;
    return options;
}

void require(const ProcessResult& result, const std::string& what) {
    if (result.status != 0) throw std::runtime_error(what + " failed: " + result.out + result.err);
}

void stopServer(const std::string& prefix) {
    // Answers 2 when there was none.
    runProcess({"wineserver", "-k"}, wineOptions(prefix));
    require(runProcess({"wineserver", "-w"}, wineOptions(prefix)), "waiting for the Wine server");
}

// Where Debian's server keeps its sockets: a directory of /tmp that it makes once for a prefix, names in it and leaves.
// Not for a prefix with a server.
void removeServerFolder(const std::string& prefix) {
    const std::string file = prefix + "/wineserver";
    if (!fs::exists(file)) return;
    std::string name = contentOfFile(file);
    name.erase(name.find_last_not_of(" \r\n") + 1);
    std::error_code ignored;
    if (name.starts_with("wine-") && name.find('/') == std::string::npos) fs::remove_all("/tmp/" + name, ignored);
    fs::remove(file, ignored);
}

fs::path buildDirectory() {
    return fs::path(TIDVANE_CONSOLE).parent_path().parent_path();
}

// Another version of Wine makes another prefix.
std::string versionName() {
    const ProcessResult result = runProcess({"wine", "--version"}, wineOptions(std::string(kNoHome) + "/prefix"));
    require(result, "wine --version");
    std::string name;
    for (const char c : result.out) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '-') name += c;
    }
    return name;
}

// Made by one test program at a time; the others wait for it.
std::string madePrefix() {
    std::string place = (buildDirectory() / ("wine-" + versionName())).string();
    const int lock = ::open((place + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (lock < 0 || ::flock(lock, LOCK_EX) != 0) throw std::runtime_error(place + ".lock cannot be locked");
    if (!fs::exists(place)) {
        const std::string building = place + ".new";
        fs::remove_all(building);
        require(runProcess({"wineboot", "--init"}, wineOptions(building)), "wineboot");
        require(runProcess({"wineserver", "-w"}, wineOptions(building)), "waiting for the Wine server");
        removeServerFolder(building);
        fs::rename(building, place);
    }
    ::close(lock);
    return place;
}

}  // namespace

bool WinePrefix::isDispensed() {
    const char* value = std::getenv("TIDVANE_NO_WINE");
    return value != nullptr && std::string(value) == "1";
}

WinePrefix::WinePrefix() {
    const std::string from = madePrefix();
    std::string pattern = (buildDirectory() / "prefix-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no directory for a prefix");
    path_ = pattern;
    require(runProcess({"cp", "-a", "--reflink=auto", "-T", from, path_}, options()), "copying the prefix");
    fs::remove(path_ + "/wineserver");  // a copy has a directory of its own
}

WinePrefix::~WinePrefix() {
    try {
        stop();
        removeServerFolder(path_);
    } catch (const std::exception&) {
        // The test has said what went wrong; here is only tidied up.
    }
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

ProcessOptions WinePrefix::options() const {
    return wineOptions(path_);
}

std::string WinePrefix::content(const std::string& below) const {
    return contentOfFile(path_ + "/" + below);
}

ProcessResult WinePrefix::wine(const std::vector<std::string>& arguments) const {
    return startWine(arguments)->wait();
}

std::unique_ptr<Process> WinePrefix::startWine(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"wine"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ProcessOptions options = this->options();
    options.openInput = true;
    return std::make_unique<Process>(command, options);
}

std::unique_ptr<Process> WinePrefix::startServer() const {
    return std::make_unique<Process>(std::vector<std::string>{"wineserver", "-f", "-p"}, options());
}

void WinePrefix::stop() const {
    stopServer(path_);
}

}  // namespace tidvane::tests
