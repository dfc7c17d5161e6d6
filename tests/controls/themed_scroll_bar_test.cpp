#include "controls/themed_scroll_bar.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "controls/changed_properties.h"
#include "forms/form.h"

namespace tidvane::controls {
namespace {

using enum ScrollPart;

constexpr int kButton = 17;

struct ScrollBarTest : ::testing::Test {
    forms::Form form{"frmAny"};
    ThemedScrollBar bar{form, "tsbVertical"};
    std::string log;

    ScrollBarTest() {
        bar.Change.connect([this] { log += "change " + std::to_string(bar.Value) + ";"; });
        bar.Scroll.connect([this] { log += "scroll " + std::to_string(bar.Value) + ";"; });
        bar.Wheel.connect([this](int amount) { log += "wheel " + std::to_string(amount) + ";"; });
    }
    void length(int pixels) { bar.setSize({kButton, pixels}, kButton); }
    // A track of 100 pixels: 17 to 117.
    void hundred(int max, int largeChange = 1) {
        length(134);
        bar.Max = max;
        bar.LargeChange = largeChange;
    }
    std::string told() { return std::exchange(log, std::string()); }
};

TEST_F(ScrollBarTest, BeginsWithItsInitialValues) {
    const std::map<std::string, StoredValue> expected{{"ContainerArrowKeys", false},
                                                      {"Enabled", true},
                                                      {"LargeChange", 1},
                                                      {"Max", 0},
                                                      {"Min", 0},
                                                      {"MouseWheel", true},
                                                      {"MouseWheelInContainer", false},
                                                      {"Orientation", 1},
                                                      {"ShowButtons", true},
                                                      {"SmallChange", 1},
                                                      {"Value", 0}};
    std::map<std::string, StoredValue> stored;
    for (const auto& row : ThemedScrollBar::properties()) stored[std::string(row.storedAs)] = valueOf(row, bar);
    EXPECT_EQ(stored, expected);
    EXPECT_EQ(bar.hWnd, 0);
}

// --- Layout

TEST_F(ScrollBarTest, ShowsButtonsTrackAndThumbWhereEightPixelsAreLeftForTheThumb) {
    length(2 * kButton + 8);
    EXPECT_EQ(bar.rectangle(FirstButton), (Rect{0, 0, 17, 17}));
    EXPECT_EQ(bar.rectangle(SecondButton), (Rect{0, 25, 17, 17}));
    EXPECT_EQ(bar.track(), (Rect{0, 17, 17, 8}));
    EXPECT_EQ(bar.rectangle(Thumb), (Rect{0, 17, 17, 8}));
}

TEST_F(ScrollBarTest, HasATrackWithoutAThumbWhereLessIsLeft) {
    length(2 * kButton + 7);
    EXPECT_EQ(bar.rectangle(SecondButton), (Rect{0, 24, 17, 17}));
    EXPECT_EQ(bar.track(), (Rect{0, 17, 17, 7}));
    EXPECT_TRUE(bar.rectangle(Thumb).empty());
    EXPECT_EQ(bar.partAt(5, 20), None);
}

TEST_F(ScrollBarTest, SharesItsLengthBetweenTwoHalfButtonsWhenTheyDoNotFit) {
    length(2 * kButton);
    EXPECT_EQ(bar.rectangle(FirstButton), (Rect{0, 0, 17, 17}));
    EXPECT_TRUE(bar.track().empty());
    length(20);
    EXPECT_EQ(bar.rectangle(FirstButton), (Rect{0, 0, 17, 10}));
    EXPECT_EQ(bar.rectangle(SecondButton), (Rect{0, 10, 17, 10}));
    EXPECT_TRUE(bar.track().empty());
    EXPECT_TRUE(bar.rectangle(Thumb).empty());
}

TEST_F(ScrollBarTest, LeavesTheOddPixelBetweenHalfButtonsToTheTrack) {
    length(21);
    EXPECT_EQ(bar.rectangle(FirstButton).height, 10);
    EXPECT_EQ(bar.track(), (Rect{0, 10, 17, 1}));
    EXPECT_EQ(bar.rectangle(SecondButton), (Rect{0, 11, 17, 10}));
    EXPECT_TRUE(bar.rectangle(Thumb).empty());
}

TEST_F(ScrollBarTest, NeverGivesAPartANegativeSize) {
    bar.Max = 10;
    for (int pixels = 0; pixels < 60; ++pixels) {
        length(pixels);
        for (const ScrollPart part : {FirstButton, SecondButton, TrackBefore, TrackAfter, Thumb}) {
            EXPECT_GE(bar.rectangle(part).height, 0) << pixels;
            EXPECT_LE(bar.rectangle(part).bottom(), pixels) << pixels;
        }
    }
}

TEST_F(ScrollBarTest, LiesDownWhenItsOrientationIsZero) {
    bar.Orientation = 0;
    bar.setSize({134, kButton}, kButton);
    EXPECT_EQ(bar.rectangle(SecondButton), (Rect{117, 0, 17, 17}));
    EXPECT_EQ(bar.track(), (Rect{17, 0, 100, 17}));
    bar.Orientation = -5;
    bar.setSize({kButton, 134}, kButton);
    EXPECT_EQ(bar.track(), (Rect{0, 17, 17, 100}));
}

TEST_F(ScrollBarTest, ThumbTakesTheTrackDividedByThePagesInIt) {
    hundred(30, 10);
    EXPECT_EQ(bar.thumbLength(), 25);  // 100 / (30 / 10 + 1)
    bar.LargeChange = 20;
    EXPECT_EQ(bar.thumbLength(), 40);  // 100 / 2.5
    bar.Min = 10;
    EXPECT_EQ(bar.thumbLength(), 50);  // 100 / (20 / 20 + 1)
}

TEST_F(ScrollBarTest, ThumbNeverGetsShorterThanEightPixels) {
    hundred(12, 1);
    EXPECT_EQ(bar.thumbLength(), 8);  // 100 / 13 would be 7
    bar.Max = std::numeric_limits<int>::max();
    bar.Min = std::numeric_limits<int>::min();
    EXPECT_EQ(bar.thumbLength(), 8);
}

TEST_F(ScrollBarTest, ThumbPositionIsTruncated) {
    hundred(30, 10);  // a way of 75 pixels, 2.5 for each step
    const std::map<int, int> expected{{0, 17}, {1, 19}, {2, 22}, {3, 24}, {29, 89}, {30, 92}};
    for (const auto& [value, position] : expected) {
        bar.Value = value;
        EXPECT_EQ(bar.rectangle(Thumb), (Rect{0, position, 17, 25})) << value;
        EXPECT_EQ(bar.rectangle(TrackBefore), (Rect{0, 17, 17, position - 17})) << value;
        EXPECT_EQ(bar.rectangle(TrackAfter), (Rect{0, position + 25, 17, 92 - position})) << value;
    }
}

TEST_F(ScrollBarTest, ThumbAtPositionZeroStandsOneButtonIn) {
    bar.ShowButtons = false;
    bar.setSize({kButton, 100}, kButton);
    bar.Max = 30;
    bar.LargeChange = 10;
    EXPECT_TRUE(bar.rectangle(FirstButton).empty());
    EXPECT_EQ(bar.track(), (Rect{0, 0, 17, 100}));
    EXPECT_EQ(bar.rectangle(Thumb).y, kButton);
    bar.Value = 1;
    EXPECT_EQ(bar.rectangle(Thumb).y, 2);
}

TEST_F(ScrollBarTest, ThumbStaysInItsTrackWhateverIsAssigned) {
    hundred(30, 10);
    for (const int value : {1000000, -1000000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        bar.Value = value;
        EXPECT_EQ(bar.Value, value);
        EXPECT_EQ(bar.rectangle(Thumb).y, value > 0 ? 92 : 17) << value;
    }
}

TEST_F(ScrollBarTest, DividesByNothingThatIsZero) {
    for (const int max : {0, -1, -10, 5}) {
        for (const int largeChange : {0, -1, 1, -5}) {
            hundred(max, largeChange);
            EXPECT_GE(bar.thumbLength(), 8) << max << " " << largeChange;
            EXPECT_LE(bar.rectangle(Thumb).bottom(), 117) << max << " " << largeChange;
            bar.mouseDown(5, bar.rectangle(Thumb).y + 1);
            bar.mouseMove(5, 60);
            bar.mouseMove(5, 100);
            bar.mouseUp();
            bar.Value = 0;
        }
    }
}

// --- Steps

TEST_F(ScrollBarTest, StepsStopAtMinAndMaxAndTellOnlyWhatChanges) {
    hundred(10);
    bar.Min = 2;
    bar.Value = 4;
    told();
    bar.stepDown(3);
    EXPECT_EQ(told(), "change 2;");
    bar.stepDown(3);
    EXPECT_EQ(told(), "");
    bar.stepUp(7);
    EXPECT_EQ(told(), "change 9;");
    bar.stepUp(7);
    EXPECT_EQ(told(), "change 10;");
    bar.stepUp(std::numeric_limits<int>::max());
    EXPECT_EQ(told(), "");
}

TEST_F(ScrollBarTest, WithMaxEqualToMinNothingStepsAndNothingIsTold) {
    hundred(0);
    EXPECT_EQ(bar.rectangle(Thumb), (Rect{0, 17, 17, 100}));
    int drawn = 0;
    bar.viewChanged.connect([&] { ++drawn; });
    bar.stepDown(1);
    bar.stepUp(1);
    EXPECT_EQ(drawn, 0);
    bar.mouseDown(5, 5);
    bar.repeat();
    bar.mouseUp();
    bar.wheel(-120, WheelPlace::Control);
    bar.keyDown(Key::End);
    EXPECT_EQ(bar.Value, 0);
    EXPECT_EQ(told().find("change"), std::string::npos);
}

TEST_F(ScrollBarTest, AssigningAValueMovesTheThumbRepaintsAndTells) {
    hundred(30, 10);
    int drawn = 0;
    bar.viewChanged.connect([&] { ++drawn; });
    bar.Value = 10;
    EXPECT_EQ(bar.rectangle(Thumb).y, 42);
    EXPECT_EQ(drawn, 1);
    EXPECT_EQ(told(), "change 10;");
    bar.Value = 10;
    EXPECT_EQ(drawn, 1);
    EXPECT_EQ(told(), "");
}

// --- Mouse

TEST_F(ScrollBarTest, ButtonsStepSmallAndTheTrackLarge) {
    hundred(30, 10);
    bar.SmallChange = 2;
    bar.Value = 15;
    told();
    bar.mouseDown(5, 5);
    bar.mouseUp();
    EXPECT_EQ(told(), "change 13;");
    bar.mouseDown(5, 130);
    bar.mouseUp();
    EXPECT_EQ(told(), "change 15;");
    bar.mouseDown(5, 18);
    bar.mouseUp();
    EXPECT_EQ(told(), "change 5;");
    bar.mouseDown(5, 116);
    bar.mouseUp();
    EXPECT_EQ(told(), "change 15;");
}

TEST_F(ScrollBarTest, RepeatsAfter300MillisecondsWhileTheButtonIsHeldOverThePart) {
    hundred(30, 10);
    EXPECT_EQ(bar.repeatDelay(), 0);
    bar.mouseDown(5, 130);
    EXPECT_EQ(told(), "change 1;");
    EXPECT_EQ(bar.repeatDelay(), 300);
    bar.repeat();
    EXPECT_EQ(told(), "change 2;");
    EXPECT_EQ(bar.repeatDelay(), ThemedScrollBar::kNextRepeat);
    bar.mouseMove(40, 130);  // beside the button
    bar.repeat();
    EXPECT_EQ(told(), "");
    EXPECT_FALSE(bar.pressed(SecondButton));
    bar.mouseMove(5, 130);
    bar.repeat();
    EXPECT_EQ(told(), "change 3;");
    bar.mouseUp();
    EXPECT_EQ(bar.repeatDelay(), 0);
    bar.repeat();
    EXPECT_EQ(told(), "");
}

TEST_F(ScrollBarTest, RepeatOnTheTrackEndsWhereTheThumbMeetsTheMouse) {
    hundred(100, 10);  // the thumb is 9 long
    bar.mouseDown(5, 67);
    for (int i = 0; i < 20; ++i) bar.repeat();
    EXPECT_EQ(bar.partAt(5, 67), Thumb);
    EXPECT_LT(bar.Value, 100);
}

TEST_F(ScrollBarTest, ADoubleClickIsAFurtherPress) {
    hundred(30, 10);
    bar.mouseDown(5, 130);
    bar.mouseUp();
    bar.doubleClick(5, 130);
    bar.mouseUp();
    EXPECT_EQ(told(), "change 1;change 2;");
}

TEST_F(ScrollBarTest, DraggingTheThumbScrollsAndTellsTheChangeAtItsEnd) {
    hundred(30, 10);
    bar.mouseDown(5, 20);  // 3 pixels within the thumb
    bar.mouseMove(5, 21);
    EXPECT_EQ(bar.rectangle(Thumb).y, 18);
    EXPECT_EQ(told(), "");  // 0.4 of a step
    bar.mouseMove(5, 45);
    EXPECT_EQ(bar.rectangle(Thumb).y, 42);
    EXPECT_EQ(told(), "scroll 10;");
    bar.mouseMove(5, 46);
    EXPECT_EQ(bar.rectangle(Thumb).y, 43);  // it follows the mouse, between the places of two values
    EXPECT_EQ(told(), "");
    bar.mouseUp();
    EXPECT_EQ(bar.rectangle(Thumb).y, 42);
    EXPECT_EQ(told(), "change 10;");
}

TEST_F(ScrollBarTest, ADraggedThumbStaysBetweenTheEndsOfItsTrack) {
    hundred(30, 10);
    bar.mouseDown(5, 20);
    bar.mouseMove(5, 5000);
    EXPECT_EQ(bar.rectangle(Thumb).y, 92);
    EXPECT_EQ(told(), "scroll 30;");
    bar.mouseMove(5, -5000);
    EXPECT_EQ(bar.rectangle(Thumb).y, 17);
    EXPECT_EQ(told(), "scroll 0;");
    bar.mouseUp();
    EXPECT_EQ(told(), "");  // back where it began
}

TEST_F(ScrollBarTest, AThumbIsDraggedOnlyWithinTheBandAroundTheTrack) {
    hundred(30, 10);
    bar.mouseDown(5, 20);
    bar.mouseMove(kButton + ThemedScrollBar::kDragBand, 45);
    EXPECT_EQ(told(), "");
    bar.mouseMove(-ThemedScrollBar::kDragBand - 1, 45);
    EXPECT_EQ(told(), "");
    bar.mouseMove(kButton + ThemedScrollBar::kDragBand - 1, 45);
    EXPECT_EQ(told(), "scroll 10;");
    bar.mouseMove(-ThemedScrollBar::kDragBand, 70);
    EXPECT_EQ(told(), "scroll 20;");
}

TEST_F(ScrollBarTest, AThumbAsLongAsItsTrackCannotBeDragged) {
    hundred(0);
    bar.mouseDown(5, 20);
    bar.mouseMove(5, 90);
    EXPECT_EQ(bar.rectangle(Thumb).y, 17);
    bar.mouseUp();
    EXPECT_EQ(told(), "");
}

TEST_F(ScrollBarTest, AThumbUnderWhichTheRangeGoesChangesNoValue) {
    for (const int max : {0, -5}) {
        hundred(30, 10);
        bar.Value = 12;
        bar.mouseDown(5, bar.rectangle(Thumb).y + 3);
        told();
        bar.Max = max;
        bar.mouseMove(5, 100);
        bar.mouseMove(5, 0);
        EXPECT_EQ(bar.Value, 12) << max;
        EXPECT_EQ(told(), "") << max;
        EXPECT_GE(bar.rectangle(Thumb).y, 17) << max;
        EXPECT_LE(bar.rectangle(Thumb).bottom(), 117) << max;
        bar.mouseUp();
    }
}

TEST_F(ScrollBarTest, ThePressedLookFollowsTheMouseOffThePartAndBack) {
    hundred(30, 10);
    bar.mouseDown(5, 130);
    EXPECT_TRUE(bar.pressed(SecondButton));
    bar.mouseMove(5, 100);
    EXPECT_FALSE(bar.pressed(SecondButton));
    EXPECT_FALSE(bar.hot(TrackAfter));
    bar.mouseMove(5, 131);
    EXPECT_TRUE(bar.pressed(SecondButton));
    bar.cancelMode();
    EXPECT_FALSE(bar.pressed(SecondButton));
}

TEST_F(ScrollBarTest, TheHotPartFollowsTheMouse) {
    hundred(30, 10);
    int drawn = 0;
    bar.viewChanged.connect([&] { ++drawn; });
    const std::vector<std::pair<int, ScrollPart>> places{
        {5, FirstButton}, {20, Thumb}, {60, TrackAfter}, {61, TrackAfter}, {130, SecondButton}};
    for (const auto& [y, part] : places) {
        bar.mouseMove(5, y);
        EXPECT_TRUE(bar.hot(part)) << y;
    }
    EXPECT_EQ(drawn, 4);
    bar.mouseLeave();
    EXPECT_FALSE(bar.hot(SecondButton));
    bar.Value = 30;
    bar.mouseMove(5, 60);
    EXPECT_TRUE(bar.hot(TrackBefore));
}

TEST_F(ScrollBarTest, DoesNothingWhileItIsDisabled) {
    hundred(30, 10);
    bar.Enabled = false;
    bar.mouseMove(5, 130);
    bar.mouseDown(5, 130);
    EXPECT_EQ(bar.repeatDelay(), 0);
    bar.repeat();
    bar.mouseUp();
    EXPECT_FALSE(bar.wheel(-120, WheelPlace::Control));
    EXPECT_FALSE(bar.keyDown(Key::Down));
    EXPECT_EQ(bar.Value, 0);
    EXPECT_EQ(told(), "");
}

// --- Wheel and keys

TEST_F(ScrollBarTest, AForwardTurnOfTheWheelIsNegative) {
    hundred(30, 10);
    bar.SmallChange = 3;
    bar.Value = 10;
    told();
    EXPECT_TRUE(bar.wheel(120, WheelPlace::Control));
    EXPECT_EQ(told(), "change 7;wheel -3;");
    EXPECT_TRUE(bar.wheel(-120, WheelPlace::Control));
    EXPECT_EQ(told(), "change 10;wheel 3;");
}

TEST_F(ScrollBarTest, PartsOfANotchAddUpInOneDirection) {
    hundred(30, 10);
    for (int i = 0; i < 3; ++i) bar.wheel(-30, WheelPlace::Control);
    EXPECT_EQ(told(), "");
    bar.wheel(-30, WheelPlace::Control);
    EXPECT_EQ(told(), "change 1;wheel 1;");
    bar.wheel(-90, WheelPlace::Control);
    bar.wheel(30, WheelPlace::Control);
    bar.wheel(-30, WheelPlace::Control);
    EXPECT_EQ(told(), "");
}

TEST_F(ScrollBarTest, TheWheelCountsOverTheBarAndOnWishOverItsContainer) {
    hundred(30, 10);
    EXPECT_FALSE(bar.wheel(-120, WheelPlace::Container));
    EXPECT_FALSE(bar.wheel(-120, WheelPlace::Elsewhere));
    EXPECT_EQ(told(), "");
    bar.MouseWheelInContainer = true;
    EXPECT_TRUE(bar.wheel(-120, WheelPlace::Container));
    EXPECT_FALSE(bar.wheel(-120, WheelPlace::Elsewhere));
    EXPECT_EQ(told(), "change 1;wheel 1;");
    bar.MouseWheel = false;
    EXPECT_FALSE(bar.wheel(-120, WheelPlace::Control));
    EXPECT_EQ(told(), "");
}

TEST_F(ScrollBarTest, KnowsWhichKeysAreHeld) {
    bar.keyDown(Key::Shift);
    bar.keyDown(Key::Alt);
    EXPECT_EQ(bar.keyState(), 5);
    bar.keyDown(Key::Ctrl);
    EXPECT_EQ(bar.keyState(), 7);
    bar.keyUp(Key::Shift);
    EXPECT_EQ(bar.keyState(), 6);
}

TEST_F(ScrollBarTest, KeysStepAndArrowKeysOfTheContainerCountOnWishOnly) {
    hundred(30, 10);
    bar.keyDown(Key::Down);
    bar.keyDown(Key::PageDown);
    bar.keyDown(Key::Up);
    bar.keyDown(Key::End);
    bar.keyDown(Key::PageUp);
    bar.keyDown(Key::Home);
    EXPECT_EQ(told(), "change 1;change 11;change 10;change 30;change 20;change 0;");
    EXPECT_FALSE(bar.keyDown(Key::Down, true));
    EXPECT_EQ(told(), "");
    bar.ContainerArrowKeys = true;
    EXPECT_TRUE(bar.keyDown(Key::Down, true));
    EXPECT_FALSE(bar.keyDown(Key::PageDown, true));
    EXPECT_EQ(told(), "change 1;");
}

TEST_F(ScrollBarTest, EveryPropertyIsStoredAndDrawnAnew) {
    expectEveryPropertyIsStoredAndRedraws(bar);
}

}  // namespace
}  // namespace tidvane::controls
