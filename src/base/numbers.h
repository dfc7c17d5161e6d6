// Numbers as the system's texts show and read them. Every function takes its locale: nothing depends on the process.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/locale.h"

namespace tidvane::base {

// A fixed-point number with 4 decimals, held as the integer scaled by 10000.
struct Currency {
    std::int64_t scaled = 0;
    // Half to even at the fourth decimal; nothing outside the range.
    static std::optional<Currency> fromDouble(double value);
    [[nodiscard]] double toDouble() const { return static_cast<double>(scaled) / 10000.0; }
    bool operator==(const Currency&) const = default;
};

// The plain number-to-text conversion: no grouping, no trailing zeros, "0.5" with its leading zero in a text made of a
// number, up to 7 (float) or 15 (double) significant digits, then the exponent form "1E+20".
std::string numberText(double value, const Locale& locale);
std::string numberText(float value, const Locale& locale);
std::string numberText(Currency value, const Locale& locale);
std::string numberText(std::int64_t value);

// Text to number by the locale's separators: grouping signs, a currency sign, parentheses, exponent, &H and &O are read.
// Nothing when any part of the text cannot be read, and for an empty text.
std::optional<double> parseNumber(std::string_view text, const Locale& locale);
bool isNumeric(std::string_view text, const Locale& locale);
// The same, rounded half to even, into 16 or 32 bits; nothing when it does not fit.
std::optional<std::int16_t> toInt16(std::string_view text, const Locale& locale);
std::optional<std::int32_t> toInt32(std::string_view text, const Locale& locale);
std::optional<float> toSingle(std::string_view text, const Locale& locale);
std::optional<Currency> toCurrency(std::string_view text, const Locale& locale);  // &H and &O are not read

// The leading number of a text: blanks, tabs and line feeds are skipped anywhere, only "." is a decimal point, &H and &O
// start hexadecimal and octal, and reading stops at the first sign that cannot belong. Nothing read gives 0.
double val(std::string_view text);

// Half to even.
double roundHalfEven(double value, int decimals = 0);
// Single precision, as Round of a single gives it.
float roundHalfEven(float value, int decimals);

// The number through a pattern of 0, #, decimal point, grouping comma, percent, quoted text and sections (";"). Patterns
// are written with "." and ","; the text has the locale's separators. Rounds half away from zero.
std::string formatNumber(double value, std::string_view pattern, const Locale& locale);
// The double has 15 significant digits at most, a single 7. An empty pattern, and "General Number", is numberText.
std::string formatNumber(Currency value, std::string_view pattern, const Locale& locale);
std::string formatSingle(float value, std::string_view pattern, const Locale& locale);

}  // namespace tidvane::base
