// Groups, items, limits, codes, events and properties of the task pane.
#include "controls/explorer_bar.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "controls/changed_properties.h"
#include "forms/form.h"
#include "forms/simple_controls.h"

namespace tidvane::controls {
namespace {

struct PaneTest : ::testing::Test {
    forms::Form form{"frmAny"};
    ExplorerBar pane{form, "ExplorerBar1"};
    std::string log;
    int drawn = 0;

    PaneTest() {
        pane.viewChanged.connect([this] { ++drawn; });
        pane.Collapse.connect([this](int group) { tell("collapse", group); });
        pane.Expand.connect([this](int group) { tell("expand", group); });
        pane.GroupClick.connect([this](int group, bool open) { tell("group", group, open ? 1 : 0); });
        pane.ItemClick.connect([this](int group, int item) { tell("item", group, item); });
        pane.ItemOpenFile.connect([this](int group, int item) { tell("opened", group, item); });
        pane.ErrorOpenFile.connect([this](int group, int item) { tell("error", group, item); });
        pane.Sound.connect([this](PaneSound sound) { tell("sound", static_cast<int>(sound)); });
    }
    template <class... N>
    void tell(const char* what, N... numbers) {
        log += what;
        ((log += " " + std::to_string(numbers)), ...);
        log += ";";
    }
    std::string told() { return std::exchange(log, std::string()); }
};

// --- Adding and its codes

TEST_F(PaneTest, NumbersGroupsAndItemsInOrderOfAdding) {
    EXPECT_EQ(pane.AddNormalGroup("a"), 0);
    EXPECT_EQ(pane.AddDetailGroup("d", "text"), 1);
    EXPECT_EQ(pane.AddSpecialGroup("b"), 2);
    EXPECT_EQ(pane.AddItem(2, "b0"), 0);
    EXPECT_EQ(pane.AddItem(0, "a0"), 0);
    EXPECT_EQ(pane.AddItem(2, "b1"), 1);
    EXPECT_EQ(pane.GetGroupsCount(), 3);
    EXPECT_EQ(pane.GetItemsCount(2), 2);
    EXPECT_EQ(pane.GetItemCaption(2, 1), "b1");
}

TEST_F(PaneTest, Refuses21GroupsWithoutDrawingAnew) {
    for (int group = 0; group < 20; ++group) EXPECT_EQ(pane.AddNormalGroup("g"), group);
    drawn = 0;
    EXPECT_EQ(pane.AddNormalGroup("one too many"), -20);
    EXPECT_EQ(pane.AddSpecialGroup("one too many"), -20);
    EXPECT_EQ(pane.AddDetailGroup("one too many", ""), -20);
    EXPECT_EQ(pane.GetGroupsCount(), 20);
    EXPECT_EQ(drawn, 0);
}

TEST_F(PaneTest, Refuses21ItemsWithoutDrawingAnew) {
    pane.AddNormalGroup("g");
    for (int item = 0; item < 20; ++item) EXPECT_EQ(pane.AddItem(0, "i"), item);
    drawn = 0;
    EXPECT_EQ(pane.AddItem(0, "one too many"), -20);
    EXPECT_EQ(pane.GetItemsCount(0), 20);
    EXPECT_EQ(drawn, 0);
}

TEST_F(PaneTest, RefusesASecondDetailGroup) {
    EXPECT_EQ(pane.AddDetailGroup("d", "c"), 0);
    EXPECT_EQ(pane.AddDetailGroup("e", "f"), -1);
    EXPECT_EQ(pane.GetDetailTitle(), "d");
    for (int group = 1; group < 20; ++group) pane.AddNormalGroup("g");
    EXPECT_EQ(pane.AddDetailGroup("e", "f"), -1);  // also where there is no room
}

TEST_F(PaneTest, RefusesItemsWithoutAGroupOnAContainerAndOnTheDetailGroup) {
    forms::Frame frame(form, "frame");
    pane.AddNormalGroup("g");
    const int contained = pane.AddNormalGroup("c", {}, {}, {}, true, &frame);
    const int details = pane.AddDetailGroup("d", "text");
    drawn = 0;
    EXPECT_EQ(pane.AddItem(-1, "i"), -1);
    EXPECT_EQ(pane.AddItem(3, "i"), -1);
    EXPECT_EQ(pane.AddItem(contained, "i"), -2);
    EXPECT_EQ(pane.AddItem(details, "i"), -3);
    EXPECT_EQ(drawn, 0);
    EXPECT_EQ(pane.GetGroupContainer(contained), &frame);
    EXPECT_EQ(pane.GetGroupContainer(0), nullptr);
}

TEST_F(PaneTest, KeepsAllThatAnItemIsAddedWith) {
    pane.AddNormalGroup("g");
    pane.AddItem(0, "caption", true, "icon", true, "file", "tag", "tip");
    EXPECT_EQ(pane.GetItemCaption(0, 0), "caption");
    EXPECT_TRUE(pane.GetItemCaptionBold(0, 0));
    EXPECT_EQ(pane.GetItemIcon(0, 0), "icon");
    EXPECT_TRUE(pane.GetItemTextOnly(0, 0));
    EXPECT_EQ(pane.GetItemOpenFile(0, 0), "file");
    EXPECT_EQ(pane.GetItemTag(0, 0), "tag");
    EXPECT_EQ(pane.GetItemToolTipText(0, 0), "tip");
}

TEST_F(PaneTest, KeepsAllThatAGroupIsAddedWith) {
    pane.AddSpecialGroup("title", "icon", "tag", "tip", false, nullptr, false);
    EXPECT_EQ(pane.GetGroupTitle(0), "title");
    EXPECT_EQ(pane.GetGroupIcon(0), "icon");
    EXPECT_EQ(pane.GetGroupTag(0), "tag");
    EXPECT_EQ(pane.GetGroupToolTipText(0), "tip");
    EXPECT_FALSE(pane.GetGroupTitleBold(0));
    EXPECT_FALSE(pane.GetGroupWindowState(0));
    EXPECT_EQ(pane.GetGroupState(0), GroupState::Closed);
    EXPECT_EQ(pane.groups()[0].kind, GroupKind::Special);
}

// --- Readers and writers

TEST_F(PaneTest, WritesWhatItReadsOfAGroup) {
    forms::Frame frame(form, "frame");
    pane.AddNormalGroup("g");
    pane.SetGroupTitle(0, "title");
    pane.SetGroupTitleBold(0, false);
    pane.SetGroupIcon(0, "icon");
    pane.SetGroupTag(0, "tag");
    pane.SetGroupToolTipText(0, "tip");
    pane.SetItemsBackgroundPicture(0, "picture");
    pane.SetGroupContainer(0, &frame);
    EXPECT_EQ(drawn, 8);  // with the adding
    EXPECT_EQ(pane.GetGroupTitle(0), "title");
    EXPECT_FALSE(pane.GetGroupTitleBold(0));
    EXPECT_EQ(pane.GetGroupIcon(0), "icon");
    EXPECT_EQ(pane.GetGroupTag(0), "tag");
    EXPECT_EQ(pane.GetGroupToolTipText(0), "tip");
    EXPECT_EQ(pane.GetItemsBackgroundPicture(0), "picture");
    EXPECT_EQ(pane.GetGroupContainer(0), &frame);
    EXPECT_EQ(pane.AddItem(0, "i"), -2);
}

TEST_F(PaneTest, WritesWhatItReadsOfAnItem) {
    pane.AddNormalGroup("g");
    pane.AddItem(0, "i");
    drawn = 0;
    pane.SetItemCaption(0, 0, "caption");
    pane.SetItemCaptionBold(0, 0, true);
    pane.SetItemIcon(0, 0, "icon");
    pane.SetItemOpenFile(0, 0, "file");
    pane.SetItemTag(0, 0, "tag");
    pane.SetItemTextOnly(0, 0, true);
    pane.SetItemToolTipText(0, 0, "tip");
    EXPECT_EQ(drawn, 7);
    EXPECT_EQ(pane.GetItemCaption(0, 0), "caption");
    EXPECT_TRUE(pane.GetItemCaptionBold(0, 0));
    EXPECT_EQ(pane.GetItemIcon(0, 0), "icon");
    EXPECT_EQ(pane.GetItemOpenFile(0, 0), "file");
    EXPECT_EQ(pane.GetItemTag(0, 0), "tag");
    EXPECT_TRUE(pane.GetItemTextOnly(0, 0));
    EXPECT_EQ(pane.GetItemToolTipText(0, 0), "tip");
}

TEST_F(PaneTest, WritesWhatItReadsOfTheDetailGroup) {
    pane.SetDetailTitle("nowhere");
    EXPECT_EQ(pane.GetDetailTitle(), "");
    pane.AddNormalGroup("g");
    pane.AddDetailGroup("d", "text", "picture");
    EXPECT_EQ(pane.GetDetailCaption(), "text");
    EXPECT_EQ(pane.GetDetailPicture(), "picture");
    pane.SetDetailTitle("title");
    pane.SetDetailCaption("caption");
    pane.SetDetailPicture("another");
    EXPECT_EQ(pane.GetDetailTitle(), "title");
    EXPECT_EQ(pane.GetDetailCaption(), "caption");
    EXPECT_EQ(pane.GetDetailPicture(), "another");
    EXPECT_EQ(pane.GetGroupTitle(0), "g");
    forms::Frame frame(form, "frame");
    pane.SetGroupContainer(1, &frame);
    EXPECT_EQ(pane.GetGroupContainer(1), nullptr);
}

TEST_F(PaneTest, AnswersEmptyAndPassesOverNumbersThatNameNothing) {
    pane.AddNormalGroup("g");
    drawn = 0;
    for (const int group : {-1, 1, 1000}) {
        pane.SetGroupTitle(group, "x");
        pane.SetItemCaption(group, 0, "x");
        pane.SetGroupWindowState(group, false);
        EXPECT_EQ(pane.GetGroupTitle(group), "");
        EXPECT_EQ(pane.GetItemsCount(group), 0);
        EXPECT_FALSE(pane.GetGroupWindowState(group));
        EXPECT_FALSE(pane.DeleteGroup(group));
        EXPECT_FALSE(pane.DeleteAllGroupItems(group));
        EXPECT_FALSE(pane.FullTextShowed(group));
        pane.clickHeader(group);
        pane.clickItem(group, 0);
    }
    EXPECT_FALSE(pane.DeleteItem(0, 0));
    EXPECT_EQ(pane.GetItemCaption(0, 0), "");
    pane.SetItemCaption(0, -1, "x");
    pane.clickItem(0, 0);
    EXPECT_EQ(drawn, 0);
    EXPECT_EQ(told(), "");
}

TEST_F(PaneTest, DeletingMovesUpTheNumbersBehind) {
    for (const char* title : {"a", "b", "c"}) pane.AddNormalGroup(title);
    for (const char* caption : {"0", "1", "2"}) pane.AddItem(2, caption);
    EXPECT_TRUE(pane.DeleteGroup(1));
    EXPECT_EQ(pane.GetGroupTitle(1), "c");
    EXPECT_TRUE(pane.DeleteItem(1, 0));
    EXPECT_EQ(pane.GetItemCaption(1, 0), "1");
    EXPECT_EQ(pane.AddItem(1, "3"), 2);
    EXPECT_TRUE(pane.DeleteAllGroupItems(1));
    EXPECT_EQ(pane.GetItemsCount(1), 0);
    pane.DeleteAllGroups();
    EXPECT_EQ(pane.GetGroupsCount(), 0);
    EXPECT_EQ(pane.AddNormalGroup("anew"), 0);
}

TEST_F(PaneTest, ADetailGroupCanBeAddedAgainAfterItsDeletion) {
    pane.AddDetailGroup("d", "c");
    pane.DeleteGroup(0);
    EXPECT_EQ(pane.AddDetailGroup("e", "f"), 0);
}

TEST_F(PaneTest, TellsItsVersion) {
    EXPECT_EQ(ExplorerBar::GetVersion(), "ExplorerBar - v3.00");
}

// --- Properties

TEST_F(PaneTest, BeginsWithTheInitialValuesOfItsProperties) {
    const std::string none;
    // clang-format off
    const std::map<std::string, StoredValue> expected{
        {"Animation", 1}, {"DetailGroupButton", false}, {"Font", Font()}, {"GradientStyle", 2}, {"HeaderHeight", 0},
        {"Locked", false}, {"OpenOneGroupOnly", false}, {"ShowBorder", false}, {"SoundGroupClicked", false},
        {"SoundItemClicked", false}, {"UseAlphaBlend", true}, {"UseTheme", 0}, {"UseUserForeColors", false},
        {"NormalButtonPictureDown", none}, {"NormalButtonPictureHover", none}, {"NormalButtonPictureUp", none},
        {"SpecialButtonPictureDown", none}, {"SpecialButtonPictureHover", none}, {"SpecialButtonPictureUp", none},
    };
    // clang-format on
    std::map<std::string, StoredValue> stored;
    for (const auto& row : ExplorerBar::properties()) stored[std::string(row.storedAs)] = valueOf(row, pane);
    EXPECT_EQ(stored, expected);
}

TEST_F(PaneTest, BeginsInItsBlueColours) {
    EXPECT_EQ(pane.colour("BackColor"), 0xE6AA8Cu);
    EXPECT_EQ(pane.colour("BorderColor"), 0x80000008u);
    EXPECT_EQ(pane.colour("SpecialButtonHoverColor"), 0xC6AD71u);
    for (const PaneColour& row : paneColours()) EXPECT_EQ(pane.colour(std::string(row.property)), row.initial);
}

TEST_F(PaneTest, SettingAColourStoresItAndRedraws) {
    for (const PaneColour& row : paneColours()) {
        drawn = 0;
        pane.setColour(std::string(row.property), 0x123456u);
        EXPECT_EQ(pane.colour(std::string(row.property)), 0x123456u) << row.property;
        EXPECT_GE(drawn, 1) << row.property;
    }
    EXPECT_EQ(pane.BackColor, 0x123456u);
    drawn = 0;
    pane.setColour("NoColour", 1);
    EXPECT_EQ(pane.colour("NoColour"), 0xFFFFFFFFu);
    EXPECT_EQ(drawn, 0);
}

TEST_F(PaneTest, ColoursStandInTheOrderOfTheirNames) {
    const auto& colours = paneColours();
    for (std::size_t i = 0; i < colours.size(); ++i) EXPECT_EQ(paneColourIndex(colours[i].property), i);
}

// --- Visual style

TEST_F(PaneTest, ReadsTheVisualStyleOnlyWithUseTheme) {
    pane.setVisualStyle("Royale", "NormalColor");
    EXPECT_EQ(pane.GetThemeName(), "");
    EXPECT_EQ(pane.GetThemeMap(), 0);
    EXPECT_FALSE(pane.usesVisualStyle());
    EXPECT_EQ(pane.paneGradient(), (Gradient{0xE6AA8Cu, 0xCC6633u}));
    pane.UseTheme = 1;
    EXPECT_EQ(pane.GetThemeName(), "Royale");
    EXPECT_EQ(pane.GetThemeColorName(), "NormalColor");
    EXPECT_EQ(pane.GetThemeMap(), 2);
    EXPECT_EQ(pane.GetThemeColorMap(), 1);
    EXPECT_TRUE(pane.usesVisualStyle());
    EXPECT_NE(pane.paneGradient(), (Gradient{0xE6AA8Cu, 0xCC6633u}));
}

TEST_F(PaneTest, KnowsFiveStylesAndTwoColourVariants) {
    pane.UseTheme = 1;
    int number = 0;
    for (const char* style : {"Luna", "Royale", "Embedded", "Media Centre", "Zune"}) {
        pane.setVisualStyle(style, "Metallic");
        EXPECT_EQ(pane.GetThemeMap(), ++number) << style;
        EXPECT_EQ(pane.GetThemeColorMap(), 2);
        EXPECT_TRUE(styleGradient(style, "Metallic")) << style;
        EXPECT_TRUE(styleGradient(style, "Whatever")) << style;
    }
}

TEST_F(PaneTest, WithoutAKnownStyleTheColoursOfThePropertiesApply) {
    pane.UseTheme = 1;
    EXPECT_FALSE(pane.usesVisualStyle());
    EXPECT_EQ(pane.paneGradient(), (Gradient{0xE6AA8Cu, 0xCC6633u}));
    pane.setVisualStyle("Adwaita", "");
    EXPECT_TRUE(pane.usesVisualStyle());
    EXPECT_EQ(pane.GetThemeMap(), 0);
    EXPECT_EQ(pane.paneGradient(), (Gradient{0xE6AA8Cu, 0xCC6633u}));
}

// --- Clicks

TEST_F(PaneTest, AClickOnATitleBarTurnsTheGroupAndTells) {
    pane.AddNormalGroup("a");
    pane.clickHeader(0);
    EXPECT_EQ(told(), "collapse 0;group 0 0;");
    EXPECT_FALSE(pane.GetGroupWindowState(0));
    pane.clickHeader(0);
    EXPECT_EQ(told(), "expand 0;group 0 1;");
    EXPECT_TRUE(pane.GetGroupWindowState(0));
}

TEST_F(PaneTest, InOneGroupModeAnOpenedGroupClosesTheOneThatWasOpen) {
    for (const char* title : {"a", "b", "c"}) pane.AddNormalGroup(title);
    pane.AddDetailGroup("d", "text");
    pane.OpenOneGroupOnly = true;
    EXPECT_EQ(told(), "collapse 1;collapse 2;");
    pane.clickHeader(2);
    EXPECT_EQ(told(), "collapse 0;expand 2;group 2 1;");
    EXPECT_FALSE(pane.GetGroupWindowState(0));
    EXPECT_FALSE(pane.GetGroupWindowState(1));
    EXPECT_TRUE(pane.GetGroupWindowState(2));
    EXPECT_TRUE(pane.GetGroupWindowState(3));  // the details stay
    pane.SetGroupWindowState(1, true);
    EXPECT_EQ(told(), "collapse 2;expand 1;");
}

TEST_F(PaneTest, InOneGroupModeTheOpenGroupMayBeClosed) {
    pane.AddNormalGroup("a");
    pane.AddNormalGroup("b");
    pane.OpenOneGroupOnly = true;
    told();
    pane.clickHeader(0);
    EXPECT_EQ(told(), "collapse 0;group 0 0;");
    EXPECT_FALSE(pane.GetGroupWindowState(1));
}

TEST_F(PaneTest, InOneGroupModeAFurtherGroupBeginsClosed) {
    pane.OpenOneGroupOnly = true;
    pane.AddDetailGroup("d", "text");
    pane.AddNormalGroup("a");
    pane.AddNormalGroup("b");
    EXPECT_TRUE(pane.GetGroupWindowState(1));
    EXPECT_FALSE(pane.GetGroupWindowState(2));
}

TEST_F(PaneTest, WithoutOneGroupModeTheOthersStayAsTheyAre) {
    pane.AddNormalGroup("a");
    pane.AddNormalGroup("b", {}, {}, {}, true, nullptr, false);
    pane.clickHeader(1);
    EXPECT_EQ(told(), "expand 1;group 1 1;");
    EXPECT_TRUE(pane.GetGroupWindowState(0));
}

TEST_F(PaneTest, PlaysASoundOnWishBetweenTheTurnAndTheEvent) {
    pane.AddNormalGroup("a");
    pane.AddItem(0, "i");
    pane.SoundGroupClicked = true;
    pane.clickHeader(0);
    EXPECT_EQ(told(), "collapse 0;sound 0;group 0 0;");
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "item 0 0;");
    pane.SoundItemClicked = true;
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "sound 1;item 0 0;");
}

TEST_F(PaneTest, OpensTheFileOfAnItemBeforeItTellsTheClick) {
    pane.AddNormalGroup("a");
    pane.AddItem(0, "i", false, {}, false, "readme.txt");
    pane.AddItem(0, "j");
    std::string asked;
    bool can = true;
    pane.openFile = [&](const std::string& file) {
        asked += file;
        return can;
    };
    pane.clickItem(0, 0);
    EXPECT_EQ(asked, "readme.txt");
    EXPECT_EQ(told(), "opened 0 0;item 0 0;");
    can = false;
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "error 0 0;item 0 0;");
    pane.openFile = nullptr;
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "error 0 0;item 0 0;");
    pane.clickItem(0, 1);
    EXPECT_EQ(told(), "item 0 1;");
}

TEST_F(PaneTest, ALineOfTextIsNothingToClick) {
    pane.AddNormalGroup("a");
    pane.AddItem(0, "i", false, {}, true);
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "");
}

TEST_F(PaneTest, TheDetailGroupTurnsOnlyWithAButton) {
    pane.AddDetailGroup("d", "text");
    pane.clickHeader(0);
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(pane.GetGroupWindowState(0));
    pane.DetailGroupButton = true;
    pane.clickHeader(0);
    EXPECT_EQ(told(), "collapse 0;group 0 0;");
}

TEST_F(PaneTest, ALockedPaneKeepsItsGroupsAndItsItemsWork) {
    pane.AddNormalGroup("a");
    pane.AddItem(0, "i");
    pane.Locked = true;
    pane.clickHeader(0);
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "item 0 0;");
    pane.SetGroupWindowState(0, false);
    EXPECT_EQ(told(), "collapse 0;");
}

TEST_F(PaneTest, ADisabledOrHiddenPaneTakesNoClick) {
    pane.AddNormalGroup("a");
    pane.AddItem(0, "i");
    for (auto* property : {&pane.Enabled, &pane.Visible}) {
        *property = false;
        pane.clickHeader(0);
        pane.clickItem(0, 0);
        *property = true;
    }
    EXPECT_EQ(told(), "");
}

TEST_F(PaneTest, SettingTheStateThatAGroupHasTellsNothing) {
    pane.AddNormalGroup("a");
    drawn = 0;
    pane.SetGroupWindowState(0, true);
    pane.SetGroupState(0, GroupState::Open);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(drawn, 0);
}

TEST_F(PaneTest, AListenerMayTakeAwayTheGroupsThatWereClicked) {
    pane.AddNormalGroup("a");
    pane.AddItem(0, "i", false, {}, false, "file");
    pane.ErrorOpenFile.connect([this](int, int) { pane.DeleteAllGroups(); });
    pane.clickItem(0, 0);
    EXPECT_EQ(told(), "error 0 0;item 0 0;");
    pane.AddNormalGroup("a");
    pane.Collapse.connect([this](int) { pane.DeleteAllGroups(); });
    pane.clickHeader(0);
    EXPECT_EQ(told(), "collapse 0;group 0 0;");
}

TEST_F(PaneTest, EveryPropertyIsStoredAndDrawnAnew) {
    expectEveryPropertyIsStoredAndRedraws(pane);
}

}  // namespace
}  // namespace tidvane::controls
