#include <gtest/gtest.h>

#include "memory_session.h"

namespace tidvane::console {
namespace {

using tests::contains;

constexpr const char* kFolder = "C:\\Users\\Anna\\Cookies";

class CookiesCommand : public ::testing::Test {
protected:
    CookiesCommand() {
        setFolder(kFolder);
        for (const char* name : {"anna@one.txt", "anna@two.txt", "index.dat"}) put(name);
    }
    void setFolder(const std::string& folder) {
        platform::RegistryKeyPtr key = machine.memory.registryTree.currentUser();
        for (const char* name : {"Software", "Microsoft", "Windows", "CurrentVersion", "Explorer", "Shell Folders"}) {
            key = key->findOrAdd(name);
        }
        key->setText("Cookies", folder);
    }
    static std::string path(const std::string& name) { return std::string(kFolder) + "\\" + name; }
    void put(const std::string& name) { machine.memory.files.putFile(path(name), "x"); }
    int cookies(ManagerOptions manager) {
        options.manager = std::move(manager);
        machine.out.str({});
        machine.err.str({});
        return cookiesCommand(machine.session, options);
    }

    tests::MemorySession machine;
    Options options;
};

TEST_F(CookiesCommand, ShowsNoControlCharacterOfAName) {
    put("anna@\x1B[2J\xC2\x9B.txt");
    machine.memory.files.lock(path("anna@\x1B[2J\xC2\x9B.txt"));
    EXPECT_EQ(cookies({}), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "anna@?[2J?.txt\n")) << machine.log();
    EXPECT_EQ(cookies({true, {}, true, false}), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "protected: anna@?[2J?.txt.")) << machine.messages();
}

TEST_F(CookiesCommand, ListsTheFilesOfTheFolder) {
    EXPECT_EQ(cookies({}), exit_status::Done);
    EXPECT_EQ(machine.log(), "anna@one.txt\nanna@two.txt\nindex.dat\n");
    EXPECT_TRUE(machine.memory.files.has(path("anna@one.txt")));
}

TEST_F(CookiesCommand, RemovesTheNamedOnesInAnyCase) {
    EXPECT_EQ(cookies({true, {"ANNA@one.txt"}, false, false}), exit_status::Done) << machine.messages();
    EXPECT_EQ(machine.log(), "Removed 1 of 1 cookie files.\n");
    EXPECT_FALSE(machine.memory.files.has(path("anna@one.txt")));
    EXPECT_TRUE(machine.memory.files.has(path("anna@two.txt")));
    EXPECT_TRUE(machine.memory.files.has(path("index.dat"))) << "the row that the load marks";
}

TEST_F(CookiesCommand, RemovesAll) {
    EXPECT_EQ(cookies({true, {}, true, false}), exit_status::Done);
    EXPECT_EQ(machine.log(), "Removed 3 of 3 cookie files.\n");
    EXPECT_EQ(cookies({}), exit_status::Done);
    EXPECT_EQ(machine.log(), "");
}

TEST_F(CookiesCommand, RemovesNothingWhereOneNameIsUnknown) {
    for (const char* wrong : {"anna@three.txt", "", "*", "..", "..\\Cookies\\anna@two.txt"}) {
        EXPECT_EQ(cookies({true, {"anna@one.txt", wrong}, false, false}), exit_status::Usage) << wrong;
        EXPECT_TRUE(contains(machine.messages(), "Nothing was removed."));
        EXPECT_TRUE(machine.memory.files.has(path("anna@one.txt")));
    }
}

TEST_F(CookiesCommand, TellsWhatStays) {
    machine.memory.files.lock(path("anna@two.txt"));
    EXPECT_EQ(cookies({true, {}, true, false}), exit_status::MachineUnusable);
    EXPECT_EQ(machine.log(), "Removed 2 of 3 cookie files.\n");
    EXPECT_EQ(machine.messages(), "Not removed, since they are in use or protected: anna@two.txt.\n");
}

TEST_F(CookiesCommand, RefusesAMachineThatNamesNoFolder) {
    machine.memory.files.putFile("C:\\boot.txt", "x");
    for (const char* folder : {"", "\\", "C:\\", "C:"}) {
        setFolder(folder);
        for (const ManagerOptions& manager : {ManagerOptions{}, ManagerOptions{true, {}, true, false}}) {
            EXPECT_EQ(cookies(manager), exit_status::MachineUnusable) << folder;
            EXPECT_TRUE(contains(machine.messages(), "names no folder for cookies"));
            EXPECT_EQ(machine.log(), "");
        }
    }
    EXPECT_TRUE(machine.memory.files.has("C:\\boot.txt"));
}

TEST_F(CookiesCommand, RefusesToRemoveBesideAnotherProgram) {
    machine.memory.processes.otherInstanceRuns = true;
    EXPECT_EQ(cookies({true, {}, true, false}), exit_status::MachineUnusable);
    EXPECT_TRUE(machine.memory.files.has(path("anna@one.txt")));
    EXPECT_EQ(cookies({}), exit_status::Done) << "looking is allowed";
}

TEST_F(CookiesCommand, GivesTheLockBack) {
    cookies({true, {}, true, false});
    EXPECT_FALSE(machine.memory.processes.holdsInstanceLock);
}

}  // namespace
}  // namespace tidvane::console
