// Lines that the front end has to tell beside the log: a place that is protected, a removal for good, a setting that
// was not stored. They wait until the user has put them away.
#pragma once

#include <string>
#include <vector>

#include "forms/signal.h"

namespace tidvane::view {

class Notices {
public:
    // Above this the oldest go: what floods is one message and not a thousand.
    static constexpr std::size_t kMost = 200;

    // A line that stands already moves to the end.
    void add(const std::string& line);
    void dismiss();
    [[nodiscard]] bool empty() const { return lines_.empty(); }
    // Oldest first.
    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
    // All of them below one another.
    [[nodiscard]] std::string text() const;

    forms::Signal<> changed;

private:
    std::vector<std::string> lines_;
};

}  // namespace tidvane::view
