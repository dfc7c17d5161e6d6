// The native window of one form of the model, and the makers of the native widgets of its controls.
//
// A layout (one function per window, in layout/) makes the widgets with the makers below and puts them into sizers.
// Whatever a maker makes is bound: it shows what the control is, and a user's act on it reaches the control.
#pragma once

#include <wx/bmpbndl.h>
#include <wx/choice.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/explorer_bar.h"
#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "view/measures.h"
#include "view/mnemonics.h"
#include "view/view.h"

class wxBookCtrlBase;

namespace tidvane::view {

// What kind of native window a form is.
struct WindowStyle {
    bool resizable = false;
    bool frame = false;          // a window of its own on the task bar, with a menu bar; otherwise a dialog
    bool bare = false;           // without a title bar
    bool keepsModelSize = true;  // Width and Height of the form are its size; otherwise it is as large as it needs
    int minWidth = 0;            // twips
    int minHeight = 0;
};

class FormWindow {
public:
    FormWindow(View& view, forms::Form& form, const WindowStyle& style, wxWindow* owner);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    View& view() { return view_; }
    forms::Form& form() { return form_; }
    wxTopLevelWindow* native() { return native_; }
    // Where the layout puts everything; it fills the window.
    wxPanel* body() { return body_; }

    // --- makers. `parent`: body() or a page or section made before.
    wxWindow* check(wxWindow* parent, forms::CheckBox& box);
    wxWindow* option(wxWindow* parent, forms::OptionButton& button);
    // A one-line box. With `name` it is read out by screen readers as that label's caption.
    wxWindow* entry(wxWindow* parent, forms::TextBox& box, const forms::Control* label = nullptr);
    // Several lines; `readOnly` boxes can be selected and copied from. `selection`: caret and selection of the model
    // are shown and followed. Lines are not wrapped unless `wrap` says so.
    struct Lines {
        bool readOnly = true;
        bool selection = false;
        bool wrap = false;
        bool fixedFont = false;
    };
    wxWindow* lines(wxWindow* parent, forms::TextBox& box, const Lines& how, const forms::Control* label = nullptr);
    // Rows to choose from; `typed`: any other text too.
    wxWindow* combo(wxWindow* parent, forms::ComboBox& box, bool typed = false, const forms::Control* label = nullptr);
    wxWindow* drives(wxWindow* parent, forms::DriveList& list, const forms::Control* label = nullptr);
    // With ticks where the model has them; `several`: more than one row may be selected.
    wxWindow* list(wxWindow* parent, forms::ListBox& list, bool several = false, const forms::Control* label = nullptr);
    // `icons`: the rows' small icons are shown. `headers`: whether the column headers stand above it.
    wxWindow* listView(wxWindow* parent, forms::ListView& list, bool several = false, bool icons = false,
                       const forms::Control* label = nullptr);
    // A caption. `wrapAt`: wrapped at this width in device-independent pixels; 0: one line.
    wxStaticText* label(wxWindow* parent, forms::Label& label, int wrapAt = 0, bool bold = false);
    // A label that is clicked, reached by the keyboard too.
    wxWindow* link(wxWindow* parent, forms::Label& label);
    // The caption of the frame as a heading over what stands in it. Widgets of the frame have section.panel as parent
    // and are added to section.content; `section.panel` is what goes into the layout around it.
    struct Section {
        wxPanel* panel = nullptr;
        wxBoxSizer* content = nullptr;
    };
    Section section(wxWindow* parent, forms::Frame& frame, bool heading = true);
    // A picture by the name of an icon, `size` device-independent pixels high and wide.
    wxWindow* image(wxWindow* parent, forms::Image& image, const std::string& icon, wxSize size);
    // A picture that is clicked: a button with a picture and, where it is not empty, a caption.
    wxWindow* imageButton(wxWindow* parent, forms::Image& image, const std::string& icon, const std::string& caption);
    wxWindow* button(wxWindow* parent, controls::isButton& button, const std::string& icon = {});
    wxWindow* button(wxWindow* parent, forms::CommandButton& button, const std::string& icon = {});
    // A menu entry that stands in the window too, where everybody sees it.
    wxWindow* button(wxWindow* parent, forms::Menu& entry, const std::string& icon);
    wxWindow* pane(wxWindow* parent, controls::ExplorerBar& pane);
    // One page for each tab, in order: add pages with `page`, all of them, before anything is shown. Without `strip`
    // the tabs themselves are not drawn and the control's Tab decides alone.
    wxBookCtrlBase* tabs(wxWindow* parent, forms::TabStrip& strip, bool showTabs = true);
    wxPanel* page(wxBookCtrlBase* book);
    // At the foot of a frame or of a dialog's body.
    void statusBar(forms::StatusBar& bar, const std::vector<int>& widths);
    // An entry of a menu; its caption, tick, place and state follow the model.
    wxMenuItem* menuItem(wxMenu* menu, forms::Menu& entry);
    // A menu with entries, as an entry of another menu or of the menu bar. A menu of the bar stands there while its
    // control is visible, in the order of making.
    wxMenu* subMenu(wxMenu* menu, forms::Menu& title);
    wxMenu* barMenu(wxMenuBar* bar, forms::Menu& title);
    // All entries of the form that lie in the menu of this name, those of its sub-menus included, with their lines.
    void menuEntries(wxMenu* menu, const std::string& title);
    // The keys that press a control ("Ctrl+Q"), for those that have some; shown in menus, where they work too.
    std::function<std::string(const forms::Control&)> shortcutOf;
    // Fills the popup of this name, with the makers above, each time it comes up.
    void popup(const std::string& name, std::function<void(wxMenu*)> fill);
    void popUp(const std::string& name);
    // `ask` brings up a popup that is about the rows of this list: by a right click, which makes the row under the
    // mouse the current one, or by the menu key and Shift+F10, where it comes up at the current row.
    void rowMenu(forms::ListBox& list, std::function<void()> ask);
    void rowMenu(forms::ListView& list, std::function<void()> ask);

    // --- what layouts tell
    void defaultButton(wxWindow* button);
    void onEscape(std::function<void()> what);
    // Behind every change of the window's size by its user; the form's rectangle is set already.
    void onResize(std::function<void()> what) { onResize_ = std::move(what); }
    // A user's act on a widget that no maker binds: runs `what` as such.
    void act(const std::function<void()>& what) { view_.act(what); }
    template <class Event, class Function>
    void on(wxWindow* widget, const wxEventTypeTag<Event>& type, Function function) {
        widget->Bind(type, [this, function](Event& event) { view_.act([&] { function(event); }); });
    }
    // Runs whenever the control has changed, and once now.
    void whenever(forms::Control& control, std::function<void()> what);
    void whenever(const forms::Signal<>& changed, std::function<void()> what);
    // Files and folders dropped on the widget from outside come as paths of the machine.
    void onFilesDropped(wxWindow* widget, std::function<void(const std::vector<std::string>&)> what);
    // From paths of the host to those of the machine, without what lies outside of it; set by the display. Empty: they
    // are the same.
    std::function<std::vector<std::string>(const std::vector<std::string>&)> machinePathsOf;
    // The widget of a control that a maker has made; null for none.
    wxWindow* widgetOf(const forms::Control& control) const;
    void setFocus(const std::string& control);

    // Called once behind the layout: sizes, place, title.
    void finish();
    void show(bool visible);
    // Blocks until the form is hidden or unloaded.
    void showModal();
    // Of a dialog that was there before its owner was.
    void standAbove(FormWindow& owner);
    [[nodiscard]] bool isShown() const { return native_ != nullptr && native_->IsShown(); }
    // The native window goes; the form may live on.
    void destroy();
    // Who is asked when the user closes the window. True: it may go.
    std::function<void()> onClose;

private:
    friend class RectangleBinding;
    // Common to all makers: name, tool tip, enabled and visible state, the place in the table of widgets.
    wxWindow* adopt(forms::Control& control, wxWindow* widget, const forms::Control* label = nullptr);
    void bind(forms::Control& control, const std::shared_ptr<Binding>& binding);
    void bindTimer(forms::Timer& timer);
    void noteRectangle();
    [[nodiscard]] bool rectangleIsNoted() const;
    void layoutSoon();

    View& view_;
    forms::Form& form_;
    WindowStyle style_;
    wxTopLevelWindow* native_ = nullptr;
    wxPanel* body_ = nullptr;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::vector<std::shared_ptr<Binding>> bindings_;
    std::map<const forms::Control*, wxWindow*> widgets_;
    std::map<std::string, std::function<void(wxMenu*)>> popups_;
    void askForPopup(const wxWindow& list, const wxContextMenuEvent& event, const std::function<wxRect()>& currentRow,
                     const std::function<void()>& ask);
    bool hearsEnter_ = false;                 // the default button is bound
    bool wasIconized_ = false;                // the window manager has made it small
    wxPoint popupPlace_ = wxDefaultPosition;  // in the window; wxDefaultPosition: where the pointer is
    bool fillingPopup_ = false;               // a popup lives for one choice: its entries are not bound
    std::function<void()> onResize_;
    struct BarMenu {
        forms::Menu* control;
        wxMenu* menu;
    };
    std::vector<BarMenu> barMenus_;
    void chooseMnemonics();
    void focusSomething();
    void focusSoon();
    void leaveFocus(wxWindow* widget);
    Mnemonics mnemonics_;
    std::vector<std::pair<const forms::Control*, wxWindow*>> made_;  // in the order of making
    bool noting_ = false;                                            // the rectangle, value by value
    bool layoutPending_ = false;
    bool finished_ = false;
    bool modal_ = false;
};

// --- putting things side by side and below one another

struct Cell {
    wxWindow* window = nullptr;
    wxSizer* sizer = nullptr;
    int grow = 0;       // share of the room that is left
    bool wide = false;  // as wide (in a column) or high (in a row) as its line
    int space =
        0;  // neither window nor sizer: an empty place of this many device-independent pixels; -1: the room left
    int indent = 0;  // to the left, device-independent pixels
};

inline Cell cell(wxWindow* window) {
    return {window, nullptr, 0, false, 0, 0};
}
inline Cell cell(wxSizer* sizer) {
    return {nullptr, sizer, 0, true, 0, 0};
}
inline Cell wide(wxWindow* window) {
    return {window, nullptr, 0, true, 0, 0};
}
inline Cell fill(wxWindow* window, int share = 1) {
    return {window, nullptr, share, true, 0, 0};
}
inline Cell fill(wxSizer* sizer, int share = 1) {
    return {nullptr, sizer, share, true, 0, 0};
}
inline Cell indented(wxWindow* window, int by = 22) {
    return {window, nullptr, 0, false, 0, by};
}
inline Cell gap(int pixels) {
    return {nullptr, nullptr, 0, false, pixels, 0};
}
inline Cell rest() {
    return {nullptr, nullptr, 1, false, -1, 0};
}

// Cells stand `gap` device-independent pixels apart.
wxBoxSizer* row(const wxWindow* scale, std::initializer_list<Cell> cells, int gapBetween = kGap);
wxBoxSizer* column(const wxWindow* scale, std::initializer_list<Cell> cells, int gapBetween = kGap);
// Puts the sizer into the window with the edge around it.
void fillWindow(wxWindow* window, wxSizer* content, int edge = kEdge);

// As a click of its user does.
void pressButton(wxWindow& button);

// What screen readers say for a widget that has no caption of its own.
void nameForReaders(wxWindow* widget, const std::string& name);

}  // namespace tidvane::view
