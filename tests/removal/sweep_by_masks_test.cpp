#include "removal/folder_sweep.h"
#include "support/app_fixture.h"

namespace tidvane::removal {
namespace {

namespace attribute = platform::attribute;

// Log lines without times, an empty log before each sweep, a first row for the status.
struct SweepTest : tests::AppFixture {
    void masks(const std::vector<std::string>& list) {
        for (const std::string& mask : list) options().lstSearchMasks.AddItem(mask);
    }
    void put(const std::string& path) { machine.files.putFile(path, "x"); }
    bool has(const std::string& path) { return machine.files.has(path); }
    std::vector<std::string> sweep(const std::string& path = "C:\\D") {
        mainWithoutTimes().log().empty();
        main().lstTasks.Add(1, "row", "row", 1);
        SweepFolderByMasks(program, path);
        return logLines();
    }
};

using Lines = std::vector<std::string>;

TEST_F(SweepTest, RemovesMatchesAtAllDepthsWithOneLineAMaskAndFolder) {
    masks({"*.tmp", "*.bak"});
    for (const char* name : {"a.tmp", "b.tmp", "c.tmp", "keep.txt", "sub\\d.tmp", "sub\\keep.doc"}) {
        put(std::string("C:\\D\\") + name);
    }
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\b.tmp <OK>", "[*.tmp] C:\\D\\sub\\ <OK>"}));
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"),
              (Lines{"C:\\D\\keep.txt", "C:\\D\\sub\\", "C:\\D\\sub\\keep.doc"}));
}

TEST_F(SweepTest, NamesTheSecondMatchAndNothingWithOneMatch) {
    masks({"*.tmp"});
    put("C:\\D\\only.tmp");
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\ <OK>"}));
}

TEST_F(SweepTest, LogsAlthoughNothingCouldBeRemoved) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    machine.files.lock("C:\\D\\a.tmp");
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\ <OK>"}));
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
}

TEST_F(SweepTest, TwoMasksOnTheSameFileGiveOneLine) {
    masks({"*.tmp", "a*"});
    put("C:\\D\\a.tmp");
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\ <OK>"}));
}

TEST_F(SweepTest, ALaterMaskStillSeesWhatAnEarlierOneCouldNotRemove) {
    masks({"*.tmp", "a*"});
    put("C:\\D\\a.tmp");
    machine.files.lock("C:\\D\\a.tmp");
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\ <OK>", "[a*] C:\\D\\ <OK>"}));
}

TEST_F(SweepTest, LeavesHiddenAndSystemFilesAndFoldersNamedAlike) {
    masks({"*.old", "*"});
    put("C:\\D\\hidden.old");
    machine.files.setAttributes("C:\\D\\hidden.old", attribute::Hidden);
    put("C:\\D\\system.old");
    machine.files.setAttributes("C:\\D\\system.old", attribute::System);
    put("C:\\D\\folder.old\\.keep");
    machine.files.setAttributes("C:\\D\\folder.old\\.keep", attribute::Hidden);
    EXPECT_EQ(sweep(), Lines{});
    EXPECT_TRUE(has("C:\\D\\hidden.old"));
    EXPECT_TRUE(has("C:\\D\\system.old"));
    EXPECT_TRUE(has("C:\\D\\folder.old\\.keep"));
}

TEST_F(SweepTest, WithoutMasksItStillVisitsEveryFolderAndRestores) {
    put("C:\\D\\sub\\opa13.bak_copy");
    main();
    const auto pumps = machine.events.pumps;
    EXPECT_EQ(sweep(), Lines{});
    EXPECT_EQ(machine.events.pumps - pumps, 2U);
    EXPECT_TRUE(has("C:\\D\\sub\\opa13.bak"));
    EXPECT_EQ(main().StatusBar1.Panel(1), text(494) + " C:\\D\\sub\\");
}

TEST_F(SweepTest, SparesAFileThatIsSetAside) {
    masks({"*.bak"});
    put("C:\\D\\opa12.bak");
    put("C:\\D\\other.bak");
    EXPECT_EQ(sweep(), (Lines{"[*.bak] C:\\D\\ <OK>"}));
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (Lines{"C:\\D\\opa12.bak"}));
}

TEST_F(SweepTest, TellsWhatItSetAsideWithMoreDetails) {
    options().chkMoreLogDetails.Value = 1;
    put("C:\\D\\opa12.bak");
    EXPECT_EQ(sweep(), (Lines{"[*.bak] " + text(900) + ": C:\\D\\OPA12.BAK" + text(513) + " <OK>"}));
}

TEST_F(SweepTest, TheFirstRowThatMatchesFiresEvenWhenItsRenameFindsNothing) {
    masks({"*.001"});
    put("C:\\D\\opa12x.bak");
    put("C:\\D\\cacert.001");
    sweep();
    EXPECT_FALSE(has("C:\\D\\cacert.001"));
}

TEST_F(SweepTest, SetsOnlyTheFirstOfTwoCertificatesAside) {
    masks({"*.001", "*.002"});
    put("C:\\D\\cacert.001");
    put("C:\\D\\cacert.002");
    sweep();
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (Lines{"C:\\D\\CACERT.001"}));
}

TEST_F(SweepTest, LosesUninstallLogAndKeepsUninstalLog) {
    masks({"*.log"});
    put("C:\\D\\Uninstall.log");
    put("C:\\E\\uninstal.log");
    sweep();
    sweep("C:\\E");
    EXPECT_FALSE(has("C:\\D\\Uninstall.log"));
    EXPECT_EQ(machine.files.everythingBelow("C:\\E"), (Lines{"C:\\E\\UNINSTAL.LOG"}));
}

TEST_F(SweepTest, PicksUpALeftoverOfAnEarlierRun) {
    put("C:\\D\\opa13.bak_copy");
    put("C:\\D\\opa12.bak_copy");
    sweep();
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (Lines{"C:\\D\\opa12.bak", "C:\\D\\opa13.bak"}));
}

TEST_F(SweepTest, RestoringNeverOverwritesAFileThatStands) {
    machine.files.putFile("C:\\D\\opa12.bak", "wanted");
    machine.files.putFile("C:\\D\\opa12.bak_copy", "old");
    sweep();
    EXPECT_EQ(machine.files.bytesOf("C:\\D\\opa12.bak"), "wanted");
}

TEST_F(SweepTest, AStopLetsTheFolderInWorkFinishAndLeavesTheNext) {
    masks({"*.bak"});
    put("C:\\D\\opa12.bak");
    put("C:\\D\\one\\a.bak");
    put("C:\\D\\two\\b.bak");
    main();
    machine.events.onPump(2, [this] { main().cmdStop_Click(); });
    sweep();
    EXPECT_TRUE(has("C:\\D\\opa12.bak"));
    EXPECT_TRUE(has("C:\\D\\one\\a.bak"));
    EXPECT_TRUE(has("C:\\D\\two\\b.bak"));
}

TEST_F(SweepTest, ShowsTheMaskInTheFirstRow) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    sweep();
    EXPECT_EQ(status("row"), text(514) + " [*.tmp] " + text(515) + "...");
}

TEST_F(SweepTest, WithoutAReadableMethodTheSecondAttemptStillRemovesAndNoLineIsWritten) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    main();
    // The texts change under the loaded window: what is chosen equals none of them.
    for (int entry = 732; entry <= 734; ++entry) program.LangText.set(entry, "renamed");
    EXPECT_EQ(sweep(), Lines{});
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
}

TEST_F(SweepTest, CountsWhatTheBinRefusedAndASecondAttemptRemovedForGood) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    put("C:\\D\\b.tmp");
    main();
    options().cboKillMethod.setListIndex(1);
    machine.shell.fileOperationFails = 5;
    sweep();
    EXPECT_EQ(program.removedForGood, 2U);
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
}

TEST_F(SweepTest, RecyclesMatchesAndLeavesNothingForTheSecondAttempt) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    put("C:\\D\\b.tmp");
    main();
    options().cboKillMethod.setListIndex(1);
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\b.tmp <OK>"}));
    EXPECT_EQ(machine.shell.recycled.size(), 2U);
    EXPECT_EQ(program.removedForGood, 0U);
}

TEST_F(SweepTest, RecyclesWhatAMaskForEverythingFindsAlsoInProtectedPlaces) {
    put("C:\\Windows\\a.log");
    put("C:\\Windows\\b.log");
    put("C:\\Windows\\hidden");
    machine.files.setAttributes("C:\\Windows\\hidden", attribute::Hidden);
    main();
    options().cboKillMethod.setListIndex(1);
    for (const char* mask : {"*", "*.*", "?*"}) {
        options().lstSearchMasks.Clear();
        masks({mask});
        put("C:\\Windows\\a.log");
        put("C:\\Windows\\b.log");
        machine.shell.recycled.clear();
        sweep("C:\\Windows");
        EXPECT_EQ(machine.shell.recycled.size(), 2U) << mask;
        EXPECT_EQ(program.removedForGood, 0U) << mask;
        EXPECT_FALSE(has("C:\\Windows\\a.log")) << mask;
        EXPECT_TRUE(has("C:\\Windows\\hidden")) << mask;
    }
    EXPECT_TRUE(machine.warnings.empty());
}

TEST_F(SweepTest, UnderRecycleTheBinsOfADriveAreNotSwept) {
    masks({"*.tmp"});
    for (const char* bin : {"$Recycle.Bin\\S-1", "RECYCLER\\S-1", "Recycled"}) {
        put("E:\\" + std::string(bin) + "\\unit.tmp");
    }
    put("E:\\D\\Recycled\\a.tmp");
    main();
    options().cboKillMethod.setListIndex(1);
    sweep("E:\\");
    EXPECT_TRUE(has("E:\\$Recycle.Bin\\S-1\\unit.tmp"));
    EXPECT_TRUE(has("E:\\RECYCLER\\S-1\\unit.tmp"));
    EXPECT_TRUE(has("E:\\Recycled\\unit.tmp"));
    EXPECT_FALSE(has("E:\\D\\Recycled\\a.tmp"));
}

TEST_F(SweepTest, UnderOverwriteAMaskRemovesWithoutOverwriting) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    main();
    options().cboKillMethod.setListIndex(2);
    EXPECT_EQ(sweep(), (Lines{"[*.tmp] C:\\D\\ <OK>"}));
    EXPECT_TRUE(machine.files.overwritten.empty());
    EXPECT_FALSE(has("C:\\D\\a.tmp"));
}

TEST_F(SweepTest, MasksThatNameNoFileRemoveNothingUnderAnyMethod) {
    masks({"", " ", ".", "..", "sub\\*.tmp", "..\\*"});
    put("C:\\D\\a.txt");
    put("C:\\D\\sub\\b.tmp");
    put("C:\\other.txt");
    main();
    for (int method = 0; method < 3; ++method) {
        options().cboKillMethod.setListIndex(method);
        EXPECT_EQ(sweep(), Lines{}) << method;
    }
    EXPECT_TRUE(has("C:\\D\\a.txt"));
    EXPECT_TRUE(has("C:\\D\\sub\\b.tmp"));
    EXPECT_TRUE(has("C:\\other.txt"));
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST_F(SweepTest, ARefusedSetAsideLosesTheFileToTheMask) {
    masks({"*.bak"});
    put("C:\\D\\opa12.bak");
    put("C:\\E\\opa12.bak");
    put("C:\\E\\opa12.bak_copy");
    machine.files.refuse("C:\\D\\opa12.bak", platform::operation::Rename, platform::Status::Denied);
    sweep();
    EXPECT_FALSE(has("C:\\D\\opa12.bak"));
    // A leftover stands in the way of the rename: it comes back behind the masks.
    sweep("C:\\E");
    EXPECT_EQ(machine.files.everythingBelow("C:\\E"), (Lines{"C:\\E\\opa12.bak"}));
}

TEST_F(SweepTest, DoesNotFollowLinksOutOfTheTree) {
    masks({"*.tmp"});
    put("C:\\keep\\wanted.tmp");
    machine.files.putFolder("C:\\D");
    machine.files.putLink("C:\\D\\link", "C:\\keep");
    sweep();
    EXPECT_TRUE(has("C:\\keep\\wanted.tmp"));
}

TEST_F(SweepTest, GoesOnBehindAFolderThatCannotBeRead) {
    masks({"*.tmp"});
    put("C:\\D\\closed\\a.tmp");
    put("C:\\D\\open\\b.tmp");
    machine.files.deny("C:\\D\\closed");
    sweep();
    EXPECT_FALSE(has("C:\\D\\open\\b.tmp"));
}

TEST_F(SweepTest, ReadsEachFolderOnceWhateverTheNumberOfMasks) {
    std::vector<std::string> many;
    for (int i = 0; i < 49; ++i) many.push_back("*.m" + std::to_string(i));
    masks(many);
    for (int i = 0; i < 20; ++i) put("C:\\D\\f" + std::to_string(i) + "\\keep.txt");
    main();
    const auto before = machine.files.foldersRead;
    sweep();
    EXPECT_EQ(machine.files.foldersRead - before, 21U);
}

TEST_F(SweepTest, VisitsFoldersByNameEachBeforeItsSubfolders) {
    for (const char* name : {"b\\x\\k", "a\\z\\k", "a\\Y\\k", "C\\k"}) put(std::string("C:\\D\\") + name);
    Lines visited;
    main();
    machine.events.everyPump = [&] { visited.push_back(main().StatusBar1.Panel(1).substr(text(494).size() + 1)); };
    sweep();
    EXPECT_EQ(visited, (Lines{"C:\\D\\", "C:\\D\\a\\", "C:\\D\\a\\Y\\", "C:\\D\\a\\z\\", "C:\\D\\b\\", "C:\\D\\b\\x\\",
                              "C:\\D\\C\\"}));
}

TEST_F(SweepTest, GoesDownADeepTree) {
    masks({"*.tmp"});
    std::string folder = "C:\\D";
    for (int i = 0; i < 400; ++i) folder += "\\d";
    put(folder + "\\a.tmp");
    sweep();
    EXPECT_FALSE(has(folder + "\\a.tmp"));
}

TEST_F(SweepTest, DropsANameThatAnotherMaskMatchesOnlyByItsShortForm) {
    masks({"*.htm"});
    put("C:\\D\\page.html");
    EXPECT_EQ(sweep(), Lines{});
    EXPECT_TRUE(has("C:\\D\\page.html"));
}

}  // namespace
}  // namespace tidvane::removal
