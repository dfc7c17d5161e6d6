#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "controls/explorer_bar.h"
#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"

namespace tidvane::forms {
namespace {

struct SampleForm : Form {
    SampleForm() : Form("frmSample") {}
    CheckBox chkOne{*this, "chkOne"};
    CheckBox chkMember{*this, "chkMember", "", 3};
    OptionButton optA{*this, "optA", "group"};
    OptionButton optB{*this, "optB", "group"};
    OptionButton optOther{*this, "optOther", "another"};
    ComboBox cboRows{*this, "cboRows"};
    ListBox lstRows{*this, "lstRows"};
    ListView lstTasks{*this, "lstTasks"};
    TabStrip tabs{*this, "tabs", {"a", "b", "c"}};
    CommandButton cmdOK{*this, "cmdOK"};
    controls::isButton cmdThemed{*this, "cmdThemed"};
    Timer tmr{*this, "tmr", 10, true};
    controls::ExplorerBar bar{*this, "bar"};
};

TEST(Form, ListsItsControlsInOrderOfDeclaration) {
    SampleForm form;
    EXPECT_EQ(form.Controls()[0]->Name, "chkOne");
    EXPECT_EQ(form.Controls()[1]->Name, "chkMember");
    EXPECT_EQ(form.Controls().back()->Name, "bar");
}

TEST(Form, FindsAnArrayByNameEvenWithOneMember) {
    SampleForm form;
    EXPECT_EQ(form.arrayCount("CHKMEMBER"), 1);
    EXPECT_EQ(form.arrayCount("chkOne"), 0);
    EXPECT_EQ(form.arrayCount("chkNowhere"), 0);
    EXPECT_EQ(form.control("chkMember", 3), &form.chkMember);
    EXPECT_EQ(form.control("chkMember", 2), nullptr);
}

TEST(CheckBox, RaisesItsEventOncePerChangeAndTellsTheViewApart) {
    SampleForm form;
    int clicks = 0;
    int views = 0;
    form.chkOne.Click.connect([&] { ++clicks; });
    form.chkOne.viewChanged.connect([&] { ++views; });
    form.chkOne.Value = 1;
    form.chkOne.Value = 1;
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(views, 1);
    form.chkOne.Value = 2;
    EXPECT_EQ(clicks, 2);
    EXPECT_FALSE(form.chkOne.ticked());
}

TEST(OptionButton, SelectingOneClearsItsGroupWithoutAnEventOfTheOthers) {
    SampleForm form;
    form.optA.setValue(-1);
    form.optOther.setValue(-1);
    int clicksOfA = 0;
    int clicksOfB = 0;
    form.optA.Click.connect([&] { ++clicksOfA; });
    form.optB.Click.connect([&] { ++clicksOfB; });
    form.optB.setValue(1);
    EXPECT_EQ(form.optB.value(), -1);
    EXPECT_EQ(form.optA.value(), 0);
    EXPECT_EQ(form.optOther.value(), -1);
    EXPECT_EQ(clicksOfA, 0);
    EXPECT_EQ(clicksOfB, 1);
    form.optB.setValue(0);
    EXPECT_EQ(form.optA.value(), 0);
    EXPECT_EQ(clicksOfB, 1);
}

TEST(ComboBox, RowAndTextAgree) {
    SampleForm form;
    form.cboRows.AddItem("one");
    form.cboRows.AddItem("two");
    form.cboRows.setListIndex(1);
    EXPECT_EQ(form.cboRows.Text(), "two");
    form.cboRows.setText("one");
    EXPECT_EQ(form.cboRows.ListIndex(), 0);
    form.cboRows.setText("free");
    EXPECT_EQ(form.cboRows.ListIndex(), -1);
    form.cboRows.setListIndex(5);
    EXPECT_EQ(form.cboRows.Text(), "free");
    form.cboRows.setListIndex(-1);
    EXPECT_EQ(form.cboRows.Text(), "");
}

TEST(ComboBox, ATextSetBeforeItsRowFindsTheRowWhenItComes) {
    SampleForm form;
    form.cboRows.setText("HKEY_LOCAL_MACHINE");
    form.cboRows.AddItem("HKEY_LOCAL_MACHINE");
    EXPECT_EQ(form.cboRows.ListIndex(), 0);
}

TEST(ListBox, SelectsAllRowsOrNone) {
    SampleForm form;
    for (const char* text : {"a", "b", "c"}) form.lstRows.AddItem(text);
    form.lstRows.setSelected(1, true);
    form.lstRows.selectAll(true);
    EXPECT_EQ(form.lstRows.SelCount(), 3);
    form.lstRows.selectAll(false);
    EXPECT_EQ(form.lstRows.SelCount(), 0);
}

TEST(ListView, RefusesAKeyThatStandsAlreadyAndTakesEmptyKeys) {
    SampleForm form;
    EXPECT_TRUE(form.lstTasks.Add(0, "a", "A", 2));
    EXPECT_FALSE(form.lstTasks.Add(0, "a", "again", 3));
    EXPECT_TRUE(form.lstTasks.Add(0, "", "", 2));
    EXPECT_TRUE(form.lstTasks.Add(0, "", "", 2));
    EXPECT_EQ(form.lstTasks.Count(), 3);
    EXPECT_EQ(form.lstTasks.item(""), nullptr);
    EXPECT_FALSE(form.lstTasks.Remove(std::string()));
}

TEST(ListView, AKeyIsFreeAgainWhenItsRowIsGone) {
    SampleForm form;
    for (const char* key : {"a", "b", "c"}) EXPECT_TRUE(form.lstTasks.Add(1, key, key, 0));
    EXPECT_TRUE(form.lstTasks.Remove("b"));
    EXPECT_FALSE(form.lstTasks.Add(0, "a", "again", 0));
    EXPECT_FALSE(form.lstTasks.Add(0, "c", "again", 0));
    ASSERT_TRUE(form.lstTasks.Add(0, "b", "again", 0));
    EXPECT_EQ(form.lstTasks.item("b")->text, "again");
    EXPECT_TRUE(form.lstTasks.Remove(1));
    EXPECT_TRUE(form.lstTasks.Add(0, "c", "again", 0));
    form.lstTasks.Clear();
    EXPECT_TRUE(form.lstTasks.Add(0, "a", "A", 0));
}

TEST(ListView, IsFilledWithVeryManyRowsInTime) {
    SampleForm form;
    const std::clock_t begin = std::clock();
    for (int i = 0; i < 100000; ++i) {
        ASSERT_TRUE(form.lstTasks.Add(0, "C:\\Users\\Anna\\Cookies\\anna@" + std::to_string(i) + ".txt", "", 0));
    }
    // A look at every row for each one would take a minute or more.
    EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 5);
    EXPECT_FALSE(form.lstTasks.Add(0, "C:\\Users\\Anna\\Cookies\\anna@99999.txt", "", 0));
}

TEST(ListView, InsertsAtAnIndexFromOne) {
    SampleForm form;
    form.lstTasks.Add(0, "b", "B", 2);
    form.lstTasks.Add(1, "a", "A", 1);
    EXPECT_EQ(form.lstTasks.item(1)->key, "a");
}

TEST(ListView, AMissingRowMakesAWriteDoNothing) {
    SampleForm form;
    EXPECT_FALSE(form.lstTasks.setSubItem("gone", "Status", "x"));
    EXPECT_FALSE(form.lstTasks.setSmallIcon(1, 9));
    EXPECT_FALSE(form.lstTasks.setSelected("gone"));
}

TEST(ListView, SelectsOneRowAtATime) {
    SampleForm form;
    form.lstTasks.Add(0, "a", "A", 2);
    form.lstTasks.Add(0, "b", "B", 2);
    form.lstTasks.setSelected("a");
    form.lstTasks.setSelected("b");
    EXPECT_FALSE(form.lstTasks.item("a")->selected);
    EXPECT_TRUE(form.lstTasks.item("b")->selected);
}

TEST(ListView, MarksRowsBesideOneAnother) {
    SampleForm form;
    for (const char* key : {"a", "b", "c"}) form.lstTasks.Add(0, key, key, 0);
    EXPECT_TRUE(form.lstTasks.mark(1, true));
    EXPECT_TRUE(form.lstTasks.mark(3, true));
    EXPECT_TRUE(form.lstTasks.mark(1, false));
    EXPECT_TRUE(form.lstTasks.mark(2, true));
    EXPECT_FALSE(form.lstTasks.item(1)->selected);
    EXPECT_TRUE(form.lstTasks.item(2)->selected);
    EXPECT_TRUE(form.lstTasks.item(3)->selected);
    EXPECT_FALSE(form.lstTasks.mark(0, true));
    EXPECT_FALSE(form.lstTasks.mark(4, true));
    form.lstTasks.markAll(true);
    for (int row = 1; row <= 3; ++row) EXPECT_TRUE(form.lstTasks.item(row)->selected);
    form.lstTasks.markAll(false);
    for (int row = 1; row <= 3; ++row) EXPECT_FALSE(form.lstTasks.item(row)->selected);
}

TEST(TabStrip, OffersOnePageAndHidesTheOthers) {
    SampleForm form;
    form.tabs.offerOnly(1);
    EXPECT_TRUE(form.tabs.TabVisible(1));
    EXPECT_FALSE(form.tabs.TabVisible(0));
    EXPECT_FALSE(form.tabs.TabVisible(2));
    EXPECT_EQ(form.tabs.Tab, 1);
    EXPECT_TRUE(form.tabs.TabEnabled(0));
}

TEST(CommandButton, SettingItsValueClicks) {
    SampleForm form;
    int clicks = 0;
    form.cmdOK.Click.connect([&] { ++clicks; });
    form.cmdOK.setValue(true);
    EXPECT_EQ(clicks, 1);
    form.cmdOK.Enabled = false;
    form.cmdOK.press();
    EXPECT_EQ(clicks, 1);
}

TEST(ThemedButton, SettingItsValueStartsNothing) {
    SampleForm form;
    int clicks = 0;
    form.cmdThemed.Click.connect([&] { ++clicks; });
    form.cmdThemed.Value = true;
    EXPECT_EQ(clicks, 0);
    form.cmdThemed.press();
    EXPECT_EQ(clicks, 1);
}

TEST(Timer, DoesNotRunInsideItsOwnHandlerNorWhileDisabled) {
    SampleForm form;
    int ticks = 0;
    form.tmr.Tick.connect([&] {
        ++ticks;
        form.tmr.fire();
    });
    form.tmr.fire();
    EXPECT_EQ(ticks, 1);
    form.tmr.Enabled = false;
    form.tmr.fire();
    EXPECT_EQ(ticks, 1);
}

TEST(ExplorerBar, RefusesWhatGoesBeyondItsLimits) {
    SampleForm form;
    for (int group = 0; group < 19; ++group) EXPECT_EQ(form.bar.AddNormalGroup("g"), group);
    EXPECT_EQ(form.bar.AddDetailGroup("d", "c"), 19);
    EXPECT_EQ(form.bar.AddDetailGroup("d", "c"), -1);
    EXPECT_EQ(form.bar.AddNormalGroup("one too many"), -20);
    EXPECT_EQ(form.bar.AddItem(19, "on the detail group"), -3);
    EXPECT_EQ(form.bar.AddItem(20, "nowhere"), -1);
    for (int item = 0; item < 20; ++item) EXPECT_EQ(form.bar.AddItem(0, "i"), item);
    EXPECT_EQ(form.bar.AddItem(0, "one too many"), -20);
}

}  // namespace
}  // namespace tidvane::forms
