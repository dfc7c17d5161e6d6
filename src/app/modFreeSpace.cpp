#include "app/modFreeSpace.h"

#include "base/numbers.h"

namespace tidvane::app {

namespace {
struct Unit {
    double bytes;
    const char* name;
};
constexpr double kKilo = 1024.0;
constexpr Unit kUnits[] = {{kKilo, "Bytes"}, {kKilo * kKilo, "KB"}, {kKilo * kKilo * kKilo, "MB"}};
}  // namespace

std::string spaceText(std::uint64_t bytes, const base::Locale& locale, std::string* unit) {
    const auto count = static_cast<double>(bytes);
    double value = count / (kKilo * kKilo * kKilo);
    const char* name = "GB";
    for (const Unit& candidate : kUnits) {
        if (count / candidate.bytes < 1) {
            value = count / (candidate.bytes / kKilo);
            name = candidate.name;
            break;
        }
    }
    if (unit != nullptr) *unit = name;
    const base::Currency rounded = base::Currency::fromDouble(value).value_or(base::Currency{});
    const std::string text = base::numberText(rounded, locale);
    // Cut to two decimals only where the text has a point: with a decimal comma all four stay, as intended.
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return text;
    const auto cut = base::parseNumber(text.substr(0, point + 3), locale);
    if (!cut) return text;
    return base::numberText(base::Currency::fromDouble(*cut).value_or(rounded), locale);
}

namespace {
void measure(settings::Program& program, const std::string& drive, std::uint64_t& freeBytes, std::uint64_t& total) {
    freeBytes = total = 0;
    if (!ok(program.platform.files.GetDiskFreeSpaceExA(drive, freeBytes, total))) freeBytes = total = 0;
}
}  // namespace

std::string GetFreeSpaceText(settings::Program& program, const std::string& drive, std::string* unit) {
    std::uint64_t freeBytes = 0;
    std::uint64_t total = 0;
    measure(program, drive, freeBytes, total);
    return spaceText(freeBytes, program.locale(), unit);
}

std::string GetTotalSpaceText(settings::Program& program, const std::string& drive, std::string* unit) {
    std::uint64_t freeBytes = 0;
    std::uint64_t total = 0;
    measure(program, drive, freeBytes, total);
    return spaceText(total, program.locale(), unit);
}

}  // namespace tidvane::app
