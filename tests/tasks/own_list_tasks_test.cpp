// The own folders, and the own files and registry keys.
#include "tasks/task_fixture.h"

namespace tidvane::tests {

namespace {

constexpr int kFolders = 2;
constexpr int kFiles = 3;
using Lines = std::vector<std::string>;
namespace attribute = platform::attribute;
namespace operation = platform::operation;

struct OwnListTasks : TaskFixture {
    void folders(const Lines& list) {
        for (const std::string& folder : list) options().lstFolders.AddItem(folder);
    }
    void files(const Lines& list) {
        for (const std::string& file : list) options().lstFiles.AddItem(file);
    }
    void emptyOnly() { options().optDeleteFolderContent.setValue(-1); }
    void method(int row) {
        main();
        options().cboKillMethod.setListIndex(row);
    }
    void put(const std::string& path) { machine.files.putFile(path, "content"); }
    bool has(const std::string& path) { return machine.files.has(path); }
    // Presses stop as soon as the log ends with this line.
    void stopBehind(const std::string& line) {
        main().txtLog.Change.connect([this, line] {
            if (!main().StopRequested() && main().txtLog.Text().ends_with(line + "\r\n")) main().cmdStop_Click();
        });
    }
    std::string stopLine() { return "***** " + text(554) + " *****"; }
    Lines started(int number, const Lines& entries, int name, int announced) {
        Lines lines{text(name) + " " + text(510), "[" + std::to_string(number) + "] " + text(announced) + " ..."};
        for (const std::string& entry : entries) lines.push_back(entry + " <OK>");
        return lines;
    }
    Lines with(Lines lines, const std::string& last) {
        lines.push_back(last);
        return lines;
    }
};

// --- folders

TEST_F(OwnListTasks, TellInLogAndPanelThatTheFoldersAreOff) {
    folders({"C:\\A"});
    put("C:\\A\\x");
    for (const int value : {0, 2}) {
        main().setPanel(1, "");
        EXPECT_EQ(run(kFolders, value), (Lines{text(524) + " " + text(509)}));
        EXPECT_EQ(panels, (Lines{text(524) + " " + text(509)}));
    }
    EXPECT_TRUE(has("C:\\A\\x"));
}

TEST_F(OwnListTasks, RemoveFoldersWithEverythingInThem) {
    folders({"C:\\A", "D:\\B\\"});
    put("C:\\A\\x");
    put("C:\\A\\sub\\y");
    put("D:\\B\\z");
    put("C:\\keep");
    EXPECT_EQ(run(kFolders), with(started(2, {"C:\\A", "D:\\B\\"}, 519, 520), text(519)));
    EXPECT_EQ(panels, (Lines{text(518), text(507)}));
    EXPECT_EQ(statusOf(kFolders), text(507));
    EXPECT_EQ(iconOf(kFolders), 9);
    EXPECT_FALSE(has("C:\\A"));
    EXPECT_TRUE(machine.files.everythingBelow("D:\\B").empty());
    EXPECT_TRUE(has("C:\\keep"));
}

TEST_F(OwnListTasks, EmptyFoldersAndLeaveThem) {
    emptyOnly();
    folders({"C:\\A"});
    put("C:\\A\\x");
    put("C:\\A\\sub\\y");
    EXPECT_EQ(run(kFolders), with(started(1, {"C:\\A"}, 522, 523), text(522)));
    EXPECT_EQ(panels, (Lines{text(521), text(507)}));
    EXPECT_EQ(statusOf(kFolders), text(507));
    EXPECT_EQ(iconOf(kFolders), 9);
    EXPECT_TRUE(machine.files.hasFolder("C:\\A"));
    EXPECT_TRUE(machine.files.everythingBelow("C:\\A").empty());
}

TEST_F(OwnListTasks, ShowTheNumberOfFoldersInTheRowTheyShareAndSelectIt) {
    folders({"C:\\A", "C:\\B", "C:\\C"});
    std::string during;
    bool selected = false;
    tick(gate(kFolders));
    main().txtLog.Change.connect([&] {
        if (!during.empty()) return;
        during = statusOf(kFolders);
        selected = main().lstTasks.item(text(220))->selected;
    });
    run(kFolders);
    EXPECT_EQ(name(kFolders), text(220));
    EXPECT_EQ(during, text(505) + " 3 " + text(517));
    EXPECT_TRUE(selected);
}

TEST_F(OwnListTasks, WaitBeforeTheFoldersAndNotBeforeTheFiles) {
    options().txtPurgeSpeed.setText("100");
    tick(gate(kFolders));
    tick(gate(kFiles));
    for (const auto& [step, pauses] : {std::pair{kFolders, 4U}, std::pair{kFiles, 2U}}) {
        const std::uint64_t before = machine.clock.sleeps;
        run(step);
        EXPECT_EQ(machine.clock.sleeps - before, pauses) << step;
    }
}

TEST_F(OwnListTasks, TellTheNumberNoughtForEmptyLists) {
    EXPECT_EQ(run(kFolders), with(started(0, {}, 519, 520), text(519)));
    EXPECT_EQ(statusOf(kFolders), text(507));
    emptyOnly();
    EXPECT_EQ(run(kFolders), with(started(0, {}, 522, 523), text(522)));
    EXPECT_EQ(run(kFiles), started(0, {}, 527, 526));
    EXPECT_EQ(statusOf(kFiles), text(507));
}

TEST_F(OwnListTasks, FinishWithoutALineWhenNeitherWayIsChosen) {
    folders({"C:\\A"});
    put("C:\\A\\x");
    tick(gate(kFolders));
    options().optDeleteFolder.design(false);
    EXPECT_EQ(run(kFolders), Lines{});
    EXPECT_EQ(panels, Lines{});
    EXPECT_EQ(statusOf(kFolders), text(507));
    EXPECT_EQ(iconOf(kFolders), 9);
    EXPECT_TRUE(main().lstTasks.item(text(220))->selected);
    EXPECT_TRUE(has("C:\\A\\x"));
}

TEST_F(OwnListTasks, StopBeforeTheFirstFolderThoughItsLineSaysOk) {
    folders({"C:\\A", "C:\\B"});
    put("C:\\A\\x");
    put("C:\\B\\y");
    tick(gate(kFolders));
    main().cmdStop_Click();
    EXPECT_EQ(run(kFolders), started(2, {"C:\\A", "C:\\B"}, 519, 520));
    EXPECT_EQ(panels, (Lines{text(518)}));
    EXPECT_EQ(statusOf(kFolders), text(506));
    EXPECT_EQ(iconOf(kFolders), 1);
    EXPECT_TRUE(has("C:\\A\\x"));
    EXPECT_TRUE(has("C:\\B\\y"));
}

TEST_F(OwnListTasks, SeeAStopBetweenTheLinesOnlyBehindTheLast) {
    emptyOnly();
    folders({"C:\\A", "C:\\B"});
    put("C:\\A\\x");
    put("C:\\B\\y");
    tick(gate(kFolders));
    stopBehind("C:\\A <OK>");
    Lines expected = started(2, {"C:\\A", "C:\\B"}, 522, 523);
    expected.insert(expected.begin() + 3, stopLine());
    EXPECT_EQ(run(kFolders), expected);
    EXPECT_EQ(statusOf(kFolders), text(506));
    EXPECT_TRUE(has("C:\\A\\x"));
    EXPECT_TRUE(has("C:\\B\\y"));
}

TEST_F(OwnListTasks, GoOnToTheLastFolderOnceTheyHaveBegun) {
    folders({"C:\\A", "C:\\B"});
    put("C:\\A\\x");
    put("C:\\B\\y");
    tick(gate(kFolders));
    machine.files.before("C:\\A", 1, [this] { main().cmdStop_Click(); });
    run(kFolders);
    EXPECT_FALSE(has("C:\\A"));
    EXPECT_FALSE(has("C:\\B"));
    EXPECT_EQ(statusOf(kFolders), text(507));
}

TEST_F(OwnListTasks, RecycleTheContentPieceByPieceAndTheFolderBehindIt) {
    method(1);
    folders({"C:\\A"});
    put("C:\\A\\x");
    put("C:\\A\\sub\\y");
    run(kFolders);
    ASSERT_EQ(machine.shell.recycled.size(), 3U);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\A\\x");
    EXPECT_EQ(machine.shell.recycled[1].originalPath, "C:\\A\\sub");
    EXPECT_EQ(machine.shell.recycled[2].originalPath, "C:\\A");
    EXPECT_EQ(machine.shell.recycled[2].totals.files, 0U);
    EXPECT_FALSE(has("C:\\A"));
}

TEST_F(OwnListTasks, KeepUnderRecycleWhatTheBinRefuses) {
    method(1);
    folders({"C:\\A"});
    put("C:\\A\\x");
    machine.shell.fileOperationFails = 5;
    EXPECT_EQ(run(kFolders), with(started(1, {"C:\\A"}, 519, 520), text(519)));
    EXPECT_TRUE(has("C:\\A\\x"));
}

TEST_F(OwnListTasks, OverwriteTheFilesDirectlyInAFolderAlone) {
    method(2);
    folders({"C:\\A"});
    put("C:\\A\\x");
    put("C:\\A\\sub\\y");
    run(kFolders);
    ASSERT_EQ(machine.files.overwritten.size(), 1U);
    EXPECT_EQ(machine.files.overwritten[0].path, "C:\\A\\x");
    EXPECT_FALSE(has("C:\\A"));
}

TEST_F(OwnListTasks, LeaveEverythingWithoutAReadableMethod) {
    folders({"C:\\A"});
    put("C:\\A\\x");
    const Lines expected = with(started(1, {"C:\\A"}, 519, 520), text(519));
    tick(gate(kFolders));
    for (int entry = 732; entry <= 734; ++entry) program.LangText.set(entry, "renamed");
    EXPECT_EQ(run(kFolders), expected);
    EXPECT_TRUE(has("C:\\A\\x"));
}

TEST_F(OwnListTasks, TakeReadOnlyContentWithTheFolder) {
    folders({"C:\\A"});
    emptyOnly();
    put("C:\\A\\locked");
    put("C:\\A\\readonly");
    put("C:\\A\\sub\\readonly");
    machine.files.lock("C:\\A\\locked");
    machine.files.setAttributes("C:\\A\\readonly", attribute::ReadOnly);
    machine.files.setAttributes("C:\\A\\sub\\readonly", attribute::ReadOnly);
    EXPECT_EQ(run(kFolders), with(started(1, {"C:\\A"}, 522, 523), text(522)));
    EXPECT_EQ(machine.files.everythingBelow("C:\\A"), (Lines{"C:\\A\\locked", "C:\\A\\readonly"}));
    // Removing the folder too takes all but what is open.
    options().optDeleteFolder.setValue(-1);
    run(kFolders);
    EXPECT_EQ(machine.files.everythingBelow("C:\\A"), (Lines{"C:\\A\\locked"}));
}

// --- what a list may hold

struct OddFolders : OwnListTasks, testing::WithParamInterface<int> {
    // Under every method, as folders to empty and as folders to remove.
    void runAll() {
        method(GetParam());
        run(kFolders);
        emptyOnly();
        run(kFolders);
    }
};
INSTANTIATE_TEST_SUITE_P(EveryMethod, OddFolders, testing::Values(0, 1, 2));

TEST_P(OddFolders, ThatNoOneMayEmptyStayUnderEverySpelling) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 1000, 2000);
    const Lines precious{"C:\\root.txt",        "C:\\Windows\\explorer.exe",    "C:\\Windows\\System32\\kernel32.dll",
                         "D:\\data\\photo.jpg", "C:\\Program Files\\P\\p.exe",  "C:\\ProgramData\\P\\p.dat",
                         "C:\\Users\\Anna\\a",  "C:\\Users\\Anna\\Desktop\\b",  "C:\\Users\\Otto\\c",
                         "C:\\WINNT\\d",        "C:\\Documents and Settings\\e"};
    for (const std::string& path : precious) put(path);
    const Lines before = machine.files.everythingBelow("C:\\");
    const Lines places{"C:",
                       "C:\\",
                       "c:\\",
                       "C:/",
                       "C:\\\\",
                       "C:\\.",
                       "C:\\..",
                       "C:\\Users\\..",
                       "D:\\",
                       "D:\\.",
                       "\\\\?\\C:\\",
                       "\\\\?\\D:\\",
                       "\\\\.\\C:\\",
                       "\\\\localhost\\C$",
                       "\\\\localhost\\C$\\",
                       "C:\\Windows",
                       "C:\\WINDOWS\\",
                       "C:/Windows",
                       "C:\\Windows.",
                       "C:\\Windows ",
                       "C:\\Windows\\.",
                       "C:\\Users\\..\\Windows",
                       "\\\\?\\C:\\Windows",
                       "\\\\?\\C:\\Windows\\",
                       "C:\\Windows\\System32",
                       "C:\\PROGRA~1",
                       "C:\\Program Files",
                       "C:\\Program Files\\",
                       "C:\\ProgramData",
                       "C:\\Users",
                       "C:\\Users\\Anna",
                       "C:\\Users\\Otto\\",
                       "C:\\WINNT",
                       "C:\\Documents and Settings",
                       "",
                       " ",
                       "\\",
                       "/",
                       ".",
                       "..",
                       "*",
                       "*.*",
                       "Windows",
                       "C:Windows",
                       "\\Windows",
                       "%WINDIR%",
                       "C:\\?indows",
                       "C:\\Win*",
                       "C:\\User?\\Anna"};
    folders(places);
    runAll();
    EXPECT_EQ(machine.files.everythingBelow("C:\\"), before);
    EXPECT_TRUE(has("D:\\data\\photo.jpg"));
    EXPECT_TRUE(machine.shell.recycled.empty());
    EXPECT_TRUE(machine.files.overwritten.empty());
    EXPECT_FALSE(machine.warnings.empty());
    EXPECT_EQ(statusOf(kFolders), text(507));
}

TEST_P(OddFolders, ThatAreMissingFilesOrLinksHarmNothingElse) {
    put("C:\\keep\\wanted");
    put("C:\\Data\\file.txt");
    machine.files.putLink("C:\\Data\\link", "C:\\keep");
    machine.files.putLink("C:\\Data\\dead", "C:\\nowhere");
    folders({"C:\\missing", "Q:\\no\\drive", "C:\\Data\\link", "C:\\Data\\link\\", "C:\\Data\\dead",
             "\\\\server\\share\\folder", "\\\\server", "\\\\?\\UNC\\server\\share\\x", "C:\\keep\\wanted\\below"});
    runAll();
    EXPECT_TRUE(has("C:\\keep\\wanted"));
    EXPECT_TRUE(has("C:\\Data\\file.txt"));
    EXPECT_EQ(statusOf(kFolders), text(507));
}

TEST_P(OddFolders, InTheLongFormAreRefusedAndTold) {
    put("C:\\Data\\x");
    folders({"\\\\?\\C:\\Data"});
    runAll();
    EXPECT_TRUE(has("C:\\Data\\x"));
    EXPECT_FALSE(machine.warnings.empty());
}

// An own folder that names a file is removed as the file that it is.
TEST_P(OddFolders, ThatAreAFileGoAsTheFile) {
    put("C:\\Data\\file.txt");
    put("C:\\Data\\other.txt");
    folders({"C:\\Data\\file.txt"});
    method(GetParam());
    run(kFolders);
    EXPECT_EQ(machine.files.everythingBelow("C:\\Data"), (Lines{"C:\\Data\\other.txt"}));
}

// --- files and keys

TEST_F(OwnListTasks, TellInLogAndPanelThatTheFilesAreOff) {
    files({"C:\\x"});
    put("C:\\x");
    for (const int value : {0, 2}) {
        main().setPanel(1, "");
        EXPECT_EQ(run(kFiles, value), (Lines{text(527) + " " + text(509)}));
        EXPECT_EQ(panels, (Lines{text(527) + " " + text(509)}));
    }
    EXPECT_TRUE(has("C:\\x"));
}

TEST_F(OwnListTasks, RemoveFilesAndRegistryKeysAlike) {
    const Lines list{"C:\\D\\x.txt", "HKEY_CURRENT_USER\\Software\\X", "C:\\D\\*.tmp",
                     "hkey_current_user\\Software\\Y\\Z"};
    files(list);
    put("C:\\D\\x.txt");
    put("C:\\D\\a.tmp");
    put("C:\\D\\b.tmp");
    put("C:\\D\\keep.txt");
    main();
    putKey("Software\\X\\Deep\\Deeper", 2);
    putKey("Software\\Y\\Z");
    putKey("Software\\Keep");
    EXPECT_EQ(run(kFiles), started(4, list, 527, 526));
    EXPECT_EQ(panels, Lines{});
    EXPECT_EQ(statusOf(kFiles), text(507));
    EXPECT_EQ(iconOf(kFiles), 9);
    EXPECT_EQ(machine.files.everythingBelow("C:\\D"), (Lines{"C:\\D\\keep.txt"}));
    EXPECT_FALSE(hasKey("Software\\X"));
    EXPECT_FALSE(hasKey("Software\\Y\\Z"));
    EXPECT_TRUE(hasKey("Software\\Y"));
    EXPECT_TRUE(hasKey("Software\\Keep"));
}

TEST_F(OwnListTasks, ShowTheNumberOfEntriesInTheSharedRow) {
    files({"C:\\a", "C:\\b"});
    std::string during;
    tick(gate(kFiles));
    main().txtLog.Change.connect([&] {
        if (during.empty()) during = statusOf(kFiles);
    });
    run(kFiles);
    EXPECT_EQ(name(kFiles), text(220));
    EXPECT_EQ(during, text(505) + " 2 " + text(525));
    EXPECT_TRUE(main().lstTasks.item(text(220))->selected);
}

TEST_F(OwnListTasks, WorkOnFilesByTheChosenMethod) {
    method(1);
    files({"C:\\D\\a"});
    put("C:\\D\\a");
    run(kFiles);
    ASSERT_EQ(machine.shell.recycled.size(), 1U);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, "C:\\D\\a");
    method(2);
    put("C:\\D\\a");
    run(kFiles);
    ASSERT_EQ(machine.files.overwritten.size(), 1U);
    EXPECT_FALSE(has("C:\\D\\a"));
}

TEST_F(OwnListTasks, RemoveKeysAndNoFilesWithoutAReadableMethod) {
    files({"C:\\D\\a", "HKEY_CURRENT_USER\\Software\\X"});
    put("C:\\D\\a");
    main();
    putKey("Software\\X");
    tick(gate(kFiles));
    for (int entry = 732; entry <= 734; ++entry) program.LangText.set(entry, "renamed");
    run(kFiles);
    EXPECT_TRUE(has("C:\\D\\a"));
    EXPECT_FALSE(hasKey("Software\\X"));
}

TEST_F(OwnListTasks, StopBeforeTheFirstFileThoughItsLineSaysOk) {
    files({"C:\\D\\a", "HKEY_CURRENT_USER\\Software\\X"});
    put("C:\\D\\a");
    main();
    putKey("Software\\X");
    tick(gate(kFiles));
    stopBehind("C:\\D\\a <OK>");
    Lines expected = started(2, {"C:\\D\\a", "HKEY_CURRENT_USER\\Software\\X"}, 527, 526);
    expected.insert(expected.begin() + 3, stopLine());
    EXPECT_EQ(run(kFiles), expected);
    EXPECT_EQ(statusOf(kFiles), text(506));
    EXPECT_EQ(iconOf(kFiles), 1);
    EXPECT_TRUE(has("C:\\D\\a"));
    EXPECT_TRUE(hasKey("Software\\X"));
}

TEST_F(OwnListTasks, WarnOfARelativeFileAndNotOfAKeyThatIsNoFile) {
    files({"HKEY_CURRENT_USER\\Software\\X", "hkey_current_user\\Software\\Y"});
    for (int row = 0; row < 3; ++row) {
        method(row);
        run(kFiles);
    }
    EXPECT_TRUE(machine.warnings.empty());
    method(0);
    files({"note.txt"});
    run(kFiles);
    EXPECT_EQ(machine.warnings.size(), 1U);
}

TEST_F(OwnListTasks, LogEntriesThatDoNotExistAsDone) {
    const Lines list{"C:\\missing", "HKEY_CURRENT_USER\\Software\\Missing", "nonsense", ""};
    files(list);
    EXPECT_EQ(run(kFiles), started(4, list, 527, 526));
    EXPECT_EQ(iconOf(kFiles), 9);
}

TEST_F(OwnListTasks, NeverEmptyAHiveNorItsGreatKeys) {
    files({"HKEY_CURRENT_USER\\", "HKEY_CURRENT_USER", "HKEY_CURRENT_USER\\Software", "HKEY_CURRENT_USER\\Software\\",
           "HKEY_LOCAL_MACHINE\\", "HKEY_LOCAL_MACHINE\\SYSTEM", "HKEY_USERS\\", "HKEY_CLASSES_ROOT\\"});
    main();
    putKey("Software\\Keep");
    run(kFiles);
    EXPECT_TRUE(hasKey("Software\\Keep"));
    EXPECT_NE(machine.registryTree.find("Machine\\System"), nullptr);
    EXPECT_EQ(statusOf(kFiles), text(507));
}

TEST_F(OwnListTasks, EndAtAKeyThatCannotBeRemoved) {
    files({"HKEY_CURRENT_USER\\Software\\X", "C:\\D\\behind"});
    put("C:\\D\\behind");
    main();
    putKey("Software\\X\\Closed\\Leaf");
    machine.registry.deny(platform::HKEY_CURRENT_USER_, "Software\\X\\Closed\\Leaf");
    run(kFiles);  // would go round for ever
    EXPECT_FALSE(has("C:\\D\\behind"));
    EXPECT_EQ(statusOf(kFiles), text(507));
}

struct OddFiles : OwnListTasks, testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(EveryMethod, OddFiles, testing::Values(0, 1, 2));

TEST_P(OddFiles, ThatNameNoFileHarmNothing) {
    put("C:\\keep.txt");
    put("C:\\Data\\keep.txt");
    put("C:\\Users\\Anna\\note.txt");
    machine.files.putFile("C:\\hidden.sys", "x");
    machine.files.setAttributes("C:\\hidden.sys", attribute::Hidden | attribute::System);
    method(GetParam());
    files({"",
           " ",
           "\\",
           "C:",
           "C:\\",
           "C:\\Windows",
           "C:\\Windows\\",
           "C:\\Users",
           "C:\\Users\\Anna",
           "keep.txt",
           ".\\keep.txt",
           "..",
           "*",
           "*.*",
           "\\keep.txt",
           "C:keep.txt",
           "\\\\server\\share\\x",
           "\\\\?\\C:\\",
           "C:\\Data\\",
           "C:\\Data\\..",
           "C:\\hidden.sys\\",
           "C:\\keep.txt:stream"});
    run(kFiles);
    EXPECT_TRUE(has("C:\\keep.txt"));
    EXPECT_TRUE(has("C:\\hidden.sys"));
    EXPECT_TRUE(has("C:\\Users\\Anna\\note.txt"));
    EXPECT_TRUE(has("C:\\Windows\\Temp"));
    EXPECT_TRUE(has("C:\\Data\\keep.txt"));
    EXPECT_EQ(statusOf(kFiles), text(507));
}

// --- both

TEST_F(OwnListTasks, ShareOneRowInAWholeRun) {
    folders({"C:\\A"});
    files({"C:\\D\\a"});
    put("C:\\A\\x");
    put("C:\\D\\a");
    options().chkActivateOwnFolder.Value = 1;
    options().chkActivateOwnFiles.Value = 1;
    main().rebuildTaskRows();
    EXPECT_EQ(main().lstTasks.Count(), 1);
    clean();
    EXPECT_EQ(status(text(220)), text(507));
    EXPECT_FALSE(has("C:\\A"));
    EXPECT_FALSE(has("C:\\D\\a"));
    const Lines log = logFrom(text(519) + " " + text(510));
    ASSERT_GE(log.size(), 7U);
    EXPECT_EQ(log[3], text(519));
    EXPECT_EQ(log[4], text(527) + " " + text(510));
}

}  // namespace
}  // namespace tidvane::tests
