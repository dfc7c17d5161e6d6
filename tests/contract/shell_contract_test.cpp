// The recycle bin and the shell's delete, on every platform.
#include "contract/contract_platform.h"

namespace tidvane::contract {
namespace {

using platform::RecycleBinInfo;
using platform::RemovalTotals;
using platform::ShFileOp;

constexpr unsigned kRecycle = platform::kFofSimpleProgress | platform::kFofAllowUndo | platform::kFofNoConfirmation |
                              platform::kFofSilent | platform::kFofNoErrorUi;

ShFileOp recycling(const std::string& path) {
    ShFileOp operation;
    operation.wFunc = platform::kFoDelete;
    operation.pFrom = path + std::string(2, '\0');
    operation.fFlags = kRecycle;
    return operation;
}

TEST_P(ShellContract, RecyclingMovesAFileAsOneUnit) {
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    EXPECT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\A.TXT")), 0);
    EXPECT_FALSE(machine->has("C:\\Scratch\\a.txt"));
    RecycleBinInfo info;
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.items, 1u);
    EXPECT_EQ(info.bytes, 5u);
}

TEST_P(ShellContract, RecyclingMovesATreeAsOneUnit) {
    machine->putFile("C:\\Scratch\\tree\\a.txt", "12345");
    machine->putFile("C:\\Scratch\\tree\\sub\\b.txt", "123");
    machine->putFile("C:\\Elsewhere\\keep.txt", "1");
    machine->putLink("C:\\Scratch\\tree\\out", "C:\\Elsewhere");
    EXPECT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\tree")), 0);
    EXPECT_FALSE(machine->has("C:\\Scratch\\tree"));
    EXPECT_TRUE(machine->has("C:\\Elsewhere\\keep.txt"));
    RecycleBinInfo info;
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("C:\\", info), 0);
    EXPECT_EQ(info.items, 1u);
    EXPECT_EQ(info.bytes, 8u);
}

TEST_P(ShellContract, RecyclingWithAMaskTakesFilesAlone) {
    machine->putFile("C:\\Scratch\\a.old", "1");
    machine->putFile("C:\\Scratch\\b.old", "1");
    machine->putFile("C:\\Scratch\\c.txt", "1");
    machine->putFile("C:\\Scratch\\folder.old\\inside.old", "1");
    EXPECT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\*.old")), 0);
    EXPECT_EQ(listing("C:\\Scratch"), (std::vector<std::string>{"c.txt", "folder.old"}));
    RecycleBinInfo info;
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.items, 2u);
    EXPECT_NE(services.shell.SHFileOperationA(recycling("C:\\Scratch\\*.old")), 0);
}

TEST_P(ShellContract, RecyclingTwoFilesOfOneNameKeepsBoth) {
    for (int i = 0; i < 2; ++i) {
        machine->putFile("C:\\Scratch\\a.txt", "12345");
        ASSERT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\a.txt")), 0);
    }
    RecycleBinInfo info;
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.items, 2u);
}

TEST_P(ShellContract, RecyclingNothingIsAFailure) {
    EXPECT_NE(services.shell.SHFileOperationA(recycling("C:\\Scratch\\none")), 0);
    EXPECT_NE(services.shell.SHFileOperationA(recycling("C:\\none\\none")), 0);
    EXPECT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\")), 123);
    EXPECT_TRUE(machine->has("C:\\Scratch"));
}

TEST_P(ShellContract, WhatIsRecycledCountsAsRemoved) {
    machine->putFile("C:\\Scratch\\tree\\a.txt", "12345");
    const RemovalTotals before = services.removed.totals;
    ASSERT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\tree")), 0);
    RemovalTotals totals = services.removed.totals;
    totals -= before;
    EXPECT_EQ(totals.files, 1u);
    EXPECT_EQ(totals.folders, 1u);
    EXPECT_EQ(totals.failed, 0u);
}

TEST_P(ShellContract, WithoutUndoTheTargetGoesForGood) {
    machine->putFile("C:\\Scratch\\tree\\a.txt", "1");
    machine->putFile("C:\\Scratch\\b.txt", "1");
    for (const char* path : {"C:\\Scratch\\tree", "C:\\Scratch\\b.txt"}) {
        ShFileOp operation = recycling(path);
        operation.fFlags &= ~platform::kFofAllowUndo;
        EXPECT_EQ(services.shell.SHFileOperationA(operation), 0) << path;
    }
    EXPECT_TRUE(listing("C:\\Scratch").empty());
    RecycleBinInfo info;
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.items, 0u);
}

TEST_P(ShellContract, EmptyingTheBinLeavesNothingInIt) {
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    machine->putFile("C:\\Scratch\\tree\\sub\\b.txt", "1");
    ASSERT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\a.txt")), 0);
    ASSERT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\tree")), 0);
    EXPECT_EQ(services.shell.SHEmptyRecycleBinA(0, "", platform::kSherbNoConfirmation), 0);
    RecycleBinInfo info{1, 1};
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.items, 0u);
    EXPECT_EQ(info.bytes, 0u);
}

TEST_P(ShellContract, ABinStaysFullWhereTheQuestionIsNotAgreedTo) {
    machine->putFile("C:\\Scratch\\a.txt", "12345");
    ASSERT_EQ(services.shell.SHFileOperationA(recycling("C:\\Scratch\\a.txt")), 0);
    EXPECT_EQ(services.shell.SHEmptyRecycleBinA(0, "", 0), platform::kErrorCancelled);
    RecycleBinInfo info;
    ASSERT_EQ(services.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.items, 1u);
}

TEST_P(ShellContract, ABinOfADriveThatIsNotThere) {
    RecycleBinInfo info;
    EXPECT_NE(services.shell.SHQueryRecycleBinA("Q:\\", info), 0);
    EXPECT_NE(services.shell.SHEmptyRecycleBinA(0, "Q:\\", 1), 0);
}

TEST_P(ShellContract, SpecialFoldersAreFullPathsWithoutABackslashAtTheEnd) {
    namespace csidl = platform::csidl;
    for (const int number : {csidl::Desktop, csidl::Programs, csidl::Personal, csidl::Favorites, csidl::Startup,
                             csidl::SendTo, csidl::StartMenu, csidl::CommonDesktop, csidl::Templates, csidl::AppData,
                             csidl::LocalAppData, csidl::InternetCache, csidl::Cookies, csidl::History, csidl::Windows,
                             csidl::System, csidl::ProgramFiles, csidl::MyPictures, csidl::Profile}) {
        const std::string path = services.shell.SpecialFolder(number);
        EXPECT_TRUE(base::isAbsolutePath(path)) << number << ": " << path;
        EXPECT_NE(path.back(), '\\') << number;
    }
    EXPECT_EQ(services.shell.SpecialFolder(9999), "");
    EXPECT_TRUE(base::equalNoCase(services.shell.SpecialFolder(csidl::Windows), services.system.WindowsFolder()));
    EXPECT_TRUE(base::isAbsolutePath(services.shell.TemporaryFolder()));
}

}  // namespace
}  // namespace tidvane::contract
