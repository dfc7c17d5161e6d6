#include <chrono>
#include <map>
#include <memory>
#include <set>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "console/apply_settings.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/entry_log.h"
#include "console/instance_lock.h"
#include "console/json_report.h"
#include "console/no_pauses.h"
#include "console/plug_in_choice.h"
#include "console/preview_table.h"
#include "console/stop_signal.h"
#include "console/stored_windows.h"
#include "console/unsaved_profiles.h"
#include "console/watched_profiles.h"
#include "frontend/confirmations.h"
#include "frontend/guards.h"
#include "frontend/own_services.h"
#include "frontend/removed.h"
#include "settings/frmOptions.h"
#include "settings/sentences.h"

namespace tidvane::console {

namespace {

class Run {
public:
    Run(Session& session, const Options& options)
        : session_(session),
          options_(options),
          unsaved_(session.platform.profiles),
          watched_(session.platform.profiles),
          noPauses_(session.platform.clock),
          pump_(session.platform.events),
          display_(session.err, options.answerYes, options.preview),
          program_(frontend::withOwn(session.platform,
                                     {&profilesFor(options), nullptr, nullptr, &clockFor(options), &pump_}),
                   display_),
          before_(session.platform.removed.totals),
          entries_(session.platform.removed, options.details) {
        session_.warn = [this](const std::string& line) { display_.warn(settings::inLanguageOf(program_, line)); };
        session_.platform.removed.wantBytes = options.preview || !options.json.empty();
        app::offerAllWindows(program_);
        // Made here, so that log and steps are listened to before the start writes its first line and perhaps cleans.
        program_.windows.offer(app::frmMain::kName, [this] {
            auto main = std::make_unique<app::frmMain>(program_);
            if (!options_.quiet && (!options_.preview || options_.showLog))
                main->log().appended.connect([this](const std::string& text) { show(text); });
            main->stepDone.connect([this](const app::StepResult& result) { note(result); });
            return main;
        });
    }
    ~Run() { session_.warn = nullptr; }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    int run();

private:
    // Whose steps the report holds: those of the run that was asked for, or, where the start cleans and ends the
    // program, those of the start.
    enum class Noting { Start, Own, Nothing };

    platform::ProfileFiles& profilesFor(const Options& options) {
        if (options.save) return watched_;
        return unsaved_;
    }
    platform::Clock& clockFor(const Options& options) {
        if (options.preview) return noPauses_;
        return session_.platform.clock;
    }
    void show(const std::string& text) { session_.out << printableLines(text) << std::flush; }
    int fail(int status, const std::string& sentence) {
        session_.err << sentence << std::endl;
        return status;
    }
    platform::RemovalTotals removed() const { return frontend::removedSince(before_, session_.platform.removed); }
    bool clickStop();
    void note(const app::StepResult& result);
    int rehearse();
    int allow(settings::Program& program, const std::string& why);
    void tickPlugIns();
    void start();
    void clean();
    void end();
    int refuse(int status, const std::string& sentence);
    int stopped();
    int finish(int status);
    std::uint64_t freeBytes(const std::string& drive);

    Session& session_;
    const Options& options_;
    UnsavedProfiles unsaved_;
    WatchedProfiles watched_;
    NoPauses noPauses_;
    StopPump pump_;
    ConsoleDisplay display_;
    settings::Program program_;
    const platform::RemovalTotals before_;
    EntryLog entries_;
    // Set by the start. A window that was unloaded keeps its memory, so that this one can be asked to the end.
    app::frmMain* main_ = nullptr;
    Noting noting_ = Noting::Start;
    Report report_;
    ReportFile json_;
};

bool Run::clickStop() {
    auto* main = program_.windows.ifLoaded<app::frmMain>();
    if (main == nullptr || !main->cmdStop.Enabled) return false;
    main->cmdStop.press();
    return true;
}

std::uint64_t Run::freeBytes(const std::string& drive) {
    std::uint64_t free = 0;
    std::uint64_t total = 0;
    (void)program_.platform.files.GetDiskFreeSpaceExA(drive, free, total);
    return free;
}

void Run::note(const app::StepResult& result) {
    if (noting_ == Noting::Nothing) return;
    ReportedStep& step = report_.steps.emplace_back(reportedStep(program_, result));
    step.entries = entries_.takeLast(result.removed);
    // The end of the program may clean once more, inside this very run or behind it: that is not the run asked for.
    if (noting_ == Noting::Own && result.task->step == app::kSteps) noting_ = Noting::Nothing;
}

// Whether the settings that the program holds now may clean. `why` stands behind a refusal.
int Run::allow(settings::Program& program, const std::string& why) {
    std::string refusal = frontend::whyNotToRun(program);
    // A preview is the way to see what such masks would take.
    if (refusal.empty() && !options_.force && !options_.preview) refusal = frontend::refusalOfMasks(program);
    if (!refusal.empty()) return fail(exit_status::Usage, refusal + why);
    if (!options_.preview && !frontend::agrees(display_, frontend::questionOfChangedLines(program))) {
        return fail(
            exit_status::Usage,
            "Nothing was removed; mend the entries with the command \"lists\", or agree with --answer yes." + why);
    }
    return exit_status::Done;
}

// Goes through the settings with windows that nobody sees, so that whatever cannot be set or honoured is found before
// the start of the program has changed anything: the start itself may clean.
int Run::rehearse() {
    std::ostream nowhere(nullptr);
    ConsoleDisplay unseen(nowhere, options_.answerYes);
    settings::Program program(frontend::withOwn(session_.platform, {.profiles = &unsaved_}), unseen);
    app::offerWindowsWithoutMain(program);
    loadLanguages(program);
    const std::vector<std::string> plugIns =
        options_.plugins.empty() ? std::vector<std::string>{} : plugInNames(program);
    for (const std::string& name : options_.plugins) {
        if (findName(plugIns, name) == nullptr) return fail(exit_status::Usage, noSuchPlugIn(plugIns, name));
    }
    if (program.get<settings::frmOptions>().chkStartClean.ticked()) {
        const int status = allow(program, " The stored settings clean at the start, before the command line counts.");
        if (status != exit_status::Done) return status;
    }
    std::set<std::string> changed;
    std::string error;
    if (!applySettings(program, options_, changed, error)) return fail(exit_status::Usage, error);
    if (const int status = allow(program, {}); status != exit_status::Done) return status;
    frontend::warnOfMissingProtection(program, display_);
    frontend::warnOfMissingTexts(program, display_);
    return exit_status::Done;
}

// Ticks them for this run; the program reads the stored ticks anew at its next start.
void Run::tickPlugIns() {
    const std::vector<std::string> rows = main_->LstPlugs.rows();
    for (const std::string& name : options_.plugins) {
        if (const std::string* found = findName(rows, name)) {
            main_->LstPlugs.setSelected(static_cast<int>(found - rows.data()), true);
        }
    }
}

void Run::start() {
    std::map<std::string, std::uint64_t> free;
    for (const platform::Drive& drive : program_.platform.files.Drives()) {
        const std::string name{drive.letter, ':'};
        free[name] = freeBytes(name);
    }
    using Watch = std::chrono::steady_clock;
    const Watch::time_point begin = Watch::now();
    main_ = &program_.get<app::frmMain>();
    report_.elapsed = std::chrono::duration<double>(Watch::now() - begin).count();
    report_.version = main_->versionText();
    report_.machine = session_.machine;
    report_.method = methodName(program_.selectedKillMethod());
    report_.freeBefore = free[main_->diskSizeDrive()];
}

void Run::clean() {
    // What a cleaning at the start took is no part of this run.
    for (ReportedStep& step : report_.steps) {
        report_.otherEntries.insert(report_.otherEntries.end(), step.entries.begin(), step.entries.end());
    }
    const auto since = entries_.takeAll();
    report_.otherEntries.insert(report_.otherEntries.end(), since.begin(), since.end());
    report_.steps.clear();
    report_.method = methodName(program_.selectedKillMethod());
    report_.freeBefore = freeBytes(main_->diskSizeDrive());
    noting_ = Noting::Own;
    using Watch = std::chrono::steady_clock;
    const Watch::time_point begin = Watch::now();
    main_->cmdClean_Click();
    noting_ = Noting::Nothing;
    report_.elapsed = std::chrono::duration<double>(Watch::now() - begin).count();
}

// What the close box does, with the program's own end behind it: the cleaning at the end, the log that is to go.
void Run::end() {
    if (display_.ended()) return;
    if (auto* main = program_.windows.ifLoaded<app::frmMain>()) program_.windows.unload(*main);
}

// Behind the start, which may have cleaned: what it did is kept.
int Run::refuse(int status, const std::string& sentence) {
    const bool some = !options_.preview && frontend::removedSomething(removed());
    session_.err << sentence << (some ? " The cleaning at the start had removed something already." : "") << std::endl;
    return finish(status);
}

int Run::stopped() {
    const bool some = frontend::removedSomething(removed());
    return refuse(exit_status::Stopped, options_.preview ? "Stopped before the preview."
                                        : some           ? "Stopped before the run that was asked for."
                                                         : "Stopped before anything was removed.");
}

// Stores the registry, writes the report of what is really so, and finds the status: `status` where all goes well.
int Run::finish(int status) {
    report_.freeAfter = freeBytes(main_->diskSizeDrive());
    report_.preview = options_.preview;
    report_.details = options_.details;
    report_.stopped = status == exit_status::Stopped;
    report_.total = removed();
    const auto since = entries_.takeAll();
    report_.otherEntries.insert(report_.otherEntries.end(), since.begin(), since.end());
    std::string error;
    if (!options_.preview) {
        report_.registryStored = session_.commit(error);
        if (!report_.registryStored) status = fail(exit_status::MachineUnusable, error);
    }
    if (!json_.write(report_, error)) status = fail(exit_status::MachineUnusable, error);
    if (options_.preview && !options_.quiet) writePreviewTable(session_.out, report_);
    if (watched_.failed()) {
        // The sentence that the status stands for; behind another one it is a further warning.
        if (status == exit_status::MachineUnusable) {
            display_.warn(kNotStored);
        } else {
            status = fail(exit_status::MachineUnusable, kNotStored);
        }
    }
    return status;
}

int Run::run() {
    if (const int status = rehearse(); status != exit_status::Done) return status;
    std::string error;
    if (!json_.open(options_.json, error)) return fail(exit_status::Usage, error);

    StopSignal stop;
    pump_.click = [this] { return clickStop(); };
    start();
    if (display_.ended()) {
        display_.warn(
            "The stored settings clean at the start and end the program behind it; the command line changed nothing.");
        return finish(main_->StopRequested() ? exit_status::Stopped : exit_status::Done);
    }
    if (main_->StopRequested()) return stopped();
    std::set<std::string> changed;
    if (!applySettings(program_, options_, changed, error)) return refuse(exit_status::Usage, error);
    tickPlugIns();
    // What OK does for the task list, without storing anything.
    main_->rebuildTaskRows();
    main_->clearTaskStatuses();
    main_->resetTaskIcons();
    if (const std::string refusal = frontend::whyNotToRun(program_); !refusal.empty()) {
        return refuse(exit_status::Usage, refusal);
    }
    if (options_.save) saveWindows(program_, changed);
    if (StopSignal::pending()) return stopped();

    clean();
    end();
    if (StopSignal::pending()) {
        session_.err << "The run was over before Ctrl-C could take effect: no task of it lets a stop in." << std::endl;
    }
    return finish(main_->StopRequested() ? exit_status::Stopped : exit_status::Done);
}

}  // namespace

int runCommand(Session& session, const Options& options) {
    // Before the settings are looked at: the program's own start would take it only behind most of its work.
    InstanceLock lock(session);
    if (!lock.take()) return exit_status::MachineUnusable;
    return Run(session, options).run();
}

}  // namespace tidvane::console
