// Cleans profiles that real browsers made, and lets the browsers start again on what is left.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <set>

#include "base/text.h"
#include "e2e/console_run.h"
#include "e2e/local_page.h"
#include "e2e/process.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;

// The packages that cannot be installed here, as the script that installs them says it, with blanks between them. A
// browser that is missing without being named there is a failure.
bool isDispensed(const std::string& package) {
    const char* names = std::getenv("TIDVANE_NO_BROWSERS");
    const std::vector<std::string> packages = base::split(names == nullptr ? "" : names, " ");
    return std::find(packages.begin(), packages.end(), package) != packages.end();
}

// Paths below a folder, folders with a slash at the end.
std::set<std::string> namesBelow(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        std::string name = fs::relative(entry.path(), folder).string();
        if (entry.is_directory() && !entry.is_symlink()) name += "/";
        names.insert(name);
    }
    return names;
}

class RealBrowser : public testing::Test {
protected:
    explicit RealBrowser(const char* package) : package_(package) {}

    void SetUp() override {
        if (isDispensed(package_)) GTEST_SKIP() << package_ << " cannot be installed here";
        ASSERT_TRUE(fs::exists("/usr/bin/" + package_)) << package_ << " is not installed";
        ASSERT_EQ(run.console({"settings", "--set", "txtPurgeSpeed=0", "--save"}).status, console_status::Done);
    }

    ProcessResult browser(const std::vector<std::string>& command) const {
        ProcessOptions options;
        options.environment = {"HOME=" + (run.directory() / "home"), "MOZ_CRASHREPORTER_DISABLE=1"};
        options.limit = std::chrono::seconds(90);
        return runProcess(command, options);
    }

    [[nodiscard]] std::string roaming() const { return run.drive() + "/Users/User/AppData/Roaming/"; }
    [[nodiscard]] std::string local() const { return run.drive() + "/Users/User/AppData/Local/"; }

    // Everything that was there before and is not any more.
    static std::set<std::string> missing(const std::set<std::string>& before, const std::set<std::string>& after) {
        std::set<std::string> gone;
        std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::inserter(gone, gone.end()));
        return gone;
    }

    ConsoleRun run;
    LocalPage page;

private:
    std::string package_;
};

class RealFirefox : public RealBrowser {
protected:
    RealFirefox() : RealBrowser("firefox-esr") {}

    static constexpr const char* kProfile = "Profiles/k3x9.default-esr";

    [[nodiscard]] std::string profile() const { return roaming() + "Mozilla/Firefox/" + kProfile; }
    [[nodiscard]] std::string localProfile() const { return local() + "Mozilla/Firefox/" + kProfile; }

    ProcessResult visit(const std::string& path) const {
        return browser({"/usr/bin/firefox-esr", "--headless", "--no-remote", "--profile", profile(), "--screenshot",
                        run.directory() / "page.png", page.address(path)});
    }

    // On Windows the caches lie in the local profile; here the browser keeps them in the one profile it was given.
    void moveCachesToTheirWindowsPlace() const {
        fs::create_directories(localProfile());
        for (const char* cache : {"cache2", "startupCache"}) {
            if (fs::exists(profile() + "/" + cache)) {
                fs::rename(profile() + "/" + cache, localProfile() + "/" + cache);
            }
        }
    }
};

TEST_F(RealFirefox, LosesItsTracesAndStartsAgainOnWhatIsLeft) {
    fs::create_directories(profile());
    putFile(roaming() + "Mozilla/Firefox/profiles.ini",
            std::string("[Profile0]\r\nName=default\r\nIsRelative=1\r\nPath=") + kProfile + "\r\n");
    ASSERT_EQ(visit("/first").status, 0);
    ASSERT_TRUE(fs::exists(run.directory() / "page.png"));
    ASSERT_EQ(visit("/second").status, 0);
    ASSERT_EQ(page.cookiesOf("/second").front(), "trace=left") << "the browser kept no trace that could be cleaned";
    moveCachesToTheirWindowsPlace();
    // Older generations kept these, and the tasks still look for them.
    for (const char* old : {"history.dat", "cookies.txt", "formhistory.dat", "downloads.rdf", "sessionstore.js"}) {
        putFile(profile() + "/" + old, "old");
    }
    putFile(localProfile() + "/Cache/_CACHE_001_", "old");
    const std::set<std::string> before = namesBelow(profile());
    const std::set<std::string> localBefore = namesBelow(localProfile());

    const ProcessResult result = run.console({"run", "--tick", "firefox"});
    ASSERT_EQ(result.status, console_status::Done) << result.err;

    const std::set<std::string> gone = missing(before, namesBelow(profile()));
    std::set<std::string> expected{"history.dat",   "cookies.txt",     "formhistory.dat",
                                   "downloads.rdf", "sessionstore.js", "cookies.sqlite"};
    for (const char* sometimes : {"formhistory.sqlite", "content-prefs.sqlite"}) {
        if (before.count(sometimes) != 0) expected.insert(sometimes);
    }
    EXPECT_EQ(gone, expected);
    for (const char* kept : {"places.sqlite", "prefs.js", "key4.db", "cert9.db"}) {
        EXPECT_TRUE(fs::exists(profile() + "/" + kept)) << kept;
    }
    EXPECT_TRUE(fs::exists(localProfile() + "/cache2")) << "no task names it";
    EXPECT_TRUE(fs::is_empty(localProfile() + "/startupCache"));
    EXPECT_TRUE(fs::is_empty(localProfile() + "/Cache"));
    EXPECT_TRUE(localBefore.count("startupCache/") != 0);

    fs::remove(run.directory() / "page.png");
    const ProcessResult again = visit("/third");
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_TRUE(fs::exists(run.directory() / "page.png"));
    ASSERT_FALSE(page.cookiesOf("/third").empty());
    EXPECT_EQ(page.cookiesOf("/third").front(), "") << "the cookie was still known";
}

class RealChromium : public RealBrowser {
protected:
    RealChromium() : RealBrowser("chromium") {}

    [[nodiscard]] std::string userData() const { return local() + "Google/Chrome/User Data"; }

    ProcessResult visit(const std::string& path) const {
        return browser({"/usr/bin/chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
                        "--no-first-run", "--disable-background-networking", "--disable-component-update",
                        "--disable-sync", "--user-data-dir=" + userData(), "--dump-dom", page.address(path)});
    }
};

TEST_F(RealChromium, LosesItsTracesAndStartsAgainOnWhatIsLeft) {
    fs::create_directories(userData());
    const ProcessResult first = visit("/first");
    ASSERT_EQ(first.status, 0) << first.err;
    ASSERT_NE(first.out.find("<title>done</title>"), std::string::npos) << first.out;
    ASSERT_EQ(visit("/second").status, 0);
    ASSERT_EQ(page.cookiesOf("/second").front(), "trace=left") << "the browser kept no trace that could be cleaned";
    const std::set<std::string> before = namesBelow(userData());
    for (const char* trace : {"Default/History", "Default/Cookies", "Default/Web Data", "Default/Top Sites",
                              "Default/Local Storage/", "Default/Cache/", "Default/Preferences", "Local State"}) {
        ASSERT_TRUE(before.count(trace) != 0) << trace;
    }

    const ProcessResult result = run.console({"run", "--tick", "chrome"});
    ASSERT_EQ(result.status, console_status::Done) << result.err;

    const std::set<std::string> after = namesBelow(userData());
    const std::set<std::string> gone = missing(before, after);
    for (const char* trace : {"Default/History", "Default/Cookies", "Default/Web Data", "Default/Top Sites"}) {
        EXPECT_TRUE(gone.count(trace) != 0) << trace;
    }
    EXPECT_TRUE(fs::is_empty(userData() + "/Default/Local Storage"));
    EXPECT_TRUE(fs::is_empty(userData() + "/Default/Cache"));
    // Nothing else: the named files, what lay in the emptied folders, and the journals.
    for (const std::string& name : gone) {
        const bool named = name.starts_with("Default/History") || name.starts_with("Default/Top Sites") ||
                           name == "Default/Cookies" || name == "Default/Web Data" || name == "Default/Visited Links" ||
                           name == "Default/Network Action Predictor";
        const bool emptied = name.starts_with("Default/Local Storage/") || name.starts_with("Default/Cache/") ||
                             name.starts_with("Default/databases/");
        EXPECT_TRUE(named || emptied || name.find("journal") != std::string::npos) << name;
    }
    for (const char* kept : {"Default/Preferences", "Default/Login Data", "Local State", "Default/Favicons"}) {
        EXPECT_TRUE(after.count(kept) != 0) << kept;
    }

    const ProcessResult again = visit("/third");
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_NE(again.out.find("<title>done</title>"), std::string::npos) << again.out;
    ASSERT_FALSE(page.cookiesOf("/third").empty());
    EXPECT_EQ(page.cookiesOf("/third").front(), "") << "the cookie was still known";
}

}  // namespace

}  // namespace tidvane::tests
