#include "console/console_display.h"

#include <algorithm>

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

std::string printable(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char sign) { return sign < 0x20 || sign == 0x7F; }, '?');
    return text;
}

namespace {

// Entries and paths stand in boxes and warnings too.
std::string printableLines(const std::string& text) {
    std::string lines = withHostLineEnds(text);
    std::replace_if(
        lines.begin(), lines.end(),
        [](unsigned char sign) { return (sign < 0x20 && sign != '\n' && sign != '\t') || sign == 0x7F; }, '?');
    return lines;
}

}  // namespace

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
