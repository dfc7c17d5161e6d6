#include "settings/browser_detection.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"
#include "settings/control_lookup.h"
#include "settings/frmChromeDir.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmSafariDir.h"
#include "settings/modFormINI.h"

namespace tidvane::settings {

namespace {

namespace csidl = platform::csidl;
using enum BrowserBox;

// A special folder and what lies below it; no number: no place.
struct Place {
    int folder = -1;
    const char* below = "";
};

// What a box gets.
struct Fill {
    BrowserBox box = Profile;
    Place place;
};

// What a look does besides filling its boxes.
enum Effect : unsigned {
    Nothing = 0,
    Tick = 1,          // the window's box "the folders are known"
    AllowOk = 2,       // the window's OK; nothing turns it off, so that folders can always be set by hand
    ShowSuccess = 4,   // the picture on the page
    ShowFail = 8,      // the other picture
    CaptionFails = 16  // the page's frame says so
};
constexpr unsigned kKnown = Tick | AllowOk | ShowSuccess;

// One look of the search. The candidates are worked out one after the other into the same place, so that only the last
// one is looked for: intended.
struct Look {
    TaskPage page;
    std::array<Place, 4> candidates;
    std::array<Fill, 3> fills;
    unsigned found;
    unsigned missing;
};

// Stands for the folder of the first profile that profiles.ini names; no path can hold these signs.
constexpr std::string_view kFirstProfile = "<profile>";

constexpr const char* kFirefox = "\\Mozilla\\FireFox";
constexpr const char* kFirefoxProfile = "\\Mozilla\\FireFox\\<profile>";
constexpr const char* kFirefoxCache = "\\Mozilla\\FireFox\\<profile>\\Cache";
constexpr const char* kOpera = "\\Opera\\Opera\\";
constexpr const char* kOperaCache = "\\Opera\\Opera\\cache\\";
constexpr const char* kChrome = "\\Google\\Chrome\\User Data\\";
constexpr const char* kChromeProfile = "\\Google\\Chrome\\User Data\\Default\\";
constexpr const char* kChromeCache = "\\Google\\Chrome\\User Data\\Default\\Cache\\";
constexpr const char* kSafari = "\\Apple Computer\\Safari\\";

constexpr int kRoaming = csidl::AppData;
constexpr int kLocal = csidl::LocalAppData;
constexpr int kPrograms = csidl::ProgramFiles;

// clang-format off
constexpr std::array kLooks{
    Look{TaskPage::Mozilla,
         {{{kRoaming, kFirefox}}},
         {{{Profile, {kRoaming, kFirefoxProfile}}, {Second, {kLocal, kFirefoxProfile}}, {Cache, {kLocal, kFirefoxCache}}}},
         kKnown, ShowFail | CaptionFails},

    // The local folder or the cache alone ticks, the roaming one does not, although most tasks work there: intended.
    Look{TaskPage::Opera,
         {{{kPrograms, "\\Opera\\profile\\"}, {kRoaming, "\\Opera\\Opera\\profile\\"}, {kRoaming, "\\Opera\\Opera 9\\profile\\"}, {kRoaming, kOpera}}},
         {{{Profile, {kRoaming, kOpera}}}},
         Nothing, CaptionFails},
    Look{TaskPage::Opera,
         {{{kLocal, kOpera}}},
         {{{Second, {kLocal, kOpera}}}},
         kKnown, ShowFail},
    Look{TaskPage::Opera,
         {{{kPrograms, "\\Opera\\profile\\cache4\\"}, {kRoaming, "\\Opera\\Opera\\profile\\cache4\\"}, {kRoaming, "\\Opera\\Opera 9\\profile\\cache4\\"}, {kLocal, kOperaCache}}},
         {{{Cache, {kLocal, kOperaCache}}}},
         kKnown, Nothing},

    // The cache alone ticks, and a profile without one does not: intended.
    Look{TaskPage::Chrome,
         {{{kLocal, kChromeProfile}}},
         {{{Profile, {kLocal, kChromeProfile}}, {Second, {kLocal, kChrome}}}},
         Nothing, CaptionFails},
    Look{TaskPage::Chrome,
         {{{kLocal, kChromeCache}}},
         {{{Cache, {kLocal, kChromeCache}}}},
         kKnown, ShowFail},

    Look{TaskPage::Safari,
         {{{kRoaming, kSafari}}},
         {{{Profile, {kRoaming, kSafari}}}},
         kKnown, ShowFail | CaptionFails},
    Look{TaskPage::Safari,
         {{{kLocal, kSafari}}},
         {{{Second, {kLocal, kSafari}}}},
         Tick, Nothing},
    Look{TaskPage::Safari,
         {{{kLocal, kSafari}}},
         {{{Cache, {kLocal, kSafari}}}},
         Tick, Nothing},
};
// clang-format on

// A browser's window, and its page of the options window.
struct Browser {
    TaskPage page;
    const char* window;
    forms::Frame frmOptions::*frame;
    const char* tasks;  // what the frame's caption says in front of the failure
    forms::Image frmOptions::*success;
    forms::Image frmOptions::*fail;
};

constexpr std::array kBrowsers{
    Browser{TaskPage::Mozilla, frmMozillaDir::kName, &frmOptions::frmBrowserMozilla, "Mozilla/Firefox Tasks ",
            &frmOptions::ImgMozillaSuccess, &frmOptions::ImgMozillaFail},
    Browser{TaskPage::Opera, frmOperaDir::kName, &frmOptions::frmBrowserOpera, "Opera Tasks ",
            &frmOptions::ImgOperaSuccess, &frmOptions::ImgOperaFail},
    Browser{TaskPage::Chrome, frmChromeDir::kName, &frmOptions::frmBrowserChrome, "Chrome Tasks ",
            &frmOptions::ImgChromeSuccess, &frmOptions::ImgChromeFail},
    Browser{TaskPage::Safari, frmSafariDir::kName, &frmOptions::frmBrowserSafari, "Safari Tasks ",
            &frmOptions::ImgSafariSuccess, &frmOptions::ImgSafariFail},
};

// The first profile alone counts, and its path is taken as a relative one, whatever the file says of it: intended.
// Without the file or the key the answer is NUL characters; the text goes into the boxes, and no task finds anything by
// it.
std::string firstProfile(Program& program) {
    const std::string file = program.platform.shell.SpecialFolder(kRoaming) + kFirefox + "\\profiles.ini";
    return base::replaceAll(ReadINIKey(program, file, "Profile0", "Path"), "/", "\\");
}

class Detection {
public:
    Detection(Program& program, frmOptions& options) : program_(program), options_(options) {}

    void search(const Browser& browser, BrowserDirForm& window) {
        for (const Look& look : kLooks) {
            if (look.page != browser.page) continue;
            const bool found = program_.platform.files.FolderExists(pathOf(lastCandidate(look)));
            if (found) fill(look, window);
            apply(found ? look.found : look.missing, browser, window);
        }
    }

private:
    static Place lastCandidate(const Look& look) {
        Place last;
        for (const Place& candidate : look.candidates) {
            if (candidate.folder >= 0) last = candidate;
        }
        return last;
    }

    std::string pathOf(const Place& place) {
        std::string path = program_.platform.shell.SpecialFolder(place.folder) + place.below;
        if (path.find(kFirstProfile) == std::string::npos) return path;
        if (!profile_) profile_ = firstProfile(program_);
        return base::replaceAll(path, kFirstProfile, *profile_);
    }

    void fill(const Look& look, BrowserDirForm& window) {
        for (const Fill& fill : look.fills) {
            if (fill.place.folder >= 0) window.box(fill.box).setText(pathOf(fill.place));
        }
    }

    void apply(unsigned effects, const Browser& browser, BrowserDirForm& window) {
        // Never taken back, also where the folders have gone: intended.
        if ((effects & Tick) != 0) window.usable.Value = 1;
        if ((effects & AllowOk) != 0) window.cmdOK.Enabled = true;
        if ((effects & ShowSuccess) != 0) (options_.*browser.success).Visible = true;
        if ((effects & ShowFail) != 0) (options_.*browser.fail).Visible = true;
        if ((effects & CaptionFails) != 0) {
            (options_.*browser.frame).Caption = browser.tasks + ("[" + program_.LangText(824) + "]");
        }
    }

    Program& program_;
    frmOptions& options_;
    std::optional<std::string> profile_;
};

}  // namespace

void DetectBrowsers(Program& program, frmOptions& options) {
    Detection detection(program, options);
    for (const Browser& browser : kBrowsers) {
        auto* window = dynamic_cast<BrowserDirForm*>(findWindow(program, browser.window));
        if (window != nullptr && !window->disableAutoDetect.ticked()) detection.search(browser, *window);
    }
    for (const Browser& browser : kBrowsers) {
        const auto* window = dynamic_cast<BrowserDirForm*>(findWindow(program, browser.window));
        if (window != nullptr) options.enableTaskPage(browser.page, window->usable.ticked());
    }
}

}  // namespace tidvane::settings
