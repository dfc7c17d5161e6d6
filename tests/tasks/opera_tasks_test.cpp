// The six Opera tasks.
#include "tasks/browser_fixture.h"

namespace tidvane::tests {

namespace {

constexpr int kHistory = 42;
constexpr int kCookies = 43;
constexpr int kCache = 44;
constexpr int kTyped = 45;
constexpr int kDownloads = 46;
constexpr int kIcons = 47;

const std::string kProfile = kRoaming + "\\Opera\\Opera\\";
const std::string kLocalProfile = kLocal + "\\Opera\\Opera\\";
const std::string kWidgets = kRoaming + "\\Opera\\Opera Widget Installer\\";
const std::string kLocalWidgets = kLocal + "\\Opera\\Opera Widget Installer\\";
const std::string kCacheFolder = kLocalProfile + "cache\\";

// In the order of removal; "sessions" is a folder.
const Paths kHistoryFiles{
    kProfile + "global.dat",
    kProfile + "opera.dir",
    kProfile + "global_history.dat",
    kProfile + "sessions\\autosave.win",
    kProfile + "sessions\\autosave.win.bak",
    kProfile + "vlink4.dat",
    kProfile + "typed_history.xml",
    kProfile + "search_field_history.dat",
    kWidgets + "global_history.dat",
    kWidgets + "vlink4.dat",
    kWidgets + "typed_history.xml",
    kLocalWidgets + "vps\\0000\\md.dat",
    kLocalProfile + "vps\\0000\\md.dat",
};
const Paths kCookieFiles{
    kProfile + "cookies4.dat",
    kWidgets + "cookies4.dat",
    kProfile + "pstorage\\psindex.dat",
};
const Paths kTypedFiles{kProfile + "vlink4.dat", kProfile + "typed_history.xml"};

const Paths kNeighbours{
    kProfile + "bookmarks.adr",
    kProfile + "notes.adr",
    kProfile + "wand.dat",
    kProfile + "operaprefs.ini",
    kProfile + "autosave.win",
    kProfile + "cookies.dat",
    kProfile + "xglobal.dat",
    kProfile + "global.dat.bak",
    kProfile + "download.dat2",
    kProfile + "sessions\\mine.win",
    kProfile + "pstorage\\00\\keep",
    kProfile + "cache\\roaming",
    kProfile + "vps\\roaming",
    kProfile + "icons\\roaming",
    kWidgets + "widgets.dat",
    kWidgets + "pstorage\\psindex.dat",
    kWidgets + "cache\\roaming",
    kLocalProfile + "mail\\1.mbs",
    kLocalProfile + "application_cache\\keep",
    kLocalProfile + "cookies4.dat",
    kLocalProfile + "global.dat",
    kLocalWidgets + "thumbnails\\keep",
    kLocal + "\\Opera\\Opera 9\\cache\\keep",
    kRoaming + "\\Opera\\keep",
};

}  // namespace

struct OperaTasks : BrowserTasks {
    OperaTasks() {
        put(kNeighbours);
        machine.files.putFolder(kCacheFolder);
    }
    void putAll() {
        put(kHistoryFiles);
        put(kCookieFiles);
        put({kProfile + "download.dat"});
        for (const std::string& folder : folders()) put({folder + "a", folder + "sub\\b"});
    }
    // All that are emptied by some task.
    static Paths folders() {
        return {kCacheFolder,
                kLocalProfile + "vps\\",
                kLocalWidgets + "vps\\",
                kLocalProfile + "pstorage\\",
                kLocalProfile + "temporary_downloads\\",
                kLocalProfile + "opcache\\",
                kLocalProfile + "thumbnails\\",
                kLocalProfile + "icons\\",
                kLocalWidgets + "opcache\\",
                kLocalWidgets + "cache\\",
                kLocalWidgets + "icons\\"};
    }
    static Paths contentOf(const Paths& emptied) {
        Paths content;
        for (const std::string& folder : emptied) {
            for (const char* below : {"a", "sub\\", "sub\\b"}) content.push_back(folder + below);
        }
        return content;
    }
    static Paths together(Paths a, const Paths& b) {
        a.insert(a.end(), b.begin(), b.end());
        return sorted(a);
    }
    settings::frmOperaDir& window() {
        start();
        return program.get<settings::frmOperaDir>();
    }
    // The event of the gate unticks the box for more, so it comes behind.
    Paths goneWith(bool more) {
        tick(gate(kCache));
        options().chkOperaINDepthClean.Value = more ? 1 : 0;
        return gone(kCache);
    }
};

TEST_F(OperaTasks, HistoryRemovesItsFilesAndEmptiesTheVisitedPages) {
    putAll();
    const Paths emptied{kLocalProfile + "vps\\", kLocalWidgets + "vps\\"};
    EXPECT_EQ(gone(kHistory), together(together(kHistoryFiles, contentOf(emptied)),
                                       {kLocalProfile + "vps\\0000\\", kLocalWidgets + "vps\\0000\\"}));
    EXPECT_EQ(lines, cleaned(kHistory));
    EXPECT_EQ(panels, workingOn(kHistory));
    expectRow(kHistory, 507, 9);
}

TEST_F(OperaTasks, CookiesRemoveTheirFilesAndEmptyTheLocalStorage) {
    putAll();
    EXPECT_EQ(gone(kCookies), together(kCookieFiles, contentOf({kLocalProfile + "pstorage\\"})));
    EXPECT_EQ(lines, cleaned(kCookies));
    EXPECT_EQ(panels, workingOn(kCookies));
    expectRow(kCookies, 507, 9);
}

TEST_F(OperaTasks, TypedAddressesAreTwoOfTheHistorysFiles) {
    putAll();
    EXPECT_EQ(gone(kTyped), sorted(kTypedFiles));
    EXPECT_EQ(lines, cleaned(kTyped));
    EXPECT_EQ(panels, workingOn(kTyped));
    expectRow(kTyped, 507, 9);
}

TEST_F(OperaTasks, DownloadListIsOneFile) {
    putAll();
    EXPECT_EQ(gone(kDownloads), Paths{kProfile + "download.dat"});
    EXPECT_EQ(lines, cleaned(kDownloads));
    EXPECT_EQ(panels, workingOn(kDownloads));
    expectRow(kDownloads, 507, 9);
    EXPECT_EQ(gone(kDownloads), Paths{});
    EXPECT_EQ(lines, notFound(kDownloads));
    expectRow(kDownloads, 508, 10);
}

TEST_F(OperaTasks, ThreeOfThemReportSuccessOnNothing) {
    for (const int step : {kHistory, kCookies, kTyped}) {
        EXPECT_EQ(gone(step), Paths{}) << step;
        EXPECT_EQ(lines, cleaned(step)) << step;
        expectRow(step, 507, 9);
    }
    EXPECT_TRUE(machine.warnings.empty());
}

TEST_F(OperaTasks, EachFileOfTheHistoryAndTheCookiesGoesAlone) {
    for (const auto& [step, files] :
         {std::pair{kHistory, kHistoryFiles}, {kCookies, kCookieFiles}, {kTyped, kTypedFiles}}) {
        for (const std::string& file : files) {
            put({file});
            gone(step);
            EXPECT_FALSE(machine.files.has(file)) << file;
            EXPECT_EQ(lines, cleaned(step)) << file;
        }
    }
}

TEST_F(OperaTasks, BeginLikeAllOthers) {
    putAll();
    expectCommonSteps({kHistory, kCookies, kCache, kTyped, kDownloads, kIcons});
}

TEST_F(OperaTasks, WithoutALocationTheyStayAtRunning) {
    putAll();
    expectNothingWithoutLocation<settings::frmOperaDir>({kHistory, kCookies, kCache, kTyped, kDownloads, kIcons});
}

TEST_F(OperaTasks, TheFolderOfSessionsStaysUnderTwoMethodsAndIsMovedWholeByTheRecycleBin) {
    for (const int row : {0, 2}) {
        put({kProfile + "sessions\\autosave.win"});
        method(row);
        gone(kHistory);
        EXPECT_TRUE(machine.files.has(kProfile + "sessions\\mine.win")) << row;
        EXPECT_FALSE(machine.files.has(kProfile + "sessions\\autosave.win")) << row;
    }
    put({kProfile + "sessions\\autosave.win"});
    method(1);
    EXPECT_EQ(gone(kHistory),
              (Paths{kProfile + "sessions\\", kProfile + "sessions\\autosave.win", kProfile + "sessions\\mine.win"}));
    EXPECT_EQ(recycled(), Paths{kProfile + "sessions"});
    EXPECT_EQ(lines, cleaned(kHistory));
}

TEST_F(OperaTasks, RemoveInTheirOrder) {
    putAll();
    machine.files.take(kProfile + "sessions");
    method(1);
    Paths expected;
    for (const std::string& file : kHistoryFiles) {
        if (file.find("sessions") == std::string::npos) expected.push_back(file);
    }
    for (const char* rest : {"a", "0000", "sub"}) expected.push_back(kLocalWidgets + "vps\\" + rest);
    for (const char* rest : {"a", "0000", "sub"}) expected.push_back(kLocalProfile + "vps\\" + rest);
    run(kHistory);
    EXPECT_EQ(recycled(), expected);

    machine.shell.recycled.clear();
    expected = kCookieFiles;
    expected.push_back(kLocalProfile + "pstorage\\a");
    expected.push_back(kLocalProfile + "pstorage\\sub");
    run(kCookies);
    EXPECT_EQ(recycled(), expected);
}

TEST_F(OperaTasks, LockedFilesStayAndAreCalledCleaned) {
    put(kTypedFiles);
    expectLockedFilesToBeCalledCleaned(kTyped, kTypedFiles);
    put({kProfile + "download.dat"});
    expectLockedFilesToBeCalledCleaned(kDownloads, {kProfile + "download.dat"});
}

TEST_F(OperaTasks, WithTheLocalFolderAloneTheProfilesFilesAreNotLookedForElsewhere) {
    machine.files.take(kRoaming + "\\Opera");
    putAll();
    machine.files.take(kRoaming + "\\Opera\\Opera");
    put({"C:\\global.dat", "C:\\sessions\\autosave.win", kWidgets + "vlink4.dat"});
    const Paths removed = gone(kHistory);
    EXPECT_NE(std::find(removed.begin(), removed.end(), kWidgets + "vlink4.dat"), removed.end());
    EXPECT_EQ(lines, cleaned(kHistory));
    EXPECT_TRUE(machine.files.has("C:\\global.dat"));
    EXPECT_TRUE(machine.files.has("C:\\sessions\\autosave.win"));
    EXPECT_TRUE(machine.warnings.empty());
    EXPECT_EQ(display.warnings,
              std::vector<std::string>{
                  "\"\" in txtOperaFileDir is no folder of a profile of Opera; nothing is cleaned there."});
}

TEST_F(OperaTasks, AFolderWithoutABackslashIsJoinedWithOne) {
    put({"D:\\Opera\\global.dat", "D:\\Operaglobal.dat"});
    window().txtOperaFileDir.setText("D:\\Opera");
    run(kHistory);
    EXPECT_FALSE(machine.files.has("D:\\Opera\\global.dat"));
    EXPECT_TRUE(machine.files.has("D:\\Operaglobal.dat"));
}

// --- the cache

TEST_F(OperaTasks, CacheEmptiesItsFolderAndFourMore) {
    putAll();
    const Paths emptied{kCacheFolder, kLocalWidgets + "opcache\\", kLocalWidgets + "cache\\",
                        kLocalProfile + "temporary_downloads\\", kLocalProfile + "opcache\\"};
    EXPECT_EQ(goneWith(false), sorted(contentOf(emptied)));
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 2),
                                               name(kCache) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kCache));
    expectRow(kCache, 507, 9);
}

TEST_F(OperaTasks, CacheEmptiesInItsOrder) {
    putAll();
    method(1);
    goneWith(true);
    EXPECT_EQ(
        recycled(),
        (Paths{kCacheFolder + "a", kCacheFolder + "sub", kLocalWidgets + "opcache\\a", kLocalWidgets + "opcache\\sub",
               kLocalWidgets + "cache\\a", kLocalWidgets + "cache\\sub", kLocalProfile + "temporary_downloads\\a",
               kLocalProfile + "temporary_downloads\\sub", kLocalProfile + "opcache\\a", kLocalProfile + "opcache\\sub",
               kLocalProfile + "thumbnails\\a", kLocalProfile + "thumbnails\\sub"}));
}

TEST_F(OperaTasks, CacheTakesTheThumbnailsWithTheBoxForMore) {
    put({kCacheFolder + "a", kLocalProfile + "thumbnails\\t.png"});
    EXPECT_EQ(goneWith(true), (Paths{kCacheFolder + "a", kLocalProfile + "thumbnails\\t.png"}));
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 1),
                                               inDepth(kCache, "Thumbnails SpeedDial"),
                                               name(kCache) + " " + text(504) + " <OK>"}));
    machine.files.take(kLocalProfile + "thumbnails");
    goneWith(true);
    EXPECT_EQ(lines.size(), 3u);
}

TEST_F(OperaTasks, CacheListsItsFilesWithTheDetails) {
    put({kCacheFolder + "a", kCacheFolder + "sub\\b", kLocalProfile + "opcache\\x"});
    start();
    options().chkMoreLogDetails.Value = 1;
    goneWith(false);
    EXPECT_EQ(lines, (std::vector<std::string>{name(kCache) + ": " + kCacheFolder, counts(kCache, 2),
                                               kCacheFolder + "a <OK>", name(kCache) + " " + text(504) + " <OK>"}));
}

TEST_F(OperaTasks, CacheIsNotFoundWithoutItsFolderAndLeavesTheOthers) {
    putAll();
    machine.files.take(kLocalProfile + "cache");
    EXPECT_EQ(goneWith(true), Paths{});
    EXPECT_EQ(lines, missing(kCache));
    EXPECT_EQ(panels, workingOn(kCache));
    expectRow(kCache, 498, 10);
}

TEST_F(OperaTasks, CacheRefusesTheFolderOfTheProfile) {
    putAll();
    window();
    for (const std::string& folder : {kLocalProfile, kProfile, kLocal + "\\Opera", kLocal, std::string("C:\\")}) {
        window().txtOperaCacheDir.setText(folder);
        EXPECT_EQ(gone(kCache), Paths{}) << folder;
        EXPECT_EQ(lines, missing(kCache)) << folder;
    }
}

// --- icons

TEST_F(OperaTasks, IconsAreTwoFolders) {
    putAll();
    EXPECT_EQ(gone(kIcons), sorted(contentOf({kLocalProfile + "icons\\", kLocalWidgets + "icons\\"})));
    EXPECT_EQ(lines, (std::vector<std::string>{name(kIcons) + ": " + kLocalProfile + "icons\\", counts(kIcons, 2),
                                               name(kIcons) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kIcons));
    expectRow(kIcons, 507, 9);
}

TEST_F(OperaTasks, IconsAreNotFoundWithoutTheFirstFolder) {
    put({kLocalWidgets + "icons\\a"});
    EXPECT_EQ(gone(kIcons), Paths{});
    EXPECT_EQ(lines, missing(kIcons));
    expectRow(kIcons, 498, 10);
}

TEST_F(OperaTasks, IconsAreListedWithTheDetails) {
    put({kLocalProfile + "icons\\a.png", kLocalWidgets + "icons\\b.png"});
    start();
    options().chkMoreLogDetails.Value = 1;
    gone(kIcons);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], kLocalProfile + "icons\\a.png <OK>");
}

}  // namespace tidvane::tests
