#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "base/numbers.h"

namespace tidvane::base {

namespace {

// Halfway from the largest single to the next power of two: from here on a double rounds to infinity.
constexpr double kSingleLimit = 0x1.ffffffp127;
constexpr int kExponentLimit = 99999;  // larger ones are as good as this

struct Scanned {
    double value = 0;
    // Written with &H or &O: the bits are then taken as they are by a type that they fit.
    bool bitPattern = false;
    std::uint32_t bits = 0;
};

bool isDigit(char sign) {
    return sign >= '0' && sign <= '9';
}

// Reads one text from left to right. Every step answers whether the text can still be a number.
class Scanner {
public:
    Scanner(std::string_view text, const Locale& locale) : rest_(text), locale_(locale) {}

    std::optional<Scanned> scan() {
        leadingSigns();
        if (startsWith('&')) return bitPattern();
        if (!digits() || !exponent()) return std::nullopt;
        trailingSigns();
        // An opened parenthesis need not be closed once the number is negative by its sign: so the system reads it.
        if (!rest_.empty() || (parenthesis_ && !negative_)) return std::nullopt;
        const std::optional<double> magnitude = value();
        if (!magnitude) return std::nullopt;
        return Scanned{negative_ ? -*magnitude : *magnitude};
    }

private:
    [[nodiscard]] bool startsWith(char sign) const { return !rest_.empty() && rest_.front() == sign; }
    bool take(std::string_view sign) {
        if (sign.empty() || !rest_.starts_with(sign)) return false;
        rest_.remove_prefix(sign.size());
        return true;
    }
    bool takeSpace() {
        if (take("\xC2\xA0")) return true;  // no-break space
        if (rest_.empty() || (rest_.front() != ' ' && (rest_.front() < '\t' || rest_.front() > '\r'))) return false;
        rest_.remove_prefix(1);
        return true;
    }

    void leadingSigns() {
        for (;;) {
            if (takeSpace()) continue;
            if (!signed_ && (startsWith('+') || startsWith('-'))) {
                signed_ = true;
                negative_ = startsWith('-');
                rest_.remove_prefix(1);
            } else if (!currency_ && take(locale_.currency)) {
                currency_ = true;
            } else if (!parenthesis_ && take("(")) {
                parenthesis_ = true;
            } else {
                return;
            }
        }
    }

    // Grouping signs count for nothing wherever they stand behind the first digit or point, in the fraction as well.
    bool digits() {
        if (startsWith(locale_.thousands)) return false;
        bool any = false;
        bool point = false;
        for (; !rest_.empty(); rest_.remove_prefix(1)) {
            const char sign = rest_.front();
            if (isDigit(sign)) {
                any = true;
                number_ += sign;
            } else if (sign == locale_.decimal && !point) {
                point = true;
                number_ += '.';
            } else if (sign != locale_.thousands) {
                break;
            }
        }
        return any;
    }

    bool exponent() {
        if (rest_.empty() || std::string_view("EeDd").find(rest_.front()) == std::string_view::npos) return true;
        if (currency_) return false;  // "$1E9" is no number, "1E9$" is one
        rest_.remove_prefix(1);
        const bool negative = startsWith('-');
        if (negative || startsWith('+')) rest_.remove_prefix(1);
        if (rest_.empty() || !isDigit(rest_.front())) return false;
        for (; !rest_.empty() && isDigit(rest_.front()); rest_.remove_prefix(1)) {
            exponent_ = std::min(exponent_ * 10 + (rest_.front() - '0'), kExponentLimit);
        }
        if (negative) exponent_ = -exponent_;
        return true;
    }

    void trailingSigns() {
        const bool signedBefore = signed_;
        for (;;) {
            if (takeSpace()) continue;
            const bool sign = !signedBefore && (startsWith('-') || startsWith('+'));
            if (sign || startsWith(locale_.thousands)) {
                negative_ = negative_ || startsWith('-');
                rest_.remove_prefix(1);
            } else if (parenthesis_ && take(")")) {
                parenthesis_ = false;
                negative_ = true;
            } else if (!take(locale_.currency)) {
                return;
            }
        }
    }

    [[nodiscard]] std::optional<double> value() const {
        const std::string text = number_ + "e" + std::to_string(exponent_);
        double read = 0;
        if (std::from_chars(text.data(), text.data() + text.size(), read).ec == std::errc::result_out_of_range) {
            // Too small is zero, too large is no number. Tell them apart by the place of the first digit.
            const std::size_t first = number_.find_first_not_of("0.");
            const std::size_t point = std::min(number_.find('.'), number_.size());
            const auto place = static_cast<long>(point) - static_cast<long>(first);
            if (place + exponent_ > 0) return std::nullopt;
            return 0.0;
        }
        // The system's limit excludes the largest number itself.
        if (read >= std::numeric_limits<double>::max()) return std::nullopt;
        return read;
    }

    // A sign before the prefix is read and counts for nothing.
    std::optional<Scanned> bitPattern() {
        rest_.remove_prefix(1);
        const bool octal = startsWith('O') || startsWith('o');
        if (!octal && !startsWith('H') && !startsWith('h')) return std::nullopt;
        rest_.remove_prefix(1);
        std::uint32_t bits = 0;
        const char* const end = rest_.data() + rest_.size();
        const auto read = std::from_chars(rest_.data(), end, bits, octal ? 8 : 16);
        if (read.ec != std::errc()) return std::nullopt;
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        while (takeSpace()) {
        }
        if (!rest_.empty()) return std::nullopt;
        return Scanned{static_cast<double>(static_cast<std::int32_t>(bits)), true, bits};
    }

    std::string_view rest_;
    const Locale& locale_;
    bool signed_ = false;
    bool negative_ = false;
    bool currency_ = false;
    bool parenthesis_ = false;
    std::string number_;
    int exponent_ = 0;
};

template <typename Integer>
std::optional<Integer> toInteger(std::string_view text, const Locale& locale) {
    const std::optional<Scanned> scanned = Scanner(text, locale).scan();
    if (!scanned) return std::nullopt;
    if (scanned->bitPattern && scanned->bits <= std::numeric_limits<std::make_unsigned_t<Integer>>::max()) {
        return static_cast<Integer>(scanned->bits);
    }
    const double rounded = roundHalfEven(scanned->value);
    if (rounded < std::numeric_limits<Integer>::min() || rounded > std::numeric_limits<Integer>::max()) {
        return std::nullopt;
    }
    return static_cast<Integer>(rounded);
}

}  // namespace

std::optional<double> parseNumber(std::string_view text, const Locale& locale) {
    const std::optional<Scanned> scanned = Scanner(text, locale).scan();
    if (!scanned) return std::nullopt;
    return scanned->value;
}

bool isNumeric(std::string_view text, const Locale& locale) {
    return parseNumber(text, locale).has_value();
}

std::optional<std::int16_t> toInt16(std::string_view text, const Locale& locale) {
    return toInteger<std::int16_t>(text, locale);
}

std::optional<std::int32_t> toInt32(std::string_view text, const Locale& locale) {
    return toInteger<std::int32_t>(text, locale);
}

std::optional<float> toSingle(std::string_view text, const Locale& locale) {
    const std::optional<double> value = parseNumber(text, locale);
    if (!value || std::fabs(*value) >= kSingleLimit) return std::nullopt;
    const auto single = static_cast<float>(*value);
    if (single == 0.0F && *value != 0.0)
        return std::nullopt;  // too small is out of range as well, in the system's terms
    return single;
}

std::optional<Currency> toCurrency(std::string_view text, const Locale& locale) {
    const std::optional<Scanned> scanned = Scanner(text, locale).scan();
    if (!scanned || scanned->bitPattern) return std::nullopt;  // "&H1F" is no amount
    return Currency::fromDouble(scanned->value);
}

}  // namespace tidvane::base
