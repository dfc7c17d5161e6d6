#include "base/date_time.h"

#include <algorithm>
#include <cmath>

#include "base/calendar.h"

namespace tidvane::base {

namespace {

constexpr int kSecondsOfDay = 86400;
constexpr std::uint64_t kStepsOfSecond = 10'000'000;  // 100 nanoseconds each
// 1601-01-01, where file times start, as days from 1899-12-30.
constexpr int kFileTimeDay = -109205;
// 0100-01-01 and 9999-12-31: what a serial can stand for.
constexpr int kFirstDay = -657434;
constexpr int kLastDay = 2958465;

DateTime at(int serialDay, int secondOfDay) {
    DateTime moment = dateOfDay(serialDay);
    moment.hour = secondOfDay / 3600;
    moment.minute = secondOfDay / 60 % 60;
    moment.second = secondOfDay % 60;
    return moment;
}

int secondOfDay(const DateTime& moment) {
    return (moment.hour * 60 + moment.minute) * 60 + moment.second;
}

}  // namespace

double toSerial(const DateTime& moment) {
    const int day = dayOfDate(moment);
    const double time = static_cast<double>(secondOfDay(moment)) / kSecondsOfDay;
    // Before day 0 the fraction counts away from zero, so that it is still the time of that day.
    return day < 0 ? day - time : day + time;
}

DateTime fromSerial(double serial) {
    if (!(serial > kFirstDay)) return at(kFirstDay, 0);
    if (serial >= kLastDay + 1) return at(kLastDay, kSecondsOfDay - 1);
    double day = std::trunc(serial);
    int seconds = static_cast<int>(std::lround(std::fabs(serial - day) * kSecondsOfDay));
    if (seconds == kSecondsOfDay) {
        seconds = 0;
        day += 1;
    }
    return at(static_cast<int>(day), seconds);
}

int dayDifference(const DateTime& from, const DateTime& to) {
    return dayOfDate(to) - dayOfDate(from);
}

DateTime fromFileTime(std::uint64_t fileTime) {
    const std::uint64_t seconds = fileTime / kStepsOfSecond;
    const int day = std::min(kFileTimeDay + static_cast<int>(seconds / kSecondsOfDay), kLastDay);
    return at(day, static_cast<int>(seconds % kSecondsOfDay));
}

std::uint64_t toFileTime(const DateTime& moment) {
    const std::int64_t days = static_cast<std::int64_t>(dayOfDate(moment)) - kFileTimeDay;
    if (days < 0) return 0;
    return static_cast<std::uint64_t>(days * kSecondsOfDay + secondOfDay(moment)) * kStepsOfSecond;
}

}  // namespace tidvane::base
