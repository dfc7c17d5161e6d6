#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/frmDiskSizeStats.h"
#include "app/frmMain.h"
#include "desktop/frmWidget.h"
#include "forms/simple_controls.h"
#include "settings/file_list.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmOptions.h"
#include "settings/frmStarter.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"
#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

using settings::LoadLanguageFile;

constexpr const char* kFile = "C:\\Program Files\\Tidvane\\English.lng";
constexpr const char* kGerman = "C:\\Program Files\\Tidvane\\Deutsch (German).lng";

// No window is offered: the table alone.
class Language : public ::testing::Test {
protected:
    int load(const std::string& bytes) {
        machine.files.putFile(kFile, bytes);
        return LoadLanguageFile(program, kFile);
    }
    const std::string& text(int index) { return program.LangText(index); }

    platform::MemoryPlatform machine;
    ScriptedDisplay display;
    settings::Program program{machine.platform(), display};
};

TEST_F(Language, AnUnderscoreIsOneCarriageReturn) {
    EXPECT_EQ(load("494 one_two\r\n"), 0);
    EXPECT_EQ(text(494), "one\rtwo");
}

TEST_F(Language, TheFourthSignIsNeverLookedAt) {
    load("494=text\r\n495Xtext\r\n496;text\r\n497_text\r\n");
    for (int index = 494; index <= 497; ++index) EXPECT_EQ(text(index), "text") << index;
}

TEST_F(Language, ASemicolonInFrontIsACommentAndBehindABlankIsNot) {
    load(";94 nothing\r\n ;x stored\r\n");
    EXPECT_EQ(text(94), "");
    EXPECT_EQ(text(0), "stored");
}

TEST_F(Language, AShortNumberTakesTheFirstLetterOfTheText) {
    load("49 word\r\n");
    EXPECT_EQ(text(49), "ord");
    EXPECT_EQ(text(494), "");
}

TEST_F(Language, ABareNumberClearsTheEntry) {
    load("494 before\r\n");
    load("494");
    EXPECT_EQ(text(494), "");
}

TEST_F(Language, TheIndexIsTheValueOfThreeSigns) {
    load("1e2 hundred\r\n 12 twelve\r\n&H1 one\r\n12a twelve and a letter\r\n");
    EXPECT_EQ(text(100), "hundred");
    EXPECT_EQ(text(1), "one");
    EXPECT_EQ(text(12), "twelve and a letter");
    load(" 12 twelve\r\n");
    EXPECT_EQ(text(12), "twelve");
}

TEST_F(Language, AnIndexOutsideTheTableHasNoEffect) {
    EXPECT_EQ(load("000 zero\r\n-12 text\r\n9e9 text\r\n999 last\r\n"), 0);
    EXPECT_EQ(text(0), "zero");
    EXPECT_EQ(text(999), "last");
}

TEST_F(Language, BlanksOfATextStay) {
    load("494   two in front, two behind  \r\n");
    EXPECT_EQ(text(494), "  two in front, two behind  ");
}

TEST_F(Language, BlankLinesStoreNothing) {
    load("000 zero\r\n\r\n    \r\n\t\t\r\n");
    EXPECT_EQ(text(0), "zero");
}

TEST_F(Language, ALaterLineReplacesAnEarlierOne) {
    load("494 first\r\n100 other\r\n494 second\r\n");
    EXPECT_EQ(text(494), "second");
    EXPECT_EQ(text(100), "other");
}

TEST_F(Language, ALoneCarriageReturnEndsALineAndALoneLineFeedDoesNot) {
    load("494 one\r495 two\n496 still two\r\n497 three");
    EXPECT_EQ(text(494), "one");
    EXPECT_EQ(text(495), "two\n496 still two");
    EXPECT_EQ(text(496), "");
    EXPECT_EQ(text(497), "three");
}

TEST_F(Language, AFileWithLineFeedsAloneIsOneLine) {
    EXPECT_EQ(load("494 one\n495 two\n"), 0);
    EXPECT_EQ(text(494), "one\n495 two\n");
    EXPECT_EQ(text(495), "");
}

TEST_F(Language, TextsComeFromTheCodePage) {
    load("494 M\xFCll \x80\r\n");
    EXPECT_EQ(text(494), "Müll €");
}

TEST_F(Language, NoPathAndNoFileAreOne) {
    machine.files.putFile(kFile, "494 text\r\n");
    ASSERT_EQ(LoadLanguageFile(program, kFile), 0);
    EXPECT_EQ(LoadLanguageFile(program, ""), 1);
    EXPECT_EQ(LoadLanguageFile(program, kGerman), 1);
    EXPECT_EQ(text(494), "text");
}

TEST_F(Language, AFolderIsNoFile) {
    machine.files.putFolder(kFile);
    EXPECT_EQ(LoadLanguageFile(program, kFile), 1);
}

TEST_F(Language, AFileThatCannotBeReadLeavesTheTable) {
    load("494 text\r\n");
    machine.files.putFile(kFile, "494 changed\r\n");
    machine.files.refuse(kFile, platform::operation::Read, platform::Status::Denied);
    EXPECT_EQ(LoadLanguageFile(program, kFile), 0);
    EXPECT_EQ(text(494), "text");
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(Language, EmptyAndCutFilesGiveWhatTheyHave) {
    EXPECT_EQ(load(""), 0);
    EXPECT_EQ(load("494 text\r\n49"), 0);
    EXPECT_EQ(text(494), "text");
    EXPECT_EQ(text(49), "");
}

TEST_F(Language, ABinaryFileIsReadWithoutHarm) {
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) bytes += static_cast<char>((i * 131 + i / 11) & 0xFF);
    EXPECT_EQ(load(bytes + "\r\n494 behind\r\n"), 0);
    EXPECT_EQ(text(494), "behind");
}

TEST_F(Language, AHundredMegabytesAreReadWithoutHarm) {
    std::string bytes = "494 first\r\n";
    bytes.reserve(100'000'100);
    while (bytes.size() < 100'000'000) bytes += "495 a line of a text that is not short at all, again and again\r\n";
    EXPECT_EQ(load(bytes), 0);
    EXPECT_EQ(text(494), "first");
    EXPECT_EQ(text(495), "a line of a text that is not short at all, again and again");
}

TEST_F(Language, AllFilesLoadInTheOrderOfTheirNamesWithoutCase) {
    machine.files.putFile("C:\\Program Files\\Tidvane\\b.LNG", "494 from b\r\n495 only b\r\n");
    machine.files.putFile("C:\\Program Files\\Tidvane\\A.lng", "494 from a\r\n496 only a\r\n");
    machine.files.putFile("C:\\Program Files\\Tidvane\\C.lng", "494 from c\r\n");
    machine.files.putFile("C:\\Program Files\\Tidvane\\z.lng.txt", "494 from z\r\n");
    settings::LoadAllLanguageFiles(program);
    EXPECT_EQ(text(494), "from c");
    EXPECT_EQ(text(495), "only b");
    EXPECT_EQ(text(496), "only a");
}

TEST_F(Language, TheLastOfTwoFilesWinsWhereBothDefineAnEntry) {
    machine.files.putFile(kGerman, "100 Deutsch\r\n101 nur deutsch\r\n");
    machine.files.putFile(kFile, "100 English\r\n");
    settings::LoadAllLanguageFiles(program);
    EXPECT_EQ(text(100), "English");
    EXPECT_EQ(text(101), "nur deutsch");
}

TEST_F(Language, WithoutAnyFileTheTableStaysEmpty) {
    settings::LoadAllLanguageFiles(program);
    EXPECT_EQ(text(100), "");
}

// --- captions
// ----------------------------------------------------------------------------------------------------------

class FakeMain : public forms::Form {
public:
    explicit FakeMain(settings::Program&) : Form("frmMain") {}
    static constexpr const char* kName = "frmMain";

    forms::FileList File1{*this, "File1"};
    forms::ListView lstTasks{*this, "lstTasks"};
    forms::TextBox txtLog{*this, "txtLog"};
    forms::Menu mnFile{*this, "mnFile", "Datei"};
    forms::TabStrip SSTab1{*this, "SSTab1", {"Anwendungen"}};
};

// Loads the language files again in its own load handler, as the options window does.
class FakeOptions : public forms::Form {
public:
    explicit FakeOptions(settings::Program& owner) : Form("frmOptions"), program_(owner) {}
    static constexpr const char* kName = "frmOptions";

    void Form_Load() override {
        ++loads;
        settings::LoadAllLanguageFiles(program_);
    }
    int loads = 0;

    forms::TabStrip SSTab1{*this, "SSTab1", {"Windows", "Browser"}};
    forms::CheckBox chkAddInRegClean{*this, "chkAddInRegClean", "design"};
    forms::CheckBox chkWindowsTasks{*this, "chkWindowsTasks", "design", 0};
    forms::CommandButton cmdLoadSearchMasks{*this, "cmdLoadSearchMasks", "design"};

private:
    settings::Program& program_;
};

class FakeWidget : public forms::Form {
public:
    explicit FakeWidget(settings::Program& owner) : Form("frmWidget"), program_(owner) {}
    static constexpr const char* kName = "frmWidget";

    void Form_Load() override { (void)settings::LoadFormINI(program_, *this); }

    forms::CheckBox chkAutostart{*this, "chkAutostart"};
    forms::CommandButton cmdClean{*this, "cmdClean", "design"};

private:
    settings::Program& program_;
};

class Captions : public Language {
protected:
    template <class F>
    void offer() {
        program.windows.offer(F::kName, [this] { return std::make_unique<F>(program); });
    }
};

TEST_F(Captions, GoToCaptionsTipsAndTabs) {
    offer<FakeMain>();
    offer<FakeOptions>();
    load(
        "114 File\r\n488 tasks\r\n489 log\r\n303 Windows jobs\r\n304 Browser jobs\r\n352 Load\r\n826 from a "
        "list\r\n333 all\r\n");

    auto& main = program.get<FakeMain>();
    EXPECT_EQ(main.mnFile.Caption, std::string("File"));
    EXPECT_EQ(main.lstTasks.ToolTipText, std::string("tasks"));
    EXPECT_EQ(main.txtLog.ToolTipText, std::string("log"));
    auto& options = program.get<FakeOptions>();
    EXPECT_EQ(options.SSTab1.TabCaption(0), "Windows jobs");
    EXPECT_EQ(options.SSTab1.TabCaption(1), "Browser jobs");
    EXPECT_EQ(options.cmdLoadSearchMasks.Caption, std::string("Load"));
    EXPECT_EQ(options.cmdLoadSearchMasks.ToolTipText, std::string("from a list"));
    EXPECT_EQ(options.chkWindowsTasks.Caption, std::string("all"));
    EXPECT_EQ(main.SSTab1.TabCaption(0), "Anwendungen");
}

TEST_F(Captions, TheLaterOfTwoEntriesForOneBoxStays) {
    offer<FakeOptions>();
    load("346 first\r\n370 second\r\n");
    EXPECT_EQ(program.get<FakeOptions>().chkAddInRegClean.Caption, std::string("second"));
}

TEST_F(Captions, AFileOfCommentsStillCaptionsTheWindows) {
    offer<FakeMain>();
    program.LangText.set(114, "set before");
    EXPECT_EQ(load("; nothing\r\n\r\n"), 0);
    EXPECT_EQ(program.get<FakeMain>().mnFile.Caption, std::string("set before"));
}

TEST_F(Captions, WithoutAFileTheDesignStays) {
    offer<FakeMain>();
    EXPECT_EQ(LoadLanguageFile(program, kFile), 1);
    EXPECT_EQ(program.get<FakeMain>().mnFile.Caption, std::string("Datei"));
}

TEST_F(Captions, TheOptionsWindowMayLoadTheFilesAgainWhileItLoads) {
    offer<FakeMain>();
    offer<FakeOptions>();
    machine.files.putFile(kGerman, "114 Datei\r\n370 aus der ersten\r\n");
    machine.files.putFile(kFile, "114 File\r\n");
    settings::LoadAllLanguageFiles(program);
    EXPECT_EQ(program.get<FakeOptions>().loads, 1);
    EXPECT_EQ(program.get<FakeMain>().mnFile.Caption, std::string("File"));
    EXPECT_EQ(program.get<FakeOptions>().chkAddInRegClean.Caption, std::string("aus der ersten"));
    EXPECT_EQ(program.get<FakeMain>().File1.Pattern, "*.lng");
    EXPECT_EQ(program.get<FakeMain>().File1.ListCount(), 2);
}

TEST_F(Captions, AWindowThatCannotBeLoadedEndsThePassAndTheNextOneCaptionsIt) {
    offer<FakeWidget>();
    machine.files.putFile("C:\\Program Files\\Tidvane\\td_config.ini", "[frmWidget]\r\nchkAutostart=bad\r\n");
    EXPECT_EQ(load("119 Clean\r\n"), 0);
    ASSERT_NE(program.windows.ifLoaded("frmWidget"), nullptr);
    EXPECT_EQ(program.get<FakeWidget>().cmdClean.Caption, std::string("design"));
    EXPECT_EQ(load("119 Clean\r\n"), 0);
    EXPECT_EQ(program.get<FakeWidget>().cmdClean.Caption, std::string("Clean"));
}

TEST(CaptionTable, HasTheRowsOfEachWindow) {
    std::map<std::string, int> rows;
    for (const settings::CaptionRow& row : settings::captionRows()) ++rows[row.window];
    const std::map<std::string, int> expected = {{"frmMain", 89},    {"frmOptions", 126}, {"frmMoreToConfigure", 12},
                                                 {"frmStarter", 37}, {"frmWidget", 1},    {"frmDiskSizeStats", 9}};
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(settings::captionRows().size(), 274u);
}

TEST(CaptionTable, GivesEveryControlTheEntryOfTheReferenceTable) {
    std::ifstream file(TIDVANE_REFERENCE_DIR "/caption_rows.tsv");
    ASSERT_TRUE(file.is_open());
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("#")) continue;
        // A list has no caption to show: its entry is its tool tip.
        if (line == "frmMain\tlstTasks\tcaption\t488") line = "frmMain\tlstTasks\ttip\t488";
        expected.push_back(line);
    }
    std::vector<std::string> rows;
    for (const settings::CaptionRow& row : settings::captionRows()) {
        std::string slot = "caption";
        if (row.slot == settings::CaptionSlot::Tip) slot = "tip";
        if (row.slot == settings::CaptionSlot::Tab) slot = "tab " + std::to_string(row.tab);
        rows.push_back(std::string(row.window) + "\t" + row.control + "\t" + slot + "\t" + std::to_string(row.text));
    }
    EXPECT_EQ(rows, expected);
}

TEST(CaptionTable, NamesControlsThatTheWindowsHave) {
    ProgramFixture fixture;
    // Made, not loaded: what the windows do at their load is of no matter here.
    std::map<std::string, std::unique_ptr<forms::Form>> windows;
    windows["frmMain"] = std::make_unique<app::frmMain>(fixture.program);
    windows["frmOptions"] = std::make_unique<settings::frmOptions>(fixture.program);
    windows["frmMoreToConfigure"] = std::make_unique<settings::frmMoreToConfigure>(fixture.program);
    windows["frmStarter"] = std::make_unique<settings::frmStarter>(fixture.program);
    windows["frmWidget"] = std::make_unique<desktop::frmWidget>(fixture.program);
    windows["frmDiskSizeStats"] = std::make_unique<app::frmDiskSizeStats>(fixture.program);
    for (const settings::CaptionRow& row : settings::captionRows()) {
        ASSERT_EQ(windows.count(row.window), 1u) << row.window;
        const forms::Control* control = windows[row.window]->control(row.control);
        if (control == nullptr) {
            ADD_FAILURE() << row.window << "." << row.control;
        } else if (row.slot == settings::CaptionSlot::Tab) {
            ASSERT_EQ(control->kind, forms::ControlKind::TabStrip) << row.control;
            EXPECT_LT(row.tab, static_cast<const forms::TabStrip*>(control)->Tabs()) << row.control;
        }
    }
}

// --- the options window itself

class OptionsCaptions : public ::testing::Test, protected ProgramFixture {
protected:
    settings::frmOptions& options() { return program.get<settings::frmOptions>(); }
};

TEST_F(OptionsCaptions, AtTheVeryFirstStartTheMemoryButtonHasItsPlainEntry) {
    putBeside("English.lng", "313 Folders\r\n375 Free memory\r\n496 no module\r\n");
    (void)program.get<app::frmMain>();
    // The pass that loads the window goes on behind its load handler.
    EXPECT_EQ(options().cmdCleanRAM.Caption, std::string("Free memory"));
    EXPECT_FALSE(options().cmdCleanRAM.Enabled);
    program.windows.unload(options());
    EXPECT_EQ(options().cmdCleanRAM.Caption, std::string("no module"));
}

TEST_F(OptionsCaptions, AReloadOfTheTextsTakesTheCountsFromTheTabs) {
    putBeside("English.lng", "313 Folders\r\n314 Files\r\n315 Masks\r\n");
    (void)program.get<app::frmMain>();
    options().lstFiles.AddItem("C:\\x");
    options().tmrCustom.fire();
    EXPECT_EQ(options().SSTab3.TabCaption(1), "Files (1)");
    settings::LoadAllLanguageFiles(program);
    EXPECT_EQ(options().SSTab3.TabCaption(0), "Folders");
    EXPECT_EQ(options().SSTab3.TabCaption(1), "Files");
    EXPECT_EQ(options().SSTab3.TabCaption(2), "Masks");
}

TEST_F(OptionsCaptions, AFileThatWasAddedMeanwhileCountsWithoutARestart) {
    putBeside("English.lng", "299 Options\r\n200 Recent documents\r\n732 Delete\r\n");
    auto& main = program.get<app::frmMain>();
    EXPECT_EQ(options().chkRecentDocuments.Caption, std::string("Recent documents"));
    program.windows.unload(options());
    putBeside("Spanish.lng", "200 Documentos recientes\r\n114 Archivo\r\n");
    EXPECT_EQ(options().chkRecentDocuments.Caption, std::string("Documentos recientes"));
    EXPECT_EQ(options().cboKillMethod.Text(), "Delete");
    EXPECT_EQ(main.control("mnFile")->Caption, std::string("Archivo"));
    EXPECT_EQ(&program.get<app::frmMain>(), &main);
}

TEST_F(OptionsCaptions, AreSetWithoutAMainWindow) {
    putBeside("English.lng", "321 General\r\n");
    (void)program.get<app::frmMain>();
    program.UnloadAllForms();
    ASSERT_EQ(program.windows.get("frmMain"), nullptr);
    program.LangText.set(321, "");
    EXPECT_EQ(options().SSTab4.TabCaption(0), "General");
    EXPECT_EQ(program.windows.ifLoaded("frmMain"), nullptr);
}

TEST(FileList, LeavesOutFoldersHiddenAndSystemFiles) {
    ProgramFixture fixture;
    fixture.machine.files.putFile("D:\\x\\b.ini");
    fixture.machine.files.putFile("D:\\x\\A.ini");
    fixture.machine.files.putFile("D:\\x\\c.ini");
    fixture.machine.files.putFile("D:\\x\\d.ini");
    fixture.machine.files.putFile("D:\\x\\e.txt");
    fixture.machine.files.putFolder("D:\\x\\f.ini");
    fixture.machine.files.setAttributes("D:\\x\\c.ini", platform::attribute::Hidden);
    fixture.machine.files.setAttributes("D:\\x\\d.ini", platform::attribute::System);
    forms::Form form("frmAny");
    forms::FileList list(form, "File1");
    list.Path = "D:\\x";
    list.Pattern = "*.ini";
    settings::refreshFileList(fixture.program, list);
    EXPECT_EQ(list.List, (std::vector<std::string>{"A.ini", "b.ini"}));

    list.Path = "D:\\gone";
    settings::refreshFileList(fixture.program, list);
    EXPECT_EQ(list.ListCount(), 0);
}

}  // namespace
}  // namespace tidvane::tests
