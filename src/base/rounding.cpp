#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "base/numbers.h"

namespace tidvane::base {

namespace {

// Not nearbyint: it follows the rounding mode of the thread.
double halfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1.0;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

}  // namespace

std::optional<Currency> Currency::fromDouble(double value) {
    // 2^63 / 10000 and a little more: what fits is settled below.
    if (!(std::fabs(value) < 1e15)) return std::nullopt;
    std::array<char, 64> buffer{};
    // The decimal form at 4 decimals is rounded from the exact value; multiplying would round a first time.
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 4).ptr;
    // The digits without the point are the scaled integer.
    char* const point = end - 5;
    for (char* at = point; at + 1 < end; ++at) *at = *(at + 1);
    Currency currency;
    const auto read = std::from_chars(buffer.data(), end - 1, currency.scaled);
    if (read.ec != std::errc()) return std::nullopt;
    return currency;
}

double roundHalfEven(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double scaled = value * scale;
    // From 2^53 on there is no fraction left to round.
    if (!(std::fabs(scaled) < 9007199254740992.0)) return value;
    return halfEven(scaled) / scale;
}

float roundHalfEven(float value, int decimals) {
    return static_cast<float>(roundHalfEven(static_cast<double>(value), decimals));
}

}  // namespace tidvane::base
