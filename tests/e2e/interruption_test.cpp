// A run that is stopped, killed, short of room or not alone leaves whole files behind it.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <random>
#include <regex>
#include <set>
#include <thread>

#include "e2e/console_run.h"
#include "e2e/registry_sections.h"
#include "support/tree_state.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFirstTrace = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs";
constexpr const char* kLastTrace = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder\\Favorites";
constexpr int kBulk = 3000;  // keys beside the traces, so that writing the registry takes a while
constexpr const char* kLastRunBefore = "#2009-11-03#\r\n#07:05:09#\r\n";

std::string keyText(const std::string& key) {
    return "\n[" + sectionPath(key) + "] 1700000000\n#time=1da176b8a1d0000\n\"a\"=\"a value of some length\"\n";
}

class Interruption : public testing::Test {
protected:
    Interruption() {
        registryBefore_ = run_.machineFile("user.reg");
        for (int i = 0; i < kBulk; ++i) registryBefore_ += keyText("Software\\Bulk\\Key" + std::to_string(i));
        registryBefore_ += keyText(kFirstTrace) + keyText(kLastTrace);
        // Stored once, so that the configuration has something to lose.
        EXPECT_EQ(run_.console({"settings", "--set", "txtPurgeSpeed=5", "--save"}).status, console_status::Done);
        configurationBefore_ = run_.programFile("td_config.ini");
        putTraces();
    }

    void putTraces() const {
        run_.putMachineFile("user.reg", registryBefore_);
        run_.putProgramFile("td_last.dat", kLastRunBefore);
        run_.putProgramFile("td_config.ini", configurationBefore_);
        for (int i = 0; i < 20; ++i) {
            putFile(run_.drive() + kWindowsTemp + "/sub/" + std::to_string(i) + ".tmp", std::string(20000, 'x'));
            putFile(run_.drive() + kUserTemp + "/" + std::to_string(i) + ".tmp", std::string(20000, 'x'));
        }
    }
    [[nodiscard]] bool hasKey(const std::string& key) const {
        return registrySections(run_.machineFile("user.reg")).sections.contains(sectionPath(key));
    }
    // Old or new, and nothing between the two.
    void expectWholeFiles() const {
        const std::string registry = run_.machineFile("user.reg");
        if (registry != registryBefore_) {
            const RegistrySections sections = registrySections(registry);
            EXPECT_FALSE(sections.sections.contains(sectionPath(kFirstTrace)));
            EXPECT_TRUE(sections.sections.contains("Software\\\\Bulk\\\\Key0"));
            EXPECT_TRUE(sections.sections.contains("Software\\\\Bulk\\\\Key" + std::to_string(kBulk - 1)));
            EXPECT_EQ(bulkIn(sections), kBulk);
        }
        const std::string last = run_.programFile("td_last.dat");
        static const std::regex form("#\\d{4}-\\d\\d-\\d\\d#\r\n#\\d\\d:\\d\\d:\\d\\d#\r\n");
        EXPECT_TRUE(std::regex_match(last, form)) << last;
        const std::string configuration = run_.programFile("td_config.ini");
        EXPECT_TRUE(configuration.starts_with("[")) << configuration.substr(0, 40);
        EXPECT_TRUE(configuration.ends_with("\n"));
        EXPECT_GE(configuration.size() + 200, configurationBefore_.size());
    }
    static int bulkIn(const RegistrySections& sections) {
        int count = 0;
        for (const auto& [path, section] : sections.sections) {
            if (path.starts_with("Software\\\\Bulk\\\\") && section.lines.size() == 2) ++count;
        }
        return count;
    }
    // Files of the machine's and the program's top folders.
    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> result;
        for (const std::string& folder : {run_.machine(), run_.program()}) {
            for (const auto& entry : fs::directory_iterator(folder)) result.insert(entry.path().string());
        }
        return result;
    }
    [[nodiscard]] std::vector<std::string> slowRun(const std::string& pause) const {
        return run_.command({"run", "--tick", "windows", "--set", "txtPurgeSpeed=" + pause, "--save"});
    }

    ConsoleRun run_;
    std::string registryBefore_;
    std::string configurationBefore_;
};

}  // namespace

// --- killed ----------------------------------------------------------------------------------------------------------

TEST_F(Interruption, AKilledRunLeavesWholeFilesAndTheNextOneWorks) {
    std::mt19937 random(20240611);
    const std::set<std::string> namesBefore = names();
    int killed = 0;
    for (int round = 0; round < 10; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        putTraces();
        Process console(slowRun("10"), run_.options());
        // Half of them anywhere in the run, half of them at its end, where the files are written.
        const bool atEnd = round % 2 == 1;
        ASSERT_TRUE(console.waitForOutput(atEnd ? "Sort the Favorites by name" : "starting up")) << console.err();
        std::this_thread::sleep_for(std::chrono::microseconds(random() % (atEnd ? 120'000 : 500'000)));
        console.send(SIGKILL);
        const ProcessResult result = console.wait();
        if (result.signal == SIGKILL) ++killed;
        expectWholeFiles();

        const ProcessResult next = run_.console({"run", "--tick", "windows", "--set", "txtPurgeSpeed=0"});
        EXPECT_EQ(misbehaviour(next), "");
        EXPECT_EQ(next.status, console_status::Done) << next.err;
        EXPECT_FALSE(hasKey(kFirstTrace));
        EXPECT_FALSE(hasKey(kLastTrace));
        EXPECT_EQ(bulkIn(registrySections(run_.machineFile("user.reg"))), kBulk);
        EXPECT_TRUE(fs::is_empty(run_.drive() + kWindowsTemp));
        EXPECT_TRUE(fs::is_empty(run_.drive() + kUserTemp));
        EXPECT_EQ(names(), namesBefore) << "something of the killed run lies around";
    }
    EXPECT_GE(killed, 5) << "the runs were over before they could be killed: this test showed nothing";
}

// --- stopped ---------------------------------------------------------------------------------------------------------

TEST_F(Interruption, ControlCBeforeTheRunRemovesNothing) {
    // It has to come between the first line of the start and the first one of the run: tried until it does.
    for (int attempt = 0; attempt < 50; ++attempt) {
        putTraces();
        Process console(run_.command({"run", "--tick", "windows", "--set", "txtPurgeSpeed=0"}), run_.options());
        ASSERT_TRUE(console.waitForOutput("starting up")) << console.err();
        console.send(SIGSTOP);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        const bool early = console.isRunning() && console.out().find("Cleaning tasks") == std::string::npos;
        if (!early) {
            console.send(SIGKILL);
            console.wait();
            continue;
        }
        console.send(SIGINT);
        console.send(SIGCONT);
        const ProcessResult result = console.wait();
        EXPECT_EQ(misbehaviour(result), "");
        EXPECT_EQ(result.status, console_status::Stopped) << result.err;
        EXPECT_NE(result.err.find("Stopped before anything was removed."), std::string::npos) << result.err;
        EXPECT_TRUE(run_.machineFile("user.reg") == registryBefore_);
        EXPECT_FALSE(fs::is_empty(run_.drive() + kUserTemp));
        EXPECT_EQ(run_.programFile("td_last.dat"), kLastRunBefore);
        return;
    }
    ADD_FAILURE() << "no run could be caught at its start";
}

// A stop takes effect where a task lets it in. Those that delete a folder or a key as a whole do not.
TEST_F(Interruption, ControlCDuringTasksThatLetNoStopInIsTold) {
    Process console(slowRun("5"), run_.options());
    ASSERT_TRUE(console.waitForOutput("Recent documents list cleared")) << console.err();
    console.send(SIGINT);
    const ProcessResult result = console.wait();

    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::Done);
    EXPECT_NE(result.err.find("before Ctrl-C could take effect"), std::string::npos) << result.err;
    EXPECT_FALSE(hasKey(kFirstTrace));
    EXPECT_FALSE(hasKey(kLastTrace));
    EXPECT_NE(run_.programFile("td_last.dat"), kLastRunBefore);
    expectWholeFiles();
}

TEST_F(Interruption, TheSecondControlCEndsTheProcess) {
    Process console(slowRun("3000"), run_.options());
    ASSERT_TRUE(console.waitForOutput("Removal method")) << console.err();
    console.send(SIGINT);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    console.send(SIGINT);
    const ProcessResult result = console.wait();
    EXPECT_EQ(result.signal, SIGINT);
    EXPECT_TRUE(run_.machineFile("user.reg") == registryBefore_);
    expectWholeFiles();
}

TEST_F(Interruption, ALogThatNobodyReadsAnyMoreDoesNotCutTheRunOff) {
    std::string line;
    for (const std::string& word : slowRun("5")) line += "'" + word + "' ";
    const ProcessResult result = runProcess({"sh", "-c", "{ " + line + "; echo $? >&2; } | head -n 1"}, run_.options());
    EXPECT_TRUE(result.err.ends_with("0\n")) << result.err;
    EXPECT_FALSE(hasKey(kLastTrace));
}

// --- not alone -------------------------------------------------------------------------------------------------------

TEST_F(Interruption, ASecondConsoleIsRefusedAndChangesNothing) {
    Process first(slowRun("20"), run_.options());
    ASSERT_TRUE(first.waitForOutput("Recent documents list cleared")) << first.err();
    first.send(SIGSTOP);
    const TreeState before = treeState(run_.directory().path());

    const ProcessResult second = run_.console({"run", "--tick", "windows", "--set", "txtPurgeSpeed=0", "--save"});
    EXPECT_EQ(second.status, console_status::MachineUnusable);
    EXPECT_EQ(misbehaviour(second), "");
    EXPECT_NE(second.err.find("Tidvane"), std::string::npos) << second.err;
    EXPECT_EQ(second.out, "");
    EXPECT_EQ(changesBetween(before, treeState(run_.directory().path())), "");
    // To look is allowed.
    EXPECT_EQ(run_.console({"tasks"}).status, console_status::Done);
    EXPECT_EQ(run_.console({"machine", "info"}).status, console_status::Done);

    first.send(SIGCONT);
    EXPECT_EQ(first.wait().status, console_status::Done);
    EXPECT_FALSE(hasKey(kLastTrace));
}

TEST_F(Interruption, ASecondConsoleWithTheSameProgramFolderIsRefused) {
    Process first(slowRun("20"), run_.options());
    ASSERT_TRUE(first.waitForOutput("Recent documents list cleared")) << first.err();
    first.send(SIGSTOP);
    const std::string other = run_.directory() / "other";
    ASSERT_EQ(runProcess({TIDVANE_CONSOLE, "machine", "create", other}, run_.options()).status, 0);
    putFile(other + "/drive_c" + kWindowsTemp + "/trace.tmp", "x");
    const TreeState before = treeState(run_.directory().path());

    const ProcessResult second = runProcess(
        {TIDVANE_CONSOLE, "--machine", other, "--program", run_.program(), "run", "--tick", "windows"}, run_.options());
    EXPECT_EQ(second.status, console_status::MachineUnusable);
    EXPECT_NE(second.err.find("already running"), std::string::npos) << second.err;
    EXPECT_EQ(changesBetween(before, treeState(run_.directory().path())), "");

    first.send(SIGCONT);
    EXPECT_EQ(first.wait().status, console_status::Done);
}

// --- short of room ---------------------------------------------------------------------------------------------------

TEST_F(Interruption, ARegistryThatCannotBeWrittenStaysTheOldOne) {
    const std::set<std::string> namesBefore = names();
    ProcessOptions options = run_.options();
    options.largestFile = 64u << 10u;
    ASSERT_GT(registryBefore_.size(), *options.largestFile);
    const ProcessResult result =
        run_.console({"run", "--tick", "windows", "--set", "txtPurgeSpeed=0", "--quiet"}, options);
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::MachineUnusable);
    EXPECT_NE(result.err.find("user.reg"), std::string::npos) << result.err;
    EXPECT_TRUE(run_.machineFile("user.reg") == registryBefore_);
    EXPECT_EQ(names(), namesBefore);
}

TEST_F(Interruption, AConfigurationThatCannotBeWrittenStaysTheOldOne) {
    const std::set<std::string> namesBefore = names();
    ProcessOptions options = run_.options();
    options.largestFile = 1u << 10u;
    ASSERT_GT(configurationBefore_.size(), *options.largestFile);
    const ProcessResult result =
        run_.console({"run", "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0", "--quiet", "--save"}, options);
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::MachineUnusable);
    EXPECT_NE(result.err.find("could not be stored"), std::string::npos) << result.err;
    EXPECT_EQ(run_.programFile("td_config.ini"), configurationBefore_);
    EXPECT_EQ(names(), namesBefore);
}

TEST_F(Interruption, SettingsThatCannotBeStoredAreNoSuccess) {
    const std::string place = run_.program() + "/td_config.ini";
    fs::remove(place);
    putFile(place + "/inside", "kept");
    const ProcessResult result = run_.console({"settings", "--set", "txtPurgeSpeed=7", "--save"});
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::MachineUnusable);
    EXPECT_NE(result.err.find("could not be stored"), std::string::npos) << result.err;
    EXPECT_EQ(contentOfFile(place + "/inside"), "kept");
}

TEST_F(Interruption, ALastRunThatCannotBeWrittenStaysTheOldOne) {
    ProcessOptions options = run_.options();
    options.largestFile = 20;
    const std::set<std::string> namesBefore = names();
    const ProcessResult result =
        run_.console({"run", "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0", "--quiet"}, options);
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::Done) << result.err;
    EXPECT_EQ(run_.programFile("td_last.dat"), kLastRunBefore);
    EXPECT_EQ(names(), namesBefore);
}

// The same with a disk that is really full, where the host lets one be made; where not, the limits above stand for it.
TEST_F(Interruption, AFullDiskKeepsTheOldFiles) {
    const std::string disk = run_.directory() / "disk";
    fs::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=4m,mode=755") != 0) {
        RecordProperty("disk", "no mount");
        return;
    }
    fs::copy(run_.machine(), disk + "/machine", fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    fs::copy(run_.program(), disk + "/program", fs::copy_options::recursive);
    {
        std::string filler(4u << 20u, 'x');
        std::FILE* file = std::fopen((disk + "/filler").c_str(), "wb");
        (void)std::fwrite(filler.data(), 1, filler.size(), file);
        (void)std::fclose(file);
    }
    const ProcessResult result =
        runProcess({TIDVANE_CONSOLE, "--machine", disk + "/machine", "--program", disk + "/program", "run", "--tick",
                    "chkRecentDocuments", "--set", "txtPurgeSpeed=0", "--save"},
                   run_.options());
    EXPECT_EQ(misbehaviour(result), "");
    EXPECT_EQ(result.status, console_status::MachineUnusable);
    EXPECT_NE(result.err.find("full"), std::string::npos) << result.err;
    EXPECT_TRUE(contentOfFile(disk + "/machine/user.reg") == registryBefore_);
    EXPECT_EQ(contentOfFile(disk + "/program/td_config.ini"), configurationBefore_);
    EXPECT_EQ(contentOfFile(disk + "/program/td_last.dat"), kLastRunBefore);
    EXPECT_EQ(::umount(disk.c_str()), 0);
}

}  // namespace tidvane::tests
