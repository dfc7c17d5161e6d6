#include <gtest/gtest.h>

#include "memory_session.h"

namespace tidvane::console {
namespace {

using tests::contains;
using tests::kProgramFolder;

class ListsCommand : public ::testing::Test {
protected:
    int lists(ListsAction action, const std::string& list, std::vector<std::string> texts = {}) {
        options.lists = {action, list, std::move(texts)};
        machine.out.str({});
        machine.err.str({});
        return listsCommand(machine.session, options);
    }
    int add(const std::string& list, std::vector<std::string> texts) {
        return lists(ListsAction::Add, list, std::move(texts));
    }
    int remove(const std::string& list, std::vector<std::string> texts) {
        return lists(ListsAction::Remove, list, std::move(texts));
    }
    [[nodiscard]] std::string file(const std::string& name) const {
        return machine.memory.files.bytesOf(kProgramFolder + name).value_or("none");
    }
    void putFile(const std::string& name, const std::string& content) {
        machine.memory.files.putFile(kProgramFolder + name, content);
    }

    tests::MemorySession machine;
    Options options;
};

TEST_F(ListsCommand, AddsToTheFileThatTheWindowWouldWrite) {
    EXPECT_EQ(add("folders", {"D:\\Old", "D:\\Older"}), exit_status::Done) << machine.messages();
    EXPECT_EQ(file("td_folders.dat"), "D:\\Old\r\nD:\\Older\r\n");
    EXPECT_EQ(add("files", {"HKEY_CURRENT_USER\\Software\\X"}), exit_status::Done) << machine.messages();
    EXPECT_EQ(file("td_fkeys.dat"), "HKEY_CURRENT_USER\\Software\\X\r\n");
    EXPECT_EQ(add("masks", {"*.tmp"}), exit_status::Done) << machine.messages();
    EXPECT_EQ(file("td_ftypes.dat"), "*.tmp\r\n");
    EXPECT_EQ(machine.messages(), "");
}

TEST_F(ListsCommand, AddsBehindWhatIsThere) {
    putFile("td_folders.dat", "D:\\First\r\n");
    add("folders", {"D:\\Second"});
    EXPECT_EQ(file("td_folders.dat"), "D:\\First\r\nD:\\Second\r\n");
}

TEST_F(ListsCommand, ChangesNoOtherListAndNoSetting) {
    putFile("td_config.ini", "[frmOptions]\r\ntxtPurgeSpeed=3\r\n");
    putFile("td_ftypes.dat", "*.a, \"*.b\"\r\n");
    add("folders", {"D:\\Old"});
    EXPECT_EQ(machine.storedSettings(), "[frmOptions]\r\ntxtPurgeSpeed=3\r\n");
    EXPECT_EQ(file("td_ftypes.dat"), "*.a, \"*.b\"\r\n") << "not even taken apart for good";
    EXPECT_EQ(file("td_flog.dat"), "none");
    EXPECT_EQ(file("td_fkeys.dat"), "none");
}

TEST_F(ListsCommand, SaysWhichStepTheListWaitsFor) {
    add("files", {"D:\\a.txt"});
    EXPECT_TRUE(contains(machine.log(), "Added: D:\\a.txt\n"));
    EXPECT_TRUE(contains(machine.log(), "--tick chkActivateOwnFiles.\n"));
    putFile("td_config.ini", "[frmOptions]\r\nchkActivateOwnFiles=1\r\n");
    add("files", {"D:\\b.txt"});
    EXPECT_FALSE(contains(machine.log(), "--tick"));
}

TEST_F(ListsCommand, WarnsOfEntriesThatARunPassesOver) {
    EXPECT_EQ(add("folders", {"relative", "D:\\Old", "%TEMP%"}), exit_status::Done);
    EXPECT_TRUE(
        contains(machine.messages(), "Warning: \"relative\" is not a full path with a drive or a share; a run"));
    EXPECT_TRUE(contains(machine.messages(), "\"%TEMP%\" is not a full path"));
    EXPECT_FALSE(contains(machine.messages(), "D:\\Old"));
    EXPECT_EQ(file("td_folders.dat"), "relative\r\nD:\\Old\r\n%TEMP%\r\n") << "added all the same, as the window does";
    EXPECT_EQ(
        add("files", {"HKCU\\Software\\X", "HKEY_CURRENT_CONFIG\\X\\Y", "hkey_users\\X\\Y\\Z", "\\\\server\\share\\a"}),
        exit_status::Done);
    EXPECT_TRUE(
        contains(machine.messages(), "\"HKCU\\Software\\X\" is not a full path with a drive or a share, nor a key"));
    EXPECT_TRUE(contains(machine.messages(), "\"HKEY_CURRENT_CONFIG\\X\\Y\" is not"));
    EXPECT_FALSE(contains(machine.messages(), "hkey_users"));
    EXPECT_FALSE(contains(machine.messages(), "server"));
    EXPECT_EQ(add("masks", {"*.tmp"}), exit_status::Done);
    EXPECT_EQ(machine.messages(), "");
    EXPECT_EQ(remove("folders", {"relative"}), exit_status::Done);
    EXPECT_EQ(machine.messages(), "");
}

TEST_F(ListsCommand, ShowsTheBanAsTheWindowDoesAndChangesNothing) {
    EXPECT_EQ(add("folders", {"D:\\Old", "C:\\Windows", "D:\\Older"}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(),
                         "[Tidvane] For system safety reasons this specific location has been banned.\nAnswer: OK\n"));
    EXPECT_TRUE(contains(machine.messages(), "Nothing was changed in the list of folders.\n"));
    EXPECT_EQ(file("td_folders.dat"), "none") << "all entries or none";
}

TEST_F(ListsCommand, AnswersAnEmptyTextAsTheWindowDoes) {
    for (const char* list : {"folders", "files"}) {
        EXPECT_EQ(add(list, {""}), exit_status::Usage);
        EXPECT_TRUE(contains(machine.messages(), "[Tidvane] Please")) << machine.messages();
    }
    EXPECT_EQ(add("masks", {""}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "can match no file"));
    EXPECT_EQ(add("folders", {"  "}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "blanks alone"));
}

TEST_F(ListsCommand, AsksBeforeItAddsWhatAListTakesApart) {
    EXPECT_EQ(add("folders", {"D:\\Data, old"}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "\nD:\\Data\nold\n"));
    EXPECT_TRUE(contains(machine.messages(), "Answer: no\n"));
    EXPECT_EQ(file("td_folders.dat"), "none");
    options.answerYes = true;
    EXPECT_EQ(add("folders", {"D:\\Data, old"}), exit_status::Done);
    EXPECT_EQ(file("td_folders.dat"), "D:\\Data, old\r\n");
}

TEST_F(ListsCommand, RefusesMasksThatCanMatchNothing) {
    for (const char* mask : {"..", ".", "a\\b", "a/b", "C:*.tmp"}) {
        EXPECT_EQ(add("masks", {mask}), exit_status::Usage) << mask;
        EXPECT_TRUE(contains(machine.messages(), "can match no file"));
    }
    EXPECT_EQ(file("td_ftypes.dat"), "none");
}

TEST_F(ListsCommand, RefusesMasksThatTheDeliveredListOfProtectedPlacesNames) {
    for (const char* mask : {"*", "*.*", "*.exe", "*.dll", "*.sys"}) {
        EXPECT_EQ(add("masks", {mask}), exit_status::Usage) << mask;
        EXPECT_TRUE(contains(machine.messages(), "has been banned")) << mask;
    }
}

TEST_F(ListsCommand, RefusesWhatTheCodePageLacks) {
    EXPECT_EQ(add("folders", {"D:\\日本"}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "code page"));
    EXPECT_EQ(file("td_folders.dat"), "none");
}

TEST_F(ListsCommand, RemovesByTheTextInAnyCase) {
    putFile("td_folders.dat", "D:\\A\r\nD:\\B\r\nd:\\a\r\nD:\\AB\r\n");
    EXPECT_EQ(remove("folders", {"D:\\a"}), exit_status::Done);
    EXPECT_EQ(file("td_folders.dat"), "D:\\B\r\nD:\\AB\r\n");
    EXPECT_EQ(machine.log(), "Removed: D:\\a\n");
    EXPECT_EQ(machine.messages(), "");
}

TEST_F(ListsCommand, RefusesToRemoveWhatIsNotThere) {
    putFile("td_ftypes.dat", "*.tmp\r\n*.bak\r\n");
    EXPECT_EQ(remove("masks", {"*.tmp", "*.old"}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "no entry \"*.old\"; the command \"lists show masks\""));
    EXPECT_EQ(file("td_ftypes.dat"), "*.tmp\r\n*.bak\r\n");
}

TEST_F(ListsCommand, ShowsOneListLineForLine) {
    putFile("td_folders.dat", "D:\\B\r\nD:\\A\r\n");
    EXPECT_EQ(lists(ListsAction::Show, "folders"), exit_status::Done);
    EXPECT_EQ(machine.log(), "D:\\B\nD:\\A\n");
}

TEST_F(ListsCommand, ShowsAllListsWithTheirNames) {
    putFile("td_folders.dat", "D:\\A\r\n");
    putFile("td_fkeys.dat", "D:\\a.txt\r\n");
    putFile("td_ftypes.dat", "*.tmp\r\n");
    EXPECT_EQ(lists(ListsAction::Show, ""), exit_status::Done);
    EXPECT_EQ(machine.log(), "folders  D:\\A\nfiles    D:\\a.txt\nmasks    *.tmp\n");
}

TEST_F(ListsCommand, ShowsNoControlCharacterOfAnEntry) {
    putFile("td_folders.dat", "D:\\A\x1B[2J\r\nD:\\B\x07\r\n");
    lists(ListsAction::Show, "folders");
    EXPECT_EQ(machine.log(), "D:\\A?[2J\nD:\\B?\n");
    lists(ListsAction::Show, "");
    EXPECT_EQ(machine.log(), "folders  D:\\A?[2J\nfolders  D:\\B?\n");
}

TEST_F(ListsCommand, WarnsOfALineThatIsTakenApart) {
    putFile("td_folders.dat", "D:\\Data, old\r\n");
    lists(ListsAction::Show, "folders");
    EXPECT_EQ(machine.log(), "D:\\Data\nold\n");
    EXPECT_TRUE(contains(machine.messages(), "Warning: td_folders.dat: "));
}

TEST_F(ListsCommand, LeavesAFileAloneThatCannotBeRead) {
    putFile("td_folders.dat", "D:\\A\r\n");
    machine.memory.files.lock(kProgramFolder + "td_folders.dat");
    EXPECT_EQ(add("folders", {"D:\\B"}), exit_status::MachineUnusable);
    EXPECT_TRUE(contains(machine.messages(), "td_folders.dat c"));
    EXPECT_EQ(file("td_folders.dat"), "D:\\A\r\n");
}

TEST_F(ListsCommand, AsksBeforeItStoresOtherLinesThanTheFileHas) {
    const std::string before = "D:\\Data, old\r\n\"D:\\Quoted\"\r\nD:\\Plain\r\n";
    putFile("td_folders.dat", before);
    EXPECT_EQ(add("folders", {"D:\\New"}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(),
                         "[Tidvane] td_folders.dat: the line \"D:\\Data, old\" is read as:\nD:\\Data\nold\n"
                         "td_folders.dat: the line \"\"D:\\Quoted\"\" is read as:\nD:\\Quoted\n"))
        << machine.messages();
    EXPECT_TRUE(contains(machine.messages(),
                         "Answer: no\nNothing was changed in the list of folders; agree with "
                         "--answer yes"));
    EXPECT_EQ(remove("folders", {"D:\\Plain"}), exit_status::Usage);
    EXPECT_EQ(file("td_folders.dat"), before);
    EXPECT_EQ(machine.log(), "");
    options.answerYes = true;
    EXPECT_EQ(add("folders", {"D:\\New"}), exit_status::Done);
    EXPECT_EQ(file("td_folders.dat"), "D:\\Data\r\nold\r\nD:\\Quoted\r\nD:\\Plain\r\nD:\\New\r\n");
}

TEST_F(ListsCommand, AsksNothingAboutLinesWhoseEntriesAreTakenOut) {
    putFile("td_folders.dat", "D:\\Data, old\r\nD:\\Plain\r\n");
    EXPECT_EQ(remove("folders", {"D:\\Data"}), exit_status::Usage) << "the other half would become a line";
    EXPECT_EQ(remove("folders", {"D:\\Data", "old"}), exit_status::Done) << machine.messages();
    EXPECT_EQ(file("td_folders.dat"), "D:\\Plain\r\n");
}

TEST_F(ListsCommand, AsksNothingAboutLinesOfOtherLists) {
    putFile("td_folders.dat", "D:\\Data, old\r\n");
    EXPECT_EQ(add("files", {"D:\\a.txt"}), exit_status::Done) << machine.messages();
    EXPECT_FALSE(contains(machine.messages(), "Answer:"));
}

TEST_F(ListsCommand, TellsTheFirstOfManyChangedLines) {
    std::string content;
    for (int line = 0; line < 5000; ++line) content += "D:\\" + std::to_string(line) + ",x\r\n";
    putFile("td_folders.dat", content);
    EXPECT_EQ(add("folders", {"D:\\New"}), exit_status::Usage);
    EXPECT_TRUE(contains(machine.messages(), "\"D:\\9,x\" is read as:\nD:\\9\nx\nand so are 4990 more line(s).\n"));
    EXPECT_FALSE(contains(machine.messages(), "\"D:\\10,x\" is read"));
}

TEST_F(ListsCommand, ChangesNothingBesideAnotherProgram) {
    putFile("td_folders.dat", "D:\\A\r\n");
    machine.memory.processes.otherInstanceRuns = true;
    for (const ListsAction action : {ListsAction::Add, ListsAction::Remove}) {
        EXPECT_EQ(lists(action, "folders", {"D:\\A"}), exit_status::MachineUnusable);
        EXPECT_TRUE(contains(machine.messages(), "Tidvane is already running on this machine"));
    }
    EXPECT_EQ(file("td_folders.dat"), "D:\\A\r\n");
    EXPECT_EQ(lists(ListsAction::Show, "folders"), exit_status::Done) << "looking is allowed";
}

TEST_F(ListsCommand, KeepsOthersOutFromTheFirstLookAtTheListOn) {
    putFile("td_folders.dat", "D:\\A\r\n");
    bool locked = false;
    machine.memory.files.before(kProgramFolder + "td_folders.dat", 1,
                                [&] { locked = machine.memory.processes.holdsInstanceLock; });
    EXPECT_EQ(add("folders", {"D:\\B"}), exit_status::Done);
    EXPECT_TRUE(locked);
    EXPECT_FALSE(machine.memory.processes.holdsInstanceLock) << "given back";
}

TEST_F(ListsCommand, HoldsInTheNextRun) {
    machine.memory.files.putFile("C:\\Junk\\a.txt", "x");
    add("folders", {"C:\\Junk"});
    lists(ListsAction::Show, "folders");
    EXPECT_EQ(machine.log(), "C:\\Junk\n");
}

}  // namespace
}  // namespace tidvane::console
