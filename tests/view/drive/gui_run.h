// The program with windows as a user starts it: a process of its own, driven by keys and clicks.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "e2e/console_run.h"
#include "e2e/process.h"
#include "e2e/screen.h"
#include "view/drive/reader.h"
#include "view/session_bus.h"

namespace tidvane::tests {

// The screen and the session bus of the test program; the accessibility bus belongs to the latter.
class Desktop {
public:
    static Desktop& get();
    [[nodiscard]] std::vector<std::string> environment() const;

private:
    Desktop();
    Screen screen_;
    std::unique_ptr<SessionBus> bus_;
};

class GuiRun {
public:
    // An empty machine and a new program folder.
    GuiRun() = default;

    // Before the start: settings as the console stores them, files of the machine.
    [[nodiscard]] const ConsoleRun& places() const { return places_; }
    void set(const std::vector<std::string>& settings) const;

    // Starts, waits for the main window and puts the start page of a first start away. Throws where none comes.
    void start(const std::vector<std::string>& words = {});
    // The same in a program folder that has seen a start: no start page comes.
    void startAgain(const std::vector<std::string>& words = {});
    [[nodiscard]] bool isRunning() { return process_ != nullptr && process_->isRunning(); }
    void send(int signal) const { process_->send(signal); }
    // Titles of windows, as xdotool searches them.
    static constexpr const char* kMain = "^Tidvane$";
    static constexpr const char* kResults = "Disk space$";
    // By the key of the main window, behind a run too; its status.
    int leave();
    // Until it has ended by itself; its status.
    int waitForEnd();
    // What is on its screen, by name.
    [[nodiscard]] const Reader& reader() const { return *reader_; }

    // --- what is on the screen
    [[nodiscard]] std::vector<std::string> windowsOf(const std::string& title) const;
    // The number of the visible window with this title; empty for none.
    [[nodiscard]] std::string window(const std::string& title) const;
    // Waits for it and gives it the focus. Throws a sentence where it does not come.
    void inWindow(const std::string& title) const;
    [[nodiscard]] bool waitForWindow(const std::string& title) const;
    [[nodiscard]] bool waitForNoWindow(const std::string& title) const;
    [[nodiscard]] std::vector<int> placeOf(const std::string& title) const;  // x, y, width, height
    [[nodiscard]] std::vector<int> placeOfWindow(const std::string& window) const;

    // --- what the user does; keys as xdotool names them
    void key(const std::vector<std::string>& keys) const;
    void type(const std::string& text) const;
    void clickAt(int x, int y) const;
    void click(const std::string& name) const;  // as the reader names it
    void drag(int fromX, int fromY, int toX, int toY) const;
    void closeBox(const std::string& title) const;
    std::string xdotool(const std::vector<std::string>& words) const;

    // --- what is left behind
    // Of td_config.ini; "<none>" for none.
    [[nodiscard]] std::string setting(const std::string& key, const std::string& section = "frmOptions") const;
    static bool waitUntil(const std::function<bool()>& condition, int seconds = 60);

private:
    ConsoleRun places_;
    std::unique_ptr<Process> process_;
    std::unique_ptr<Reader> reader_;
};

}  // namespace tidvane::tests
