#include "controls/border.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "controls/changed_properties.h"
#include "forms/form.h"

namespace tidvane::controls {
namespace {

struct BorderTest : ::testing::Test {
    forms::Form form{"frmAny"};
    Border border{form, "Border1"};
};

TEST_F(BorderTest, StoresThreePropertiesUnderTheirNames) {
    const std::map<std::string, StoredValue> expected{
        {"BorderColor", 0x80000008u}, {"BorderWidth", 0}, {"RoundBorder", true}};
    std::map<std::string, StoredValue> stored;
    for (const auto& row : Border::properties()) stored[std::string(row.storedAs)] = valueOf(row, border);
    EXPECT_EQ(stored, expected);
}

TEST_F(BorderTest, RunsAlongTheEdgeWithALineOfOnePixel) {
    border.setSize({100, 40});
    EXPECT_EQ(border.line(), (Border::Line{0, 0, 99, 39, 1}));
}

TEST_F(BorderTest, MovesAThickLineInwardsAtTheTopAndTheLeftOnly) {
    border.setSize({100, 40});
    border.BorderWidth = 2;
    EXPECT_EQ(border.line(), (Border::Line{2, 2, 99, 39, 3}));
}

TEST_F(BorderTest, LetsThroughAllButItsLine) {
    border.setSize({100, 40});
    EXPECT_TRUE(border.opaqueAt(0, 0));
    EXPECT_TRUE(border.opaqueAt(50, 0));
    EXPECT_TRUE(border.opaqueAt(99, 39));
    EXPECT_FALSE(border.opaqueAt(1, 1));
    EXPECT_FALSE(border.opaqueAt(98, 38));
    EXPECT_FALSE(border.opaqueAt(100, 39));
    border.BorderWidth = 2;
    for (const int x : {1, 2, 3}) EXPECT_TRUE(border.opaqueAt(x, 20)) << x;
    for (const int x : {0, 4, 97}) EXPECT_FALSE(border.opaqueAt(x, 20)) << x;
    for (const int x : {98, 99}) EXPECT_TRUE(border.opaqueAt(x, 20)) << x;
}

TEST_F(BorderTest, KeepsItsSquareCornersWhateverRoundBorderSays) {
    border.setSize({100, 40});
    const Border::Line before = border.line();
    border.RoundBorder = false;
    EXPECT_FALSE(border.RoundBorder);
    EXPECT_EQ(border.line(), before);
    EXPECT_TRUE(border.opaqueAt(0, 0));
}

TEST_F(BorderTest, DrawsNothingWhereItsLineDoesNotFit) {
    border.setSize({2, 2});
    border.BorderWidth = 5;
    EXPECT_LT(border.line().right, border.line().left);
    EXPECT_FALSE(border.opaqueAt(1, 1));
}

TEST_F(BorderTest, IsDrawnAnewWhenItsSizeOrAPropertyChanges) {
    int drawn = 0;
    border.viewChanged.connect([&] { ++drawn; });
    border.setSize({100, 40});
    border.setSize({100, 40});
    EXPECT_EQ(drawn, 1);
    border.BorderColor = 0xFFu;
    border.BorderWidth = 1;
    border.Refresh();
    EXPECT_EQ(drawn, 4);
}

TEST_F(BorderTest, EveryPropertyIsStoredAndDrawnAnew) {
    expectEveryPropertyIsStoredAndRedraws(border);
}

}  // namespace
}  // namespace tidvane::controls
