// The five Chrome tasks.
#include "tasks/browser_fixture.h"

namespace tidvane::tests {

namespace {

constexpr int kHistory = 48;
constexpr int kCookies = 49;
constexpr int kCache = 50;
constexpr int kSession = 51;
constexpr int kDownloads = 52;

const std::string kRoot = kLocal + "\\Google\\Chrome\\User Data\\";
const std::string kProfile = kRoot + "Default\\";
const std::string kCacheFolder = kProfile + "Cache\\";

// In the order of removal; the last four go by two masks.
const Paths kHistoryFiles{
    kProfile + "History",
    kProfile + "Archived History",
    kProfile + "Visited Links",
    kProfile + "Current Tabs",
    kProfile + "Last Tabs",
    kProfile + "History Provider Cache",
    kProfile + "Network Action Predictor",
    kProfile + "History Index 2009-10",
    kProfile + "History Index 2009-11",
    kProfile + "Top Sites",
    kProfile + "Top Sites 2",
};
const Paths kSessionFiles{kProfile + "Current Session", kProfile + "Last Session"};

const Paths kNeighbours{
    kProfile + "Bookmarks",
    kProfile + "Preferences",
    kProfile + "Login Data",
    kProfile + "Favicons",
    kProfile + "Web Data.old",
    kProfile + "xHistory",
    kProfile + "History 1",
    kProfile + "My Top Sites",
    kProfile + "Cookies.old",
    kProfile + "Session Storage\\keep",
    kProfile + "Sessions\\keep",
    kProfile + "Extensions\\e\\History",
    kProfile + "JumpListIconsRecent\\keep",
    kProfile + "Code Cache\\keep",
    kRoot + "Local State",
    kRoot + "History",
    kRoot + "Profile 1\\History",
    kRoot + "Profile 1\\Cookies-journal",
    kRoot + "Profile 1\\Cache\\keep",
    kRoot + "databases\\keep",
    kLocal + "\\Google\\Chrome\\journal",
    kLocal + "\\Google\\keep",
};

}  // namespace

struct ChromeTasks : BrowserTasks {
    ChromeTasks() {
        put(kNeighbours);
        machine.files.putFolder(kCacheFolder);
    }
    void putAll() {
        put(kHistoryFiles);
        put(kSessionFiles);
        put({kProfile + "Web Data", kProfile + "Cookies"});
        for (const char* folder :
             {"Cache", "Local Storage", "databases", "JumplistIcons", "JumplistIconsOld", "Media Cache"}) {
            put({kProfile + folder + "\\a", kProfile + folder + "\\sub\\b"});
        }
        put(journals());
    }
    static Paths journals() {
        return {kProfile + "Cookies-journal", kProfile + "History-journal", kProfile + "my journal.txt",
                kRoot + "x-JOURNAL", kRoot + "journal"};
    }
    static Paths contentOf(const std::vector<const char*>& folders) {
        Paths content;
        for (const char* folder : folders) {
            for (const char* below : {"\\a", "\\sub\\", "\\sub\\b"}) content.push_back(kProfile + folder + below);
        }
        return content;
    }
    static Paths together(Paths a, const Paths& b) {
        a.insert(a.end(), b.begin(), b.end());
        return sorted(a);
    }
    settings::frmChromeDir& window() {
        start();
        return program.get<settings::frmChromeDir>();
    }
    Paths goneWith(bool more) {
        tick(gate(kCache));
        options().chkChromeINDepthClean.Value = more ? 1 : 0;
        return gone(kCache);
    }
};

TEST_F(ChromeTasks, HistoryRemovesItsFilesAndTwoFamilies) {
    putAll();
    EXPECT_EQ(gone(kHistory), sorted(kHistoryFiles));
    EXPECT_EQ(lines, cleaned(kHistory));
    EXPECT_EQ(panels, workingOn(kHistory));
    expectRow(kHistory, 507, 9);
}

TEST_F(ChromeTasks, EachFileOfTheHistoryGoesAlone) {
    for (const std::string& file : kHistoryFiles) {
        put({file});
        EXPECT_EQ(gone(kHistory), Paths{file});
        EXPECT_EQ(lines, cleaned(kHistory)) << file;
    }
}

TEST_F(ChromeTasks, LastSessionIsTwoFiles) {
    putAll();
    EXPECT_EQ(gone(kSession), sorted(kSessionFiles));
    EXPECT_EQ(lines, cleaned(kSession));
    EXPECT_EQ(panels, workingOn(kSession));
    expectRow(kSession, 507, 9);
}

TEST_F(ChromeTasks, DownloadListIsTheFileOfWebData) {
    putAll();
    EXPECT_EQ(gone(kDownloads), Paths{kProfile + "Web Data"});
    EXPECT_EQ(lines, cleaned(kDownloads));
    EXPECT_EQ(panels, workingOn(kDownloads));
    expectRow(kDownloads, 507, 9);
    EXPECT_EQ(gone(kDownloads), Paths{});
    EXPECT_EQ(lines, notFound(kDownloads));
    expectRow(kDownloads, 508, 10);
}

TEST_F(ChromeTasks, TwoOfThemReportSuccessOnNothing) {
    for (const int step : {kHistory, kSession}) {
        EXPECT_EQ(gone(step), Paths{}) << step;
        EXPECT_EQ(lines, cleaned(step)) << step;
        expectRow(step, 507, 9);
    }
}

TEST_F(ChromeTasks, NamesSayWhatTheDownloadListTakesWithIt) {
    EXPECT_NE(name(kDownloads).find("form entries"), std::string::npos);
}

TEST_F(ChromeTasks, BeginLikeAllOthers) {
    putAll();
    expectCommonSteps({kHistory, kCookies, kCache, kSession, kDownloads});
}

TEST_F(ChromeTasks, WithoutALocationTheyStayAtRunning) {
    putAll();
    expectNothingWithoutLocation<settings::frmChromeDir>({kHistory, kCookies, kCache, kSession, kDownloads});
}

TEST_F(ChromeTasks, RemoveInTheirOrderAlsoByMaskFromTheRecycleBin) {
    put(kHistoryFiles);
    method(1);
    run(kHistory);
    EXPECT_EQ(recycled(), kHistoryFiles);
}

TEST_F(ChromeTasks, MasksAreDeletedWithoutBeingOverwritten) {
    put(kHistoryFiles);
    method(2);
    EXPECT_EQ(gone(kHistory), sorted(kHistoryFiles));
    Paths overwritten;
    for (const auto& file : machine.files.overwritten) overwritten.push_back(file.path);
    EXPECT_EQ(overwritten, Paths(kHistoryFiles.begin(), kHistoryFiles.begin() + 7));
}

TEST_F(ChromeTasks, LockedFilesStayAndAreCalledCleaned) {
    put(kSessionFiles);
    expectLockedFilesToBeCalledCleaned(kSession, kSessionFiles);
}

TEST_F(ChromeTasks, WithoutAProfileFolderMasksAreNotLookedForElsewhere) {
    start();
    put({"C:\\History", "C:\\Top Sites", "C:\\x-journal", "C:\\Media Cache\\a"});
    window().txtChromeFileDir.setText("");
    window().txtChromeFileDirRoot.setText("");
    for (const int step : {kHistory, kCookies, kCache, kSession, kDownloads}) run(step);
    EXPECT_EQ(machine.files.has("C:\\History"), true);
    EXPECT_EQ(machine.files.has("C:\\Top Sites"), true);
    EXPECT_EQ(machine.files.has("C:\\x-journal"), true);
    EXPECT_EQ(machine.files.has("C:\\Media Cache\\a"), true);
    EXPECT_TRUE(machine.warnings.empty());
}

// --- cookies

TEST_F(ChromeTasks, CookiesEmptyBothStoragesAndRemoveTheFile) {
    putAll();
    EXPECT_EQ(gone(kCookies), together(contentOf({"Local Storage", "databases"}), {kProfile + "Cookies"}));
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  name(kCookies) + ": " + kProfile + "Local Storage\\", counts("Chrome Local Storage (Cookies)", 2),
                  "Chrome Local Storage (databases): " + kProfile + "databases\\",
                  counts("Chrome Local Storage (databases)", 2), name(kCookies) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kCookies));
    expectRow(kCookies, 507, 9);
}

TEST_F(ChromeTasks, CookiesListTheFilesOfTheLocalStorageAlone) {
    putAll();
    start();
    options().chkMoreLogDetails.Value = 1;
    gone(kCookies);
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  name(kCookies) + ": " + kProfile + "Local Storage\\", counts("Chrome Local Storage (Cookies)", 2),
                  kProfile + "Local Storage\\a <OK>", "Chrome Local Storage (databases): " + kProfile + "databases\\",
                  counts("Chrome Local Storage (databases)", 2), name(kCookies) + " " + text(504) + " <OK>"}));
}

TEST_F(ChromeTasks, CookiesCountTheDatabasesAfresh) {
    put({kProfile + "Local Storage\\a", kProfile + "Local Storage\\b", kProfile + "databases\\c",
         kProfile + "Cookies"});
    gone(kCookies);
    EXPECT_EQ(lines[1], counts("Chrome Local Storage (Cookies)", 2));
    EXPECT_EQ(lines[3], counts("Chrome Local Storage (databases)", 1));
}

TEST_F(ChromeTasks, CookiesWithoutTheFileEndAsNotFoundBehindTheLinesOfTheStorage) {
    put({kProfile + "Local Storage\\a"});
    EXPECT_EQ(gone(kCookies), Paths{kProfile + "Local Storage\\a"});
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCookies) + ": " + kProfile + "Local Storage\\",
                                               counts("Chrome Local Storage (Cookies)", 1)}));
    expectRow(kCookies, 508, 10);
}

TEST_F(ChromeTasks, CookiesWithoutALocalStorageLeaveTheDatabases) {
    put({kProfile + "databases\\a", kProfile + "Cookies"});
    EXPECT_EQ(gone(kCookies), Paths{kProfile + "Cookies"});
    EXPECT_EQ(lines, cleaned(kCookies));
    expectRow(kCookies, 507, 9);
}

TEST_F(ChromeTasks, CookiesWithNothingAtAllEndWithoutALine) {
    EXPECT_EQ(gone(kCookies), Paths{});
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(panels, workingOn(kCookies));
    expectRow(kCookies, 508, 10);
}

TEST_F(ChromeTasks, CookiesShowDoneForAMomentWithoutALocalStorage) {
    tick(gate(kCookies));
    std::vector<std::string> seen;
    main().lstTasks.viewChanged.connect([&] {
        const std::string now = statusOf(kCookies) + " " + std::to_string(iconOf(kCookies));
        if (seen.empty() || seen.back() != now) seen.push_back(now);
    });
    run(kCookies);
    EXPECT_NE(std::find(seen.begin(), seen.end(), text(507) + " 9"), seen.end());
    EXPECT_EQ(seen.back(), text(508) + " 10");
}

// --- the cache

TEST_F(ChromeTasks, CacheEmptiesItsFoldersAndTakesEveryJournal) {
    putAll();
    EXPECT_EQ(goneWith(false), together(contentOf({"Cache", "Media Cache"}), journals()));
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 2),
                                               name(kCache) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kCache));
    expectRow(kCache, 507, 9);
}

TEST_F(ChromeTasks, CacheTakesTheJumpListIconsWithTheBoxForMore) {
    putAll();
    EXPECT_EQ(goneWith(true),
              together(contentOf({"Cache", "Media Cache", "JumplistIcons", "JumplistIconsOld"}), journals()));
    EXPECT_EQ(lines,
              (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 2),
                                        inDepth(kCache, "Jumplist Icons"), name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(ChromeTasks, CacheTakesEitherFolderOfJumpListIconsAlone) {
    for (const char* folder : {"JumplistIcons", "JumplistIconsOld"}) {
        put({kProfile + folder + "\\a"});
        EXPECT_EQ(goneWith(true), Paths{kProfile + folder + "\\a"});
        EXPECT_EQ(lines[2], inDepth(kCache, "Jumplist Icons"));
        machine.files.take(kProfile + folder);
        goneWith(true);
        EXPECT_EQ(lines.size(), 3u);
    }
}

TEST_F(ChromeTasks, CacheRemovesInItsOrder) {
    put({kCacheFolder + "a", kProfile + "Media Cache\\m", kProfile + "JumplistIcons\\j", kProfile + "x-journal",
         kRoot + "y-journal"});
    method(1);
    goneWith(true);
    EXPECT_EQ(recycled(), (Paths{kProfile + "JumplistIcons\\j", kCacheFolder + "a", kProfile + "Media Cache\\m",
                                 kProfile + "x-journal", kRoot + "y-journal"}));
}

TEST_F(ChromeTasks, CacheListsItsFilesWithTheDetails) {
    putAll();
    start();
    options().chkMoreLogDetails.Value = 1;
    goneWith(true);
    EXPECT_EQ(lines,
              (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 2), kCacheFolder + "a <OK>",
                                        inDepth(kCache, "Jumplist Icons"), name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(ChromeTasks, CacheIsNotFoundWithoutItsFolderAndLeavesTheJournals) {
    putAll();
    start();
    machine.files.take(kProfile + "Cache");
    EXPECT_EQ(goneWith(true), Paths{});
    EXPECT_EQ(lines, missing(kCache));
    EXPECT_EQ(panels, workingOn(kCache));
    expectRow(kCache, 498, 10);
}

TEST_F(ChromeTasks, CacheRefusesTheFolderOfTheProfile) {
    putAll();
    window();
    for (const std::string& folder : {kProfile, kRoot, kLocal + "\\Google", kLocal}) {
        window().txtChromeCacheDir.setText(folder);
        EXPECT_EQ(gone(kCache), Paths{}) << folder;
        EXPECT_EQ(lines, missing(kCache)) << folder;
    }
}

}  // namespace tidvane::tests
