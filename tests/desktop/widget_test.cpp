#include <gtest/gtest.h>

#include "desktop/frmWidget.h"
#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

class Widget : public ::testing::Test, protected ProgramFixture {
protected:
    desktop::frmWidget& window() { return program.get<desktop::frmWidget>(); }
};

TEST_F(Widget, CloseStoresItsBoxesAndItsPlace) {
    window().chkAutostart.Value = 1;
    window().Left = 700;
    window().Top = 800;
    window().cmdClose.Click();
    EXPECT_EQ(program.windows.ifLoaded("frmWidget"), nullptr);
    EXPECT_EQ(storedValue("frmWidget", "chkAutostart"), "1");
    EXPECT_EQ(storedValue("WindowStateWidget", "Left"), "700");
    EXPECT_EQ(storedValue("WindowStateWidget", "Top"), "800");
    EXPECT_EQ(storedValue("WindowStateWidget", "Width"), "<none>");
    EXPECT_EQ(window().chkAutostart.Value, 1);
    EXPECT_EQ(window().Left, 700);
}

TEST_F(Widget, AnotherWayOfClosingStoresThePlaceAlone) {
    window().chkAutostart.Value = 1;
    window().Left = 700;
    program.windows.unload(window());
    EXPECT_EQ(storedValue("frmWidget", "chkAutostart"), "<none>");
    EXPECT_EQ(storedValue("WindowStateWidget", "Left"), "700");
}

TEST_F(Widget, StoredBoxesActAtTheLoad) {
    putBeside("td_config.ini", "[frmWidget]\r\nchkForeground=1\r\nchkTransparency=1\r\n");
    EXPECT_EQ(window().Opacity, 128);
    EXPECT_EQ(display.topmost, (std::vector<std::pair<std::string, bool>>{{"frmWidget", true}}));
    window().chkTransparency.Value = 0;
    window().chkForeground.Value = 0;
    EXPECT_EQ(window().Opacity, 255);
    EXPECT_FALSE(display.topmost.back().second);
}

TEST_F(Widget, DocksWithinItsDistanceOfAnEdge) {
    auto& form = window();
    form.Left = 349;
    form.Top = 350;
    form.dock(20000, 15000);
    EXPECT_EQ(form.Left, 0);
    EXPECT_EQ(form.Top, 350);
    form.Left = 20000 - form.Width - 349;
    form.Top = 15000 - form.Height + 10;
    form.dock(20000, 15000);
    EXPECT_EQ(form.Left, 20000 - form.Width);
    EXPECT_EQ(form.Top, 15000 - form.Height);
}

TEST_F(Widget, DocksAtTheTop) {
    auto& form = window();
    form.Left = 5000;
    form.Top = 349;
    form.dock(20000, 15000);
    EXPECT_EQ(form.Top, 0);
    EXPECT_EQ(form.Left, 5000);
    form.Top = -200;
    form.dock(20000, 15000);
    EXPECT_EQ(form.Top, 0);
}

TEST_F(Widget, DocksOnTheFarSidesUnderItsDistanceAndNotAtIt) {
    auto& form = window();
    form.Left = 20000 - form.Width - 350;
    form.Top = 15000 - form.Height - 350;
    form.dock(20000, 15000);
    EXPECT_EQ(form.Left, 20000 - form.Width - 350);
    EXPECT_EQ(form.Top, 15000 - form.Height - 350);
    form.Left = form.Left + 1;
    form.Top = form.Top + 1;
    form.dock(20000, 15000);
    EXPECT_EQ(form.Left, 20000 - form.Width);
    EXPECT_EQ(form.Top, 15000 - form.Height);
}

TEST_F(Widget, FollowsThePointerWhileAButtonIsDown) {
    auto& form = window();
    form.Left = 5000;
    form.Top = 4000;
    form.mouseMove(true, 100, 100, 20000, 15000);  // nobody has taken it
    EXPECT_EQ(form.Left, 5000);
    form.mouseDown(300, 200);
    form.mouseMove(true, 450, 150, 20000, 15000);
    EXPECT_EQ(form.Left, 5150);
    EXPECT_EQ(form.Top, 3950);
    form.mouseMove(false, 600, 600, 20000, 15000);
    form.mouseMove(true, 900, 900, 20000, 15000);
    EXPECT_EQ(form.Left, 5150);
    EXPECT_EQ(form.Top, 3950);
}

TEST_F(Widget, DocksWhileItIsMovedAndComesOffAgain) {
    auto& form = window();
    form.Left = 1000;
    form.Top = 1000;
    form.mouseDown(200, 200);
    form.mouseMove(true, 200, 200 - 651, 20000, 15000);
    EXPECT_EQ(form.Top, 0);
    form.mouseMove(true, 200, 200 + 349, 20000, 15000);
    EXPECT_EQ(form.Top, 0);
    form.mouseMove(true, 200, 200 + 350, 20000, 15000);
    EXPECT_EQ(form.Top, 350);
    EXPECT_EQ(form.Left, 1000);
}

TEST_F(Widget, HasCornersOfTwentyPixels) {
    const auto outline = window().outline(15, 15);
    EXPECT_EQ(outline.width, window().Width / 15);
    EXPECT_EQ(outline.height, window().Height / 15);
    EXPECT_EQ(outline.corner, 20);
}

TEST_F(Widget, StaysLayeredOnceItWasTransparent) {
    EXPECT_FALSE(window().Layered);
    window().chkTransparency.Value = 1;
    EXPECT_TRUE(window().Layered);
    EXPECT_EQ(window().Opacity, 128);
    window().chkTransparency.Value = 0;
    EXPECT_TRUE(window().Layered);
    EXPECT_EQ(window().Opacity, 255);
}

TEST_F(Widget, TakesItsPlaceByTheRuleOfNumbers) {
    putBeside("td_config.ini", "[WindowStateWidget]\r\nLeft= 12 \r\nTop=40000\r\n");
    const int top = desktop::frmWidget(program).Top;
    EXPECT_EQ(window().Left, 12);
    EXPECT_EQ(window().Top, top);
}

// Stands for the main window: its load is of no matter here.
class FakeMain : public forms::Form {
public:
    FakeMain() : Form("frmMain") {}
    forms::Timer tmrCleanButton{*this, "tmrCleanButton", 1000, false};
};

TEST_F(Widget, CleanShowsTheMainWindowAndStartsItsTimer) {
    program.windows.offer("frmMain", [] { return std::make_unique<FakeMain>(); });
    window().cmdClean.Click();
    EXPECT_TRUE(display.wasShown("frmMain"));
    EXPECT_TRUE(program.windows.get("frmMain")->control("tmrCleanButton")->Enabled);
}

TEST_F(Widget, TakesItsCaption) {
    program.LangText.set(119, "Clean");
    EXPECT_EQ(window().cmdClean.Caption, std::string("Clean"));
}

}  // namespace
}  // namespace tidvane::tests
