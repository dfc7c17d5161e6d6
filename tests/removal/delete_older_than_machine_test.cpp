// The age filter on a real tree of the host, with names and entries that no Windows has.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/machine/machine_platform.h"
#include "removal/delete_older_than.h"
#include "support/host_directory.h"

namespace tidvane::removal {
namespace {

namespace machine = platform::machine;

class DeleteOlderThanOnAMachine : public testing::Test {
protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(machine::Machine::create(host / "m", error)) << error;
        host.folder("program");
        machine::MachineOptions options;
        options.programFolder = host / "program";
        auto opened = machine::Machine::open(host / "m", machine::Machine::Access::Write, error);
        made = machine::MachinePlatform::make(std::move(opened), options, error);
        ASSERT_NE(made, nullptr) << error;
    }

    static constexpr const char* kTop = "m/drive_c/Temp/age";

    void age(const std::string& below) {
        const struct timespec old[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};  // 2001
        ASSERT_EQ(::utimensat(AT_FDCWD, (host / below).c_str(), old, AT_SYMLINK_NOFOLLOW), 0) << below;
    }
    void oldFile(const std::string& below) {
        host.file(below);
        age(below);
    }
    void run() {
        platform::Platform services = made->platform();
        DeleteOlderThan(services, "C:\\Temp\\age", 10);
    }

    tests::HostDirectory host;
    std::unique_ptr<machine::MachinePlatform> made;
};

TEST_F(DeleteOlderThanOnAMachine, TakesOldNamesThatAreNotUtf8) {
    const std::string top = kTop;
    oldFile(top + "/caf\xE9\xFF.tmp");
    oldFile(top + "/f\xF6ld\x80r/inner\xC3.tmp");
    host.file(top + "/young\xE9.tmp");
    run();
    EXPECT_FALSE(host.has(top + "/caf\xE9\xFF.tmp"));
    EXPECT_FALSE(host.has(top + "/f\xF6ld\x80r"));
    EXPECT_TRUE(host.has(top + "/young\xE9.tmp"));
}

TEST_F(DeleteOlderThanOnAMachine, GoesDownADeepTree) {
    constexpr int kDepth = 200;
    const std::string name(40, 'd');  // 8,000 bytes of path; the host takes 4,096 in one call
    host.folder(kTop);
    int folder = ::open((host / kTop).c_str(), O_RDONLY | O_DIRECTORY);
    const struct timespec old[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    for (int i = 0; i < kDepth; ++i) {
        ASSERT_EQ(::mkdirat(folder, name.c_str(), 0777), 0);
        const int next = ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
        ::close(folder);
        folder = next;
        ASSERT_GE(folder, 0);
    }
    ::close(::openat(folder, "bottom.txt", O_CREAT | O_WRONLY, 0666));
    ASSERT_EQ(::utimensat(folder, "bottom.txt", old, 0), 0);
    ::close(folder);
    oldFile(std::string(kTop) + "/.stays");
    run();
    EXPECT_FALSE(host.has(std::string(kTop) + "/" + name));
    EXPECT_TRUE(host.has(std::string(kTop) + "/.stays"));
}

TEST_F(DeleteOlderThanOnAMachine, NeverOpensFifosAndNeverFollowsLinks) {
    const std::string top = kTop;
    host.folder(top);
    ASSERT_EQ(::mkfifo((host / (top + "/fifo")).c_str(), 0666), 0);
    age(top + "/fifo");
    oldFile("outside/precious.txt");
    host.link(host / "outside", top + "/folderLink");
    host.link(host / "outside/precious.txt", top + "/fileLink");
    age(top + "/folderLink");
    age(top + "/fileLink");
    oldFile(top + "/plain.txt");
    run();  // would wait for ever on the fifo
    EXPECT_FALSE(host.has(top + "/plain.txt"));
    EXPECT_TRUE(host.has("outside/precious.txt"));
    EXPECT_EQ(host.content("outside/precious.txt"), "x");
}

}  // namespace
}  // namespace tidvane::removal
