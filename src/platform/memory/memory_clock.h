// A clock that moves only when it is told to, or slept on.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/clock.h"

namespace tidvane::platform {

class MemoryClock final : public Clock {
public:
    void setNow(const base::DateTime& moment);
    // The clock as it stands, to the millisecond; runs over midnight into the next day.
    void advance(std::int64_t milliseconds);

    base::DateTime now() override;
    double timer() override { return static_cast<double>(millisecondsOfDay_) / 1000.0; }
    void Sleep(int milliseconds) override;

    // What was slept in all, and how often.
    std::int64_t sleptMilliseconds = 0;
    std::uint64_t sleeps = 0;

private:
    base::DateTime day_{2009, 11, 3, 0, 0, 0};
    std::int64_t millisecondsOfDay_ = 12LL * 3600 * 1000;
};

class MemoryEvents final : public EventPump {
public:
    void DoEvents() override;

    // Runs an action in the n-th pump from now on (1: the next one).
    void onPump(std::uint64_t n, std::function<void()> action);
    // Runs at every pump, where it is set.
    std::function<void()> everyPump;
    std::uint64_t pumps = 0;

private:
    std::multimap<std::uint64_t, std::function<void()>> actions_;
};

}  // namespace tidvane::platform
