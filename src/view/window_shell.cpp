#include "view/window_shell.h"

#include <wx/utils.h>

#include <algorithm>
#include <array>

#include "base/text.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr std::array kAddresses{"http://", "https://", "mailto:"};
constexpr const char* kAddressWithoutScheme = "www.";
constexpr const char* kScheme = "http://";
constexpr const char* kPlugIn = ".tdp";
constexpr int kStarted = 33;        // all above 32 mean that
constexpr int kNoAssociation = 31;  // nothing is there that could show it

bool isAddress(const std::string& file) {
    return std::any_of(kAddresses.begin(), kAddresses.end(),
                       [&](const char* start) { return base::startsWithNoCase(file, start); });
}

}  // namespace

bool WindowShell::isPlugIn(const std::string& file) const {
    const std::size_t name = file.rfind('\\') + 1;
    return !plugInFolder.empty() && base::equalNoCase(file.substr(0, name), plugInFolder) &&
           file.size() > std::char_traits<char>::length(kPlugIn) &&
           base::equalNoCase(file.substr(file.size() - std::char_traits<char>::length(kPlugIn)), kPlugIn);
}

// What the desktop is to show for a name of the machine or of the net; empty: nothing.
std::string WindowShell::shownTarget(const std::string& file) const {
    if (isAddress(file)) return file;
    if (base::startsWithNoCase(file, kAddressWithoutScheme)) return kScheme + file;
    if (isPlugIn(file)) return hostFileOf ? hostFileOf(file) : std::string();
    return hostFolderOf ? hostFolderOf(file) : std::string();
}

bool WindowShell::showFolder(const std::string& folder) {
    const std::string target = hostFolderOf ? hostFolderOf(folder) : std::string();
    if (target.empty()) return false;
    if ((!show || !show(target)) && onNotShown) onNotShown(folder);
    return true;
}

int WindowShell::ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int showAs) {
    if (show && base::equalNoCase(verb, "open") && parameters.empty()) {
        if (const std::string target = shownTarget(file); !target.empty()) {
            if (show(target)) return kStarted;
            if (onNotShown) onNotShown(file);
            return kNoAssociation;
        }
    }
    return shell_.ShellExecuteA(verb, file, parameters, directory, showAs);
}

long WindowShell::SHEmptyRecycleBinA(std::uint64_t hwnd, const std::string& root, unsigned flags) {
    if ((flags & platform::kSherbNoConfirmation) == 0 && agreesToEmpty) {
        platform::RecycleBinInfo info;
        const bool empty = shell_.SHQueryRecycleBinA(root, info) == 0 && info.items == 0;
        if (!empty && !agreesToEmpty()) return platform::kErrorCancelled;
        flags |= platform::kSherbNoConfirmation;
    }
    return shell_.SHEmptyRecycleBinA(hwnd, root, flags);
}

bool showOnDesktop(const std::string& target) {
    const wxString native = toNative(target);
    return isAddress(target) ? wxLaunchDefaultBrowser(native) : wxLaunchDefaultApplication(native);
}

}  // namespace tidvane::view
