// A junk search that is stopped or killed in the middle.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "e2e/console_run.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

class SearchInterruption : public testing::Test {
protected:
    SearchInterruption() {
        run_.putProgramFile("td_ftypes.dat", "*.bak\r\n*.tmp\r\n");
        EXPECT_EQ(run_.console({"settings", "--set", "txtPurgeSpeed=10", "--save"}).status, console_status::Done);
    }
    void put(const std::string& path) const { putFile(run_.drive() + path, "x"); }
    [[nodiscard]] bool has(const std::string& path) const { return fs::exists(run_.drive() + path); }
    [[nodiscard]] std::vector<std::string> search(const std::string& pause) const {
        return run_.command({"run", "--tick", "search", "--set", "chkAllFixedDrives=1", "--set", "chkMoreLogDetails=1",
                             "--set", "txtPurgeSpeed=" + pause});
    }

    ConsoleRun run_;
};

}  // namespace

TEST_F(SearchInterruption, ControlCIsSeenAtTheNextFolderAndEndsWithTheStatusOfAStop) {
    constexpr int kFolders = 60;
    for (int i = 10; i < 10 + kFolders; ++i) put("/A" + std::to_string(i) + "/a.tmp");
    put("/A20/opa12.bak");
    Process console(search("40"), run_.options());
    ASSERT_TRUE(console.waitForOutput("C:\\A20\\OPA12.BAK")) << console.out() << console.err();
    console.send(SIGINT);
    const ProcessResult result = console.wait();
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::Stopped) << result.err;
    EXPECT_FALSE(has("/A10/a.tmp"));
    // The folder in work is finished, and what was set aside in it is back.
    EXPECT_FALSE(has("/A20/a.tmp"));
    EXPECT_TRUE(has("/A20/opa12.bak"));
    EXPECT_TRUE(has("/A" + std::to_string(9 + kFolders) + "/a.tmp"));
    EXPECT_NE(result.out.find("Stopped by the user"), std::string::npos);
    EXPECT_EQ(result.out.find("Junk search finished"), std::string::npos);
}

TEST_F(SearchInterruption, WhatAKilledSearchHadSetAsideComesBackWithTheNextOne) {
    put("/D/opa12.bak");
    put("/D/a.bak");
    put("/D/b.tmp");
    Process console(search("400"), run_.options());
    // Behind this line the program pauses, with the file under its other name.
    ASSERT_TRUE(console.waitForOutput("C:\\D\\OPA12.BAK")) << console.out() << console.err();
    console.send(SIGKILL);
    EXPECT_EQ(console.wait().signal, SIGKILL);
    EXPECT_TRUE(has("/D/opa12.bak_copy"));
    EXPECT_FALSE(has("/D/opa12.bak"));

    const ProcessResult next = runProcess(search("0"), run_.options());
    EXPECT_EQ(misbehaviour(next), "");
    EXPECT_EQ(next.status, console_status::Done) << next.err;
    EXPECT_TRUE(has("/D/opa12.bak"));
    EXPECT_FALSE(has("/D/opa12.bak_copy"));
    EXPECT_FALSE(has("/D/a.bak"));
    EXPECT_FALSE(has("/D/b.tmp"));
}

}  // namespace tidvane::tests
