// The toolkit on a screen of the test program's own, and a user in front of it.
//
// The scale is that of the process (GDK_SCALE): the whole program is run once at 100% and once at 200%.
#pragma once

#include <gtest/gtest.h>
#include <wx/event.h>
#include <wx/window.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tidvane::tests {

// Registered by main(). Starts the screen and the toolkit before the first test and ends them behind the last one.
class DisplayEnvironment final : public testing::Environment {
public:
    DisplayEnvironment();
    ~DisplayEnvironment() override;
    void SetUp() override;
    void TearDown() override;

private:
    struct State;
    std::unique_ptr<State> state_;
};

// Lets the toolkit's own loop run: events, timers, idle work. For what has to stay away for a while; what has to come
// is waited for by the functions below.
void letRun(int milliseconds);
// Until there is nothing left to do: events that the screen has sent by now, idle work, whatever comes of them.
void letSettle();
// Until the window is laid out and painted as it is now.
void letDraw(wxWindow* window);
// Until it holds, at most this long. False: it never did.
bool letRunUntil(const std::function<bool()>& condition, int atMostMilliseconds = 10000);
// What is done whenever the loop has nothing to do, as the program does it; empty for nothing.
void whenIdle(std::function<void()> what);

// "100%" or "200%".
std::string scaleName();

// Presses and lets it go, as the keyboard does: whoever has the focus gets it.
// pressKey() does not wait for what comes of it; the others do, as far as the toolkit does it at once.
void pressKey(int key, int modifiers = 0);
void typeKey(int key, int modifiers = 0);
void typeText(const std::string& text);
// Where on the screen a place of the window is clicked, in the window's own pixels.
void click(wxWindow* window, wxPoint at);
void clickMiddle(wxWindow* window);
void doubleClick(wxWindow* window, wxPoint at);
// How many times a key of the keyboard, a button of the mouse has come to a window of this program so far.
int keysPressed();
int buttonsReleased();

// As a click of the user on its title would: a window manager keeps windows behind that nobody has asked for.
void bringToFront(wxWindow* window);
bool isActive(wxWindow* window);

// What the toolkit and the library below it have complained about since the last call: a widget used wrongly.
std::vector<std::string> takeComplaints();

}  // namespace tidvane::tests
