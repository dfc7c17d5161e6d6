#include "app/log.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/date_time.h"
#include "base/numbers.h"
#include "settings/frmOptions.h"
#include "settings/pause.h"

namespace tidvane::app {

namespace {

constexpr std::size_t kTruncatedAtOnce = 5000;  // characters
constexpr const char* kTruncationMark = "[Log Auto Truncated]";
constexpr const char* kLineEnd = "\r\n";

struct Replacement {
    std::string_view letter;
    std::string_view by;
};
constexpr std::array<Replacement, 7> kReplacements{{
    {"Ä", "Ae"},
    {"Ö", "Oe"},
    {"Ü", "Ue"},
    {"ß", "ss"},
    {"ä", "ae"},
    {"ö", "oe"},
    {"ü", "ue"},
}};
// All seven start with this byte in UTF-8: a text without it has none of them.
constexpr char kLeadByte = '\xC3';

}  // namespace

std::string replaceUmlauts(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    std::size_t from = 0;
    while (from < text.size()) {
        const std::size_t lead = text.find(kLeadByte, from);
        if (lead == std::string_view::npos) break;
        out.append(text.substr(from, lead - from));
        const std::string_view letter = text.substr(lead, 2);
        const auto found = std::find_if(kReplacements.begin(), kReplacements.end(),
                                        [&](const Replacement& row) { return row.letter == letter; });
        out.append(found == kReplacements.end() ? letter : found->by);
        from = lead + letter.size();
    }
    out.append(text.substr(std::min(from, text.size())));
    return out;
}

Log::Log(settings::Program& program, forms::TextBox& box) : program_(program), box_(box) {
    box_.Change.connect([this] { textChanged(); });
}

void Log::textChanged() {
    if (!program_.get<settings::frmOptions>().chkReplaceGerUmlaut.ticked()) return;
    // The whole box counts as rewritten after every line; only what has come since can hold a letter.
    const std::size_t from = std::min(unreplacedFrom_, box_.Text().size());
    const std::string_view tail = std::string_view(box_.Text()).substr(from);
    const std::string replaced = replaceUmlauts(tail);
    unreplacedFrom_ = from + replaced.size();
    if (replaced != tail) {
        box_.rewriteTail(from, replaced);  // raises the change again, with nothing left to replace
    } else {
        box_.select(0, 0);
    }
}

void Log::AppendLogText(const std::string& text) {
    const auto& options = program_.get<settings::frmOptions>();
    const auto limit = base::parseNumber(options.txtLogAutoTruncated.Text(), program_.locale());
    if (limit && *limit < static_cast<double>(box_.length())) {
        // Cutting the front of a text that was looked at whole brings no letter back.
        const bool allReplaced = unreplacedFrom_ == box_.Text().size();
        box_.select(0, kTruncatedAtOnce);
        unreplacedFrom_ = allReplaced ? std::string::npos : 0;
        box_.setSelText(kTruncationMark);
        if (allReplaced) unreplacedFrom_ = box_.Text().size();
    }
    box_.caretToEnd();
    box_.setSelText(text);
    appended(options.chkReplaceGerUmlaut.ticked() ? replaceUmlauts(text) : text);
}

void Log::AddLogLine(const std::string& text) {
    std::string line;
    if (program_.get<settings::frmOptions>().chkLogTimestamp.Value == 0) {
        line = base::timeText(program_.platform.clock.now(), program_.locale()) + " ";
    }
    AppendLogText(line + text + kLineEnd);
    settings::pauseByPurgeSpeed(program_);
}

void Log::AddLogHeading(const std::string& text) {
    AppendLogText(text + kLineEnd);
    settings::pauseByPurgeSpeed(program_);
}

void Log::empty() {
    unreplacedFrom_ = 0;
    box_.setText({});
}

}  // namespace tidvane::app
