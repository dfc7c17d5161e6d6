// The task that empties the cache of Internet Explorer.
#include "base/date_time.h"
#include "settings/frmIEInDepthClean.h"
#include "tasks/task_fixture.h"
#include "tools/frmIECache.h"

namespace tidvane::tests {

namespace {
constexpr int kCache = 27;
const std::string kProfile = "C:\\Users\\Anna\\AppData\\";
const std::string kFiles = kProfile + "Local\\Microsoft\\Windows\\Temporary Internet Files";
// Further index folders, in the order in which they are emptied.
const std::vector<std::string> kIndexFolders{
    kProfile + "Roaming\\Microsoft\\Windows\\IECompatCache",
    kProfile + "Roaming\\Microsoft\\Windows\\IETldCache",
    kProfile + "Roaming\\Microsoft\\Windows\\PrivacIE",
    kProfile + "Roaming\\Microsoft\\Windows\\IEDownloadHistory",
    kFiles + "\\Content.IE5",
    kProfile + "Local\\Microsoft\\Internet Explorer\\DOMStore",
    kProfile + "Local\\Microsoft\\Windows\\History\\History.IE5",
};
}  // namespace

struct IECacheTask : TaskFixture {
    IECacheTask() { store({"chkIEINDepthClean=0"}, "frmIEInDepthClean"); }

    void cached(const std::string& url, std::uint32_t type = 1) {
        platform::UrlCacheEntry entry;
        entry.sourceUrlName = url;
        entry.type = type;
        entry.lastAccess = base::toFileTime({2009, 11, 3, 7, 5, 9});
        machine.browserCache.cached.push_back(entry);
    }
    tools::frmIECache& manager() {
        start();
        return program.get<tools::frmIECache>();
    }
    void useMethod(int index) { options().cboKillMethod.setListIndex(index); }

    std::string told(int entries, const std::string& size) {
        return name(kCache) + " " + std::to_string(entries) + " " + text(500) + " (" + size + ")";
    }
    std::string indexLine(bool overwritten) {
        return name(kCache) + " (Index.dat) " + text(504) + " " + text(530) + (overwritten ? "<OK>" : text(531));
    }
    std::string done() { return name(kCache) + " " + text(504) + " <OK>"; }
    std::string cookiesOff() { return name(kCache) + " (Cookies) " + text(509); }
    std::vector<std::string> deleted() { return machine.browserCache.deleteCalls; }
};

TEST_F(IECacheTask, TellsTheNumberOfEntriesWithTheSizeOfTheFolderAndEmptiesBoth) {
    cached("http://a.example/");
    cached("http://b.example/");
    machine.files.putFile(kFiles + "\\loose.htm", std::string(1000, 'x'));
    machine.files.putFile(kFiles + "\\Content.IE5\\X1\\a[1].htm", std::string(24, 'x'));
    EXPECT_EQ(run(kCache),
              (std::vector<std::string>{name(kCache) + ": " + kFiles, told(2, "1.00 KB"), done(), cookiesOff()}));
    EXPECT_TRUE(machine.files.hasFolder(kFiles));
    EXPECT_TRUE(machine.files.everythingBelow(kFiles).empty());
    EXPECT_TRUE(machine.browserCache.cached.empty());
    EXPECT_EQ(manager().lstCache.ListCount(), 0);
    EXPECT_EQ(statusOf(kCache), text(507));
    EXPECT_EQ(iconOf(kCache), 9);
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kCache) + "..."});
}

TEST_F(IECacheTask, ShowsTheNumberOfEntriesRightBehindTheWordForRunning) {
    cached("http://a.example/");
    cached("http://b.example/");
    options().txtPurgeSpeed.setText("30");
    tick(gate(kCache));
    std::vector<std::string> statuses;
    const std::int64_t slept = machine.clock.sleptMilliseconds;
    main().lstTasks.viewChanged.connect([&] {
        const forms::ListItem* row = main().lstTasks.item(name(kCache));
        statuses.push_back(row->subItem("Status") + (row->selected ? " selected" : "") + " after " +
                           std::to_string(machine.clock.sleptMilliseconds - slept));
    });
    task(kCache).worker(program, task(kCache));
    ASSERT_GE(statuses.size(), 2u);
    EXPECT_EQ(statuses[0], text(505) + "2 " + text(500) + " after 0");
    EXPECT_EQ(statuses[1], text(505) + "2 " + text(500) + " selected after 30");
}

TEST_F(IECacheTask, DeletesTheLastAddressOfTheListAndThenAllOfThem) {
    for (const char* url : {"http://a.example/", "http://b.example/?x|y", "Cookie:anna@c.example/"}) cached(url);
    run(kCache);
    // The last of the list that is no cookie first, by itself; then row by row.
    EXPECT_EQ(deleted(),
              (std::vector<std::string>{"http://b.example/?x|y", "http://a.example/", "http://b.example/?x|y"}));
    ASSERT_EQ(machine.browserCache.cached.size(), 1u);
    EXPECT_EQ(machine.browserCache.cached[0].sourceUrlName, "Cookie:anna@c.example/");
    EXPECT_EQ(manager().lstCache.ListCount(), 1);
}

TEST_F(IECacheTask, TakesTheAddressFromTheListBeforeItIsFilledAnew) {
    cached("http://old.example/");
    manager();  // the list is filled at the load of its window
    machine.browserCache.cached.clear();
    cached("http://new.example/");
    run(kCache);
    EXPECT_EQ(deleted(), (std::vector<std::string>{"http://old.example/", "http://new.example/"}));
}

TEST_F(IECacheTask, DeletesAnEmptyAddressWithAnEmptyList) {
    EXPECT_EQ(run(kCache),
              (std::vector<std::string>{name(kCache) + ": " + kFiles, told(0, "0 Byte"), done(), cookiesOff()}));
    EXPECT_EQ(deleted(), std::vector<std::string>{""});
}

TEST_F(IECacheTask, LeavesNoAddressWhereEveryEntryIsACookie) {
    cached("Cookie:anna@a.example/");
    cached("http://b.example/Cookie.htm");  // the word anywhere in it counts
    run(kCache);
    EXPECT_EQ(deleted(), std::vector<std::string>{""});
    EXPECT_EQ(machine.browserCache.cached.size(), 2u);
}

TEST_F(IECacheTask, WithTheCookiesTickedTheyGoTooAndNoLineSpeaksOfThem) {
    cached("http://a.example/");
    cached("Cookie:anna@b.example/");
    manager().chkAllCookies.Value = 1;
    EXPECT_EQ(run(kCache).back(), done());
    EXPECT_EQ(deleted(),
              (std::vector<std::string>{"Cookie:anna@b.example/", "http://a.example/", "Cookie:anna@b.example/"}));
    EXPECT_TRUE(machine.browserCache.cached.empty());
}

TEST_F(IECacheTask, EntriesThatAreNotNormalAreNeitherCountedNorDeleted) {
    cached("http://a.example/");
    cached("Visited: anna@http://a.example/", 0x200000);
    EXPECT_EQ(run(kCache)[1], told(1, "0 Byte"));
    ASSERT_EQ(machine.browserCache.cached.size(), 1u);
    EXPECT_EQ(machine.browserCache.cached[0].sourceUrlName, "Visited: anna@http://a.example/");
}

TEST_F(IECacheTask, ListsTheFilesOfTheTopLevelBeforeTheyGo) {
    options().chkMoreLogDetails.Value = 1;
    machine.files.putFile(kFiles + "\\loose.htm", "1");
    machine.files.putFile(kFiles + "\\Content.IE5\\index.dat", "1");
    EXPECT_EQ(run(kCache), (std::vector<std::string>{name(kCache) + ": " + kFiles, told(0, "2 Byte"),
                                                     kFiles + "\\loose.htm <OK>", done(), cookiesOff()}));
}

TEST_F(IECacheTask, EmptiesTheContentFolderBesidesWhereItCouldNotGoWhole) {
    machine.files.putFile(kFiles + "\\Content.IE5\\index.dat", "1");
    machine.files.putFile(kFiles + "\\Content.IE5\\X1\\a[1].htm", "1");
    machine.files.lock(kFiles + "\\Content.IE5\\index.dat");
    run(kCache);
    EXPECT_TRUE(machine.files.has(kFiles + "\\Content.IE5\\index.dat"));
    EXPECT_FALSE(machine.files.has(kFiles + "\\Content.IE5\\X1"));
    EXPECT_EQ(statusOf(kCache), text(507));
}

TEST_F(IECacheTask, IndexFilesGoUnderOverwriteWithTheirBoxTicked) {
    for (const std::string& folder : kIndexFolders) machine.files.putFile(folder + "\\index.dat", "12345");
    options().chkIEIndexDatFiles.Value = 1;
    useMethod(2);
    EXPECT_EQ(run(kCache), (std::vector<std::string>{name(kCache) + ": " + kFiles, told(0, "5 Byte"), indexLine(true),
                                                     done(), cookiesOff()}));
    std::vector<std::string> overwritten;
    for (const auto& file : machine.files.overwritten) overwritten.push_back(file.path);
    // Content.IE5 went before, with the folder of the cache, as a tree and so without being overwritten.
    std::vector<std::string> expected;
    for (const std::string& folder : kIndexFolders) {
        if (folder != kIndexFolders[4]) expected.push_back(folder + "\\index.dat");
    }
    EXPECT_EQ(overwritten, expected);
    for (const std::string& folder : kIndexFolders) EXPECT_FALSE(machine.files.has(folder + "\\index.dat")) << folder;
}

TEST_F(IECacheTask, IndexFilesStayUnderAnotherMethodAndTheLineSaysSo) {
    for (const int method : {0, 1}) {
        for (const std::string& folder : kIndexFolders) machine.files.putFile(folder + "\\index.dat", "12345");
        options().chkIEIndexDatFiles.Value = 1;
        useMethod(method);
        EXPECT_EQ(run(kCache)[2], indexLine(false)) << method;
        for (const std::string& folder : kIndexFolders) {
            EXPECT_EQ(machine.files.has(folder + "\\index.dat"), folder != kIndexFolders[4]) << folder;
        }
    }
    EXPECT_TRUE(machine.files.overwritten.empty());
}

TEST_F(IECacheTask, IndexFilesGetNoLineWithTheirBoxOffOrGreyed) {
    useMethod(2);
    for (const int value : {0, 2}) {
        machine.files.putFile(kIndexFolders[0] + "\\index.dat", "12345");
        options().chkIEIndexDatFiles.Value = value;
        EXPECT_EQ(run(kCache),
                  (std::vector<std::string>{name(kCache) + ": " + kFiles, told(0, "0 Byte"), done(), cookiesOff()}));
        EXPECT_TRUE(machine.files.has(kIndexFolders[0] + "\\index.dat"));
    }
}

TEST_F(IECacheTask, TheBrowserComesBehindTheFoldersAndTheEntries) {
    start();
    program.get<settings::frmIEInDepthClean>().chkIEINDepthClean.Value = 1;
    options().chkIEIndexDatFiles.Value = 1;
    cached("http://a.example/");
    machine.files.putFile(kFiles + "\\loose.htm", "1");
    const std::vector<std::string> begin{name(kCache) + ": " + kFiles, told(1, "1 Byte"), indexLine(false)};
    int calls = 0;
    machine.processes.onStart = [&](const std::string& commandLine) {
        ++calls;
        EXPECT_EQ(commandLine, "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8");
        EXPECT_EQ(logLines(), begin);
        EXPECT_TRUE(machine.files.everythingBelow(kFiles).empty());
        EXPECT_EQ(deleted().size(), 2u);
    };
    std::vector<std::string> all = begin;
    all.push_back(done());
    all.push_back(cookiesOff());
    EXPECT_EQ(run(kCache), all);
    EXPECT_EQ(calls, 1);
}

TEST_F(IECacheTask, AStopIsSeenBehindTheNewListAndTheStatus) {
    cached("http://old.example/");
    manager();
    cached("http://new.example/");
    machine.files.putFile(kFiles + "\\loose.htm", "1");
    main().cmdStop_Click();
    EXPECT_TRUE(run(kCache).empty());
    EXPECT_EQ(statusOf(kCache), text(506));
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kCache) + "..."});
    EXPECT_EQ(manager().lstCache.ListCount(), 2);
    EXPECT_TRUE(deleted().empty());
    EXPECT_TRUE(machine.files.has(kFiles + "\\loose.htm"));
}

TEST_F(IECacheTask, AnUntickedTaskDoesNotLoadTheManager) {
    EXPECT_EQ(run(kCache, 0), std::vector<std::string>{name(kCache) + " " + text(509)});
    EXPECT_EQ(program.windows.ifLoaded("frmIECache"), nullptr);
}

TEST_F(IECacheTask, AMissingFolderIsNoMatter) {
    machine.files.take(kFiles);
    cached("http://a.example/");
    EXPECT_EQ(run(kCache),
              (std::vector<std::string>{name(kCache) + ": " + kFiles, told(1, "0 Byte"), done(), cookiesOff()}));
    EXPECT_TRUE(machine.browserCache.cached.empty());
    EXPECT_EQ(iconOf(kCache), 9);
}

TEST_F(IECacheTask, UnknownFoldersEmptyNothing) {
    main();
    for (const int number : {26, 28, 32}) machine.shell.specialFolders.erase(number);
    machine.files.putFile("C:\\Content.IE5\\a", "1");
    machine.files.putFile("C:\\Microsoft\\Windows\\PrivacIE\\a", "1");
    options().chkIEIndexDatFiles.Value = 1;
    useMethod(2);
    EXPECT_EQ(run(kCache), (std::vector<std::string>{name(kCache) + ": ", told(0, "0 Byte"), indexLine(true), done(),
                                                     cookiesOff()}));
    EXPECT_TRUE(machine.files.has("C:\\Content.IE5\\a"));
    EXPECT_TRUE(machine.files.has("C:\\Microsoft\\Windows\\PrivacIE\\a"));
}

TEST_F(IECacheTask, ABadStoredValueOfTheManagerLeavesTheTaskRunning) {
    store({"chkAllCookies=bad"}, "frmIECache");
    cached("http://a.example/");
    cached("Cookie:anna@b.example/");
    machine.files.putFile(kFiles + "\\loose.htm", "1");
    EXPECT_EQ(run(kCache),
              (std::vector<std::string>{name(kCache) + ": " + kFiles, told(2, "1 Byte"), done(), cookiesOff()}));
    // The load of the window ended before its list was filled: no address. The new list is there all the same.
    EXPECT_EQ(deleted(), (std::vector<std::string>{"", "http://a.example/"}));
    EXPECT_FALSE(machine.files.has(kFiles + "\\loose.htm"));
}

TEST_F(IECacheTask, AnEntryThatCannotBeDeletedIsNotWaitedFor) {
    cached("http://a.example/");
    machine.browserCache.refused = {"http://a.example/"};
    EXPECT_EQ(run(kCache).size(), 4u);
    EXPECT_EQ(deleted(), (std::vector<std::string>{"http://a.example/", "http://a.example/"}));
    EXPECT_EQ(manager().lstCache.ListCount(), 1);
    EXPECT_EQ(iconOf(kCache), 9);
}

}  // namespace tidvane::tests
