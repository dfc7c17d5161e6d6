// What a run reports of every step: what really happened, besides what the log says.
#include "support/app_fixture.h"

namespace tidvane::tests {

struct StepResults : AppFixture {
    StepResults() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0"}); }
    std::vector<app::StepResult> steps;
    void runAndCollect() {
        main().stepDone.connect([this](const app::StepResult& step) { steps.push_back(step); });
        clean();
    }
    const app::StepResult& step(int number) { return steps.at(static_cast<std::size_t>(number - 1)); }
};

TEST_F(StepResults, ComeSixtyTwoTimesInOrder) {
    runAndCollect();
    ASSERT_EQ(steps.size(), 62u);
    for (int number = 1; number <= 62; ++number) {
        EXPECT_EQ(step(number).task->step, number);
        EXPECT_FALSE(step(number).ticked);
        EXPECT_EQ(step(number).status, "");
        EXPECT_EQ(step(number).icon, 0);
        EXPECT_GE(step(number).milliseconds, 0.0);
        EXPECT_EQ(step(number).removed, platform::RemovalTotals{});
    }
}

TEST_F(StepResults, CountFilesFoldersAndBytesOfAFolderTask) {
    store({"chkTempFolder=1"});
    machine.files.putFile("C:\\Windows\\Temp\\a", "12345");
    machine.files.putFile("C:\\Windows\\Temp\\deep\\b", "123");
    machine.files.putFile("C:\\Windows\\Temp\\deep\\deeper\\c", "1");
    machine.removed.wantBytes = true;
    runAndCollect();
    const platform::RemovalTotals& removed = step(16).removed;
    EXPECT_EQ(removed.files, 3u);
    EXPECT_EQ(removed.folders, 2u);
    EXPECT_EQ(removed.bytes, 9u);
    EXPECT_EQ(removed.failed, 0u);
    EXPECT_EQ(removed.keys, 0u);
    EXPECT_TRUE(step(16).ticked);
    EXPECT_EQ(step(16).status, text(507));
    EXPECT_EQ(step(16).icon, 9);
    EXPECT_EQ(step(17).removed, platform::RemovalTotals{});
}

TEST_F(StepResults, CountKeysAndValuesOfARegistryTask) {
    store({"chkRunList=1", "chkRecentDocuments=1"});
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", 3);
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU\\sub", 2);
    runAndCollect();
    EXPECT_EQ(step(7).removed.keys, 2u);
    EXPECT_EQ(step(7).removed.values, 5u);
    EXPECT_EQ(step(4).removed.keys, 0u);
    EXPECT_EQ(step(4).icon, 10);
    EXPECT_EQ(step(4).status, text(508));
}

TEST_F(StepResults, CountWhatStayedAsFailedWhileTheLogSaysOk) {
    store({"chkTempFolder=1"});
    machine.files.putFile("C:\\Windows\\Temp\\locked", "12345");
    machine.files.putFile("C:\\Windows\\Temp\\free", "1");
    machine.files.lock("C:\\Windows\\Temp\\locked");
    runAndCollect();
    EXPECT_EQ(step(16).removed.files, 1u);
    EXPECT_EQ(step(16).removed.failed, 1u);
    EXPECT_TRUE(machine.files.has("C:\\Windows\\Temp\\locked"));
    EXPECT_TRUE(logHas(text(212) + " " + text(504) + " <OK>"));
    EXPECT_EQ(step(16).icon, 9);
}

TEST_F(StepResults, ReportTheFirstRowForTheSearch) {
    store({"chkSearchTasks=1", "chkRunList=1"});
    runAndCollect();
    EXPECT_TRUE(step(1).ticked);
    EXPECT_EQ(step(1).icon, 1);
}

TEST_F(StepResults, ReportNoRowForTheStepsWithoutOne) {
    main();
    // The names of the two steps stand as rows of others.
    program.LangText.set(203, text(231));
    program.LangText.set(202, text(104));
    tick(options().chkRunList);
    tick(options().chkComputerList);
    runAndCollect();
    EXPECT_EQ(step(24).icon, 0);
    EXPECT_EQ(step(62).icon, 0);
}

TEST_F(StepResults, SayStoppedBehindAStop) {
    store({"chkClipboard=1"});
    main().stepDone.connect([this](const app::StepResult& result) {
        if (result.task->step == 1) main().cmdStop.press();
    });
    runAndCollect();
    ASSERT_EQ(steps.size(), 62u);
    EXPECT_EQ(step(15).status, text(506));
    EXPECT_EQ(step(15).icon, 2);
}

struct FaultsInARun : StepResults {
    FaultsInARun() {
        store({"chkTempFolder=1", "chkUserTemp=1", "chkPrefetchFolder=1", "chkRunList=1", "chkTrash=1"});
        machine.files.putFile("C:\\Windows\\Temp\\a", "1");
        machine.files.putFile("C:\\Windows\\Temp\\sub\\b", "1");
        machine.files.putFile("C:\\Windows\\Prefetch\\p.pf", "1");
    }
    std::vector<std::string> linesOf(int name) {
        std::vector<std::string> found;
        for (const std::string& line : logLines()) {
            if (line.starts_with(text(name))) found.push_back(line);
        }
        return found;
    }
};

TEST_F(FaultsInARun, ADeniedFolderIsToldAsEmptyAndCleaned) {
    machine.files.refuse("C:\\Windows\\Temp", platform::operation::List, platform::Status::Denied);
    runAndCollect();
    EXPECT_EQ(linesOf(212),
              (std::vector<std::string>{text(212) + ": C:\\Windows\\Temp", text(212) + " 0 " + text(500) + " (0 Byte)",
                                        text(212) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.has("C:\\Windows\\Temp\\a"));
    EXPECT_EQ(steps.size(), 62u);
}

TEST_F(FaultsInARun, ADeniedSubfolderMakesTheCountsZeroAndTheRestGoes) {
    machine.files.deny("C:\\Windows\\Temp\\sub");
    runAndCollect();
    EXPECT_EQ(linesOf(212)[1], text(212) + " 0 " + text(500) + " (0 Byte)");
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\a"));
    EXPECT_TRUE(machine.files.has("C:\\Windows\\Temp\\sub\\b"));
}

TEST_F(FaultsInARun, AFileThatVanishesIsNoMatter) {
    machine.files.vanishBefore("C:\\Windows\\Temp\\a", 2);
    runAndCollect();
    EXPECT_EQ(linesOf(212).back(), text(212) + " " + text(504) + " <OK>");
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\sub"));
}

TEST_F(FaultsInARun, AFolderThatVanishesIsNotFound) {
    machine.files.take("C:\\Windows\\Prefetch");
    runAndCollect();
    EXPECT_EQ(linesOf(214), std::vector<std::string>{text(214) + " <Nicht gefunden>"});
    EXPECT_EQ(status(text(214)), text(498));
    EXPECT_EQ(icon(text(214)), 10);
}

TEST_F(FaultsInARun, ADeniedKeyIsNotFound) {
    putKey("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU");
    platform::RegistryKeyPtr key = machine.registryTree.currentUser();
    for (const char* part : {"Software", "Microsoft", "Windows", "CurrentVersion", "Explorer", "RunMRU"}) {
        key = key->find(part);
    }
    key->denied = true;
    runAndCollect();
    EXPECT_EQ(linesOf(203), std::vector<std::string>{text(203) + " " + text(499)});
    EXPECT_EQ(step(7).removed.keys, 0u);
}

TEST_F(FaultsInARun, ARecycleBinThatRefusesIsToldAsCleaned) {
    machine.shell.putRecycled("C:\\x", "12");
    machine.shell.queryFails = 5;
    machine.shell.emptyFails = 5;
    runAndCollect();
    EXPECT_EQ(linesOf(210), (std::vector<std::string>{text(210) + " 0 " + text(500) + " (0.00 MB)",
                                                      text(210) + " " + text(504) + " <OK>"}));
}

TEST_F(FaultsInARun, AFullDiskCostsTheStateFilesAndNotTheRun) {
    machine.files.setDiskFull('C', true);
    runAndCollect();
    EXPECT_EQ(steps.size(), 62u);
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\a"));
    EXPECT_EQ(machine.files.bytesOf(inFolder("td_last.dat")), "#2009-11-02#\r\n#07:05:09#\r\n");
}

TEST_F(FaultsInARun, ShowsNoBox) {
    machine.files.deny("C:\\Windows\\Temp");
    machine.files.deny("C:\\Windows\\Prefetch");
    machine.shell.queryFails = machine.shell.emptyFails = 5;
    runAndCollect();
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(FaultsInARun, AProtectedTempFolderIsWarnedOfAndKept) {
    machine.shell.specialFolders[36] = "";
    main();
    program.temporaryFolder = "C:\\Windows";
    machine.files.putFile("C:\\Windows\\system.ini", "x");
    runAndCollect();
    EXPECT_TRUE(machine.files.has("C:\\Windows\\system.ini"));
    EXPECT_FALSE(machine.warnings.empty());
    // Without a Windows folder "\Temp" is no full path: nothing is found below it.
    EXPECT_EQ(linesOf(212), std::vector<std::string>{text(212) + " <Nicht gefunden>"});
    EXPECT_EQ(linesOf(213).back(), text(213) + " " + text(504) + " <OK>");
}

}  // namespace tidvane::tests
