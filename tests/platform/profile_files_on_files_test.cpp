#include "platform/common/profile_files_on_files.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_files.h"

namespace tidvane::platform {
namespace {

struct ProfileFilesOnFilesTest : testing::Test {
    RemovalCounter counter;
    MemoryFiles files{counter};
    ProfileFilesOnFiles profiles{files, base::CodePage(1252)};
    const std::string file = "C:\\App\\config.ini";

    ProfileFilesOnFilesTest() {
        files.addDrive('C', DriveType::Fixed, 1U << 30U, 1U << 30U);
        files.putFolder("C:\\App");
    }

    std::string get(const std::string& section, const std::string& key, std::size_t size = 256) {
        return profiles.GetPrivateProfileStringA(section, key, "", size, file);
    }
};

TEST_F(ProfileFilesOnFilesTest, CreatesFileSectionAndKey) {
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "k", "v", file));
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "l", "w", file));
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("b", "k", "", file));
    EXPECT_EQ(files.bytesOf(file), "[a]\r\nk=v\r\nl=w\r\n[b]\r\nk=\r\n");
    EXPECT_EQ(get("A", "L"), "w");
    EXPECT_EQ(profiles.GetPrivateProfileSectionA("a", 100, file), std::string("k=v\0l=w\0", 8));
    EXPECT_EQ(profiles.GetPrivateProfileStringA(std::nullopt, std::nullopt, "", 100, file), std::string("a\0b\0", 4));
    EXPECT_EQ(profiles.GetPrivateProfileStringA("a", std::nullopt, "", 100, file), std::string("k\0l\0", 4));
}

TEST_F(ProfileFilesOnFilesTest, TakesKeysAndSectionsAway) {
    files.putFile(file, "[a]\r\nk=v\r\nl=w\r\n[b]\r\nk=v\r\n");
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "k", std::nullopt, file));
    EXPECT_EQ(files.bytesOf(file), "[a]\r\nl=w\r\n[b]\r\nk=v\r\n");
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", std::nullopt, std::nullopt, file));
    EXPECT_EQ(files.bytesOf(file), "[b]\r\nk=v\r\n");
}

TEST_F(ProfileFilesOnFilesTest, RemovingFromAMissingFileMakesNone) {
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "k", std::nullopt, file));
    EXPECT_FALSE(files.has(file));
}

TEST_F(ProfileFilesOnFilesTest, FilesHoldTheCodePage) {
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "k", "\xC3\xA4\xE2\x82\xAC\xD0\x90", file));
    EXPECT_EQ(files.bytesOf(file), "[a]\r\nk=\xE4\x80?\r\n");
    EXPECT_EQ(get("a", "k"), "\xC3\xA4\xE2\x82\xAC?");
}

TEST_F(ProfileFilesOnFilesTest, SizesCountBytesOfTheCodePage) {
    files.putFile(file, "[a]\r\nk=\xE4\xF6\xFC\xDF\r\n");
    EXPECT_EQ(get("a", "k", 5), "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F");
    EXPECT_EQ(get("a", "k", 3), "\xC3\xA4\xC3\xB6");
    files.putFile(file, "[a]\r\nk=" + std::string(300, '\xE4') + "\r\n");
    EXPECT_EQ(get("a", "k", 256).size(), 2U * 255U);
}

TEST_F(ProfileFilesOnFilesTest, SeesWhatOthersWrite) {
    files.putFile(file, "[a]\r\nk=1\r\n");
    EXPECT_EQ(get("a", "k"), "1");
    files.putFile(file, "[a]\r\nk=2\r\n");
    EXPECT_EQ(get("a", "k"), "2");
}

TEST_F(ProfileFilesOnFilesTest, AFileThatCannotBeReadIsEmptyAndStaysAsItIs) {
    files.putFile(file, "[a]\r\nk=1\r\n");
    files.refuse(file, operation::Read, Status::Denied);
    EXPECT_EQ(profiles.GetPrivateProfileStringA("a", "k", "fallback", 256, file), "fallback");
    EXPECT_FALSE(profiles.WritePrivateProfileStringA("a", "k", "2", file));
    EXPECT_EQ(files.bytesOf(file), "[a]\r\nk=1\r\n");
}

TEST_F(ProfileFilesOnFilesTest, AFailedWriteIsReported) {
    files.putFile(file, "[a]\r\nk=1\r\n");
    files.refuse(file, operation::Write, Status::DiskFull);
    EXPECT_FALSE(profiles.WritePrivateProfileStringA("a", "k", "2", file));
    EXPECT_EQ(files.bytesOf(file), "[a]\r\nk=1\r\n");
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "k", "1", file)) << "nothing to write";
}

TEST_F(ProfileFilesOnFilesTest, AFolderIsNoFile) {
    files.putFolder(file);
    EXPECT_EQ(get("a", "k"), "");
    EXPECT_FALSE(profiles.WritePrivateProfileStringA("a", "k", "2", file));
}

TEST_F(ProfileFilesOnFilesTest, AHugeFileIsReadInPartAndNeverWritten) {
    const std::string huge = "[a]\r\nk=1\r\n" + std::string(ProfileFilesOnFiles::largestFile, 'x');
    files.putFile(file, huge);
    EXPECT_EQ(get("a", "k"), "1");
    EXPECT_FALSE(profiles.WritePrivateProfileStringA("a", "k", "2", file));
    EXPECT_EQ(files.bytesOf(file), huge);
}

TEST_F(ProfileFilesOnFilesTest, TextsEndAtANul) {
    EXPECT_TRUE(profiles.WritePrivateProfileStringA("a", "k", std::string("v\0[x]", 5), file));
    EXPECT_EQ(files.bytesOf(file), "[a]\r\nk=v\r\n");
}

}  // namespace
}  // namespace tidvane::platform
