// Recorded conversions between numbers and texts, row by row.
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/code_page.h"
#include "base/numbers.h"
#include "support/reference.h"

namespace tidvane::base {
namespace {

using tests::Decisions;
using tests::ReferenceCheck;
using tests::ReferenceRow;

constexpr double kTolerance = 1e-15;  // of the recorded parser itself

// "-" where a conversion gives nothing, which is any error of the recorded call.
const std::string kNothing = "-";

const Locale& localeOf(const ReferenceRow& row) {
    return localeByName(row["locale"]);
}

double toDouble(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

std::string printed(double value) {
    std::array<char, 64> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

// Both numbers, or both nothing.
bool sameNumber(const std::string& a, const std::string& b) {
    if (a == kNothing || b == kNothing) return a == b;
    const double x = toDouble(a);
    const double y = toDouble(b);
    return x == y || std::fabs(x - y) <= kTolerance * std::fabs(x);
}

bool sameSingle(const std::string& a, const std::string& b) {
    if (a == kNothing || b == kNothing) return a == b;
    return std::strtof(a.c_str(), nullptr) == std::strtof(b.c_str(), nullptr);
}

std::string recorded(const ReferenceRow& row) {
    return row["hresult"] == "0" ? row["output"] : kNothing;
}

std::string toBytes(const std::string& text) {
    return CodePage(1252).fromUtf8(text);
}

template <typename Answer>
std::string check(const std::string& function, ReferenceCheck::Equal equal, Answer answer) {
    const Decisions decisions = tests::readDecisions("vbtext_decisions.tsv");
    ReferenceCheck rows(decisions, std::move(equal));
    for (const ReferenceRow& row : tests::readReference("vbtext.tsv")) {
        if (row["function"] == function) rows.compare(row, recorded(row), answer(row));
    }
    return rows.report();
}

// Numbers to text: the same bytes.
template <typename Text>
std::string checkText(const std::string& function, Text text) {
    return check(function, std::equal_to<>(), text);
}

// Texts to numbers.
template <typename Parse>
std::string checkParse(const std::string& function, ReferenceCheck::Equal equal, Parse parse) {
    return check(function, std::move(equal), [&](const ReferenceRow& row) {
        const auto value = parse(CodePage(1252).toUtf8(row["input"]), localeOf(row));
        return value ? printed(static_cast<double>(*value)) : kNothing;
    });
}

TEST(NumberText, OfDoublesIsAsRecorded) {
    EXPECT_EQ(checkText("VarBstrFromR8",
                        [](const ReferenceRow& row) { return numberText(toDouble(row["input"]), localeOf(row)); }),
              "");
}

TEST(NumberText, OfSinglesIsAsRecorded) {
    EXPECT_EQ(checkText("VarBstrFromR4",
                        [](const ReferenceRow& row) {
                            return numberText(std::strtof(row["input"].c_str(), nullptr), localeOf(row));
                        }),
              "");
}

TEST(NumberText, OfCurrencyIsAsRecorded) {
    EXPECT_EQ(checkText("VarBstrFromCy",
                        [](const ReferenceRow& row) {
                            return numberText(Currency{std::strtoll(row["input"].c_str(), nullptr, 10)}, localeOf(row));
                        }),
              "");
}

TEST(NumberText, OfIntegersIsAsRecorded) {
    for (const char* function : {"VarBstrFromI2", "VarBstrFromI4"}) {
        EXPECT_EQ(checkText(function,
                            [](const ReferenceRow& row) {
                                return numberText(std::int64_t{std::strtoll(row["input"].c_str(), nullptr, 10)});
                            }),
                  "");
    }
}

TEST(ParseNumber, ReadsDoublesAsRecorded) {
    EXPECT_EQ(checkParse("VarR8FromStr", sameNumber, parseNumber), "");
}

TEST(ParseNumber, ReadsSinglesAsRecorded) {
    EXPECT_EQ(checkParse("VarR4FromStr", sameSingle, toSingle), "");
}

TEST(ParseNumber, ReadsShortIntegersAsRecorded) {
    EXPECT_EQ(checkParse("VarI2FromStr", sameNumber, toInt16), "");
}

TEST(ParseNumber, ReadsLongIntegersAsRecorded) {
    EXPECT_EQ(checkParse("VarI4FromStr", sameNumber, toInt32), "");
}

TEST(ParseNumber, ReadsCurrencyAsRecorded) {
    EXPECT_EQ(check("VarCyFromStr", std::equal_to<>(),
                    [](const ReferenceRow& row) {
                        const auto currency = toCurrency(CodePage(1252).toUtf8(row["input"]), localeOf(row));
                        return currency ? std::to_string(currency->scaled) : kNothing;
                    }),
              "");
}

TEST(IsNumeric, IsAsRecorded) {
    const Decisions decisions = tests::readDecisions("vbtext_numeric_decisions.tsv");
    ReferenceCheck rows(decisions);
    const std::vector<ReferenceRow> all = tests::readReference("vbtext.tsv");
    for (const ReferenceRow& row : all) {
        if (row["function"] != "VarR8FromStr") continue;
        rows.compare(row, row["is_numeric"], isNumeric(CodePage(1252).toUtf8(row["input"]), localeOf(row)) ? "1" : "0");
    }
    EXPECT_EQ(rows.report(), "");
    EXPECT_EQ(decisions.unknownIds(all), "");
}

TEST(Currency, IsMadeOfNumbersAsRecorded) {
    for (const char* function : {"VarCyFromR8", "VarCyFromR4"}) {
        EXPECT_EQ(check(function, std::equal_to<>(),
                        [](const ReferenceRow& row) {
                            const bool single = row["function"] == "VarCyFromR4";
                            const double value = single
                                                     ? static_cast<double>(std::strtof(row["input"].c_str(), nullptr))
                                                     : toDouble(row["input"]);
                            const auto currency = Currency::fromDouble(value);
                            return currency ? std::to_string(currency->scaled) : kNothing;
                        }),
                  "");
    }
}

TEST(RoundHalfEven, IsAsRecordedButForHalves) {
    for (const int decimals : {0, 1, 2, 4}) {
        EXPECT_EQ(
            check("VarRound(" + std::to_string(decimals) + ")", sameNumber,
                  [&](const ReferenceRow& row) { return printed(roundHalfEven(toDouble(row["input"]), decimals)); }),
            "");
    }
}

TEST(TextDecisions, NameRowsThatExist) {
    EXPECT_EQ(tests::readDecisions("vbtext_decisions.tsv").unknownIds(tests::readReference("vbtext.tsv")), "");
}

// --- patterns ---

// Names of whole formats other than General Number, exponent patterns and the separate function for fixed decimals are
// no patterns of ours.
bool isOurPattern(const std::string& pattern) {
    for (const char* name :
         {"Standard", "Percent", "Currency", "True/False", "Yes/No", "On/Off", "Scientific", "Fixed"}) {
        if (pattern == name) return false;
    }
    return !pattern.starts_with("FormatNumber") && pattern.find("E+") == std::string::npos;
}

std::string formatted(const ReferenceRow& row) {
    const std::string& type = row["type"];
    const std::string& value = row["value"];
    const std::string& pattern = row["pattern"];
    if (type == "CY") return formatNumber(Currency{std::strtoll(value.c_str(), nullptr, 10)}, pattern, localeOf(row));
    if (type == "R4") return formatSingle(std::strtof(value.c_str(), nullptr), pattern, localeOf(row));
    return formatNumber(toDouble(value), pattern, localeOf(row));
}

class FormatRows : public ::testing::TestWithParam<const char*> {};

TEST_P(FormatRows, AreAsRecorded) {
    const Decisions decisions = tests::readDecisions("vbformat_decisions.tsv");
    ReferenceCheck rows(decisions);
    for (const ReferenceRow& row : tests::readReference("vbformat.tsv")) {
        if (row["type"] != GetParam() || !isOurPattern(row["pattern"])) continue;
        rows.compare(row, row["text"], toBytes(formatted(row)));
    }
    EXPECT_EQ(rows.report(), "");
}

INSTANTIATE_TEST_SUITE_P(FormatNumber, FormatRows, ::testing::Values("R4", "R8", "CY", "I2", "I4"),
                         [](const auto& type) { return std::string(type.param); });

TEST(FormatDecisions, NameRowsThatExist) {
    EXPECT_EQ(tests::readDecisions("vbformat_decisions.tsv").unknownIds(tests::readReference("vbformat.tsv")), "");
}

}  // namespace
}  // namespace tidvane::base
