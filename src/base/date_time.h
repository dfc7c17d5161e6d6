// A calendar date with a time of day, and its conversions. No time zone: who makes one says which clock it is.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/locale.h"

namespace tidvane::base {

struct DateTime {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;
};

// Serial dates: days since 1899-12-30, the time as the fraction of a day, rounded to whole seconds. A serial before the
// year 100 or behind the year 9999 becomes the nearest moment within.
double toSerial(const DateTime& moment);
DateTime fromSerial(double serial);
// Calendar days from one date to another; the times of day do not matter.
int dayDifference(const DateTime& from, const DateTime& to);

// From 100 nanosecond steps since 1601-01-01; the fraction of a second is cut.
DateTime fromFileTime(std::uint64_t fileTime);
std::uint64_t toFileTime(const DateTime& moment);

// The short date alone, the time with seconds alone, in the locale's patterns.
std::string shortDateText(const DateTime& moment, const Locale& locale);
std::string timeText(const DateTime& moment, const Locale& locale);
// Date, blank, time. At midnight exactly the time is left out, and on day 0 the date, as Windows shows a date value.
std::string dateTimeText(const DateTime& moment, const Locale& locale);

// Reads a date, a time or both, by the locale's order of day and month where the text leaves it open.
// Names of months are not read. A year of one or two figures lies in 1930 to 2029. A text without a year ("25/12")
// takes `currentYear`; without one it cannot be read. A time alone is on day 0.
std::optional<DateTime> parseDateTime(std::string_view text, const Locale& locale, int currentYear = 0);

}  // namespace tidvane::base
