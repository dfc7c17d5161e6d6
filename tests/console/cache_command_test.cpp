#include <gtest/gtest.h>

#include "memory_session.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

class CacheCommand : public ::testing::Test {
protected:
    CacheCommand() {
        for (const char* url : {"http://a.example/", "Cookie:anna@a.example/", "http://b.example/x|y"}) {
            machine.memory.browserCache.cached.push_back({url, "", 1, 128'000'000'000'000'000});
        }
        machine.memory.browserCache.cached.push_back({"http://sticky.example/", "", 4, 0});
    }
    int cache(ManagerOptions manager) {
        options.manager = std::move(manager);
        machine.out.str({});
        machine.err.str({});
        return cacheCommand(machine.session, options);
    }
    [[nodiscard]] std::vector<std::string> left() const {
        std::vector<std::string> urls;
        for (const auto& entry : machine.memory.browserCache.cached) urls.push_back(entry.sourceUrlName);
        return urls;
    }

    tests::MemorySession machine;
    Options options;
};

using Urls = std::vector<std::string>;

TEST_F(CacheCommand, ListsNormalEntriesAsTheWindowDoes) {
    EXPECT_EQ(cache({}), exit_status::Done);
    EXPECT_EQ(machine.log(),
              "14.08.2006 03:33:20|http://a.example/\n14.08.2006 03:33:20|Cookie:anna@a.example/\n"
              "14.08.2006 03:33:20|http://b.example/x|y\n");
}

TEST_F(CacheCommand, ListsNoControlCharacterOfAnAddress) {
    machine.memory.browserCache.cached = {{"http://a.example/\x1B[2J\xC2\x9B", "", 1, 128'000'000'000'000'000}};
    EXPECT_EQ(cache({}), exit_status::Done);
    EXPECT_EQ(machine.log(), "14.08.2006 03:33:20|http://a.example/?[2J?\n");
}

TEST_F(CacheCommand, RemovesTheNamedOnesCookiesToo) {
    EXPECT_EQ(cache({true, {"http://b.example/x|y", "Cookie:anna@a.example/"}, false, false}), exit_status::Done);
    EXPECT_EQ(machine.log(), "Removed 2 of 2 cache entries.\n");
    EXPECT_EQ(left(), (Urls{"http://a.example/", "http://sticky.example/"}));
}

TEST_F(CacheCommand, RemovesAllButCookies) {
    EXPECT_EQ(cache({true, {}, true, false}), exit_status::Done);
    EXPECT_EQ(machine.log(),
              "Removed 2 of 2 cache entries.\n1 with \"Cookie\" in the address stay; --cookies takes them too.\n");
    EXPECT_EQ(left(), (Urls{"Cookie:anna@a.example/", "http://sticky.example/"}));
}

TEST_F(CacheCommand, RemovesAllWithCookies) {
    EXPECT_EQ(cache({true, {}, true, true}), exit_status::Done);
    EXPECT_EQ(machine.log(), "Removed 3 of 3 cache entries.\n");
    EXPECT_EQ(left(), Urls{"http://sticky.example/"});
    EXPECT_EQ(machine.storedSettings(), "") << "the tick is for this once";
}

TEST_F(CacheCommand, KeepsToTheStoredTick) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmIECache]\r\nchkAllCookies=1\r\n");
    EXPECT_EQ(cache({true, {}, true, false}), exit_status::Done);
    EXPECT_EQ(left(), Urls{"http://sticky.example/"});
}

TEST_F(CacheCommand, RemovesNothingWhereOneAddressIsUnknown) {
    for (const char* wrong : {"http://c.example/", "", "HTTP://A.EXAMPLE/", "http://sticky.example/"}) {
        EXPECT_EQ(cache({true, {"http://a.example/", wrong}, false, false}), exit_status::Usage) << wrong;
        EXPECT_TRUE(contains(machine.messages(), "Nothing was removed."));
        EXPECT_EQ(left().size(), 4U);
    }
}

TEST_F(CacheCommand, TellsWhatStays) {
    machine.memory.browserCache.refused = {"http://a.example/"};
    EXPECT_EQ(cache({true, {}, true, false}), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.log(), "Removed 1 of 2 cache entries.\n"));
    EXPECT_TRUE(contains(machine.messages(), "still there"));
    EXPECT_EQ(cache({true, {"http://a.example/"}, false, false}), exit_status::MachineUnusable);
    EXPECT_EQ(machine.log(), "Removed 0 of 1 cache entries.\n");
}

TEST_F(CacheCommand, ABadStoredValueIsNoMatter) {
    machine.memory.files.putFile(kProgramFolder + "td_config.ini", "[frmIECache]\r\nchkAllCookies=bad\r\n");
    EXPECT_EQ(cache({}), exit_status::Done);
    EXPECT_TRUE(contains(machine.log(), "|http://a.example/"));
    EXPECT_EQ(cache({true, {}, true, false}), exit_status::Done);
    EXPECT_EQ(left(), (Urls{"Cookie:anna@a.example/", "http://sticky.example/"}));
}

TEST_F(CacheCommand, RefusesToRemoveBesideAnotherProgram) {
    machine.memory.processes.otherInstanceRuns = true;
    EXPECT_EQ(cache({true, {}, true, false}), exit_status::MachineUnusable);
    EXPECT_EQ(left().size(), 4U);
    EXPECT_EQ(cache({}), exit_status::Done);
}

}  // namespace
}  // namespace tidvane::console
