#include "app/plug_in_pass.h"

#include "app/decorations.h"
#include "app/disk_statistics.h"
#include "app/frmMain.h"
#include "app/recycle_bin_window.h"
#include "base/numbers.h"
#include "base/runtime_error.h"
#include "forms/system_colours.h"
#include "settings/frmOptions.h"
#include "settings/pause.h"
#include "settings/shell_wait.h"

namespace tidvane::app {

void frmMain::CleanPlugins() {
    const settings::LangTable& text = program_.LangText;
    const std::string head = sectionHead(text(104));
    AddLogHeading(head);
    AddLogLine(text(553) + " ...");
    std::int64_t ticked = 0;
    bool stopped = false;
    // Counted afresh at each row: events get in below and may refresh the list. A row that moves up meanwhile, to a
    // place that the pass has left behind, is passed over: intended.
    for (int row = 0; row < LstPlugs.ListCount() && !stopped; ++row) {
        if (!LstPlugs.Selected(row)) continue;
        ++ticked;
        plugins::dPlugCleaner& plugIn = plugCleaner();
        plugIn.setFilename(plugPaths_.at(static_cast<std::size_t>(row)));
        // Gone since the list was filled: it counts as ticked, and nothing is said of it.
        if (!plugIn.IsLoaded()) continue;
        setPanel(1, text(555) + ": " + plugIn.PlugTitle() + " ...");
        settings::pauseByPurgeSpeedOrFail(program_);
        plugIn.PhasePlugInfo();
        if (program_.ended()) return;
        // Seen only here: after a stop the plug-in that comes next still runs as a whole. Intended.
        stopped = stopRequested_;
        if (stopped) break;
        program_.platform.events.DoEvents();
        if (program_.ended()) return;
        AddLogLine(text(503) + ": " + plugIn.PlugTitle() + " <OK>");
        setPanel(1, text(555) + ": " + plugIn.PlugTitle() + " <OK>");
    }
    if (stopped) {
        AddLogHeading(head);
        AddLogLine("***** " + text(554) + " *****");
        setPanel(1, "***** " + text(554) + "*****");  // no blank before the closing stars: intended
    } else if (ticked == 0) {
        setPanel(1, text(558));
        AddLogLine(text(558));
    } else {
        AddLogHeading(head);
        AddLogLine(text(556) + ": " + base::numberText(ticked) + " (" + text(557) + " " +
                   base::numberText(static_cast<std::int64_t>(plugPaths_.size())) + ")");
    }
}

void cleanPlugInsNow(frmMain& main) {
    settings::Program& program = main.program();
    // Not inside a run, which closes this button too.
    if (!main.cmdClean.Enabled || !program.allowsRemoval(settings::Removal::PlugIns)) return;
    const auto options = [&program]() -> settings::frmOptions& { return program.get<settings::frmOptions>(); };
    const FreeSpaceBefore freeBefore = noteFreeSpaceBefore(program, main.diskSizeDrive());
    main.txtLog.ForeColor = forms::kWindowText;
    if (options().chkOpenRecycleBinAsPreview.ticked()) {
        settings::ShellWait(program, kRecycleBinWindow);
        program.display.setTopmost(main, true);
    }
    main.SSTab1.offerOnly(frmMain::kCleaningTab);
    main.stopRequested_ = false;
    main.cmdClean.Enabled = false;
    main.cmdStop.Enabled = true;
    try {
        main.CleanPlugins();
    } catch (const base::RuntimeError&) {
        // The pass ended there; what follows it goes on as if it had come to its end.
    }
    if (program.ended()) return;
    main.setPanel(1, program.LangText(560));
    main.cmdClean.Enabled = true;
    main.cmdStop.Enabled = false;
    if (options().chkPurgeSound.ticked()) program.display.sndPlaySound(options().txtPurgeSound.Text());
    program.display.setTopmost(main, false);
    if (options().chkOpenRecycleBinAsPreview.ticked()) {
        main.toBackground();
        // Without flags, so that the system asks for itself.
        program.platform.shell.SHEmptyRecycleBinA(program.display.windowHandle(main), "", 0);
    }
    // Two signs less in front of the heading than behind a run: intended.
    reportDiskStatistics(program, main.diskSizeDrive(), freeBefore, sectionHead(program.LangText(432)));
}

}  // namespace tidvane::app
