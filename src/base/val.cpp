#include <charconv>
#include <cmath>

#include "base/numbers.h"

namespace tidvane::base {

namespace {

bool isDigit(char sign) {
    return sign >= '0' && sign <= '9';
}

// &HFFFF is -1 and &H10000 is 65536: up to 16 bits make a signed 16 bit number, up to 32 a signed 32 bit one. A "&" at
// the end asks for 32 bits at once.
double bitPattern(std::string_view digits, int base) {
    std::uint32_t bits = 0;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, bits, base);
    if (read.ec != std::errc()) return 0;
    const bool wide = read.ptr != end && *read.ptr == '&';
    if (bits <= 0xFFFF && !wide) return static_cast<std::int16_t>(bits);
    return static_cast<std::int32_t>(bits);
}

}  // namespace

double val(std::string_view text) {
    std::string dense;
    for (const char sign : text) {
        if (sign != ' ' && sign != '\t' && sign != '\n') dense += sign;
    }
    std::string_view rest = dense;
    if (rest.starts_with("&H") || rest.starts_with("&h")) return bitPattern(rest.substr(2), 16);
    if (rest.starts_with("&O") || rest.starts_with("&o")) return bitPattern(rest.substr(2), 8);

    std::string number;
    std::size_t at = 0;
    if (at < rest.size() && (rest[at] == '-' || rest[at] == '+')) number = rest[at++] == '-' ? "-" : "";
    bool point = false;
    for (; at < rest.size() && (isDigit(rest[at]) || (rest[at] == '.' && !point)); ++at) {
        point = point || rest[at] == '.';
        number += rest[at];
    }
    if (at < rest.size() && std::string_view("EeDd").find(rest[at]) != std::string_view::npos) {
        std::size_t figures = at + 1;
        const bool isSigned = figures < rest.size() && (rest[figures] == '-' || rest[figures] == '+');
        if (isSigned) ++figures;
        if (figures < rest.size() && isDigit(rest[figures])) {
            number += isSigned && rest[figures - 1] == '-' ? "e-" : "e";
            while (figures < rest.size() && isDigit(rest[figures])) number += rest[figures++];
        }
    }
    double value = 0;  // nothing that can be read
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    // Out of range without an exponent, or with one that is not negative: too large. It must not pass for 0.
    const bool tooSmall = number.find("e-") != std::string::npos ||
                          number.find_first_of("123456789.") == std::string::npos ||
                          number.substr(0, number.find('.')).find_first_of("123456789") == std::string::npos;
    if (tooSmall) return 0;
    return number.starts_with('-') ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

}  // namespace tidvane::base
