#include "view/window_program.h"

#include <algorithm>

#include "app/all_windows.h"
#include "app/frmMain.h"

namespace tidvane::view {

namespace {

// The services with the windows' own clock and pump in the place of the platform's.
platform::Platform withOwn(const platform::Platform& platform, platform::Clock& clock, platform::EventPump& events) {
    return {platform.files,
            platform.profiles,
            platform.registry,
            platform.shell,
            platform.processes,
            platform.session,
            platform.environment,
            platform.browserCache,
            platform.system,
            platform.network,
            platform.restorePoints,
            platform.scriptHost,
            clock,
            events,
            platform.removed};
}

constexpr int kLongestStill = 33;  // milliseconds without a painting

}  // namespace

void PaintingClock::Sleep(int milliseconds) {
    if (!display_.shownOnce()) return;
    while (milliseconds > 0) {
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
      program_(withOwn(platform, clock_, pump_), display_) {
    app::offerAllWindows(program_);
    display_.setWindows(program_.windows);
    view_.whenQuiet = [this] {
        program_.windows.sweep();
        if (whenQuiet) whenQuiet();
    };
}

WindowProgram::~WindowProgram() = default;

bool WindowProgram::start() {
    view_.act([this] {
        auto& main = program_.get<app::frmMain>();
        if (program_.ended() || main.secondInstance()) return;
        if (!display_.wasHidden(main)) display_.Show(main, nullptr, false);
    });
    return !program_.ended();
}

}  // namespace tidvane::view
