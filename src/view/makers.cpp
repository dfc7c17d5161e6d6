// The makers of the native widgets. What each keeps equal with its control stands in binding/.
#include <wx/bmpbuttn.h>
#include <wx/bookctrl.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/settings.h>
#include <wx/simplebook.h>
#include <wx/statbmp.h>
#include <wx/statusbr.h>

#include "forms/system_colours.h"
#include "view/binding/bindings.h"
#include "view/form_window.h"
#include "view/icons.h"
#include "view/painters/explorer_pane.h"
#include "view/painters/link_label.h"
#include "view/painters/painting.h"
#include "view/painters/themed_button.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

// Behind tips. Desktops that show dark tips on light windows have no such colour for what lies in a window: there it is
// the yellow that tips used to have.
wxColour tipColour() {
    const wxColour tip = wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK);
    const bool fits = tip.Alpha() == wxALPHA_OPAQUE && (tip.GetLuminance() < 0.5) == darkDesktop();
    if (fits) return tip;
    const wxColour yellow(0xFF, 0xFF, 0xE1);
    constexpr double kDimmed = 0.82;  // a dark desktop gets a shade of it
    return darkDesktop() ? mixed(yellow, *wxBLACK, kDimmed) : yellow;
}

// True: the label has changed.
bool setLabel(wxWindow* widget, const wxString& caption) {
    if (widget->GetLabel() == caption) return false;
    widget->SetLabel(caption);
    return true;
}

// The program's colours were chosen for light windows: on a dark one they become lighter until they can be read.
wxColour readableOn(const wxColour& colour, const wxColour& ground) {
    constexpr double kFarEnough = 0.45;  // of the way from black to white
    constexpr int kStep = 10;            // in hundredths
    constexpr int kWhite = 200;
    if (ground.GetLuminance() > 0.5) return colour;
    wxColour made = colour;
    for (int lightness = 100 + kStep; lightness <= kWhite; lightness += kStep) {
        if (made.GetLuminance() - ground.GetLuminance() >= kFarEnough) break;
        made = colour.ChangeLightness(lightness);
    }
    return made;
}

// Colours of the design are the toolkit's own; others are the program's word.
void setForeColour(wxWindow* widget, unsigned colour) {
    const wxColour wanted = colour == forms::kWindowText
                                ? wxNullColour
                                : readableOn(toColour(colour), widget->GetParent()->GetBackgroundColour());
    if (widget->GetForegroundColour() == wanted) return;
    widget->SetForegroundColour(wanted);
    widget->Refresh();
}

// Until a bold text is on the screen GTK measures it as a thin one, and its last word would be cut off.
void roomForText(wxStaticText* widget) {
    widget->SetMinSize({widget->GetTextExtent(widget->GetLabelText()).x + widget->FromDIP(2), -1});
}

// The tabs that are on offer, as pages of a native book. Pages of the others are kept aside.
class TabsBinding final : public Binding {
public:
    TabsBinding(View& view, FormWindow& window, forms::TabStrip& strip, wxBookCtrlBase* book)
        : Binding(view), window_(window), strip_(strip), book_(book) {
        book->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
            event.Skip();
            if (view_.pulling() || event.GetEventObject() != book_) return;
            const int at = event.GetSelection();
            if (at < 0 || at >= static_cast<int>(shown_.size())) return;
            view_.act([this, at] { strip_.Tab = shown_[static_cast<std::size_t>(at)]; });
        });
    }
    void addPage(wxWindow* page) {
        pages_.push_back(page);
        touched();
    }
    void pull() override {
        std::vector<int> wanted;
        for (int tab = 0; tab < strip_.Tabs() && tab < static_cast<int>(pages_.size()); ++tab) {
            // The program may turn to a tab that it has switched off: that one is on offer while it is the current one.
            const bool offered = strip_.TabEnabled(tab) || strip_.Tab == tab;
            if (strip_.TabVisible(tab) && offered) wanted.push_back(tab);
        }
        if (wanted != shown_) {
            while (book_->GetPageCount() > 0) {
                wxWindow* page = book_->GetPage(0);
                book_->RemovePage(0);
                page->Hide();
            }
            for (const int tab : wanted) {
                wxWindow* page = pages_[static_cast<std::size_t>(tab)];
                // Tabs stand for pages that are shown; which of them is seen is the book's own affair.
                if (dynamic_cast<wxNotebook*>(book_) != nullptr) page->Show();
                book_->AddPage(page, toNative(strip_.TabCaption(tab)));
            }
            shown_ = wanted;
            book_->InvalidateBestSize();
            book_->SendSizeEvent();
        }
        for (std::size_t at = 0; at < shown_.size(); ++at) {
            const wxString caption = toNative(strip_.TabCaption(shown_[at]));
            if (book_->GetPageText(at) != caption) book_->SetPageText(at, caption);
            // A page that holds nothing to use is focused itself.
            nameForReaders(pages_[static_cast<std::size_t>(shown_[at])], strip_.TabCaption(shown_[at]));
            if (strip_.Tab == shown_[at] && book_->GetSelection() != static_cast<int>(at)) book_->ChangeSelection(at);
        }
    }

private:
    FormWindow& window_;
    forms::TabStrip& strip_;
    wxBookCtrlBase* book_;
    std::vector<wxWindow*> pages_;
    std::vector<int> shown_;
};

// Which binding belongs to a book that a maker has made.
struct BookData final : public wxClientData {
    explicit BookData(std::shared_ptr<TabsBinding> b) : binding(std::move(b)) {}
    std::shared_ptr<TabsBinding> binding;
};

template <class Model>
void pressed(FormWindow& window, wxWindow* widget, Model& button) {
    widget->Bind(wxEVT_BUTTON, [&window, &button](wxCommandEvent&) { window.act([&button] { button.press(); }); });
}

}  // namespace

void pressButton(wxWindow& button) {
    wxCommandEvent press(wxEVT_BUTTON, button.GetId());
    press.SetEventObject(&button);
    button.ProcessWindowEvent(press);
}

wxColour toColour(unsigned colour) {
    constexpr unsigned kSystem = 0x80000000u;
    if (colour < kSystem) {
        return {static_cast<unsigned char>(colour), static_cast<unsigned char>(colour >> 8),
                static_cast<unsigned char>(colour >> 16)};
    }
    // The system's numbers and the toolkit's agree up to the last of the classic ones.
    const unsigned number = colour & 0xFFu;
    if (number == wxSYS_COLOUR_INFOBK) return tipColour();
    return wxSystemSettings::GetColour(number <= wxSYS_COLOUR_MAX ? static_cast<wxSystemColour>(number)
                                                                  : wxSYS_COLOUR_WINDOW);
}

wxWindow* FormWindow::check(wxWindow* parent, forms::CheckBox& box) {
    auto* widget =
        new wxCheckBox(parent, wxID_ANY, toNative(box.Caption.get()), wxDefaultPosition, wxDefaultSize, wxCHK_3STATE);
    widget->Bind(wxEVT_CHECKBOX, [this, widget, &box](wxCommandEvent&) {
        view_.act([widget, &box] { box.Value = widget->Get3StateValue() == wxCHK_CHECKED ? 1 : 0; });
    });
    adopt(box, widget);
    whenever(box, [this, widget, &box] {
        if (setLabel(widget, mnemonics_.marked(box))) layoutSoon();
        const wxCheckBoxState state = box.Value == 0   ? wxCHK_UNCHECKED
                                      : box.Value == 1 ? wxCHK_CHECKED
                                                       : wxCHK_UNDETERMINED;
        if (widget->Get3StateValue() != state) widget->Set3StateValue(state);
    });
    return widget;
}

wxWindow* FormWindow::option(wxWindow* parent, forms::OptionButton& button) {
    // The first button of a group in the model begins a group of the toolkit. One of such a group is chosen at all
    // times: while none of the model's is, it is a button that nobody sees.
    bool first = true;
    for (const auto& [control, widget] : widgets_) {
        const auto* other = dynamic_cast<const forms::OptionButton*>(control);
        if (other != nullptr && other->group == button.group) first = false;
    }
    if (first) (new wxRadioButton(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxRB_GROUP))->Hide();
    auto* widget = new wxRadioButton(parent, wxID_ANY, toNative(button.Caption.get()));
    widget->Bind(wxEVT_RADIOBUTTON,
                 [this, &button](wxCommandEvent&) { view_.act([&button] { button.setValue(-1); }); });
    adopt(button, widget);
    whenever(button, [this, widget, &button] {
        if (setLabel(widget, mnemonics_.marked(button))) layoutSoon();
        if (button.selected() == widget->GetValue()) return;
        (button.selected() ? widget : widget->GetFirstInGroup())->SetValue(true);
    });
    return widget;
}

wxWindow* FormWindow::entry(wxWindow* parent, forms::TextBox& box, const forms::Control* label) {
    auto* widget = new wxTextCtrl(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    // A box that handles Enter itself would keep the default button from it.
    widget->Bind(wxEVT_TEXT_ENTER, [widget](wxCommandEvent& event) {
        auto* top = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(widget));
        wxWindow* usual = top == nullptr ? nullptr : top->GetDefaultItem();
        if (usual == nullptr || !usual->IsEnabled()) {
            event.Skip();
            return;
        }
        pressButton(*usual);
    });
    adopt(box, widget, label);
    bind(box, std::make_shared<TextBinding>(view_, box, widget, false));
    return widget;
}

wxWindow* FormWindow::lines(wxWindow* parent, forms::TextBox& box, const Lines& how, const forms::Control* label) {
    long style = wxTE_MULTILINE | wxTE_NOHIDESEL | (how.wrap ? wxTE_WORDWRAP : wxTE_DONTWRAP);
    if (how.readOnly) style |= wxTE_READONLY;
    auto* widget = new wxTextCtrl(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, style);
    if (how.fixedFont) {
        widget->SetFont(wxFontInfo(wxNORMAL_FONT->GetFractionalPointSize()).Family(wxFONTFAMILY_TELETYPE));
    }
    adopt(box, widget, label);
    bind(box, std::make_shared<TextBinding>(view_, box, widget, how.selection));
    return widget;
}

wxWindow* FormWindow::combo(wxWindow* parent, forms::ComboBox& box, bool typed, const forms::Control* label) {
    wxWindow* widget = nullptr;
    wxItemContainer* rows = nullptr;
    if (typed) {
        auto* made = new wxComboBox(parent, wxID_ANY);
        widget = made;
        rows = made;
    } else {
        auto* made = new wxChoice(parent, wxID_ANY);
        widget = made;
        rows = made;
    }
    adopt(box, widget, label);
    bind(box, std::make_shared<ChoiceBinding>(view_, box, rows, *widget));
    return widget;
}

wxWindow* FormWindow::drives(wxWindow* parent, forms::DriveList& list, const forms::Control* label) {
    auto* widget = new wxChoice(parent, wxID_ANY);
    adopt(list, widget, label);
    bind(list, std::make_shared<DriveBinding>(view_, list, widget));
    return widget;
}

wxWindow* FormWindow::list(wxWindow* parent, forms::ListBox& list, bool several, const forms::Control* label) {
    wxListBox* widget = list.ticks ? new wxCheckListBox(parent, wxID_ANY)
                                   : new wxListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                                   several ? wxLB_EXTENDED | wxLB_HSCROLL : wxLB_SINGLE | wxLB_HSCROLL);
    adopt(list, widget, label);
    bind(list, std::make_shared<ListBinding>(view_, list, widget, several));
    return widget;
}

wxWindow* FormWindow::listView(wxWindow* parent, forms::ListView& list, bool several, bool icons,
                               const forms::Control* label) {
    long style = several ? wxDV_MULTIPLE : wxDV_SINGLE;
    if (list.HideColumnHeaders) style |= wxDV_NO_HEADER;
    auto* widget = new wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, style);
    adopt(list, widget, label);
    bind(list, std::make_shared<ListViewBinding>(view_, list, widget, several, icons));
    return widget;
}

wxStaticText* FormWindow::label(wxWindow* parent, forms::Label& label, int wrapAt, bool bold) {
    auto* widget = new wxStaticText(parent, wxID_ANY, {});
    if (bold) widget->SetFont(widget->GetFont().Bold());
    adopt(label, widget);
    // The caption as the widget was given it last; wrapped, the widget's own differs from it.
    whenever(label, [this, widget, &label, wrapAt, shown = std::make_shared<std::string>()] {
        setForeColour(widget, label.ForeColor);
        if (*shown == label.Caption.get()) return;
        *shown = label.Caption;
        // A label is no place for mnemonics: a sign of the text stays what it is.
        widget->SetLabelText(linesToNative(label.Caption.get()));
        if (wrapAt > 0) {
            widget->Wrap(widget->FromDIP(wrapAt));
        } else {
            roomForText(widget);
        }
        layoutSoon();
    });
    return widget;
}

wxWindow* FormWindow::link(wxWindow* parent, forms::Label& label) {
    auto* widget = new LinkLabel(parent);
    widget->Bind(wxEVT_BUTTON, [this, &label](wxCommandEvent&) { view_.act([&label] { label.Click(); }); });
    adopt(label, widget);
    whenever(label, [this, widget, &label] {
        setForeColour(widget, label.ForeColor);
        if (widget->GetLabel() == toNative(label.Caption.get())) return;
        widget->SetLabel(toNative(label.Caption.get()));
        layoutSoon();
    });
    return widget;
}

FormWindow::Section FormWindow::section(wxWindow* parent, forms::Frame& frame, bool heading) {
    Section made;
    made.panel = new wxPanel(parent);
    made.content = new wxBoxSizer(wxVERTICAL);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    if (heading) {
        auto* title = new wxStaticText(made.panel, wxID_ANY, {});
        title->SetFont(title->GetFont().Bold());
        outer->Add(title, 0, wxBOTTOM, made.panel->FromDIP(kGap));
        whenever(frame, [this, title, &frame] {
            if (title->GetLabelText() == toNative(frame.Caption.get())) return;
            title->SetLabelText(toNative(frame.Caption.get()));
            roomForText(title);
            layoutSoon();
        });
    }
    outer->Add(made.content, 1, wxEXPAND);
    made.panel->SetSizer(outer);
    adopt(frame, made.panel);
    return made;
}

wxWindow* FormWindow::image(wxWindow* parent, forms::Image& image, const std::string& name, wxSize size) {
    auto* widget = new wxStaticBitmap(parent, wxID_ANY, icon(name, size));
    return adopt(image, widget);
}

wxWindow* FormWindow::imageButton(wxWindow* parent, forms::Image& image, const std::string& name,
                                  const std::string& caption) {
    auto* widget = new wxButton(parent, wxID_ANY, toNative(caption));
    widget->SetBitmap(icon(name, wxSize(16, 16)));
    widget->Bind(wxEVT_BUTTON, [this, &image](wxCommandEvent&) { view_.act([&image] { image.Click(); }); });
    adopt(image, widget);
    nameForReaders(widget, caption.empty() ? image.Name : caption);
    return widget;
}

wxWindow* FormWindow::button(wxWindow* parent, controls::isButton& button, const std::string& name) {
    auto* widget =
        new ThemedButton(parent, button, name, [this](const std::function<void()>& what) { view_.act(what); });
    adopt(button, widget);
    whenever(button, [this, widget, &button] {
        if (widget->update(mnemonics_.marked(button))) layoutSoon();
    });
    return widget;
}

wxWindow* FormWindow::button(wxWindow* parent, forms::CommandButton& button, const std::string& name) {
    auto* widget = new wxButton(parent, wxID_ANY, toNative(button.Caption.get()));
    if (!name.empty()) widget->SetBitmap(icon(name, wxSize(16, 16)));
    pressed(*this, widget, button);
    adopt(button, widget);
    whenever(button, [this, widget, &button] {
        if (setLabel(widget, mnemonics_.marked(button))) layoutSoon();
    });
    return widget;
}

wxWindow* FormWindow::button(wxWindow* parent, forms::Menu& entry, const std::string& name) {
    auto* widget = new wxButton(parent, wxID_ANY, toNative(entry.Caption.get()));
    widget->SetBitmap(icon(name, wxSize(16, 16)));
    widget->Bind(wxEVT_BUTTON, [this, &entry](wxCommandEvent&) { view_.act([&entry] { entry.Click(); }); });
    adopt(entry, widget);
    whenever(entry, [this, widget, &entry] {
        if (setLabel(widget, toNative(entry.Caption.get()))) layoutSoon();
    });
    return widget;
}

wxWindow* FormWindow::pane(wxWindow* parent, controls::ExplorerBar& pane) {
    auto* widget = new ExplorerPane(parent, pane, [this](const std::function<void()>& what) { view_.act(what); });
    adopt(pane, widget);
    whenever(pane, [widget] { widget->update(); });
    return widget;
}

wxBookCtrlBase* FormWindow::tabs(wxWindow* parent, forms::TabStrip& strip, bool showTabs) {
    wxBookCtrlBase* book = nullptr;
    if (showTabs) {
        // Born large: what is laid out in too small a book is complained about by GTK, and nobody sees it anyway.
        book = new wxNotebook(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(600, 400)));
        book->SetMinSize(wxDefaultSize);
    } else {
        book = new wxSimplebook(parent, wxID_ANY);
    }
    const auto binding = std::make_shared<TabsBinding>(view_, *this, strip, book);
    book->SetClientObject(new BookData(binding));
    adopt(strip, book);
    bind(strip, binding);
    // What its pages are about stands on the tab of the book around it, or above the window.
    const auto name = [this, book] {
        const wxWindow* inside = book;
        for (wxWindow* at = book->GetParent(); at != nullptr; inside = at, at = at->GetParent()) {
            const auto* around = dynamic_cast<const wxBookCtrlBase*>(at);
            const int page = around == nullptr ? wxNOT_FOUND : around->FindPage(inside);
            if (page != wxNOT_FOUND) return fromNative(around->GetPageText(static_cast<std::size_t>(page)));
        }
        return form_.Caption.get();
    };
    whenever(strip, [book, name] { nameForReaders(book, name()); });
    whenever(form_.viewChanged, [book, name] { nameForReaders(book, name()); });
    return book;
}

wxPanel* FormWindow::page(wxBookCtrlBase* book) {
    auto* page = new wxPanel(book);
    page->Hide();
    static_cast<BookData*>(book->GetClientObject())->binding->addPage(page);
    return page;
}

void FormWindow::statusBar(forms::StatusBar& bar, const std::vector<int>& widths) {
    wxStatusBar* widget = nullptr;
    if (auto* frame = dynamic_cast<wxFrame*>(native_)) {
        widget = frame->CreateStatusBar(static_cast<int>(widths.size()));
    } else {
        widget = new wxStatusBar(native_, wxID_ANY);
        widget->SetFieldsCount(static_cast<int>(widths.size()));
        native_->GetSizer()->Add(widget, 0, wxEXPAND);
    }
    std::vector<int> pixels;
    for (const int width : widths) pixels.push_back(width < 0 ? width : widget->FromDIP(width));
    widget->SetStatusWidths(static_cast<int>(pixels.size()), pixels.data());
    adopt(bar, widget);
    whenever(bar, [widget, &bar, count = static_cast<int>(widths.size())] {
        for (int panel = 1; panel <= count; ++panel) {
            const wxString text = toNative(bar.Panel(panel));
            if (widget->GetStatusText(panel - 1) != text) widget->SetStatusText(text, panel - 1);
        }
    });
}

}  // namespace tidvane::view
