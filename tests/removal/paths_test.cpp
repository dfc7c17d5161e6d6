#include "removal/paths.h"

#include <gtest/gtest.h>

namespace tidvane::removal {
namespace {

TEST(FolderOf, KeepsTheBackslashOfADriveRoot) {
    EXPECT_EQ(FolderOf("C:\\x"), "C:\\");
    EXPECT_EQ(FolderOf("C:\\a\\x"), "C:\\a");
    EXPECT_EQ(FolderOf("x"), "");
    EXPECT_EQ(FolderOf("C:\\"), "C:\\");
    EXPECT_EQ(FolderOf("\xC3\xA4\\x"), "\xC3\xA4");
}

TEST(FileNameOf, DropsTheFirstCharacterWithoutABackslash) {
    EXPECT_EQ(FileNameOf("C:\\a\\x.txt"), "x.txt");
    EXPECT_EQ(FileNameOf("x.txt"), ".txt");
    EXPECT_EQ(FileNameOf("äx"), "x");
    EXPECT_EQ(FileNameOf("C:\\a\\"), "");
}

TEST(JoinPath, PutsABackslashUnlessTheFolderIsADriveRoot) {
    EXPECT_EQ(JoinPath("C:\\", "x"), "C:\\x");
    EXPECT_EQ(JoinPath("C:\\a", "x"), "C:\\a\\x");
}

TEST(IsDirectoryAttr, LooksAtTheBitOfAFolder) {
    EXPECT_FALSE(IsDirectoryAttr(0));
    EXPECT_FALSE(IsDirectoryAttr(15));
    EXPECT_TRUE(IsDirectoryAttr(16));
    EXPECT_FALSE(IsDirectoryAttr(32));
    EXPECT_TRUE(IsDirectoryAttr(48));
    EXPECT_TRUE(IsDirectoryAttr(16 + 1 + 2));
    EXPECT_FALSE(IsDirectoryAttr(128 + 32));
    EXPECT_TRUE(IsDirectoryAttr(128 + 16));
}

}  // namespace
}  // namespace tidvane::removal
