#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

#include <limits>

namespace tidvane::base {
namespace {

const Locale& en = englishLocale();
const Locale& de = germanLocale();

TEST(ToInt16, RoundsHalvesToEven) {
    EXPECT_EQ(toInt16("2.5", en), 2);
    EXPECT_EQ(toInt16("3.5", en), 4);
    EXPECT_EQ(toInt16("-2.5", en), -2);
    EXPECT_EQ(toInt16("-0.5", en), 0);
}

TEST(ToInt16, GivesNothingBeyondSixteenBits) {
    EXPECT_EQ(toInt16("32767", en), 32767);
    EXPECT_EQ(toInt16("32767.4", en), 32767);
    EXPECT_EQ(toInt16("32767.5", en), std::nullopt);
    EXPECT_EQ(toInt16("40000", en), std::nullopt);
    EXPECT_EQ(toInt16("-32768.5", en), -32768);
    EXPECT_EQ(toInt16("-32769", en), std::nullopt);
}

TEST(ToInt16, SkipsBlanksAroundTheNumberAndRefusesWords) {
    EXPECT_EQ(toInt16(" 12 ", en), 12);
    EXPECT_EQ(toInt16("abc", en), std::nullopt);
    EXPECT_EQ(toInt16("12a", en), std::nullopt);
    EXPECT_EQ(toInt16("", en), std::nullopt);
}

TEST(ToInt32, GivesNothingBeyondThirtyTwoBits) {
    EXPECT_EQ(toInt32("2147483647", en), 2147483647);
    EXPECT_EQ(toInt32("2147483648", en), std::nullopt);
    EXPECT_EQ(toInt32("-2147483648", en), std::numeric_limits<std::int32_t>::min());
}

TEST(ToInt32, TakesBitPatternsAsTheyAre) {
    EXPECT_EQ(toInt16("&HFFFF", en), -1);
    EXPECT_EQ(toInt32("&HFFFF", en), 65535);
    EXPECT_EQ(toInt32("&HFFFFFFFF", en), -1);
    EXPECT_EQ(toInt32("&O17", en), 15);
}

TEST(ParseNumber, ReadsSeparatorsByTheLocale) {
    EXPECT_EQ(parseNumber("1,000", en), 1000.0);
    EXPECT_EQ(parseNumber("1,000", de), 1.0);
    EXPECT_EQ(parseNumber("1.000", en), 1.0);
    EXPECT_EQ(parseNumber("1.000", de), 1000.0);
    EXPECT_EQ(parseNumber("1,5", en), 15.0);
    EXPECT_EQ(parseNumber("1,5", de), 1.5);
    EXPECT_EQ(parseNumber("1.5", de), 15.0);
}

TEST(ParseNumber, ReadsSignsCurrencyAndParentheses) {
    EXPECT_EQ(parseNumber("12-", en), -12.0);
    EXPECT_EQ(parseNumber("(12)", en), -12.0);
    EXPECT_EQ(parseNumber("$1,000.50", en), 1000.5);
    EXPECT_EQ(parseNumber("5 \xE2\x82\xAC", de), 5.0);
    EXPECT_EQ(parseNumber("5 \xE2\x82\xAC", en), std::nullopt);
    EXPECT_EQ(parseNumber("--1", en), std::nullopt);
    EXPECT_EQ(parseNumber("(12", en), std::nullopt);
}

TEST(ParseNumber, ReadsExponentsOfBothLetters) {
    EXPECT_EQ(parseNumber("1e3", en), 1000.0);
    EXPECT_EQ(parseNumber("1D3", en), 1000.0);
    EXPECT_EQ(parseNumber("1e", en), std::nullopt);
    EXPECT_EQ(parseNumber("1e 3", en), std::nullopt);
}

TEST(ParseNumber, TakesTooSmallForZeroAndRefusesTooLarge) {
    EXPECT_EQ(parseNumber("1e-400", en), 0.0);
    EXPECT_EQ(parseNumber("0.00000001e-400", en), 0.0);
    EXPECT_EQ(parseNumber("1e400", en), std::nullopt);
    EXPECT_EQ(parseNumber("1e99999999999999999999", en), std::nullopt);
    EXPECT_EQ(parseNumber("0e400", en), 0.0);
}

TEST(IsNumeric, TakesALongNumberWithBlanksAndRefusesWords) {
    EXPECT_TRUE(isNumeric(" 12 ", en));
    EXPECT_TRUE(isNumeric(std::string(60, '7'), en));
    EXPECT_FALSE(isNumeric("abc", en));
    EXPECT_FALSE(isNumeric("", en));
    EXPECT_FALSE(isNumeric(" ", en));
    EXPECT_FALSE(isNumeric("12 MB", en));
}

struct ValCase {
    const char* text;
    double value;
};

constexpr ValCase kValCases[] = {
    {"", 0},      {"abc", 0}, {"12abc", 12},      {" 1 2 3", 123},    {"1,5", 1},   {"1.5.2", 1.5}, {"-7 x", -7},
    {"- 7", -7},  {"+3", 3},  {".5", 0.5},        {"1e3", 1000},      {"1D2", 100}, {"&H1F", 31},   {"&HFFFF", -1},
    {"&O17", 15}, {"$5", 0},  {"True", 0},        {"1\t2", 12},       {"1e", 1},    {"1e+", 1},     {"1e2x", 100},
    {"-", 0},     {"&H", 0},  {"&H10000", 65536}, {"&HFFFF&", 65535}, {"--7", 0},   {"1\n2", 12},   {"1\r2", 1},
};

TEST(Val, ReadsTheLeadingNumber) {
    for (const ValCase& each : kValCases) EXPECT_EQ(val(each.text), each.value) << "'" << each.text << "'";
}

TEST(NumberText, HasALeadingZeroAndNoTrailingOnes) {
    EXPECT_EQ(numberText(0.5, en), "0.5");
    EXPECT_EQ(numberText(0.5, de), "0,5");
    EXPECT_EQ(numberText(-0.0, en), "0");
    EXPECT_EQ(numberText(1000.0, de), "1000");
    EXPECT_EQ(numberText(1e20, en), "1E+20");
    EXPECT_EQ(numberText(std::int64_t{-9007199254740993}), "-9007199254740993");
}

TEST(NumberText, ShowsSevenDigitsOfASingleAndFifteenOfADouble) {
    EXPECT_EQ(numberText(1.0F / 3.0F, en), "0.3333333");
    EXPECT_EQ(numberText(1.0 / 3.0, en), "0.333333333333333");
    EXPECT_EQ(numberText(0.016F, de), "0,016");
}

TEST(NumberText, OfCurrencyHasUpToFourDecimals) {
    EXPECT_EQ(numberText(Currency{5120000}, en), "512");
    EXPECT_EQ(numberText(Currency{1}, de), "0,0001");
    EXPECT_EQ(numberText(Currency{-15000}, en), "-1.5");
    EXPECT_EQ(numberText(Currency{std::numeric_limits<std::int64_t>::min()}, en), "-922337203685477.5808");
}

TEST(Currency, RoundsExactHalvesToEvenAtTheFourthDecimal) {
    EXPECT_EQ(Currency::fromDouble(0.03125)->scaled, 312);  // 312.5
    EXPECT_EQ(Currency::fromDouble(0.09375)->scaled, 938);  // 937.5
    EXPECT_EQ(Currency::fromDouble(-0.03125)->scaled, -312);
    EXPECT_EQ(Currency::fromDouble(1.5)->toDouble(), 1.5);
}

TEST(Currency, HoldsSixtyThreeBitsAndASign) {
    EXPECT_TRUE(Currency::fromDouble(922337203685477.0));
    EXPECT_FALSE(Currency::fromDouble(922337203685478.0));
    EXPECT_FALSE(Currency::fromDouble(1e300));
    EXPECT_FALSE(Currency::fromDouble(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(Currency::fromDouble(std::numeric_limits<double>::quiet_NaN()));
}

TEST(ToCurrency, ReadsAmountsButNoBitPatterns) {
    EXPECT_EQ(toCurrency("1.5", en), Currency{15000});
    EXPECT_EQ(toCurrency("$2", en), Currency{20000});
    EXPECT_EQ(toCurrency("&H1F", en), std::nullopt);
}

TEST(RoundHalfEven, RoundsExactHalvesToEven) {
    EXPECT_EQ(roundHalfEven(0.5), 0.0);
    EXPECT_EQ(roundHalfEven(1.5), 2.0);
    EXPECT_EQ(roundHalfEven(119.6), 120.0);
    EXPECT_EQ(roundHalfEven(-2.5), -2.0);
    EXPECT_EQ(roundHalfEven(0.125, 2), 0.12);
    EXPECT_EQ(roundHalfEven(0.375, 2), 0.38);
}

TEST(RoundHalfEven, OfASingleKeepsThreeDecimals) {
    EXPECT_EQ(numberText(roundHalfEven(0.0625F, 3), en), "0.062");
    EXPECT_EQ(numberText(roundHalfEven(0.1875F, 3), en), "0.188");
    EXPECT_EQ(numberText(roundHalfEven(0.016F, 3), de), "0,016");
    EXPECT_EQ(numberText(roundHalfEven(60.0F, 3), de), "60");
}

TEST(RoundHalfEven, LeavesNumbersWithoutAFractionAlone) {
    EXPECT_EQ(roundHalfEven(1e300, 4), 1e300);
    EXPECT_EQ(roundHalfEven(9007199254740993.0, 1), 9007199254740993.0);
}

TEST(FormatNumber, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(formatNumber(0.5, "0", en), "1");
    EXPECT_EQ(formatNumber(2.5, "0", en), "3");
    EXPECT_EQ(formatNumber(-2.5, "0", en), "-3");
    EXPECT_EQ(formatNumber(1.005, "0.00", en), "1.01");  // by its 15 digits, not by its bits
    EXPECT_EQ(formatNumber(999.95, "0.0", en), "1000.0");
}

TEST(FormatNumber, FillsUpWithZeros) {
    EXPECT_EQ(formatNumber(5.0, "00", en), "05");
    EXPECT_EQ(formatNumber(0.0, "00.0", en), "00.0");
    EXPECT_EQ(formatNumber(0.25, "###0.0000", de), "0,2500");
}

TEST(FormatNumber, GroupsByTheLocale) {
    EXPECT_EQ(formatNumber(1234567.891, "###,###,##0.00", en), "1,234,567.89");
    EXPECT_EQ(formatNumber(1234567.891, "###,###,##0.00", de), "1.234.567,89");
    EXPECT_EQ(formatNumber(-123456.0, "###,###,##0.00", en), "-123,456.00");
    EXPECT_EQ(formatNumber(0.0, "###,###,##0.00", de), "0,00");
    EXPECT_EQ(formatNumber(123.0, "###,###,##0.00", en), "123.00");
}

TEST(FormatNumber, TakesTextSectionsPercentAndScale) {
    EXPECT_EQ(formatNumber(1.25, "0.0 \"MB\"", en), "1.3 MB");
    EXPECT_EQ(formatNumber(-3.0, "0;(0)", en), "(3)");
    EXPECT_EQ(formatNumber(0.0, "0.0;;\"zero;\"", en), "zero;");
    EXPECT_EQ(formatNumber(0.125, "0.0%", en), "12.5%");
    EXPECT_EQ(formatNumber(0.0, "0%", en), "0%");
    EXPECT_EQ(formatNumber(1234567.0, "0,", en), "1235");
}

TEST(FormatNumber, KeepsTheSignOfANumberRoundedToZero) {
    EXPECT_EQ(formatNumber(-0.001, "0.00", en), "-0.00");
}

TEST(FormatNumber, OfCurrencyIsExact) {
    EXPECT_EQ(formatNumber(Currency{std::numeric_limits<std::int64_t>::max()}, "0.0000", en), "922337203685477.5807");
    EXPECT_EQ(formatNumber(Currency{15000}, "", de), "1,5");
}

TEST(Val, DoesNotReadANumberBeyondAllRangesAsZero) {
    EXPECT_TRUE(std::isinf(val(std::string(400, '9'))));
    EXPECT_LT(val("-" + std::string(400, '9')), 0);
    EXPECT_TRUE(std::isinf(val("1e999")));
    EXPECT_EQ(val("1e-999"), 0);
    EXPECT_EQ(val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(val(std::string(400, '0') + "7"), 7);
}

}  // namespace
}  // namespace tidvane::base
