#include "app/menu_table.h"

#include <algorithm>
#include <array>

namespace tidvane::app {

namespace {

using enum MenuAction;

// clang-format off
constexpr std::array kMenus{
    // Name, the menu it lies in, caption of the design (German), and where it leads.
    // The bar, in its order. The sixth entry stands at the right end.
    MenuRow{"mnFile", "", "&Datei"},
    MenuRow{"mnView", "", "&Ansicht"},
    MenuRow{"mnTools", "", "Werkzeuge"},
    MenuRow{"mnuOptions", "", "&Optionen"},
    MenuRow{"mnHelp", "", "Hilfe"},
    MenuRow{"mnuCommunityTitle", "", "Gemeinschaft", None, 0, nullptr, 0, true},
    // File
    MenuRow{"mnuManageCleaningJobs", "mnFile", "Reinigungsaufgaben"},
    MenuRow{"mnuCleaningJobWindows", "mnuManageCleaningJobs", "Windows", OptionsTab, 0},
    MenuRow{"mnuCleaningJobBrowser", "mnuManageCleaningJobs", "Browser", OptionsTab, 1},
    MenuRow{"mnuCleaningJobOffice", "mnuManageCleaningJobs", "Microsoft Office", OptionsTab, 2},
    MenuRow{"mnuCleaningJobCustom", "mnuManageCleaningJobs", "Eigene Listen", OptionsTab, 3},
    MenuRow{"mnuModule", "mnFile", "Module"},
    MenuRow{"mnuModuleRegistry", "mnuModule", "Registrierung", OptionsTab, 4, "SSTab2", 0},
    MenuRow{"mnuModuleMemory", "mnuModule", "Arbeitsspeicher", OptionsTab, 4, "SSTab2", 1},
    MenuRow{"mnuModuleVolume", "mnuModule", "Laufwerk", OptionsTab, 4, "SSTab2", 2},
    MenuRow{"mnuSafetyShutdown", "mnFile", "Herunterfahren", NotThereYet},
    MenuRow{"mnuSafetyRestart", "mnFile", "Neu starten", NotThereYet},
    MenuRow{"mnuSafetyLogOff", "mnFile", "Abmelden", NotThereYet},
    MenuRow{"mnuBackground", "mnFile", "Im Hintergrund ausführen"},
    MenuRow{"mnuRestartTidvane", "mnFile", "Tidvane neu starten"},
    MenuRow{"mnuWidgetMain", "mnFile", "Desktop-Widget", FreeWindow, 0, "frmWidget"},
    MenuRow{"mnuExit", "mnFile", "Beenden"},
    // View
    MenuRow{"mnuCleaner", "mnView", "Reinigung", Page, 0},
    MenuRow{"mnuApps", "mnView", "Anwendungen", Page, 1},
    MenuRow{"mnuAddOns", "mnView", "Erweiterungen", Page, 2},
    // Tools
    MenuRow{"mnuTuneUp", "mnTools", "Erweiterte Einstellungen", Window, 0, "frmMoreToConfigure"},
    MenuRow{"mnuBackup", "mnTools", "Wartung", StarterTab, 3},
    MenuRow{"mnuCreateRestorePoint", "mnTools", "Wiederherstellungspunkt erstellen", NotThereYet},
    MenuRow{"mnuManualSearch", "mnTools", "Manuelle Dateisuche", Window, 0, "frmManualSearch"},
    MenuRow{"mnuCustomizeBrowserProfiles", "mnTools", "Browserordner"},
    MenuRow{"mnuFirefoxProfile", "mnuCustomizeBrowserProfiles", "Firefox", Window, 0, "frmMozillaDir"},
    MenuRow{"mnuOperaProfile", "mnuCustomizeBrowserProfiles", "Opera", Window, 0, "frmOperaDir"},
    MenuRow{"mnuChromeProfile", "mnuCustomizeBrowserProfiles", "Chrome", Window, 0, "frmChromeDir"},
    MenuRow{"mnuSafariProfile", "mnuCustomizeBrowserProfiles", "Safari", Window, 0, "frmSafariDir"},
    MenuRow{"mnuResources", "mnTools", "Online-Ressourcen", Window, 0, "frmResources"},
    MenuRow{"mnuOptionsGeneral", "mnuOptions", "Allgemein", OptionsTab, 5},
    MenuRow{"mnuOptionsLog", "mnuOptions", "Protokoll", OptionsTab, 5, "SSTab4", 1},
    MenuRow{"mnuOptionsResUpdate", "mnuOptions", "Update", OptionsTab, 5, "SSTab4", 2},
    MenuRow{"mnuOptionsSecurity", "mnuOptions", "Sicherheit", OptionsTab, 5, "SSTab4", 3},
    MenuRow{"mnuOptionsAdvanced", "mnuOptions", "Erweitert", OptionsTab, 5, "SSTab4", 4},
    MenuRow{"mnuOpenRecycleBin", "mnTools", "Papierkorb öffnen"},
    MenuRow{"mnuExplorer", "mnTools", "Systemordner öffnen"},
    // Help
    MenuRow{"mnuOnlineHelp", "mnHelp", "Hilfe"},
    MenuRow{"mnuCheckForUpdates", "mnHelp", "Nach Updates suchen", NotThereYet},
    MenuRow{"mnuNews", "mnuCommunityTitle", "Neuigkeiten", StarterTab, 1},
    MenuRow{"mnuCommunity", "mnuCommunityTitle", "Community", StarterTab, 2},
    MenuRow{"mnuTips", "mnHelp", "Tipps", StarterTab, 4},
    MenuRow{"mnuLicense", "mnHelp", "Lizenz", StarterTab, 5},
    MenuRow{"mnuTranslator", "mnHelp", "Übersetzer", StarterTab, 6},
    MenuRow{"mnuAbout", "mnHelp", "Ü&ber Tidvane", Page, 3},
    // Pop-up menus: the plug-in list, the extensions, the session, the tray, the task list
    MenuRow{"mnCleanPlugs", "", "Anwendungen"},
    MenuRow{"mnuCleanPlugNow", "mnCleanPlugs", "Ausgewählte Plug-ins jetzt ausführen"},
    MenuRow{"mnuPlugInfo", "mnCleanPlugs", "Informationen zum Plug-in"},
    MenuRow{"mnuPlugEdit", "mnCleanPlugs", "Plug-in bearbeiten"},
    MenuRow{"mnuPlugCreate", "mnCleanPlugs", "Plug-in erstellen"},
    MenuRow{"mnuPlugDelete", "mnCleanPlugs", "Plug-in löschen"},
    MenuRow{"mnuSelectAllPlugs", "mnCleanPlugs", "Alle auswählen"},
    MenuRow{"mnuDeselectAllPlugs", "mnCleanPlugs", "Alle abwählen"},
    MenuRow{"mnuRefreshPlugs", "mnCleanPlugs", "Liste aktualisieren"},
    MenuRow{"mnuShowEnviron", "mnCleanPlugs", "Umgebungsvariablen", NotThereYet},
    MenuRow{"mnExtensions", "", "Erweiterungen"},
    MenuRow{"mnuExtensionRun", "mnExtensions", "Erweiterung starten", NotThereYet},
    MenuRow{"mnuExtensionInfo", "mnExtensions", "Informationen zur Erweiterung", NotThereYet},
    MenuRow{"mnuExtensionDownload", "mnExtensions", "Erweiterung herunterladen", NotThereYet},
    MenuRow{"mnExtraTask", "", "Windows-Sitzung beenden"},
    MenuRow{"mnuShutdown", "mnExtraTask", "Herunterfahren", NotThereYet},
    MenuRow{"mnuReboot", "mnExtraTask", "Neu starten", NotThereYet},
    MenuRow{"mnuLogOff", "mnExtraTask", "Abmelden", NotThereYet},
    MenuRow{"mnMain", "", "Tidvane"},
    MenuRow{"mnuShow", "mnMain", "Tidvane anzeigen"},
    MenuRow{"mnuCleanSystray", "mnMain", "Jetzt reinigen"},
    MenuRow{"mnuCleanModeSystray", "mnMain", "Windows-Sitzung beenden"},
    MenuRow{"mnuLogOffModeSystray", "mnuCleanModeSystray", "Abmelden", NotThereYet},
    MenuRow{"mnuRestartModeSystray", "mnuCleanModeSystray", "Neu starten", NotThereYet},
    MenuRow{"mnuShutDownModeSystray", "mnuCleanModeSystray", "Herunterfahren", NotThereYet},
    MenuRow{"mnuOptionsSystray", "mnMain", "Optionen"},
    MenuRow{"mnuWidget", "mnMain", "Desktop-Widget", FreeWindow, 0, "frmWidget"},
    MenuRow{"mnuExitSystray", "mnMain", "Beenden"},
    MenuRow{"mnCustom", "", "Eigene Listen"},
    MenuRow{"mnuCustomFolder", "mnCustom", "Eigene Ordner", OptionsTab, 3, "SSTab3", 0},
    MenuRow{"mnuCustomFiles", "mnCustom", "Eigene Dateien", OptionsTab, 3, "SSTab3", 1},
    MenuRow{"mnuCustomRegKeys", "mnCustom", "Eigene Registrierungsschlüssel", OptionsTab, 3, "SSTab3", 1},
    MenuRow{"mnuCustomSearchMasks", "mnCustom", "Dateimasken", OptionsTab, 3, "SSTab3", 2},
    MenuRow{"mnuCustomPlugIns", "mnCustom", "Plug-ins", Page, 1},
};
// clang-format on

constexpr std::array<std::string_view, 12> kBeginGroups{
    "mnuSafetyShutdown", "mnuBackground", "mnuExit",           "mnuManualSearch", "mnuOpenRecycleBin", "mnuTips",
    "mnuAbout",          "mnuPlugInfo",   "mnuSelectAllPlugs", "mnuRefreshPlugs", "mnuOptionsSystray", "mnuExitSystray",
};

constexpr std::array<std::string_view, 3> kPopUps{"mnExtraTask", "mnMain", "mnCustom"};

}  // namespace

std::span<const MenuRow> menuTable() {
    return kMenus;
}

bool beginsMenuGroup(std::string_view name) {
    return std::find(kBeginGroups.begin(), kBeginGroups.end(), name) != kBeginGroups.end();
}

bool isPopUpTitle(std::string_view name) {
    return std::find(kPopUps.begin(), kPopUps.end(), name) != kPopUps.end();
}

}  // namespace tidvane::app
