// Names, paths and kinds of files that a cleaning meets where programs of other systems left them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "e2e/console_run.h"
#include "support/tree_state.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobody = 65534;

class OddTree : public testing::Test {
protected:
    [[nodiscard]] std::string temp() const { return run_.drive() + kWindowsTemp; }

    ProcessResult clean(const std::string& method) { return clean(method, run_.options()); }
    ProcessResult clean(const std::string& method, const ProcessOptions& options) {
        return run_.console({"run", "--method", method, "--tick", "chkTempFolder", "--set", "txtPurgeSpeed=0", "--set",
                             "chkMoreLogDetails=1", "--json", report()},
                            options);
    }
    [[nodiscard]] std::string report() const { return run_.program() + "/report.json"; }
    // What the report tells of the folder of temporary files.
    [[nodiscard]] int reported(const char* what) const {
        const nlohmann::json json = nlohmann::json::parse(contentOfFile(report()));
        return json.at("steps").at(15).at(what).get<int>();
    }
    void expectWorks(const ProcessResult& result) const {
        EXPECT_EQ(misbehaviour(result), "");
        EXPECT_EQ(result.status, console_status::Done) << result.err;
    }
    [[nodiscard]] std::set<std::string> left() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(temp())) names.insert(entry.path().filename().string());
        return names;
    }

    ConsoleRun run_;
};

const std::vector<std::string> kMethods{"plain", "overwrite", "recycle"};

// Folders of the same name in one another until no call takes the path any more.
void makeDeepPath(const std::string& top) {
    const std::string name(200, 'd');
    int folder = ::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (std::size_t length = 0; length < std::size_t{2} * PATH_MAX; length += name.size() + 1) {
        ASSERT_EQ(::mkdirat(folder, name.c_str(), 0755), 0);
        const int next = ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ASSERT_GE(next, 0);
        ::close(folder);
        folder = next;
    }
    ::close(::openat(folder, "at the bottom.tmp", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    ::close(folder);
}

}  // namespace

TEST_F(OddTree, NamesThatAreNoTextGo) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        putFile(temp() + "/latin\xE4\xFF.tmp", "x");
        putFile(temp() + "/\xC3.tmp", "x");
        putFile(temp() + "/sub\xFE/inside\xFE.tmp", "x");
        expectWorks(clean(method));
        EXPECT_EQ(left(), std::set<std::string>());
        EXPECT_EQ(reported("failed"), 0);
    }
}

TEST_F(OddTree, LongestNamesGo) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        putFile(temp() + "/" + std::string(255, 'n'), "x");
        putFile(temp() + "/" + std::string(251, 'e') + ".tmp", "x");
        putFile(temp() + "/a." + std::string(253, 'e'), "x");
        std::string umlauts;
        for (int i = 0; i < 127; ++i) umlauts += "ü";
        putFile(temp() + "/" + umlauts, "x");
        fs::create_directory(temp() + "/" + std::string(255, 'f'));
        expectWorks(clean(method));
        EXPECT_EQ(left(), std::set<std::string>());
        EXPECT_EQ(reported("failed"), 0);
    }
}

// None of them can be named on Windows. They stay, or go as what they are; nothing else goes in their place.
TEST_F(OddTree, NamesThatWindowsHasNotHarmNothingElse) {
    const std::string outside = run_.drive() + "/Windows";
    putFile(outside + "/file.tmp", "kept");
    putFile(outside + "/stream", "kept");
    const TreeState before = treeState(run_.drive() + "/Users");
    for (const char* name : {"..\\file.tmp", "C:stream", "*", "?.tmp", "a|b", "ends with a dot.", "ends with a blank ",
                             "nul", "COM1.txt", "...", " ", "~", "two\nlines", "$Recycle.Bin"}) {
        putFile(temp() + "/" + name, "x");
    }
    putFile(temp() + "/plain.tmp", "x");
    expectWorks(clean("plain"));
    EXPECT_FALSE(left().contains("plain.tmp"));
    EXPECT_EQ(contentOfFile(outside + "/file.tmp"), "kept");
    EXPECT_EQ(contentOfFile(outside + "/stream"), "kept");
    EXPECT_EQ(changesBetween(before, treeState(run_.drive() + "/Users")), "");
    EXPECT_EQ(static_cast<std::size_t>(reported("files")) + left().size(), 15u);
}

TEST_F(OddTree, NamesThatDifferInCaseAloneGo) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        for (const char* name : {"A.tmp", "a.tmp", "Ä.tmp", "ä.tmp", "Sub/x", "sub/x"})
            putFile(temp() + "/" + name, "x");
        expectWorks(clean(method));
        EXPECT_EQ(left(), std::set<std::string>());
    }
}

TEST_F(OddTree, PathsDeeperThanTheSystemTakesGo) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        fs::create_directory(temp() + "/deep");
        makeDeepPath(temp() + "/deep");
        putFile(temp() + "/beside.tmp", "x");
        expectWorks(clean(method));
        EXPECT_EQ(left(), std::set<std::string>());
        EXPECT_EQ(reported("failed"), 0);
    }
    // The bin has one of them now, and is emptied of it.
    expectWorks(run_.console({"run", "--tick", "chkTrash", "--set", "txtPurgeSpeed=0"}));
    for (const auto& entry : fs::recursive_directory_iterator(run_.drive() + "/$Recycle.Bin")) {
        EXPECT_FALSE(entry.path().filename().string().starts_with("$R")) << entry.path();
    }
}

TEST_F(OddTree, LinksGoAndWhatTheyPointToStays) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        run_.directory().file("outside/letter.txt", "kept");
        const TreeState before = treeState(run_.directory() / "outside");
        fs::create_symlink("b", temp() + "/a");
        fs::create_symlink("a", temp() + "/b");
        fs::create_symlink(".", temp() + "/itself");
        fs::create_symlink("..", temp() + "/above");
        fs::create_directory_symlink(run_.directory() / "outside", temp() + "/folder");
        fs::create_symlink(run_.directory() / "outside/letter.txt", temp() + "/letter.txt");
        fs::create_symlink("/", temp() + "/root");
        fs::create_symlink("gone", temp() + "/dangling");
        fs::create_directory(temp() + "/sub");
        fs::create_directory_symlink(run_.directory() / "outside", temp() + "/sub/folder");
        fs::create_symlink("../sub", temp() + "/sub/loop");
        expectWorks(clean(method));
        EXPECT_EQ(left(), std::set<std::string>());
        EXPECT_EQ(changesBetween(before, treeState(run_.directory() / "outside")), "");
    }
}

TEST_F(OddTree, FifosAndSocketsAreNotWaitedFor) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        for (const char* folder : {"", "/sub"}) {
            fs::create_directories(temp() + folder);
            ASSERT_EQ(::mkfifo((temp() + folder + "/pipe.tmp").c_str(), 0600), 0);
            sockaddr_un address{};
            address.sun_family = AF_UNIX;
            const std::string place = temp() + folder + "/s";
            ASSERT_LT(place.size(), sizeof address.sun_path);
            place.copy(address.sun_path, place.size());
            const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
            ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
            ::close(socket);
        }
        putFile(temp() + "/beside.tmp", "x");
        expectWorks(clean(method));
        EXPECT_FALSE(left().contains("beside.tmp"));
        for (const auto& entry : fs::directory_iterator(temp())) fs::remove_all(entry.path());
    }
}

TEST_F(OddTree, FoldersThatMayNotBeOpenedCostNothingElse) {
    for (const std::string& method : kMethods) {
        SCOPED_TRACE(method);
        putFile(temp() + "/closed/kept.tmp", "x");
        putFile(temp() + "/fixed/kept.tmp", "x");
        putFile(temp() + "/sub/closed/kept.tmp", "x");
        putFile(temp() + "/sub/goes.tmp", "x");
        putFile(temp() + "/goes.tmp", "x");
        if (::geteuid() == 0) run_.giveTo(kNobody);
        ::chmod((temp() + "/closed").c_str(), 0);
        ::chmod((temp() + "/sub/closed").c_str(), 0);
        ::chmod((temp() + "/fixed").c_str(), 0500);
        ProcessOptions options = run_.options();
        if (::geteuid() == 0) options.user = kNobody;
        expectWorks(clean(method, options));
        EXPECT_FALSE(left().contains("goes.tmp"));
        const bool told = reported("failed") > 0 || left().empty();
        EXPECT_TRUE(told) << "something stayed, and the report says nothing of it";
        for (const char* folder : {"/closed", "/sub/closed", "/fixed"}) {
            if (fs::exists(temp() + folder)) ::chmod((temp() + folder).c_str(), 0700);
        }
        for (const auto& entry : fs::directory_iterator(temp())) fs::remove_all(entry.path());
        fs::remove_all(run_.drive() + "/$Recycle.Bin");
    }
}

}  // namespace tidvane::tests
