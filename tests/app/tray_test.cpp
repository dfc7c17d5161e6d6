// The tray icon: its two gestures, its menu, its tips, and a desktop without a tray.
#include <algorithm>
#include <array>
#include <functional>

#include "app/frmDiskSizeStats.h"
#include "app/menu_table.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct Tray : AppFixture {
    Tray() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }

    static constexpr int kTwips = 15;  // of a pixel
    void message(int number, int twipsPerPixel = kTwips) {
        main().trayMouseMove(number * twipsPerPixel, twipsPerPixel);
    }
};

TEST_F(Tray, ADoubleClickBringsTheWindowBack) {
    main().toBackground();
    main().State = forms::WindowState::Minimized;
    display.shown.clear();
    message(515);
    EXPECT_EQ(main().State, forms::WindowState::Normal);
    EXPECT_TRUE(display.wasShown("frmMain"));
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_TRUE(display.menus.empty());
}

TEST_F(Tray, TheRightButtonOffersItsMenuWithCleanAsTheDefault) {
    main().toBackground();
    message(517);
    EXPECT_EQ(display.menus, (std::vector<std::pair<std::string, std::string>>{{"frmMain", "mnMain"}}));
    EXPECT_EQ(display.trayTip, " - Tidvane -" + text(566));
    for (const app::MenuRow& row : app::menuTable()) {
        EXPECT_EQ(main().menu(row.name).isDefault, std::string(row.name) == "mnuCleanSystray") << row.name;
    }
}

TEST_F(Tray, EveryOtherMessageIsNothing) {
    main().toBackground();
    display.shown.clear();
    for (int number = 0; number < 1100; ++number) {
        if (number != 515 && number != 517) message(number);
    }
    // A place between two pixels is no message either.
    main().trayMouseMove(515 * kTwips + 7, kTwips);
    EXPECT_TRUE(display.shown.empty());
    EXPECT_TRUE(display.menus.empty());
    EXPECT_EQ(display.trayRemovals, 0);
}

TEST_F(Tray, TheMessageIsTheCoordinateInPixels) {
    main().toBackground();
    message(515, 20);
    EXPECT_FALSE(display.trayTip.has_value());
    main().toBackground();
    main().trayMouseMove(515, kTwips);
    EXPECT_TRUE(display.trayTip.has_value());
}

TEST_F(Tray, ADoubleClickDuringARunLetsItGoOn) {
    main();
    int steps = 0;
    main().stepDone.connect([&](const app::StepResult& step) {
        ++steps;
        if (step.task->step == 2) main().toBackground();
        if (step.task->step == 5) message(515);
    });
    clean();
    EXPECT_EQ(steps, 62);
    EXPECT_TRUE(main().Visible);
    EXPECT_FALSE(display.trayTip.has_value());
    EXPECT_FALSE(main().StopRequested());
}

TEST_F(Tray, ItsMenuHoldsItsEntriesInTheirOrder) {
    std::vector<std::string> entries;
    std::vector<std::string> session;
    for (const forms::Control* control : main().Controls()) {
        if (control->kind != forms::ControlKind::Menu) continue;
        const auto& menu = static_cast<const forms::Menu&>(*control);
        if (menu.parent == "mnMain") entries.push_back(menu.Name);
        if (menu.parent == "mnuCleanModeSystray") session.push_back(menu.Name);
    }
    EXPECT_EQ(entries, (std::vector<std::string>{"mnuShow", "mnuCleanSystray", "mnuCleanModeSystray",
                                                 "mnuOptionsSystray", "mnuWidget", "mnuExitSystray"}));
    EXPECT_EQ(session,
              (std::vector<std::string>{"mnuLogOffModeSystray", "mnuRestartModeSystray", "mnuShutDownModeSystray"}));
}

// --- the tips, by what puts the icon there ---------------------------------------------------------------------------

struct TrayTips : Tray {
    // The tip of a program of its own.
    static std::string tipOf(const std::vector<std::string>& settings, const std::string& arguments,
                             const std::function<void(AppFixtureRun&)>& act) {
        AppFixtureRun run;
        std::vector<std::string> stored{"chkLogTimestamp=1", "txtPurgeSpeed=0"};
        stored.insert(stored.end(), settings.begin(), settings.end());
        run.store(stored);
        run.machine.system.commandArguments = arguments;
        run.main();
        act(run);
        const std::string last = run.text(566);
        std::string tip = run.display.trayTip.value_or("<none>");
        if (const auto at = tip.find(last); at != std::string::npos) tip.replace(at, last.size(), "[566]");
        return tip;
    }
};

TEST_F(TrayTips, DifferByTheirCause) {
    struct Cause {
        const char* name;
        std::vector<std::string> settings;
        const char* arguments;
        std::function<void(AppFixtureRun&)> act;
        const char* tip;
    };
    const auto nothing = [](AppFixtureRun&) {};
    const Cause causes[] = {
        {"started minimised", {"chkStartMinimized=1"}, "", nothing, "Tidvane"},
        {"/SILENT", {}, "/SILENT", nothing, " - Tidvane -[566]"},
        {"close box",
         {},
         "",
         [](AppFixtureRun& run) { run.program.windows.unload(run.main(), forms::UnloadMode::ControlMenu); },
         " - Tidvane -[566]"},
        {"exit during a run",
         {},
         "",
         [](AppFixtureRun& run) {
             run.main().cmdClean.Value = true;
             run.main().ExitProgram();
         },
         " - Tidvane -[566]"},
        {"menu", {}, "", [](AppFixtureRun& run) { run.main().menu("mnuBackground").Click(); }, " - Tidvane -[566]"},
        {"results window",
         {},
         "",
         [](AppFixtureRun& run) { run.program.get<app::frmDiskSizeStats>().cmdBackground.press(); },
         " - Tidvane -[566]"},
        {"end of a run", {"chkMinimizeSystray=1"}, "", [](AppFixtureRun& run) { run.clean(); }, " - Tidvane - [566]"},
    };
    for (const Cause& cause : causes) {
        EXPECT_EQ(tipOf(cause.settings, cause.arguments, cause.act), cause.tip) << cause.name;
    }
}

TEST_F(TrayTips, ASecondCauseFailsInSilenceAndOneIconStands) {
    store({"chkStartMinimized=1"});
    main();
    EXPECT_FALSE(program.windows.unload(main(), forms::UnloadMode::ControlMenu));
    EXPECT_EQ(display.trayTip, "Tidvane");
    EXPECT_EQ(display.trayTips.size(), 2U);
    EXPECT_TRUE(display.boxes.empty());
}

// --- no tray ---------------------------------------------------------------------------------------------------------

struct NoTray : Tray {
    NoTray() { display.tray = false; }
};

TEST_F(NoTray, TheCloseBoxMinimisesAndTellsItOnce) {
    main();
    for (int time = 0; time < 2; ++time) {
        main().State = forms::WindowState::Normal;
        EXPECT_FALSE(program.windows.unload(main(), forms::UnloadMode::ControlMenu));
        EXPECT_EQ(main().State, forms::WindowState::Minimized);
    }
    EXPECT_TRUE(display.hidden.empty());
    EXPECT_EQ(display.warnings.size(), 1U);
}

TEST_F(NoTray, EveryOtherWayIntoTheTrayMinimisesToo) {
    store({"chkStartMinimized=1", "chkMinimizeSystray=1"});
    EXPECT_EQ(main().State, forms::WindowState::Minimized);
    EXPECT_FALSE(main().startsHidden());
    main().State = forms::WindowState::Normal;
    clean();
    EXPECT_EQ(main().State, forms::WindowState::Minimized);
    main().State = forms::WindowState::Normal;
    main().menu("mnuBackground").Click();
    EXPECT_EQ(main().State, forms::WindowState::Minimized);
    EXPECT_TRUE(display.hidden.empty());
}

// --- whether the window is shown behind its load ---------------------------------------------------------------------

TEST_F(Tray, TheStartTellsWhetherTheWindowIsToBeShown) {
    struct Start {
        std::vector<std::string> settings;
        const char* arguments;
        bool hidden;
    };
    const Start starts[] = {
        {{}, "", false},
        {{}, "/AUTO", false},
        {{}, "/SILENT", true},
        {{"chkStartMinimized=1"}, "", true},
        // Shown for the run, and the icon stays.
        {{"chkStartMinimized=1", "chkStartClean=1"}, "", false},
        {{"chkStartClean=1"}, "/SILENT", false},
        {{"chkStartClean=1", "chkMinimizeSystray=1"}, "", true},
        {{"chkStartClean=1", "chkCloseAfterClean=1"}, "", true},
    };
    for (const Start& start : starts) {
        AppFixtureRun run;
        std::vector<std::string> stored{"txtPurgeSpeed=0"};
        stored.insert(stored.end(), start.settings.begin(), start.settings.end());
        run.store(stored);
        run.machine.system.commandArguments = start.arguments;
        EXPECT_EQ(run.main().startsHidden(), start.hidden)
            << start.arguments << " " << (start.settings.empty() ? "" : start.settings.back());
    }
}

TEST_F(Tray, ASecondInstanceIsNotShown) {
    machine.processes.otherInstanceRuns = true;
    EXPECT_TRUE(main().startsHidden());
}

}  // namespace tidvane::tests
