// Ctrl-C as a click on the stop button.
#pragma once

#include <functional>

#include "platform/clock.h"

namespace tidvane::console {

// While one of these lives, the first Ctrl-C is noted and the second one ends the process at once. A pipe that is
// closed at the far end does not end it: a run is never cut off because nobody reads its log any more.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    [[nodiscard]] static bool pending();
    static void clear();
    // What Ctrl-C does; for tests.
    static void raise();
};

// Lets a noted Ctrl-C in at the points where events get in, beside whatever the machine lets in there.
class StopPump final : public platform::EventPump {
public:
    explicit StopPump(platform::EventPump& events) : events_(events) {}
    void DoEvents() override;

    // Answers false while there is nothing to click; the click then waits.
    std::function<bool()> click;

private:
    platform::EventPump& events_;
};

}  // namespace tidvane::console
