// Renaming, making folders, and whole files, on every platform.
#include "contract/contract_platform.h"

namespace tidvane::contract {
namespace {

using platform::Status;
namespace attribute = platform::attribute;

TEST_P(FileSystemContract, RenameEntryMovesInsideADrive) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Scratch\\from\\b.txt", "2");
    machine->putFolder("C:\\Scratch\\to");
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", "C:\\Scratch\\to\\c.txt"), Status::Ok);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\from", "C:\\Scratch\\to\\from"), Status::Ok);
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"to"});
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\to\\c.txt"), "1");
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\to\\from\\b.txt"), "2");
}

TEST_P(FileSystemContract, RenameEntryChangesCaseAlone) {
    machine->putFile("C:\\Scratch\\setup.bak", "1");
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\setup.bak", "C:\\Scratch\\SETUP.BAK"), Status::Ok);
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"SETUP.BAK"});
}

TEST_P(FileSystemContract, RenameEntryNeverReplaces) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFile("C:\\Scratch\\b.txt", "2");
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", "C:\\Scratch\\B.TXT"), Status::Exists);
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "1");
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\b.txt"), "2");
}

TEST_P(FileSystemContract, RenameEntryWithNothingToRenameOrNoPlaceForIt) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putFolder("C:\\Scratch\\sub");
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\none", "C:\\Scratch\\b.txt"), Status::NotFound);
    EXPECT_EQ(files.RenameEntry("C:\\none\\none", "C:\\Scratch\\b.txt"), Status::PathNotFound);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", "C:\\none\\b.txt"), Status::PathNotFound);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", "C:\\Scratch\\b*.txt"), Status::InvalidName);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\*.txt", "C:\\Scratch\\b.txt"), Status::InvalidName);
    EXPECT_EQ(files.RenameEntry("C:\\n*ne\\a.txt", "C:\\Scratch\\b.txt"), Status::InvalidName);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\a.txt", "C:\\n?ne\\b.txt"), Status::InvalidName);
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\sub", "C:\\Scratch\\sub\\deeper"), Status::Denied);
    EXPECT_EQ(listing("C:\\Scratch"), (std::vector<std::string>{"a.txt", "sub"}));
}

TEST_P(FileSystemContract, RenameEntryMovesALinkItself) {
    machine->putFile("C:\\Elsewhere\\a.txt", "1");
    machine->putLink("C:\\Scratch\\link", "C:\\Elsewhere\\a.txt");
    EXPECT_EQ(files.RenameEntry("C:\\Scratch\\link", "C:\\Scratch\\moved"), Status::Ok);
    EXPECT_TRUE(machine->has("C:\\Elsewhere\\a.txt"));
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"moved"});
}

TEST_P(FileSystemContract, MakeFolderMakesOneLevel) {
    EXPECT_EQ(files.MakeFolder("C:\\Scratch\\sub"), Status::Ok);
    EXPECT_TRUE(files.FolderExists("C:\\Scratch\\sub"));
    EXPECT_EQ(files.MakeFolder("C:\\Scratch\\SUB"), Status::Exists);
    machine->putFile("C:\\Scratch\\a.txt", "1");
    EXPECT_EQ(files.MakeFolder("C:\\Scratch\\a.txt"), Status::Exists);
    EXPECT_EQ(files.MakeFolder("C:\\Scratch\\none\\sub"), Status::PathNotFound);
    EXPECT_EQ(files.MakeFolder("C:\\Scratch\\a?b"), Status::InvalidName);
    EXPECT_EQ(files.MakeFolder("sub"), Status::PathNotFound);
}

TEST_P(FileSystemContract, WholeFilesAreWrittenAndRead) {
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\a.bin", bytes), Status::Ok);
    std::string read;
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch\\A.BIN", read), Status::Ok);
    EXPECT_EQ(read, bytes);
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch\\a.bin", read, 3), Status::Ok);
    EXPECT_EQ(read, bytes.substr(0, 3));
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\A.bin", ""), Status::Ok);
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch\\a.bin", read), Status::Ok);
    EXPECT_EQ(read, "");
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"a.bin"});  // spelled as it was, and nothing beside it
}

TEST_P(FileSystemContract, ReadFileBytesOfWhatIsNoFile) {
    machine->putFile("C:\\Scratch\\a.txt", "1");
    machine->putLink("C:\\Scratch\\link", "C:\\Scratch\\a.txt");
    machine->putFifo("C:\\Scratch\\fifo");
    std::string read = "left over";
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch", read), Status::Denied);
    EXPECT_EQ(read, "");
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch\\link", read), Status::Denied);
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch\\fifo", read), Status::Denied);
    EXPECT_EQ(files.ReadFileBytes("C:\\Scratch\\none", read), Status::NotFound);
    EXPECT_EQ(files.ReadFileBytes("C:\\none\\none", read), Status::PathNotFound);
    EXPECT_EQ(files.ReadFileBytes("none", read), Status::PathNotFound);
}

TEST_P(FileSystemContract, WriteFileBytesThatFailsLeavesTheOldContent) {
    machine->putFile("C:\\Scratch\\a.txt", "old");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\a.txt", "new"), Status::Denied);
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "old");
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch", "new"), Status::Denied);
    EXPECT_EQ(files.WriteFileBytes("C:\\none\\none", "new"), Status::PathNotFound);
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\a*", "new"), Status::InvalidName);
    EXPECT_EQ(listing("C:\\Scratch"), std::vector<std::string>{"a.txt"});
}

TEST_P(FileSystemContract, WriteFileBytesKeepsAttributesAndLeavesAFurtherNameAlone) {
    machine->putFile("C:\\Scratch\\a.txt", "old");
    machine->putHardLink("C:\\Scratch\\second", "C:\\Scratch\\a.txt");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\a.txt", attribute::Hidden), Status::Ok);
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\a.txt", "new"), Status::Ok);
    EXPECT_EQ(attributesOf("C:\\Scratch\\a.txt"), attribute::Hidden);
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "new");
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\second"), "old");
}

TEST_P(FileSystemContract, WriteFileBytesNeverWritesThroughALink) {
    machine->putFile("C:\\Elsewhere\\a.txt", "old");
    machine->putLink("C:\\Scratch\\link", "C:\\Elsewhere\\a.txt");
    EXPECT_EQ(files.WriteFileBytes("C:\\Scratch\\link", "new"), Status::Denied);
    EXPECT_EQ(machine->bytesOf("C:\\Elsewhere\\a.txt"), "old");
}

TEST_P(FileSystemContract, CopyFileBytesCopiesOverTheTarget) {
    machine->putFile("C:\\Scratch\\a.txt", "new");
    machine->putFile("C:\\Scratch\\b.txt", "old, and longer");
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\a.txt", "C:\\Scratch\\b.txt"), Status::Ok);
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\a.txt", "C:\\Scratch\\c.txt"), Status::Ok);
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\b.txt"), "new");
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\c.txt"), "new");
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "new");
}

TEST_P(FileSystemContract, CopyFileBytesThatCannotBe) {
    machine->putFile("C:\\Scratch\\a.txt", "new");
    machine->putFile("C:\\Scratch\\readonly", "old");
    ASSERT_EQ(files.SetAttributes("C:\\Scratch\\readonly", attribute::ReadOnly), Status::Ok);
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\none", "C:\\Scratch\\b.txt"), Status::NotFound);
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch", "C:\\Scratch\\b.txt"), Status::Denied);
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\a.txt", "C:\\none\\b.txt"), Status::PathNotFound);
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\a.txt", "C:\\Scratch\\readonly"), Status::Denied);
    EXPECT_EQ(files.CopyFileBytes("C:\\Scratch\\a.txt", "C:\\Scratch\\A.TXT"), Status::InUse);
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\readonly"), "old");
    EXPECT_EQ(machine->bytesOf("C:\\Scratch\\a.txt"), "new");
    EXPECT_FALSE(machine->has("C:\\Scratch\\b.txt"));
}

}  // namespace
}  // namespace tidvane::contract
