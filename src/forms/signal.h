// A list of listeners, called synchronously in the order in which they connected.
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace tidvane::forms {

template <class... Args>
class Signal {
public:
    using Slot = std::function<void(Args...)>;

    void connect(Slot slot) { slots_.push_back(std::move(slot)); }
    void clear() { slots_.clear(); }

    // A listener may connect others or clear the list while it runs; those take part from the next call on.
    void operator()(Args... args) const {
        const std::size_t count = slots_.size();
        for (std::size_t i = 0; i < count && i < slots_.size(); ++i) {
            const Slot slot = slots_[i];
            slot(args...);
        }
    }

private:
    std::vector<Slot> slots_;
};

}  // namespace tidvane::forms
