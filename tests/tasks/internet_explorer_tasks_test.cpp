// The tasks of Internet Explorer but for its cache, and the step that clears everything at once.
#include "tasks/internet_explorer_tasks.h"
#include "settings/frmIEInDepthClean.h"
#include "tasks/task_fixture.h"

namespace tidvane::tests {

namespace {
constexpr int kEverything = 24;
constexpr int kHistory = 25;
constexpr int kCookies = 26;
constexpr int kTypedAddresses = 28;
constexpr int kAutoComplete = 29;
constexpr int kToolbarButton = 32;
const std::string kCookieFolder = "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Windows\\Cookies";
const std::string kExplorer = "Software\\Microsoft\\Internet Explorer\\";
const std::string kButton = "Machine\\" + kExplorer + "Extensions\\{c95fe080-8f5d-11d2-a20b-00aa003c157a}";
const std::string kAllTracks = "RunDll32.exe inetcpl.cpl, ClearMyTracksByProcess 4351";

std::string tracks(int number) {
    return "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess " + std::to_string(number);
}
}  // namespace

struct IETasks : TaskFixture {
    settings::frmIEInDepthClean& inDepth() {
        start();
        return program.get<settings::frmIEInDepthClean>();
    }
    void withoutBrowser() { inDepth().chkIEINDepthClean.Value = 0; }
    void useMethod(int index) { options().cboKillMethod.setListIndex(index); }

    std::vector<std::string> commands() {
        std::vector<std::string> lines;
        for (const auto& process : machine.processes.started) lines.push_back(process->commandLine);
        return lines;
    }
    std::string counts(int step, int files, const std::string& size) {
        return name(step) + " " + std::to_string(files) + " " + text(500) + " (" + size + ")";
    }
    std::string indexLine(const std::string& size, bool overwritten) {
        return "Index.dat " + text(500) + " (" + size + ") " + text(530) + (overwritten ? "<OK>" : text(531));
    }
};

// --- what all of them share

TEST_F(IETasks, UntickedOnesTellItAndAskNothingOfTheBrowser) {
    for (int step = kHistory; step <= kToolbarButton; ++step) {
        for (const int value : {0, 2}) {
            EXPECT_EQ(run(step, value), std::vector<std::string>{name(step) + " " + text(509)}) << step;
            EXPECT_EQ(panels, (std::vector<std::string>{name(step) + " " + text(509), text(507)})) << step;
        }
    }
    EXPECT_TRUE(commands().empty());
    EXPECT_EQ(machine.browserCache.historyCleared, 0u);
    EXPECT_TRUE(machine.browserCache.deleteCalls.empty());
}

TEST_F(IETasks, AStopEndsThemBeforeTheyBegin) {
    machine.files.putFile(kCookieFolder + "\\anna@a[1].txt", "1");
    putKey(kExplorer + "TypedURLs");
    putKey(kExplorer + "IntelliForms");
    start();
    main().cmdStop_Click();
    for (int step = kHistory; step <= kToolbarButton; ++step) {
        EXPECT_TRUE(run(step).empty()) << step;
        EXPECT_EQ(statusOf(step), text(506)) << step;
        EXPECT_EQ(iconOf(step), 3) << step;
        EXPECT_TRUE(main().lstTasks.item(name(step))->selected) << step;
    }
    EXPECT_TRUE(commands().empty());
    EXPECT_TRUE(machine.browserCache.deleteCalls.empty());
    EXPECT_EQ(machine.browserCache.historyCleared, 0u);
    EXPECT_TRUE(machine.files.has(kCookieFolder + "\\anna@a[1].txt"));
    EXPECT_TRUE(hasKey(kExplorer + "TypedURLs"));
    EXPECT_TRUE(hasKey(kExplorer + "IntelliForms"));
}

TEST_F(IETasks, OnlyFourOfThemCallTheBrowserEachWithItsNumber) {
    const std::map<int, int> numbers{{25, 1}, {26, 2}, {27, 8}, {29, 16}};
    for (int step = kHistory; step <= kToolbarButton; ++step) {
        machine.processes.started.clear();
        run(step);
        const auto number = numbers.find(step);
        EXPECT_EQ(commands(), number == numbers.end() ? std::vector<std::string>{}
                                                      : std::vector<std::string>{tracks(number->second)})
            << step;
        // The window style is -1, of which the absolute value counts.
        for (const auto& process : machine.processes.started) EXPECT_EQ(process->show, 1) << step;
    }
}

TEST_F(IETasks, NoneOfThemCallsTheBrowserWithTheBoxOffOrGreyed) {
    for (const int value : {0, 2}) {
        inDepth().chkIEINDepthClean.Value = value;
        for (int step = kHistory; step <= kToolbarButton; ++step) run(step);
    }
    EXPECT_TRUE(commands().empty());
}

TEST_F(IETasks, EventsGetInWhileTheBrowserCleansAndAStopThenComesTooLate) {
    machine.processes.endsAfterWaits = 5;
    main();
    const std::uint64_t pumps = machine.events.pumps;
    machine.events.onPump(2, [this] { main().cmdStop_Click(); });
    EXPECT_EQ(run(kHistory), (std::vector<std::string>{"***** " + text(554) + " *****", cleaned(kHistory).front()}));
    EXPECT_EQ(machine.events.pumps, pumps + 5);
    EXPECT_TRUE(main().StopRequested());
    EXPECT_EQ(machine.browserCache.historyCleared, 1u);
    EXPECT_EQ(statusOf(kHistory), text(507));
}

TEST_F(IETasks, ACleanerThatCannotBeStartedIsToldInABoxAndTheTaskGoesOn) {
    machine.processes.failToStart = true;
    machine.files.putFile(kCookieFolder + "\\anna@a[1].txt", "1");
    EXPECT_EQ(run(kCookies).back(), cleaned(kCookies).front());
    EXPECT_EQ(statusOf(kCookies), text(507));
    ASSERT_EQ(display.boxes.size(), 1u);
    EXPECT_EQ(display.boxes[0].style, 48);
}

TEST_F(IETasks, ABadStoredValueOfTheInDepthWindowLeavesItAsDesigned) {
    store({"chkIEINDepthClean=bad"}, "frmIEInDepthClean");
    EXPECT_EQ(run(kHistory), cleaned(kHistory));
    EXPECT_EQ(commands(), std::vector<std::string>{tracks(1)});
}

// --- everything at once

TEST_F(IETasks, EverythingAtOnceIsSilentWhenItIsOff) {
    for (const int value : {0, 2}) {
        EXPECT_TRUE(run(kEverything, value).empty());
        EXPECT_TRUE(panels.empty());
    }
    EXPECT_TRUE(commands().empty());
}

TEST_F(IETasks, EverythingAtOnceIsSilentAfterAStop) {
    start();
    main().cmdStop_Click();
    EXPECT_TRUE(run(kEverything).empty());
    EXPECT_TRUE(panels.empty());
    EXPECT_TRUE(commands().empty());
}

TEST_F(IETasks, EverythingAtOnceTellsItsBeginCallsTheBrowserAndTellsItsEnd) {
    std::vector<std::string> before;
    machine.processes.onStart = [&](const std::string&) { before = logLines(); };
    const std::vector<std::string> begin{text(231) + " " + text(510), text(232) + "..."};
    std::vector<std::string> all = begin;
    all.push_back(text(233) + " <OK>");
    EXPECT_EQ(run(kEverything), all);
    EXPECT_EQ(before, begin);
    EXPECT_EQ(panels, std::vector<std::string>{text(232) + "..."});
    EXPECT_EQ(commands(), std::vector<std::string>{kAllTracks});
    EXPECT_EQ(machine.processes.started[0]->show, 1);
    EXPECT_EQ(main().lstTasks.Count(), 0);  // it has no row
}

TEST_F(IETasks, EverythingAtOnceClaimsItsEndAlsoWhereNothingCouldBeStarted) {
    machine.processes.failToStart = true;
    EXPECT_EQ(run(kEverything).back(), text(233) + " <OK>");
    EXPECT_EQ(display.boxes.size(), 1u);
}

TEST_F(IETasks, BehindEverythingAtOnceTheTasksStillRunButWithoutTheirOwnCalls) {
    putKey(kExplorer + "TypedURLs");
    tick(options().chkIEHistory);
    tick(options().chkIECookies);
    tick(options().chkIEURL);
    inDepth().chkIEINDepthCleanAll.Value = 1;
    clean();
    EXPECT_EQ(commands(), std::vector<std::string>{kAllTracks});
    EXPECT_EQ(machine.browserCache.historyCleared, 1u);
    EXPECT_FALSE(hasKey(kExplorer + "TypedURLs"));
    const std::vector<std::string> lines = logFrom(text(231));
    ASSERT_GE(lines.size(), 4u);
    EXPECT_EQ(lines[2], text(233) + " <OK>");
    EXPECT_EQ(lines[3], name(kHistory) + " " + text(504) + " <OK>");
}

// --- history

TEST_F(IETasks, TheHistoryIsClearedByTheBrowserAndThenThroughItsInterface) {
    unsigned clearedBefore = 99;
    machine.processes.onStart = [&](const std::string&) { clearedBefore = machine.browserCache.historyCleared; };
    EXPECT_EQ(run(kHistory), cleaned(kHistory));
    EXPECT_EQ(clearedBefore, 0u);
    EXPECT_EQ(machine.browserCache.historyCleared, 1u);
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kHistory) + " ..."});
    EXPECT_EQ(statusOf(kHistory), text(507));
    EXPECT_EQ(iconOf(kHistory), 9);
}

TEST_F(IETasks, TheHistoryIsCalledClearedWithoutABrowserToo) {
    withoutBrowser();
    machine.browserCache.hasHistoryObject = false;
    EXPECT_EQ(run(kHistory), cleaned(kHistory));
    EXPECT_TRUE(commands().empty());
    EXPECT_EQ(statusOf(kHistory), text(507));
    EXPECT_EQ(iconOf(kHistory), 9);
}

// --- cookies

TEST_F(IETasks, CookiesAreToldCountedAndEmptied) {
    withoutBrowser();
    machine.files.putFile(kCookieFolder + "\\anna@a[1].txt", std::string(1000, 'x'));
    machine.files.putFile(kCookieFolder + "\\Low\\anna@b[1].txt", std::string(24, 'x'));
    EXPECT_EQ(run(kCookies),
              (std::vector<std::string>{name(kCookies) + ": " + kCookieFolder, counts(kCookies, 2, "1.00 KB"),
                                        indexLine("1.00 KB", false), name(kCookies) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.hasFolder(kCookieFolder));
    EXPECT_TRUE(machine.files.everythingBelow(kCookieFolder).empty());
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kCookies) + " ..."});
    EXPECT_EQ(statusOf(kCookies), text(507));
    EXPECT_EQ(iconOf(kCookies), 9);
}

TEST_F(IETasks, TheIndexLineOfCookiesSaysDoneUnderOverwriteAlone) {
    for (int method = 0; method < 3; ++method) {
        machine.files.putFile(kCookieFolder + "\\index.dat", std::string(4096, 'x'));
        useMethod(method);
        const std::vector<std::string> lines = run(kCookies);
        ASSERT_EQ(lines.size(), 4u);
        EXPECT_EQ(lines[2], indexLine("4.00 KB", method == 2)) << method;
        EXPECT_FALSE(machine.files.has(kCookieFolder + "\\index.dat")) << method;
    }
    EXPECT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_EQ(machine.files.overwritten.size(), 1u);
}

TEST_F(IETasks, TheIndexLineOfCookiesComesWithoutAnIndexAndWithoutAFolder) {
    withoutBrowser();
    machine.files.take(kCookieFolder);
    EXPECT_EQ(run(kCookies),
              (std::vector<std::string>{name(kCookies) + ": " + kCookieFolder, counts(kCookies, 0, "0 Byte"),
                                        indexLine("0 Byte", false), name(kCookies) + " " + text(504) + " <OK>"}));
    EXPECT_EQ(statusOf(kCookies), text(507));
    EXPECT_EQ(iconOf(kCookies), 9);
}

TEST_F(IETasks, AnUnknownCookieFolderEmptiesNothing) {
    machine.shell.specialFolders.erase(33);
    machine.files.putFile("C:\\a.txt", "1");
    options().chkMoreLogDetails.Value = 1;
    useMethod(2);
    EXPECT_EQ(run(kCookies),
              (std::vector<std::string>{name(kCookies) + ": ", counts(kCookies, 0, "0 Byte"), indexLine("0 Byte", true),
                                        name(kCookies) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.has("C:\\a.txt"));
}

TEST_F(IETasks, AnUnreadableMethodLeavesTheCookiesAndCallsThemCleared) {
    machine.files.putFile(kCookieFolder + "\\anna@a[1].txt", "1");
    start();
    program.LangText.set(732, "a word of another language");
    EXPECT_EQ(run(kCookies),
              (std::vector<std::string>{name(kCookies) + ": " + kCookieFolder, counts(kCookies, 1, "1 Byte"),
                                        indexLine("1 Byte", false), name(kCookies) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.has(kCookieFolder + "\\anna@a[1].txt"));
}

TEST_F(IETasks, CookiesListTheirFilesBehindTheIndexLineAndTheBrowserComesLast) {
    options().chkMoreLogDetails.Value = 1;
    machine.files.putFile(kCookieFolder + "\\anna@a[1].txt", "1");
    machine.files.putFile(kCookieFolder + "\\Low\\anna@b[1].txt", "1");
    const std::vector<std::string> begin{name(kCookies) + ": " + kCookieFolder, counts(kCookies, 2, "2 Byte"),
                                         indexLine("2 Byte", false), kCookieFolder + "\\anna@a[1].txt <OK>"};
    machine.processes.onStart = [&](const std::string&) {
        EXPECT_EQ(logLines(), begin);
        EXPECT_TRUE(machine.files.everythingBelow(kCookieFolder).empty());
    };
    std::vector<std::string> all = begin;
    all.push_back(name(kCookies) + " " + text(504) + " <OK>");
    EXPECT_EQ(run(kCookies), all);
    EXPECT_EQ(commands(), std::vector<std::string>{tracks(2)});
}

TEST_F(IETasks, ALockedCookieStaysAndTheTaskCallsItCleared) {
    machine.files.putFile(kCookieFolder + "\\anna@a[1].txt", "1");
    machine.files.putFile(kCookieFolder + "\\anna@b[1].txt", "1");
    machine.files.lock(kCookieFolder + "\\anna@a[1].txt");
    EXPECT_EQ(run(kCookies).back(), cleaned(kCookies).front());
    EXPECT_EQ(machine.files.everythingBelow(kCookieFolder),
              std::vector<std::string>{kCookieFolder + "\\anna@a[1].txt"});
    EXPECT_EQ(iconOf(kCookies), 9);
}

// --- registry

TEST_F(IETasks, HaveTheKeysOfTheirRows) {
    std::vector<std::string> rows;
    for (const tasks::RegistryTarget& target : tasks::ieRegistryTargets()) {
        rows.push_back(std::to_string(target.step) +
                       (target.root == platform::HKEY_LOCAL_MACHINE_
                            ? " HKLM "
                            : (target.root == platform::HKEY_CURRENT_USER_ ? " HKCU " : " ?? ")) +
                       target.key + " " + target.subKey);
    }
    EXPECT_EQ(rows,
              (std::vector<std::string>{
                  "28 HKCU Software\\Microsoft\\Internet Explorer\\TypedURLs ",
                  "29 HKCU Software\\Microsoft\\Internet Explorer\\IntelliForms\\ ",
                  "32 HKLM Software\\Microsoft\\Internet Explorer\\Extensions\\ {c95fe080-8f5d-11d2-a20b-00aa003c157a}",
              }));
}

TEST_F(IETasks, TypedAddressesAndFormEntriesLoseTheirKeyAndNoOther) {
    for (const auto& [step, key] :
         std::map<int, std::string>{{kTypedAddresses, "TypedURLs"}, {kAutoComplete, "IntelliForms"}}) {
        putKey(kExplorer + key + "\\below");
        putKey(kExplorer + key + "2");
        putKey(kExplorer + "Main");
        EXPECT_EQ(run(step), cleaned(step));
        EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(step) + " ..."});
        EXPECT_FALSE(hasKey(kExplorer + key));
        EXPECT_TRUE(hasKey(kExplorer + key + "2"));
        EXPECT_TRUE(hasKey(kExplorer + "Main"));
        EXPECT_EQ(statusOf(step), text(507));
        EXPECT_EQ(iconOf(step), 9);
        EXPECT_EQ(run(step), notFound(step));
        EXPECT_EQ(statusOf(step), text(508));
        EXPECT_EQ(iconOf(step), 10);
    }
}

TEST_F(IETasks, FormEntriesAreClearedByTheBrowserBeforeTheirKeyGoes) {
    putKey(kExplorer + "IntelliForms\\SPW");
    bool thereAtTheCall = false;
    machine.processes.onStart = [&](const std::string&) { thereAtTheCall = hasKey(kExplorer + "IntelliForms\\SPW"); };
    EXPECT_EQ(run(kAutoComplete), cleaned(kAutoComplete));
    EXPECT_TRUE(thereAtTheCall);
    EXPECT_EQ(commands(), std::vector<std::string>{tracks(16)});
}

TEST_F(IETasks, FormEntriesAreReportedByTheirKeyAlone) {
    // The browser took it away: nothing is left to be found.
    putKey(kExplorer + "IntelliForms");
    machine.processes.onStart = [this](const std::string&) {
        platform::HKey key = 0;
        ASSERT_EQ(machine.registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, kExplorer + "IntelliForms", 63, key), 0);
        ASSERT_EQ(machine.registry.SHDeleteKeyA(key, ""), 0);
        machine.registry.RegCloseKey(key);
    };
    EXPECT_EQ(run(kAutoComplete), notFound(kAutoComplete));
    EXPECT_EQ(iconOf(kAutoComplete), 10);
}

TEST_F(IETasks, TheToolbarButtonLosesItsSubkeyAndHasWordsOfItsOwn) {
    machine.registryTree.make(kButton)->setText("ButtonText", "x");
    const std::string other = "Machine\\" + kExplorer + "Extensions\\{00000000-0000-0000-0000-000000000001}";
    (void)machine.registryTree.make(other);
    EXPECT_EQ(run(kToolbarButton), cleaned(kToolbarButton));
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kToolbarButton) + " ..."});
    EXPECT_EQ(machine.registryTree.find(kButton), nullptr);
    EXPECT_NE(machine.registryTree.find(other), nullptr);
    EXPECT_EQ(statusOf(kToolbarButton), text(507));
    EXPECT_EQ(iconOf(kToolbarButton), 9);
    EXPECT_EQ(run(kToolbarButton), std::vector<std::string>{name(kToolbarButton) + " " + text(550)});
    EXPECT_EQ(statusOf(kToolbarButton), text(498));
    EXPECT_EQ(iconOf(kToolbarButton), 10);
}

TEST_F(IETasks, TheToolbarButtonIsNotFoundWithoutItsParentEither) {
    EXPECT_EQ(machine.registryTree.find("Machine\\" + kExplorer + "Extensions"), nullptr);
    EXPECT_EQ(run(kToolbarButton), std::vector<std::string>{name(kToolbarButton) + " " + text(550)});
    EXPECT_EQ(statusOf(kToolbarButton), text(498));
}

// --- folders

TEST_F(IETasks, ProgramFilesAndOfflinePagesAreFolders) {
    for (const auto& [step, folder] : std::map<int, std::string>{{30, "C:\\Windows\\Downloaded Program Files"},
                                                                 {31, "C:\\Windows\\Offline Web Pages"}}) {
        EXPECT_EQ(run(step), std::vector<std::string>{name(step) + " <Nicht gefunden>"});
        EXPECT_EQ(statusOf(step), text(498));
        EXPECT_EQ(iconOf(step), 10);
        machine.files.putFile(folder + "\\a.ocx", "12345");
        machine.files.putFile(folder + "\\CONFLICT.1\\a.inf", "12345");
        EXPECT_EQ(run(step), (std::vector<std::string>{name(step) + ": " + folder, counts(step, 2, "10 Byte"),
                                                       name(step) + " " + text(504) + " <OK>"}));
        EXPECT_TRUE(machine.files.hasFolder(folder));
        EXPECT_TRUE(machine.files.everythingBelow(folder).empty());
        EXPECT_EQ(statusOf(step), text(507));
        EXPECT_EQ(iconOf(step), 9);
    }
}

TEST_F(IETasks, FoldersOfAnUnknownWindowsFolderAreNotFound) {
    main();
    machine.shell.specialFolders.erase(36);
    machine.files.putFile("C:\\Offline Web Pages\\a.htm", "1");
    for (const int step : {30, 31}) {
        EXPECT_EQ(run(step), std::vector<std::string>{name(step) + " <Nicht gefunden>"}) << step;
    }
    EXPECT_TRUE(machine.files.has("C:\\Offline Web Pages\\a.htm"));
}

}  // namespace tidvane::tests
