// The properties that a control keeps under names of its own in the data of its window: one table per control, from
// which the control takes its initial values.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "forms/property.h"

namespace tidvane::controls {

// An empty name and the size 0 mean the window's own font.
struct Font {
    std::string name;
    double size = 0;  // points
    bool bold = false;
    bool italic = false;
    bool operator==(const Font&) const = default;
};

// Pictures are texts: the picture's name, empty for none.
using InitialValue = std::variant<bool, int, unsigned, std::string_view, Font>;

template <class C>
struct StoredProperty {
    std::string_view name;
    std::string_view storedAs;
    std::variant<forms::Property<bool> C::*, forms::Property<int> C::*, forms::Property<unsigned> C::*,
                 forms::Property<std::string> C::*, forms::Property<Font> C::*>
        member;
    InitialValue initial;
};

// What a property holds now, under its kind.
using StoredValue = std::variant<bool, int, unsigned, std::string, Font>;

template <class C>
StoredValue valueOf(const StoredProperty<C>& row, const C& control) {
    return std::visit([&](auto member) { return StoredValue((control.*member).get()); }, row.member);
}

template <class C>
StoredValue initialOf(const StoredProperty<C>& row) {
    return std::visit(
        []<class T>(const T& initial) {
            if constexpr (std::is_same_v<T, std::string_view>)
                return StoredValue(std::string(initial));
            else
                return StoredValue(initial);
        },
        row.initial);
}

// Gives every property of a table its initial value, before anybody listens.
template <class C, class Table>
void designFrom(const Table& table, C& control) {
    for (const StoredProperty<C>& row : table) {
        std::visit(
            [&](auto member) {
                using Value = std::decay_t<decltype((control.*member).get())>;
                (control.*member).design(std::get<Value>(initialOf(row)));
            },
            row.member);
    }
}

}  // namespace tidvane::controls
