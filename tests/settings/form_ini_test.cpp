#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "settings/modFormINI.h"
#include "settings/sample_form.h"
#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

using settings::LoadFormINI;
using settings::SaveFormINI;

constexpr const char* kIni = "C:\\Program Files\\Tidvane\\td_config.ini";

class FormINI : public ::testing::Test, protected ProgramFixture {
protected:
    void putSection(const std::string& lines) { machine.files.putFile(kIni, "[frmSample]\r\n" + lines); }
    std::string stored(const std::string& key, const std::string& section = "frmSample") {
        return machine.profiles.GetPrivateProfileStringA(section, key, "<none>", 4096, kIni);
    }

    SampleForm form;
};

long errorOf(settings::Program& program, forms::Form& form) {
    try {
        (void)LoadFormINI(program, form);
    } catch (const base::RuntimeError& error) {
        return error.number;
    }
    return 0;
}

TEST_F(FormINI, PathLiesBesideTheProgram) {
    EXPECT_EQ(settings::GetINIPath(program), kIni);
}

TEST(FormINIPath, ADriveRootGetsNoSecondBackslash) {
    ProgramFixture fixture([](platform::MemoryPlatform& prepared) { prepared.system.applicationPath = "D:\\"; });
    EXPECT_EQ(settings::GetINIPath(fixture.program), "D:\\td_config.ini");
}

TEST_F(FormINI, WithoutAFileNothingIsTouchedAndNoneIsMade) {
    EXPECT_FALSE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "design");
    EXPECT_FALSE(machine.files.has(kIni));
}

TEST_F(FormINI, TheFirstSaveMakesTheFileWithThisSectionAlone) {
    SaveFormINI(program, form);
    EXPECT_EQ(machine.profiles.GetPrivateProfileStringA(std::nullopt, std::nullopt, "", 4096, kIni),
              std::string("frmSample\0", 10));
}

TEST_F(FormINI, EachKindHasItsFormInTheFile) {
    form.txtName.setText("a name");
    form.chkPlain.Value = 2;
    form.chkMember4.Value = 1;
    form.optSecond.setValue(1);
    form.cboColour.setListIndex(2);
    form.lstColours.setListIndex(1);

    SaveFormINI(program, form);

    EXPECT_EQ(stored("txtName"), "a name");
    EXPECT_EQ(stored("chkPlain"), "2");
    EXPECT_EQ(stored("chkMember(0)"), "0");
    EXPECT_EQ(stored("chkMember(4)"), "1");
    EXPECT_EQ(stored("optFirst"), "0");
    EXPECT_EQ(stored("optSecond"), "-1");
    EXPECT_EQ(stored("cboColour"), "2");
    for (const char* notStored : {"lstColours", "lblName", "cmdOK", "chkMember", "chkPlain(0)"}) {
        EXPECT_EQ(stored(notStored), "<none>") << notStored;
    }
}

TEST_F(FormINI, WhatWasSavedComesBack) {
    form.txtName.setText("a name");
    form.chkPlain.Value = 1;
    form.chkMember4.Value = 2;
    form.optSecond.setValue(-1);
    form.cboColour.setListIndex(1);
    SaveFormINI(program, form);

    SampleForm later;
    EXPECT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "a name");
    EXPECT_EQ(later.chkPlain.Value, 1);
    EXPECT_EQ(later.chkMember0.Value, 0);
    EXPECT_EQ(later.chkMember4.Value, 2);
    EXPECT_FALSE(later.optFirst.selected());
    EXPECT_TRUE(later.optSecond.selected());
    EXPECT_EQ(later.cboColour.Text(), "green");
}

TEST_F(FormINI, NothingChosenIsStoredAsMinusOne) {
    SaveFormINI(program, form);
    EXPECT_EQ(stored("cboColour"), "-1");
}

TEST_F(FormINI, AnEmptiedTextBoxComesBackWithItsOldText) {
    form.txtName.setText("old");
    SaveFormINI(program, form);
    form.txtName.setText("");
    SaveFormINI(program, form);

    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "old");
}

TEST_F(FormINI, ThreeLinesComeBackAsTheyWere) {
    form.txtName.setText("one\r\ntwo\r\nthree");
    SaveFormINI(program, form);
    EXPECT_EQ(stored("txtName"), "one~|~two~|~three");

    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "one\r\ntwo\r\nthree");
}

TEST_F(FormINI, OnlyThePairOfSignsIsEncoded) {
    form.txtName.setText("one\ntwo");
    SaveFormINI(program, form);
    const std::string bytes = machine.files.bytesOf(kIni).value_or("");
    EXPECT_NE(bytes.find("txtName=one\ntwo"), std::string::npos) << bytes;
    EXPECT_EQ(bytes.find("~|~"), std::string::npos);
}

// A line of the file ends there, however the text went in.
TEST_F(FormINI, ALoneLineBreakEndsTheTextThatComesBack) {
    for (const char* text : {"one\ntwo", "one\rtwo", "one\n"}) {
        form.txtName.setText(text);
        SaveFormINI(program, form);
        SampleForm later;
        ASSERT_TRUE(LoadFormINI(program, later));
        EXPECT_EQ(later.txtName.Text(), "one") << text;
        EXPECT_EQ(later.txtLast.Text(), "last");
    }
    EXPECT_TRUE(display.warnings.empty());
}

TEST_F(FormINI, ATextWithLinesOfItsOwnOpensNoSectionAndSetsNoKey) {
    form.txtName.setText("kept");
    SaveFormINI(program, form);
    for (const char* text :
         {"x\n[frmOther]\nchkStartClean=1", "x\rchkPlain=1", "x\n\n  [frmSample]", "x\r\ny\nchkPlain=1"}) {
        display.warnings.clear();
        form.txtName.setText(text);
        SaveFormINI(program, form);
        EXPECT_EQ(stored("chkStartClean", "frmOther"), "<none>") << text;
        EXPECT_EQ(stored("chkPlain"), "0") << text;
        EXPECT_EQ(stored("txtName"), "kept") << text;
        EXPECT_EQ(display.warnings.size(), 1u) << text;
    }
}

TEST_F(FormINI, ABoxOfNulCharactersHarmsNothing) {
    form.txtName.setText("C:\\x\\" + settings::ReadINIKey(program, kIni, "Profile0", "Path"));
    ASSERT_EQ(form.txtName.Text().size(), 5u + 255u);
    form.txtLast.setText("behind");
    SaveFormINI(program, form);
    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "C:\\x\\");
    EXPECT_EQ(later.txtLast.Text(), "behind");
}

// --- a master box behind the boxes it ticks

class MasterLast : public forms::Form {
public:
    MasterLast() : Form("frmMasterLast") {
        chkAll.Click.connect([this] { chkOne.Value = chkTwo.Value = chkAll.Value.get(); });
    }
    forms::CheckBox chkOne{*this, "chkOne"};
    forms::CheckBox chkTwo{*this, "chkTwo"};
    forms::CheckBox chkAll{*this, "chkAll"};
};

TEST_F(FormINI, ASecondWalkBringsBackWhatAMasterBoxBehindHasOverrun) {
    machine.files.putFile(kIni, "[frmMasterLast]\r\nchkOne=0\r\nchkTwo=1\r\nchkAll=1\r\n");
    MasterLast window;
    ASSERT_TRUE(LoadFormINI(program, window));
    EXPECT_EQ(window.chkOne.Value, 1);
    ASSERT_TRUE(LoadFormINI(program, window));
    EXPECT_EQ(window.chkOne.Value, 0);
    EXPECT_EQ(window.chkTwo.Value, 1);
    EXPECT_EQ(window.chkAll.Value, 1);
}

// --- emptied boxes

TEST_F(FormINI, EmptiedBoxesAreNamedByTheCaptionInFrontOfThem) {
    form.txtName.setText("old name");
    form.txtLast.setText("old last");
    SaveFormINI(program, form);
    form.txtName.setText("");
    form.txtLast.setText("");
    form.lblName.Caption = "The name:";
    const auto emptied = settings::emptiedBoxes(program, form);
    ASSERT_EQ(emptied.size(), 2u);
    EXPECT_EQ(emptied[0].caption, "The name");
    EXPECT_EQ(emptied[0].stored, "old name");
    EXPECT_EQ(emptied[1].caption, "txtLast");  // a list stands in front
    settings::tellOfEmptiedBoxes(program, form);
    ASSERT_EQ(display.warnings.size(), 2u);
    EXPECT_NE(display.warnings[0].find("The name"), std::string::npos);
    EXPECT_NE(display.warnings[0].find("old name"), std::string::npos);
}

TEST_F(FormINI, ABoxThatWasNeverStoredIsNoEmptiedOne) {
    form.txtName.setText("");
    EXPECT_TRUE(settings::emptiedBoxes(program, form).empty());
}

TEST_F(FormINI, TheSignOfALineBreakTypedByTheUserBecomesOne) {
    form.txtName.setText("a~|~b");
    SaveFormINI(program, form);
    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "a\r\nb");
}

TEST_F(FormINI, ALongTextIsWrittenWholeAndReadUpTo255) {
    form.txtName.setText(std::string(300, 'x'));
    SaveFormINI(program, form);
    EXPECT_EQ(stored("txtName").size(), 300u);

    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), std::string(255, 'x'));
}

TEST_F(FormINI, TextsTravelThroughTheCodePage) {
    form.txtName.setText("C:\\Müll");
    SaveFormINI(program, form);
    EXPECT_NE(machine.files.bytesOf(kIni).value_or("").find("C:\\M\xFCll"), std::string::npos);
    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "C:\\Müll");
}

TEST_F(FormINI, QuotesAroundATextAreLost) {
    form.txtName.setText("\"/x y\"");
    SaveFormINI(program, form);
    SampleForm later;
    ASSERT_TRUE(LoadFormINI(program, later));
    EXPECT_EQ(later.txtName.Text(), "/x y");
}

TEST_F(FormINI, AnIndexPastTheEndLeavesTheChoice) {
    form.cboColour.setListIndex(1);
    putSection("cboColour=3\r\n");
    ASSERT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.cboColour.ListIndex(), 1);
}

TEST_F(FormINI, ANegativeIndexClearsTheChoice) {
    for (const char* index : {"-1", "-7"}) {
        form.cboColour.setListIndex(1);
        putSection(std::string("cboColour=") + index + "\r\n");
        ASSERT_TRUE(LoadFormINI(program, form));
        EXPECT_EQ(form.cboColour.ListIndex(), -1) << index;
        EXPECT_EQ(form.cboColour.Text(), "") << index;
    }
}

TEST_F(FormINI, AKeyOfAListBoxPutThereByHandIsTaken) {
    putSection("lstColours=2\r\n");
    ASSERT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.lstColours.ListIndex(), 2);
}

TEST_F(FormINI, SectionsAndKeysAreFoundInAnyCase) {
    machine.files.putFile(kIni, "[FRMSAMPLE]\r\nTXTNAME=found\r\nCHKMEMBER(4)=1\r\n");
    ASSERT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "found");
    EXPECT_EQ(form.chkMember4.Value, 1);
    EXPECT_EQ(form.chkMember0.Value, 0);
}

TEST_F(FormINI, AMissingSectionAndAnEmptyValueLeaveTheDesign) {
    machine.files.putFile(kIni, "[frmOther]\r\ntxtName=other\r\n[frmSample]\r\ntxtLast=\r\n");
    EXPECT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "design");
    EXPECT_EQ(form.txtLast.Text(), "last");
}

TEST_F(FormINI, KeysOfOtherControlsStay) {
    putSection("txtGone=kept\r\n");
    SaveFormINI(program, form);
    EXPECT_EQ(stored("txtGone"), "kept");
}

TEST_F(FormINI, TheEventRunsDuringTheWalk) {
    putSection("chkPlain=1\r\ntxtLast=late\r\n");
    std::string seen;
    form.chkPlain.Click.connect([&] { seen = form.txtLast.Text(); });
    ASSERT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(seen, "last");
    EXPECT_EQ(form.txtLast.Text(), "late");
}

TEST_F(FormINI, FractionsAreCutDownwards) {
    putSection("chkPlain=1.9\r\noptSecond=-0.5\r\ncboColour=1.5\r\n");
    ASSERT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.chkPlain.Value, 1);
    EXPECT_TRUE(form.optSecond.selected());
    EXPECT_EQ(form.cboColour.ListIndex(), 2);  // half to even
}

TEST_F(FormINI, AValueThatIsNoNumberEndsTheWalk) {
    putSection("txtName=before\r\nchkPlain=yes\r\nchkMember(4)=1\r\ntxtLast=behind\r\n");
    EXPECT_EQ(errorOf(program, form), 13);
    EXPECT_EQ(form.txtName.Text(), "before");
    EXPECT_EQ(form.chkMember4.Value, 0);
    EXPECT_EQ(form.txtLast.Text(), "last");
}

TEST_F(FormINI, ValuesThatDoNotFitAreErrorsOfTheirOwn) {
    putSection("cboColour=40000\r\n");
    EXPECT_EQ(errorOf(program, form), 6);
    putSection("cboColour=x\r\n");
    EXPECT_EQ(errorOf(program, form), 13);
    putSection("chkPlain=1E+20\r\n");
    EXPECT_EQ(errorOf(program, form), 6);
    putSection("chkPlain=7\r\n");
    EXPECT_EQ(errorOf(program, form), 380);
    EXPECT_EQ(form.chkPlain.Value, 0);
}

TEST_F(FormINI, AWindowThatSkipsErrorsTakesAnAbandonedWalkForALoad) {
    putSection("txtName=before\r\nchkPlain=yes\r\ntxtLast=behind\r\n");
    EXPECT_TRUE(settings::LoadFormINISkippingErrors(program, form));
    EXPECT_EQ(form.txtName.Text(), "before");
    EXPECT_EQ(form.txtLast.Text(), "last");
}

TEST_F(FormINI, NumbersAreReadByTheLocale) {
    ProgramFixture german(
        [](platform::MemoryPlatform& prepared) { prepared.system.systemLocale = base::germanLocale(); });
    german.machine.files.putFile(kIni, "[frmSample]\r\nchkPlain=1,7\r\n");
    ASSERT_TRUE(LoadFormINI(german.program, form));
    EXPECT_EQ(form.chkPlain.Value, 1);
}

TEST_F(FormINI, AHiddenFileIsNoFile) {
    putSection("txtName=hidden\r\n");
    machine.files.setAttributes(kIni, platform::attribute::Hidden);
    EXPECT_FALSE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "design");
}

TEST_F(FormINI, AFolderInItsPlaceIsNoFileAndStays) {
    machine.files.putFolder(kIni);
    EXPECT_FALSE(LoadFormINI(program, form));
    SaveFormINI(program, form);
    EXPECT_TRUE(machine.files.hasFolder(kIni));
}

TEST_F(FormINI, AFileThatCannotBeReadCountsAsOneWithoutKeys) {
    putSection("txtName=secret\r\n");
    machine.files.refuse(kIni, platform::operation::Read, platform::Status::Denied);
    EXPECT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "design");
}

TEST_F(FormINI, AFileThatCannotBeWrittenStaysAsItIs) {
    putSection("txtName=kept\r\n");
    machine.files.refuse(kIni, platform::operation::Write, platform::Status::Denied);
    form.txtName.setText("new");
    SaveFormINI(program, form);
    machine.files.allow(kIni);
    EXPECT_EQ(stored("txtName"), "kept");
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(FormINI, TheFileIsReplacedOnceAsAWholeOrNotAtAll) {
    putSection("txtName=kept\r\n");
    machine.files.refuse(kIni, platform::operation::Write, platform::Status::Denied, 1);
    form.txtName.setText("new");
    SaveFormINI(program, form);
    EXPECT_EQ(machine.files.bytesOf(kIni), "[frmSample]\r\ntxtName=kept\r\n");
    settings::saveWindowNumbers(program, "WindowState", settings::rectangleOf(form));
    EXPECT_NE(stored("Width", "WindowState"), "<none>") << "that was the only write";
}

TEST_F(FormINI, TheRectangleOfAWindowIsOneWriteToo) {
    putSection("txtName=kept\r\n");
    machine.files.refuse(kIni, platform::operation::Write, platform::Status::Denied, 1);
    settings::saveWindowNumbers(program, "WindowState", settings::rectangleOf(form));
    EXPECT_EQ(machine.files.bytesOf(kIni), "[frmSample]\r\ntxtName=kept\r\n");
}

TEST_F(FormINI, AFullDiskKeepsTheOldFile) {
    putSection("txtName=kept\r\n");
    machine.files.setDiskFull('C', true);
    form.txtName.setText("new");
    SaveFormINI(program, form);
    machine.files.setDiskFull('C', false);
    EXPECT_EQ(stored("txtName"), "kept");
}

TEST_F(FormINI, AnEmptyFileIsNoFirstStart) {
    machine.files.putFile(kIni, "");
    EXPECT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "design");
}

TEST_F(FormINI, ACutFileGivesWhatItHas) {
    machine.files.putFile(kIni, "[frmSample]\r\ntxtName=whole\r\ntxtLa");
    EXPECT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "whole");
    EXPECT_EQ(form.txtLast.Text(), "last");
}

TEST_F(FormINI, ABinaryFileIsReadWithoutHarm) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>((i * 197 + i / 7) & 0xFF);
    machine.files.putFile(kIni, bytes + "\r\n[frmSample]\r\ntxtName=behind\r\n" + bytes);
    EXPECT_TRUE(settings::LoadFormINISkippingErrors(program, form));
    EXPECT_EQ(form.txtName.Text(), "behind");
}

TEST_F(FormINI, AHundredMegabytesAreReadWithoutHarm) {
    std::string bytes = "[frmSample]\r\ntxtName=first\r\n[frmOther]\r\n";
    bytes.resize(100'000'000, 'x');
    machine.files.putFile(kIni, bytes);
    EXPECT_TRUE(LoadFormINI(program, form));
    EXPECT_EQ(form.txtName.Text(), "first");
}

TEST_F(FormINI, AWriteIsSeenByTheNextRead) {
    EXPECT_TRUE(settings::WriteProfileValue(program, kIni, "PlugIns", "one", "1"));
    EXPECT_EQ(settings::ReadProfileValue(program, kIni, "PlugIns", "one"), "1");
    EXPECT_TRUE(settings::WriteProfileValue(program, kIni, "PlugIns", "one", "0"));
    EXPECT_EQ(settings::ReadProfileValue(program, kIni, "PlugIns", "one"), "0");
}

TEST_F(FormINI, AMissingKeyIsEmptyForTheGeneralReaderAndNulsForTheOther) {
    EXPECT_EQ(settings::ReadProfileValue(program, kIni, "Profile0", "Path"), "");
    EXPECT_EQ(settings::ReadINIKey(program, kIni, "Profile0", "Path"), std::string(255, '\0'));
}

TEST_F(FormINI, BothReadersStopAt254Characters) {
    machine.files.putFile(kIni, "[Profile0]\r\nPath=" + std::string(300, 'p') + "\r\n");
    EXPECT_EQ(settings::ReadINIKey(program, kIni, "Profile0", "Path"), std::string(254, 'p'));
    EXPECT_EQ(settings::ReadProfileValue(program, kIni, "Profile0", "Path"), std::string(254, 'p'));
}

class WindowNumbers : public FormINI {
protected:
    void load(bool minimized = false) {
        settings::loadWindowNumbers(program, "WindowStateSample", settings::rectangleOf(form), minimized);
    }
    void putWindowState(const std::string& lines) { machine.files.putFile(kIni, "[WindowStateSample]\r\n" + lines); }
};

TEST_F(WindowNumbers, ComeBackAsTheyWereSaved) {
    form.Left = -120;
    form.Top = 30;
    form.Height = 7230;
    form.Width = 12975;
    settings::saveWindowNumbers(program, "WindowStateSample", settings::rectangleOf(form));
    EXPECT_EQ(machine.files.bytesOf(kIni),
              "[WindowStateSample]\r\nLeft=-120\r\nTop=30\r\nHeight=7230\r\nWidth=12975\r\n");

    form.Left = form.Top = form.Height = form.Width = 1;
    load();
    EXPECT_EQ(form.Left, -120);
    EXPECT_EQ(form.Top, 30);
    EXPECT_EQ(form.Height, 7230);
    EXPECT_EQ(form.Width, 12975);
}

TEST_F(WindowNumbers, LeaveThePropertyWhereTheTextIsNoNumber) {
    form.Left = 500;
    form.Top = 600;
    putWindowState("Left=abc\r\nTop=\r\nWidth=40000\r\n");
    load();
    EXPECT_EQ(form.Left, 500);
    EXPECT_EQ(form.Top, 600);
    EXPECT_EQ(form.Width, 9000);
    EXPECT_EQ(form.Height, 6000);
}

TEST_F(WindowNumbers, AMissingFileChangesNothing) {
    load(false);
    load(true);
    EXPECT_EQ(form.Left, 0);
    EXPECT_EQ(form.Width, 9000);
    EXPECT_FALSE(machine.files.has(kIni));
}

TEST_F(WindowNumbers, BlanksAndFractionsAreRead) {
    putWindowState("Left=\" 12 \"\r\nTop=12.5\r\n");
    load();
    EXPECT_EQ(form.Left, 12);
    EXPECT_EQ(form.Top, 12);
}

TEST_F(WindowNumbers, ATextBeyondTheBufferIsCut) {
    putWindowState("Left=" + std::string(57, '0') + "123\r\n");
    load();
    EXPECT_EQ(form.Left, 12);  // 59 characters arrive
}

TEST_F(WindowNumbers, APositionHasTwoNumbers) {
    form.Left = 5;
    form.Top = 6;
    settings::saveWindowNumbers(program, "WindowStateSample", settings::positionOf(form));
    EXPECT_EQ(machine.files.bytesOf(kIni), "[WindowStateSample]\r\nLeft=5\r\nTop=6\r\n");
}

}  // namespace
}  // namespace tidvane::tests
