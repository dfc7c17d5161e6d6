#include "tools/frmIECookies.h"

#include <algorithm>
#include <variant>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "platform/common/directory_lookup.h"
#include "platform/common/windows_path.h"
#include "registry/cRegistry.h"
#include "removal/modKillMethod.h"
#include "settings/modFormINI.h"
#include "tools/save_rows.h"

namespace tidvane::tools {

namespace {

namespace attribute = platform::attribute;

constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

bool isRootOrUnknown(const std::string& folder) {
    platform::WindowsPath path;
    return !ok(platform::parseWindowsPath(base::withBackslash(folder), path)) || path.names.empty();
}

bool isDriveRoot(const std::string& folder) {
    platform::WindowsPath path;
    return ok(platform::parseWindowsPath(folder, path)) && path.names.empty() && path.root.size() == 2;
}

struct Listing {
    bool foundAny = false;           // there was a first name
    std::vector<std::string> names;  // behind it
};

// The listing is begun with folders allowed, and its first name is not used, whatever it is; the names behind it are
// files, hidden and system ones among them. Windows delivers "." first in every folder but the root of a drive, and our
// look-up leaves "." and ".." out on every platform. So the unused name is "." and no cookie is lost; in the root of a
// drive, which has no such entry, it is the first real one: intended. ".." is no file and never comes.
// `folder` ends in a backslash.
Listing listingOf(platform::FileSystem& files, const std::string& folder) {
    Listing listing;
    std::vector<std::string> first;
    if (isDriveRoot(folder)) {
        first = platform::findMatches(files, folder + "*", attribute::Directory);
        listing.foundAny = !first.empty();
    } else {
        listing.foundAny = files.FolderExists(folder);
    }
    if (!listing.foundAny) return listing;
    listing.names = platform::findMatches(files, folder + "*", attribute::Hidden | attribute::System);
    if (!first.empty()) {
        std::erase_if(listing.names, [&](const std::string& name) {
            return base::compareNoCase(name, first.front()) <= 0;  // the order in which the look-up delivers
        });
    }
    return listing;
}

}  // namespace

frmIECookies::frmIECookies(settings::Program& program) : Form(kName), program_(program) {
    mnudeleteselected.isDefault.design(true);
    mnBar.Visible.design(false);  // a pop-up
    for (forms::Menu* entry :
         {&mnuselectall, &mnudeselectall, &mnudeleteall, &mnudeleteselected, &mnurefreshcookies, &mnusavecookiefile}) {
        entry->parent = mnBar.Name;
    }
    mnuselectall.Click.connect([this] { lstCookies.markAll(true); });
    mnudeselectall.Click.connect([this] { lstCookies.markAll(false); });
    mnudeleteall.Click.connect([this] { deleteAll(); });
    mnudeleteselected.Click.connect([this] { deleteSelected(); });
    mnurefreshcookies.Click.connect([this] { refresh(); });
    mnusavecookiefile.Click.connect([this] { save(); });
    tmrCookies.Tick.connect([this] { tmrCookies_Timer(); });
}

void frmIECookies::Form_Load() {
    lstCookies.ColumnHeaders = {{"Name", "Cookie Name", 5000}};
    registry::cRegistry registry(program_.platform);
    const registry::RegistryVariant value =
        registry.ValueEx(platform::HKEY_CURRENT_USER_, kShellFolders, "Cookies", platform::kRegSz, std::string());
    if (const auto* folder = std::get_if<std::string>(&value)) lblCookieDir.Caption = *folder;
    EnumCookies(lblCookieDir.Caption);

    const settings::LangTable& text = program_.LangText;
    Caption = text(817);
    lblCookies.Caption = text(818);
    mnurefreshcookies.Caption = text(810);
    mnuselectall.Caption = text(811);
    mnudeselectall.Caption = text(812);
    mnudeleteall.Caption = text(813);
    mnudeleteselected.Caption = text(814);
    mnusavecookiefile.Caption = text(815);
    // Restores, and nothing ever stores this window: intended.
    (void)settings::LoadFormINI(program_, *this);
}

void frmIECookies::EnumCookies(const std::string& folder) {
    const std::string prefix = base::withBackslash(folder);
    const bool onCurrentDrive = prefix.starts_with('\\') && !prefix.starts_with("\\\\");
    const Listing listing =
        listingOf(program_.platform.files, onCurrentDrive ? program_.programFolder().substr(0, 2) + prefix : prefix);
    if (!listing.foundAny) return;
    program_.platform.events.DoEvents();
    for (const std::string& name : listing.names) {
        lstCookies.Add(0, prefix + name, name, 0);
        program_.platform.events.DoEvents();
        // Whatever got in may have closed the window.
        if (program_.windows.ifLoaded(kName) != this) return;
    }
    lstCookies.mark(lstCookies.Count(), true);
}

void frmIECookies::listRightClick() {
    program_.display.popUpMenu(*this, "mnBar");
}

bool frmIECookies::folderIsCookies() const {
    return !isRootOrUnknown(lblCookieDir.Caption);
}

bool frmIECookies::mayDelete() {
    std::vector<platform::FolderEntry> entries;
    return folderIsCookies() && ok(program_.platform.files.ReadFolderToEmpty(lblCookieDir.Caption, entries)) &&
           program_.allowsRemoval(settings::Removal::Manager);
}

// The plain delete does the same with errors ignored or not; only the answer of the latter tells whether one was left
// behind.
bool frmIECookies::killed(const std::string& file) {
    return removal::KillFile(program_.platform, file, removal::KillPlain, false);
}

void frmIECookies::deleteAll() {
    if (!mayDelete()) return;
    for (int row = lstCookies.Count(); row >= 1; --row) {
        if (killed(lstCookies.item(row)->key)) lstCookies.Remove(row);
    }
}

void frmIECookies::deleteSelected() {
    if (!mayDelete()) return;
    for (int row = lstCookies.Count(); row >= 1; --row) {
        const forms::ListItem cookie = *lstCookies.item(row);
        if (cookie.text.empty() || !cookie.selected) continue;
        bool gone = killed(cookie.key);
        if (!gone) {
            // A second try without attributes, which "delete all" does not make: intended.
            (void)program_.platform.files.SetAttributes(cookie.key, attribute::Normal);
            gone = killed(cookie.key);
        }
        if (gone) lstCookies.Remove(row);
    }
}

void frmIECookies::refresh() {
    lstCookies.Clear();
    EnumCookies(lblCookieDir.Caption);
}

void frmIECookies::save() {
    std::vector<std::string> names;
    for (const forms::ListItem& cookie : lstCookies.items()) names.push_back(cookie.text);
    saveRows(program_, names);
}

void frmIECookies::tmrCookies_Timer() {
    const int count = lstCookies.Count();
    lblfoundCookies.Caption = base::numberText(std::int64_t{count}) + " " + program_.LangText(500);
    mnudeselectall.Enabled = count > 0;
    mnusavecookiefile.Enabled = count > 0;
    // With no folder of its own the window lists the root of a drive; from there nothing is deleted.
    mnudeleteall.Enabled = count > 0 && folderIsCookies();
    mnudeleteselected.Enabled = count > 0 && folderIsCookies();
}

}  // namespace tidvane::tools
