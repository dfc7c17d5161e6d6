// The search for the browsers' folders while the options window loads.
#include "settings/browser_detection.h"

#include <gtest/gtest.h>

#include "options_fixture.h"
#include "support/app_fixture.h"

namespace tidvane::settings {
namespace {

const std::string kRoaming = "C:\\Users\\Anna\\AppData\\Roaming";
const std::string kLocal = "C:\\Users\\Anna\\AppData\\Local";
const std::string kFirefox = kRoaming + "\\Mozilla\\Firefox\\";
const std::string kOpera = "\\Opera\\Opera\\";
const std::string kChrome = kLocal + "\\Google\\Chrome\\User Data\\";
const std::string kSafari = "\\Apple Computer\\Safari\\";

struct Detection : OptionsFixture {
    frmMozillaDir& mozilla() { return program.get<frmMozillaDir>(); }
    frmOperaDir& opera() { return program.get<frmOperaDir>(); }
    frmChromeDir& chrome() { return program.get<frmChromeDir>(); }
    frmSafariDir& safari() { return program.get<frmSafariDir>(); }

    void putFirefox(const std::string& ini) { files().putFile(kFirefox + "profiles.ini", ini); }

    // The three boxes of a window, "-" for an empty one, and its tick.
    static std::string boxes(BrowserDirForm& form) {
        std::string text;
        for (const BrowserBox box : {BrowserBox::Profile, BrowserBox::Second, BrowserBox::Cache}) {
            text += (form.box(box).Text().empty() ? "-" : form.box(box).Text()) + " ";
        }
        return text + std::to_string(form.usable.Value.get());
    }
    // Which pictures a page shows.
    static std::string pictures(const forms::Image& success, const forms::Image& fail) {
        return std::string(success.Visible ? "success" : "") + (fail.Visible ? "fail" : "");
    }
    // "on" or "off" where all task boxes of a page are so.
    std::string page(TaskPage number) {
        frmOptions& window = options();
        const bool first = window.masterBox(number).Enabled;
        for (const TaskBox& task : window.taskBoxes(number)) {
            if (task.box->Enabled != first) return "mixed";
        }
        return first ? "on" : "off";
    }
};

// --- Firefox

TEST(FirefoxDetection, FillsTheThreeBoxesFromTheFirstProfile) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nName=default\r\nIsRelative=1\r\nPath=Profiles/abc.default\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(machine.mozilla().txtMozillaFileDir.Text(), kRoaming + "\\Mozilla\\FireFox\\Profiles\\abc.default");
    EXPECT_EQ(machine.mozilla().txtMozillaFileLocalDir.Text(), kLocal + "\\Mozilla\\FireFox\\Profiles\\abc.default");
    EXPECT_EQ(machine.mozilla().txtMozillaCacheDir.Text(), kLocal + "\\Mozilla\\FireFox\\Profiles\\abc.default\\Cache");
    EXPECT_EQ(machine.mozilla().chkMozillaDir.Value, 1);
    EXPECT_EQ(Detection::pictures(options.ImgMozillaSuccess, options.ImgMozillaFail), "success");
    EXPECT_EQ(options.frmBrowserMozilla.Caption, "Mozilla/Firefox");
    EXPECT_EQ(machine.page(TaskPage::Mozilla), "on");
}

TEST(FirefoxDetection, TellsAMissingFolderByPictureAndCaptionAndNoBox) {
    Detection machine;
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.mozilla()), "- - - 0");
    EXPECT_EQ(Detection::pictures(options.ImgMozillaSuccess, options.ImgMozillaFail), "fail");
    EXPECT_EQ(options.frmBrowserMozilla.Caption, "Mozilla/Firefox Tasks [L824]");
    EXPECT_EQ(machine.page(TaskPage::Mozilla), "off");
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST(FirefoxDetection, UsesTheSectionProfile0WhereverItStands) {
    Detection machine;
    machine.putFirefox(
        "[Install308046B0AF4A39CB]\nDefault=Profiles/two.default\n\n[Profile1]\nPath=Profiles/"
        "two.default\nDefault=1\n\n"
        "[Profile0]\nPath=Profiles/one.default\n\n[General]\nStartWithLastProfile=1\n");
    machine.options();
    EXPECT_EQ(machine.mozilla().txtMozillaFileDir.Text(), kRoaming + "\\Mozilla\\FireFox\\Profiles\\one.default");
}

TEST(FirefoxDetection, TakesAnAbsolutePathAsARelativeOne) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nIsRelative=0\r\nPath=D:/Firefox/mine\r\n");
    machine.options();
    EXPECT_EQ(machine.mozilla().txtMozillaFileDir.Text(), kRoaming + "\\Mozilla\\FireFox\\D:\\Firefox\\mine");
}

TEST(FirefoxDetection, BoxesHold255NulsWithoutAProfilesFile) {
    Detection machine;
    machine.files().putFolder(kFirefox);
    frmOptions& options = machine.options();
    const std::string nuls(255, '\0');
    EXPECT_EQ(machine.mozilla().txtMozillaFileDir.Text(), kRoaming + "\\Mozilla\\FireFox\\" + nuls);
    EXPECT_EQ(machine.mozilla().txtMozillaFileLocalDir.Text(), kLocal + "\\Mozilla\\FireFox\\" + nuls);
    EXPECT_EQ(machine.mozilla().txtMozillaCacheDir.Text(), kLocal + "\\Mozilla\\FireFox\\" + nuls + "\\Cache");
    EXPECT_EQ(machine.mozilla().chkMozillaDir.Value, 1);
    EXPECT_EQ(Detection::pictures(options.ImgMozillaSuccess, options.ImgMozillaFail), "success");
}

TEST(FirefoxDetection, TheStoreCutsSuchABoxAtTheFirstNul) {
    Detection machine;
    machine.files().putFolder(kFirefox);
    machine.options();
    machine.mozilla().chkMozillaDisableAutoDetect.Value = 1;
    machine.mozilla().cmdOK.Click();
    EXPECT_EQ(Detection::boxes(machine.mozilla()), kRoaming + "\\Mozilla\\FireFox\\ " + kLocal +
                                                       "\\Mozilla\\FireFox\\ " + kLocal + "\\Mozilla\\FireFox\\ 1");
}

TEST(FirefoxDetection, ATypedPathStaysWhileTheSearchIsOff) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nPath=Profiles/abc.default\r\n");
    machine.options();
    machine.mozilla().txtMozillaFileDir.setText("D:\\Mine");
    machine.mozilla().chkMozillaDisableAutoDetect.Value = 1;
    machine.mozilla().cmdOK.Click();
    for (int opened = 0; opened < 2; ++opened) {
        machine.program.windows.unload(machine.options());
        machine.options();
        EXPECT_EQ(machine.mozilla().txtMozillaFileDir.Text(), "D:\\Mine");
    }
    EXPECT_EQ(Detection::pictures(machine.options().ImgMozillaSuccess, machine.options().ImgMozillaFail), "");
    EXPECT_EQ(machine.page(TaskPage::Mozilla), "on");
}

TEST(FirefoxDetection, OverwritesATypedPathWhileTheSearchIsOn) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nPath=Profiles/abc.default\r\n");
    machine.putConfig("[frmMozillaDir]\r\ntxtMozillaFileDir=D:\\Mine\r\nchkMozillaDir=0\r\n");
    machine.options();
    EXPECT_EQ(machine.mozilla().txtMozillaFileDir.Text(), kRoaming + "\\Mozilla\\FireFox\\Profiles\\abc.default");
    EXPECT_EQ(machine.mozilla().chkMozillaDir.Value, 1);
}

TEST(FirefoxDetection, AGreyedSwitchDoesNotTurnItOff) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nPath=Profiles/abc.default\r\n");
    machine.putConfig("[frmMozillaDir]\r\nchkMozillaDisableAutoDetect=2\r\n");
    machine.options();
    EXPECT_EQ(machine.mozilla().chkMozillaDir.Value, 1);
}

TEST(FirefoxDetection, AnUntickedWindowTurnsThePageOffAlsoWithTheOptionsClosed) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nPath=Profiles/abc.default\r\n");
    machine.program.windows.unload(machine.options());
    machine.mozilla().chkMozillaDir.Value = 0;
    // The options window loads again for it, and with it the search.
    machine.mozilla().cmdOK.Click();
    ASSERT_NE(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
    EXPECT_EQ(machine.page(TaskPage::Mozilla), "off");
    EXPECT_EQ(machine.stored("chkMozillaDir", "frmMozillaDir"), "0");
}

TEST(FirefoxDetection, AbortLosesTheTickThatWasFoundAndLeavesThePageOn) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nPath=Profiles/abc.default\r\n");
    machine.putConfig("[frmMozillaDir]\r\nchkMozillaDir=0\r\n");
    machine.options();
    ASSERT_EQ(machine.mozilla().chkMozillaDir.Value, 1);
    machine.mozilla().cmdAbort.Click();
    EXPECT_EQ(machine.mozilla().chkMozillaDir.Value, 0);
    EXPECT_EQ(machine.page(TaskPage::Mozilla), "on");
}

// --- Opera

TEST(OperaDetection, FindsTheRoamingTheLocalAndTheCacheFolder) {
    Detection machine;
    machine.files().putFolder(kRoaming + kOpera);
    machine.files().putFolder(kLocal + kOpera + "cache");
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.opera()),
              kRoaming + kOpera + " " + kLocal + kOpera + " " + kLocal + kOpera + "cache\\ 1");
    EXPECT_EQ(Detection::pictures(options.ImgOperaSuccess, options.ImgOperaFail), "success");
    EXPECT_EQ(options.frmBrowserOpera.Caption, "Opera");
    EXPECT_EQ(machine.page(TaskPage::Opera), "on");
}

TEST(OperaDetection, IsTickedByTheLocalFolderAlone) {
    Detection machine;
    machine.files().putFolder(kLocal + kOpera);
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.opera()), "- " + kLocal + kOpera + " - 1");
    EXPECT_EQ(Detection::pictures(options.ImgOperaSuccess, options.ImgOperaFail), "success");
    EXPECT_EQ(options.frmBrowserOpera.Caption, "Opera Tasks [L824]");
    EXPECT_EQ(machine.page(TaskPage::Opera), "on");
}

TEST(OperaDetection, TheRoamingFolderFillsItsBoxAndTicksNothing) {
    Detection machine;
    machine.files().putFolder(kRoaming + kOpera);
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.opera()), kRoaming + kOpera + " - - 0");
    EXPECT_EQ(Detection::pictures(options.ImgOperaSuccess, options.ImgOperaFail), "fail");
    EXPECT_EQ(options.frmBrowserOpera.Caption, "Opera");
    EXPECT_EQ(machine.page(TaskPage::Opera), "off");
}

TEST(OperaDetection, TheRoamingFolderWinsOverAProfileInTheProgramsFolder) {
    Detection machine;
    machine.files().putFile("C:\\Program Files\\Opera\\profile\\global.dat");
    machine.files().putFile("C:\\Program Files\\Opera\\profile\\cache4\\opr00001");
    machine.files().putFolder(kRoaming + kOpera);
    machine.files().putFolder(kLocal + kOpera + "cache");
    machine.options();
    EXPECT_EQ(Detection::boxes(machine.opera()),
              kRoaming + kOpera + " " + kLocal + kOpera + " " + kLocal + kOpera + "cache\\ 1");
}

TEST(OperaDetection, LooksForTheLastCandidateAlone) {
    for (const char* folder : {"C:\\Program Files\\Opera\\profile\\cache4",
                               "C:\\Users\\Anna\\AppData\\Roaming\\Opera\\Opera 9\\profile\\cache4"}) {
        Detection machine;
        machine.files().putFolder(folder);
        machine.options();
        EXPECT_EQ(Detection::boxes(machine.opera()), "- - - 0") << folder;
        EXPECT_EQ(machine.options().frmBrowserOpera.Caption, "Opera Tasks [L824]") << folder;
    }
    // Here the last candidate is there, as the parent of the second.
    Detection machine;
    machine.files().putFolder(kRoaming + "\\Opera\\Opera\\profile\\cache4");
    machine.options();
    EXPECT_EQ(Detection::boxes(machine.opera()), kRoaming + kOpera + " - - 0");
}

// --- Chrome

TEST(ChromeDetection, FindsTheProfileAndTheCache) {
    Detection machine;
    machine.files().putFolder(kChrome + "Default\\Cache");
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.chrome()),
              kChrome + "Default\\ " + kChrome + " " + kChrome + "Default\\Cache\\ 1");
    EXPECT_EQ(Detection::pictures(options.ImgChromeSuccess, options.ImgChromeFail), "success");
    EXPECT_EQ(options.frmBrowserChrome.Caption, "Chrome");
    EXPECT_EQ(machine.page(TaskPage::Chrome), "on");
}

TEST(ChromeDetection, IsNotTickedWithoutACache) {
    Detection machine;
    machine.files().putFolder(kChrome + "Default");
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.chrome()), kChrome + "Default\\ " + kChrome + " - 0");
    EXPECT_EQ(Detection::pictures(options.ImgChromeSuccess, options.ImgChromeFail), "fail");
    EXPECT_EQ(options.frmBrowserChrome.Caption, "Chrome");
    EXPECT_EQ(machine.page(TaskPage::Chrome), "off");
}

TEST(ChromeDetection, TellsAMissingProfile) {
    Detection machine;
    machine.files().putFolder(kChrome + "Profile 1");
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.chrome()), "- - - 0");
    EXPECT_EQ(Detection::pictures(options.ImgChromeSuccess, options.ImgChromeFail), "fail");
    EXPECT_EQ(options.frmBrowserChrome.Caption, "Chrome Tasks [L824]");
}

// --- Safari

TEST(SafariDetection, FindsTheRoamingAndTheLocalFolder) {
    Detection machine;
    machine.files().putFolder(kRoaming + kSafari);
    machine.files().putFolder(kLocal + kSafari);
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.safari()),
              kRoaming + kSafari + " " + kLocal + kSafari + " " + kLocal + kSafari + " 1");
    EXPECT_EQ(Detection::pictures(options.ImgSafariSuccess, options.ImgSafariFail), "success");
    EXPECT_EQ(options.frmBrowserSafari.Caption, "Safari");
    EXPECT_EQ(machine.page(TaskPage::Safari), "on");
}

TEST(SafariDetection, EitherFolderTicks) {
    Detection roaming;
    roaming.files().putFolder(kRoaming + kSafari);
    EXPECT_EQ(Detection::pictures(roaming.options().ImgSafariSuccess, roaming.options().ImgSafariFail), "success");
    EXPECT_EQ(Detection::boxes(roaming.safari()), kRoaming + kSafari + " - - 1");

    Detection local;
    local.files().putFolder(kLocal + kSafari);
    EXPECT_EQ(Detection::pictures(local.options().ImgSafariSuccess, local.options().ImgSafariFail), "fail");
    EXPECT_EQ(local.options().frmBrowserSafari.Caption, "Safari Tasks [L824]");
    EXPECT_EQ(Detection::boxes(local.safari()), "- " + kLocal + kSafari + " " + kLocal + kSafari + " 1");
    EXPECT_EQ(local.page(TaskPage::Safari), "on");
}

// --- all four

TEST(BrowserDetection, AllowsTheOkOfAWindowThatWasOff) {
    struct Row {
        const char* window;
        std::vector<std::string> folders;
        bool allowed;
    };
    const std::string firefox = kRoaming + "\\Mozilla\\FireFox";
    for (const Row& row : {
             Row{"frmMozillaDir", {}, false},
             Row{"frmMozillaDir", {firefox}, true},
             Row{"frmOperaDir", {}, false},
             Row{"frmOperaDir", {kRoaming + kOpera}, false},
             Row{"frmOperaDir", {kLocal + kOpera}, true},
             Row{"frmOperaDir", {kLocal + kOpera + "cache"}, true},
             Row{"frmChromeDir", {}, false},
             Row{"frmChromeDir", {kChrome + "Default"}, false},
             Row{"frmChromeDir", {kChrome + "Default\\Cache"}, true},
             Row{"frmSafariDir", {}, false},
             Row{"frmSafariDir", {kLocal + kSafari}, false},  // ticks all the same
             Row{"frmSafariDir", {kRoaming + kSafari}, true},
         }) {
        Detection machine;
        for (const std::string& folder : row.folders) machine.files().putFolder(folder);
        auto& window = dynamic_cast<BrowserDirForm&>(*machine.program.windows.get(row.window));
        EXPECT_TRUE(window.cmdOK.Enabled) << row.window;  // by design
        window.cmdOK.Enabled = false;
        machine.options();
        EXPECT_EQ(window.cmdOK.Enabled, row.allowed)
            << row.window << " " << (row.folders.empty() ? "nothing" : row.folders.front());
    }
}

TEST(BrowserDetection, ALoadWithoutAFileKeepsTheSecondBox) {
    Detection machine;
    for (BrowserDirForm* form : std::initializer_list<BrowserDirForm*>{&machine.mozilla(), &machine.opera(),
                                                                       &machine.chrome(), &machine.safari()}) {
        for (const BrowserBox box : {BrowserBox::Profile, BrowserBox::Second, BrowserBox::Cache}) {
            form->box(box).setText("D:\\x");
        }
        form->usable.Value = 1;
        form->disableAutoDetect.Value = 1;
        form->Form_Load();
        EXPECT_EQ(Detection::boxes(*form), "- D:\\x - 0") << form->Name;
        EXPECT_EQ(form->disableAutoDetect.Value, 0) << form->Name;
    }
}

TEST(BrowserDetection, OfEachBrowserIsSwitchedOffByItsOwnWindow) {
    Detection machine;
    machine.files().putFolder(kRoaming + kOpera);
    machine.files().putFolder(kLocal + kOpera + "cache");
    machine.files().putFolder(kChrome + "Default\\Cache");
    machine.files().putFolder(kRoaming + kSafari);
    machine.putConfig(
        "[frmOperaDir]\r\nchkOperaDisableAutoDetect=1\r\n[frmSafariDir]\r\nchkSafariDisableAutoDetect=1\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.opera()), "- - - 0");
    EXPECT_EQ(Detection::boxes(machine.safari()), "- - - 0");
    EXPECT_EQ(machine.chrome().chkChromeDir.Value, 1);
    EXPECT_EQ(Detection::pictures(options.ImgOperaSuccess, options.ImgOperaFail), "");
    EXPECT_EQ(options.frmBrowserOpera.Caption, "Opera");
    EXPECT_EQ(machine.page(TaskPage::Opera), "off");
}

TEST(BrowserDetection, NeverTakesATickBack) {
    Detection machine;
    machine.putConfig(
        "[frmMozillaDir]\r\nchkMozillaDir=1\r\ntxtMozillaFileDir=C:\\old\r\n[frmOperaDir]\r\nchkOperaDir=1\r\n"
        "[frmChromeDir]\r\nchkChromeDir=1\r\n[frmSafariDir]\r\nchkSafariDir=1\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(Detection::boxes(machine.mozilla()), "C:\\old - - 1");
    for (const TaskPage page : {TaskPage::Mozilla, TaskPage::Opera, TaskPage::Chrome, TaskPage::Safari}) {
        EXPECT_EQ(machine.page(page), "on") << static_cast<int>(page);
    }
    EXPECT_EQ(options.frmBrowserMozilla.Caption, "Mozilla/Firefox Tasks [L824]");
}

TEST(BrowserDetection, LeavesTheOtherPagesOnOffer) {
    Detection machine;
    EXPECT_TRUE(machine.options().chkWindowsTasks.Enabled);
    EXPECT_TRUE(machine.options().chkIETasks.Enabled);
    EXPECT_TRUE(machine.options().chkIEHistory.Enabled);
    EXPECT_TRUE(machine.options().chkMsOfficeTasks.Enabled);
}

TEST(BrowserDetection, DisabledBoxesKeepTheirStoredTicks) {
    Detection machine;
    machine.putOptions({{"chkOperaHistory", "1"}, {"chkChromeCache", "1"}});
    EXPECT_EQ(machine.options().chkOperaHistory.Value, 1);
    EXPECT_FALSE(machine.options().chkOperaHistory.Enabled);
    EXPECT_EQ(machine.options().chkChromeCache.Value, 1);
    EXPECT_FALSE(machine.options().chkChromeCache.Enabled);
}

TEST(BrowserDetection, AStoredTickOfTheCacheTurnsItsFurtherBoxOnAgain) {
    Detection machine;
    machine.putOptions({{"chkOperaCache", "1"}});
    EXPECT_TRUE(machine.options().chkOperaINDepthClean.Enabled);
    for (const forms::CheckBox* box :
         {&machine.options().chkOperaCache, &machine.options().chkOperaHistory, &machine.options().chkOperaTasks}) {
        EXPECT_FALSE(box->Enabled) << box->Name;
    }
    EXPECT_FALSE(machine.options().chkChromeINDepthClean.Enabled);
}

TEST(BrowserDetection, ABadStoredNumberEndsTheWindowsLoadAndNotTheSearch) {
    Detection machine;
    machine.putFirefox("[Profile0]\r\nPath=Profiles/abc.default\r\n");
    machine.files().putFolder(kChrome + "Default\\Cache");
    machine.putConfig("[frmMozillaDir]\r\nchkMozillaDir=bad\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(machine.mozilla().chkMozillaDir.Value, 1);
    EXPECT_EQ(machine.page(TaskPage::Mozilla), "on");
    EXPECT_EQ(Detection::pictures(options.ImgChromeSuccess, options.ImgChromeFail), "success");
}

TEST(BrowserDetection, FindsNothingWhereTheSystemTellsNoFolders) {
    Detection machine;
    machine.machine.shell.specialFolders.clear();
    frmOptions& options = machine.options();
    for (BrowserDirForm* form : std::initializer_list<BrowserDirForm*>{&machine.mozilla(), &machine.opera(),
                                                                       &machine.chrome(), &machine.safari()}) {
        EXPECT_EQ(Detection::boxes(*form), "- - - 0") << form->Name;
    }
    EXPECT_EQ(options.frmBrowserSafari.Caption, "Safari Tasks [L824]");
}

TEST(BrowserDetection, TheOptionsHaveTheirPicturesAndTheWindowsHaveNone) {
    Detection machine;
    for (const char* browser : {"Mozilla", "Opera", "Chrome", "Safari"}) {
        for (const char* end : {"Success", "Fail"}) {
            const std::string name = std::string("Img") + browser + end;
            EXPECT_NE(machine.options().control(name), nullptr) << name;
            const forms::Form* window = machine.program.windows.get(std::string("frm") + browser + "Dir");
            EXPECT_EQ(window->control(name), nullptr) << name;
        }
    }
}

struct DetectionAtStart : tests::AppFixture {};

TEST_F(DetectionAtStart, RowsOfDisabledTasksStand) {
    store({"chkOperaHistory=1", "chkMozillaCache=1"});
    EXPECT_NE(main().lstTasks.item(text(246)), nullptr);
    EXPECT_NE(main().lstTasks.item(text(239)), nullptr);
    EXPECT_FALSE(options().chkOperaHistory.Enabled);
}

TEST_F(DetectionAtStart, TellsTheFailureInTheUsersLanguage) {
    EXPECT_EQ(text(824), "not found");
    EXPECT_EQ(options().frmBrowserMozilla.Caption, "Mozilla/Firefox Tasks [not found]");
}

}  // namespace
}  // namespace tidvane::settings
