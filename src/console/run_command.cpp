#include <chrono>
#include <fstream>
#include <memory>
#include <set>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "console/apply_settings.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/guards.h"
#include "console/json_report.h"
#include "console/stop_signal.h"
#include "console/unsaved_profiles.h"
#include "settings/modLanguage.h"

namespace tidvane::console {

namespace {

// Applies the settings to a copy of the windows that nobody sees, so that whatever cannot be set is found before the
// start of the program has changed anything.
bool rehearse(const platform::Platform& platform, const Options& options, std::string& error) {
    if (!options.method && options.set.empty() && options.tick.empty() && options.untick.empty()) return true;
    std::ostream nowhere(nullptr);
    ConsoleDisplay unseen(nowhere, options.answerYes);
    settings::Program program(platform, unseen);
    app::offerWindowsWithoutMain(program);
    settings::LoadAllLanguageFiles(program);
    std::set<std::string> changed;
    return applySettings(program, options, changed, error);
}

class Run {
public:
    Run(Session& session, const Options& options)
        : session_(session),
          options_(options),
          unsaved_(session.platform.profiles),
          pump_(session.platform.events),
          display_(session.err, options.answerYes),
          program_(withOwn(session.platform, options.save ? session.platform.profiles : unsaved_, pump_), display_) {
        session_.warn = [this](const std::string& line) { display_.warn(line); };
        session_.platform.removed.wantBytes = !options.json.empty();
        app::offerAllWindows(program_);
        // Made here, so that the log is listened to before the start writes its first line.
        program_.windows.offer(app::frmMain::kName, [this] {
            auto main = std::make_unique<app::frmMain>(program_);
            if (!options_.quiet) main->log().appended.connect([this](const std::string& text) { show(text); });
            return main;
        });
    }
    ~Run() { session_.warn = nullptr; }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    int run();

private:
    void show(const std::string& text) { session_.out << withHostLineEnds(text) << std::flush; }
    int fail(int status, const std::string& sentence) {
        session_.err << sentence << std::endl;
        return status;
    }
    bool clickStop();
    void clean(app::frmMain& main, std::ostream* json);
    void end();
    std::uint64_t freeBytes(const app::frmMain& main);

    Session& session_;
    const Options& options_;
    UnsavedProfiles unsaved_;
    StopPump pump_;
    ConsoleDisplay display_;
    settings::Program program_;
    Report report_;
};

bool Run::clickStop() {
    auto* main = program_.windows.ifLoaded<app::frmMain>();
    if (main == nullptr || !main->cmdStop.Enabled) return false;
    main->cmdStop.press();
    return true;
}

std::uint64_t Run::freeBytes(const app::frmMain& main) {
    std::uint64_t free = 0;
    std::uint64_t total = 0;
    (void)program_.platform.files.GetDiskFreeSpaceExA(main.diskSizeDrive(), free, total);
    return free;
}

void Run::clean(app::frmMain& main, std::ostream* json) {
    report_.version = main.versionText();
    report_.machine = session_.machine;
    report_.method = methodName(program_.selectedKillMethod());
    report_.freeBefore = freeBytes(main);
    bool recording = true;
    main.stepDone.connect([this, &recording](const app::StepResult& result) {
        if (recording) report_.steps.push_back(reportedStep(program_, result));
    });
    using Watch = std::chrono::steady_clock;
    const Watch::time_point start = Watch::now();
    main.cmdClean_Click();
    recording = false;
    report_.elapsed = std::chrono::duration<double>(Watch::now() - start).count();
    report_.stopped = main.StopRequested();
    report_.freeAfter = freeBytes(main);
    if (json != nullptr) writeReport(*json, report_);
}

// What the close box does, with the program's own end behind it: the cleaning at the end, the log that is to go.
void Run::end() {
    if (!display_.ended()) {
        if (auto* main = program_.windows.ifLoaded<app::frmMain>()) program_.windows.unload(*main);
    }
    program_.platform.processes.releaseInstanceLock();
}

int Run::run() {
    std::string error;
    if (!rehearse(program_.platform, options_, error)) return fail(exit_status::Usage, error);

    StopSignal stop;
    pump_.click = [this] { return clickStop(); };
    auto& main = program_.get<app::frmMain>();
    if (main.secondInstance()) {
        return fail(exit_status::MachineUnusable,
                    "Tidvane is already running on this machine; wait until it has ended, then start again.");
    }
    std::set<std::string> changed;
    if (!applySettings(program_, options_, changed, error)) return fail(exit_status::Usage, error);
    // What OK does for the task list, without storing anything.
    main.rebuildTaskRows();
    main.clearTaskStatuses();
    main.resetTaskIcons();
    if (const std::string refusal = whyNotToRun(program_); !refusal.empty()) return fail(exit_status::Usage, refusal);
    warnOfMissingProtection(program_);
    std::ofstream json;
    if (!options_.json.empty()) {
        json.open(options_.json);
        if (!json) {
            return fail(exit_status::Usage, "\"" + options_.json + "\" cannot be written; nothing was removed.");
        }
    }
    if (options_.save) saveWindows(program_, changed);
    if (StopSignal::pending()) return fail(exit_status::Stopped, "Stopped before anything was removed.");

    clean(main, options_.json.empty() ? nullptr : &json);
    json.flush();
    if (!json) session_.err << "\"" << options_.json << "\" could not be written whole." << std::endl;
    if (StopSignal::pending()) {
        session_.err << "The run was over before Ctrl-C could take effect: no task of it lets a stop in." << std::endl;
    }
    end();
    if (!session_.commit(error)) return fail(exit_status::MachineUnusable, error);
    return report_.stopped ? exit_status::Stopped : exit_status::Done;
}

}  // namespace

platform::Platform withOwn(const platform::Platform& platform, platform::ProfileFiles& profiles,
                           platform::EventPump& events) {
    return {platform.files,     profiles,         platform.registry,      platform.shell,
            platform.processes, platform.session, platform.environment,   platform.browserCache,
            platform.system,    platform.network, platform.restorePoints, platform.scriptHost,
            platform.clock,     events,           platform.removed};
}

int runCommand(Session& session, const Options& options) {
    return Run(session, options).run();
}

}  // namespace tidvane::console
