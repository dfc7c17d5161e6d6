// Renaming on volumes that cannot refuse a taken name by themselves, at the three places that rename.
#include "platform/machine/entry_rename.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/machine/machine_files.h"
#include "platform/machine/recycle_bin.h"
#include "platform/machine/whole_file.h"
#include "support/host_directory.h"

namespace tidvane::platform::machine {
namespace {

class EntryRename : public ::testing::TestWithParam<VolumeAbility> {
protected:
    EntryRename() {
        host.folder("c/r");
        EXPECT_TRUE(files.addDrive('C', DriveType::Fixed, host / "c"));
        folder = Handle(::open((host / "c/r").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        limitVolumes(GetParam());
    }
    ~EntryRename() override { limitVolumes(VolumeAbility::All); }

    std::size_t entries(const std::string& below) {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(host / below)) count += entry.exists() ? 1 : 0;
        return count;
    }

    tests::HostDirectory host;
    RemovalCounter removed;
    MachineFiles files{removed};
    Handle folder;
};

TEST_P(EntryRename, NeverReplacesAnEntry) {
    host.file("c/r/a", "a");
    host.file("c/r/b", "b");
    host.folder("c/r/folder");
    host.folder("c/r/empty");
    const int at = folder.get();
    EXPECT_EQ(renameNoReplace(at, "a", at, "b"), EEXIST);
    EXPECT_EQ(renameNoReplace(at, "folder", at, "empty"), EEXIST);
    EXPECT_EQ(renameNoReplace(at, "none", at, "c"), ENOENT);
    EXPECT_EQ(renameNoReplace(at, "folder", at, "folder/inside"), EINVAL);
    EXPECT_EQ(host.content("c/r/b"), "b");
    EXPECT_EQ(entries("c/r"), 4u);
}

TEST_P(EntryRename, MovesFilesFoldersAndLinksAsTheyAre) {
    host.file("c/r/file", "text");
    host.file("c/r/folder/inner", "1");
    host.file("outside", "precious");
    host.link(host / "outside", "c/r/link");
    const int at = folder.get();
    EXPECT_EQ(renameNoReplace(at, "file", at, "file2"), 0);
    EXPECT_EQ(renameNoReplace(at, "folder", at, "folder2"), 0);
    EXPECT_EQ(renameNoReplace(at, "link", at, "link2"), 0);
    EXPECT_EQ(host.content("c/r/file2"), "text");
    EXPECT_TRUE(host.has("c/r/folder2/inner"));
    EXPECT_TRUE(std::filesystem::is_symlink(host / "c/r/link2"));
    EXPECT_EQ(entries("c/r"), 3u);
    struct stat info {};
    ASSERT_EQ(::lstat((host / "c/r/file2").c_str(), &info), 0);
    EXPECT_EQ(info.st_nlink, 1u);
}

TEST_P(EntryRename, TheMachineRenamesAndRefusesATakenName) {
    host.file("c/r/a", "a");
    host.file("c/r/B", "b");
    EXPECT_EQ(files.RenameEntry("C:\\r\\a", "C:\\r\\b"), Status::Exists);
    EXPECT_EQ(files.RenameEntry("C:\\r\\a", "C:\\r\\c"), Status::Ok);
    EXPECT_EQ(files.RenameEntry("C:\\r\\c", "C:\\r\\C"), Status::Ok);
    EXPECT_EQ(host.content("c/r/C"), "a");
    EXPECT_EQ(host.content("c/r/B"), "b");
    host.folder("c/r/f");
    EXPECT_EQ(files.RenameEntry("C:\\r\\f", "C:\\r\\f\\g"), Status::Denied);
    EXPECT_TRUE(host.has("c/r/f"));
}

TEST_P(EntryRename, TheBinTakesFilesAndFolders) {
    RecycleBin bin(files, removed, "S-1-5-21-1-2-3-1000", 1);
    host.file("c/r/a.txt", "12345");
    host.file("c/r/tree/b.txt", "1");
    EXPECT_EQ(bin.take("C:\\r\\a.txt"), Status::Ok);
    EXPECT_EQ(bin.take("C:\\r\\tree"), Status::Ok);
    EXPECT_EQ(entries("c/r"), 0u);
    RecycleBinInfo info;
    bin.count('C', info);
    EXPECT_EQ(info.items, 2u);
    EXPECT_EQ(info.bytes, 6u);
}

TEST_P(EntryRename, FilesAreWrittenNewAndReplacedWhole) {
    EXPECT_EQ(files.WriteFileBytes("C:\\r\\state.ini", "first"), Status::Ok);
    EXPECT_EQ(files.WriteFileBytes("C:\\r\\state.ini", "second"), Status::Ok);
    EXPECT_EQ(host.content("c/r/state.ini"), "second");
    FileReplacement late;
    ASSERT_EQ(late.start(folder.get(), nullptr), Status::Ok);
    ASSERT_EQ(late.write("late"), Status::Ok);
    EXPECT_EQ(late.publish("state.ini", false), Status::Exists);
    EXPECT_EQ(host.content("c/r/state.ini"), "second");
}

TEST_P(EntryRename, WhatWasNotPublishedLeavesNothing) {
    host.file("c/r/taken", "mine");
    {
        FileReplacement late;
        ASSERT_EQ(late.start(folder.get(), nullptr), Status::Ok);
        ASSERT_EQ(late.write("late"), Status::Ok);
        EXPECT_EQ(late.publish("taken", false), Status::Exists);
        FileReplacement dropped;
        ASSERT_EQ(dropped.start(folder.get(), nullptr), Status::Ok);
        ASSERT_EQ(dropped.complete(true), Status::Ok);
    }
    EXPECT_EQ(entries("c/r"), 1u);
}

INSTANTIATE_TEST_SUITE_P(Volumes, EntryRename,
                         ::testing::Values(VolumeAbility::All, VolumeAbility::NoExclusiveRename,
                                           VolumeAbility::NoFurtherNames));

}  // namespace
}  // namespace tidvane::platform::machine
