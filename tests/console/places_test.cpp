#include "console/places.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/host_directory.h"

namespace tidvane::console {
namespace {

class Places : public ::testing::Test {
protected:
    Places() {
        here.file("data/English.lng", "100 text");
        here.file("data/languages/other.lng", "100 other");
        here.file("data/.gitattributes", "x");
    }
    bool fill() { return fillProgramFolder(here / "home/program", here / "data", error); }
    tests::HostDirectory here;
    std::string error;
};

TEST_F(Places, FillANewProgramFolderWithoutDotFiles) {
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(here.content("home/program/English.lng"), "100 text");
    EXPECT_EQ(here.content("home/program/languages/other.lng"), "100 other");
    EXPECT_FALSE(here.has("home/program/.gitattributes"));
}

TEST_F(Places, FillAnEmptyProgramFolder) {
    here.folder("home/program");
    ASSERT_TRUE(fill()) << error;
    EXPECT_TRUE(here.has("home/program/English.lng"));
}

TEST_F(Places, LeaveAProgramFolderThatHasAnything) {
    here.file("home/program/td_config.ini", "mine");
    ASSERT_TRUE(fill()) << error;
    EXPECT_FALSE(here.has("home/program/English.lng"));
    EXPECT_EQ(here.content("home/program/td_config.ini"), "mine");
}

TEST_F(Places, SayWhenTheProgramFolderIsAFile) {
    here.file("home/program", "x");
    EXPECT_FALSE(fill());
    EXPECT_NE(error.find("--program"), std::string::npos);
    EXPECT_EQ(here.content("home/program"), "x");
}

TEST_F(Places, SayWhenTheDeliveryIsNotFound) {
    EXPECT_FALSE(fillProgramFolder(here / "home/program", "", error));
    EXPECT_FALSE(here.has("home/program"));
}

TEST_F(Places, LeaveNothingBehindWhenTheDeliveryCannotBeCopied) {
    EXPECT_FALSE(fillProgramFolder(here / "home/program", here / "nowhere", error));
    EXPECT_FALSE(here.has("home/program"));
}

TEST_F(Places, KnowTheUsersDataDirectory) {
    const char* old = ::getenv("XDG_DATA_HOME");
    const std::string kept = old == nullptr ? "" : old;
    ::setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(userDataDirectory(), "/data/tidvane");
    ::setenv("XDG_DATA_HOME", "not/absolute", 1);
    ::setenv("HOME", "/home/anna", 1);
    EXPECT_EQ(userDataDirectory(), "/home/anna/.local/share/tidvane");
    if (old == nullptr) {
        ::unsetenv("XDG_DATA_HOME");
    } else {
        ::setenv("XDG_DATA_HOME", kept.c_str(), 1);
    }
}

TEST_F(Places, FindTheDeliveredFiles) {
    EXPECT_NE(deliveredData(), "");
}

TEST_F(Places, DeliverThePlugInsByteForByte) {
    namespace fs = std::filesystem;
    ASSERT_TRUE(fillProgramFolder(here / "home/program", deliveredData(), error)) << error;
    std::size_t plugIns = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(deliveredData()) / "PlugIns")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        ASSERT_NE(bytes, "");
        EXPECT_EQ(here.content("home/program/PlugIns/" + entry.path().filename().string()), bytes);
        ++plugIns;
    }
    EXPECT_GE(plugIns, 30U);
}

}  // namespace
}  // namespace tidvane::console
