#include "console/console_display.h"

#include <string_view>

namespace tidvane::console {

std::string withHostLineEnds(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r') {
            out += text[at];
            continue;
        }
        out += '\n';
        if (at + 1 < text.size() && text[at + 1] == '\n') ++at;
    }
    return out;
}

namespace {

// The second group of control characters, U+0080 to U+009F, is this sign and one of the same numbers in UTF-8.
constexpr char kBeforeSecondGroup = '\xC2';

bool isControl(char sign) {
    const auto number = static_cast<unsigned char>(sign);
    return number < 0x20 || number == 0x7F;
}

bool isOfSecondGroup(const std::string& text, std::size_t at) {
    if (text[at] != kBeforeSecondGroup || at + 1 == text.size()) return false;
    const auto number = static_cast<unsigned char>(text[at + 1]);
    return number >= 0x80 && number <= 0x9F;
}

std::string withoutControls(const std::string& text, std::string_view kept) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isOfSecondGroup(text, at)) {
            out += '?';
            ++at;
        } else {
            out += isControl(text[at]) && kept.find(text[at]) == std::string_view::npos ? '?' : text[at];
        }
    }
    return out;
}

}  // namespace

std::string printable(const std::string& text) {
    return withoutControls(text, {});
}

std::string printableLines(const std::string& text) {
    return withoutControls(withHostLineEnds(text), "\n\t");
}

int ConsoleDisplay::MsgBox(const std::string& text, int style, const std::string& title) {
    namespace msgbox = forms::msgbox;
    constexpr int kButtons = 0x0F;
    const bool question = (style & kButtons) == msgbox::YesNo;
    const int answer = !question ? msgbox::Ok : answerYes_ ? msgbox::Yes : msgbox::No;
    err_ << "[" << title << "] " << printableLines(text) << "\n"
         << "Answer: "
         << (answer == msgbox::Ok    ? "OK"
             : answer == msgbox::Yes ? "yes"
                                     : "no")
         << std::endl;
    return answer;
}

void ConsoleDisplay::warn(const std::string& line) {
    err_ << (preview_ ? "Warning (of a preview, nothing was removed): " : "Warning: ") << printableLines(line)
         << std::endl;
}

}  // namespace tidvane::console
