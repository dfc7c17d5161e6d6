#include "app/pane_table.h"

#include <array>

namespace tidvane::app {

namespace {

using enum PaneAction;

// clang-format off
constexpr std::array kPane{
    //      group, title, item, text, icon, action
    PaneRow{0, 102, 0, 170, "ImgStart",         CleaningPage},
    PaneRow{0, 102, 1, 119, "ImgPurge",         Clean},
    PaneRow{0, 102, 2, 131, "ImgCustomCleaner", CustomApplication},
    PaneRow{0, 102, 3, 103, "ImgCleaningJobs",  CleaningJobs},
    PaneRow{0, 102, 4, 120, "ImgOptions",       Options},
    PaneRow{1, 104, 0, 132, "ImgApps",          PlugInsPage},
    PaneRow{1, 104, 1, 105, "ImgDownload",      MorePlugIns},
    PaneRow{2, 106, 0, 133, "ImgExtensions",    ExtensionsPage},
    PaneRow{2, 106, 1, 107, "ImgDownload",      MoreExtensions},
    PaneRow{3, 112, 0, 112, "ImgHelp",          OnlineHelp},
    PaneRow{3, 112, 1, 108, "ImgInfo",          AboutPage},
    PaneRow{3, 112, 2, 109, "ImgUpdate",        UpdateCheck},
    PaneRow{4, 110, 0, 110, "ImgExit",          Exit},
    PaneRow{4, 110, 1, 111, "ImgShutdown",      SessionMenu},
};
// clang-format on

}  // namespace

std::span<const PaneRow> paneTable() {
    return kPane;
}

}  // namespace tidvane::app
