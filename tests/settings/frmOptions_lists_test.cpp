#include <gtest/gtest.h>

#include "options_fixture.h"
#include "settings/bans.h"

namespace tidvane::settings {
namespace {

using Rows = std::vector<std::string>;
using forms::msgbox::Critical;
using forms::msgbox::Information;

struct OwnLists : testing::Test {
    OptionsFixture machine;
    frmOptions* window = nullptr;

    // With a ban file that bans something, so that no warning tells of a missing one.
    void SetUp() override { machine.putBeside("td_ban.dat", "FIRST LINE\r\nC:\\WINDOWS\r\n*.dll\r\n"); }

    frmOptions& options() {
        if (window == nullptr) {
            window = &machine.options();
            for (forms::CheckBox* box :
                 {&window->chkActivateOwnFolder, &window->chkActivateOwnFiles, &window->chkSearchTasks}) {
                box->Value = 1;
            }
        }
        return *window;
    }
    const ScriptedDisplay::Box& onlyBox() {
        EXPECT_EQ(machine.display.boxes.size(), 1u);
        static const ScriptedDisplay::Box none;
        return machine.display.boxes.empty() ? none : machine.display.boxes.back();
    }
};

// --- adding

TEST_F(OwnLists, AddsAnEntryAtTheEndAndEmptiesTheLine) {
    options().lstFolders.AddItem("C:\\First");
    options().txtAddFolderPath.setText("C:\\Second");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\First", "C:\\Second"}));
    EXPECT_EQ(options().txtAddFolderPath.Text(), "");

    options().txtAddFilePath.setText("HKEY_CURRENT_USER\\Software\\X");
    options().cmdAddFilePath.press();
    EXPECT_EQ(rows(options().lstFiles), (Rows{"HKEY_CURRENT_USER\\Software\\X"}));
    EXPECT_EQ(options().txtAddFilePath.Text(), "");

    options().txtSearchMask.setText("*.bak");
    options().cmdAddSearchMask.press();
    EXPECT_EQ(rows(options().lstSearchMasks), (Rows{"*.bak"}));
    EXPECT_EQ(options().txtSearchMask.Text(), "");
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST_F(OwnLists, TakesADuplicateAndAPathThatDoesNotExist) {
    for (int i = 0; i < 2; ++i) {
        options().txtAddFolderPath.setText("Q:\\nowhere");
        options().cmdAddFolderPath.press();
    }
    EXPECT_EQ(rows(options().lstFolders), (Rows{"Q:\\nowhere", "Q:\\nowhere"}));
}

TEST_F(OwnLists, AnswersAnEmptyLineOfFoldersAndFiles) {
    options().cmdAddFolderPath.press();
    options().cmdAddFilePath.press();
    ASSERT_EQ(machine.display.boxes.size(), 2u);
    for (const auto& box : machine.display.boxes) {
        EXPECT_EQ(box.text, "L384");
        EXPECT_EQ(box.title, "Tidvane");
        EXPECT_EQ(box.style, Information);
    }
    EXPECT_EQ(options().lstFolders.ListCount(), 0);
}

TEST_F(OwnLists, KeepsABannedEntryOutAndInTheLine) {
    options().txtAddFolderPath.setText("c:\\windows");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(options().lstFolders.ListCount(), 0);
    EXPECT_EQ(options().txtAddFolderPath.Text(), "c:\\windows");
    EXPECT_EQ(onlyBox().text, "For system safety reasons this specific location has been banned.");
    EXPECT_EQ(onlyBox().style, Critical);
}

TEST_F(OwnLists, BansMasksAndFilesAlike) {
    options().txtSearchMask.setText("*.DLL");
    options().cmdAddSearchMask.press();
    options().txtAddFilePath.setText("S");
    options().cmdAddFilePath.press();
    EXPECT_EQ(machine.display.boxes.size(), 2u);
    EXPECT_EQ(options().lstSearchMasks.ListCount() + options().lstFiles.ListCount(), 0);
}

TEST_F(OwnLists, RefusesAHiveOfTheRegistry) {
    options().txtAddFilePath.setText("HKEY_CURRENT_USER\\Software");
    options().cmdAddFilePath.press();
    EXPECT_EQ(options().lstFiles.ListCount(), 0);
    EXPECT_EQ(onlyBox().style, Critical);
}

TEST_F(OwnLists, TrimsForTheCheckAndAddsAsTyped) {
    options().txtAddFolderPath.setText("  C:\\Data ");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(rows(options().lstFolders), (Rows{"  C:\\Data "}));
    options().txtAddFolderPath.setText("  C:\\WINDOWS ");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(options().lstFolders.ListCount(), 1);
}

TEST_F(OwnLists, AddsAnythingWithoutABanFileAndSaysOnceThatItIsGone) {
    machine.files().take("C:\\Program Files\\Tidvane\\td_ban.dat");
    for (const char* text : {"C:\\WINDOWS", "C:\\X"}) {
        options().txtAddFolderPath.setText(text);
        options().cmdAddFolderPath.press();
    }
    EXPECT_EQ(options().lstFolders.ListCount(), 2);
    machine.program.windows.unload(options());
    window = nullptr;
    options().txtAddFolderPath.setText("C:\\Y");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(machine.display.warnings.size(), 1u);
}

TEST_F(OwnLists, RefuseWhatTheirFileWouldKeepAsAWildcard) {
    machine.files().putFolder("C:\\Ж");
    options().txtAddFolderPath.setText("C:\\Ж");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(options().txtAddFolderPath.Text(), "C:\\Ж");
    options().dropOnFolders({"C:\\Ж"});
    options().txtSearchMask.setText("*.Ж");
    options().cmdAddSearchMask.press();
    ASSERT_EQ(machine.display.boxes.size(), 3u);
    for (const auto& box : machine.display.boxes) EXPECT_EQ(box.style, forms::msgbox::Exclamation);
    EXPECT_EQ(options().lstFolders.ListCount() + options().lstSearchMasks.ListCount(), 0);

    options().txtAddFolderPath.setText("C:\\Größe €");
    options().cmdAddFolderPath.press();
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\Größe €"}));
}

TEST_F(OwnLists, KeepABannedEntryOutThatReadingWouldBringForth) {
    machine.display.questionAnswer = forms::msgbox::Yes;
    for (const char* text : {"C:\\x,C:\\WINDOWS", "\"C:\\Windows\"", "x,HKEY_CURRENT_USER\\Software"}) {
        machine.display.boxes.clear();
        options().txtAddFilePath.setText(text);
        options().cmdAddFilePath.press();
        EXPECT_EQ(onlyBox().text, kBanMessage) << text;
        EXPECT_EQ(options().txtAddFilePath.Text(), text);
    }
    EXPECT_EQ(options().lstFiles.ListCount(), 0);
}

TEST_F(OwnLists, AsksBeforeAnEntryThatReadingWouldTakeApart) {
    options().txtAddFolderPath.setText("C:\\Data, old");
    machine.display.answers = {forms::msgbox::No};
    options().cmdAddFolderPath.press();
    EXPECT_EQ(options().lstFolders.ListCount(), 0);
    EXPECT_EQ(options().txtAddFolderPath.Text(), "C:\\Data, old");
    EXPECT_NE(onlyBox().text.find("C:\\Data\r\nold"), std::string::npos) << onlyBox().text;

    machine.display.answers = {forms::msgbox::Yes};
    options().cmdAddFolderPath.press();
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\Data, old"}));
}

TEST_F(OwnLists, APathWithACommaComesBackAsTwoRows) {
    options().txtAddFolderPath.setText("C:\\Data, old");
    machine.display.answers = {forms::msgbox::Yes};
    options().cmdAddFolderPath.press();
    options().cmdOK.setValue(true);
    machine.program.windows.sweep();
    EXPECT_EQ(rows(machine.options().lstFolders), (Rows{"C:\\Data", "old"}));
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\Data, old\r\n") << "so far the file has it in one";
    machine.options().cmdOK.setValue(true);
    machine.program.windows.sweep();
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\Data\r\nold\r\n");
}

// --- the mask line

TEST_F(OwnLists, OffersToAddAMaskOnlyWhileThereIsOne) {
    options().tmrSearchMasks.fire();
    EXPECT_FALSE(options().cmdAddSearchMask.Enabled);
    options().txtSearchMask.setText("*.bak");
    options().tmrSearchMasks.fire();
    EXPECT_TRUE(options().cmdAddSearchMask.Enabled);
    options().chkSearchTasks.Value = 0;
    options().tmrSearchMasks.fire();
    EXPECT_FALSE(options().cmdAddSearchMask.Enabled);
}

TEST_F(OwnLists, TheAddButtonDoesNothingWithAnEmptyMask) {
    options().cmdAddSearchMask.Click();
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
    EXPECT_TRUE(machine.display.boxes.empty());
}

TEST_F(OwnLists, EnterAddsTheMask) {
    options().txtSearchMask.setText("*.bak");
    options().txtSearchMask.typeKey(13);
    EXPECT_EQ(rows(options().lstSearchMasks), (Rows{"*.bak"}));
    EXPECT_EQ(options().txtSearchMask.Text(), "");
}

TEST_F(OwnLists, EnterActsInTheMaskLineAlone) {
    options().txtSearchMask.setText("*.bak");
    options().keyPress(13, "txtAddFilePath");
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
}

TEST_F(OwnLists, EnterInAnEmptyMaskLineMeetsTheBan) {
    options().keyPress(13, "txtSearchMask");
    EXPECT_EQ(onlyBox().text, kBanMessage);
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
}

TEST_F(OwnLists, EnterInAnEmptyMaskLineAddsAnEmptyRowWithoutABanFile) {
    machine.files().take("C:\\Program Files\\Tidvane\\td_ban.dat");
    options().keyPress(13, "txtSearchMask");
    EXPECT_EQ(rows(options().lstSearchMasks), (Rows{""}));
}

TEST_F(OwnLists, EscapeClosesWithoutSaving) {
    options().chkRunList.Value = 1;
    options().txtSearchMask.typeKey(27);
    EXPECT_EQ(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
    EXPECT_EQ(machine.stored("chkRunList"), "");
}

TEST_F(OwnLists, EscapeClosesFromAnyControl) {
    for (const char* control : {"lstFolders", "chkTrash", "", "txtPurgeSpeed"}) {
        options().chkRunList.Value = 1;
        options().keyPress(27, control);
        EXPECT_EQ(machine.program.windows.ifLoaded(frmOptions::kName), nullptr) << control;
        EXPECT_EQ(machine.stored("chkRunList"), "") << control;
    }
}

TEST_F(OwnLists, OtherKeysDoNothing) {
    options().txtSearchMask.setText("*.bak");
    for (char32_t key = 0; key < 300; ++key) {
        if (key != 13 && key != 27) options().keyPress(key, "txtSearchMask");
    }
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
    EXPECT_NE(machine.program.windows.ifLoaded(frmOptions::kName), nullptr);
}

// --- removing and editing

TEST_F(OwnLists, RemoveAllEmptiesItsListAlone) {
    for (forms::ListBox* list : {&options().lstFolders, &options().lstFiles, &options().lstSearchMasks}) {
        list->AddItem("x");
    }
    options().cmdDeleteAll.press();
    EXPECT_EQ(options().lstFolders.ListCount(), 0);
    EXPECT_EQ(options().lstFiles.ListCount(), 1);
    options().cmdDeleteAll2.press();
    EXPECT_EQ(options().lstFiles.ListCount(), 0);
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 1);
    options().cmdRemoveAllSearchMasks.press();
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
}

TEST_F(OwnLists, RemoveSelectedTakesEverySelectedRow) {
    struct Pair {
        forms::ListBox* list;
        controls::isButton* button;
        const char* hint;
    };
    for (const Pair& pair : {Pair{&options().lstFolders, &options().cmdDeleteSelected, "L382"},
                             Pair{&options().lstFiles, &options().cmdDeleteSelected2, "L382"},
                             Pair{&options().lstSearchMasks, &options().cmdRemoveSearchMask, "L385"}}) {
        for (const char* row : {"a", "b", "c", "d"}) pair.list->AddItem(row);
        pair.list->setSelected(0, true);
        pair.list->setSelected(1, true);
        pair.list->setSelected(3, true);
        pair.button->press();
        EXPECT_EQ(rows(*pair.list), (Rows{"c"}));
        EXPECT_TRUE(machine.display.boxes.empty());

        pair.button->press();
        EXPECT_EQ(onlyBox().text, pair.hint);
        EXPECT_EQ(onlyBox().title, "Tidvane");
        EXPECT_EQ(onlyBox().style, Information);
        EXPECT_EQ(rows(*pair.list), (Rows{"c"}));
        machine.display.boxes.clear();
    }
}

TEST_F(OwnLists, EditMovesTheTopmostSelectedRowIntoTheLine) {
    for (const char* row : {"a", "b", "c"}) options().lstFolders.AddItem(row);
    options().lstFolders.setSelected(1, true);
    options().lstFolders.setSelected(2, true);
    options().txtAddFolderPath.setText("typed");
    options().cmdEditFolders.press();
    EXPECT_EQ(options().txtAddFolderPath.Text(), "b");
    EXPECT_EQ(rows(options().lstFolders), (Rows{"a"}));
}

TEST_F(OwnLists, EditWithoutASelectionSaysSo) {
    options().lstFiles.AddItem("a");
    options().cmdEditFiles.press();
    EXPECT_EQ(onlyBox().text, "L383");
    EXPECT_EQ(onlyBox().style, Information);
    EXPECT_EQ(options().lstFiles.ListCount(), 1);
}

TEST_F(OwnLists, DoubleClickEdits) {
    options().lstFiles.AddItem("a");
    options().lstFiles.setListIndex(0);
    options().lstFiles.DblClick();
    EXPECT_EQ(options().txtAddFilePath.Text(), "a");
    EXPECT_EQ(options().lstFiles.ListCount(), 0);
}

TEST_F(OwnLists, DoubleClickWithoutARowSaysSo) {
    options().lstFolders.DblClick();
    EXPECT_EQ(onlyBox().text, "L383");
    EXPECT_EQ(options().txtAddFolderPath.Text(), "");
}

TEST_F(OwnLists, DoubleClickOnMasksDoesNothing) {
    options().lstSearchMasks.AddItem("*.bak");
    options().lstSearchMasks.setListIndex(0);
    options().lstSearchMasks.DblClick();
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 1);
    EXPECT_EQ(options().txtSearchMask.Text(), "");
}

// --- the file manager and the dialogs

TEST_F(OwnLists, TakeDroppedPathsThroughTheSameDoor) {
    machine.files().putFolder("C:\\Data");
    machine.files().putFolder("C:\\Windows");
    machine.files().putFile("C:\\a.txt");
    const std::vector<std::string> paths{"C:\\Data", "C:\\Windows", "C:\\a.txt"};
    options().dropOnFolders(paths);
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\Data"}));
    EXPECT_EQ(onlyBox().text, std::string(kBanMessage) + "\r\n\r\nC:\\Windows") << "which of the three it was";
    options().dropOnFolders({"C:\\Windows"});
    EXPECT_EQ(machine.display.boxes.back().text, kBanMessage) << "of one alone nobody has to be told";
    options().dropOnFiles({"C:\\a.txt"});
    EXPECT_EQ(rows(options().lstFiles), (Rows{"C:\\a.txt"}));
    EXPECT_EQ(options().lstFolders.ListCount(), 1);
}

TEST_F(OwnLists, TakeAFolderThatIsDroppedOnTheFilesIntoTheFolders) {
    machine.files().putFolder("C:\\Data");
    machine.files().putFolder("C:\\Windows");
    machine.files().putFile("C:\\a.txt");
    const std::vector<std::string> paths{"C:\\Data", "C:\\Windows", "C:\\a.txt", "C:\\gone"};
    options().dropOnFiles(paths);
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\Data"}));
    EXPECT_EQ(rows(options().lstFiles), (Rows{"C:\\a.txt"}));
    EXPECT_EQ(onlyBox().text, std::string(kBanMessage) + "\r\n\r\nC:\\Windows");
    options().chkActivateOwnFolder.Value = 0;
    options().dropOnFiles(paths);
    EXPECT_EQ(options().lstFolders.ListCount(), 1) << "while it is off it takes nothing";
    EXPECT_EQ(options().lstFiles.ListCount(), 2);
}

TEST_F(OwnLists, TakeNoDropWhileSwitchedOff) {
    machine.files().putFolder("C:\\Data");
    machine.files().putFile("C:\\a.txt");
    options().chkActivateOwnFolder.Value = 0;
    options().chkActivateOwnFiles.Value = 0;
    options().dropOnFolders({"C:\\Data"});
    options().dropOnFiles({"C:\\a.txt"});
    EXPECT_EQ(options().lstFolders.ListCount() + options().lstFiles.ListCount(), 0);
}

TEST_F(OwnLists, DialogsFillTheLineAndNotTheList) {
    machine.display.folders = {"C:\\Chosen"};
    machine.display.files = {"C:\\chosen.txt"};
    options().cmdAddFolder.press();
    options().cmdAddFile.press();
    EXPECT_EQ(machine.display.folderTitles, (Rows{"L825"}));
    EXPECT_EQ(options().txtAddFolderPath.Text(), "C:\\Chosen");
    EXPECT_EQ(options().txtAddFilePath.Text(), "C:\\chosen.txt");
    EXPECT_EQ(options().lstFolders.ListCount() + options().lstFiles.ListCount(), 0);
    // Cancelled: the line stays.
    options().cmdAddFolder.press();
    options().cmdAddFile.press();
    EXPECT_EQ(options().txtAddFolderPath.Text(), "C:\\Chosen");
    EXPECT_EQ(options().txtAddFilePath.Text(), "C:\\chosen.txt");
}

TEST_F(OwnLists, TabsCountTheRows) {
    options().lstFolders.AddItem("a");
    options().lstFolders.AddItem("b");
    options().lstSearchMasks.AddItem("c");
    options().tmrCustom.fire();
    EXPECT_EQ(options().SSTab3.TabCaption(0), "L313 (2)");
    EXPECT_EQ(options().SSTab3.TabCaption(1), "L314 (0)");
    EXPECT_EQ(options().SSTab3.TabCaption(2), "L315 (1)");
}

// --- known junk

TEST_F(OwnLists, AddTheKnownJunkOfDetectedBrowsersOnceOnAClick) {
    machine.files().putFolder("C:\\Ff\\Cache");
    machine.files().putFolder("C:\\Op\\cache");
    machine.files().putFile("C:\\Ff\\formhistory.sqlite");
    options();
    const auto text = [&](const char* form, const char* box) -> forms::TextBox& {
        return dynamic_cast<forms::TextBox&>(*machine.program.windows.get(form)->control(box));
    };
    text("frmMozillaDir", "txtMozillaFileDir").setText("C:\\Ff");
    text("frmMozillaDir", "txtMozillaCacheDir").setText("C:\\Ff\\Cache");
    text("frmOperaDir", "txtOperaCacheDir").setText("C:\\Op\\cache");
    text("frmChromeDir", "txtChromeCacheDir").setText("C:\\missing");
    for (const auto& [form, box] : {std::pair{"frmMozillaDir", "chkMozillaDir"}, {"frmChromeDir", "chkChromeDir"}}) {
        dynamic_cast<forms::CheckBox&>(*machine.program.windows.get(form)->control(box)).Value = 1;
    }
    for (int i = 0; i < 2; ++i) {
        options().chkAutoSearchJunkFolders.Value = 1;
        options().chkAutoSearchJunkFiles.Value = 1;
        options().chkAutoSearchJunkFolders.Value = 0;
        options().chkAutoSearchJunkFiles.Value = 0;
    }
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\Ff\\Cache"}));
    EXPECT_EQ(rows(options().lstFiles), (Rows{"C:\\Ff\\formhistory.sqlite"}));
}

TEST_F(OwnLists, AddNoKnownJunkDuringALoad) {
    machine.files().putFolder("C:\\Ff\\Cache");
    machine.putConfig(
        "[frmMozillaDir]\r\nchkMozillaDir=1\r\ntxtMozillaCacheDir=C:\\Ff\\Cache\r\n"
        "[frmOptions]\r\nchkActivateOwnFolder=1\r\nchkAutoSearchJunkFolders=1\r\n");
    EXPECT_TRUE(machine.options().chkAutoSearchJunkFolders.ticked());
    EXPECT_EQ(machine.options().lstFolders.ListCount(), 0);
}

// --- the files

TEST_F(OwnLists, AreWrittenByOkInListOrder) {
    options().lstFolders.AddItem("C:\\B");
    options().lstFolders.AddItem("C:\\A,1");
    options().lstSearchMasks.AddItem("*.bak");
    options().cmdOK.setValue(true);
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\B\r\nC:\\A,1\r\n");
    EXPECT_EQ(machine.beside("td_fkeys.dat"), "");
    EXPECT_EQ(machine.beside("td_ftypes.dat"), "*.bak\r\n");
}

TEST_F(OwnLists, StayInTheirFileWhenTheirSwitchGoesOff) {
    machine.putBeside("td_folders.dat", "C:\\A\r\n");
    options().chkActivateOwnFolder.Value = 0;
    EXPECT_EQ(rows(options().lstFolders), (Rows{"C:\\A"}));
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\A\r\n");
    options().cmdOK.setValue(true);
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\A\r\n");
}

TEST_F(OwnLists, AreNotWrittenWhenTheWindowIsCancelled) {
    options().lstFolders.AddItem("C:\\B");
    options().ExplorerBar2.clickItem(0, 1);
    EXPECT_EQ(machine.beside("td_folders.dat"), std::nullopt);
}

TEST_F(OwnLists, KeepAFileThatCouldNotBeRead) {
    const std::string file = "C:\\Program Files\\Tidvane\\td_folders.dat";
    machine.putBeside("td_folders.dat", "C:\\A\r\n");
    machine.files().refuse(file, platform::operation::Read, platform::Status::InUse);
    EXPECT_EQ(options().lstFolders.ListCount(), 0);
    EXPECT_FALSE(machine.display.warnings.empty());
    options().lstFiles.AddItem("C:\\x");
    options().cmdOK.setValue(true);
    machine.files().allow(file);
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\A\r\n");
    EXPECT_EQ(machine.beside("td_fkeys.dat"), "C:\\x\r\n");
}

TEST_F(OwnLists, KeepTheOldFileOnAFullDisk) {
    machine.putBeside("td_folders.dat", "C:\\A\r\n");
    options().lstFolders.AddItem("C:\\B");
    machine.files().setDiskFull('C', true);
    options().cmdOK.setValue(true);
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\A\r\n");
}

TEST_F(OwnLists, TellOfEachFileThatCouldNotBeWritten) {
    (void)options();
    machine.display.warnings.clear();
    machine.files().refuse(machine.inFolder("td_fkeys.dat"), platform::operation::Write, platform::Status::Denied);
    options().cmdOK.setValue(true);
    EXPECT_EQ(machine.display.warnings, (Rows{"td_fkeys.dat could not be written and keeps its old content."}));
    EXPECT_TRUE(machine.beside("td_ftypes.dat").has_value()) << "the others are written all the same";
}

TEST_F(OwnLists, AreWrittenOneBehindTheOtherAndTheFontOfTheLogLast) {
    const Rows files{"td_folders.dat", "td_fkeys.dat", "td_ftypes.dat", "td_flog.dat"};
    for (const std::string& file : files) machine.putBeside(file, "old\r\n");
    options().lstFolders.AddItem("C:\\a");
    options().lstFiles.AddItem("C:\\b");
    options().lstSearchMasks.AddItem("*.c");
    Rows changed;
    // What has changed by the time that a file is next reached, and at the end.
    const auto look = [&] {
        for (const std::string& file : files) {
            const bool isNew = machine.beside(file) != "old\r\n";
            if (isNew && std::find(changed.begin(), changed.end(), file) == changed.end()) changed.push_back(file);
        }
    };
    for (const std::string& file : files) machine.files().before(machine.inFolder(file), 1, look);
    machine.report.onCall = [&](const std::string& call) {
        if (call == "icons") look();
    };
    options().cmdOK.setValue(true);
    EXPECT_EQ(changed, files);
}

}  // namespace
}  // namespace tidvane::settings
