// The 62 steps: which key, which gate, which row, which group.
#include "app/task_catalogue.h"

#include <gtest/gtest.h>

#include <array>

#include "support/app_fixture.h"

namespace tidvane::tests {

using tasks::Group;

namespace {

struct Expected {
    int key;           // entry of the language table; 0: a fixed name
    const char* name;  // the fixed name
    const char* gate;
    Group group;
};

constexpr Group kWin = Group::Windows;
constexpr Group kIe = Group::InternetExplorer;

// In the order of the walk.
constexpr std::array kExpected{
    Expected{222, nullptr, "chkSearchTasks", Group::Search},
    Expected{220, nullptr, "chkActivateOwnFolder", Group::Custom},
    Expected{220, nullptr, "chkActivateOwnFiles", Group::Custom},
    Expected{200, nullptr, "chkRecentDocuments", kWin},
    Expected{201, nullptr, "chkSearchList", kWin},
    Expected{202, nullptr, "chkComputerList", kWin},
    Expected{203, nullptr, "chkRunList", kWin},
    Expected{204, nullptr, "chkRegKey", kWin},
    Expected{205, nullptr, "chkLastSaveOpen", kWin},
    Expected{206, nullptr, "chkWinUserAssist", kWin},
    Expected{207, nullptr, "chkLastApply", kWin},
    Expected{208, nullptr, "chkSearchWizard", kWin},
    Expected{209, nullptr, "chkRASAutoDial", kWin},
    Expected{210, nullptr, "chkTrash", kWin},
    Expected{211, nullptr, "chkClipboard", kWin},
    Expected{212, nullptr, "chkTempFolder", kWin},
    Expected{213, nullptr, "chkUserTemp", kWin},
    Expected{214, nullptr, "chkPrefetchFolder", kWin},
    Expected{215, nullptr, "chkRecentWordPad", kWin},
    Expected{216, nullptr, "chkRecentPaint", kWin},
    Expected{217, nullptr, "chkRecentMediaPlayer", kWin},
    Expected{218, nullptr, "chkAlphabetizeStartMenu", kWin},
    Expected{219, nullptr, "chkAlphabetizeFavorites", kWin},
    Expected{231, nullptr, "chkIEINDepthCleanAll", kIe},
    Expected{223, nullptr, "chkIEHistory", kIe},
    Expected{224, nullptr, "chkIECookies", kIe},
    Expected{225, nullptr, "chkIECache", kIe},
    Expected{226, nullptr, "chkIEURL", kIe},
    Expected{227, nullptr, "chkIEAutoCompleteForms", kIe},
    Expected{228, nullptr, "chkIEDownloadedProgramFiles", kIe},
    Expected{229, nullptr, "chkIEOfflineSites", kIe},
    Expected{230, nullptr, "chkIEAlexa", kIe},
    Expected{237, nullptr, "chkMozillaHistory", Group::Firefox},
    Expected{238, nullptr, "chkMozillaCookies", Group::Firefox},
    Expected{239, nullptr, "chkMozillaCache", Group::Firefox},
    Expected{240, nullptr, "chkMozillaAutoComplete", Group::Firefox},
    Expected{241, nullptr, "chkMozillaDownloads", Group::Firefox},
    Expected{242, nullptr, "chkMozillaGoogleToolbar", Group::Firefox},
    Expected{243, nullptr, "chkMozillaCrashReports", Group::Firefox},
    Expected{244, nullptr, "chkMozillaSearchHistory", Group::Firefox},
    Expected{245, nullptr, "chkMozillaSession", Group::Firefox},
    Expected{246, nullptr, "chkOperaHistory", Group::Opera},
    Expected{247, nullptr, "chkOperaCookies", Group::Opera},
    Expected{248, nullptr, "chkOperaCache", Group::Opera},
    Expected{249, nullptr, "chkOperaURL", Group::Opera},
    Expected{250, nullptr, "chkOperaDownloads", Group::Opera},
    Expected{251, nullptr, "chkOperaWebsiteIcons", Group::Opera},
    Expected{252, nullptr, "chkChromeHistory", Group::Chrome},
    Expected{253, nullptr, "chkChromeCookies", Group::Chrome},
    Expected{254, nullptr, "chkChromeCache", Group::Chrome},
    Expected{255, nullptr, "chkChromeSession", Group::Chrome},
    Expected{256, nullptr, "chkChromeDownloads", Group::Chrome},
    Expected{257, nullptr, "chkSafariHistory", Group::Safari},
    Expected{258, nullptr, "chkSafariCookies", Group::Safari},
    Expected{259, nullptr, "chkSafariCache", Group::Safari},
    Expected{260, nullptr, "chkSafariCache", Group::Safari},
    Expected{0, "Microsoft Office Access", "chkMSAccess", Group::Office},
    Expected{0, "Microsoft Office Excel", "chkMSExcel", Group::Office},
    Expected{0, "Microsoft Office PowerPoint", "chkMSPowerPoint", Group::Office},
    Expected{0, "Microsoft Office Word", "chkMSWord", Group::Office},
    Expected{0, "Microsoft Office Front Page", "chkMSFrontPage", Group::Office},
    Expected{104, nullptr, nullptr, Group::PlugIns},
};

}  // namespace

TEST(TaskCatalogue, HoldsTheSixtyTwoStepsInTheirOrder) {
    const auto catalogue = app::taskCatalogue();
    ASSERT_EQ(catalogue.size(), kExpected.size());
    for (std::size_t i = 0; i < kExpected.size(); ++i) {
        const tasks::CleaningTask& task = catalogue[i];
        const Expected& expected = kExpected[i];
        EXPECT_EQ(task.step, static_cast<int>(i) + 1);
        EXPECT_EQ(task.text, expected.key) << task.step;
        EXPECT_STREQ(task.name, expected.name) << task.step;
        EXPECT_STREQ(task.gate.control, expected.gate) << task.step;
        EXPECT_EQ(task.group, expected.group) << task.step;
        EXPECT_NE(task.worker, nullptr) << task.step;
    }
}

TEST(TaskCatalogue, GivesEveryStepButThreeTheRowOfItsGate) {
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        if (task.step == 24 || task.step == 62) {
            EXPECT_EQ(task.rowGate.control, nullptr) << task.step;
        } else if (task.step == 56) {
            EXPECT_STREQ(task.rowGate.control, "chkSafariSavedForms");
        } else {
            EXPECT_STREQ(task.rowGate.control, task.gate.control) << task.step;
        }
    }
}

TEST(TaskCatalogue, KeepsTheIconNumbersOfTheGroups) {
    EXPECT_EQ(app::groupIcon(Group::Search), 1);
    EXPECT_EQ(app::groupIcon(Group::Custom), 1);
    EXPECT_EQ(app::groupIcon(Group::Windows), 2);
    EXPECT_EQ(app::groupIcon(Group::InternetExplorer), 3);
    EXPECT_EQ(app::groupIcon(Group::Firefox), 4);
    EXPECT_EQ(app::groupIcon(Group::Opera), 5);
    EXPECT_EQ(app::groupIcon(Group::Chrome), 6);
    EXPECT_EQ(app::groupIcon(Group::Safari), 7);
    EXPECT_EQ(app::groupIcon(Group::Office), 8);
}

struct Gates : AppFixture {};

TEST_F(Gates, AreCheckBoxesThatStandInTheirWindows) {
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        for (const tasks::Gate& gate : {task.gate, task.rowGate}) {
            if (gate.control == nullptr) continue;
            forms::Form* form = program.windows.get(gate.window);
            ASSERT_NE(form, nullptr) << task.step;
            forms::Control* control = form->control(gate.control);
            ASSERT_NE(control, nullptr) << task.step << " " << gate.control;
            EXPECT_EQ(control->kind, forms::ControlKind::CheckBox) << task.step;
        }
    }
}

TEST_F(Gates, OfStepTwentyFourStandInTheInDepthWindow) {
    EXPECT_STREQ(app::taskCatalogue()[23].gate.window, "frmIEInDepthClean");
}

TEST_F(Gates, HaveANameInBothLanguages) {
    speakGerman();
    AppFixtureRun english;
    main();
    english.main();
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        EXPECT_FALSE(tasks::taskName(program, task).empty()) << task.step;
        EXPECT_FALSE(tasks::taskName(english.program, task).empty()) << task.step;
    }
}

}  // namespace tidvane::tests
