#include "view/layouts.h"

#include <algorithm>
#include <array>

#include "app/frmMain.h"
#include "view/layout/all.h"

namespace tidvane::view {

namespace {

// clang-format off
constexpr std::array kWindows{
    //            form              resizable frame  bare   model size  least width, height in twips
    WindowLayout{"frmMain",        {true,     true,  false, true, app::frmMain::kMinWidth, app::frmMain::kMinHeight}, layoutFrmMain},
    WindowLayout{"frmTempAge",     {false,    false, false, false, 0, 0}, layoutFrmTempAge},
};
// clang-format on

}  // namespace

const WindowLayout* layoutOf(std::string_view form) {
    const auto* const found =
        std::find_if(kWindows.begin(), kWindows.end(), [&](const WindowLayout& row) { return form == row.form; });
    return found == kWindows.end() ? nullptr : found;
}

}  // namespace tidvane::view
