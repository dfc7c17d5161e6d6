// A value of a control that tells when it changes.
#pragma once

#include <utility>

#include "forms/signal.h"

namespace tidvane::forms {

// Assigning an equal value does nothing. A different one is stored, then the view is told, then the logic's event is
// raised, all before the assignment returns. The two never share a list: logic and display do not wait for each other.
template <class T>
class Property {
public:
    Property(T initial, const Signal<>* view, const Signal<>* event = nullptr)
        : value_(std::move(initial)), view_(view), event_(event) {}
    Property(const Property&) = delete;

    Property& operator=(const Property& other) {
        if (this != &other) *this = T(other.value_);
        return *this;
    }
    Property& operator=(T value) {
        if (value == value_) return *this;
        value_ = std::move(value);
        if (view_ != nullptr) (*view_)();
        if (event_ != nullptr) (*event_)();
        return *this;
    }

    const T& get() const { return value_; }
    operator const T&() const { return value_; }
    // For a state that is set before anybody listens, as the designer of a window does.
    void design(T value) { value_ = std::move(value); }

private:
    T value_;
    const Signal<>* view_;
    const Signal<>* event_;
};

template <class T, class U>
bool operator==(const Property<T>& a, const U& b) {
    return a.get() == b;
}

}  // namespace tidvane::forms
