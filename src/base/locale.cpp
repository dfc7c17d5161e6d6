#include "base/locale.h"

#include <algorithm>

namespace tidvane::base {

namespace {

Locale makeEnglish() {
    Locale locale;
    locale.name = "en-US";
    locale.shortDate = "M/d/yyyy";
    locale.longTime = "h:mm:ss tt";
    locale.dateSeparator = "/";
    locale.timeSeparator = ":";
    return locale;
}

Locale makeGerman() {
    Locale locale;
    locale.name = "de-DE";
    locale.decimal = ',';
    locale.thousands = '.';
    locale.shortDate = "dd.MM.yyyy";
    locale.longTime = "HH:mm:ss";
    locale.dateSeparator = ".";
    locale.timeSeparator = ":";
    locale.am.clear();  // German systems have no such texts
    locale.pm.clear();
    locale.dayBeforeMonth = true;
    locale.trueText = "Wahr";
    locale.falseText = "Falsch";
    locale.currency = "\xE2\x82\xAC";  // euro
    return locale;
}

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    const auto lower = [](char sign) { return sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign + 32) : sign; };
    return std::any_of(names.begin(), names.end(), [&](std::string_view known) {
        return std::equal(name.begin(), name.end(), known.begin(), known.end(),
                          [&](char a, char b) { return lower(a) == b; });
    });
}

}  // namespace

const Locale& englishLocale() {
    static const Locale locale = makeEnglish();
    return locale;
}

const Locale& germanLocale() {
    static const Locale locale = makeGerman();
    return locale;
}

const Locale& localeByName(std::string_view name) {
    return isOneOf(name, {"de-de", "de", "0407", "00000407"}) ? germanLocale() : englishLocale();
}

}  // namespace tidvane::base
