#include "app/start_sequence.h"

#include <array>
#include <optional>

#include "app/autostart.h"
#include "app/frmMain.h"
#include "app/last_run.h"
#include "app/log_font.h"
#include "app/other_cleaners.h"
#include "app/pane_table.h"
#include "app/plug_in_files.h"
#include "app/task_rows.h"
#include "app/window_state.h"
#include "base/skipping_errors.h"
#include "desktop/frmWidget.h"
#include "settings/bans.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmOptions.h"
#include "settings/frmStarter.h"
#include "settings/log_font_file.h"
#include "settings/modLanguage.h"
#include "settings/modOS.h"

namespace tidvane::app {

namespace {

// A failing statement is skipped and the next one runs: no step may abort the start.
using base::skippingErrors;

constexpr const char* kBanner = "*********** Tidvane - disk and privacy cleaner - https://tidvane.example ***********";

// The sixth menu title, by the row that the extended settings choose. One row is the same in every language.
constexpr int kHomepage = 0;
constexpr std::array kCommunityTitles{159, kHomepage, 172, 171};

}  // namespace

void StartSequence::run() {
    settings::Program& program = main_.program_;
    // The catalogue of extensions belongs in front; it joins with its page.
    loadLanguage();
    buildTaskPane();
    buildTaskList();
    skippingErrors([&] { fillTaskRows(program, main_.lstTasks); });
    writeStartLines();
    warnOfAddIns();
    loadPlugIns();
    // Events get in there. At the end of the program nothing more is written, shown or cleaned.
    if (program.ended()) return;
    skippingErrors([&] { showNews(); });
    skippingErrors([&] { applyAutostartAtStart(program); });
    noteProtection();
    noteOtherCleaners(program);
    main_.AddLogLine("Tidvane " + program.LangText(572) + " <OK>");
    skippingErrors([&] { showLastRun(); });
    // The test stands here, behind the log lines and the registry writes above: intended.
    if (anotherInstanceRuns()) return;
    if (const auto font = settings::readLogFont(program, main_.logFont())) applyFont(main_.txtLog, *font);
    skippingErrors([&] { showWidget(); });
    applyLogOptions();
    startMinimized();
    fillAboutPage();
    readCommandLine();
    captionMenus();
    loadWindowState(main_);
    cleanAtStart();
}

void StartSequence::loadLanguage() {
    skippingErrors([&] { settings::LoadAllLanguageFiles(main_.program_); });
}

void StartSequence::buildTaskPane() {
    settings::Program& program = main_.program_;
    controls::ExplorerBar& pane = main_.ExplorerBar1;
    pane.DeleteAllGroups();
    int group = -1;
    for (const PaneRow& row : paneTable()) {
        if (row.group != group) group = pane.AddNormalGroup(program.LangText(row.title));
        pane.AddItem(row.group, program.LangText(row.text), false, row.icon);
        // Grey as the entry of the menu that it stands for.
        if (row.action == PaneAction::UpdateCheck)
            pane.SetItemEnabled(row.group, row.item, main_.menu("mnuCheckForUpdates").Enabled);
    }
    pane.AddDetailGroup(program.LangText(134), program.LangText(135) + " " + main_.versionText());
    skippingErrors([&] {
        pane.OpenOneGroupOnly = program.get<settings::frmMoreToConfigure>().chkOpenOneGroupOnly.ticked();
        settings::applyChosenTheme(program, pane, true);
    });
}

void StartSequence::buildTaskList() {
    settings::Program& program = main_.program_;
    main_.fillExplorerMenu();
    main_.cmdViewLog.Caption = program.LangText(126);
    main_.cmdStop.Enabled = false;
    main_.Caption = "Tidvane";
    program.temporaryFolder = program.platform.shell.TemporaryFolder();
    main_.drvDiskSizeDrive.ToolTipText = program.LangText(851);
    main_.lstTasks.ColumnHeaders = {{"Task", "Task", 5000}, {"Status", "Status", 2500}};
    skippingErrors([&] {
        auto& options = program.get<settings::frmOptions>();
        if (program.platform.files.FileExists(program.inProgramFolder("memtrim.exe"))) {
            options.cmdCleanRAM.Caption = program.LangText(375);
        } else {
            options.chkCleanRAM.Value = 0;
            options.chkCleanRAM.Enabled = false;
        }
    });
}

void StartSequence::writeStartLines() {
    settings::Program& program = main_.program_;
    main_.AddLogHeading(kBanner);
    main_.AddLogLine("Tidvane v" + main_.versionText() + " " + program.LangText(572) + " " + program.LangText(100) +
                     "...");
    std::string system;
    skippingErrors([&] { system = settings::DetectWindows(program); });
    if (!system.empty()) main_.AddLogLine(program.LangText(568) + ": " + system);
    // Asked once for each of the two lines; exactly one of them is written.
    const std::string user = program.LangText(569) + ": " + settings::GetBenutzer(program);
    if (settings::IsUserAdmin(program)) main_.AddLogLine(user + " [Administrator]");
    if (!settings::IsUserAdmin(program)) main_.AddLogLine(user);
    main_.AddLogLine(program.LangText(570) + ": " + program.platform.system.WindowsFolder());
    main_.AddLogLine(program.LangText(571) + ": " + program.platform.system.SystemFolder());
}

void StartSequence::warnOfAddIns() {
    settings::Program& program = main_.program_;
    struct AddIn {
        const forms::CheckBox& box;
        int name;
        int warning;
    };
    skippingErrors([&] {
        auto& options = program.get<settings::frmOptions>();
        for (const AddIn& addIn : {AddIn{options.chkCleanRAM, 374, 573}, AddIn{options.chkAddInRegClean, 365, 574}}) {
            if (!addIn.box.ticked()) continue;
            main_.AddLogLine(program.LangText(addIn.name) + " " + program.LangText(510));
            if (options.chkHideAlertMessage.ticked()) continue;
            program.display.MsgBox(program.LangText(addIn.warning) + " " + program.LangText(510),
                                   forms::msgbox::Exclamation, "Tidvane");
        }
    });
}

void StartSequence::loadPlugIns() {
    settings::Program& program = main_.program_;
    main_.plugIniPath_ = program.inProgramFolder(kPlugTicksFile);
    main_.plugFolder_ = plugInFolder(program);
    main_.FillPlugList();
    main_.readPlugTicks();
    constexpr double kSmallFont = 8;
    skippingErrors([&] {
        if (program.get<settings::frmOptions>().chkSmallAppsFontSize.ticked()) main_.LstPlugs.FontSize = kSmallFont;
    });
}

void StartSequence::showNews() {
    settings::Program& program = main_.program_;
    if (!program.get<settings::frmMoreToConfigure>().chkAutoStartInfoServer.ticked()) return;
    auto& starter = program.get<settings::frmStarter>();
    program.display.Show(starter, &main_, false);
    starter.SSTab2.Tab = 1;
}

void StartSequence::noteProtection() {
    settings::Program& program = main_.program_;
    if (program.platform.files.FileExists(program.inProgramFolder(settings::kBanFile))) {
        main_.AddLogLine(std::string("Protecting specific locations through ") + settings::kBanFile + " <OK>");
    }
}

void StartSequence::showLastRun() {
    settings::Program& program = main_.program_;
    const LastRun last = readLastRun(program);
    auto& starter = program.get<settings::frmStarter>();
    if (last.exists) {
        main_.setPanel(1, last.date + " " + program.LangText(153) + " " + last.time);
        starter.SSTab2.setTabEnabled(0, false);
        return;
    }
    main_.setPanel(1, program.LangText(152));
    program.display.Show(starter, &main_, false);
    // News, community, maintenance and tips wait for a second start; licence and translator stay on offer.
    for (int tab = 1; tab <= 4; ++tab) starter.SSTab2.setTabEnabled(tab, false);
    starter.SSTab2.Tab = 0;
}

bool StartSequence::anotherInstanceRuns() {
    settings::Program& program = main_.program_;
    if (program.platform.processes.takeInstanceLock()) return false;
    if (!program.get<settings::frmOptions>().chkHideAlertMessage.ticked()) {
        program.display.MsgBox(program.LangText(154), forms::msgbox::Information, "Tidvane");
    }
    main_.secondInstance_ = true;
    program.end();
    return true;
}

void StartSequence::showWidget() {
    settings::Program& program = main_.program_;
    auto& widget = program.get<desktop::frmWidget>();
    if (widget.chkAutostart.ticked()) program.display.Show(widget, nullptr, false);
}

void StartSequence::applyLogOptions() {
    settings::Program& program = main_.program_;
    auto& options = program.get<settings::frmOptions>();
    if (options.chkLogBarOff.ticked()) {
        main_.txtLog.Visible = false;
        main_.logVisible_ = ~main_.logVisible_;
        main_.cmdViewLog.Caption = program.LangText(125);
    }
    if (options.chkHideColumnHeaders.ticked()) main_.lstTasks.HideColumnHeaders = true;
}

void StartSequence::startMinimized() {
    settings::Program& program = main_.program_;
    if (program.get<settings::frmOptions>().chkStartMinimized.ticked()) {
        main_.hideInTray("Tidvane");
    }
    main_.txtLog.caretToEnd();
}

void StartSequence::fillAboutPage() {
    settings::Program& program = main_.program_;
    main_.lblProductName.Caption = "Tidvane";
    main_.lblVersion.Caption = "Version " + main_.versionText();
    main_.lblLangVersion.Caption = program.LangText(100);
    main_.lblTranslatorHomepage.Caption = program.LangText(997);
    main_.lblCommandLine.Caption = program.LangText(990);
    main_.lblCommandLineAuto.Caption = program.LangText(991);
    main_.lblCommandLineSilent.Caption = program.LangText(992);
}

void StartSequence::readCommandLine() {
    settings::Program& program = main_.program_;
    const std::string arguments = program.platform.system.CommandArguments();
    // Searched, not parsed, and by exact case. The pressed look starts no run: intended.
    if (arguments.find("/AUTO") != std::string::npos) {
        main_.cmdClean.Value = true;
    } else if (arguments.find("/SILENT") != std::string::npos) {
        main_.toBackground();
        main_.cmdClean.Value = true;
    }
}

void StartSequence::captionMenus() {
    settings::Program& program = main_.program_;
    main_.menu("mnCleanPlugs").Caption = program.LangText(104) + " (Plug-ins)";
    main_.menu("mnExtensions").Caption = program.LangText(106) + " (Add-ons)";
    skippingErrors([&] {
        // By the chosen row: the texts of the rows may be of another language file than the last one.
        const int row = program.get<settings::frmMoreToConfigure>().cboCommunityMenu.ListIndex();
        if (row < 0 || row >= static_cast<int>(kCommunityTitles.size())) return;
        const int entry = kCommunityTitles[static_cast<std::size_t>(row)];
        main_.menu("mnuCommunityTitle").Caption = entry == kHomepage ? "&Homepage" : program.LangText(entry);
    });
}

void StartSequence::cleanAtStart() {
    settings::Program& program = main_.program_;
    if (main_.stopRequested_ || !program.get<settings::frmOptions>().chkStartClean.ticked()) return;
    program.display.Show(main_, nullptr, false);
    main_.liesInTray_ = false;
    main_.cmdClean_Click();
}

}  // namespace tidvane::app
