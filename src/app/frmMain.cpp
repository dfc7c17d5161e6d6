#include "app/frmMain.h"

#include "app/cleaning_run.h"
#include "app/log_file.h"
#include "app/log_font.h"
#include "app/start_sequence.h"
#include "app/task_rows.h"
#include "app/window_state.h"
#include "base/numbers.h"
#include "base/text.h"
#include "removal/modKillMethod.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmOptions.h"
#include "settings/modFormINI.h"
#include "settings/sentences.h"

namespace tidvane::app {

frmMain::frmMain(settings::Program& program) : forms::Form(kName), program_(program), log_(program, txtLog) {
    Width.design(13800);
    Height.design(9600);
    Caption.design("Tidvane");
    SSTab1.offerOnly(kCleaningTab);
    buildMenus();
    // What no event has switched yet stands as the cleaning page wants it, and as no run is under way.
    menu("mnCleanPlugs").Visible.design(false);
    menu("mnExtensions").Visible.design(false);
    cmdStop.Enabled.design(false);
    // No catalogue is read yet: there is nothing to choose.
    forms::designedOff(lstExtensions);
    forms::designedOff(cboExtensionsCat);
    for (const platform::Drive& drive : program_.platform.files.Drives()) {
        drvDiskSizeDrive.List.push_back(base::lowerCase(std::string(1, drive.letter)) + ":");
    }
    // The drive that the program lies on is the current one.
    for (std::size_t row = 0; row < drvDiskSizeDrive.List.size(); ++row) {
        if (base::startsWithNoCase(program_.programFolder(), drvDiskSizeDrive.List[row])) {
            drvDiskSizeDrive.ListIndex.design(static_cast<int>(row));
        }
    }
    program_.setReport(this);

    cmdClean.Click.connect([this] { cmdClean_Click(); });
    cmdStop.Click.connect([this] { cmdStop_Click(); });
    cmdClearLog.Click.connect([this] { cmdClearLog_Click(); });
    cmdCopyLog.Click.connect([this] { cmdCopyLog_Click(); });
    cmdSaveLog.Click.connect([this] { saveLogByButton(*this); });
    cmdViewLog.Click.connect([this] { cmdViewLog_Click(); });
    tmrCleanButton.Tick.connect([this] { cmdClean_Click(); });
    tmrStatistic.Tick.connect([this] { updateStatistic(); });
    tmrLogBar.Tick.connect([this] { updateLogBar(); });
    SSTab1.Click.connect([this] { pageChanged(); });
    connectMenus();
    connectPane();
    connectPlugList();
}

frmMain::~frmMain() {
    if (&program_.report() == this) program_.setReport(nullptr);
}

void frmMain::Form_Load() {
    StartSequence(*this).run();
}

void frmMain::cmdClean_Click() {
    if (!program_.allowsRemoval(settings::Removal::Run)) {
        // A run that was to start later has had its turn.
        tmrCleanButton.Enabled = false;
        cmdClean.Value = false;
        return;
    }
    CleaningRun(*this).run();
}

void frmMain::cmdStop_Click() {
    stopRequested_ = true;
    cmdStop.Enabled = false;
    AddLogLine("***** " + program_.LangText(554) + " *****");
    setPanel(1, " ***** " + program_.LangText(554) + "*****");  // no blank before the closing stars: intended
}

void frmMain::cmdClearLog_Click() {
    log_.empty();
    AddLogLine(program_.LangText(122) + " <OK>");
}

void frmMain::cmdCopyLog_Click() {
    program_.display.clearClipboard();
    program_.display.setClipboard(txtLog.Text());
    AddLogLine(program_.LangText(579));
    setPanel(1, program_.LangText(579));
}

void frmMain::cmdViewLog_Click() {
    // What the button offers next: "hide" while the log is open, "show" while it is closed.
    txtLog.Visible = !LogVisible();
    cmdViewLog.Caption = program_.LangText(LogVisible() ? 125 : 126);
    logVisible_ = ~logVisible_;
}

void frmMain::AddTrayIcon(const std::string& tip) {
    const base::CodePage& page = program_.codePage();
    std::string bytes = page.fromUtf8(tip);
    if (bytes.size() > TrayRecord::kTipBytes) bytes.resize(TrayRecord::kTipBytes);
    trayData_.szTip = page.toUtf8(bytes);
    program_.display.addTrayIcon(trayData_.szTip);
}

void frmMain::RemoveTrayIcon() {
    program_.display.removeTrayIcon();
}

void frmMain::toBackground() {
    hideInTray(" - Tidvane -" + program_.LangText(566));
}

void frmMain::hideInTray(const std::string& tip) {
    AddTrayIcon(tip);
    if (program_.display.hasTray()) {
        liesInTray_ = true;
        program_.display.Hide(*this);
        return;
    }
    // Hidden without an icon, the window would be out of reach.
    State = forms::WindowState::Minimized;
    if (program_.tellOnce("no tray")) {
        program_.display.warn(settings::sentence(program_, settings::Sentence::NoTray));
    }
}

void frmMain::bringBack() {
    liesInTray_ = false;
    State = forms::WindowState::Normal;
    program_.display.Show(*this, nullptr, false);
    RemoveTrayIcon();
}

void frmMain::trayMouseMove(int x, int twipsPerPixel) {
    if (x == TrayRecord::kLeftDoubleClick * twipsPerPixel) {
        bringBack();
    } else if (x == TrayRecord::kRightButtonUp * twipsPerPixel) {
        menu("mnuCleanSystray").isDefault = true;
        program_.display.popUpMenu(*this, "mnMain");
    }
}

void frmMain::ExitProgram() {
    // The pressed look is the sign of a run; the switches of the command line press it too.
    if (cmdClean.Value) return toBackground();
    RemoveTrayIcon();
    program_.UnloadAllForms();
}

bool frmMain::Form_QueryUnload(forms::UnloadMode mode) {
    if (mode == forms::UnloadMode::ControlMenu) {
        toBackground();
        return true;
    }
    // The end of Windows may start a last cleaning, but no box may hold it up.
    if (mode == forms::UnloadMode::WindowsShutdown) program_.unattended = true;
    return false;
}

void frmMain::Form_Unload() {
    // A second instance ends without the steps below: they would write its own rectangle over the stored one and could
    // start a cleaning that nobody asked for.
    if (secondInstance_) return;
    writePlugTicks("1", "0");
    AddLogHeading(program_.LangText(578));
    setPanel(1, program_.LangText(578));
    saveWindowState(*this);
    if (!stopRequested_ && program_.get<settings::frmOptions>().chkEndClean.ticked()) cmdClean_Click();
    auto& options = program_.get<settings::frmOptions>();
    if (options.chkDeleteLog.ticked()) {
        // Overwritten whatever kill method is chosen, and whoever wrote that file: intended.
        removal::KillFile(program_.platform, options.txtTidvaneLog.Text() + "\\td_log.txt", removal::KillOverwrite,
                          true);
    }
    RemoveTrayIcon();
    program_.UnloadAllForms();
}

std::string frmMain::diskSizeDrive() const {
    return base::upperCase(drvDiskSizeDrive.Drive().substr(0, 2));
}

std::string frmMain::versionText() const {
    const settings::ProductVersion& version = program_.version;
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.revision) + lblVersionBuild.Caption.get();
}

void frmMain::setRowStatus(const std::string& key, const std::string& status) {
    lstTasks.setSubItem(key, "Status", status);
}

void frmMain::setFirstRowStatus(const std::string& status) {
    lstTasks.setSubItem(1, "Status", status);
}

void frmMain::rebuildTaskRows() {
    if (program_.get<settings::frmOptions>().chkSearchTasks.ticked()) dropSearchRow(program_, lstTasks);
    fillTaskRows(program_, lstTasks);
}

void frmMain::clearTaskStatuses() {
    app::clearTaskStatuses(lstTasks);
}

void frmMain::resetTaskIcons() {
    app::resetTaskIcons(program_, lstTasks);
}

forms::FontChoice frmMain::logFont() const {
    forms::FontChoice font;
    font.name = txtLog.FontName;
    font.size = txtLog.FontSize;
    font.bold = txtLog.FontBold;
    font.italic = txtLog.FontItalic;
    font.colour = txtLog.ForeColor;
    return font;
}

void frmMain::setLogFont(const forms::FontChoice& font) {
    applyFont(txtLog, font);
    txtLog.ForeColor = font.colour;
}

void frmMain::taskListRightClick() {
    program_.display.popUpMenu(*this, "mnCustom");
}

void frmMain::mouseMove(int x, int y) {
    if (!cmdClean.Value) {
        program_.display.setPointer(forms::pointer::Default);
    } else if (x != 0 || y != 0) {
        program_.display.setPointer(forms::pointer::Hourglass);
    }
}

void frmMain::resized() {
    if (State.get() == forms::WindowState::Minimized) return;
    if (Width < kMinWidth) Width = kMinWidth;
    if (Height < kMinHeight) Height = kMinHeight;
}

void frmMain::updateStatistic() {
    setPanel(2, std::to_string(lstTasks.Count()));
    setPanel(3, std::to_string(LstPlugs.SelCount()));
}

void frmMain::updateLogBar() {
    const std::size_t line = txtLog.lineFromCaret();
    if (line == lastLogLine_) return;
    txtLog.select(txtLog.lineStart(line), txtLog.lineLength(line));
    lastLogLine_ = line;
}

}  // namespace tidvane::app
