// Opening, creating and writing back a machine in a directory.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <set>

#include "platform/machine/folder_lock.h"
#include "platform/machine/machine.h"
#include "platform/machine/machine_platform.h"
#include "platform/machine/wine_server.h"
#include "platform/memory/memory_browser_cache.h"
#include "support/host_directory.h"
#include "support/wine_server_stand_in.h"

namespace tidvane::platform::machine {
namespace {

using Access = Machine::Access;

class MachineTest : public ::testing::Test {
protected:
    void makeMachine() {
        std::string problem;
        ASSERT_TRUE(Machine::create(host / "m", problem)) << problem;
    }
    std::unique_ptr<Machine> opened(Access access = Access::Write) { return Machine::open(host / "m", access, error); }
    bool refusedWith(const std::string& part) {
        const auto machine = opened();
        return machine == nullptr && error.find(part) != std::string::npos;
    }

    tests::HostDirectory host;
    std::string error;
};

TEST_F(MachineTest, ANewMachineCanBeOpenedAndKnowsWhereItIs) {
    makeMachine();
    const auto machine = opened();
    ASSERT_NE(machine, nullptr) << error;
    ASSERT_EQ(machine->drives().size(), 1u);
    EXPECT_EQ(machine->drives()[0].letter, 'C');
    EXPECT_EQ(machine->drives()[0].type, DriveType::Fixed);
    EXPECT_EQ(machine->registry().userSid(), "S-1-5-21-0-0-0-1000");
    EXPECT_FALSE(machine->registry().changed());
    EXPECT_TRUE(host.has("m/drive_c/Users/User/AppData/Local/Temp"));
    EXPECT_TRUE(Machine::isMachine(host / "m"));
    EXPECT_FALSE(Machine::isMachine(host.path()));
}

TEST_F(MachineTest, CreateLeavesWhatIsThere) {
    host.file("m/something", "mine");
    EXPECT_FALSE(Machine::create(host / "m", error));
    EXPECT_NE(error.find("not empty"), std::string::npos) << error;
    EXPECT_EQ(host.content("m/something"), "mine");
    EXPECT_FALSE(host.has("m/system.reg"));
}

TEST_F(MachineTest, CreateTakesAnEmptyDirectoryAndMakesTheWayToOne) {
    host.folder("empty");
    EXPECT_TRUE(Machine::create(host / "empty/", error)) << error;
    EXPECT_TRUE(Machine::create(host / "a/b/c", error)) << error;
    EXPECT_NE(Machine::open(host / "a/b/c", Access::Write, error), nullptr) << error;
}

TEST_F(MachineTest, CreateRefusesAUserNameThatIsAPath) {
    NewMachine description;
    description.user = "..\\other";
    EXPECT_FALSE(Machine::create(host / "m", error, description));
    EXPECT_FALSE(host.has("m"));
}

TEST_F(MachineTest, WhatIsNoWindowsSystemIsRefusedWithOneSentence) {
    EXPECT_TRUE(refusedWith("is not a directory"));
    host.folder("m/dosdevices");
    host.file("m/system.reg");
    EXPECT_TRUE(refusedWith("is not a Windows system"));
}

TEST_F(MachineTest, ADamagedRegistryIsRefusedAndLeftAsItIs) {
    makeMachine();
    const std::string whole = host.content("m/system.reg");
    const std::string binary = std::string("\0\1\2\3\xFF", 5) + std::string(1000, '\xEE');
    for (const std::string& content : {std::string(), binary, whole.substr(0, whole.size() / 2 - 3)}) {
        host.file("m/system.reg", content);
        EXPECT_TRUE(refusedWith("system.reg is damaged")) << error << " for " << content.size() << " bytes";
        EXPECT_EQ(host.content("m/system.reg"), content);
    }
}

TEST_F(MachineTest, ARegistryFileThatIsALinkOrADirectoryIsRefused) {
    makeMachine();
    ::rename((host / "m/user.reg").c_str(), (host / "elsewhere.reg").c_str());
    host.link(host / "elsewhere.reg", "m/user.reg");
    EXPECT_TRUE(refusedWith("is not a Windows system"));
    ::unlink((host / "m/user.reg").c_str());
    host.folder("m/user.reg");
    EXPECT_TRUE(refusedWith("is not a Windows system"));
}

TEST_F(MachineTest, DrivesThatPointOutsideAreNoDrives) {
    makeMachine();
    host.folder("outside");
    host.folder("m/second");
    host.link("/", "m/dosdevices/z:");
    host.link(host / "outside", "m/dosdevices/x:");
    host.link("..", "m/dosdevices/y:");
    host.link("../second", "m/dosdevices/d:");
    host.link("../none", "m/dosdevices/e:");
    host.link("/dev/null", "m/dosdevices/com1");
    const auto machine = opened();
    ASSERT_NE(machine, nullptr) << error;
    ASSERT_EQ(machine->drives().size(), 2u);
    EXPECT_EQ(machine->drives()[0].letter, 'C');
    EXPECT_EQ(machine->drives()[1].letter, 'D');
}

TEST_F(MachineTest, ASecondLetterForAFolderOfADriveIsNoDrive) {
    makeMachine();
    host.folder("m/drive_c/users/anna");
    host.folder("m/disks/one/inner");
    host.link("../drive_c", "m/dosdevices/b:");
    host.link("../drive_c/users", "m/dosdevices/d:");
    host.link("../drive_c/windows", "m/dosdevices/e:");
    host.link("../disks/one", "m/dosdevices/f:");
    host.link("../disks", "m/dosdevices/g:");
    host.link("../disks/one/inner", "m/dosdevices/h:");
    auto machine = opened();
    ASSERT_NE(machine, nullptr) << error;
    std::string letters;
    for (const MachineDrive& drive : machine->drives()) letters += drive.letter;
    EXPECT_EQ(letters, "CF");

    host.folder("program");
    MachineOptions options;
    options.programFolder = host / "program";
    const auto platform = MachinePlatform::make(std::move(machine), options, error);
    ASSERT_NE(platform, nullptr) << error;
    FileSystem& files = platform->platform().files;
    EXPECT_TRUE(files.FolderExists("C:\\users\\anna"));
    for (const char* path : {"D:\\anna", "E:\\System32", "B:\\users\\anna"}) {
        EXPECT_FALSE(files.FolderExists(path)) << path;
        EXPECT_NE(files.DeleteFolder(path, true), Status::Ok) << path;
    }
    EXPECT_TRUE(host.has("m/drive_c/users/anna"));
}

TEST_F(MachineTest, ADriveWhoseFolderWasReplacedIsNotOpened) {
    makeMachine();
    host.folder("m/second/real");
    host.folder("outside");
    host.link("../second/real", "m/dosdevices/d:");
    const auto machine = opened();
    ASSERT_NE(machine, nullptr) << error;
    ASSERT_EQ(machine->drives().size(), 2u);
    EXPECT_TRUE(machine->openDrive(machine->drives()[1]));
    ::rename((host / "m/second").c_str(), (host / "m/former").c_str());
    host.link("former", "m/second");  // the very same folder, by way of a link
    EXPECT_FALSE(machine->openDrive(machine->drives()[1]));
    ::unlink((host / "m/second").c_str());
    host.folder("m/second/real");
    EXPECT_FALSE(machine->openDrive(machine->drives()[1]));
    EXPECT_TRUE(machine->openDrive(machine->drives()[0]));
}

TEST_F(MachineTest, ADriveCOutsideIsRefused) {
    makeMachine();
    host.folder("outside");
    ::unlink((host / "m/dosdevices/c:").c_str());
    host.link(host / "outside", "m/dosdevices/c:");
    EXPECT_TRUE(refusedWith("drive C:"));
}

TEST_F(MachineTest, ASecondTidvaneIsRefusedUntilTheFirstHasEnded) {
    makeMachine();
    auto first = opened();
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(refusedWith("in use by another Tidvane"));
    EXPECT_NE(opened(Access::Read), nullptr);
    first.reset();
    EXPECT_NE(opened(), nullptr);
}

TEST_F(MachineTest, ASecondTidvaneIsRefusedWhereOnlyFilesAreLocked) {
    makeMachine();
    limitLocks(LockAbility::FilesOnly);
    auto first = opened();
    EXPECT_NE(first, nullptr) << error;
    EXPECT_TRUE(refusedWith("in use by another Tidvane")) << error;
    first.reset();
    EXPECT_NE(opened(), nullptr) << error;
    limitLocks(LockAbility::All);
}

TEST_F(MachineTest, AMachineThatCannotBeLockedIsRefused) {
    makeMachine();
    host.folder("program");
    limitLocks(LockAbility::Nothing);
    EXPECT_TRUE(refusedWith("knows no locks")) << error;
    EXPECT_NE(opened(Access::Read), nullptr) << error;
    MemoryBrowserCache cache;
    MachineProcesses processes(host / "program", cache);
    EXPECT_TRUE(processes.takeInstanceLock());  // the program itself starts
    limitLocks(LockAbility::All);
}

TEST_F(MachineTest, AMachineThatMayNotBeWrittenIsRefused) {
    makeMachine();
    if (::geteuid() != 0) {
        ::chmod((host / "m").c_str(), 0555);
        EXPECT_TRUE(refusedWith("may not be written"));
        ::chmod((host / "m").c_str(), 0755);
        return;
    }
    ASSERT_EQ(::seteuid(65534), 0);
    const bool refused = refusedWith("may not be written");
    const bool readable = opened(Access::Read) != nullptr;
    ASSERT_EQ(::seteuid(0), 0);
    EXPECT_TRUE(refused) << error;
    EXPECT_TRUE(readable) << error;
}

// --- a Wine server
// -----------------------------------------------------------------------------------------------------

using tests::ForeignLock;
using tests::serverName;

TEST_F(MachineTest, SeesTheServerInTheDirectoryOfItsOwner) {
    makeMachine();
    host.folder("tmp");
    EXPECT_FALSE(hasWineServer(host / "m", host / "tmp"));
    const std::string place = "tmp/.wine-" + std::to_string(::getuid()) + "/" + serverName(host / "m");
    host.file(place + "/lock", "");
    EXPECT_FALSE(hasWineServer(host / "m", host / "tmp"));  // left by one that has ended
    const ForeignLock lock(host / (place + "/lock"));
    ASSERT_TRUE(lock.locked());
    EXPECT_TRUE(hasWineServer(host / "m", host / "tmp"));
}

TEST_F(MachineTest, SeesTheServerInTheDirectoryThatThePrefixNames) {
    makeMachine();
    host.file("m/wineserver", "wine-AbCdEf\n");
    const std::string place = "tmp/wine-AbCdEf/" + serverName(host / "m");
    host.file(place + "/lock", "");
    const ForeignLock lock(host / (place + "/lock"));
    ASSERT_TRUE(lock.locked());
    EXPECT_TRUE(hasWineServer(host / "m", host / "tmp"));
    host.file("m/wineserver", "../tmp/wine-AbCdEf");
    EXPECT_FALSE(hasWineServer(host / "m", host / "tmp"));
}

// The real place, since Machine looks nowhere else; the directory's name holds the inode of this test's own machine.
class RealServerTest : public MachineTest {
protected:
    void SetUp() override {
        makeMachine();
        char name[] = "/tmp/tidvane-wine-XXXXXX";
        ASSERT_NE(::mkdtemp(name), nullptr);
        folder = name;
        host.file("m/wineserver", folder.substr(5));
        ::mkdir((folder + "/" + serverName(host / "m")).c_str(), 0700);
        lockFile = folder + "/" + serverName(host / "m") + "/lock";
    }
    void TearDown() override {
        ::unlink(lockFile.c_str());
        ::rmdir((folder + "/" + serverName(host / "m")).c_str());
        ::rmdir(folder.c_str());
    }
    std::string folder;
    std::string lockFile;
};

TEST_F(RealServerTest, ARunningServerIsRefused) {
    const ForeignLock lock(lockFile);
    ASSERT_TRUE(lock.locked());
    EXPECT_TRUE(refusedWith("in use by a running Wine server"));
    EXPECT_NE(opened(Access::Read), nullptr);
}

TEST_F(RealServerTest, AServerThatCameUpLaterStopsTheWritingBack) {
    const auto machine = opened();
    ASSERT_NE(machine, nullptr) << error;
    const std::string before = host.content("m/user.reg");
    machine->registry().tree().currentUser()->setText("Mark", "1");
    {
        const ForeignLock lock(lockFile);
        ASSERT_TRUE(lock.locked());
        EXPECT_EQ(machine->commit(error), Status::InUse);
        EXPECT_EQ(host.content("m/user.reg"), before);
    }
    EXPECT_EQ(machine->commit(error), Status::Ok);
    EXPECT_NE(host.content("m/user.reg").find("\"Mark\"=\"1\""), std::string::npos);
}

// --- writing back
// ------------------------------------------------------------------------------------------------------

TEST_F(MachineTest, CommitWritesOnlyTheFileThatChanged) {
    makeMachine();
    const auto machine = opened();
    ASSERT_NE(machine, nullptr);
    const std::string system = host.content("m/system.reg");
    struct stat before {};
    ::stat((host / "m/system.reg").c_str(), &before);
    ASSERT_EQ(machine->commit(error), Status::Ok);
    machine->registry().tree().make("User\\S-1-5-21-0-0-0-1000\\Software\\New")->setText("a", "text");
    ASSERT_EQ(machine->commit(error), Status::Ok) << error;
    struct stat after {};
    ::stat((host / "m/system.reg").c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(host.content("m/system.reg"), system);
    EXPECT_NE(host.content("m/user.reg").find("[Software\\\\New]"), std::string::npos);
    EXPECT_FALSE(machine->registry().changed());
}

TEST_F(MachineTest, CommitRefusesAFileThatSomebodyElseChanged) {
    makeMachine();
    const auto machine = opened();
    ASSERT_NE(machine, nullptr);
    machine->registry().tree().currentUser()->setText("Mark", "1");
    machine->registry().tree().machine()->setText("Mark", "1");
    const std::string other = host.content("m/user.reg") + "\n[Other]\n";
    host.file("m/user.reg", other);
    const std::string system = host.content("m/system.reg");
    EXPECT_EQ(machine->commit(error), Status::InUse);
    EXPECT_NE(error.find("user.reg"), std::string::npos) << error;
    EXPECT_EQ(host.content("m/user.reg"), other);
    EXPECT_EQ(host.content("m/system.reg"), system);
}

TEST_F(MachineTest, CommitChangesNoFileWhenTheSecondFindsNoRoom) {
    makeMachine();
    const auto machine = opened();
    ASSERT_NE(machine, nullptr);
    machine->registry().tree().machine()->setText("Mark", "1");
    machine->registry().tree().currentUser()->setText("Mark", std::string(400'000, 'a'));
    const std::string system = host.content("m/system.reg");
    const std::string user = host.content("m/user.reg");
    struct rlimit before {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    struct sigaction ignore {
    }, previous{};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGXFSZ, &ignore, &previous);
    struct rlimit small = before;
    small.rlim_cur = system.size() + 4096;  // enough for the first file
    ::setrlimit(RLIMIT_FSIZE, &small);
    const Status status = machine->commit(error);
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::sigaction(SIGXFSZ, &previous, nullptr);
    EXPECT_EQ(status, Status::DiskFull);
    EXPECT_NE(error.find("user.reg"), std::string::npos) << error;
    EXPECT_EQ(host.content("m/system.reg"), system);
    EXPECT_EQ(host.content("m/user.reg"), user);
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(host / "m")) names.insert(entry.path().filename());
    EXPECT_EQ(names, (std::set<std::string>{"dosdevices", "drive_c", "system.reg", "user.reg"}));
    EXPECT_EQ(machine->commit(error), Status::Ok) << error;
    EXPECT_NE(host.content("m/system.reg").find("\"Mark\""), std::string::npos);
}

TEST_F(MachineTest, AMachineOpenedForReadingIsNeverWritten) {
    makeMachine();
    const auto machine = opened(Access::Read);
    ASSERT_NE(machine, nullptr);
    machine->registry().tree().currentUser()->setText("Mark", "1");
    EXPECT_EQ(machine->commit(error), Status::Denied);
    EXPECT_EQ(host.content("m/user.reg").find("Mark"), std::string::npos);
}

TEST_F(MachineTest, WithoutCommitNothingIsWritten) {
    makeMachine();
    const std::string before = host.content("m/user.reg");
    opened()->registry().tree().currentUser()->setText("Mark", "1");
    EXPECT_EQ(host.content("m/user.reg"), before);
}

TEST_F(MachineTest, AKillInTheMiddleOfCommitsLeavesWholeFilesAndNoOthers) {
    makeMachine();
    for (int round = 0; round < 10; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            std::string ignored;
            const auto machine = Machine::open(host / "m", Access::Write, ignored);
            if (!machine) ::_exit(1);
            for (int i = 0;; ++i) {
                machine->registry().tree().currentUser()->setText("Mark", std::string(20'000, 'a') + std::to_string(i));
                if (!ok(machine->commit(ignored))) ::_exit(1);
            }
        }
        ::usleep(static_cast<useconds_t>(3'000 + round * 7'000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status)) << "the child ended by itself";
        ASSERT_NE(opened(), nullptr) << error;
    }
    // Opening removed what the last kill may have left.
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(host / "m")) names.insert(entry.path().filename());
    EXPECT_EQ(names, (std::set<std::string>{"dosdevices", "drive_c", "system.reg", "user.reg"}));
}

TEST_F(MachineTest, OpeningRemovesOnlyItsOwnLeftovers) {
    makeMachine();
    host.file("m/.tidvane-123-4.tmp");
    host.file("m/.tidvane-mine.tmp");
    host.file("m/.tidvane-1.tmp.bak");
    ASSERT_NE(opened(), nullptr);
    EXPECT_FALSE(host.has("m/.tidvane-123-4.tmp"));
    EXPECT_TRUE(host.has("m/.tidvane-mine.tmp"));
    EXPECT_TRUE(host.has("m/.tidvane-1.tmp.bak"));
}

TEST_F(MachineTest, ThePlatformTellsThatTheRegistryWasLost) {
    makeMachine();
    host.folder("program");
    std::vector<Warning> warnings;
    MachineOptions options;
    options.programFolder = host / "program";
    options.warn = [&](const Warning& warning) { warnings.push_back(warning); };
    const auto platform = MachinePlatform::make(opened(), options, error);
    ASSERT_NE(platform, nullptr) << error;
    EXPECT_TRUE(platform->platform().scriptHost.RegWrite("HKEY_CURRENT_USER\\Mark", "1"));
    host.file("m/user.reg", host.content("m/user.reg") + "\n");
    EXPECT_EQ(platform->commit(error), Status::InUse);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0].kind, WarningKind::RegistryLost);
}

TEST_F(MachineTest, AProgramFolderThatHoldsTheMachineIsRefused) {
    makeMachine();
    host.link(host / "m", "way");
    for (const char* folder : {"m", "m/drive_c", ".", "way", "way/drive_c"}) {
        MachineOptions options;
        options.programFolder = host / folder;
        EXPECT_EQ(MachinePlatform::make(opened(), options, error), nullptr) << folder;
        EXPECT_NE(error.find("holds the machine"), std::string::npos) << error;
    }
    host.folder("m2");  // only the beginning of the name is the same
    MachineOptions options;
    options.programFolder = host / "m2";
    EXPECT_NE(MachinePlatform::make(opened(), options, error), nullptr) << error;
}

TEST_F(MachineTest, AMissingProgramFolderIsTold) {
    makeMachine();
    MachineOptions options;
    options.programFolder = host / "none";
    EXPECT_EQ(MachinePlatform::make(opened(), options, error), nullptr);
    EXPECT_NE(error.find("program's folder"), std::string::npos) << error;
}

}  // namespace
}  // namespace tidvane::platform::machine
