#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "settings/addresses.h"
#include "settings/frmChromeDir.h"
#include "settings/frmIEInDepthClean.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmOptions.h"
#include "settings/frmResources.h"
#include "settings/frmSafariDir.h"
#include "settings/frmStarter.h"
#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

using settings::frmIEInDepthClean;
using settings::frmStarter;

class SmallWindow : public ::testing::Test, protected ProgramFixture {};

// --- Internet Explorer, in depth
// ------------------------------------------------------------------------------------------

class InDepth : public SmallWindow {
protected:
    frmIEInDepthClean& window() { return program.get<frmIEInDepthClean>(); }
    std::string stored() {
        return storedValue("frmIEInDepthClean", "chkIEINDepthClean") + " " +
               storedValue("frmIEInDepthClean", "chkIEINDepthCleanAll");
    }
};

TEST_F(InDepth, StartsWithTheCallsTicked) {
    EXPECT_EQ(window().chkIEINDepthClean.Value, 1);
    EXPECT_EQ(window().chkIEINDepthCleanAll.Value, 0);
}

TEST_F(InDepth, EverythingAtOnceExcludesTheSingleCalls) {
    window().chkIEINDepthCleanAll.Value = 1;
    EXPECT_EQ(window().chkIEINDepthClean.Value, 0);
    EXPECT_FALSE(window().chkIEINDepthClean.Enabled);
    window().chkIEINDepthCleanAll.Value = 0;
    EXPECT_TRUE(window().chkIEINDepthClean.Enabled);
    EXPECT_EQ(window().chkIEINDepthClean.Value, 0);
}

TEST_F(InDepth, AGreyedStepIsNotTicked) {
    window().chkIEINDepthCleanAll.Value = 2;
    EXPECT_TRUE(window().chkIEINDepthClean.Enabled);
    EXPECT_EQ(window().chkIEINDepthClean.Value, 1);
    window().cmdOK.Click();
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(InDepth, TakesItsCaptions) {
    for (int entry = 800; entry <= 802; ++entry) program.LangText.set(entry, "L" + std::to_string(entry));
    EXPECT_EQ(window().Caption, std::string("L800"));
    EXPECT_EQ(window().frmIEAdvancedOpt.Caption, std::string("L800"));
    EXPECT_EQ(window().chkIEINDepthClean.Caption, std::string("L801"));
    EXPECT_EQ(window().chkIEINDepthCleanAll.Caption, std::string("L802"));
}

TEST_F(InDepth, AFileWithoutItsSectionLeavesTheCallsTicked) {
    putBeside("td_config.ini", "[frmOptions]\r\nchkIEHistory=1\r\n");
    EXPECT_EQ(window().chkIEINDepthClean.Value, 1);
    EXPECT_EQ(window().chkIEINDepthCleanAll.Value, 0);
}

TEST_F(InDepth, AStoredStepTakesTheCallsAway) {
    putBeside("td_config.ini", "[frmIEInDepthClean]\r\nchkIEINDepthClean=1\r\nchkIEINDepthCleanAll=1\r\n");
    EXPECT_EQ(window().chkIEINDepthCleanAll.Value, 1);
    EXPECT_EQ(window().chkIEINDepthClean.Value, 0);
    EXPECT_FALSE(window().chkIEINDepthClean.Enabled);
}

TEST_F(InDepth, OkWithoutTheStepAsksNothing) {
    window().cmdOK.Click();
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_EQ(stored(), "1 0");
    EXPECT_EQ(program.windows.ifLoaded("frmIEInDepthClean"), nullptr);
}

TEST_F(InDepth, YesStoresTheStepAndCloses) {
    program.LangText.set(803, "All of it?");
    window().chkIEINDepthCleanAll.Value = 1;
    display.answers = {forms::msgbox::Yes};
    window().cmdOK.Click();
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].text, "All of it?");
    EXPECT_EQ(display.boxes[0].style, 308);
    EXPECT_EQ(stored(), "0 1");
    EXPECT_FALSE(display.wasShown("frmIEInDepthClean"));
    EXPECT_EQ(program.windows.ifLoaded("frmIEInDepthClean"), nullptr);
    EXPECT_EQ(window().chkIEINDepthCleanAll.Value, 1);
    EXPECT_FALSE(window().chkIEINDepthClean.Enabled);
}

TEST_F(InDepth, NoStoresTheCallsAndShowsTheWindowAgain) {
    window().chkIEINDepthCleanAll.Value = 1;
    display.answers = {forms::msgbox::No};
    window().cmdOK.Click();
    EXPECT_EQ(stored(), "1 0");
    ASSERT_EQ(display.shown.size(), 1u);
    EXPECT_EQ(display.shown[0].window, "frmIEInDepthClean");
    EXPECT_TRUE(display.shown[0].modal);
    EXPECT_EQ(window().chkIEINDepthClean.Value, 1);
    EXPECT_EQ(window().chkIEINDepthCleanAll.Value, 0);
}

TEST_F(InDepth, WhileNobodyMayBeKeptWaitingTheAnswerIsNo) {
    program.unattended = true;
    window().chkIEINDepthCleanAll.Value = 1;
    window().cmdOK.Click();
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_EQ(stored(), "1 0");
}

TEST_F(InDepth, TheCloseBoxDiscards) {
    window().chkIEINDepthCleanAll.Value = 1;
    program.windows.unload(window(), forms::UnloadMode::ControlMenu);
    EXPECT_FALSE(machine.files.has(program.inProgramFolder("td_config.ini")));
}

TEST_F(InDepth, ABadNumberReachesTheCallerAndTheWindowIsThere) {
    putBeside("td_config.ini", "[frmIEInDepthClean]\r\nchkIEINDepthClean=bad\r\n");
    EXPECT_THROW((void)window(), base::RuntimeError);
    EXPECT_EQ(window().chkIEINDepthClean.Value, 1);
}

// --- resources
// ------------------------------------------------------------------------------------------------------------

TEST_F(SmallWindow, ResourcesStartWithTheStandardAddressesAndGoBackToThem) {
    auto& form = program.get<settings::frmResources>();
    EXPECT_EQ(form.txtApps.Text(), settings::address::kApps);
    EXPECT_EQ(form.txtRegister.Text(), settings::address::kRegister);
    form.txtApps.setText("https://other.example/");
    form.cmdStandardServer.Click();
    EXPECT_EQ(form.txtApps.Text(), settings::address::kApps);
}

TEST_F(SmallWindow, ResourcesAreStoredByTheOkPicture) {
    auto& form = program.get<settings::frmResources>();
    form.txtForum.setText("https://other.example/");
    form.ImgOK.Click();
    EXPECT_EQ(storedValue("frmResources", "txtForum"), "https://other.example/");
    EXPECT_EQ(program.get<settings::frmResources>().txtForum.Text(), "https://other.example/");
}

TEST_F(SmallWindow, ResourcesNameTheAddOnToolWhereItLies) {
    EXPECT_TRUE(program.get<settings::frmResources>().txtAddOns.Visible);
    EXPECT_FALSE(program.get<settings::frmResources>().lblAddOnManager.Visible);
    program.windows.unload(program.get<settings::frmResources>());
    putBeside("qrmx.exe", "x");
    EXPECT_FALSE(program.get<settings::frmResources>().txtAddOns.Visible);
    EXPECT_FALSE(program.get<settings::frmResources>().lblAddOns.Visible);
    EXPECT_TRUE(program.get<settings::frmResources>().lblAddOnManager.Visible);
}

TEST_F(SmallWindow, ResourcesTakeTheirCaptions) {
    program.LangText.set(743, "Resources");
    program.LangText.set(104, "Apps");
    EXPECT_EQ(program.get<settings::frmResources>().Caption, std::string("Resources"));
    EXPECT_EQ(program.get<settings::frmResources>().lblApps.Caption, std::string("Apps (Plug-ins)"));
}

// --- folders of the browsers
// ----------------------------------------------------------------------------------------------

TEST_F(SmallWindow, BrowserWindowsStoreTheirKeys) {
    auto& form = program.get<settings::frmChromeDir>();
    form.txtChromeFileDir.setText("C:\\a\\");
    form.txtChromeFileDirRoot.setText("C:\\b\\");
    form.txtChromeCacheDir.setText("C:\\c\\");
    form.chkChromeDisableAutoDetect.Value = 1;
    form.cmdOK.Click();
    EXPECT_EQ(storedValue("frmChromeDir", "txtChromeFileDir"), "C:\\a\\");
    EXPECT_EQ(storedValue("frmChromeDir", "txtChromeFileDirRoot"), "C:\\b\\");
    EXPECT_EQ(storedValue("frmChromeDir", "txtChromeCacheDir"), "C:\\c\\");
    EXPECT_EQ(storedValue("frmChromeDir", "chkChromeDir"), "0");
    EXPECT_EQ(storedValue("frmChromeDir", "chkChromeDisableAutoDetect"), "1");
    EXPECT_EQ(program.windows.ifLoaded("frmChromeDir"), nullptr);
    EXPECT_EQ(program.get<settings::frmChromeDir>().txtChromeFileDirRoot.Text(), "C:\\b\\");
}

TEST_F(SmallWindow, BrowserWindowsHaveTheirCaptions) {
    for (const auto& [index, text] : std::vector<std::pair<int, std::string>>{{819, "Folders of"},
                                                                              {307, "Firefox"},
                                                                              {309, "Chrome"},
                                                                              {820, "Chrome profile"},
                                                                              {823, "Profile"},
                                                                              {821, "Cache"},
                                                                              {352, "Browse"},
                                                                              {822, "Use"},
                                                                              {301, "Cancel"},
                                                                              {846, "By hand"}}) {
        program.LangText.set(index, text);
    }
    auto& mozilla = program.get<settings::frmMozillaDir>();
    EXPECT_EQ(mozilla.Caption, std::string("Folders of [Firefox]"));
    EXPECT_EQ(mozilla.frmFolders.Caption, std::string("Folders of"));
    EXPECT_EQ(mozilla.lblProfile.Caption, std::string("Profile"));
    EXPECT_EQ(mozilla.lblCache.Caption, std::string("Cache"));
    EXPECT_EQ(mozilla.cmdCacheFolderPath.Caption, std::string("Browse"));
    EXPECT_EQ(mozilla.chkMozillaDir.Caption, std::string("Use"));
    EXPECT_EQ(mozilla.chkMozillaDisableAutoDetect.Caption, std::string("By hand"));
    EXPECT_EQ(mozilla.cmdAbort.Caption, std::string("Cancel"));
    EXPECT_EQ(program.get<settings::frmChromeDir>().lblProfile.Caption, std::string("Chrome profile"));
    EXPECT_EQ(program.get<settings::frmChromeDir>().Caption, std::string("Folders of [Chrome]"));

    program.LangText.set(308, "Opera");
    program.LangText.set(310, "Safari");
    const std::vector<std::pair<settings::BrowserDirForm*, std::string>> others = {
        {&program.get<settings::frmOperaDir>(), "Folders of [Opera]"},
        {&program.get<settings::frmSafariDir>(), "Folders of [Safari]"}};
    for (const auto& [form, caption] : others) {
        EXPECT_EQ(form->Caption, caption);
        EXPECT_EQ(form->frmFolders.Caption, std::string("Folders of")) << caption;
        EXPECT_EQ(form->lblProfile.Caption, std::string("Profile")) << caption;
        EXPECT_EQ(form->lblCache.Caption, std::string("Cache")) << caption;
        for (const controls::isButton* button :
             {&form->cmdFileFolderPath, &form->cmdSecondFolderPath, &form->cmdCacheFolderPath}) {
            EXPECT_EQ(button->Caption, std::string("Browse")) << caption;
        }
        EXPECT_EQ(form->usable.Caption, std::string("Use")) << caption;
        EXPECT_EQ(form->disableAutoDetect.Caption, std::string("By hand")) << caption;
        EXPECT_EQ(form->cmdAbort.Caption, std::string("Cancel")) << caption;
    }
}

TEST_F(SmallWindow, AnEmptiedFolderIsToldBeforeItComesBack) {
    program.LangText.set(821, "Cache folder:");
    program.get<settings::frmOperaDir>().txtOperaCacheDir.setText("C:\\c\\");
    program.get<settings::frmOperaDir>().cmdOK.Click();
    program.get<settings::frmOperaDir>().txtOperaCacheDir.setText("");
    program.get<settings::frmOperaDir>().cmdOK.Click();
    EXPECT_EQ(display.warnings,
              (std::vector<std::string>{"\"Cache folder\" was emptied and keeps its last value: C:\\c\\"}));
    EXPECT_EQ(program.get<settings::frmOperaDir>().txtOperaCacheDir.Text(), "C:\\c\\");
}

TEST_F(SmallWindow, EmptiedAddressesAndApplicationsAreToldToo) {
    program.get<settings::frmResources>().ImgOK.Click();
    program.get<settings::frmResources>().txtForum.setText("");
    program.get<settings::frmResources>().ImgOK.Click();
    program.get<settings::frmMoreToConfigure>().txtCustomAppPath.setText("C:\\app.exe");
    program.get<settings::frmMoreToConfigure>().ImgOK.Click();
    program.get<settings::frmMoreToConfigure>().txtCustomAppPath.setText("");
    program.get<settings::frmMoreToConfigure>().ImgOK.Click();
    ASSERT_EQ(display.warnings.size(), 2u);
    EXPECT_NE(display.warnings[0].find("\"Forum\""), std::string::npos);
    EXPECT_NE(display.warnings[1].find("C:\\app.exe"), std::string::npos);
}

TEST_F(SmallWindow, OkOffersTheTasksOfABrowserWhoseFoldersAreKnown) {
    auto& options = program.get<settings::frmOptions>();
    program.get<settings::frmSafariDir>().cmdOK.Click();
    EXPECT_FALSE(options.chkSafariHistory.Enabled);
    EXPECT_FALSE(options.chkSafariTasks.Enabled);
    program.get<settings::frmSafariDir>().chkSafariDir.Value = 1;
    program.get<settings::frmSafariDir>().cmdOK.Click();
    EXPECT_TRUE(options.chkSafariHistory.Enabled);
    EXPECT_TRUE(options.chkSafariTasks.Enabled);
    EXPECT_TRUE(options.chkIEHistory.Enabled);
}

TEST_F(SmallWindow, AbortStoresNothing) {
    program.get<settings::frmOperaDir>().txtOperaFileDir.setText("C:\\x\\");
    program.get<settings::frmOperaDir>().cmdAbort.Click();
    EXPECT_FALSE(machine.files.has(program.inProgramFolder("td_config.ini")));
    EXPECT_EQ(program.windows.ifLoaded("frmOperaDir"), nullptr);
}

TEST_F(SmallWindow, AChosenFolderGetsTheBackslashThatTheTasksNeed) {
    program.LangText.set(825, "Choose");
    display.folders = {"C:\\m", "C:\\ml", "C:\\mc", "C:\\o", "C:\\oc\\", "C:\\c"};
    auto& mozilla = program.get<settings::frmMozillaDir>();
    mozilla.cmdFileFolderPath.Click();
    mozilla.cmdSecondFolderPath.Click();
    mozilla.cmdCacheFolderPath.Click();
    EXPECT_EQ(mozilla.txtMozillaFileDir.Text(), "C:\\m");
    EXPECT_EQ(mozilla.txtMozillaFileLocalDir.Text(), "C:\\ml\\");
    EXPECT_EQ(mozilla.txtMozillaCacheDir.Text(), "C:\\mc");
    auto& opera = program.get<settings::frmOperaDir>();
    opera.cmdFileFolderPath.Click();
    opera.cmdCacheFolderPath.Click();
    EXPECT_EQ(opera.txtOperaFileDir.Text(), "C:\\o\\");
    EXPECT_EQ(opera.txtOperaCacheDir.Text(), "C:\\oc\\");
    auto& chrome = program.get<settings::frmChromeDir>();
    chrome.cmdFileFolderPath.Click();
    EXPECT_EQ(chrome.txtChromeFileDir.Text(), "C:\\c\\");
    chrome.cmdFileFolderPath.Click();  // cancelled
    EXPECT_EQ(chrome.txtChromeFileDir.Text(), "C:\\c\\");
    EXPECT_EQ(display.folderTitles.size(), 7u);
    EXPECT_EQ(display.folderTitles.front(), "Choose");
}

TEST_F(SmallWindow, EveryBoxThatTasksJoinNamesToEndsInABackslash) {
    auto& opera = program.get<settings::frmOperaDir>();
    auto& chrome = program.get<settings::frmChromeDir>();
    auto& safari = program.get<settings::frmSafariDir>();
    struct Row {
        controls::isButton& button;
        const forms::TextBox& box;
    };
    for (const Row& row : {Row{opera.cmdSecondFolderPath, opera.txtOperaFileLocalDir},
                           Row{chrome.cmdSecondFolderPath, chrome.txtChromeFileDirRoot},
                           Row{chrome.cmdCacheFolderPath, chrome.txtChromeCacheDir},
                           Row{safari.cmdFileFolderPath, safari.txtSafariFileDir},
                           Row{safari.cmdSecondFolderPath, safari.txtSafariFileLocalDir},
                           Row{safari.cmdCacheFolderPath, safari.txtSafariCacheDir}}) {
        for (const char* chosen : {"C:\\chosen", "C:\\"}) {
            display.folders = {chosen};
            row.button.Click();
            EXPECT_EQ(row.box.Text(), base::withBackslash(chosen)) << row.box.Name;
        }
    }
}

TEST_F(SmallWindow, ATypedFolderGetsItsBackslashByOk) {
    using enum settings::BrowserBox;
    for (settings::BrowserDirForm* form : std::initializer_list<settings::BrowserDirForm*>{
             &program.get<settings::frmOperaDir>(), &program.get<settings::frmChromeDir>(),
             &program.get<settings::frmSafariDir>()}) {
        const std::string window = form->Name;
        std::vector<std::string> boxes;
        for (const settings::BrowserBox box : {Profile, Second, Cache}) {
            form->box(box).setText("C:\\typed");
            boxes.push_back(form->box(box).Name);
        }
        form->cmdOK.Click();
        for (const std::string& box : boxes) EXPECT_EQ(storedValue(window, box), "C:\\typed\\") << box;
    }
    auto& mozilla = program.get<settings::frmMozillaDir>();
    for (forms::TextBox* box : {&mozilla.fileDir, &mozilla.secondDir, &mozilla.cacheDir}) box->setText("C:\\m");
    mozilla.cmdOK.Click();
    for (const char* box : {"txtMozillaFileDir", "txtMozillaFileLocalDir", "txtMozillaCacheDir"}) {
        EXPECT_EQ(storedValue("frmMozillaDir", box), "C:\\m") << box;
    }
}

TEST_F(SmallWindow, OkAddsNoSecondBackslashAndNoneToAnEmptyBox) {
    auto& opera = program.get<settings::frmOperaDir>();
    opera.txtOperaFileLocalDir.setText("C:\\ol\\");
    opera.cmdOK.Click();
    EXPECT_EQ(storedValue("frmOperaDir", "txtOperaFileLocalDir"), "C:\\ol\\");
    EXPECT_EQ(storedValue("frmOperaDir", "txtOperaCacheDir"), "<none>");
}

// --- start page
// -----------------------------------------------------------------------------------------------------------

TEST_F(SmallWindow, TheWelcomeTabIsForTheFirstStart) {
    EXPECT_TRUE(program.get<frmStarter>().SSTab2.TabEnabled(0));
    program.windows.unload(program.get<frmStarter>());
    putBeside("td_last.dat", "#2009-11-03#\r\n#07:05:09#\r\n");
    EXPECT_FALSE(program.get<frmStarter>().SSTab2.TabEnabled(0));
}

TEST_F(SmallWindow, TheStartPageKeepsItsRectangleAndNoControls) {
    auto& form = program.get<frmStarter>();
    form.Left = 111;
    form.Width = 8000;
    form.chkForceBackup.Value = 1;
    program.windows.unload(form);
    EXPECT_EQ(storedValue("WindowStateStarter", "Left"), "111");
    EXPECT_EQ(storedValue("frmStarter", "chkForceBackup"), "<none>");
    EXPECT_EQ(program.get<frmStarter>().Width, 8000);
    EXPECT_EQ(program.get<frmStarter>().chkForceBackup.Value, 0);
}

TEST_F(SmallWindow, ButtonsOfTheStartPageThatAreStillToBeBuiltAreGrey) {
    const auto& page = program.get<frmStarter>();
    int grey = 0;
    for (const forms::Control* control : page.Controls()) {
        if (control->kind == forms::ControlKind::ThemedButton && !control->Enabled) ++grey;
    }
    EXPECT_EQ(grey, 15);
    EXPECT_FALSE(page.cmdResetSettings.Enabled);
    EXPECT_FALSE(page.cmdBackUpSettings.Enabled);
}

TEST_F(SmallWindow, TheStartPageTakesItsTexts) {
    for (const auto& [index, text] : std::vector<std::pair<int, std::string>>{
             {150, "info"}, {151, "welcome"}, {170, "start"}, {184, "licence"}, {995, "translator"}, {399, "news"}}) {
        program.LangText.set(index, text);
    }
    auto& form = program.get<frmStarter>();
    EXPECT_EQ(form.lblWelcome.Caption, std::string("welcome"));
    EXPECT_EQ(form.lblWelcomeInfo.Caption, std::string("info"));
    EXPECT_EQ(form.SSTab2.TabCaption(0), "start");
    EXPECT_EQ(form.SSTab2.TabCaption(5), "licence");
    EXPECT_EQ(form.SSTab2.TabCaption(6), "translator");
    EXPECT_EQ(form.txtInfoServer.Text(), "news (Offline)");
    EXPECT_TRUE(form.ImgNewsBusy.Visible);
    EXPECT_FALSE(form.ImgNewsIdle.Visible);
    EXPECT_EQ(form.cboRateTidvane.ListCount(), 4);
    EXPECT_EQ(form.appsFile, "C:\\Program Files\\Tidvane\\td_apps.ini");
}

TEST_F(SmallWindow, TheLicenceIsReadInBlocksThatLetEventsIn) {
    EXPECT_EQ(program.get<frmStarter>().txtLicense.Text(), "");
    program.windows.unload(program.get<frmStarter>());
    std::string licence;
    for (int line = 0; line < 1000; ++line) licence += "line " + std::to_string(line) + "\r\n";
    putBeside("License.txt", licence);
    const auto before = machine.events.pumps;
    EXPECT_EQ(program.get<frmStarter>().txtLicense.Text(), licence);
    EXPECT_GE(machine.events.pumps - before, 2u);
}

TEST_F(SmallWindow, TheSystemIsNamedByItsVersion) {
    machine.system.version = {2, 6, 1, 7601, ""};
    EXPECT_EQ(program.get<frmStarter>().lblWinSystem.Caption, std::string("Windows 7"));
    EXPECT_EQ(program.get<frmStarter>().lblOSInfo.Caption, std::string("Even more efficient with"));
    program.windows.unload(program.get<frmStarter>());
    machine.system.version = {2, 6, 2, 9200, ""};
    EXPECT_EQ(program.get<frmStarter>().lblWinSystem.Caption, std::string("Windows 8"));
    EXPECT_EQ(program.get<frmStarter>().lblOSInfo.Caption, std::string("Full support for"));
}

TEST_F(SmallWindow, TheTranslatorsPageFillsInTwoTicks) {
    program.LangText.set(998, "File");
    program.LangText.set(999, "by somebody");
    auto& form = program.get<frmStarter>();
    EXPECT_EQ(form.txtLang.Text(), "Loading ...\r\n");
    form.Timer2.fire();
    EXPECT_EQ(form.txtLang.Text(), "File: \r\n");
    form.Timer2.fire();
    EXPECT_EQ(form.txtLang.Text(), "File: \r\nby somebody\r\n");
    EXPECT_FALSE(form.Timer2.Enabled);
}

TEST_F(SmallWindow, AStartPageThatIsOpenedAgainHasItsWordsAgain) {
    program.LangText.set(177, "Rate it");
    program.LangText.set(870, "To:");
    auto* first = &program.get<frmStarter>();
    EXPECT_EQ(first->lblRateTidvane.Caption.get(), "Rate it");
    EXPECT_EQ(first->lblBackUpFolder.Caption.get(), "To:");
    program.windows.unload(*first);
    EXPECT_EQ(program.get<frmStarter>().lblRateTidvane.Caption.get(), "Rate it");
    EXPECT_EQ(program.get<frmStarter>().lblBackUpFolder.Caption.get(), "To:");
}

TEST_F(SmallWindow, TheTwoLinksOfTheStartPageOpenTheirPages) {
    program.LangText.set(997, "https://translator.example");
    auto& starter = program.get<frmStarter>();
    starter.lblHomepage.Click();
    starter.lblTranslatorHomepage.Click();
    ASSERT_EQ(machine.shell.started.size(), 2U);
    EXPECT_EQ(machine.shell.started[0].file, settings::address::kHomepage);
    EXPECT_EQ(machine.shell.started[1].file, "https://translator.example");
}

}  // namespace
}  // namespace tidvane::tests
