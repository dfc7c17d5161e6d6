#include "forms/text_box.h"

#include <gtest/gtest.h>

#include "forms/form.h"

namespace tidvane::forms {
namespace {

struct BoxForm : Form {
    BoxForm() : Form("frmBox") {}
    TextBox box{*this, "txtBox"};
};

TEST(TextBox, CountsCharactersAndNotBytes) {
    BoxForm form;
    form.box.setText("Größe\r\n");
    EXPECT_EQ(form.box.length(), 7U);
}

TEST(TextBox, AppendsThroughTheSelectionAndLeavesTheCaretBehind) {
    BoxForm form;
    form.box.setText("ab");
    form.box.caretToEnd();
    form.box.setSelText("cä");
    EXPECT_EQ(form.box.Text(), "abcä");
    EXPECT_EQ(form.box.SelStart(), 4U);
    EXPECT_EQ(form.box.SelLength(), 0U);
}

TEST(TextBox, ReplacesASelectionOfCharactersInUmlauts) {
    BoxForm form;
    form.box.setText("äöüxyz");
    form.box.select(1, 2);
    form.box.setSelText("-");
    EXPECT_EQ(form.box.Text(), "ä-xyz");
}

TEST(TextBox, RaisesNoChangeForAnEqualText) {
    BoxForm form;
    form.box.setText("a");
    int changes = 0;
    form.box.Change.connect([&] { ++changes; });
    form.box.setText("a");
    EXPECT_EQ(changes, 0);
    form.box.setText("b");
    EXPECT_EQ(changes, 1);
}

TEST(TextBox, TellsTheLineOfTheCaretAndItsBounds) {
    BoxForm form;
    form.box.setText("one\r\nzwö\r\n3");
    form.box.caretToEnd();
    EXPECT_EQ(form.box.lineFromCaret(), 2U);
    EXPECT_EQ(form.box.lineStart(1), 5U);
    EXPECT_EQ(form.box.lineLength(1), 3U);
    EXPECT_EQ(form.box.lineLength(2), 1U);
}

TEST(TextBox, SelectionStaysInsideTheText) {
    BoxForm form;
    form.box.setText("abc");
    form.box.select(2, 10);
    EXPECT_EQ(form.box.SelLength(), 1U);
    form.box.select(9, 1);
    EXPECT_EQ(form.box.SelStart(), 3U);
}

TEST(TextBox, NumberBoxTakesDigitsCommaAndBackspaceOnly) {
    BoxForm form;
    form.box.keyFilter = numericKey;
    for (const char32_t key : U"1a2,-.") {
        if (key != 0) form.box.typeKey(key);
    }
    EXPECT_EQ(form.box.Text(), "12,");
    form.box.typeKey(8);
    EXPECT_EQ(form.box.Text(), "12");
}

}  // namespace
}  // namespace tidvane::forms
