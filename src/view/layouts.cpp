#include "view/layouts.h"

#include <algorithm>
#include <array>

#include "app/frmDiskSizeStats.h"
#include "app/frmMain.h"
#include "settings/frmOptions.h"
#include "view/layout/all.h"

namespace tidvane::view {

namespace {

// clang-format off
constexpr std::array kWindows{
    //            form              resizable frame  bare   model size  least width, height in twips
    WindowLayout{"frmMain",        {true,     true,  false, true, app::frmMain::kMinWidth, app::frmMain::kMinHeight}, layoutFrmMain},
    WindowLayout{"frmChromeDir",   {true,     false, false, false, 0, 0}, layoutBrowserDirs},
    WindowLayout{"frmDiskSizeStats", {true,   false, false, true, app::frmDiskSizeStats::kMinWidth, app::frmDiskSizeStats::kMinHeight}, layoutFrmDiskSizeStats},
    WindowLayout{"frmIECache",     {true,     false, false, false, 0, 0}, layoutFrmIECache},
    WindowLayout{"frmIECookies",   {true,     false, false, false, 0, 0}, layoutFrmIECookies},
    WindowLayout{"frmIEInDepthClean", {false, false, false, false, 0, 0}, layoutFrmIEInDepthClean},
    WindowLayout{"frmManualSearch", {true,    false, false, true, 0, 0}, layoutFrmManualSearch},
    WindowLayout{"frmMoreToConfigure", {true, false, false, false, 0, 0}, layoutFrmMoreToConfigure},
    WindowLayout{"frmMozillaDir",  {true,     false, false, false, 0, 0}, layoutBrowserDirs},
    WindowLayout{"frmOperaDir",    {true,     false, false, false, 0, 0}, layoutBrowserDirs},
    WindowLayout{"frmOptions",     {true,     false, false, true, settings::frmOptions::kMinWidth, settings::frmOptions::kMinHeight}, layoutFrmOptions},
    WindowLayout{"frmPlugsInfo",   {true,     false, false, false, 0, 0}, layoutFrmPlugsInfo},
    WindowLayout{"frmResources",   {true,     false, false, false, 0, 0}, layoutFrmResources},
    WindowLayout{"frmSafariDir",   {true,     false, false, false, 0, 0}, layoutBrowserDirs},
    WindowLayout{"frmSearchMasks", {true,     false, false, false, 0, 0}, layoutFrmSearchMasks},
    WindowLayout{"frmStarter",     {true,     false, false, true, 0, 0}, layoutFrmStarter},
    WindowLayout{"frmTempAge",     {false,    false, false, false, 0, 0}, layoutFrmTempAge},
    WindowLayout{"frmWidget",      {false,    false, true, false, 0, 0}, layoutFrmWidget},
};
// clang-format on

}  // namespace

const WindowLayout* layoutOf(std::string_view form) {
    const auto* const found =
        std::find_if(kWindows.begin(), kWindows.end(), [&](const WindowLayout& row) { return form == row.form; });
    return found == kWindows.end() ? nullptr : found;
}

std::span<const WindowLayout> allLayouts() {
    return kWindows;
}

}  // namespace tidvane::view
