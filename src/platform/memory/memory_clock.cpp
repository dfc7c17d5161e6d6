#include "platform/memory/memory_clock.h"

namespace tidvane::platform {
namespace {

constexpr std::int64_t kDay = 24LL * 3600 * 1000;

}  // namespace

void MemoryClock::setNow(const base::DateTime& moment) {
    day_ = moment;
    day_.hour = day_.minute = day_.second = 0;
    millisecondsOfDay_ = ((moment.hour * 60LL + moment.minute) * 60 + moment.second) * 1000;
}

void MemoryClock::advance(std::int64_t milliseconds) {
    millisecondsOfDay_ += milliseconds;
    while (millisecondsOfDay_ >= kDay) {
        millisecondsOfDay_ -= kDay;
        day_ = base::fromSerial(base::toSerial(day_) + 1);
    }
}

base::DateTime MemoryClock::now() {
    const std::int64_t seconds = millisecondsOfDay_ / 1000;
    base::DateTime moment = day_;
    moment.hour = static_cast<int>(seconds / 3600);
    moment.minute = static_cast<int>(seconds / 60 % 60);
    moment.second = static_cast<int>(seconds % 60);
    return moment;
}

void MemoryClock::Sleep(int milliseconds) {
    ++sleeps;
    if (milliseconds <= 0) return;
    sleptMilliseconds += milliseconds;
    advance(milliseconds);
}

void MemoryEvents::DoEvents() {
    ++pumps;
    const auto [first, last] = actions_.equal_range(pumps);
    std::vector<std::function<void()>> due;
    for (auto one = first; one != last; ++one) due.push_back(one->second);
    actions_.erase(first, last);
    // An action may pump again, or script further ones.
    for (const auto& action : due) action();
    if (everyPump) {
        const std::function<void()> action = everyPump;
        action();
    }
}

void MemoryEvents::onPump(std::uint64_t n, std::function<void()> action) {
    actions_.emplace(pumps + n, std::move(action));
}

}  // namespace tidvane::platform
