#include "view/binding/bindings.h"
#include "view/measures.h"
#include "view/text.h"

namespace tidvane::view {

TextBinding::TextBinding(View& view, forms::TextBox& box, wxTextCtrl* widget, bool selection)
    : Binding(view), box_(box), widget_(widget), lines_(widget->IsMultiLine()), selection_(selection) {
    widget->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { push(); });
    widget->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        // Coming back from another program, or from a box of the desktop, is no entering.
        if (event.GetWindow() == nullptr || event.GetWindow() == widget_ || view_.pulling()) return;
        view_.act([this] { box_.GotFocus(); });
    });
    // The filter of the box decides about keys that make text; all others are the widget's.
    widget->Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
        const int key = event.GetUnicodeKey();
        const bool makesText = key == WXK_BACK || key >= WXK_SPACE;
        if (box_.keyFilter && makesText && key != WXK_DELETE && !event.ControlDown() &&
            !box_.keyFilter(static_cast<char32_t>(key))) {
            return;
        }
        event.Skip();
    });
    if (selection_) {
        // Behind the widget's own handling of the key or the click.
        const auto later = [this](wxEvent& event) {
            event.Skip();
            widget_->CallAfter([this] { pushSelection(); });
        };
        widget->Bind(wxEVT_LEFT_UP, later);
        widget->Bind(wxEVT_KEY_UP, later);
    }
}

void TextBinding::push() {
    if (view_.pulling()) return;
    view_.act([this] {
        const wxString text = widget_->GetValue();
        shown_ = lines_ ? linesFromNative(text) : fromNative(text);
        const std::size_t caret = positionFromNative(shown_, widget_->GetInsertionPoint());
        box_.setText(shown_);
        // A handler may have put another text there, with a caret of its own.
        if (box_.Text() == shown_) box_.select(caret, 0);
    });
}

void TextBinding::pushSelection() {
    if (view_.pulling()) return;
    view_.act([this] {
        long from = 0;
        long to = 0;
        widget_->GetSelection(&from, &to);
        const std::size_t start = positionFromNative(box_.Text(), from);
        box_.select(start, positionFromNative(box_.Text(), to) - start);
    });
}

// What was appended is appended; anything else sets the text anew.
void TextBinding::pullText() {
    const std::string& text = box_.Text();
    if (text == shown_) return;
    if (lines_ && !shown_.empty() && text.size() > shown_.size() && text.compare(0, shown_.size(), shown_) == 0) {
        widget_->AppendText(linesToNative(std::string_view(text).substr(shown_.size())));
    } else {
        widget_->ChangeValue(lines_ ? linesToNative(text) : toNative(text));
    }
    shown_ = text;
}

void TextBinding::pullSelection() {
    const std::string& text = box_.Text();
    const long from = positionToNative(text, box_.SelStart());
    const long to = box_.SelLength() == 0 ? from : positionToNative(text, box_.SelStart() + box_.SelLength());
    long nowFrom = 0;
    long nowTo = 0;
    widget_->GetSelection(&nowFrom, &nowTo);
    if (nowFrom == from && nowTo == to) return;
    widget_->SetSelection(from, to);
    widget_->ShowPosition(from);
}

void TextBinding::pull() {
    const bool other = box_.Text() != shown_;
    pullText();
    if (selection_) {
        pullSelection();
    } else if (other || box_.SelLength() > 0) {
        pullSelection();
    }
    if (selection_ || lines_) {
        const wxFont now = widget_->GetFont();
        wxFont font = now;
        if (box_.FontName.get() != "MS Sans Serif") font.SetFaceName(toNative(box_.FontName.get()));
        // The design's size is the system's own; others stand in their relation to it.
        constexpr double kDesignSize = 8.25;
        const double size = wxNORMAL_FONT->GetFractionalPointSize() * box_.FontSize.get() / kDesignSize;
        font.SetFractionalPointSize(size);
        font.SetWeight(box_.FontBold ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
        font.SetStyle(box_.FontItalic ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL);
        if (font != now) widget_->SetFont(font);
    }
}

}  // namespace tidvane::view
