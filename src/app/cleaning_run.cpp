#include "app/cleaning_run.h"

#include <array>
#include <chrono>

#include "app/after_run.h"
#include "app/decorations.h"
#include "app/disk_statistics.h"
#include "app/frmMain.h"
#include "app/last_run.h"
#include "app/log_file.h"
#include "app/recycle_bin_window.h"
#include "base/date_time.h"
#include "base/numbers.h"
#include "base/runtime_error.h"
#include "forms/system_colours.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmOptions.h"
#include "settings/sentences.h"
#include "settings/shell_wait.h"

namespace tidvane::app {

namespace {

// The literal of the progress lines. Neither the number of steps nor a count: intended.
constexpr const char* kOfSteps = "/64]";
constexpr float kLongRun = 60;  // seconds

// Entries of the tray menu that are closed while a run is under way.
constexpr std::array kTrayEntries{"mnuCleanSystray", "mnuCleanModeSystray", "mnuOptionsSystray", "mnuWidget",
                                  "mnuExitSystray"};

std::string rows(const frmMain& main) {
    return std::to_string(main.lstTasks.Count());
}

}  // namespace

std::string elapsedText(settings::Program& program, float seconds) {
    if (seconds > kLongRun) {
        // Rounded half to even before the integer division, so that 119.6 seconds read 2,00.
        const auto whole = static_cast<long>(base::roundHalfEven(static_cast<double>(seconds)));
        const std::string hundredths =
            base::formatNumber(static_cast<double>(whole % 60) / 0.6, "00", program.locale());
        return std::to_string(whole / 60) + "," + hundredths + " " + program.LangText(584) + " ";
    }
    return base::numberText(base::roundHalfEven(seconds, 3), program.locale()) + " " + program.LangText(583);
}

CleaningRun::CleaningRun(frmMain& main) : main_(main), program_(main.program()) {}

settings::frmOptions& CleaningRun::options() {
    return program_.get<settings::frmOptions>();
}

std::string CleaningRun::now() const {
    return base::dateTimeText(program_.platform.clock.now(), program_.locale());
}

void CleaningRun::run() {
    prepare();
    announce();
    walk();
    // Whatever let events in may have ended the program under this run.
    if (program_.ended()) return;
    enableEntryPoints(true);
    program_.display.setPointer(forms::pointer::Default);
    summarise();
    if (finish()) main_.cmdClean.Value = false;
}

void CleaningRun::enableEntryPoints(bool enabled) {
    main_.cmdStop.Enabled = !enabled;
    for (controls::isButton* button :
         {&main_.cmdClean, &main_.cmdClearLog, &main_.cmdCopyLog, &main_.cmdSaveLog, &main_.cmdViewLog}) {
        button->Enabled = enabled;
    }
    for (const char* entry : kTrayEntries) main_.menu(entry).Enabled = enabled;
}

void CleaningRun::prepare() {
    main_.cmdClean.Value = true;
    if (options().chkCreateRestorePoint.ticked()) main_.menu("mnuCreateRestorePoint").Click();
    main_.txtLog.ForeColor = forms::kWindowText;
    main_.SSTab1.offerOnly(frmMain::kCleaningTab);
    main_.resetTaskIcons();
    main_.stopRequested_ = false;
    program_.removedForGood = 0;
    enableEntryPoints(false);
    freeBefore_ = noteFreeSpaceBefore(program_, main_.diskSizeDrive());
    startTime_ = program_.platform.clock.timer();
    program_.display.setPointer(forms::pointer::Hourglass);
    warnWhenNothingIsTicked();
    main_.clearTaskStatuses();
    main_.log_.empty();
    if (options().chkOpenRecycleBinAsPreview.ticked()) openRecycleBinAsPreview();
}

void CleaningRun::warnWhenNothingIsTicked() {
    if (main_.lstTasks.Count() > 0 || main_.LstPlugs.SelCount() > 0) return;
    // Told, and then the run goes on: this stops nothing.
    program_.MsgBox(program_.LangText(618), forms::msgbox::Exclamation, program_.LangText(619));
    program_.MsgBox(program_.LangText(620), forms::msgbox::Information, program_.LangText(621));
}

void CleaningRun::openRecycleBinAsPreview() {
    settings::ShellWait(program_, kRecycleBinWindow);
    program_.display.setTopmost(main_, true);
}

void CleaningRun::announce() {
    main_.AddLogLine(program_.LangText(491) + " [" + rows(main_) + kOfSteps + " " + program_.LangText(492) + " " +
                     now());
    main_.setPanel(1, program_.LangText(493) + "...[" + rows(main_) + kOfSteps);
    const int method = program_.selectedKillMethod();
    if (method >= 0) main_.AddLogLine(program_.LangText(730) + ": " + program_.LangText(732 + method));
}

const forms::ListItem* CleaningRun::rowOf(const tasks::CleaningTask& task, bool ticked) const {
    if (task.rowGate.control == nullptr) return nullptr;
    if (task.group == tasks::Group::Search) return ticked ? main_.lstTasks.item(1) : nullptr;
    return main_.lstTasks.item(tasks::taskName(program_, task));
}

void CleaningRun::walk() {
    using Watch = std::chrono::steady_clock;
    for (const tasks::CleaningTask& task : taskCatalogue()) {
        if (program_.ended()) return;
        const platform::RemovalTotals before = program_.platform.removed.totals;
        const Watch::time_point start = Watch::now();
        StepResult result;
        result.task = &task;
        // The last step has no box of its own: the ticks of its list are its gate.
        result.ticked = task.group == tasks::Group::PlugIns ? main_.LstPlugs.SelCount() > 0
                                                            : tasks::gateValue(program_, task.gate) == 1;
        try {
            task.worker(program_, task);
        } catch (const base::RuntimeError&) {
            // Workers skip what fails; an error that leaves one ends that step and no more.
        }
        result.milliseconds = std::chrono::duration<double, std::milli>(Watch::now() - start).count();
        result.removed = program_.platform.removed.totals;
        result.removed -= before;
        if (const forms::ListItem* row = rowOf(task, result.ticked)) {
            result.status = row->subItem("Status");
            result.icon = row->smallIcon;
        }
        main_.stepDone(result);
    }
}

void CleaningRun::summarise() {
    const auto elapsed = static_cast<float>(program_.platform.clock.timer() - startTime_);
    const std::string time = " (" + elapsedText(program_, elapsed) + ")";
    if (main_.stopRequested_) {
        main_.AddLogHeading(summaryHead(program_.LangText(490)));
        main_.AddLogHeading(program_.LangText(622) + time);
    } else {
        main_.AddLogHeading(summaryHead(program_.LangText(128)));
        main_.AddLogLine(program_.LangText(605) + " " + rows(main_) + " (" + program_.LangText(557) + " 64)");
        main_.AddLogHeading(summaryHead(program_.LangText(490)));
        main_.AddLogHeading(program_.LangText(623) + time);
    }
    main_.setPanel(1, program_.LangText(624) + ": " + now());
}

bool CleaningRun::finish() {
    reportDiskStatistics(program_, main_.diskSizeDrive(), freeBefore_, diskHead(program_.LangText(432)));
    writeLastRun(program_);
    main_.tmrCleanButton.Enabled = false;
    RunMemoryTrim(main_);
    RunRegistryAddIn(main_);
    if (program_.ended()) return false;
    SaveAutoLog(main_);
    if (options().chkMinimizeSystray.ticked()) {
        main_.hideInTray(" - Tidvane - " + program_.LangText(566));
    }
    if (options().chkPurgeSound.ticked()) program_.display.sndPlaySound(options().txtPurgeSound.Text());
    program_.display.setTopmost(main_, false);
    if (options().chkOpenRecycleBinAsPreview.ticked()) {
        main_.toBackground();
        // Without flags, so that the system asks for itself.
        program_.platform.shell.SHEmptyRecycleBinA(program_.display.windowHandle(main_), "", 0);
    }
    if (program_.removedForGood > 0) {
        program_.display.warn(settings::sentence(program_, settings::Sentence::RecycleBinRefused,
                                                 {std::to_string(program_.removedForGood)}));
    }
    if (!runCustomApplication()) return false;
    if (options().chkCloseAfterClean.ticked()) {
        main_.AddLogLine(program_.LangText(578));
        main_.cmdClean.Value = false;
        // Where this run is itself part of the unload (cleaning at the end), the unload goes on and ends the program.
        if (program_.windows.unload(main_)) program_.end();
        return false;
    }
    return true;
}

bool CleaningRun::runCustomApplication() {
    auto& extended = program_.get<settings::frmMoreToConfigure>();
    if (!extended.chkEnableCustomApp.ticked() || !extended.chkRunCustomAppAfterTidvane.ticked()) return true;
    // After a stop the run ends right here and the button stays pressed: intended.
    if (main_.stopRequested_) return false;
    program_.display.setPointer(forms::pointer::Arrow);
    const std::string path = extended.txtCustomAppPath.Text();
    const std::string parameters = extended.txtCustomAppCommandlineParameter.Text();
    const std::string line = program_.LangText(535) + ": " + path + " " + program_.LangText(990) + " " + parameters;
    main_.AddLogHeading(line);
    settings::ShellExecuteWait(program_, "open", path, parameters, "", 1);
    program_.display.setPointer(forms::pointer::Default);
    main_.AddLogHeading(line + " <OK>");
    return true;
}

}  // namespace tidvane::app
