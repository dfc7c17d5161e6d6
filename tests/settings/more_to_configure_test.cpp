#include "settings/frmMoreToConfigure.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

#include "settings/modFormINI.h"
#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

class MoreToConfigure : public ::testing::Test, protected ProgramFixture {
protected:
    settings::frmMoreToConfigure& window() { return program.get<settings::frmMoreToConfigure>(); }
};

TEST_F(MoreToConfigure, FirstStartHasItsValues) {
    auto& form = window();
    EXPECT_EQ(form.cboTheme.Text(), "Default");
    EXPECT_EQ(form.cboTheme.ListCount(), 7);
    EXPECT_EQ(form.cboTheme.ListIndex(), 0);
    EXPECT_EQ(form.chkDisksizeInfo.Value, 1);
    EXPECT_EQ(form.chkEnableCustomApp.Value, 0);
    EXPECT_EQ(form.txtCustomAppPath.Text(), "C:\\Program Files\\Tidvane");
    EXPECT_EQ(form.txtCustomAppCommandlineParameter.Text(), "/");
    EXPECT_EQ(form.txtUpdateIntDelay.Text(), "2000");
    EXPECT_EQ(form.CustomThemeG.Text(), "G");
    EXPECT_EQ(form.cboChangelogServer.ListCount(), 5);
    EXPECT_EQ(form.cboChangelogServer.ListIndex(), 0);
    EXPECT_EQ(form.cboCommunityMenu.ListIndex(), 0);
    EXPECT_EQ(form.cboCommunityMenu.ListCount(), 4);
}

TEST_F(MoreToConfigure, StartsWithWhatUntickedBoxesSwitchOff) {
    auto& form = window();
    for (const forms::Control* control : std::initializer_list<const forms::Control*>{
             &form.txtCustomAppPath, &form.cmdCustomApp, &form.txtCustomAppCommandlineParameter,
             &form.chkRunCustomAppAfterTidvane, &form.txtUpdateLocation, &form.txtUpdateIntDelay,
             &form.chkOpenChangelogAfterUpdate, &form.cboChangelogServer, &form.chkAutoStartInfoServer,
             &form.txtInfoServer, &form.cmdChangeTheme, &form.CustomThemeR, &form.CustomThemeG, &form.CustomThemeB}) {
        EXPECT_FALSE(control->Enabled) << control->Name;
    }
    for (const forms::Control* control :
         std::initializer_list<const forms::Control*>{&form.CustomThemeR, &form.CustomThemeB, &form.PicRGBThemeMix}) {
        EXPECT_FALSE(control->Visible) << control->Name;
    }
    // Ticking and unticking comes back to the same picture.
    for (forms::CheckBox* box : {&form.chkEnableCustomApp, &form.chkEnableAutoUpdate, &form.chkInfoServer}) {
        box->Value = 1;
        box->Value = 0;
    }
    EXPECT_FALSE(form.txtCustomAppPath.Enabled);
    EXPECT_FALSE(form.txtUpdateLocation.Enabled);
    EXPECT_FALSE(form.cboChangelogServer.Enabled);
    EXPECT_FALSE(form.txtInfoServer.Enabled);
}

TEST_F(MoreToConfigure, AFileWithoutItsSectionLeavesTheSameValues) {
    putBeside("td_config.ini", "[frmOptions]\r\nchkTrash=1\r\n");
    EXPECT_EQ(window().chkDisksizeInfo.Value, 1);
    EXPECT_EQ(window().cboTheme.Text(), "Default");
    EXPECT_EQ(window().txtUpdateIntDelay.Text(), "2000");
    EXPECT_EQ(window().txtInfoServer.Text(), settings::address::kNews);
}

TEST_F(MoreToConfigure, StoredValuesComeBackWithTheirConsequences) {
    putBeside("td_config.ini",
              "[frmMoreToConfigure]\r\ncboTheme=6\r\nCustomThemeR=12\r\nchkDisksizeInfo=0\r\nchkEnableAutoUpdate=1\r\n"
              "chkOpenChangelogAfterUpdate=1\r\ncboChangelogServer=3\r\nchkInfoServer=1\r\n");
    auto& form = window();
    EXPECT_EQ(form.cboTheme.Text(), "Custom");
    EXPECT_EQ(form.CustomThemeR.Text(), "12");
    EXPECT_TRUE(form.CustomThemeR.Visible);
    EXPECT_TRUE(form.CustomThemeR.Enabled);
    EXPECT_TRUE(form.PicRGBThemeMix.Visible);
    EXPECT_EQ(form.chkDisksizeInfo.Value, 0);
    EXPECT_TRUE(form.chkOpenChangelogAfterUpdate.Enabled);
    EXPECT_TRUE(form.cboChangelogServer.Enabled);
    EXPECT_EQ(form.cboChangelogServer.ListIndex(), 3);
    EXPECT_TRUE(form.txtInfoServer.Enabled);
    EXPECT_EQ(form.txtInfoServer.BackColor, 0x80000018u);
}

TEST_F(MoreToConfigure, ABadNumberEndsTheWalkAndTheLoadGoesOn) {
    putBeside("td_config.ini", "[frmMoreToConfigure]\r\ncboTheme=1\r\nchkDisksizeInfo=bad\r\nchkInfoServer=1\r\n");
    EXPECT_EQ(window().cboTheme.Text(), "Blue");
    EXPECT_EQ(window().chkDisksizeInfo.Value, 1);
    EXPECT_EQ(window().chkInfoServer.Value, 0);
}

TEST_F(MoreToConfigure, OnlyTwoThemesHaveASystemDialog) {
    auto& form = window();
    for (int theme = 0; theme < form.cboTheme.ListCount(); ++theme) {
        form.cboTheme.setListIndex(theme);
        const bool expected = form.cboTheme.Text() == "Desktop" || form.cboTheme.Text() == "Windows";
        EXPECT_EQ(form.cmdChangeTheme.Enabled, expected) << form.cboTheme.Text();
    }
}

TEST_F(MoreToConfigure, SwitchingTheUpdateOffUnticksTheChangelog) {
    auto& form = window();
    form.chkEnableAutoUpdate.Value = 1;
    EXPECT_FALSE(form.cboChangelogServer.Enabled);
    form.chkOpenChangelogAfterUpdate.Value = 1;
    EXPECT_TRUE(form.cboChangelogServer.Enabled);
    form.chkEnableAutoUpdate.Value = 0;
    EXPECT_EQ(form.chkOpenChangelogAfterUpdate.Value, 0);
    EXPECT_FALSE(form.chkOpenChangelogAfterUpdate.Enabled);
    EXPECT_FALSE(form.cboChangelogServer.Enabled);
}

TEST_F(MoreToConfigure, SwitchingTheInformationServerOffUnticksItsStart) {
    auto& form = window();
    form.chkInfoServer.Value = 1;
    form.chkAutoStartInfoServer.Value = 1;
    form.chkInfoServer.Value = 0;
    EXPECT_EQ(form.chkAutoStartInfoServer.Value, 0);
    EXPECT_FALSE(form.chkAutoStartInfoServer.Enabled);
    EXPECT_EQ(form.txtInfoServer.BackColor, 0x80000005u);
}

TEST_F(MoreToConfigure, OkStoresAndUnloads) {
    window().chkDisksizeInfo.Value = 0;
    window().ImgOK.Click();
    EXPECT_EQ(program.windows.ifLoaded("frmMoreToConfigure"), nullptr);
    EXPECT_EQ(storedValue("frmMoreToConfigure", "chkDisksizeInfo"), "0");
    EXPECT_EQ(storedValue("frmMoreToConfigure", "cboTheme"), "0");
    EXPECT_EQ(window().chkDisksizeInfo.Value, 0);
}

TEST_F(MoreToConfigure, ClosingDropsTheChanges) {
    window().chkDisksizeInfo.Value = 0;
    program.windows.unload(window(), forms::UnloadMode::ControlMenu);
    EXPECT_EQ(window().chkDisksizeInfo.Value, 1);
}

TEST_F(MoreToConfigure, AKnownCleanerTurnsTheBoxGreen) {
    auto& form = window();
    for (const std::string name :
         {"CCleaner", "BleachBit", "SlimCleaner", "Wise Disk Cleaner", "Glary Utilities", "System Ninja", "FCleaner",
          "Advanced SystemCare", "JetClean", "ClearProg", "AppCleaner"}) {
        for (const std::string& path : {"D:\\" + name + "\\tools\\x.exe", "D:\\my" + name + "64.exe"}) {
            form.txtCustomAppPath.setText(path);
            form.Timer1.fire();
            EXPECT_EQ(form.txtCustomAppPath.BackColor, 0xC0FFC0u) << path;
            EXPECT_EQ(form.txtCustomAppPath.ToolTipText, std::string("This Cleaner you can Trust.")) << path;
        }
        std::string lower = name;
        for (char& sign : lower) sign = static_cast<char>(std::tolower(static_cast<unsigned char>(sign)));
        form.txtCustomAppPath.setText("D:\\" + lower + "\\x.exe");
        form.Timer1.fire();
        EXPECT_EQ(form.txtCustomAppPath.BackColor, 0xFFFFFFu) << lower;
    }
}

TEST_F(MoreToConfigure, TheTrustedTipGoesWithThePathThatItWasAbout) {
    auto& form = window();
    form.txtCustomAppPath.setText("D:\\CCleaner\\x.exe");
    form.Timer1.fire();
    form.txtCustomAppPath.setText("D:\\other.exe");
    form.Timer1.fire();
    EXPECT_EQ(form.txtCustomAppPath.ToolTipText, std::string("D:\\other.exe"));
}

TEST_F(MoreToConfigure, TheFlagFollowsTheChangelogPage) {
    auto& form = window();
    form.cboChangelogServer.setListIndex(2);
    form.Timer1.fire();
    EXPECT_FALSE(form.ImgUpdateGerman.Visible);
    EXPECT_TRUE(form.ImgUpdateEnglish.Visible);
    // A typed text changes neither of them, whichever it was.
    form.cboChangelogServer.setText("https://somewhere.example/");
    form.Timer1.fire();
    EXPECT_FALSE(form.ImgUpdateGerman.Visible);
    EXPECT_TRUE(form.ImgUpdateEnglish.Visible);
    form.cboChangelogServer.setListIndex(0);
    form.Timer1.fire();
    EXPECT_TRUE(form.ImgUpdateGerman.Visible);
    EXPECT_FALSE(form.ImgUpdateEnglish.Visible);
    form.cboChangelogServer.setText("https://somewhere.example/");
    form.Timer1.fire();
    EXPECT_TRUE(form.ImgUpdateGerman.Visible);
    EXPECT_FALSE(form.ImgUpdateEnglish.Visible);
}

TEST_F(MoreToConfigure, OfATypedChangelogPageNothingIsLeftAndOkSaysSo) {
    auto& form = window();
    form.cboChangelogServer.setText("https://somewhere.example/");
    form.ImgOK.Click();
    ASSERT_EQ(display.warnings.size(), 1u);
    EXPECT_EQ(display.warnings[0],
              "\"https://somewhere.example/\" is none of the pages of the list, and only these are stored: from now on "
              "it is the first one.");
    EXPECT_EQ(window().cboChangelogServer.ListIndex(), 0);
    EXPECT_EQ(window().cboChangelogServer.Text(), settings::address::kChangelogs.front());
    display.warnings.clear();
    window().ImgOK.Click();
    EXPECT_TRUE(display.warnings.empty());
}

TEST_F(MoreToConfigure, AnEmptyChangelogPageOfAFileIsTheFirstOne) {
    putBeside("td_config.ini", "[frmMoreToConfigure]\r\ncboChangelogServer=-1\r\n");
    EXPECT_EQ(window().cboChangelogServer.ListIndex(), 0);
}

TEST_F(MoreToConfigure, TheMixedColourStaysWhileABoxIsEmpty) {
    auto& form = window();
    form.CustomThemeR.setText("1");
    form.CustomThemeG.setText("2");
    form.CustomThemeB.setText("3");
    form.Timer1.fire();
    EXPECT_EQ(form.PicRGBThemeMix.BackColor, 0x030201u);
    form.CustomThemeG.GotFocus();
    EXPECT_EQ(form.CustomThemeG.Text(), "");
    form.Timer1.fire();
    EXPECT_EQ(form.PicRGBThemeMix.BackColor, 0x030201u);
}

TEST_F(MoreToConfigure, EnteringABoxOfTheCustomColourClearsIt) {
    auto& form = window();
    for (forms::TextBox* box : {&form.CustomThemeR, &form.CustomThemeG, &form.CustomThemeB}) {
        box->setText("77");
        box->GotFocus();
        EXPECT_EQ(box->Text(), "") << box->Name;
    }
}

TEST_F(MoreToConfigure, TheMixStandsForTheThreeNumbersOfTheCustomTheme) {
    auto& form = window();
    EXPECT_FALSE(form.PicRGBThemeMix.Visible);
    form.cboTheme.setText("Custom");
    EXPECT_TRUE(form.PicRGBThemeMix.Visible);
    const unsigned before = form.PicRGBThemeMix.BackColor;
    form.Timer1.fire();  // "R", "G" and "B" are no numbers
    EXPECT_EQ(form.PicRGBThemeMix.BackColor, before);
    form.CustomThemeR.setText("255");
    form.CustomThemeG.setText("128");
    form.CustomThemeB.setText("0");
    form.Timer1.fire();
    EXPECT_EQ(form.PicRGBThemeMix.BackColor, 0x0080FFu);
}

TEST_F(MoreToConfigure, TheTrustedTipStandsUntilTheNextTickOverThePointersTip) {
    auto& form = window();
    form.txtCustomAppPath.setText("D:\\BleachBit\\x.exe");
    form.Form_MouseMove(form.txtCustomAppPath);
    EXPECT_EQ(form.txtCustomAppPath.ToolTipText, std::string("D:\\BleachBit\\x.exe"));
    form.Timer1.fire();
    EXPECT_EQ(form.txtCustomAppPath.ToolTipText, std::string("This Cleaner you can Trust."));
}

TEST_F(MoreToConfigure, TheDelayTakesNumbersAlone) {
    auto& form = window();
    form.txtUpdateIntDelay.setText("");
    for (const char32_t key : U"1a,-2") form.txtUpdateIntDelay.typeKey(key);
    EXPECT_EQ(form.txtUpdateIntDelay.Text(), "1,2");
}

TEST_F(MoreToConfigure, AChosenApplicationResetsItsParameter) {
    auto& form = window();
    form.txtCustomAppCommandlineParameter.setText("/auto");
    form.cmdCustomApp.Click();
    EXPECT_EQ(form.txtCustomAppCommandlineParameter.Text(), "/auto");
    display.files = {"C:\\Tools\\x.exe"};
    form.cmdCustomApp.Click();
    EXPECT_EQ(form.txtCustomAppPath.Text(), "C:\\Tools\\x.exe");
    EXPECT_EQ(form.txtCustomAppCommandlineParameter.Text(), "/");
    ASSERT_EQ(display.fileQuestions.size(), 2u);
    EXPECT_EQ(display.fileQuestions[0].filter, "Alle Dateien (*.*)|*.*");
    EXPECT_EQ(display.fileQuestions[0].initialFolder, "C:\\");
}

TEST_F(MoreToConfigure, ThemeButtonStartsTheDisplaySettings) {
    window().cmdChangeTheme.Click();
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "rundll32.exe shell32.dll,Control_RunDLL desk.cpl,,2");
}

TEST_F(MoreToConfigure, ThemeButtonTellsWhereTheSystemHasNoSuchSettings) {
    machine.processes.failToStart = true;
    window().cmdChangeTheme.Click();
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].text, "This system cannot start rundll32.exe.");
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Exclamation);
}

TEST_F(MoreToConfigure, ResetPutsTheStandardAddressBack) {
    window().txtInfoServer.setText("x");
    window().lblReset3.Click();
    EXPECT_EQ(window().txtInfoServer.Text(), settings::address::kNews);
}

TEST_F(MoreToConfigure, TipsFollowThePointer) {
    program.LangText.set(990, "Parameter:");
    auto& form = window();
    form.Form_MouseMove(form.txtCustomAppPath);
    form.Form_MouseMove(form.txtCustomAppCommandlineParameter);
    form.Form_MouseMove(form.txtUpdateLocation);
    EXPECT_EQ(form.txtCustomAppPath.ToolTipText, std::string("C:\\Program Files\\Tidvane"));
    EXPECT_EQ(form.txtCustomAppCommandlineParameter.ToolTipText, std::string("Parameter: /"));
    EXPECT_EQ(form.txtUpdateLocation.ToolTipText, std::string("Update Location (Direct link to Setup/Portable/EXE)"));
}

TEST_F(MoreToConfigure, TheChosenThemeGoesToAPane) {
    window().cboTheme.setText("Custom");
    window().CustomThemeR.setText("16");
    window().CustomThemeG.setText("32");
    window().CustomThemeB.setText("48");
    forms::Form form("frmAny");
    controls::ExplorerBar pane(form, "ExplorerBar1");
    settings::applyChosenTheme(program, pane, true);
    EXPECT_EQ(pane.colour("BorderColor"), 0x302010u);
}

TEST_F(MoreToConfigure, CaptionsComeFromTheTable) {
    program.LangText.set(389, "Extended");
    program.LangText.set(159, "Like");
    program.LangText.set(172, "Community");
    EXPECT_EQ(window().Caption, std::string("Extended"));
    EXPECT_EQ(window().cboCommunityMenu.rows(), (std::vector<std::string>{"Like", "Homepage", "Community", ""}));
}

TEST_F(MoreToConfigure, TheNamesOfTheThreeColoursStandBesideTheirBoxes) {
    auto& form = window();
    for (const char* theme : {"Custom", "Blue", "Custom"}) {
        form.cboTheme.setText(theme);
        for (const forms::Label* label : {&form.lblThemeR, &form.lblThemeG, &form.lblThemeB}) {
            EXPECT_EQ(label->Visible, form.CustomThemeR.Visible) << label->Name << " " << theme;
        }
    }
    EXPECT_TRUE(form.lblThemeR.Visible);
}

TEST_F(MoreToConfigure, ItsBoxesHaveWordsBesideThem) {
    program.LangText.set(860, "Colours:");
    program.LangText.set(887, "Back");
    program.LangText.set(352, "Browse");
    EXPECT_EQ(window().lblTheme.Caption.get(), "Colours:");
    EXPECT_EQ(window().cmdCustomApp.Caption.get(), "Browse");
    EXPECT_EQ(window().lblReset3.Caption.get(), "Back");
}

}  // namespace
}  // namespace tidvane::tests
