// A machine that a front end keeps open while others use it too.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "frontend/open_machine.h"
#include "support/host_directory.h"
#include "support/wine_server_stand_in.h"

namespace tidvane::frontend {
namespace {

namespace machine = platform::machine;
using platform::HKey;
using platform::RegResult;

constexpr const char* kKey = "Software\\Test";
constexpr std::uint32_t kAllAccess = 0xF003F;
constexpr std::uint32_t kText = 1;

class HeldMachineTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(machine::Machine::create(here / "m", error)) << error;
        here.file("program/English.lng", "100 text");
        // A key with two values, stored.
        const auto first = other();
        ASSERT_NE(first, nullptr) << error;
        auto key = first->registry().tree().currentUser()->findOrAdd("Software")->findOrAdd("Test");
        key->setText("One", "1");
        key->setText("Two", "2");
        ASSERT_TRUE(platform::ok(first->commit(error))) << error;
    }
    // Another Tidvane; null while the machine is taken.
    std::unique_ptr<machine::Machine> other() {
        return machine::Machine::open(here / "m", machine::Machine::Access::Write, error);
    }
    void openHeld() {
        held = HeldMachine::open({here / "m", here / "program"}, error);
        ASSERT_NE(held, nullptr) << error;
        held->platform().setWarningSink([this](const platform::Warning& warning) { warnings.push_back(warning.text); });
    }
    platform::RegistryApi& registry() { return held->platform().platform().registry; }
    HKey opened(const std::string& path = kKey) {
        HKey key = 0;
        EXPECT_EQ(registry().RegOpenKeyExA(platform::HKEY_CURRENT_USER_, path, kAllAccess, key), 0);
        return key;
    }
    RegResult deleteValue(const std::string& name) {
        const HKey key = opened();
        const RegResult result = registry().RegDeleteValueA(key, name);
        (void)registry().RegCloseKey(key);
        return result;
    }
    // What lies on the disk.
    bool stored(const std::string& text) { return here.content("m/user.reg").find(text) != std::string::npos; }
    // What another program writes behind our back.
    void changeBehind(const std::string& name) {
        std::ofstream(here / "m/user.reg", std::ios::app) << "\n[Software\\\\Test]\n\"" << name << "\"=\"x\"\n";
    }

    tests::HostDirectory here;
    std::string error;
    std::vector<std::string> warnings;
    std::unique_ptr<HeldMachine> held;
};

TEST_F(HeldMachineTest, LetsOthersAtTheMachineWhileNothingIsDone) {
    openHeld();
    EXPECT_NE(other(), nullptr) << error;
    EXPECT_EQ(held->whyNotNow(), "");
    EXPECT_FALSE(held->dirty());
    EXPECT_TRUE(held->settle(error));
}

TEST_F(HeldMachineTest, KeepsOthersOutFromTheQuestionToTheEndOfTheAct) {
    openHeld();
    ASSERT_TRUE(held->mayRemove(error)) << error;
    EXPECT_EQ(other(), nullptr);
    EXPECT_NE(error.find("another Tidvane"), std::string::npos) << error;
    EXPECT_EQ(deleteValue("One"), 0);
    EXPECT_TRUE(held->dirty());
    EXPECT_TRUE(stored("\"One\"")) << "nothing is written before the act is over";
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_FALSE(held->dirty());
    EXPECT_FALSE(stored("\"One\""));
    EXPECT_TRUE(stored("\"Two\""));
    EXPECT_NE(other(), nullptr) << error;
}

TEST_F(HeldMachineTest, RefusesWhileAnotherTidvaneHasTheMachine) {
    openHeld();
    const auto cleaner = other();
    ASSERT_NE(cleaner, nullptr);
    EXPECT_FALSE(held->mayRemove(error));
    EXPECT_NE(error.find("another Tidvane"), std::string::npos) << error;
}

TEST_F(HeldMachineTest, OpensBesideAWineServerAndRefusesToRemove) {
    tests::WineServerStandIn server(here / "m");
    server.start();
    openHeld();
    EXPECT_NE(held->whyNotNow().find("running Wine server"), std::string::npos);
    EXPECT_FALSE(held->mayRemove(error));
    EXPECT_NE(error.find("running Wine server"), std::string::npos) << error;
    EXPECT_TRUE(held->settle(error));
    server.end();
    EXPECT_EQ(held->whyNotNow(), "");
    EXPECT_TRUE(held->mayRemove(error)) << error;
}

TEST_F(HeldMachineTest, ReadsTheRegistryAnewWhereItChangedBeforeAnAct) {
    openHeld();
    changeBehind("Three");
    ASSERT_TRUE(held->mayRemove(error)) << error;
    EXPECT_EQ(deleteValue("Three"), 0);
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_FALSE(stored("\"Three\""));
    EXPECT_TRUE(stored("\"One\""));
}

TEST_F(HeldMachineTest, LooksAgainAtEachQuestionWhileTheMachineIsTaken) {
    openHeld();
    ASSERT_TRUE(held->mayRemove(error)) << error;
    changeBehind("Three");
    ASSERT_TRUE(held->mayRemove(error)) << error;
    EXPECT_EQ(deleteValue("Three"), 0);
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_FALSE(stored("\"Three\""));
}

TEST_F(HeldMachineTest, OpenKeysOutliveTheReadingAnew) {
    openHeld();
    const HKey kept = opened();
    const HKey gone = opened("Control Panel\\International");
    {
        const auto cleaner = other();
        ASSERT_NE(cleaner, nullptr) << error;
        cleaner->registry().tree().currentUser()->find("Control Panel")->remove();
        cleaner->registry().tree().currentUser()->find("Software")->find("Test")->setText("One", "new");
        ASSERT_TRUE(platform::ok(cleaner->commit(error))) << error;
    }
    ASSERT_TRUE(held->mayRemove(error)) << error;
    std::uint32_t type = 0;
    std::uint32_t size = 100;
    std::string data;
    EXPECT_EQ(registry().RegQueryValueExA(kept, "One", type, &data, size), 0);
    EXPECT_EQ(data.substr(0, 3), "new");
    platform::RegistryApi::KeyInfo info;
    EXPECT_EQ(registry().RegQueryInfoKeyA(gone, info), 1018);
    EXPECT_EQ(registry().RegDeleteValueA(kept, "One"), 0);
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_FALSE(stored("\"One\""));
}

TEST_F(HeldMachineTest, TheFirstChangeWithoutAQuestionTakesTheMachine) {
    openHeld();
    changeBehind("Three");
    const HKey key = opened();
    EXPECT_EQ(registry().RegSetValueExA(key, "Four", kText, std::string_view("4\0", 2)), 0);
    EXPECT_TRUE(held->dirty());
    EXPECT_EQ(other(), nullptr);
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_TRUE(stored("\"Four\"")) << "ours";
    EXPECT_TRUE(stored("\"Three\"")) << "and that of the other program";
    EXPECT_NE(other(), nullptr) << error;
}

TEST_F(HeldMachineTest, EveryWayOfChangingIsRefusedBesideAWineServerAndToldOnce) {
    tests::WineServerStandIn server(here / "m");
    server.start();
    openHeld();
    const std::string before = here.content("m/user.reg");
    const HKey key = opened();
    HKey made = 0;
    bool created = false;
    EXPECT_EQ(registry().RegSetValueExA(key, "Four", kText, std::string_view("4\0", 2)), 5);
    EXPECT_EQ(registry().RegDeleteValueA(key, "One"), 5);
    EXPECT_EQ(registry().RegCreateKeyExA(key, "New", kAllAccess, made, created), 5);
    EXPECT_EQ(registry().RegDeleteKeyA(platform::HKEY_CURRENT_USER_, kKey), 5);
    EXPECT_EQ(registry().SHDeleteKeyA(platform::HKEY_CURRENT_USER_, kKey), 5);
    EXPECT_FALSE(held->dirty());
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_NE(warnings[0].find("running Wine server"), std::string::npos);
    EXPECT_TRUE(held->settle(error)) << error;
    EXPECT_EQ(here.content("m/user.reg"), before);
    held.reset();
    EXPECT_EQ(here.content("m/user.reg"), before);
}

TEST_F(HeldMachineTest, WhatChangesNothingTakesNothing) {
    tests::WineServerStandIn server(here / "m");
    server.start();
    openHeld();
    const HKey key = opened();
    HKey there = 0;
    bool created = false;
    EXPECT_EQ(registry().RegDeleteValueA(key, "Missing"), 2);
    EXPECT_EQ(registry().SHDeleteKeyA(platform::HKEY_CURRENT_USER_, "Software\\Missing"), 2);
    EXPECT_EQ(registry().RegSetValueExA(key, "One", kText, std::string_view("1\0", 2)), 0) << "it says so already";
    EXPECT_EQ(registry().RegCreateKeyExA(platform::HKEY_CURRENT_USER_, kKey, kAllAccess, there, created), 0);
    EXPECT_FALSE(created);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(HeldMachineTest, AServerThatCameUpInARunKeepsTheChangesWaiting) {
    tests::WineServerStandIn server(here / "m");
    openHeld();
    ASSERT_TRUE(held->mayRemove(error)) << error;
    EXPECT_EQ(deleteValue("One"), 0);
    server.start();
    EXPECT_FALSE(held->settle(error));
    EXPECT_NE(error.find("running Wine server"), std::string::npos) << error;
    error.clear();
    EXPECT_FALSE(held->settle(error));
    EXPECT_EQ(error, "") << "told once";
    EXPECT_TRUE(held->dirty());
    EXPECT_TRUE(stored("\"One\""));
    EXPECT_FALSE(held->mayRemove(error)) << "what waits comes first";
    EXPECT_NE(error.find("running Wine server"), std::string::npos) << error;
    server.end();
    EXPECT_TRUE(held->settle(error)) << error;
    EXPECT_FALSE(stored("\"One\""));
    EXPECT_FALSE(held->dirty());
}

TEST_F(HeldMachineTest, ChangesOfAnotherProgramAreNeverWrittenOver) {
    openHeld();
    ASSERT_TRUE(held->mayRemove(error)) << error;
    EXPECT_EQ(deleteValue("One"), 0);
    changeBehind("Three");
    const std::string theirs = here.content("m/user.reg");
    EXPECT_FALSE(held->settle(error));
    EXPECT_NE(error.find("Another program changed the registry"), std::string::npos) << error;
    EXPECT_EQ(here.content("m/user.reg"), theirs);
    EXPECT_FALSE(held->dirty());
    // What is seen from here on is theirs, and the next act works with it.
    ASSERT_TRUE(held->mayRemove(error)) << error;
    EXPECT_EQ(deleteValue("One"), 0);
    EXPECT_EQ(deleteValue("Three"), 0);
    ASSERT_TRUE(held->settle(error)) << error;
    EXPECT_FALSE(stored("\"One\""));
    EXPECT_TRUE(stored("\"Two\""));
}

TEST_F(HeldMachineTest, StoresWhatWaitsAtItsEnd) {
    openHeld();
    EXPECT_EQ(deleteValue("Two"), 0);
    held.reset();
    EXPECT_FALSE(stored("\"Two\""));
}

TEST_F(HeldMachineTest, RefusesADirectoryThatWasReplaced) {
    openHeld();
    std::filesystem::rename(here / "m", here / "moved");
    ASSERT_TRUE(machine::Machine::create(here / "m", error)) << error;
    EXPECT_FALSE(held->mayRemove(error));
    EXPECT_NE(error.find("moved or replaced"), std::string::npos) << error;
}

TEST_F(HeldMachineTest, KeepsWhatItKnowsWhereTheRegistryIsDamagedMeanwhile) {
    openHeld();
    const std::string whole = here.content("m/user.reg");
    here.file("m/user.reg", "no registry");
    EXPECT_FALSE(held->mayRemove(error));
    EXPECT_NE(error.find("user.reg is damaged"), std::string::npos) << error;
    EXPECT_EQ(here.content("m/user.reg"), "no registry");
    EXPECT_EQ(deleteValue("One"), 5);
    here.file("m/user.reg", whole);
    EXPECT_TRUE(held->mayRemove(error)) << error;
}

TEST_F(HeldMachineTest, APreviewChangesNothingAndTakesNothing) {
    held = HeldMachine::open({here / "m", here / "program", machine::Machine::Access::Read, "", true}, error);
    ASSERT_NE(held, nullptr) << error;
    const std::string before = here.content("m/user.reg");
    EXPECT_EQ(deleteValue("One"), 0);
    EXPECT_NE(other(), nullptr) << error;
    EXPECT_TRUE(held->settle(error)) << error;
    held.reset();
    EXPECT_EQ(here.content("m/user.reg"), before);
}

TEST_F(HeldMachineTest, FillsTheProgramFolder) {
    held = HeldMachine::open({here / "m", here / "new/program"}, error);
    ASSERT_NE(held, nullptr) << error;
    EXPECT_TRUE(here.has("new/program/English.lng"));
}

TEST_F(HeldMachineTest, TellsOfADirectoryThatIsNoMachine) {
    EXPECT_EQ(HeldMachine::open({here / "program", here / "program"}, error), nullptr);
    EXPECT_NE(error.find("is not a Windows system"), std::string::npos) << error;
    EXPECT_EQ(HeldMachine::open({here / "m", here / "m"}, error), nullptr) << "a program folder that is the machine";
}

}  // namespace
}  // namespace tidvane::frontend
