#include "settings/modOS.h"

#include <algorithm>
#include <array>
#include <vector>

#include "forms/simple_controls.h"
#include "settings/control_lookup.h"

namespace tidvane::settings {

namespace {

constexpr int kWindows9x = 1;
constexpr int kWindowsNT = 2;

constexpr std::array<const char*, 12> kNames{"not detected", "95", "98",   "ME",    "NT 3.51", "NT 4.0",
                                             "2000",         "XP", "2003", "Vista", "7",       "8"};

struct Lacking {
    unsigned versions;  // one bit a code
    const char* window;
    const char* control;
};

constexpr unsigned code(int number) {
    return 1u << number;
}

constexpr unsigned k9x = code(1) | code(2) | code(3);
constexpr unsigned kBefore51 = k9x | code(4) | code(5) | code(6);
constexpr unsigned kBefore60 = kBefore51 | code(7) | code(8);
constexpr unsigned k62 = code(11);

// clang-format off
constexpr std::array kLacking{
    Lacking{kBefore51, "frmOptions",        "chkSearchWizard"},
    Lacking{kBefore51, "frmOptions",        "chkPrefetchFolder"},
    Lacking{k9x,       "frmOptions",        "chkUserTemp"},
    // The step for everything first: clearing it puts the other box back on offer.
    Lacking{kBefore60, "frmIEInDepthClean", "chkIEINDepthCleanAll"},
    Lacking{kBefore60, "frmIEInDepthClean", "chkIEINDepthClean"},
    // the block of the volume check
    Lacking{k9x,       "frmOptions",        "frmVolume"},
    Lacking{k9x,       "frmOptions",        "lblVolumeInfo"},
    Lacking{k9x,       "frmOptions",        "chkVolumeCheck"},
    Lacking{k9x,       "frmOptions",        "lblVolumeHD"},
    Lacking{k9x,       "frmOptions",        "txtVolumeCheckHD"},
    Lacking{k9x,       "frmOptions",        "lblVolumeParameter"},
    Lacking{k9x,       "frmOptions",        "txtVolumeCheckParameter"},
    Lacking{k9x,       "frmOptions",        "cmdVolumeCheck"},
    Lacking{k9x,       "frmOptions",        "lblVolumeAlert"},
    Lacking{k9x,       "frmOptions",        "lblVolumeAlertInfo"},
    // the block of the registry add-in
    Lacking{k62,       "frmOptions",        "frmRegistry"},
    Lacking{k62,       "frmOptions",        "lblReg"},
    Lacking{k62,       "frmOptions",        "lblRegInfoPath"},
    Lacking{k62,       "frmOptions",        "txtAddInRegCleanPath"},
    Lacking{k62,       "frmOptions",        "chkAddInRegClean"},
    Lacking{k62,       "frmOptions",        "cmdAddInRegCleanBrowse"},
    Lacking{k62,       "frmOptions",        "lblRegAdvice"},
    Lacking{k62,       "frmOptions",        "lblReg2"},
};
// clang-format on

int codeOf(const platform::WindowsVersion& version) {
    if (version.platformId == kWindows9x) {
        switch (version.minor) {
            case 0:
                return 1;
            case 10:
                return 2;
            case 90:
                return 3;
            default:
                return 0;
        }
    }
    if (version.platformId != kWindowsNT) return 0;
    switch (version.major) {
        case 3:
            return 4;
        case 4:
            return 5;
        case 5:
            return version.minor == 0 ? 6 : version.minor == 1 ? 7 : 8;
        case 6:
            return version.minor >= 0 && version.minor <= 2 ? 9 + version.minor : 0;
        default:
            return 0;
    }
}

// First all values, then all states: clearing a box may raise an event that enables another one of the table.
void switchOff(Program& program, unsigned version) {
    std::vector<forms::Control*> controls;
    for (const Lacking& lacking : kLacking) {
        if ((lacking.versions & version) == 0) continue;
        if (auto* control = findControl<forms::Control>(program, lacking.window, lacking.control)) {
            controls.push_back(control);
        }
    }
    for (forms::Control* control : controls) {
        if (control->kind == forms::ControlKind::CheckBox) static_cast<forms::CheckBox*>(control)->Value = 0;
    }
    for (forms::Control* control : controls) control->Enabled = false;
}

}  // namespace

int windowsCode(Program& program) {
    return codeOf(program.platform.system.GetVersionExA());
}

std::string DetectWindows(Program& program) {
    const platform::WindowsVersion version = program.platform.system.GetVersionExA();
    const int number = codeOf(version);
    switchOff(program, code(number));
    std::string name = kNames[static_cast<std::size_t>(number)];
    if (number == 0) return name;
    return "Windows " + name + (version.servicePack.empty() ? "" : " " + version.servicePack);
}

bool IsWindowsNT(Program& program) {
    return program.platform.system.GetVersionExA().platformId == kWindowsNT;
}

bool IsUserAdmin(Program& program) {
    std::vector<std::string> names;
    if (!program.platform.system.groupMembers("Administratoren", names)) return false;
    const std::string user = program.platform.environment.get("USERNAME").value_or("");
    return std::find(names.begin(), names.end(), user) != names.end();
}

std::string GetBenutzer(Program& program) {
    const std::string name = program.platform.system.GetUserNameA();
    return name.substr(0, name.find('\0'));
}

}  // namespace tidvane::settings
