// Every row of a control's table of stored properties, set to another value.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <variant>

#include "controls/stored_properties.h"

namespace tidvane::controls {

inline bool anotherThan(bool value) {
    return !value;
}
inline int anotherThan(int value) {
    return value + 1;
}
inline unsigned anotherThan(unsigned value) {
    return value ^ 0x10u;
}
inline std::string anotherThan(const std::string& value) {
    return value + "x";
}
inline Font anotherThan(Font value) {
    value.bold = !value.bold;
    return value;
}

template <class C>
void expectEveryPropertyIsStoredAndRedraws(C& control) {
    int drawn = 0;
    control.viewChanged.connect([&drawn] { ++drawn; });
    for (const auto& row : C::properties()) {
        std::visit(
            [&](auto member) {
                const auto wanted = anotherThan((control.*member).get());
                drawn = 0;
                control.*member = wanted;
                EXPECT_EQ((control.*member).get(), wanted) << row.name;
                EXPECT_GT(drawn, 0) << row.name;
            },
            row.member);
    }
}

}  // namespace tidvane::controls
