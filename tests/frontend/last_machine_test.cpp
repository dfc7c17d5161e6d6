#include "frontend/last_machine.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/host_directory.h"

namespace tidvane::frontend {
namespace {

TEST(LastMachine, IsRememberedInAFolderThatIsMadeForIt) {
    const tests::HostDirectory here;
    EXPECT_EQ(lastMachine(here / "data/tidvane"), "");
    ASSERT_TRUE(rememberMachine(here / "data/tidvane", "/home/me/.wine"));
    EXPECT_EQ(lastMachine(here / "data/tidvane"), "/home/me/.wine");
    ASSERT_TRUE(rememberMachine(here / "data/tidvane", "/home/m\xFC/a b"));
    EXPECT_EQ(lastMachine(here / "data/tidvane"), "/home/m\xFC/a b");
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(here / "data/tidvane")) {
        files += entry.exists() ? 1 : 0;
    }
    EXPECT_EQ(files, 1U);
}

TEST(LastMachine, TakesOnlyWhatComesBackAsItWas) {
    const tests::HostDirectory here;
    EXPECT_FALSE(rememberMachine(here.path(), "relative"));
    EXPECT_FALSE(rememberMachine(here.path(), ""));
    EXPECT_FALSE(rememberMachine(here.path(), "/two\n/lines"));
    EXPECT_FALSE(rememberMachine("", "/home/me/.wine"));
    EXPECT_EQ(lastMachine(""), "");
}

TEST(LastMachine, OddFilesSuggestNothing) {
    const tests::HostDirectory here;
    for (const char* content : {"", "\n", "relative\n", "\n/second line"}) {
        here.file("last-machine", content);
        EXPECT_EQ(lastMachine(here.path()), "") << content;
    }
    here.file("last-machine", "/without an end");
    EXPECT_EQ(lastMachine(here.path()), "/without an end");
    here.folder("other/last-machine");
    EXPECT_EQ(lastMachine(here / "other"), "");
    EXPECT_FALSE(rememberMachine(here / "other", "/home/me/.wine"));
    here.link("/etc/hostname", "linked/last-machine");
    EXPECT_EQ(lastMachine(here / "linked"), "");
}

}  // namespace
}  // namespace tidvane::frontend
