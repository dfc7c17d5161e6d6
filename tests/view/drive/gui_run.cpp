#include "view/drive/gui_run.h"

#include <chrono>
#include <cstdlib>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace tidvane::tests {

namespace {
constexpr int kLeastWidth = 100;  // pixels; an icon in a tray is a window too
}  // namespace

Desktop& Desktop::get() {
    static Desktop desktop;
    return desktop;
}

Desktop::Desktop() {
    ::setenv("DISPLAY", screen_.name().c_str(), 1);
    bus_ = std::make_unique<SessionBus>();
}

std::vector<std::string> Desktop::environment() const {
    std::vector<std::string> all = screen_.environment();
    // This program shall be read out.
    std::erase_if(all, [](const std::string& variable) {
        return variable.starts_with("NO_AT_BRIDGE=") || variable.starts_with("DBUS_SESSION_BUS_ADDRESS=");
    });
    all.push_back("DBUS_SESSION_BUS_ADDRESS=" + bus_->address());
    return all;
}

void GuiRun::set(const std::vector<std::string>& settings) const {
    std::vector<std::string> words{"settings"};
    for (const std::string& setting : settings) words.insert(words.end(), {"--set", setting});
    words.emplace_back("--save");
    const ProcessResult result = places_.console(words);
    if (result.status != console_status::Done) throw std::runtime_error("the settings are not taken: " + result.err);
}

void GuiRun::startAgain(const std::vector<std::string>& words) {
    ProcessOptions options;
    options.environment = Desktop::get().environment();
    options.environment.push_back("HOME=" + places_.directory().path());
    options.environment.push_back("XDG_DATA_HOME=" + (places_.directory() / "data"));
    std::vector<std::string> command{TIDVANE_GUI, "--machine", places_.machine(), "--program", places_.program()};
    command.insert(command.end(), words.begin(), words.end());
    process_ = std::make_unique<Process>(command, options);
    reader_ = std::make_unique<Reader>(process_->id());
    inWindow(kMain);
}

void GuiRun::start(const std::vector<std::string>& words) {
    startAgain(words);
    // The start page of the first start stands in front of it, under the same title: the smaller one.
    if (waitUntil([this] { return windowsOf(kMain).size() > 1; }, 3)) {
        std::string smallest;
        int least = 0;
        for (const std::string& window : windowsOf(kMain)) {
            const int width = placeOfWindow(window)[2];
            if (smallest.empty() || width < least) {
                smallest = window;
                least = width;
            }
        }
        const bool closed = waitUntil([&] {
            xdotool({"windowactivate", "--sync", smallest});
            key({"Escape"});
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            return windowsOf(kMain).size() == 1;
        });
        if (!closed) throw std::runtime_error("Escape does not close the start page");
        inWindow(kMain);
    }
}

int GuiRun::leave() {
    if (!window(kResults).empty()) {
        inWindow(kResults);
        key({"Escape"});
        if (!waitForNoWindow(kResults)) throw std::runtime_error("the results do not close");
    }
    inWindow(kMain);
    key({"ctrl+q"});
    return waitForEnd();
}

int GuiRun::waitForEnd() {
    if (!waitUntil([this] { return !process_->isRunning(); })) return -1;
    const ProcessResult result = process_->wait();
    reader_.reset();
    process_.reset();
    return result.signal == 0 ? result.status : -result.signal;
}

std::string GuiRun::xdotool(const std::vector<std::string>& words) const {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), words.begin(), words.end());
    ProcessOptions options;
    options.environment = Desktop::get().environment();
    std::string out = runProcess(command, options).out;
    while (out.ends_with('\n')) out.pop_back();
    return out;
}

std::vector<std::string> GuiRun::windowsOf(const std::string& title) const {
    std::istringstream found(xdotool({"search", "--onlyvisible", "--name", title}));
    std::vector<std::string> windows;
    // Tool tips are windows too, with the name of the program: "tidvane", which the search takes for the same.
    const std::regex exactly(title);
    for (std::string number; std::getline(found, number);) {
        const bool tip = !std::regex_search(xdotool({"getwindowname", number}), exactly);
        if (!tip && placeOfWindow(number)[2] >= kLeastWidth) windows.push_back(number);
    }
    return windows;
}

std::string GuiRun::window(const std::string& title) const {
    const std::vector<std::string> found = windowsOf(title);
    return found.empty() ? std::string() : found.back();
}

bool GuiRun::waitUntil(const std::function<bool()>& condition, int seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
    }
    return true;
}

bool GuiRun::waitForWindow(const std::string& title) const {
    return waitUntil([&] { return !window(title).empty(); });
}

bool GuiRun::waitForNoWindow(const std::string& title) const {
    return waitUntil([&] { return window(title).empty(); });
}

void GuiRun::inWindow(const std::string& title) const {
    std::string focused;
    const bool there = waitUntil([&] {
        const std::string wanted = window(title);
        if (wanted.empty()) return false;
        focused = xdotool({"getwindowfocus"});
        if (focused == wanted) return true;
        xdotool({"windowactivate", wanted});
        return false;
    });
    if (!there) throw std::runtime_error("no window " + title + " comes: " + (process_ ? process_->err() : ""));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
}

std::vector<int> GuiRun::placeOf(const std::string& title) const {
    return placeOfWindow(window(title));
}

std::vector<int> GuiRun::placeOfWindow(const std::string& window) const {
    // "X=1", "Y=2", "WIDTH=3", "HEIGHT=4" among others
    std::istringstream lines(xdotool({"getwindowgeometry", "--shell", window}));
    std::vector<int> place(4);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        const std::string name = line.substr(0, equals);
        int number = 0;
        for (const char* wanted : {"X", "Y", "WIDTH", "HEIGHT"}) {
            if (name == wanted) place.at(static_cast<std::size_t>(number)) = std::stoi(line.substr(equals + 1));
            ++number;
        }
    }
    return place;
}

void GuiRun::key(const std::vector<std::string>& keys) const {
    std::vector<std::string> words{"key", "--delay", "40"};
    words.insert(words.end(), keys.begin(), keys.end());
    xdotool(words);
}

void GuiRun::type(const std::string& text) const {
    xdotool({"type", "--delay", "30", text});
}

void GuiRun::clickAt(int x, int y) const {
    xdotool({"mousemove", std::to_string(x), std::to_string(y), "sleep", "0.1", "click", "1"});
}

void GuiRun::click(const std::string& name) const {
    const Reader::Place place = reader_->placeOf(name);
    clickAt(place.x + place.width / 2, place.y + place.height / 2);
}

void GuiRun::drag(int fromX, int fromY, int toX, int toY) const {
    xdotool({"mousemove", std::to_string(fromX), std::to_string(fromY), "sleep", "0.1", "mousedown", "1"});
    for (int step = 1; step <= 5; ++step) {
        xdotool({"mousemove", std::to_string(fromX + (toX - fromX) * step / 5),
                 std::to_string(fromY + (toY - fromY) * step / 5), "sleep", "0.05"});
    }
    xdotool({"mouseup", "1"});
}

void GuiRun::closeBox(const std::string& title) const {
    // What the close button of a window manager's frame sends.
    inWindow(title);
    key({"alt+F4"});
}

std::string GuiRun::setting(const std::string& key, const std::string& section) const {
    std::istringstream lines(places_.programFile("td_config.ini"));
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.starts_with('[')) inside = line == "[" + section + "]";
        if (inside && line.starts_with(key + "=")) return line.substr(key.size() + 1);
    }
    return "<none>";
}

}  // namespace tidvane::tests
