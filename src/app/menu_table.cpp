#include "app/menu_table.h"

#include <array>

namespace tidvane::app {

namespace {

using enum MenuAction;

// clang-format off
constexpr std::array kMenus{
    // Name, caption of the design (German), and where it leads.
    // The bar, in its order. The sixth entry stands at the right end.
    MenuRow{"mnFile", "&Datei"},
    MenuRow{"mnView", "&Ansicht"},
    MenuRow{"mnTools", "Werkzeuge"},
    MenuRow{"mnuOptions", "&Optionen"},
    MenuRow{"mnHelp", "Hilfe"},
    MenuRow{"mnuCommunityTitle", "Gemeinschaft", None, 0, nullptr, 0, true},
    // File
    MenuRow{"mnuManageCleaningJobs", "Reinigungsaufgaben"},
    MenuRow{"mnuCleaningJobWindows", "Windows", OptionsTab, 0},
    MenuRow{"mnuCleaningJobBrowser", "Browser", OptionsTab, 1},
    MenuRow{"mnuCleaningJobOffice", "Microsoft Office", OptionsTab, 2},
    MenuRow{"mnuCleaningJobCustom", "Eigene Listen", OptionsTab, 3},
    MenuRow{"mnuModule", "Module"},
    MenuRow{"mnuModuleRegistry", "Registrierung", OptionsTab, 4, "SSTab2", 0},
    MenuRow{"mnuModuleMemory", "Arbeitsspeicher", OptionsTab, 4, "SSTab2", 1},
    MenuRow{"mnuModuleVolume", "Laufwerk", OptionsTab, 4, "SSTab2", 2},
    MenuRow{"mnuSafetyShutdown", "Herunterfahren"},
    MenuRow{"mnuSafetyRestart", "Neu starten"},
    MenuRow{"mnuSafetyLogOff", "Abmelden"},
    MenuRow{"mnuBackground", "Im Hintergrund ausführen"},
    MenuRow{"mnuRestartTidvane", "Tidvane neu starten"},
    MenuRow{"mnuWidgetMain", "Desktop-Widget", Window, 0, "frmWidget"},
    MenuRow{"mnuExit", "Beenden"},
    // View
    MenuRow{"mnuCleaner", "Reinigung", Page, 0},
    MenuRow{"mnuApps", "Anwendungen", Page, 1},
    MenuRow{"mnuAddOns", "Erweiterungen", Page, 2},
    // Tools
    MenuRow{"mnuTuneUp", "Erweiterte Einstellungen", Window, 0, "frmMoreToConfigure"},
    MenuRow{"mnuBackup", "Wartung", StarterTab, 3},
    MenuRow{"mnuCreateRestorePoint", "Wiederherstellungspunkt erstellen"},
    MenuRow{"mnuManualSearch", "Manuelle Dateisuche", Window, 0, "frmManualSearch"},
    MenuRow{"mnuCustomizeBrowserProfiles", "Browserordner"},
    MenuRow{"mnuFirefoxProfile", "Firefox", Window, 0, "frmMozillaDir"},
    MenuRow{"mnuOperaProfile", "Opera", Window, 0, "frmOperaDir"},
    MenuRow{"mnuChromeProfile", "Chrome", Window, 0, "frmChromeDir"},
    MenuRow{"mnuSafariProfile", "Safari", Window, 0, "frmSafariDir"},
    MenuRow{"mnuResources", "Online-Ressourcen", Window, 0, "frmResources"},
    MenuRow{"mnuOptionsGeneral", "Allgemein", OptionsTab, 5},
    MenuRow{"mnuOptionsLog", "Protokoll", OptionsTab, 5, "SSTab4", 1},
    MenuRow{"mnuOptionsResUpdate", "Update", OptionsTab, 5, "SSTab4", 2},
    MenuRow{"mnuOptionsSecurity", "Sicherheit", OptionsTab, 5, "SSTab4", 3},
    MenuRow{"mnuOptionsAdvanced", "Erweitert", OptionsTab, 5, "SSTab4", 4},
    MenuRow{"mnuOpenRecycleBin", "Papierkorb öffnen"},
    MenuRow{"mnuExplorer", "Systemordner öffnen"},
    // Help
    MenuRow{"mnuOnlineHelp", "Hilfe"},
    MenuRow{"mnuCheckForUpdates", "Nach Updates suchen"},
    MenuRow{"mnuNews", "Neuigkeiten", StarterTab, 1},
    MenuRow{"mnuCommunity", "Community", StarterTab, 2},
    MenuRow{"mnuTips", "Tipps", StarterTab, 4},
    MenuRow{"mnuLicense", "Lizenz", StarterTab, 5},
    MenuRow{"mnuTranslator", "Übersetzer", StarterTab, 6},
    MenuRow{"mnuAbout", "Ü&ber Tidvane", Page, 3},
    // Pop-up menus: the plug-in list, the extensions, the session, the tray, the task list
    MenuRow{"mnCleanPlugs", "Anwendungen"},
    MenuRow{"mnuCleanPlugNow", "Ausgewählte Plug-ins jetzt ausführen"},
    MenuRow{"mnuPlugInfo", "Informationen zum Plug-in"},
    MenuRow{"mnuPlugEdit", "Plug-in bearbeiten"},
    MenuRow{"mnuPlugCreate", "Plug-in erstellen"},
    MenuRow{"mnuPlugDelete", "Plug-in löschen"},
    MenuRow{"mnuSelectAllPlugs", "Alle auswählen"},
    MenuRow{"mnuDeselectAllPlugs", "Alle abwählen"},
    MenuRow{"mnuRefreshPlugs", "Liste aktualisieren"},
    MenuRow{"mnuShowEnviron", "Umgebungsvariablen"},
    MenuRow{"mnExtensions", "Erweiterungen"},
    MenuRow{"mnuExtensionRun", "Erweiterung starten"},
    MenuRow{"mnuExtensionInfo", "Informationen zur Erweiterung"},
    MenuRow{"mnuExtensionDownload", "Erweiterung herunterladen"},
    MenuRow{"mnExtraTask", "Windows-Sitzung beenden"},
    MenuRow{"mnuShutdown", "Herunterfahren"},
    MenuRow{"mnuReboot", "Neu starten"},
    MenuRow{"mnuLogOff", "Abmelden"},
    MenuRow{"mnMain", "Tidvane"},
    MenuRow{"mnuShow", "Tidvane anzeigen"},
    MenuRow{"mnuCleanSystray", "Jetzt reinigen"},
    MenuRow{"mnuCleanModeSystray", "Windows-Sitzung beenden"},
    MenuRow{"mnuLogOffModeSystray", "Abmelden"},
    MenuRow{"mnuRestartModeSystray", "Neu starten"},
    MenuRow{"mnuShutDownModeSystray", "Herunterfahren"},
    MenuRow{"mnuOptionsSystray", "Optionen"},
    MenuRow{"mnuWidget", "Desktop-Widget", Window, 0, "frmWidget"},
    MenuRow{"mnuExitSystray", "Beenden"},
    MenuRow{"mnCustom", "Eigene Listen"},
    MenuRow{"mnuCustomFolder", "Eigene Ordner", OptionsTab, 3, "SSTab3", 0},
    MenuRow{"mnuCustomFiles", "Eigene Dateien", OptionsTab, 3, "SSTab3", 1},
    MenuRow{"mnuCustomRegKeys", "Eigene Registrierungsschlüssel", OptionsTab, 3, "SSTab3", 1},
    MenuRow{"mnuCustomSearchMasks", "Dateimasken", OptionsTab, 3, "SSTab3", 2},
    MenuRow{"mnuCustomPlugIns", "Plug-ins", Page, 1},
};
// clang-format on

}  // namespace

std::span<const MenuRow> menuTable() {
    return kMenus;
}

}  // namespace tidvane::app
