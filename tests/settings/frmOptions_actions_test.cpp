#include <gtest/gtest.h>

#include "base/text.h"
#include "options_fixture.h"
#include "settings/log_font_file.h"

namespace tidvane::settings {
namespace {

using Calls = std::vector<std::string>;

// --- OK and cancel

TEST(OptionsOk, WorksInItsOrder) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    options.chkRunList.Value = 1;
    options.lstFolders.AddItem("C:\\A");
    bool buttonWasOff = true;
    machine.report.onCall = [&](const std::string& call) {
        buttonWasOff = buttonWasOff && !options.cmdOK.Enabled;
        // The settings are stored before anything else, the lists between statuses and icons, the unload is last.
        EXPECT_EQ(machine.stored("chkRunList"), "1") << call;
        EXPECT_EQ(machine.beside("td_folders.dat").has_value(), call == "icons") << call;
        EXPECT_EQ(machine.beside("td_flog.dat").has_value(), call == "icons") << call;
        EXPECT_NE(machine.program.windows.ifLoaded(frmOptions::kName), nullptr) << call;
    };
    options.cmdOK.setValue(true);
    EXPECT_EQ(machine.report.calls, (Calls{"rows", "statuses", "icons"}));
    EXPECT_TRUE(buttonWasOff);
    EXPECT_EQ(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
    EXPECT_EQ(machine.display.forgotten, (Calls{"frmOptions"}));
}

TEST(OptionsCancel, ClosesAndStoresNothing) {
    OptionsFixture machine;
    machine.options().chkRunList.Value = 1;
    EXPECT_EQ(machine.options().cmdCancel.Caption.get(), "L301");
    machine.options().cmdCancel.press();
    EXPECT_EQ(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
    EXPECT_NE(machine.stored("chkRunList"), "1");
    EXPECT_TRUE(machine.report.calls.empty());
}

TEST(OptionsTips, SayWhatSignsAndPicturesStandFor) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    EXPECT_EQ(options.cmdAlphabetizeStartMenuManual.ToolTipText.get(), "L218: L882");
    EXPECT_EQ(options.cmdAlphabetizeFavoritesManual.ToolTipText.get(), "L219: L882");
    EXPECT_EQ(options.cmdPurgeSound.ToolTipText.get(), "L352");
    EXPECT_EQ(options.cmdPurgeSoundTest.ToolTipText.get(), "L883");
    EXPECT_EQ(options.ImgOperaSuccess.ToolTipText.get(), "L880");
    EXPECT_EQ(options.ImgOperaFail.ToolTipText.get(), "L881");
}

TEST(OptionsPane, FindsThePicturesOfItsItemsByTheirTags) {
    OptionsFixture machine;
    const controls::ExplorerBar& pane = machine.options().ExplorerBar2;
    ASSERT_EQ(pane.GetGroupsCount(), 2);
    for (int group = 0; group < 2; ++group) {
        for (int item = 0; item < pane.GetItemsCount(group); ++item) {
            EXPECT_FALSE(pane.GetItemIcon(group, item).empty());
            EXPECT_EQ(pane.GetItemIcon(group, item), pane.GetItemTag(group, item));
        }
    }
}

// --- the entry that starts the program with Windows

struct AutostartByOk : ::testing::Test {
    static constexpr const char* kRun = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

    // Empty: there is none.
    std::string entry(const platform::RegistryKeyPtr& root, const std::string& name = "Tidvane") {
        platform::RegistryKeyPtr key = root;
        for (const std::string& part : base::split(kRun, "\\")) {
            key = key == nullptr ? nullptr : key->find(part);
        }
        const platform::RegistryValue* value = key == nullptr ? nullptr : key->findValue(name);
        std::string text = value == nullptr ? std::string() : value->data;
        std::erase(text, '\0');  // plain letters of two bytes each
        return text;
    }
    std::string ofMachine() { return entry(machine.machine.registryTree.machine()); }
    std::string ofUser() { return entry(machine.machine.registryTree.currentUser()); }
    void ok(int ticked, int root) {
        machine.options().chkStartWindows.Value = ticked;
        machine.options().cboAutoStart.setListIndex(root);
        machine.options().cmdOK.setValue(true);
        machine.program.windows.sweep();
    }

    OptionsFixture machine;
};

TEST_F(AutostartByOk, IsWrittenUnderTheChosenRoot) {
    ok(1, 0);
    EXPECT_EQ(ofMachine(), "C:\\Program Files\\Tidvane\\Tidvane.exe");
    EXPECT_EQ(ofUser(), "");
}

TEST_F(AutostartByOk, LeavesTheOtherRootsEntryUntilItIsTurnedOff) {
    ok(1, 0);
    ok(1, 1);
    EXPECT_NE(ofMachine(), "");
    EXPECT_NE(ofUser(), "");
    ok(0, 1);
    EXPECT_EQ(ofMachine(), "");
    EXPECT_EQ(ofUser(), "");
}

TEST_F(AutostartByOk, TakesNoOtherProgramsEntry) {
    ok(1, 1);
    platform::RegistryKeyPtr key = machine.machine.registryTree.currentUser();
    for (const std::string& part : base::split(kRun, "\\")) key = key->find(part);
    key->setText("Other", "C:\\other.exe");
    ok(0, 1);
    EXPECT_EQ(ofUser(), "");
    EXPECT_EQ(entry(machine.machine.registryTree.currentUser(), "Other"), "C:\\other.exe");
}

TEST_F(AutostartByOk, SaysNothingWhereThereIsNoEntryToRemove) {
    ok(0, 0);
    EXPECT_TRUE(machine.display.boxes.empty());
    EXPECT_TRUE(machine.display.warnings.empty());
    EXPECT_EQ(ofMachine() + ofUser(), "");
}

TEST_F(AutostartByOk, IsNeverWrittenWithoutARoot) {
    ok(1, -1);
    EXPECT_EQ(ofMachine() + ofUser(), "");
}

TEST_F(AutostartByOk, ComesBehindTheListsAndBeforeTheIcons) {
    machine.putBeside("td_ftypes.dat", "*.tmp\r\n");
    (void)machine.options();
    bool atLists = true;
    machine.files().before(OptionsFixture::inFolder("td_ftypes.dat"), 1, [&] { atLists = !ofUser().empty(); });
    machine.report.onCall = [&](const std::string& call) { EXPECT_EQ(!ofUser().empty(), call == "icons") << call; };
    ok(1, 1);
    EXPECT_FALSE(atLists) << "written last of the three lists";
    EXPECT_NE(ofUser(), "");
}

TEST_F(AutostartByOk, StaysAsItIsWhenTheWindowIsCancelled) {
    ok(1, 1);
    machine.options().chkStartWindows.Value = 0;
    machine.options().ExplorerBar2.clickItem(0, 1);
    EXPECT_NE(ofUser(), "");
}

// --- what is stored

TEST(OptionsOk, TheNextUseLoadsWhatWasStored) {
    OptionsFixture machine;
    machine.options().chkRunList.Value = 1;
    machine.options().txtPurgeSpeed.setText("25");
    machine.options().cboKillMethod.setListIndex(2);
    machine.options().optDeleteFolderContent.setValue(-1);
    machine.options().chkMsOfficeTasks.Value = 1;
    machine.options().cmdOK.setValue(true);
    EXPECT_EQ(machine.stored("chkMsOfficeTasks(6)"), "1");
    EXPECT_EQ(machine.stored("optDeleteFolderContent"), "-1");
    EXPECT_EQ(machine.stored("optDeleteFolder"), "0");

    frmOptions& again = machine.options();
    EXPECT_TRUE(again.chkRunList.ticked());
    EXPECT_EQ(again.txtPurgeSpeed.Text(), "25");
    EXPECT_EQ(again.cboKillMethod.ListIndex(), 2);
    EXPECT_TRUE(again.optDeleteFolderContent.selected());
    EXPECT_FALSE(again.optDeleteFolder.selected());
    EXPECT_TRUE(again.chkMSWord.ticked());
    EXPECT_TRUE(again.cmdOK.Enabled);
}

TEST(OptionsOk, ASecondClickDoesNothing) {
    OptionsFixture machine;
    frmOptions& options = machine.options();
    machine.report.onCall = [&](const std::string& call) {
        if (call == "rows") options.cmdOK.setValue(true);
    };
    options.cmdOK.setValue(true);
    EXPECT_EQ(machine.report.calls.size(), 3u);
}

TEST(OptionsOk, WritesTheFontOfTheLog) {
    OptionsFixture machine;
    machine.options().cmdOK.setValue(true);
    EXPECT_EQ(machine.beside("td_flog.dat"), "Courier New\r\n9.5\r\nTrue\r\nFalse\r\n");
}

TEST(OptionsOk, WritesTheFontInTheWordsOfTheLocale) {
    OptionsFixture machine;
    machine.system().systemLocale = base::germanLocale();
    machine.options().cmdOK.setValue(true);
    const base::Locale& german = base::germanLocale();
    EXPECT_EQ(machine.beside("td_flog.dat"),
              "Courier New\r\n9,5\r\n" + german.trueText + "\r\n" + german.falseText + "\r\n");
}

TEST(OptionsCancel, KeepsNothingAndTellsNobody) {
    OptionsFixture machine;
    machine.options().chkRunList.Value = 1;
    machine.options().ExplorerBar2.clickItem(0, 1);
    EXPECT_EQ(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
    EXPECT_TRUE(machine.report.calls.empty());
    EXPECT_EQ(machine.stored("chkRunList"), "");
    EXPECT_FALSE(machine.options().chkRunList.ticked());
}

TEST(OptionsUnload, StoresTheRectangleOnEveryWayOfClosing) {
    OptionsFixture machine;
    machine.options().Left = 77;
    machine.options().Width = 14321;
    machine.program.windows.unload(machine.options(), forms::UnloadMode::ControlMenu);
    EXPECT_EQ(machine.stored("Left", "WindowStateOptions"), "77");
    EXPECT_EQ(machine.stored("Width", "WindowStateOptions"), "14321");
    EXPECT_EQ(machine.options().Left, 77);
}

// --- the task pane

TEST(OptionsTaskPane, SaveActsLikeOk) {
    OptionsFixture machine;
    machine.options().ExplorerBar2.clickItem(0, 2);
    EXPECT_EQ(machine.report.calls.size(), 3u);
    EXPECT_EQ(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
}

TEST(OptionsTaskPane, ConfigurationShowsTheMaintenancePage) {
    OptionsFixture machine;
    machine.display.inModal["frmStarter"] = [](forms::Form& form) {
        EXPECT_EQ(static_cast<frmStarter&>(form).SSTab2.Tab, 3);
    };
    machine.options().ExplorerBar2.clickItem(0, 0);
    ASSERT_EQ(machine.display.shown.size(), 1u);
    EXPECT_EQ(machine.display.shown[0].window, "frmStarter");
    EXPECT_TRUE(machine.display.shown[0].modal);
}

TEST(OptionsTaskPane, OpensTheManagersModallyOverTheWindow) {
    OptionsFixture machine;
    const char* const names[] = {"frmTempAge", "frmIECookies", "frmIECache", "frmResources", "frmManualSearch"};
    for (const char* name : names) {
        machine.program.windows.offer(name, [name] { return std::make_unique<forms::Form>(name); });
    }
    for (int item = 0; item < 6; ++item) machine.options().ExplorerBar2.clickItem(1, item);
    Calls opened;
    for (const auto& shown : machine.display.shown) {
        opened.push_back(shown.window);
        EXPECT_TRUE(shown.modal) << shown.window;
        EXPECT_EQ(shown.owner, "frmOptions") << shown.window;
    }
    EXPECT_EQ(opened, (Calls{"frmTempAge", "frmIECookies", "frmIECache", "frmResources", "frmMoreToConfigure",
                             "frmManualSearch"}));
}

TEST(OptionsTaskPane, ExtendedSettingsOpenOnTheirFirstPageAndUnderTheirCaption) {
    OptionsFixture machine;
    int opened = 0;
    machine.display.inModal["frmMoreToConfigure"] = [&](forms::Form& form) {
        ++opened;
        EXPECT_EQ(static_cast<frmMoreToConfigure&>(form).SSTab1.Tab, 0);
        EXPECT_EQ(form.Caption, "L389");
    };
    const auto leaveElsewhere = [&] {
        machine.program.get<frmMoreToConfigure>().SSTab1.Tab = 2;
        machine.program.get<frmMoreToConfigure>().Caption = "another";
    };
    leaveElsewhere();
    machine.options().ExplorerBar2.clickItem(1, 4);
    leaveElsewhere();
    machine.options().cmdMoreToConfigure.press();
    EXPECT_EQ(opened, 2);
}

TEST(OptionsButtons, OpenTheirWindows) {
    OptionsFixture machine;
    machine.program.windows.offer("frmSearchMasks", [] { return std::make_unique<forms::Form>("frmSearchMasks"); });
    frmOptions& options = machine.options();
    options.chkSearchTasks.Value = 1;
    for (controls::isButton* button :
         {&options.cmdIEInDepthClean, &options.cmdMozillaDir, &options.cmdOperaDir, &options.cmdChromeDir,
          &options.cmdSafariDir, &options.cmdLoadSearchMasks, &options.cmdMoreToConfigure}) {
        button->press();
    }
    Calls opened;
    for (const auto& shown : machine.display.shown) opened.push_back(shown.window);
    EXPECT_EQ(opened, (Calls{"frmIEInDepthClean", "frmMozillaDir", "frmOperaDir", "frmChromeDir", "frmSafariDir",
                             "frmSearchMasks", "frmMoreToConfigure"}));
}

// --- actions behind single options

TEST(OptionsVolumeCheck, StartsTheSystemsProgram) {
    OptionsFixture machine;
    machine.files().putFile("C:\\Windows\\System32\\chkdsk.exe");
    machine.options().cmdVolumeCheck.press();
    ASSERT_EQ(machine.machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.machine.processes.started[0]->commandLine, "chkdsk.exe c: /f");
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST(OptionsVolumeCheck, WarnsWhereItIsMissing) {
    OptionsFixture machine;
    machine.options().txtVolumeCheckHD.setText("d:");
    machine.options().cmdVolumeCheck.press();
    EXPECT_TRUE(machine.machine.processes.started.empty());
    ASSERT_EQ(machine.display.boxes.size(), 1u);
    EXPECT_EQ(machine.display.boxes[0].text, "L537 L541");
    EXPECT_EQ(machine.display.boxes[0].style, forms::msgbox::Exclamation);
}

TEST(OptionsVolumeCheck, LooksOnTheCurrentDriveWithoutALetter) {
    OptionsFixture machine;
    machine.options().txtVolumeCheckHD.setText("");
    machine.options().cmdVolumeCheck.press();
    EXPECT_TRUE(machine.machine.processes.started.empty());
    machine.files().putFile("C:\\Windows\\System32\\chkdsk.exe");
    machine.options().cmdVolumeCheck.press();
    ASSERT_EQ(machine.machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.machine.processes.started[0]->commandLine, "chkdsk.exe  /f");
    EXPECT_EQ(machine.display.boxes.size(), 1u);
}

TEST(OptionsVolumeCheck, TellsWhereTheSystemDoesNotStartIt) {
    OptionsFixture machine;
    machine.files().putFile("C:\\Windows\\System32\\chkdsk.exe");
    machine.machine.processes.failToStart = true;
    machine.options().cmdVolumeCheck.press();
    ASSERT_EQ(machine.display.boxes.size(), 1u);
    EXPECT_EQ(machine.display.boxes[0].text, "L537 This system cannot start chkdsk.exe.");
    EXPECT_EQ(machine.display.boxes[0].style, forms::msgbox::Exclamation);
}

TEST(OptionsVolumeCheck, HasABoxWhoseTickIsStoredOnlyAndSaysSo) {
    OptionsFixture machine;
    EXPECT_EQ(machine.options().chkVolumeCheck.Caption.get(), "L886");
    EXPECT_EQ(machine.options().chkVolumeCheck.ToolTipText.get(), "L888");
    machine.options().chkVolumeCheck.Value = 1;
    machine.options().cmdOK.setValue(true);
    EXPECT_EQ(machine.stored("chkVolumeCheck"), "1");
    EXPECT_TRUE(machine.machine.processes.started.empty());
}

TEST(OptionsMemory, TellsWhereTheSystemDoesNotStartTheModule) {
    OptionsFixture machine;
    machine.putBeside("memtrim.exe", "");
    machine.machine.processes.failToStart = true;
    machine.display.answers = {forms::msgbox::Yes};
    machine.options().cmdCleanRAM.press();
    ASSERT_EQ(machine.display.boxes.size(), 2u);
    EXPECT_EQ(machine.display.boxes[1].text, "This system cannot start C:\\Program Files\\Tidvane\\memtrim.exe.");
    EXPECT_EQ(machine.display.boxes[1].style, forms::msgbox::Exclamation);
}

TEST(OptionsUnattended, BringUpNoBoxThatWouldHoldUpTheEndOfTheSession) {
    OptionsFixture machine;
    machine.putOptions({{"chkTrash", "1"}, {"cboKillMethod", "1"}});
    machine.program.unattended = true;
    EXPECT_FALSE(machine.options().chkTrash.ticked());
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST(OptionsMemory, AsksAndStartsTheModule) {
    OptionsFixture machine;
    machine.putBeside("memtrim.exe", "");
    machine.display.answers = {forms::msgbox::No, forms::msgbox::Yes};
    machine.options().cmdCleanRAM.press();
    EXPECT_TRUE(machine.machine.processes.started.empty());
    machine.options().cmdCleanRAM.press();
    ASSERT_EQ(machine.machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.machine.processes.started[0]->commandLine, "C:\\Program Files\\Tidvane\\memtrim.exe");
    EXPECT_EQ(machine.display.boxes[0].text, "L139");
    EXPECT_EQ(machine.display.boxes[0].title, "L140");
    EXPECT_EQ(machine.display.boxes[0].style, forms::msgbox::YesNo + forms::msgbox::Exclamation);
}

TEST(OptionsRegistryAddIn, PutsThePathOfALongerFileIntoTheBox) {
    OptionsFixture machine;
    machine.files().putFile("C:\\regsweep.exe", "MZ\r\nmore\r\n");
    machine.display.files = {"C:\\regsweep.exe"};
    machine.options().chkAddInRegClean.Value = 1;
    machine.options().cmdAddInRegCleanBrowse.press();
    EXPECT_EQ(machine.options().txtAddInRegCleanPath.Text(), "C:\\regsweep.exe");
}

TEST(OptionsRegistryAddIn, PutsTheOnlyLineOfAFileIntoTheBox) {
    OptionsFixture machine;
    machine.files().putFile("C:\\one.txt", "D:\\tools\\regsweep.exe\r\n");
    machine.display.files = {"C:\\one.txt"};
    machine.options().chkAddInRegClean.Value = 1;
    machine.options().cmdAddInRegCleanBrowse.press();
    EXPECT_EQ(machine.options().txtAddInRegCleanPath.Text(), "D:\\tools\\regsweep.exe");
}

TEST(OptionsRegistryAddIn, ReadsNoMoreOfAFileThanTellsItsLinesApart) {
    OptionsFixture machine;
    // One endless line, as a picture of a disc may be one.
    machine.files().putFile("C:\\disc.iso", std::string(200'000, 'x'));
    machine.display.files = {"C:\\disc.iso"};
    machine.options().chkAddInRegClean.Value = 1;
    machine.options().cmdAddInRegCleanBrowse.press();
    EXPECT_EQ(machine.options().txtAddInRegCleanPath.Text(), "C:\\disc.iso");
}

TEST(OptionsRegistryAddIn, LeavesTheBoxWhenNoFileWasChosen) {
    OptionsFixture machine;
    machine.options().chkAddInRegClean.Value = 1;
    machine.options().txtAddInRegCleanPath.setText("C:\\old.exe");
    machine.options().cmdAddInRegCleanBrowse.press();
    EXPECT_EQ(machine.options().txtAddInRegCleanPath.Text(), "C:\\old.exe");
}

TEST(OptionsMenuOrder, RemovesTheStoredOrderAndTellsIt) {
    OptionsFixture machine;
    auto& registry = machine.program.platform.registry;
    platform::HKey key = 0;
    bool created = false;
    const std::string order = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder";
    for (const char* menu : {"\\Start Menu\\Programs", "\\Favorites"}) {
        ASSERT_EQ(registry.RegCreateKeyExA(platform::HKEY_CURRENT_USER_, order + menu, 63, key, created), 0);
        registry.RegCloseKey(key);
    }
    machine.options().cmdAlphabetizeStartMenuManual.press();
    EXPECT_NE(registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, order + "\\Start Menu", 63, key), 0);
    EXPECT_EQ(registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, order + "\\Favorites", 63, key), 0);
    registry.RegCloseKey(key);
    machine.options().cmdAlphabetizeFavoritesManual.press();
    EXPECT_NE(registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, order + "\\Favorites", 63, key), 0);

    // Nothing is left to remove.
    machine.options().cmdAlphabetizeStartMenuManual.press();
    machine.options().cmdAlphabetizeFavoritesManual.press();
    ASSERT_EQ(machine.display.boxes.size(), 4u);
    EXPECT_EQ(machine.display.boxes[0].text, "L218 <OK>");
    EXPECT_EQ(machine.display.boxes[1].text, "L218 <OK>");
    EXPECT_EQ(machine.display.boxes[1].style, forms::msgbox::Information);
    EXPECT_EQ(machine.display.boxes[2].text, "L218 L497");
    EXPECT_EQ(machine.display.boxes[3].text, "L219 L497");
    EXPECT_EQ(machine.display.boxes[3].style, forms::msgbox::Exclamation);
}

TEST(OptionsSound, IsChosenAndPlayed) {
    OptionsFixture machine;
    machine.display.files = {"C:\\ding.wav"};
    machine.options().chkPurgeSound.Value = 1;
    machine.options().cmdPurgeSound.press();
    EXPECT_EQ(machine.options().txtPurgeSound.Text(), "C:\\ding.wav");
    EXPECT_EQ(machine.display.fileQuestions.at(0).filter, "Alle Dateien (*.wav)|*.wav");
    machine.options().cmdPurgeSoundTest.press();
    EXPECT_EQ(machine.display.sounds, (Calls{"C:\\ding.wav"}));
}

TEST(OptionsLogFont, ChangesTheLogAtOnceAndTheFileOnlyWithOk) {
    OptionsFixture machine;
    machine.display.fonts = {forms::FontChoice{"Arial", 11, false, true, 0x123456u}};
    machine.options().cmdLogBarFont.press();
    EXPECT_EQ(machine.report.font.name, "Arial");
    EXPECT_EQ(machine.report.font.colour, 0x123456u);
    EXPECT_EQ(machine.beside("td_flog.dat"), std::nullopt);
    // Cancelled: it stays.
    machine.options().cmdLogBarFont.press();
    EXPECT_EQ(machine.report.font.name, "Arial");
    machine.options().cmdOK.setValue(true);
    EXPECT_EQ(machine.beside("td_flog.dat"), "Arial\r\n11\r\nFalse\r\nTrue\r\n");
}

TEST(OptionsLogFolder, IsChosenByDialog) {
    OptionsFixture machine;
    machine.display.folders = {"C:\\Logs"};
    machine.options().cmdFolderScan.press();
    EXPECT_EQ(machine.options().txtTidvaneLog.Text(), "C:\\Logs");
}

// --- the font file

TEST(LogFontFile, ComesBackAsWritten) {
    OptionsFixture machine;
    const forms::FontChoice font{"Verdana", 10.5, true, true, 7};
    ASSERT_TRUE(platform::ok(writeLogFont(machine.program, font)));
    const auto read = readLogFont(machine.program, {"x", 1, false, false, 3});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name, "Verdana");
    EXPECT_EQ(read->size, 10.5);
    EXPECT_TRUE(read->bold);
    EXPECT_TRUE(read->italic);
    EXPECT_EQ(read->colour, 3u);
}

TEST(LogFontFile, LeavesThePartsThatCannotBeRead) {
    OptionsFixture machine;
    machine.putBeside("td_flog.dat", "\r\nbig\r\nTrue");
    const auto read = readLogFont(machine.program, {"Arial", 8.25, false, true, 0});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name, "Arial");
    EXPECT_EQ(read->size, 8.25);
    EXPECT_TRUE(read->bold);
    EXPECT_TRUE(read->italic);
}

TEST(LogFontFile, LeavesASizeThatNoTextBoxTakes) {
    OptionsFixture machine;
    for (const char* size : {"1e300", "100000", "2160.5", "0", "-8", "nan", "inf", "1e-400", "1e400"}) {
        machine.putBeside("td_flog.dat", std::string("Arial\r\n") + size + "\r\nTrue\r\nFalse\r\n");
        const auto read = readLogFont(machine.program, {"x", 8.25, false, true, 0});
        ASSERT_TRUE(read);
        EXPECT_EQ(read->size, 8.25) << size;
        EXPECT_EQ(read->name, "Arial");
        EXPECT_TRUE(read->bold);
    }
    machine.putBeside("td_flog.dat", "Arial\r\n2160\r\n");
    EXPECT_EQ(readLogFont(machine.program, {})->size, 2160);
}

TEST(LogFontFile, MayBeMissing) {
    OptionsFixture machine;
    EXPECT_FALSE(readLogFont(machine.program, {}));
}

}  // namespace
}  // namespace tidvane::settings
