// Recorded conversions of dates, row by row.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "base/code_page.h"
#include "base/date_time.h"
#include "support/reference.h"

namespace tidvane::base {
namespace {

using tests::Decisions;
using tests::ReferenceCheck;
using tests::ReferenceRow;

const std::string kNothing = "-";
// Stands for the year in which a row was recorded.
constexpr int kCurrentYear = 2031;
constexpr std::string_view kCurrentYearMark = "<current year>";

const Locale& localeOf(const ReferenceRow& row) {
    return localeByName(row["locale"]);
}

std::string calendarForm(const DateTime& moment) {
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d %02d:%02d:%02d", moment.year, moment.month, moment.day,
                  moment.hour, moment.minute, moment.second);
    return buffer.data();
}

std::string recordedParts(const ReferenceRow& row) {
    if (row["hresult"] != "0") return kNothing;
    std::string parts = row["parts"];
    if (parts.starts_with(kCurrentYearMark)) parts.replace(0, kCurrentYearMark.size(), std::to_string(kCurrentYear));
    return parts;
}

TEST(ParseDateTime, ReadsTextsAsRecorded) {
    const Decisions decisions = tests::readDecisions("datetime_decisions.tsv");
    ReferenceCheck rows(decisions);
    for (const ReferenceRow& row : tests::readReference("datetime.tsv")) {
        // The other flags ask for half of what is read: there is no such call here.
        if (row["op"] != "parse" || row["argument"] != "0") continue;
        const auto moment = parseDateTime(CodePage(1252).toUtf8(row["input"]), localeOf(row), kCurrentYear);
        rows.compare(row, recordedParts(row), moment ? calendarForm(*moment) : kNothing);
    }
    EXPECT_EQ(rows.report(), "");
}

TEST(Serial, OfATextIsAsRecorded) {
    const Decisions decisions = tests::readDecisions("datetime_decisions.tsv");
    std::size_t compared = 0;
    for (const ReferenceRow& row : tests::readReference("datetime.tsv")) {
        if (row["op"] != "parse" || row["argument"] != "0" || row["hresult"] != "0") continue;
        if (decisions.expected(row.id()) != nullptr || row["parts"].starts_with(kCurrentYearMark)) continue;
        const auto moment = parseDateTime(CodePage(1252).toUtf8(row["input"]), localeOf(row));
        ASSERT_TRUE(moment) << row.id();
        EXPECT_DOUBLE_EQ(toSerial(*moment), std::strtod(row["output"].c_str(), nullptr)) << row.id();
        EXPECT_EQ(fromSerial(toSerial(*moment)), *moment) << row.id();
        ++compared;
    }
    EXPECT_GT(compared, 0U);
}

TEST(DateText, IsAsRecorded) {
    const Decisions decisions = tests::readDecisions("datetime_decisions.tsv");
    ReferenceCheck rows(decisions);
    for (const ReferenceRow& row : tests::readReference("datetime.tsv")) {
        // Serials outside the years 100 to 9999 are no date, and nobody asks for the half that is not there.
        if (row["op"] != "text" || row["hresult"] != "0" || row["output"].empty()) continue;
        const DateTime moment = fromSerial(std::strtod(row["input"].c_str(), nullptr));
        const std::string& flag = row["argument"];
        const std::string text = flag == "DATEVALUEONLY"   ? shortDateText(moment, localeOf(row))
                                 : flag == "TIMEVALUEONLY" ? timeText(moment, localeOf(row))
                                                           : dateTimeText(moment, localeOf(row));
        rows.compare(row, row["output"], text);
    }
    EXPECT_EQ(rows.report(), "");
}

TEST(DayDifference, IsAsRecorded) {
    const Decisions decisions = tests::readDecisions("datetime_decisions.tsv");
    ReferenceCheck rows(decisions);
    for (const ReferenceRow& row : tests::readReference("datetime.tsv")) {
        if (row["op"] != "datediff_d") continue;
        const auto moment = [&](const std::string& text) {
            if (row["locale"] == "-") return std::optional(fromSerial(std::strtod(text.c_str(), nullptr)));
            return parseDateTime(text, localeOf(row));
        };
        const auto from = moment(row["input"]);
        const auto to = moment(row["argument"]);
        rows.compare(row, row["output"], from && to ? std::to_string(dayDifference(*from, *to)) : kNothing);
    }
    EXPECT_EQ(rows.report(), "");
}

TEST(DateDecisions, NameRowsThatExist) {
    EXPECT_EQ(tests::readDecisions("datetime_decisions.tsv").unknownIds(tests::readReference("datetime.tsv")), "");
}

}  // namespace
}  // namespace tidvane::base
