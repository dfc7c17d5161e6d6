// What removing answers, and what it leaves, on every platform.
#include "contract/contract_platform.h"

namespace tidvane::contract {
namespace {

using platform::OverwriteHandle;
using platform::RemovalTotals;
using platform::Status;
namespace attribute = platform::attribute;

TEST_P(FileSystemContract, RemoveFileRemovesOneFile) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Scratch\\b.txt", "1");
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::Ok);
    EXPECT_FALSE(machine->has("C:\\Scratch\\a.txt"));
    EXPECT_TRUE(machine->has("C:\\Scratch\\b.txt"));
}

TEST_P(FileSystemContract, RemoveFileOfWhatIsNoFile) {
    machine->putFolder("C:\\Scratch\\sub");
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\none"), Status::NotFound);
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\none\\none"), Status::PathNotFound);
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\sub"), Status::Denied);
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\*"), Status::InvalidName);
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\a:b"), Status::InvalidName);
    EXPECT_EQ(files.RemoveFile("Q:\\a.txt"), Status::PathNotFound);
    EXPECT_TRUE(machine->has("C:\\Scratch\\sub"));
}

TEST_P(FileSystemContract, RemoveFileTakesHiddenAndSystemFilesAndLeavesReadOnlyOnes) {
    for (const unsigned set : {attribute::Hidden, attribute::System}) {
        machine->putFile("C:\\Scratch\\a.txt", "1");
        ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", set), Status::Ok);
        EXPECT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::Ok);
    }
    machine->putFile("C:\\Scratch\\a.txt", "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::Denied);
    EXPECT_TRUE(machine->has("C:\\Scratch\\a.txt"));
}

TEST_P(FileSystemContract, RemoveFileRemovesALinkAndNotWhatItPointsTo) {
    machine->putFile("C:\\Elsewhere\\a.txt", "1");
    machine->putLink("C:\\Scratch\\toFile", "C:\\Elsewhere\\a.txt");
    machine->putLink("C:\\Scratch\\toFolder", "C:\\Elsewhere");
    machine->putLink("C:\\Scratch\\nowhere", "C:\\none");
    machine->putFifo("C:\\Scratch\\fifo");
    for (const char* name : {"toFile", "toFolder", "nowhere", "fifo"}) {
        EXPECT_EQ(files.RemoveFile(std::string("C:\\Scratch\\") + name), Status::Ok) << name;
    }
    EXPECT_TRUE(listing("C:\\Scratch").empty());
    EXPECT_EQ(machine->bytesOf("C:\\Elsewhere\\a.txt"), "1");
}

TEST_P(FileSystemContract, RemovingCountsEntriesAndBytes) {
    services.removed.wantBytes = true;
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    machine->putFile("C:\\Scratch\\first", "1234567");
    machine->putHardLink("C:\\Scratch\\second", "C:\\Scratch\\first");
    machine->putFile("C:\\Scratch\\sub\\deep\\b.txt", "123");
    machine->putFolder("C:\\Scratch\\empty");
    const RemovalTotals before = services.removed.totals;

    ASSERT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::Ok);
    ASSERT_EQ(files.RemoveFile("C:\\Scratch\\second"), Status::Ok);
    ASSERT_EQ(files.DeleteFolder("C:\\Scratch\\sub", true), Status::Ok);
    ASSERT_EQ(files.RemoveFolder("C:\\Scratch\\empty"), Status::Ok);
    ASSERT_EQ(files.RemoveFile("C:\\Scratch\\none"), Status::NotFound);

    RemovalTotals totals = services.removed.totals;
    totals -= before;
    EXPECT_EQ(totals.files, 3u);
    EXPECT_EQ(totals.folders, 3u);
    EXPECT_EQ(totals.bytes, 8u);  // the second name leaves the content where it is
    EXPECT_EQ(totals.failed, 0u);
}

TEST_P(FileSystemContract, WhatStaysThoughItWasThereCountsAsFailed) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Scratch\\sub\\b.txt", "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", attribute::ReadOnly), Status::Ok);
    const RemovalTotals before = services.removed.totals;
    ASSERT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::Denied);
    ASSERT_EQ(files.RemoveFolder("C:\\Scratch\\sub"), Status::NotEmpty);
    ASSERT_EQ(files.KillFiles("C:\\Scratch\\*.txt"), Status::Denied);
    RemovalTotals totals = services.removed.totals;
    totals -= before;
    EXPECT_EQ(totals.failed, 3u);
    EXPECT_EQ(totals.files, 0u);
}

TEST_P(FileSystemContract, KillFilesTakesEveryMatchThatIsNeitherHiddenNorSystemNorAFolder) {
    for (const char* name : {"plain.tmp", "archive.tmp", "hidden.tmp", "system.tmp", "other.txt"}) {
        machine->putFile(std::string("C:\\Scratch\\") + name, "1");
    }
    machine->putFile("C:\\Scratch\\folder.tmp\\inside.tmp", "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\archive.tmp", attribute::Archive), Status::Ok);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\hidden.tmp", attribute::Hidden), Status::Ok);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\system.tmp", attribute::System), Status::Ok);

    EXPECT_EQ(files.KillFiles("C:\\Scratch\\*.TMP"), Status::Ok);

    EXPECT_EQ(listing("C:\\Scratch"),
              (std::vector<std::string>{"folder.tmp", "hidden.tmp", "other.txt", "system.tmp"}));
    EXPECT_TRUE(machine->has("C:\\Scratch\\folder.tmp\\inside.tmp"));
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\*.tmp"), Status::NotFound);
}

TEST_P(FileSystemContract, KillFilesPassesOverWhatCannotBeRemoved) {
    for (const char* name : {"a.tmp", "b.tmp", "c.tmp"}) machine->putFile(std::string("C:\\Scratch\\") + name, "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\b.tmp", attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\*.tmp"), Status::Denied);
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"b.tmp"});

    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\b.tmp", 0), Status::Ok);
    machine->putFile("C:\\Scratch\\a.tmp", "1");
    machine->putFile("C:\\Scratch\\c.tmp", "1");
    if (machine->lock("C:\\Scratch\\a.tmp")) {
        EXPECT_EQ(files.KillFiles("C:\\Scratch\\*.tmp"), Status::InUse);
        EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"a.tmp"});
    }
}

TEST_P(FileSystemContract, KillFilesWithoutAWildcard) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Scratch\\hidden.txt", "1");
    machine->putFile("C:\\Scratch\\readonly.txt", "1");
    machine->putFolder("C:\\Scratch\\sub");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\hidden.txt", attribute::Hidden), Status::Ok);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\readonly.txt", attribute::ReadOnly), Status::Ok);

    EXPECT_EQ(files.KillFiles("C:\\Scratch\\A.TXT"), Status::Ok);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\hidden.txt"), Status::NotFound);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\readonly.txt"), Status::Denied);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\sub"), Status::NotFound);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\none"), Status::NotFound);
    EXPECT_EQ(files.KillFiles("C:\\none\\none"), Status::PathNotFound);
    EXPECT_EQ(files.KillFiles("C:\\none\\*"), Status::PathNotFound);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\s*b\\*"), Status::InvalidName);
    EXPECT_EQ(listing("C:\\Scratch"), (std::vector<std::string>{"hidden.txt", "readonly.txt", "sub"}));
}

TEST_P(FileSystemContract, KillFilesRemovesLinksAndNotTheirTargets) {
    machine->putFile("C:\\Elsewhere\\a.tmp", "1");
    machine->putLink("C:\\Scratch\\toFile.tmp", "C:\\Elsewhere\\a.tmp");
    machine->putLink("C:\\Scratch\\nowhere.tmp", "C:\\none");
    machine->putLink("C:\\Scratch\\toFolder.tmp", "C:\\Elsewhere");
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\*.tmp"), Status::Ok);
    // A link that stands for a folder is passed over as folders are.
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"toFolder.tmp"});
    EXPECT_TRUE(machine->has("C:\\Elsewhere\\a.tmp"));
}

TEST_P(FileSystemContract, RemoveFolderRemovesAnEmptyFolderAlone) {
    machine->putFolder("C:\\Scratch\\empty");
    machine->putFile("C:\\Scratch\\full\\a.txt", "1");
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\empty");
    EXPECT_EQ(files.RemoveFolder("C:\\Scratch\\full"), Status::NotEmpty);
    EXPECT_EQ(files.RemoveFolder("C:\\Scratch\\a.txt"), Status::Denied);
    EXPECT_EQ(files.RemoveFolder("C:\\Scratch\\link"), Status::Denied);
    EXPECT_EQ(files.RemoveFolder("C:\\Scratch\\none"), Status::NotFound);
    EXPECT_EQ(files.RemoveFolder("C:\\none\\none"), Status::PathNotFound);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\empty", attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(files.RemoveFolder("C:\\Scratch\\empty"), Status::Denied);
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\empty", 0), Status::Ok);
    EXPECT_EQ(files.RemoveFolder("C:\\Scratch\\EMPTY"), Status::Ok);
    EXPECT_FALSE(machine->has("C:\\Scratch\\empty"));
}

TEST_P(FileSystemContract, DeleteFolderRemovesATreeWithEveryKindOfEntry) {
    machine->putFile("C:\\Scratch\\tree\\a.txt", "1");
    machine->putFile("C:\\Scratch\\tree\\one\\two\\three\\b.txt", "1");
    machine->putFifo("C:\\Scratch\\tree\\one\\fifo");
    machine->putRawName("C:\\Scratch\\tree\\one", "back\\slash*", "1");
    machine->putRawName("C:\\Scratch\\tree\\one", "caf\xE9", "1");
    machine->putLink("C:\\Scratch\\tree\\loop", "C:\\Scratch\\tree");
    machine->putFile("C:\\Elsewhere\\keep.txt", "1");
    machine->putLink("C:\\Scratch\\tree\\one\\out", "C:\\Elsewhere");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\tree\\a.txt", attribute::Hidden | attribute::System), Status::Ok);

    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\TREE", false), Status::Ok);

    EXPECT_TRUE(listing("C:\\Scratch").empty());
    EXPECT_TRUE(machine->has("C:\\Elsewhere\\keep.txt"));
}

TEST_P(FileSystemContract, DeleteFolderTakesReadOnlyContentByForceAlone) {
    machine->putFile("C:\\Scratch\\tree\\sub\\keep.txt", "1");
    machine->putFile("C:\\Scratch\\tree\\sub\\go.txt", "1");
    machine->putFile("C:\\Scratch\\tree\\other\\go.txt", "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\tree\\sub\\keep.txt", attribute::ReadOnly), Status::Ok);

    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\tree", false), Status::Denied);

    EXPECT_TRUE(machine->has("C:\\Scratch\\tree\\sub\\keep.txt"));
    EXPECT_FALSE(machine->has("C:\\Scratch\\tree\\sub\\go.txt"));
    EXPECT_FALSE(machine->has("C:\\Scratch\\tree\\other"));
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\tree", true), Status::Ok);
    EXPECT_FALSE(machine->has("C:\\Scratch\\tree"));
}

TEST_P(FileSystemContract, DeleteFolderTakesReadOnlyFoldersByForceAlone) {
    machine->putFile("C:\\Scratch\\tree\\sub\\a.txt", "1");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\tree\\sub", attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\tree", false), Status::Denied);
    EXPECT_TRUE(machine->has("C:\\Scratch\\tree\\sub"));
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\tree", true), Status::Ok);
    EXPECT_FALSE(machine->has("C:\\Scratch\\tree"));
}

TEST_P(FileSystemContract, DeleteFolderOfWhatIsNoFolder) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Elsewhere\\keep.txt", "1");
    machine->putLink("C:\\Scratch\\link", "C:\\Elsewhere");
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\a.txt", true), Status::PathNotFound);
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\none", true), Status::NotFound);
    EXPECT_EQ(files.DeleteFolder("C:\\none\\none", true), Status::PathNotFound);
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\link", true), Status::Denied);
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\", true), Status::InvalidName);
    EXPECT_TRUE(machine->has("C:\\Scratch\\a.txt"));
    EXPECT_TRUE(machine->has("C:\\Scratch\\link"));
    EXPECT_TRUE(machine->has("C:\\Elsewhere\\keep.txt"));
}

TEST_P(FileSystemContract, DeleteFolderWithAMaskTakesFoldersAlone) {
    machine->putFile("C:\\Scratch\\one.old\\a.txt", "1");
    machine->putFile("C:\\Scratch\\two.old\\a.txt", "1");
    machine->putFile("C:\\Scratch\\three\\a.txt", "1");
    machine->putFile("C:\\Scratch\\file.old", "1");
    machine->putLink("C:\\Scratch\\link.old", "C:\\Scratch\\three");
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\*.old", false), Status::Ok);
    EXPECT_EQ(listing("C:\\Scratch"), (std::vector<std::string>{"file.old", "link.old", "three"}));
    EXPECT_TRUE(machine->has("C:\\Scratch\\three\\a.txt"));
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\*.old", false), Status::NotFound);
    EXPECT_EQ(files.DeleteFolder("C:\\none\\*", false), Status::PathNotFound);
}

TEST_P(FileSystemContract, DeleteFolderLeavesWhatCannotGoWithTheFoldersAboveIt) {
    machine->putFile("C:\\Scratch\\tree\\a\\go.txt", "1");
    machine->putFile("C:\\Scratch\\tree\\shut\\keep.txt", "1");
    machine->putFile("C:\\Scratch\\tree\\z\\go.txt", "1");
    if (!machine->forbid("C:\\Scratch\\tree\\shut")) {
        EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\tree", true), Status::Ok);
        return;
    }
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch\\tree", true), Status::Denied);
    EXPECT_EQ(listing("C:\\Scratch\\tree"), std::vector<std::string>{"shut"});
}

TEST_P(FileSystemContract, OverwritingKeepsTheLengthAndReachesTheContent) {
    machine->putFile("C:\\Scratch\\a.txt", "123456");
    std::unique_ptr<OverwriteHandle> handle;
    ASSERT_EQ(files.OpenForOverwrite("C:\\Scratch\\a.txt", handle), Status::Ok);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(handle->length(), 6u);
    EXPECT_EQ(handle->write("  "), Status::Ok);
    EXPECT_EQ(handle->write("xy"), Status::Ok);
    handle.reset();
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), machine->overwritesContent() ? "  xy56" : "123456");
}

TEST_P(FileSystemContract, OverwritingRefusesLinksFoldersFurtherNamesAndReadOnlyFiles) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\a.txt");
    machine->putFile("C:\\Scratch\\first", "1");
    machine->putHardLink("C:\\Scratch\\second", "C:\\Scratch\\first");
    machine->putFile("C:\\Scratch\\readonly", "1");
    machine->putFifo("C:\\Scratch\\fifo");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\readonly", attribute::ReadOnly), Status::Ok);
    std::unique_ptr<OverwriteHandle> handle;
    for (const char* name : {"link", "first", "second", "readonly", "fifo"}) {
        EXPECT_EQ(files.OpenForOverwrite(std::string("C:\\Scratch\\") + name, handle), Status::Denied) << name;
        EXPECT_EQ(handle, nullptr) << name;
    }
    EXPECT_EQ(files.OpenForOverwrite("C:\\Scratch", handle), Status::Denied);
    EXPECT_EQ(files.OpenForOverwrite("C:\\Scratch\\none", handle), Status::NotFound);
    EXPECT_EQ(files.OpenForOverwrite("C:\\none\\none", handle), Status::PathNotFound);
    EXPECT_EQ(files.OpenForOverwrite("C:\\Scratch\\*", handle), Status::InvalidName);
    // A file of its own again, once the further name is gone.
    ASSERT_EQ(files.RemoveFile("C:\\Scratch\\second"), Status::Ok);
    EXPECT_EQ(files.OpenForOverwrite("C:\\Scratch\\first", handle), Status::Ok);
}

TEST_P(FileSystemContract, AFileInUseAnswersInUse) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    if (!machine->lock("C:\\Scratch\\a.txt")) {
        EXPECT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::Ok);
        return;
    }
    std::unique_ptr<OverwriteHandle> handle;
    EXPECT_EQ(files.RemoveFile("C:\\Scratch\\a.txt"), Status::InUse);
    EXPECT_EQ(files.KillFiles("C:\\Scratch\\a.txt"), Status::InUse);
    EXPECT_EQ(files.OpenForOverwrite("C:\\Scratch\\a.txt", handle), Status::InUse);
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\a.txt", "2"), Status::InUse);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", "C:\\Scratch\\b.txt"), Status::InUse);
    EXPECT_EQ(files.DeleteFolder("C:\\Scratch", true), Status::InUse);
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "1");
}

}  // namespace
}  // namespace tidvane::contract
