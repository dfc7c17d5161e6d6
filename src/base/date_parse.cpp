#include <array>
#include <vector>

#include "base/calendar.h"

namespace tidvane::base {

namespace {

// Years of one or two figures: 29 is 2029, 30 is 1930.
constexpr int kFirstYearOf1900 = 30;
constexpr int kAnyLeapYear = 2000;

struct Figures {
    int value = 0;
    int count = 0;  // digits
};

int fullYear(const Figures& year) {
    if (year.count > 2) return year.value;
    return year.value + (year.value < kFirstYearOf1900 ? 2000 : 1900);
}

bool isDigit(char sign) {
    return sign >= '0' && sign <= '9';
}
bool isSpace(char sign) {
    return sign == ' ' || (sign >= '\t' && sign <= '\r');
}

bool startsWithLetters(std::string_view text, std::string_view letters) {
    if (letters.empty() || text.size() < letters.size()) return false;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if ((text[i] & ~0x20) != (letters[i] & ~0x20)) return false;
    }
    return true;
}

class DateReader {
public:
    DateReader(std::string_view text, const Locale& locale, int currentYear)
        : rest_(text), locale_(locale), currentYear_(currentYear) {}

    std::optional<DateTime> read() {
        skipSpace();
        if (rest_.empty()) return std::nullopt;
        while (!rest_.empty()) {
            if (!element()) return std::nullopt;
        }
        if (separatorOpen_) return std::nullopt;  // ends in one
        if (date_.empty()) return hasTime_ ? std::optional(result_) : std::nullopt;
        if (!settleDate()) return std::nullopt;
        return result_;
    }

private:
    void skipSpace() {
        while (!rest_.empty() && isSpace(rest_.front())) rest_.remove_prefix(1);
    }
    // A full stop belongs to the time unless it is the locale's date separator.
    [[nodiscard]] bool isTimeSeparator(char sign) const {
        return sign == ':' || (sign == '.' && locale_.dateSeparator != ".");
    }
    [[nodiscard]] bool isDateSeparator(char sign) const {
        return sign == '/' || sign == '-' || (sign == '.' && locale_.dateSeparator == ".");
    }

    // A number of the date, a time, or a separator; with the blanks behind it.
    bool element() {
        const char sign = rest_.front();
        if (isDigit(sign)) {
            const auto number = figures();
            if (!number) return false;
            skipSpace();
            const std::optional<bool> halfOfDay = takeHalf();
            if (halfOfDay || (!rest_.empty() && isTimeSeparator(rest_.front()))) return time(*number, halfOfDay);
            if (dateEnded_) return false;
            separatorOpen_ = false;
            date_.push_back(*number);
            return date_.size() <= 3;
        }
        if (sign == ',' || isDateSeparator(sign)) {
            if (date_.empty() || dateEnded_) return false;
            separatorOpen_ = sign != ',';
            rest_.remove_prefix(1);
            skipSpace();
            return true;
        }
        return false;
    }

    std::optional<Figures> figures() {
        Figures number;
        for (; !rest_.empty() && isDigit(rest_.front()); rest_.remove_prefix(1)) {
            number.value = number.value * 10 + (rest_.front() - '0');
            if (++number.count > 4) return std::nullopt;  // no part of a date is longer
        }
        return number;
    }

    // True in the afternoon, false before noon, nothing without such a text.
    std::optional<bool> takeHalf() {
        const std::array<std::pair<std::string_view, bool>, 4> texts = {
            {{locale_.am, false}, {locale_.pm, true}, {"AM", false}, {"PM", true}}};
        for (const auto& [text, afternoon] : texts) {
            if (!startsWithLetters(rest_, text)) continue;
            rest_.remove_prefix(text.size());
            skipSpace();
            return afternoon;
        }
        return std::nullopt;
    }

    bool time(const Figures& hour, std::optional<bool> afternoon) {
        if (hasTime_ || separatorOpen_) return false;
        std::array<int, 3> parts = {hour.value, 0, 0};
        std::size_t count = 1;
        while (!afternoon && count < 3 && !rest_.empty() && isTimeSeparator(rest_.front())) {
            rest_.remove_prefix(1);
            skipSpace();
            const auto number = figures();
            if (!number || number->count == 0) return false;
            parts[count++] = number->value;
            skipSpace();
            afternoon = takeHalf();
        }
        if (afternoon && *afternoon && parts[0] < 12) parts[0] += 12;
        if (afternoon && !*afternoon && parts[0] == 12) parts[0] = 0;
        if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59) return false;
        result_.hour = parts[0];
        result_.minute = parts[1];
        result_.second = parts[2];
        hasTime_ = true;
        dateEnded_ = !date_.empty();
        return true;
    }

    bool take(int year, const Figures& month, const Figures& day) {
        if (!isDate(year, month.value, day.value)) return false;
        result_.year = year;
        result_.month = month.value;
        result_.day = day.value;
        return true;
    }

    // The locale's order first, then whatever order makes a date.
    bool settleDate() {
        if (date_.size() < 2) return false;
        const Figures& first = date_[0];
        const Figures& second = date_[1];
        if (date_.size() == 2) {
            // "25/12" is a day without its year, not December 2025.
            if (currentYear_ == 0 && dayAndMonth(kAnyLeapYear, first, second)) return false;
            return dayAndMonth(currentYear_, first, second) || monthAndYear(first, second);
        }
        const Figures& third = date_[2];
        if (first.count > 2 || locale_.yearFirst) {
            if (take(fullYear(first), second, third) || take(fullYear(first), third, second)) return true;
        }
        return dayAndMonth(fullYear(third), first, second) || take(fullYear(first), second, third);
    }

    bool dayAndMonth(int year, const Figures& first, const Figures& second) {
        if (locale_.dayBeforeMonth) return take(year, second, first) || take(year, first, second);
        return take(year, first, second) || take(year, second, first);
    }

    bool monthAndYear(const Figures& first, const Figures& second) {
        const Figures firstDay{1, 1};
        return take(fullYear(second), first, firstDay) || take(fullYear(first), second, firstDay);
    }

    std::string_view rest_;
    const Locale& locale_;
    int currentYear_;
    DateTime result_;
    std::vector<Figures> date_;
    bool hasTime_ = false;
    bool dateEnded_ = false;  // a time came behind the date
    bool separatorOpen_ = false;
};

}  // namespace

std::optional<DateTime> parseDateTime(std::string_view text, const Locale& locale, int currentYear) {
    return DateReader(text, locale, currentYear).read();
}

}  // namespace tidvane::base
