// What the start writes into the log, line by line.
#include <algorithm>
#include <array>

#include "support/app_fixture.h"

namespace tidvane::tests {

namespace {

// The machine's own, and how often it was asked for the members of a group.
class CountingSystem final : public platform::SystemInfo {
public:
    explicit CountingSystem(platform::SystemInfo& system) : system_(system) {}
    int asked = 0;

    platform::WindowsVersion GetVersionExA() override { return system_.GetVersionExA(); }
    std::string GetUserNameA() override { return system_.GetUserNameA(); }
    bool groupMembers(const std::string& group, std::vector<std::string>& names) override {
        ++asked;
        return system_.groupMembers(group, names);
    }
    std::string WindowsFolder() override { return system_.WindowsFolder(); }
    std::string SystemFolder() override { return system_.SystemFolder(); }
    std::string ApplicationPath() override { return system_.ApplicationPath(); }
    std::string ExecutableName() override { return system_.ExecutableName(); }
    std::string CommandArguments() override { return system_.CommandArguments(); }
    int codePage() override { return system_.codePage(); }
    const base::Locale& locale() override { return system_.locale(); }
    std::string themeName() override { return system_.themeName(); }

private:
    platform::SystemInfo& system_;
};

}  // namespace

struct StartLog : AppFixture {
    StartLog() { store({"chkLogTimestamp=1"}); }

    // The log behind its banner.
    std::vector<std::string> linesOfStart() {
        std::vector<std::string> lines = logLines();
        if (!lines.empty()) lines.erase(lines.begin());
        return lines;
    }
    std::vector<std::string> expected() {
        return {"Tidvane v1.0.0" + main().lblVersionBuild.Caption.get() + " " + text(572) + " " + text(100) + "...",
                text(568) + ": Windows 7 Service Pack 1",
                text(569) + ": Anna",
                text(570) + ": C:\\Windows",
                text(571) + ": C:\\Windows\\System32",
                text(576) + ": 0 " + text(577) + " <OK>",
                "Tidvane " + text(572) + " <OK>"};
    }
};

TEST_F(StartLog, StandsLineByLine) {
    EXPECT_EQ(linesOfStart(), expected());
}

TEST_F(StartLog, ReadsInEnglish) {
    main();
    EXPECT_EQ(text(568), "Operating system");
    EXPECT_TRUE(logHas("Operating system: Windows 7 Service Pack 1"));
    EXPECT_TRUE(logHas("Plug-ins: 0 loaded <OK>"));
}

TEST_F(StartLog, BeginsWithABannerOfAsterisksWithoutATime) {
    main().log();
    const std::string banner = logLines().front();
    EXPECT_EQ(banner.front(), '*');
    EXPECT_EQ(banner.back(), '*');
    EXPECT_NE(banner.find("Tidvane"), std::string::npos);
}

TEST_F(StartLog, PutsTheTimeInFrontOfEveryLineButTheBanner) {
    store({"chkLogTimestamp=0", "txtPurgeSpeed=0"});
    const std::vector<std::string> lines = logLines();
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines.front().front(), '*');
    for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_TRUE(lines[i].starts_with("12:00:00 PM ")) << lines[i];
    }
}

TEST_F(StartLog, SleepsThePauseBehindEveryLine) {
    store({"txtPurgeSpeed=25"});
    main();
    EXPECT_EQ(machine.clock.sleeps, 8u);
    EXPECT_EQ(machine.clock.sleptMilliseconds, 8 * 25);
}

TEST_F(StartLog, CallsTheUserAdministratorByTheGermanGroupAlone) {
    machine.system.groups["Administratoren"] = {"Chef", "Anna"};
    EXPECT_TRUE(logHas(text(569) + ": Anna [Administrator]"));
    EXPECT_FALSE(logHas(text(569) + ": Anna"));
}

TEST_F(StartLog, WritesOneUserLineWhereTheGroupHasAnotherName) {
    // The group "Administrators" holds Anna; it is not the one that is asked.
    EXPECT_EQ(countOf(text(569) + ": Anna"), 1);
    EXPECT_EQ(countOf(text(569) + ": Anna [Administrator]"), 0);
}

TEST_F(StartLog, AsksForTheGroupTwiceAndWritesOneLineWhereItCannotBeBound) {
    CountingSystem system(machine.system);
    const platform::Platform own = machine.platform();
    settings::Program counted(
        {own.files, own.profiles, own.registry, own.shell, own.processes, own.session, own.environment,
         own.browserCache, system, own.network, own.restorePoints, own.scriptHost, own.clock, own.events, own.removed},
        display);
    app::offerAllWindows(counted);
    const std::vector<std::string> lines = linesOf(counted.get<app::frmMain>().txtLog.Text());
    EXPECT_EQ(system.asked, 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), counted.LangText(569) + ": Anna"), 1);
}

TEST_F(StartLog, NamesAnUnknownVersionWithoutThePrefix) {
    machine.system.version = {1, 4, 5, 1, ""};
    EXPECT_TRUE(logHas(text(568) + ": not detected"));
}

TEST_F(StartLog, NotesTheListOfBans) {
    machine.files.putFile(inFolder("td_ban.dat"), "C:\\Windows\r\n");
    std::vector<std::string> lines = expected();
    lines.insert(lines.end() - 1, "Protecting specific locations through td_ban.dat <OK>");
    EXPECT_EQ(linesOfStart(), lines);
}

TEST_F(StartLog, CountsThePlugInsOfTheFolder) {
    machine.files.putFile(inFolder("PlugIns\\b.tdp"));
    machine.files.putFile(inFolder("PlugIns\\A.tdp"));
    machine.files.putFile(inFolder("PlugIns\\c.txt"));
    EXPECT_TRUE(logHas(text(576) + ": 2 " + text(577) + " <OK>"));
    ASSERT_EQ(main().LstPlugs.ListCount(), 2);
    EXPECT_EQ(main().LstPlugs.List(0), "A");
    EXPECT_EQ(main().PlugPaths().at(1), inFolder("PlugIns\\b.tdp"));
}

TEST_F(StartLog, StandsWithoutAnyFileBesideTheProgram) {
    machine.files.take(inFolder("English.lng"));
    machine.files.take(inFolder("td_last.dat"));
    machine.files.take(inFolder("td_config.ini"));
    machine.system.systemLocale = base::germanLocale();  // 24 hours, so that the time is one word
    std::vector<std::string> lines = linesOfStart();
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[1], "12:00:00 : Windows 7 Service Pack 1");
    EXPECT_EQ(lines.back(), "12:00:00 Tidvane  <OK>");
}

struct OtherCleaners : StartLog {};

TEST_F(OtherCleaners, AreNotedInTheOrderOfTheTableWithUnevenBlanks) {
    struct Row {
        const char* folder;
        const char* word;
        int grade;
    };
    // Made in another order than they are told in.
    const std::array rows{
        Row{"CCleaner", ": CCleaner ", 589},
        Row{"Bleachbit", ": Bleachbit ", 587},
        Row{"SlimCleaner", ": SlimCleaner ", 587},
        Row{"Wise", " Wise Disk Cleaner ", 588},
        Row{"Glary Utilities", ": Glary Utilities ", 587},
        Row{"System Ninja", ": System Ninja ", 588},
        Row{"FCleaner", ": FCleaner", 588},
        Row{"IObit", ": Advanced SystemCare ", 587},
        Row{"BlueSprig", ": JetClean ", 588},
        Row{"ClearProg", ": ClearProg ", 588},
        Row{"AppCleaner", ": AppCleaner ", 588},
    };
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        machine.files.putFolder(std::string("C:\\Program Files\\") + row->folder);
    }
    std::vector<std::string> lines = expected();
    for (const Row& row : rows) lines.insert(lines.end() - 1, text(586) + row.word + "<" + text(row.grade) + ">");
    EXPECT_EQ(linesOfStart(), lines);
}

TEST_F(OtherCleaners, AreSoughtWhereTheVariableSays) {
    machine.environment.set("programfiles", "C:\\Programme");
    machine.files.putFolder("C:\\Program Files\\CCleaner");
    machine.files.putFolder("C:\\Programme\\Wise");
    const std::vector<std::string> found = logFrom(text(586));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found.front(), text(586) + " Wise Disk Cleaner <" + text(588) + ">");
}

TEST_F(OtherCleaners, AreNotNotedForAFileOfThatName) {
    machine.files.putFile("C:\\Program Files\\CCleaner");
    EXPECT_EQ(linesOfStart(), expected());
}

struct AddInWarning : StartLog {};

TEST_F(AddInWarning, ComesForTheMemoryTrimAndTheRegistryAddIn) {
    machine.files.putFile(inFolder("memtrim.exe"));
    store({"chkCleanRAM=1", "chkAddInRegClean=1"});
    std::vector<std::string> lines = expected();
    lines.insert(lines.begin() + 5, {text(374) + " " + text(510), text(365) + " " + text(510)});
    EXPECT_EQ(linesOfStart(), lines);
    ASSERT_EQ(display.boxes.size(), 2u);
    EXPECT_EQ(display.boxes[0].text, text(573) + " " + text(510));
    EXPECT_EQ(display.boxes[1].text, text(574) + " " + text(510));
    for (const auto& box : display.boxes) {
        EXPECT_EQ(box.title, "Tidvane");
        EXPECT_EQ(box.style, forms::msgbox::Exclamation);
    }
}

TEST_F(AddInWarning, IsOnlyLoggedWithMessagesHidden) {
    machine.files.putFile(inFolder("memtrim.exe"));
    store({"chkCleanRAM=1", "chkHideAlertMessage=1"});
    EXPECT_TRUE(logHas(text(374) + " " + text(510)));
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(AddInWarning, DoesNotComeWithoutMemtrimBesideTheProgram) {
    store({"chkCleanRAM=1"});
    EXPECT_EQ(linesOfStart(), expected());
    EXPECT_EQ(options().chkCleanRAM.Value, 0);
    EXPECT_FALSE(options().chkCleanRAM.Enabled);
}

TEST_F(AddInWarning, LeavesTheTrimAvailableWhereItIsInstalled) {
    machine.files.putFile(inFolder("memtrim.exe"));
    main();
    EXPECT_TRUE(options().chkCleanRAM.Enabled);
    EXPECT_EQ(options().cmdCleanRAM.Caption, text(375));
}

}  // namespace tidvane::tests
