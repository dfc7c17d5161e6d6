// One binding for each kind of control: how a native widget and its control keep each other equal.
#pragma once

#include <wx/checklst.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/dataview.h>
#include <wx/textctrl.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "view/view.h"

namespace tidvane::view {

// The text and, where it is told to, caret and selection in both directions.
class TextBinding final : public Binding {
public:
    TextBinding(View& view, forms::TextBox& box, wxTextCtrl* widget, bool selection);
    void pull() override;

private:
    void push();
    void pushSelection();
    void pullText();
    void pullSelection();
    void pullColour();

    forms::TextBox& box_;
    wxTextCtrl* widget_;
    bool lines_;
    bool selection_;
    std::string shown_;  // the text that the widget shows, as the model has it
};

class ChoiceBinding final : public Binding {
public:
    ChoiceBinding(View& view, forms::ComboBox& box, wxItemContainer* rows, wxWindow& widget);
    void pull() override;

private:
    forms::ComboBox& box_;
    wxItemContainer* rows_;
    wxComboBox* typed_;  // null where only rows can be chosen
};

class DriveBinding final : public Binding {
public:
    DriveBinding(View& view, forms::DriveList& list, wxChoice* widget);
    void pull() override;

private:
    forms::DriveList& list_;
    wxChoice* widget_;
};

class ListBinding final : public Binding {
public:
    ListBinding(View& view, forms::ListBox& list, wxListBox* widget, bool several);
    void pull() override;

private:
    void push();
    void followCursorSoon();
    forms::ListBox& list_;
    wxListBox* widget_;
    wxCheckListBox* ticks_;
    bool several_;
    int shownIndex_ = -1;  // the current row that the widget's cursor was put to last
};

// Rows straight from the model; the widget asks for what it shows and nothing else.
class ListViewBinding final : public Binding {
public:
    ListViewBinding(View& view, forms::ListView& list, wxDataViewCtrl* widget, bool several, bool icons);
    ~ListViewBinding() override;
    void pull() override;
    void sample() override;

private:
    class Rows;
    void push();
    void pullSelection();

    forms::ListView& list_;
    wxDataViewCtrl* widget_;
    wxObjectDataPtr<Rows> rows_;
    bool several_;
    struct Width {
        int common;  // pixels that widget and list had in common last
        int seen;    // in the widget
    };
    std::vector<Width> widths_;  // of the columns
};

// The font that a box has before anybody has chosen one: it stands for the desktop's own.
inline constexpr const char* kDesignedFont = "MS Sans Serif";
inline constexpr double kDesignedPoints = 8.25;
// How large letters of that many points are on the screen: any but the designed ones as large as they say.
double shownPoints(double size);

// The toolkit's colour for a colour of the model: blue, green, red, or from 0x80000000 on one of the system's.
wxColour toColour(unsigned colour);

}  // namespace tidvane::view
