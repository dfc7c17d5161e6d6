// The list of the plug-ins: how it is filled, its ticks, its search and its commands.
#include "app/menu_table.h"
#include "support/app_fixture.h"

namespace tidvane::app {
namespace {

using Names = std::vector<std::string>;

struct PlugInList : tests::AppFixture {
    PlugInList() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }

    void putPlugs(const Names& names) {
        for (const std::string& name : names)
            machine.files.putFile(pathOf(name), "[Info]\r\nTitle=The " + name + "\r\n");
    }
    static std::string pathOf(const std::string& name) { return inFolder("PlugIns\\" + name + ".tdp"); }
    Names rows() {
        Names names;
        for (int row = 0; row < main().LstPlugs.ListCount(); ++row) names.push_back(main().LstPlugs.List(row));
        return names;
    }
    Names ticked() {
        Names names;
        for (int row = 0; row < main().LstPlugs.ListCount(); ++row) {
            if (main().LstPlugs.Selected(row)) names.push_back(main().LstPlugs.List(row));
        }
        return names;
    }
    std::string ticksFile() { return machine.files.bytesOf(inFolder("td_apps.ini")).value_or("<none>"); }
    void click(const char* menu) { main().menu(menu).Click(); }
    std::string loaded(int count) { return text(576) + ": " + std::to_string(count) + " " + text(577) + " <OK>"; }
};

TEST_F(PlugInList, AnEmptyFolderAndNoneGiveNoRows) {
    EXPECT_EQ(rows(), Names{});
    EXPECT_TRUE(logHas(loaded(0)));
    machine.files.putFolder(inFolder("PlugIns"));
    main().log().empty();
    click("mnuRefreshPlugs");
    EXPECT_EQ(logLines(), Names{loaded(0)});
}

TEST_F(PlugInList, RowsAreNamesWithoutTheirLastExtensionSortedWithoutCase) {
    putPlugs({"b", "A", "a.b", "C"});
    machine.files.putFile(inFolder("PlugIns\\D.TDP"));
    machine.files.putFile(inFolder("PlugIns\\e.txt"));
    machine.files.putFile(inFolder("PlugIns\\f.tdpx"));
    machine.files.putFile(inFolder("PlugIns\\deep\\g.tdp"));
    EXPECT_EQ(rows(), (Names{"a.b", "A", "b", "C", "D"}));
    EXPECT_EQ(main().PlugFolder(), inFolder("PlugIns\\"));
    ASSERT_EQ(main().PlugPaths().size(), 5u);
    EXPECT_EQ(main().PlugPaths()[0], pathOf("a.b"));
    EXPECT_EQ(main().PlugPaths()[4], inFolder("PlugIns\\D.TDP"));
    EXPECT_TRUE(logHas(loaded(5)));
}

TEST_F(PlugInList, AFolderGetsARowAndHiddenFilesDoNot) {
    machine.files.putFolder(pathOf("x"));
    putPlugs({"hidden", "system"});
    machine.files.setAttributes(pathOf("hidden"), platform::attribute::Hidden);
    machine.files.setAttributes(pathOf("system"), platform::attribute::System);
    EXPECT_EQ(rows(), Names{"x"});
    main().plugCleaner().setFilename(main().PlugPaths()[0]);
    EXPECT_FALSE(main().plugCleaner().IsLoaded());
}

TEST_F(PlugInList, FillingLetsEventsInAtEachRow) {
    putPlugs({"a", "b", "c"});
    main();
    EXPECT_EQ(machine.events.pumps, 3u);
}

TEST_F(PlugInList, FillingAddsToTheRowsThatStand) {
    putPlugs({"a"});
    main().FillPlugList();
    EXPECT_EQ(rows(), (Names{"a", "a"}));
    EXPECT_EQ(main().PlugPaths().size(), 1u);
}

TEST_F(PlugInList, ARefreshInsideAFillLeavesEachRowOnce) {
    putPlugs({"a", "b", "c"});
    main();
    machine.events.onPump(2, [this] { main().plugListKeyDown(116); });
    main().log().empty();
    click("mnuRefreshPlugs");
    EXPECT_EQ(rows(), (Names{"a", "b", "c"}));
    EXPECT_EQ(main().PlugPaths().size(), 3u);
    EXPECT_EQ(logLines(), Names{loaded(3)});
}

// --- ticks -----------------------------------------------------------------------------------------------------------

TEST_F(PlugInList, TicksComeBackFromEveryFormInWhichTheyAreWritten) {
    putPlugs({"a", "b", "c", "d", "e", "f", "g", "h"});
    machine.files.putFile(inFolder("td_apps.ini"),
                          "[PlugIns]\r\na=1\r\nb=0\r\nc=-1\r\nd=True\r\ne=FALSE\r\nf=true\r\ng=yes\r\n");
    EXPECT_EQ(ticked(), (Names{"a", "c", "d", "f"}));
}

TEST_F(PlugInList, TicksComeBackFromTheWordsOfTheLocale) {
    speakGerman();
    putPlugs({"a", "b", "c", "d"});
    machine.files.putFile(inFolder("td_apps.ini"), "[PlugIns]\r\na=Wahr\r\nb=Falsch\r\nc=True\r\nd=0,5\r\n");
    EXPECT_EQ(ticked(), (Names{"a", "c", "d"}));
}

TEST_F(PlugInList, TheEndWritesOnesAndZeros) {
    putPlugs({"a", "b"});
    main().LstPlugs.setSelected(1, true);
    program.windows.unload(main());
    EXPECT_EQ(ticksFile(), "[PlugIns]\r\na=0\r\nb=1\r\n");
}

TEST_F(PlugInList, ARefreshWritesWordsAndReadsThemBack) {
    for (const bool german : {false, true}) {
        if (german) machine.system.systemLocale = base::germanLocale();
        putPlugs({"a", "b"});
        main().LstPlugs.setSelected(0, true);
        click("mnuRefreshPlugs");
        EXPECT_EQ(ticksFile(), "[PlugIns]\r\na=True\r\nb=False\r\n");
        EXPECT_EQ(ticked(), Names{"a"});
    }
}

TEST_F(PlugInList, ARefreshTakesWhatCameAndForgetsNoKeyOfWhatHasGone) {
    putPlugs({"a", "b"});
    machine.files.putFile(inFolder("td_apps.ini"), "[PlugIns]\r\nc=1\r\n");
    main().LstPlugs.setSelected(1, true);
    machine.files.take(pathOf("b"));
    putPlugs({"c", "d"});
    click("mnuRefreshPlugs");
    EXPECT_EQ(rows(), (Names{"a", "c", "d"}));
    EXPECT_EQ(ticked(), Names{"c"});
    EXPECT_EQ(ticksFile(), "[PlugIns]\r\nc=1\r\na=False\r\nb=True\r\n");
    putPlugs({"b"});
    click("mnuRefreshPlugs");
    EXPECT_EQ(ticked(), (Names{"b", "c"}));
}

TEST_F(PlugInList, ARefreshInsideARefreshKeepsTheStoredTicks) {
    putPlugs({"a", "b", "c"});
    main().LstPlugs.setSelected(0, true);
    main().LstPlugs.setSelected(2, true);
    machine.events.onPump(2, [this] { main().plugListKeyDown(116); });
    click("mnuRefreshPlugs");
    EXPECT_EQ(ticked(), (Names{"a", "c"}));
    EXPECT_EQ(ticksFile(), "[PlugIns]\r\na=True\r\nb=False\r\nc=True\r\n");
}

TEST_F(PlugInList, WhatIsTickedBehindARefreshInsideAnotherStands) {
    putPlugs({"a", "b", "c"});
    main();
    machine.events.onPump(2, [this] {
        main().plugListKeyDown(116);
        main().LstPlugs.setSelected(1, true);
    });
    click("mnuRefreshPlugs");
    EXPECT_EQ(ticked(), Names{"b"});
}

TEST_F(PlugInList, TheEndInsideARefreshKeepsTheStoredTicks) {
    putPlugs({"a", "b", "c"});
    frmMain& window = main();
    window.LstPlugs.setSelected(2, true);
    machine.events.onPump(1, [this] { program.UnloadAllForms(); });
    window.menu("mnuRefreshPlugs").Click();
    EXPECT_EQ(ticksFile(), "[PlugIns]\r\na=False\r\nb=False\r\nc=True\r\n") << "as the refresh wrote them";
}

TEST_F(PlugInList, ARefreshInsideTheFillOfTheStartKeepsTheStoredTicks) {
    const std::string stored = "[PlugIns]\r\na=1\r\nb=0\r\nc=1\r\n";
    putPlugs({"a", "b", "c"});
    machine.files.putFile(inFolder("td_apps.ini"), stored);
    bool inside = false;
    machine.events.onPump(2, [this, &inside] {
        inside = main().LstPlugs.ListCount() == 2;
        main().plugListKeyDown(116);
    });
    EXPECT_EQ(ticked(), (Names{"a", "c"}));
    EXPECT_TRUE(inside);
    EXPECT_EQ(rows(), (Names{"a", "b", "c"}));
    EXPECT_EQ(ticksFile(), stored);
}

TEST_F(PlugInList, TheEndInsideTheFillOfTheStartKeepsTheStoredTicks) {
    const std::string stored = "[PlugIns]\r\na=1\r\nb=0\r\nc=1\r\n";
    putPlugs({"a", "b", "c"});
    machine.files.putFile(inFolder("td_apps.ini"), stored);
    machine.events.onPump(2, [this] { program.UnloadAllForms(); });
    main();
    EXPECT_EQ(ticksFile(), stored);
}

TEST_F(PlugInList, BehindTheEndInsideTheFillOfTheStartNothingIsShown) {
    store({"chkLogTimestamp=1", "txtPurgeSpeed=0", "chkStartClean=1"});
    putPlugs({"a", "b"});
    machine.events.onPump(1, [this] { program.UnloadAllForms(); });
    main();
    EXPECT_TRUE(display.shown.empty());
}

TEST_F(PlugInList, TheCommandTellsTheCountFromBeforeAndF5DoesNot) {
    putPlugs({"a"});
    main();
    main().setPanel(3, "before");
    putPlugs({"b"});
    main().plugListKeyDown(116);
    EXPECT_EQ(panel(3), "before");
    EXPECT_EQ(rows().size(), 2u);
    putPlugs({"c"});
    click("mnuRefreshPlugs");
    EXPECT_EQ(panel(3), "2 " + text(129));
    EXPECT_EQ(rows().size(), 3u);
    main().tmrStatistic.fire();
    EXPECT_EQ(panel(3), "0") << "the text lasts one tick of the timer";
}

TEST_F(PlugInList, OtherKeysDoNothing) {
    main();
    putPlugs({"a"});
    main().plugListKeyDown(115);
    EXPECT_EQ(rows(), Names{});
}

TEST_F(PlugInList, AnEqualSignInANameBreaksItsOwnKeyAlone) {
    putPlugs({"a=b", "c"});
    main().LstPlugs.setSelected(0, true);
    main().LstPlugs.setSelected(1, true);
    click("mnuRefreshPlugs");
    EXPECT_EQ(ticked(), Names{"c"});
}

TEST_F(PlugInList, SelectsAndDeselectsAllRows) {
    putPlugs({"a", "b", "c"});
    main().LstPlugs.setSelected(1, true);
    click("mnuSelectAllPlugs");
    EXPECT_EQ(main().LstPlugs.SelCount(), 3);
    click("mnuDeselectAllPlugs");
    EXPECT_EQ(main().LstPlugs.SelCount(), 0);
}

TEST_F(PlugInList, ARightButtonShowsThePopupWithItsDefault) {
    main().plugListRightClick();
    ASSERT_EQ(display.menus.size(), 1u);
    EXPECT_EQ(display.menus[0].second, "mnCleanPlugs");
    for (const MenuRow& row : menuTable()) {
        EXPECT_EQ(main().menu(row.name).isDefault, std::string(row.name) == "mnuCleanPlugNow") << row.name;
    }
}

TEST_F(PlugInList, TheTipCountsThePlugIns) {
    putPlugs({"a", "b"});
    main().plugListMouseMove();
    EXPECT_EQ(main().LstPlugs.ToolTipText, text(562) + " (2)");
}

TEST_F(PlugInList, TheMainMenuLeadsToItsPage) {
    click("mnuCustomPlugIns");
    for (int tab = 0; tab < 4; ++tab) EXPECT_EQ(main().SSTab1.TabVisible(tab), tab == frmMain::kPlugInsTab) << tab;
}

// --- search ----------------------------------------------------------------------------------------------------------

struct PlugInSearch : PlugInList {
    PlugInSearch() { putPlugs({"CLEANER one", "other", "The cleaner two", "zz"}); }

    void search(const std::string& wanted) {
        main().txtSearchPlugs.setText("x");
        main().searchBoxClick();
        main().txtSearchPlugs.setText(wanted);
    }
    int hit() {
        main().cmdSearch.press();
        return main().LstPlugs.ListIndex();
    }
};

TEST_F(PlugInSearch, TheDesignHoldsTheHint) {
    machine.files.take(inFolder("English.lng"));
    EXPECT_EQ(main().txtSearchPlugs.Text(), "Suchen ...");
    EXPECT_EQ(main().cmdSearchTag(), "-1");
}

TEST_F(PlugInSearch, TheHintIsInTheUsersLanguageWhateverLeadsToThePage) {
    EXPECT_EQ(main().txtSearchPlugs.Text(), "Suchen ...");
    click("mnuApps");
    EXPECT_EQ(main().txtSearchPlugs.Text(), text(559) + " ...");
    main().txtSearchPlugs.setText("clean");
    click("mnuCleaner");
    click("mnuCustomPlugIns");
    EXPECT_EQ(main().txtSearchPlugs.Text(), "clean");
    main().ExplorerBar1.ItemClick(1, 0);
    EXPECT_EQ(main().txtSearchPlugs.Text(), text(559) + " ...");
}

TEST_F(PlugInSearch, TheHintStaysAsDesignedWithoutALanguageFile) {
    machine.files.take(inFolder("English.lng"));
    click("mnuApps");
    EXPECT_EQ(main().txtSearchPlugs.Text(), "Suchen ...");
}

TEST_F(PlugInSearch, AClickWipesTheTextAndDecidesByTheOneBefore) {
    main().txtSearchPlugs.ForeColor = 0x808080u;
    main().cmdSearch.Enabled = false;
    main().searchBoxClick();
    EXPECT_TRUE(main().cmdSearch.Enabled) << "the hint counts as a text";
    EXPECT_EQ(main().txtSearchPlugs.Text(), "");
    EXPECT_EQ(main().txtSearchPlugs.ForeColor, 0u);
    main().searchBoxClick();
    EXPECT_FALSE(main().cmdSearch.Enabled) << "an empty box";
    main().txtSearchPlugs.setText("   ");
    main().searchBoxClick();
    EXPECT_FALSE(main().cmdSearch.Enabled) << "blanks alone";
    main().txtSearchPlugs.setText("typed");
    EXPECT_FALSE(main().cmdSearch.Enabled) << "typing changes nothing";
    main().searchBoxClick();
    EXPECT_TRUE(main().cmdSearch.Enabled);
    EXPECT_EQ(main().txtSearchPlugs.Text(), "");
}

TEST_F(PlugInSearch, AClickWithoutRowsDisablesTheButton) {
    machine.files.take(inFolder("PlugIns"));
    main().searchBoxClick();
    EXPECT_FALSE(main().cmdSearch.Enabled);
}

TEST_F(PlugInSearch, FindsTextAnywhereWithoutCaseAndGoesOn) {
    search(" clean ");
    EXPECT_EQ(main().cmdSearch.Caption, text(559));
    EXPECT_EQ(hit(), 0);
    EXPECT_EQ(main().cmdSearch.Caption, text(843));
    EXPECT_EQ(main().cmdSearchTag(), "0");
    EXPECT_EQ(hit(), 2);
    EXPECT_EQ(main().cmdSearchTag(), "2");
    EXPECT_TRUE(main().cmdSearch.Enabled);
    display.focused.clear();
    EXPECT_EQ(hit(), 2) << "no further hit: the row stays";
    EXPECT_EQ(main().cmdSearch.Caption, text(559));
    EXPECT_EQ(main().cmdSearchTag(), "-1");
    EXPECT_FALSE(main().cmdSearch.Enabled);
    ASSERT_EQ(display.focused.size(), 1u);
    EXPECT_EQ(display.focused[0].second, "txtSearchPlugs");
    EXPECT_EQ(main().txtSearchPlugs.SelStart(), 0u);
    EXPECT_EQ(main().txtSearchPlugs.SelLength(), 7u);
}

TEST_F(PlugInSearch, AHitInTheLastRowResetsAtOnce) {
    search("Z");
    EXPECT_EQ(hit(), 3);
    EXPECT_EQ(main().cmdSearch.Caption, text(559));
    EXPECT_EQ(main().cmdSearchTag(), "-1");
    EXPECT_FALSE(main().cmdSearch.Enabled);
}

TEST_F(PlugInSearch, AMissResetsAndTakesNoWildcards) {
    for (const char* wanted : {"missing", "clean*", "?"}) {
        search(wanted);
        EXPECT_EQ(hit(), -1) << wanted;
        EXPECT_FALSE(main().cmdSearch.Enabled) << wanted;
    }
}

TEST_F(PlugInSearch, AnEmptyTextHitsEveryRow) {
    search("");
    EXPECT_EQ(hit(), 0);
    EXPECT_EQ(hit(), 1);
}

TEST_F(PlugInSearch, UmlautsHaveNoCaseEither) {
    putPlugs({"\xC3\x84rger"});
    search("\xC3\xA4R");
    EXPECT_EQ(main().LstPlugs.List(hit()), "\xC3\x84rger");
}

TEST_F(PlugInSearch, AClickStartsFromTheTop) {
    search("clean");
    (void)hit();
    main().searchBoxClick();
    EXPECT_EQ(main().cmdSearchTag(), "-1");
    EXPECT_EQ(main().cmdSearch.Caption, text(559));
    main().txtSearchPlugs.setText("clean");
    EXPECT_EQ(hit(), 0);
}

TEST_F(PlugInSearch, EnterActsAsTheButtonAndMovesTheFocusToIt) {
    search("clean");
    display.focused.clear();
    main().searchBoxKeyPress('x');
    EXPECT_EQ(main().LstPlugs.ListIndex(), -1);
    main().searchBoxKeyPress(13);
    EXPECT_EQ(main().LstPlugs.ListIndex(), 0);
    ASSERT_EQ(display.focused.size(), 1u);
    EXPECT_EQ(display.focused[0].second, "cmdSearch");
    main().searchBoxKeyPress(13);
    main().searchBoxKeyPress(13);
    EXPECT_EQ(display.focused.back().second, "txtSearchPlugs") << "the button is off and takes no focus";
    const std::size_t before = display.focused.size();
    main().searchBoxKeyPress(13);
    EXPECT_EQ(display.focused.size(), before);
}

// --- edit, create, delete --------------------------------------------------------------------------------------------

struct PlugInFileCommands : PlugInList {
    PlugInFileCommands() { putPlugs({"a", "b"}); }
};

TEST_F(PlugInFileCommands, EditOpensTheFile) {
    main().LstPlugs.setListIndex(1);
    click("mnuPlugEdit");
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_EQ(machine.shell.started[0].file, pathOf("b"));
}

TEST_F(PlugInFileCommands, AreOfferedWhereThereIsACurrentRow) {
    const auto offered = [this] {
        std::string names;
        for (const char* name : {"mnuPlugInfo", "mnuPlugEdit", "mnuPlugDelete"}) {
            if (main().menu(name).Enabled) names += std::string(name) + " ";
        }
        return names;
    };
    const std::string all = "mnuPlugInfo mnuPlugEdit mnuPlugDelete ";
    EXPECT_EQ(offered(), "");
    main().LstPlugs.setListIndex(1);
    EXPECT_EQ(offered(), all);
    // The rows come anew, and none of them is current.
    click("mnuRefreshPlugs");
    EXPECT_EQ(offered(), "");
    main().LstPlugs.setListIndex(0);
    EXPECT_EQ(offered(), all);
    main().LstPlugs.setListIndex(-1);
    EXPECT_EQ(offered(), "");
    EXPECT_TRUE(main().menu("mnuPlugCreate").Enabled);
    EXPECT_TRUE(main().menu("mnuCleanPlugNow").Enabled);
}

TEST_F(PlugInFileCommands, EditOffersAProgramWhereNoneIsKnown) {
    main().LstPlugs.setListIndex(0);
    machine.shell.shellExecuteResult = 31;
    click("mnuPlugEdit");
    ASSERT_EQ(machine.shell.started.size(), 2u);
    EXPECT_EQ(machine.shell.started[1].file, "RUNDLL32.EXE");
    EXPECT_EQ(machine.shell.started[1].parameters, "shell32.dll,OpenAs_RunDLL " + pathOf("a"));
    EXPECT_EQ(machine.shell.started[1].directory, machine.system.SystemFolder());
    machine.shell.started.clear();
    machine.shell.shellExecuteResult = 2;
    click("mnuPlugEdit");
    EXPECT_EQ(machine.shell.started.size(), 1u);
}

TEST_F(PlugInFileCommands, WithoutARowOrItsFileNothingIsEditedOrDeleted) {
    main();
    main().plugCleaner().setFilename(pathOf("b"));  // of the command before
    click("mnuPlugEdit");
    click("mnuPlugDelete");
    click("mnuPlugInfo");
    EXPECT_TRUE(machine.shell.started.empty());
    EXPECT_FALSE(display.wasShown("frmPlugsInfo"));
    machine.files.take(pathOf("a"));
    main().LstPlugs.setListIndex(0);
    click("mnuPlugEdit");
    click("mnuPlugInfo");
    EXPECT_TRUE(machine.shell.started.empty());
    EXPECT_FALSE(display.wasShown("frmPlugsInfo"));
    EXPECT_TRUE(machine.files.has(pathOf("b")));
    EXPECT_EQ(rows().size(), 2u);
}

TEST_F(PlugInFileCommands, CreateStartsTheEditor) {
    click("mnuPlugCreate");
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "notepad.exe");
    EXPECT_EQ(machine.processes.started[0]->show, 1);
    EXPECT_EQ(rows().size(), 2u) << "no file comes";
}

TEST_F(PlugInFileCommands, CreateStartsTheStoredEditor) {
    store({"txtPlugEditor_g=C:\\Tools\\edit.exe"}, "frmPlugsInfo");
    click("mnuPlugCreate");
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "C:\\Tools\\edit.exe");
}

TEST_F(PlugInFileCommands, CreateIsSilentWhereNothingStarts) {
    machine.processes.failToStart = true;
    main();
    display.boxes.clear();
    click("mnuPlugCreate");
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(PlugInFileCommands, DeleteAsksFirst) {
    main().LstPlugs.setListIndex(0);
    display.boxes.clear();
    display.answers = {forms::msgbox::No};
    click("mnuPlugDelete");
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].text, text(423) + "?");
    EXPECT_EQ(display.boxes[0].title, "Tidvane");
    EXPECT_EQ(display.boxes[0].style, 4 + 32 + 256);
    EXPECT_TRUE(machine.files.has(pathOf("a")));
}

TEST_F(PlugInFileCommands, DeleteRemovesTheFileByTheKillMethodAndRefreshes) {
    options().cboKillMethod.setListIndex(1);
    main().LstPlugs.setListIndex(0);
    main().LstPlugs.setSelected(1, true);
    display.answers = {forms::msgbox::Yes};
    click("mnuPlugDelete");
    EXPECT_FALSE(machine.files.has(pathOf("a")));
    EXPECT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_EQ(rows(), Names{"b"});
    EXPECT_EQ(ticked(), Names{"b"});
    EXPECT_EQ(panel(3), "2 " + text(129));
}

TEST_F(PlugInFileCommands, DeleteLeavesTheFileWhereTheMachineCannotBeCleanedNow) {
    options().cboKillMethod.setListIndex(1);
    main().LstPlugs.setListIndex(0);
    std::vector<settings::Removal> asked;
    program.mayRemove = [&](settings::Removal act) {
        asked.push_back(act);
        return false;
    };
    display.answers = {forms::msgbox::No, forms::msgbox::Yes};
    click("mnuPlugDelete");
    EXPECT_TRUE(asked.empty()) << "a No of the user comes first";
    click("mnuPlugDelete");
    EXPECT_EQ(asked, std::vector<settings::Removal>{settings::Removal::Manager});
    EXPECT_TRUE(machine.files.has(pathOf("a")));
    EXPECT_TRUE(machine.shell.recycled.empty());
    EXPECT_EQ(rows().size(), 2u);
}

TEST_F(PlugInFileCommands, DeleteUnderAnUnreadableMethodLeavesTheFileAndTheList) {
    main().LstPlugs.setListIndex(0);
    for (const int entry : {732, 733, 734}) program.LangText.set(entry, "other " + std::to_string(entry));
    putPlugs({"c"});
    display.answers = {forms::msgbox::Yes};
    click("mnuPlugDelete");
    EXPECT_TRUE(machine.files.has(pathOf("a")));
    EXPECT_EQ(rows().size(), 2u) << "no refresh";
}

}  // namespace
}  // namespace tidvane::app
