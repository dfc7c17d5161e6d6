#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "console/stop_signal.h"
#include "memory_session.h"
#include "support/host_directory.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

class SearchCommand : public ::testing::Test {
protected:
    SearchCommand() {
        for (const char* file :
             {"a.tmp", "b.tmp", "opa12.bak", "keep.txt", "noext", "sub\\c.tmp", "sub\\deep\\d.tmp"}) {
            machine.memory.files.putFile(path(file), "123");
        }
        machine.memory.files.putFile("C:\\Other\\e.tmp", "x");
        options.search = {"*.tmp", "C:\\Data"};
    }
    static std::string path(const std::string& name) { return "C:\\Data\\" + name; }
    bool has(const std::string& name) { return machine.memory.files.has(path(name)); }
    int search() {
        machine.out.str({});
        machine.err.str({});
        return searchCommand(machine.session, options);
    }
    int search(const std::string& mask, const std::string& folder) {
        options.search = {mask, folder};
        return search();
    }
    nlohmann::json report() {
        std::ifstream file(directory / "r.json");
        return nlohmann::json::parse(file);
    }

    tests::HostDirectory directory;
    tests::MemorySession machine;
    Options options;
};

TEST_F(SearchCommand, RemovesWhatMatchesBelowTheFolder) {
    EXPECT_EQ(search(), exit_status::Done) << machine.messages();
    for (const char* gone : {"a.tmp", "b.tmp", "sub\\c.tmp", "sub\\deep\\d.tmp"}) EXPECT_FALSE(has(gone)) << gone;
    for (const char* stays : {"opa12.bak", "keep.txt", "noext"}) EXPECT_TRUE(has(stays)) << stays;
    EXPECT_TRUE(machine.memory.files.has("C:\\Other\\e.tmp"));
    EXPECT_EQ(machine.messages(), "");
}

TEST_F(SearchCommand, ShowsTheLogOfTheWizard) {
    search();
    const std::string log = machine.log();
    EXPECT_EQ(log.find('\r'), std::string::npos);
    EXPECT_TRUE(contains(log, "[*.tmp]"));
    EXPECT_TRUE(contains(log, "C:\\Data\\b.tmp <OK>\n")) << log;
    EXPECT_TRUE(log.ends_with(" <OK>\n"));
    options.quiet = true;
    search();
    EXPECT_EQ(machine.log(), "");
}

TEST_F(SearchCommand, SparesNoFileThatTheJunkSearchSpares) {
    EXPECT_EQ(search("*.bak", "C:\\Data"), exit_status::Done);
    EXPECT_FALSE(has("opa12.bak"));
}

TEST_F(SearchCommand, TakesNamesWithoutAnExtension) {
    EXPECT_EQ(search("*.", "C:\\Data"), exit_status::Done) << machine.messages();
    EXPECT_FALSE(has("noext"));
    EXPECT_TRUE(has("keep.txt"));
}

TEST_F(SearchCommand, KeepsToTheMethod) {
    options.method = 1;
    options.json = directory / "r.json";
    EXPECT_EQ(search(), exit_status::Done);
    EXPECT_EQ(report()["method"], "recycle");
    EXPECT_FALSE(has("a.tmp"));
}

TEST_F(SearchCommand, RefusesMasksOfAnotherForm) {
    for (const char* mask : {"", "tmp", "*", "..", "a*.tmp", ".tmp", "*.a\\b", "*.a/b", "a\\b"}) {
        EXPECT_EQ(search(mask, "C:\\Data"), exit_status::Usage) << mask;
        EXPECT_TRUE(contains(machine.messages(), "\"*.\" and an extension")) << mask;
        EXPECT_EQ(machine.log(), "");
        EXPECT_TRUE(has("a.tmp"));
    }
}

TEST_F(SearchCommand, RefusesWhatIsNoFolder) {
    for (const char* folder : {"", "\\", "Data", "C:", "C:Data", "C:\\Nowhere", "C:\\Data\\a.tmp", "C:\\Da*", "Q:\\"}) {
        EXPECT_EQ(search("*.tmp", folder), exit_status::Usage) << folder;
        EXPECT_TRUE(contains(machine.messages(), "is no folder of the machine")) << folder;
        EXPECT_TRUE(has("a.tmp"));
    }
}

TEST_F(SearchCommand, AsksBeforeAMaskThatMatchesEveryName) {
    EXPECT_EQ(search("*.*", "C:\\Data"), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "Delete all files that match *.* below C:\\Data?\nAnswer: no\n"));
    EXPECT_TRUE(contains(machine.messages(), "--answer yes"));
    EXPECT_TRUE(has("keep.txt"));
    options.answerYes = true;
    EXPECT_EQ(search("*.*", "C:\\Data"), exit_status::Done);
    EXPECT_FALSE(has("keep.txt"));
    EXPECT_TRUE(machine.memory.files.has("C:\\Other\\e.tmp"));
}

TEST_F(SearchCommand, StoresNothing) {
    search();
    EXPECT_EQ(machine.storedSettings(), "");
    EXPECT_FALSE(machine.memory.files.has(kProgramFolder + "td_last.dat"));
}

TEST_F(SearchCommand, TakesNoPlaceFromTheStoredWizard) {
    machine.memory.files.putFile(
        kProgramFolder + "td_config.ini",
        "[frmManualSearch]\r\nchkScanAllFixedDrives=1\r\ntxtFolderScanPath=C:\\Other\r\ntxtSearchMask=*.txt\r\n");
    EXPECT_EQ(search(), exit_status::Done);
    EXPECT_FALSE(has("a.tmp"));
    EXPECT_TRUE(has("keep.txt"));
    EXPECT_TRUE(machine.memory.files.has("C:\\Other\\e.tmp"));
}

TEST_F(SearchCommand, ReportsWhatReallyWent) {
    machine.memory.files.lock(path("b.tmp"));
    options.json = directory / "r.json";
    EXPECT_EQ(search(), exit_status::Done);
    const nlohmann::json object = report();
    EXPECT_EQ(object["mask"], "*.tmp");
    EXPECT_EQ(object["folder"], "C:\\Data");
    EXPECT_EQ(object["preview"], false);
    EXPECT_EQ(object["stopped"], false);
    EXPECT_EQ(object["version"], "1.0.0");
    EXPECT_EQ(object["total"]["files"], 3);
    EXPECT_EQ(object["total"]["bytes"], 9);
    EXPECT_GE(object["total"]["failed"], 1);
    EXPECT_FALSE(object.contains("steps"));
    EXPECT_FALSE(object.contains("registryStored"));
}

TEST_F(SearchCommand, CtrlCIsItsStopButton) {
    // The first folder, then its first subfolder: there the stop gets in.
    machine.memory.events.onPump(2, [] { StopSignal::raise(); });
    options.json = directory / "r.json";
    EXPECT_EQ(search(), exit_status::Stopped);
    EXPECT_FALSE(has("a.tmp"));
    EXPECT_TRUE(has("sub\\c.tmp"));
    EXPECT_TRUE(contains(machine.log(), "***** "));
    EXPECT_FALSE(machine.log().ends_with(" <OK>\n"));
    EXPECT_EQ(report()["stopped"], true);
    EXPECT_EQ(report()["total"]["files"], 2);
}

TEST_F(SearchCommand, ACtrlCBehindTheLastFolderIsTold) {
    machine.memory.files.before(path("sub\\deep\\d.tmp"), 1, [] { StopSignal::raise(); });
    EXPECT_EQ(search(), exit_status::Done);
    EXPECT_TRUE(contains(machine.messages(), "before Ctrl-C could take effect"));
}

TEST_F(SearchCommand, RefusesToSearchBesideAnotherProgram) {
    machine.memory.processes.otherInstanceRuns = true;
    EXPECT_EQ(search(), exit_status::MachineUnusable);
    EXPECT_TRUE(has("a.tmp"));
}

TEST_F(SearchCommand, KeepsOthersOutFromItsFirstLookAtTheSettingsOn) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmOptions]\r\nchkTempFolder=1\r\n");
    bool locked = false;
    machine.memory.files.before(kProgramFolder + "td_config.ini", 1,
                                [&] { locked = machine.memory.processes.holdsInstanceLock; });
    EXPECT_EQ(search(), exit_status::Done);
    EXPECT_TRUE(locked);
    EXPECT_FALSE(machine.memory.processes.holdsInstanceLock) << "given back";
}

TEST_F(SearchCommand, RefusesAMethodWithoutAName) {
    machine.memory.files.take(kProgramFolder + "English.lng");
    options.method = 2;
    EXPECT_EQ(search(), exit_status::Usage);
    EXPECT_TRUE(has("a.tmp"));
}

TEST_F(SearchCommand, RemovesNothingWhereTheReportCannotBeWritten) {
    options.json = directory / "no/such/folder/r.json";
    EXPECT_EQ(search(), exit_status::Usage);
    EXPECT_TRUE(has("a.tmp"));
}

}  // namespace
}  // namespace tidvane::console
