#include "view/painters/themed_button.h"

#include <wx/button.h>
#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/eventfilter.h>
#include <wx/settings.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "view/binding/bindings.h"
#include "view/icons.h"
#include "view/painters/tip_window.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr int kLeastHeight = 30;  // device-independent pixels; of a look that is not the desktop's
constexpr int kLeastWidth = 76;
constexpr int kIconOnly = 34;
constexpr int kTipDelay = 500;  // milliseconds, as the desktop's own tips

using controls::ButtonLook;
using controls::ButtonState;

// Letters are underlined while Alt is held, as the toolkit does it for its own widgets.
class AltWatch final : public wxEventFilter {
public:
    AltWatch() { wxEvtHandler::AddFilter(this); }
    ~AltWatch() override { wxEvtHandler::RemoveFilter(this); }
    void add(wxWindow* button) { buttons_.insert(button); }
    void remove(wxWindow* button) { buttons_.erase(button); }
    int FilterEvent(wxEvent& event) override {
        const wxEventType type = event.GetEventType();
        if (type != wxEVT_CHAR_HOOK && type != wxEVT_KEY_DOWN && type != wxEVT_KEY_UP) return Event_Skip;
        if (static_cast<wxKeyEvent&>(event).GetKeyCode() != WXK_ALT) return Event_Skip;
        for (wxWindow* button : buttons_) {
            if (button->IsShownOnScreen()) button->Refresh();
        }
        return Event_Skip;
    }

private:
    std::set<wxWindow*> buttons_;
};

AltWatch& altWatch() {
    static AltWatch watch;
    return watch;
}

// How large the toolkit makes a button of its own with a short caption. What it calls its default size is less.
wxSize usualButton(wxWindow* parent) {
    static const wxSize size = [parent] {
        auto* sample = new wxButton(parent, wxID_ANY, "X");
        const wxSize best = sample->GetBestSize();
        sample->Destroy();
        return best;
    }();
    return size;
}

}  // namespace

ThemedButton::ThemedButton(wxWindow* parent, controls::isButton& button, std::string iconName, Act act)
    : button_(button), iconName_(std::move(iconName)), act_(std::move(act)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS);
    if (button_.Icon.get().empty() && !iconName_.empty()) button_.Icon.design(iconName_);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { paint(); });
    Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { act_([this] { button_.press(); }); });
    bindMouse();
    bindKeys();
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        InvalidateBestSize();
        Refresh();
    });
    update(toNative(button_.Caption.get()));
    altWatch().add(this);
}

ThemedButton::~ThemedButton() {
    altWatch().remove(this);
}

void ThemedButton::bindMouse() {
    Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent&) {
        act_([this] { button_.mouseEnter(); });
        if (button_.hasOwnTip()) tipTimer_.StartOnce(kTipDelay);
    });
    // Told to this widget, which is deaf once its window goes: the button's model may go with it.
    tipTimer_.SetOwner(this);
    Bind(
        wxEVT_TIMER, [this](wxTimerEvent&) { showOwnTip(); }, tipTimer_.GetId());
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) {
        hideOwnTip();
        if (!HasCapture()) act_([this] { button_.mouseLeave(); });
    });
    Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
        event.Skip();
        if (!HasCapture()) return;
        const bool inside = GetClientRect().Contains(event.GetPosition());
        act_([this, inside] {
            if (inside) {
                button_.mouseEnter();
            } else {
                button_.mouseLeave();
            }
        });
    });
    const auto down = [this](wxMouseEvent&) {
        hideOwnTip();
        if (!IsEnabled()) return;
        SetFocus();
        if (!HasCapture()) CaptureMouse();
        // The pointer may have come while the button was off, or while nobody listened.
        act_([this] {
            button_.mouseEnter();
            button_.mouseDown();
        });
    };
    Bind(wxEVT_LEFT_DOWN, down);
    Bind(wxEVT_LEFT_DCLICK, down);
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
        if (HasCapture()) ReleaseMouse();
        const bool inside = GetClientRect().Contains(event.GetPosition());
        act_([this, inside] {
            if (!inside) button_.mouseLeave();
            button_.mouseUp();
        });
    });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { act_([this] { button_.cancelMode(); }); });
    // A dialog that comes up hides from it that the pointer goes.
    whenDeactivated(this, [this] { act_([this] { button_.mouseLeave(); }); });
}

void ThemedButton::bindKeys() {
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        act_([this] { button_.setFocus(true, focusByKeyboard()); });
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        act_([this] { button_.setFocus(false); });
    });
    bindKeysTo(
        this, act_, [this](controls::Key key) { return button_.keyDown(key); },
        [this](controls::Key key) { return button_.keyUp(key); });
}

wxString ThemedButton::caption() const {
    return wxControl::RemoveMnemonics(toNative(button_.Caption.get()));
}

controls::Size ThemedButton::captionSize() const {
    if (caption().empty()) return {};
    const wxSize size = GetTextExtent(caption());
    return toLogical(size, this);
}

bool ThemedButton::isDefault() const {
    auto* top = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(const_cast<ThemedButton*>(this)));
    return top != nullptr && top->GetDefaultItem() == this;
}

bool ThemedButton::update(const wxString& label) {
    label_ = label;
    showTip();
    Refresh();
    if (caption() == measured_) return false;
    measured_ = caption();
    InvalidateBestSize();
    return true;
}

void ThemedButton::showTip() {
    const controls::ButtonTip tip = button_.tip();
    wxString text = toNative(tip.text);
    if (!tip.title.empty() && !text.empty()) text = toNative(tip.title) + "\n" + text;
    if (button_.hasOwnTip()) text.clear();
    if (GetToolTipText() == text) return;
    if (text.empty()) {
        UnsetToolTip();
    } else {
        SetToolTip(text);
    }
}

void ThemedButton::showOwnTip() {
    const controls::ButtonTip tip = button_.tip();
    if (tip.text.empty() || !button_.hovered() || ownTip_) return;
    ownTip_ = new TipWindow(this, tip);
    ownTip_->Show();
}

void ThemedButton::hideOwnTip() {
    tipTimer_.Stop();
    if (ownTip_) ownTip_->Destroy();
    ownTip_ = nullptr;
}

wxSize ThemedButton::DoGetBestClientSize() const {
    const controls::Size wanted = button_.wanted(captionSize());
    const bool words = !caption().empty();
    const int side = words ? 2 * controls::isButton::kGap : 0;
    wxSize best = FromDIP(
        wxSize(std::max(wanted.width + side, words ? kLeastWidth : kIconOnly), std::max(wanted.height, kLeastHeight)));
    // With the desktop's look it stands beside the desktop's own buttons, and is as large as they are.
    if (controls::buttonLook(button_.look(true)).body == ButtonLook::Body::Native) {
        const wxSize usual = usualButton(GetParent());
        best.IncTo({words ? usual.x : best.x, usual.y});
    }
    return best;
}

void ThemedButton::paint() {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(GetParent()->GetBackgroundColour());
    dc.Clear();
    const wxRect box = GetClientRect();
    {
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        if (context) paintBody(dc, *context, box);
    }
    paintIcon(dc);
    const controls::ButtonPlaces places = button_.places(toLogical(box.GetSize(), this), captionSize());
    if (!caption().empty()) paintCaption(dc, places.caption);
    if (HasFocus() && button_.showsFocus()) {
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        if (context) focusRing(*context, box, FromDIP(5), wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    }
}

void ThemedButton::paintCaption(wxDC& dc, const controls::Rect& place) {
    const wxRect line = toWindow(place, this);
    dc.SetFont(GetFont());
    const unsigned wish = button_.captionColour();
    constexpr unsigned kDesignedText = 0x80000012u;
    wxColour colour = wish == kDesignedText ? wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT) : toColour(wish);
    if (!IsEnabled()) colour = wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT);
    dc.SetTextForeground(colour);
    // The measured box is rounded; the text stands in its middle.
    const wxString words = caption();
    const wxSize text = dc.GetTextExtent(words);
    const wxPoint at(line.x + (line.width - text.x) / 2, line.y + (line.height - text.y) / 2);
    dc.DrawText(words, at);
    const int letter = FindAccelIndex(label_);
    if (letter == wxNOT_FOUND || !wxGetKeyState(WXK_ALT)) return;
    const int from = dc.GetTextExtent(words.substr(0, static_cast<std::size_t>(letter))).x;
    const int to = dc.GetTextExtent(words.substr(0, static_cast<std::size_t>(letter) + 1)).x;
    dc.SetPen(wxPen(colour));
    dc.DrawLine(at.x + from, at.y + text.y - 1, at.x + to, at.y + text.y - 1);
}

void ThemedButton::paintBody(wxDC& dc, wxGraphicsContext& context, const wxRect& box) {
    const ButtonLook& look = controls::buttonLook(button_.look(true));
    const ButtonState state = IsEnabled() ? button_.state() : ButtonState::Disabled;
    if (look.body == ButtonLook::Body::Native) {
        // A flat body of the desktop's own colours. Neither themes of the toolkit draw reliably into a foreign window,
        // nor would the pressed look that is kept by Value show.
        const wxColour face = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
        const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
        const wxColour accent = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
        const bool primary = isDefault();
        wxColour top = darkDesktop() ? mixed(face, *wxWHITE, 0.10) : mixed(face, *wxWHITE, 0.60);
        wxColour bottom = darkDesktop() ? mixed(face, *wxWHITE, 0.05) : mixed(face, *wxBLACK, 0.03);
        wxColour edge = mixed(face, text, 0.28);
        if (state == ButtonState::Hot) {
            top = mixed(top, accent, 0.10);
            bottom = mixed(bottom, accent, 0.10);
            edge = mixed(edge, accent, 0.60);
        } else if (state == ButtonState::Pressed) {
            top = mixed(bottom, accent, 0.30);
            bottom = mixed(bottom, accent, 0.20);
            edge = mixed(edge, accent, 0.80);
        } else if (state == ButtonState::Disabled) {
            top = bottom = face;
            edge = mixed(face, text, 0.14);
        }
        if (primary && state != ButtonState::Disabled) edge = accent;
        context.SetPen(*wxTRANSPARENT_PEN);
        const double radius = FromDIP(look.radius + 1);
        context.SetBrush(context.CreateLinearGradientBrush(0, box.y, 0, box.GetBottom(), top, bottom));
        context.DrawRoundedRectangle(box.x + 0.5, box.y + 0.5, box.width - 1, box.height - 1, radius);
        context.SetBrush(*wxTRANSPARENT_BRUSH);
        context.SetPen(wxPen(edge, primary ? 2 : 1));
        const double inset = primary ? 1 : 0.5;
        context.DrawRoundedRectangle(box.x + inset, box.y + inset, box.width - 2 * inset, box.height - 2 * inset,
                                     radius);
        return;
    }
    wxColour body = toColour(button_.bodyColour());
    if (state == ButtonState::Pressed) body = mixed(body, *wxBLACK, 0.12);
    const bool edgeShown = look.edgeAtRest || state == ButtonState::Hot || state == ButtonState::Pressed ||
                           (HasFocus() && button_.showsFocus());
    const wxColour edge = edgeShown && look.edge != ButtonLook::Edge::None ? mixed(body, *wxBLACK, 0.35) : wxNullColour;
    const double radius = FromDIP(look.radius);
    wxColour top = body;
    wxColour bottom = body;
    if (look.body == ButtonLook::Body::Gradient) {
        top = mixed(body, *wxWHITE, 0.35);
        bottom = mixed(body, *wxBLACK, 0.06);
    } else if (look.body == ButtonLook::Body::Glass) {
        top = mixed(body, *wxWHITE, 0.65);
        bottom = mixed(body, *wxBLACK, 0.10);
    }
    context.SetPen(*wxTRANSPARENT_PEN);
    context.SetBrush(context.CreateLinearGradientBrush(0, box.y, 0, box.GetBottom(), top, bottom));
    context.DrawRoundedRectangle(box.x, box.y, box.width, box.height, radius);
    if (!edge.IsOk()) return;
    if (look.edge == ButtonLook::Edge::Line) {
        roundedBox(context, box, radius, *wxTRANSPARENT_BRUSH, edge);
        return;
    }
    // Light falls from the top left; a pressed button turns it round, an etched one has both.
    const bool sunken = state == ButtonState::Pressed;
    wxColour light = mixed(body, *wxWHITE, 0.7);
    wxColour shade = mixed(body, *wxBLACK, 0.4);
    if (sunken) std::swap(light, shade);
    dc.SetPen(wxPen(light));
    dc.DrawLine(box.x, box.GetBottom(), box.x, box.y);
    dc.DrawLine(box.x, box.y, box.GetRight() + 1, box.y);
    dc.SetPen(wxPen(shade));
    dc.DrawLine(box.GetRight(), box.y, box.GetRight(), box.GetBottom());
    dc.DrawLine(box.GetRight(), box.GetBottom(), box.x - 1, box.GetBottom());
    if (look.edge == ButtonLook::Edge::Etched) {
        dc.SetPen(wxPen(shade));
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.DrawRectangle(wxRect(box).Deflate(1));
    }
}

void ThemedButton::paintIcon(wxDC& dc) {
    const controls::ButtonPlaces places = button_.places(toLogical(GetClientSize(), this), captionSize());
    if (places.icon.empty()) return;
    const wxRect place = toWindow(places.icon, this);
    const wxBitmapBundle bundle = icon(button_.Icon, wxSize(button_.IconSize, button_.IconSize));
    if (!bundle.IsOk()) return;
    wxBitmap bitmap = bundle.GetBitmapFor(this);
    if (button_.iconInGrey() || !IsEnabled()) {
        bitmap = greyed(bitmap);
    }
    dc.DrawBitmap(bitmap, place.x, place.y, true);
}

}  // namespace tidvane::view
