#include "settings/themes.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "forms/form.h"

namespace tidvane::tests {
namespace {

using settings::applyTheme;

class Theme : public ::testing::Test {
protected:
    forms::Form form{"frmAny"};
    controls::ExplorerBar pane{form, "ExplorerBar1"};

    bool untouched(const std::string& property) const { return pane.colour(property) == kBefore; }

private:
    static constexpr unsigned kBefore = 0x123456u;

    void SetUp() override {
        for (const auto& row : controls::paneColours()) pane.setColour(std::string(row.property), kBefore);
    }
};

TEST_F(Theme, DefaultColoursTheMainPaneAlone) {
    applyTheme(pane, "Default", false, 0, 0, 0);
    EXPECT_TRUE(untouched("BackColor"));
    applyTheme(pane, "Default", true, 0, 0, 0);
    EXPECT_EQ(pane.colour("BackColor"), 0xC0C0C0u);
    EXPECT_EQ(pane.colour("GradientBackColor"), 0x808080u);
    EXPECT_TRUE(untouched("BorderColor"));
}

TEST_F(Theme, LightDarkAndDesktopSetTwoFourAndFiveProperties) {
    applyTheme(pane, "Light", false, 0, 0, 0);
    EXPECT_EQ(pane.colour("GradientBackColor"), 0x8000000Fu);
    EXPECT_TRUE(untouched("BorderColor"));
    applyTheme(pane, "Dark", false, 0, 0, 0);
    EXPECT_EQ(pane.colour("BorderColor"), 0x676767u);
    EXPECT_EQ(pane.colour("GradientSpecialHeaderBackColor"), 0x676767u);
    EXPECT_TRUE(untouched("NormalHeaderBackColor"));
    applyTheme(pane, "Desktop", false, 0, 0, 0);
    EXPECT_EQ(pane.colour("NormalHeaderBackColor"), 0x80000001u);
}

TEST_F(Theme, BlueSetsItsColours) {
    applyTheme(pane, "Blue", false, 0, 0, 0);
    // clang-format off
    const std::vector<std::pair<const char*, unsigned>> expected = {
        {"BackColor", 0xE6AA8Cu},
        {"BorderColor", 0x80000008u},
        {"DetailsForeColor", 0xC65D21u},
        {"GradientBackColor", 0xCC6633u},
        {"GradientNormalHeaderBackColor", 0xF0D2C5u},
        {"GradientNormalItemBackColor", 0xF7DFD6u},
        {"GradientSpecialHeaderBackColor", 0xB24801u},
        {"GradientSpecialItemBackColor", 0xF7DFD6u},
        {"NormalArrowDownColor", 0xC65D21u},
        {"NormalArrowHoverColor", 0xC65D21u},
        {"NormalArrowUpColor", 0xFF8E42u},
        {"NormalButtonBackColor", 0xFFFFFFu},
        {"NormalButtonDownColor", 0xF0CDC0u},
        {"NormalButtonHoverColor", 0xF09D90u},
        {"NormalButtonUpColor", 0xF0CDC0u},
        {"NormalHeaderBackColor", 0xFFFFFFu},
        {"NormalHeaderForeColor", 0xC65D21u},
        {"NormalHeaderHoverColor", 0xFF8E42u},
        {"NormalItemBackColor", 0xF7DFD6u},
        {"NormalItemBorderColor", 0xFFFFFFu},
        {"NormalItemForeColor", 0xC65D21u},
        {"NormalItemHoverColor", 0xFF8E42u},
        {"SpecialArrowDownColor", 0xFF8E42u},
        {"SpecialArrowHoverColor", 0xFFFFFFu},
        {"SpecialArrowUpColor", 0xFFFFFFu},
        {"SpecialButtonBackColor", 0xBC5215u},
        {"SpecialButtonDownColor", 0xB24801u},
        {"SpecialButtonHoverColor", 0xC6AD71u},
        {"SpecialButtonUpColor", 0xC67D41u},
        {"SpecialHeaderBackColor", 0xBC5215u},
        {"SpecialHeaderForeColor", 0xFFFFFFu},
        {"SpecialHeaderHoverColor", 0xFF8E42u},
        {"SpecialItemBackColor", 0xF7DFD6u},
        {"SpecialItemBorderColor", 0xFFFFFFu},
        {"SpecialItemForeColor", 0xC65D21u},
        {"SpecialItemHoverColor", 0xFF8E42u},
    };
    // clang-format on
    ASSERT_EQ(expected.size(), 36u);
    for (const auto& [property, colour] : expected) EXPECT_EQ(pane.colour(property), colour) << property;
}

TEST_F(Theme, WindowsTakesTheVisualStyle) {
    applyTheme(pane, "Windows", true, 0, 0, 0);
    EXPECT_TRUE(pane.UseTheme);
    EXPECT_TRUE(untouched("BackColor"));
}

TEST_F(Theme, CustomMixesBlueGreenRed) {
    applyTheme(pane, "Custom", false, 1, 2, 300);
    EXPECT_EQ(pane.colour("BackColor"), 0xFF0201u);
    EXPECT_EQ(pane.colour("NormalHeaderBackColor"), 0xFF0201u);
}

TEST_F(Theme, CustomWithoutAColourAndUnknownNamesSetNothing) {
    applyTheme(pane, "Custom", true, -1, 2, 3);
    applyTheme(pane, "", true, 1, 2, 3);
    applyTheme(pane, "blue", true, 1, 2, 3);
    EXPECT_TRUE(untouched("BackColor"));
}

TEST(MixedColour, NeedsThreeNumbers) {
    const base::Locale& locale = base::englishLocale();
    EXPECT_EQ(settings::mixedColour("255", "128", "1", locale), 0x0180FFu);
    EXPECT_FALSE(settings::mixedColour("R", "1", "1", locale));
    EXPECT_FALSE(settings::mixedColour("", "1", "1", locale));
    EXPECT_FALSE(settings::mixedColour("-1", "1", "1", locale));
}

}  // namespace
}  // namespace tidvane::tests
