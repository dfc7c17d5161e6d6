#include "base/calendar.h"

#include <chrono>

namespace tidvane::base {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

year_month_day calendarDate(int year, int month, int day) {
    return {std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
            std::chrono::day(static_cast<unsigned>(day))};
}

const sys_days kDayZero = calendarDate(1899, 12, 30);

}  // namespace

bool isDate(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return false;
    return calendarDate(year, month, day).ok();
}

int dayOfDate(const DateTime& moment) {
    return static_cast<int>((sys_days(calendarDate(moment.year, moment.month, moment.day)) - kDayZero).count());
}

DateTime dateOfDay(int day) {
    const year_month_day date = kDayZero + std::chrono::days(day);
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

}  // namespace tidvane::base
