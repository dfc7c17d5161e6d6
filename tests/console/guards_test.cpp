// Runs that would take more than their user may know of.
#include "frontend/guards.h"

#include <gtest/gtest.h>

#include "memory_session.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

constexpr const char* kFile = "C:\\Data\\letter.txt";

class RunGuards : public ::testing::Test {
protected:
    RunGuards() {
        machine.memory.files.putFile(kFile, "dear");
        machine.memory.files.putFile("C:\\Data\\a.tmp", "x");
        options.set = {"chkAllFixedDrives=1"};
    }
    void put(const std::string& name, const std::string& content) {
        machine.memory.files.putFile(kProgramFolder + name, content);
    }

    tests::MemorySession machine;
    Options options;
};

TEST_F(RunGuards, MasksThatMatchEveryNameNeedForce) {
    for (const char* mask : {"*", "*.*", "?*", "**"}) {
        put("td_ftypes.dat", std::string("*.tmp\r\n") + mask + "\r\n");
        options.tick = {"search"};
        machine.err.str({});
        EXPECT_EQ(machine.run(options), exit_status::Usage) << mask;
        EXPECT_TRUE(contains(machine.messages(), std::string("\"") + mask + "\"")) << machine.messages();
        EXPECT_TRUE(contains(machine.messages(), "--force"));
        EXPECT_EQ(machine.log(), "") << "refused before the start";
        EXPECT_TRUE(machine.memory.files.has(kFile));
    }
    options.force = true;
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_FALSE(machine.memory.files.has(kFile));
}

TEST_F(RunGuards, MasksAreNoMatterWhileTheSearchIsOff) {
    put("td_ftypes.dat", "*\r\n");
    options.tick = {"chkTempFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(machine.memory.files.has(kFile));
}

TEST_F(RunGuards, MasksThatMatchNothingRemoveNothing) {
    put("td_ftypes.dat", "..\r\na\\b\r\nData\\*\r\n");
    options.tick = {"search"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_TRUE(machine.memory.files.has(kFile));
    EXPECT_TRUE(machine.memory.files.has("C:\\Data\\a.tmp"));
}

TEST_F(RunGuards, ACleaningAtTheStartIsHeldBackToo) {
    put("td_ftypes.dat", "*\r\n");
    put("td_config.ini", "[frmOptions]\r\nchkSearchTasks=1\r\nchkAllFixedDrives=1\r\nchkStartClean=1\r\n");
    options.untick = {"search"};
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "before the command line counts"));
    EXPECT_TRUE(machine.memory.files.has(kFile));
}

TEST_F(RunGuards, ALineThatIsTakenApartIsAskedAbout) {
    put("td_folders.dat", "C:\\Data, old\r\n");
    options.tick = {"chkActivateOwnFolder"};
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(),
                         "td_folders.dat: the line \"C:\\Data, old\" is read as:\nC:\\Data\nold\n\nClean with these "
                         "entries?\nAnswer: no\n"))
        << machine.messages();
    EXPECT_TRUE(contains(machine.messages(), "--answer yes"));
    EXPECT_TRUE(machine.memory.files.has(kFile));
    EXPECT_EQ(machine.log(), "");
    options.answerYes = true;
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_FALSE(machine.memory.files.has(kFile));
}

TEST_F(RunGuards, ALineWhoseQuotesVanishIsAskedAboutToo) {
    put("td_fkeys.dat", "\"C:\\Data\\letter.txt\"\r\n");
    options.tick = {"chkActivateOwnFiles"};
    EXPECT_EQ(machine.run(options), exit_status::Usage);
    EXPECT_TRUE(machine.memory.files.has(kFile));
}

TEST_F(RunGuards, ALineOfAListThatIsOffIsNoMatter) {
    put("td_folders.dat", "C:\\Data, old\r\n");
    put("td_fkeys.dat", "C:\\Other.txt\r\n");
    options.tick = {"chkActivateOwnFiles"};
    EXPECT_EQ(machine.run(options), exit_status::Done);
    EXPECT_FALSE(contains(machine.messages(), "Clean with these entries?"));
}

}  // namespace
}  // namespace tidvane::console
