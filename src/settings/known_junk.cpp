// Adds the junk that browsers are known for to the user's own lists.
#include "base/text.h"
#include "settings/control_lookup.h"
#include "settings/frmOptions.h"
#include "settings/list_files.h"

namespace tidvane::settings {

namespace {

struct BrowserWindow {
    const char* window;
    const char* detected;  // ticked while the browser's folders are known
    const char* profileBox;
    const char* cacheBox;
};

constexpr std::array kBrowsers{
    BrowserWindow{"frmMozillaDir", "chkMozillaDir", "txtMozillaFileDir", "txtMozillaCacheDir"},
    BrowserWindow{"frmOperaDir", "chkOperaDir", "txtOperaFileDir", "txtOperaCacheDir"},
    BrowserWindow{"frmChromeDir", "chkChromeDir", "txtChromeFileDir", "txtChromeCacheDir"},
    BrowserWindow{"frmSafariDir", "chkSafariDir", "txtSafariFileDir", "txtSafariCacheDir"},
};

// Index and history files in the profile of a browser: the main targets of its history task.
struct KnownFile {
    const char* window;
    const char* name;
};
constexpr std::array kKnownFiles{
    KnownFile{"frmMozillaDir", "history.dat"},  KnownFile{"frmMozillaDir", "formhistory.sqlite"},
    KnownFile{"frmOperaDir", "global.dat"},     KnownFile{"frmOperaDir", "global_history.dat"},
    KnownFile{"frmChromeDir", "History"},       KnownFile{"frmChromeDir", "Archived History"},
    KnownFile{"frmSafariDir", "History.plist"},
};

std::string folderOf(Program& program, const BrowserWindow& browser, const char* box) {
    const auto* detected = findControl<forms::CheckBox>(program, browser.window, browser.detected);
    const auto* folder = findControl<forms::TextBox>(program, browser.window, box);
    if (detected == nullptr || folder == nullptr || !detected->ticked()) return {};
    return base::isAbsolutePath(folder->Text()) ? folder->Text() : std::string();
}

bool holds(const forms::ListBox& list, const std::string& path) {
    for (int row = 0; row < list.ListCount(); ++row) {
        if (base::equalNoCase(list.List(row), path)) return true;
    }
    return false;
}

}  // namespace

// Nobody typed these, so what may not get in is left out without a word.
void frmOptions::addKnown(const std::string& path, forms::ListBox& list) {
    if (holds(list, path) || isBannedEntry(path) || !isStorable(program_, path)) return;
    const ListItems read = parseListItems(path);
    if (read.items.size() == 1 && read.items.front() == path) list.AddItem(path);
}

void frmOptions::addKnownFolders() {
    for (const BrowserWindow& browser : kBrowsers) {
        const std::string folder = folderOf(program_, browser, browser.cacheBox);
        if (!folder.empty() && program_.platform.files.FolderExists(folder)) addKnown(folder, lstFolders);
    }
}

void frmOptions::addKnownFiles() {
    for (const BrowserWindow& browser : kBrowsers) {
        const std::string folder = folderOf(program_, browser, browser.profileBox);
        if (folder.empty()) continue;
        for (const KnownFile& known : kKnownFiles) {
            if (std::string_view(known.window) != browser.window) continue;
            const std::string path = base::withBackslash(folder) + known.name;
            if (program_.platform.files.FileExists(path)) addKnown(path, lstFiles);
        }
    }
}

}  // namespace tidvane::settings
