// The main window: start object of the program, owner of the task list, the log, the status bar and the plug-in list.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/log.h"
#include "app/task_catalogue.h"
#include "controls/explorer_bar.h"
#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "platform/removal_counter.h"
#include "plugins/dPlugCleaner.h"
#include "settings/program.h"
#include "settings/run_report.h"

namespace tidvane::app {

// What one step of a run came to.
struct StepResult {
    const tasks::CleaningTask* task = nullptr;
    bool ticked = false;
    std::string status;  // of its row behind the step; empty without a row
    int icon = 0;        // of its row; 0 without one
    double milliseconds = 0;
    platform::RemovalTotals removed;
};

// The one tray record of the program. The tip takes 63 characters and a NUL.
struct TrayRecord {
    static constexpr int kRecordSize = 88;
    static constexpr int kId = 1;
    static constexpr int kFlags = 7;  // message, icon, tip
    static constexpr int kCallbackMessage = 512;
    static constexpr std::size_t kTipBytes = 63;
    // The messages of the icon that are answered.
    static constexpr int kLeftDoubleClick = 515;
    static constexpr int kRightButtonUp = 517;
    std::string szTip;
};

class frmMain : public forms::Form, public settings::RunReport {
public:
    static constexpr const char* kName = "frmMain";
    static constexpr int kMinWidth = 11430;  // twips
    static constexpr int kMinHeight = 5050;
    // Tabs of SSTab1.
    static constexpr int kCleaningTab = 0;
    static constexpr int kPlugInsTab = 1;
    static constexpr int kExtensionsTab = 2;
    static constexpr int kAboutTab = 3;

    explicit frmMain(settings::Program& program);
    ~frmMain() override;

    void Form_Load() override;
    bool Form_QueryUnload(forms::UnloadMode mode) override;
    void Form_Unload() override;

    settings::Program& program() const { return program_; }

    // --- commands
    void cmdClean_Click();
    void cmdStop_Click();
    void cmdClearLog_Click();
    void cmdCopyLog_Click();
    void cmdViewLog_Click();
    void ExitProgram();
    void restartProgram();
    // The window goes to the tray.
    void toBackground();
    // The same with a tip of the caller's. On a desktop without a tray the window is minimised instead, and that is
    // told once.
    void hideInTray(const std::string& tip);
    // The window comes back from the tray in its normal state, in front of the others; the icon goes.
    void bringBack();
    // Behind the load: the start has put the window into the tray, or ended the program. Whoever has loaded the window
    // does not show it then.
    bool startsHidden() const { return liesInTray_ || secondInstance_ || program_.ended(); }
    // A mouse move over the hidden picture box PicSystrayIcon, which is how messages of the tray icon arrive: `x` in
    // twips is the number of the message times the twips of a pixel. A double click (515) brings the window back, the
    // right button (517) offers mnMain, every other number is nothing.
    void trayMouseMove(int x, int twipsPerPixel);
    void AddTrayIcon(const std::string& tip);
    void RemoveTrayIcon();
    // Rebuilds PlugPaths and adds the rows; the list itself is not cleared.
    void FillPlugList();
    // The ticked plug-ins, one after the other. An error in one of them (base::RuntimeError) leaves the pass: the
    // others do not run, and nothing more is written.
    void CleanPlugins();
    // What the user does on the page of the plug-ins: the right button goes down on the list, the mouse moves over it,
    // a key goes down in it (116 is F5); a click into the search box, a key typed there (13 is Enter).
    void plugListRightClick();
    void plugListMouseMove();
    void plugListKeyDown(int key);
    void searchBoxClick();
    void searchBoxKeyPress(char32_t key);
    // Right button on the task list.
    void taskListRightClick();
    // Over the window, in twips; the pointer is the hourglass while a run is under way.
    void mouseMove(int x, int y);
    // Behind a change of Width or Height by the user: both are held at their least. Nothing while minimised.
    void resized();
    // The 1 ms duties: row count and number of ticked plug-ins; the line of the caret.
    void updateStatistic();
    void updateLogBar();

    // --- what others ask
    bool StopRequested() const override { return stopRequested_; }
    bool LogVisible() const { return logVisible_ != 0; }
    const std::string& PlugFolder() const { return plugFolder_; }
    // Path i belongs to row i of LstPlugs.
    const std::vector<std::string>& PlugPaths() const { return plugPaths_; }
    // The one object that reads and runs plug-ins, made at first need.
    plugins::dPlugCleaner& plugCleaner();
    // Index of the row that the search found last, as text; "-1": none.
    const std::string& cmdSearchTag() const { return cmdSearchTag_; }
    const TrayRecord& TrayData() const { return trayData_; }
    // The first two characters of the drive that the disk figures are taken of, as "C:".
    std::string diskSizeDrive() const;
    std::string versionText() const;  // major.minor.revision and the build text
    Log& log() { return log_; }
    // True once another instance was found: the start ended there, and so does the program.
    bool secondInstance() const { return secondInstance_; }
    // Behind every step of a run.
    forms::Signal<const StepResult&> stepDone;

    // --- RunReport
    void AppendLogText(const std::string& text) override { log_.AppendLogText(text); }
    void AddLogLine(const std::string& text) override { log_.AddLogLine(text); }
    void AddLogHeading(const std::string& text) override { log_.AddLogHeading(text); }
    void setPanel(int panel, const std::string& text) override { StatusBar1.setPanel(panel, text); }
    void setRowStatus(const std::string& key, const std::string& status) override;
    void setRowIcon(const std::string& key, int icon) override { lstTasks.setSmallIcon(key, icon); }
    void selectRow(const std::string& key) override { lstTasks.setSelected(key); }
    void setFirstRowStatus(const std::string& status) override;
    void selectFirstRow() override { lstTasks.setSelected(1); }
    void rebuildTaskRows() override;
    void clearTaskStatuses() override;
    void resetTaskIcons() override;
    forms::FontChoice logFont() const override;
    void setLogFont(const forms::FontChoice& font) override;

    // --- controls. The designer's tab captions are German; the tab test compares them.
    controls::ExplorerBar ExplorerBar1{*this, "ExplorerBar1"};
    forms::TabStrip SSTab1{*this, "SSTab1", {"Reinigung", "Anwendungen", "Erweiterungen", "Über ..."}};
    forms::ListView lstTasks{*this, "lstTasks"};
    forms::TextBox txtLog{*this, "txtLog"};
    controls::isButton cmdClean{*this, "cmdClean", "Reinigen"};
    controls::isButton cmdStop{*this, "cmdStop", "Stopp"};
    controls::isButton cmdClearLog{*this, "cmdClearLog", "Protokoll leeren"};
    controls::isButton cmdCopyLog{*this, "cmdCopyLog", "Protokoll kopieren"};
    controls::isButton cmdSaveLog{*this, "cmdSaveLog", "Protokoll speichern"};
    controls::isButton cmdViewLog{*this, "cmdViewLog", "Protokoll"};
    forms::ListBox LstPlugs{*this, "LstPlugs", true};
    static constexpr const char* kDesignedSearchHint = "Suchen ...";
    forms::TextBox txtSearchPlugs{*this, "txtSearchPlugs", kDesignedSearchHint};
    controls::isButton cmdSearch{*this, "cmdSearch", "Suchen"};
    forms::ListView lstExtensions{*this, "lstExtensions"};
    forms::ComboBox cboExtensionsCat{*this, "cboExtensionsCat"};
    forms::TextBox txtExtensionRun{*this, "txtExtensionRun"};
    forms::Label lblProductName{*this, "lblProductName"};
    forms::Label lblVersion{*this, "lblVersion"};
    forms::Label lblVersionBuild{*this, "lblVersionBuild"};
    forms::Label lblLangVersion{*this, "lblLangVersion"};
    forms::Label lblTranslatorHomepage{*this, "lblTranslatorHomepage"};
    forms::Label lblCommandLine{*this, "lblCommandLine"};
    forms::Label lblCommandLineAuto{*this, "lblCommandLineAuto"};
    forms::Label lblCommandLineSilent{*this, "lblCommandLineSilent"};
    controls::isButton cmdLicense{*this, "cmdLicense", "Lizenz"};
    forms::DriveList drvDiskSizeDrive{*this, "drvDiskSizeDrive"};
    forms::StatusBar StatusBar1{*this, "StatusBar1", 3};
    forms::Timer tmrStatistic{*this, "tmrStatistic", 1, true};
    forms::Timer tmrLogBar{*this, "tmrLogBar", 1, true};
    forms::Timer tmrCleanButton{*this, "tmrCleanButton", 1000, false};
    forms::FileList File1{*this, "File1"};
    forms::ListBox lstExplorer{*this, "lstExplorer"};
    forms::Image PicSystrayIcon{*this, "PicSystrayIcon", false};

    // The menus, by their table.
    forms::Menu& menu(const std::string& name);

private:
    friend class StartSequence;
    friend class CleaningRun;
    friend void cleanPlugInsNow(frmMain& main);

    void buildMenus();
    void connectMenus();
    void connectPane();
    void paneItemClicked(int group, int item);
    void showPage(int tab);
    void pageChanged();
    void hintInSearchBox();
    void showOptions(int tab, const char* innerTabs = nullptr, int innerTab = 0);
    void showStarter(int tab);
    void openAddressOf(const char* control);
    void runCustomApplication();
    void downloadExtensions();
    void openExplorerRow(int row);
    void fillExplorerMenu();
    void connectPlugList();
    void enablePlugCommands();
    // Nothing is written while the list is being filled: its rows do not show what is stored yet.
    void writePlugTicks(const char* ticked, const char* notTicked);
    // Once for each fill; where an event got in and has read them already, the ticks that the user sees stand.
    void readPlugTicks();
    void refreshPlugList();
    void selectAllPlugs(bool selected);
    // Points the plug-in object at the current row. False: there is no such row, or no such file any more.
    bool takeCurrentPlug();
    void showPlugInfo();
    void editPlug();
    void createPlug();
    void deletePlug();
    void cmdSearch_Click();

    settings::Program& program_;
    Log log_;
    bool stopRequested_ = false;
    int logVisible_ = -1;  // toggled with a bitwise not: -1 and 0 only
    std::size_t lastLogLine_ = 0;
    std::string plugIniPath_;
    std::string plugFolder_;
    std::vector<std::string> plugPaths_;
    unsigned plugListFills_ = 0;
    bool plugTicksUnread_ = true;  // the rows stand, or some of them, without the ticks that are stored
    std::unique_ptr<plugins::dPlugCleaner> plugCleaner_;
    std::string cmdSearchTag_ = "-1";
    TrayRecord trayData_;
    bool secondInstance_ = false;
    bool liesInTray_ = false;  // until it is brought back
    std::vector<std::unique_ptr<forms::Menu>> menus_;
    std::vector<std::unique_ptr<forms::Menu>> explorerMenu_;  // the array mnuListe, one entry a row of lstExplorer
};

}  // namespace tidvane::app
