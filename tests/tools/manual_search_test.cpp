// The search wizard: its pages, and its walk on a machine in memory.
#include "tools/frmManualSearch.h"

#include "support/app_fixture.h"

namespace tidvane::tests {
namespace {

using Lines = std::vector<std::string>;
namespace attribute = platform::attribute;
using forms::msgbox::Yes;

struct ManualSearch : AppFixture {
    tools::frmManualSearch& window() {
        start();
        return program.get<tools::frmManualSearch>();
    }
    void put(const std::string& path) { machine.files.putFile(path, "x"); }
    bool has(const std::string& path) { return machine.files.has(path); }
    void method(int row) { options().cboKillMethod.setListIndex(row); }
    Lines log() { return linesOf(window().txtLog.Text()); }
    void toPageTwo(const std::string& mask) {
        window().txtSearchMask.setText(mask);
        window().tmrManualSearch.fire();
        window().cmdNext.press();
    }
    // The whole way of a user who gives a folder.
    Lines search(const std::string& mask, const std::string& folder = "C:\\D") {
        options().txtPurgeSpeed.setText("0");
        toPageTwo(mask);
        window().txtFolderScanPath.setText(folder);
        window().cmdSearch.press();
        return log();
    }
    std::string methodLine(int entry) { return text(730) + ": " + text(entry); }
    std::string startLine(const std::string& mask) { return text(514) + " [" + mask + "] " + text(830); }
    std::string endLine(const std::string& mask) { return "[" + mask + "] " + text(830) + " " + text(831) + " <OK>"; }
    Lines framed(const std::string& mask, const Lines& found, int method = 732) {
        Lines lines{methodLine(method), startLine(mask)};
        lines.insert(lines.end(), found.begin(), found.end());
        lines.push_back(endLine(mask));
        return lines;
    }
    // Which buttons can be pressed, by their first letter.
    std::string offered() {
        auto& wizard = window();
        std::string on;
        for (controls::isButton* button :
             {&wizard.cmdBack, &wizard.cmdNext, &wizard.cmdSearch, &wizard.cmdStop, &wizard.cmdOK, &wizard.cmdCancel}) {
            if (button->Enabled && button->Visible) on += (on.empty() ? "" : " ") + button->Name.substr(3);
        }
        return on;
    }
    int page() {
        int number = 0;
        int shown = 0;
        for (const forms::Frame* frame :
             {&window().frmWizardStep1, &window().frmWizardStep2, &window().frmWizardStepFinal}) {
            ++number;
            if (frame->Visible) shown = shown * 10 + number;
        }
        return shown;
    }
};

// --- the pages

TEST_F(ManualSearch, StartsOnTheFirstPageAndOffersNextForAnExtensionMaskAlone) {
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(offered(), "Cancel");
    for (const char* mask : {"tmp", "a*.tmp", "", "*", "*tmp", ".tmp", " *.tmp", "?.tmp"}) {
        window().txtSearchMask.setText(mask);
        window().tmrManualSearch.fire();
        EXPECT_EQ(offered(), "Cancel") << mask;
    }
    for (const char* mask : {"*.tmp", "*.*", "*."}) {
        window().txtSearchMask.setText(mask);
        window().tmrManualSearch.fire();
        EXPECT_EQ(offered(), "Next Cancel") << mask;
    }
}

TEST_F(ManualSearch, NextAndBackChangeThePages) {
    toPageTwo("*.tmp");
    EXPECT_EQ(page(), 2);
    EXPECT_EQ(offered(), "Back Search Cancel");
    window().tmrManualSearch.fire();
    EXPECT_EQ(offered(), "Back Search Cancel");
    window().cmdBack.press();
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(offered(), "Next Cancel");
}

TEST_F(ManualSearch, AllDrivesSwitchTheFolderOff) {
    window().chkScanAllFixedDrives.Value = 1;
    EXPECT_FALSE(window().txtFolderScanPath.Enabled);
    EXPECT_FALSE(window().cmdFolderScan.Enabled);
    window().chkScanAllFixedDrives.Value = 2;
    EXPECT_TRUE(window().txtFolderScanPath.Enabled);
    window().chkScanAllFixedDrives.Value = 1;
    window().chkScanAllFixedDrives.Value = 0;
    EXPECT_TRUE(window().txtFolderScanPath.Enabled);
    EXPECT_TRUE(window().cmdFolderScan.Enabled);
}

TEST_F(ManualSearch, TheFolderDialogFillsTheBoxUnlessItIsCancelled) {
    display.folders = {"C:\\Chosen"};
    window().cmdFolderScan.press();
    EXPECT_EQ(window().txtFolderScanPath.Text(), "C:\\Chosen");
    window().cmdFolderScan.press();
    EXPECT_EQ(window().txtFolderScanPath.Text(), "C:\\Chosen");
    EXPECT_EQ(display.folderTitles[0], text(825));
}

TEST_F(ManualSearch, OpensFromTheToolsMenuAndFromTheOptionsWindow) {
    main().menu("mnuManualSearch").Click();
    ASSERT_FALSE(display.shown.empty());
    EXPECT_EQ(display.shown.back().window, "frmManualSearch");
    EXPECT_FALSE(display.shown.back().modal);
    options().ExplorerBar2.clickItem(1, 5);
    EXPECT_EQ(display.shown.back().window, "frmManualSearch");
    EXPECT_EQ(display.shown.back().owner, "frmOptions");
    EXPECT_TRUE(display.shown.back().modal);
}

TEST_F(ManualSearch, TakesItsCaptionsFromTheTable) {
    EXPECT_EQ(window().Caption, text(828));
    EXPECT_EQ(window().frmWizard.Caption, text(829));
    EXPECT_EQ(window().lblStep1.Caption, text(832));
    EXPECT_EQ(window().lblInfo1.Caption, text(833));
    EXPECT_EQ(window().lblDetails1.Caption, text(834));
    EXPECT_EQ(window().lblStep2.Caption, text(835));
    EXPECT_EQ(window().lblInfo2.Caption, text(836));
    EXPECT_EQ(window().lblDetails2.Caption, text(837));
    EXPECT_EQ(window().chkScanAllFixedDrives.Caption, text(838));
    EXPECT_EQ(window().frmWizardStep1.Caption, text(839));
    EXPECT_EQ(window().frmWizardStep2.Caption, text(840));
    EXPECT_EQ(window().frmWizardStepFinal.Caption, text(841));
    EXPECT_EQ(window().txtSearchMask.ToolTipText, text(842));
    EXPECT_EQ(window().cmdNext.Caption, text(843));
    EXPECT_EQ(window().cmdBack.Caption, text(844));
    EXPECT_EQ(window().cmdOK.Caption, text(845));
    EXPECT_EQ(window().cmdCancel.Caption, text(301));
    EXPECT_EQ(window().cmdStop.Caption, text(121));
    EXPECT_EQ(window().cmdSearch.Caption, text(559));
    EXPECT_EQ(window().cmdFolderScan.Caption, text(352));
}

TEST_F(ManualSearch, EveryWayOfClosingStoresTheStateButNotTheLog) {
    put("C:\\D\\a.tmp");
    const auto close = [&](const std::function<void()>& way, const std::string& mask) {
        window().txtSearchMask.setText(mask);
        window().txtFolderScanPath.setText("C:\\" + mask.substr(2));
        window().chkScanAllFixedDrives.Value = 1;
        way();
        EXPECT_EQ(program.windows.ifLoaded("frmManualSearch"), nullptr);
        EXPECT_EQ(storedValue("frmManualSearch", "txtSearchMask"), mask);
        EXPECT_EQ(storedValue("frmManualSearch", "txtFolderScanPath"), "C:\\" + mask.substr(2));
        EXPECT_EQ(storedValue("frmManualSearch", "chkScanAllFixedDrives"), "1");
        EXPECT_EQ(storedValue("frmManualSearch", "txtLog"), "<none>");
    };
    search("*.tmp");
    close([&] { window().cmdOK.press(); }, "*.ok");
    close([&] { window().cmdCancel.press(); }, "*.cancel");
    close([&] { program.windows.unload(window(), forms::UnloadMode::ControlMenu); }, "*.x");
    EXPECT_EQ(window().txtSearchMask.Text(), "*.x");
    EXPECT_EQ(window().txtFolderScanPath.Text(), "C:\\x");
    EXPECT_TRUE(window().chkScanAllFixedDrives.ticked());
    EXPECT_FALSE(window().txtFolderScanPath.Enabled);
    EXPECT_EQ(window().txtLog.Text(), "");
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(offered(), "Next Cancel");
}

TEST_F(ManualSearch, AnEmptiedFolderIsToldBeforeItComesBack) {
    window().txtFolderScanPath.setText("C:\\D");
    window().cmdCancel.press();
    window().txtFolderScanPath.setText("");
    EXPECT_TRUE(display.warnings.empty());
    window().cmdCancel.press();
    ASSERT_EQ(display.warnings.size(), 1U);
    EXPECT_NE(display.warnings[0].find("C:\\D"), std::string::npos) << display.warnings[0];
    EXPECT_EQ(window().txtFolderScanPath.Text(), "C:\\D");
}

TEST_F(ManualSearch, ABadStoredValueEndsItsLoadInSilence) {
    store({"txtSearchMask=*.tmp", "chkScanAllFixedDrives=on", "txtFolderScanPath=C:\\lost"}, "frmManualSearch");
    EXPECT_EQ(window().txtSearchMask.Text(), "*.tmp");
    EXPECT_EQ(window().txtFolderScanPath.Text(), "");
    EXPECT_EQ(page(), 1);
}

TEST_F(ManualSearch, ShowsTheCaretOfItsLog) {
    window().txtLog.setText("first\r\nsecond");
    window().txtLog.select(9, 0);
    window().tmrManualSearch.fire();
    EXPECT_EQ(window().StatusBar1.Panel(2), text(848) + " 2");
    EXPECT_EQ(window().StatusBar1.Panel(3), text(849) + " 3 / 6");
    window().txtLog.select(0, 0);
    window().tmrManualSearch.fire();
    EXPECT_EQ(window().StatusBar1.Panel(2), text(848) + " 1");
    EXPECT_EQ(window().StatusBar1.Panel(3), text(849) + " 1 / 5");
}

TEST_F(ManualSearch, TellsOfNoCaretWhileThereIsNoLog) {
    window().tmrManualSearch.fire();
    EXPECT_EQ(window().StatusBar1.Panel(2), "");
    EXPECT_EQ(window().StatusBar1.Panel(3), "");
}

// --- the walk

TEST_F(ManualSearch, DeletesAllFilesOfTheTypeBelowTheFolder) {
    for (const char* name : {"a.tmp", "b.tmp", "keep.txt", "sub\\c.tmp", "sub\\deep\\d.TMP", "sub\\keep.doc"}) {
        put(std::string("C:\\D\\") + name);
    }
    put("C:\\other.tmp");
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {"C:\\D\\b.tmp <OK>", "C:\\D\\sub\\ <OK>", "C:\\D\\sub\\deep\\ <OK>"}));
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"),
              (Lines{"C:\\D\\keep.txt", "C:\\D\\sub\\", "C:\\D\\sub\\deep\\", "C:\\D\\sub\\keep.doc"}));
    EXPECT_TRUE(has("C:\\other.tmp"));
    EXPECT_EQ(page(), 3);
    EXPECT_EQ(offered(), "Back OK");
    EXPECT_EQ(window().StatusBar1.Panel(1), text(624) + " 11/3/2009 12:00:00 PM");
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_EQ(window().txtLog.SelStart(), window().txtLog.length());
}

TEST_F(ManualSearch, WritesTheTimeOnlyWithTheBoxTickedWhichTakesItFromTheMainLog) {
    options().chkLogTimestamp.Value = 1;
    EXPECT_EQ(search("*.tmp")[0], "12:00:00 PM " + methodLine(732));
    window().txtLog.setText("");
    options().chkLogTimestamp.Value = 2;
    window().cmdBack.press();
    window().cmdSearch.press();
    EXPECT_EQ(log()[0], methodLine(732));
}

TEST_F(ManualSearch, PausesBehindEachLine) {
    put("C:\\D\\a.tmp");
    options().txtPurgeSpeed.setText("10");
    toPageTwo("*.tmp");
    window().txtFolderScanPath.setText("C:\\D");
    const auto before = machine.clock.sleeps;
    window().cmdSearch.press();
    EXPECT_EQ(machine.clock.sleeps - before, log().size());
    EXPECT_EQ(log().size(), 4u);
}

TEST_F(ManualSearch, ReadsEachFolderOnce) {
    for (int i = 0; i < 20; ++i) put("C:\\D\\f" + std::to_string(i) + "\\keep.txt");
    window();
    const auto before = machine.files.foldersRead;
    const auto pumps = machine.events.pumps;
    search("*.tmp");
    EXPECT_EQ(machine.files.foldersRead - before, 21u);
    EXPECT_EQ(machine.events.pumps - pumps, 21u);
}

TEST_F(ManualSearch, SearchesAllFixedDrivesAndNoOthers) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 1, 2);
    machine.files.addDrive('E', platform::DriveType::CdRom, 1, 2);
    machine.files.addDrive('F', platform::DriveType::Removable, 1, 2);
    for (const char* path : {"C:\\a.tmp", "D:\\a.tmp", "E:\\a.tmp", "F:\\a.tmp"}) put(path);
    window().chkScanAllFixedDrives.Value = 1;
    EXPECT_EQ(search("*.tmp", "E:\\"), framed("*.tmp", {"C:\\ <OK>", "D:\\ <OK>"}));
    EXPECT_FALSE(has("C:\\a.tmp"));
    EXPECT_FALSE(has("D:\\a.tmp"));
    EXPECT_TRUE(has("E:\\a.tmp"));
    EXPECT_TRUE(has("F:\\a.tmp"));
}

TEST_F(ManualSearch, SetsNothingAside) {
    for (const char* name : {"opa12.bak", "cacert.bak", "uninstal.bak"}) put(std::string("C:\\D\\") + name);
    put("C:\\D\\opa13.bak_copy");
    search("*.bak");
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (Lines{"C:\\D\\opa13.bak_copy"}));
}

TEST_F(ManualSearch, AStarAndADotMeansNamesWithoutAnExtension) {
    for (const char* name : {"README", "a.txt", "hosts", ".rc"}) put(std::string("C:\\D\\") + name);
    EXPECT_EQ(search("*."), framed("*.", {"C:\\D\\README <OK>"}));
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (Lines{"C:\\D\\.rc", "C:\\D\\a.txt"}));
}

TEST_F(ManualSearch, LeavesHiddenAndSystemFilesFoldersAndLinksTargets) {
    put("C:\\keep\\wanted.tmp");
    put("C:\\D\\hidden.tmp");
    machine.files.setAttributes("C:\\D\\hidden.tmp", attribute::Hidden);
    put("C:\\D\\system.tmp");
    machine.files.setAttributes("C:\\D\\system.tmp", attribute::System);
    put("C:\\D\\folder.tmp\\keep.txt");
    machine.files.putLink("C:\\D\\link", "C:\\keep");
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {}));
    EXPECT_TRUE(has("C:\\keep\\wanted.tmp"));
    EXPECT_TRUE(has("C:\\D\\hidden.tmp"));
    EXPECT_TRUE(has("C:\\D\\folder.tmp\\keep.txt"));
}

TEST_F(ManualSearch, LogsAsDoneWhatCouldNotBeDeleted) {
    put("C:\\D\\a.tmp");
    machine.files.lock("C:\\D\\a.tmp");
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {"C:\\D\\ <OK>"}));
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
}

TEST_F(ManualSearch, RecyclesByTheChosenMethodAndStaysOutOfTheBin) {
    method(1);
    put("C:\\D\\a.tmp");
    put("E:\\$Recycle.Bin\\S-1\\unit.tmp");
    put("E:\\b.tmp");
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {"C:\\D\\ <OK>"}, 733));
    window().cmdBack.press();
    window().txtFolderScanPath.setText("E:\\");
    window().cmdSearch.press();
    ASSERT_EQ(machine.shell.recycled.size(), 2u);
    EXPECT_EQ(machine.shell.recycled[1].originalPath, "E:\\b.tmp");
    EXPECT_TRUE(has("E:\\$Recycle.Bin\\S-1\\unit.tmp"));
}

TEST_F(ManualSearch, DeletesForGoodWhatTheBinRefusedAndTellsTheNumber) {
    method(1);
    put("C:\\D\\a.tmp");
    put("C:\\D\\b.tmp");
    machine.shell.fileOperationFails = 5;
    display.warnings.clear();
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {"C:\\D\\b.tmp <OK>"}, 733));
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
    ASSERT_EQ(display.warnings.size(), 1u);
    EXPECT_NE(display.warnings[0].find("refused 2 file"), std::string::npos);
    // A search that has nothing of the kind says nothing.
    machine.shell.fileOperationFails = 0;
    put("C:\\D\\c.tmp");
    window().cmdBack.press();
    window().cmdSearch.press();
    EXPECT_EQ(display.warnings.size(), 1u);
}

TEST_F(ManualSearch, ReadsTheMethodInEachFolder) {
    put("C:\\D\\a\\1.tmp");
    put("C:\\D\\b\\2.tmp");
    window();
    machine.events.onPump(3, [this] { method(1); });
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {"C:\\D\\a\\ <OK>", "C:\\D\\b\\ <OK>"}));
    ASSERT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\D\\b\\2.tmp");
}

TEST_F(ManualSearch, WithoutAReadableMethodNoLineTellsOfItAndTheSecondAttemptStillDeletes) {
    put("C:\\D\\a.tmp");
    window();
    options().txtPurgeSpeed.setText("0");
    for (int entry = 732; entry <= 734; ++entry) program.LangText.set(entry, "renamed");
    EXPECT_EQ(search("*.tmp"), (Lines{startLine("*.tmp"), endLine("*.tmp")}));
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
}

TEST_F(ManualSearch, ABadFolderDeletesNothingAndClosesAsUsual) {
    put("C:\\D\\a.tmp");
    put("C:\\a.tmp");
    put("C:\\closed\\a.tmp");
    machine.files.deny("C:\\closed");
    int searches = 0;
    for (const char* folder : {"C:\\missing", "Q:\\", "D", "..\\D", "D\\..", "\\", "\\D", "C:D", "C:\\D\\a.tmp",
                               "C:\\D*", "\\\\server\\share", "\\\\?\\C:\\D", "C:\\closed", " ", "%TEMP%"}) {
        EXPECT_EQ(
            searches++ == 0 ? search("*.tmp", folder).size() : search("*.tmp", folder).size() - 3u * (searches - 1), 3u)
            << folder;
        window().cmdBack.press();
        window().cmdBack.press();
    }
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
    EXPECT_TRUE(has("C:\\a.tmp"));
    EXPECT_TRUE(has("C:\\closed\\a.tmp"));
}

TEST_F(ManualSearch, OddMasksThatGetPastTheFirstPageMatchNoMoreThanNames) {
    put("C:\\D\\a.tmp");
    put("C:\\D\\sub\\b.tmp");
    put("C:\\D\\x.y");
    for (const char* mask : {"*.\\*", "*.\\..\\*", "*.tmp\\*", "*./*", "*.a,*.tmp", "*.\"tmp\"", "*.tmp|", "*.."}) {
        search(mask);
        window().cmdBack.press();
        window().cmdBack.press();
    }
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
    EXPECT_TRUE(has("C:\\D\\sub\\b.tmp"));
    EXPECT_TRUE(has("C:\\D\\x.y"));
}

TEST_F(ManualSearch, GoesDownADeepTree) {
    std::string folder = "C:\\D";
    for (int i = 0; i < 400; ++i) folder += "\\d";
    put(folder + "\\a.tmp");
    EXPECT_EQ(search("*.tmp"), framed("*.tmp", {folder + "\\ <OK>"}));
    EXPECT_FALSE(has(folder + "\\a.tmp"));
}

// --- questions

TEST_F(ManualSearch, AsksBeforeAMaskThatMatchesEveryName) {
    put("C:\\D\\a.txt");
    display.questionAnswer = forms::msgbox::No;
    EXPECT_EQ(search("*.*"), Lines{});
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_NE(display.boxes[0].text.find("*.*"), std::string::npos);
    EXPECT_NE(display.boxes[0].text.find("C:\\D"), std::string::npos);
    EXPECT_EQ(display.boxes[0].style,
              forms::msgbox::YesNo + forms::msgbox::Exclamation + forms::msgbox::DefaultButton2);
    EXPECT_TRUE(has("C:\\D\\a.txt"));
    EXPECT_EQ(page(), 2);
    EXPECT_EQ(offered(), "Back Search Cancel");

    display.questionAnswer = Yes;
    window().cmdSearch.press();
    EXPECT_EQ(log(), framed("*.*", {"C:\\D\\ <OK>"}));
    EXPECT_FALSE(has("C:\\D\\a.txt"));
}

TEST_F(ManualSearch, AsksBeforeTheWholeDriveWhereNoFolderIsGiven) {
    put("C:\\deep\\a.tmp");
    put("D:\\a.tmp");
    display.questionAnswer = forms::msgbox::No;
    EXPECT_EQ(search("*.tmp", ""), Lines{});
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_NE(display.boxes[0].text.find("C:\\?"), std::string::npos) << display.boxes[0].text;
    EXPECT_TRUE(has("C:\\deep\\a.tmp"));
    // The root of the current drive, which is the program's.
    display.questionAnswer = Yes;
    window().cmdSearch.press();
    EXPECT_EQ(log(), framed("*.tmp", {"C:\\deep\\ <OK>"}));
    EXPECT_TRUE(has("D:\\a.tmp"));
}

TEST_F(ManualSearch, AsksInGermanWhereTheProgramIsGerman) {
    speakGerman();
    put("C:\\a.txt");
    display.questionAnswer = forms::msgbox::No;
    search("*.*", "");
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].text,
              "Es ist kein Ordner angegeben: Das ganze Laufwerk wird durchsucht.\r\n"
              "Auf die Maske *.* passt jeder Dateiname.\r\n\r\n"
              "Alle Dateien unter C:\\ löschen, die auf *.* passen?");
    window().chkScanAllFixedDrives.Value = 1;
    EXPECT_EQ(window().questionBeforeSearch(),
              "Auf die Maske *.* passt jeder Dateiname.\r\n\r\n"
              "Alle Dateien auf allen Festplatten löschen, die auf *.* passen?");
    EXPECT_TRUE(has("C:\\a.txt"));
}

TEST_F(ManualSearch, TellsInGermanWhatTheBinRefused) {
    speakGerman();
    method(1);
    put("C:\\D\\a.tmp");
    machine.shell.fileOperationFails = 5;
    display.warnings.clear();
    search("*.tmp");
    EXPECT_EQ(display.warnings, Lines{"Der Papierkorb hat 1 Datei(en) nicht angenommen; ein zweiter Versuch hat sie "
                                      "endgültig gelöscht."});
}

TEST_F(ManualSearch, AsksForAllDrivesByTheMaskAndNotByTheEmptyFolder) {
    window().chkScanAllFixedDrives.Value = 1;
    search("*.tmp", "");
    EXPECT_TRUE(display.boxes.empty());
    window().cmdBack.press();
    window().txtSearchMask.setText("*.?*");
    EXPECT_NE(window().questionBeforeSearch().find("all fixed drives"), std::string::npos);
    window().txtSearchMask.setText("*. ");  // a blank at the end is dropped with the dot in front of it
    EXPECT_NE(window().questionBeforeSearch(), "");
    window().txtSearchMask.setText("*.");
    EXPECT_EQ(window().questionBeforeSearch(), "");
}

TEST_F(ManualSearch, AFrontEndThatHasAskedIsNotAskedAgain) {
    put("C:\\D\\a.txt");
    window().asksBeforeSearch = false;
    search("*.*");
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_FALSE(has("C:\\D\\a.txt"));
}

// --- the stop

TEST_F(ManualSearch, OffersTheStopAloneWhileItWorks) {
    put("C:\\D\\a.tmp");
    window();
    std::string during;
    int shown = 0;
    machine.events.onPump(1, [&] {
        during = offered();
        shown = page();
        window().tmrManualSearch.fire();
        EXPECT_EQ(offered(), "Stop");
        EXPECT_TRUE(window().isSearching());
        EXPECT_EQ(window().StatusBar1.Panel(1), text(494) + " C:\\D\\");
    });
    search("*.tmp");
    EXPECT_EQ(during, "Stop");
    EXPECT_EQ(shown, 3);
    EXPECT_FALSE(window().isSearching());
}

TEST_F(ManualSearch, AStopIsSeenInTheFolderWhosePumpItCameWith) {
    put("C:\\D\\a.tmp");
    put("C:\\D\\sub\\b.tmp");
    put("C:\\D\\sub\\deep\\c.tmp");
    put("C:\\D\\zero\\d.tmp");
    window();
    Lines visited;
    std::string behindStop;
    machine.events.everyPump = [&] { visited.push_back(window().StatusBar1.Panel(1)); };
    machine.events.onPump(2, [&] {
        window().cmdStop.press();
        behindStop = window().StatusBar1.Panel(1);
        EXPECT_EQ(offered(), "Back");  // OK comes when the walk has returned
    });
    EXPECT_EQ(search("*.tmp"),
              (Lines{methodLine(732), startLine("*.tmp"), "C:\\D\\ <OK>", "***** " + text(554) + "*****"}));
    EXPECT_EQ(behindStop, "***** " + text(554) + " *****");
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
    EXPECT_TRUE(has("C:\\D\\sub\\b.tmp"));
    EXPECT_TRUE(has("C:\\D\\sub\\deep\\c.tmp"));
    EXPECT_TRUE(has("C:\\D\\zero\\d.tmp"));
    // The walk returns over the folders that were still to come, and not into them.
    ASSERT_EQ(visited.size(), 3u);
    EXPECT_EQ(visited[2], text(494) + " C:\\D\\zero\\");
    EXPECT_EQ(offered(), "Back OK");
}

TEST_F(ManualSearch, AStopBeforeTheFirstFolderDeletesNothingOnAnyDrive) {
    put("C:\\a.tmp");
    put("D:\\a.tmp");
    window().chkScanAllFixedDrives.Value = 1;
    machine.events.onPump(1, [&] { window().cmdStop.press(); });
    EXPECT_EQ(search("*.tmp"), (Lines{methodLine(732), startLine("*.tmp"), "***** " + text(554) + "*****"}));
    EXPECT_TRUE(has("C:\\a.tmp"));
    EXPECT_TRUE(has("D:\\a.tmp"));
}

TEST_F(ManualSearch, TheNextSearchForgetsTheStop) {
    put("C:\\D\\a.tmp");
    window();
    machine.events.onPump(1, [&] { window().cmdStop.press(); });
    search("*.tmp");
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
    window().cmdBack.press();
    EXPECT_EQ(offered(), "Back Search OK");  // Cancel stays off: intended
    window().cmdSearch.press();
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
    EXPECT_EQ(log().back(), endLine("*.tmp"));
}

TEST_F(ManualSearch, IsNotStoppedByTheMainWindowsStopNorStopsItsRun) {
    put("C:\\D\\a.tmp");
    main().cmdStop_Click();
    search("*.tmp");
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
}

TEST_F(ManualSearch, BackBehindAStopOnlyChangesPages) {
    put("C:\\D\\a\\1.tmp");
    put("C:\\D\\b\\2.tmp");
    window();
    machine.events.onPump(2, [&] {
        window().cmdStop.press();
        window().cmdBack.press();
        EXPECT_EQ(page(), 2);
        EXPECT_EQ(offered(), "Back");
        window().cmdSearch.press();
        window().cmdSearch.Click();  // a search inside the search
        window().cmdBack.press();
        EXPECT_EQ(page(), 1);
        window().tmrManualSearch.fire();
        window().cmdNext.press();
        EXPECT_EQ(offered(), "Back");
    });
    search("*.tmp");
    EXPECT_EQ(log().size(), 3u);
    EXPECT_EQ(page(), 2);
    EXPECT_EQ(offered(), "Back Search OK");
    EXPECT_TRUE(has("C:\\D\\b\\2.tmp"));
}

TEST_F(ManualSearch, ClosingTheWindowEndsTheWalkAtTheNextFolder) {
    put("C:\\D\\a\\1.tmp");
    put("C:\\D\\b\\2.tmp");
    window();
    machine.events.onPump(3, [&] { program.windows.unload(window(), forms::UnloadMode::ControlMenu); });
    options().txtPurgeSpeed.setText("0");
    toPageTwo("*.tmp");
    window().txtFolderScanPath.setText("C:\\D");
    window().cmdSearch.press();
    EXPECT_FALSE(has("C:\\D\\a\\1.tmp"));
    EXPECT_TRUE(has("C:\\D\\b\\2.tmp"));
    EXPECT_EQ(program.windows.ifLoaded("frmManualSearch"), nullptr);
    EXPECT_EQ(storedValue("frmManualSearch", "txtSearchMask"), "*.tmp");
}

TEST_F(ManualSearch, TheEndOfTheProgramEndsTheWalk) {
    put("C:\\D\\a\\1.tmp");
    put("C:\\D\\b\\2.tmp");
    window();
    machine.events.onPump(3, [&] { program.UnloadAllForms(); });
    options().txtPurgeSpeed.setText("0");
    toPageTwo("*.tmp");
    window().txtFolderScanPath.setText("C:\\D");
    auto& wizard = window();
    wizard.cmdSearch.press();
    EXPECT_TRUE(program.ended());
    EXPECT_TRUE(has("C:\\D\\b\\2.tmp"));
}

}  // namespace
}  // namespace tidvane::tests
