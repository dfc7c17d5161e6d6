// What a front end asks before it lets something happen.
#include "frontend/confirmations.h"

#include <algorithm>

#include "frontend/guards.h"
#include "support/app_fixture.h"

namespace tidvane::frontend {
namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class Confirmations : public tests::AppFixture {
protected:
    settings::frmOptions& options() { return program.get<settings::frmOptions>(); }
    void list(const char* name, const std::string& content) { machine.files.putFile(inFolder(name), content); }
};

TEST_F(Confirmations, NothingIsAskedOfAPlainRun) {
    list("td_ftypes.dat", "*.tmp\r\n");
    list("td_folders.dat", "C:\\Data\r\n");
    options().chkSearchTasks.Value = 1;
    options().chkActivateOwnFolder.Value = 1;
    EXPECT_EQ(questionOfMasks(program), "");
    EXPECT_EQ(refusalOfMasks(program), "");
    EXPECT_EQ(questionOfChangedLines(program), "");
    EXPECT_EQ(whyNotToRun(program, FrontEnd::Windows), "");
    EXPECT_TRUE(allowsRun(program));
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(Confirmations, MasksThatMatchEveryNameAreAskedAboutWithNoAsTheDefault) {
    list("td_ftypes.dat", "*\r\n*.tmp\r\n*.*\r\n");
    EXPECT_EQ(questionOfMasks(program), "") << "the search is off";
    options().chkSearchTasks.Value = 1;
    EXPECT_EQ(questionOfMasks(program),
              "The junk search would remove every file of its drives, since every name matches \"*\", \"*.*\".\r\n\r\n"
              "Clean all the same?");
    display.questionAnswer = forms::msgbox::No;
    EXPECT_FALSE(allowsRun(program));
    ASSERT_EQ(display.boxes.size(), 1U) << "a no ends it";
    EXPECT_EQ(display.boxes[0].style & forms::msgbox::DefaultButton2, forms::msgbox::DefaultButton2);
    EXPECT_EQ(display.boxes[0].style & forms::msgbox::YesNo, forms::msgbox::YesNo);
    display.questionAnswer = forms::msgbox::Yes;
    EXPECT_TRUE(allowsRun(program));
}

TEST_F(Confirmations, LinesThatComeBackAsOthersAreAskedAboutWithTheEntriesShown) {
    list("td_folders.dat", "C:\\Data, old\r\n");
    EXPECT_EQ(questionOfChangedLines(program), "") << "the step is off";
    options().chkActivateOwnFolder.Value = 1;
    EXPECT_EQ(questionOfChangedLines(program),
              "td_folders.dat: the line \"C:\\Data, old\" is read as:\r\nC:\\Data\r\nold\r\n\r\nClean with these "
              "entries?");
    display.questionAnswer = forms::msgbox::No;
    EXPECT_FALSE(allowsRun(program));
}

TEST_F(Confirmations, AreGermanWhereTheProgramIs) {
    speakGerman();
    list("td_ftypes.dat", "*\r\n");
    list("td_folders.dat", "C:\\Data, old\r\n");
    options().chkSearchTasks.Value = 1;
    options().chkActivateOwnFolder.Value = 1;
    EXPECT_EQ(questionOfMasks(program),
              "Die Datenmüllsuche würde jede Datei ihrer Laufwerke entfernen, denn jeder Name passt auf "
              "\"*\".\r\n\r\nTrotzdem reinigen?");
    EXPECT_EQ(questionOfChangedLines(program),
              "td_folders.dat: Die Zeile \"C:\\Data, old\" wird gelesen als:\r\nC:\\Data\r\nold\r\n\r\n"
              "Mit diesen Einträgen reinigen?");
    EXPECT_EQ(warningOfIdleEntry(program, OwnList::Folders, "Data"),
              "\"Data\" ist kein vollständiger Pfad mit Laufwerk oder Freigabe; eine Reinigung fängt damit nichts an.");
    EXPECT_TRUE(contains(warningOfIdleEntry(program, OwnList::Files, "Data"), "(\"HKEY_CURRENT_USER\\...\")"));
    program.LangText.set(732, "another name since the window was loaded");
    EXPECT_EQ(whyNotToRun(program, FrontEnd::Windows),
              "Es ist keine Löschmethode gewählt; wählen Sie eine in den Optionen (Löschmethode).");
    // What only the console tells speaks of its options, in its own language.
    EXPECT_TRUE(contains(whyNotToRun(program), "choose one with --method"));
    EXPECT_TRUE(contains(refusalOfMasks(program), "The junk search would"));
}

TEST_F(Confirmations, AQuestionIsAskedAlsoWhereTheLanguageFileIsOlderThanIt) {
    machine.files.putFile(inFolder("English.lng"), "732 Delete\r\n733 Recycle\r\n734 Overwrite\r\n");
    list("td_ftypes.dat", "*\r\n");
    options().chkSearchTasks.Value = 1;
    display.questionAnswer = forms::msgbox::No;
    EXPECT_FALSE(allowsRun(program));
    ASSERT_EQ(display.boxes.size(), 1U);
    EXPECT_TRUE(contains(display.boxes[0].text, "Clean all the same?"));
}

TEST_F(Confirmations, BothQuestionsAreAsked) {
    list("td_ftypes.dat", "*\r\n");
    list("td_folders.dat", "C:\\Data, old\r\n");
    options().chkSearchTasks.Value = 1;
    options().chkActivateOwnFolder.Value = 1;
    EXPECT_TRUE(allowsRun(program));
    EXPECT_EQ(display.boxes.size(), 2U);
}

TEST_F(Confirmations, ARunWithoutAWayOfRemovingIsRefusedAndNotAsked) {
    (void)options();
    program.LangText.set(732, "another name since the window was loaded");
    const std::string console = whyNotToRun(program);
    const std::string windows = whyNotToRun(program, FrontEnd::Windows);
    EXPECT_TRUE(contains(console, "--method")) << console;
    EXPECT_FALSE(contains(windows, "--")) << windows;
    EXPECT_TRUE(contains(windows, "No way of removing files is chosen; ")) << windows;
    EXPECT_FALSE(allowsRun(program));
    ASSERT_EQ(display.boxes.size(), 1U);
    EXPECT_EQ(display.boxes[0].text, windows);
    EXPECT_EQ(display.boxes[0].style, forms::msgbox::Exclamation);
}

TEST_F(Confirmations, WaysOfTheSameNameAreRefusedForAllButTheFirst) {
    machine.files.putFile(inFolder("zz.lng"), "732 same\r\n733 same\r\n734 same\r\n");
    options().cboKillMethod.setListIndex(2);
    EXPECT_TRUE(contains(whyNotToRun(program, FrontEnd::Windows), "no three different names"));
}

TEST_F(Confirmations, NobodyIsKeptWaitingWhileWindowsEnds) {
    list("td_ftypes.dat", "*\r\n");
    options().chkSearchTasks.Value = 1;
    program.unattended = true;
    EXPECT_FALSE(allowsRun(program));
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(Confirmations, EntriesThatARunPassesOverAreWarnedOf) {
    EXPECT_EQ(warningOfIdleEntry(program, OwnList::Folders, "C:\\Data"), "");
    EXPECT_EQ(warningOfIdleEntry(program, OwnList::Files, "C:\\Data\\a.txt"), "");
    EXPECT_EQ(warningOfIdleEntry(program, OwnList::Files, "HKEY_CURRENT_USER\\Software\\X"), "");
    EXPECT_EQ(warningOfIdleEntry(program, OwnList::Masks, "*.tmp"), "");
    EXPECT_TRUE(contains(warningOfIdleEntry(program, OwnList::Folders, "Data"), "a run does nothing with it"));
    EXPECT_TRUE(contains(warningOfIdleEntry(program, OwnList::Folders, "HKEY_CURRENT_USER\\Software\\X"), "full path"));
    EXPECT_TRUE(contains(warningOfIdleEntry(program, OwnList::Files, "HKCU\\Software\\X"), "HKEY_CURRENT_USER"));
    EXPECT_TRUE(contains(warningOfIdleEntry(program, OwnList::Masks, ".."), "can match no file"));
    EXPECT_TRUE(contains(warningOfIdleEntry(program, OwnList::Masks, "a\\b"), "can match no file"));
}

TEST_F(Confirmations, AFolderThatNoRunMayEmptyIsWarnedOfByThePlatform) {
    EXPECT_EQ(warningOfIdleEntry(program, OwnList::Folders, "C:\\Windows\\System32"), "");
    ASSERT_FALSE(machine.warnings.empty());
    EXPECT_EQ(machine.warnings.back().kind, platform::WarningKind::ProtectedPlace);
}

TEST_F(Confirmations, AgreesWithoutAQuestion) {
    EXPECT_TRUE(agrees(display, ""));
    EXPECT_TRUE(display.boxes.empty());
    EXPECT_TRUE(agrees(display, "Really?"));
    display.questionAnswer = forms::msgbox::No;
    EXPECT_FALSE(agrees(display, "Really?"));
}

}  // namespace
}  // namespace tidvane::frontend
