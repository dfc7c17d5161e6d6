#include "controls/is_button.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "controls/changed_properties.h"
#include "forms/form.h"

namespace tidvane::controls {
namespace {

struct ButtonTest : ::testing::Test {
    forms::Form form{"frmAny"};
    isButton button{form, "cmdClean", "Clean"};
    std::string log;

    ButtonTest() {
        button.Click.connect([this] { log += "click;"; });
        button.MouseEnter.connect([this] { log += "enter;"; });
        button.MouseLeave.connect([this] { log += "leave;"; });
    }
    std::string told() { return std::exchange(log, std::string()); }
};

TEST_F(ButtonTest, StoresItsPropertiesUnderTheirOwnNamesWithTheirInitialValues) {
    const isButton plain(form, "cmdPlain");
    const std::string none;
    // clang-format off
    const std::map<std::string, std::pair<std::string, StoredValue>> expected{
        {"Style", {"Style", 3}},
        {"Caption", {"Caption", none}},
        {"Icon", {"Icon", none}},
        {"IconSize", {"IconSize", 16}},
        {"IconAlign", {"IconAlign", 1}},
        {"CaptionAlign", {"CaptionAlign", 0}},
        {"NonThemeStyle", {"iNonThemeStyle", 5}},
        {"Enabled", {"Enabled", true}},
        {"ShowFocus", {"ShowFocus", false}},
        {"UseCustomColors", {"USeCustomColors", false}},
        {"BackColor", {"BackColor", 0x80000000u + 15}},
        {"HighlightColor", {"HighlightColor", 0x80000000u + 13}},
        {"FontColor", {"FontColor", 0x80000000u + 18}},
        {"FontHighlightColor", {"FontHighlightColor", 0x80000000u + 18}},
        {"ToolTipText", {"ToolTipText", none}},
        {"ToolTipTitle", {"ToolTipTitle", none}},
        {"ToolTipIcon", {"ToolTipIcon", 0}},
        {"ToolTipType", {"ToolTipType", 0}},
        {"ToolTipBackColor", {"ttBackColor", 0x80000000u + 23}},
        {"ToolTipForeColor", {"ttForeColor", 0x80000000u + 24}},
        {"Font", {"Font", Font()}},
        {"ButtonType", {"ButtonType", 0}},
        {"Value", {"Value", false}},
        {"MaskColor", {"MaskColor", 0xC0C0C0u}},
        {"UseMaskColor", {"UseMaskColor", false}},
        {"MousePointer", {"MousePointer", 0}},
        {"RoundedBordersByTheme", {"RoundedBordersByTheme", true}},
        {"RightToLeft", {"bRTLText", false}},
    };
    // clang-format on
    std::map<std::string, std::pair<std::string, StoredValue>> stored;
    for (const auto& row : isButton::properties()) {
        stored[std::string(row.name)] = {std::string(row.storedAs), valueOf(row, plain)};
    }
    EXPECT_EQ(stored, expected);
}

TEST_F(ButtonTest, SettingItsValueLooksPressedRepaintsAndStartsNothing) {
    int drawn = 0;
    button.viewChanged.connect([&] { ++drawn; });
    button.Value = true;
    EXPECT_EQ(button.state(), ButtonState::Pressed);
    EXPECT_EQ(drawn, 1);
    button.Value = false;
    EXPECT_EQ(button.state(), ButtonState::Normal);
    EXPECT_EQ(drawn, 2);
    EXPECT_EQ(told(), "");
}

TEST_F(ButtonTest, ClicksWhenTheMouseIsLetGoOverIt) {
    button.mouseEnter();
    EXPECT_EQ(button.state(), ButtonState::Hot);
    button.mouseDown();
    EXPECT_EQ(button.state(), ButtonState::Pressed);
    button.mouseUp();
    EXPECT_EQ(told(), "enter;click;");
    EXPECT_EQ(button.state(), ButtonState::Hot);
    button.mouseLeave();
    EXPECT_EQ(told(), "leave;");
    EXPECT_EQ(button.state(), ButtonState::Normal);
}

TEST_F(ButtonTest, DoesNotClickWhenTheMouseHasLeftIt) {
    button.mouseEnter();
    button.mouseDown();
    button.mouseLeave();
    EXPECT_EQ(button.state(), ButtonState::Normal);
    button.mouseUp();
    button.mouseUp();
    EXPECT_EQ(told(), "enter;leave;");
    button.mouseEnter();
    button.mouseDown();
    button.cancelMode();
    button.mouseUp();
    EXPECT_EQ(told(), "enter;");
}

TEST_F(ButtonTest, TellsEnterAndLeaveOnceEach) {
    button.mouseEnter();
    button.mouseEnter();
    button.mouseLeave();
    button.mouseLeave();
    EXPECT_EQ(told(), "enter;leave;");
}

TEST_F(ButtonTest, TellsALeaveForEachEnterAndNoOtherWhateverDisablesIt) {
    button.mouseEnter();
    button.Enabled = false;
    button.mouseLeave();
    EXPECT_EQ(told(), "enter;leave;");
    button.mouseEnter();
    button.Enabled = true;
    button.mouseLeave();
    EXPECT_EQ(told(), "");
    // Enabled under the mouse: it enters with its next move.
    button.Enabled = false;
    button.mouseEnter();
    button.Enabled = true;
    button.mouseEnter();
    button.mouseEnter();
    EXPECT_EQ(told(), "enter;");
    button.mouseLeave();
    EXPECT_EQ(told(), "leave;");
}

TEST_F(ButtonTest, TakesTheKeyboard) {
    EXPECT_TRUE(button.keyDown(Key::Enter));
    EXPECT_EQ(told(), "click;");
    EXPECT_TRUE(button.keyDown(Key::Space));
    EXPECT_TRUE(button.keyDown(Key::Space));  // held
    EXPECT_EQ(button.state(), ButtonState::Pressed);
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(button.keyUp(Key::Space));
    EXPECT_EQ(told(), "click;");
    EXPECT_FALSE(button.keyDown(Key::Down));
    EXPECT_FALSE(button.keyUp(Key::Space));
}

TEST_F(ButtonTest, ASpaceBarHeldWhileTheFocusGoesClicksNothing) {
    button.setFocus(true, true);
    button.keyDown(Key::Space);
    button.setFocus(false);
    EXPECT_EQ(button.state(), ButtonState::Normal);
    button.keyUp(Key::Space);
    EXPECT_EQ(told(), "");
}

TEST_F(ButtonTest, DoesNothingWhileItIsDisabledOrHidden) {
    for (auto* property : {&button.Enabled, &button.Visible}) {
        *property = false;
        button.mouseEnter();
        button.mouseDown();
        button.mouseUp();
        button.mouseLeave();
        button.press();
        EXPECT_FALSE(button.keyDown(Key::Enter));
        EXPECT_FALSE(button.keyDown(Key::Space));
        EXPECT_FALSE(button.keyUp(Key::Space));
        *property = true;
    }
    EXPECT_EQ(told(), "");
    button.Enabled = false;
    EXPECT_EQ(button.state(), ButtonState::Disabled);
    EXPECT_TRUE(button.iconInGrey());
    button.Value = true;
    EXPECT_EQ(button.state(), ButtonState::Disabled);
}

TEST_F(ButtonTest, AButtonThatStaysDownTurnsItsValueOverBeforeItTells) {
    bool seen = false;
    button.Click.connect([&] { seen = button.Value; });
    button.press();
    EXPECT_FALSE(seen);
    button.ButtonType = 1;
    button.press();
    EXPECT_TRUE(seen);
    button.press();
    EXPECT_FALSE(button.Value);
}

TEST_F(ButtonTest, ShowsTheFocusOnWishOrWhenTheKeyboardBroughtIt) {
    button.setFocus(true);
    EXPECT_TRUE(button.focused());
    EXPECT_FALSE(button.showsFocus());
    button.ShowFocus = true;
    EXPECT_TRUE(button.showsFocus());
    button.ShowFocus = false;
    button.setFocus(false);
    button.setFocus(true, true);
    EXPECT_TRUE(button.showsFocus());
    button.setFocus(false);
    EXPECT_FALSE(button.showsFocus());
}

TEST_F(ButtonTest, HasOneLookWithAVisualStyleAndAnotherWithout) {
    EXPECT_EQ(button.look(true), 3);
    EXPECT_EQ(button.look(false), 5);
    button.Style = 8;
    button.NonThemeStyle = 0;
    EXPECT_EQ(button.look(true), 8);
    EXPECT_EQ(button.look(false), 0);
}

TEST_F(ButtonTest, KnowsElevenLooksAndDrawsOthersAsTheDefault) {
    std::set<std::string_view> names;
    for (int look = 0; look < kButtonLooks; ++look) names.insert(buttonLook(look).name);
    EXPECT_EQ(names.size(), 11u);
    for (const int unknown : {-1, 11, 1000}) EXPECT_EQ(buttonLook(unknown).name, buttonLook(3).name);
}

TEST_F(ButtonTest, UsesItsOwnColoursOnWishOnly) {
    button.BackColor = 1u;
    button.HighlightColor = 2u;
    button.FontColor = 3u;
    button.FontHighlightColor = 4u;
    EXPECT_EQ(button.bodyColour(), 0x8000000Fu);
    EXPECT_EQ(button.captionColour(), 0x80000012u);
    button.UseCustomColors = true;
    EXPECT_EQ(button.bodyColour(), 1u);
    EXPECT_EQ(button.captionColour(), 3u);
    button.mouseEnter();
    EXPECT_EQ(button.bodyColour(), 2u);
    EXPECT_EQ(button.captionColour(), 4u);
    button.Enabled = false;
    EXPECT_EQ(button.captionColour(), 0x80000011u);
}

TEST_F(ButtonTest, HasATipOfItsOwn) {
    button.ToolTipText = "text";
    button.ToolTipTitle = "title";
    button.ToolTipIcon = 1;
    button.ToolTipForeColor = 7u;
    const ButtonTip tip = button.tip();
    EXPECT_EQ(tip.text, "text");
    EXPECT_EQ(tip.title, "title");
    EXPECT_EQ(tip.icon, 1);
    EXPECT_EQ(tip.backColor, 0x80000017u);
    EXPECT_EQ(tip.foreColor, 7u);
}

// --- Places

TEST_F(ButtonTest, TellsATipWithALookOfItsOwn) {
    button.ToolTipText = "tip";
    button.ToolTipTitle = "title";
    EXPECT_FALSE(button.hasOwnTip());
    for (auto* number : {&button.ToolTipIcon, &button.ToolTipType}) {
        *number = 1;
        EXPECT_TRUE(button.hasOwnTip());
        *number = 0;
    }
    for (auto* colour : {&button.ToolTipBackColor, &button.ToolTipForeColor}) {
        const unsigned before = *colour;
        *colour = 0xFFu;
        EXPECT_TRUE(button.hasOwnTip());
        *colour = before;
    }
    EXPECT_FALSE(button.hasOwnTip());
}

TEST_F(ButtonTest, CentresACaptionAlone) {
    const ButtonPlaces places = button.places({100, 30}, {40, 14});
    EXPECT_TRUE(places.icon.empty());
    EXPECT_EQ(places.caption, (Rect{30, 8, 40, 14}));
}

TEST_F(ButtonTest, AlignsTheCaptionToEachSide) {
    const std::map<int, Rect> expected{{0, {30, 8, 40, 14}}, {1, {4, 8, 40, 14}},   {2, {56, 8, 40, 14}},
                                       {3, {30, 4, 40, 14}}, {4, {30, 12, 40, 14}}, {9, {30, 8, 40, 14}}};
    for (const auto& [align, place] : expected) {
        button.CaptionAlign = align;
        EXPECT_EQ(button.places({100, 30}, {40, 14}).caption, place) << align;
    }
}

TEST_F(ButtonTest, PutsTheIconAsideAndTheCaptionIntoTheRest) {
    button.Icon = "ImgPurge";
    ButtonPlaces places = button.places({100, 30}, {40, 14});
    EXPECT_EQ(places.icon, (Rect{4, 7, 16, 16}));
    EXPECT_EQ(places.caption, (Rect{41, 8, 40, 14}));  // in the middle of 26 to 96
    button.IconAlign = 2;
    places = button.places({100, 30}, {40, 14});
    EXPECT_EQ(places.icon, (Rect{80, 7, 16, 16}));
    EXPECT_EQ(places.caption, (Rect{19, 8, 40, 14}));
}

TEST_F(ButtonTest, PutsTheIconAboveOrBelow) {
    button.Icon = "ImgPurge";
    button.IconAlign = 3;
    ButtonPlaces places = button.places({60, 60}, {40, 14});
    EXPECT_EQ(places.icon, (Rect{22, 4, 16, 16}));
    EXPECT_EQ(places.caption, (Rect{10, 34, 40, 14}));
    button.IconAlign = 4;
    places = button.places({60, 60}, {40, 14});
    EXPECT_EQ(places.icon, (Rect{22, 40, 16, 16}));
    EXPECT_EQ(places.caption, (Rect{10, 12, 40, 14}));
}

TEST_F(ButtonTest, PutsIconAndCaptionIntoTheMiddleSideBySide) {
    button.Icon = "ImgPurge";
    button.IconAlign = 0;
    const ButtonPlaces places = button.places({100, 30}, {40, 14});
    EXPECT_EQ(places.icon, (Rect{19, 7, 16, 16}));
    EXPECT_EQ(places.caption, (Rect{41, 8, 40, 14}));
}

TEST_F(ButtonTest, CentresAnIconWithoutACaption) {
    button.Icon = "ImgPurge";
    button.Caption = "";
    EXPECT_EQ(button.places({30, 30}, {0, 0}).icon, (Rect{7, 7, 16, 16}));
    EXPECT_TRUE(button.places({30, 30}, {0, 0}).caption.empty());
}

TEST_F(ButtonTest, MirrorsItsPlacesFromRightToLeft) {
    button.Icon = "ImgPurge";
    button.CaptionAlign = 1;
    button.RightToLeft = true;
    const ButtonPlaces places = button.places({100, 30}, {40, 14});
    EXPECT_EQ(places.icon, (Rect{80, 7, 16, 16}));
    EXPECT_EQ(places.caption, (Rect{34, 8, 40, 14}));
}

TEST_F(ButtonTest, WantsRoomForAllThatItShows) {
    EXPECT_EQ(button.wanted({40, 14}), (Size{48, 22}));
    button.Icon = "ImgPurge";
    EXPECT_EQ(button.wanted({40, 14}), (Size{70, 24}));
    const ButtonPlaces places = button.places(button.wanted({40, 14}), {40, 14});
    EXPECT_EQ(places.caption.width, 40);
    EXPECT_EQ(places.caption.x, places.icon.right() + isButton::kGap);
    button.IconAlign = 3;
    EXPECT_EQ(button.wanted({40, 14}), (Size{48, 44}));
}

TEST_F(ButtonTest, GivesNothingANegativeSizeInASmallButton) {
    button.Icon = "ImgPurge";
    for (const int align : {0, 1, 2, 3, 4}) {
        button.IconAlign = align;
        for (int side = 0; side < 40; side += 3) {
            const ButtonPlaces places = button.places({side, side}, {40, 14});
            for (const Rect& box : {places.icon, places.caption}) {
                EXPECT_GE(box.width, 0);
                EXPECT_GE(box.height, 0);
            }
        }
    }
}

// --- The rest of its interface

TEST_F(ButtonTest, DrawsIconsInGreyByBrightness) {
    EXPECT_EQ(isButton::PaintIconGrayscale(0x000000u), 0x000000u);
    EXPECT_EQ(isButton::PaintIconGrayscale(0xFFFFFFu), 0xFFFFFFu);
    EXPECT_EQ(isButton::PaintIconGrayscale(0x0000FFu), 0x4C4C4Cu);  // red
    EXPECT_EQ(isButton::PaintIconGrayscale(0x00FF00u), 0x959595u);  // green
    EXPECT_EQ(isButton::PaintIconGrayscale(0xFF0000u), 0x1D1D1Du);  // blue
}

TEST_F(ButtonTest, OpensALinkThroughWhoeverCan) {
    EXPECT_FALSE(button.OpenLink("https://tidvane.example"));
    std::string opened;
    button.openLink = [&](const std::string& address) {
        opened += address;
        return true;
    };
    EXPECT_TRUE(button.OpenLink("https://tidvane.example"));
    EXPECT_FALSE(button.OpenLink(""));
    EXPECT_EQ(opened, "https://tidvane.example");
}

TEST_F(ButtonTest, RefreshRepaints) {
    int drawn = 0;
    button.viewChanged.connect([&] { ++drawn; });
    button.Refresh();
    EXPECT_EQ(drawn, 1);
    EXPECT_EQ(button.About(), isButton::VERSION);
}

TEST_F(ButtonTest, EveryPropertyIsStoredAndDrawnAnew) {
    expectEveryPropertyIsStoredAndRedraws(button);
}

}  // namespace
}  // namespace tidvane::controls
