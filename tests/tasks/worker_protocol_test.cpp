// The steps that all workers share.
#include "tasks/task_fixture.h"

namespace tidvane::tests {

struct WorkerProtocol : TaskFixture {};

TEST_F(WorkerProtocol, AnUntickedTaskGetsOneLogLineAndNoRowChange) {
    main().lstTasks.Add(0, name(7), name(7), 2);
    main().lstTasks.setSubItem(name(7), "Status", "as before");
    main().log().empty();
    watch();
    task(7).worker(program, task(7));
    EXPECT_EQ(logLines(), std::vector<std::string>{name(7) + " " + text(509)});
    EXPECT_EQ(panels, (std::vector<std::string>{name(7) + " " + text(509), text(507)}));
    EXPECT_EQ(statusOf(7), "as before");
    EXPECT_EQ(iconOf(7), 2);
    EXPECT_FALSE(main().lstTasks.item(name(7))->selected);
}

TEST_F(WorkerProtocol, AGreyedTaskCountsAsUnticked) {
    EXPECT_EQ(run(7, 2), std::vector<std::string>{name(7) + " " + text(509)});
    EXPECT_EQ(run(18, 2), std::vector<std::string>{name(18) + " " + text(509)});
}

TEST_F(WorkerProtocol, AGreyedTempTaskEndsWithoutALine) {
    for (const int step : {16, 17}) {
        EXPECT_TRUE(run(step, 2).empty()) << step;
        EXPECT_TRUE(panels.empty()) << step;
        EXPECT_EQ(run(step, 0), std::vector<std::string>{name(step) + " " + text(509)}) << step;
    }
}

TEST_F(WorkerProtocol, ATickedTaskShowsThePanelTheStatusThePauseAndTheSelectionInThisOrder) {
    options().txtPurgeSpeed.setText("30");
    tick(gate(15));
    std::vector<std::string> order;
    main().StatusBar1.viewChanged.connect([&] { order.push_back("panel " + panel(1)); });
    const std::int64_t slept = machine.clock.sleptMilliseconds;
    main().lstTasks.viewChanged.connect([&] {
        const forms::ListItem* row = main().lstTasks.item(name(15));
        order.push_back("row '" + row->subItem("Status") + "'" + (row->selected ? " selected" : "") + " after " +
                        std::to_string(machine.clock.sleptMilliseconds - slept));
    });
    task(15).worker(program, task(15));
    ASSERT_GE(order.size(), 3u);
    EXPECT_EQ(order[0], "panel " + text(503) + " " + name(15) + " ...");
    EXPECT_EQ(order[1], "row '" + text(505) + "' after 0");
    EXPECT_EQ(order[2], "row '" + text(505) + "' selected after 30");
    EXPECT_EQ(statusOf(15), text(507));
}

TEST_F(WorkerProtocol, AStopIsSeenBehindThePauseAndTheSelection) {
    options().txtPurgeSpeed.setText("30");
    main().cmdStop_Click();
    const std::int64_t slept = machine.clock.sleptMilliseconds;
    EXPECT_TRUE(run(15).empty());
    EXPECT_EQ(machine.clock.sleptMilliseconds, slept + 30);
    EXPECT_EQ(statusOf(15), text(506));
    EXPECT_TRUE(main().lstTasks.item(name(15))->selected);
    EXPECT_EQ(iconOf(15), 2);
    EXPECT_EQ(display.clipboardClears, 0);
}

TEST_F(WorkerProtocol, APauseThatIsNoNumberIsSkippedAndTheTaskStands) {
    options().txtPurgeSpeed.setText("fast");
    EXPECT_EQ(run(15), cleaned(15));
    EXPECT_EQ(statusOf(15), text(507));
}

TEST_F(WorkerProtocol, AMissingRowIsNoMatter) {
    tick(gate(15));
    main().lstTasks.Clear();
    main().log().empty();
    task(15).worker(program, task(15));
    EXPECT_EQ(logLines(), cleaned(15));
}

TEST_F(WorkerProtocol, ThePlugInsTellThatNoneIsTicked) {
    main().log().empty();
    task(62).worker(program, task(62));
    EXPECT_EQ(logLines(), (std::vector<std::string>{std::string(22, '=') + " " + text(104) + " " + std::string(25, '='),
                                                    text(553) + " ...", text(558)}));
    EXPECT_EQ(panel(1), text(558));
}

}  // namespace tidvane::tests
