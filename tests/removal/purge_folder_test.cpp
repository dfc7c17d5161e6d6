#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "support/app_fixture.h"

namespace tidvane::removal {
namespace {

namespace attribute = platform::attribute;

struct PurgeFolderTest : tests::AppFixture {
    void fill() {
        machine.files.putFile("C:\\D\\a.txt", "secret");
        machine.files.putFile("C:\\D\\sub\\b.txt", "secret");
        machine.files.putFile("C:\\D\\sub\\deep\\c.txt", "secret");
    }
    void choose(int row) { options().cboKillMethod.setListIndex(row); }
};

TEST_F(PurgeFolderTest, EmptiesTheFolderAndLeavesIt) {
    fill();
    PurgeFolder(program, "C:\\D");
    EXPECT_TRUE(machine.files.everythingBelow("C:\\D").empty());
    EXPECT_TRUE(machine.files.hasFolder("C:\\D"));
}

TEST_F(PurgeFolderTest, RecyclesASubfolderWhole) {
    fill();
    choose(1);
    PurgeFolder(program, "C:\\D\\");
    ASSERT_EQ(machine.shell.recycled.size(), 2U);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\D\\a.txt");
    EXPECT_EQ(machine.shell.recycled[1].originalPath, "C:\\D\\sub");
    EXPECT_TRUE(machine.files.everythingBelow("C:\\D").empty());
}

TEST_F(PurgeFolderTest, OverwritesOnlyTheFilesDirectlyInTheFolder) {
    fill();
    choose(2);
    PurgeFolder(program, "C:\\D");
    ASSERT_EQ(machine.files.overwritten.size(), 1U);
    EXPECT_EQ(machine.files.overwritten[0].path, "C:\\D\\a.txt");
    EXPECT_TRUE(machine.files.everythingBelow("C:\\D").empty());
}

TEST_F(PurgeFolderTest, RemovesNothingWhenTheMethodCannotBeRead) {
    fill();
    options();
    for (int entry = 732; entry <= 734; ++entry) program.LangText.set(entry, "renamed");
    PurgeFolder(program, "C:\\D");
    EXPECT_EQ(machine.files.everythingBelow("C:\\D").size(), 5U);
}

TEST_F(PurgeFolderTest, PassesOverALockedAndAReadOnlyFileInSilence) {
    fill();
    machine.files.putFile("C:\\D\\readonly", "x");
    machine.files.setAttributes("C:\\D\\readonly", attribute::ReadOnly);
    machine.files.lock("C:\\D\\a.txt");
    main();
    const std::string log = main().txtLog.Text();
    PurgeFolder(program, "C:\\D");
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (std::vector<std::string>{"C:\\D\\a.txt", "C:\\D\\readonly"}));
    EXPECT_EQ(main().txtLog.Text(), log);
}

TEST_F(PurgeFolderTest, RemovesReadOnlyContentOfSubfolders) {
    fill();
    machine.files.setAttributes("C:\\D\\sub\\b.txt", attribute::ReadOnly);
    PurgeFolder(program, "C:\\D");
    EXPECT_FALSE(machine.files.has("C:\\D\\sub"));
}

TEST_F(PurgeFolderTest, RunsToItsEndThoughAStopIsAskedForAndPumpsNothing) {
    fill();
    main().cmdStop_Click();
    const auto pumps = machine.events.pumps;
    PurgeFolder(program, "C:\\D");
    EXPECT_TRUE(machine.files.everythingBelow("C:\\D").empty());
    EXPECT_EQ(machine.events.pumps, pumps);
}

TEST_F(PurgeFolderTest, RemovesALinkAndNotWhatItPointsTo) {
    machine.files.putFile("C:\\keep\\wanted.txt", "x");
    machine.files.putFolder("C:\\D");
    machine.files.putLink("C:\\D\\link", "C:\\keep");
    PurgeFolder(program, "C:\\D");
    EXPECT_TRUE(machine.files.has("C:\\keep\\wanted.txt"));
    EXPECT_TRUE(machine.files.everythingBelow("C:\\D").empty());
}

TEST_F(PurgeFolderTest, LeavesHiddenAndSystemFilesUntouchedUnderPlainAndOverwrite) {
    machine.files.putFile("C:\\D\\desktop.ini", "settings");
    machine.files.setAttributes("C:\\D\\desktop.ini", attribute::Hidden | attribute::System);
    for (const int method : {KillPlain, KillOverwrite}) {
        choose(method);
        PurgeFolder(program, "C:\\D");
        EXPECT_EQ(machine.files.bytesOf("C:\\D\\desktop.ini"), "settings");
    }
    choose(KillRecycle);
    PurgeFolder(program, "C:\\D");
    EXPECT_FALSE(machine.files.has("C:\\D\\desktop.ini"));
}

TEST_F(PurgeFolderTest, LeavesTheFolderOfTheCallBeforeAlone) {
    machine.files.putFile("C:\\E\\wanted.txt", "x");
    fill();
    PurgeFolder(program, "C:\\D");
    machine.files.putFile("C:\\D\\new.txt", "x");
    PurgeFolder(program, "C:\\missing");
    PurgeFolder(program, "");
    PurgeFolder(program, "E");
    EXPECT_TRUE(machine.files.has("C:\\D\\new.txt"));
    EXPECT_TRUE(machine.files.has("C:\\E\\wanted.txt"));
}

TEST_F(PurgeFolderTest, NeverEmptiesAProtectedPlace) {
    const char* places[] = {"C:\\",      "C:\\Windows",     "c:\\WINDOWS\\system32\\", "C:\\Program Files",
                            "C:\\Users", "C:\\Users\\Anna", "C:\\Users\\Anna\\..",     "C:\\\\Windows"};
    machine.files.putFile("C:\\Windows\\System32\\kernel32.dll", "x");
    machine.files.putFile("C:\\Users\\Anna\\ntuser.dat", "x");
    const auto before = machine.files.everythingBelow("C:\\");
    for (const char* place : places) {
        PurgeFolder(program, place);
        DelAll(program.platform, place);
    }
    options();
    EXPECT_EQ(machine.files.everythingBelow("C:\\"), before);
    EXPECT_GE(machine.warnings.size(), 8U);
}

TEST_F(PurgeFolderTest, AFileThatVanishesDuringTheWalkCostsNothingElse) {
    fill();
    machine.files.putFile("C:\\D\\z.txt", "x");
    machine.files.vanishBefore("C:\\D\\a.txt", 1);
    PurgeFolder(program, "C:\\D");
    EXPECT_TRUE(machine.files.everythingBelow("C:\\D").empty());
}

TEST(DelAll, DoesNothingToAFileOrAMissingPath) {
    platform::MemoryPlatform machine;
    platform::Platform services = machine.platform();
    machine.files.putFile("C:\\D\\a", "x");
    DelAll(services, "C:\\D\\a");
    DelAll(services, "C:\\gone");
    EXPECT_TRUE(machine.files.has("C:\\D\\a"));
}

TEST(DelAll, RemovesAFolderWithReadOnlyContent) {
    platform::MemoryPlatform machine;
    platform::Platform services = machine.platform();
    machine.files.putFile("C:\\D\\sub\\a", "x");
    machine.files.setAttributes("C:\\D\\sub\\a", attribute::ReadOnly);
    DelAll(services, "C:\\D");
    EXPECT_FALSE(machine.files.has("C:\\D"));
}

}  // namespace
}  // namespace tidvane::removal
