// Somebody else changes a tree while it is removed or measured.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "platform/machine/machine_files.h"
#include "support/host_directory.h"

namespace tidvane::platform::machine {
namespace {

class MachineRaceTest : public ::testing::Test {
protected:
    MachineRaceTest() {
        host.folder("c");
        host.file("outside/precious.txt", "precious");
        host.file("outside/deep/precious.txt", "precious");
        EXPECT_TRUE(files.addDrive('C', DriveType::Fixed, host / "c"));
    }
    void expectOutsideUntouched() {
        EXPECT_EQ(host.content("outside/precious.txt"), "precious");
        EXPECT_EQ(host.content("outside/deep/precious.txt"), "precious");
    }

    // Furnishing while somebody moves things about: what cannot be made is left out.
    void furnish(const std::string& folder) {
        std::error_code ignored;
        std::filesystem::create_directories(host / folder, ignored);
        ::close(::open((host / (folder + "/file")).c_str(), O_CREAT | O_WRONLY, 0666));
    }

    tests::HostDirectory host;
    RemovalCounter removed;
    MachineFiles files{removed};
};

TEST_F(MachineRaceTest, ALinkSwappedInDuringTheWalkRedirectsNothing) {
    const std::string victim = host / "c/tree/victim";
    const std::string aside = host / "c/aside";
    const std::string link = host / "c/link";
    host.link(host / "outside", "c/link");
    std::atomic<bool> stop{false};
    std::atomic<int> swaps{0};
    std::thread swapper([&] {
        while (!stop) {
            // The folder and the link to the outside trade places, each at once.
            if (::renameat2(AT_FDCWD, victim.c_str(), AT_FDCWD, link.c_str(), RENAME_EXCHANGE) == 0) ++swaps;
        }
    });
    int walks = 0;
    for (; (walks < 200 || swaps < 200) && walks < 20'000; ++walks) {
        furnish("c/tree/a");
        furnish("c/tree/z");
        ::mkdir(victim.c_str(), 0777);  // fails while the link stands there
        ::close(::open((victim + "/inside.txt").c_str(), O_CREAT | O_WRONLY | O_NOFOLLOW, 0666));
        (void)files.RemoveFile("C:\\tree\\victim\\precious.txt");
        (void)files.KillFiles("C:\\tree\\victim\\prec*");
        (void)files.DeleteFolder("C:\\tree\\victim\\deep", true);
        FolderTotals totals;
        (void)files.MeasureFolder("C:\\tree\\victim", totals);
        if (walks % 2 == 0) (void)files.DeleteFolder("C:\\tree\\victim", true);
        (void)files.DeleteFolder("C:\\tree", true);
        std::unique_ptr<OverwriteHandle> handle;
        if (ok(files.OpenForOverwrite("C:\\tree\\victim\\precious.txt", handle))) (void)handle->write("xxxxxxxx");
        handle.reset();
        // The link itself may have been removed, as a link.
        ::symlink((host / "outside").c_str(), link.c_str());
    }
    stop = true;
    swapper.join();
    EXPECT_GE(swaps, 200);
    expectOutsideUntouched();
}

TEST_F(MachineRaceTest, FilesThatVanishDuringTheWalkAreNoFailures) {
    std::atomic<bool> stop{false};
    std::thread other([&] {
        while (!stop) {
            for (int i = 0; i < 50; ++i) ::unlink((host / ("c/busy/" + std::to_string(i))).c_str());
        }
    });
    for (int round = 0; round < 100; ++round) {
        furnish("c/busy");
        for (int i = 0; i < 50; ++i) {
            ::close(::open((host / ("c/busy/" + std::to_string(i))).c_str(), O_CREAT | O_WRONLY, 0666));
        }
        FolderTotals totals;
        EXPECT_EQ(files.MeasureFolder("C:\\busy", totals), Status::Ok);
        const Status killed = files.KillFiles("C:\\busy\\*");
        EXPECT_TRUE(killed == Status::Ok || killed == Status::NotFound);
        EXPECT_EQ(files.DeleteFolder("C:\\busy", round % 2 == 0), Status::Ok);
    }
    stop = true;
    other.join();
    EXPECT_EQ(removed.totals.failed, 0u);
}

TEST_F(MachineRaceTest, AFolderMovedOutOfTheMachineEndsTheWalkThroughIt) {
    // Deeper than the walk keeps folders open, so that it has to find its way back.
    std::string below = "c/tree";
    for (int i = 0; i < 150; ++i) below += "/d";
    host.file(below + "/bottom");
    host.folder("outside/taken");
    std::atomic<bool> done{false};
    std::thread mover([&] {
        while (!done) {
            ::rename((host / "c/tree/d/d/d").c_str(), (host / "outside/taken/d").c_str());
            ::rename((host / "outside/taken/d").c_str(), (host / "c/tree/d/d/d").c_str());
        }
    });
    for (int round = 0; round < 20; ++round) {
        furnish(below);
        (void)files.DeleteFolder("C:\\tree", true);
        furnish("c/tree/d/d");
    }
    done = true;
    mover.join();
    expectOutsideUntouched();
    EXPECT_TRUE(host.has("outside/taken"));
}

}  // namespace
}  // namespace tidvane::platform::machine
