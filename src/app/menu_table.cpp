#include "app/menu_table.h"

#include <array>

namespace tidvane::app {

namespace {

using enum MenuAction;

// clang-format off
constexpr std::array kMenus{
    // The bar, in its order. The sixth entry stands at the right end.
    MenuRow{"mnFile"}, MenuRow{"mnView"}, MenuRow{"mnTools"}, MenuRow{"mnOptionsTitle"}, MenuRow{"mnHelp"},
    MenuRow{"mnuCommunityTitle"},
    // File
    MenuRow{"mnuManageCleaningJobs"},
    MenuRow{"mnuCleaningJobWindows", OptionsTab, 0}, MenuRow{"mnuCleaningJobBrowser", OptionsTab, 1},
    MenuRow{"mnuCleaningJobOffice", OptionsTab, 2},  MenuRow{"mnuCleaningJobCustom", OptionsTab, 3},
    MenuRow{"mnuModule"},
    MenuRow{"mnuModuleRegistry", OptionsTab, 4, "SSTab2", 0}, MenuRow{"mnuModuleMemory", OptionsTab, 4, "SSTab2", 1},
    MenuRow{"mnuModuleVolume", OptionsTab, 4, "SSTab2", 2},
    MenuRow{"mnuSafetyShutdown"}, MenuRow{"mnuSafetyRestart"}, MenuRow{"mnuSafetyLogOff"},
    MenuRow{"mnuBackground"}, MenuRow{"mnuRestartTidvane"}, MenuRow{"mnuWidgetMain", Window, 0, "frmWidget"},
    MenuRow{"mnuExit"},
    // View
    MenuRow{"mnuCleaner", Page, 0}, MenuRow{"mnuApps", Page, 1}, MenuRow{"mnuAddOns", Page, 2},
    // Tools
    MenuRow{"mnuTuneUp", Window, 0, "frmMoreToConfigure"}, MenuRow{"mnuBackup", StarterTab, 3},
    MenuRow{"mnuCreateRestorePoint"}, MenuRow{"mnuManualSearch"},
    MenuRow{"mnuCustomizeBrowserProfiles"},
    MenuRow{"mnuFirefoxProfile", Window, 0, "frmMozillaDir"}, MenuRow{"mnuOperaProfile", Window, 0, "frmOperaDir"},
    MenuRow{"mnuChromeProfile", Window, 0, "frmChromeDir"},   MenuRow{"mnuSafariProfile", Window, 0, "frmSafariDir"},
    MenuRow{"mnuResources", Window, 0, "frmResources"},
    MenuRow{"mnuOptions"},
    MenuRow{"mnuOptionsGeneral", OptionsTab, 5},
    MenuRow{"mnuOptionsLog", OptionsTab, 5, "SSTab4", 1}, MenuRow{"mnuOptionsResUpdate", OptionsTab, 5, "SSTab4", 2},
    MenuRow{"mnuOptionsSecurity", OptionsTab, 5, "SSTab4", 3}, MenuRow{"mnuOptionsAdvanced", OptionsTab, 5, "SSTab4", 4},
    MenuRow{"mnuOpenRecycleBin"}, MenuRow{"mnuExplorer"},
    // Help
    MenuRow{"mnuOnlineHelp"}, MenuRow{"mnuCheckForUpdates"}, MenuRow{"mnuNews", StarterTab, 1},
    MenuRow{"mnuCommunity", StarterTab, 2}, MenuRow{"mnuTips", StarterTab, 4}, MenuRow{"mnuLicense", StarterTab, 5},
    MenuRow{"mnuTranslator", StarterTab, 6}, MenuRow{"mnuAbout", Page, 3},
    // Pop-up menus: the plug-in list, the extensions, the session, the tray, the task list
    MenuRow{"mnCleanPlugs"}, MenuRow{"mnuCleanPlugNow"}, MenuRow{"mnuPlugInfo"}, MenuRow{"mnuPlugEdit"},
    MenuRow{"mnuPlugCreate"}, MenuRow{"mnuPlugDelete"}, MenuRow{"mnuSelectAllPlugs"}, MenuRow{"mnuDeselectAllPlugs"},
    MenuRow{"mnuRefreshPlugs"}, MenuRow{"mnuShowEnviron"},
    MenuRow{"mnExtensions"}, MenuRow{"mnuExtensionRun"}, MenuRow{"mnuExtensionInfo"}, MenuRow{"mnuExtensionDownload"},
    MenuRow{"mnExtraTask"}, MenuRow{"mnuShutdown"}, MenuRow{"mnuReboot"}, MenuRow{"mnuLogOff"},
    MenuRow{"mnMain"}, MenuRow{"mnuShow"}, MenuRow{"mnuCleanSystray"}, MenuRow{"mnuCleanModeSystray"},
    MenuRow{"mnuLogOffModeSystray"}, MenuRow{"mnuRestartModeSystray"}, MenuRow{"mnuShutDownModeSystray"},
    MenuRow{"mnuOptionsSystray"}, MenuRow{"mnuWidget", Window, 0, "frmWidget"}, MenuRow{"mnuExitSystray"},
    MenuRow{"mnCustom"},
    MenuRow{"mnuCustomFolder", OptionsTab, 3, "SSTab3", 0}, MenuRow{"mnuCustomFiles", OptionsTab, 3, "SSTab3", 1},
    MenuRow{"mnuCustomRegKeys", OptionsTab, 3, "SSTab3", 1}, MenuRow{"mnuCustomSearchMasks", OptionsTab, 3, "SSTab3", 2},
    MenuRow{"mnuCustomPlugIns", Page, 1},
};
// clang-format on

}  // namespace

std::span<const MenuRow> menuTable() {
    return kMenus;
}

}  // namespace tidvane::app
