#include "base/date_time.h"

#include <gtest/gtest.h>

namespace tidvane::base {
namespace {

const Locale& en = englishLocale();
const Locale& de = germanLocale();
constexpr DateTime kMarch{2009, 3, 11, 7, 5, 9};

TEST(DateText, FollowsTheLocale) {
    EXPECT_EQ(shortDateText(kMarch, en), "3/11/2009");
    EXPECT_EQ(shortDateText(kMarch, de), "11.03.2009");
    EXPECT_EQ(timeText(kMarch, en), "7:05:09 AM");
    EXPECT_EQ(timeText(kMarch, de), "07:05:09");
    EXPECT_EQ(dateTimeText(kMarch, en), "3/11/2009 7:05:09 AM");
    EXPECT_EQ(dateTimeText(kMarch, de), "11.03.2009 07:05:09");
}

TEST(DateText, ShowsTwelveHoursTwice) {
    EXPECT_EQ(timeText({2009, 3, 11, 0, 5, 0}, en), "12:05:00 AM");
    EXPECT_EQ(timeText({2009, 3, 11, 12, 5, 0}, en), "12:05:00 PM");
    EXPECT_EQ(timeText({2009, 3, 11, 23, 5, 0}, en), "11:05:00 PM");
}

TEST(DateText, LeavesOutTheTimeAtMidnight) {
    EXPECT_EQ(dateTimeText({2009, 3, 11}, en), "3/11/2009");
    EXPECT_EQ(dateTimeText({2009, 3, 11}, de), "11.03.2009");
}

TEST(DateText, LeavesOutTheDateOfDayZero) {
    EXPECT_EQ(dateTimeText({1899, 12, 30, 7, 5, 9}, en), "7:05:09 AM");
    EXPECT_EQ(dateTimeText({}, en), "12:00:00 AM");
    EXPECT_EQ(dateTimeText({}, de), "00:00:00");
}

TEST(DateText, TakesPatternsWithOneOrTwoFiguresAndSeparators) {
    Locale locale = en;
    locale.shortDate = "yy/MM/dd";
    locale.longTime = "H:m:s t";
    locale.dateSeparator = "-";
    locale.timeSeparator = ".";
    EXPECT_EQ(dateTimeText(kMarch, locale), "09-03-11 7.5.9 A");
}

TEST(ParseDateTime, ReadsAnAmbiguousDateInTheOrderOfTheLocale) {
    EXPECT_EQ(parseDateTime("3/11/2009  07:05:09", en), kMarch);
    EXPECT_EQ(parseDateTime("3/11/2009", de), (DateTime{2009, 11, 3}));
    EXPECT_EQ(parseDateTime("25/12/2009", en), (DateTime{2009, 12, 25}));
    EXPECT_EQ(parseDateTime("12/25/2009", de), (DateTime{2009, 12, 25}));
}

TEST(ParseDateTime, ReadsYearFirstEverywhere) {
    for (const Locale* locale : {&en, &de}) {
        EXPECT_EQ(parseDateTime("2009-11-03", *locale), (DateTime{2009, 11, 3})) << locale->name;
        EXPECT_EQ(parseDateTime("07:05:09", *locale), (DateTime{1899, 12, 30, 7, 5, 9})) << locale->name;
    }
}

TEST(ParseDateTime, ReadsWhatTheTextsShow) {
    for (const Locale* locale : {&en, &de}) {
        for (const DateTime& moment :
             {kMarch, DateTime{2024, 2, 29, 23, 59, 59}, DateTime{1999, 12, 31}, DateTime{1899, 12, 30, 12, 0, 0}}) {
            EXPECT_EQ(parseDateTime(dateTimeText(moment, *locale), *locale), moment) << dateTimeText(moment, *locale);
        }
    }
}

TEST(ParseDateTime, RefusesWhatIsNoDate) {
    for (const char* text : {"", " ", "abc", "7", "39883", "29/2/2009", "13/13/2009", "24:00", "1/1/", "1/1/2009/1",
                             "3/11/2009 7", "3/11/2009 x", "20090311", "99999999999999999999/1/1"}) {
        EXPECT_EQ(parseDateTime(text, en), std::nullopt) << text;
    }
}

TEST(ParseDateTime, TakesTheCurrentYearOnlyWhereItIsGiven) {
    EXPECT_EQ(parseDateTime("25/12", en, 2031), (DateTime{2031, 12, 25}));
    EXPECT_EQ(parseDateTime("25/12", en), std::nullopt);
}

TEST(ParseDateTime, CompletesYearsOfTwoFigures) {
    EXPECT_EQ(parseDateTime("1/2/29", en), (DateTime{2029, 1, 2}));
    EXPECT_EQ(parseDateTime("1/2/30", en), (DateTime{1930, 1, 2}));
}

TEST(Serial, CountsDaysFromDayZero) {
    EXPECT_EQ(toSerial({}), 0.0);
    EXPECT_EQ(toSerial({1900, 1, 1}), 2.0);
    EXPECT_EQ(toSerial({2009, 3, 11, 12, 0, 0}), 39883.5);
    EXPECT_EQ(fromSerial(39883.5), (DateTime{2009, 3, 11, 12, 0, 0}));
}

TEST(Serial, CarriesItsTimeForwardBeforeDayZero) {
    const DateTime moment{1899, 12, 29, 6, 0, 0};
    EXPECT_EQ(toSerial(moment), -1.25);
    EXPECT_EQ(fromSerial(-1.25), moment);
}

TEST(Serial, StaysWithinTheYearsThatDatesHave) {
    EXPECT_EQ(fromSerial(-1e10), (DateTime{100, 1, 1}));
    EXPECT_EQ(fromSerial(1e300), (DateTime{9999, 12, 31, 23, 59, 59}));
    EXPECT_EQ(fromFileTime(~0ULL).year, 9999);
}

TEST(DayDifference, CountsMidnightsOnly) {
    EXPECT_EQ(dayDifference({2009, 3, 11, 23, 59, 59}, {2009, 3, 12}), 1);
    EXPECT_EQ(dayDifference({2009, 3, 12}, {2009, 3, 11, 23, 59, 59}), -1);
    EXPECT_EQ(dayDifference({2008, 2, 28}, {2008, 3, 1}), 2);
    EXPECT_EQ(dayDifference(kMarch, kMarch), 0);
}

TEST(FileTime, CountsFrom1601AndCutsTheFractionOfASecond) {
    EXPECT_EQ(fromFileTime(0), (DateTime{1601, 1, 1}));
    EXPECT_EQ(fromFileTime(116444736000000000ULL), (DateTime{1970, 1, 1}));
    EXPECT_EQ(fromFileTime(116444736009999999ULL), (DateTime{1970, 1, 1}));
    EXPECT_EQ(toFileTime({1970, 1, 1}), 116444736000000000ULL);
    EXPECT_EQ(fromFileTime(toFileTime(kMarch)), kMarch);
}

TEST(LocaleByName, TakesNamesAndLanguageIds) {
    EXPECT_EQ(localeByName("de-DE").name, "de-DE");
    EXPECT_EQ(localeByName("DE-de").name, "de-DE");
    EXPECT_EQ(localeByName("00000407").name, "de-DE");
    EXPECT_EQ(localeByName("0407").name, "de-DE");
    EXPECT_EQ(localeByName("0409").name, "en-US");
    EXPECT_EQ(localeByName("").name, "en-US");
    EXPECT_EQ(localeByName("xx-YY").name, "en-US");
}

}  // namespace
}  // namespace tidvane::base
