// Time, pauses, and the one way in which events enter.
#pragma once

#include "base/date_time.h"

namespace tidvane::platform {

class Clock {
public:
    virtual ~Clock() = default;
    // Local date and time.
    virtual base::DateTime now() = 0;
    // Seconds since local midnight, with fractions.
    virtual double timer() = 0;
    // Blocks; lets nothing in.
    virtual void Sleep(int milliseconds) = 0;
};

class EventPump {
public:
    virtual ~EventPump() = default;
    // Lets waiting events in. Called only at the points where the program says so.
    virtual void DoEvents() = 0;
};

}  // namespace tidvane::platform
