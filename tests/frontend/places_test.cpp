#include "frontend/places.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "support/host_directory.h"

namespace tidvane::frontend {
namespace {

class Places : public ::testing::Test {
protected:
    Places() {
        here.file("data/English.lng", "100 text");
        here.file("data/languages/other.lng", "100 other");
        here.file("data/td_ban.dat", "C:\\");
        here.file("data/PlugIns/a.tdp", "plug-in a");
        here.file("data/PlugIns/b.tdp", "plug-in b");
        here.file("data/.gitattributes", "x");
    }
    [[nodiscard]] std::set<std::string> names(const std::string& folder) const {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(here / folder)) {
            found.insert(entry.path().filename().string());
        }
        return found;
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

TEST_F(Places, LeaveAFolderThatIsNoProgramFolder) {
    for (const char* name : {"letter.txt", "td_photo.png", "data.ini", "PlugIns/mine.tdp"}) {
        here.file(std::string("home/program/") + name, "mine");
    }
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(names("home/program"), (std::set<std::string>{"PlugIns", "data.ini", "letter.txt", "td_photo.png"}));
    EXPECT_EQ(names("home/program/PlugIns"), std::set<std::string>{"mine.tdp"});
}

TEST_F(Places, CompleteAProgramFolderOfAnOlderVersion) {
    here.file("home/program/td_config.ini", "mine");
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(names("home/program"),
              (std::set<std::string>{"English.lng", "PlugIns", "languages", "td_ban.dat", "td_config.ini"}))
        << "nothing else, and nothing half done";
    EXPECT_EQ(here.content("home/program/English.lng"), "100 text");
    EXPECT_EQ(here.content("home/program/td_ban.dat"), "C:\\");
    EXPECT_EQ(here.content("home/program/PlugIns/a.tdp"), "plug-in a");
    EXPECT_EQ(here.content("home/program/td_config.ini"), "mine");
}

TEST_F(Places, ReplaceNothingOfAProgramFolder) {
    here.file("home/program/English.lng", "my text");
    here.file("home/program/TD_BAN.DAT", "");
    here.file("home/program/languages/other.lng", "my other");
    here.link("nowhere", "home/program/plugins");
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(names("home/program"), (std::set<std::string>{"English.lng", "TD_BAN.DAT", "languages", "plugins"}))
        << "names that differ by case alone are the same to the machine";
    EXPECT_EQ(here.content("home/program/English.lng"), "my text");
    EXPECT_EQ(here.content("home/program/TD_BAN.DAT"), "");
    EXPECT_EQ(here.content("home/program/languages/other.lng"), "my other");
}

TEST_F(Places, BringNoPlugInBackThatItsUserDeleted) {
    ASSERT_TRUE(fill()) << error;
    std::filesystem::remove(here / "home/program/PlugIns/a.tdp");
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(names("home/program/PlugIns"), std::set<std::string>{"b.tdp"});
    std::filesystem::remove(here / "home/program/PlugIns/b.tdp");
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(names("home/program/PlugIns"), std::set<std::string>{}) << "an empty folder is a choice too";
    std::filesystem::remove(here / "home/program/PlugIns");
    ASSERT_TRUE(fill()) << error;
    EXPECT_EQ(names("home/program/PlugIns"), (std::set<std::string>{"a.tdp", "b.tdp"}));
}

TEST_F(Places, PutNoSecondLanguageBesideTheOneChosen) {
    here.file("home/program/Deutsch (German).LNG", "100 Text");
    ASSERT_TRUE(fill()) << error;
    EXPECT_FALSE(here.has("home/program/English.lng"));
    EXPECT_TRUE(here.has("home/program/td_ban.dat"));
}

TEST_F(Places, UseAProgramFolderThatCannotBeCompleted) {
    constexpr uid_t kNobody = 65534;
    here.file("home/program/td_config.ini", "mine");
    ASSERT_EQ(::chmod(here.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod((here / "home/program").c_str(), 0555), 0);
    const uid_t user = ::geteuid();
    if (user == 0) {  // nothing is closed to root
        ASSERT_EQ(::seteuid(kNobody), 0);
    }
    const bool usable = fill();
    if (user == 0) {
        ASSERT_EQ(::seteuid(user), 0);
    }
    EXPECT_TRUE(usable) << error;
    EXPECT_EQ(names("home/program"), std::set<std::string>{"td_config.ini"});
    ASSERT_EQ(::chmod((here / "home/program").c_str(), 0755), 0);
}

TEST_F(Places, UseAProgramFolderWithoutTheDelivery) {
    here.file("home/program/td_config.ini", "mine");
    for (const std::string& delivered : {std::string(), here / "nowhere"}) {
        EXPECT_TRUE(fillProgramFolder(here / "home/program", delivered, error)) << error;
        EXPECT_EQ(names("home/program"), std::set<std::string>{"td_config.ini"});
    }
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
}  // namespace tidvane::frontend
