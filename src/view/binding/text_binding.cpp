#include <gtk/gtk.h>
#include <wx/settings.h>

#include <functional>
#include <string>
#include <string_view>

#include "base/text.h"
#include "view/binding/bindings.h"
#include "view/measures.h"
#include "view/painters/painting.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr double kFaint = 0.45;  // how far the letters of a box that is off go towards their ground

// What a box has behind its letters by itself: the face of buttons stands for "nothing was said", and white is what the
// design knows as the colour of every box.
bool isBoxColour(unsigned colour) {
    constexpr unsigned kButtonFace = 0x8000000Fu;
    constexpr unsigned kWindow = 0x80000005u;
    constexpr unsigned kWhite = 0xFFFFFFu;
    return colour == kButtonFace || colour == kWindow || colour == kWhite;
}

// What a box with a filter takes of a text that comes at once: pasted, dropped, of the middle button of the mouse.
std::string filtered(const std::string& text, const std::function<bool(char32_t)>& filter) {
    std::string kept;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = base::byteOffset(std::string_view(text).substr(at), 1);
        const wxString sign = toNative(text.substr(at, length));
        const auto key = static_cast<char32_t>(sign.empty() ? 0 : sign[0].GetValue());
        if (key >= WXK_SPACE && filter(key)) kept.append(text, at, length);
        at += length;
    }
    return kept;
}

struct Gate {
    View& view;
    const forms::TextBox& box;
};

void letIn(GtkEditable* entry, const char* bytes, int count, int* place, Gate* gate) {
    if (!gate->box.keyFilter || gate->view.pulling() || bytes == nullptr) return;
    const std::string text(bytes, count < 0 ? std::char_traits<char>::length(bytes) : static_cast<std::size_t>(count));
    const std::string kept = filtered(text, gate->box.keyFilter);
    if (kept == text) return;
    g_signal_stop_emission_by_name(entry, "insert-text");
    if (!kept.empty()) gtk_editable_insert_text(entry, kept.data(), static_cast<int>(kept.size()), place);
}

// The keys have gone through the filter by then and pass it once more.
void filterInsertions(View& view, forms::TextBox& box, wxTextCtrl* widget) {
    g_signal_connect_data(
        widget->GetHandle(), "insert-text", G_CALLBACK(letIn), new Gate{view, box},
        [](gpointer gate, GClosure*) { delete static_cast<Gate*>(gate); }, GConnectFlags{});
}

}  // namespace

double shownPoints(double size) {
    return size == kDesignedPoints ? wxNORMAL_FONT->GetFractionalPointSize() : size;
}

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
    if (!lines_) filterInsertions(view, box, widget);
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

// Letters of their own too: those of a dark desktop could not be read on a light colour, nor the other way round.
void TextBinding::pullColour() {
    const unsigned colour = box_.BackColor;
    const bool own = !isBoxColour(colour);
    const wxColour behind = own ? toColour(colour) : wxNullColour;
    wxColour letters;
    if (own) {
        letters = readable(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), behind);
        if (!box_.Enabled) letters = mixed(letters, behind, kFaint);
    }
    const bool same = widget_->UseBackgroundColour() == own &&
                      (!own || (widget_->GetBackgroundColour() == behind && widget_->GetForegroundColour() == letters));
    if (same) return;
    widget_->SetBackgroundColour(behind);
    widget_->SetForegroundColour(letters);
    widget_->Refresh();
}

void TextBinding::pull() {
    pullColour();
    const bool other = box_.Text() != shown_;
    pullText();
    if (selection_ || other || box_.SelLength() > 0) pullSelection();
    if (selection_ || lines_) {
        const wxFont now = widget_->GetFont();
        wxFont font = now;
        if (box_.FontName.get() != kDesignedFont) font.SetFaceName(toNative(box_.FontName.get()));
        font.SetFractionalPointSize(shownPoints(box_.FontSize));
        font.SetWeight(box_.FontBold ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
        font.SetStyle(box_.FontItalic ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL);
        if (font != now) widget_->SetFont(font);
    }
}

}  // namespace tidvane::view
