#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
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

class RunCommand : public ::testing::Test {
protected:
    RunCommand() { machine.memory.files.putFile(kTempFile, "12345"); }

    nlohmann::json report() {
        std::ifstream file(directory / "r.json");
        return nlohmann::json::parse(file);
    }

    [[nodiscard]] std::size_t browserCleanings() const {
        const auto& started = machine.memory.processes.started;
        return static_cast<std::size_t>(std::count_if(started.begin(), started.end(), [](const auto& process) {
            return contains(process->commandLine, "ClearMyTracksByProcess");
        }));
    }

    tests::HostDirectory directory;
    tests::MemorySession machine;
    Options options;
};

TEST_F(RunCommand, CleansWhatIsTickedAndNothingElse) {
    machine.memory.files.putFile("C:\\Windows\\Prefetch\\a.pf", "x");
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
    EXPECT_TRUE(machine.memory.files.has("C:\\Windows\\Prefetch\\a.pf"));
}

TEST_F(RunCommand, ShowsTheLogLineForLineFromTheStartToTheEnd) {
    options.tick = {"chkTempFolder"};
    machine.run(options);
    const std::string log = machine.log();
    EXPECT_EQ(log.find('\r'), std::string::npos);
    EXPECT_EQ(log.compare(0, 11, "***********"), 0);
    const std::size_t started = log.find("Cleaning tasks [1/64]");
    const std::size_t cleaned = log.find("Temporary folder of Windows cleared <OK>");
    const std::size_t ended = log.find("Closing Tidvane\n");
    EXPECT_LT(started, cleaned);
    EXPECT_LT(cleaned, ended);
    EXPECT_NE(ended, std::string::npos);
}

TEST_F(RunCommand, IsSilentOnTheOutputWhenAskedTo) {
    options.quiet = true;
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(machine.log(), "");
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, TellsMessageBoxesWithTheAnswerGiven) {
    EXPECT_EQ(machine.run(options), exit_status::Done);  // nothing is ticked: two boxes, then the walk
    EXPECT_TRUE(contains(machine.messages(), "[Nothing to clean] "));
    EXPECT_TRUE(contains(machine.messages(), "\nAnswer: OK\n"));
    EXPECT_FALSE(contains(machine.log(), "Nothing to clean"));
}

TEST_F(RunCommand, StoresNothingUnlessAskedTo) {
    options.tick = {"chkTempFolder"};
    options.set = {"txtPurgeSpeed=3"};
    machine.run(options);
    EXPECT_FALSE(machine.memory.files.has(kProgramFolder + "td_config.ini"));
    EXPECT_FALSE(machine.memory.files.has(kProgramFolder + "td_apps.ini"));
    EXPECT_TRUE(machine.memory.files.has(kProgramFolder + "td_last.dat")) << "the date of the run is no setting";
}

TEST_F(RunCommand, StoresTheWindowsItChangedWhenAskedTo) {
    options.tick = {"chkTempFolder"};
    options.set = {"txtAge=30"};
    options.save = true;
    machine.run(options);
    const std::string stored = machine.storedSettings();
    EXPECT_TRUE(contains(stored, "[frmOptions]"));
    EXPECT_TRUE(contains(stored, "chkTempFolder=1"));
    EXPECT_TRUE(contains(stored, "[frmTempAge]"));
    EXPECT_TRUE(contains(stored, "txtAge=30"));
    EXPECT_FALSE(contains(stored, "[frmResources]"));
}

TEST_F(RunCommand, WhatWasStoredHoldsInTheNextRun) {
    options.tick = {"chkTempFolder"};
    options.save = true;
    machine.run(options);
    machine.memory.files.putFile(kTempFile, "again");
    EXPECT_EQ(machine.run({}), exit_status::Done);
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, FindsAWrongSettingBeforeTheStartDoesAnything) {
    options.tick = {"chkTempFolder"};
    options.set = {"txtNowhere=1"};
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_EQ(machine.log(), "");
    EXPECT_TRUE(contains(machine.messages(), "txtNowhere"));
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, RefusesAnotherMethodThanPlainWithoutNamesForThem) {
    machine.memory.files.take(kProgramFolder + "English.lng");
    options.tick = {"chkTempFolder"};
    for (const int method : {1, 2}) {
        options.method = method;
        EXPECT_EQ(machine.run(options), exit_status::Usage);
        EXPECT_TRUE(contains(machine.messages(), "--method plain"));
        EXPECT_TRUE(machine.memory.files.has(kTempFile));
    }
    options.method = 0;
    EXPECT_EQ(machine.run(options), exit_status::Done);
}

TEST_F(RunCommand, RefusesAnotherMethodThanPlainWhereTwoNamesAreEqual) {
    machine.memory.files.putFile(kProgramFolder + "z.lng", "733 Same\r\n734 Same\r\n");
    options.method = 2;
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, WarnsOnceWhereTheListOfProtectedPlacesIsGone) {
    machine.memory.files.take(kProgramFolder + "td_ban.dat");
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    const std::string messages = machine.messages();
    const std::size_t first = messages.find("td_ban.dat");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(messages.find("td_ban.dat", first + 1), std::string::npos);
}

TEST_F(RunCommand, EndsWithStatus4WhereAnotherOneRuns) {
    machine.memory.processes.otherInstanceRuns = true;
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "Tidvane is already running on this machine"));
    EXPECT_EQ(machine.log(), "") << "not even started";
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, KeepsOthersOutFromItsFirstLookAtTheSettingsToItsEnd) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmOptions]\r\nchkTempFolder=1\r\n");
    std::vector<bool> locked;
    const auto note = [&] { locked.push_back(machine.memory.processes.holdsInstanceLock); };
    machine.memory.files.before(kProgramFolder + "td_config.ini", 1, note);
    machine.memory.files.before(kTempFile, 1, note);
    machine.session.commit = [&](std::string&) {
        note();
        return true;
    };
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(locked, std::vector<bool>(3, true));
    EXPECT_FALSE(machine.memory.processes.holdsInstanceLock) << "given back";
    options.tick = {"nonsense"};
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_FALSE(machine.memory.processes.holdsInstanceLock) << "by a refusal, too";
}

TEST_F(RunCommand, EndsWithStatus4WhenTheRegistryCannotBeStored) {
    machine.session.commit = [](std::string& error) {
        error = "The registry is lost.";
        return false;
    };
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "The registry is lost.\n"));
}

TEST_F(RunCommand, CommitsAfterTheEndAndNotAfterARefusal) {
    int commits = 0;
    machine.session.commit = [&](std::string&) {
        ++commits;
        EXPECT_TRUE(contains(machine.log(), "Closing Tidvane"));
        return true;
    };
    options.tick = {"chkTempFolder"};
    machine.run(options);
    EXPECT_EQ(commits, 1);
    options.tick = {"nonsense"};
    machine.run(options);
    EXPECT_EQ(commits, 1);
}

TEST_F(RunCommand, ReportsEveryStepAndWhatReallyHappened) {
    machine.memory.files.putFile("C:\\Windows\\Temp\\folder\\b.tmp", "123");
    // Already as long as the run will write it, so that only what is removed changes the room.
    machine.memory.files.putFile(kProgramFolder + "td_last.dat", "#2009-11-03#\r\n#12:00:00#\r\n");
    options.tick = {"chkTempFolder", "chkRunList"};
    options.json = directory / "r.json";
    (void)machine.memory.registryTree.currentUser()
        ->findOrAdd("Software")
        ->findOrAdd("Microsoft")
        ->findOrAdd("Windows")
        ->findOrAdd("CurrentVersion")
        ->findOrAdd("Explorer")
        ->findOrAdd("RunMRU")
        ->setText("a", "cmd\\1");
    EXPECT_EQ(machine.run(options), exit_status::Done);
    const nlohmann::json object = report();
    EXPECT_EQ(object["machine"], "memory");
    EXPECT_EQ(object["method"], "plain");
    EXPECT_EQ(object["stopped"], false);
    EXPECT_EQ(object["version"], "1.0.0");
    EXPECT_EQ(object["freeAfter"].get<std::uint64_t>() - object["freeBefore"].get<std::uint64_t>(), 8U);
    ASSERT_EQ(object["steps"].size(), static_cast<std::size_t>(app::kSteps));
    for (int step = 1; step <= app::kSteps; ++step) {
        const nlohmann::json& entry = object["steps"][static_cast<std::size_t>(step - 1)];
        EXPECT_EQ(entry["number"], step);
        EXPECT_EQ(entry["ticked"], step == 7 || step == 16);
        EXPECT_FALSE(entry["key"].get<std::string>().empty());
    }
    const nlohmann::json& temp = object["steps"][15];
    EXPECT_EQ(temp["gate"], "frmOptions.chkTempFolder");
    EXPECT_EQ(temp["files"], 2);
    EXPECT_EQ(temp["folders"], 1);
    EXPECT_EQ(temp["bytes"], 8);
    EXPECT_EQ(temp["failed"], 0);
    EXPECT_EQ(temp["icon"], 9);
    EXPECT_EQ(temp["status"], "Finished");
    const nlohmann::json& run = object["steps"][6];
    EXPECT_EQ(run["keys"], 1);
    EXPECT_EQ(run["values"], 1);
    EXPECT_EQ(run["files"], 0);
    EXPECT_TRUE(object["steps"][61]["gate"].is_null());
}

TEST_F(RunCommand, TicksTheOneStepForAllOfInternetExplorerOnlyWhereAnsweredWithYes) {
    options.tick = {"all"};
    options.json = directory / "r.json";
    for (const bool preview : {false, true}) {
        for (const bool yes : {false, true}) {
            options.preview = preview;
            options.answerYes = yes;
            machine.err.str({});
            EXPECT_EQ(machine.run(options), exit_status::Done);
            const std::string messages = machine.messages();
            const std::size_t question = messages.find("form entries and saved passwords at each cleaning");
            ASSERT_NE(question, std::string::npos) << messages;
            EXPECT_EQ(messages.find("at each cleaning", question + 60), std::string::npos) << "once";
            EXPECT_EQ(contains(messages, "agree with --answer yes, or tick it by its name"), !yes);
            const nlohmann::json object = report();
            ASSERT_EQ(object["steps"].size(), 62U);
            for (int step = 1; step < app::kSteps; ++step) {
                const nlohmann::json& entry = object["steps"][static_cast<std::size_t>(step - 1)];
                EXPECT_EQ(entry["ticked"], step != 24 || yes) << step;
            }
        }
    }
}

TEST_F(RunCommand, ANoToAllOfInternetExplorerTicksNoOtherBox) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmIEInDepthClean]\r\nchkIEINDepthClean=0\r\n");
    options.tick = {"ie"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(contains(machine.messages(), "Answer: no\n"));
    EXPECT_EQ(browserCleanings(), 0U);
}

TEST_F(RunCommand, ANoToAllOfInternetExplorerUnticksNoOtherBox) {
    options.tick = {"ie"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_GT(browserCleanings(), 0U) << "chkIEINDepthClean is ticked unless somebody unticks it";
    machine.memory.processes.started.clear();
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmIEInDepthClean]\r\nchkIEINDepthClean=0\r\n");
    for (const std::vector<std::string>& ticks :
         {std::vector<std::string>{"chkIEINDepthClean", "ie"}, {"ie", "chkIEINDepthClean"}}) {
        options.tick = ticks;
        EXPECT_EQ(machine.run(options), exit_status::Done);
        EXPECT_GT(browserCleanings(), 0U);
        machine.memory.processes.started.clear();
    }
}

TEST_F(RunCommand, AnUntickHoldsWhateverTheAnswerAboutAllOfInternetExplorer) {
    options.tick = {"ie"};
    options.untick = {"chkIEINDepthClean", "chkIEURL"};
    options.json = directory / "r.json";
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(contains(machine.messages(), "chkIEINDepthCleanAll stays off; agree with"));
    EXPECT_EQ(browserCleanings(), 0U);
    EXPECT_EQ(report()["steps"][27]["ticked"], false);
    options.answerYes = true;
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_EQ(report()["steps"][23]["ticked"], true);
    EXPECT_EQ(report()["steps"][27]["ticked"], false);
    EXPECT_EQ(browserCleanings(), 1U) << "the one of all";
}

TEST_F(RunCommand, AsksNothingAboutAllOfInternetExplorerWhereItIsUnticked) {
    options.json = directory / "r.json";
    options.answerYes = true;
    options.tick = {"ie"};
    for (const char* untick : {"chkIEINDepthCleanAll", "frmIEInDepthClean.chkIEINDepthCleanAll", "IE", "all"}) {
        options.untick = {untick};
        machine.memory.processes.started.clear();
        EXPECT_EQ(machine.run(options), exit_status::Done);
        EXPECT_FALSE(contains(machine.messages(), "saved passwords")) << machine.messages();
        EXPECT_FALSE(contains(machine.messages(), "stays off"));
        EXPECT_EQ(report()["steps"][23]["ticked"], false) << untick;
        const bool single = std::string_view(untick).ends_with("CleanAll");
        EXPECT_EQ(report()["steps"][24]["ticked"], single);
        EXPECT_EQ(browserCleanings() > 0, single) << "chkIEINDepthClean is ticked as before";
    }
    options.untick = {"windows"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(contains(machine.messages(), "saved passwords")) << "another group is no reason";
}

TEST_F(RunCommand, StoresTheBoxesOfInternetExplorerAsANoLeavesThem) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmIEInDepthClean]\r\nchkIEINDepthClean=0\r\n");
    options.tick = {"all"};
    options.save = true;
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(contains(machine.storedSettings(), "chkIEINDepthClean=0\r\n")) << machine.storedSettings();
    EXPECT_TRUE(contains(machine.storedSettings(), "chkIEINDepthCleanAll=0\r\n"));
    EXPECT_TRUE(contains(machine.storedSettings(), "chkIEHistory=1\r\n"));
}

TEST_F(RunCommand, AsksForNoLengthsWithoutAReport) {
    options.tick = {"chkTempFolder"};
    machine.run(options);
    EXPECT_FALSE(machine.memory.removed.wantBytes);
    EXPECT_EQ(machine.memory.removed.totals.bytes, 0U);
    EXPECT_EQ(machine.memory.removed.totals.files, 1U);
}

TEST_F(RunCommand, CountsWhatStayedAsFailedThoughTheLogSaysOk) {
    machine.memory.files.lock(kTempFile);
    options.tick = {"chkTempFolder"};
    options.json = directory / "r.json";
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "Temporary folder of Windows cleared <OK>"));
    EXPECT_EQ(report()["steps"][15]["failed"], 1);
    EXPECT_EQ(report()["steps"][15]["files"], 0);
}

TEST_F(RunCommand, RemovesNothingWhereTheReportCannotBeWritten) {
    options.tick = {"chkTempFolder"};
    options.json = directory / "no/such/folder/r.json";
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, ACtrlCBeforeTheWalkRemovesNothing) {
    machine.memory.files.putFile(kProgramFolder + "PlugIns\\a.tdp", "x");
    machine.memory.events.onPump(1, [] { StopSignal::raise(); });  // while the start reads the plug-ins
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Stopped);
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
}

TEST_F(RunCommand, ACtrlCIsAClickOnTheStopButtonAtTheNextPump) {
    // The wait for the bin's window lets events in, behind the start of the run and before its first task.
    machine.memory.processes.endsAfterWaits = 1;
    machine.memory.processes.onStart = [](const std::string&) { StopSignal::raise(); };
    options.method = 1;
    options.set = {"chkOpenRecycleBinAsPreview=1"};
    options.tick = {"chkTempFolder"};
    options.json = directory / "r.json";
    EXPECT_EQ(machine.run(options), exit_status::Stopped);
    EXPECT_TRUE(contains(machine.log(), "***** "));
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
    const nlohmann::json object = report();
    EXPECT_EQ(object["stopped"], true);
    EXPECT_EQ(object["method"], "recycle");
    EXPECT_EQ(object["steps"].size(), 62U) << "every step is called, also after a stop";
    EXPECT_EQ(object["steps"][15]["files"], 0);
}

TEST_F(RunCommand, AClickOnAButtonThatIsOffWaits) {
    StopPump pump(machine.memory.events);
    StopSignal signal;
    StopSignal::raise();
    pump.click = [] { return false; };
    pump.DoEvents();
    EXPECT_TRUE(StopSignal::pending());
    pump.click = [] { return true; };
    pump.DoEvents();
    EXPECT_FALSE(StopSignal::pending());
    EXPECT_EQ(machine.memory.events.pumps, 2U) << "the machine's own events get in too";
}

TEST_F(RunCommand, TheTasksThatLetNothingInFinishAndSaySo) {
    // The removal of the file is inside the walk; no task of the group lets events in.
    machine.memory.files.before(kTempFile, 1, [] { StopSignal::raise(); });
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_FALSE(machine.memory.files.has(kTempFile));
    EXPECT_TRUE(contains(machine.messages(), "before Ctrl-C could take effect"));
}

}  // namespace
}  // namespace tidvane::console
