// What looking at files answers, on every platform.
#include "contract/contract_platform.h"
#include "platform/common/directory_lookup.h"

namespace tidvane::contract {
namespace {

using platform::EntryKind;
using platform::FolderEntry;
using platform::FolderTotals;
using platform::Status;
namespace attribute = platform::attribute;

TEST_P(FileSystemContract, ReadFolderListsEveryEntryWithItsKind) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Scratch\\.hidden", "2");
    machine->putFolder("C:\\Scratch\\sub");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\sub");
    machine->putFifo("C:\\Scratch\\fifo");

    std::vector<FolderEntry> entries;
    ASSERT_EQ(files.ReadFolder("C:\\Scratch", entries), Status::Ok);

    ASSERT_EQ(entries.size(), 5u);
    for (const FolderEntry& entry : entries) {
        const EntryKind expected = entry.name == "sub"    ? EntryKind::Folder
                                   : entry.name == "link" ? EntryKind::Link
                                   : entry.name == "fifo" ? EntryKind::Other
                                                          : EntryKind::File;
        EXPECT_EQ(entry.kind, expected) << entry.name;
    }
}

TEST_P(FileSystemContract, ReadFolderTakesABackslashAtTheEnd) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    EXPECT_EQ(listing("C:\\Scratch\\"), std::vector<std::string>{"a.txt"});
}

TEST_P(FileSystemContract, ReadFolderOfWhatIsNoFolder) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFolder("C:\\Scratch\\sub");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\sub");
    std::vector<FolderEntry> entries{{"left over", EntryKind::File}};

    EXPECT_EQ(files.ReadFolder("C:\\Scratch\\none", entries), Status::NotFound);
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(files.ReadFolder("C:\\Scratch\\none\\deeper", entries), Status::PathNotFound);
    EXPECT_EQ(files.ReadFolder("C:\\Scratch\\a.txt", entries), Status::Denied);
    EXPECT_EQ(files.ReadFolder("C:\\Scratch\\a.txt\\deeper", entries), Status::PathNotFound);
    EXPECT_EQ(files.ReadFolder("C:\\Scratch\\link", entries), Status::Denied);
    EXPECT_EQ(files.ReadFolder("C:\\Scratch\\s*", entries), Status::InvalidName);
    EXPECT_EQ(files.ReadFolder("Q:\\none", entries), Status::PathNotFound);
    EXPECT_EQ(files.ReadFolder("Scratch", entries), Status::PathNotFound);
    EXPECT_EQ(files.ReadFolder("\\Scratch", entries), Status::PathNotFound);
    EXPECT_EQ(files.ReadFolder("", entries), Status::PathNotFound);
}

TEST_P(FileSystemContract, PathsCompareWithoutCase) {
    machine->putFile(
        "C:\\Scratch\\Gr\xC3\xB6\xC3\x9F"
        "e.TXT",
        "1");
    EXPECT_TRUE(
        files.FileExists("c:\\SCRATCH\\gR\xC3\x96\xC3\x9F"
                         "E.txt"));
    EXPECT_EQ(files.RemoveFile("C:\\scratch\\gr\xC3\xB6\xC3\x9F"
                               "e.txt"),
              Status::Ok);
    EXPECT_TRUE(listing("C:\\Scratch").empty());
}

TEST_P(FileSystemContract, DotsSlashesAndDoubledBackslashesAreResolvedByText) {
    machine->putFile("C:\\Scratch\\sub\\a.txt", "1");
    EXPECT_TRUE(files.FileExists("C:\\Scratch\\\\sub\\a.txt"));
    EXPECT_TRUE(files.FileExists("C:/Scratch/sub/a.txt"));
    EXPECT_TRUE(files.FileExists("C:\\Scratch\\.\\sub\\a.txt"));
    EXPECT_TRUE(files.FileExists("C:\\Scratch\\sub\\..\\sub\\a.txt"));
    EXPECT_TRUE(files.FileExists("C:\\..\\..\\Scratch\\sub\\a.txt"));
    EXPECT_TRUE(files.FolderExists("C:\\Scratch\\none\\..\\sub"));
}

TEST_P(FileSystemContract, ALinkOnTheWayLeadsNowhere) {
    machine->putFile("C:\\Scratch\\sub\\a.txt", "1");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\sub");

    EXPECT_FALSE(files.FileExists("C:\\Scratch\\link\\a.txt"));
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\link\\a.txt"), Status::PathNotFound);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\link\\*"), Status::PathNotFound);
    EXPECT_TRUE(machine->has("C:\\Scratch\\sub\\a.txt"));
}

TEST_P(FileSystemContract, AttributesAreKept) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    for (const unsigned set : {attribute::ReadOnly, attribute::Hidden, attribute::System, attribute::Archive,
                               attribute::ReadOnly | attribute::Hidden | attribute::System | attribute::Archive}) {
        ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", set), Status::Ok) << set;
        EXPECT_EQ(attributesOf("C:\\Scratch\\a.txt"), set);
    }
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", attribute::Normal), Status::Ok);
    EXPECT_EQ(attributesOf("C:\\Scratch\\a.txt"), attribute::Normal);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", 0), Status::Ok);
    EXPECT_EQ(attributesOf("C:\\Scratch\\a.txt"), attribute::Normal);
}

TEST_P(FileSystemContract, AFolderStaysAFolderWhateverAttributesItGets) {
    machine->putFolder("C:\\Scratch\\sub");
    EXPECT_EQ(attributesOf("C:\\Scratch\\sub"), attribute::Directory);
    EXPECT_EQ(attributesOf("C:\\Scratch\\sub\\"), attribute::Directory);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\sub", attribute::Hidden | attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(attributesOf("C:\\Scratch\\sub"), attribute::Directory | attribute::Hidden | attribute::ReadOnly);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\sub", 0), Status::Ok);
    EXPECT_EQ(attributesOf("C:\\Scratch\\sub"), attribute::Directory);
}

TEST_P(FileSystemContract, AttributesOfALinkAreItsOwn) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", attribute::Hidden), Status::Ok);
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\a.txt");
    machine->putLink("C:\\Scratch\\nowhere", "C:\\Scratch\\none");

    EXPECT_NE(attributesOf("C:\\Scratch\\link") & attribute::ReparsePoint, 0u);
    EXPECT_EQ(attributesOf("C:\\Scratch\\link") & attribute::Hidden, 0u);
    EXPECT_NE(attributesOf("C:\\Scratch\\nowhere") & attribute::ReparsePoint, 0u);
}

TEST_P(FileSystemContract, AttributesOfNothing) {
    unsigned attributes = 77;
    EXPECT_EQ(files.GetAttributes("C:\\Scratch\\none", attributes), Status::NotFound);
    EXPECT_EQ(files.GetAttributes("C:\\none\\none", attributes), Status::PathNotFound);
    EXPECT_EQ(files.GetAttributes("none", attributes), Status::PathNotFound);
    EXPECT_EQ(files.GetAttributes("C:\\Scratch\\*", attributes), Status::InvalidName);
    EXPECT_EQ(attributes, 77u);
    EXPECT_EQ(files.SetAttributes("C:\\Scratch\\none", 0), Status::NotFound);
    EXPECT_EQ(files.SetAttributes("C:\\Scratch\\*", 0), Status::InvalidName);
}

TEST_P(FileSystemContract, SizeOfFilesFoldersAndLinks) {
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\a.txt");
    std::uint64_t bytes = 77;
    EXPECT_EQ(files.GetSize("C:\\Scratch\\a.txt", bytes), Status::Ok);
    EXPECT_EQ(bytes, 5u);
    EXPECT_EQ(files.GetSize("C:\\Scratch\\link", bytes), Status::Ok);
    EXPECT_EQ(bytes, 0u);
    EXPECT_EQ(files.GetSize("C:\\Scratch", bytes), Status::Denied);
    EXPECT_EQ(files.GetSize("C:\\Scratch\\none", bytes), Status::NotFound);
    EXPECT_EQ(files.GetSize("C:\\none\\none", bytes), Status::PathNotFound);
}

TEST_P(FileSystemContract, TimesOfAFile) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    platform::FileTimes times;
    ASSERT_EQ(files.GetFileTimes("C:\\Scratch\\a.txt", times), Status::Ok);
    EXPECT_GT(times.lastWrite, base::toFileTime({2000, 1, 1, 0, 0, 0}));
    EXPECT_GT(times.lastAccess, base::toFileTime({2000, 1, 1, 0, 0, 0}));
    EXPECT_GT(times.creation, base::toFileTime({2000, 1, 1, 0, 0, 0}));
    EXPECT_EQ(files.GetFileTimes("C:\\Scratch", times), Status::Denied);
    EXPECT_EQ(files.GetFileTimes("C:\\Scratch\\none", times), Status::NotFound);
    EXPECT_EQ(files.GetFileTimes("C:\\none\\none", times), Status::PathNotFound);
}

TEST_P(FileSystemContract, ExistenceTestsTellFilesFromFolders) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFolder("C:\\Scratch\\sub");
    EXPECT_TRUE(files.FileExists("C:\\Scratch\\a.txt"));
    EXPECT_FALSE(files.FolderExists("C:\\Scratch\\a.txt"));
    EXPECT_TRUE(files.FolderExists("C:\\Scratch\\sub"));
    EXPECT_TRUE(files.FolderExists("C:\\Scratch\\sub\\"));
    EXPECT_FALSE(files.FileExists("C:\\Scratch\\sub"));
    EXPECT_TRUE(files.FolderExists("C:\\"));
    EXPECT_FALSE(files.FileExists("C:\\Scratch\\*.txt"));
    EXPECT_FALSE(files.FileExists(""));
    EXPECT_FALSE(files.FolderExists(""));
    EXPECT_FALSE(files.FolderExists("Scratch"));
    EXPECT_FALSE(files.FolderExists("Q:\\"));
}

TEST_P(FileSystemContract, ExistenceTestsTakeALinkForWhatItIs) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFolder("C:\\Scratch\\sub");
    machine->putLink("C:\\Scratch\\toFile", "C:\\Scratch\\a.txt");
    machine->putLink("C:\\Scratch\\toFolder", "C:\\Scratch\\sub");
    EXPECT_TRUE(files.FileExists("C:\\Scratch\\toFile"));
    EXPECT_FALSE(files.FolderExists("C:\\Scratch\\toFolder"));
}

TEST_P(FileSystemContract, MeasureFolderCountsAllDepths) {
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    machine->putFile("C:\\Scratch\\one\\b.txt", "123");
    machine->putFile("C:\\Scratch\\one\\two\\c.txt", "");
    machine->putRawName("C:\\Scratch\\one", "back\\slash:", "12");
    machine->putFolder("C:\\Scratch\\empty");
    FolderTotals totals;
    ASSERT_EQ(files.MeasureFolder("C:\\Scratch\\", totals), Status::Ok);
    EXPECT_EQ(totals.folders, 3u);
    EXPECT_EQ(totals.files, 4u);
    EXPECT_EQ(totals.bytes, 10u);
}

TEST_P(FileSystemContract, MeasureFolderCountsLinksAndDoesNotEnterThem) {
    machine->putFile("C:\\Elsewhere\\big.txt", std::string(1000, 'x'));
    machine->putLink("C:\\Scratch\\toFolder", "C:\\Elsewhere");
    machine->putLink("C:\\Scratch\\toFile", "C:\\Elsewhere\\big.txt");
    machine->putLink("C:\\Scratch\\loop", "C:\\Scratch");
    machine->putFifo("C:\\Scratch\\fifo");
    FolderTotals totals;
    ASSERT_EQ(files.MeasureFolder("C:\\Scratch", totals), Status::Ok);
    EXPECT_EQ(totals.folders, 0u);
    EXPECT_EQ(totals.files, 4u);
    EXPECT_EQ(totals.bytes, 0u);
}

TEST_P(FileSystemContract, MeasureFolderThatFailsLeavesTheTotals) {
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    FolderTotals totals{7, 8, 9};
    EXPECT_EQ(files.MeasureFolder("C:\\Scratch\\none", totals), Status::NotFound);
    EXPECT_EQ(files.MeasureFolder("C:\\none\\none", totals), Status::PathNotFound);
    EXPECT_EQ(files.MeasureFolder("C:\\Scratch\\a.txt", totals), Status::Denied);
    EXPECT_EQ(totals.files, 8u);
    machine->putFile("C:\\Scratch\\sub\\b.txt", "1");
    if (machine->forbid("C:\\Scratch\\sub")) {
        EXPECT_EQ(files.MeasureFolder("C:\\Scratch", totals), Status::Denied);
        EXPECT_EQ(totals.folders, 7u);
        EXPECT_EQ(totals.files, 8u);
        EXPECT_EQ(totals.bytes, 9u);
    }
}

TEST_P(FileSystemContract, NamesThatAreNotUtf8ComeBackUnchanged) {
    machine->putRawName("C:\\Scratch", "caf\xE9.tmp", "1");
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"caf\xE9.tmp"});
    EXPECT_TRUE(files.FileExists("C:\\Scratch\\caf\xE9.tmp"));
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\caf\xE9.tmp"), Status::Ok);
    EXPECT_FALSE(machine->hasRawName("C:\\Scratch", "caf\xE9.tmp"));
}

TEST_P(FileSystemContract, NamesThatNoPathCanHoldAreNotListed) {
    machine->putRawName("C:\\Scratch", "a\\b", "1");
    machine->putRawName("C:\\Scratch", "a:b", "1");
    machine->putRawName("C:\\Scratch", "a*b", "1");
    EXPECT_TRUE(listing("C:\\Scratch").empty());
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\*"), Status::NotFound);
    EXPECT_TRUE(machine->hasRawName("C:\\Scratch", "a\\b"));
}

TEST_P(FileSystemContract, LookUpGivesPlainReadOnlyAndArchiveFiles) {
    for (const char* name : {"archive", "readonly", "hidden", "system"}) {
        machine->putFile(std::string("C:\\Scratch\\") + name + ".tmp", "1");
    }
    machine->putFolder("C:\\Scratch\\folder.tmp");
    machine->putLink("C:\\Scratch\\link.tmp", "C:\\Scratch\\none");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\archive.tmp", attribute::Archive), Status::Ok);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\readonly.tmp", attribute::ReadOnly), Status::Ok);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\hidden.tmp", attribute::Hidden), Status::Ok);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\system.tmp", attribute::System), Status::Ok);
    using platform::findMatches;
    using Names = std::vector<std::string>;

    EXPECT_EQ(findMatches(files, "C:\\Scratch\\*.tmp"), (Names{"archive.tmp", "link.tmp", "readonly.tmp"}));
    EXPECT_EQ(findMatches(files, "C:\\Scratch\\*.tmp", attribute::Hidden),
              (Names{"archive.tmp", "hidden.tmp", "link.tmp", "readonly.tmp"}));
    EXPECT_EQ(findMatches(files, "C:\\Scratch\\*", attribute::Directory),
              (Names{"archive.tmp", "folder.tmp", "link.tmp", "readonly.tmp"}));
    EXPECT_EQ(findMatches(files, "C:\\Scratch\\*", attribute::Hidden | attribute::System | attribute::Directory).size(),
              6u);
    EXPECT_EQ(findMatches(files, "C:\\Scratch\\ARCHIVE.tmp"), Names{"ARCHIVE.tmp"});
    EXPECT_TRUE(findMatches(files, "C:\\Scratch\\hidden.tmp").empty());
    EXPECT_TRUE(findMatches(files, "C:\\Scratch\\folder.tmp").empty());
    EXPECT_TRUE(findMatches(files, "C:\\Scratch\\").empty());
    EXPECT_TRUE(findMatches(files, "*.tmp").empty());
    EXPECT_TRUE(findMatches(files, "C:\\none\\*").empty());
    EXPECT_TRUE(platform::anyMatch(files, "C:\\Scratch\\*.tmp"));
    EXPECT_FALSE(platform::anyMatch(files, "C:\\Scratch\\hid*.tmp"));
}

TEST_P(FileSystemContract, DrivesHoldC) {
    bool found = false;
    char before = 0;
    for (const platform::Drive& drive : files.Drives()) {
        EXPECT_GT(drive.letter, before);
        before = drive.letter;
        if (drive.letter != 'C') continue;
        found = true;
        EXPECT_EQ(drive.type, platform::DriveType::Fixed);
    }
    EXPECT_TRUE(found);
}

TEST_P(FileSystemContract, FreeSpaceOfAFolderAndOfADrive) {
    std::uint64_t freeBytes = 0;
    std::uint64_t totalBytes = 0;
    for (const char* place : {"C:", "C:\\", "C:\\Scratch", "C:\\Scratch\\"}) {
        freeBytes = totalBytes = 0;
        ASSERT_EQ(files.GetDiskFreeSpaceExA(place, freeBytes, totalBytes), Status::Ok) << place;
        EXPECT_GT(freeBytes, 0u);
        EXPECT_GE(totalBytes, freeBytes);
    }
    EXPECT_EQ(files.GetDiskFreeSpaceExA("Q:\\", freeBytes, totalBytes), Status::NotFound);
    EXPECT_EQ(files.GetDiskFreeSpaceExA("C:\\Scratch\\none", freeBytes, totalBytes), Status::NotFound);
}

}  // namespace
}  // namespace tidvane::contract
