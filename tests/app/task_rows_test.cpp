// The rows of the task list: which stand, in which order, under which key.
#include "app/task_rows.h"

#include "support/app_fixture.h"

namespace tidvane::tests {

struct TaskRows : AppFixture {
    TaskRows() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    std::vector<std::string> keys() {
        std::vector<std::string> all;
        for (const forms::ListItem& row : main().lstTasks.items()) all.push_back(row.key);
        return all;
    }
    // Every gate of the options window that decides over a row.
    static std::vector<std::string> allGates() {
        std::vector<std::string> lines;
        for (const tasks::CleaningTask& task : app::taskCatalogue()) {
            if (task.rowGate.control != nullptr) lines.push_back(std::string(task.rowGate.control) + "=1");
        }
        return lines;
    }
};

TEST_F(TaskRows, AreNoneWithNothingTicked) {
    EXPECT_EQ(main().lstTasks.Count(), 0);
    main().updateStatistic();
    EXPECT_EQ(panel(2), "0");
}

TEST_F(TaskRows, AreFiftyNineAtMostInTheOrderOfTheWalk) {
    store(allGates());
    ASSERT_EQ(main().lstTasks.Count(), 59);
    std::vector<std::string> expected{text(221) + " " + options().cboDrives.Text() + "\\"};
    for (const tasks::CleaningTask& task : app::taskCatalogue()) {
        if (task.step == 1 || task.step == 3 || task.rowGate.control == nullptr) continue;
        expected.push_back(tasks::taskName(program, task));
    }
    EXPECT_EQ(keys(), expected);
    for (const forms::ListItem& row : main().lstTasks.items()) EXPECT_EQ(row.text, row.key);
    main().updateStatistic();
    EXPECT_EQ(panel(2), "59");
}

TEST_F(TaskRows, CarryTheIconOfTheirGroup) {
    store(allGates());
    EXPECT_EQ(main().lstTasks.item(1)->smallIcon, 1);
    EXPECT_EQ(icon(text(220)), 1);
    EXPECT_EQ(icon(text(200)), 2);
    EXPECT_EQ(icon(text(230)), 3);
    EXPECT_EQ(icon(text(237)), 4);
    EXPECT_EQ(icon(text(246)), 5);
    EXPECT_EQ(icon(text(252)), 6);
    EXPECT_EQ(icon(text(260)), 7);
    EXPECT_EQ(icon("Microsoft Office Access"), 8);
}

TEST_F(TaskRows, NeedAOneForGreyedIsNotTicked) {
    tick(options().chkRunList, 2);
    EXPECT_EQ(main().lstTasks.Count(), 0);
}

TEST_F(TaskRows, OfTheSearchNameTheChosenDriveOrAllOfThem) {
    tick(options().chkSearchTasks);
    EXPECT_EQ(keys(), std::vector<std::string>{text(221) + " " + options().cboDrives.Text() + "\\"});
    options().chkAllFixedDrives.Value = 1;
    main().rebuildTaskRows();
    EXPECT_EQ(keys(), std::vector<std::string>{text(221) + " \"All Fixed HD\""});
}

TEST_F(TaskRows, OfTheSearchComeFirstAlsoInAFilledList) {
    tick(options().chkRunList);
    tick(options().chkSearchTasks);
    EXPECT_EQ(main().lstTasks.Count(), 2);
    EXPECT_EQ(keys().back(), text(203));
}

TEST_F(TaskRows, LoseTheSearchAndNothingElseWhenItIsUnticked) {
    tick(options().chkActivateOwnFolder);
    tick(options().chkRunList);
    tick(options().chkSearchTasks);
    tick(options().chkSearchTasks, 0);
    EXPECT_EQ(keys(), (std::vector<std::string>{text(220), text(203)}));
    main().rebuildTaskRows();
    EXPECT_EQ(keys(), (std::vector<std::string>{text(220), text(203)}));
}

TEST_F(TaskRows, PutANewlyTickedTaskLast) {
    tick(options().chkTempFolder);
    tick(options().chkRecentDocuments);
    EXPECT_EQ(keys(), (std::vector<std::string>{text(212), text(200)}));
}

TEST_F(TaskRows, StayInPlaceWhenRebuiltUnchanged) {
    store(allGates());
    const auto before = keys();
    main().rebuildTaskRows();
    EXPECT_EQ(keys(), before);
}

TEST_F(TaskRows, GoWhenTheirGateIsUnticked) {
    tick(options().chkRunList);
    tick(options().chkRunList, 0);
    EXPECT_EQ(main().lstTasks.Count(), 0);
}

TEST_F(TaskRows, AreSharedByTheOwnFoldersAndTheOwnFiles) {
    tick(options().chkActivateOwnFolder);
    EXPECT_EQ(keys(), std::vector<std::string>{text(220)});
    tick(options().chkActivateOwnFiles);
    EXPECT_EQ(keys(), std::vector<std::string>{text(220)});
    tick(options().chkActivateOwnFolder, 0);
    EXPECT_EQ(keys(), std::vector<std::string>{text(220)});
    tick(options().chkActivateOwnFiles, 0);
    EXPECT_TRUE(keys().empty());
}

TEST_F(TaskRows, OfSavedFormsStandByTheirOwnBox) {
    tick(options().chkSafariSavedForms);
    EXPECT_EQ(keys(), std::vector<std::string>{text(260)});
    clean();
    EXPECT_TRUE(logHas(text(260) + " " + text(509)));
    EXPECT_EQ(status(text(260)), "");
    EXPECT_EQ(icon(text(260)), 7);
}

TEST_F(TaskRows, OfSavedFormsAreMissingWithTheCacheTicked) {
    tick(options().chkSafariCache);
    EXPECT_EQ(keys(), std::vector<std::string>{text(259)});
    clean();
    EXPECT_EQ(main().lstTasks.Count(), 1);
}

TEST_F(TaskRows, WithEqualNamesAreOneAndBothWorkersWriteToIt) {
    main();
    program.LangText.set(203, "Same");
    program.LangText.set(211, "Same");
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU");
    std::vector<std::string> statuses;
    main().stepDone.connect([&](const app::StepResult& step) {
        if (step.task->step == 7 || step.task->step == 15) statuses.push_back(step.status);
    });
    tick(options().chkRunList);
    tick(options().chkClipboard);
    EXPECT_EQ(keys(), std::vector<std::string>{"Same"});
    clean();
    EXPECT_EQ(statuses, (std::vector<std::string>{text(507), text(507)}));
    EXPECT_EQ(icon("Same"), 9);
}

TEST_F(TaskRows, HaveNoNamesWithoutALanguageFile) {
    machine.files.take(inFolder("English.lng"));
    store(allGates());
    // 53 rows whose names come from the language, the search's and the five of Office.
    ASSERT_EQ(main().lstTasks.Count(), 59);
    int unnamed = 0;
    for (const forms::ListItem& row : main().lstTasks.items()) unnamed += row.key.empty() ? 1 : 0;
    EXPECT_EQ(unnamed, 53);
    clean();
    for (const forms::ListItem& row : main().lstTasks.items()) {
        if (row.key.empty()) {
            EXPECT_EQ(row.subItem("Status"), "");
        }
    }
}

TEST_F(TaskRows, KeepTheirPlaceWhenTheVersionClearsTheirBoxBehindThem) {
    machine.system.version = {2, 5, 0, 2195, ""};  // 2000: no search assistant, no prefetch folder
    store({"chkSearchWizard=1", "chkPrefetchFolder=1", "chkUserTemp=1"});
    main();
    EXPECT_EQ(keys(), (std::vector<std::string>{text(208), text(213), text(214)}));
    EXPECT_EQ(options().chkSearchWizard.Value, 0);
    EXPECT_FALSE(options().chkSearchWizard.Enabled);
    EXPECT_EQ(options().chkPrefetchFolder.Value, 0);
    EXPECT_EQ(options().chkUserTemp.Value, 1);
    clean();
    EXPECT_TRUE(logHas(text(208) + " " + text(509)));
    EXPECT_TRUE(logHas(text(214) + " " + text(509)));
    EXPECT_EQ(status(text(208)), "");
}

TEST_F(TaskRows, GetTheirIconsAndEmptyStatusesBackAtTheStartOfARun) {
    tick(options().chkSearchTasks);
    tick(options().chkRunList);
    main().lstTasks.setSmallIcon(1, 10);
    main().lstTasks.setSmallIcon(text(203), 10);
    main().lstTasks.setSubItem(1, "Status", "old");
    main().lstTasks.setSubItem(2, "Status", "old");
    std::vector<int> icons;
    std::vector<std::string> statuses;
    main().stepDone.connect([&](const app::StepResult& step) {
        if (step.task->step != 1) return;
        for (int row = 1; row <= 2; ++row) {
            icons.push_back(main().lstTasks.item(row)->smallIcon);
            statuses.push_back(main().lstTasks.item(row)->subItem("Status"));
        }
    });
    clean();
    // The search's row is not reached by key, so its icon stays; the empty status does reach it.
    EXPECT_EQ(icons, (std::vector<int>{10, 2}));
    EXPECT_EQ(statuses.back(), "");
}

}  // namespace tidvane::tests
