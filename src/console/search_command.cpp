// The search wizard: its pages are filled in and its buttons pressed, its log is the output.
#include <chrono>

#include "base/text.h"
#include "console/apply_settings.h"
#include "console/commands.h"
#include "console/entry_log.h"
#include "console/instance_lock.h"
#include "console/json_report.h"
#include "console/preview_table.h"
#include "console/stop_signal.h"
#include "console/tool_program.h"
#include "frontend/guards.h"
#include "frontend/own_masks.h"
#include "frontend/removed.h"
#include "tools/frmManualSearch.h"

namespace tidvane::console {

namespace {

class Search {
public:
    Search(Session& session, const Options& options)
        : session_(session),
          options_(options),
          pump_(session.platform.events),
          tool_(session, options, pump_),
          before_(session.platform.removed.totals),
          entries_(session.platform.removed, options.details) {
        session_.platform.removed.wantBytes = options.preview || !options.json.empty();
    }

    int run();

private:
    settings::Program& program() { return tool_.program(); }
    int fail(int status, const std::string& sentence) {
        session_.err << sentence << std::endl;
        return status;
    }
    // One sentence; empty: go on.
    std::string whyNot();
    void showNewLog(const std::string& log);
    bool search(tools::frmManualSearch& wizard);
    std::uint64_t freeBytes();
    int finish(int status);

    Session& session_;
    const Options& options_;
    StopPump pump_;
    ToolProgram tool_;
    const platform::RemovalTotals before_;
    EntryLog entries_;
    ReportFile json_;
    Report report_;
    std::size_t shown_ = 0;  // bytes of the wizard's log
    bool stopped_ = false;
};

std::string Search::whyNot() {
    const std::string& mask = options_.search.mask;
    const std::string& folder = options_.search.folder;
    if (!tools::frmManualSearch::isSearchable(mask) || frontend::canMatchNothing(mask)) {
        return "The search takes no mask \"" + mask + "\"; give \"*.\" and an extension, as \"*.tmp\".";
    }
    if (!base::isAbsolutePath(folder) || !program().platform.files.FolderExists(folder)) {
        return "\"" + folder + "\" is no folder of the machine; give --in the full path of one, as \"C:\\Data\".";
    }
    return frontend::whyNotToRun(program());
}

void Search::showNewLog(const std::string& log) {
    if (!options_.quiet && (!options_.preview || options_.showLog) && log.size() > shown_) {
        session_.out << printableLines(log.substr(shown_)) << std::flush;
    }
    shown_ = log.size();
}

std::uint64_t Search::freeBytes() {
    std::uint64_t free = 0;
    std::uint64_t total = 0;
    (void)program().platform.files.GetDiskFreeSpaceExA(options_.search.folder, free, total);
    return free;
}

// False: the wizard asked, and the answer was no.
bool Search::search(tools::frmManualSearch& wizard) {
    wizard.txtLog.Change.connect([this, &wizard] { showNewLog(wizard.txtLog.Text()); });
    pump_.click = [this, &wizard] {
        if (!wizard.cmdStop.Enabled) return false;
        wizard.cmdStop.press();
        stopped_ = true;
        return true;
    };
    wizard.txtSearchMask.setText(options_.search.mask);
    wizard.tmrManualSearch.fire();
    wizard.cmdNext.press();
    wizard.chkScanAllFixedDrives.Value = 0;
    wizard.txtFolderScanPath.setText(options_.search.folder);
    // Nothing goes: there is nothing to ask about.
    wizard.asksBeforeSearch = !options_.preview;
    using Watch = std::chrono::steady_clock;
    const Watch::time_point begin = Watch::now();
    wizard.cmdSearch.press();
    report_.elapsed = std::chrono::duration<double>(Watch::now() - begin).count();
    pump_.click = nullptr;
    return wizard.frmWizardStepFinal.Visible;
}

int Search::finish(int status) {
    const settings::ProductVersion& version = program().version;
    report_.version =
        std::to_string(version.major) + "." + std::to_string(version.minor) + "." + std::to_string(version.revision);
    report_.machine = session_.machine;
    report_.method = methodName(program().selectedKillMethod());
    report_.search = {options_.search.mask, options_.search.folder};
    report_.preview = options_.preview;
    report_.details = options_.details;
    report_.stopped = stopped_;
    report_.total = frontend::removedSince(before_, session_.platform.removed);
    report_.freeAfter = freeBytes();
    report_.otherEntries = entries_.takeAll();
    std::string error;
    if (!json_.write(report_, error)) status = fail(exit_status::MachineUnusable, error);
    if (options_.preview && !options_.quiet) writePreviewTable(session_.out, report_);
    return status;
}

int Search::run() {
    std::set<std::string> changed;
    std::string error;
    if (!applySettings(program(), options_, changed, error)) return fail(exit_status::Usage, error);
    if (const std::string refusal = whyNot(); !refusal.empty()) return fail(exit_status::Usage, refusal);
    if (!json_.open(options_.json, error)) return fail(exit_status::Usage, error);

    StopSignal stop;
    report_.freeBefore = freeBytes();
    auto& wizard = program().get<tools::frmManualSearch>();
    if (!search(wizard))
        return fail(exit_status::Usage, "Nothing was removed; agree to the question with --answer yes.");
    if (StopSignal::pending()) {
        session_.err << "The search was over before Ctrl-C could take effect." << std::endl;
    }
    return finish(stopped_ ? exit_status::Stopped : exit_status::Done);
}

}  // namespace

int searchCommand(Session& session, const Options& options) {
    InstanceLock lock(session);
    if (!lock.take()) return exit_status::MachineUnusable;
    return Search(session, options).run();
}

}  // namespace tidvane::console
