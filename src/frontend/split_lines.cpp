#include "frontend/split_lines.h"

#include <algorithm>

#include "settings/sentences.h"

namespace tidvane::frontend {

using settings::Sentence;

namespace {

constexpr std::size_t kTold = 10;
constexpr const char* kLineEnd = "\r\n";

}  // namespace

std::string tellSplitLines(const settings::Program& program, const std::vector<settings::SplitLine>& lines) {
    std::string text;
    const std::size_t told = std::min(lines.size(), kTold);
    for (std::size_t at = 0; at < told; ++at) {
        const settings::SplitLine& line = lines[at];
        text += sentence(program, Sentence::LineIsReadAs, {line.file, line.line}) + kLineEnd;
        for (const std::string& item : line.items) text += item + kLineEnd;
    }
    if (lines.size() > told) {
        text += sentence(program, Sentence::MoreLinesAreReadSo, {std::to_string(lines.size() - told)}) + kLineEnd;
    }
    return text;
}

}  // namespace tidvane::frontend
