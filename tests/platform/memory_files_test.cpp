// What the memory machine can do beyond the contract: its scripted faults, and its book-keeping.
#include "platform/memory/memory_files.h"

#include <gtest/gtest.h>

namespace tidvane::platform {
namespace {

class MemoryFilesTest : public testing::Test {
protected:
    MemoryFilesTest() {
        files.addDrive('C', DriveType::Fixed, 1000, 5000);
        files.putFolder("C:\\T");
    }
    RemovalCounter counter;
    MemoryFiles files{counter};
};

TEST_F(MemoryFilesTest, ARefusalHoldsForItsOperationsAlone) {
    files.putFile("C:\\T\\a", "1");
    files.refuse("c:\\t\\A", operation::Remove, Status::InUse);
    std::string bytes;
    EXPECT_EQ(files.ReadFileBytes("C:\\T\\a", bytes), Status::Ok);
    EXPECT_EQ(files.RemoveFile("C:\\T\\a"), Status::InUse);
    files.allow("C:\\T\\a");
    EXPECT_EQ(files.RemoveFile("C:\\T\\a"), Status::Ok);
}

TEST_F(MemoryFilesTest, ARefusalCanEndAfterSomeCalls) {
    files.putFile("C:\\T\\a", "1");
    files.refuse("C:\\T\\a", operation::Remove, Status::InUse, 2);
    EXPECT_EQ(files.RemoveFile("C:\\T\\a"), Status::InUse);
    EXPECT_EQ(files.RemoveFile("C:\\T\\a"), Status::InUse);
    EXPECT_EQ(files.RemoveFile("C:\\T\\a"), Status::Ok);
    EXPECT_EQ(counter.totals.failed, 2u);
}

TEST_F(MemoryFilesTest, ALockedFileKeepsItsFoldersInATreeRemoval) {
    files.putFile("C:\\T\\x\\locked", "1");
    files.putFile("C:\\T\\x\\y\\free", "1");
    files.lock("C:\\T\\x\\locked");
    EXPECT_EQ(files.DeleteFolder("C:\\T", true), Status::InUse);
    EXPECT_EQ(files.everythingBelow("C:\\T"), (std::vector<std::string>{"C:\\T\\x\\", "C:\\T\\x\\locked"}));
    EXPECT_TRUE(files.FileExists("C:\\T\\x\\locked"));
}

TEST_F(MemoryFilesTest, ADeniedFolderCanBeSeenAndNotRead) {
    files.putFile("C:\\T\\x\\a", "1");
    files.deny("C:\\T\\x");
    std::vector<FolderEntry> entries;
    FolderTotals totals;
    EXPECT_TRUE(files.FolderExists("C:\\T\\x"));
    EXPECT_EQ(files.ReadFolder("C:\\T\\x", entries), Status::Denied);
    EXPECT_EQ(files.MeasureFolder("C:\\T", totals), Status::Denied);
    EXPECT_EQ(files.RemoveFolder("C:\\T\\x"), Status::Denied);
}

TEST_F(MemoryFilesTest, AnEntryCanVanishBeforeAnOperationReachesIt) {
    files.putFile("C:\\T\\a", "1");
    files.vanishBefore("C:\\T\\a", 2);
    EXPECT_TRUE(files.FileExists("C:\\T\\a"));
    EXPECT_EQ(files.RemoveFile("C:\\T\\a"), Status::NotFound);
    EXPECT_EQ(counter.totals, RemovalTotals{});
}

TEST_F(MemoryFilesTest, AFileThatVanishesDuringAWalkIsNoFailure) {
    files.putFile("C:\\T\\x\\a", "1");
    files.putFile("C:\\T\\x\\b", "1");
    files.vanishBefore("C:\\T\\x\\b", 1);
    EXPECT_EQ(files.DeleteFolder("C:\\T\\x", false), Status::Ok);
    EXPECT_FALSE(files.has("C:\\T\\x"));
    EXPECT_EQ(counter.totals.files, 1u);

    files.putFile("C:\\T\\a.tmp", "1");
    files.putFile("C:\\T\\b.tmp", "1");
    files.vanishBefore("C:\\T\\a.tmp", 1);
    EXPECT_EQ(files.KillFiles("C:\\T\\*.tmp"), Status::Ok);
    EXPECT_TRUE(files.everythingBelow("C:\\T").empty());
}

TEST_F(MemoryFilesTest, AFolderThatVanishesWithTheWalkInItIsNoFailure) {
    files.putFile("C:\\T\\x\\y\\a", "1");
    files.putFile("C:\\T\\x\\y\\b", "1");
    files.putFile("C:\\T\\x\\z", "1");
    files.before("C:\\T\\x\\y\\b", 1, [this] { files.take("C:\\T\\x\\y"); });
    EXPECT_EQ(files.DeleteFolder("C:\\T\\x", false), Status::Ok);
    EXPECT_TRUE(files.everythingBelow("C:\\T").empty());

    files.putFile("C:\\T\\x\\y\\a", "1");
    files.putFile("C:\\T\\x\\y\\b", "1");
    files.before("C:\\T\\x\\y\\a", 1, [this] { files.take("C:\\T\\x"); });
    EXPECT_EQ(files.DeleteFolder("C:\\T\\x", false), Status::Ok);
    EXPECT_TRUE(files.everythingBelow("C:\\T").empty());
}

TEST_F(MemoryFilesTest, ALinkSwappedInDuringAWalkGoesAsALink) {
    files.putFile("C:\\Other\\keep", "1");
    files.putFile("C:\\T\\x\\y\\a", "1");
    files.becomeLinkBefore("C:\\T\\x\\y", 1, "C:\\Other");
    EXPECT_EQ(files.DeleteFolder("C:\\T\\x", true), Status::Ok);
    EXPECT_FALSE(files.has("C:\\T\\x"));
    EXPECT_TRUE(files.has("C:\\Other\\keep"));
}

TEST_F(MemoryFilesTest, AWalkStopsAtAMountPoint) {
    files.putFile("C:\\T\\x\\mounted\\keep", "12345");
    files.putFile("C:\\T\\x\\go", "1");
    files.putMountPoint("C:\\T\\x\\mounted");
    FolderTotals totals;
    EXPECT_EQ(files.MeasureFolder("C:\\T\\x", totals), Status::Ok);
    EXPECT_EQ(totals.bytes, 1u);
    EXPECT_EQ(totals.folders, 1u);
    EXPECT_EQ(files.DeleteFolder("C:\\T\\x", true), Status::InUse);
    EXPECT_TRUE(files.has("C:\\T\\x\\mounted\\keep"));
    EXPECT_FALSE(files.has("C:\\T\\x\\go"));
}

TEST_F(MemoryFilesTest, FreeSpaceGrowsWithWhatIsRemoved) {
    files.putFileOfLength("C:\\T\\big", 700);
    files.putFile("C:\\T\\first", "12345");
    files.putHardLink("C:\\T\\second", "C:\\T\\first");
    EXPECT_EQ(files.RemoveFile("C:\\T\\big"), Status::Ok);
    EXPECT_EQ(files.freeBytes('C'), 1700u);
    EXPECT_EQ(files.RemoveFile("C:\\T\\first"), Status::Ok);
    EXPECT_EQ(files.freeBytes('C'), 1700u);
    EXPECT_EQ(files.RemoveFile("C:\\T\\second"), Status::Ok);
    EXPECT_EQ(files.freeBytes('C'), 1705u);
}

TEST_F(MemoryFilesTest, AFullDiskKeepsTheOldContent) {
    files.putFile("C:\\T\\a", "old");
    EXPECT_EQ(files.WriteFileBytes("C:\\T\\a", std::string(1001, 'x')), Status::DiskFull);
    files.setDiskFull('C', true);
    EXPECT_EQ(files.WriteFileBytes("C:\\T\\a", "new"), Status::DiskFull);
    EXPECT_EQ(files.WriteFileBytes("C:\\T\\b", "new"), Status::DiskFull);
    EXPECT_EQ(files.MakeFolder("C:\\T\\c"), Status::DiskFull);
    EXPECT_EQ(files.bytesOf("C:\\T\\a"), "old");
    EXPECT_FALSE(files.has("C:\\T\\b"));
    files.setDiskFull('C', false);
    EXPECT_EQ(files.WriteFileBytes("C:\\T\\a", "newer"), Status::Ok);
    EXPECT_EQ(files.bytesOf("C:\\T\\a"), "newer");
    EXPECT_EQ(files.freeBytes('C'), 998u);
}

TEST_F(MemoryFilesTest, ADriveWithoutAMediumIsNotReady) {
    files.addDrive('D', DriveType::CdRom, 0, 0);
    files.setReady('D', false);
    std::vector<FolderEntry> entries;
    std::uint64_t freeBytes = 0;
    std::uint64_t totalBytes = 0;
    EXPECT_EQ(files.ReadFolder("D:\\", entries), Status::NotReady);
    EXPECT_EQ(files.GetDiskFreeSpaceExA("D:", freeBytes, totalBytes), Status::NotReady);
    EXPECT_FALSE(files.FolderExists("D:\\"));
    EXPECT_EQ(files.Drives().size(), 2u);
}

TEST_F(MemoryFilesTest, RenamingToAnotherDriveFails) {
    files.addDrive('D', DriveType::Fixed, 10, 10);
    files.putFile("C:\\T\\a", "1");
    EXPECT_EQ(files.RenameEntry("C:\\T\\a", "D:\\a"), Status::Failed);
    EXPECT_TRUE(files.has("C:\\T\\a"));
}

TEST_F(MemoryFilesTest, OverwritingIsRecordedBlockByBlock) {
    files.putFile("C:\\T\\a", "123456");
    std::unique_ptr<OverwriteHandle> handle;
    ASSERT_EQ(files.OpenForOverwrite("C:\\T\\a", handle), Status::Ok);
    EXPECT_EQ(handle->write("    "), Status::Ok);
    files.refuse("C:\\T\\a", operation::Block, Status::DiskFull, 1);
    EXPECT_EQ(handle->write("  "), Status::DiskFull);
    EXPECT_EQ(handle->write("  "), Status::Ok);
    handle.reset();
    ASSERT_EQ(files.RemoveFile("C:\\T\\a"), Status::Ok);
    ASSERT_EQ(files.overwritten.size(), 1u);
    EXPECT_EQ(files.overwritten[0].path, "C:\\T\\a");
    EXPECT_EQ(files.overwritten[0].blocks, (std::vector<std::size_t>{4, 2}));
    EXPECT_EQ(files.overwritten[0].bytes, "      ");
}

TEST_F(MemoryFilesTest, ADeclaredLengthTakesNoMemory) {
    files.putFileOfLength("C:\\T\\huge", 3'000'000'000ull);
    std::uint64_t bytes = 0;
    EXPECT_EQ(files.GetSize("C:\\T\\huge", bytes), Status::Ok);
    EXPECT_EQ(bytes, 3'000'000'000ull);
    std::string read;
    EXPECT_EQ(files.ReadFileBytes("C:\\T\\huge", read, 4), Status::Ok);
    EXPECT_EQ(read, "    ");
    std::unique_ptr<OverwriteHandle> handle;
    ASSERT_EQ(files.OpenForOverwrite("C:\\T\\huge", handle), Status::Ok);
    EXPECT_EQ(handle->length(), 3'000'000'000ull);
    EXPECT_EQ(handle->write("xx"), Status::Ok);
    EXPECT_EQ(files.bytesOf("C:\\T\\huge"), "");
}

TEST_F(MemoryFilesTest, TimesAreKeptAndGivenToNewFiles) {
    files.putFile("C:\\T\\a", "1");
    files.setTimes("C:\\T\\a", {1, 2, 3});
    FileTimes times;
    ASSERT_EQ(files.GetFileTimes("C:\\T\\a", times), Status::Ok);
    EXPECT_EQ(times.creation, 1u);
    EXPECT_EQ(times.lastAccess, 2u);
    EXPECT_EQ(times.lastWrite, 3u);
    files.timeOfNewEntries = 77;
    ASSERT_EQ(files.WriteFileBytes("C:\\T\\a", "2"), Status::Ok);
    ASSERT_EQ(files.GetFileTimes("C:\\T\\a", times), Status::Ok);
    EXPECT_EQ(times.creation, 1u);
    EXPECT_EQ(times.lastWrite, 77u);
}

TEST_F(MemoryFilesTest, NewFilesCarryTheArchiveBit) {
    ASSERT_EQ(files.WriteFileBytes("C:\\T\\a", "1"), Status::Ok);
    EXPECT_EQ(files.attributesOf("C:\\T\\a"), attribute::Archive);
}

TEST_F(MemoryFilesTest, SharesAreVolumesOfTheirOwn) {
    files.putFile("\\\\server\\share\\a", "1");
    EXPECT_TRUE(files.FileExists("\\\\SERVER\\Share\\A"));
    EXPECT_EQ(files.RemoveFile("\\\\server\\share\\a"), Status::Ok);
    EXPECT_EQ(files.RemoveFile("\\\\server\\other\\a"), Status::PathNotFound);
    EXPECT_EQ(files.Drives().size(), 1u);
}

TEST_F(MemoryFilesTest, CountsTheFoldersItReads) {
    files.putFile("C:\\T\\a", "1");
    std::vector<FolderEntry> entries;
    (void)files.ReadFolder("C:\\T", entries);
    (void)files.ReadFolder("C:\\none", entries);
    EXPECT_EQ(files.foldersRead, 1u);
}

}  // namespace
}  // namespace tidvane::platform
