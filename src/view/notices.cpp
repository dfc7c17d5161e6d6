#include "view/notices.h"

#include <algorithm>

namespace tidvane::view {

void Notices::add(const std::string& line) {
    if (line.empty() || (!lines_.empty() && lines_.back() == line)) return;
    std::erase(lines_, line);
    if (lines_.size() >= kMost) lines_.erase(lines_.begin());
    lines_.push_back(line);
    changed();
}

void Notices::dismiss() {
    if (lines_.empty()) return;
    lines_.clear();
    changed();
}

std::string Notices::text() const {
    std::string all;
    for (const std::string& line : lines_) all += (all.empty() ? "" : "\r\n") + line;
    return all;
}

}  // namespace tidvane::view
