// The view as a whole: which bindings have to look at their controls again, and when they do.
//
// Nothing of the model waits for the display. A control that changes marks its binding; the marked ones are shown when
// the program is idle, when it lets events in, and at display rate while it works. What a user does goes the other way
// through `act`.
#pragma once

#include <type_traits>

#include <wx/window.h>

#include <wx/weakref.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "view/notices.h"

namespace tidvane::forms {
class Form;
class Timer;
}  // namespace tidvane::forms

namespace tidvane::view {

class View;

// Keeps one control of the model and one native widget equal.
class Binding : public std::enable_shared_from_this<Binding> {
public:
    explicit Binding(View& view) : view_(view) {}
    virtual ~Binding() = default;
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;

    // The widget becomes what the control is. Events that the widget raises meanwhile are not a user's.
    virtual void pull() = 0;
    // What the widget changes without an event (the width of a column) is noted in the control.
    virtual void sample() {}
    // The control has changed.
    void touched();

protected:
    View& view_;

private:
    friend class View;
    bool marked_ = false;
};

class View {
public:
    View();
    ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    // Runs a user's act. What runs while a widget is being set is none, and is dropped. An error that a handler lets
    // out ends that handler and nothing else.
    void act(const std::function<void()>& what);
    // The same for what must not be lost when it comes while the windows are only painted: it then runs as soon as
    // events get in.
    void actSoon(std::weak_ptr<bool> alive, std::function<void()> what);
    // True while a handler of the program runs, whatever let it in.
    [[nodiscard]] bool busy() const { return depth_ > 0; }
    [[nodiscard]] bool pulling() const { return pulling_; }

    // Shows everything that has changed and lets the polling timers look at it, until nothing changes any more.
    void settle();
    // The same without the timers, and paints, if the last time is long enough ago: for a program that works and
    // listens to nobody meanwhile. Input waits.
    void breathe();
    // Lets events in, all of them.
    void letEventsIn();

    // While one of these lives nothing is painted between: for a window that is being made.
    class Still {
    public:
        explicit Still(View& view) : view_(view) { ++view_.still_; }
        ~Still() { --view_.still_; }
        Still(const Still&) = delete;
        Still& operator=(const Still&) = delete;

    private:
        View& view_;
    };

    // A window's bindings are known from here on; they are forgotten by themselves when the window goes.
    void add(const std::shared_ptr<Binding>& binding);
    void mark(Binding& binding);
    // Timers that poll the state of controls: they look whenever something was shown, and cost nothing while nothing
    // changes.
    void addPoll(std::weak_ptr<bool> alive, forms::Timer& timer);
    // A window whose controls came, went or grew.
    void relayout(const std::function<void()>& what);

    // The window that has asked for the keyboard last; only compared.
    const void* newest = nullptr;
    // What the front end tells beside the log; the main window shows it.
    Notices notices;
    // A native window goes: once nothing runs, for handlers of its widgets and loops of its own may stand on the stack.
    void bury(wxWindow* window);

    // Called when nothing runs and no buried window is left: what was unloaded may be freed.
    std::function<void()> whenQuiet;
    // An error that left a handler: its text.
    std::function<void(const std::string&)> onError;

private:
    using Clock = std::chrono::steady_clock;
    struct Poll {
        std::weak_ptr<bool> alive;
        forms::Timer* timer;
    };

    void pullMarked();
    void sample();
    void painted(Clock::time_point begin);
    void catchUp();
    void beQuiet();
    bool firePolls();
    void fireTimers();
    void wake();

    std::vector<std::weak_ptr<Binding>> bindings_;
    std::vector<std::weak_ptr<Binding>> marked_;
    std::vector<Poll> polls_;
    std::vector<std::pair<std::weak_ptr<bool>, std::function<void()>>> soon_;
    std::vector<std::function<void()>> relayouts_;
    std::vector<wxWindow*> buried_;           // to be destroyed
    std::vector<wxWeakRef<wxWindow>> going_;  // destroyed, but the toolkit still has them
    int depth_ = 0;
    int still_ = 0;
    bool pulling_ = false;
    bool breathing_ = false;
    bool changed_ = false;
    Clock::time_point nextPaint_;  // not before
    Clock::time_point nextPolls_;  // while the program works
    Clock::time_point lastEvents_;
};

}  // namespace tidvane::view
