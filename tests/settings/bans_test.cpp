#include "settings/bans.h"

#include <gtest/gtest.h>

#include "options_fixture.h"

namespace tidvane::settings {
namespace {

constexpr const char* kFile = "C:\\td_ban.dat";

struct FindInFileTest : testing::Test {
    OptionsFixture machine;
    bool find(const std::string& content, const std::string& text, std::size_t blockSize = kBanBlockSize) {
        machine.files().putFile(kFile, content);
        return FindInFile(machine.program, kFile, text, blockSize);
    }
};

TEST_F(FindInFileTest, FindsNothingWithoutAFile) {
    EXPECT_FALSE(FindInFile(machine.program, kFile, "C:\\WINDOWS", kBanBlockSize));
    EXPECT_FALSE(FindInFile(machine.program, kFile, "", kBanBlockSize));
}

TEST_F(FindInFileTest, CountsAFileThatCannotBeReadAsNoBan) {
    machine.files().putFile(kFile, "C:\\WINDOWS\r\n");
    machine.files().deny(kFile);
    EXPECT_FALSE(FindInFile(machine.program, kFile, "C:\\WINDOWS", kBanBlockSize));
}

TEST_F(FindInFileTest, IgnoresCaseOnBothSides) {
    EXPECT_TRUE(find("x\r\nC:\\Windows\r\n", "c:\\WINDOWS"));
    EXPECT_TRUE(
        find("x\r\nC:\\\xDC"
             "bung\r\n",
             "c:\\übung"));
}

TEST_F(FindInFileTest, RefusesWhatEndsABannedLineDownToOneLetter) {
    EXPECT_TRUE(find("x\r\nC:\\WINDOWS\r\n", "WINDOWS"));
    EXPECT_TRUE(find("x\r\nC:\\WINDOWS\r\n", "S"));
    EXPECT_FALSE(find("x\r\nC:\\WINDOWS\r\n", "W"));
}

TEST_F(FindInFileTest, LetsALocationBelowABannedOnePass) {
    EXPECT_FALSE(find("C:\\WINDOWS\r\n", "C:\\WINDOWS\\TEMP"));
}

TEST_F(FindInFileTest, RefusesAnyStartOfTheFirstLineOnly) {
    EXPECT_TRUE(find("C:\\WINDOWS\r\nD:\\DATA\r\n", "C:\\WIN"));
    EXPECT_FALSE(find("C:\\WINDOWS\r\nD:\\DATA\r\n", "D:\\DA"));
}

TEST_F(FindInFileTest, RefusesNoStartOfALaterBlock) {
    // Blocks of 6: "ABCD\r\n" and "EFGH\r\n". Nothing is carried into the second one.
    EXPECT_TRUE(find("ABCD\r\nEFGH\r\n", "AB", 6));
    EXPECT_FALSE(find("ABCD\r\nEFGH\r\n", "EF", 6));
    EXPECT_FALSE(find("ABCD\r\nEFGH\r\n", "EFG", 6));
    EXPECT_TRUE(find("ABCD\r\nEFGH\r\n", "EFGH", 6)) << "a whole line";
    // Nor what is carried: "ABCD\r\nE" and "FGH\r\n".
    EXPECT_FALSE(find("ABCD\r\nEFGH\r\n", "EF", 7));
}

TEST_F(FindInFileTest, NeedsTheLineEndOfTheLastLine) {
    EXPECT_FALSE(find("x\r\nC:\\WINDOWS", "C:\\WINDOWS"));
    EXPECT_TRUE(find("C:\\WINDOWS", "C:\\WINDOWS"));
    EXPECT_FALSE(find("x\r\nC:\\WINDOWS\n", "C:\\WINDOWS"));
}

TEST_F(FindInFileTest, TrimsBlanksOfTheTextAlone) {
    EXPECT_TRUE(find("x\r\nC:\\WINDOWS\r\n", "  C:\\WINDOWS "));
    EXPECT_FALSE(find("x\r\nC:\\WINDOWS \r\n", "C:\\WINDOWS"));
}

TEST_F(FindInFileTest, KnowsNoWildcards) {
    EXPECT_FALSE(find("x\r\n*.dll\r\n", "a.dll"));
    EXPECT_TRUE(find("x\r\n*.dll\r\n", "*.dll"));
    EXPECT_FALSE(find("x\r\na.dll\r\n", "*.dll"));
}

TEST_F(FindInFileTest, FindsAnEmptyTextInAnyFileButAnEmptyOne) {
    EXPECT_TRUE(find("x", ""));
    EXPECT_TRUE(find("x\r\n", "   "));
    EXPECT_FALSE(find("", ""));
}

TEST_F(FindInFileTest, FindsALineOverTwoBlocksOnlyInCapitals) {
    // Blocks of 8: "ab\r\nC:\D" and "ATA\r\n".
    EXPECT_TRUE(find("ab\r\nC:\\DATA\r\n", "c:\\data", 8));
    EXPECT_FALSE(find("ab\r\nc:\\data\r\n", "c:\\data", 8));
    EXPECT_TRUE(find("ab\r\nc:\\data\r\n", "c:\\data", 64));
    // What stands in the second block alone is found in any case.
    EXPECT_TRUE(find("ab\r\nc:\\data\r\n", "ata", 8));
}

TEST_F(FindInFileTest, ForgetsWhatStoodBeforeABlockWithoutALineEnd) {
    // Blocks of 4: "AA\r\n", "BBBB", "CC\r\n": the line keeps its second block alone.
    EXPECT_FALSE(find("AA\r\nBBBBCC\r\n", "BBBBCC", 4));
    EXPECT_TRUE(find("AA\r\nBBBBCC\r\n", "CC", 4));
    // The carry is the rest behind the last line end of the block, and nothing without one.
    EXPECT_TRUE(find("A\r\nBCC\r\n", "BCC", 4));
}

TEST_F(FindInFileTest, FindsALineEndThatStraddlesTwoBlocks) {
    EXPECT_TRUE(find("A\r\nB\r\n", "b", 5) && find("A\r\nB\r\n", "B", 5));
    EXPECT_TRUE(find("A\r\nBB\r\n", "BB", 6));
}

TEST_F(FindInFileTest, SearchesAFileUpToTheLimitAndWarnsOnceOfTheRest) {
    const auto upTo = [this](std::uint64_t limit, const std::string& text) {
        return FindInFile(machine.program, kFile, text, kBanBlockSize, limit);
    };
    machine.files().putFile(kFile, "AA\r\nBB\r\nCC\r\n");
    EXPECT_TRUE(upTo(12, "CC")) << "as long as the limit is not too long";
    EXPECT_TRUE(machine.display.warnings.empty());
    EXPECT_TRUE(upTo(8, "BB"));
    EXPECT_FALSE(upTo(8, "CC"));
    EXPECT_FALSE(upTo(7, "BB")) << "a line that the limit cuts";
    EXPECT_EQ(machine.display.warnings,
              std::vector<std::string>{"C:\\td_ban.dat is longer than 8 bytes: what stands behind these is not read, "
                                       "and its places are not refused."});
}

TEST_F(FindInFileTest, ReadsNoMoreOfAFileWithoutEndThanItsLimit) {
    machine.files().putFileOfLength(kFile, 3'000'000'000'000);
    EXPECT_FALSE(FindInFile(machine.program, kFile, "C:\\Data", kBanBlockSize));
    EXPECT_EQ(machine.display.warnings.size(), 1U);
}

TEST(PlainSpelling, IsWhatTheSystemReads) {
    for (const auto& [text, plain] : {
             std::pair{"C:/Windows", "C:\\Windows"},
             std::pair{"C:\\\\Windows\\\\\\System32", "C:\\Windows\\System32"},
             std::pair{" C:\\.\\Windows\\.\\ ", "C:\\Windows\\"},
             std::pair{"C:\\Windows\\.", "C:\\Windows\\"},
             std::pair{"C:\\Windows . ", "C:\\Windows"},
             std::pair{"C:\\.hidden", "C:\\.hidden"},
             std::pair{"C:\\a\\..\\b", "C:\\b"},
             std::pair{"C:\\Temp\\x\\..\\..\\Windows", "C:\\Windows"},
             std::pair{"C:\\Windows\\Temp\\..", "C:\\Windows\\"},
             std::pair{"C:\\..\\..\\Windows", "C:\\Windows"},
             std::pair{"C:\\Users\\..", "C:\\"},
             std::pair{"C:\\Windows.\\System32 \\drivers", "C:\\Windows\\System32\\drivers"},
             std::pair{"\\\\server\\share\\..\\x", "\\\\server\\share\\x"},
             std::pair{"..\\a", "..\\a"},
             std::pair{"C:\\Windows\\...", "C:\\Windows\\"},
             std::pair{"\\\\", "\\\\"},
             std::pair{"*\\", "*\\"},
             std::pair{"\\\\server\\\\share", "\\\\server\\share"},
             std::pair{"//?/C:/", "\\\\?\\C:\\"},
             std::pair{"\\", "\\"},
             std::pair{"HKEY_CURRENT_USER\\\\Software", "HKEY_CURRENT_USER\\Software"},
             std::pair{"*.", "*."},
             std::pair{".", "."},
             std::pair{"", ""},
         }) {
        EXPECT_EQ(plainSpelling(text), plain) << text;
    }
}

TEST(ProtectedRegistryEntry, IsAHiveOrOneOfItsGreatKeys) {
    for (const char* entry :
         {"HKEY_CURRENT_USER", "hkey_current_user\\", " HKEY_LOCAL_MACHINE\\Software ", "HKEY_LOCAL_MACHINE\\SYSTEM\\",
          "HKEY_USERS", "HKEY_LOCAL_MACHINE\\SAM", "HKEY_CURRENT_CONFIG", "HKEY_DYN_DATA\\",
          "HKEY_CURRENT_USER\\\\Software\\\\", "HKEY_USERS\\S-1-5-21-1", "HKEY_USERS\\S-1-5-21-1\\Software",
          "hkey_users\\.default\\software\\classes"}) {
        EXPECT_TRUE(isProtectedRegistryEntry(entry)) << entry;
    }
    for (const char* entry :
         {"HKEY_CURRENT_USER\\Software\\X", "HKEY_CURRENT_USER\\Softwares", "C:\\Software", "", "HKEY_CURRENT_USERS"}) {
        EXPECT_FALSE(isProtectedRegistryEntry(entry)) << entry;
    }
}

}  // namespace
}  // namespace tidvane::settings
