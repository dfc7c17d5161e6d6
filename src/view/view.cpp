#include "view/view.h"

#include <wx/app.h>
#include <wx/evtloop.h>

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "forms/simple_controls.h"

namespace tidvane::view {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kFrame{33};  // between two paintings of a program that works
constexpr milliseconds kLongestFrame{250};
constexpr int kPaintingShare = 5;          // between two paintings lies as many times what the last one took
constexpr milliseconds kBetweenEvents{5};  // a stop is heard at the next pump behind these
constexpr int kRounds = 8;                 // of polling timers that change what other timers poll

struct Raised {
    bool& flag;
    bool before;
    explicit Raised(bool& f) : flag(f), before(f) { flag = true; }
    ~Raised() { flag = before; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
};

}  // namespace

void Binding::touched() {
    view_.mark(*this);
}

View::View() : nextPaint_(Clock::now() + kFrame), lastEvents_(Clock::now()) {}
View::~View() = default;

void View::act(const std::function<void()>& what) {
    // While the windows are only painted, clocks of the toolkit may still strike: nothing gets in then.
    if (pulling_ || breathing_) return;
    ++depth_;
    changed_ = true;
    // What a handler reads is what the user sees, also what no event has told of.
    if (depth_ == 1) sample();
    try {
        what();
    } catch (const base::RuntimeError& error) {
        if (onError) onError(error.what());
    } catch (...) {
        --depth_;
        throw;
    }
    --depth_;
    settle();
    wake();
}

void View::actSoon(std::weak_ptr<bool> alive, std::function<void()> what) {
    if (!breathing_) return act(what);
    soon_.emplace_back(std::move(alive), std::move(what));
    wake();
}

void View::catchUp() {
    for (const auto& [alive, what] : std::exchange(soon_, {})) {
        if (!alive.expired()) act(what);
    }
}

void View::add(const std::shared_ptr<Binding>& binding) {
    std::erase_if(bindings_, [](const auto& weak) { return weak.expired(); });
    bindings_.push_back(binding);
    mark(*binding);
}

void View::mark(Binding& binding) {
    changed_ = true;
    if (!binding.marked_) {
        binding.marked_ = true;
        marked_.push_back(binding.weak_from_this());
    }
    if (depth_ > 0) {
        breathe();
    } else {
        wake();
    }
}

void View::addPoll(std::weak_ptr<bool> alive, forms::Timer& timer) {
    polls_.push_back({std::move(alive), &timer});
    changed_ = true;
}

void View::relayout(const std::function<void()>& what) {
    relayouts_.push_back(what);
}

void View::wake() {
    wxWakeUpIdle();
}

void View::pullMarked() {
    const Raised raised(pulling_);
    std::vector<std::weak_ptr<Binding>> now;
    now.swap(marked_);
    for (const auto& weak : now) {
        if (const auto binding = weak.lock()) {
            binding->marked_ = false;
            binding->pull();
        }
    }
    std::vector<std::function<void()>> layouts;
    layouts.swap(relayouts_);
    for (const auto& layout : layouts) layout();
}

void View::sample() {
    // A binding that is noted may close its window, and with it go bindings of this list.
    const std::vector<std::weak_ptr<Binding>> now = bindings_;
    for (const auto& weak : now) {
        if (const auto binding = weak.lock()) binding->sample();
    }
}

// False: nobody had to look.
bool View::firePolls() {
    if (!changed_) return false;
    changed_ = false;
    sample();
    fireTimers();
    return true;
}

void View::fireTimers() {
    nextPolls_ = Clock::now() + kFrame;
    std::erase_if(polls_, [](const Poll& poll) { return poll.alive.expired(); });
    // A timer's handler may close its window, and with it go timers of this list.
    const std::vector<Poll> now = polls_;
    for (const Poll& poll : now) {
        if (const auto alive = poll.alive.lock(); alive && *alive && poll.timer->Enabled) poll.timer->fire();
    }
}

void View::bury(wxWindow* window) {
    buried_.push_back(window);
    wake();
}

void View::beQuiet() {
    for (wxWindow* window : std::exchange(buried_, {})) {
        going_.emplace_back(window);
        window->Destroy();
    }
    std::erase_if(going_, [](const wxWeakRef<wxWindow>& window) { return !window; });
    if (!going_.empty()) {
        wake();
    } else if (whenQuiet) {
        whenQuiet();
    }
}

void View::settle() {
    if (pulling_ || breathing_) return;
    ++depth_;
    for (int round = 0; round < kRounds; ++round) {
        pullMarked();
        if (!firePolls()) break;
    }
    --depth_;
    if (depth_ > 0) return;
    if (soon_.empty()) return beQuiet();
    catchUp();
}

void View::breathe() {
    if (breathing_ || pulling_ || still_ > 0) return;
    const Clock::time_point now = Clock::now();
    if (now < nextPaint_) return;
    const Raised raised(breathing_);
    pullMarked();
    if (auto* loop = wxEventLoopBase::GetActive(); loop != nullptr) loop->YieldFor(wxEVT_CATEGORY_UI);
    painted(now);
}

// A log that grows by thousands of lines is laid out anew for each painting: the work goes before it.
void View::painted(Clock::time_point begin) {
    const Clock::time_point end = Clock::now();
    const Clock::duration pause = kPaintingShare * (end - begin);
    nextPaint_ = end + std::clamp<Clock::duration>(pause, kFrame, kLongestFrame);
}

void View::letEventsIn() {
    const Clock::time_point now = Clock::now();
    if (now - lastEvents_ < kBetweenEvents || breathing_ || pulling_) return;
    catchUp();
    const bool paints = now >= nextPaint_;
    if (paints) {
        settle();
    } else if (now >= nextPolls_) {
        // A program that paints in its own pauses would starve those who look at it in turns.
        ++depth_;
        fireTimers();
        --depth_;
    }
    if (auto* loop = wxEventLoopBase::GetActive(); loop != nullptr) loop->YieldFor(wxEVT_CATEGORY_ALL);
    if (paints) {
        settle();
        painted(now);
    }
    lastEvents_ = Clock::now();
}

}  // namespace tidvane::view
