#include "tasks/browser_folders.h"

#include <array>

#include "base/text.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/control_lookup.h"
#include "settings/frmChromeDir.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmSafariDir.h"
#include "settings/usable_folder.h"

namespace tidvane::tasks {

namespace {

struct LocationWindow {
    Group group;
    const char* window;
};
constexpr std::array kLocationWindows{
    LocationWindow{Group::Firefox, settings::frmMozillaDir::kName},
    LocationWindow{Group::Opera, settings::frmOperaDir::kName},
    LocationWindow{Group::Chrome, settings::frmChromeDir::kName},
    LocationWindow{Group::Safari, settings::frmSafariDir::kName},
};

settings::BrowserDirForm* formOf(settings::Program& program, Group group) {
    for (const LocationWindow& row : kLocationWindows) {
        if (row.group == group) return dynamic_cast<settings::BrowserDirForm*>(findWindow(program, row.window));
    }
    return nullptr;
}

}  // namespace

BrowserFolders::BrowserFolders(settings::Program& program, const CleaningTask& task)
    : program_(program), form_(formOf(program, task.group)) {}

std::string BrowserFolders::text(settings::BrowserBox box, bool joined) const {
    if (form_ == nullptr) return {};
    std::string folder = settings::usableFolder(program_, *form_, box);
    if (folder.empty() || !joined || form_->page() == settings::TaskPage::Mozilla) return folder;
    return base::withBackslash(folder);
}

std::string below(const std::string& folder, const std::string& name) {
    return folder.empty() ? std::string() : folder + name;
}

std::string belowAppData(settings::Program& program, const std::string& name) {
    return below(program.platform.shell.SpecialFolder(platform::csidl::AppData), name);
}

std::string belowLocalAppData(settings::Program& program, const std::string& name) {
    return below(program.platform.shell.SpecialFolder(platform::csidl::LocalAppData), name);
}

void kill(settings::Program& program, const std::string& pathOrMask) {
    if (!pathOrMask.empty()) removal::KillFile(program.platform, pathOrMask, program.selectedKillMethod(), false);
}

void purge(settings::Program& program, const std::string& folder) {
    if (!folder.empty()) removal::PurgeFolder(program, folder);
}

}  // namespace tidvane::tasks
