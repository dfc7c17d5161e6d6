// The tasks that empty a folder.
#include "tasks/task_fixture.h"

namespace tidvane::tests {

namespace {
constexpr int kUserTemp = 17;
constexpr int kPrefetch = 18;
constexpr int kRecentOffice = 11;
const std::string kTemp = "C:\\Users\\Anna\\AppData\\Local\\Temp";
const std::string kOffice = "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Office\\";
const std::string kEnglish = kOffice + "Recent";
const std::string kGerman = kOffice + "Zuletzt verwendet";
}  // namespace

struct FileTasks : TaskFixture {
    std::string counts(int step, int files, const std::string& size) {
        return name(step) + " " + std::to_string(files) + " " + text(500) + " (" + size + ")";
    }
    std::vector<std::string> notThere(int step) { return {name(step) + " <Nicht gefunden>"}; }
};

TEST_F(FileTasks, TellMeasureAndEmptyTheFolder) {
    machine.files.putFile("C:\\Windows\\Prefetch\\A.pf", std::string(1000, 'x'));
    machine.files.putFile("C:\\Windows\\Prefetch\\sub\\B.pf", std::string(24, 'x'));
    EXPECT_EQ(run(kPrefetch),
              (std::vector<std::string>{name(kPrefetch) + ": C:\\Windows\\Prefetch", counts(kPrefetch, 2, "1.00 KB"),
                                        name(kPrefetch) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.hasFolder("C:\\Windows\\Prefetch"));
    EXPECT_TRUE(machine.files.everythingBelow("C:\\Windows\\Prefetch").empty());
    EXPECT_EQ(statusOf(kPrefetch), text(507));
    EXPECT_EQ(iconOf(kPrefetch), 9);
    EXPECT_EQ(panels, std::vector<std::string>{text(503) + " " + name(kPrefetch) + " ..."});
}

TEST_F(FileTasks, TellAMissingFolderInThreePlaces) {
    EXPECT_EQ(run(kPrefetch), notThere(kPrefetch));
    EXPECT_EQ(statusOf(kPrefetch), text(498));
    EXPECT_EQ(iconOf(kPrefetch), 10);
}

TEST_F(FileTasks, SayNichtGefundenInEnglishToo) {
    EXPECT_EQ(text(498), "Not found");
    EXPECT_EQ(run(kPrefetch).front(), name(kPrefetch) + " <Nicht gefunden>");
}

TEST_F(FileTasks, TellAnEmptyFolderAsCleaned) {
    EXPECT_EQ(run(kUserTemp), (std::vector<std::string>{name(kUserTemp) + ": " + kTemp, counts(kUserTemp, 0, "0 Byte"),
                                                        name(kUserTemp) + " " + text(504) + " <OK>"}));
}

TEST_F(FileTasks, ListTheFilesOfTheTopLevelBeforeTheyGo) {
    options().chkMoreLogDetails.Value = 1;
    machine.files.putFile(kTemp + "\\a.tmp", "1");
    machine.files.putFile(kTemp + "\\locked.tmp", "1");
    machine.files.putFile(kTemp + "\\sub\\c.tmp", "1");
    machine.files.lock(kTemp + "\\locked.tmp");
    // The words claim what has not been tried: the locked file is called OK and stays.
    EXPECT_EQ(run(kUserTemp), (std::vector<std::string>{name(kUserTemp) + ": " + kTemp, counts(kUserTemp, 3, "3 Byte"),
                                                        kTemp + "\\a.tmp <OK>", kTemp + "\\locked.tmp <OK>",
                                                        name(kUserTemp) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.has(kTemp + "\\locked.tmp"));
    EXPECT_FALSE(machine.files.has(kTemp + "\\sub"));
}

TEST_F(FileTasks, ListALinkToAFileAndNoneToAFolder) {
    options().chkMoreLogDetails.Value = 1;
    machine.files.putFile("D:\\target\\f", "1");
    machine.files.putLink(kTemp + "\\to a folder", "D:\\target");
    machine.files.putLink(kTemp + "\\to a file", "D:\\target\\f");
    // Both are counted as files.
    EXPECT_EQ(run(kUserTemp),
              (std::vector<std::string>{name(kUserTemp) + ": " + kTemp, counts(kUserTemp, 2, "0 Byte"),
                                        kTemp + "\\to a file <OK>", name(kUserTemp) + " " + text(504) + " <OK>"}));
    EXPECT_TRUE(machine.files.has("D:\\target\\f"));
}

TEST_F(FileTasks, ListNothingWithTheBoxGreyed) {
    options().chkMoreLogDetails.Value = 2;
    machine.files.putFile(kTemp + "\\a.tmp", "1");
    EXPECT_EQ(run(kUserTemp).size(), 3u);
}

TEST_F(FileTasks, TakeTheTemporaryFolderOfTheStart) {
    main();
    machine.shell.temporaryFolder = "C:\\Other";
    machine.files.putFile("C:\\Other\\x");
    EXPECT_EQ(run(kUserTemp).front(), name(kUserTemp) + ": " + kTemp);
    EXPECT_TRUE(machine.files.has("C:\\Other\\x"));
}

TEST_F(FileTasks, WorkByTheChosenMethod) {
    machine.files.putFile(kTemp + "\\a.tmp", "1234");
    main();
    options().cboKillMethod.setListIndex(1);
    run(kUserTemp);
    ASSERT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, kTemp + "\\a.tmp");
    machine.files.putFile(kTemp + "\\b.tmp", "1234");
    options().cboKillMethod.setListIndex(2);
    run(kUserTemp);
    ASSERT_EQ(machine.files.overwritten.size(), 1u);
    EXPECT_EQ(machine.files.overwritten[0].path, kTemp + "\\b.tmp");
}

struct RecentOffice : FileTasks {
    RecentOffice() { machine.files.putFolder(kOffice); }
    std::vector<std::string> lines(int germanFiles, const std::string& germanSize) {
        return {name(kRecentOffice) + ": " + kEnglish, counts(kRecentOffice, germanFiles, germanSize),
                name(kRecentOffice) + " " + text(504) + " <OK>"};
    }
};

TEST_F(RecentOffice, CountsTheGermanFolderAndNamesTheEnglishOne) {
    machine.files.putFile(kEnglish + "\\a.lnk", std::string(5000, 'x'));
    machine.files.putFile(kGerman + "\\b.lnk", std::string(2048, 'x'));
    machine.files.putFile(kGerman + "\\c.lnk", std::string(1024, 'x'));
    EXPECT_EQ(run(kRecentOffice), lines(2, "3.00 KB"));
    EXPECT_TRUE(machine.files.everythingBelow(kEnglish).empty());
    EXPECT_TRUE(machine.files.everythingBelow(kGerman).empty());
}

TEST_F(RecentOffice, CountsNothingOnAnEnglishSystem) {
    machine.files.putFile(kEnglish + "\\a.lnk", "12345");
    EXPECT_EQ(run(kRecentOffice), lines(0, "0 Byte"));
    EXPECT_FALSE(machine.files.has(kEnglish + "\\a.lnk"));
}

TEST_F(RecentOffice, NamesTheEnglishFolderAlsoWhereOnlyTheGermanExists) {
    machine.files.putFile(kGerman + "\\a.lnk", std::string(1024, 'x'));
    EXPECT_EQ(run(kRecentOffice), lines(1, "1.00 KB"));
    EXPECT_FALSE(machine.files.has(kGerman + "\\a.lnk"));
}

TEST_F(RecentOffice, ListsTheEnglishFolder) {
    options().chkMoreLogDetails.Value = 1;
    machine.files.putFile(kEnglish + "\\a.lnk", "1");
    machine.files.putFile(kGerman + "\\b.lnk", "1");
    const std::vector<std::string> logged = run(kRecentOffice);
    ASSERT_EQ(logged.size(), 4u);
    EXPECT_EQ(logged[2], kEnglish + "\\a.lnk <OK>");
}

TEST_F(RecentOffice, PurgesTheGermanFolderFirst) {
    machine.files.putFile(kEnglish + "\\a.lnk", "1");
    machine.files.putFile(kGerman + "\\b.lnk", "1");
    main();
    options().cboKillMethod.setListIndex(1);
    run(kRecentOffice);
    ASSERT_EQ(machine.shell.recycled.size(), 2u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, kGerman + "\\b.lnk");
    EXPECT_EQ(machine.shell.recycled[1].originalPath, kEnglish + "\\a.lnk");
}

TEST_F(RecentOffice, IsNotFoundWithNeitherFolder) {
    EXPECT_EQ(run(kRecentOffice), notThere(kRecentOffice));
    EXPECT_EQ(statusOf(kRecentOffice), text(498));
    EXPECT_EQ(iconOf(kRecentOffice), 10);
}

}  // namespace tidvane::tests
