// Each kind of control with its native widget: what the program sets is seen, what a user does is heard once.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/checklst.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/simplebook.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include "base/runtime_error.h"
#include "controls/is_button.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "view/display_fixture.h"
#include "view/form_window.h"
#include "view/text.h"

namespace tidvane::tests {
namespace {

using view::column;
using view::fillWindow;
using view::fromNative;
using view::toNative;

// A window with one control of each kind.
class Specimen final : public forms::Form {
public:
    Specimen() : Form("Specimen") { Caption.design("Specimen"); }
    forms::CheckBox chkOne{*this, "chkOne", "Tick &me"};
    forms::OptionButton optA{*this, "optA", "group", "A"};
    forms::OptionButton optB{*this, "optB", "group", "B"};
    forms::OptionButton optOther{*this, "optOther", "another group", "C"};
    forms::TextBox txtOne{*this, "txtOne"};
    forms::TextBox txtLines{*this, "txtLines"};
    forms::ComboBox cboRows{*this, "cboRows"};
    forms::ComboBox cboTyped{*this, "cboTyped"};
    forms::DriveList drvOne{*this, "drvOne"};
    forms::ListBox lstOne{*this, "lstOne"};
    forms::ListBox lstSeveral{*this, "lstSeveral"};
    forms::ListBox lstTicks{*this, "lstTicks", true};
    forms::ListView lsvOne{*this, "lsvOne"};
    forms::ListView lsvSeveral{*this, "lsvSeveral"};
    forms::Label lblOne{*this, "lblOne", "A label"};
    forms::Label lblLink{*this, "lblLink", "A link"};
    forms::Frame fraOne{*this, "fraOne", "A heading"};
    forms::Image imgOne{*this, "imgOne"};
    forms::CommandButton cmdOne{*this, "cmdOne", "Press"};
    controls::isButton cmdThemed{*this, "cmdThemed"};
    forms::TabStrip tabOne{*this, "tabOne", {"First", "Second", "Third"}};
    forms::StatusBar barOne{*this, "barOne", 2};
    forms::Timer tmrPoll{*this, "tmrPoll", 100, true};
    forms::Timer tmrSlow{*this, "tmrSlow", 1000, false};
};

// Counts a control's event, and remembers what the window heard in what order.
struct Heard {
    int count = 0;
    explicit Heard(forms::Signal<>& event) {
        event.connect([this] { ++count; });
    }
    Heard(const Heard&) = delete;
    Heard& operator=(const Heard&) = delete;
};

class Bindings : public testing::Test {
protected:
    Bindings() { takeComplaints(); }
    ~Bindings() override {
        whenIdle({});
        window_.reset();
        letSettle();
        for (const std::string& complaint : takeComplaints()) ADD_FAILURE() << complaint;
    }

    // The window with what `layout` makes, on the screen and with the focus.
    void open(const std::function<wxWindow*(view::FormWindow&)>& layout) {
        window_ = std::make_unique<view::FormWindow>(view, form, view::WindowStyle{.resizable = true}, nullptr);
        wxWindow* widget = layout(*window_);
        fillWindow(window_->body(), column(window_->body(), {view::fill(widget)}));
        window_->finish();
        show();
    }
    // The same for several widgets, one below the other.
    void openAll(const std::function<std::vector<wxWindow*>(view::FormWindow&)>& layout) {
        window_ = std::make_unique<view::FormWindow>(view, form, view::WindowStyle{.resizable = true}, nullptr);
        wxBoxSizer* all = column(window_->body(), {});
        for (wxWindow* widget : layout(*window_)) all->Add(widget, 0, wxEXPAND | wxALL, 4);
        fillWindow(window_->body(), all);
        window_->finish();
        show();
    }
    void show() {
        whenIdle([this] {
            if (!view.busy()) view.settle();
        });
        view.onError = [](const std::string& text) { ADD_FAILURE() << text; };
        window_->native()->SetSize(600, 500);
        window_->show(true);
        ASSERT_TRUE(letRunUntil([this] { return isActive(window_->native()); })) << "the window gets no focus";
        letDraw(window_->native());
    }
    // The native widget of a control.
    template <class Widget>
    Widget* widget(const forms::Control& control) {
        return dynamic_cast<Widget*>(window_->widgetOf(control));
    }
    void focus(const forms::Control& control) {
        wxWindow* widget = window_->widgetOf(control);
        widget->SetFocus();
        ASSERT_TRUE(letRunUntil([widget] { return widget->HasFocus(); })) << control.Name << " takes no focus";
    }
    // What the program does to its model, seen once the program is idle again.
    void programDoes(const std::function<void()>& what) {
        what();
        letDraw(window_->native());
    }
    // Presses a key on a box of rows; its list is open behind it.
    void openRows(const forms::Control& control) {
        focus(control);
        typeKey(WXK_SPACE);
        auto* box = GTK_COMBO_BOX(window_->widgetOf(control)->GetHandle());
        ASSERT_TRUE(letRunUntil([box] {
            gboolean open = FALSE;
            g_object_get(box, "popup-shown", &open, nullptr);
            return open != FALSE;
        })) << control.Name
            << " shows no rows";
    }
    // The middle of a row of a list, from 0.
    static wxPoint inRow(wxListBox* list, int row) {
        const int first = list->GetTopItem();
        for (int y = 1; y < list->GetClientSize().y; ++y) {
            if (list->HitTest(wxPoint(12, y)) == row) return {60, y + 6};
        }
        ADD_FAILURE() << "row " << row << " is not to be seen, the first is " << first;
        return {};
    }
    static wxPoint inRow(wxDataViewCtrl* list, int row) {
        const auto* model = dynamic_cast<const wxDataViewVirtualListModel*>(list->GetModel());
        const wxRect place = list->GetItemRect(model->GetItem(static_cast<unsigned>(row)));
        return {place.x + 20, place.y + place.height / 2};
    }

    // Whether a number that changes with every round of the program comes to rest.
    static bool staysAt(const int& number) {
        return letRunUntil([&number] {
            const int before = number;
            letRun(300);
            return number == before;
        });
    }

    // Longer than a button stays down that a key presses: by then it would have been pressed.
    static constexpr int kPress = 400;

    view::View view;
    Specimen form;
    std::unique_ptr<view::FormWindow> window_;
};

// --- check boxes

TEST_F(Bindings, aTickOfTheProgramIsShownAndClicksNothingMore) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    const Heard heard(form.chkOne.Click);
    programDoes([this] { form.chkOne.Value = 1; });
    EXPECT_EQ(widget<wxCheckBox>(form.chkOne)->Get3StateValue(), wxCHK_CHECKED);
    EXPECT_EQ(heard.count, 1);
    programDoes([this] { form.chkOne.Value = 2; });
    EXPECT_EQ(widget<wxCheckBox>(form.chkOne)->Get3StateValue(), wxCHK_UNDETERMINED);
    programDoes([this] { form.chkOne.Value = 0; });
    EXPECT_EQ(widget<wxCheckBox>(form.chkOne)->Get3StateValue(), wxCHK_UNCHECKED);
    EXPECT_EQ(heard.count, 3);
}

TEST_F(Bindings, theSpaceBarTicksOnce) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    const Heard heard(form.chkOne.Click);
    focus(form.chkOne);
    typeKey(WXK_SPACE);
    EXPECT_EQ(form.chkOne.Value.get(), 1);
    EXPECT_EQ(heard.count, 1);
    typeKey(WXK_SPACE);
    EXPECT_EQ(form.chkOne.Value.get(), 0);
    EXPECT_EQ(heard.count, 2);
}

TEST_F(Bindings, aClickOnAGreyedBoxTakesItOut) {
    form.chkOne.Value = 2;
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    const Heard heard(form.chkOne.Click);
    focus(form.chkOne);
    typeKey(WXK_SPACE);
    EXPECT_EQ(form.chkOne.Value.get(), 0);
    EXPECT_EQ(heard.count, 1);
}

TEST_F(Bindings, aHandlerMaySetTheBoxBackAndTheWidgetFollows) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    form.chkOne.Click.connect([this] {
        if (form.chkOne.Value == 1) form.chkOne.Value = 0;
    });
    focus(form.chkOne);
    typeKey(WXK_SPACE);
    EXPECT_EQ(form.chkOne.Value.get(), 0);
    EXPECT_EQ(widget<wxCheckBox>(form.chkOne)->Get3StateValue(), wxCHK_UNCHECKED);
}

// --- what all kinds have

TEST_F(Bindings, captionsStatesAndTipsFollowTheModel) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    auto* box = widget<wxCheckBox>(form.chkOne);
    programDoes([this] {
        form.chkOne.Caption = "Löschen";
        form.chkOne.ToolTipText = "Ein Tipp";
        form.chkOne.Enabled = false;
    });
    EXPECT_EQ(fromNative(box->GetLabel()), "Löschen");
    EXPECT_EQ(fromNative(box->GetToolTipText()), "Ein Tipp");
    EXPECT_FALSE(box->IsEnabled());
    programDoes([this] { form.chkOne.Visible = false; });
    EXPECT_FALSE(box->IsShown());
    programDoes([this] {
        form.chkOne.Visible = true;
        form.chkOne.Enabled = true;
        form.chkOne.ToolTipText = "";
    });
    EXPECT_TRUE(box->IsShown());
    EXPECT_TRUE(box->IsEnabled());
    EXPECT_TRUE(box->GetToolTipText().empty());
}

// --- option buttons

TEST_F(Bindings, optionButtonsExcludeTheirGroupInBothDirections) {
    form.optA.design(true);
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.option(window.body(), form.optA), window.option(window.body(), form.optB),
                                      window.option(window.body(), form.optOther)};
    });
    const Heard a(form.optA.Click);
    const Heard b(form.optB.Click);
    const Heard other(form.optOther.Click);
    clickMiddle(widget<wxRadioButton>(form.optB));
    EXPECT_EQ(form.optB.value(), -1);
    EXPECT_EQ(form.optA.value(), 0);
    EXPECT_EQ(b.count, 1);
    EXPECT_EQ(a.count, 0);
    programDoes([this] { form.optA.setValue(-1); });
    EXPECT_TRUE(widget<wxRadioButton>(form.optA)->GetValue());
    EXPECT_FALSE(widget<wxRadioButton>(form.optB)->GetValue());
    EXPECT_EQ(a.count, 1);
    EXPECT_EQ(b.count, 1);
    EXPECT_EQ(other.count, 0);
}

TEST_F(Bindings, aGroupWithoutAChoiceShowsNone) {
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.option(window.body(), form.optA), window.option(window.body(), form.optB)};
    });
    EXPECT_EQ(form.optA.value(), 0);
    EXPECT_EQ(form.optB.value(), 0);
    const Heard a(form.optA.Click);
    clickMiddle(widget<wxRadioButton>(form.optA));
    EXPECT_EQ(form.optA.value(), -1);
    EXPECT_EQ(a.count, 1) << "the first of a group is a choice too, though the toolkit shows it as chosen already";
}

// --- text

TEST_F(Bindings, typingChangesTheTextOnceALetter) {
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    const Heard heard(form.txtOne.Change);
    focus(form.txtOne);
    typeText("abc");
    EXPECT_EQ(form.txtOne.Text(), "abc");
    EXPECT_EQ(heard.count, 3);
    EXPECT_EQ(form.txtOne.SelStart(), 3u);
}

TEST_F(Bindings, aTextOfTheProgramIsShownWithoutAnEcho) {
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    const Heard heard(form.txtOne.Change);
    programDoes([this] { form.txtOne.setText("Grüße 🗑"); });
    EXPECT_EQ(fromNative(widget<wxTextCtrl>(form.txtOne)->GetValue()), "Grüße 🗑");
    EXPECT_EQ(heard.count, 1);
}

TEST_F(Bindings, aHandlerMayReplaceWhatWasTyped) {
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    form.txtOne.Change.connect([this] {
        if (form.txtOne.Text() == "x") form.txtOne.setText("replaced");
    });
    focus(form.txtOne);
    typeText("x");
    EXPECT_EQ(fromNative(widget<wxTextCtrl>(form.txtOne)->GetValue()), "replaced");
    EXPECT_EQ(form.txtOne.Text(), "replaced");
}

TEST_F(Bindings, theKeyFilterKeepsLettersOutAndLetsBackspaceIn) {
    form.txtOne.keyFilter = forms::numericKey;
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    focus(form.txtOne);
    typeText("1a2-3");
    EXPECT_EQ(form.txtOne.Text(), "123");
    typeKey(WXK_BACK);
    EXPECT_EQ(form.txtOne.Text(), "12");
    typeKey(WXK_HOME);
    typeKey(WXK_DELETE);
    EXPECT_EQ(form.txtOne.Text(), "2");
}

TEST_F(Bindings, enteringABoxIsToldOnce) {
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.check(window.body(), form.chkOne),
                                      window.entry(window.body(), form.txtOne)};
    });
    focus(form.chkOne);
    const Heard heard(form.txtOne.GotFocus);
    typeKey(WXK_TAB);
    EXPECT_TRUE(widget<wxTextCtrl>(form.txtOne)->HasFocus());
    EXPECT_EQ(heard.count, 1);
}

TEST_F(Bindings, severalLinesAreTypedWithCarriageReturns) {
    open([this](view::FormWindow& window) { return window.lines(window.body(), form.txtLines, {.readOnly = false}); });
    focus(form.txtLines);
    typeText("a");
    typeKey(WXK_RETURN);
    typeText("b");
    EXPECT_EQ(form.txtLines.Text(), "a\r\nb");
    EXPECT_EQ(form.txtLines.SelStart(), 4u) << "a line end is two characters of the model";
}

TEST_F(Bindings, theSelectionFollowsInBothDirectionsPastLineEndsAndSurrogates) {
    form.txtLines.design("ä🗑\r\nsecond line\r\nthird");
    open([this](view::FormWindow& window) {
        return window.lines(window.body(), form.txtLines, {.readOnly = true, .selection = true});
    });
    auto* box = widget<wxTextCtrl>(form.txtLines);
    // "second": behind one unit, a pair of them and a line end.
    programDoes([this] { form.txtLines.select(5, 6); });
    EXPECT_EQ(fromNative(box->GetStringSelection()), "second");
    focus(form.txtLines);
    typeKey(WXK_END, wxMOD_CONTROL);
    typeKey(WXK_LEFT, wxMOD_SHIFT);
    typeKey(WXK_LEFT, wxMOD_SHIFT);
    EXPECT_EQ(form.txtLines.SelStart(), 5u + 11u + 2u + 3u);
    EXPECT_EQ(form.txtLines.SelLength(), 2u);
}

bool isEndVisible(wxTextCtrl* box) {
    auto* text = GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(box->GetHandle())));
    GtkTextIter end;
    gtk_text_buffer_get_end_iter(gtk_text_view_get_buffer(text), &end);
    GdkRectangle shown;
    GdkRectangle place;
    gtk_text_view_get_visible_rect(text, &shown);
    gtk_text_view_get_iter_location(text, &end, &place);
    return place.y >= shown.y && place.y < shown.y + shown.height;
}

TEST_F(Bindings, aGrowingLogIsAppendedToAndScrollsToItsEnd) {
    open([this](view::FormWindow& window) {
        return window.lines(window.body(), form.txtLines, {.readOnly = true, .selection = true});
    });
    auto* box = widget<wxTextCtrl>(form.txtLines);
    std::string text;
    for (int line = 0; line < 200; ++line) {
        form.txtLines.caretToEnd();
        form.txtLines.setSelText("line " + std::to_string(line) + "\r\n");
        text += "line " + std::to_string(line) + "\n";
    }
    EXPECT_TRUE(letRunUntil([&] { return fromNative(box->GetValue()) == text; }));
    EXPECT_TRUE(letRunUntil([box] { return isEndVisible(box); }));
    // Texts that replace others do not append.
    programDoes([this] { form.txtLines.setText("new"); });
    EXPECT_EQ(fromNative(box->GetValue()), "new");
}

// What stands there already is not sent again: a mark that the toolkit keeps at its place stays there.
TEST_F(Bindings, onlyTheTailOfAGrowingTextReachesTheWidget) {
    open([this](view::FormWindow& window) { return window.lines(window.body(), form.txtLines, {.selection = true}); });
    auto* box = widget<wxTextCtrl>(form.txtLines);
    programDoes([this] { form.txtLines.setText("first\r\nsecond\r\n"); });
    // A colour is lost where a text is set anew, and stays where one is appended.
    box->SetStyle(0, 5, wxTextAttr(*wxRED));
    programDoes([this] {
        form.txtLines.caretToEnd();
        form.txtLines.setSelText("third\r\n");
    });
    wxTextAttr look;
    ASSERT_TRUE(box->GetStyle(2, look));
    EXPECT_EQ(look.GetTextColour(), *wxRED);
    EXPECT_EQ(fromNative(box->GetValue()), "first\nsecond\nthird\n");
}

// --- combo boxes and drives

TEST_F(Bindings, rowsOfAComboBoxAreChosenInBothDirections) {
    for (const char* row : {"one", "two", "three"}) form.cboRows.AddItem(row);
    open([this](view::FormWindow& window) { return window.combo(window.body(), form.cboRows); });
    auto* box = widget<wxChoice>(form.cboRows);
    EXPECT_EQ(box->GetCount(), 3u);
    EXPECT_EQ(box->GetSelection(), wxNOT_FOUND);
    const Heard heard(form.cboRows.Click);
    programDoes([this] { form.cboRows.setListIndex(1); });
    EXPECT_EQ(box->GetSelection(), 1);
    EXPECT_EQ(heard.count, 1);
    openRows(form.cboRows);
    typeKey(WXK_DOWN);
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([this] { return form.cboRows.ListIndex() == 2; }));
    EXPECT_EQ(form.cboRows.Text(), "three");
    EXPECT_EQ(heard.count, 2);
    programDoes([this] {
        form.cboRows.Clear();
        form.cboRows.AddItem("other");
    });
    EXPECT_EQ(box->GetCount(), 1u);
    EXPECT_EQ(box->GetSelection(), wxNOT_FOUND);
}

TEST_F(Bindings, aComboBoxForAnyTextTakesTypedOnesAndRows) {
    form.cboTyped.AddItem("*.tmp");
    form.cboTyped.AddItem("*.bak");
    open([this](view::FormWindow& window) { return window.combo(window.body(), form.cboTyped, true); });
    auto* box = widget<wxComboBox>(form.cboTyped);
    const Heard heard(form.cboTyped.Change);
    const Heard chosen(form.cboTyped.Click);
    focus(form.cboTyped);
    typeText("*.old");
    EXPECT_EQ(form.cboTyped.Text(), "*.old");
    EXPECT_EQ(form.cboTyped.ListIndex(), -1);
    EXPECT_EQ(heard.count, 5);
    programDoes([this] { form.cboTyped.setListIndex(1); });
    EXPECT_EQ(fromNative(box->GetValue()), "*.bak");
    EXPECT_EQ(chosen.count, 1);
}

TEST_F(Bindings, drivesAreListedAndChosen) {
    form.drvOne.List = {"c:", "d: [DATA]"};
    form.drvOne.ListIndex.design(0);
    open([this](view::FormWindow& window) { return window.drives(window.body(), form.drvOne); });
    auto* box = widget<wxChoice>(form.drvOne);
    EXPECT_EQ(box->GetSelection(), 0);
    const Heard heard(form.drvOne.Change);
    openRows(form.drvOne);
    typeKey(WXK_DOWN);
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([this] { return form.drvOne.Drive() == "d: [DATA]"; }));
    EXPECT_EQ(heard.count, 1);
    programDoes([this] { form.drvOne.ListIndex = 0; });
    EXPECT_EQ(box->GetSelection(), 0);
    EXPECT_EQ(heard.count, 2);
}

// --- list boxes

TEST_F(Bindings, theRowOfAListIsSelectedInBothDirections) {
    for (const char* row : {"one", "two", "three"}) form.lstOne.AddItem(row);
    open([this](view::FormWindow& window) { return window.list(window.body(), form.lstOne); });
    auto* list = widget<wxListBox>(form.lstOne);
    const Heard heard(form.lstOne.Click);
    programDoes([this] { form.lstOne.setListIndex(2); });
    EXPECT_EQ(list->GetSelection(), 2);
    EXPECT_EQ(heard.count, 1);
    click(list, inRow(list, 1));
    EXPECT_EQ(form.lstOne.ListIndex(), 1);
    EXPECT_TRUE(form.lstOne.Selected(1));
    EXPECT_EQ(form.lstOne.SelCount(), 1);
    EXPECT_EQ(heard.count, 2);
    typeKey(WXK_UP);
    EXPECT_EQ(form.lstOne.ListIndex(), 0);
    EXPECT_EQ(heard.count, 3);
}

TEST_F(Bindings, aDoubleClickOnARowIsHeardOnceWithTheRowSelected) {
    for (const char* row : {"one", "two", "three"}) form.lstOne.AddItem(row);
    open([this](view::FormWindow& window) { return window.list(window.body(), form.lstOne); });
    auto* list = widget<wxListBox>(form.lstOne);
    int row = -1;
    int count = 0;
    form.lstOne.DblClick.connect([&] {
        row = form.lstOne.ListIndex();
        ++count;
    });
    doubleClick(list, inRow(list, 1));
    EXPECT_EQ(row, 1);
    EXPECT_EQ(count, 1);
}

TEST_F(Bindings, enterOnARowIsADoubleClickAndPressesNoButton) {
    for (const char* row : {"one", "two", "three"}) form.lstOne.AddItem(row);
    openAll([this](view::FormWindow& window) {
        wxWindow* list = window.list(window.body(), form.lstOne);
        wxWindow* button = window.button(window.body(), form.cmdOne);
        window.defaultButton(button);
        return std::vector<wxWindow*>{list, button};
    });
    auto* list = widget<wxListBox>(form.lstOne);
    const Heard twice(form.lstOne.DblClick);
    const Heard pressed(form.cmdOne.Click);
    click(list, inRow(list, 1));
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([&twice] { return twice.count > 0; }));
    letRun(kPress);
    EXPECT_EQ(twice.count, 1);
    EXPECT_EQ(pressed.count, 0);
}

TEST_F(Bindings, rowsThatComeAndGoAreFollowed) {
    open([this](view::FormWindow& window) { return window.list(window.body(), form.lstOne); });
    auto* list = widget<wxListBox>(form.lstOne);
    programDoes([this] {
        form.lstOne.AddItem("b");
        form.lstOne.AddItem("ü");
    });
    ASSERT_EQ(list->GetCount(), 2u);
    EXPECT_EQ(fromNative(list->GetString(1)), "ü");
    programDoes([this] { form.lstOne.setList(0, "changed"); });
    EXPECT_EQ(fromNative(list->GetString(0)), "changed");
    programDoes([this] { form.lstOne.RemoveItem(0); });
    EXPECT_EQ(list->GetCount(), 1u);
    programDoes([this] { form.lstOne.Clear(); });
    EXPECT_EQ(list->GetCount(), 0u);
}

TEST_F(Bindings, severalRowsAreSelectedTogether) {
    for (const char* row : {"one", "two", "three", "four"}) form.lstSeveral.AddItem(row);
    open([this](view::FormWindow& window) { return window.list(window.body(), form.lstSeveral, true); });
    auto* list = widget<wxListBox>(form.lstSeveral);
    click(list, inRow(list, 1));
    typeKey(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_FALSE(form.lstSeveral.Selected(0));
    EXPECT_TRUE(form.lstSeveral.Selected(1));
    EXPECT_TRUE(form.lstSeveral.Selected(2));
    EXPECT_EQ(form.lstSeveral.SelCount(), 2);
    programDoes([this] { form.lstSeveral.selectAll(true); });
    wxArrayInt rows;
    EXPECT_EQ(list->GetSelections(rows), 4);
    programDoes([this] { form.lstSeveral.selectAll(false); });
    EXPECT_EQ(list->GetSelections(rows), 0);
}

TEST_F(Bindings, aTickInAListIsHeardOnceAndShown) {
    for (const char* row : {"one", "two", "three"}) form.lstTicks.AddItem(row);
    open([this](view::FormWindow& window) { return window.list(window.body(), form.lstTicks); });
    auto* list = widget<wxCheckListBox>(form.lstTicks);
    const Heard heard(form.lstTicks.ItemCheck);
    programDoes([this] { form.lstTicks.setSelected(2, true); });
    EXPECT_TRUE(list->IsChecked(2));
    EXPECT_EQ(heard.count, 1);
    click(list, inRow(list, 1));
    EXPECT_FALSE(form.lstTicks.Selected(1)) << "a click beside the tick selects";
    typeKey(WXK_SPACE);
    EXPECT_TRUE(form.lstTicks.Selected(1));
    EXPECT_TRUE(list->IsChecked(1));
    EXPECT_TRUE(form.lstTicks.Selected(2));
    EXPECT_EQ(heard.count, 2);
    typeKey(WXK_SPACE);
    EXPECT_FALSE(form.lstTicks.Selected(1));
    EXPECT_EQ(heard.count, 3);
}

TEST_F(Bindings, aClickOnTheBoxOfARowTicksItOnce) {
    for (const char* row : {"one", "two", "three"}) form.lstTicks.AddItem(row);
    open([this](view::FormWindow& window) { return window.list(window.body(), form.lstTicks); });
    auto* list = widget<wxCheckListBox>(form.lstTicks);
    const Heard heard(form.lstTicks.ItemCheck);
    click(list, wxPoint(10, inRow(list, 1).y));
    EXPECT_TRUE(form.lstTicks.Selected(1));
    EXPECT_TRUE(list->IsChecked(1));
    EXPECT_EQ(heard.count, 1);
}

// --- list views

forms::ListView& withColumns(forms::ListView& list) {
    list.ColumnHeaders = {{"Task", "Task", 3000}, {"Status", "Status", 1500}};
    list.Add(0, "a", "Alpha", 1);
    list.Add(0, "b", "Beta", 2);
    list.Add(0, "c", "Gamma", 3);
    return list;
}
std::string shownIn(wxDataViewCtrl* list, unsigned row, unsigned column) {
    wxVariant value;
    dynamic_cast<wxDataViewVirtualListModel*>(list->GetModel())->GetValueByRow(value, row, column);
    if (value.GetType() == "wxDataViewIconText") {
        wxDataViewIconText both;
        both << value;
        return fromNative(both.GetText());
    }
    return fromNative(value.GetString());
}

TEST_F(Bindings, rowsStatusesAndIconsOfAListViewFollowTheModel) {
    withColumns(form.lsvOne);
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne, false, true); });
    auto* list = widget<wxDataViewCtrl>(form.lsvOne);
    EXPECT_EQ(shownIn(list, 1, 0), "Beta");
    programDoes([this] {
        form.lsvOne.setSubItem("b", "Status", "läuft");
        form.lsvOne.Add(2, "d", "Delta", 4);
    });
    EXPECT_EQ(shownIn(list, 1, 0), "Delta");
    EXPECT_EQ(shownIn(list, 2, 1), "läuft");
    wxVariant value;
    dynamic_cast<wxDataViewVirtualListModel*>(list->GetModel())->GetValueByRow(value, 0, 0);
    wxDataViewIconText both;
    both << value;
    EXPECT_TRUE(both.GetBitmapBundle().IsOk()) << "each row has its picture";
    programDoes([this] { form.lsvOne.Clear(); });
    EXPECT_EQ(dynamic_cast<wxDataViewVirtualListModel*>(list->GetModel())->GetCount(), 0u);
}

TEST_F(Bindings, theRowOfAListViewIsSelectedInBothDirections) {
    withColumns(form.lsvOne);
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne); });
    auto* list = widget<wxDataViewCtrl>(form.lsvOne);
    programDoes([this] { form.lsvOne.setSelected("c"); });
    auto* rows = dynamic_cast<wxDataViewVirtualListModel*>(list->GetModel());
    EXPECT_EQ(rows->GetRow(list->GetSelection()), 2u);
    click(list, inRow(list, 0));
    EXPECT_TRUE(form.lsvOne.item("a")->selected);
    EXPECT_FALSE(form.lsvOne.item("c")->selected);
    typeKey(WXK_DOWN);
    EXPECT_TRUE(letRunUntil([this] { return form.lsvOne.item("b")->selected; }));
    EXPECT_FALSE(form.lsvOne.item("c")->selected);
}

TEST_F(Bindings, theArrowKeysGoOnFromTheRowThatTheProgramHasSelected) {
    form.lsvOne.ColumnHeaders = {{"Task", "Task", 3000}};
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne); });
    for (const char* row : {"a", "b", "c", "d", "e"}) form.lsvOne.Add(0, row, row, 2);
    const auto* list = widget<wxDataViewCtrl>(form.lsvOne);
    const auto shows = [&](int row) {
        const auto* rows = dynamic_cast<const wxDataViewVirtualListModel*>(list->GetModel());
        const wxDataViewItem item = list->GetSelection();
        return item.IsOk() && static_cast<int>(rows->GetRow(item)) == row - 1;
    };
    form.lsvOne.setSelected(3);
    ASSERT_TRUE(letRunUntil([&] { return shows(3); }, 5000));
    focus(form.lsvOne);
    typeKey(WXK_DOWN);
    EXPECT_TRUE(letRunUntil([&] { return form.lsvOne.item(4)->selected && shows(4); }, 5000));
    form.lsvOne.setSelected(2);
    ASSERT_TRUE(letRunUntil([&] { return shows(2); }, 5000));
    typeKey(WXK_UP);
    EXPECT_TRUE(letRunUntil([&] { return form.lsvOne.item(1)->selected && shows(1); }, 5000));
}

TEST_F(Bindings, severalRowsOfAListViewAreMarkedTogether) {
    withColumns(form.lsvSeveral);
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvSeveral, true); });
    auto* list = widget<wxDataViewCtrl>(form.lsvSeveral);
    click(list, inRow(list, 0));
    typeKey(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_TRUE(form.lsvSeveral.item("a")->selected);
    EXPECT_TRUE(form.lsvSeveral.item("b")->selected);
    EXPECT_FALSE(form.lsvSeveral.item("c")->selected);
    programDoes([this] { form.lsvSeveral.markAll(true); });
    EXPECT_EQ(list->GetSelectedItemsCount(), 3);
}

TEST_F(Bindings, columnTitlesAndWidthsAreKeptEqual) {
    withColumns(form.lsvOne);
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne); });
    auto* list = widget<wxDataViewCtrl>(form.lsvOne);
    EXPECT_EQ(list->GetColumn(0)->GetWidth(), 200);
    programDoes([this] {
        form.lsvOne.ColumnHeaders[0].text = "Aufgabe";
        form.lsvOne.viewChanged();
    });
    EXPECT_EQ(fromNative(list->GetColumn(0)->GetTitle()), "Aufgabe");
    // A user draws it wider; the program finds it so when it looks the next time.
    list->GetColumn(0)->SetWidth(260);
    ASSERT_TRUE(letRunUntil([list] { return list->GetColumn(0)->GetWidth() == 260; }));
    window_->act([] {});
    EXPECT_EQ(form.lsvOne.ColumnHeaders[0].width, 260 * 15);
}

TEST_F(Bindings, aColumnThatTheProgramSetsIsDrawnSoWide) {
    withColumns(form.lsvOne);
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne); });
    programDoes([this] {
        form.lsvOne.column("Task")->width = 4500;
        form.lsvOne.viewChanged();
    });
    EXPECT_EQ(widget<wxDataViewCtrl>(form.lsvOne)->GetColumn(0)->GetWidth(), 300);
    EXPECT_EQ(form.lsvOne.ColumnHeaders[0].width, 4500);
}

// --- labels, pictures, buttons

TEST_F(Bindings, aLabelShowsItsTextWithSignsAsTheyAre) {
    openAll(
        [this](view::FormWindow& window) { return std::vector<wxWindow*>{window.label(window.body(), form.lblOne)}; });
    programDoes([this] { form.lblOne.Caption = "Cookies & cache"; });
    EXPECT_EQ(fromNative(widget<wxStaticText>(form.lblOne)->GetLabelText()), "Cookies & cache");
}

TEST_F(Bindings, aLongLabelIsWrappedAndTheWindowMakesRoom) {
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.label(window.body(), form.lblOne, 200),
                                      window.check(window.body(), form.chkOne)};
    });
    const int before = window_->widgetOf(form.chkOne)->GetPosition().y;
    programDoes([this] {
        form.lblOne.Caption = "A text that is by far too long to stand in one line of a label that is not very wide";
    });
    wxWindow* label = window_->widgetOf(form.lblOne);
    EXPECT_GT(window_->widgetOf(form.chkOne)->GetPosition().y, before);
    EXPECT_GE(label->GetSize().y, label->GetBestSize().y);
}

TEST_F(Bindings, aLinkIsClickedByMouseAndKeyboardOnce) {
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.check(window.body(), form.chkOne),
                                      window.link(window.body(), form.lblLink)};
    });
    const Heard heard(form.lblLink.Click);
    click(window_->widgetOf(form.lblLink), wxPoint(10, 8));
    EXPECT_EQ(heard.count, 1);
    typeKey(WXK_RETURN);
    EXPECT_EQ(heard.count, 2);
    typeKey(WXK_SPACE);
    EXPECT_EQ(heard.count, 3);
    typeKey(WXK_TAB);
    EXPECT_TRUE(window_->widgetOf(form.chkOne)->HasFocus());
    programDoes([this] { form.lblLink.Enabled = false; });
    click(window_->widgetOf(form.lblLink), wxPoint(10, 8));
    EXPECT_EQ(heard.count, 3);
}

TEST_F(Bindings, buttonsArePressedByMouseKeyAndTheLetterOfTheirCaption) {
    form.cmdThemed.Caption = "&Themed";
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.button(window.body(), form.cmdOne),
                                      window.button(window.body(), form.cmdThemed, "clean"),
                                      window.imageButton(window.body(), form.imgOne, "clean", "Picture")};
    });
    const Heard plain(form.cmdOne.Click);
    const Heard themed(form.cmdThemed.Click);
    const Heard picture(form.imgOne.Click);
    clickMiddle(window_->widgetOf(form.cmdOne));
    EXPECT_EQ(plain.count, 1);
    focus(form.cmdThemed);
    typeKey(WXK_SPACE);
    EXPECT_TRUE(letRunUntil([&themed] { return themed.count > 0; }));
    letRun(kPress);
    EXPECT_EQ(themed.count, 1);
    typeKey('T', wxMOD_ALT);
    EXPECT_TRUE(letRunUntil([&themed] { return themed.count > 1; }));
    letRun(kPress);
    EXPECT_EQ(themed.count, 2);
    clickMiddle(window_->widgetOf(form.imgOne));
    EXPECT_EQ(picture.count, 1);
}

TEST_F(Bindings, aButtonLooksLeftByThePointerOnceAnotherWindowIsInFront) {
    form.cmdThemed.Caption = "Themed";
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.button(window.body(), form.cmdThemed, "clean")};
    });
    auto* other = new wxFrame(nullptr, wxID_ANY, "Another", wxPoint(0, 0), wxSize(200, 100));
    form.cmdThemed.Click.connect([other] { other->Show(); });
    clickMiddle(window_->widgetOf(form.cmdThemed));
    ASSERT_TRUE(letRunUntil([&] { return other->IsShownOnScreen(); }, 10000));
    bringToFront(other);
    EXPECT_TRUE(
        letRunUntil([&] { return isActive(other) && form.cmdThemed.state() == controls::ButtonState::Normal; }, 10000));
    other->Destroy();
}

TEST_F(Bindings, enterPressesTheDefaultButtonFromATextBox) {
    openAll([this](view::FormWindow& window) {
        wxWindow* entry = window.entry(window.body(), form.txtOne);
        wxWindow* button = window.button(window.body(), form.cmdOne);
        window.defaultButton(button);
        return std::vector<wxWindow*>{entry, button};
    });
    const Heard heard(form.cmdOne.Click);
    focus(form.txtOne);
    typeText("x");
    typeKey(WXK_RETURN);
    EXPECT_TRUE(letRunUntil([&heard] { return heard.count > 0; }));
    letRun(kPress);
    EXPECT_EQ(heard.count, 1);
    EXPECT_EQ(form.txtOne.Text(), "x");
}

// --- tabs

TEST_F(Bindings, tabsAreTurnedInBothDirections) {
    open([this](view::FormWindow& window) {
        wxBookCtrlBase* book = window.tabs(window.body(), form.tabOne);
        for (int tab = 0; tab < 3; ++tab) window.page(book);
        return book;
    });
    auto* book = widget<wxBookCtrlBase>(form.tabOne);
    const Heard heard(form.tabOne.Click);
    ASSERT_EQ(book->GetPageCount(), 3u);
    programDoes([this] { form.tabOne.Tab = 2; });
    EXPECT_EQ(book->GetSelection(), 2);
    EXPECT_EQ(heard.count, 1);
    focus(form.tabOne);
    typeKey(WXK_LEFT);
    EXPECT_EQ(form.tabOne.Tab.get(), 1);
    EXPECT_EQ(heard.count, 2);
    programDoes([this] { form.tabOne.setTabCaption(1, "Zweiter"); });
    EXPECT_EQ(fromNative(book->GetPageText(1)), "Zweiter");
}

TEST_F(Bindings, hiddenTabsAreNotOfferedAndTheOthersKeepTheirNumbers) {
    open([this](view::FormWindow& window) {
        wxBookCtrlBase* book = window.tabs(window.body(), form.tabOne);
        for (int tab = 0; tab < 3; ++tab) window.page(book);
        return book;
    });
    auto* book = widget<wxBookCtrlBase>(form.tabOne);
    const Heard heard(form.tabOne.Click);
    programDoes([this] { form.tabOne.setTabVisible(0, false); });
    ASSERT_EQ(book->GetPageCount(), 2u);
    EXPECT_EQ(fromNative(book->GetPageText(0)), "Second");
    programDoes([this] { form.tabOne.Tab = 1; });
    EXPECT_EQ(book->GetSelection(), 0);
    focus(form.tabOne);
    typeKey(WXK_RIGHT);
    EXPECT_EQ(form.tabOne.Tab.get(), 2) << "the third tab is the third one, though it stands second";
    EXPECT_EQ(heard.count, 2);
    programDoes([this] { form.tabOne.setTabVisible(0, true); });
    ASSERT_EQ(book->GetPageCount(), 3u);
    EXPECT_EQ(book->GetSelection(), 2);
    EXPECT_EQ(heard.count, 2) << "pages that come and go turn none";
}

TEST_F(Bindings, withoutTabsTheModelAloneTurnsThePages) {
    open([this](view::FormWindow& window) {
        wxBookCtrlBase* book = window.tabs(window.body(), form.tabOne, false);
        for (int tab = 0; tab < 3; ++tab) {
            wxPanel* page = window.page(book);
            if (tab == 1) fillWindow(page, column(page, {view::cell(window.check(page, form.chkOne))}));
        }
        return book;
    });
    EXPECT_FALSE(window_->widgetOf(form.chkOne)->IsShownOnScreen());
    programDoes([this] { form.tabOne.offerOnly(1); });
    EXPECT_TRUE(window_->widgetOf(form.chkOne)->IsShownOnScreen());
    const wxSize size = window_->widgetOf(form.chkOne)->GetSize();
    EXPECT_GE(size.x, window_->widgetOf(form.chkOne)->GetBestSize().x) << "a page that comes up is laid out";
}

// --- the status bar, the window

TEST_F(Bindings, panelsOfTheStatusBarFollow) {
    openAll([this](view::FormWindow& window) {
        window.statusBar(form.barOne, {-1, 100});
        return std::vector<wxWindow*>{};
    });
    programDoes([this] {
        form.barOne.setPanel(1, "Größe");
        form.barOne.setPanel(2, "two");
    });
    auto* bar = widget<wxStatusBar>(form.barOne);
    EXPECT_EQ(fromNative(bar->GetStatusText(0)), "Größe");
    EXPECT_EQ(fromNative(bar->GetStatusText(1)), "two");
}

TEST_F(Bindings, titleAndRectangleOfTheWindowAreKeptEqual) {
    openAll(
        [this](view::FormWindow& window) { return std::vector<wxWindow*>{window.check(window.body(), form.chkOne)}; });
    programDoes([this] { form.Caption = "Neuer Titel"; });
    EXPECT_EQ(fromNative(window_->native()->GetTitle()), "Neuer Titel");
    programDoes([this] {
        form.Width = 9000;
        form.Height = 6000;
    });
    letRunUntil([this] { return window_->native()->GetClientSize() == wxSize(600, 400); });
    EXPECT_EQ(window_->native()->GetClientSize(), wxSize(600, 400)) << "the size inside the window manager's frame";
    window_->native()->SetClientSize(660, 440);
    letRunUntil([this] { return form.Width == 9900 && form.Height == 6600; });
    EXPECT_EQ(form.Width.get(), 9900);
    EXPECT_EQ(form.Height.get(), 6600);
    window_->native()->Move(300, 200);
    letRunUntil([this] { return form.Left == 300 * 15 && form.Top == 200 * 15; });
    EXPECT_EQ(form.Left.get(), 300 * 15);
    EXPECT_EQ(form.Top.get(), 200 * 15);
}

// Of the window manager's frame.
wxPoint cornerOf(view::FormWindow& window) {
    GdkRectangle frame{-1, -1, 0, 0};
    gdk_window_get_frame_extents(gtk_widget_get_window(window.native()->GetHandle()), &frame);
    return {frame.x, frame.y};
}

// The window manager tells of the place where the window still is while the program sends it elsewhere.
TEST_F(Bindings, aPlaceThatTheProgramAsksForIsNotLostToOneThatIsTold) {
    openAll(
        [this](view::FormWindow& window) { return std::vector<wxWindow*>{window.check(window.body(), form.chkOne)}; });
    window_->act([this] {
        form.Left = 4500;
        wxMoveEvent told(window_->native()->GetPosition());
        window_->native()->HandleWindowEvent(told);
        form.Top = 3000;
        window_->native()->HandleWindowEvent(told);
    });
    letRunUntil([this] { return cornerOf(*window_) == wxPoint(300, 200) && form.Left == 4500 && form.Top == 3000; });
    EXPECT_EQ(cornerOf(*window_), wxPoint(300, 200));
    EXPECT_EQ(form.Left.get(), 4500);
    EXPECT_EQ(form.Top.get(), 3000);
}

TEST_F(Bindings, aWindowThatWasLeftInTheUpperLeftCornerComesBackThere) {
    const auto layout = [this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.check(window.body(), form.chkOne)};
    };
    for (const bool byItsUser : {true, false}) {
        form.Left = 3000;
        form.Top = 3000;
        openAll(layout);
        ASSERT_TRUE(letRunUntil([this] { return cornerOf(*window_) == wxPoint(200, 200); }, 10000));
        if (byItsUser) {
            window_->native()->Move(0, 0);
        } else {
            form.Left = 0;
            form.Top = 0;
        }
        ASSERT_TRUE(letRunUntil([this] { return cornerOf(*window_) == wxPoint(0, 0) && form.Left == 0; }, 10000));
        ASSERT_TRUE(letRunUntil([this] { return form.Top < 15 && !view.busy(); }, 10000));
        window_.reset();
        openAll(layout);
        EXPECT_TRUE(letRunUntil([this] { return cornerOf(*window_) == wxPoint(0, 0); }, 10000)) << byItsUser;
    }
}

TEST_F(Bindings, aWindowWithoutAPlaceComesUpInTheMiddleAndABareOneAtTheLowerRight) {
    openAll(
        [this](view::FormWindow& window) { return std::vector<wxWindow*>{window.check(window.body(), form.chkOne)}; });
    const wxRect room = wxGetClientDisplayRect();
    const wxRect plain = window_->native()->GetScreenRect();
    EXPECT_NEAR(plain.x + plain.width / 2, room.width / 2, 100);

    Specimen other;
    view::FormWindow bare(view, other, view::WindowStyle{.bare = true}, nullptr);
    fillWindow(bare.body(), column(bare.body(), {view::fill(bare.check(bare.body(), other.chkOne))}));
    bare.finish();
    bare.show(true);
    const auto besideTheCorner = [&] {
        const wxRect place = bare.native()->GetScreenRect();
        const wxPoint left(room.GetRight() - place.GetRight(), room.GetBottom() - place.GetBottom());
        return left.x > 0 && left.x < 40 && left.y > 0 && left.y < 40;
    };
    EXPECT_TRUE(letRunUntil(besideTheCorner, 10000));
}

TEST_F(Bindings, theCloseBoxAsksTheWindowAndClosesNothingByItself) {
    openAll(
        [this](view::FormWindow& window) { return std::vector<wxWindow*>{window.check(window.body(), form.chkOne)}; });
    int asked = 0;
    window_->onClose = [&asked] { ++asked; };
    window_->native()->Close();
    letSettle();
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(window_->isShown());
}

TEST_F(Bindings, escapeIsHeardFromAnyControl) {
    int escapes = 0;
    openAll([this, &escapes](view::FormWindow& window) {
        window.onEscape([&escapes] { ++escapes; });
        return std::vector<wxWindow*>{window.entry(window.body(), form.txtOne),
                                      window.check(window.body(), form.chkOne)};
    });
    focus(form.txtOne);
    typeKey(WXK_ESCAPE);
    focus(form.chkOne);
    typeKey(WXK_ESCAPE);
    EXPECT_EQ(escapes, 2);
}

// --- errors, timers, rest

TEST_F(Bindings, anErrorOfAHandlerIsToldAndTheWindowGoesOn) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    std::vector<std::string> errors;
    view.onError = [&errors](const std::string& text) { errors.push_back(text); };
    form.chkOne.Click.connect([] { throw base::RuntimeError(5, "test", "Invalid procedure call"); });
    focus(form.chkOne);
    typeKey(WXK_SPACE);
    EXPECT_EQ(errors.size(), 1u);
    EXPECT_FALSE(view.busy());
}

TEST_F(Bindings, pollingTimersLookWhenSomethingHappenedAndNeverOtherwise) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    focus(form.chkOne);
    Heard looked(form.tmrPoll.Tick);
    ASSERT_TRUE(staysAt(looked.count)) << "it looks on and on";
    looked.count = 0;
    letRun(5 * form.tmrPoll.Interval);
    EXPECT_EQ(looked.count, 0);
    typeKey(WXK_SPACE);
    EXPECT_GE(looked.count, 1);
    EXPECT_TRUE(staysAt(looked.count)) << "it goes on looking";
}

TEST_F(Bindings, aTimerThatPollsSeesTheChangeAndItsOwnChangesAreShownAtOnce) {
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.check(window.body(), form.chkOne),
                                      window.button(window.body(), form.cmdOne)};
    });
    form.tmrPoll.Tick.connect([this] { form.cmdOne.Enabled = form.chkOne.ticked(); });
    programDoes([this] { form.chkOne.Value = 1; });
    EXPECT_TRUE(window_->widgetOf(form.cmdOne)->IsEnabled());
    focus(form.chkOne);
    typeKey(WXK_SPACE);
    EXPECT_FALSE(window_->widgetOf(form.cmdOne)->IsEnabled());
}

TEST_F(Bindings, aSlowTimerRunsWhileItIsSwitchedOn) {
    open([this](view::FormWindow& window) { return window.check(window.body(), form.chkOne); });
    const Heard ticks(form.tmrSlow.Tick);
    letRun(1200);
    EXPECT_EQ(ticks.count, 0);
    programDoes([this] { form.tmrSlow.Enabled = true; });
    EXPECT_TRUE(letRunUntil([&ticks] { return ticks.count > 0; }));
    programDoes([this] { form.tmrSlow.Enabled = false; });
    const int then = ticks.count;
    letRun(1200);
    EXPECT_EQ(ticks.count, then);
}

TEST_F(Bindings, anIdleWindowSettlesNothing) {
    openAll([this](view::FormWindow& window) {
        return std::vector<wxWindow*>{window.check(window.body(), form.chkOne),
                                      window.entry(window.body(), form.txtOne)};
    });
    focus(form.chkOne);
    int rounds = 0;
    int shown = 0;
    view.whenQuiet = [&rounds] { ++rounds; };
    window_->whenever(form.chkOne, [&shown] { ++shown; });
    ASSERT_TRUE(staysAt(rounds)) << "it never comes to rest";
    rounds = 0;
    shown = 0;
    letRun(1500);  // longer than any timer of the window takes
    EXPECT_EQ(rounds, 0);
    EXPECT_EQ(shown, 0);
    typeKey(WXK_SPACE);
    EXPECT_GT(shown, 0) << "the counter counts";
    EXPECT_GT(rounds, 0);
    view.whenQuiet = {};
}

}  // namespace
}  // namespace tidvane::tests
