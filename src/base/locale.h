// How a system writes numbers, dates and truth values.
#pragma once

#include <string>
#include <string_view>

namespace tidvane::base {

// Patterns use the letters of Windows: d dd M MM yy yyyy, H HH h hh m mm s ss tt.
struct Locale {
    std::string name;             // "en-US"
    char decimal = '.';           // decimal separator
    char thousands = ',';         // digit grouping
    std::string shortDate;        // "M/d/yyyy"
    std::string longTime;         // "h:mm:ss tt": with seconds
    std::string dateSeparator;    // "/"
    std::string timeSeparator;    // ":"
    std::string am = "AM";
    std::string pm = "PM";
    bool dayBeforeMonth = false;  // how an ambiguous date is read
    bool yearFirst = false;
    std::string trueText = "True";
    std::string falseText = "False";
    std::string currency = "$";   // sign that may stand at either side of a number
};

const Locale& englishLocale();  // en-US
const Locale& germanLocale();   // de-DE
// The locale of a name ("de-DE") or of a Windows language id ("00000407", "0407"); English where it is not known.
const Locale& localeByName(std::string_view name);

}  // namespace tidvane::base
