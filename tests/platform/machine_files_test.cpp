// What is particular to the files of a machine in a directory; what every platform does alike is in the contract suite.
#include "platform/machine/machine_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>

#include "support/host_directory.h"

namespace tidvane::platform::machine {
namespace {

class MachineFilesTest : public ::testing::Test {
protected:
    MachineFilesTest() {
        host.folder("c/windows/temp");
        host.folder("c/Program Files");
        host.folder("program");
        host.folder("outside");
        host.file("outside/precious.txt", "precious");
        EXPECT_TRUE(files.addDrive('C', DriveType::Fixed, host / "c"));
        EXPECT_TRUE(files.mountProgram("C:\\Program Files\\Tidvane", host / "program"));
    }

    std::map<std::string, EntryKind> list(const std::string& folder) {
        std::vector<FolderEntry> entries;
        EXPECT_EQ(files.ReadFolder(folder, entries), Status::Ok);
        std::map<std::string, EntryKind> names;
        for (const FolderEntry& entry : entries) names[entry.name] = entry.kind;
        return names;
    }

    tests::HostDirectory host;
    RemovalCounter removed;
    MachineFiles files{removed};
};

// --- names
// -------------------------------------------------------------------------------------------------------------

TEST_F(MachineFilesTest, FindsNamesInAnyCase) {
    host.file("c/Windows2/SubFolder/Läufe.TXT");
    EXPECT_TRUE(files.FileExists("c:\\WINDOWS2\\subfolder\\LÄUFE.txt"));
    EXPECT_TRUE(files.FolderExists("C:\\windows2\\SUBFOLDER\\"));
    EXPECT_FALSE(files.FileExists("C:\\windows2\\subfolder\\laufe.txt"));
}

TEST_F(MachineFilesTest, PrefersTheExactSpelling) {
    host.file("c/two/a.txt", "small");
    host.file("c/two/A.TXT", "large one");
    std::string bytes;
    EXPECT_EQ(files.ReadFileBytes("C:\\two\\A.TXT", bytes), Status::Ok);
    EXPECT_EQ(bytes, "large one");
    EXPECT_EQ(files.RemoveFile("C:\\two\\a.txt"), Status::Ok);
    EXPECT_TRUE(host.has("c/two/A.TXT"));
    EXPECT_FALSE(host.has("c/two/a.txt"));
}

TEST_F(MachineFilesTest, KeepsNamesThatAreNotUtf8) {
    const std::string name = "caf\xE9\xFF.tmp";
    host.file("c/raw/" + name);
    EXPECT_EQ(list("C:\\raw"), (std::map<std::string, EntryKind>{{name, EntryKind::File}}));
    EXPECT_EQ(files.RemoveFile("C:\\raw\\" + name), Status::Ok);
    EXPECT_FALSE(host.has("c/raw/" + name));
}

TEST_F(MachineFilesTest, DoesNotListNamesThatNoPathCanHold) {
    host.file("c/odd/a\\b");
    host.file("c/odd/a:b");
    host.file("c/odd/*");
    host.file("c/odd/plain");
    EXPECT_EQ(list("C:\\odd"), (std::map<std::string, EntryKind>{{"plain", EntryKind::File}}));
    FolderTotals totals;
    EXPECT_EQ(files.MeasureFolder("C:\\odd", totals), Status::Ok);
    EXPECT_EQ(totals.files, 4u);
    EXPECT_EQ(files.DeleteFolder("C:\\odd", true), Status::Ok);
    EXPECT_FALSE(host.has("c/odd"));
    EXPECT_EQ(removed.totals.files, 4u);
}

TEST_F(MachineFilesTest, HandlesNamesOf255Bytes) {
    const std::string name(255, 'n');
    host.file("c/long/" + name);
    EXPECT_TRUE(files.FileExists("C:\\LONG\\" + std::string(255, 'N')));
    EXPECT_EQ(files.RemoveFile("C:\\long\\" + name), Status::Ok);
    EXPECT_EQ(files.RemoveFile("C:\\long\\" + name + "n"), Status::NotFound);
}

TEST_F(MachineFilesTest, ReplacesAFileWithANameOf255Bytes) {
    const std::string name(255, 'n');
    host.file("c/long/" + name, "old");
    EXPECT_EQ(files.WriteFileBytes("C:\\long\\" + name, "new"), Status::Ok);
    EXPECT_EQ(host.content("c/long/" + name), "new");
}

TEST_F(MachineFilesTest, RenamesByCaseAlone) {
    host.file("c/r/readme.txt", "text");
    EXPECT_EQ(files.RenameEntry("C:\\r\\README.txt", "C:\\r\\ReadMe.TXT"), Status::Ok);
    EXPECT_TRUE(host.has("c/r/ReadMe.TXT"));
    EXPECT_FALSE(host.has("c/r/readme.txt"));
}

TEST_F(MachineFilesTest, RenameRefusesATargetThatDiffersInCaseOnlyFromAnotherFile) {
    host.file("c/r/a", "a");
    host.file("c/r/B", "b");
    EXPECT_EQ(files.RenameEntry("C:\\r\\a", "C:\\r\\b"), Status::Exists);
    EXPECT_EQ(host.content("c/r/B"), "b");
}

TEST_F(MachineFilesTest, KeepsADoubleDotInsideTheDrive) {
    host.file("c/top.txt");
    EXPECT_TRUE(files.FileExists("C:\\windows\\..\\..\\..\\top.txt"));
    EXPECT_FALSE(files.FileExists("C:\\..\\outside\\precious.txt"));
}

TEST_F(MachineFilesTest, FindsAFolderThatWasReplacedOnTheHost) {
    host.file("c/swap/one");
    EXPECT_TRUE(files.FileExists("C:\\swap\\one"));
    ::rename((host / "c/swap").c_str(), (host / "c/old").c_str());
    host.file("c/swap/two");
    EXPECT_TRUE(files.FileExists("C:\\swap\\two"));
}

TEST_F(MachineFilesTest, SeesThatARemovedNameIsGone) {
    host.file("c/g/file");
    EXPECT_EQ(files.RemoveFile("C:\\g\\file"), Status::Ok);
    EXPECT_FALSE(files.FileExists("C:\\g\\file"));
    host.file("c/g/file");
    EXPECT_TRUE(files.FileExists("C:\\g\\file"));
}

// --- links and mounts
// --------------------------------------------------------------------------------------------------

TEST_F(MachineFilesTest, DoesNotFollowALinkOnTheWay) {
    host.link(host / "outside", "c/windows/temp/way");
    EXPECT_FALSE(files.FileExists("C:\\windows\\temp\\way\\precious.txt"));
    EXPECT_EQ(files.RemoveFile("C:\\windows\\temp\\way\\precious.txt"), Status::PathNotFound);
    std::vector<FolderEntry> entries;
    EXPECT_EQ(files.ReadFolder("C:\\windows\\temp\\way", entries), Status::Denied);
    EXPECT_EQ(files.DeleteFolder("C:\\windows\\temp\\way", true), Status::Denied);
    EXPECT_EQ(files.WriteFileBytes("C:\\windows\\temp\\way\\new", "x"), Status::PathNotFound);
    EXPECT_TRUE(host.has("outside/precious.txt"));
    EXPECT_FALSE(host.has("outside/new"));
}

TEST_F(MachineFilesTest, RemovesALinkAsALink) {
    host.link(host / "outside", "c/t/folderLink");
    host.link(host / "outside/precious.txt", "c/t/fileLink");
    EXPECT_EQ(list("C:\\t")["folderLink"], EntryKind::Link);
    EXPECT_TRUE(files.FileExists("C:\\t\\fileLink"));
    EXPECT_FALSE(files.FileExists("C:\\t\\folderLink"));
    EXPECT_FALSE(files.FolderExists("C:\\t\\folderLink"));
    EXPECT_EQ(files.RemoveFile("C:\\t\\fileLink"), Status::Ok);
    EXPECT_EQ(files.DeleteFolder("C:\\t", true), Status::Ok);
    EXPECT_FALSE(host.has("c/t"));
    EXPECT_EQ(host.content("outside/precious.txt"), "precious");
}

TEST_F(MachineFilesTest, MeasuresLinksAsFilesOfNoLength) {
    host.link(host / "outside", "c/m/link");
    host.file("c/m/real", "12345");
    FolderTotals totals;
    EXPECT_EQ(files.MeasureFolder("C:\\m", totals), Status::Ok);
    EXPECT_EQ(totals.files, 2u);
    EXPECT_EQ(totals.folders, 0u);
    EXPECT_EQ(totals.bytes, 5u);
}

TEST_F(MachineFilesTest, SurvivesLoopsOfLinks) {
    host.link(".", "c/loop/self");
    host.link("../loop", "c/loop/back");
    host.link("b", "c/loop/a");
    host.link("a", "c/loop/b");
    FolderTotals totals;
    EXPECT_EQ(files.MeasureFolder("C:\\loop", totals), Status::Ok);
    EXPECT_EQ(totals.files, 4u);
    EXPECT_EQ(files.DeleteFolder("C:\\loop", true), Status::Ok);
    EXPECT_FALSE(host.has("c/loop"));
}

TEST_F(MachineFilesTest, DoesNotFollowALinkSwappedInAfterALookUp) {
    host.file("c/swapped/victim/precious.txt", "inside");
    EXPECT_TRUE(files.FileExists("C:\\swapped\\victim\\precious.txt"));
    ::rename((host / "c/swapped/victim").c_str(), (host / "c/swapped/gone").c_str());
    host.link(host / "outside", "c/swapped/victim");
    (void)files.RemoveFile("C:\\swapped\\victim\\precious.txt");
    (void)files.DeleteFolder("C:\\swapped\\victim", true);
    std::unique_ptr<OverwriteHandle> handle;
    (void)files.OpenForOverwrite("C:\\swapped\\victim\\precious.txt", handle);
    if (handle) (void)handle->write("xxxxxxxx");
    EXPECT_EQ(host.content("outside/precious.txt"), "precious");
}

TEST_F(MachineFilesTest, DoesNotOverwriteThroughALinkOrAFurtherName) {
    host.link(host / "outside/precious.txt", "c/o/link");
    ASSERT_EQ(::link((host / "outside/precious.txt").c_str(), (host / "c/o/hard").c_str()), 0);
    std::unique_ptr<OverwriteHandle> handle;
    EXPECT_EQ(files.OpenForOverwrite("C:\\o\\link", handle), Status::Denied);
    EXPECT_EQ(files.OpenForOverwrite("C:\\o\\hard", handle), Status::Denied);
    EXPECT_EQ(handle, nullptr);
    removed.wantBytes = true;
    EXPECT_EQ(files.RemoveFile("C:\\o\\hard"), Status::Ok);
    EXPECT_EQ(removed.totals.bytes, 0u);
    EXPECT_EQ(host.content("outside/precious.txt"), "precious");
}

// A volume mounted at C:\vol\mounted, in a child with mounts of its own: nobody else sees it, and it ends with the
// child. Where this process may not mount, the child is the superuser of a user namespace.
class MountedFilesTest : public MachineFilesTest {
protected:
    void withVolume(const std::function<void(MachineFiles&)>& body) {
        constexpr int kMayNotMount = 77;
        host.folder("c/vol/mounted");
        std::fflush(nullptr);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            if (!mountVolume()) ::_exit(kMayNotMount);
            // Opened here: the handles of the parent lead through the parent's mounts.
            MachineFiles inside(removed);
            if (!inside.addDrive('C', DriveType::Fixed, host / "c")) ::_exit(1);
            body(inside);
            std::fflush(nullptr);
            ::_exit(HasFailure() ? 1 : 0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        if (WEXITSTATUS(status) == kMayNotMount) GTEST_SKIP() << "neither this user nor a user namespace may mount";
        EXPECT_EQ(WEXITSTATUS(status), 0) << "the child tells above what failed";
    }

private:
    static bool put(const char* file, const std::string& text) {
        const Handle handle(::open(file, O_WRONLY | O_CLOEXEC));
        return handle && ::write(handle.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
    }
    bool mountVolume() {
        const std::string user = std::to_string(::geteuid());
        const std::string group = std::to_string(::getegid());
        if (::unshare(CLONE_NEWNS) != 0) {
            if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
            (void)put("/proc/self/setgroups", "deny");
            if (!put("/proc/self/uid_map", "0 " + user + " 1") || !put("/proc/self/gid_map", "0 " + group + " 1"))
                return false;
        }
        return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("none", (host / "c/vol/mounted").c_str(), "tmpfs", 0, "size=64k") == 0;
    }
};

TEST_F(MountedFilesTest, StaysOutOfMountPoints) {
    withVolume([this](MachineFiles& inside) {
        host.file("c/vol/mounted/kept.txt", "0123456789");
        host.file("c/vol/own.txt", "1");
        std::vector<FolderEntry> entries;
        EXPECT_EQ(inside.ReadFolder("C:\\vol\\mounted", entries), Status::Denied);
        EXPECT_EQ(inside.RemoveFile("C:\\vol\\mounted\\kept.txt"), Status::PathNotFound);
        FolderTotals totals;
        EXPECT_EQ(inside.MeasureFolder("C:\\vol", totals), Status::Ok);
        EXPECT_EQ(totals.bytes, 1u);
        EXPECT_EQ(inside.DeleteFolder("C:\\vol", true), Status::Denied);
        EXPECT_FALSE(host.has("c/vol/own.txt"));
        EXPECT_TRUE(host.has("c/vol/mounted/kept.txt"));
    });
}

TEST_F(MountedFilesTest, KeepsTheOldFileOnAFullDisk) {
    withVolume([this](MachineFiles& /*inside*/) {
        host.folder("c/vol/mounted/machine");
        MachineFiles small(removed);
        ASSERT_TRUE(small.addDrive('C', DriveType::Fixed, host / "c/vol/mounted/machine"));
        EXPECT_EQ(small.WriteFileBytes("C:\\state.ini", "old content"), Status::Ok);
        EXPECT_EQ(small.WriteFileBytes("C:\\state.ini", std::string(200'000, 'n')), Status::DiskFull);
        EXPECT_EQ(host.content("c/vol/mounted/machine/state.ini"), "old content");
        EXPECT_EQ(small.CopyFileBytes("C:\\state.ini", "C:\\copy.ini"), Status::Ok);
        std::vector<FolderEntry> entries;
        EXPECT_EQ(small.ReadFolder("C:\\", entries), Status::Ok);
        EXPECT_EQ(entries.size(), 2u);
    });
}

TEST_F(MachineFilesTest, KeepsTheOldFileWhenItCannotBeWrittenWhole) {
    host.file("c/full/state.ini", "old");
    struct rlimit before {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    struct sigaction ignore {
    }, previous{};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGXFSZ, &ignore, &previous);
    struct rlimit small = before;
    small.rlim_cur = 1024;
    ::setrlimit(RLIMIT_FSIZE, &small);
    const Status status = files.WriteFileBytes("C:\\full\\state.ini", std::string(5000, 'n'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::sigaction(SIGXFSZ, &previous, nullptr);
    EXPECT_EQ(status, Status::DiskFull);
    EXPECT_EQ(host.content("c/full/state.ini"), "old");
    EXPECT_EQ(list("C:\\full").size(), 1u);
}

// --- the program's own folder
// ------------------------------------------------------------------------------------------

TEST_F(MachineFilesTest, ShowsTheProgramFolderInItsPlace) {
    host.file("program/td_config.ini", "settings");
    EXPECT_EQ(list("C:\\Program Files"), (std::map<std::string, EntryKind>{{"Tidvane", EntryKind::Link}}));
    EXPECT_TRUE(files.FolderExists("C:\\PROGRAM FILES\\TIDVANE"));
    std::string bytes;
    EXPECT_EQ(files.ReadFileBytes("c:\\program files\\tidvane\\TD_CONFIG.INI", bytes), Status::Ok);
    EXPECT_EQ(bytes, "settings");
    EXPECT_EQ(files.WriteFileBytes("C:\\Program Files\\Tidvane\\new.dat", "n"), Status::Ok);
    EXPECT_TRUE(host.has("program/new.dat"));
}

TEST_F(MachineFilesTest, NeverEntersTheProgramFolderFromAbove) {
    host.file("program/td_config.ini", "settings");
    host.file("c/Program Files/other/file", "1");
    FolderTotals totals;
    EXPECT_EQ(files.MeasureFolder("C:\\Program Files", totals), Status::Ok);
    EXPECT_EQ(totals.files, 1u);
    (void)files.DeleteFolder("C:\\Program Files", true);
    EXPECT_FALSE(host.has("c/Program Files/other"));
    EXPECT_TRUE(host.has("program/td_config.ini"));
    EXPECT_EQ(files.DeleteFolder("C:\\Program Files\\Tidvane", true), Status::Denied);
    EXPECT_TRUE(host.has("program/td_config.ini"));
}

TEST_F(MachineFilesTest, StaysOutOfAProgramFolderInsideTheMachine) {
    MachineFiles inside(removed);
    host.file("c/data/tidvane/td_config.ini");
    ASSERT_TRUE(inside.addDrive('C', DriveType::Fixed, host / "c"));
    ASSERT_TRUE(inside.mountProgram("C:\\Program Files\\Tidvane", host / "c/data/tidvane"));
    std::vector<FolderEntry> entries;
    EXPECT_EQ(inside.ReadFolder("C:\\data\\tidvane", entries), Status::Denied);
    EXPECT_EQ(inside.DeleteFolder("C:\\data", true), Status::Denied);
    EXPECT_TRUE(host.has("c/data/tidvane/td_config.ini"));
}

TEST_F(MachineFilesTest, ADriveThatIsNotThereIsPathNotFound) {
    std::vector<FolderEntry> entries;
    EXPECT_EQ(files.ReadFolder("Z:\\", entries), Status::PathNotFound);
    EXPECT_EQ(files.RemoveFile("Z:\\x"), Status::PathNotFound);
    std::uint64_t a = 0, b = 0;
    EXPECT_EQ(files.GetDiskFreeSpaceExA("Z:", a, b), Status::NotFound);
    EXPECT_EQ(files.GetDiskFreeSpaceExA("C:", a, b), Status::Ok);
    EXPECT_GE(b, a);
    ASSERT_EQ(files.Drives().size(), 1u);
}

// --- odd entries
// -------------------------------------------------------------------------------------------------------

TEST_F(MachineFilesTest, NeverOpensFifosAndSockets) {
    host.folder("c/odd");
    ASSERT_EQ(::mkfifo((host / "c/odd/fifo").c_str(), 0666), 0);
    const int sock = ::socket(AF_UNIX, SOCK_STREAM, 0);
    struct sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const std::string place = host / "c/odd/socket";
    ASSERT_LT(place.size(), sizeof address.sun_path);
    place.copy(address.sun_path, place.size());
    ASSERT_EQ(::bind(sock, reinterpret_cast<struct sockaddr*>(&address), sizeof address), 0);
    ::close(sock);

    EXPECT_EQ(list("C:\\odd"),
              (std::map<std::string, EntryKind>{{"fifo", EntryKind::Other}, {"socket", EntryKind::Other}}));
    std::string bytes;
    EXPECT_EQ(files.ReadFileBytes("C:\\odd\\fifo", bytes), Status::Denied);  // would wait for ever
    std::unique_ptr<OverwriteHandle> handle;
    EXPECT_EQ(files.OpenForOverwrite("C:\\odd\\fifo", handle), Status::Denied);
    EXPECT_EQ(files.WriteFileBytes("C:\\odd\\fifo", "x"), Status::Denied);
    EXPECT_EQ(files.KillFiles("C:\\odd\\f*"), Status::Ok);
    EXPECT_EQ(files.DeleteFolder("C:\\odd", true), Status::Ok);
    EXPECT_FALSE(host.has("c/odd"));
    EXPECT_EQ(removed.totals.files, 2u);
}

// --- deep trees
// --------------------------------------------------------------------------------------------------------

// Builds `depth` folders of this name inside one another, with a file at the bottom.
void buildDeep(const std::string& top, const std::string& name, int depth) {
    int folder = ::open(top.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < depth; ++i) {
        ASSERT_EQ(::mkdirat(folder, name.c_str(), 0777), 0);
        const int next = ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
        ::close(folder);
        folder = next;
        ASSERT_GE(folder, 0);
    }
    ::close(::openat(folder, "bottom.txt", O_CREAT | O_WRONLY, 0666));
    ::close(folder);
}

TEST_F(MachineFilesTest, WorksBelowTheHostsLongestPath) {
    const std::string name(200, 'd');
    constexpr int kDepth = 100;  // 20,000 bytes; the host takes 4,096 in one call
    host.folder("c/deep");
    buildDeep(host / "c/deep", name, kDepth);
    std::string path = "C:\\deep";
    for (int i = 0; i < kDepth; ++i) path += "\\" + name;
    EXPECT_TRUE(files.FileExists(path + "\\BOTTOM.txt"));
    std::vector<FolderEntry> entries;
    EXPECT_EQ(files.ReadFolder(path, entries), Status::Ok);
    EXPECT_EQ(entries.size(), 1u);
    EXPECT_EQ(files.RemoveFile(path + "\\bottom.txt"), Status::Ok);
    EXPECT_EQ(files.RemoveFolder(path), Status::Ok);
    EXPECT_TRUE(files.FolderExists(path.substr(0, path.size() - name.size() - 1)));
    EXPECT_EQ(files.DeleteFolder("C:\\deep", true), Status::Ok);
    EXPECT_FALSE(host.has("c/deep"));
}

TEST_F(MachineFilesTest, WalksATreeDeeperThanTheOpenFilesLimit) {
    host.folder("c/deep");
    buildDeep(host / "c/deep", "d", 2000);
    struct rlimit before {};
    ::getrlimit(RLIMIT_NOFILE, &before);
    struct rlimit small = before;
    small.rlim_cur = 128;
    ::setrlimit(RLIMIT_NOFILE, &small);
    FolderTotals totals;
    const Status measured = files.MeasureFolder("C:\\deep", totals);
    const Status deleted = files.DeleteFolder("C:\\deep", true);
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(measured, Status::Ok);
    EXPECT_EQ(totals.folders, 2000u);
    EXPECT_EQ(totals.files, 1u);
    EXPECT_EQ(deleted, Status::Ok);
    EXPECT_EQ(removed.totals.folders, 2001u);
    EXPECT_FALSE(host.has("c/deep"));
}

TEST_F(MachineFilesTest, ComesBackToTheRestOfAFolderAfterADeepOne) {
    host.folder("c/deep");
    buildDeep(host / "c/deep", "d", 100);
    for (int level = 0; level < 100; level += 7) {
        std::string below = "c/deep";
        for (int i = 0; i < level; ++i) below += "/d";
        for (int i = 0; i < 30; ++i) host.file(below + "/" + std::to_string(i) + "/file");
    }
    EXPECT_EQ(files.DeleteFolder("C:\\deep", false), Status::Ok);
    EXPECT_FALSE(host.has("c/deep"));
    EXPECT_EQ(removed.totals.failed, 0u);
    EXPECT_EQ(removed.totals.files, 15u * 30u + 1u);
}

TEST_F(MachineFilesTest, RemovesALargeFolderWhole) {
    host.folder("c/large");
    for (int i = 0; i < 5000; ++i) {
        ::close(::open((host / ("c/large/" + std::to_string(i))).c_str(), O_CREAT | O_WRONLY, 0666));
    }
    EXPECT_EQ(files.DeleteFolder("C:\\large", true), Status::Ok);
    EXPECT_EQ(removed.totals.files, 5000u);
    EXPECT_FALSE(host.has("c/large"));
}

// --- rights
// ------------------------------------------------------------------------------------------------------------

// Runs as an unprivileged user where the tests run as root.
class LowRights {
public:
    LowRights() {
        if (::geteuid() == 0) changed_ = ::seteuid(65534) == 0;
    }
    ~LowRights() {
        if (changed_ && ::seteuid(0) != 0) ::abort();
    }

private:
    bool changed_ = false;
};

TEST_F(MachineFilesTest, AFolderWithoutRightsIsDenied) {
    host.file("c/closed/inner/file");
    ::chmod((host / "c/closed/inner").c_str(), 0);
    {
        const LowRights low;
        std::vector<FolderEntry> entries;
        EXPECT_EQ(files.ReadFolder("C:\\closed\\inner", entries), Status::Denied);
        EXPECT_EQ(files.RemoveFile("C:\\closed\\inner\\file"), Status::Denied);
        FolderTotals totals{7, 7, 7};
        EXPECT_EQ(files.MeasureFolder("C:\\closed", totals), Status::Denied);
        EXPECT_EQ(totals.files, 7u);
        EXPECT_EQ(files.DeleteFolder("C:\\closed", true), Status::Denied);
    }
    ::chmod((host / "c/closed/inner").c_str(), 0755);
    EXPECT_TRUE(host.has("c/closed/inner/file"));
    EXPECT_GE(removed.totals.failed, 1u);
}

TEST_F(MachineFilesTest, ReachesThroughAFolderThatMayBePassedButNotListed) {
    host.file("c/pass/known.txt");
    ::chmod((host / "c/pass").c_str(), 0711);
    {
        const LowRights low;
        EXPECT_TRUE(files.FileExists("C:\\pass\\known.txt"));
        std::vector<FolderEntry> entries;
        EXPECT_EQ(files.ReadFolder("C:\\pass", entries), Status::Denied);
    }
}

TEST_F(MachineFilesTest, RemovesAllElseWhenOneFileCannotGo) {
    host.file("c/mixed/a/one");
    host.file("c/mixed/b/two");
    ::chmod((host / "c/mixed/a/one").c_str(), 0444);
    EXPECT_EQ(files.DeleteFolder("C:\\mixed", false), Status::Denied);
    EXPECT_TRUE(host.has("c/mixed/a/one"));
    EXPECT_FALSE(host.has("c/mixed/b"));
    EXPECT_EQ(removed.totals.failed, 1u);
    EXPECT_EQ(files.DeleteFolder("C:\\mixed", true), Status::Ok);
    EXPECT_FALSE(host.has("c/mixed"));
}

TEST_F(MachineFilesTest, AReadOnlyFileStaysEvenForTheSuperuser) {
    host.file("c/ro/file", "text");
    ::chmod((host / "c/ro/file").c_str(), 0444);
    unsigned attributes = 0;
    EXPECT_EQ(files.GetAttributes("C:\\ro\\file", attributes), Status::Ok);
    EXPECT_EQ(attributes, attribute::ReadOnly);
    EXPECT_EQ(files.RemoveFile("C:\\ro\\file"), Status::Denied);
    EXPECT_EQ(files.WriteFileBytes("C:\\ro\\file", "new"), Status::Denied);
    std::unique_ptr<OverwriteHandle> handle;
    EXPECT_EQ(files.OpenForOverwrite("C:\\ro\\file", handle), Status::Denied);
    EXPECT_EQ(files.SetAttributes("C:\\ro\\file", 0), Status::Ok);
    EXPECT_EQ(files.RemoveFile("C:\\ro\\file"), Status::Ok);
}

TEST_F(MachineFilesTest, ForceRemovesWhatLiesInAReadOnlyFolder) {
    host.file("c/rof/inner/file");
    for (const char* below : {"c/rof", "c/rof/inner", "c/rof/inner/file"})
        ASSERT_EQ(::chown((host / below).c_str(), 65534, 65534), 0);
    ::chmod((host / "c/rof/inner").c_str(), 0555);
    Status status = Status::Failed;
    {
        ASSERT_EQ(::chown((host / "c").c_str(), 65534, 65534), 0);
        const LowRights low;
        status = files.DeleteFolder("C:\\rof", true);
    }
    EXPECT_EQ(status, Status::Ok);
    EXPECT_FALSE(host.has("c/rof"));
}

TEST_F(MachineFilesTest, KeepsHiddenAndSystemWhereWineKeepsThem) {
    host.file("c/h/file");
    host.file("c/h/.profile");
    ASSERT_EQ(::setxattr((host / "c/h/file").c_str(), "user.DOSATTRIB", "0x6", 3, 0), 0);
    unsigned attributes = 0;
    EXPECT_EQ(files.GetAttributes("C:\\h\\file", attributes), Status::Ok);
    EXPECT_EQ(attributes, attribute::Hidden | attribute::System);
    EXPECT_EQ(files.GetAttributes("C:\\h\\.profile", attributes), Status::Ok);
    EXPECT_EQ(attributes, attribute::Normal);
    EXPECT_EQ(files.KillFiles("C:\\h\\*"), Status::Ok);
    EXPECT_TRUE(host.has("c/h/file"));
    EXPECT_FALSE(host.has("c/h/.profile"));

    EXPECT_EQ(files.SetAttributes("C:\\h\\file", attribute::Hidden | attribute::ReadOnly), Status::Ok);
    char text[8] = {};
    EXPECT_EQ(::getxattr((host / "c/h/file").c_str(), "user.DOSATTRIB", text, sizeof text), 3);
    EXPECT_STREQ(text, "0x2");
    EXPECT_EQ(files.SetAttributes("C:\\h\\file", 0), Status::Ok);
    EXPECT_EQ(files.GetAttributes("C:\\h\\file", attributes), Status::Ok);
    EXPECT_EQ(attributes, attribute::Normal);
}

TEST_F(MachineFilesTest, TheFolderAboveARemovedOneKeepsItsRights) {
    host.file("c/above/target/file");
    for (const char* below : {"c/above", "c/above/target", "c/above/target/file"})
        (void)::chown((host / below).c_str(), 65534, 65534);
    ::chmod((host / "c/above").c_str(), 0555);
    Status status = Status::Failed;
    {
        const LowRights low;
        status = files.DeleteFolder("C:\\above\\target", true);
    }
    EXPECT_EQ(status, Status::Ok);
    EXPECT_FALSE(host.has("c/above/target"));
    struct stat info {};
    ASSERT_EQ(::stat((host / "c/above").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0555u);
    ::chmod((host / "c/above").c_str(), 0755);
}

TEST_F(MachineFilesTest, ReadsTheAttributesThatSambaWrites) {
    const auto attributesOf = [this](const std::string& value) {
        host.file("c/s/file");
        EXPECT_EQ(::setxattr((host / "c/s/file").c_str(), "user.DOSATTRIB", value.data(), value.size(), 0), 0);
        unsigned attributes = 0;
        EXPECT_EQ(files.GetAttributes("C:\\s\\file", attributes), Status::Ok);
        return attributes;
    };
    EXPECT_EQ(attributesOf(std::string("0x4\0\3\0\3\0\0\0", 10) + std::string(60, '\x11')), attribute::System);
    EXPECT_EQ(attributesOf(std::string("\0\0\4\0\4\0\0\0\x51\0\0\0\2\0\0\0", 16) + std::string(40, '\x11')),
              attribute::Hidden);
    EXPECT_EQ(attributesOf(std::string("\0\0\4\0\4\0\0\0\x51\0\0\0\x20\0\0\0", 16)), attribute::Archive);
    EXPECT_EQ(attributesOf("0x0"), attribute::Normal);
    // What cannot be understood may say that the file is hidden.
    EXPECT_EQ(attributesOf("0x"), attribute::Hidden);
    EXPECT_EQ(attributesOf("something else"), attribute::Hidden);
    EXPECT_EQ(attributesOf(std::string("0x0") + std::string(300, '\0')), attribute::Hidden);
    EXPECT_EQ(files.KillFiles("C:\\s\\*"), Status::NotFound);
    EXPECT_TRUE(host.has("c/s/file"));
}

TEST_F(MachineFilesTest, AFileWhoseAttributesMayNotBeReadCountsAsHidden) {
    host.file("c/u/file");
    ASSERT_EQ(::setxattr((host / "c/u/file").c_str(), "user.DOSATTRIB", "0x2", 3, 0), 0);
    ::chmod((host / "c/u/file").c_str(), 0200);
    ::chmod((host / "c/u").c_str(), 0777);
    {
        const LowRights low;
        unsigned attributes = 0;
        EXPECT_EQ(files.GetAttributes("C:\\u\\file", attributes), Status::Ok);
        EXPECT_EQ(attributes, attribute::Hidden);
        (void)files.KillFiles("C:\\u\\*");
    }
    EXPECT_TRUE(host.has("c/u/file"));
}

TEST_F(MachineFilesTest, ReplacingAFileKeepsItsRights) {
    host.file("c/keep/file", "old");
    ::chmod((host / "c/keep/file").c_str(), 0640);
    ASSERT_EQ(files.SetAttributes("C:\\keep\\file", attribute::Hidden), Status::Ok);
    EXPECT_EQ(files.WriteFileBytes("C:\\keep\\FILE", "new"), Status::Ok);
    struct stat info {};
    ASSERT_EQ(::stat((host / "c/keep/file").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
    unsigned attributes = 0;
    EXPECT_EQ(files.GetAttributes("C:\\keep\\file", attributes), Status::Ok);
    EXPECT_EQ(attributes, attribute::Hidden);
}

}  // namespace
}  // namespace tidvane::platform::machine
