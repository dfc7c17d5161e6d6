// A number taken apart into decimal digits, as texts are made of it.
#pragma once

#include <cstdint>
#include <string>

namespace tidvane::base {

// 0.DIGITS times ten to the power of `point`. No zeros at either end of the digits; zero has none at all.
struct Decimal {
    bool negative = false;
    std::string digits;
    int point = 0;

    // The value, which is finite, at this many significant digits.
    static Decimal fromDouble(double value, int significantDigits);
    // An integer divided by ten to the power of `decimals`.
    static Decimal fromScaled(std::int64_t scaled, int decimals);

    [[nodiscard]] bool isZero() const { return digits.empty(); }
    // Keeps this many digits after the decimal point; halves go away from zero.
    void roundHalfAway(int decimals);
    // The digits before the point, none for a number below 1; and this many after it, filled up with zeros.
    [[nodiscard]] std::string integerPart() const;
    [[nodiscard]] std::string fraction(int decimals) const;
};

// Digits that a text shows of each type.
inline constexpr int kSingleDigits = 7;
inline constexpr int kDoubleDigits = 15;

}  // namespace tidvane::base
