#include "base/date_time.h"

namespace tidvane::base {

namespace {

std::string figures(int value, std::size_t fewest) {
    const std::string text = std::to_string(value);
    return text.size() < fewest ? std::string(fewest - text.size(), '0') + text : text;
}

// A run of one letter, such as "MM" or "yyyy"; nothing for a sign that means itself.
std::optional<std::string> field(char letter, std::size_t length, const DateTime& moment, const Locale& locale) {
    const std::size_t digits = length < 2 ? 1 : 2;
    const int twelve = moment.hour % 12 == 0 ? 12 : moment.hour % 12;
    switch (letter) {
        case 'd':
            return figures(moment.day, digits);
        case 'M':
            return figures(moment.month, digits);
        case 'y':
            return length > 2 ? figures(moment.year, 1) : figures(moment.year % 100, digits);
        case 'H':
            return figures(moment.hour, digits);
        case 'h':
            return figures(twelve, digits);
        case 'm':
            return figures(moment.minute, digits);
        case 's':
            return figures(moment.second, digits);
        case 't': {
            const std::string& half = moment.hour < 12 ? locale.am : locale.pm;
            return length < 2 ? half.substr(0, 1) : half;
        }
        case '/':
            return locale.dateSeparator;
        case ':':
            return locale.timeSeparator;
        default:
            return std::nullopt;
    }
}

std::string filled(std::string_view pattern, const DateTime& moment, const Locale& locale) {
    std::string text;
    for (std::size_t at = 0; at < pattern.size();) {
        std::size_t end = pattern.find_first_not_of(pattern[at], at);
        if (end == std::string_view::npos) end = pattern.size();
        if (const auto value = field(pattern[at], end - at, moment, locale)) {
            text += *value;
        } else {
            text += pattern.substr(at, end - at);
        }
        at = end;
    }
    return text;
}

}  // namespace

std::string shortDateText(const DateTime& moment, const Locale& locale) {
    return filled(locale.shortDate, moment, locale);
}

std::string timeText(const DateTime& moment, const Locale& locale) {
    return filled(locale.longTime, moment, locale);
}

std::string dateTimeText(const DateTime& moment, const Locale& locale) {
    const DateTime dayZero;
    const bool midnight = moment.hour == 0 && moment.minute == 0 && moment.second == 0;
    if (moment.year == dayZero.year && moment.month == dayZero.month && moment.day == dayZero.day) {
        return timeText(moment, locale);  // also at midnight: something has to be shown
    }
    if (midnight) return shortDateText(moment, locale);
    return shortDateText(moment, locale) + " " + timeText(moment, locale);
}

}  // namespace tidvane::base
