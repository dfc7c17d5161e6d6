// Ctrl-C where a task lets it in: the log says so, the status is 3, and what was done by then is stored.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

#include "console_process.h"

namespace tidvane {
namespace {

constexpr const char* kStopLine = "Stopped by the user";

class ConsoleInterruption : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(std::string(TIDVANE_CONSOLE), "") << "the program was not built";
        const tests::Ended made = console.run({"machine", "create", machine(), "--sample"});
        ASSERT_EQ(made.status, 0) << made.err;
        // Makes the program folder too; long enough pauses for a signal to come in between two lines.
        ASSERT_EQ(console.run(command({"settings", "--set", "txtPurgeSpeed=30", "--save"})).status, 0);
    }

    std::string machine() const { return console.home() / "machine"; }
    std::vector<std::string> command(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--machine", machine()});
        return arguments;
    }
    void put(const std::string& belowDrive) const { console.home().file("machine/drive_c/" + belowDrive); }
    bool has(const std::string& belowDrive) const { return console.home().has("machine/drive_c/" + belowDrive); }
    void putProgramFile(const std::string& name, const std::string& content) const {
        console.home().file("data/tidvane/program/" + name, content);
    }
    void waitForLog(const std::string& part) const {
        using namespace std::chrono_literals;
        for (int tries = 0; tries < 3000 && console.output().find(part) == std::string::npos; ++tries) {
            std::this_thread::sleep_for(2ms);
        }
        ASSERT_NE(console.output().find(part), std::string::npos);
    }
    tests::Ended interrupt(std::vector<std::string> arguments, const std::string& atLine) {
        arguments.insert(arguments.end(), {"--json", console.home() / "report.json"});
        const pid_t process = console.start(command(std::move(arguments)));
        waitForLog(atLine);
        ::kill(process, SIGINT);
        return console.end(process);
    }
    nlohmann::json report() const { return nlohmann::json::parse(console.home().content("report.json")); }
    bool registryHas(const std::string& part) const {
        return console.home().content("machine/user.reg").find(part) != std::string::npos;
    }

    tests::ConsoleProcess console;
};

TEST_F(ConsoleInterruption, OfTheJunkSearchLeavesTheRestOfTheRunUndone) {
    putProgramFile("td_ftypes.dat", "*.junk\r\n");
    for (int i = 10; i < 70; ++i) put("A" + std::to_string(i) + "/a.junk");
    ASSERT_TRUE(registryHas("RunMRU]"));
    const tests::Ended ended = interrupt(
        {"run", "--tick", "search", "--tick", "chkRunList", "--set", "chkAllFixedDrives=1"}, "[*.junk] C:\\A20");
    EXPECT_EQ(ended.status, 3) << ended.err;
    EXPECT_NE(ended.out.find(kStopLine), std::string::npos);
    EXPECT_FALSE(has("A10/a.junk"));
    EXPECT_TRUE(has("A69/a.junk"));
    EXPECT_TRUE(registryHas("RunMRU]")) << "the steps behind the search see the stop";
    const nlohmann::json object = report();
    EXPECT_EQ(object["stopped"], true);
    EXPECT_EQ(object["registryStored"], true);
    EXPECT_EQ(object["steps"].size(), 62U);
    EXPECT_GE(object["steps"][0]["files"], 10);
    EXPECT_LT(object["steps"][0]["files"], 60);
    EXPECT_EQ(object["steps"][0]["files"], object["total"]["files"]);
}

TEST_F(ConsoleInterruption, OfThePlugInsStoresWhatWasDoneBefore) {
    putProgramFile("PlugIns/AA first.tdp", "[Info]\r\nTitle=First\r\n[FILES]\r\na=DEL_FILE|C:\\One\\*.tmp\r\n");
    putProgramFile("PlugIns/AB second.tdp", "[Info]\r\nTitle=Second\r\n[FILES]\r\na=DEL_FILE|C:\\Two\\*.tmp\r\n");
    for (int i = 0; i < 500; ++i) put("One/" + std::to_string(i) + ".tmp");
    put("Two/a.tmp");
    ASSERT_TRUE(registryHas("RunMRU]"));
    const tests::Ended ended =
        interrupt({"run", "--tick", "chkRunList", "--plugin", "AA first", "--plugin", "AB second"}, "= Applications =");
    EXPECT_EQ(ended.status, 3) << ended.err;
    EXPECT_NE(ended.out.find(kStopLine), std::string::npos);
    EXPECT_EQ(ended.out.find("First <OK>"), std::string::npos);
    EXPECT_FALSE(has("One/0.tmp"));
    EXPECT_FALSE(has("One/499.tmp")) << "a plug-in that runs is not cut off";
    EXPECT_TRUE(has("Two/a.tmp"));
    EXPECT_FALSE(registryHas("RunMRU]")) << "done before, and stored";
    EXPECT_EQ(report()["stopped"], true);
    EXPECT_EQ(report()["registryStored"], true);
    EXPECT_EQ(report()["steps"][61]["files"], 500);
    EXPECT_EQ(report()["steps"][6]["keys"], 1);
}

TEST_F(ConsoleInterruption, OfASearchLeavesTheFoldersBehind) {
    for (int i = 10; i < 70; ++i) {
        put("Data/A" + std::to_string(i) + "/a.junk");
        put("Data/A" + std::to_string(i) + "/b.junk");
    }
    const tests::Ended ended = interrupt({"search", "*.junk", "--in", "C:\\Data"}, "C:\\Data\\A20\\b.junk <OK>");
    EXPECT_EQ(ended.status, 3) << ended.err;
    EXPECT_NE(ended.out.find(kStopLine), std::string::npos);
    EXPECT_FALSE(has("Data/A10/a.junk"));
    EXPECT_FALSE(has("Data/A20/a.junk"));
    EXPECT_TRUE(has("Data/A69/a.junk"));
    EXPECT_EQ(report()["stopped"], true);
    EXPECT_GE(report()["total"]["files"], 22);
    EXPECT_LT(report()["total"]["files"], 120);
    // And once more, to its end.
    EXPECT_EQ(console.run(command({"search", "*.junk", "--in", "C:\\Data"})).status, 0);
    EXPECT_FALSE(has("Data/A69/a.junk"));
}

TEST_F(ConsoleInterruption, ASecondCtrlCEndsASearchAtOnce) {
    for (int i = 10; i < 70; ++i) put("Data/A" + std::to_string(i) + "/a.junk");
    ASSERT_EQ(console.run(command({"settings", "--set", "txtPurgeSpeed=300", "--save"})).status, 0);
    const pid_t process = console.start(command({"search", "*.junk", "--in", "C:\\Data"}));
    waitForLog("C:\\Data\\A10\\ <OK>");
    ::kill(process, SIGINT);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ::kill(process, SIGINT);
    EXPECT_EQ(console.end(process).status, 128 + SIGINT);
}

}  // namespace
}  // namespace tidvane
