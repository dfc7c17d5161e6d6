#include "e2e/screen.h"

#include <stdexcept>

namespace tidvane::tests {

namespace {

// As long as a test program may live.
ProcessOptions forLong(std::vector<std::string> environment) {
    ProcessOptions options;
    options.environment = std::move(environment);
    options.limit = std::chrono::hours(1);
    return options;
}

}  // namespace

Screen::Screen() {
    // The server looks for a free number by itself and tells it once it listens.
    server_ = std::make_unique<Process>(std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0",
                                                                 "3200x2400x24", "-nolisten", "tcp", "-noreset"},
                                        forLong({}));
    if (!server_->waitForOutput("\n")) throw std::runtime_error("Xvfb does not start: " + server_->err());
    const std::string number = server_->out();
    name_ = ":" + number.substr(0, number.find('\n'));
    manager_ = std::make_unique<Process>(std::vector<std::string>{"openbox", "--startup", "echo ready"},
                                         forLong({"DISPLAY=" + name_, "HOME=/nonexistent"}));
    if (!manager_->waitForOutput("ready")) throw std::runtime_error("openbox does not start: " + manager_->err());
}

std::vector<std::string> Screen::environment() const {
    return {"DISPLAY=" + name_, "GDK_BACKEND=x11", "GSETTINGS_BACKEND=memory", "NO_AT_BRIDGE=1", "GTK_THEME=Adwaita",
            "GTK_IM_MODULE=gtk-im-context-simple",
            // No address that anything answers at: without one the toolkit would start a bus.
            "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent"};
}

}  // namespace tidvane::tests
