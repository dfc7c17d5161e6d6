// The four Safari tasks.
#include "tasks/browser_fixture.h"

namespace tidvane::tests {

namespace {

constexpr int kHistory = 53;
constexpr int kCookies = 54;
constexpr int kCache = 55;
constexpr int kForms = 56;

const std::string kProfile = kRoaming + "\\Apple Computer\\Safari\\";
const std::string kLocalProfile = kLocal + "\\Apple Computer\\Safari\\";
const std::string kPreviews = kLocalProfile + "Webpage Previews\\";
const std::string kPages = kLocalProfile + "History\\";
const std::string kStorage = kLocalProfile + "LocalStorage\\";
const Paths kHistoryFiles{kProfile + "History.plist", kProfile + "LastSession.plist"};

const Paths kNeighbours{
    kProfile + "Bookmarks.plist",
    kProfile + "TopSites.plist",
    kProfile + "History.plist.old",
    kProfile + "History\\roaming",
    kProfile + "Webpage Previews\\roaming",
    kProfile + "LocalStorage\\roaming",
    kProfile + "Cookies\\keep.plist",
    kProfile + "Cache.db",
    kProfile + "Form Values.plist2",
    kLocalProfile + "SafeBrowsing.db",
    kLocalProfile + "Cache.db-wal",
    kLocalProfile + "Form Values.plist",
    kLocalProfile + "History.plist",
    kLocalProfile + "Cookies\\cookies.plist",
    kLocal + "\\Apple Computer\\iTunes\\Cache.db",
};

}  // namespace

struct SafariTasks : BrowserTasks {
    SafariTasks() { put(kNeighbours); }
    void putAll() {
        put(kHistoryFiles);
        put({kProfile + "Cookies\\cookies.plist", kLocalProfile + "Cache.db", kProfile + "Form Values.plist"});
        for (const std::string& folder : {kPreviews, kPages, kStorage}) put({folder + "a", folder + "sub\\b"});
    }
    static Paths contentOf(const Paths& folders) {
        Paths content;
        for (const std::string& folder : folders) {
            for (const char* below : {"a", "sub\\", "sub\\b"}) content.push_back(folder + below);
        }
        return content;
    }
    static Paths together(Paths a, const Paths& b) {
        a.insert(a.end(), b.begin(), b.end());
        return sorted(a);
    }
    settings::frmSafariDir& window() {
        start();
        return program.get<settings::frmSafariDir>();
    }
    std::string previews() { return name(kHistory) + " (Webpage Previews)"; }
};

TEST_F(SafariTasks, BeginLikeAllOthers) {
    putAll();
    options().chkSafariSavedForms.Value = 1;
    expectCommonSteps({kHistory, kCookies, kCache, kForms});
}

TEST_F(SafariTasks, WithoutALocationTheyStayAtRunning) {
    putAll();
    options().chkSafariSavedForms.Value = 1;
    expectNothingWithoutLocation<settings::frmSafariDir>({kHistory, kCookies, kCache, kForms});
}

// --- cache and form values

TEST_F(SafariTasks, CacheAndFormValuesAreOneFileEach) {
    putAll();
    options().chkSafariSavedForms.Value = 1;
    for (const auto& [step, file] :
         {std::pair{kCache, kLocalProfile + "Cache.db"}, {kForms, kProfile + "Form Values.plist"}}) {
        EXPECT_EQ(gone(step), Paths{file});
        EXPECT_EQ(lines, cleaned(step)) << step;
        EXPECT_EQ(panels, workingOn(step)) << step;
        expectRow(step, 507, 9);
        EXPECT_EQ(gone(step), Paths{});
        EXPECT_EQ(lines, missing(step)) << step;
        expectRow(step, 498, 10);
    }
}

TEST_F(SafariTasks, FormValuesRunByTheBoxOfTheCache) {
    putAll();
    tick(options().chkSafariSavedForms);
    // The row of the form values stands; the worker asks the other box.
    EXPECT_EQ(statusOf(kForms), "");
    for (const int step : {kCache, kForms}) {
        EXPECT_EQ(run(step, 0), std::vector<std::string>{name(step) + " " + text(509)}) << step;
    }
    EXPECT_EQ(statusOf(kForms), "");
    tick(options().chkSafariSavedForms, 0);
    EXPECT_EQ(gone(kForms), Paths{kProfile + "Form Values.plist"});
    EXPECT_EQ(lines, cleaned(kForms));
    EXPECT_EQ(statusOf(kForms), "(no row)");
}

TEST_F(SafariTasks, LockedFilesStayAndAreCalledCleaned) {
    putAll();
    expectLockedFilesToBeCalledCleaned(kCache, {kLocalProfile + "Cache.db"});
}

TEST_F(SafariTasks, AFolderWithoutABackslashIsJoinedWithOne) {
    put({"D:\\Safari\\Cache.db", "D:\\SafariCache.db"});
    window().txtSafariCacheDir.setText("D:\\Safari");
    run(kCache);
    EXPECT_FALSE(machine.files.has("D:\\Safari\\Cache.db"));
    EXPECT_TRUE(machine.files.has("D:\\SafariCache.db"));
}

TEST_F(SafariTasks, OneFolderForAllThreeBoxesLosesItsFilesAlone) {
    const Paths keep{"D:\\Safari\\Bookmarks.plist", "D:\\Safari\\sub\\Cache.db"};
    put(keep);
    put({"D:\\Safari\\Cache.db", "D:\\Safari\\Form Values.plist"});
    for (forms::TextBox* box : {&window().fileDir, &window().secondDir, &window().cacheDir}) {
        box->setText("D:\\Safari\\");
    }
    EXPECT_EQ(run(kCache), cleaned(kCache));
    EXPECT_EQ(run(kForms), cleaned(kForms));
    EXPECT_EQ(machine.files.everythingBelow("D:\\Safari"), sorted({keep[0], "D:\\Safari\\sub\\", keep[1]}));
    EXPECT_TRUE(display.warnings.empty());
}

// --- history

TEST_F(SafariTasks, HistoryRemovesTheFilesAndEmptiesBothFolders) {
    putAll();
    EXPECT_EQ(gone(kHistory), together(kHistoryFiles, contentOf({kPreviews, kPages})));
    EXPECT_EQ(lines, (std::vector<std::string>{previews() + ": " + kPreviews, counts(previews(), 2),
                                               name(kHistory) + ": " + kPages, counts(kHistory, 2),
                                               name(kHistory) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kHistory));
    expectRow(kHistory, 507, 9);
}

TEST_F(SafariTasks, HistoryGoesOnWithEitherFile) {
    for (const std::string& file : kHistoryFiles) {
        put({file, kPreviews + "p", kPages + "h"});
        EXPECT_EQ(gone(kHistory), sorted({file, kPreviews + "p", kPages + "h"}));
        EXPECT_EQ(lines.back(), name(kHistory) + " " + text(504) + " <OK>");
    }
}

TEST_F(SafariTasks, HistoryListsThePreviewsAlone) {
    putAll();
    options().chkMoreLogDetails.Value = 1;
    gone(kHistory);
    EXPECT_EQ(lines, (std::vector<std::string>{previews() + ": " + kPreviews, counts(previews(), 2),
                                               kPreviews + "a <OK>", name(kHistory) + ": " + kPages,
                                               counts(kHistory, 2), name(kHistory) + " " + text(504) + " <OK>"}));
}

TEST_F(SafariTasks, HistoryWithoutAFileLeavesTheFolders) {
    putAll();
    for (const std::string& file : kHistoryFiles) machine.files.take(file);
    EXPECT_EQ(gone(kHistory), Paths{});
    EXPECT_EQ(lines, notFound(kHistory));
    expectRow(kHistory, 508, 10);
}

TEST_F(SafariTasks, HistoryWithoutPreviewsEndsWithoutALineAndLeavesThePages) {
    putAll();
    machine.files.take(kLocalProfile + "Webpage Previews");
    EXPECT_EQ(gone(kHistory), sorted(kHistoryFiles));
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(panels, workingOn(kHistory));
    expectRow(kHistory, 507, 9);
}

TEST_F(SafariTasks, HistoryWithoutPagesIsNotFoundAfterAllHasGone) {
    putAll();
    machine.files.take(kLocalProfile + "History");
    EXPECT_EQ(gone(kHistory), together(kHistoryFiles, contentOf({kPreviews})));
    EXPECT_EQ(lines, (std::vector<std::string>{previews() + ": " + kPreviews, counts(previews(), 2),
                                               name(kHistory) + " " + text(499)}));
    expectRow(kHistory, 508, 10);
}

TEST_F(SafariTasks, HistoryMeasuresBothFoldersBeforeItLooksForEither) {
    putAll();
    start();
    // The first operation on the previews is their measuring. What comes in behind it goes and is not counted.
    bool came = false;
    machine.files.before(kLocalProfile + "Webpage Previews", 2, [&] {
        came = true;
        put({kPreviews + "late", kPages + "late"});
    });
    run(kHistory);
    EXPECT_TRUE(came);
    EXPECT_EQ(logLines(), (std::vector<std::string>{previews() + ": " + kPreviews, counts(previews(), 2),
                                                    name(kHistory) + ": " + kPages, counts(kHistory, 2),
                                                    name(kHistory) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.everythingBelow(kPages).empty());
}

TEST_F(SafariTasks, HistoryRemovesInItsOrder) {
    putAll();
    method(1);
    run(kHistory);
    EXPECT_EQ(recycled(), (Paths{kHistoryFiles[0], kHistoryFiles[1], kPreviews + "a", kPreviews + "sub", kPages + "a",
                                 kPages + "sub"}));
}

// --- cookies

TEST_F(SafariTasks, CookiesEmptyTheStorageAndRemoveTheFile) {
    putAll();
    EXPECT_EQ(gone(kCookies), together(contentOf({kStorage}), {kProfile + "Cookies\\cookies.plist"}));
    EXPECT_EQ(lines,
              (std::vector<std::string>{name(kCookies) + ": " + kStorage, counts("Safari Local Storage (Cookies)", 2),
                                        name(kCookies) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(panels, workingOn(kCookies));
    expectRow(kCookies, 507, 9);
}

TEST_F(SafariTasks, CookiesListTheFilesOfTheStorage) {
    putAll();
    options().chkMoreLogDetails.Value = 1;
    gone(kCookies);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], kStorage + "a <OK>");
}

TEST_F(SafariTasks, CookiesWithoutTheFileAreNotFoundThoughTheStorageWasEmptied) {
    put({kStorage + "a"});
    EXPECT_EQ(gone(kCookies), Paths{kStorage + "a"});
    EXPECT_EQ(lines,
              (std::vector<std::string>{name(kCookies) + ": " + kStorage, counts("Safari Local Storage (Cookies)", 1),
                                        name(kCookies) + " " + text(499)}));
    expectRow(kCookies, 508, 10);
}

TEST_F(SafariTasks, CookiesWithTheFileAloneAreCleaned) {
    put({kProfile + "Cookies\\cookies.plist"});
    EXPECT_EQ(gone(kCookies), Paths{kProfile + "Cookies\\cookies.plist"});
    EXPECT_EQ(lines, cleaned(kCookies));
    expectRow(kCookies, 507, 9);
}

TEST_F(SafariTasks, CookiesWithNothingAtAllAreNotFound) {
    EXPECT_EQ(gone(kCookies), Paths{});
    EXPECT_EQ(lines, notFound(kCookies));
    expectRow(kCookies, 508, 10);
}

TEST_F(SafariTasks, CookiesShowNotFoundForAMomentWithoutAStorage) {
    put({kProfile + "Cookies\\cookies.plist"});
    tick(gate(kCookies));
    std::vector<std::string> seen;
    main().lstTasks.viewChanged.connect([&] {
        const std::string now = statusOf(kCookies) + " " + std::to_string(iconOf(kCookies));
        if (seen.empty() || seen.back() != now) seen.push_back(now);
    });
    run(kCookies);
    EXPECT_NE(std::find(seen.begin(), seen.end(), text(508) + " 10"), seen.end());
    EXPECT_EQ(seen.back(), text(507) + " 9");
}

}  // namespace tidvane::tests
