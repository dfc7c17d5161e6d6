#include "frontend/host_paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "platform/machine/machine_platform.h"

namespace tidvane::frontend {

namespace fs = std::filesystem;

namespace {

// Of an entry that need not exist; empty where even the folder above it is unknown.
std::string withoutLinks(const fs::path& path) {
    std::error_code problem;
    const fs::path real = fs::weakly_canonical(path, problem);
    return problem ? std::string() : real.string();
}

// The entry of this name: the exact spelling first, then without regard to case. Empty: there is none.
fs::path entryIn(const fs::path& folder, const std::string& name) {
    std::error_code problem;
    if (fs::exists(folder / name, problem)) return folder / name;
    for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
        if (base::equalNoCase(entry->path().filename().string(), name)) return entry->path();
    }
    return {};
}

// Whether `text` is `folder` itself or lies below it.
template <class Equal>
bool isIn(const std::string& text, const std::string& folder, char separator, Equal equal) {
    if (!equal(text.substr(0, folder.size()), folder)) return false;
    return text.size() == folder.size() || text[folder.size()] == separator;
}

}  // namespace

HostPaths::HostPaths(const platform::machine::Machine& machine, const std::string& programFolder) {
    places_.push_back({std::string("C:\\") + platform::machine::kProgramPlace, withoutLinks(programFolder)});
    for (const platform::machine::MachineDrive& drive : machine.drives()) {
        places_.push_back({std::string(1, drive.letter) + ":", withoutLinks(drive.hostFolder)});
    }
    std::erase_if(places_, [](const Place& place) { return place.onHost.empty(); });
}

std::string HostPaths::hostPathOf(const std::string& machinePath) const {
    bool missing = false;
    return find(machinePath, missing);
}

std::string HostPaths::hostFolderOf(const std::string& machinePath) const {
    bool missing = false;
    std::string host = find(machinePath, missing);
    std::error_code problem;
    return missing || !fs::is_directory(host, problem) ? std::string() : host;
}

std::string HostPaths::hostFileOf(const std::string& machinePath) const {
    bool missing = false;
    std::string host = find(machinePath, missing);
    std::error_code problem;
    return missing || !fs::is_regular_file(host, problem) ? std::string() : host;
}

std::string HostPaths::find(const std::string& machinePath, bool& missing) const {
    const auto place = std::find_if(places_.begin(), places_.end(), [&](const Place& known) {
        return isIn(machinePath, known.onMachine, '\\',
                    [](const std::string& a, const std::string& b) { return base::equalNoCase(a, b); });
    });
    if (place == places_.end()) return {};
    fs::path host = place->onHost;
    std::size_t at = place->onMachine.size();
    while (at < machinePath.size()) {
        const std::size_t end = std::min(machinePath.find('\\', at + 1), machinePath.size());
        const std::string name = machinePath.substr(at + 1, end - at - 1);
        at = end;
        if (name.empty()) continue;
        const fs::path entry = entryIn(host, name);
        if (entry.empty()) {
            missing = true;
            break;
        }
        host = entry;
    }
    return host.string();
}

std::string HostPaths::machinePathOf(const std::string& hostPath) const {
    const std::string real = withoutLinks(hostPath);
    // The innermost place counts: a drive may lie inside another one.
    const Place* best = nullptr;
    for (const Place& place : places_) {
        const bool inside = isIn(real, place.onHost, '/', std::equal_to<>());
        if (inside && (best == nullptr || place.onHost.size() > best->onHost.size())) best = &place;
    }
    if (real.empty() || best == nullptr) return {};
    std::string below = real.substr(best->onHost.size());
    std::replace(below.begin(), below.end(), '/', '\\');
    // A drive's root ends in its backslash, a folder does not.
    if (below.empty() && best->onMachine.ends_with(':')) below = "\\";
    return best->onMachine + below;
}

}  // namespace tidvane::frontend
