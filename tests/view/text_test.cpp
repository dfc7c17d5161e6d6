#include "view/text.h"

#include <gtest/gtest.h>

#include <array>

namespace tidvane::view {
namespace {

TEST(NativeText, bothDirectionsKeepEveryCharacter) {
    for (const char* text : {"", "plain", "Größe in KB", "日本語", "🗑 bin", "a\tb"}) {
        EXPECT_EQ(fromNative(toNative(text)), text);
    }
}

TEST(NativeText, bytesThatAreNoTextStillShowSomething) {
    EXPECT_EQ(toNative("caf\xE9").length(), 4u);
}

TEST(NativeText, lineEndsAreOneSignThereAndTwoHere) {
    EXPECT_EQ(fromNative(linesToNative("a\r\nb\rc\nd\r\n")), "a\nb\nc\nd\n");
    EXPECT_EQ(linesFromNative("a\nb\n"), "a\r\nb\r\n");
    EXPECT_EQ(linesFromNative(linesToNative("one\r\n\r\ntwo")), "one\r\n\r\ntwo");
}

struct Place {
    std::size_t model;
    long native;
};

// "ä" one unit, the bin two (one character), CR LF two (one character).
constexpr const char* kText = "ä🗑\r\nb\r\n";
constexpr std::array kPlaces{Place{0, 0}, Place{1, 1}, Place{3, 2}, Place{5, 3}, Place{6, 4}, Place{8, 5}};

TEST(NativeText, positionsCountUnitsHereAndCharactersThere) {
    for (const Place& place : kPlaces) {
        EXPECT_EQ(positionToNative(kText, place.model), place.native) << place.model;
        EXPECT_EQ(positionFromNative(kText, place.native), place.model) << place.native;
    }
}

TEST(NativeText, aPositionPastTheEndIsTheEnd) {
    EXPECT_EQ(positionToNative(kText, 100), 5);
    EXPECT_EQ(positionFromNative(kText, 100), 8u);
    EXPECT_EQ(positionToNative("", 3), 0);
}

TEST(NativeText, aPositionInsideACharacterIsBehindIt) {
    EXPECT_EQ(positionToNative(kText, 2), 2);  // between the halves of the bin
    EXPECT_EQ(positionToNative(kText, 4), 3);  // between CR and LF
}

}  // namespace
}  // namespace tidvane::view
