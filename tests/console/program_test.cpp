// The built program from outside: streams, statuses, what it leaves on the host.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <thread>

#include "console_process.h"

namespace tidvane {
namespace {

namespace fs = std::filesystem;

class ConsoleProgram : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(std::string(TIDVANE_CONSOLE), "") << "the program was not built"; }

    std::string machine() const { return console.home() / "machine"; }
    void makeSample() {
        const tests::Ended made = console.run({"machine", "create", machine(), "--sample"});
        ASSERT_EQ(made.status, 0) << made.err;
    }
    tests::Ended run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--machine", machine()});
        return console.run(arguments);
    }
    // Sets the pause to nothing for all runs that follow.
    void hurry() { ASSERT_EQ(run({"settings", "--set", "txtPurgeSpeed=0", "--save"}).status, 0); }
    bool has(const std::string& below) const { return console.home().has("machine/" + below); }
    std::string everything() const {
        std::string list;
        std::vector<std::string> paths;
        for (const auto& entry : fs::recursive_directory_iterator(machine())) {
            std::string line = entry.path().string();
            if (entry.is_regular_file() && !entry.is_symlink()) line += " " + std::to_string(entry.file_size());
            paths.push_back(line);
        }
        std::sort(paths.begin(), paths.end());
        for (const std::string& path : paths) list += path + "\n";
        return list + console.home().content("machine/user.reg") + console.home().content("machine/system.reg");
    }
    // Waits until the run has shown this much of its log.
    void waitForLog(const std::string& part) const {
        using namespace std::chrono_literals;
        for (int tries = 0; tries < 1000 && console.output().find(part) == std::string::npos; ++tries) {
            std::this_thread::sleep_for(10ms);
        }
        ASSERT_NE(console.output().find(part), std::string::npos);
    }

    tests::ConsoleProcess console;
};

constexpr const char* kTemp = "drive_c/Windows/Temp/TMP0001.tmp";

TEST_F(ConsoleProgram, CleansASampleMachineAndEndsWith0) {
    makeSample();
    const tests::Ended ended = run({"run", "--tick", "windows"});
    EXPECT_EQ(ended.status, 0) << ended.err;
    EXPECT_EQ(ended.err, "");
    EXPECT_NE(ended.out.find("Temporary folder of Windows cleared <OK>\n"), std::string::npos);
    EXPECT_FALSE(has(kTemp));
}

TEST_F(ConsoleProgram, AnswersWrongUseWith2AndASentence) {
    makeSample();
    const std::string before = everything();
    for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
             {"run", "--method", "shred"}, {"run", "--tick", "nonsense"}, {"run", "--set", "chkTrash=9"}, {}}) {
        const tests::Ended ended = run(wrong);
        EXPECT_EQ(ended.status, 2);
        EXPECT_EQ(ended.out, "");
        EXPECT_NE(ended.err, "");
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(ConsoleProgram, SaysHowToMakeTheMachineThatIsNotThereYet) {
    const tests::Ended ended = console.run({"run"});
    EXPECT_EQ(ended.status, 4);
    EXPECT_EQ(ended.out, "");
    EXPECT_NE(ended.err.find("machine create '" + (console.home() / "data/tidvane/machine") + "' --sample"),
              std::string::npos);
}

TEST_F(ConsoleProgram, UsesTheMachineOfTheUsersDataDirectory) {
    const std::string place = console.home() / "data/tidvane/machine";
    ASSERT_EQ(console.run({"machine", "create", place}).status, 0);
    const tests::Ended info = console.run({"machine", "info"});
    EXPECT_EQ(info.status, 0) << info.err;
    EXPECT_NE(info.out.find(place), std::string::npos);
    EXPECT_TRUE(console.home().has("data/tidvane/program/English.lng"));
}

TEST_F(ConsoleProgram, RefusesADirectoryThatIsNoWindowsWith4) {
    console.home().file("machine/readme.txt");
    for (const char* command : {"run", "tasks", "settings"}) {
        const tests::Ended ended = run({command});
        EXPECT_EQ(ended.status, 4);
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1);
    }
    EXPECT_EQ(run({"machine", "create", machine()}).status, 4) << "not empty";
    EXPECT_EQ(console.home().content("machine/readme.txt"), "x");
}

TEST_F(ConsoleProgram, RefusesAMachineThatAnotherRunHasOpenWith4) {
    makeSample();
    const int held = ::open(machine().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    const std::string before = everything();
    const tests::Ended ended = run({"run", "--tick", "all"});
    EXPECT_EQ(ended.status, 4);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(run({"tasks"}).status, 0) << "looking is allowed";
    ::close(held);
}

TEST_F(ConsoleProgram, EndsWith4WhenTheRegistryFileWasChangedMeanwhile) {
    makeSample();
    const pid_t process =
        console.start({"--machine", machine(), "run", "--tick", "chkRunList", "--set", "txtPurgeSpeed=5"});
    waitForLog("Run dialog history cleared");
    const std::string theirs = console.home().content("machine/user.reg") + "\n[Software\\\\Theirs] 1\n\"a\"=\"b\"\n";
    console.home().file("machine/user.reg", theirs);
    const tests::Ended ended = console.end(process);
    EXPECT_EQ(ended.status, 4);
    EXPECT_NE(ended.err, "");
    EXPECT_EQ(console.home().content("machine/user.reg"), theirs);
}

TEST_F(ConsoleProgram, SettingsLastOnlyWithSave) {
    makeSample();
    run({"settings", "--set", "txtPurgeSpeed=3"});
    EXPECT_NE(run({"settings"}).out.find("frmOptions.txtPurgeSpeed=10\n"), std::string::npos);
    hurry();
    EXPECT_NE(run({"settings"}).out.find("frmOptions.txtPurgeSpeed=0\n"), std::string::npos);
    run({"run", "--tick", "chkRunList", "--set", "txtAge=77"});
    EXPECT_NE(run({"settings"}).out.find("frmTempAge.txtAge=10\n"), std::string::npos);
    EXPECT_NE(run({"settings"}).out.find("frmOptions.chkRunList=0\n"), std::string::npos);
    run({"run", "--tick", "chkRunList", "--save"});
    EXPECT_NE(run({"settings"}).out.find("frmOptions.chkRunList=1\n"), std::string::npos);
}

TEST_F(ConsoleProgram, WritesTheReportAsOneJsonObject) {
    makeSample();
    const std::string file = console.home() / "report.json";
    ASSERT_EQ(run({"run", "--quiet", "--tick", "windows", "--json", file}).status, 0);
    const auto object = nlohmann::json::parse(console.home().content("report.json"));
    EXPECT_EQ(object["steps"].size(), 62U);
    EXPECT_EQ(object["machine"], fs::canonical(machine()).string());
    EXPECT_GT(object["steps"][15]["bytes"], 60'000'000);
    EXPECT_GE(object["steps"][6]["values"], 3);
}

TEST_F(ConsoleProgram, QuietMeansNoLog) {
    makeSample();
    const tests::Ended ended = run({"run", "--quiet", "--tick", "chkTempFolder"});
    EXPECT_EQ(ended.out, "");
    EXPECT_FALSE(has(kTemp));
}

TEST_F(ConsoleProgram, ACtrlCThatNoTaskLetsInIsToldAtTheEnd) {
    makeSample();
    const pid_t process =
        console.start({"--machine", machine(), "run", "--tick", "windows", "--set", "txtPurgeSpeed=5"});
    waitForLog("Recent documents list cleared");
    ::kill(process, SIGINT);
    const tests::Ended ended = console.end(process);
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.err.find("Ctrl-C"), std::string::npos);
    EXPECT_FALSE(has(kTemp));
}

TEST_F(ConsoleProgram, ASecondCtrlCEndsItAtOnceAndTheNextRunWorks) {
    makeSample();
    const pid_t process =
        console.start({"--machine", machine(), "run", "--tick", "windows", "--set", "txtPurgeSpeed=100"});
    waitForLog("Recent documents list cleared");
    ::kill(process, SIGINT);
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    ::kill(process, SIGINT);
    EXPECT_EQ(console.end(process).status, 128 + SIGINT);
    hurry();
    EXPECT_EQ(run({"run", "--tick", "windows"}).status, 0);
    EXPECT_FALSE(has(kTemp));
}

TEST_F(ConsoleProgram, KilledInTheMiddleItLeavesNothingTornAndTheNextRunWorks) {
    makeSample();
    const std::string user = console.home().content("machine/user.reg");
    const pid_t process =
        console.start({"--machine", machine(), "run", "--save", "--tick", "windows", "--set", "txtPurgeSpeed=100"});
    waitForLog("Run dialog history cleared");
    ::kill(process, SIGKILL);
    EXPECT_EQ(console.end(process).status, 128 + SIGKILL);
    EXPECT_EQ(console.home().content("machine/user.reg"), user) << "written whole at the end, or not at all";
    const tests::Ended next = run({"run", "--set", "txtPurgeSpeed=0"});
    EXPECT_EQ(next.status, 0) << next.err;
    EXPECT_FALSE(has(kTemp)) << "the stored ticks hold";
    EXPECT_NE(console.home().content("machine/user.reg"), user);
}

TEST_F(ConsoleProgram, ClosingItsOutputDoesNotCutTheRunOff) {
    makeSample();
    hurry();
    const std::string command = std::string("'") + TIDVANE_CONSOLE + "' --program '" + (console.home() / "p") +
                                "' --machine '" + machine() + "' run --tick windows 2>/dev/null | head -1 >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    // The shell waits for the last of the two alone: wait for the machine to be free again.
    const int handle = ::open(machine().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(handle, LOCK_EX), 0);
    ::close(handle);
    EXPECT_FALSE(has(kTemp));
    EXPECT_EQ(console.home().content("machine/user.reg").find("RunMRU]"), std::string::npos);
}

TEST_F(ConsoleProgram, TakesNothingFromDamagedSettings) {
    makeSample();
    const std::string folder = "data/tidvane/program/";
    ASSERT_EQ(run({"tasks"}).status, 0);
    const std::string binary("\0\xFF[frmOptions\r\nchkTempFolder\0=1\r\n", 32);
    for (const char* name : {"td_config.ini", "td_last.dat", "td_apps.ini", "td_flog.dat", "Other.lng"}) {
        for (const std::string& content : {std::string(), std::string("["), binary}) {
            console.home().file(folder + name, content);
            const tests::Ended ended = run({"run", "--tick", "chkRunList", "--set", "txtPurgeSpeed=0"});
            EXPECT_EQ(ended.status, 0) << name << ": " << ended.err;
            EXPECT_TRUE(has(kTemp)) << name;
        }
        fs::remove(console.home() / (folder + name));
        fs::create_directory(console.home() / (folder + name));
        EXPECT_EQ(run({"run", "--tick", "chkRunList", "--set", "txtPurgeSpeed=0"}).status, 0) << name;
        fs::remove(console.home() / (folder + name));
    }
}

TEST_F(ConsoleProgram, RefusesADamagedRegistryWith4) {
    makeSample();
    for (const std::string& content :
         {std::string(), std::string("WINE REGISTRY Version 2\n[Soft"), std::string("\0\1\2binary", 9)}) {
        console.home().file("machine/system.reg", content);
        const tests::Ended ended = run({"run", "--tick", "all"});
        EXPECT_EQ(ended.status, 4);
        EXPECT_TRUE(has(kTemp));
        EXPECT_EQ(console.home().content("machine/system.reg"), content);
    }
}

TEST_F(ConsoleProgram, ListsTasksWithoutTouchingAnything) {
    makeSample();
    const std::string before = everything();
    const tests::Ended ended = run({"tasks"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(std::count(ended.out.begin(), ended.out.end(), '\n'), 63);
    EXPECT_EQ(everything(), before);
}

TEST_F(ConsoleProgram, SurvivesABadNumberInTheStoredSettings) {
    makeSample();
    ASSERT_EQ(run({"tasks"}).status, 0);
    console.home().file("data/tidvane/program/td_config.ini",
                        "[frmIEInDepthClean]\r\nchkIEINDepthClean=bad\r\n[frmTempAge]\r\nchkActivite=bad\r\n");
    for (const char* command : {"run", "tasks", "settings"}) {
        const tests::Ended ended = run({command});
        EXPECT_EQ(ended.status, 0) << command << ": " << ended.err;
    }
}

TEST_F(ConsoleProgram, SaysWhyAProgramFolderIsRefused) {
    makeSample();
    const std::string before = everything();
    console.home().file("nofolder");
    const std::string file = console.home() / "nofolder";
    for (const std::string& folder : {file, file + "/below"}) {
        const tests::Ended ended = run({"--program", folder, "run", "--tick", "all"});
        EXPECT_EQ(ended.status, 4);
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(ConsoleProgram, SearchesTheSwitchesInTheArgumentText) {
    makeSample();
    // The pressed look alone starts no run, and the box of a question is not involved.
    const tests::Ended ended = run({"--arguments", "x/AUTOy", "run", "--set", "txtPurgeSpeed=0"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out.find("started on"), ended.out.rfind("started on")) << "one run, not two";
}

}  // namespace
}  // namespace tidvane
