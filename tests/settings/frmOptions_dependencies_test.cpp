#include <gtest/gtest.h>

#include "options_fixture.h"

namespace tidvane::settings {
namespace {

// One row of what a box does to others, by name.
struct Row {
    const char* source;
    std::vector<const char*> enabled;   // while ticked, disabled while not
    std::vector<const char*> disabled;  // while ticked, enabled while not
    std::vector<const char*> unticked;  // when it gets disabled
};

struct DependencyTest : testing::TestWithParam<Row> {};

TEST_P(DependencyTest, Holds) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    const Row& row = GetParam();
    const auto box = [&](const char* name) -> forms::CheckBox& {
        return dynamic_cast<forms::CheckBox&>(*options.control(name));
    };
    forms::CheckBox& source = box(row.source);

    const auto check = [&](bool ticked) {
        for (const char* name : row.enabled) EXPECT_EQ(options.control(name)->Enabled, ticked) << name;
        for (const char* name : row.disabled) EXPECT_EQ(options.control(name)->Enabled, !ticked) << name;
    };
    source.Value = 1;
    check(true);
    source.Value = 0;
    check(false);

    for (const char* name : row.unticked) {
        forms::CheckBox& target = box(name);
        const bool losesItWhenTicked = !row.disabled.empty();
        source.Value = losesItWhenTicked ? 0 : 1;
        target.Value = 1;
        EXPECT_TRUE(target.ticked()) << name;
        source.Value = losesItWhenTicked ? 1 : 0;
        EXPECT_FALSE(target.ticked()) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DependencyTest,
    testing::Values(Row{"chkIECache", {"chkIEIndexDatFiles"}, {}, {"chkIEIndexDatFiles"}},
                    Row{"chkMozillaCache",
                        {"chkMozillaINDepthCleanOfflineCache", "chkMozillaINDepthCleanTestPilotErrorLogs"},
                        {},
                        {"chkMozillaINDepthCleanOfflineCache", "chkMozillaINDepthCleanTestPilotErrorLogs"}},
                    Row{"chkOperaCache", {"chkOperaINDepthClean"}, {}, {"chkOperaINDepthClean"}},
                    Row{"chkChromeCache", {"chkChromeINDepthClean"}, {}, {"chkChromeINDepthClean"}},
                    Row{"chkActivateOwnFolder",
                        {"lstFolders", "cmdDeleteSelected", "cmdDeleteAll", "cmdEditFolders", "cmdAddFolderPath",
                         "cmdAddFolder", "optDeleteFolder", "optDeleteFolderContent", "txtAddFolderPath",
                         "chkAutoSearchJunkFolders"},
                        {},
                        {"chkAutoSearchJunkFolders"}},
                    Row{"chkActivateOwnFiles",
                        {"lstFiles", "cmdDeleteSelected2", "cmdDeleteAll2", "cmdEditFiles", "cmdAddFilePath",
                         "cmdAddFile", "txtAddFilePath", "chkAutoSearchJunkFiles"},
                        {},
                        {"chkAutoSearchJunkFiles"}},
                    Row{"chkSearchTasks",
                        {"lstSearchMasks", "txtSearchMask", "cboDrives", "chkAllFixedDrives", "cmdRemoveAllSearchMasks",
                         "cmdRemoveSearchMask", "cmdAddSearchMask", "cmdLoadSearchMasks"},
                        {},
                        {}},
                    Row{"chkAllFixedDrives", {}, {"cboDrives"}, {}},
                    Row{"chkAddInRegClean", {"txtAddInRegCleanPath", "cmdAddInRegCleanBrowse"}, {}, {}},
                    Row{"chkStartWindows", {"cboAutoStart"}, {}, {}},
                    Row{"chkCloseAfterClean", {}, {"chkMinimizeSystray"}, {"chkMinimizeSystray"}},
                    Row{"chkAskLogLocation",
                        {},
                        {"txtTidvaneLog", "cmdFolderScan", "chkAutoLog", "chkDeleteLog"},
                        {"chkAutoLog", "chkDeleteLog"}},
                    Row{"chkPurgeSound", {"txtPurgeSound", "cmdPurgeSound", "cmdPurgeSoundTest"}, {}, {}}),
    [](const testing::TestParamInfo<Row>& row) { return std::string(row.param.source); });

// --- the master boxes

struct MasterBoxTest : testing::TestWithParam<int> {};

TEST_P(MasterBoxTest, TicksAndUnticksItsPageWithoutTheInDepthBoxes) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    const auto page = static_cast<TaskPage>(GetParam());
    options.masterBox(page).Value = 1;
    for (const TaskBox& task : options.taskBoxes(page)) {
        EXPECT_EQ(task.box->ticked(), !task.inDepth) << task.box->Name;
    }
    for (int other = 0; other < kTaskPages; ++other) {
        if (other == GetParam()) continue;
        for (const TaskBox& task : options.taskBoxes(static_cast<TaskPage>(other))) {
            EXPECT_FALSE(task.box->ticked()) << task.box->Name;
        }
    }
    options.masterBox(page).Value = 0;
    for (const TaskBox& task : options.taskBoxes(page)) EXPECT_FALSE(task.box->ticked()) << task.box->Name;
}

INSTANTIATE_TEST_SUITE_P(Pages, MasterBoxTest, testing::Range(0, kTaskPages));

TEST(MasterBox, LeavesOutTheFiveInDepthBoxes) {
    OptionsFixture machine;
    std::vector<std::string> names;
    for (int page = 0; page < kTaskPages; ++page) {
        for (const TaskBox& task : machine.options().taskBoxes(static_cast<TaskPage>(page))) {
            if (task.inDepth) names.push_back(task.box->Name);
        }
    }
    EXPECT_EQ(names, (std::vector<std::string>{"chkIEIndexDatFiles", "chkMozillaINDepthCleanOfflineCache",
                                               "chkMozillaINDepthCleanTestPilotErrorLogs", "chkOperaINDepthClean",
                                               "chkChromeINDepthClean"}));
}

TEST(MasterBox, EnablesAndDisablesAWholePage) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.enableTaskPage(TaskPage::Safari, false);
    EXPECT_FALSE(options.chkSafariTasks.Enabled);
    EXPECT_FALSE(options.chkSafariSavedForms.Enabled);
    EXPECT_TRUE(options.chkIECache.Enabled);
    options.enableTaskPage(TaskPage::Safari, true);
    EXPECT_TRUE(options.chkSafariTasks.Enabled);
    EXPECT_TRUE(options.chkSafariSavedForms.Enabled);
}

TEST(MasterBox, EnablesTheInDepthBoxesOfAPageToo) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    ASSERT_FALSE(options.chkMozillaCache.ticked());
    options.enableTaskPage(TaskPage::Mozilla, true);
    EXPECT_TRUE(options.chkMozillaINDepthCleanOfflineCache.Enabled);
    EXPECT_TRUE(options.chkMozillaINDepthCleanTestPilotErrorLogs.Enabled);
    // The cache's box decides from its first change on.
    options.chkMozillaCache.Value = 1;
    options.chkMozillaCache.Value = 0;
    EXPECT_FALSE(options.chkMozillaINDepthCleanOfflineCache.Enabled);
    options.enableTaskPage(TaskPage::Mozilla, false);
    EXPECT_FALSE(options.chkMozillaINDepthCleanTestPilotErrorLogs.Enabled);
}

// --- the kill method

TEST(KillMethodChoice, DrivesTheHintAndTheRecycleBinOptions) {
    OptionsFixture machine;
    frmOptions& options = machine.options();

    options.cboKillMethod.setListIndex(1);
    EXPECT_EQ(options.lblKillMethodInfo.Caption, "About recycling");
    EXPECT_TRUE(options.chkOpenRecycleBinAsPreview.Enabled);
    EXPECT_TRUE(options.chkOpenRecycleBinAsPreview.Visible);

    options.chkOpenRecycleBinAsPreview.Value = 1;
    options.cboKillMethod.setListIndex(2);
    EXPECT_EQ(options.lblKillMethodInfo.Caption, "About overwriting");
    EXPECT_FALSE(options.chkOpenRecycleBinAsPreview.Enabled);
    EXPECT_FALSE(options.chkOpenRecycleBinAsPreview.Visible);
    EXPECT_FALSE(options.chkOpenRecycleBinAsPreview.ticked());

    options.cboKillMethod.setListIndex(1);
    options.chkOpenRecycleBinAsPreview.Value = 1;
    options.cboKillMethod.setListIndex(0);
    EXPECT_EQ(options.lblKillMethodInfo.Caption, "About deleting");
    EXPECT_FALSE(options.chkOpenRecycleBinAsPreview.Enabled);
    EXPECT_FALSE(options.chkOpenRecycleBinAsPreview.Visible);
    EXPECT_FALSE(options.chkOpenRecycleBinAsPreview.ticked());
}

TEST(KillMethodChoice, RecyclingUnticksTheRecycleBinTaskWithoutAWord) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.chkTrash.Value = 1;
    options.cboKillMethod.setListIndex(1);
    EXPECT_FALSE(options.chkTrash.ticked());
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST(KillMethodChoice, TheOthersLeaveTheRecycleBinTask) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.chkTrash.Value = 1;
    options.cboKillMethod.setListIndex(2);
    options.cboKillMethod.setListIndex(0);
    EXPECT_TRUE(options.chkTrash.ticked());
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST(KillMethodChoice, RecyclingRefusesTheRecycleBinTaskWithABox) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.cboKillMethod.setListIndex(1);
    options.chkTrash.Value = 1;
    EXPECT_FALSE(options.chkTrash.ticked());
    ASSERT_EQ(machine.display.boxes.size(), 1u);
    EXPECT_EQ(machine.display.boxes[0].text, "L625");
    EXPECT_EQ(machine.display.boxes[0].title, "Tidvane");
    EXPECT_EQ(machine.display.boxes[0].style, forms::msgbox::Information);
}

TEST(KillMethodChoice, KeepsARowChosen) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.cboKillMethod.setListIndex(2);
    options.cboKillMethod.setListIndex(-1);
    EXPECT_EQ(options.cboKillMethod.ListIndex(), 0);
    options.cboKillMethod.setText("something else");
    EXPECT_EQ(options.cboKillMethod.ListIndex(), 0);
    EXPECT_EQ(options.cboKillMethod.Text(), "Delete");
}

TEST(KillMethodChoice, EqualTextsAllMeanPlainDeletion) {
    OptionsFixture machine;
    for (const int entry : {732, 733, 734}) machine.program.LangText.set(entry, "");
    frmOptions& options = machine.options();
    EXPECT_EQ(options.cboKillMethod.ListCount(), 3);
    EXPECT_EQ(machine.program.selectedKillMethod(), 0);
    options.chkTrash.Value = 1;
    EXPECT_TRUE(options.chkTrash.ticked());
}

// --- numbers and servers

TEST(NumberBoxes, TakeDigitsCommaAndBackspaceAlone) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    for (forms::TextBox* box : {&options.txtLogAutoTruncated, &options.txtPurgeSpeed}) {
        box->setText("");
        for (const char32_t key : U"1a-,.5 \x9") {
            if (key != 0) box->typeKey(key);
        }
        EXPECT_EQ(box->Text(), "1,5") << box->Name;
        box->typeKey(8);
        EXPECT_EQ(box->Text(), "1,") << box->Name;
    }
}

TEST(NumberBoxes, AreResetByTheirLinks) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.txtLogAutoTruncated.setText("1");
    options.txtPurgeSpeed.setText("2");
    options.lblReset.Click();
    EXPECT_EQ(options.txtLogAutoTruncated.Text(), "60000");
    EXPECT_EQ(options.txtPurgeSpeed.Text(), "2");
    options.lblReset2.Click();
    EXPECT_EQ(options.txtPurgeSpeed.Text(), "10");
}

TEST(UpdateServer, SelectingTheSecondFillsItInAndTheFirstDoesNot) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.optEngUpdateServer.setValue(-1);
    EXPECT_EQ(options.txtUpdateServer.Text(), kSecondUpdateServer);
    options.txtUpdateServer.setText("https://my.example/");
    options.optGerUpdateServer.setValue(-1);
    EXPECT_EQ(options.txtUpdateServer.Text(), "https://my.example/");
}

TEST(UpdateServer, TheStandardButtonPutsTheSelectedOneIn) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.cmdRecentServer.Enabled = false;
    options.txtUpdateServer.setText("x");
    options.cmdStandardServer.press();
    EXPECT_EQ(options.txtUpdateServer.Text(), kFirstUpdateServer);
    EXPECT_TRUE(options.cmdRecentServer.Enabled);
    options.optEngUpdateServer.setValue(-1);
    options.txtUpdateServer.setText("x");
    options.cmdStandardServer.press();
    EXPECT_EQ(options.txtUpdateServer.Text(), kSecondUpdateServer);
}

TEST(UpdateServer, TheRecentButtonStoresTheWindowAtOnceAndDisablesItself) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.txtUpdateServer.setText("https://my.example/");
    options.chkRunList.Value = 1;
    options.cmdRecentServer.press();
    EXPECT_EQ(machine.stored("txtUpdateServer"), "https://my.example/");
    EXPECT_EQ(machine.stored("chkRunList"), "1");
    EXPECT_FALSE(options.cmdRecentServer.Enabled);
    EXPECT_NE(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
}

}  // namespace
}  // namespace tidvane::settings
