#include "base/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace tidvane::base {

namespace {

void trimZeros(Decimal& number) {
    const std::size_t first = number.digits.find_first_not_of('0');
    if (first == std::string::npos) {
        number.digits.clear();
        number.point = 0;
        return;
    }
    number.digits.erase(0, first);
    number.point -= static_cast<int>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
}

}  // namespace

Decimal Decimal::fromDouble(double value, int significantDigits) {
    std::array<char, 64> buffer{};
    // "-d.dddde+XX", correctly rounded and in no locale.
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific,
                                   significantDigits - 1)
                         .ptr;
    std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    Decimal number;
    number.negative = text.starts_with('-');
    const std::size_t exponentAt = text.find('e');
    for (const char sign : text.substr(0, exponentAt)) {
        if (sign >= '0' && sign <= '9') number.digits += sign;
    }
    text.remove_prefix(exponentAt + (text[exponentAt + 1] == '+' ? 2 : 1));  // from_chars takes no plus
    std::from_chars(text.data(), text.data() + text.size(), number.point);
    ++number.point;  // one digit stands before the point of the scientific form
    trimZeros(number);
    return number;
}

Decimal Decimal::fromScaled(std::int64_t scaled, int decimals) {
    Decimal number;
    number.negative = scaled < 0;
    const auto bits = static_cast<std::uint64_t>(scaled);
    number.digits = std::to_string(number.negative ? 0 - bits : bits);
    number.point = static_cast<int>(number.digits.size()) - decimals;
    trimZeros(number);
    return number;
}

void Decimal::roundHalfAway(int decimals) {
    const int kept = point + decimals;
    if (kept >= static_cast<int>(digits.size())) return;
    if (kept < 0) {
        digits.clear();
        point = 0;
        return;
    }
    const auto keep = static_cast<std::size_t>(kept);
    const bool up = digits[keep] >= '5';
    digits.erase(keep);
    if (up) {
        digits.insert(digits.begin(), '0');  // room for a carry
        ++point;
        std::size_t at = digits.size() - 1;
        while (digits[at] == '9') digits[at--] = '0';
        ++digits[at];
    }
    trimZeros(*this);
}

std::string Decimal::integerPart() const {
    if (point <= 0) return {};
    std::string text = digits.substr(0, static_cast<std::size_t>(point));
    text.append(static_cast<std::size_t>(point) - text.size(), '0');
    return text;
}

std::string Decimal::fraction(int decimals) const {
    const auto wanted = static_cast<std::size_t>(std::max(decimals, 0));
    std::string text(static_cast<std::size_t>(std::clamp(-point, 0, std::max(decimals, 0))), '0');
    if (point < static_cast<int>(digits.size())) text += digits.substr(static_cast<std::size_t>(std::max(point, 0)));
    text.resize(wanted, '0');
    return text;
}

}  // namespace tidvane::base
