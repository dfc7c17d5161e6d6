// The junk search by masks.
#include "tasks/task_fixture.h"

namespace tidvane::tests {

namespace {

constexpr int kSearch = 1;
using Lines = std::vector<std::string>;

struct SearchTask : TaskFixture {
    void masks(const Lines& list) {
        for (const std::string& mask : list) options().lstSearchMasks.AddItem(mask);
    }
    void drive(char letter, platform::DriveType type) { machine.files.addDrive(letter, type, 1000, 2000); }
    void put(const std::string& path) { machine.files.putFile(path, "x"); }
    bool has(const std::string& path) { return machine.files.has(path); }
    // Only what the search says, without the walk's own lines.
    Lines framed(int number, const Lines& found, bool finished = true) {
        Lines lines{text(222) + " " + text(510), "[" + std::to_string(number) + "] " + text(512) + " ..."};
        lines.insert(lines.end(), found.begin(), found.end());
        if (finished) lines.push_back(text(529) + " <OK>");
        return lines;
    }
    std::string firstStatus() {
        const forms::ListItem* row = main().lstTasks.item(1);
        return row == nullptr ? std::string() : row->subItem("Status");
    }
};

TEST_F(SearchTask, SaysNothingAtAllWhileItIsOff) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    for (const int value : {0, 2}) {
        EXPECT_EQ(run(kSearch, value), Lines{});
        EXPECT_EQ(panels, Lines{});
    }
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
}

TEST_F(SearchTask, SweepsTheDriveOfTheBoxAndAddsItsBackslash) {
    drive('D', platform::DriveType::Fixed);
    masks({"*.tmp", "*.bak"});
    put("D:\\a.tmp");
    put("D:\\sub\\b.bak");
    put("D:\\sub\\c.txt");
    put("C:\\keep.tmp");
    EXPECT_EQ(options().cboDrives.Text(), "D:");  // the last fixed drive stands in the box
    EXPECT_EQ(run(kSearch), framed(2, {"[*.tmp] D:\\ <OK>", "[*.bak] D:\\sub\\ <OK>"}));
    EXPECT_EQ(machine.files.everythingBelow("D:\\"), (Lines{"D:\\sub\\", "D:\\sub\\c.txt"}));
    EXPECT_TRUE(has("C:\\keep.tmp"));
    EXPECT_EQ(panels, (Lines{text(494) + " D:\\", text(494) + " D:\\sub\\"}));
    EXPECT_EQ(firstStatus(), text(507));
    EXPECT_EQ(main().lstTasks.item(1)->smallIcon, 1);
    EXPECT_TRUE(main().lstTasks.item(1)->selected);
}

TEST_F(SearchTask, SweepsAllFixedDrivesAndNoOthers) {
    drive('D', platform::DriveType::Fixed);
    drive('E', platform::DriveType::CdRom);
    drive('F', platform::DriveType::Removable);
    drive('G', platform::DriveType::Remote);
    drive('H', platform::DriveType::RamDisk);
    masks({"*.tmp"});
    for (const char* path : {"C:\\a.tmp", "D:\\a.tmp", "E:\\a.tmp", "F:\\a.tmp", "G:\\a.tmp", "H:\\a.tmp"}) put(path);
    options().chkAllFixedDrives.Value = 1;
    EXPECT_EQ(run(kSearch), framed(1, {"[*.tmp] C:\\ <OK>", "[*.tmp] D:\\ <OK>"}));
    EXPECT_FALSE(has("C:\\a.tmp"));
    EXPECT_FALSE(has("D:\\a.tmp"));
    for (const char* path : {"E:\\a.tmp", "F:\\a.tmp", "G:\\a.tmp", "H:\\a.tmp"}) EXPECT_TRUE(has(path)) << path;
}

TEST_F(SearchTask, PassesOverADriveThatIsNotReady) {
    drive('D', platform::DriveType::Fixed);
    drive('E', platform::DriveType::Fixed);
    masks({"*.tmp"});
    put("E:\\a.tmp");
    options().chkAllFixedDrives.Value = 1;
    machine.files.setReady('D', false);
    EXPECT_EQ(run(kSearch), framed(1, {"[*.tmp] E:\\ <OK>"}));
    EXPECT_FALSE(has("E:\\a.tmp"));
}

TEST_F(SearchTask, ShowsTheNumberOfMasksInTheFirstRow) {
    masks({"*.tmp", "*.bak", "*.old"});
    tick(gate(kSearch));
    Lines statuses;
    main().lstTasks.viewChanged.connect([&] {
        const std::string now = firstStatus();
        if (!now.empty() && (statuses.empty() || statuses.back() != now)) statuses.push_back(now);
    });
    put("C:\\D\\a.bak");
    run(kSearch);
    EXPECT_EQ(statuses,
              (Lines{text(511) + " [3 " + text(528) + "]", text(514) + " [*.bak] " + text(515) + "...", text(507)}));
}

TEST_F(SearchTask, VisitsEveryFolderWithAnEmptyList) {
    put("C:\\D\\sub\\a.tmp");
    tick(gate(kSearch));
    const std::uint64_t before = machine.events.pumps;
    EXPECT_EQ(run(kSearch), framed(0, {}));
    std::uint64_t folders = 1;
    for (const std::string& path : machine.files.everythingBelow("C:\\")) folders += path.back() == '\\' ? 1 : 0;
    EXPECT_EQ(machine.events.pumps - before, folders);
    EXPECT_TRUE(has("C:\\D\\sub\\a.tmp"));
}

TEST_F(SearchTask, LogsNoLineForASecondMaskOnTheSameFiles) {
    masks({"*.bak", "opa*"});
    put("C:\\D\\opa1.bak");
    EXPECT_EQ(run(kSearch), framed(2, {"[*.bak] C:\\D\\ <OK>"}));
}

TEST_F(SearchTask, SparesOpa12) {
    masks({"*.bak"});
    put("C:\\D\\opa12.bak");
    EXPECT_EQ(run(kSearch), framed(1, {}));
    EXPECT_TRUE(has("C:\\D\\opa12.bak"));
}

// A run that was killed between setting aside and putting back leaves the other name behind.
TEST_F(SearchTask, PutsBackWhatAKilledRunLeftBehindItsMasks) {
    masks({"*.bak", "*.001"});
    put("C:\\D\\opa12.bak_copy");
    put("C:\\E\\cacert.001_copy");
    EXPECT_EQ(run(kSearch), framed(2, {}));
    EXPECT_TRUE(has("C:\\D\\opa12.bak"));
    EXPECT_TRUE(has("C:\\E\\CACERT.001"));
    EXPECT_FALSE(has("C:\\D\\opa12.bak_copy"));
}

TEST_F(SearchTask, LosesSuchALeftoverToAMaskThatNamesIt) {
    masks({"*_copy"});
    put("C:\\D\\opa12.bak_copy");
    EXPECT_EQ(run(kSearch), framed(1, {"[*_copy] C:\\D\\ <OK>"}));
    EXPECT_FALSE(has("C:\\D\\opa12.bak"));
}

TEST_F(SearchTask, PausesBehindItsFirstLineToo) {
    options().txtPurgeSpeed.setText("100");
    tick(gate(kSearch));
    const std::uint64_t before = machine.clock.sleeps;
    run(kSearch);
    EXPECT_EQ(machine.clock.sleeps - before, 4U);  // three lines, and the pause behind the first
}

TEST_F(SearchTask, AStopBeforeItBeganLeavesEverythingAndWritesNoClosingLine) {
    masks({"*.tmp"});
    put("C:\\D\\a.tmp");
    tick(gate(kSearch));
    main().cmdStop_Click();
    EXPECT_EQ(run(kSearch), framed(1, {}, false));
    EXPECT_EQ(firstStatus(), text(506));
    EXPECT_TRUE(has("C:\\D\\a.tmp"));
}

TEST_F(SearchTask, AStopInTheWalkIsSeenAtTheNextFolderAndKeepsTheRestOfTheDrives) {
    drive('D', platform::DriveType::Fixed);
    masks({"*.tmp"});
    put("C:\\a.tmp");
    put("C:\\Users\\Anna\\b.tmp");
    put("D:\\c.tmp");
    options().chkAllFixedDrives.Value = 1;
    tick(gate(kSearch));
    machine.events.onPump(2, [this] { main().cmdStop_Click(); });
    EXPECT_EQ(run(kSearch), framed(1, {"[*.tmp] C:\\ <OK>", "***** " + text(554) + " *****"}, false));
    EXPECT_FALSE(has("C:\\a.tmp"));
    EXPECT_TRUE(has("C:\\Users\\Anna\\b.tmp"));
    EXPECT_TRUE(has("D:\\c.tmp"));
    EXPECT_EQ(firstStatus(), text(506));
}

TEST_F(SearchTask, WithoutItsRowItWritesIntoTheFirstOneWhateverItIs) {
    masks({"*.tmp"});
    tick(gate(15));
    options().chkSearchTasks.Value = 1;
    main().log().empty();
    task(kSearch).worker(program, task(kSearch));
    EXPECT_EQ(status(name(15)), text(507));
    main().lstTasks.Clear();
    task(kSearch).worker(program, task(kSearch));  // and without any row it just works
}

TEST_F(SearchTask, WithoutADriveInTheBoxItTouchesNothing) {
    masks({"*.tmp"});
    put("C:\\a.tmp");
    main();
    options().cboDrives.Clear();
    EXPECT_EQ(run(kSearch), framed(1, {}));
    EXPECT_TRUE(has("C:\\a.tmp"));
}

TEST_F(SearchTask, OddMasksTakeNothingBeyondTheFilesTheyMatch) {
    masks({"", " ", "..", ".", "sub\\*.txt", "..\\*", "C:\\*", "*\\*", "*/*"});
    put("C:\\D\\a.txt");
    put("C:\\D\\sub\\b.txt");
    for (int method = 0; method < 3; ++method) {
        main();
        options().cboKillMethod.setListIndex(method);
        EXPECT_EQ(run(kSearch), framed(9, {})) << method;
    }
    EXPECT_TRUE(has("C:\\D\\a.txt"));
    EXPECT_TRUE(has("C:\\D\\sub\\b.txt"));
    EXPECT_TRUE(machine.shell.recycled.empty());
}

TEST_F(SearchTask, AMaskForEverythingTakesFilesAndLeavesFoldersHiddenAndSystemFiles) {
    drive('D', platform::DriveType::Fixed);
    put("D:\\a.txt");
    put("D:\\sub\\b");
    put("D:\\hidden");
    machine.files.setAttributes("D:\\hidden", platform::attribute::Hidden);
    for (const char* mask : {"*", "*.*", "?*"}) {
        put("D:\\a.txt");
        options().lstSearchMasks.Clear();
        masks({mask});
        run(kSearch);
        EXPECT_EQ(machine.files.everythingBelow("D:\\"), (Lines{"D:\\hidden", "D:\\sub\\"})) << mask;
    }
}

TEST_F(SearchTask, TakesTheMasksOfTheStoredList) {
    machine.files.putFile(inFolder("td_ftypes.dat"), "*.tmp\r\n*.bak, *.old\r\n");
    put("C:\\D\\a.old");
    const Lines lines = run(kSearch);
    EXPECT_EQ(lines, framed(3, {"[*.old] C:\\D\\ <OK>"}));
}

}  // namespace
}  // namespace tidvane::tests
