#include <gtest/gtest.h>

#include "app/task_catalogue.h"
#include "memory_session.h"

namespace tidvane::console {
namespace {

using tests::contains;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

TEST(TasksCommand, ListsAllStepsWithGroupGateTickRowAndName) {
    tests::MemorySession machine;
    EXPECT_EQ(tasksCommand(machine.session, {}), exit_status::Done);
    const auto lines = linesOf(machine.log());
    ASSERT_EQ(lines.size(), 1U + app::kSteps);
    EXPECT_EQ(lines[7], "   7  windows   frmOptions.chkRunList                   no      no   Run dialog history");
    EXPECT_TRUE(contains(lines[62], "  62  plugins   -"));
}

TEST(TasksCommand, ShowsTicksAndRowsThatAreStored) {
    tests::MemorySession machine;
    machine.memory.files.putFile(tests::kProgramFolder + "td_config.ini",
                                 "[frmOptions]\r\nchkRunList=1\r\nchkRegKey=2\r\nchkSafariSavedForms=1\r\n");
    tasksCommand(machine.session, {});
    const auto lines = linesOf(machine.log());
    EXPECT_TRUE(contains(lines[7], "chkRunList                   yes     yes  "));
    EXPECT_TRUE(contains(lines[8], "chkRegKey                    greyed  no   "));
    EXPECT_TRUE(contains(lines[56], "chkSafariCache               no      yes  ")) << "row and worker ask other boxes";
}

TEST(TasksCommand, CountsTheStepOfThePlugInsAsTickedWithOneOfThem) {
    tests::MemorySession machine;
    machine.memory.files.putFile(tests::kProgramFolder + "PlugIns\\a.tdp", "[Info]\r\n");
    machine.memory.files.putFile(tests::kProgramFolder + "td_apps.ini", "[PlugIns]\r\na=0\r\ngone=1\r\n");
    tasksCommand(machine.session, {});
    EXPECT_TRUE(contains(linesOf(machine.log())[62], "  no      no   Applications")) << machine.log();
    machine.out.str({});
    machine.memory.files.putFile(tests::kProgramFolder + "td_apps.ini", "[PlugIns]\r\na=True\r\n");
    tasksCommand(machine.session, {});
    EXPECT_TRUE(contains(linesOf(machine.log())[62], "  yes     no   Applications"));
}

TEST(TasksCommand, NeverCleansWhateverIsStored) {
    tests::MemorySession machine;
    machine.memory.files.putFile("C:\\Windows\\Temp\\a.tmp", "x");
    machine.memory.files.putFile(tests::kProgramFolder + "td_config.ini",
                                 "[frmOptions]\r\nchkStartClean=1\r\nchkEndClean=1\r\nchkTempFolder=1\r\n");
    tasksCommand(machine.session, {});
    settingsCommand(machine.session, {});
    EXPECT_TRUE(machine.memory.files.has("C:\\Windows\\Temp\\a.tmp"));
    EXPECT_FALSE(machine.memory.files.has(tests::kProgramFolder + "td_last.dat"));
}

TEST(TasksCommand, DoesNotPause) {
    tests::MemorySession machine;
    tasksCommand(machine.session, {});
    EXPECT_EQ(machine.memory.clock.sleeps, 0U);
}

TEST(SettingsCommand, ListsEveryStoredControlWithItsValue) {
    tests::MemorySession machine;
    EXPECT_EQ(settingsCommand(machine.session, {}), exit_status::Done);
    const std::string list = machine.log();
    EXPECT_TRUE(contains(list, "frmOptions.txtPurgeSpeed=10\n"));
    EXPECT_TRUE(contains(list, "frmOptions.chkOperaTasks(3)=0\n"));
    EXPECT_TRUE(contains(list, "frmOptions.optDeleteFolder=-1\n"));
    EXPECT_TRUE(contains(list, "frmMoreToConfigure.chkDisksizeInfo=1\n"));
    EXPECT_TRUE(contains(list, "frmTempAge.txtAge=10\n"));
    EXPECT_FALSE(contains(list, "txtLog="));
}

TEST(SettingsCommand, KeepsALineBreakOfATextInItsLine) {
    tests::MemorySession machine;
    machine.memory.files.putFile(tests::kProgramFolder + "td_config.ini",
                                 "[frmOptions]\r\ntxtUpdateServer=first~|~second\r\n");
    settingsCommand(machine.session, {});
    EXPECT_TRUE(contains(machine.log(), "frmOptions.txtUpdateServer=first~|~second\n"));
}

TEST(SettingsCommand, StoresOnlyWhenAskedTo) {
    tests::MemorySession machine;
    Options options;
    options.set = {"txtPurgeSpeed=3"};
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "frmOptions.txtPurgeSpeed=3\n"));
    EXPECT_EQ(machine.storedSettings(), "");
    options.save = true;
    settingsCommand(machine.session, options);
    EXPECT_TRUE(contains(machine.storedSettings(), "txtPurgeSpeed=3\r\n"));
}

TEST(SettingsCommand, StoresNothingBesideAnotherProgram) {
    tests::MemorySession machine;
    machine.memory.processes.otherInstanceRuns = true;
    Options options;
    options.set = {"txtPurgeSpeed=3"};
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Done) << "looking is allowed";
    options.save = true;
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "already running"));
    EXPECT_EQ(machine.storedSettings(), "");
    machine.memory.processes.otherInstanceRuns = false;
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Done);
    EXPECT_FALSE(machine.memory.processes.holdsInstanceLock) << "given back";
}

TEST(SettingsCommand, RefusesAWrongSettingAndStoresNothing) {
    tests::MemorySession machine;
    Options options;
    options.set = {"txtPurgeSpeed=3", "chkTrash=7"};
    options.save = true;
    EXPECT_EQ(settingsCommand(machine.session, options), exit_status::Usage);
    EXPECT_EQ(machine.storedSettings(), "");
    EXPECT_EQ(machine.log(), "");
}

}  // namespace
}  // namespace tidvane::console
