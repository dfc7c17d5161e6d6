#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "options_fixture.h"

namespace tidvane::settings {
namespace {

int place(const forms::Form& form, const forms::Control& control) {
    const auto& all = form.Controls();
    return static_cast<int>(std::find(all.begin(), all.end(), &control) - all.begin());
}

std::vector<forms::CheckBox*> checkBoxes(const forms::Form& form) {
    std::vector<forms::CheckBox*> boxes;
    for (forms::Control* control : form.Controls()) {
        if (control->kind == forms::ControlKind::CheckBox) boxes.push_back(static_cast<forms::CheckBox*>(control));
    }
    return boxes;
}

// --- the window as designed

TEST(OptionsWindow, HoldsTheStoredControlsOfItsPages) {
    OptionsFixture machine;
    const char* const names[] = {"chkRecentDocuments",
                                 "chkSearchList",
                                 "chkComputerList",
                                 "chkRunList",
                                 "chkRegKey",
                                 "chkLastSaveOpen",
                                 "chkWinUserAssist",
                                 "chkLastApply",
                                 "chkSearchWizard",
                                 "chkRASAutoDial",
                                 "chkTrash",
                                 "chkClipboard",
                                 "chkTempFolder",
                                 "chkUserTemp",
                                 "chkPrefetchFolder",
                                 "chkRecentWordPad",
                                 "chkRecentPaint",
                                 "chkRecentMediaPlayer",
                                 "chkAlphabetizeStartMenu",
                                 "chkAlphabetizeFavorites",
                                 "chkIEHistory",
                                 "chkIECookies",
                                 "chkIECache",
                                 "chkIEIndexDatFiles",
                                 "chkIEURL",
                                 "chkIEAutoCompleteForms",
                                 "chkIEDownloadedProgramFiles",
                                 "chkIEOfflineSites",
                                 "chkIEAlexa",
                                 "chkMozillaHistory",
                                 "chkMozillaCookies",
                                 "chkMozillaCache",
                                 "chkMozillaINDepthCleanOfflineCache",
                                 "chkMozillaINDepthCleanTestPilotErrorLogs",
                                 "chkMozillaAutoComplete",
                                 "chkMozillaDownloads",
                                 "chkMozillaGoogleToolbar",
                                 "chkMozillaCrashReports",
                                 "chkMozillaSearchHistory",
                                 "chkMozillaSession",
                                 "chkOperaHistory",
                                 "chkOperaCookies",
                                 "chkOperaCache",
                                 "chkOperaINDepthClean",
                                 "chkOperaURL",
                                 "chkOperaDownloads",
                                 "chkOperaWebsiteIcons",
                                 "chkChromeHistory",
                                 "chkChromeCookies",
                                 "chkChromeCache",
                                 "chkChromeINDepthClean",
                                 "chkChromeSession",
                                 "chkChromeDownloads",
                                 "chkSafariHistory",
                                 "chkSafariCookies",
                                 "chkSafariCache",
                                 "chkSafariSavedForms",
                                 "chkMSAccess",
                                 "chkMSExcel",
                                 "chkMSPowerPoint",
                                 "chkMSWord",
                                 "chkMSFrontPage",
                                 "chkActivateOwnFolder",
                                 "chkAutoSearchJunkFolders",
                                 "chkActivateOwnFiles",
                                 "chkAutoSearchJunkFiles",
                                 "chkSearchTasks",
                                 "chkAllFixedDrives",
                                 "chkAddInRegClean",
                                 "chkCleanRAM",
                                 "chkVolumeCheck",
                                 "chkStartWindows",
                                 "chkStartMinimized",
                                 "chkAutoUpdate",
                                 "chkLogBarOff",
                                 "chkHideColumnHeaders",
                                 "chkSmallAppsFontSize",
                                 "chkStartClean",
                                 "chkEndClean",
                                 "chkMinimizeSystray",
                                 "chkCloseAfterClean",
                                 "chkPurgeSound",
                                 "chkAskLogLocation",
                                 "chkAutoLog",
                                 "chkDeleteLog",
                                 "chkReplaceGerUmlaut",
                                 "chkLogTimestamp",
                                 "chkMoreLogDetails",
                                 "chkOpenRecycleBinAsPreview",
                                 "chkCreateRestorePoint",
                                 "chkHideAlertMessage"};
    const frmOptions& options = machine.options();
    for (const char* name : names) {
        const forms::Control* control = options.control(name);
        ASSERT_NE(control, nullptr) << name;
        EXPECT_EQ(control->kind, forms::ControlKind::CheckBox) << name;
    }
    // The others are the seven master boxes.
    EXPECT_EQ(checkBoxes(options).size(), std::size(names) + kTaskPages);
}

TEST(OptionsWindow, HasEveryControlThatGetsACaption) {
    OptionsFixture machine;
    for (const CaptionRow& row : captionRows()) {
        if (std::string(row.window) != frmOptions::kName) continue;
        EXPECT_NE(machine.options().control(row.control), nullptr) << row.control;
    }
}

TEST(OptionsWindow, MasterBoxesAreArrayMembersUnderTheirOwnNames) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    const char* const keys[] = {"chkWindowsTasks(0)", "chkIETasks(1)",     "chkMozillaTasks(2)", "chkOperaTasks(3)",
                                "chkChromeTasks(4)",  "chkSafariTasks(5)", "chkMsOfficeTasks(6)"};
    for (int page = 0; page < kTaskPages; ++page) {
        const forms::CheckBox& master = options.masterBox(static_cast<TaskPage>(page));
        EXPECT_EQ(profileKey(master), keys[page]);
        EXPECT_GT(options.arrayCount(master.Name), 0) << master.Name;
        for (const TaskBox& task : options.taskBoxes(static_cast<TaskPage>(page))) {
            EXPECT_LT(place(options, master), place(options, *task.box)) << task.box->Name;
            EXPECT_EQ(options.arrayCount(task.box->Name), 0) << task.box->Name;
        }
    }
}

TEST(OptionsWindow, EveryNameStandsOnce) {
    OptionsFixture machine;
    std::map<std::string, int> names;
    for (const forms::Control* control : machine.options().Controls()) ++names[control->Name];
    for (const auto& [name, count] : names) EXPECT_EQ(count, 1) << name;
}

TEST(OptionsWindow, CannotBeMadeSmallerThanItsBounds) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    EXPECT_GE(options.Width.get(), 12975);
    options.Width = 100;
    options.Height = 100;
    EXPECT_EQ(options.Width, 12975);
    EXPECT_EQ(options.Height, 7230);
    options.Width = 14000;
    options.Height = 8000;
    EXPECT_EQ(options.Width, 14000);
    EXPECT_EQ(options.Height, 8000);
}

TEST(OptionsWindow, StartsAsEventsForUntickedBoxesWouldLeaveIt) {
    OptionsFixture machine;
    machine.files().putFile("C:\\Program Files\\Tidvane\\memtrim.exe");
    frmOptions& options = machine.options();
    std::map<std::string, std::pair<bool, bool>> before;
    for (const forms::Control* control : options.Controls())
        before[control->Name] = {control->Enabled, control->Visible};
    // From the last to the first: the switch of the mask page comes behind the one for all drives.
    const auto boxes = checkBoxes(options);
    for (auto box = boxes.rbegin(); box != boxes.rend(); ++box) (*box)->Click();
    options.cboKillMethod.Click();
    for (const forms::Control* control : options.Controls()) {
        EXPECT_EQ(before[control->Name], (std::pair<bool, bool>{control->Enabled, control->Visible})) << control->Name;
    }
    EXPECT_FALSE(options.cboAutoStart.Enabled);
    EXPECT_FALSE(options.cboDrives.Enabled);
    EXPECT_TRUE(options.chkAutoLog.Enabled);
    EXPECT_FALSE(options.chkIEIndexDatFiles.Enabled);
}

// --- first start

TEST(OptionsFirstStart, LeavesEveryBoxUnticked) {
    OptionsFixture machine;
    for (const forms::CheckBox* box : checkBoxes(machine.options())) EXPECT_EQ(box->Value, 0) << box->Name;
}

TEST(OptionsFirstStart, SetsTheOtherValues) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.optDeleteFolder.selected());
    EXPECT_FALSE(options.optDeleteFolderContent.selected());
    EXPECT_EQ(options.txtAddFolderPath.Text(), "");
    EXPECT_EQ(options.txtAddFilePath.Text(), "");
    EXPECT_EQ(options.txtSearchMask.Text(), "");
    EXPECT_EQ(options.txtAddInRegCleanPath.Text(), "");
    EXPECT_EQ(options.txtVolumeCheckHD.Text(), "c:");
    EXPECT_EQ(options.txtVolumeCheckParameter.Text(), "/f");
    EXPECT_EQ(options.cboAutoStart.Text(), "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(options.cboAutoStart.rows(), (std::vector<std::string>{"HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER"}));
    EXPECT_EQ(options.txtPurgeSound.Text(), "C:\\Program Files\\Tidvane");
    EXPECT_EQ(options.txtTidvaneLog.Text(), "C:\\Program Files\\Tidvane");
    EXPECT_EQ(options.txtLogAutoTruncated.Text(), "60000");
    EXPECT_EQ(options.txtUpdateServer.Text(), kFirstUpdateServer);
    EXPECT_TRUE(options.optGerUpdateServer.selected());
    EXPECT_FALSE(options.optEngUpdateServer.selected());
    EXPECT_EQ(options.cboKillMethod.ListIndex(), 0);
    EXPECT_EQ(options.cboKillMethod.Text(), "Delete");
    EXPECT_EQ(options.cboKillMethod.rows(), (std::vector<std::string>{"Delete", "Recycle", "Overwrite"}));
    EXPECT_EQ(options.lblKillMethodInfo.Caption, "About deleting");
    EXPECT_EQ(options.txtPurgeSpeed.Text(), "10");
    EXPECT_EQ(machine.program.selectedKillMethod(), 0);
}

TEST(OptionsFirstStart, WritesNoFile) {
    OptionsFixture machine;
    (void)machine.options();
    EXPECT_FALSE(machine.files().has(machine.configFile()));
}

TEST(OptionsFirstStart, IsNotWhatAFileWithoutTheSectionMeans) {
    OptionsFixture machine;
    machine.putConfig("[frmMain]\r\nMainTab=0\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(options.cboKillMethod.ListIndex(), 0);
    EXPECT_EQ(options.cboAutoStart.ListIndex(), 0);
    EXPECT_TRUE(options.optDeleteFolder.selected());
    EXPECT_EQ(options.txtLogAutoTruncated.Text(), "60000");
}

// --- what the load handler sets

TEST(OptionsLoad, OffersTheFixedDrivesAndChoosesTheLast) {
    OptionsFixture machine;
    machine.files().addDrive('D', platform::DriveType::Fixed, 1, 2);
    machine.files().addDrive('E', platform::DriveType::CdRom, 0, 0);
    machine.files().addDrive('F', platform::DriveType::Removable, 0, 0);
    frmOptions& options = machine.options();
    EXPECT_EQ(options.cboDrives.rows(), (std::vector<std::string>{"C:", "D:"}));
    EXPECT_EQ(options.cboDrives.Text(), "D:");
    EXPECT_EQ(options.cboDrives.ListIndex(), 1);
}

TEST(OptionsLoad, RestoresTheStoredDriveByItsPlace) {
    OptionsFixture machine;
    machine.files().addDrive('D', platform::DriveType::Fixed, 1, 2);
    machine.putOptions({{"cboDrives", "0"}});
    EXPECT_EQ(machine.options().cboDrives.Text(), "C:");
}

TEST(OptionsLoad, KeepsTheDriveWhenTheStoredPlaceIsGone) {
    OptionsFixture machine;
    machine.putOptions({{"cboDrives", "7"}});
    EXPECT_EQ(machine.options().cboDrives.Text(), "C:");
}

TEST(OptionsLoad, CaptionsTheWindowAndItsTasks) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    EXPECT_EQ(options.Caption, "L299 Tidvane");
    EXPECT_EQ(options.chkRecentDocuments.Caption, "L200");
    EXPECT_EQ(options.chkAlphabetizeFavorites.Caption, "L219");
    EXPECT_EQ(options.chkIEHistory.Caption, "L223");
    EXPECT_EQ(options.chkIEAlexa.Caption, "L230");
    EXPECT_EQ(options.chkIEIndexDatFiles.Caption, "L225 Index.dat");
    EXPECT_EQ(options.chkMozillaHistory.Caption, "L237");
    EXPECT_EQ(options.chkMozillaSession.Caption, "L245");
    EXPECT_EQ(options.chkMozillaINDepthCleanOfflineCache.Caption, "L239 Offline Cache");
    EXPECT_EQ(options.chkMozillaINDepthCleanTestPilotErrorLogs.Caption, "L239 TestPilot Error Logs");
    EXPECT_EQ(options.chkOperaHistory.Caption, "L246");
    EXPECT_EQ(options.chkOperaWebsiteIcons.Caption, "L251");
    EXPECT_EQ(options.chkOperaINDepthClean.Caption, "L248 Thumbnails > SpeedDial");
    EXPECT_EQ(options.chkChromeHistory.Caption, "L252");
    EXPECT_EQ(options.chkChromeDownloads.Caption, "L256");
    EXPECT_EQ(options.chkChromeINDepthClean.Caption, "L254 Jumplist Icons");
    EXPECT_EQ(options.chkSafariHistory.Caption, "L257");
    EXPECT_EQ(options.chkSafariSavedForms.Caption, "L260");
    EXPECT_EQ(options.chkMSWord.Caption, "Microsoft Office Word");
}

TEST(OptionsLoad, TaskCaptionsFollowTheOrderOfTheEntries) {
    OptionsFixture machine;
    int last = 0;
    for (int page = 0; page < kTaskPages; ++page) {
        for (const TaskBox& task : machine.options().taskBoxes(static_cast<TaskPage>(page))) {
            if (task.caption == 0 || task.inDepth) continue;
            EXPECT_GT(task.caption, last) << task.box->Name;
            last = task.caption;
        }
    }
    EXPECT_EQ(last, 260);
}

TEST(OptionsLoad, TheTipsOfTheOfficeTasksTellWhatElseGoes) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    EXPECT_EQ(options.chkMSAccess.ToolTipText, std::string("+ L200 + Access 2000, XP, 2003: L298"));
    EXPECT_EQ(options.chkMSWord.ToolTipText, std::string("+ L200 + Word 2000, XP, 2003: L298"));
    for (const forms::CheckBox* box : {&options.chkMSExcel, &options.chkMSPowerPoint, &options.chkMSFrontPage}) {
        EXPECT_EQ(box->ToolTipText, std::string("+ L200")) << box->Name;
    }
}

TEST(OptionsLoad, BuildsTheTaskPane) {
    OptionsFixture machine;
    const auto& groups = machine.options().ExplorerBar2.groups();
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0].kind, controls::GroupKind::Special);
    EXPECT_EQ(groups[0].Title, "L320");
    EXPECT_EQ(groups[0].Tag, "special group");
    EXPECT_EQ(groups[1].Title, "L118");
    EXPECT_EQ(groups[1].Tag, "manager");
    std::vector<std::pair<std::string, std::string>> items;
    for (const auto& group : groups) {
        for (const auto& item : group.items) items.emplace_back(item.Tag, item.Caption);
    }
    EXPECT_EQ(items, (std::vector<std::pair<std::string, std::string>>{{"sConfiguration", "L173"},
                                                                       {"sAbort", "L301"},
                                                                       {"sSave", "L300"},
                                                                       {"sTempManager", "Temp Manager"},
                                                                       {"sCookieManager", "Cookie Manager"},
                                                                       {"sCacheManager", "Cache Manager"},
                                                                       {"sResources", "L743"},
                                                                       {"sTuneup", "L179"},
                                                                       {"sWizard", "L302"}}));
    EXPECT_FALSE(machine.options().ExplorerBar2.OpenOneGroupOnly);
}

TEST(OptionsLoad, PaneOpensOneGroupOnlyWhenTheExtendedSettingsSaySo) {
    OptionsFixture machine;
    machine.putConfig("[frmMoreToConfigure]\r\nchkOpenOneGroupOnly=1\r\n");
    EXPECT_TRUE(machine.options().ExplorerBar2.OpenOneGroupOnly);
}

TEST(OptionsLoad, GivesThePaneTheChosenTheme) {
    OptionsFixture machine;
    machine.putConfig("[frmMoreToConfigure]\r\ncboTheme=2\r\n");
    EXPECT_EQ(machine.options().ExplorerBar2.colour("BackColor"), 0x8000000Fu);
}

TEST(OptionsLoad, LeavesThePaneInItsDesignColoursUnderTheDefaultTheme) {
    OptionsFixture machine;
    EXPECT_EQ(machine.options().ExplorerBar2.colour("BackColor"), 0xE6AA8Cu);
}

TEST(OptionsLoad, CaptionsTheExtendedSettings) {
    OptionsFixture machine;
    (void)machine.options();
    auto& extended = machine.program.get<frmMoreToConfigure>();
    EXPECT_EQ(extended.Caption, "L389");
    EXPECT_EQ(extended.chkEnableCustomApp.Caption, "L396");
    EXPECT_EQ(extended.chkRunCustomAppAfterTidvane.Caption, "L397");
    EXPECT_EQ(extended.chkEnableAutoUpdate.Caption, "L394");
    EXPECT_EQ(extended.chkOpenChangelogAfterUpdate.Caption, "L398");
    EXPECT_EQ(extended.chkInfoServer.Caption, "L399");
}

TEST(OptionsLoad, SwitchesTheMemoryModuleOffWhereItIsMissing) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    EXPECT_FALSE(options.chkCleanRAM.Enabled);
    EXPECT_FALSE(options.cmdCleanRAM.Enabled);
    EXPECT_EQ(options.cmdCleanRAM.Caption, "L496");
}

TEST(OptionsLoad, SwitchesTheMemoryModuleOnWhereItIsThere) {
    OptionsFixture machine;
    machine.files().putFile("C:\\Program Files\\Tidvane\\memtrim.exe");
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.chkCleanRAM.Enabled);
    EXPECT_TRUE(options.cmdCleanRAM.Enabled);
    EXPECT_EQ(options.cmdCleanRAM.Caption, "L375");
}

TEST(OptionsLoad, StoredTicksComeBackToBoxesThatWereJustSwitchedOff) {
    OptionsFixture machine;
    machine.system().version = {2, 5, 0, 2195, ""};
    machine.putOptions({{"chkCleanRAM", "1"}, {"chkSearchWizard", "1"}});
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.chkCleanRAM.ticked());
    EXPECT_FALSE(options.chkCleanRAM.Enabled);
    EXPECT_TRUE(options.chkSearchWizard.ticked());
    EXPECT_FALSE(options.chkSearchWizard.Enabled);
}

TEST(OptionsLoad, ReadsItsRectangle) {
    OptionsFixture machine;
    machine.putConfig("[WindowStateOptions]\r\nLeft=120\r\nTop=abc\r\nHeight=9000\r\nWidth=14000\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(options.Left, 120);
    EXPECT_EQ(options.Top, 0);
    EXPECT_EQ(options.Height, 9000);
    EXPECT_EQ(options.Width, 14000);
}

TEST(OptionsLoad, ReadsTheLists) {
    OptionsFixture machine;
    machine.putBeside("td_folders.dat", "C:\\A\r\nC:\\Data, old\r\n");
    machine.putBeside("td_fkeys.dat", "\"C:\\x,y.txt\"\r\n\r\n");
    machine.putBeside("td_ftypes.dat", "*.bak\r\n");
    frmOptions& options = machine.options();
    EXPECT_EQ(rows(options.lstFolders), (std::vector<std::string>{"C:\\A", "C:\\Data", "old"}));
    EXPECT_EQ(rows(options.lstFiles), (std::vector<std::string>{"C:\\x,y.txt"}));
    EXPECT_EQ(rows(options.lstSearchMasks), (std::vector<std::string>{"*.bak"}));
    ASSERT_EQ(machine.display.warnings.size(), 1u);
    EXPECT_NE(machine.display.warnings[0].find("C:\\Data, old"), std::string::npos);
}

TEST(OptionsLoad, TellsOnceWhatIsWrongWithAList) {
    OptionsFixture machine;
    machine.putBeside("td_folders.dat", "C:\\Data, old\r\n");
    machine.putBeside("td_fkeys.dat", "C:\\x\r\n");
    machine.files().refuse(machine.inFolder("td_fkeys.dat"), platform::operation::Read, platform::Status::InUse);
    for (int i = 0; i < 3; ++i) machine.program.windows.unload(machine.options());
    EXPECT_EQ(machine.display.warnings.size(), 2u);
    // Another line is another matter.
    machine.putBeside("td_ftypes.dat", "*.a,*.b\r\n");
    (void)machine.options();
    EXPECT_EQ(machine.display.warnings.size(), 3u);
}

TEST(OptionsLoad, LeavesListsEmptyWithoutFiles) {
    OptionsFixture machine;
    EXPECT_EQ(machine.options().lstFolders.ListCount(), 0);
    EXPECT_TRUE(machine.display.warnings.empty());
}

// --- the two passes over the stored values

TEST(OptionsStoredValues, ATickedMasterBoxLeavesTheStoredBoxesOfItsPage) {
    OptionsFixture machine;
    machine.putOptions({{"chkWindowsTasks(0)", "1"}, {"chkTrash", "0"}, {"chkRunList", "1"}});
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.chkWindowsTasks.ticked());
    EXPECT_TRUE(options.chkRunList.ticked());
    EXPECT_FALSE(options.chkTrash.ticked());
    // A box without a key keeps the tick that the master box gave it.
    EXPECT_TRUE(options.chkClipboard.ticked());
}

TEST(OptionsStoredValues, ATickOfTheRecycleBinTaskUnderTheRecycleMethodIsTakenBackWithABox) {
    OptionsFixture machine;
    machine.putOptions({{"chkTrash", "1"}, {"cboKillMethod", "1"}});
    frmOptions& options = machine.options();
    EXPECT_FALSE(options.chkTrash.ticked());
    ASSERT_EQ(machine.display.boxes.size(), 1u);
    EXPECT_EQ(machine.display.boxes[0].text, "L625");
}

TEST(OptionsStoredValues, ABadNumberEndsTheWalkAndIsNoFirstStart) {
    OptionsFixture machine;
    machine.putOptions(
        {{"chkRecentDocuments", "1"}, {"chkSearchList", "x"}, {"chkRunList", "1"}, {"txtPurgeSpeed", "77"}});
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.chkRecentDocuments.ticked());
    EXPECT_FALSE(options.chkRunList.ticked());
    EXPECT_EQ(options.txtPurgeSpeed.Text(), "10");
    EXPECT_EQ(options.Caption, "L299 Tidvane");
}

TEST(OptionsStoredValues, KeepARowOfTheKillMethodChosen) {
    OptionsFixture machine;
    machine.putOptions({{"cboKillMethod", "-1"}});
    frmOptions& options = machine.options();
    EXPECT_EQ(options.cboKillMethod.ListIndex(), 0);
    EXPECT_EQ(machine.program.selectedKillMethod(), 0);
}

TEST(OptionsStoredValues, BringBackTheOverwriteMethod) {
    OptionsFixture machine;
    machine.putOptions({{"cboKillMethod", "2"}});
    EXPECT_EQ(machine.options().cboKillMethod.Text(), "Overwrite");
    EXPECT_EQ(machine.options().lblKillMethodInfo.Caption, "About overwriting");
    EXPECT_EQ(machine.program.selectedKillMethod(), 2);
}

TEST(OptionsStoredValues, RunTheDependencies) {
    OptionsFixture machine;
    machine.putOptions({{"chkActivateOwnFolder", "1"},
                        {"chkAutoSearchJunkFolders", "1"},
                        {"chkStartWindows", "1"},
                        {"cboAutoStart", "1"}});
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.lstFolders.Enabled);
    EXPECT_TRUE(options.chkAutoSearchJunkFolders.ticked());
    EXPECT_TRUE(options.cboAutoStart.Enabled);
    EXPECT_EQ(options.cboAutoStart.Text(), "HKEY_CURRENT_USER");
}

TEST(OptionsStoredValues, ATypedServerStandsBesideTheSecondStandardServer) {
    OptionsFixture machine;
    machine.putOptions(
        {{"txtUpdateServer", "https://my.example/"}, {"optGerUpdateServer", "0"}, {"optEngUpdateServer", "-1"}});
    frmOptions& options = machine.options();
    EXPECT_TRUE(options.optEngUpdateServer.selected());
    EXPECT_FALSE(options.optGerUpdateServer.selected());
    // The first pass overwrites the address, the second brings it back.
    EXPECT_EQ(options.txtUpdateServer.Text(), "https://my.example/");
}

TEST(OptionsStoredValues, ASelectedStandardServerFillsAnAddressThatIsNotStored) {
    OptionsFixture machine;
    machine.putOptions({{"optGerUpdateServer", "0"}, {"optEngUpdateServer", "-1"}});
    EXPECT_EQ(machine.options().txtUpdateServer.Text(), kSecondUpdateServer);
}

TEST(OptionsStoredValues, AnEmptiedTextComesBack) {
    OptionsFixture machine;
    machine.putOptions({{"txtAddInRegCleanPath", "C:\\regsweep.exe"}});
    machine.options().txtAddInRegCleanPath.setText("");
    machine.options().cmdOK.setValue(true);
    ASSERT_EQ(machine.display.warnings.size(), 1u);
    EXPECT_EQ(machine.display.warnings[0],
              "\"Pfad des Programms\" was emptied and keeps its last value: C:\\regsweep.exe");
    machine.program.windows.sweep();
    EXPECT_EQ(machine.options().txtAddInRegCleanPath.Text(), "C:\\regsweep.exe");
}

TEST(OptionsStoredValues, EverySaveTellsOfEmptiedTexts) {
    OptionsFixture machine;
    machine.putOptions({{"txtVolumeCheckParameter", "/f /r"}, {"txtAddFolderPath", "C:\\half typed"}});
    frmOptions& options = machine.options();
    options.txtVolumeCheckParameter.setText("");
    // The entry lines are emptied by every entry.
    options.txtAddFolderPath.setText("");
    options.cmdRecentServer.press();
    EXPECT_EQ(machine.display.warnings,
              (std::vector<std::string>{"\"Parameter\" was emptied and keeps its last value: /f /r"}));
}

}  // namespace
}  // namespace tidvane::settings
