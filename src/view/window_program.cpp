#include "view/window_program.h"

#include <algorithm>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "app/plug_in_files.h"
#include "app/recycle_bin_window.h"
#include "base/text.h"
#include "frontend/own_services.h"
#include "plugins/frmPlugsInfo.h"
#include "settings/frmStarter.h"
#include "settings/sentences.h"
#include "view/tray/model_tray.h"

namespace tidvane::view {

namespace {

constexpr int kLongestStill = 33;  // milliseconds without a painting

// The new program runs on its own.
class Started final : public platform::Process {
public:
    bool wait(int /*milliseconds*/) override { return true; }
};

}  // namespace

WindowProcesses::WindowProcesses(platform::Processes& processes, platform::SystemInfo& system)
    : processes_(processes), system_(system) {}

std::unique_ptr<platform::Process> WindowProcesses::CreateProcessA(const std::string& commandLine, int show) {
    const std::string own = base::withBackslash(system_.ApplicationPath()) + system_.ExecutableName() + ".exe";
    if (!base::equalNoCase(commandLine, own)) {
        auto process = processes_.CreateProcessA(commandLine, show);
        if (process == nullptr && showInstead && showInstead(commandLine)) process = std::make_unique<Started>();
        return process;
    }
    restartWanted_ = true;
    return std::make_unique<Started>();
}

void PaintingClock::Sleep(int milliseconds) {
    if (!display_.shownOnce()) return;
    while (milliseconds > 0 && !hurries_) {
        const int part = std::min(milliseconds, kLongestStill);
        clock_.Sleep(part);
        view_.breathe();
        milliseconds -= part;
    }
}

WindowProgram::WindowProgram(const platform::Platform& platform)
    : display_(view_),
      clock_(platform.clock, view_, display_),
      pump_(platform.events, view_),
      shell_(platform.shell),
      processes_(platform.processes, platform.system),
      profiles_(platform.profiles),
      program_(frontend::withOwn(platform, {&profiles_, &shell_, &processes_, &clock_, &pump_}), display_) {
    app::offerAllWindows(program_);
    display_.setWindows(program_.windows);
    connectTray(display_, program_);
    connectShell();
    view_.whenQuiet = [this] {
        program_.windows.sweep();
        if (!program_.ended()) frontend::warnOfUnstored(program_, profiles_);
        if (whenQuiet) whenQuiet();
    };
}

WindowProgram::~WindowProgram() = default;

void WindowProgram::connectShell() {
    using namespace forms::msgbox;
    shell_.plugInFolder = app::plugInFolder(program_);
    shell_.onNotShown = [this](const std::string& target) {
        display_.warn(settings::sentence(program_, settings::Sentence::NothingShows, {target}));
    };
    shell_.agreesToEmpty = [this] {
        return program_.MsgBox(settings::sentence(program_, settings::Sentence::EmptyRecycleBin),
                               YesNo | Question | DefaultButton2, "Tidvane") == Yes;
    };
    processes_.showInstead = [this](const std::string& commandLine) { return showInstead(commandLine); };
}

// The recycle bin's window is the folder in which it lies; whoever writes a plug-in finds the others in theirs.
bool WindowProgram::showInstead(const std::string& commandLine) {
    if (commandLine == app::kRecycleBinWindow) {
        bool any = false;
        for (const std::string& bin : recycleBins ? recycleBins() : std::vector<std::string>()) {
            any = shell_.showFolder(bin) || any;
        }
        if (!any) display_.warn(settings::sentence(program_, settings::Sentence::RecycleBinIsEmpty));
        return true;
    }
    const auto* info = program_.windows.ifLoaded<plugins::frmPlugsInfo>();
    if (info == nullptr || commandLine != info->txtPlugEditor_g.Text()) return false;
    if (!shell_.showFolder(shell_.plugInFolder)) {
        display_.warn(settings::sentence(program_, settings::Sentence::ProgramCannotStart, {commandLine}));
    }
    return true;
}

bool WindowProgram::start() {
    view_.act([this] {
        auto& main = program_.get<app::frmMain>();
        if (main.startsHidden()) return;
        display_.Show(main, nullptr, false);
        // The start page of a first start stands in front of it, and has the keyboard.
        FormWindow* starter = display_.ifOpen(settings::frmStarter::kName);
        if (starter != nullptr && starter->isShown()) starter->show(true);
    });
    return !program_.ended();
}

}  // namespace tidvane::view
