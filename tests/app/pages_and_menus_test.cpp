// The pages of the main window, the task pane, the menus that lead somewhere, and the menu of shell folders.
#include <algorithm>
#include <array>

#include "app/explorer_menu.h"
#include "settings/frmOptions.h"
#include "settings/frmResources.h"
#include "settings/frmStarter.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct Pages : AppFixture {
    int pagesOnOffer() {
        int count = 0;
        for (int tab = 0; tab < main().SSTab1.Tabs(); ++tab) count += main().SSTab1.TabVisible(tab) ? 1 : 0;
        return count;
    }
    std::string seen() {
        std::string names;
        for (const char* menu : {"mnCleanPlugs", "mnExtensions"}) {
            if (main().menu(menu).Visible) names += std::string(menu) + " ";
        }
        for (controls::isButton* button :
             {&main().cmdClean, &main().cmdClearLog, &main().cmdCopyLog, &main().cmdSaveLog, &main().cmdViewLog}) {
            if (button->Visible) names += button->Name + " ";
        }
        return names;
    }
};

TEST_F(Pages, AreShownOneAtATime) {
    const std::array<std::pair<int, int>, 4> rows{{{0, 0}, {1, 0}, {2, 0}, {3, 1}}};  // group and item of the pane
    for (int page = 3; page >= 0; --page) {
        main().ExplorerBar1.ItemClick(rows[static_cast<std::size_t>(page)].first,
                                      rows[static_cast<std::size_t>(page)].second);
        EXPECT_EQ(main().SSTab1.Tab, page);
        EXPECT_TRUE(main().SSTab1.TabVisible(page));
        EXPECT_EQ(pagesOnOffer(), 1);
    }
}

TEST_F(Pages, DecideOverMenusAndLogButtons) {
    main();
    main().SSTab1.offerOnly(1);
    EXPECT_EQ(seen(), "mnCleanPlugs ");
    main().SSTab1.offerOnly(2);
    EXPECT_EQ(seen(), "mnExtensions ");
    main().SSTab1.offerOnly(3);
    EXPECT_EQ(seen(), "");
    main().SSTab1.offerOnly(0);
    EXPECT_EQ(seen(), "cmdClean cmdClearLog cmdCopyLog cmdSaveLog cmdViewLog ");
}

TEST_F(Pages, AreToldApartByTheDesignersGermanCaptions) {
    EXPECT_EQ(main().SSTab1.TabCaption(1), "Anwendungen");
    EXPECT_EQ(main().SSTab1.TabCaption(2), "Erweiterungen");
    EXPECT_EQ(main().SSTab1.TabCaption(3), "Über ...");
    // Any other caption counts as the cleaning page.
    main().SSTab1.setTabCaption(1, "Applications");
    main().SSTab1.offerOnly(1);
    EXPECT_EQ(seen(), "cmdClean cmdClearLog cmdCopyLog cmdSaveLog cmdViewLog ");
}

struct Pane : Pages {};

TEST_F(Pane, HasItsGroupsAndItemsInTheirOrder) {
    struct Row {
        int group;
        int title;
        int item;
        int text;
        const char* icon;
    };
    const std::array rows{Row{0, 102, 0, 170, "ImgStart"},         Row{0, 102, 1, 119, "ImgPurge"},
                          Row{0, 102, 2, 131, "ImgCustomCleaner"}, Row{0, 102, 3, 103, "ImgCleaningJobs"},
                          Row{0, 102, 4, 120, "ImgOptions"},       Row{1, 104, 0, 132, "ImgApps"},
                          Row{1, 104, 1, 105, "ImgDownload"},      Row{2, 106, 0, 133, "ImgExtensions"},
                          Row{2, 106, 1, 107, "ImgDownload"},      Row{3, 112, 0, 112, "ImgHelp"},
                          Row{3, 112, 1, 108, "ImgInfo"},          Row{3, 112, 2, 109, "ImgUpdate"},
                          Row{4, 110, 0, 110, "ImgExit"},          Row{4, 110, 1, 111, "ImgShutdown"}};
    const auto& groups = main().ExplorerBar1.groups();
    ASSERT_EQ(groups.size(), 6u);
    std::size_t items = 0;
    for (const Row& row : rows) {
        const auto& group = groups[static_cast<std::size_t>(row.group)];
        EXPECT_EQ(group.Title, text(row.title));
        ASSERT_LT(static_cast<std::size_t>(row.item), group.items.size());
        EXPECT_EQ(group.items[static_cast<std::size_t>(row.item)].Caption, text(row.text));
        EXPECT_EQ(group.items[static_cast<std::size_t>(row.item)].Icon, row.icon);
    }
    for (const auto& group : groups) items += group.items.size();
    EXPECT_EQ(items, rows.size());
    EXPECT_EQ(groups[5].Title, text(134));
    EXPECT_EQ(groups[5].Caption, text(135) + " 1.0.0" + main().lblVersionBuild.Caption.get());
}

TEST_F(Pane, OpensTheOptionsOnTheirPages) {
    std::string tabs;
    display.inModal["frmOptions"] = [&](forms::Form& form) {
        tabs += std::to_string(static_cast<settings::frmOptions&>(form).SSTab1.Tab) + " ";
    };
    main().ExplorerBar1.ItemClick(0, 3);
    main().ExplorerBar1.ItemClick(0, 4);
    EXPECT_EQ(tabs, "0 5 ");
}

TEST_F(Pane, HintsInTheSearchBoxOfThePlugIns) {
    main().ExplorerBar1.ItemClick(1, 0);
    EXPECT_EQ(main().txtSearchPlugs.Text(), text(559) + " ...");
}

TEST_F(Pane, StartsTheDownloadToolWhereItLies) {
    machine.files.putFile(inFolder("qrmx.exe"));
    main().ExplorerBar1.ItemClick(2, 1);
    const std::string line = "Tidvane needs to be closed before qrmx.exe can be proceeded...";
    EXPECT_NE(logLines().back().find(line), std::string::npos);
    EXPECT_EQ(panel(1), line);
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, inFolder("qrmx.exe"));
}

TEST_F(Pane, OpensAddressesOfTheResources) {
    auto& resources = program.get<settings::frmResources>();
    resources.txtApps.setText("https://a.invalid/apps");
    resources.txtAddOns.setText("https://a.invalid/addons");
    resources.txtOnlineHelp.setText("https://a.invalid/help");
    main().ExplorerBar1.ItemClick(1, 1);
    main().ExplorerBar1.ItemClick(2, 1);
    main().ExplorerBar1.ItemClick(3, 0);
    ASSERT_EQ(machine.shell.started.size(), 3u);
    EXPECT_EQ(machine.shell.started[0].file, "https://a.invalid/apps");
    EXPECT_EQ(machine.shell.started[1].file, "https://a.invalid/addons");
    EXPECT_EQ(machine.shell.started[2].file, "https://a.invalid/help");
}

TEST_F(Pane, OffersACommandThatIsToBeBuiltAsGreyAsTheMenu) {
    EXPECT_EQ(main().ExplorerBar1.GetItemEnabled(3, 2), main().menu("mnuCheckForUpdates").Enabled);
    EXPECT_TRUE(main().ExplorerBar1.GetItemEnabled(3, 1));
}

TEST_F(Pane, OpensTheFileOfAnItemThroughTheShellInANormalWindow) {
    std::string told;
    for (controls::ExplorerBar* pane : {&main().ExplorerBar1, &program.get<settings::frmOptions>().ExplorerBar2}) {
        pane->ItemOpenFile.connect([&](int, int item) { told += "opened " + std::to_string(item) + ";"; });
        pane->ErrorOpenFile.connect([&](int, int item) { told += "error " + std::to_string(item) + ";"; });
        pane->DeleteAllGroups();
        pane->AddNormalGroup("Files");
        pane->AddItem(0, "a", false, {}, false, "C:\\a.txt");
        machine.shell.shellExecuteResult = 33;
        pane->clickItem(0, 0);
        machine.shell.shellExecuteResult = 32;
        pane->clickItem(0, 0);
        EXPECT_EQ(told, "opened 0;error 0;") << pane->Name;
        told.clear();
    }
    ASSERT_EQ(machine.shell.started.size(), 4u);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_EQ(machine.shell.started[0].file, "C:\\a.txt");
    EXPECT_EQ(machine.shell.started[0].show, 1);
}

TEST_F(Pane, SharesTheShellWithTheLinksOfButtons) {
    machine.shell.shellExecuteResult = 33;
    EXPECT_TRUE(main().cmdClean.OpenLink("https://a.invalid/"));
    machine.shell.shellExecuteResult = 31;
    EXPECT_FALSE(main().cmdClean.OpenLink("https://a.invalid/"));
    ASSERT_EQ(machine.shell.started.size(), 2u);
    EXPECT_EQ(machine.shell.started[0].file, "https://a.invalid/");
}

TEST_F(Pane, LeavesTheProgramAndOffersTheSessionMenu) {
    main().ExplorerBar1.ItemClick(4, 1);
    EXPECT_EQ(display.menus.back(), (std::pair<std::string, std::string>{"frmMain", "mnExtraTask"}));
    main().ExplorerBar1.ItemClick(4, 0);
    EXPECT_GE(display.ends, 1);
}

TEST_F(Pane, OpensOneGroupOnlyOnRequest) {
    store({"chkOpenOneGroupOnly=1"}, "frmMoreToConfigure");
    EXPECT_TRUE(main().ExplorerBar1.OpenOneGroupOnly);
}

struct Menus : Pages {
    // Tab and inner tab of the options that a menu leads to.
    std::string placeOf(const std::string& menu, const std::string& inner = {}) {
        std::string place = "not shown";
        display.inModal["frmOptions"] = [&](forms::Form& form) {
            place = std::to_string(static_cast<settings::frmOptions&>(form).SSTab1.Tab);
            if (auto* tabs = dynamic_cast<forms::TabStrip*>(form.control(inner)))
                place += "/" + std::to_string(tabs->Tab);
        };
        main().menu(menu).Click();
        return place;
    }
};

TEST_F(Menus, OpenTheOptionsOnTheirPages) {
    EXPECT_EQ(placeOf("mnuCleaningJobWindows"), "0");
    EXPECT_EQ(placeOf("mnuCleaningJobBrowser"), "1");
    EXPECT_EQ(placeOf("mnuCleaningJobOffice"), "2");
    EXPECT_EQ(placeOf("mnuCleaningJobCustom"), "3");
    EXPECT_EQ(placeOf("mnuCustomFolder", "SSTab3"), "3/0");
    EXPECT_EQ(placeOf("mnuCustomFiles", "SSTab3"), "3/1");
    EXPECT_EQ(placeOf("mnuCustomRegKeys", "SSTab3"), "3/1");
    EXPECT_EQ(placeOf("mnuCustomSearchMasks", "SSTab3"), "3/2");
    EXPECT_EQ(placeOf("mnuOptionsGeneral"), "5");
    EXPECT_EQ(placeOf("mnuOptionsLog", "SSTab4"), "5/1");
    EXPECT_EQ(placeOf("mnuOptionsResUpdate", "SSTab4"), "5/2");
    EXPECT_EQ(placeOf("mnuOptionsSecurity", "SSTab4"), "5/3");
    EXPECT_EQ(placeOf("mnuOptionsAdvanced", "SSTab4"), "5/4");
}

TEST_F(Menus, OpenTheStartPageOnTheMaintenance) {
    main().menu("mnuBackup").Click();
    EXPECT_TRUE(display.wasShown("frmStarter"));
    EXPECT_EQ(program.get<settings::frmStarter>().SSTab2.Tab, 3);
}

TEST_F(Menus, OpenTheRecycleBinAndWait) {
    main().menu("mnuOpenRecycleBin").Click();
    ASSERT_EQ(machine.processes.started.size(), 1u);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "explorer.exe ::{645FF040-5081-101B-9F08-00AA002F954E}");
    EXPECT_TRUE(machine.processes.started[0]->ended);
}

TEST_F(Menus, PopUpOverTheTaskList) {
    main().taskListRightClick();
    EXPECT_EQ(display.menus.back(), (std::pair<std::string, std::string>{"frmMain", "mnCustom"}));
}

struct ExplorerMenu : Pages {};

TEST_F(ExplorerMenu, HoldsNineteenRowsSorted) {
    ASSERT_EQ(main().lstExplorer.ListCount(), 19);
    EXPECT_EQ(main().lstExplorer.List(0), "All Users Desktop: C:\\Users\\Public\\Desktop");
    EXPECT_EQ(main().lstExplorer.List(1), "Application Data: C:\\Users\\Anna\\AppData\\Roaming");
    EXPECT_EQ(main().lstExplorer.List(18), "Windows Folder: C:\\Windows");
    for (int row = 1; row < 19; ++row) {
        EXPECT_LT(base::compareNoCase(main().lstExplorer.List(row - 1), main().lstExplorer.List(row)), 0) << row;
    }
    for (int row = 0; row < 19; ++row) {
        forms::Control* entry = main().control("mnuListe", row);
        ASSERT_NE(entry, nullptr) << row;
        EXPECT_EQ(entry->Caption, main().lstExplorer.List(row));
    }
}

TEST_F(ExplorerMenu, TakesEachFolderByItsNumber) {
    const std::array<std::pair<const char*, int>, 19> rows{{{"All Users Desktop: ", 16},
                                                            {"Application Data: ", 26},
                                                            {"Local Settings: ", 28},
                                                            {"User Profile: ", 40},
                                                            {"Program Files: ", 38},
                                                            {"Start Menu Programs: ", 2},
                                                            {"Temporary Internet Files: ", 32},
                                                            {"Cookies: ", 33},
                                                            {"Desktop: ", 0},
                                                            {"Favorites: ", 6},
                                                            {"History: ", 34},
                                                            {"My Documents: ", 5},
                                                            {"My Pictures: ", 39},
                                                            {"Send To: ", 9},
                                                            {"Start Menu: ", 11},
                                                            {"Start Up: ", 7},
                                                            {"Templates: ", 21},
                                                            {"System: ", 37},
                                                            {"Windows Folder: ", 36}}};
    std::vector<std::string> all;
    for (int row = 0; row < main().lstExplorer.ListCount(); ++row) all.push_back(main().lstExplorer.List(row));
    for (const auto& [label, number] : rows) {
        EXPECT_NE(std::find(all.begin(), all.end(), label + machine.shell.SpecialFolder(number)), all.end()) << label;
    }
}

TEST_F(ExplorerMenu, OpensTheFolderOfTheSortedRow) {
    main();
    static_cast<forms::Menu*>(main().control("mnuListe", 18))->Click();
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_EQ(machine.shell.started[0].file, "C:\\Windows");
}

TEST_F(ExplorerMenu, OpensNothingForAFolderThatCannotBeTold) {
    machine.shell.specialFolders.erase(36);
    main();
    ASSERT_EQ(main().lstExplorer.List(18), "Windows Folder: ");
    static_cast<forms::Menu*>(main().control("mnuListe", 18))->Click();
    EXPECT_TRUE(machine.shell.started.empty());
}

TEST_F(ExplorerMenu, IsOneOfTheMenusOfTheBar) {
    main();
    const forms::Menu& row = *static_cast<forms::Menu*>(main().control("mnuListe", 0));
    EXPECT_EQ(row.parent, "mnuExplorer");
    EXPECT_EQ(main().menu(row.parent).parent, "mnTools");
}

struct AboutPage : AppFixture {};

TEST_F(AboutPage, OpensTheHomepageItShows) {
    main().lblTranslatorHomepage.Click();
    ASSERT_EQ(machine.shell.started.size(), 1u);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_EQ(machine.shell.started[0].file, program.LangText(997));
}

struct ExtensionsPage : AppFixture {};

TEST_F(ExtensionsPage, OffersNothingToChooseWithoutACatalogue) {
    EXPECT_FALSE(main().lstExtensions.Enabled);
    EXPECT_FALSE(main().cboExtensionsCat.Enabled);
    EXPECT_NE(program.LangText(850), "");
}

struct DriveOfTheFigures : AppFixture {};

TEST_F(DriveOfTheFigures, TellsWhatItIsFor) {
    EXPECT_EQ(main().drvDiskSizeDrive.ToolTipText.get(), program.LangText(851));
    EXPECT_NE(program.LangText(851), "");
}

TEST(FolderOfRow, BeginsOneCharacterBeforeTheFirstColonAndBackslash) {
    EXPECT_EQ(app::folderOfRow("Desktop: C:\\Users\\Anna\\Desktop"), "C:\\Users\\Anna\\Desktop");
    EXPECT_EQ(app::folderOfRow("D:\\a:\\b"), "D:\\a:\\b");
    EXPECT_EQ(app::folderOfRow("Desktop: "), "");
    EXPECT_EQ(app::folderOfRow(":\\x"), "");
}

TEST(TrayTip, IsCutToSixtyThreeBytesOfTheCodePage) {
    AppFixtureRun run;
    run.main().AddTrayIcon(std::string(62, 'a') + "ä" + "b");
    EXPECT_EQ(run.main().TrayData().szTip, std::string(62, 'a') + "ä");
    EXPECT_EQ(run.display.trayTip, std::string(62, 'a') + "ä");
}

}  // namespace tidvane::tests
