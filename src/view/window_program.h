// The program with windows for a display: what an entry point makes once it knows the machine.
#pragma once

#include <functional>
#include <memory>

#include "platform/platform.h"
#include "settings/program.h"
#include "view/view.h"
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

private:
    platform::Clock& clock_;
    View& view_;
    const WxDisplay& display_;
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

class WindowProgram {
public:
    explicit WindowProgram(const platform::Platform& platform);
    ~WindowProgram();
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;

    settings::Program& program() { return program_; }
    WxDisplay& display() { return display_; }
    View& view() { return view_; }

    // The start of the program: the load of the main window, which is shown behind it unless the start has hidden it.
    // False: the program is over already (a second instance, a cleaning at the start that ends it).
    bool start();
    // Behind every act of the user, once nothing runs any more.
    std::function<void()> whenQuiet;

private:
    View view_;
    WxDisplay display_;
    PaintingClock clock_;
    WindowPump pump_;
    settings::Program program_;
};

}  // namespace tidvane::view
