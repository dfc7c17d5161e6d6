// A theme that is chosen while panes stand waits until one is built anew.
#include "settings/frmMoreToConfigure.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct PaneTheme : AppFixture {
    settings::frmMoreToConfigure& extended() { return program.get<settings::frmMoreToConfigure>(); }
    // Chosen and stored, as the window's OK does.
    void choose(const std::string& theme) {
        extended().cboTheme.setText(theme);
        extended().ImgOK.Click();
    }
};

TEST_F(PaneTheme, OfTheOptionsTakesEffectAtTheirNextOpening) {
    options();
    const unsigned before = options().ExplorerBar2.colour("BackColor");
    choose("Dark");
    EXPECT_EQ(options().ExplorerBar2.colour("BackColor"), before);
    program.windows.unload(options());
    EXPECT_EQ(options().ExplorerBar2.colour("BackColor"), 0x676767U);
}

TEST_F(PaneTheme, OfTheMainWindowTakesEffectAtTheNextStart) {
    EXPECT_EQ(main().ExplorerBar1.colour("BackColor"), 0xC0C0C0U);  // the default of this pane alone
    choose("Dark");
    EXPECT_EQ(main().ExplorerBar1.colour("BackColor"), 0xC0C0C0U);
    AppFixtureRun next;
    next.machine.files.putFile(inFolder("td_config.ini"), *machine.files.bytesOf(inFolder("td_config.ini")));
    EXPECT_EQ(next.main().ExplorerBar1.colour("BackColor"), 0x676767U);
}

}  // namespace tidvane::tests
