#include "frontend/host_paths.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/host_directory.h"

namespace tidvane::frontend {
namespace {

namespace machine = platform::machine;

class HostPathsTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(machine::Machine::create(here / "m", error)) << error;
        here.folder("m/drive_c/Users/Anna/Some Folder");
        here.file("program/td_config.ini");
        opened = machine::Machine::open(here / "m", machine::Machine::Access::Read, error);
        ASSERT_NE(opened, nullptr) << error;
        paths = std::make_unique<HostPaths>(*opened, here / "program");
    }
    tests::HostDirectory here;
    std::unique_ptr<machine::Machine> opened;
    std::unique_ptr<HostPaths> paths;
};

TEST_F(HostPathsTest, APathOfTheMachineLeadsToTheHostWhateverItsCase) {
    EXPECT_EQ(paths->hostPathOf("C:\\"), here / "m/drive_c");
    EXPECT_EQ(paths->hostPathOf("c:\\users\\ANNA\\some folder"), here / "m/drive_c/Users/Anna/Some Folder");
    EXPECT_EQ(paths->hostPathOf("C:\\Users\\Anna\\Some Folder\\"), here / "m/drive_c/Users/Anna/Some Folder");
}

TEST_F(HostPathsTest, AMissingFolderLeadsToTheNearestAboveIt) {
    EXPECT_EQ(paths->hostPathOf("C:\\Users\\Anna\\gone\\deeper"), here / "m/drive_c/Users/Anna");
}

TEST_F(HostPathsTest, AFolderToShowHasToBeThere) {
    EXPECT_EQ(paths->hostFolderOf("c:\\users\\anna"), here / "m/drive_c/Users/Anna");
    EXPECT_EQ(paths->hostFolderOf("C:\\Users\\Anna\\gone"), "");
    EXPECT_EQ(paths->hostFolderOf("C:\\Program Files\\Tidvane\\td_config.ini"), "") << "a file";
    EXPECT_EQ(paths->hostFolderOf("https://tidvane.example"), "");
}

TEST_F(HostPathsTest, AFileToShowHasToBeThere) {
    EXPECT_EQ(paths->hostFileOf("c:\\program files\\tidvane\\TD_CONFIG.INI"), here / "program/td_config.ini");
    EXPECT_EQ(paths->hostFileOf("C:\\Program Files\\Tidvane\\td_gone.ini"), "");
    EXPECT_EQ(paths->hostFileOf("C:\\Users\\Anna"), "") << "a folder";
}

TEST_F(HostPathsTest, AnUnknownDriveLeadsNowhere) {
    EXPECT_EQ(paths->hostPathOf("Q:\\x"), "");
    EXPECT_EQ(paths->hostPathOf("Users"), "");
    EXPECT_EQ(paths->hostPathOf(""), "");
}

TEST_F(HostPathsTest, AFolderOfTheHostIsFoundOnTheMachine) {
    EXPECT_EQ(paths->machinePathOf(here / "m/drive_c"), "C:\\");
    EXPECT_EQ(paths->machinePathOf(here / "m/drive_c/Users/Anna/Some Folder/"), "C:\\Users\\Anna\\Some Folder");
    EXPECT_EQ(paths->machinePathOf(here / "m/drive_c/Users/Anna/new.txt"), "C:\\Users\\Anna\\new.txt");
}

TEST_F(HostPathsTest, AFolderOutsideTheMachineHasNoPathOnIt) {
    EXPECT_EQ(paths->machinePathOf(here / "elsewhere"), "");
    EXPECT_EQ(paths->machinePathOf(here / "m/drive_cc/x"), "");
    EXPECT_EQ(paths->machinePathOf(""), "");
}

TEST_F(HostPathsTest, LinksOfTheHostAreFollowed) {
    here.link(here / "m/drive_c/Users", "shortcut");
    EXPECT_EQ(paths->machinePathOf(here / "shortcut/Anna"), "C:\\Users\\Anna");
}

TEST_F(HostPathsTest, TheProgramFolderHasItsPlaceOnTheMachine) {
    EXPECT_EQ(paths->machinePathOf(here / "program/td_config.ini"), "C:\\Program Files\\Tidvane\\td_config.ini");
    EXPECT_EQ(paths->hostPathOf("C:\\Program Files\\Tidvane"), here / "program");
    EXPECT_EQ(paths->hostPathOf("c:\\program files\\tidvane\\TD_CONFIG.INI"), here / "program/td_config.ini");
}

}  // namespace
}  // namespace tidvane::frontend
