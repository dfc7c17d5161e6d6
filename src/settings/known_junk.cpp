// Adds the junk that browsers are known for to the user's own lists.
#include "base/text.h"
#include "settings/control_lookup.h"
#include "settings/frmChromeDir.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmOptions.h"
#include "settings/frmSafariDir.h"
#include "settings/list_files.h"
#include "settings/usable_folder.h"

namespace tidvane::settings {

namespace {

constexpr std::array kBrowsers{frmMozillaDir::kName, frmOperaDir::kName, frmChromeDir::kName, frmSafariDir::kName};

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

// Nothing for a browser that was not found: what its boxes still hold is nobody's junk.
BrowserDirForm* knownBrowser(Program& program, const char* window) {
    auto* form = dynamic_cast<BrowserDirForm*>(findWindow(program, window));
    return form == nullptr || !form->usable.ticked() ? nullptr : form;
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
    for (const char* window : kBrowsers) {
        BrowserDirForm* form = knownBrowser(program_, window);
        if (form == nullptr) continue;
        const std::string folder = cacheToEmpty(program_, *form);
        if (!folder.empty() && program_.platform.files.FolderExists(folder)) addKnown(folder, lstFolders);
    }
}

void frmOptions::addKnownFiles() {
    for (const char* window : kBrowsers) {
        BrowserDirForm* form = knownBrowser(program_, window);
        if (form == nullptr) continue;
        const std::string folder = usableFolder(program_, *form, BrowserBox::Profile);
        if (folder.empty()) continue;
        for (const KnownFile& known : kKnownFiles) {
            if (std::string_view(known.window) != window) continue;
            const std::string path = base::withBackslash(folder) + known.name;
            if (program_.platform.files.FileExists(path)) addKnown(path, lstFiles);
        }
    }
}

}  // namespace tidvane::settings
