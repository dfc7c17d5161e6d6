#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "app/menu_table.h"
#include "app/recycle_bin_window.h"
#include "settings/frmStarter.h"
#include "support/app_fixture.h"

namespace tidvane::app {
namespace {

using tests::AppFixture;

struct MenusTest : AppFixture {
    void click(const std::string& menu) { main().menu(menu).Click(); }
};

TEST_F(MenusTest, EveryMenuHasACaptionByDesign) {
    for (const MenuRow& row : menuTable()) EXPECT_STRNE(row.caption, "") << row.name;
}

TEST_F(MenusTest, WithoutALanguageFileTheDesignedCaptionsStay) {
    machine.files.take(inFolder("English.lng"));
    EXPECT_EQ(main().menu("mnuExit").Caption.get(), "Beenden");
    EXPECT_EQ(main().menu("mnFile").Caption.get(), "&Datei");
}

TEST_F(MenusTest, OnlyTheSixthTitleStandsAtTheRightEnd) {
    const auto table = menuTable();
    for (std::size_t i = 0; i < table.size(); ++i) EXPECT_EQ(table[i].atRightEnd, i == 5) << table[i].name;
}

TEST_F(MenusTest, EveryEntryLiesInATitleThatStandsInFrontOfIt) {
    std::vector<std::string> names{""};
    for (const MenuRow& row : menuTable()) {
        EXPECT_NE(std::find(names.begin(), names.end(), row.parent), names.end()) << row.name << " in " << row.parent;
        EXPECT_EQ(main().menu(row.name).parent, row.parent);
        names.emplace_back(row.name);
    }
}

TEST_F(MenusTest, EveryTitleHasEntries) {
    for (const MenuRow& row : menuTable()) {
        const auto table = menuTable();
        const bool title = std::string_view(row.parent).empty();
        const bool filled = std::any_of(table.begin(), table.end(), [&](const MenuRow& other) {
            return std::string_view(other.parent) == row.name;
        });
        if (title) {
            EXPECT_TRUE(filled) << row.name;
        }
        // What opens further entries is no command itself.
        if (filled) {
            EXPECT_EQ(row.action, MenuAction::None) << row.name;
        }
    }
}

TEST_F(MenusTest, TheBarShowsItsSixTitlesAndThoseOfThePage) {
    const auto bar = [this] {
        std::string titles;
        for (const forms::Control* control : main().Controls()) {
            if (control->kind != forms::ControlKind::Menu || !control->Visible) continue;
            if (static_cast<const forms::Menu*>(control)->parent.empty()) titles += control->Name + " ";
        }
        return titles;
    };
    const std::string six = "mnFile mnView mnTools mnuOptions mnHelp mnuCommunityTitle ";
    EXPECT_EQ(bar(), six);
    click("mnuApps");
    EXPECT_EQ(bar(), six + "mnCleanPlugs ");
    click("mnuAddOns");
    EXPECT_EQ(bar(), six + "mnExtensions ");
    click("mnuAbout");
    EXPECT_EQ(bar(), six);
}

TEST_F(MenusTest, OnlyWhatIsStillToBeBuiltIsGreyWhereAPlugInIsTheCurrentRow) {
    // Three entries are about the current plug-in.
    machine.files.putFile(inFolder("PlugIns\\a.tdp"), "[Info]\r\nTitle=A\r\n");
    main().LstPlugs.setListIndex(0);
    for (const MenuRow& row : menuTable()) {
        EXPECT_EQ(main().menu(row.name).Enabled, row.action != MenuAction::NotThereYet) << row.name;
    }
    // A run opens its entries again behind it, and those alone.
    clean();
    for (const MenuRow& row : menuTable()) {
        EXPECT_EQ(main().menu(row.name).Enabled, row.action != MenuAction::NotThereYet) << row.name;
    }
}

TEST_F(MenusTest, LinesTellGroupsApartAndNeverOpenAMenu) {
    std::string last;
    for (const MenuRow& row : menuTable()) {
        const auto table = menuTable();
        const auto first = std::find_if(table.begin(), table.end(), [&](const MenuRow& other) {
            return std::string_view(other.parent) == row.parent;
        });
        const forms::Menu& entry = main().menu(row.name);
        if (!entry.separatorBefore) continue;
        EXPECT_STRNE(row.parent, "") << row.name;
        EXPECT_STRNE(first->name, row.name);
        last = row.name;
    }
    EXPECT_EQ(last, "mnuExitSystray");
}

TEST_F(MenusTest, TheShellFoldersLieInTheirMenu) {
    int folders = 0;
    for (const forms::Control* control : main().Controls()) {
        if (control->Name != "mnuListe") continue;
        EXPECT_EQ(static_cast<const forms::Menu*>(control)->parent, "mnuExplorer");
        ++folders;
    }
    EXPECT_EQ(folders, 19);
}

TEST_F(MenusTest, PlaceMenusOpenTheOptionsOnTheirTab) {
    struct Place {
        const char* menu;
        int tab;
        const char* inner;
        int innerTab;
    };
    constexpr std::array kPlaces{
        Place{"mnuCleaningJobWindows", 0, nullptr, 0}, Place{"mnuCleaningJobBrowser", 1, nullptr, 0},
        Place{"mnuCleaningJobOffice", 2, nullptr, 0},  Place{"mnuCleaningJobCustom", 3, nullptr, 0},
        Place{"mnuModuleRegistry", 4, "SSTab2", 0},    Place{"mnuModuleMemory", 4, "SSTab2", 1},
        Place{"mnuModuleVolume", 4, "SSTab2", 2},      Place{"mnuOptionsGeneral", 5, nullptr, 0},
        Place{"mnuOptionsLog", 5, "SSTab4", 1},        Place{"mnuOptionsResUpdate", 5, "SSTab4", 2},
        Place{"mnuOptionsSecurity", 5, "SSTab4", 3},   Place{"mnuOptionsAdvanced", 5, "SSTab4", 4},
        Place{"mnuCustomFolder", 3, "SSTab3", 0},      Place{"mnuCustomFiles", 3, "SSTab3", 1},
        Place{"mnuCustomRegKeys", 3, "SSTab3", 1},     Place{"mnuCustomSearchMasks", 3, "SSTab3", 2},
    };
    for (const Place& place : kPlaces) {
        display.shown.clear();
        click(place.menu);
        ASSERT_EQ(display.shown.size(), 1U) << place.menu;
        EXPECT_EQ(display.shown[0].window, "frmOptions") << place.menu;
        EXPECT_TRUE(display.shown[0].modal) << place.menu;
        EXPECT_EQ(options().SSTab1.Tab, place.tab) << place.menu;
        if (place.inner != nullptr) {
            EXPECT_EQ(static_cast<forms::TabStrip*>(options().control(place.inner))->Tab, place.innerTab) << place.menu;
        }
    }
}

TEST_F(MenusTest, PageMenusOfferOnePageAlone) {
    const std::pair<const char*, int> pages[] = {
        {"mnuApps", 1}, {"mnuAddOns", 2}, {"mnuAbout", 3}, {"mnuCustomPlugIns", 1}, {"mnuCleaner", 0}};
    for (const auto& [menu, tab] : pages) {
        click(menu);
        EXPECT_EQ(main().SSTab1.Tab, tab) << menu;
        for (int other = 0; other < 4; ++other) EXPECT_EQ(main().SSTab1.TabVisible(other), other == tab) << menu;
    }
}

TEST_F(MenusTest, StartPageMenusOpenItsTabs) {
    const std::pair<const char*, int> tabs[] = {{"mnuNews", 1}, {"mnuCommunity", 2}, {"mnuBackup", 3},
                                                {"mnuTips", 4}, {"mnuLicense", 5},   {"mnuTranslator", 6}};
    for (const auto& [menu, tab] : tabs) {
        display.shown.clear();
        click(menu);
        EXPECT_TRUE(display.wasShown("frmStarter")) << menu;
        EXPECT_EQ(program.get<settings::frmStarter>().SSTab2.Tab, tab) << menu;
    }
    main().cmdLicense.press();
    EXPECT_EQ(program.get<settings::frmStarter>().SSTab2.Tab, 5);
}

TEST_F(MenusTest, WindowMenusShowTheirWindows) {
    const std::pair<const char*, const char*> windows[] = {{"mnuTuneUp", "frmMoreToConfigure"},
                                                           {"mnuResources", "frmResources"},
                                                           {"mnuFirefoxProfile", "frmMozillaDir"},
                                                           {"mnuOperaProfile", "frmOperaDir"},
                                                           {"mnuChromeProfile", "frmChromeDir"},
                                                           {"mnuSafariProfile", "frmSafariDir"},
                                                           {"mnuWidget", "frmWidget"},
                                                           {"mnuWidgetMain", "frmWidget"}};
    for (const auto& [menu, window] : windows) {
        display.shown.clear();
        click(menu);
        EXPECT_TRUE(display.wasShown(window)) << menu;
        // The widget stays in sight while the main window is hidden.
        EXPECT_EQ(display.shown.back().owner, std::string(window) == "frmWidget" ? "" : "frmMain") << menu;
        EXPECT_FALSE(display.shown.back().modal) << menu;
    }
}

TEST_F(MenusTest, OptionsIsATitleAndOpensNothing) {
    main();
    display.shown.clear();
    click("mnuOptions");
    EXPECT_TRUE(display.shown.empty());
}

TEST_F(MenusTest, OnlineHelpOpensTheAddressOfTheResources) {
    click("mnuOnlineHelp");
    ASSERT_EQ(machine.shell.started.size(), 1U);
    EXPECT_EQ(machine.shell.started[0].verb, "open");
    EXPECT_FALSE(machine.shell.started[0].file.empty());
}

TEST_F(MenusTest, TheRecycleBinWindowIsStartedAndWaitedFor) {
    click("mnuOpenRecycleBin");
    ASSERT_EQ(machine.processes.started.size(), 1U);
    EXPECT_EQ(machine.processes.started[0]->commandLine, kRecycleBinWindow);
}

TEST_F(MenusTest, BackgroundGoesToTheTrayAndShowComesBack) {
    click("mnuBackground");
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    EXPECT_EQ(display.hidden.back(), "frmMain");
    main().State = forms::WindowState::Minimized;
    click("mnuShow");
    EXPECT_EQ(main().State, forms::WindowState::Normal);
    EXPECT_EQ(display.shown.back().window, "frmMain");
    EXPECT_FALSE(display.trayTip.has_value());
}

TEST_F(MenusTest, OptionsOfTheTrayShowTheMainWindowFirst) {
    main();
    display.shown.clear();
    click("mnuOptionsSystray");
    ASSERT_EQ(display.shown.size(), 2U);
    EXPECT_EQ(display.shown[0].window, "frmMain");
    EXPECT_EQ(display.shown[1].window, "frmOptions");
}

TEST_F(MenusTest, CleanOfTheTrayBringsTheWindowBackAndStartsTheTimer) {
    mainWithoutTimes();
    main().State = forms::WindowState::Minimized;
    click("mnuCleanSystray");
    EXPECT_EQ(main().State, forms::WindowState::Normal);
    EXPECT_TRUE(main().tmrCleanButton.Enabled);
    EXPECT_EQ(logLines(), (std::vector<std::string>{text(561) + "...[0/64] "}));
    EXPECT_EQ(main().StatusBar1.Panel(1), text(561) + "...[0/64]");
}

TEST_F(MenusTest, ExitOfTheTrayEndsWithoutAskingForARun) {
    main().cmdClean.Value = true;
    click("mnuExitSystray");
    EXPECT_EQ(display.ends, 1);
    EXPECT_EQ(program.windows.ifLoaded("frmMain"), nullptr);
}

TEST_F(MenusTest, ExitHidesWhileARunIsUnderWayAndEndsOtherwise) {
    main().cmdClean.Value = true;
    click("mnuExit");
    EXPECT_EQ(display.ends, 0);
    main().cmdClean.Value = false;
    click("mnuExit");
    EXPECT_EQ(display.ends, 1);
}

TEST_F(MenusTest, RestartStoresEverythingBeforeTheLockGoesToTheNewStart) {
    main();
    bool lockHeld = true;
    bool mainLoaded = true;
    machine.processes.onStart = [&](const std::string&) {
        lockHeld = machine.processes.holdsInstanceLock;
        mainLoaded = program.windows.ifLoaded("frmMain") != nullptr;
    };
    click("mnuRestartTidvane");
    ASSERT_EQ(machine.processes.started.size(), 1U);
    EXPECT_EQ(machine.processes.started[0]->commandLine, inFolder("Tidvane.exe"));
    EXPECT_FALSE(lockHeld);
    EXPECT_FALSE(mainLoaded);
    EXPECT_EQ(display.ends, 1);
}

TEST_F(MenusTest, RestartDuringARunOnlyGoesToTheBackground) {
    main().cmdClean.Value = true;
    click("mnuRestartTidvane");
    EXPECT_TRUE(machine.processes.started.empty());
    EXPECT_TRUE(machine.processes.holdsInstanceLock);
    EXPECT_EQ(display.ends, 0);
}

TEST_F(MenusTest, PopUpTitlesAreHiddenUntilTheirPageIsShown) {
    EXPECT_FALSE(main().menu("mnCleanPlugs").Visible);
    EXPECT_FALSE(main().menu("mnExtensions").Visible);
    EXPECT_FALSE(main().cmdStop.Enabled);
}

}  // namespace
}  // namespace tidvane::app
