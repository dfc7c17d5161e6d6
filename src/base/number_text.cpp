#include <cmath>

#include "base/decimal.h"
#include "base/numbers.h"

namespace tidvane::base {

namespace {

// Below this many zeros behind the point a number is written out, beyond it in the exponent form.
constexpr int kMostLeadingZeros = 3;

std::string written(const Decimal& number, int fractionDigits, const Locale& locale) {
    std::string text = number.negative ? "-" : "";
    const std::string whole = number.integerPart();
    text += whole.empty() ? "0" : whole;
    if (fractionDigits > 0) text += locale.decimal + number.fraction(fractionDigits);
    return text;
}

// Written with a point in every locale: intended, the system does not translate this form.
std::string exponentForm(const Decimal& number) {
    std::string text = number.negative ? "-" : "";
    text += number.digits[0];
    if (number.digits.size() > 1) text += "." + number.digits.substr(1);
    const int exponent = number.point - 1;
    const std::string figures = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (figures.size() < 2 ? "0" : "") + figures;
}

std::string realText(double value, int significantDigits, const Locale& locale) {
    if (std::isnan(value)) return "-1.#IND";
    if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
    const Decimal number = Decimal::fromDouble(value, significantDigits);
    if (number.isZero()) return "0";  // a negative zero loses its sign
    if (number.point > significantDigits || number.point < -kMostLeadingZeros) return exponentForm(number);
    return written(number, static_cast<int>(number.digits.size()) - number.point, locale);
}

}  // namespace

std::string numberText(double value, const Locale& locale) {
    return realText(value, kDoubleDigits, locale);
}

std::string numberText(float value, const Locale& locale) {
    return realText(static_cast<double>(value), kSingleDigits, locale);
}

std::string numberText(Currency value, const Locale& locale) {
    const Decimal number = Decimal::fromScaled(value.scaled, 4);
    return written(number, static_cast<int>(number.digits.size()) - number.point, locale);
}

std::string numberText(std::int64_t value) {
    return std::to_string(value);
}

}  // namespace tidvane::base
