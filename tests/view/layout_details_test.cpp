// Small things in the windows that a person sees: colours, sizes, menus at the keyboard, words.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/dataview.h>
#include <wx/font.h>
#include <wx/listbox.h>
#include <wx/settings.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "controls/is_button.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "view/binding/bindings.h"
#include "view/display_fixture.h"
#include "view/form_window.h"
#include "view/saved_name.h"
#include "view/text.h"
#include "view/wx_display.h"

namespace tidvane::tests {
namespace {

using view::column;
using view::fillWindow;

class Details final : public forms::Form {
public:
    Details() : Form("Details") { Caption.design("Details"); }
    forms::TextBox txtOne{*this, "txtOne"};
    forms::TextBox txtLines{*this, "txtLines"};
    forms::ListBox lstOne{*this, "lstOne"};
    forms::ListView lsvOne{*this, "lsvOne"};
    forms::Menu mnuEntry{*this, "mnuEntry", "Entry"};
    controls::isButton cmdThemed{*this, "cmdThemed", "OK"};
    forms::CommandButton cmdNative{*this, "cmdNative", "OK"};
};

class LayoutDetails : public testing::Test {
protected:
    LayoutDetails() { takeComplaints(); }
    ~LayoutDetails() override {
        whenIdle({});
        window_.reset();
        letSettle();
        for (const std::string& complaint : takeComplaints()) ADD_FAILURE() << complaint;
    }
    void open(const std::function<wxWindow*(view::FormWindow&)>& layout) {
        window_ = std::make_unique<view::FormWindow>(view_, form, view::WindowStyle{.resizable = true}, nullptr);
        wxWindow* widget = layout(*window_);
        fillWindow(window_->body(), column(window_->body(), {view::fill(widget)}));
        window_->finish();
        whenIdle([this] {
            if (!view_.busy()) view_.settle();
        });
        view_.onError = [](const std::string& text) { ADD_FAILURE() << text; };
        window_->native()->SetSize(600, 500);
        window_->show(true);
        ASSERT_TRUE(letRunUntil([this] { return isActive(window_->native()); }, 10000)) << "the window gets no focus";
    }
    template <class Widget>
    Widget* widget(const forms::Control& control) {
        return dynamic_cast<Widget*>(window_->widgetOf(control));
    }
    // What the program does to its model, until the view has shown all of it.
    void programDoes(const std::function<void()>& what) {
        window_->act(what);
        view_.settle();
    }

    Details form;
    view::View view_;
    std::unique_ptr<view::FormWindow> window_;
};

// --- the colours of boxes

double distance(const wxColour& one, const wxColour& other) {
    return std::abs(one.GetLuminance() - other.GetLuminance());
}

TEST_F(LayoutDetails, ABoxShowsTheColourThatIsBehindItsText) {
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    auto* box = widget<wxTextCtrl>(form.txtOne);
    EXPECT_FALSE(box->UseBackgroundColour());
    programDoes([this] { form.txtOne.BackColor = 0xC0FFC0u; });
    EXPECT_EQ(box->GetBackgroundColour(), wxColour(0xC0, 0xFF, 0xC0));
    EXPECT_GT(distance(box->GetForegroundColour(), box->GetBackgroundColour()), 0.5);
    // White, and the system's colour for boxes, are what the desktop has.
    for (const unsigned usual : {0xFFFFFFu, 0x80000005u}) {
        programDoes([this] { form.txtOne.BackColor = 0xC0FFC0u; });
        programDoes([this, usual] { form.txtOne.BackColor = usual; });
        EXPECT_FALSE(box->UseBackgroundColour()) << usual;
        EXPECT_FALSE(box->UseForegroundColour()) << usual;
    }
}

TEST_F(LayoutDetails, TheColourOfTipsIsSeenBehindABoxAndReadable) {
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    auto* box = widget<wxTextCtrl>(form.txtOne);
    programDoes([this] { form.txtOne.BackColor = 0x80000018u; });
    ASSERT_TRUE(box->UseBackgroundColour());
    const wxColour behind = box->GetBackgroundColour();
    EXPECT_NE(behind, wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    EXPECT_GT(distance(box->GetForegroundColour(), behind), 0.5);
    // A light desktop gets no dark box.
    const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
    EXPECT_EQ(behind.GetLuminance() < 0.5, dark);
    // What is switched off is written more faintly on the same ground.
    const double before = distance(box->GetForegroundColour(), behind);
    programDoes([this] { form.txtOne.Enabled = false; });
    EXPECT_EQ(box->GetBackgroundColour(), behind);
    EXPECT_LT(distance(box->GetForegroundColour(), behind), before);
}

// --- the font of the log

TEST_F(LayoutDetails, AChosenFontIsAsLargeAsItSays) {
    open([this](view::FormWindow& window) {
        return window.lines(window.body(), form.txtLines, {.readOnly = true, .selection = true});
    });
    auto* box = widget<wxTextCtrl>(form.txtLines);
    // Until one is chosen it is the desktop's.
    EXPECT_EQ(box->GetFont().GetFractionalPointSize(), wxNORMAL_FONT->GetFractionalPointSize());
    for (const double points : {8.0, 12.0, 20.5}) {
        programDoes([this, points] { form.txtLines.FontSize = points; });
        EXPECT_EQ(box->GetFont().GetFractionalPointSize(), points);
    }
}

// --- the widths of columns

TEST_F(LayoutDetails, TheLastColumnKeepsTheWidthItWasGivenHoweverWideItIsDrawn) {
    form.lsvOne.ColumnHeaders = {{"Task", "Task", 1500}, {"Status", "Status", 1500}};
    open([this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne); });
    auto* list = widget<wxDataViewCtrl>(form.lsvOne);
    ASSERT_TRUE(letRunUntil([list] { return list->GetColumn(1)->GetWidth() > 200; }, 10000))
        << "the list does not stretch its last column";
    window_->act([] {});
    EXPECT_EQ(form.lsvOne.ColumnHeaders[1].width, 1500);
    // What its user gives it is noted.
    list->GetColumn(1)->SetWidth(140);
    window_->act([] {});
    EXPECT_EQ(form.lsvOne.ColumnHeaders[1].width, 140 * 15);
    list->GetColumn(0)->SetWidth(130);
    window_->act([] {});
    EXPECT_EQ(form.lsvOne.ColumnHeaders[0].width, 130 * 15);
    EXPECT_EQ(form.lsvOne.ColumnHeaders[1].width, 140 * 15);
}

// --- buttons of both kinds

TEST_F(LayoutDetails, ButtonsOfBothKindsAreOfOneSizeAndFont) {
    open([this](view::FormWindow& window) {
        wxWindow* native = window.button(window.body(), form.cmdNative);
        window.button(window.body(), form.cmdThemed);
        return native;
    });
    wxWindow* native = window_->widgetOf(form.cmdNative);
    wxWindow* themed = window_->widgetOf(form.cmdThemed);
    EXPECT_EQ(themed->GetBestSize(), native->GetBestSize());
    EXPECT_EQ(themed->GetFont(), native->GetFont());
}

// --- menus of rows

// The upper left corner on the screen of a popup that is up; nothing: none is.
std::optional<wxPoint> cornerOfPopup() {
    std::optional<wxPoint> corner;
    GList* windows = gtk_window_list_toplevels();
    for (const GList* at = windows; at != nullptr; at = at->next) {
        auto* window = GTK_WINDOW(at->data);
        GtkWidget* inside = gtk_bin_get_child(GTK_BIN(window));
        if (!gtk_widget_get_mapped(GTK_WIDGET(window)) || inside == nullptr || !GTK_IS_MENU(inside)) continue;
        corner.emplace();
        gtk_window_get_position(window, &corner->x, &corner->y);
    }
    g_list_free(windows);
    return corner;
}

class RowMenus : public LayoutDetails {
protected:
    // Shows the list with a popup of its rows.
    template <class List, class Make>
    void openWithMenu(List& list, Make make) {
        open([&](view::FormWindow& window) {
            wxWindow* widget = make(window);
            window.popup("mnRows", [this](wxMenu* menu) { window_->menuItem(menu, form.mnuEntry); });
            window.rowMenu(list, [this] {
                ++asked_;
                window_->popUp("mnRows");
            });
            return widget;
        });
        list_ = window_->widgetOf(list);
    }
    void rows(forms::ListBox& list) {
        for (int row = 0; row < 6; ++row) list.AddItem("row " + std::to_string(row));
    }
    // The popup runs a loop of its own until it is gone: it is sent away as soon as it is up.
    std::optional<wxPoint> popupBehind(const std::function<void()>& what) {
        std::optional<wxPoint> corner;
        bool sentAway = false;
        const auto before = asked_;
        whenIdle([&] {
            if (!view_.busy()) view_.settle();
            if (!corner) corner = cornerOfPopup();
            if (corner && !sentAway) {
                sentAway = true;
                pressKey(WXK_ESCAPE);
            }
            wxWakeUpIdle();
        });
        what();
        EXPECT_TRUE(letRunUntil([&] { return asked_ > before && sentAway && !cornerOfPopup(); }, 10000));
        whenIdle([this] {
            if (!view_.busy()) view_.settle();
        });
        return corner;
    }
    void focusList() {
        list_->SetFocus();
        ASSERT_TRUE(letRunUntil([this] { return list_->HasFocus(); }, 10000));
    }
    void movePointer(const wxPoint& inList) { wxUIActionSimulator().MouseMove(list_->ClientToScreen(inList)); }
    int yOf(int row) {
        auto* list = dynamic_cast<wxListBox*>(list_);
        int y = 0;
        while (y < list->GetClientSize().y && list->HitTest(wxPoint(10, y)) != row) ++y;
        return y;
    }

    wxWindow* list_ = nullptr;
    int asked_ = 0;
};

TEST_F(RowMenus, ARightClickMakesTheRowUnderTheMouseTheCurrentOne) {
    rows(form.lstOne);
    openWithMenu(form.lstOne,
                 [this](view::FormWindow& window) { return window.list(window.body(), form.lstOne, true); });
    focusList();
    programDoes([this] {
        form.lstOne.setSelected(0, true);
        form.lstOne.setListIndex(0);
    });
    const wxPoint at(40, yOf(3) + 4);
    const auto corner = popupBehind([&] {
        movePointer(at);
        letSettle();
        wxUIActionSimulator().MouseClick(wxMOUSE_BTN_RIGHT);
    });
    ASSERT_TRUE(corner);
    EXPECT_EQ(form.lstOne.ListIndex(), 3);
    EXPECT_TRUE(form.lstOne.Selected(3));
    EXPECT_FALSE(form.lstOne.Selected(0));
    EXPECT_EQ(asked_, 1);
}

TEST_F(RowMenus, ByTheMenuKeyItOpensAtTheCurrentRowAndNotAtTheMouse) {
    rows(form.lstOne);
    openWithMenu(form.lstOne,
                 [this](view::FormWindow& window) { return window.list(window.body(), form.lstOne, true); });
    focusList();
    programDoes([this] {
        form.lstOne.setSelected(1, true);
        form.lstOne.setListIndex(1);
    });
    movePointer({300, 300});
    const auto corner = popupBehind([] { pressKey(WXK_F10, wxMOD_SHIFT); });
    ASSERT_TRUE(corner);
    const int top = list_->ClientToScreen(wxPoint(0, yOf(1))).y;
    const int bottom = list_->ClientToScreen(wxPoint(0, yOf(3))).y;
    EXPECT_GE(corner->y, top);
    EXPECT_LE(corner->y, bottom);
    EXPECT_EQ(asked_, 1);
}

TEST_F(RowMenus, AListViewOpensItAtTheCurrentRowByEitherKey) {
    form.lsvOne.ColumnHeaders = {{"Name", "Name", 3000}};
    for (int row = 0; row < 6; ++row) form.lsvOne.Add(0, "k" + std::to_string(row), "row " + std::to_string(row), 0);
    openWithMenu(form.lsvOne,
                 [this](view::FormWindow& window) { return window.listView(window.body(), form.lsvOne, true); });
    auto* list = dynamic_cast<wxDataViewCtrl*>(list_);
    focusList();
    const wxDataViewItem third = dynamic_cast<wxDataViewVirtualListModel*>(list->GetModel())->GetItem(2);
    list->SetCurrentItem(third);
    const wxRect row = list->GetItemRect(third);
    movePointer({300, 300});
    for (const bool menuKey : {true, false}) {
        const auto corner = popupBehind([menuKey] {
            if (menuKey) {
                pressKey(WXK_MENU);
            } else {
                pressKey(WXK_F10, wxMOD_SHIFT);
            }
        });
        ASSERT_TRUE(corner) << menuKey;
        EXPECT_GE(corner->y, list->ClientToScreen(row.GetTopLeft()).y) << menuKey;
        EXPECT_LE(corner->y, list->ClientToScreen(row.GetBottomLeft()).y + row.height) << menuKey;
    }
    EXPECT_EQ(asked_, 2);
}

// --- names of saved files

TEST(SavedName, GetsTheExtensionOfTheFilterWhereItHasNone) {
    struct Case {
        const char* path;
        const char* filter;
        int row;
        const char* saved;
    };
    for (const Case& row : {Case{"/home/anna/list", "*.txt|*.txt", 0, "/home/anna/list.txt"},
                            Case{"/home/anna/list", "", 0, "/home/anna/list.txt"},
                            Case{"/home/anna/list", "Logs|*.log|All|*.*", 0, "/home/anna/list.log"},
                            Case{"/home/anna/list", "Logs|*.log;*.txt", 0, "/home/anna/list.log"},
                            Case{"/home/anna/list", "Logs|*.log|All|*.*", 1, "/home/anna/list.txt"},
                            Case{"/home/anna/list", "*.log|*.log", 5, "/home/anna/list.txt"},
                            Case{"/home/anna/list.csv", "*.txt|*.txt", 0, "/home/anna/list.csv"},
                            Case{"/home/anna.b/list", "*.txt|*.txt", 0, "/home/anna.b/list.txt"},
                            Case{"/home/anna/list.", "*.txt|*.txt", 0, "/home/anna/list.txt"},
                            Case{"/home/anna/.list", "*.txt|*.txt", 0, "/home/anna/.list.txt"},
                            Case{"C:\\a.b\\list", "*.txt|*.txt", 0, "C:\\a.b\\list.txt"},
                            Case{"/home/anna/", "*.txt|*.txt", 0, "/home/anna/"}}) {
        EXPECT_EQ(view::withExtension(row.path, row.filter, row.row), row.saved) << row.filter;
    }
}

// The dialog that asks for a file, once it is on the screen.
GtkFileChooser* fileDialog() {
    GtkFileChooser* dialog = nullptr;
    GList* windows = gtk_window_list_toplevels();
    for (const GList* at = windows; at != nullptr; at = at->next) {
        if (GTK_IS_FILE_CHOOSER(at->data) && gtk_widget_get_mapped(GTK_WIDGET(at->data))) {
            dialog = GTK_FILE_CHOOSER(at->data);
        }
    }
    g_list_free(windows);
    return dialog;
}

class SaveDialog : public LayoutDetails {
protected:
    SaveDialog() {
        std::string name = (std::filesystem::temp_directory_path() / "tidvane-save-XXXXXX").string();
        folder = mkdtemp(name.data());
    }
    ~SaveDialog() override { std::filesystem::remove_all(folder); }
    // What is asked for when its user gives this name.
    std::string save(const std::string& name) {
        view::WxDisplay display(view_);
        auto next = std::chrono::steady_clock::now();
        whenIdle([&] {
            wxWakeUpIdle();
            GtkFileChooser* dialog = fileDialog();
            // It takes no answer before it has read its folder, and tells nobody when it has.
            if (dialog == nullptr || std::chrono::steady_clock::now() < next) return;
            next = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
            gtk_file_chooser_set_current_name(dialog, name.c_str());
            gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_ACCEPT);
        });
        forms::FileQuestion question;
        question.filter = "*.txt|*.txt";
        question.save = true;
        question.initialFolder = folder.string();
        const std::string chosen = display.askFile(question);
        whenIdle({});
        return chosen;
    }
    std::filesystem::path folder;
};

TEST_F(SaveDialog, ANameWithoutExtensionGetsOne) {
    open([this](view::FormWindow& window) { return window.entry(window.body(), form.txtOne); });
    EXPECT_EQ(save("list"), (folder / "list.txt").string());
    EXPECT_EQ(save("list.csv"), (folder / "list.csv").string());
}

}  // namespace
}  // namespace tidvane::tests
