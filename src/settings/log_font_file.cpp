#include "settings/log_font_file.h"

#include <string>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"

namespace tidvane::settings {

namespace {

constexpr const char* kFile = "td_flog.dat";
constexpr std::uint64_t kLongest = 4096;  // bytes; four short lines
constexpr double kLargestFont = 2160;     // points; a text box takes no larger one

// The locale's words, the English ones, and numbers.
std::optional<bool> truth(std::string_view text, const base::Locale& locale) {
    if (base::equalNoCase(text, locale.trueText) || base::equalNoCase(text, "True")) return true;
    if (base::equalNoCase(text, locale.falseText) || base::equalNoCase(text, "False")) return false;
    if (const auto number = base::parseNumber(text, locale)) return *number != 0;
    return std::nullopt;
}

}  // namespace

platform::Status writeLogFont(Program& program, const forms::FontChoice& font) {
    const base::Locale& locale = program.locale();
    const auto word = [&](bool value) { return value ? locale.trueText : locale.falseText; };
    const std::string text = font.name + "\r\n" + base::numberText(font.size, locale) + "\r\n" + word(font.bold) +
                             "\r\n" + word(font.italic) + "\r\n";
    return program.platform.files.WriteFileBytes(program.inProgramFolder(kFile), program.codePage().fromUtf8(text));
}

std::optional<forms::FontChoice> readLogFont(Program& program, const forms::FontChoice& current) {
    std::string bytes;
    if (!platform::ok(program.platform.files.ReadFileBytes(program.inProgramFolder(kFile), bytes, kLongest))) {
        return std::nullopt;
    }
    const base::Locale& locale = program.locale();
    auto lines = base::split(base::replaceAll(program.codePage().toUtf8(bytes), "\r\n", "\r"), "\r");
    lines.resize(4);
    forms::FontChoice font = current;
    if (!lines[0].empty()) font.name = lines[0];
    if (const auto size = base::parseNumber(lines[1], locale); size && *size > 0 && *size <= kLargestFont)
        font.size = *size;
    if (const auto bold = truth(lines[2], locale)) font.bold = *bold;
    if (const auto italic = truth(lines[3], locale)) font.italic = *italic;
    return font;
}

}  // namespace tidvane::settings
