#include "settings/usable_folder.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"
#include "platform/common/windows_path.h"
#include "settings/sentences.h"

namespace tidvane::settings {

namespace {

namespace csidl = platform::csidl;
using platform::WindowsPath;
using enum BrowserBox;

// A folder that is no profile, and so may stand in no box: neither it nor one above it. Below the roaming and the local
// application data alike.
struct NoProfile {
    TaskPage page;
    BrowserBox box;
    const char* folder;
};
constexpr std::array kNoProfiles{
    NoProfile{TaskPage::Mozilla, Profile, "\\Mozilla\\FireFox\\Profiles"},
    NoProfile{TaskPage::Mozilla, Second, "\\Mozilla\\FireFox\\Profiles"},
    NoProfile{TaskPage::Mozilla, Cache, "\\Mozilla\\FireFox\\Profiles"},
    NoProfile{TaskPage::Opera, Profile, "\\Opera"},
    NoProfile{TaskPage::Opera, Second, "\\Opera"},
    NoProfile{TaskPage::Opera, Cache, "\\Opera\\Opera"},
    NoProfile{TaskPage::Chrome, Profile, "\\Google\\Chrome\\User Data"},
    NoProfile{TaskPage::Chrome, Second, "\\Google\\Chrome"},  // "User Data" is what this box is for
    NoProfile{TaskPage::Chrome, Cache, "\\Google\\Chrome\\User Data\\Default"},
    NoProfile{TaskPage::Safari, Profile, "\\Apple Computer"},
    NoProfile{TaskPage::Safari, Second, "\\Apple Computer"},
    NoProfile{TaskPage::Safari, Cache, "\\Apple Computer"},
};

// A folder in which every other one is a whole profile, of whatever browser.
struct ProfilesFolder {
    int data;
    const char* folder;
};
constexpr std::array kProfilesFolders{
    ProfilesFolder{csidl::AppData, "\\Mozilla\\FireFox\\Profiles"},
    ProfilesFolder{csidl::AppData, "\\Opera"},
    ProfilesFolder{csidl::AppData, "\\Google\\Chrome\\User Data"},
    ProfilesFolder{csidl::LocalAppData, "\\Google\\Chrome\\User Data"},
    ProfilesFolder{csidl::AppData, "\\Apple Computer"},
    ProfilesFolder{csidl::LocalAppData, "\\Apple Computer"},
};

bool isSeparator(char sign) {
    return sign == '\\' || sign == '/';
}

// Blanks and dots alone: nothing, the folder itself or the one above.
bool hasUnclearName(std::string_view text) {
    while (!text.empty()) {
        const auto end = std::find_if(text.begin(), text.end(), isSeparator);
        const auto length = static_cast<std::size_t>(end - text.begin());
        const std::string_view name = text.substr(0, length);
        if (!name.empty() && name.find_first_not_of(" .") == std::string_view::npos) return true;
        text.remove_prefix(std::min(text.size(), length + 1));
    }
    return false;
}

// False: no such path; `path` is then what could be read of it.
bool isPlainPath(const std::string& text, WindowsPath& path) {
    if (!ok(platform::parseWindowsPath(text, path)) || path.names.empty() || hasUnclearName(text)) return false;
    return std::all_of(path.names.begin(), path.names.end(), platform::isCreatableName);
}

// Whether `path` is `folder` or a folder above it.
bool holds(const WindowsPath& path, const WindowsPath& folder) {
    if (!base::equalNoCase(path.root, folder.root) || path.names.size() > folder.names.size()) return false;
    return std::equal(path.names.begin(), path.names.end(), folder.names.begin(),
                      [](const std::string& a, const std::string& b) {
                          return platform::comparableName(a) == platform::comparableName(b);
                      });
}

bool holds(const WindowsPath& path, const std::string& folder) {
    WindowsPath inside;
    return ok(platform::parseWindowsPath(folder, inside)) && holds(path, inside);
}

bool samePlace(const WindowsPath& a, const WindowsPath& b) {
    return a.names.size() == b.names.size() && holds(a, b);
}

// Of Safari's cache folder one file goes, of the others' all that is in it.
bool isEmptied(const BrowserDirForm& form, BrowserBox box) {
    return box == Cache && form.page() != TaskPage::Safari;
}

// What is emptied may be no profile of another browser either.
bool concerns(const NoProfile& row, const BrowserDirForm& form, BrowserBox box) {
    return row.box == box && (row.page == form.page() || isEmptied(form, box));
}

bool isWholeProfile(Program& program, WindowsPath path) {
    path.names.pop_back();
    return std::any_of(kProfilesFolders.begin(), kProfilesFolders.end(), [&](const ProfilesFolder& row) {
        WindowsPath folder;
        return ok(platform::parseWindowsPath(program.platform.shell.SpecialFolder(row.data) + row.folder, folder)) &&
               samePlace(path, folder);
    });
}

// By its shape and by where it lies; what the other boxes hold does not count.
bool isPossibleProfile(Program& program, BrowserDirForm& form, BrowserBox box, WindowsPath& path) {
    if (!isPlainPath(form.box(box).Text(), path)) return false;
    for (const NoProfile& row : kNoProfiles) {
        if (!concerns(row, form, box)) continue;
        for (const int data : {csidl::AppData, csidl::LocalAppData}) {
            if (holds(path, program.platform.shell.SpecialFolder(data) + row.folder)) return false;
        }
    }
    return !isEmptied(form, box) || !isWholeProfile(program, path);
}

// By what the other boxes hold.
bool isCacheAlone(Program& program, BrowserDirForm& form, WindowsPath path) {
    if (holds(path, form.box(Profile).Text())) return false;
    WindowsPath second;
    path.names.pop_back();
    return isPossibleProfile(program, form, Second, second) || !samePlace(path, second);
}

bool isUsable(Program& program, BrowserDirForm& form, BrowserBox box) {
    WindowsPath path;
    if (!isPossibleProfile(program, form, box, path)) return false;
    return !isEmptied(form, box) || isCacheAlone(program, form, path);
}

}  // namespace

std::string usableFolder(Program& program, BrowserDirForm& form, BrowserBox box) {
    const forms::TextBox& text = form.box(box);
    if (isUsable(program, form, box)) return text.Text();
    if (program.tellOnce(text.Name + ":" + text.Text())) {
        const std::string folder = text.Text().substr(0, text.Text().find('\0'));
        program.display.warn(sentence(program, Sentence::NoProfileFolder, {folder, text.Name, form.browser()}));
    }
    return {};
}

std::string cacheToEmpty(Program& program, BrowserDirForm& form) {
    const std::string folder = usableFolder(program, form, Cache);
    WindowsPath path;
    return isPlainPath(folder, path) && isCacheAlone(program, form, path) ? folder : std::string();
}

}  // namespace tidvane::settings
