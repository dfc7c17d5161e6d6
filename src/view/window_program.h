// The program with windows for a display: what an entry point makes once it knows the machine.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frontend/watched_profiles.h"
#include "platform/platform.h"
#include "settings/program.h"
#include "view/view.h"
#include "view/window_shell.h"
#include "view/wx_display.h"

namespace tidvane::view {

// Pauses are for people who read along: before a window is seen there are none, and while one lasts the windows are
// painted, but nothing else gets in.
class PaintingClock final : public platform::Clock {
public:
    PaintingClock(platform::Clock& clock, View& view, const WxDisplay& display)
        : clock_(clock), view_(view), display_(display) {}
    base::DateTime now() override { return clock_.now(); }
    double timer() override { return clock_.timer(); }
    void Sleep(int milliseconds) override;
    // From here on there are none.
    void hurry() { hurries_ = true; }

private:
    platform::Clock& clock_;
    View& view_;
    const WxDisplay& display_;
    bool hurries_ = false;
};

// The points at which the program lets events in.
class WindowPump final : public platform::EventPump {
public:
    WindowPump(platform::EventPump& events, View& view) : events_(events), view_(view) {}
    void DoEvents() override {
        events_.DoEvents();
        view_.letEventsIn();
    }

private:
    platform::EventPump& events_;
    View& view_;
};

// A start of the program by itself is a restart: the new one may only begin once this one has stored everything and let
// go of the machine, which its entry point sees to. Some of what the machine cannot start the desktop has in its place.
class WindowProcesses final : public platform::Processes {
public:
    WindowProcesses(platform::Processes& processes, platform::SystemInfo& system);
    std::unique_ptr<platform::Process> CreateProcessA(const std::string& commandLine, int show) override;
    bool takeInstanceLock() override { return processes_.takeInstanceLock(); }
    void releaseInstanceLock() override { processes_.releaseInstanceLock(); }
    [[nodiscard]] bool restartWanted() const { return restartWanted_; }
    // Asked about what did not start. True: something else was shown for it.
    std::function<bool(const std::string& commandLine)> showInstead;

private:
    platform::Processes& processes_;
    platform::SystemInfo& system_;
    bool restartWanted_ = false;
};

class WindowProgram {
public:
    explicit WindowProgram(const platform::Platform& platform);
    ~WindowProgram();
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;

    settings::Program& program() { return program_; }
    WxDisplay& display() { return display_; }
    View& view() { return view_; }
    WindowShell& shell() { return shell_; }
    // The folders of the user's recycle bins that are there, as paths of the machine.
    std::function<std::vector<std::string>()> recycleBins;
    // Nobody reads along any more: pauses are over at once. May be called at any time.
    void hurry() { clock_.hurry(); }
    // Behind the end: the user wants the program to begin anew.
    [[nodiscard]] bool restartWanted() const { return processes_.restartWanted(); }

    // The start of the program: the load of the main window, which is shown behind it unless the start has hidden it.
    // False: the program is over already (a second instance, a cleaning at the start that ends it).
    bool start();
    // Behind every act of the user, once nothing runs any more.
    std::function<void()> whenQuiet;

private:
    void connectShell();
    bool showInstead(const std::string& commandLine);

    View view_;
    WxDisplay display_;
    PaintingClock clock_;
    WindowPump pump_;
    WindowShell shell_;
    WindowProcesses processes_;
    frontend::WatchedProfiles profiles_;
    settings::Program program_;
};

}  // namespace tidvane::view
