#include "platform/guard/protected_places.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "base/wildcard.h"

namespace tidvane::platform {
namespace {

// Below the Windows folder: what it cannot start or install without.
constexpr std::array<std::string_view, 27> kSystemFolders = {
    "System",
    "System32",
    "SysWOW64",
    "SysArm32",
    "Sysnative",
    "WinSxS",
    "servicing",
    "Boot",
    "Fonts",
    "inf",
    "Installer",
    "assembly",
    "Microsoft.NET",
    "SystemApps",
    "SystemResources",
    "ImmersiveControlPanel",
    "System32\\Boot",
    "System32\\catroot",
    "System32\\catroot2",
    "System32\\config",
    "System32\\drivers",
    "System32\\drivers\\etc",
    "System32\\DriverStore",
    "System32\\spool",
    "System32\\Tasks",
    "System32\\wbem",
    "SysWOW64\\drivers",
};

// The names of the Windows folder that systems were delivered with.
constexpr std::array<std::string_view, 2> kWindowsFolders = {"Windows", "WINNT"};

constexpr std::array<std::string_view, 6> kProgramFolders = {
    "Program Files",       "Program Files\\Common Files",
    "Program Files (x86)", "Program Files (x86)\\Common Files",
    "Program Files (Arm)", "ProgramData",
};

// In every profile: what its programs keep their data and settings in, by the names of each generation and in German.
constexpr std::array<std::string_view, 8> kProfileFolders = {
    "AppData\\Local",       "AppData\\LocalLow",
    "AppData\\Roaming",     "Application Data",
    "Anwendungsdaten",      "Local Settings\\Application Data",
    "Lokale Einstellungen", "Lokale Einstellungen\\Anwendungsdaten",
};

constexpr std::array<std::string_view, 3> kUsersRoots = {"Users", "Documents and Settings",
                                                         "Dokumente und Einstellungen"};

std::vector<std::string> comparableNames(const std::vector<std::string>& names) {
    std::vector<std::string> result;
    result.reserve(names.size());
    for (const std::string& name : names) result.push_back(comparableName(name));
    return result;
}

std::vector<std::string> namesOf(std::string_view relative) {
    return comparableNames(base::split(relative, "\\"));
}

// What a short name keeps of a long one: no blanks and dots, in upper case.
std::string shortNameStock(std::string_view name) {
    std::string stock;
    for (const char sign : name) {
        if (sign != ' ' && sign != '.') stock += sign;
    }
    return stock;
}

// Whether `name` may be the 8.3 spelling of `place`: "PROGRA~1" of "PROGRAM FILES", or with the hash that the system
// uses after four of a kind, "PR1A2B~1".
bool mayBeShortNameOf(std::string_view name, std::string_view place) {
    const std::size_t tilde = name.find('~');
    if (tilde == std::string_view::npos || tilde == 0 || tilde > 6 || tilde + 1 == name.size()) return false;
    if (name[tilde + 1] < '0' || name[tilde + 1] > '9') return false;
    const std::string_view front = name.substr(0, tilde);
    const std::string stock = shortNameStock(place);
    if (stock.compare(0, front.size(), front) == 0) return true;
    return front.size() == 6 && stock.compare(0, 2, front.substr(0, 2)) == 0 &&
           front.find_first_not_of("0123456789ABCDEF", 2) == std::string_view::npos;
}

bool isSamePlace(std::string_view name, std::string_view place) {
    return place == "*" || name == place || mayBeShortNameOf(name, place);
}

}  // namespace

bool ProtectedPlaces::isProtected(const WindowsPath& path) {
    if (path.names.empty()) return true;
    if (!asked_) ask();
    const std::string root = base::upperCase(path.root);
    const std::vector<std::string> names = comparableNames(path.names);
    const bool mask = base::hasWildcard(path.names.back());
    // All that a folder holds is as dear as the folder.
    if (mask && base::Wildcard(names.back()).matchesEveryName()) {
        WindowsPath parent = path;
        parent.names.pop_back();
        if (isProtected(parent)) return true;
    }
    return std::any_of(places_.begin(), places_.end(), [&](const Place& place) {
        if (place.names.size() != names.size() || (!place.root.empty() && place.root != root)) return false;
        const auto last = names.size() - 1;
        for (std::size_t i = 0; i < last; ++i) {
            if (!isSamePlace(names[i], place.names[i])) return false;
        }
        if (!mask) return isSamePlace(names[last], place.names[last]);
        return place.names[last] == "*" || base::wildcardMatch(names[last], place.names[last]);
    });
}

void ProtectedPlaces::ask() {
    asked_ = true;
    addDocumented();
    WindowsPath windows;
    const std::string windowsFolder = system_.WindowsFolder();
    if (ok(parseWindowsPath(windowsFolder, windows)) && !windows.names.empty()) {
        addSystemFolders(base::upperCase(windows.root), comparableNames(windows.names));
    }
    addAnswer(windowsFolder);
    addAnswer(system_.SystemFolder());
    addAnswer(system_.ApplicationPath());
    for (const int number : {csidl::Windows, csidl::System, csidl::ProgramFiles, csidl::AppData, csidl::LocalAppData}) {
        addAnswer(shell_.SpecialFolder(number));
    }
    addProfile(shell_.SpecialFolder(csidl::Profile));
}

void ProtectedPlaces::addDocumented() {
    for (const std::string_view windows : kWindowsFolders) {
        add({}, namesOf(windows));
        addSystemFolders({}, namesOf(windows));
    }
    for (const std::string_view folder : kProgramFolders) add({}, namesOf(folder));
    for (const std::string_view users : kUsersRoots) addProfilesBelow({}, namesOf(users));
}

void ProtectedPlaces::addProfilesBelow(const std::string& root, std::vector<std::string> users) {
    users.emplace_back("*");
    addBelow(root, users, kProfileFolders);
}

void ProtectedPlaces::add(const std::string& root, std::vector<std::string> names) {
    for (; !names.empty(); names.pop_back()) {
        const bool known = std::any_of(places_.begin(), places_.end(),
                                       [&](const Place& place) { return place.root == root && place.names == names; });
        if (!known) places_.push_back({root, names});
    }
}

void ProtectedPlaces::addAnswer(const std::string& path) {
    WindowsPath parsed;
    if (ok(parseWindowsPath(path, parsed))) add(base::upperCase(parsed.root), comparableNames(parsed.names));
}

void ProtectedPlaces::addProfile(const std::string& path) {
    addAnswer(path);
    WindowsPath profile;
    if (!ok(parseWindowsPath(path, profile)) || profile.names.size() < 2) return;
    // The other profiles lie beside this one. In a profile that lies in the Windows folder itself (a system without
    // users) the neighbours are that folder's own.
    profile.names.pop_back();
    if (base::equalNoCase(profile.text(), system_.WindowsFolder())) return;
    addProfilesBelow(base::upperCase(profile.root), comparableNames(profile.names));
}

void ProtectedPlaces::addSystemFolders(const std::string& root, const std::vector<std::string>& windowsFolder) {
    addBelow(root, windowsFolder, kSystemFolders);
}

template <class Folders>
void ProtectedPlaces::addBelow(const std::string& root, const std::vector<std::string>& place, const Folders& folders) {
    for (const std::string_view folder : folders) {
        std::vector<std::string> names = place;
        for (std::string& name : namesOf(folder)) names.push_back(std::move(name));
        add(root, std::move(names));
    }
}

}  // namespace tidvane::platform
