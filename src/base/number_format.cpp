#include <cmath>
#include <vector>

#include "base/decimal.h"
#include "base/numbers.h"

namespace tidvane::base {

namespace {

constexpr std::string_view kGeneralNumber = "General Number";

enum class Part { Zero, Place, Point, Literal };

struct Token {
    Part part;
    char sign = '\0';  // of a literal
};

// One of the up to three sections of a pattern: for positive numbers, for negative ones, for zero.
struct Section {
    std::vector<Token> tokens;
    bool grouping = false;
    int thousandsDropped = 0;  // commas at the end of the integer part
    int percents = 0;
    int integerPlaces = 0;
    int fewestInteger = 0;  // digits that are always shown
    int fractionPlaces = 0;
    int fewestFraction = 0;

    [[nodiscard]] bool hasPlaces() const { return integerPlaces + fractionPlaces > 0; }
};

void addPlace(Section& section, bool zero, bool behindPoint) {
    section.tokens.push_back({zero ? Part::Zero : Part::Place});
    if (behindPoint) {
        ++section.fractionPlaces;
        if (zero) section.fewestFraction = section.fractionPlaces;
        return;
    }
    ++section.integerPlaces;
    if (zero || section.fewestInteger > 0) ++section.fewestInteger;
}

// Sections are read one after the other; a semicolon that is quoted separates nothing.
std::vector<Section> readPattern(std::string_view pattern) {
    std::vector<Section> sections(1);
    bool point = false;
    int commas = 0;  // seen since the last place of the integer part
    const auto endInteger = [&] {
        if (!point) sections.back().thousandsDropped = commas;
        commas = 0;
    };
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        Section& section = sections.back();
        const char sign = pattern[at];
        if (sign == '0' || sign == '#') {
            if (commas > 0) section.grouping = true;
            commas = 0;
            addPlace(section, sign == '0', point);
        } else if (sign == '.' && !point) {
            endInteger();
            point = true;
            section.tokens.push_back({Part::Point});
        } else if (sign == ',') {
            if (!point && section.integerPlaces > 0) ++commas;
        } else if (sign == ';') {
            endInteger();
            sections.emplace_back();
            point = false;
        } else if (sign == '"') {
            while (++at < pattern.size() && pattern[at] != '"') {
                section.tokens.push_back({Part::Literal, pattern[at]});
            }
        } else if (sign == '\\' && at + 1 < pattern.size()) {
            section.tokens.push_back({Part::Literal, pattern[++at]});
        } else {
            if (sign == '%') ++section.percents;
            section.tokens.push_back({Part::Literal, sign});
        }
    }
    endInteger();
    return sections;
}

// Puts the digits on the places of a section.
class Writer {
public:
    Writer(const Section& section, Decimal number, bool showSign, const Locale& locale)
        : section_(section), locale_(locale) {
        if (!number.isZero()) number.point += 2 * section.percents - 3 * section.thousandsDropped;
        number.roundHalfAway(section.fractionPlaces);
        integer_ = number.integerPart();
        const auto fewest = static_cast<std::size_t>(section.fewestInteger);
        if (integer_.size() < fewest) integer_.insert(0, fewest - integer_.size(), '0');
        fraction_ = number.fraction(section.fractionPlaces);
        while (fraction_.size() > static_cast<std::size_t>(section.fewestFraction) && fraction_.back() == '0') {
            fraction_.pop_back();
        }
        // The sign stays where all digits are rounded away: "-0.00" is what the system shows.
        showSign_ = showSign && number.negative && section.hasPlaces();
    }

    std::string write() {
        std::size_t integerPlace = 0;
        std::size_t fractionPlace = 0;
        bool point = false;
        for (const Token& token : section_.tokens) {
            if (token.part == Part::Literal) {
                text_ += token.sign;
            } else if (token.part == Part::Point) {
                if (section_.integerPlaces == 0) startNumber();
                point = true;
                text_ += locale_.decimal;
            } else if (point) {
                if (fractionPlace < fraction_.size()) text_ += fraction_[fractionPlace];
                ++fractionPlace;
            } else {
                integerAt(integerPlace++);
            }
        }
        return text_;
    }

private:
    // The sign, and the digits that have no place of their own.
    void startNumber() {
        if (showSign_) text_ += '-';
        const auto places = static_cast<std::size_t>(section_.integerPlaces);
        while (integer_.size() - written_ > places) nextInteger();
    }
    void integerAt(std::size_t place) {
        if (place == 0) startNumber();
        // Digits are set to the right: the first places stay empty where there are too few of them.
        if (static_cast<std::size_t>(section_.integerPlaces) - place <= integer_.size() - written_) nextInteger();
    }
    void nextInteger() {
        text_ += integer_[written_++];
        const std::size_t left = integer_.size() - written_;
        if (section_.grouping && left > 0 && left % 3 == 0) text_ += locale_.thousands;
    }

    const Section& section_;
    const Locale& locale_;
    std::string integer_;
    std::string fraction_;
    std::size_t written_ = 0;
    bool showSign_ = false;
    std::string text_;
};

std::string formatDecimal(const Decimal& number, std::string_view pattern, const Locale& locale) {
    const std::vector<Section> sections = readPattern(pattern);
    const auto given = [&](std::size_t index) { return index < sections.size() && !sections[index].tokens.empty(); };
    std::size_t index = 0;
    if (number.isZero()) {
        if (given(2)) index = 2;
    } else if (number.negative && given(1)) {
        index = 1;
    }
    // A section of its own for negative numbers writes its own sign.
    return Writer(sections[index], number, index == 0, locale).write();
}

bool isGeneral(std::string_view pattern) {
    return pattern.empty() || pattern == kGeneralNumber;
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern, const Locale& locale) {
    if (isGeneral(pattern) || !std::isfinite(value)) return numberText(value, locale);
    return formatDecimal(Decimal::fromDouble(value, kDoubleDigits), pattern, locale);
}

std::string formatNumber(Currency value, std::string_view pattern, const Locale& locale) {
    if (isGeneral(pattern)) return numberText(value, locale);
    return formatDecimal(Decimal::fromScaled(value.scaled, 4), pattern, locale);
}

std::string formatSingle(float value, std::string_view pattern, const Locale& locale) {
    if (isGeneral(pattern) || !std::isfinite(value)) return numberText(value, locale);
    return formatDecimal(Decimal::fromDouble(static_cast<double>(value), kSingleDigits), pattern, locale);
}

}  // namespace tidvane::base
