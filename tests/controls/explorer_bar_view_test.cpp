// Places, motion, mouse, keyboard and colours of the task pane: all that a painter works from.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/explorer_bar.h"
#include "forms/form.h"
#include "forms/simple_controls.h"

namespace tidvane::controls {
namespace {

using M = ExplorerMetrics;

// A character is 6 wide (7 in bold), a line 15 high.
struct PaneViewTest : ::testing::Test {
    forms::Form form{"frmAny"};
    ExplorerBar pane{form, "ExplorerBar1"};
    forms::Frame frame{form, "frame"};
    int measured = 0;
    int drawn = 0;
    std::string log;

    PaneViewTest() {
        pane.viewChanged.connect([this] { ++drawn; });
        pane.GroupClick.connect([this](int group, bool open) { tell("group", group, open ? 1 : 0); });
        pane.ItemClick.connect([this](int group, int item) { tell("item", group, item); });
        pane.MouseHover.connect([this](int group, int item) { tell("hover", group, item); });
        pane.MouseOut.connect([this] { tell("out"); });
    }
    template <class... N>
    void tell(const char* what, N... numbers) {
        log += what;
        ((log += " " + std::to_string(numbers)), ...);
        log += ";";
    }
    std::string told() { return std::exchange(log, std::string()); }

    void view(int width, int height) {
        ExplorerMeasure measure;
        measure.text = [this](const std::string& text, bool bold, int room) {
            ++measured;
            const int letter = bold ? 7 : 6;
            const int letters = std::max(1, room / letter);
            return 15 * ((static_cast<int>(text.size()) + letters - 1) / letters);
        };
        measure.container = [](const forms::Control&, int) { return 77; };
        measure.picture = [](const std::string& name) { return name == "wide" ? Size{1000, 500} : Size{32, 32}; };
        pane.setView({width, height}, measure);
    }
    // Two groups, of three and of two items, and the details.
    void fill() {
        pane.AddNormalGroup("Clean", "ImgPurge");
        for (const char* caption : {"Start", "Clean", "Options"}) pane.AddItem(0, caption, false, "ImgStart");
        pane.AddDetailGroup("Details", "Version", "ImgIcon");
        pane.AddSpecialGroup("Plug-ins");
        for (const char* caption : {"Apps", "More"}) pane.AddItem(2, caption);
    }
    const GroupPlace& group(int number) { return *pane.layout().group(number); }
    Rect item(int number, int row) { return pane.layout().item(number, row)->box; }
    static std::pair<int, int> middle(const Rect& box) { return {box.x + box.width / 2, box.y + box.height / 2}; }
    void move(const Rect& box) { pane.mouseMove(middle(box).first, middle(box).second); }
    void press(const Rect& box) { pane.mouseDown(MouseButton::Left, middle(box).first, middle(box).second); }
    void release(const Rect& box) { pane.mouseUp(MouseButton::Left, middle(box).first, middle(box).second); }
    void still() {
        while (pane.tick()) continue;
    }
};

// --- Places

TEST_F(PaneViewTest, StacksTheGroupsWithTheDetailsBelowTheOthers) {
    fill();
    view(220, 1000);
    const ExplorerLayout& layout = pane.layout();
    ASSERT_EQ(layout.groups.size(), 3u);
    EXPECT_EQ(layout.groups[0].group, 0);
    EXPECT_EQ(layout.groups[1].group, 2);
    EXPECT_EQ(layout.groups[2].group, 1);
    EXPECT_EQ(layout.groups[0].header, (Rect{12, 12, 196, 25}));
    EXPECT_EQ(layout.groups[0].body, (Rect{12, 37, 196, 3 * 24 + 16}));
    EXPECT_EQ(layout.groups[1].header, (Rect{12, 37 + 88 + 12, 196, 25}));
    EXPECT_EQ(layout.groups[1].body.height, 2 * 24 + 16);
    EXPECT_EQ(layout.groups[2].header.y, layout.groups[1].body.bottom() + 12);
    EXPECT_EQ(layout.height, layout.groups[2].body.bottom() + 12);
    EXPECT_EQ(layout.restingHeight, layout.height);
}

TEST_F(PaneViewTest, PlacesTitleIconAndArrowInTheTitleBar) {
    fill();
    view(220, 1000);
    EXPECT_EQ(group(0).icon, (Rect{22, 16, 16, 16}));
    EXPECT_EQ(group(0).title.x, 22 + 16 + 6);
    EXPECT_EQ(group(0).arrow, (Rect{208 - 4 - 17, 16, 17, 17}));
    EXPECT_EQ(group(0).title.right(), group(0).arrow.x - 6);
    EXPECT_EQ(group(0).title.height, 15);
    EXPECT_TRUE(group(2).icon.empty());
    EXPECT_EQ(group(2).title.x, 22);
    EXPECT_TRUE(group(1).arrow.empty());
    pane.DetailGroupButton = true;
    EXPECT_FALSE(group(1).arrow.empty());
}

TEST_F(PaneViewTest, PlacesIconAndTextOfAnItem) {
    fill();
    view(220, 1000);
    const ItemPlace first = *pane.layout().item(0, 0);
    EXPECT_EQ(first.box, (Rect{20, 45, 180, 24}));
    EXPECT_EQ(first.icon, (Rect{24, 49, 16, 16}));
    EXPECT_EQ(first.text, (Rect{46, 49, 150, 16}));
    EXPECT_EQ(item(0, 1), (Rect{20, 69, 180, 24}));
    EXPECT_TRUE(pane.layout().item(2, 0)->icon.empty());
    EXPECT_EQ(pane.layout().item(2, 0)->text.x, 24);
}

TEST_F(PaneViewTest, CaptionsOfAGroupStandInOneColumnIconOrNot) {
    pane.AddNormalGroup("g");
    pane.AddItem(0, "with", false, "ImgStart");
    pane.AddItem(0, "without");
    pane.AddItem(0, "text", false, "ImgStart", true);
    view(220, 1000);
    EXPECT_EQ(pane.layout().item(0, 1)->text.x, pane.layout().item(0, 0)->text.x);
    EXPECT_TRUE(pane.layout().item(0, 1)->icon.empty());
    EXPECT_EQ(pane.layout().item(0, 2)->text.x, 24);
    EXPECT_TRUE(pane.layout().item(0, 2)->icon.empty());
}

TEST_F(PaneViewTest, LongTextsGetAsManyLinesAsTheyNeed) {
    pane.AddNormalGroup(std::string(40, 't'));
    pane.AddItem(0, std::string(60, 'c'));
    view(220, 1000);
    EXPECT_EQ(group(0).title.height, 30);  // 23 bold letters a line
    EXPECT_EQ(group(0).header.height, 38);
    EXPECT_EQ(item(0, 0).height, 45 + 8);  // 28 letters a line
    EXPECT_TRUE(pane.FullTextShowed(0));
    EXPECT_TRUE(pane.FullTextShowed(0, 0));
}

TEST_F(PaneViewTest, AFixedHeightOfTheTitleBarsCutsALongTitle) {
    pane.AddNormalGroup(std::string(40, 't'));
    pane.AddNormalGroup("short");
    view(220, 1000);
    pane.HeaderHeight = 20;
    EXPECT_EQ(group(0).header.height, 20);
    EXPECT_EQ(group(0).title.height, 20);
    EXPECT_FALSE(pane.FullTextShowed(0));
    EXPECT_TRUE(pane.FullTextShowed(1));
}

TEST_F(PaneViewTest, AClosedOrEmptyGroupShowsItsTitleBarAlone) {
    fill();
    pane.AddNormalGroup("empty");
    view(220, 1000);
    EXPECT_TRUE(group(3).body.empty());
    pane.SetGroupState(0, GroupState::Closed);
    EXPECT_TRUE(group(0).body.empty());
    EXPECT_TRUE(group(0).items.empty());
    EXPECT_EQ(group(2).header.y, 12 + 25 + 12);
    EXPECT_FALSE(pane.FullTextShowed(0, 0));
}

TEST_F(PaneViewTest, AContainerStandsInPlaceOfTheItems) {
    pane.AddNormalGroup("g", {}, {}, {}, true, &frame);
    view(220, 1000);
    EXPECT_EQ(group(0).container, (Rect{20, 45, 180, 77}));
    EXPECT_EQ(group(0).body.height, 77 + 16);
}

TEST_F(PaneViewTest, TheDetailsShowTheirPictureAboveTheirCaption) {
    fill();
    view(220, 1000);
    const GroupPlace& details = group(1);
    EXPECT_EQ(details.picture, (Rect{20 + (180 - 32) / 2, details.body.y + 8, 32, 32}));
    EXPECT_EQ(details.caption, (Rect{20, details.picture.bottom() + 8, 180, 15}));
    EXPECT_EQ(details.body.bottom(), details.caption.bottom() + 8);
    pane.SetDetailPicture("wide");
    EXPECT_EQ(group(1).picture, (Rect{20, group(1).body.y + 8, 180, 90}));
    pane.SetDetailPicture("");
    EXPECT_TRUE(group(1).picture.empty());
    EXPECT_EQ(group(1).caption.y, group(1).body.y + 8);
}

TEST_F(PaneViewTest, NothingHasANegativeSizeInANarrowPane) {
    fill();
    for (int width = 0; width < 120; width += 7) {
        view(width, 100);
        for (const GroupPlace& place : pane.layout().groups) {
            for (const Rect& box : {place.header, place.title, place.body, place.picture, place.caption}) {
                EXPECT_GE(box.width, 0) << width;
                EXPECT_GE(box.height, 0) << width;
            }
            for (const ItemPlace& row : place.items) EXPECT_GE(row.text.width, 0) << width;
        }
    }
}

TEST_F(PaneViewTest, AnEmptyPaneShowsNothingAndTakesEverything) {
    view(220, 100);
    EXPECT_TRUE(pane.layout().groups.empty());
    EXPECT_TRUE(pane.scrollBar().empty());
    pane.mouseMove(50, 50);
    pane.setFocus(true);
    EXPECT_FALSE(pane.focus().any());
    EXPECT_FALSE(pane.keyDown(Key::Down));
    EXPECT_FALSE(pane.tick());
}

// --- Scrolling

TEST_F(PaneViewTest, AStackThatIsTallerThanThePaneGetsAScrollBar) {
    fill();
    view(220, 1000);
    EXPECT_TRUE(pane.scrollBar().empty());
    EXPECT_EQ(group(0).header.width, 196);
    const int height = pane.layout().height;
    view(220, height);
    EXPECT_TRUE(pane.scrollBar().empty());
    view(220, height - 1);
    EXPECT_EQ(pane.scrollBar(), (Rect{203, 0, 17, height - 1}));
    EXPECT_EQ(group(0).header.width, 179);
    EXPECT_EQ(pane.tsbVertical.Max, 1);
    EXPECT_FALSE(pane.tsbVertical.rectangle(ScrollPart::Thumb).empty());
}

TEST_F(PaneViewTest, ScrollingMovesEverythingAndMeasuresNothing) {
    fill();
    view(220, 150);
    const Rect header = group(2).header;
    measured = 0;
    drawn = 0;
    pane.setScroll(50);
    EXPECT_EQ(drawn, 1);
    EXPECT_EQ(group(2).header.y, header.y - 50);
    EXPECT_EQ(measured, 0);
    EXPECT_FALSE(pane.FullTextShowed(0));
    EXPECT_TRUE(pane.FullTextShowed(2));
    pane.setScroll(1000000);
    EXPECT_EQ(pane.layout().groups.back().body.bottom(), 150 - M::kMargin);
    pane.setScroll(-5);
    EXPECT_EQ(pane.scroll(), 0);
}

TEST_F(PaneViewTest, TheWheelAndTheScrollBarsMouseScroll) {
    fill();
    view(220, 150);
    EXPECT_TRUE(pane.wheel(-120));
    EXPECT_EQ(pane.scroll(), 72);
    EXPECT_TRUE(pane.wheel(120));
    EXPECT_EQ(pane.scroll(), 0);
    pane.mouseDown(MouseButton::Left, 210, 145);  // the lower button
    EXPECT_EQ(pane.scroll(), 72);
    EXPECT_EQ(pane.tsbVertical.repeatDelay(), 300);
    pane.mouseUp(MouseButton::Left, 210, 145);
    EXPECT_EQ(pane.tsbVertical.repeatDelay(), 0);
    view(220, 1000);
    EXPECT_FALSE(pane.wheel(-120));
}

TEST_F(PaneViewTest, TheScrollPositionFollowsAStackThatShrinks) {
    fill();
    view(220, 150);
    pane.setScroll(1000);
    pane.SetGroupState(0, GroupState::Closed);
    pane.SetGroupState(2, GroupState::Closed);
    EXPECT_EQ(pane.layout().groups.back().body.bottom(), std::min(150, pane.layout().height) - M::kMargin);
    pane.DeleteAllGroups();
    EXPECT_TRUE(pane.scrollBar().empty());
    EXPECT_EQ(pane.scroll(), 0);
}

// --- Motion

TEST_F(PaneViewTest, AGroupOpensByAFixedStepAndFadesInByTheNumberOfItsSteps) {
    fill();
    view(220, 1000);
    pane.SetGroupState(0, GroupState::Closed);
    const int full = 88;
    pane.clickHeader(0);
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Opening);
    EXPECT_TRUE(pane.animating());
    EXPECT_EQ(group(0).body.height, 0);
    EXPECT_EQ(group(0).alpha, 0);
    int alpha = 0;
    for (int height = 8; height < full; height += 8) {
        EXPECT_TRUE(pane.tick());
        alpha += full / 8;
        EXPECT_EQ(group(0).body.height, height);
        EXPECT_EQ(group(0).alpha, alpha);
        EXPECT_TRUE(group(0).moving);
        EXPECT_EQ(group(0).content.height, full);
        EXPECT_EQ(group(2).header.y, group(0).body.bottom() + 12);
    }
    EXPECT_FALSE(pane.tick());
    EXPECT_EQ(group(0).body.height, full);
    EXPECT_EQ(group(0).alpha, 255);
    EXPECT_FALSE(group(0).moving);
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Open);
}

TEST_F(PaneViewTest, AlphaNeverLeaves0To255) {
    pane.AddNormalGroup("tall");
    for (int i = 0; i < 20; ++i) pane.AddItem(0, "i");
    view(220, 1000);
    pane.clickHeader(0);
    do {
        EXPECT_GE(group(0).alpha, 0);
        EXPECT_LE(group(0).alpha, 255);
    } while (pane.tick());
    pane.clickHeader(0);
    bool opaque = false;
    do {
        EXPECT_GE(group(0).alpha, 0);
        EXPECT_LE(group(0).alpha, 255);
        opaque = opaque || (group(0).moving && group(0).alpha == 255);
    } while (pane.tick());
    EXPECT_TRUE(opaque);  // long before its end: the step grows with the height
}

TEST_F(PaneViewTest, AGroupClosesFromItsFullHeightAndFadesOut) {
    fill();
    view(220, 1000);
    pane.layout();
    pane.clickHeader(0);
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Closing);
    EXPECT_EQ(group(0).body.height, 88);
    EXPECT_EQ(group(0).alpha, 255);
    EXPECT_TRUE(pane.tick());
    EXPECT_EQ(group(0).body.height, 80);
    EXPECT_EQ(group(0).alpha, 255 - 11);
    still();
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Closed);
    EXPECT_TRUE(group(0).body.empty());
}

TEST_F(PaneViewTest, AGroupTurnsBackFromWhereItIs) {
    fill();
    view(220, 1000);
    pane.layout();
    pane.clickHeader(0);
    pane.tick();
    pane.tick();
    pane.clickHeader(0);
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Opening);
    EXPECT_EQ(group(0).body.height, 72);
    pane.tick();
    EXPECT_EQ(group(0).body.height, 80);
}

TEST_F(PaneViewTest, WithoutAlphaBlendTheContentStaysOpaque) {
    fill();
    view(220, 1000);
    pane.UseAlphaBlend = false;
    pane.SetGroupState(0, GroupState::Closed);
    pane.clickHeader(0);
    EXPECT_EQ(group(0).alpha, 255);
    pane.tick();
    EXPECT_EQ(group(0).alpha, 255);
    EXPECT_EQ(group(0).body.height, 8);
}

TEST_F(PaneViewTest, WithoutAnimationAGroupTurnsAtOnce) {
    fill();
    view(220, 1000);
    pane.Animation = 0;
    pane.clickHeader(0);
    EXPECT_FALSE(pane.animating());
    EXPECT_TRUE(group(0).body.empty());
    pane.clickHeader(0);
    EXPECT_EQ(group(0).body.height, 88);
}

TEST_F(PaneViewTest, WithoutAViewAGroupTurnsAtOnce) {
    fill();
    pane.clickHeader(0);
    EXPECT_FALSE(pane.animating());
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Closed);
}

TEST_F(PaneViewTest, StatesSetAtOnceEndAMotion) {
    fill();
    view(220, 1000);
    pane.SetGroupState(0, GroupState::Closing);
    EXPECT_TRUE(pane.animating());
    pane.SetGroupState(0, GroupState::Closed);
    EXPECT_FALSE(pane.animating());
    pane.SetGroupState(0, GroupState::Opening);
    EXPECT_TRUE(pane.animating());
    pane.SetGroupState(0, GroupState::Open);
    EXPECT_FALSE(pane.animating());
    EXPECT_EQ(group(0).body.height, 88);
}

TEST_F(PaneViewTest, InOneGroupModeBothGroupsMoveTogether) {
    fill();
    view(220, 1000);
    pane.OpenOneGroupOnly = true;
    pane.clickHeader(2);
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Closing);
    EXPECT_EQ(pane.GetGroupState(2), GroupState::Opening);
    still();
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Closed);
    EXPECT_EQ(pane.GetGroupState(2), GroupState::Open);
}

TEST_F(PaneViewTest, AStepMeasuresNothingAndMovesNoItemWithinItsGroup) {
    fill();
    view(220, 1000);
    pane.clickHeader(0);
    const int before = item(0, 2).y - group(0).content.y;
    measured = 0;
    drawn = 0;
    pane.tick();
    EXPECT_EQ(item(0, 2).y - group(0).content.y, before);
    EXPECT_EQ(measured, 0);
    EXPECT_EQ(drawn, 1);
}

TEST_F(PaneViewTest, NothingNeedsATickWhenNothingMoves) {
    fill();
    view(220, 1000);
    pane.layout();
    drawn = 0;
    EXPECT_FALSE(pane.animating());
    EXPECT_FALSE(pane.tick());
    EXPECT_EQ(drawn, 0);
    EXPECT_EQ(told(), "");
}

TEST_F(PaneViewTest, ThePaneKeepsItsWidthWhileAGroupOpensIntoTheScrollBar) {
    fill();
    pane.SetGroupState(0, GroupState::Closed);
    view(220, 1000);
    const int closed = pane.layout().height;
    view(220, closed + 10);
    EXPECT_TRUE(pane.scrollBar().empty());
    pane.clickHeader(0);
    const int width = group(0).header.width;
    EXPECT_EQ(width, 179);  // beside the bar that it will need
    do {
        EXPECT_EQ(group(0).header.width, width);
    } while (pane.tick());
}

// --- Mouse

TEST_F(PaneViewTest, FindsTitleBarsAndItemsAtAPoint) {
    fill();
    view(220, 1000);
    const ExplorerLayout& layout = pane.layout();
    const auto at = [&](const Rect& box) { return layout.at(middle(box).first, middle(box).second); };
    EXPECT_EQ(at(group(0).header), (PaneTarget{0, -1}));
    EXPECT_EQ(at(group(0).arrow), (PaneTarget{0, -1}));
    EXPECT_EQ(at(item(0, 1)), (PaneTarget{0, 1}));
    EXPECT_EQ(at(item(2, 0)), (PaneTarget{2, 0}));
    EXPECT_FALSE(layout.at(5, 5).any());
    EXPECT_FALSE(at(group(1).header).any());  // details without a button
    EXPECT_FALSE(at(group(1).caption).any());
    EXPECT_FALSE(layout.at(15, 60).any());  // beside the items
}

TEST_F(PaneViewTest, FindsNoItemThatIsClippedAwayAndNoLineOfText) {
    fill();
    pane.AddItem(2, "text", false, {}, true);
    view(220, 1000);
    EXPECT_FALSE(pane.layout().at(middle(item(2, 2)).first, middle(item(2, 2)).second).any());
    pane.SetGroupState(0, GroupState::Closed);
    pane.clickHeader(0);
    pane.tick();  // 8 pixels are seen
    pane.tick();
    const auto [x, y] = middle(item(0, 1));
    EXPECT_NE(pane.layout().at(x, y), (PaneTarget{0, 1}));
}

TEST_F(PaneViewTest, TheHotTargetFollowsTheMouse) {
    fill();
    view(220, 1000);
    move(item(0, 1));
    EXPECT_EQ(told(), "hover 0 1;");
    EXPECT_TRUE(pane.state({0, 1}).hot);
    move(item(0, 1));
    EXPECT_EQ(told(), "");
    move(group(2).header);
    EXPECT_EQ(told(), "hover 2 -1;");
    EXPECT_FALSE(pane.state({0, 1}).hot);
    pane.mouseMove(2, 2);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(pane.state({2, -1}), TargetState{});
    move(item(0, 0));
    pane.mouseLeave();
    EXPECT_EQ(told(), "hover 0 0;out;");
    EXPECT_FALSE(pane.state({0, 0}).hot);
}

TEST_F(PaneViewTest, WhatComesUnderARestingMouseIsHotAndWhatLeavesItIsNot) {
    fill();
    view(220, 1000);
    move(group(2).header);
    told();
    pane.SetGroupState(0, GroupState::Closed);
    pane.layout();
    EXPECT_FALSE(pane.state({2, -1}).hot);
    EXPECT_EQ(told(), "");
    pane.SetGroupState(0, GroupState::Open);
    pane.layout();
    EXPECT_TRUE(pane.state({2, -1}).hot);
    EXPECT_EQ(told(), "hover 2 -1;");
    pane.mouseLeave();
    pane.SetGroupState(0, GroupState::Closed);
    pane.layout();
    pane.SetGroupState(0, GroupState::Open);
    pane.layout();
    EXPECT_EQ(told(), "out;");
}

TEST_F(PaneViewTest, EveryStepOfAMotionFindsWhatIsHot) {
    fill();
    pane.Animation = 1;
    view(220, 1000);
    const Rect below = group(2).header;
    move(below);
    told();
    pane.clickHeader(0);
    still();
    pane.layout();
    const auto [x, y] = middle(below);
    const PaneTarget there = pane.layout().at(x, y);
    EXPECT_NE(there, (PaneTarget{2, -1}));
    EXPECT_EQ(pane.hot(), there);
}

TEST_F(PaneViewTest, TheWheelTurnsAnotherTargetUnderARestingMouse) {
    fill();
    view(220, 120);
    move(item(0, 0));
    told();
    pane.wheel(-ThemedScrollBar::kWheelNotch);
    pane.layout();
    EXPECT_FALSE(pane.state({0, 0}).hot);
    const Rect first = item(0, 0);
    EXPECT_LT(first.y, 0);
    pane.wheel(ThemedScrollBar::kWheelNotch);
    pane.layout();
    EXPECT_TRUE(pane.state({0, 0}).hot);
}

TEST_F(PaneViewTest, WhatIsHeldStaysHotAlthoughTheGroupsMove) {
    fill();
    view(220, 1000);
    press(group(2).header);
    told();
    pane.SetGroupState(0, GroupState::Closed);
    pane.layout();
    EXPECT_EQ(pane.hot(), (PaneTarget{2, -1}));
    EXPECT_EQ(told(), "");
}

TEST_F(PaneViewTest, TellsOnceThatTheMouseHasLeft) {
    fill();
    view(220, 1000);
    pane.mouseLeave();
    EXPECT_EQ(told(), "");
    press(item(0, 0));
    pane.mouseMove(-50, 10);
    pane.mouseUp(MouseButton::Left, -50, 10);
    pane.mouseLeave();
    pane.mouseLeave();
    EXPECT_EQ(told(), "hover 0 0;out;");
}

TEST_F(PaneViewTest, ClicksWhereTheMouseWasPressedAndLetGo) {
    fill();
    view(220, 1000);
    move(item(2, 1));
    told();
    press(item(2, 1));
    EXPECT_TRUE(pane.state({2, 1}).pressed);
    EXPECT_EQ(told(), "");
    release(item(2, 1));
    EXPECT_FALSE(pane.state({2, 1}).pressed);
    EXPECT_EQ(told(), "item 2 1;");
    press(group(0).header);
    release(group(0).header);
    EXPECT_EQ(told(), "hover 0 -1;group 0 0;");
}

TEST_F(PaneViewTest, AMouseThatIsLetGoElsewhereClicksNothing) {
    fill();
    view(220, 1000);
    press(item(0, 0));
    move(item(0, 1));
    EXPECT_FALSE(pane.state({0, 0}).pressed);
    EXPECT_FALSE(pane.state({0, 1}).hot);
    move(item(0, 0));
    EXPECT_TRUE(pane.state({0, 0}).pressed);
    move(item(0, 1));
    release(item(0, 1));
    press(item(0, 0));
    pane.cancelMode();
    release(item(0, 0));
    EXPECT_EQ(told().find("item"), std::string::npos);
}

TEST_F(PaneViewTest, OnlyTheLeftButtonClicksAndAllAreTold) {
    fill();
    view(220, 1000);
    std::string buttons;
    pane.MouseDown.connect([&](MouseButton button, int keys, int x, int y) {
        buttons += "down " + std::to_string(static_cast<int>(button)) + " " + std::to_string(keys) + " " +
                   std::to_string(x) + " " + std::to_string(y) + ";";
    });
    pane.MouseUp.connect([&](MouseButton button, int keys, int, int) {
        buttons += "up " + std::to_string(static_cast<int>(button)) + " " + std::to_string(keys) + ";";
    });
    pane.MouseMove.connect([&](int keys, int, int) { buttons += "move " + std::to_string(keys) + ";"; });
    const auto [x, y] = middle(item(0, 0));
    pane.mouseMove(x, y, kCtrl);
    pane.mouseDown(MouseButton::Right, x, y, kShift);
    pane.mouseUp(MouseButton::Right, x, y, kShift);
    EXPECT_EQ(buttons, "move 2;down 2 1 " + std::to_string(x) + " " + std::to_string(y) + ";up 2 1;");
    EXPECT_EQ(told(), "hover 0 0;");
}

TEST_F(PaneViewTest, ADisabledPaneTakesNoMouseAndNoKey) {
    fill();
    view(220, 1000);
    pane.Enabled = false;
    move(item(0, 0));
    press(item(0, 0));
    release(item(0, 0));
    EXPECT_FALSE(pane.keyDown(Key::Enter));
    EXPECT_FALSE(pane.wheel(-120));
    EXPECT_EQ(told(), "");
}

TEST_F(PaneViewTest, TheMouseWorksOnAScrolledPane) {
    fill();
    view(220, 150);
    pane.setScroll(100);
    press(item(2, 0));
    release(item(2, 0));
    EXPECT_EQ(told(), "hover 2 0;item 2 0;");
}

TEST_F(PaneViewTest, AListenerMayRebuildThePaneFromAClick) {
    fill();
    view(220, 1000);
    pane.ItemClick.connect([this](int, int) {
        pane.DeleteAllGroups();
        pane.AddNormalGroup("anew");
    });
    press(item(2, 1));
    release(item(2, 1));
    EXPECT_EQ(pane.layout().groups.size(), 1u);
    EXPECT_EQ(pane.focus(), (PaneTarget{0, -1}));
}

// --- Keyboard

TEST_F(PaneViewTest, TheKeyboardReachesEverythingFromTopToBottom) {
    fill();
    view(220, 1000);
    pane.setFocus(true);
    std::vector<PaneTarget> seen{pane.focus()};
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(pane.keyDown(Key::Down));
        if (pane.focus() == seen.back()) break;
        seen.push_back(pane.focus());
        EXPECT_TRUE(pane.state(pane.focus()).focused);
    }
    const std::vector<PaneTarget> expected{{0, -1}, {0, 0}, {0, 1}, {0, 2}, {2, -1}, {2, 0}, {2, 1}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(pane.targets(), expected);
    pane.keyDown(Key::Up);
    EXPECT_EQ(pane.focus(), (PaneTarget{2, 0}));
    pane.keyDown(Key::Home);
    EXPECT_EQ(pane.focus(), (PaneTarget{0, -1}));
    pane.keyDown(Key::Up);
    EXPECT_EQ(pane.focus(), (PaneTarget{0, -1}));
    pane.keyDown(Key::End);
    EXPECT_EQ(pane.focus(), (PaneTarget{2, 1}));
}

TEST_F(PaneViewTest, TheKeyboardPassesOverLinesOfTextAndClosedGroups) {
    fill();
    pane.SetItemTextOnly(0, 1, true);
    pane.SetGroupState(2, GroupState::Closed);
    pane.DetailGroupButton = true;
    EXPECT_EQ(pane.targets(), (std::vector<PaneTarget>{{0, -1}, {0, 0}, {0, 2}, {2, -1}, {1, -1}}));
}

TEST_F(PaneViewTest, ShowsTheFocusOnlyToTheKeyboard) {
    fill();
    view(220, 1000);
    pane.setFocus(true, false);
    press(item(0, 1));
    release(item(0, 1));
    EXPECT_EQ(pane.focus(), (PaneTarget{0, 1}));
    EXPECT_FALSE(pane.state({0, 1}).focused);
    pane.keyDown(Key::Shift);
    EXPECT_FALSE(pane.state({0, 1}).focused);
    pane.keyDown(Key::Down);
    EXPECT_TRUE(pane.state({0, 2}).focused);
    press(item(0, 0));
    EXPECT_FALSE(pane.state({0, 0}).focused);
    pane.setFocus(false);
    pane.setFocus(true);
    EXPECT_TRUE(pane.state({0, 0}).focused);
}

TEST_F(PaneViewTest, ADisabledItemIsPassedOverByMouseAndKeyboard) {
    fill();
    pane.SetItemEnabled(0, 1, false);
    EXPECT_FALSE(pane.GetItemEnabled(0, 1));
    EXPECT_TRUE(pane.GetItemEnabled(0, 2));
    view(220, 1000);
    const Rect place = item(0, 1);
    press(place);
    release(place);
    pane.clickItem(0, 1);
    EXPECT_EQ(told(), "");
    pane.keyDown(Key::Down);
    pane.keyDown(Key::Down);
    EXPECT_EQ(pane.focus(), (PaneTarget{0, 2}));
    // Its icon and its place stay.
    EXPECT_FALSE(pane.layout().item(0, 1)->icon.empty());
    pane.SetItemEnabled(0, 1, true);
    EXPECT_EQ(item(0, 1), place);
    press(place);
    release(place);
    EXPECT_EQ(told(), "hover 0 1;item 0 1;");
}

TEST_F(PaneViewTest, EnterActsAtOnceAndTheSpaceBarWhenItIsLetGo) {
    fill();
    view(220, 1000);
    pane.setFocus(true);
    EXPECT_TRUE(pane.keyDown(Key::Enter));
    EXPECT_EQ(told(), "group 0 0;");
    pane.keyDown(Key::Enter);
    still();
    pane.keyDown(Key::Down);
    told();
    EXPECT_TRUE(pane.keyDown(Key::Space));
    EXPECT_TRUE(pane.state({0, 0}).pressed);
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(pane.keyUp(Key::Space));
    EXPECT_FALSE(pane.state({0, 0}).pressed);
    EXPECT_EQ(told(), "item 0 0;");
    EXPECT_FALSE(pane.keyUp(Key::Space));
}

TEST_F(PaneViewTest, ASpaceBarHeldWhileTheFocusGoesActsOnNothing) {
    fill();
    view(220, 1000);
    pane.setFocus(true);
    pane.keyDown(Key::Space);
    pane.setFocus(false);
    EXPECT_FALSE(pane.keyUp(Key::Space));
    EXPECT_FALSE(pane.state({0, -1}).focused);
    EXPECT_EQ(told(), "");
}

TEST_F(PaneViewTest, LeftClosesAGroupFromItsItemsAndRightOpensIt) {
    fill();
    view(220, 1000);
    pane.setFocus(true);
    pane.keyDown(Key::Down);
    pane.keyDown(Key::Down);
    pane.keyDown(Key::Left);
    EXPECT_EQ(told(), "group 0 0;");
    EXPECT_EQ(pane.focus(), (PaneTarget{0, -1}));
    pane.keyDown(Key::Left);
    EXPECT_EQ(told(), "");
    pane.keyDown(Key::Right);
    EXPECT_EQ(told(), "group 0 1;");
    pane.keyDown(Key::Right);
    EXPECT_EQ(told(), "");
}

TEST_F(PaneViewTest, TheFocusGoesToTheTitleBarOfAGroupThatCloses) {
    fill();
    view(220, 1000);
    press(item(2, 1));
    release(item(2, 1));
    pane.setFocus(true);
    EXPECT_EQ(pane.focus(), (PaneTarget{2, 1}));
    pane.SetGroupState(2, GroupState::Closed);
    EXPECT_EQ(pane.focus(), (PaneTarget{2, -1}));
    pane.DeleteAllGroups();
    EXPECT_FALSE(pane.focus().any());
}

TEST_F(PaneViewTest, TheFocusScrollsItsTargetIntoSight) {
    fill();
    view(220, 120);
    pane.setFocus(true);
    pane.keyDown(Key::End);
    EXPECT_GE(item(2, 1).y, 0);
    EXPECT_LE(item(2, 1).bottom(), 120);
    pane.keyDown(Key::Home);
    EXPECT_EQ(pane.scroll(), 0);
    pane.keyDown(Key::PageDown);
    EXPECT_EQ(pane.scroll(), 120);
}

// --- Colours

TEST_F(PaneViewTest, ColoursFollowKindAndState) {
    fill();
    view(220, 1000);
    EXPECT_EQ(pane.headerColours(0).fore, pane.colour("NormalHeaderForeColor"));
    EXPECT_EQ(pane.headerColours(0).arrow, pane.colour("NormalArrowUpColor"));
    EXPECT_EQ(pane.headerColours(2).back, pane.colour("SpecialHeaderBackColor"));
    EXPECT_EQ(pane.headerColours(2).gradient, pane.colour("GradientSpecialHeaderBackColor"));
    pane.setColour("SpecialArrowHoverColor", 1);
    pane.setColour("SpecialButtonHoverColor", 2);
    pane.setColour("SpecialHeaderHoverColor", 3);
    pane.setColour("SpecialArrowDownColor", 4);
    pane.setColour("SpecialButtonDownColor", 5);
    move(group(2).header);
    EXPECT_EQ(pane.headerColours(2).arrow, 1u);
    EXPECT_EQ(pane.headerColours(2).button, 2u);
    EXPECT_EQ(pane.headerColours(2).fore, 3u);
    press(group(2).header);
    EXPECT_EQ(pane.headerColours(2).arrow, 4u);
    EXPECT_EQ(pane.headerColours(2).button, 5u);
    EXPECT_EQ(pane.headerColours(0).arrow, pane.colour("NormalArrowUpColor"));
    pane.cancelMode();
    pane.setColour("NormalItemHoverColor", 6);
    EXPECT_EQ(pane.itemColour(0, 1), pane.colour("NormalItemForeColor"));
    move(item(0, 1));
    EXPECT_EQ(pane.itemColour(0, 1), 6u);
    EXPECT_EQ(pane.itemColour(1, 0), pane.colour("DetailsForeColor"));
    EXPECT_EQ(pane.bodyColours(2).border, pane.colour("SpecialItemBorderColor"));
}

TEST_F(PaneViewTest, AButtonPictureFollowsTheState) {
    fill();
    view(220, 1000);
    EXPECT_EQ(pane.buttonPicture(0), "");
    pane.NormalButtonPictureUp = "up";
    pane.NormalButtonPictureHover = "hover";
    pane.NormalButtonPictureDown = "down";
    EXPECT_EQ(pane.buttonPicture(0), "up");
    EXPECT_EQ(pane.buttonPicture(2), "");
    move(group(0).header);
    EXPECT_EQ(pane.buttonPicture(0), "hover");
    press(group(0).header);
    EXPECT_EQ(pane.buttonPicture(0), "down");
}

TEST_F(PaneViewTest, TellsTheTipOfWhatIsUnderTheMouse) {
    pane.AddNormalGroup("g", {}, {}, "group tip");
    pane.AddItem(0, "i", false, {}, false, {}, {}, "item tip");
    EXPECT_EQ(pane.toolTip({0, -1}), "group tip");
    EXPECT_EQ(pane.toolTip({0, 0}), "item tip");
    EXPECT_EQ(pane.toolTip({}), "");
}

TEST_F(PaneViewTest, ItsScrollBarIsNoneOfTheWindowsControls) {
    EXPECT_EQ(form.control("tsbVertical"), nullptr);
    EXPECT_EQ(pane.surface.control("tsbVertical"), &pane.tsbVertical);
}

}  // namespace
}  // namespace tidvane::controls
