// The widget, the results window and the tray start a run through the main window's timer, also inside a run.
#include <functional>

#include "app/frmDiskSizeStats.h"
#include "desktop/frmWidget.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct RunsFromElsewhere : AppFixture {
    RunsFromElsewhere() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }

    int runs = 0;  // begun
    int ends = 0;
    // Counts runs, and acts once behind step 3 of the first one.
    void watch(const std::function<void()>& act = {}) {
        main().stepDone.connect([this, act](const app::StepResult& step) {
            if (step.task->step == 1) ++runs;
            if (step.task->step == 62) ++ends;
            if (step.task->step == 3 && runs == 1 && act) act();
        });
    }
    // The second that the timer waits is over.
    void secondPasses() {
        if (main().tmrCleanButton.Enabled) main().tmrCleanButton.fire();
    }
};

TEST_F(RunsFromElsewhere, WaitOneSecondFirst) {
    main();
    watch();
    EXPECT_EQ(main().tmrCleanButton.Interval, 1000);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
    program.get<desktop::frmWidget>().cmdClean.press();
    EXPECT_EQ(runs, 0);
    secondPasses();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
}

TEST_F(RunsFromElsewhere, OfTheWidgetEntersARunUnderWay) {
    main();
    watch([this] {
        program.get<desktop::frmWidget>().cmdClean.press();
        secondPasses();
        // The one inside is over, and the one around it goes on.
        EXPECT_EQ(ends, 1);
        EXPECT_FALSE(main().cmdClean.Value);
    });
    clean();
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(ends, 2);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
}

TEST_F(RunsFromElsewhere, OfTheResultsWindowEntersARunUnderWay) {
    main();
    watch([this] {
        program.get<app::frmDiskSizeStats>().cmdReclean.press();
        secondPasses();
    });
    clean();
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(ends, 2);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
}

TEST_F(RunsFromElsewhere, OfTheTrayIsClosedDuringARun) {
    main();
    bool open = true;
    watch([&] { open = main().menu("mnuCleanSystray").Enabled; });
    clean();
    EXPECT_FALSE(open);
}

TEST_F(RunsFromElsewhere, OfTheWidgetDoesNotEnterItsOwnRun) {
    main();
    watch([this] {
        program.get<desktop::frmWidget>().cmdClean.press();
        secondPasses();
    });
    program.get<desktop::frmWidget>().cmdClean.press();
    secondPasses();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(main().tmrCleanButton.Enabled);
}

TEST_F(RunsFromElsewhere, OfTheWidgetLeavesTheTrayIconStanding) {
    main().toBackground();
    program.get<desktop::frmWidget>().cmdClean.press();
    EXPECT_TRUE(main().Visible);
    EXPECT_TRUE(display.trayTip.has_value());
}

}  // namespace tidvane::tests
