// The options window: the settings of the whole program are its controls.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "controls/explorer_bar.h"
#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::settings {

// The two standard update servers; placeholders under a reserved domain until the project has its own.
inline constexpr const char* kFirstUpdateServer = "https://tidvane.example/update/de/";
inline constexpr const char* kSecondUpdateServer = "https://tidvane.example/update/en/";

// The pages with task boxes, numbered as their master boxes are.
enum class TaskPage { Windows = 0, IE = 1, Mozilla = 2, Opera = 3, Chrome = 4, Safari = 5, MsOffice = 6 };
inline constexpr int kTaskPages = 7;

// One task box of a page.
struct TaskBox {
    forms::CheckBox* box;
    int caption = 0;          // number of the language entry; 0: the caption stays as designed
    const char* suffix = "";  // stands behind the entry
    bool inDepth = false;     // the master box leaves it alone
    // What the task takes although its name does not say so. The tip tells it.
    bool recentDocuments = false;  // the list of recent documents of Windows
    const char* optionsOf = "";    // programs that lose their settings
};

// A caption that no language entry replaces is a word of both languages, or a sign.
//
// Controls stand in the order of the window, which is the order of the file and of the walks over it: a page's master
// box first, so that a stored tick of it cannot overrun the boxes behind it.
class frmOptions : public forms::Form {
public:
    static constexpr const char* kName = "frmOptions";
    static constexpr int kMinWidth = 12975;  // twips
    static constexpr int kMinHeight = 7230;

    explicit frmOptions(settings::Program& program);

    void Form_Load() override;
    void Form_Unload() override;

    // Which boxes a page has, the master box not among them.
    const std::vector<TaskBox>& taskBoxes(TaskPage page) const;
    forms::CheckBox& masterBox(TaskPage page);
    // All task boxes of a page, the master box too.
    void enableTaskPage(TaskPage page, bool enabled);

    // A key pressed in the window, with the name of the control that has the focus: Enter (13) and Escape (27) act.
    // What goes through the key filter of txtSearchMask comes here by itself.
    void keyPress(char32_t key, const std::string& focusedControl);
    // Paths dropped onto a list by the file manager, as paths of the machine, not of the host. Each goes through the
    // check of an entry that is added by hand. A file on lstFolders and a folder on lstFiles are passed over, and so is
    // what is dropped while the list is off.
    void dropOnFolders(const std::vector<std::string>& paths);
    void dropOnFiles(const std::vector<std::string>& paths);

    // --- task pane and tabs
    controls::ExplorerBar ExplorerBar2{*this, "ExplorerBar2"};
    forms::TabStrip SSTab1{
        *this, "SSTab1", {"Windows", "Browser", "Office", "Eigene Listen", "Erweiterungen", "Einstellungen"}};

    // --- Windows
    forms::Frame frmWindows{*this, "frmWindows", "Windows"};
    forms::CheckBox chkWindowsTasks{*this, "chkWindowsTasks", "Alle auswählen", 0};
    forms::CheckBox chkRecentDocuments{*this, "chkRecentDocuments", "Zuletzt geöffnete Dokumente"};
    forms::CheckBox chkSearchList{*this, "chkSearchList", "Suchbegriffe der Dateisuche"};
    forms::CheckBox chkComputerList{*this, "chkComputerList", "Gesuchte Computer"};
    forms::CheckBox chkRunList{*this, "chkRunList", "Befehle des Ausführen-Fensters"};
    forms::CheckBox chkRegKey{*this, "chkRegKey", "Letzter Schlüssel des Registrierungseditors"};
    forms::CheckBox chkLastSaveOpen{*this, "chkLastSaveOpen", "Zuletzt geöffnete und gespeicherte Dateien"};
    forms::CheckBox chkWinUserAssist{*this, "chkWinUserAssist", "Zähler der gestarteten Programme"};
    forms::CheckBox chkLastApply{*this, "chkLastApply", "Zuletzt verwendete Office-Dateien"};
    forms::CheckBox chkSearchWizard{*this, "chkSearchWizard", "Verlauf des Suchassistenten"};
    forms::CheckBox chkRASAutoDial{*this, "chkRASAutoDial", "Adressen der automatischen Einwahl"};
    forms::CheckBox chkTrash{*this, "chkTrash", "Papierkorb leeren"};
    forms::Label lblRecyclerFiles{*this, "lblRecyclerFiles"};
    forms::Label lblRecylcerSize{*this, "lblRecylcerSize"};
    forms::CheckBox chkClipboard{*this, "chkClipboard", "Zwischenablage"};
    forms::CheckBox chkTempFolder{*this, "chkTempFolder", "Temporärer Ordner von Windows"};
    forms::CheckBox chkUserTemp{*this, "chkUserTemp", "Temporärer Ordner des Benutzers"};
    forms::CheckBox chkPrefetchFolder{*this, "chkPrefetchFolder", "Prefetch-Ordner"};
    forms::CheckBox chkRecentWordPad{*this, "chkRecentWordPad", "Zuletzt geöffnet in WordPad"};
    forms::CheckBox chkRecentPaint{*this, "chkRecentPaint", "Zuletzt geöffnet in Paint"};
    forms::CheckBox chkRecentMediaPlayer{*this, "chkRecentMediaPlayer", "Zuletzt gespielt im Media Player"};
    forms::CheckBox chkAlphabetizeStartMenu{*this, "chkAlphabetizeStartMenu", "Startmenü sortieren"};
    controls::isButton cmdAlphabetizeStartMenuManual{*this, "cmdAlphabetizeStartMenuManual", "..."};
    forms::CheckBox chkAlphabetizeFavorites{*this, "chkAlphabetizeFavorites", "Favoriten sortieren"};
    controls::isButton cmdAlphabetizeFavoritesManual{*this, "cmdAlphabetizeFavoritesManual", "..."};

    // --- browsers
    forms::TabStrip SSTab5{*this, "SSTab5", {"Internet Explorer", "Firefox", "Opera", "Chrome", "Safari"}};

    forms::Frame frmBrowserIE{*this, "frmBrowserIE", "Internet Explorer"};
    forms::CheckBox chkIETasks{*this, "chkIETasks", "Alle auswählen", 1};
    forms::CheckBox chkIEHistory{*this, "chkIEHistory", "Verlauf"};
    forms::CheckBox chkIECookies{*this, "chkIECookies", "Cookies"};
    forms::CheckBox chkIECache{*this, "chkIECache", "Temporäre Internetdateien"};
    forms::CheckBox chkIEIndexDatFiles{*this, "chkIEIndexDatFiles", "Temporäre Internetdateien Index.dat"};
    forms::CheckBox chkIEURL{*this, "chkIEURL", "Eingegebene Adressen"};
    forms::CheckBox chkIEAutoCompleteForms{*this, "chkIEAutoCompleteForms", "Formulareingaben"};
    forms::CheckBox chkIEDownloadedProgramFiles{*this, "chkIEDownloadedProgramFiles",
                                                "Heruntergeladene Programmdateien"};
    forms::CheckBox chkIEOfflineSites{*this, "chkIEOfflineSites", "Offlineseiten"};
    forms::CheckBox chkIEAlexa{*this, "chkIEAlexa", "Alexa-Schaltfläche"};
    controls::isButton cmdIEInDepthClean{*this, "cmdIEInDepthClean", "Gründlich reinigen ..."};

    forms::Frame frmBrowserMozilla{*this, "frmBrowserMozilla", "Mozilla/Firefox"};
    forms::CheckBox chkMozillaTasks{*this, "chkMozillaTasks", "Alle auswählen", 2};
    forms::CheckBox chkMozillaHistory{*this, "chkMozillaHistory", "Verlauf"};
    forms::CheckBox chkMozillaCookies{*this, "chkMozillaCookies", "Cookies"};
    forms::CheckBox chkMozillaCache{*this, "chkMozillaCache", "Cache"};
    forms::CheckBox chkMozillaINDepthCleanOfflineCache{*this, "chkMozillaINDepthCleanOfflineCache",
                                                       "Cache Offline Cache"};
    forms::CheckBox chkMozillaINDepthCleanTestPilotErrorLogs{*this, "chkMozillaINDepthCleanTestPilotErrorLogs",
                                                             "Cache TestPilot Error Logs"};
    forms::CheckBox chkMozillaAutoComplete{*this, "chkMozillaAutoComplete", "Formulareingaben"};
    forms::CheckBox chkMozillaDownloads{*this, "chkMozillaDownloads", "Liste der Downloads"};
    forms::CheckBox chkMozillaGoogleToolbar{*this, "chkMozillaGoogleToolbar", "Google-Symbolleiste"};
    forms::CheckBox chkMozillaCrashReports{*this, "chkMozillaCrashReports", "Absturzberichte"};
    forms::CheckBox chkMozillaSearchHistory{*this, "chkMozillaSearchHistory", "Suchverlauf"};
    forms::CheckBox chkMozillaSession{*this, "chkMozillaSession", "Sitzung"};
    controls::isButton cmdMozillaDir{*this, "cmdMozillaDir", "Ordner ..."};
    forms::Image ImgMozillaSuccess{*this, "ImgMozillaSuccess", false};  // the folders were found, or not
    forms::Image ImgMozillaFail{*this, "ImgMozillaFail", false};

    forms::Frame frmBrowserOpera{*this, "frmBrowserOpera", "Opera"};
    forms::CheckBox chkOperaTasks{*this, "chkOperaTasks", "Alle auswählen", 3};
    forms::CheckBox chkOperaHistory{*this, "chkOperaHistory", "Verlauf"};
    forms::CheckBox chkOperaCookies{*this, "chkOperaCookies", "Cookies"};
    forms::CheckBox chkOperaCache{*this, "chkOperaCache", "Cache"};
    forms::CheckBox chkOperaINDepthClean{*this, "chkOperaINDepthClean", "Cache Thumbnails > SpeedDial"};
    forms::CheckBox chkOperaURL{*this, "chkOperaURL", "Eingegebene Adressen"};
    forms::CheckBox chkOperaDownloads{*this, "chkOperaDownloads", "Liste der Downloads"};
    forms::CheckBox chkOperaWebsiteIcons{*this, "chkOperaWebsiteIcons", "Symbole der Webseiten"};
    controls::isButton cmdOperaDir{*this, "cmdOperaDir", "Ordner ..."};
    forms::Image ImgOperaSuccess{*this, "ImgOperaSuccess", false};  // the folders were found, or not
    forms::Image ImgOperaFail{*this, "ImgOperaFail", false};

    forms::Frame frmBrowserChrome{*this, "frmBrowserChrome", "Chrome"};
    forms::CheckBox chkChromeTasks{*this, "chkChromeTasks", "Alle auswählen", 4};
    forms::CheckBox chkChromeHistory{*this, "chkChromeHistory", "Verlauf"};
    forms::CheckBox chkChromeCookies{*this, "chkChromeCookies", "Cookies"};
    forms::CheckBox chkChromeCache{*this, "chkChromeCache", "Cache"};
    forms::CheckBox chkChromeINDepthClean{*this, "chkChromeINDepthClean", "Cache Jumplist Icons"};
    forms::CheckBox chkChromeSession{*this, "chkChromeSession", "Sitzung"};
    forms::CheckBox chkChromeDownloads{*this, "chkChromeDownloads", "Liste der Downloads"};
    controls::isButton cmdChromeDir{*this, "cmdChromeDir", "Ordner ..."};
    forms::Image ImgChromeSuccess{*this, "ImgChromeSuccess", false};  // the folders were found, or not
    forms::Image ImgChromeFail{*this, "ImgChromeFail", false};

    forms::Frame frmBrowserSafari{*this, "frmBrowserSafari", "Safari"};
    forms::CheckBox chkSafariTasks{*this, "chkSafariTasks", "Alle auswählen", 5};
    forms::CheckBox chkSafariHistory{*this, "chkSafariHistory", "Verlauf"};
    forms::CheckBox chkSafariCookies{*this, "chkSafariCookies", "Cookies"};
    forms::CheckBox chkSafariCache{*this, "chkSafariCache", "Cache"};
    forms::CheckBox chkSafariSavedForms{*this, "chkSafariSavedForms", "Formulareingaben"};
    controls::isButton cmdSafariDir{*this, "cmdSafariDir", "Ordner ..."};
    forms::Image ImgSafariSuccess{*this, "ImgSafariSuccess", false};  // the folders were found, or not
    forms::Image ImgSafariFail{*this, "ImgSafariFail", false};

    // --- Office
    forms::Frame frmMSOffice{*this, "frmMSOffice", "Microsoft Office"};
    forms::CheckBox chkMsOfficeTasks{*this, "chkMsOfficeTasks", "Alle auswählen", 6};
    forms::CheckBox chkMSAccess{*this, "chkMSAccess", "Microsoft Office Access"};
    forms::CheckBox chkMSExcel{*this, "chkMSExcel", "Microsoft Office Excel"};
    forms::CheckBox chkMSPowerPoint{*this, "chkMSPowerPoint", "Microsoft Office PowerPoint"};
    forms::CheckBox chkMSWord{*this, "chkMSWord", "Microsoft Office Word"};
    forms::CheckBox chkMSFrontPage{*this, "chkMSFrontPage", "Microsoft Office Front Page"};

    // --- own lists
    forms::TabStrip SSTab3{*this, "SSTab3", {"Ordner", "Dateien", "Suchmasken"}};

    forms::Frame frmCustomFolder{*this, "frmCustomFolder", "Eigene Ordner"};
    forms::CheckBox chkActivateOwnFolder{*this, "chkActivateOwnFolder", "Eigene Ordner reinigen"};
    forms::CheckBox chkAutoSearchJunkFolders{*this, "chkAutoSearchJunkFolders", "Bekannte Ordner aufnehmen"};
    forms::ListBox lstFolders{*this, "lstFolders"};
    controls::isButton cmdDeleteSelected{*this, "cmdDeleteSelected", "Auswahl entfernen"};
    controls::isButton cmdDeleteAll{*this, "cmdDeleteAll", "Alle entfernen"};
    controls::isButton cmdEditFolders{*this, "cmdEditFolders", "Bearbeiten"};
    forms::OptionButton optDeleteFolder{*this, "optDeleteFolder", "folders", "Ganzen Ordner löschen"};
    forms::OptionButton optDeleteFolderContent{*this, "optDeleteFolderContent", "folders", "Nur den Inhalt löschen"};
    forms::TextBox txtAddFolderPath{*this, "txtAddFolderPath"};
    controls::isButton cmdAddFolderPath{*this, "cmdAddFolderPath", "Hinzufügen"};
    controls::isButton cmdAddFolder{*this, "cmdAddFolder", "Durchsuchen ..."};

    forms::Frame frmCustomFile{*this, "frmCustomFile", "Eigene Dateien und Schlüssel"};
    forms::CheckBox chkActivateOwnFiles{*this, "chkActivateOwnFiles", "Eigene Dateien und Schlüssel reinigen"};
    forms::CheckBox chkAutoSearchJunkFiles{*this, "chkAutoSearchJunkFiles", "Bekannte Dateien aufnehmen"};
    forms::ListBox lstFiles{*this, "lstFiles"};
    controls::isButton cmdDeleteSelected2{*this, "cmdDeleteSelected2", "Auswahl entfernen"};
    controls::isButton cmdDeleteAll2{*this, "cmdDeleteAll2", "Alle entfernen"};
    controls::isButton cmdEditFiles{*this, "cmdEditFiles", "Bearbeiten"};
    forms::TextBox txtAddFilePath{*this, "txtAddFilePath"};
    controls::isButton cmdAddFilePath{*this, "cmdAddFilePath", "Hinzufügen"};
    controls::isButton cmdAddFile{*this, "cmdAddFile", "Durchsuchen ..."};

    forms::Frame frmDefineSearchMasks{*this, "frmDefineSearchMasks", "Suchmasken"};
    forms::CheckBox chkSearchTasks{*this, "chkSearchTasks", "Laufwerke nach Masken durchsuchen"};
    forms::Label lblSearchMasks{*this, "lblSearchMasks", "Dateien, die auf eine Maske passen, werden gelöscht."};
    forms::Label lblSearchMasks2{*this, "lblSearchMasks2", "Neue Maske, zum Beispiel *.tmp:"};
    forms::Label lblSearchMasks3{*this, "lblSearchMasks3", "Zu durchsuchendes Laufwerk:"};
    forms::Label lblSearchMasks4{*this, "lblSearchMasks4", "Die Suche löscht sofort, ohne Durchsicht."};
    forms::CheckBox chkAllFixedDrives{*this, "chkAllFixedDrives", "Alle Festplatten"};
    forms::ComboBox cboDrives{*this, "cboDrives"};
    forms::ListBox lstSearchMasks{*this, "lstSearchMasks"};
    controls::isButton cmdRemoveAllSearchMasks{*this, "cmdRemoveAllSearchMasks", "Alle entfernen"};
    controls::isButton cmdRemoveSearchMask{*this, "cmdRemoveSearchMask", "Auswahl entfernen"};
    forms::TextBox txtSearchMask{*this, "txtSearchMask"};
    controls::isButton cmdAddSearchMask{*this, "cmdAddSearchMask", "Hinzufügen"};
    controls::isButton cmdLoadSearchMasks{*this, "cmdLoadSearchMasks", "Durchsuchen ..."};

    // --- add-ons
    forms::TabStrip SSTab2{*this, "SSTab2", {"Registrierung", "Arbeitsspeicher", "Datenträger"}};

    forms::Frame frmRegistry{*this, "frmRegistry", "Registrierung reinigen"};
    forms::Label lblReg{*this, "lblReg", "Ein weiteres Programm kann nach der Reinigung die Registrierung prüfen."};
    forms::Label lblReg2{*this, "lblReg2", "Das Programm wird getrennt installiert."};
    forms::CheckBox chkAddInRegClean{*this, "chkAddInRegClean", "Nach der Reinigung starten"};
    forms::Label lblRegInfoPath{*this, "lblRegInfoPath", "Pfad des Programms"};
    forms::TextBox txtAddInRegCleanPath{*this, "txtAddInRegCleanPath"};
    controls::isButton cmdAddInRegCleanBrowse{*this, "cmdAddInRegCleanBrowse", "Durchsuchen ..."};
    forms::Label lblRegAdvice{*this, "lblRegAdvice", "Hinweis"};

    forms::Frame frmRAM{*this, "frmRAM", "Arbeitsspeicher freigeben"};
    forms::Label lblRAM{*this, "lblRAM", "Ungenutzter Arbeitsspeicher kann nach der Reinigung freigegeben werden."};
    forms::Label lblRAM2{*this, "lblRAM2", "Das dauert einen Augenblick."};
    forms::CheckBox chkCleanRAM{*this, "chkCleanRAM", "Nach der Reinigung freigeben"};
    controls::isButton cmdCleanRAM{*this, "cmdCleanRAM", "Jetzt freigeben"};

    forms::Frame frmVolume{*this, "frmVolume", "Datenträger prüfen"};
    forms::Label lblVolumeInfo{*this, "lblVolumeInfo", "Der Datenträger wird mit dem Programm des Systems geprüft."};
    forms::CheckBox chkVolumeCheck{*this, "chkVolumeCheck", "chkdsk.exe"};
    forms::Label lblVolumeHD{*this, "lblVolumeHD", "Laufwerk"};
    forms::TextBox txtVolumeCheckHD{*this, "txtVolumeCheckHD", "c:"};
    forms::Label lblVolumeParameter{*this, "lblVolumeParameter", "Parameter"};
    forms::TextBox txtVolumeCheckParameter{*this, "txtVolumeCheckParameter", "/f"};
    controls::isButton cmdVolumeCheck{*this, "cmdVolumeCheck", "Jetzt prüfen"};
    forms::Label lblVolumeAlert{*this, "lblVolumeAlert", "Hinweis"};
    forms::Label lblVolumeAlertInfo{*this, "lblVolumeAlertInfo", "Die Prüfung verlangt oft einen Neustart."};

    // --- settings
    forms::TabStrip SSTab4{*this, "SSTab4", {"Allgemein", "Protokoll", "Update", "Sicherheit", "Erweitert"}};

    forms::Frame frmProgStart{*this, "frmProgStart", "Programmstart"};
    forms::CheckBox chkStartWindows{*this, "chkStartWindows", "Mit Windows starten"};
    forms::ComboBox cboAutoStart{*this, "cboAutoStart"};
    forms::CheckBox chkStartMinimized{*this, "chkStartMinimized", "Minimiert starten"};
    forms::CheckBox chkAutoUpdate{*this, "chkAutoUpdate", "Beim Start nach Updates suchen"};
    forms::CheckBox chkLogBarOff{*this, "chkLogBarOff", "Protokoll beim Start verbergen"};
    forms::CheckBox chkHideColumnHeaders{*this, "chkHideColumnHeaders", "Spaltenköpfe verbergen"};
    forms::CheckBox chkSmallAppsFontSize{*this, "chkSmallAppsFontSize", "Kleine Schrift in der Anwendungsliste"};
    forms::Label lblPurgeSpeed{*this, "lblPurgeSpeed", "Pause je Aufgabe in Millisekunden"};
    forms::TextBox txtPurgeSpeed{*this, "txtPurgeSpeed", "10"};
    forms::Label lblReset2{*this, "lblReset2", "Reset"};
    forms::CheckBox chkStartClean{*this, "chkStartClean", "Beim Start reinigen"};
    forms::CheckBox chkEndClean{*this, "chkEndClean", "Beim Beenden reinigen"};
    forms::CheckBox chkMinimizeSystray{*this, "chkMinimizeSystray", "Nach der Reinigung in den Infobereich"};
    forms::CheckBox chkCloseAfterClean{*this, "chkCloseAfterClean", "Nach der Reinigung beenden"};
    forms::CheckBox chkPurgeSound{*this, "chkPurgeSound", "Klang am Ende der Reinigung"};
    forms::TextBox txtPurgeSound{*this, "txtPurgeSound"};
    controls::isButton cmdPurgeSound{*this, "cmdPurgeSound", "..."};
    controls::isButton cmdPurgeSoundTest{*this, "cmdPurgeSoundTest", ">"};

    forms::Frame frmLog{*this, "frmLog", "Protokoll"};
    forms::Label lblLog{*this, "lblLog", "Ordner des Protokolls"};
    forms::TextBox txtTidvaneLog{*this, "txtTidvaneLog"};
    controls::isButton cmdFolderScan{*this, "cmdFolderScan", "Durchsuchen ..."};
    forms::CheckBox chkAskLogLocation{*this, "chkAskLogLocation", "Jedes Mal fragen"};
    forms::CheckBox chkAutoLog{*this, "chkAutoLog", "Nach jeder Reinigung schreiben"};
    forms::CheckBox chkDeleteLog{*this, "chkDeleteLog", "Beim Beenden löschen"};
    forms::CheckBox chkReplaceGerUmlaut{*this, "chkReplaceGerUmlaut", "Umlaute ersetzen"};
    forms::CheckBox chkLogTimestamp{*this, "chkLogTimestamp", "Ohne Uhrzeit"};
    forms::CheckBox chkMoreLogDetails{*this, "chkMoreLogDetails", "Ausführliches Protokoll"};
    forms::Label lblTruncation{*this, "lblTruncation", "Kürzen ab so vielen Zeichen (höchstens 65536)"};
    forms::TextBox txtLogAutoTruncated{*this, "txtLogAutoTruncated", "60000"};
    forms::Label lblReset{*this, "lblReset", "Reset"};
    forms::Label lblLog3{*this, "lblLog3", "Schrift des Protokolls"};
    controls::isButton cmdLogBarFont{*this, "cmdLogBarFont", "Schrift ..."};

    forms::Frame frmUpdateServer{*this, "frmUpdateServer", "Updateserver"};
    forms::Label lblUpdate{*this, "lblUpdate", "Adresse des Servers, der nach Updates gefragt wird."};
    forms::TextBox txtUpdateServer{*this, "txtUpdateServer", kFirstUpdateServer};
    controls::isButton cmdRecentServer{*this, "cmdRecentServer", "Übernehmen"};
    forms::Label lblUpdate2{*this, "lblUpdate2", "Standardserver"};
    forms::OptionButton optGerUpdateServer{*this, "optGerUpdateServer", "servers", "Deutsch"};
    forms::OptionButton optEngUpdateServer{*this, "optEngUpdateServer", "servers", "English"};
    controls::isButton cmdStandardServer{*this, "cmdStandardServer", "Standard"};
    forms::Label lblUpdate3{*this, "lblUpdate3", "Hinweis"};
    forms::Label lblUpdate4{*this, "lblUpdate4", "Die Adresse muss mit \"/\" enden."};

    forms::Frame frmCleanMethod{*this, "frmCleanMethod", "Löschverfahren"};
    forms::Label lblCleanMethod{*this, "lblCleanMethod", "Verfahren"};
    forms::Label lblCleanMethod2{*this, "lblCleanMethod2", "Wie Dateien entfernt werden."};
    forms::ComboBox cboKillMethod{*this, "cboKillMethod"};
    forms::Label lblKillMethodInfo{*this, "lblKillMethodInfo"};
    forms::CheckBox chkOpenRecycleBinAsPreview{*this, "chkOpenRecycleBinAsPreview", "Papierkorb als Vorschau öffnen"};
    forms::CheckBox chkCreateRestorePoint{*this, "chkCreateRestorePoint",
                                          "Wiederherstellungspunkt vor jeder Reinigung"};

    forms::Frame frmAdvanced{*this, "frmAdvanced", "Erweitert"};
    forms::Label lblAdvanced{*this, "lblAdvanced", "Für erfahrene Benutzer"};
    forms::CheckBox chkHideAlertMessage{*this, "chkHideAlertMessage", "Warnungen verbergen"};
    controls::isButton cmdMoreToConfigure{*this, "cmdMoreToConfigure", "Weitere Einstellungen ..."};

    // --- the foot of the window
    forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
    forms::CommandButton cmdCancel{*this, "cmdCancel", "Abbrechen"};
    forms::Timer tmrSearchMasks{*this, "tmrSearchMasks", 1, true};
    forms::Timer tmrCustom{*this, "tmrCustom", 1, true};

private:
    // A list that lives in a file of its own.
    struct ListFile {
        const char* fileName;
        forms::ListBox* list;
        bool keepFile = false;  // it was there and could not be read: writing it would lose it
    };

    // frmOptions.cpp
    void designStates();
    void setOwnTexts();
    void setTips();
    void buildTaskPane();
    void setTaskCaptions();
    void setMemoryModule();
    void fillKillMethods();
    void fillDrives();
    void firstStart();
    void captionExtendedSettings();
    void saveAndClose();
    void closeWithoutSaving();

    // option_tasks.cpp
    void buildTaskTable();
    void connectTaskPages();

    // option_dependencies.cpp
    void connectDependencies();
    void connectNumberBoxes();
    void connectUpdateServers();
    void killMethodChanged();
    void trashChanged();
    int chosenKillMethod() const;  // -1 when the text is none of the three

    // option_lists.cpp
    void connectLists();
    void loadLists();
    void saveLists();
    bool isBannedEntry(const std::string& text);
    bool isBanned(const std::string& text);
    bool mayEnter(const std::string& text, bool oneOfSeveral = false);
    bool survivesReading(const std::string& text);
    void addChecked(forms::TextBox& entry, forms::ListBox& list);
    void addPath(forms::TextBox& entry, forms::ListBox& list);
    void addMask();
    void removeSelected(forms::ListBox& list, int messageWhenNone);
    void editSelected(forms::ListBox& list, forms::TextBox& entry);
    void drop(const std::string& path, forms::ListBox& list, bool oneOfSeveral);
    void showRowCounts();

    // known_junk.cpp
    void addKnownFolders();
    void addKnownFiles();
    void addKnown(const std::string& path, forms::ListBox& list);

    // option_actions.cpp
    void connectActions();
    void taskPaneClicked(int group, int item);
    void openModal(const char* window);
    void openExtendedSettings();
    void openMaintenance();
    void checkVolume();
    void freeMemory();
    void browseRegistryAddIn();
    void resetMenuOrder(const char* menu, int failureEntry);
    void tell(const std::string& text, int style);

    settings::Program& program_;
    std::array<std::vector<TaskBox>, kTaskPages> tasks_;
    std::array<ListFile, 3> lists_;
    bool loading_ = false;  // the load handler runs: no change is a user's
};

}  // namespace tidvane::settings
