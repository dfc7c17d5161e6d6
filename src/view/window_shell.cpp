#include "view/window_shell.h"

#include <wx/utils.h>

#include <algorithm>
#include <array>

#include "base/text.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr std::array kAddresses{"http://", "https://", "mailto:"};
constexpr int kStarted = 33;        // all above 32 mean that
constexpr int kNoAssociation = 31;  // nothing is there that could show it

bool isAddress(const std::string& file) {
    return std::any_of(kAddresses.begin(), kAddresses.end(),
                       [&](const char* start) { return base::startsWithNoCase(file, start); });
}

}  // namespace

int WindowShell::ShellExecuteA(const std::string& verb, const std::string& file, const std::string& parameters,
                               const std::string& directory, int showAs) {
    if (show && base::equalNoCase(verb, "open") && parameters.empty()) {
        const std::string target = isAddress(file) ? file : hostFolderOf ? hostFolderOf(file) : std::string();
        if (!target.empty()) return show(target) ? kStarted : kNoAssociation;
    }
    return shell_.ShellExecuteA(verb, file, parameters, directory, showAs);
}

bool showOnDesktop(const std::string& target) {
    const wxString native = toNative(target);
    return isAddress(target) ? wxLaunchDefaultBrowser(native) : wxLaunchDefaultApplication(native);
}

}  // namespace tidvane::view
