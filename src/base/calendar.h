// The Gregorian calendar, carried back before its time, and the count of days behind serial dates.
#pragma once

#include "base/date_time.h"

namespace tidvane::base {

bool isDate(int year, int month, int day);  // years 100 to 9999, as the system's dates
// Days since 1899-12-30; the time of day is 0 and does not matter.
int dayOfDate(const DateTime& moment);
DateTime dateOfDay(int day);

}  // namespace tidvane::base
