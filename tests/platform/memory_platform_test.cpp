#include "platform/memory/memory_platform.h"

#include <gtest/gtest.h>

namespace tidvane::platform {
namespace {

ShFileOp recycling(const std::string& path) {
    ShFileOp operation;
    operation.wFunc = kFoDelete;
    operation.pFrom = path + std::string(2, '\0');
    operation.fFlags = kFofAllowUndo | kFofNoConfirmation;
    return operation;
}

TEST(MemoryPlatform, IsAWindows7WithOneUser) {
    MemoryPlatform machine;
    Platform services = machine.platform();
    EXPECT_EQ(services.system.GetVersionExA().major, 6);
    EXPECT_EQ(services.system.GetVersionExA().minor, 1);
    EXPECT_EQ(services.system.GetUserNameA(), "Anna");
    EXPECT_EQ(services.environment.get("TEMP"), services.shell.TemporaryFolder());
    for (int number = 0; number < 64; ++number) {
        const std::string folder = services.shell.SpecialFolder(number);
        EXPECT_TRUE(folder.empty() || services.files.FolderExists(folder)) << folder;
    }
    EXPECT_TRUE(services.files.FolderExists(services.system.ApplicationPath()));
    std::uint64_t freeBytes = 0;
    std::uint64_t totalBytes = 0;
    ASSERT_EQ(services.files.GetDiskFreeSpaceExA("C:", freeBytes, totalBytes), Status::Ok);
    EXPECT_EQ(freeBytes, 40ull << 30);
    EXPECT_EQ(totalBytes, 100ull << 30);
}

TEST(MemoryPlatform, ServicesAreGuardedAndMembersAreBare) {
    MemoryPlatform machine;
    EXPECT_EQ(machine.platform().files.DeleteFolder("C:\\Windows", true), Status::Denied);
    ASSERT_EQ(machine.warnings.size(), 1u);
    EXPECT_EQ(machine.warnings[0].kind, WarningKind::ProtectedPlace);
    EXPECT_EQ(machine.warnings[0].target, "C:\\Windows");
    EXPECT_EQ(machine.removed.totals.failed, 1u);
    EXPECT_EQ(machine.files.DeleteFolder("C:\\Windows", true), Status::Ok);
}

TEST(MemoryShell, TheBinTellsWhatItHolds) {
    MemoryPlatform machine;
    machine.files.putFile("C:\\T\\x\\a", "12345");
    EXPECT_EQ(machine.shell.SHFileOperationA(recycling("C:\\T\\x\\a")), 0);
    EXPECT_EQ(machine.shell.SHFileOperationA(recycling("C:\\T\\x")), 0);
    ASSERT_EQ(machine.shell.recycled.size(), 2u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\T\\x\\a");
    EXPECT_EQ(machine.shell.recycled[0].bytes, "12345");
    EXPECT_TRUE(machine.shell.recycled[1].isFolder);
    EXPECT_EQ(machine.shell.fileOperations.size(), 2u);
}

TEST(MemoryShell, RoomIsFreeOnlyWhenTheBinIsEmptied) {
    MemoryPlatform machine;
    const std::uint64_t before = machine.files.freeBytes('C');
    machine.files.putFile("C:\\T\\a", "12345");
    ASSERT_EQ(machine.shell.SHFileOperationA(recycling("C:\\T\\a")), 0);
    EXPECT_EQ(machine.files.freeBytes('C'), before);
    EXPECT_EQ(machine.shell.SHEmptyRecycleBinA(0, "", kSherbNoConfirmation), 0);
    EXPECT_EQ(machine.files.freeBytes('C'), before + 5);
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST(MemoryShell, ALockedPartKeepsTheWholeTreeOutOfTheBin) {
    MemoryPlatform machine;
    machine.files.putFile("C:\\T\\x\\a", "1");
    machine.files.putFile("C:\\T\\x\\b", "1");
    machine.files.lock("C:\\T\\x\\b");
    EXPECT_EQ(machine.shell.SHFileOperationA(recycling("C:\\T\\x")), 32);
    EXPECT_TRUE(machine.files.has("C:\\T\\x\\a"));
    EXPECT_EQ(machine.removed.totals.files, 0u);
    EXPECT_EQ(machine.removed.totals.failed, 1u);
}

TEST(MemoryShell, ADriveWithoutABinKeepsItsFiles) {
    MemoryPlatform machine;
    machine.files.addDrive('E', DriveType::Removable, 10, 10);
    machine.files.putFile("E:\\a", "1");
    EXPECT_EQ(machine.shell.SHFileOperationA(recycling("E:\\a")), 5);
    EXPECT_TRUE(machine.files.has("E:\\a"));
}

TEST(MemoryShell, TheBinsOfTwoDrivesAreTwo) {
    MemoryPlatform machine;
    machine.files.addDrive('D', DriveType::Fixed, 10, 10);
    machine.shell.putRecycled("C:\\a", "123");
    machine.shell.putRecycled("D:\\a", "1");
    RecycleBinInfo info;
    ASSERT_EQ(machine.shell.SHQueryRecycleBinA("d:\\", info), 0);
    EXPECT_EQ(info.items, 1u);
    ASSERT_EQ(machine.shell.SHEmptyRecycleBinA(0, "D:", kSherbNoConfirmation), 0);
    ASSERT_EQ(machine.shell.SHQueryRecycleBinA("", info), 0);
    EXPECT_EQ(info.bytes, 3u);
}

TEST(MemoryShell, StartedDocumentsAreRecorded) {
    MemoryPlatform machine;
    Platform services = machine.platform();
    EXPECT_EQ(services.shell.ShellExecuteA("open", "C:\\a.txt", "/x", "C:\\", 1), 42);
    EXPECT_TRUE(services.shell.ShellExecuteExAndWait("", "notepad", "", "", 0));
    EXPECT_LE(services.shell.ShellExecuteA("open", "", "", "", 1), 32);
    ASSERT_EQ(machine.shell.started.size(), 2u);
    EXPECT_EQ(machine.shell.started[0].file, "C:\\a.txt");
    EXPECT_FALSE(machine.shell.started[0].waited);
    EXPECT_TRUE(machine.shell.started[1].waited);
}

TEST(MemoryClock, MovesBySleepingAlone) {
    MemoryClock clock;
    clock.setNow({2010, 2, 28, 23, 59, 59});
    EXPECT_DOUBLE_EQ(clock.timer(), 86399.0);
    clock.Sleep(1500);
    EXPECT_EQ(clock.now(), (base::DateTime{2010, 3, 1, 0, 0, 0}));
    EXPECT_DOUBLE_EQ(clock.timer(), 0.5);
    clock.Sleep(0);
    EXPECT_EQ(clock.sleptMilliseconds, 1500);
    EXPECT_EQ(clock.sleeps, 2u);
}

TEST(MemoryEvents, RunsAnActionInTheNthPump) {
    MemoryEvents events;
    std::vector<std::uint64_t> ran;
    events.DoEvents();
    events.onPump(2, [&] {
        ran.push_back(events.pumps);
        events.onPump(1, [&] { ran.push_back(events.pumps); });
    });
    events.DoEvents();
    EXPECT_TRUE(ran.empty());
    events.DoEvents();
    events.DoEvents();
    events.DoEvents();
    EXPECT_EQ(ran, (std::vector<std::uint64_t>{3, 4}));
}

TEST(MemoryProcesses, AProcessEndsAfterItsWaits) {
    MemoryPlatform machine;
    machine.processes.endsAfterWaits = 2;
    const double before = machine.clock.timer();
    std::unique_ptr<Process> process = machine.processes.CreateProcessA("x.exe /y", 1);
    ASSERT_NE(process, nullptr);
    EXPECT_FALSE(process->wait(10));
    EXPECT_FALSE(process->wait(10));
    EXPECT_TRUE(process->wait(10));
    EXPECT_NEAR(machine.clock.timer() - before, 0.02, 1e-9);
    EXPECT_EQ(machine.processes.started[0]->commandLine, "x.exe /y");
    EXPECT_EQ(machine.processes.started[0]->waits, 3u);
    machine.processes.failToStart = true;
    EXPECT_EQ(machine.processes.CreateProcessA("x.exe", 1), nullptr);
}

TEST(MemoryProcesses, ASecondInstanceDoesNotGetTheLock) {
    MemoryPlatform machine;
    machine.processes.otherInstanceRuns = true;
    EXPECT_FALSE(machine.processes.takeInstanceLock());
    machine.processes.otherInstanceRuns = false;
    EXPECT_TRUE(machine.processes.takeInstanceLock());
}

TEST(MemoryNetwork, DownloadsWhatATestPutThere) {
    MemoryPlatform machine;
    machine.network.pages["http://a/"] = std::string(2500, 'x');
    std::vector<std::uint64_t> steps;
    const auto progress = [&steps](std::uint64_t done, std::uint64_t) {
        steps.push_back(done);
        return true;
    };
    EXPECT_EQ(machine.network.URLDownloadToFileA("http://a/", "C:\\Windows\\Temp\\a", progress), 0);
    EXPECT_EQ(steps, (std::vector<std::uint64_t>{1024, 2048, 2500}));
    EXPECT_EQ(machine.files.bytesOf("C:\\Windows\\Temp\\a")->size(), 2500u);
    EXPECT_NE(machine.network.URLDownloadToFileA("http://b/", "C:\\Windows\\Temp\\b", nullptr), 0);
    const auto givingUp = [](std::uint64_t, std::uint64_t) { return false; };
    EXPECT_NE(machine.network.URLDownloadToFileA("http://a/", "C:\\Windows\\Temp\\c", givingUp), 0);
    EXPECT_FALSE(machine.files.has("C:\\Windows\\Temp\\c"));
}

TEST(MemoryBrowserCache, DeletesByAddress) {
    MemoryPlatform machine;
    machine.browserCache.cached = {{"http://a/", "a.htm", 1, 0}, {"Cookie:anna@b/", "b.txt", 1, 0}};
    machine.browserCache.refused = {"Cookie:anna@b/"};
    EXPECT_TRUE(machine.browserCache.DeleteUrlCacheEntry("http://a/"));
    EXPECT_FALSE(machine.browserCache.DeleteUrlCacheEntry("http://a/"));
    EXPECT_FALSE(machine.browserCache.DeleteUrlCacheEntry("Cookie:anna@b/"));
    EXPECT_EQ(machine.browserCache.entries().size(), 1u);
}

TEST(MemoryRestorePoints, LeaveTheResultAloneWhereThereAreNone) {
    MemoryPlatform machine;
    long result = -1;
    machine.restorePoints.createRestorePoint("x", 0, 100, result);
    EXPECT_EQ(result, -1);
    machine.restorePoints.answer = 0;
    machine.restorePoints.createRestorePoint("x", 0, 100, result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(machine.restorePoints.asked.size(), 2u);
}

}  // namespace
}  // namespace tidvane::platform
