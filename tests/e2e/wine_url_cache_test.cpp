// Deletes what Wine's WinINet cached, cookie by cookie and page by page, and asks WinINet what is left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <memory>
#include <set>

#include "base/date_time.h"
#include "base/text.h"
#include "e2e/console_run.h"
#include "e2e/wine_prefix.h"
#include "platform/common/url_cache_builder.h"
#include "platform/machine/machine_platform.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

constexpr const char* kCompiler = "x86_64-w64-mingw32-gcc";

struct Cached {
    std::uint32_t type = 0;
    std::string file;  // as Windows names it
    bool operator==(const Cached&) const = default;
};
using List = std::map<std::string, Cached>;  // by address

std::set<std::string> addressesOf(const List& list) {
    std::set<std::string> addresses;
    for (const auto& entry : list) addresses.insert(entry.first);
    return addresses;
}

void setModified(const std::string& path, std::uint64_t fileTime) {
    constexpr std::uint64_t kSecondsUntil1970 = 11644473600;
    struct timespec times[2] = {};
    times[0].tv_sec = times[1].tv_sec = static_cast<time_t>(fileTime / 10'000'000 - kSecondsUntil1970);
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0) << path;
}

const std::string kPage = "http://page.example/a/b.htm?c=d|e";
const std::string kOther = "http://other.example/";
const std::string kVisit = "Visited: root@http://visit.example/";

class WineUrlCacheTest : public testing::Test {
protected:
    void SetUp() override {
        if (WinePrefix::isDispensed()) GTEST_SKIP() << "TIDVANE_NO_WINE=1: no Windows system was cleaned";
        ASSERT_EQ(runProcess({"sh", "-c", std::string("command -v ") + kCompiler}).status, 0)
            << kCompiler << " is not installed: nothing can be cached through Wine";
        prefix_ = std::make_unique<WinePrefix>();
        const ProcessResult compiled = runProcess({kCompiler, "-Wall", "-Wextra", "-O1",
                                                   std::string(TIDVANE_SOURCE_DIR) + "/tests/e2e/url_cache_tool.c",
                                                   "-o", prefix_->drive() + "/tool.exe", "-lwininet"});
        ASSERT_EQ(compiled.status, 0) << compiled.err;
    }

    std::string tool(const std::vector<std::string>& arguments) const {
        std::vector<std::string> command{"C:\\tool.exe"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const ProcessResult result = prefix_->wine(command);
        EXPECT_EQ(result.status, 0) << arguments[0] << ": " << result.out << result.err;
        return result.out;
    }

    // What WinINet lists, each address once.
    [[nodiscard]] List listOfWine() const {
        List list;
        for (const std::string& line : base::split(base::replaceAll(tool({"list"}), "\r", ""), "\n")) {
            if (line.empty()) continue;
            // An address may have bars of its own.
            const std::size_t address = line.find('|', line.find('|') + 1) + 1;
            const std::size_t file = line.rfind('|') + 1;
            Cached cached;
            cached.type = static_cast<std::uint32_t>(std::stoul(line, nullptr, 16));
            cached.file = line.substr(file);
            const std::string name = line.substr(address, file - address - 1);
            EXPECT_TRUE(list.emplace(name, cached).second) << name << " is listed twice";
        }
        prefix_->stop();
        return list;
    }
    [[nodiscard]] std::set<std::string> addressesOfWine() const { return addressesOf(listOfWine()); }

    // Two pages, a cookie, a visit.
    void fill() const {
        tool({"make", kPage});
        tool({"make", kOther});
        tool({"cookie", "http://cookie.example/x"});
        tool({"visit", "http://visit.example/"});
        prefix_->stop();
    }
    [[nodiscard]] std::string cookie() const {
        for (const std::string& address : addressesOfWine()) {
            if (address.starts_with("Cookie:")) return address;
        }
        return "no cookie";
    }

    // The machine as the program opens it, for as long as the action runs.
    template <class Action>
    void onMachine(Action action) {
        std::string error;
        auto machine =
            platform::machine::Machine::open(prefix_->path(), platform::machine::Machine::Access::Write, error);
        ASSERT_NE(machine, nullptr) << error;
        directory_.folder("program");
        auto made =
            platform::machine::MachinePlatform::make(std::move(machine), {directory_ / "program", "", {}}, error);
        ASSERT_NE(made, nullptr) << error;
        action(made->platform());
        ASSERT_EQ(made->commit(error), platform::Status::Ok) << error;
    }

    [[nodiscard]] std::string hostPath(const std::string& path) const {
        return prefix_->drive() + base::replaceAll(path.substr(2), "\\", "/");
    }
    [[nodiscard]] bool has(const std::string& path) const { return fs::exists(hostPath(path)); }

    std::unique_ptr<WinePrefix> prefix_;
    HostDirectory directory_;
};

}  // namespace

TEST_F(WineUrlCacheTest, ListsWhatWineLists) {
    fill();
    const List wine = listOfWine();
    ASSERT_EQ(wine.size(), 4u);
    onMachine([&](platform::Platform services) {
        List own;
        for (const platform::UrlCacheEntry& entry : services.browserCache.entries()) {
            own[entry.sourceUrlName] = {entry.type, entry.localFileName};
            EXPECT_NE(entry.lastAccess, 0u);
            EXPECT_TRUE(entry.localFileName.empty() || services.files.FileExists(entry.localFileName));
        }
        EXPECT_EQ(addressesOf(own), addressesOf(wine));
        EXPECT_TRUE(own == wine);
    });
}

TEST_F(WineUrlCacheTest, DeletesOneEntryAndWineListsTheRest) {
    fill();
    const List before = listOfWine();
    const std::string cookie = this->cookie();
    onMachine([&](platform::Platform services) {
        services.removed.totals = {};
        EXPECT_TRUE(services.browserCache.DeleteUrlCacheEntry(kPage));
        EXPECT_FALSE(services.browserCache.DeleteUrlCacheEntry(kPage));
        EXPECT_EQ(services.removed.totals.files, 1u);
    });
    std::set<std::string> expected{kOther, cookie, kVisit};
    EXPECT_EQ(addressesOfWine(), expected);
    EXPECT_FALSE(has(before.at(kPage).file));
    EXPECT_TRUE(has(before.at(kOther).file));
    EXPECT_TRUE(has(before.at(cookie).file));

    onMachine([&](platform::Platform services) {
        EXPECT_TRUE(services.browserCache.DeleteUrlCacheEntry(cookie));
        EXPECT_TRUE(services.browserCache.DeleteUrlCacheEntry(kVisit));
    });
    EXPECT_EQ(addressesOfWine(), std::set<std::string>{kOther});
    EXPECT_FALSE(has(before.at(cookie).file));

    // Wine goes on: with the same address, with new ones, and with a delete of its own.
    fill();
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kPage, kOther, cookie, kVisit}));
    EXPECT_EQ(tool({"delete", kPage}).front(), '1');
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kOther, cookie, kVisit}));
}

TEST_F(WineUrlCacheTest, ManyEntriesInManyTablesComeAndGo) {
    constexpr int kCount = 1200;
    const std::string start = "http://many.example/";
    tool({"make", start, std::to_string(kCount)});
    const List before = listOfWine();
    ASSERT_EQ(before.size(), static_cast<std::size_t>(kCount));
    std::set<std::string> left;
    onMachine([&](platform::Platform services) {
        const platform::ManyDeletes together(services.browserCache);
        for (int i = 0; i < kCount; ++i) {
            const std::string address = start + std::to_string(i);
            if (i % 3 == 0) {
                left.insert(address);
            } else {
                EXPECT_TRUE(services.browserCache.DeleteUrlCacheEntry(address)) << address;
            }
        }
    });
    EXPECT_EQ(addressesOfWine(), left);
    for (const auto& [address, cached] : before) EXPECT_EQ(has(cached.file), left.contains(address)) << address;

    // The freed blocks and slots are taken again.
    tool({"make", start + "new/", std::to_string(kCount)});
    for (int i = 0; i < kCount; ++i) left.insert(start + "new/" + std::to_string(i));
    const List after = listOfWine();
    EXPECT_EQ(addressesOf(after), left);
    for (const auto& [address, cached] : after) EXPECT_TRUE(has(cached.file)) << address;
}

TEST_F(WineUrlCacheTest, ClearsByNumber) {
    fill();
    const List before = listOfWine();
    const std::string cookie = this->cookie();
    const auto clear = [&](int number) {
        onMachine([&](platform::Platform services) {
            const std::string command = "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess " + std::to_string(number);
            EXPECT_NE(services.processes.CreateProcessA(command, 1), nullptr);
            EXPECT_EQ(services.removed.totals.failed, 0u);
        });
    };
    clear(16);
    EXPECT_EQ(listOfWine(), before);
    clear(1);
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kPage, kOther, cookie}));
    clear(2);
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kPage, kOther}));
    EXPECT_FALSE(has(before.at(cookie).file));
    clear(8);
    EXPECT_EQ(addressesOfWine(), std::set<std::string>{});
    EXPECT_FALSE(has(before.at(kPage).file));
    EXPECT_FALSE(has(before.at(kOther).file));

    // Wine makes its indexes and folders anew.
    fill();
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kPage, kOther, cookie, kVisit}));
    clear(4351);
    EXPECT_EQ(addressesOfWine(), std::set<std::string>{});
}

TEST_F(WineUrlCacheTest, AMadeIndexIsOneForWineToo) {
    fill();
    const List before = listOfWine();
    const std::string folder = hostPath(before.at(kOther).file);
    const fs::path content = fs::path(folder).parent_path().parent_path();
    std::vector<platform::UrlCacheItem> items;
    for (int i = 0; i < 500; ++i) {
        platform::UrlCacheItem item;
        item.url = "http://made.example/" + std::to_string(i);
        item.file = std::to_string(i) + ".htm";
        item.folder = static_cast<std::size_t>(i % 2);
        item.size = 1;
        item.fileWritten = base::toFileTime({2009, 11, 3, 7, 5, 8});
        items.push_back(item);
        const std::string place = (i % 2 == 0 ? "MADE0000/" : "MADE0001/") + item.file;
        fs::create_directories((content / place).parent_path());
        putFile((content / place).string(), "x");
        setModified((content / place).string(), item.fileWritten);
    }
    putFile((content / "index.dat").string(),
            platform::makeUrlCacheIndex({"MADE0000", "MADE0001"}, items, platform::url_cache::kWineSignature));
    const List made = listOfWine();
    EXPECT_EQ(made.size(), items.size() + 2);  // and the cookie and the visit
    for (const platform::UrlCacheItem& item : items) {
        ASSERT_TRUE(made.contains(item.url)) << item.url;
        EXPECT_TRUE(has(made.at(item.url).file)) << item.url;
    }
    // Wine finds addresses by their hash, and puts further ones beside them.
    EXPECT_EQ(tool({"delete", items[0].url}).front(), '1');
    EXPECT_EQ(tool({"delete", items[499].url}).front(), '1');
    tool({"make", kOther});
    EXPECT_EQ(addressesOfWine().size(), items.size() + 1);
    EXPECT_FALSE(has(made.at(items[499].url).file));
}

// Tidvane's own run, as a user starts it.
TEST_F(WineUrlCacheTest, ARunCleansTheCacheAndTheHistory) {
    fill();
    const List before = listOfWine();
    const std::string cookie = this->cookie();
    const ConsoleRun run(prefix_->path());

    ProcessResult result = run.console({"run", "--tick", "chkIEHistory", "--set", "txtPurgeSpeed=0"});
    EXPECT_EQ(result.status, console_status::Done) << result.err;
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kPage, kOther, cookie}));

    result = run.console({"run", "--tick", "chkIECache", "--set", "txtPurgeSpeed=0"});
    EXPECT_EQ(result.status, console_status::Done) << result.err;
    EXPECT_EQ(addressesOfWine(), std::set<std::string>{cookie});
    EXPECT_FALSE(has(before.at(kPage).file));
    EXPECT_TRUE(has(before.at(cookie).file));

    fill();
    EXPECT_EQ(addressesOfWine(), (std::set<std::string>{kPage, kOther, cookie, kVisit}));
    result = run.console(
        {"run", "--set", "frmIEInDepthClean.chkIEINDepthCleanAll=1", "--tick", "chkIEURL", "--set", "txtPurgeSpeed=0"});
    EXPECT_EQ(result.status, console_status::Done) << result.err;
    EXPECT_EQ(addressesOfWine(), std::set<std::string>{});
}

}  // namespace tidvane::tests
