#include "removal/modKillMethod.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_platform.h"

namespace tidvane::removal {
namespace {

using platform::MemoryPlatform;
using platform::Status;
namespace operation = platform::operation;

struct KillFileTest : testing::Test {
    MemoryPlatform machine;
    platform::Platform services = machine.platform();
    bool kill(const std::string& path, int method, bool ignoreErrors) {
        return KillFile(services, path, method, ignoreErrors);
    }
};

TEST_F(KillFileTest, PlainRemovesAFile) {
    machine.files.putFile("C:\\a.tmp", "x");
    EXPECT_TRUE(kill("C:\\a.tmp", KillPlain, false));
    EXPECT_FALSE(machine.files.has("C:\\a.tmp"));
}

TEST_F(KillFileTest, PlainTellsAMissingFileUnlessErrorsAreIgnored) {
    EXPECT_FALSE(kill("C:\\gone.tmp", KillPlain, false));
    EXPECT_TRUE(kill("C:\\gone.tmp", KillPlain, true));
}

TEST_F(KillFileTest, APathThatHoldsANulRemovesNothingUnderAnyMethod) {
    machine.files.putFile("C:\\a", "x");
    for (const int method : {KillPlain, KillRecycle, KillOverwrite}) {
        const bool done = kill(std::string("C:\\a\0b", 6), method, false);
        EXPECT_EQ(done, method == KillOverwrite) << method;  // whose result never tells a failure
        EXPECT_FALSE(kill(std::string("C:\\a\0\0", 6), KillRecycle, false));
    }
    EXPECT_EQ(machine.files.bytesOf("C:\\a"), "x");
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST_F(KillFileTest, PlainLeavesAReadOnlyFile) {
    machine.files.putFile("C:\\a.tmp", "x");
    machine.files.setAttributes("C:\\a.tmp", platform::attribute::ReadOnly);
    EXPECT_FALSE(kill("C:\\a.tmp", KillPlain, false));
    EXPECT_TRUE(kill("C:\\a.tmp", KillPlain, true));
    EXPECT_TRUE(machine.files.has("C:\\a.tmp"));
    EXPECT_EQ(machine.files.attributesOf("C:\\a.tmp"), platform::attribute::ReadOnly);
}

TEST_F(KillFileTest, PlainPassesOverALockedMatchAndTakesTheOthers) {
    for (const char* name : {"C:\\a.tmp", "C:\\b.tmp", "C:\\c.txt"}) machine.files.putFile(name, "x");
    machine.files.lock("C:\\a.tmp");
    EXPECT_FALSE(kill("C:\\*.tmp", KillPlain, false));
    EXPECT_TRUE(machine.files.has("C:\\a.tmp"));
    EXPECT_FALSE(machine.files.has("C:\\b.tmp"));
    EXPECT_TRUE(machine.files.has("C:\\c.txt"));
}

TEST_F(KillFileTest, RecycleMovesAFileAndAFolderWhole) {
    machine.files.putFile("C:\\Data\\sub\\a.txt", "x");
    machine.files.putFile("C:\\b.txt", "y");
    EXPECT_TRUE(kill("C:\\b.txt", KillRecycle, false));
    EXPECT_TRUE(kill("C:\\Data", KillRecycle, false));
    EXPECT_FALSE(machine.files.has("C:\\Data"));
    ASSERT_EQ(machine.shell.recycled.size(), 2U);
    EXPECT_EQ(machine.shell.recycled[1].originalPath, "C:\\Data");
}

TEST_F(KillFileTest, RecycleIsFalseForAMissingPathWhateverErrorsDo) {
    EXPECT_FALSE(kill("C:\\gone", KillRecycle, false));
    EXPECT_FALSE(kill("C:\\gone", KillRecycle, true));
}

TEST_F(KillFileTest, RecycleIsFalseWhenTheShellRefuses) {
    machine.files.putFile("C:\\a.txt", "x");
    machine.shell.fileOperationFails = 120;
    EXPECT_FALSE(kill("C:\\a.txt", KillRecycle, true));
    EXPECT_TRUE(machine.files.has("C:\\a.txt"));
}

TEST_F(KillFileTest, RecycleFlagsAreTheReverseOfWhatTheArgumentSays) {
    machine.files.putFile("C:\\a.txt", "x");
    machine.files.putFile("C:\\b.txt", "x");
    kill("C:\\a.txt", KillRecycle, false);
    kill("C:\\b.txt", KillRecycle, true);
    ASSERT_EQ(machine.shell.fileOperations.size(), 2U);
    EXPECT_EQ(machine.shell.fileOperations[0].fFlags, 0x554U);
    EXPECT_EQ(machine.shell.fileOperations[1].fFlags, 0x154U);
    EXPECT_EQ(machine.shell.fileOperations[0].wFunc, 3U);
    EXPECT_EQ(machine.shell.fileOperations[0].pFrom, std::string("C:\\a.txt\0\0", 10));
    EXPECT_EQ(machine.shell.fileOperations[0].hwnd, machine.shell.foregroundWindow);
}

TEST_F(KillFileTest, RecycleWithAMaskTakesFilesAndLeavesFoldersNamedAlike) {
    machine.files.putFile("C:\\D\\a.old", "x");
    machine.files.putFile("C:\\D\\keep.old\\inside.txt", "x");
    EXPECT_TRUE(kill("C:\\D\\*.old", KillRecycle, false));
    EXPECT_FALSE(machine.files.has("C:\\D\\a.old"));
    EXPECT_TRUE(machine.files.has("C:\\D\\keep.old\\inside.txt"));
}

TEST_F(KillFileTest, OverwriteWritesBlanksOverTheContentAndDeletes) {
    machine.files.putFile("C:\\a.txt", "secret");
    EXPECT_TRUE(kill("C:\\a.txt", KillOverwrite, false));
    EXPECT_FALSE(machine.files.has("C:\\a.txt"));
    ASSERT_EQ(machine.files.overwritten.size(), 1U);
    EXPECT_EQ(machine.files.overwritten[0].bytes, "      ");
}

TEST_F(KillFileTest, OverwriteOfAnEmptyFileWritesNothingAndDeletes) {
    machine.files.putFile("C:\\a.txt", "");
    EXPECT_TRUE(kill("C:\\a.txt", KillOverwrite, false));
    EXPECT_FALSE(machine.files.has("C:\\a.txt"));
    for (const auto& record : machine.files.overwritten) EXPECT_TRUE(record.blocks.empty());
}

TEST_F(KillFileTest, OverwriteWritesBlocksOf4096AndKeepsTheLength) {
    machine.files.putFile("C:\\a", std::string(4096, 'x'));
    machine.files.putFile("C:\\b", std::string(4097, 'x'));
    kill("C:\\a", KillOverwrite, false);
    kill("C:\\b", KillOverwrite, false);
    ASSERT_EQ(machine.files.overwritten.size(), 2U);
    EXPECT_EQ(machine.files.overwritten[0].blocks, (std::vector<std::size_t>{4096}));
    EXPECT_EQ(machine.files.overwritten[1].blocks, (std::vector<std::size_t>{4096, 1}));
    EXPECT_EQ(machine.files.overwritten[1].bytes, std::string(4097, ' '));
}

TEST_F(KillFileTest, OverwriteWithAMaskWritesNothingAndDeletesEveryMatch) {
    machine.files.putFile("C:\\D\\a.tmp", "x");
    machine.files.putFile("C:\\D\\b.tmp", "x");
    machine.files.putFile("C:\\D\\c.txt", "x");
    EXPECT_TRUE(kill("C:\\D\\*.tmp", KillOverwrite, false));
    EXPECT_FALSE(machine.files.has("C:\\D\\a.tmp"));
    EXPECT_FALSE(machine.files.has("C:\\D\\b.tmp"));
    EXPECT_TRUE(machine.files.has("C:\\D\\c.txt"));
    EXPECT_TRUE(machine.files.overwritten.empty());
}

TEST_F(KillFileTest, OverwriteIsTrueForALockedAReadOnlyAndAMissingFile) {
    machine.files.putFile("C:\\locked", "secret");
    machine.files.lock("C:\\locked");
    machine.files.putFile("C:\\readonly", "secret");
    machine.files.setAttributes("C:\\readonly", platform::attribute::ReadOnly);
    EXPECT_TRUE(kill("C:\\locked", KillOverwrite, false));
    EXPECT_TRUE(kill("C:\\readonly", KillOverwrite, false));
    EXPECT_TRUE(kill("C:\\missing", KillOverwrite, false));
    EXPECT_EQ(machine.files.bytesOf("C:\\locked"), "secret");
    EXPECT_EQ(machine.files.bytesOf("C:\\readonly"), "secret");
}

TEST_F(KillFileTest, OverwriteDoesNotCreateAMissingFile) {
    kill("C:\\missing", KillOverwrite, false);
    EXPECT_FALSE(machine.files.has("C:\\missing"));
}

TEST_F(KillFileTest, OverwriteSparesTheContentOfAFileWithAnotherName) {
    machine.files.putFile("C:\\keep\\photo.jpg", "picture");
    machine.files.putHardLink("C:\\D\\photo.jpg", "C:\\keep\\photo.jpg");
    EXPECT_TRUE(kill("C:\\D\\photo.jpg", KillOverwrite, false));
    EXPECT_FALSE(machine.files.has("C:\\D\\photo.jpg"));
    EXPECT_EQ(machine.files.bytesOf("C:\\keep\\photo.jpg"), "picture");
}

TEST_F(KillFileTest, OverwriteGoesOnBehindABlockThatFails) {
    machine.files.putFile("C:\\a", std::string(3 * 4096, 'x'));
    machine.files.refuse("C:\\a", operation::Block, Status::Denied, 1);
    EXPECT_TRUE(kill("C:\\a", KillOverwrite, false));
    EXPECT_FALSE(machine.files.has("C:\\a"));
}

TEST_F(KillFileTest, PlainLeavesALockedFileAndTellsItUnlessErrorsAreIgnored) {
    machine.files.putFile("C:\\locked", "x");
    machine.files.lock("C:\\locked");
    EXPECT_FALSE(kill("C:\\locked", KillPlain, false));
    EXPECT_TRUE(kill("C:\\locked", KillPlain, true));
    EXPECT_TRUE(machine.files.has("C:\\locked"));
}

TEST_F(KillFileTest, PlainAndOverwriteDoNothingToAFolder) {
    machine.files.putFile("C:\\D\\a", "x");
    kill("C:\\D", KillPlain, true);
    kill("C:\\D", KillOverwrite, true);
    EXPECT_EQ(machine.files.bytesOf("C:\\D\\a"), "x");
}

TEST_F(KillFileTest, OverwriteReachesTheEndOfAFileBeyondTwoGibibytes) {
    constexpr std::uint64_t kLength = (std::uint64_t{2} << 30) + 1;
    machine.files.putFileOfLength("C:\\big", kLength);
    EXPECT_TRUE(kill("C:\\big", KillOverwrite, false));
    ASSERT_EQ(machine.files.overwritten.size(), 1U);
    EXPECT_EQ(machine.files.overwritten[0].blocks.size(), kLength / 4096 + 1);
    EXPECT_EQ(machine.files.overwritten[0].blocks.back(), 1U);
    EXPECT_FALSE(machine.files.has("C:\\big"));
}

TEST_F(KillFileTest, ANameWithAColonOrAControlSignReachesNothing) {
    machine.files.putFile("C:\\Windows\\System32\\a.dll", "x");
    for (const std::string& path : {std::string("C:\\Windows::$INDEX_ALLOCATION"), std::string("C:\\Windows\0x", 12),
                                    std::string("C:\\Windows\\System32\\a.dll:s")}) {
        for (const int method : {KillPlain, KillRecycle, KillOverwrite}) kill(path, method, true);
        (void)services.files.DeleteFolder(path, true);
    }
    EXPECT_EQ(machine.files.bytesOf("C:\\Windows\\System32\\a.dll"), "x");
}

TEST_F(KillFileTest, AnyOtherMethodTouchesNothing) {
    machine.files.putFile("C:\\a", "x");
    EXPECT_FALSE(kill("C:\\a", 3, true));
    EXPECT_FALSE(kill("C:\\a", -1, true));
    EXPECT_TRUE(machine.files.has("C:\\a"));
}

TEST_F(KillFileTest, ARelativePathAndAnEmptyLastPartRemoveNothing) {
    machine.files.putFile("C:\\D\\sessions", "x");
    for (const int method : {KillPlain, KillRecycle, KillOverwrite}) {
        kill("sessions", method, true);
        kill("\\D\\sessions", method, true);
        kill("C:\\D\\", method, true);
        kill("", method, true);
    }
    EXPECT_TRUE(machine.files.has("C:\\D\\sessions"));
    EXPECT_TRUE(machine.shell.recycled.empty());
    EXPECT_FALSE(machine.warnings.empty());
}

}  // namespace
}  // namespace tidvane::removal
