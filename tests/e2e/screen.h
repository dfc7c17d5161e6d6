// A screen of a test's own: an X server without a monitor, and a window manager on it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "e2e/process.h"

namespace tidvane::tests {

class Screen {
public:
    // Throws std::runtime_error with a sentence where one of the two cannot be started.
    Screen();

    // ":7"
    [[nodiscard]] const std::string& name() const { return name_; }
    // What a program with windows is told: this screen, no settings of anybody, no bus to talk to.
    [[nodiscard]] std::vector<std::string> environment() const;

private:
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> manager_;
    std::string name_;
};

}  // namespace tidvane::tests
