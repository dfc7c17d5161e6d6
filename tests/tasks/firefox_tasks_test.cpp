// The nine Firefox tasks.
#include "tasks/browser_fixture.h"

namespace tidvane::tests {

namespace {

constexpr int kHistory = 33;
constexpr int kCookies = 34;
constexpr int kCache = 35;
constexpr int kForms = 36;
constexpr int kDownloads = 37;
constexpr int kToolbar = 38;
constexpr int kCrashReports = 39;
constexpr int kSearches = 40;
constexpr int kSession = 41;

const std::string kFirefox = kRoaming + "\\Mozilla\\FireFox";
const std::string kProfile = kFirefox + "\\Profiles\\abc.default";
const std::string kLocalProfile = kLocal + "\\Mozilla\\FireFox\\Profiles\\abc.default";
const std::string kCacheFolder = kLocalProfile + "\\Cache";
const std::string kCrashFolder = kFirefox + "\\Crash Reports\\";

struct FileTask {
    int step;
    Paths files;  // of the profile
};
const std::vector<FileTask> kFileTasks{
    {kHistory, {"history.dat", "formhistory.sqlite"}},     {kCookies, {"Cookies.txt", "Cookies.sqlite"}},
    {kForms, {"formhistory.dat", "content-prefs.sqlite"}}, {kDownloads, {"downloads.rdf", "downloads.sqlite"}},
    {kToolbar, {"GoogleToolbarData\\searchhistory.xml"}},  {kSearches, {"search.sqlite"}},
    {kSession, {"sessionstore.js", "sessionstore.bak"}},
};

// What must outlive every task: the user's own, names that only look alike, and a further profile.
const Paths kNeighbours{
    "places.sqlite",
    "bookmarks.html",
    "key4.db",
    "logins.json",
    "prefs.js",
    "cert9.db",
    "cookies.sqlite-wal",
    "history.dat.old",
    "xformhistory.sqlite",
    "search.json.mozlz4",
    "sessionstore.jsonlz4",
    "sessionstore-1.js",
    "downloads.json",
    "extensions\\a.xpi",
    "Cache\\roaming.txt",
    "OfflineCache\\o",
    "startupCache\\s",
    "GoogleToolbarData\\settings.xml",
};

}  // namespace

struct FirefoxTasks : BrowserTasks {
    FirefoxTasks() {
        putProfilesFile("[Profile0]\r\nName=default\r\nIsRelative=1\r\nPath=Profiles/abc.default\r\n");
        for (const std::string& profile : {kProfile, kFirefox + "\\Profiles\\second.default"}) {
            for (const std::string& file : kNeighbours) put({profile + "\\" + file});
        }
        putTargets(kFirefox + "\\Profiles\\second.default");
        putCaches(kLocal + "\\Mozilla\\FireFox\\Profiles\\second.default");
        put({kCrashFolder, kLocal + "\\Mozilla\\FireFox\\Cache\\keep", kLocal + "\\Mozilla\\FireFox\\keep",
             kLocalProfile + "\\thumbnails\\t.png"});
    }
    void putProfilesFile(const std::string& text) { machine.files.putFile(kFirefox + "\\profiles.ini", text); }
    void putTargets(const std::string& profile = kProfile) {
        for (const FileTask& task : kFileTasks) put(inFolder(profile, task.files));
        put({profile + "\\TestPilotErrorLog.log"});
    }
    void putCaches(const std::string& profile = kLocalProfile) {
        for (const char* folder : {"Cache", "jumplistcache", "OfflineCache", "startupCache"}) {
            put({profile + "\\" + folder + "\\a", profile + "\\" + folder + "\\b",
                 profile + "\\" + folder + "\\sub\\c"});
        }
    }
    static Paths inFolder(const std::string& folder, const Paths& files) {
        Paths paths;
        for (const std::string& file : files) paths.push_back(folder + "\\" + file);
        return paths;
    }
    static Paths contentOf(const std::string& folder) {
        return {folder + "\\a", folder + "\\b", folder + "\\sub\\", folder + "\\sub\\c"};
    }
    static Paths contentsOf(const std::vector<std::string>& folders) {
        Paths all;
        for (const std::string& folder : folders) {
            for (const std::string& path : contentOf(kLocalProfile + "\\" + folder)) all.push_back(path);
        }
        return sorted(all);
    }
    settings::frmMozillaDir& window() {
        start();
        return program.get<settings::frmMozillaDir>();
    }
    static std::vector<int> stepsOfTheProfile() {
        return {kHistory, kCookies, kCache, kForms, kDownloads, kToolbar, kSearches, kSession};
    }
};

TEST_F(FirefoxTasks, EachTaskRemovesItsFilesAndNothingElse) {
    putTargets();
    for (const FileTask& task : kFileTasks) {
        EXPECT_EQ(gone(task.step), sorted(inFolder(kProfile, task.files))) << task.step;
        EXPECT_EQ(lines, cleaned(task.step)) << task.step;
        EXPECT_EQ(panels, workingOn(task.step)) << task.step;
        expectRow(task.step, 507, 9);
    }
}

TEST_F(FirefoxTasks, AnyOneOfItsFilesIsEnough) {
    for (const FileTask& task : kFileTasks) {
        for (const std::string& file : task.files) {
            put({kProfile + "\\" + file});
            EXPECT_EQ(gone(task.step), Paths{kProfile + "\\" + file}) << file;
            EXPECT_EQ(lines, cleaned(task.step)) << file;
            expectRow(task.step, 507, 9);
        }
    }
}

TEST_F(FirefoxTasks, WithoutAnyFileTheyAreNotFound) {
    for (const FileTask& task : kFileTasks) {
        EXPECT_EQ(gone(task.step), Paths{}) << task.step;
        EXPECT_EQ(lines, notFound(task.step)) << task.step;
        EXPECT_EQ(panels, workingOn(task.step)) << task.step;
        expectRow(task.step, 508, 10);
    }
}

TEST_F(FirefoxTasks, BeginLikeAllOthers) {
    putTargets();
    putCaches();
    expectCommonSteps({kHistory, kCookies, kCache, kForms, kDownloads, kToolbar, kCrashReports, kSearches, kSession});
}

TEST_F(FirefoxTasks, WithoutALocationTheyStayAtRunning) {
    putTargets();
    putCaches();
    expectNothingWithoutLocation<settings::frmMozillaDir>(stepsOfTheProfile());
}

TEST_F(FirefoxTasks, LockedFilesStayAndAreCalledCleaned) {
    putTargets();
    for (const FileTask& task : kFileTasks) {
        expectLockedFilesToBeCalledCleaned(task.step, inFolder(kProfile, task.files));
    }
}

TEST_F(FirefoxTasks, WorkByTheChosenMethodInTheirOrder) {
    for (const FileTask& task : kFileTasks) {
        machine.shell.recycled.clear();
        put(inFolder(kProfile, task.files));
        method(1);
        run(task.step);
        EXPECT_EQ(recycled(), inFolder(kProfile, task.files));
        machine.files.overwritten.clear();
        put(inFolder(kProfile, task.files));
        method(2);
        run(task.step);
        ASSERT_EQ(machine.files.overwritten.size(), task.files.size());
        for (std::size_t i = 0; i < task.files.size(); ++i) {
            EXPECT_EQ(machine.files.overwritten[i].path, kProfile + "\\" + task.files[i]);
            EXPECT_EQ(machine.files.overwritten[i].bytes, " ");
        }
        EXPECT_FALSE(machine.files.has(kProfile + "\\" + task.files[0]));
    }
}

TEST_F(FirefoxTasks, WithAnUnknownMethodNothingGoesAndItIsCalledCleaned) {
    put({kProfile + "\\history.dat"});
    putCaches();
    start();
    for (const int entry : {732, 733, 734}) program.LangText.set(entry, "other words");
    EXPECT_EQ(gone(kHistory), Paths{});
    EXPECT_EQ(lines, cleaned(kHistory));
    EXPECT_EQ(gone(kCache), Paths{});
    expectRow(kCache, 507, 9);
}

TEST_F(FirefoxTasks, AMissingSecondFileFailsInSilence) {
    put({kProfile + "\\Cookies.sqlite"});
    EXPECT_EQ(gone(kCookies), Paths{kProfile + "\\Cookies.sqlite"});
    EXPECT_EQ(lines, cleaned(kCookies));
    EXPECT_TRUE(machine.warnings.empty());
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_TRUE(display.warnings.empty());
}

TEST_F(FirefoxTasks, CleanTheFolderOfTheBoxAlsoWhereTheUserSetIt) {
    put({"D:\\Mine\\history.dat", "D:\\Mine\\places.sqlite", "D:\\history.dat"});
    window().txtMozillaFileDir.setText("D:\\Mine");
    run(kHistory);
    EXPECT_EQ(machine.files.everythingBelow("D:\\"),
              (Paths{"D:\\Mine\\", "D:\\Mine\\places.sqlite", "D:\\history.dat"}));
}

// --- the cache

struct FirefoxCache : FirefoxTasks {
    void inDepthBoxes(bool offline, bool errorLogs) {
        start();
        options().chkMozillaINDepthCleanOfflineCache.Value = offline ? 1 : 0;
        options().chkMozillaINDepthCleanTestPilotErrorLogs.Value = errorLogs ? 1 : 0;
    }
    // The event of the gate would untick them again.
    Paths goneWith(bool offline, bool errorLogs) {
        tick(gate(kCache));
        inDepthBoxes(offline, errorLogs);
        return gone(kCache);
    }
    std::string folder(const char* below) const { return kLocalProfile + "\\" + below; }
};

TEST_F(FirefoxCache, EmptiesTheCacheTheJumpListsAndTheStartupCache) {
    putTargets();
    putCaches();
    EXPECT_EQ(goneWith(false, false), contentsOf({"Cache", "jumplistcache", "startupCache"}));
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 3),
                                               name(kCache) + ": " + folder("jumplistcache"),
                                               name(kCache) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kCache));
    expectRow(kCache, 507, 9);
}

TEST_F(FirefoxCache, GoesIntoDepthWhereTheBoxesSaySo) {
    putTargets();
    putCaches();
    Paths expected = contentsOf({"Cache", "jumplistcache", "OfflineCache", "startupCache"});
    expected.push_back(kProfile + "\\TestPilotErrorLog.log");
    EXPECT_EQ(goneWith(true, true), sorted(expected));
    EXPECT_EQ(
        lines,
        (std::vector<std::string>{
            name(kCache) + ": " + kCacheFolder, counts(kCache, 3), name(kCache) + ": " + folder("jumplistcache"),
            name(kCache) + " (OfflineCache): " + folder("OfflineCache"), counts(name(kCache) + " (OfflineCache)", 3),
            inDepth(kCache, "TestPilot Error Logs"), name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(FirefoxCache, TakesEitherOfTheBoxesAlone) {
    putTargets();
    putCaches();
    EXPECT_EQ(goneWith(false, true), sorted([&] {
                  Paths paths = contentsOf({"Cache", "jumplistcache", "startupCache"});
                  paths.push_back(kProfile + "\\TestPilotErrorLog.log");
                  return paths;
              }()));
    EXPECT_EQ(lines[3], inDepth(kCache, "TestPilot Error Logs"));
    EXPECT_EQ(goneWith(true, false), contentsOf({"OfflineCache"}));
    EXPECT_EQ(lines[3], name(kCache) + " (OfflineCache): " + folder("OfflineCache"));
}

TEST_F(FirefoxCache, IsSilentOnWhatIsNotThere) {
    put({kCacheFolder + "\\a"});
    EXPECT_EQ(goneWith(true, true), Paths{kCacheFolder + "\\a"});
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 1),
                                               name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(FirefoxCache, IsNotFoundWithoutItsFolderAndLeavesTheOthers) {
    putTargets();
    putCaches();
    machine.files.take(kCacheFolder);
    EXPECT_EQ(goneWith(true, true), Paths{});
    EXPECT_EQ(lines, missing(kCache));
    EXPECT_EQ(panels, workingOn(kCache));
    expectRow(kCache, 498, 10);
}

TEST_F(FirefoxCache, ListsTheFilesOfTheTopLevelBeforeTheyGo) {
    putCaches();
    start();
    options().chkMoreLogDetails.Value = 1;
    machine.files.lock(kCacheFolder + "\\b");
    Paths expected = contentsOf({"Cache", "jumplistcache", "startupCache"});
    expected.erase(std::find(expected.begin(), expected.end(), kCacheFolder + "\\b"));
    EXPECT_EQ(goneWith(false, false), expected);
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 3),
                                               kCacheFolder + "\\a <OK>", kCacheFolder + "\\b <OK>",
                                               name(kCache) + ": " + folder("jumplistcache"),
                                               name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(FirefoxCache, MeasuresTheOfflineCacheBeforeAnythingGoes) {
    putCaches();
    // The offline cache inside the cache folder, which cannot go itself: by the time it is told it is there and empty.
    start();
    window().txtMozillaFileLocalDir.setText(kCacheFolder);
    const std::string offline = kCacheFolder + "\\OfflineCache";
    put({offline + "\\x", offline + "\\y"});
    machine.files.refuse(offline, platform::operation::Remove, platform::Status::Denied);
    goneWith(true, false);
    EXPECT_TRUE(machine.files.hasFolder(offline));
    EXPECT_TRUE(machine.files.everythingBelow(offline).empty());
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  name(kCache) + ": " + kCacheFolder, counts(kCache, 5), name(kCache) + " (OfflineCache): " + offline,
                  counts(name(kCache) + " (OfflineCache)", 2), name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(FirefoxCache, AsksOnceMoreWhetherTheFolderIsKnownBeforeTheOfflineCache) {
    putCaches();
    start();
    // The user takes the tick away while the cache goes.
    machine.files.before(kCacheFolder + "\\sub", 2, [this] { window().chkMozillaDir.Value = 0; });
    EXPECT_EQ(goneWith(true, false), contentsOf({"Cache", "jumplistcache", "startupCache"}));
    EXPECT_FALSE(window().chkMozillaDir.ticked());
}

TEST_F(FirefoxCache, CountsAFolderThatCannotBeMeasuredAsNothing) {
    putCaches();
    machine.files.refuse(kCacheFolder + "\\sub", platform::operation::List, platform::Status::Denied);
    goneWith(false, false);
    EXPECT_EQ(lines[1], name(kCache) + " 0 " + text(500) + " (0 Byte)");
    EXPECT_FALSE(machine.files.has(kCacheFolder + "\\a"));
}

TEST_F(FirefoxCache, TellsSizesInTheUsersLanguage) {
    machine.system.systemLocale = base::germanLocale();
    machine.files.putFileOfLength(kCacheFolder + "\\big", 123456789);
    gone(kCache);
    EXPECT_EQ(lines[1], name(kCache) + " 1 " + text(500) + " (117,7 MB)");
}

TEST_F(FirefoxCache, MovesSubfoldersWholeToTheRecycleBin) {
    putCaches();
    method(1);
    goneWith(true, false);
    EXPECT_EQ(recycled(), (Paths{kCacheFolder + "\\a", kCacheFolder + "\\b", kCacheFolder + "\\sub",
                                 folder("jumplistcache\\a"), folder("jumplistcache\\b"), folder("jumplistcache\\sub"),
                                 folder("OfflineCache\\a"), folder("OfflineCache\\b"), folder("OfflineCache\\sub"),
                                 folder("startupCache\\a"), folder("startupCache\\b"), folder("startupCache\\sub")}));
}

TEST_F(FirefoxCache, AChosenLocalFolderShowsItsBackslashTwice) {
    putCaches();
    window().txtMozillaFileLocalDir.setText(kLocalProfile + "\\");
    EXPECT_EQ(goneWith(true, false), contentsOf({"Cache", "jumplistcache", "OfflineCache", "startupCache"}));
    EXPECT_EQ(lines[3], name(kCache) + " (OfflineCache): " + kLocalProfile + "\\\\OfflineCache");
}

// --- crash reports

TEST_F(FirefoxTasks, CrashReportsNeedNoProfile) {
    put({kCrashFolder + "pending\\1.dmp", kCrashFolder + "InstallTime", kCrashFolder + "crashreporter.ini"});
    window().chkMozillaDir.Value = 0;
    EXPECT_EQ(gone(kCrashReports), (Paths{kCrashFolder + "InstallTime", kCrashFolder + "crashreporter.ini",
                                          kCrashFolder + "pending\\", kCrashFolder + "pending\\1.dmp"}));
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCrashReports) + ": " + kCrashFolder, counts(kCrashReports, 3),
                                               name(kCrashReports) + " " + text(504) + " <OK>"}));
    // With a blank in front of the dots, as the tasks of Windows have it.
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kCrashReports) + " ..."});
    expectRow(kCrashReports, 507, 9);
}

TEST_F(FirefoxTasks, CrashReportsAreNotFoundWithoutTheirFolder) {
    machine.files.take(kFirefox + "\\Crash Reports");
    EXPECT_EQ(gone(kCrashReports), Paths{});
    EXPECT_EQ(lines, missing(kCrashReports));
    expectRow(kCrashReports, 498, 10);
}

TEST_F(FirefoxTasks, CrashReportsAreListedWithTheDetails) {
    put({kCrashFolder + "InstallTime", kCrashFolder + "pending\\1.dmp"});
    start();
    options().chkMoreLogDetails.Value = 1;
    gone(kCrashReports);
    EXPECT_EQ(lines[2], kCrashFolder + "InstallTime <OK>");
    EXPECT_EQ(lines.size(), 4u);
}

// --- profiles.ini

TEST_F(FirefoxTasks, CleanTheFirstProfileAlone) {
    putProfilesFile(
        "[Profile1]\r\nPath=Profiles/abc.default\r\n[Profile0]\r\nPath=Profiles/"
        "second.default\r\n[Profile2]\r\nPath=x\r\n");
    putTargets();
    const std::string second = kFirefox + "\\Profiles\\second.default";
    for (const FileTask& task : kFileTasks) {
        EXPECT_EQ(gone(task.step), sorted(inFolder(second, task.files))) << task.step;
    }
}

namespace {

// All of a user's Firefox, and what lies in folders that a damaged path could lead to.
struct DamagedProfiles {
    // What is gone after all Firefox tasks but the crash reports, which need no profile.
    static Paths goneWith(const std::string& profilesFile, const std::string& settings = {}) {
        struct Run final : FirefoxTasks {
            void TestBody() override {}
        } program;
        program.putTargets();
        program.putCaches();
        program.put({kLocal + "\\Cache\\c", kLocal + "\\Mozilla\\Cache\\c", kLocal + "\\startupCache\\s",
                     kLocal + "\\Mozilla\\startupCache\\s", kLocal + "\\Mozilla\\FireFox\\startupCache\\s",
                     kLocal + "\\Mozilla\\FireFox\\Profiles\\Cache\\c", "C:\\Users\\Anna\\Documents\\Cache\\c",
                     "C:\\Users\\Anna\\Documents\\letter.doc", "C:\\Users\\Anna\\AppData\\Cache\\c",
                     kFirefox + "\\history.dat", kFirefox + "\\Profiles\\Cookies.sqlite", kRoaming + "\\history.dat",
                     kRoaming + "\\sessionstore.js", "C:\\Users\\Anna\\Documents\\history.dat"});
        program.putProfilesFile(profilesFile);
        for (const std::string& line : base::split(settings, "\n")) {
            if (!line.empty()) program.store({line}, "frmMozillaDir");
        }
        program.start();
        program.options().chkMozillaCache.Value = 1;
        program.options().chkMozillaINDepthCleanOfflineCache.Value = 1;
        program.options().chkMozillaINDepthCleanTestPilotErrorLogs.Value = 1;
        const Paths before = program.everything();
        for (const int step : FirefoxTasks::stepsOfTheProfile()) program.run(step);
        const Paths after = program.everything();
        EXPECT_TRUE(program.display.boxes.empty());
        EXPECT_TRUE(program.machine.warnings.empty());
        Paths difference;
        std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(difference));
        return difference;
    }
    static Paths allTargets() {
        Paths all = FirefoxTasks::contentsOf({"Cache", "jumplistcache", "OfflineCache", "startupCache"});
        for (const FileTask& task : kFileTasks) {
            for (const std::string& path : FirefoxTasks::inFolder(kProfile, task.files)) all.push_back(path);
        }
        all.push_back(kProfile + "\\TestPilotErrorLog.log");
        return FirefoxTasks::sorted(all);
    }
};

std::string withPath(const std::string& path) {
    return "[General]\r\nStartWithLastProfile=1\r\n\r\n[Profile0]\r\nName=default\r\nIsRelative=1\r\nPath=" + path +
           "\r\n";
}

}  // namespace

TEST(FirefoxProfilesFile, LeadsToTheTargetsOfTheProfileAndToNothingElse) {
    EXPECT_EQ(DamagedProfiles::goneWith(withPath("Profiles/abc.default")), DamagedProfiles::allTargets());
    EXPECT_EQ(DamagedProfiles::goneWith(withPath("Profiles\\ABC.default\\")), DamagedProfiles::allTargets());
}

TEST(FirefoxProfilesFile, LosesNothingWhenItIsEmptyOrNamesNoProfile) {
    for (const std::string& file :
         {std::string(), std::string("\r\n"), std::string("[Profile0]"), std::string("[Profile0]\r\nPath="),
          std::string("[Profile0]\r\nPath=\r\n"), std::string("[Profile0]\r\nName=default\r\n"),
          std::string("[Profile1]\r\nPath=Profiles/abc.default\r\n"), std::string("Path=Profiles/abc.default\r\n"),
          std::string("[Profile0\r\nPath=Profiles/abc.default\r\n"),
          std::string("[Profile0]\r\n;Path=Profiles/abc.default\r\n")}) {
        EXPECT_EQ(DamagedProfiles::goneWith(file), Paths{}) << file;
    }
}

TEST(FirefoxProfilesFile, LosesNothingToAPathThatLeadsElsewhere) {
    for (const char* path : {".",
                             "..",
                             "/",
                             "\\",
                             "Profiles",
                             "Profiles/",
                             "Profiles/.",
                             "Profiles/..",
                             "Profiles/abc.default/..",
                             "Profiles/abc.default/../..",
                             "../..",
                             "../../..",
                             "../../../..",
                             "..\\..\\..\\..\\Documents",
                             "../../../Documents",
                             "Profiles/../../../../../Documents",
                             "./Profiles/abc.default",
                             "Profiles/ /abc.default",
                             "Profiles/.../abc.default",
                             "C:\\Users\\Anna\\Documents",
                             "C:/Users/Anna/Documents",
                             "C:",
                             "D:\\",
                             "\\\\server\\share\\profile",
                             "\\\\?\\C:\\Users",
                             "*",
                             "Profiles/*",
                             "Profiles/abc.defaul?",
                             "Profiles/abc.default*",
                             "\"",
                             "\"Profiles\"",
                             "' '",
                             "%APPDATA%",
                             "Profiles/abc",
                             "Profiles/abc.default/x",
                             "Crash Reports",
                             "abc.default",
                             "NUL",
                             "Profiles/\x01",
                             "Profiles/abc.default\x1F/x"}) {
        EXPECT_EQ(DamagedProfiles::goneWith(withPath(path)), Paths{}) << path;
    }
}

TEST(FirefoxProfilesFile, TakesAnAbsolutePathForNoProfileAtAll) {
    EXPECT_EQ(DamagedProfiles::goneWith("[Profile0]\r\nIsRelative=0\r\nPath=" + kProfile + "\r\n"), Paths{});
    EXPECT_EQ(DamagedProfiles::goneWith("[Profile0]\r\nIsRelative=0\r\nPath=C:/Users/Anna/Documents\r\n"), Paths{});
    // The path alone counts, not what the file says of it.
    EXPECT_EQ(DamagedProfiles::goneWith("[Profile0]\r\nIsRelative=0\r\nPath=Profiles/abc.default\r\n"),
              DamagedProfiles::allTargets());
}

TEST(FirefoxProfilesFile, LosesNothingWhenItIsCutAnywhere) {
    const std::string whole = "[Profile0]\r\nIsRelative=1\r\nPath=Profiles/abc.default\r\nDefault=1\r\n";
    const std::size_t complete = whole.find("default\r\n") + 7;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        EXPECT_EQ(DamagedProfiles::goneWith(whole.substr(0, length)),
                  length < complete ? Paths{} : DamagedProfiles::allTargets())
            << length;
    }
}

TEST(FirefoxProfilesFile, LosesNothingWhenItHoldsNuls) {
    const std::string nul(1, '\0');
    for (const std::string& file :
         {withPath("Profiles/" + nul + "abc.default"), withPath(nul + "Profiles/abc.default"), withPath(nul),
          withPath("Profiles" + nul), std::string(5000, '\0'), nul + withPath("Profiles" + nul + "/abc.default")}) {
        EXPECT_EQ(DamagedProfiles::goneWith(file), Paths{});
    }
}

TEST(FirefoxProfilesFile, LosesNothingWhenItIsBinary) {
    std::string bytes;
    for (int i = 0; i < 65536; ++i) bytes += static_cast<char>((i * 7919 + i / 256 * 31) & 0xFF);
    EXPECT_EQ(DamagedProfiles::goneWith(bytes), Paths{});
    EXPECT_EQ(DamagedProfiles::goneWith("[Profile0]\r\nPath=" + bytes), Paths{});
    // As UTF-16, which the calls do not read.
    std::string wide = "\xFF\xFE";
    for (const char sign : withPath("Profiles/abc.default")) wide.append(1, sign).append(1, '\0');
    EXPECT_EQ(DamagedProfiles::goneWith(wide), Paths{});
}

TEST(FirefoxProfilesFile, MayHaveAMillionLines) {
    std::string junk;
    for (int line = 0; line < 1000000; ++line) junk += "a=" + std::to_string(line) + "\r\n";
    EXPECT_EQ(DamagedProfiles::goneWith("[Profile9]\r\n" + junk), Paths{});
    EXPECT_EQ(DamagedProfiles::goneWith(withPath("Profiles/abc.default") + junk), DamagedProfiles::allTargets());
    // Only the first mebibyte of a profile file is read.
    EXPECT_EQ(DamagedProfiles::goneWith("[Profile9]\r\n" + junk + withPath("Profiles/abc.default")), Paths{});
    std::string sections;
    for (int line = 0; line < 500000; ++line) sections += "[Profile0]\r\nPath=\r\n";
    EXPECT_EQ(DamagedProfiles::goneWith(sections + withPath("Profiles/abc.default")), Paths{});
}

TEST(FirefoxProfilesFile, APathLongerThanTheBufferLosesNothing) {
    EXPECT_EQ(DamagedProfiles::goneWith(withPath("Profiles/" + std::string(300, 'a'))), Paths{});
    EXPECT_EQ(DamagedProfiles::goneWith(withPath(std::string(253, '/') + "Profiles/abc.default")), Paths{});
    EXPECT_EQ(DamagedProfiles::goneWith(withPath(std::string(60000, '.'))), Paths{});
}

TEST(FirefoxStoredFolders, CutAtTheFirstNulLoseNothing) {
    // What the store gives back of a box that held NULs, with the search off so that it stands.
    const std::string switches = "chkMozillaDir=1\nchkMozillaDisableAutoDetect=1\n";
    const std::string root = kFirefox + "\\";
    const std::string localRoot = kLocal + "\\Mozilla\\FireFox\\";
    EXPECT_EQ(DamagedProfiles::goneWith("", switches + "txtMozillaFileDir=" + root + "\ntxtMozillaFileLocalDir=" +
                                                localRoot + "\ntxtMozillaCacheDir=" + localRoot),
              Paths{});
    for (const std::string& folder : {localRoot, localRoot + "Profiles", kLocal + "\\Mozilla", kLocal,
                                      std::string("C:\\"), std::string("C:\\Users\\Anna"), kFirefox}) {
        EXPECT_EQ(DamagedProfiles::goneWith("", switches + "txtMozillaCacheDir=" + folder), Paths{}) << folder;
    }
}

TEST(FirefoxStoredFolders, TheCacheBoxThatNamesTheProfileEmptiesNothing) {
    Paths files;
    for (const FileTask& task : kFileTasks) {
        for (const std::string& path : FirefoxTasks::inFolder(kProfile, task.files)) files.push_back(path);
    }
    EXPECT_EQ(DamagedProfiles::goneWith("", "chkMozillaDir=1\nchkMozillaDisableAutoDetect=1\ntxtMozillaFileDir=" +
                                                kProfile + "\ntxtMozillaCacheDir=" + kProfile + "\\"),
              FirefoxTasks::sorted(files));
}

}  // namespace tidvane::tests
