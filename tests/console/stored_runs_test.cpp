// Stored settings that make the program clean or end by itself, around the run that was asked for.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "app/task_catalogue.h"
#include "console/stop_signal.h"
#include "memory_session.h"
#include "support/host_directory.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

constexpr const char* kTempFile = "C:\\Windows\\Temp\\a.tmp";

class StoredRuns : public ::testing::Test {
protected:
    StoredRuns() {
        machine.memory.files.putFile(kTempFile, "12345");
        machine.session.commit = [this](std::string&) {
            ++commits;
            return true;
        };
        options.json = directory / "r.json";
    }

    void store(const std::string& frmOptions) {
        machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmOptions]\r\n" + frmOptions);
    }
    nlohmann::json report() {
        std::ifstream file(directory / "r.json");
        return nlohmann::json::parse(file);
    }
    int runsInTheLog() const {
        int runs = 0;
        const std::string log = machine.log();
        for (std::size_t at = log.find("started on"); at != std::string::npos; at = log.find("started on", at + 1)) {
            ++runs;
        }
        return runs;
    }

    tests::HostDirectory directory;
    tests::MemorySession machine;
    Options options;
    int commits = 0;
};

TEST_F(StoredRuns, ACleaningAtTheEndIsNoPartOfTheStepsButOfTheTotal) {
    store("chkEndClean=1\r\nchkTempFolder=1\r\n");
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(runsInTheLog(), 2);
    EXPECT_EQ(report()["steps"].size(), static_cast<std::size_t>(app::kSteps));
    EXPECT_EQ(report()["steps"][15]["files"], 1);
    EXPECT_EQ(report()["total"]["files"], 1);
    EXPECT_EQ(commits, 1);
}

TEST_F(StoredRuns, AClosingBehindARunThatCleansAtItsEndTooReportsTheFirstRun) {
    store("chkEndClean=1\r\nchkCloseAfterClean=1\r\nchkTempFolder=1\r\n");
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(runsInTheLog(), 2);
    ASSERT_EQ(report()["steps"].size(), static_cast<std::size_t>(app::kSteps));
    for (int step = 1; step <= app::kSteps; ++step) {
        EXPECT_EQ(report()["steps"][static_cast<std::size_t>(step - 1)]["number"], step);
    }
    EXPECT_EQ(report()["steps"][15]["files"], 1);
    EXPECT_EQ(commits, 1);
}

TEST_F(StoredRuns, ACleaningAtTheStartComesBeforeTheRunAskedFor) {
    store("chkStartClean=1\r\nchkTempFolder=1\r\n");
    machine.memory.files.putFile("C:\\Windows\\Prefetch\\a.pf", "x");
    options.tick = {"chkPrefetchFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(runsInTheLog(), 2);
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
    EXPECT_FALSE(machine.memory.files.has("C:\\Windows\\Prefetch\\a.pf"));
    EXPECT_EQ(report()["steps"].size(), static_cast<std::size_t>(app::kSteps));
    EXPECT_EQ(report()["steps"][15]["files"], 0) << "gone before";
    EXPECT_EQ(report()["total"]["files"], 2);
}

TEST_F(StoredRuns, AStartThatCleansAndEndsTheProgramIsReportedAndStored) {
    store("chkStartClean=1\r\nchkCloseAfterClean=1\r\nchkTempFolder=1\r\n");
    machine.memory.files.putFile("C:\\Windows\\Prefetch\\a.pf", "x");
    options.tick = {"chkPrefetchFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(runsInTheLog(), 1);
    EXPECT_TRUE(machine.memory.files.has("C:\\Windows\\Prefetch\\a.pf")) << "the command line came too late";
    EXPECT_TRUE(contains(machine.messages(), "the command line changed nothing"));
    EXPECT_EQ(commits, 1);
    EXPECT_EQ(report()["steps"].size(), static_cast<std::size_t>(app::kSteps));
    EXPECT_EQ(report()["steps"][15]["files"], 1);
    EXPECT_EQ(report()["registryStored"], true);
}

TEST_F(StoredRuns, AStartThatWouldCleanIsRefusedWhereItsMethodHasNoName) {
    machine.memory.files.take(kProgramFolder + "English.lng");
    store("chkStartClean=1\r\nchkTempFolder=1\r\ncboKillMethod=2\r\n");
    options.method = 0;
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_EQ(machine.log(), "") << "refused before the start";
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
    EXPECT_TRUE(contains(machine.messages(), "clean at the start"));
}

TEST_F(StoredRuns, AReportThatCannotBeOpenedIsFoundBeforeTheStartCleans) {
    store("chkStartClean=1\r\nchkTempFolder=1\r\n");
    options.json = directory / "no/such/folder/r.json";
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
    EXPECT_TRUE(contains(machine.messages(), "nothing was removed"));
}

TEST_F(StoredRuns, AStopBehindACleaningAtTheStartStoresAndSaysWhatIsSo) {
    store("chkStartClean=1\r\nchkTempFolder=1\r\n");
    machine.memory.files.before(kTempFile, 1, [] { StopSignal::raise(); });
    EXPECT_EQ(machine.run(options), exit_status::Stopped);
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
    EXPECT_EQ(runsInTheLog(), 1);
    EXPECT_EQ(commits, 1);
    EXPECT_TRUE(contains(machine.messages(), "had removed something already"));
    EXPECT_FALSE(contains(machine.messages(), "before anything was removed"));
    EXPECT_EQ(report()["stopped"], true);
}

TEST_F(StoredRuns, AStopBeforeAnythingWasRemovedSaysSoAndStoresToo) {
    machine.memory.files.putFile(kProgramFolder + "PlugIns\\a.tdp", "x");
    machine.memory.events.onPump(1, [] { StopSignal::raise(); });
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Stopped);
    EXPECT_EQ(commits, 1);
    EXPECT_TRUE(contains(machine.messages(), "Stopped before anything was removed.\n"));
}

TEST_F(StoredRuns, TheReportIsWrittenBehindTheRegistryAndTellsOfItsLoss) {
    options.tick = {"chkTempFolder"};
    machine.session.commit = [this](std::string& error) {
        EXPECT_EQ(std::filesystem::file_size(directory / "r.json"), 0U);
        error = "The registry is lost.";
        return false;
    };
    EXPECT_EQ(machine.run(options), exit_status::MachineUnusable);
    EXPECT_EQ(report()["registryStored"], false);
}

TEST_F(StoredRuns, AReportThatIsNotWrittenWholeEndsWith4) {
    options.tick = {"chkTempFolder"};
    options.json = "/dev/full";
    EXPECT_EQ(machine.run(options), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "could not be written whole"));
    EXPECT_EQ(commits, 1);
}

}  // namespace
}  // namespace tidvane::console
