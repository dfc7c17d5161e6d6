#include "frontend/split_lines.h"

#include <algorithm>

namespace tidvane::frontend {

namespace {

constexpr std::size_t kTold = 10;
constexpr const char* kLineEnd = "\r\n";

}  // namespace

std::string tellSplitLines(const std::vector<settings::SplitLine>& lines) {
    std::string text;
    const std::size_t told = std::min(lines.size(), kTold);
    for (std::size_t at = 0; at < told; ++at) {
        const settings::SplitLine& line = lines[at];
        text += line.file + ": the line \"" + line.line + "\" is read as:" + kLineEnd;
        for (const std::string& item : line.items) text += item + kLineEnd;
    }
    if (lines.size() > told) text += "and so are " + std::to_string(lines.size() - told) + " more line(s)." + kLineEnd;
    return text;
}

}  // namespace tidvane::frontend
