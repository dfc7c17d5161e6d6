// Previews of runs and searches: the same code, the same numbers, and nothing is done.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "console/preview_table.h"
#include "console/stop_signal.h"
#include "memory_session.h"
#include "platform/memory/memory_preview.h"
#include "removal/modKillMethod.h"
#include "support/host_directory.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

constexpr const char* kTempFile = "C:\\Windows\\Temp\\a.tmp";
constexpr const char* kTempFolder = "C:\\Windows\\Temp\\folder";

class Preview : public ::testing::Test {
protected:
    Preview() {
        machine.memory.files.putFile(kTempFile, "12345");
        machine.memory.files.putFile(std::string(kTempFolder) + "\\b.tmp", "123");
        runMru()->setText("a", "cmd\\1");
        options.preview = true;
        options.tick = {"chkTempFolder", "chkRunList"};
        machine.session.commit = [this](std::string&) {
            ++commits;
            return true;
        };
    }
    platform::RegistryKeyPtr runMru() {
        platform::RegistryKeyPtr key = machine.memory.registryTree.currentUser();
        for (const char* name : {"Software", "Microsoft", "Windows", "CurrentVersion", "Explorer", "RunMRU"}) {
            key = key->findOrAdd(name);
        }
        return key;
    }
    // The commands of a preview work on a platform that was opened for one.
    int preview(int (*command)(Session&, const Options&) = runCommand) {
        platform::MemoryPreview previewed(machine.memory);
        Session session{previewed.platform(), "memory", machine.out, machine.err, machine.session.commit, {}};
        machine.out.str({});
        machine.err.str({});
        return command(session, options);
    }
    nlohmann::json report(const std::string& name = "p.json") {
        std::ifstream file(directory / name);
        return nlohmann::json::parse(file);
    }

    tests::HostDirectory directory;
    tests::MemorySession machine;
    Options options;
    int commits = 0;
};

TEST_F(Preview, ShowsATableOfWhatWouldGo) {
    EXPECT_EQ(preview(), exit_status::Done) << machine.messages();
    EXPECT_EQ(machine.log(),
              "Step  Name                         Files  Folders  Keys  Values  Bytes  Failed\n"
              "   7  Run dialog history               0        0     1       1      0       0\n"
              "  16  Temporary folder of Windows      2        1     0       0      8       0\n"
              "      Total                            2        1     1       1      8       0\n"
              "This was a preview: nothing was removed, and nothing was stored.\n");
}

TEST_F(Preview, ShowsEveryPathWithDetails) {
    options.details = true;
    EXPECT_EQ(preview(), exit_status::Done);
    const std::string table = machine.log();
    EXPECT_TRUE(contains(table, "\n      C:\\Windows\\Temp\\a.tmp\n")) << table;
    EXPECT_TRUE(contains(table, "\n      C:\\Windows\\Temp\\folder\\b.tmp\n      C:\\Windows\\Temp\\folder\\\n"));
    EXPECT_TRUE(contains(table, "\\Explorer\\RunMRU\\[a]\n"));
    EXPECT_LT(table.find("Run dialog history"), table.find("RunMRU\\[a]"));
    EXPECT_LT(table.find("RunMRU\\[a]"), table.find("Temporary folder of Windows"));
    EXPECT_LT(table.find("Temporary folder of Windows"), table.find("a.tmp"));
}

TEST_F(Preview, RemovesAndStoresNothing) {
    options.set = {"chkAutoLog=1", "txtTidvaneLog=C:\\Logs"};
    EXPECT_EQ(preview(), exit_status::Done);
    EXPECT_TRUE(machine.memory.files.has(kTempFile));
    EXPECT_TRUE(machine.memory.files.has(kTempFolder));
    EXPECT_EQ(runMru()->values().size(), 1U);
    for (const char* file : {"td_last.dat", "td_config.ini", "td_apps.ini", "td_log.txt"}) {
        EXPECT_FALSE(machine.memory.files.has(kProgramFolder + file)) << file;
    }
    EXPECT_FALSE(machine.memory.files.has("C:\\Logs\\td_log.txt"));
    EXPECT_EQ(commits, 0);
    EXPECT_EQ(machine.memory.removed.totals, platform::RemovalTotals());
}

TEST_F(Preview, SaysWhatTheRunThenDoes) {
    options.tick = {"all"};
    options.json = directory / "p.json";
    ASSERT_EQ(preview(), exit_status::Done);
    options.preview = false;
    options.json = directory / "r.json";
    ASSERT_EQ(machine.run(options), exit_status::Done);
    const nlohmann::json before = report();
    const nlohmann::json after = report("r.json");
    EXPECT_EQ(before["preview"], true);
    EXPECT_EQ(after["preview"], false);
    EXPECT_EQ(before["registryStored"], false);
    EXPECT_EQ(after["registryStored"], true);
    ASSERT_EQ(before["steps"].size(), after["steps"].size());
    for (std::size_t at = 0; at < before["steps"].size(); ++at) {
        for (const char* field : {"number", "key", "gate", "ticked", "status", "icon", "files", "folders", "keys",
                                  "values", "bytes", "failed"}) {
            EXPECT_EQ(before["steps"][at][field], after["steps"][at][field]) << at + 1 << " " << field;
        }
    }
    EXPECT_EQ(before["total"], after["total"]);
    EXPECT_GE(after["total"]["files"], 2);
}

TEST_F(Preview, ReportsTheEntriesOfEachStep) {
    options.details = true;
    options.quiet = true;
    options.json = directory / "p.json";
    EXPECT_EQ(preview(), exit_status::Done);
    EXPECT_EQ(machine.log(), "");
    const nlohmann::json object = report();
    for (const nlohmann::json& step : object["steps"]) {
        const std::size_t counted = step["files"].get<std::size_t>() + step["folders"].get<std::size_t>() +
                                    step["keys"].get<std::size_t>() + step["values"].get<std::size_t>();
        EXPECT_EQ(step["entries"].size(), counted) << step["number"];
    }
    const nlohmann::json& temp = object["steps"][15]["entries"];
    EXPECT_EQ(temp.size(), 3U);
    EXPECT_NE(
        std::find(temp.begin(), temp.end(), nlohmann::json({{"kind", "file"}, {"path", kTempFile}, {"bytes", 5}})),
        temp.end());
    EXPECT_NE(std::find(temp.begin(), temp.end(), nlohmann::json({{"kind", "folder"}, {"path", kTempFolder}})),
              temp.end());
    EXPECT_EQ(object["steps"][6]["entries"][0]["kind"], "value");
    options.details = false;
    preview();
    EXPECT_FALSE(report()["steps"][15].contains("entries"));
    EXPECT_FALSE(report().contains("otherEntries"));
}

// A plug-in's DEL_FOLDER, and the registry, know no recycle bin.
TEST_F(Preview, MarksWhatWouldGoForGoodUnderTheRecycleMethod) {
    machine.memory.files.putFile(kProgramFolder + "PlugIns\\a.tdp",
                                 "[FILES]\r\n1=DEL_FOLDER|C:\\Data\\old\r\n2=CLEAR_FOLDER|C:\\Data\\cache\r\n");
    machine.memory.files.putFile("C:\\Data\\old\\x.log", "12");
    machine.memory.files.putFile("C:\\Data\\cache\\y.log", "12");
    machine.memory.files.putFile("C:\\Data\\cache\\deep\\z.log", "123");
    options.plugins = {"a"};
    options.method = removal::KillRecycle;
    options.details = true;
    options.json = directory / "p.json";
    ASSERT_EQ(preview(), exit_status::Done) << machine.messages();
    const std::string table = machine.log();
    for (const char* line :
         {"C:\\Data\\old\\x.log  (for good)", "C:\\Data\\old\\  (for good)", "C:\\Data\\cache\\y.log",
          "C:\\Data\\cache\\deep\\z.log", "C:\\Data\\cache\\deep\\", "C:\\Windows\\Temp\\a.tmp"}) {
        EXPECT_TRUE(contains(table, std::string("\n      ") + line + "\n")) << line << "\n" << table;
    }
    EXPECT_TRUE(contains(table, "\\Explorer\\RunMRU\\[a]  (for good)\n")) << table;

    std::map<std::string, bool> recycled;
    const nlohmann::json whole = report();
    for (const nlohmann::json& step : whole["steps"]) {
        for (const nlohmann::json& entry : step["entries"]) {
            recycled[entry["path"].get<std::string>()] = entry.value("recycled", false);
        }
    }
    EXPECT_EQ(recycled.at("C:\\Data\\old\\x.log"), false);
    EXPECT_EQ(recycled.at("C:\\Data\\old"), false);
    EXPECT_EQ(recycled.at("C:\\Data\\cache\\y.log"), true);
    EXPECT_EQ(recycled.at("C:\\Data\\cache\\deep"), true);
    EXPECT_EQ(recycled.at("C:\\Data\\cache\\deep\\z.log"), true);
    EXPECT_EQ(recycled.at(kTempFile), true);

    options.method = removal::KillPlain;
    ASSERT_EQ(preview(), exit_status::Done);
    EXPECT_FALSE(contains(machine.log(), "for good")) << "there it is no news";
    EXPECT_FALSE(contains(report().dump(), "recycled"));
}

TEST_F(Preview, ShowsTheLogWhereItIsAskedFor) {
    options.showLog = true;
    EXPECT_EQ(preview(), exit_status::Done);
    const std::string text = machine.log();
    EXPECT_LT(text.find("Temporary folder of Windows cleared <OK>"), text.find("\nStep  Name"));
    EXPECT_LT(text.find("Closing Tidvane"), text.find("\nStep  Name"));
}

TEST_F(Preview, DoesNotPause) {
    options.set = {"txtPurgeSpeed=1000"};
    EXPECT_EQ(preview(), exit_status::Done);
    EXPECT_EQ(machine.memory.clock.sleeps, 0U);
}

TEST_F(Preview, NeedsNoForceAndAsksNothing) {
    machine.memory.files.putFile(kProgramFolder + "td_ftypes.dat", "*\r\n");
    machine.memory.files.putFile(kProgramFolder + "td_folders.dat", "C:\\Data, old\r\n");
    machine.memory.files.putFile("C:\\Data\\letter.txt", "dear");
    options.tick = {"search", "chkActivateOwnFolder"};
    options.set = {"chkAllFixedDrives=1"};
    options.details = true;
    EXPECT_EQ(preview(), exit_status::Done) << machine.messages();
    EXPECT_TRUE(contains(machine.log(), "C:\\Data\\letter.txt\n"));
    EXPECT_TRUE(machine.memory.files.has("C:\\Data\\letter.txt"));
}

TEST_F(Preview, ShowsPlugInsToo) {
    machine.memory.files.putFile(kProgramFolder + "PlugIns\\Foo.tdp",
                                 "[Info]\r\nTitle=Foo\r\n[FILES]\r\na=DEL_FILE|C:\\Foo\\*.tmp\r\n");
    machine.memory.files.putFile("C:\\Foo\\a.tmp", "x");
    options.tick.clear();
    options.plugins = {"Foo"};
    options.details = true;
    EXPECT_EQ(preview(), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "  62  Applications"));
    EXPECT_TRUE(contains(machine.log(), "      C:\\Foo\\a.tmp\n"));
    EXPECT_TRUE(machine.memory.files.has("C:\\Foo\\a.tmp"));
}

TEST_F(Preview, WhatNoStepNamesStandsBesideThem) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini",
                                 "[frmOptions]\r\nchkStartClean=1\r\nchkPrefetchFolder=1\r\n");
    machine.memory.files.putFile("C:\\Windows\\Prefetch\\a.pf", "x");
    options.tick = {"chkTempFolder"};
    options.untick = {"chkPrefetchFolder"};
    options.details = true;
    options.json = directory / "p.json";
    EXPECT_EQ(preview(), exit_status::Done);
    const std::string table = machine.log();
    EXPECT_TRUE(contains(table,
                         "      Before and behind the run        1        0     0       0      1       0\n"
                         "      C:\\Windows\\Prefetch\\a.pf\n"))
        << table;
    EXPECT_EQ(report()["total"]["files"], 3);
    EXPECT_EQ(report()["otherEntries"].size(), 1U);
}

TEST_F(Preview, WarningsSayThatNothingWasRemoved) {
    machine.memory.files.take(kProgramFolder + "td_ban.dat");
    EXPECT_EQ(preview(), exit_status::Done);
    EXPECT_TRUE(contains(machine.messages(), "Warning (of a preview, nothing was removed): td_ban.dat"));
}

TEST_F(Preview, ACtrlCEndsItWithTheTableSoFar) {
    machine.memory.files.putFile(kProgramFolder + "td_ftypes.dat", "*.tmp\r\n");
    machine.memory.files.putFile("C:\\A\\a.tmp", "x");
    options.tick = {"search", "chkTempFolder"};
    options.set = {"chkAllFixedDrives=1"};
    machine.memory.events.everyPump = [this] {
        if (machine.memory.events.pumps == 3) StopSignal::raise();
    };
    EXPECT_EQ(preview(), exit_status::Stopped);
    EXPECT_TRUE(contains(machine.log(), "This was a preview")) << machine.messages();
    EXPECT_FALSE(contains(machine.log(), "Temporary folder")) << "not reached";
}

TEST_F(Preview, OfASearchHasOneRow) {
    machine.memory.files.putFile("C:\\Data\\a.tmp", "123");
    machine.memory.files.putFile("C:\\Data\\sub\\b.tmp", "1");
    options.search = {"*.tmp", "C:\\Data"};
    options.details = true;
    options.json = directory / "p.json";
    options.tick.clear();
    EXPECT_EQ(preview(searchCommand), exit_status::Done) << machine.messages();
    EXPECT_EQ(machine.log(),
              "Step  Name                 Files  Folders  Keys  Values  Bytes  Failed\n"
              "      *.tmp below C:\\Data      2        0     0       0      4       0\n"
              "      C:\\Data\\a.tmp\n"
              "      C:\\Data\\sub\\b.tmp\n"
              "      Total                    2        0     0       0      4       0\n"
              "This was a preview: nothing was removed, and nothing was stored.\n");
    EXPECT_TRUE(machine.memory.files.has("C:\\Data\\a.tmp"));
    EXPECT_EQ(report()["preview"], true);
    EXPECT_EQ(report()["total"]["files"], 2);
    EXPECT_EQ(report()["entries"].size(), 2U);
    options.search.mask = "*.*";
    EXPECT_EQ(preview(searchCommand), exit_status::Done) << "nothing goes: nothing is asked";
}

TEST(PreviewTable, KeepsANameOnItsLine) {
    Report report;
    report.preview = true;
    report.details = true;
    report.total.files = 1;
    report.steps.push_back({});
    report.steps[0].number = 16;
    report.steps[0].key = "Temp";
    report.steps[0].removed.files = 1;
    report.steps[0].entries.push_back({platform::RemovedKind::File, "C:\\a\n\x1B[2J\x7F.tmp", 0});
    std::ostringstream out;
    writePreviewTable(out, report);
    EXPECT_TRUE(contains(out.str(), "      C:\\a??[2J?.tmp\n"));
}

TEST(PreviewTable, StandsWithoutARow) {
    std::ostringstream out;
    writePreviewTable(out, {});
    EXPECT_EQ(out.str(),
              "Step  Name   Files  Folders  Keys  Values  Bytes  Failed\n"
              "      Total      0        0     0       0      0       0\n"
              "This was a preview: nothing was removed, and nothing was stored.\n");
}

}  // namespace
}  // namespace tidvane::console
