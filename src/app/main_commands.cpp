// What the menus and the task pane of the main window do.
#include <algorithm>

#include "app/explorer_menu.h"
#include "app/frmMain.h"
#include "app/menu_table.h"
#include "app/pane_table.h"
#include "app/recycle_bin_window.h"
#include "base/text.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmOptions.h"
#include "settings/shell_wait.h"

namespace tidvane::app {

namespace {

// Fixed words of the program, in every language.
constexpr const char* kCloseBeforeTool = "Tidvane needs to be closed before qrmx.exe can be proceeded...";

}  // namespace

void frmMain::buildMenus() {
    for (const MenuRow& row : menuTable()) {
        menus_.push_back(std::make_unique<forms::Menu>(*this, row.name, row.caption));
        menus_.back()->parent = row.parent;
        menus_.back()->separatorBefore = beginsMenuGroup(row.name);
        if (isPopUpTitle(row.name)) menus_.back()->Visible.design(false);
        if (row.action == MenuAction::NotThereYet) forms::designedOff(*menus_.back());
    }
}

forms::Menu& frmMain::menu(const std::string& name) {
    const auto found = std::find_if(menus_.begin(), menus_.end(), [&](const auto& menu) { return menu->Name == name; });
    return **found;
}

void frmMain::connectMenus() {
    for (const MenuRow& row : menuTable()) {
        forms::Signal<>& click = menu(row.name).Click;
        switch (row.action) {
            case MenuAction::None:
            case MenuAction::NotThereYet:
                break;
            case MenuAction::OptionsTab:
                click.connect([this, &row] { showOptions(row.a, row.inner, row.b); });
                break;
            case MenuAction::StarterTab:
                click.connect([this, &row] { showStarter(row.a); });
                break;
            case MenuAction::Window:
                click.connect([this, &row] { program_.windows.show(row.inner, this, false); });
                break;
            case MenuAction::FreeWindow:
                click.connect([this, &row] { program_.windows.show(row.inner, nullptr, false); });
                break;
            case MenuAction::Page:
                click.connect([this, &row] { showPage(row.a); });
                break;
        }
    }
    menu("mnuBackground").Click.connect([this] { toBackground(); });
    menu("mnuExit").Click.connect([this] { ExitProgram(); });
    menu("mnuRestartTidvane").Click.connect([this] { restartProgram(); });
    menu("mnuOnlineHelp").Click.connect([this] { openAddressOf("txtOnlineHelp"); });
    menu("mnuOpenRecycleBin").Click.connect([this] { settings::ShellWait(program_, kRecycleBinWindow); });
    // The tray menu.
    menu("mnuShow").Click.connect([this] { bringBack(); });
    menu("mnuOptionsSystray").Click.connect([this] {
        program_.display.Show(*this, nullptr, false);
        showOptions(0);
    });
    menu("mnuExitSystray").Click.connect([this] {
        RemoveTrayIcon();
        program_.UnloadAllForms();
    });
    menu("mnuCleanSystray").Click.connect([this] {
        bringBack();
        log_.empty();
        const std::string count = "[" + std::to_string(lstTasks.Count()) + "/64]";
        AddLogLine(program_.LangText(561) + "..." + count + " ");
        setPanel(1, program_.LangText(561) + "..." + count);
        tmrCleanButton.Enabled = true;
    });
    cmdLicense.Click.connect([this] { showStarter(5); });
    lblTranslatorHomepage.Click.connect(
        [this] { program_.platform.shell.ShellExecuteA("open", lblTranslatorHomepage.Caption.get(), "", "", 1); });
}

void frmMain::connectPane() {
    ExplorerBar1.ItemClick.connect([this](int group, int item) { paneItemClicked(group, item); });
}

void frmMain::paneItemClicked(int group, int item) {
    const auto rows = paneTable();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const PaneRow& candidate) {
        return candidate.group == group && candidate.item == item;
    });
    if (row == rows.end()) return;
    switch (row->action) {
        case PaneAction::CleaningPage:
            return showPage(kCleaningTab);
        case PaneAction::Clean:
            // The pane stays usable while a run lets events in; a second run must not start from it. Asked is the
            // button's state and not its look, which the command line presses too.
            if (cmdClean.Enabled) cmdClean_Click();
            return;
        case PaneAction::CustomApplication:
            return runCustomApplication();
        case PaneAction::CleaningJobs:
            return showOptions(0);
        case PaneAction::Options:
            return showOptions(5);
        case PaneAction::PlugInsPage:
            showPage(kPlugInsTab);
            return hintInSearchBox();
        case PaneAction::MorePlugIns:
            return openAddressOf("txtApps");
        case PaneAction::ExtensionsPage:
            return showPage(kExtensionsTab);
        case PaneAction::MoreExtensions:
            return downloadExtensions();
        case PaneAction::OnlineHelp:
            return openAddressOf("txtOnlineHelp");
        case PaneAction::AboutPage:
            return showPage(kAboutTab);
        case PaneAction::UpdateCheck:
            return menu("mnuCheckForUpdates").Click();
        case PaneAction::Exit:
            return ExitProgram();
        case PaneAction::SessionMenu:
            return program_.display.popUpMenu(*this, "mnExtraTask");
    }
}

void frmMain::showPage(int tab) {
    SSTab1.offerOnly(tab);
}

void frmMain::pageChanged() {
    // Compared are the designer's German captions: intended. Any other caption counts as the cleaning page.
    const std::string& caption = SSTab1.TabCaption(SSTab1.Tab);
    const bool plugIns = caption == "Anwendungen";
    const bool extensions = caption == "Erweiterungen";
    const bool cleaning = !plugIns && !extensions && caption != "Über ...";
    menu("mnCleanPlugs").Visible = plugIns;
    menu("mnExtensions").Visible = extensions;
    for (controls::isButton* button : {&cmdClean, &cmdClearLog, &cmdCopyLog, &cmdSaveLog, &cmdViewLog}) {
        button->Visible = cleaning;
    }
    // Whatever led to the page, its hint is in the user's language; what was typed stays.
    if (plugIns && txtSearchPlugs.Text() == kDesignedSearchHint) hintInSearchBox();
}

void frmMain::hintInSearchBox() {
    if (const std::string word = program_.LangText(559); !word.empty()) txtSearchPlugs.setText(word + " ...");
}

void frmMain::showOptions(int tab, const char* innerTabs, int innerTab) {
    auto& options = program_.get<settings::frmOptions>();
    options.SSTab1.Tab = tab;
    if (innerTabs != nullptr) {
        if (forms::Control* inner = options.control(innerTabs)) static_cast<forms::TabStrip*>(inner)->Tab = innerTab;
    }
    program_.display.Show(options, this, true);
}

void frmMain::showStarter(int tab) {
    forms::Form* starter = program_.windows.get("frmStarter");
    if (starter == nullptr) return;
    if (forms::Control* tabs = starter->control("SSTab2")) static_cast<forms::TabStrip*>(tabs)->Tab = tab;
    program_.display.Show(*starter, this, false);
}

void frmMain::openAddressOf(const char* control) {
    const forms::Form* resources = program_.windows.get("frmResources");
    const forms::Control* box = resources == nullptr ? nullptr : resources->control(control);
    if (box == nullptr || box->kind != forms::ControlKind::TextBox) return;
    program_.platform.shell.ShellExecuteA("open", static_cast<const forms::TextBox*>(box)->Text(), "", "", 1);
}

void frmMain::runCustomApplication() {
    auto& extended = program_.get<settings::frmMoreToConfigure>();
    if (!extended.chkEnableCustomApp.ticked()) return program_.display.Show(extended, this, false);
    const std::string path = extended.txtCustomAppPath.Text();
    if (!program_.platform.files.FileExists(path)) return;
    program_.display.setPointer(forms::pointer::Hourglass);
    settings::ShellExecuteWait(program_, "open", path, extended.txtCustomAppCommandlineParameter.Text(), "", 1);
    program_.display.setPointer(forms::pointer::Default);
}

void frmMain::downloadExtensions() {
    const std::string tool = program_.inProgramFolder("qrmx.exe");
    if (!program_.platform.files.FileExists(tool)) return openAddressOf("txtAddOns");
    AddLogLine(kCloseBeforeTool);
    setPanel(1, kCloseBeforeTool);
    program_.platform.processes.CreateProcessA(tool, 1);
}

void frmMain::restartProgram() {
    // A run under way goes on in the background, as with the exit: two instances may not work at once.
    if (cmdClean.Value) return toBackground();
    settings::Program& program = program_;
    const std::string own = program.inProgramFolder(program.platform.system.ExecutableName() + ".exe");
    RemoveTrayIcon();
    program.UnloadAllForms();
    // Only now, with everything stored, the lock goes to the new start, which would else meet the box of a second
    // instance.
    program.platform.processes.releaseInstanceLock();
    program.platform.processes.CreateProcessA(own, 1);
}

void frmMain::fillExplorerMenu() {
    FillExplorerMenu(*this);
    for (int row = static_cast<int>(explorerMenu_.size()); row < lstExplorer.ListCount(); ++row) {
        explorerMenu_.push_back(std::make_unique<forms::Menu>(*this, "mnuListe", "", row));
        explorerMenu_.back()->parent = "mnuExplorer";
        explorerMenu_.back()->Click.connect([this, row] { openExplorerRow(row); });
    }
    for (int row = 0; row < lstExplorer.ListCount(); ++row) {
        explorerMenu_[static_cast<std::size_t>(row)]->Caption = lstExplorer.List(row);
    }
}

void frmMain::openExplorerRow(int row) {
    const std::string folder = folderOfRow(lstExplorer.List(row));
    if (!folder.empty()) program_.platform.shell.ShellExecuteA("open", folder, "", "", 1);
}

}  // namespace tidvane::app
