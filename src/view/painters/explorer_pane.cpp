#include "view/painters/explorer_pane.h"

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/settings.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "view/binding/bindings.h"
#include "view/form_window.h"
#include "view/icons.h"
#include "view/painters/scroll_bar_painter.h"
#include "view/sounds.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

using controls::ExplorerMetrics;
using controls::GroupKind;
using controls::PaneTarget;

constexpr int kFrame = 16;  // milliseconds between two steps of a group in motion
constexpr double kCorner = 4;
constexpr int kPicture = 48;  // of the detail group

}  // namespace

ExplorerPane::ExplorerPane(wxWindow* parent, controls::ExplorerBar& bar, Act act) : bar_(bar), act_(std::move(act)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS);
    SetMinSize(FromDIP(wxSize(210, 120)));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { paint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        sized();
    });
    motion_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { act_([this] { bar_.tick(); }); });
    repeat_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        act_([this] { bar_.tsbVertical.repeat(); });
        repeatLater();
    });
    bar_.Sound.connect([weak = wxWeakRef<ExplorerPane>(this)](controls::PaneSound sound) {
        if (weak) playEmbeddedSound(sound == controls::PaneSound::GroupClicked ? "group" : "item");
    });
    // The desktop draws in a style of its own on every system that this runs on today.
    bar_.setVisualStyle("Desktop", darkDesktop() ? "Dark" : "Light");
    bindMouse();
    bindKeys();
    sized();
}

void ExplorerPane::sized() {
    controls::ExplorerMeasure measure;
    measure.text = [this](const std::string& text, bool bold, int width) { return textHeight(text, bold, width); };
    measure.picture = [](const std::string&) { return controls::Size{kPicture, kPicture}; };
    bar_.setView(toLogical(GetClientSize(), this), std::move(measure));
    Refresh();
}

void ExplorerPane::update() {
    if (bar_.animating()) {
        if (!motion_.IsRunning()) motion_.Start(kFrame);
    } else if (motion_.IsRunning()) {
        motion_.Stop();
    }
    tellReaders();
    Refresh();
}

// A reader hears where the keyboard is: the pane is one widget, its entries are drawn.
void ExplorerPane::tellReaders() {
    const PaneTarget target = bar_.focus();
    const std::string words =
        target.header() ? bar_.GetGroupTitle(target.group) : bar_.GetItemCaption(target.group, target.item);
    if (words == spoken_) return;
    spoken_ = words;
    nameForReaders(this, words);
}

// --- mouse and keys

void ExplorerPane::bindMouse() {
    const auto point = [this](const wxMouseEvent& event) { return toLogical(event.GetPosition(), this); };
    Bind(wxEVT_MOTION, [this, point](wxMouseEvent& event) {
        const wxPoint at = point(event);
        act_([this, at, &event] { bar_.mouseMove(at.x, at.y, heldKeys(event)); });
        const PaneTarget hot = bar_.layout().at(at.x, at.y);
        SetCursor(hot.any() ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
        const wxString tip = hot.any() ? toNative(bar_.toolTip(hot)) : wxString();
        if (GetToolTipText() != tip) {
            if (tip.empty()) {
                UnsetToolTip();
            } else {
                SetToolTip(tip);
            }
        }
    });
    const auto down = [this, point](wxMouseEvent& event) {
        SetFocus();
        if (!HasCapture()) CaptureMouse();
        const wxPoint at = point(event);
        act_([this, at, &event] { bar_.mouseDown(controls::MouseButton::Left, at.x, at.y, heldKeys(event)); });
        repeatLater();
    };
    Bind(wxEVT_LEFT_DOWN, down);
    Bind(wxEVT_LEFT_DCLICK, down);
    Bind(wxEVT_LEFT_UP, [this, point](wxMouseEvent& event) {
        repeat_.Stop();
        if (HasCapture()) ReleaseMouse();
        const wxPoint at = point(event);
        const int keys = heldKeys(event);
        act_([this, at, keys] { bar_.mouseUp(controls::MouseButton::Left, at.x, at.y, keys); });
    });
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) {
        if (!HasCapture()) act_([this] { bar_.mouseLeave(); });
    });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
        repeat_.Stop();
        act_([this] { bar_.cancelMode(); });
    });
    Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
        if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL) return;
        const int turn =
            event.GetWheelRotation() * controls::ThemedScrollBar::kWheelNotch / std::max(1, event.GetWheelDelta());
        act_([this, turn] { bar_.wheel(turn); });
    });
}

void ExplorerPane::repeatLater() {
    const int delay = bar_.tsbVertical.repeatDelay();
    if (delay > 0) {
        repeat_.StartOnce(delay);
    } else {
        repeat_.Stop();
    }
}

void ExplorerPane::bindKeys() {
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        act_([this] { bar_.setFocus(true); });
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        act_([this] { bar_.setFocus(false); });
    });
    Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_TAB && !event.ControlDown()) {
            Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
            return;
        }
        bool taken = false;
        if (const auto key = keyOf(event); key && !event.AltDown()) {
            act_([this, key, &taken] { taken = bar_.keyDown(*key); });
        }
        if (!taken) event.Skip();
    });
    Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
        bool taken = false;
        if (const auto key = keyOf(event)) act_([this, key, &taken] { taken = bar_.keyUp(*key); });
        if (!taken) event.Skip();
    });
}

// --- texts

wxFont ExplorerPane::font(bool bold) const {
    return bold ? GetFont().Bold() : GetFont();
}

// Broken between words at this width in the window's pixels; a word that is longer stays whole and is cut by its box.
wxString ExplorerPane::wrapped(const std::string& text, bool bold, int width) const {
    wxClientDC dc(const_cast<ExplorerPane*>(this));
    dc.SetFont(font(bold));
    wxString out;
    wxString line;
    const auto flush = [&] {
        if (!out.empty()) out += '\n';
        out += line;
        line.clear();
    };
    wxString word;
    const auto take = [&] {
        if (word.empty()) return;
        const wxString longer = line.empty() ? word : line + ' ' + word;
        if (!line.empty() && dc.GetTextExtent(longer).x > width) {
            flush();
            line = word;
        } else {
            line = longer;
        }
        word.clear();
    };
    for (const wxUniChar sign : linesToNative(text)) {
        if (sign == ' ') {
            take();
        } else if (sign == '\n') {
            take();
            flush();
        } else {
            word += sign;
        }
    }
    take();
    flush();
    return out;
}

int ExplorerPane::textHeight(const std::string& text, bool bold, int width) const {
    wxClientDC dc(const_cast<ExplorerPane*>(this));
    dc.SetFont(font(bold));
    const wxSize size = dc.GetMultiLineTextExtent(wrapped(text, bold, FromDIP(width)));
    return ToDIP(size.y);
}

// --- painting

void ExplorerPane::paint() {
    wxAutoBufferedPaintDC dc(this);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    if (!context) return;
    paintGround(*context);
    for (const controls::GroupPlace& place : bar_.layout().groups) {
        paintBody(*context, place);
        paintHeader(*context, place);
    }
    const controls::Rect bar = bar_.scrollBar();
    if (!bar.empty()) paintScrollBar(*context, this, toWindow(bar, this).GetTopLeft(), bar_.tsbVertical);
}

void ExplorerPane::paintGround(wxGraphicsContext& context) {
    const wxSize size = GetClientSize();
    context.SetPen(*wxTRANSPARENT_PEN);
    if (plain()) {
        context.SetBrush(mixed(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW),
                               wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), 0.04));
    } else {
        const controls::Gradient gradient = bar_.paneGradient();
        const wxColour from = toColour(gradient.top);
        const wxColour to = toColour(gradient.bottom);
        switch (bar_.GradientStyle.get()) {
            case 0:
                context.SetBrush(from);
                break;
            case 1:
                context.SetBrush(context.CreateLinearGradientBrush(0, 0, size.x, 0, from, to));
                break;
            default:
                context.SetBrush(context.CreateLinearGradientBrush(0, 0, 0, size.y, from, to));
        }
    }
    context.DrawRectangle(0, 0, size.x, size.y);
    if (!bar_.ShowBorder) return;
    context.SetBrush(*wxTRANSPARENT_BRUSH);
    context.SetPen(toColour(bar_.colour("BorderColor")));
    context.DrawRectangle(0.5, 0.5, size.x - 1, size.y - 1);
}

void ExplorerPane::paintHeader(wxGraphicsContext& context, const controls::GroupPlace& place) {
    const wxRect box = toWindow(place.header, this);
    const PaneTarget target{place.group, -1};
    const controls::TargetState state = bar_.state(target);
    const controls::HeaderColours colours = bar_.headerColours(place.group);
    wxColour fore;
    wxColour ground;
    if (plain()) {
        fore = wxSystemSettings::GetColour(state.hot ? wxSYS_COLOUR_HOTLIGHT : wxSYS_COLOUR_WINDOWTEXT);
        ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    } else {
        const wxColour left = toColour(colours.back);
        const wxColour right = toColour(colours.gradient);
        ground = mixed(left, right, 0.3);
        // Round above; below it sits on its body.
        wxGraphicsPath path = context.CreatePath();
        const double radius = FromDIP(static_cast<int>(kCorner));
        path.MoveToPoint(box.x, box.y + box.height);
        path.AddLineToPoint(box.x, box.y + radius);
        path.AddArc(box.x + radius, box.y + radius, radius, M_PI, 1.5 * M_PI, true);
        path.AddLineToPoint(box.x + box.width - radius, box.y);
        path.AddArc(box.x + box.width - radius, box.y + radius, radius, 1.5 * M_PI, 0, true);
        path.AddLineToPoint(box.x + box.width, box.y + box.height);
        path.CloseSubpath();
        context.SetPen(*wxTRANSPARENT_PEN);
        context.SetBrush(context.CreateLinearGradientBrush(box.x, 0, box.x + box.width, 0, left, right));
        context.FillPath(path);
        fore = toColour(colours.fore);
    }
    paintIcon(context, bar_.GetGroupIcon(place.group), place.icon);
    paintText(context, bar_.GetGroupTitle(place.group), place.title, bar_.GetGroupTitleBold(place.group),
              readable(fore, ground));
    paintArrow(context, place);
    if (state.focused) focusRing(context, box, FromDIP(static_cast<int>(kCorner)));
}

void ExplorerPane::paintArrow(wxGraphicsContext& context, const controls::GroupPlace& place) {
    if (place.arrow.empty()) return;
    const wxRect box = toWindow(place.arrow, this);
    const std::string picture = bar_.buttonPicture(place.group);
    if (!picture.empty()) {
        paintIcon(context, picture, place.arrow);
        return;
    }
    wxColour arrow = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    if (!plain()) {
        const controls::HeaderColours colours = bar_.headerColours(place.group);
        arrow = toColour(colours.arrow);
        context.SetBrush(toColour(colours.buttonBack));
        context.SetPen(toColour(colours.button));
        context.DrawEllipse(box.x + 0.5, box.y + 0.5, box.width - 1, box.height - 1);
        arrow = readable(arrow, toColour(colours.buttonBack));
    }
    arrowHead(context, box, arrow, bar_.GetGroupWindowState(place.group), FromDIP(3));
}

void ExplorerPane::paintBody(wxGraphicsContext& context, const controls::GroupPlace& place) {
    const wxRect body = toWindow(place.body, this);
    if (body.IsEmpty()) return;
    context.PushState();
    context.Clip(body.x, body.y, body.width, body.height);
    wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    if (plain()) {
        roundedBox(context, body, 0, ground, mixed(ground, wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), 0.15));
    } else {
        const controls::BodyColours colours = bar_.bodyColours(place.group);
        ground = toColour(colours.back);
        context.SetPen(*wxTRANSPARENT_PEN);
        context.SetBrush(
            context.CreateLinearGradientBrush(body.x, 0, body.x + body.width, 0, ground, toColour(colours.gradient)));
        context.DrawRectangle(body.x, body.y, body.width, body.height);
        roundedBox(context, body, 0, *wxTRANSPARENT_BRUSH, toColour(colours.border));
    }
    const bool fades = bar_.UseAlphaBlend && place.alpha < 255;
    if (fades) context.BeginLayer(place.alpha / 255.0);
    paintContent(context, place, ground);
    if (fades) context.EndLayer();
    context.PopState();
}

void ExplorerPane::paintContent(wxGraphicsContext& context, const controls::GroupPlace& place, const wxColour& ground) {
    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    if (place.kind == GroupKind::Detail) {
        if (!place.picture.empty()) paintIcon(context, bar_.GetDetailPicture(), place.picture);
        const wxColour words = plain() ? text : toColour(bar_.colour("DetailsForeColor"));
        paintText(context, bar_.GetDetailCaption(), place.caption, false, readable(words, ground));
        return;
    }
    for (const controls::ItemPlace& item : place.items) {
        const controls::TargetState state = bar_.state({place.group, item.item});
        if (plain() && (state.hot || state.pressed)) {
            const wxColour accent = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
            roundedBox(context, toWindow(item.box, this), FromDIP(3), mixed(ground, accent, state.pressed ? 0.3 : 0.15),
                       wxNullColour);
        }
        std::string picture = bar_.GetItemIcon(place.group, item.item);
        if (picture.empty()) picture = bar_.GetItemTag(place.group, item.item);
        paintIcon(context, picture, item.icon);
        const wxColour words = plain() ? text : toColour(bar_.itemColour(place.group, item.item));
        paintText(context, bar_.GetItemCaption(place.group, item.item), item.text,
                  bar_.GetItemCaptionBold(place.group, item.item), readable(words, ground), state.hot);
        if (state.focused) focusRing(context, toWindow(item.box, this), FromDIP(3));
    }
}

void ExplorerPane::paintIcon(wxGraphicsContext& context, const std::string& name, const controls::Rect& place) {
    if (name.empty() || place.empty()) return;
    const wxBitmapBundle bundle = icon(name, wxSize(place.width, place.height));
    if (!bundle.IsOk()) return;
    const wxRect box = toWindow(place, this);
    context.DrawBitmap(bundle.GetBitmapFor(this), box.x, box.y, box.width, box.height);
}

void ExplorerPane::paintText(wxGraphicsContext& context, const std::string& text, const controls::Rect& place,
                             bool bold, const wxColour& colour, bool underlined) {
    if (text.empty() || place.empty()) return;
    const wxRect box = toWindow(place, this);
    wxFont drawn = font(bold);
    drawn.SetUnderlined(underlined);
    context.SetFont(drawn, colour);
    const wxString lines = wrapped(text, bold, box.width);
    double width = 0;
    double height = 0;
    context.GetTextExtent(lines, &width, &height);
    wxClientDC dc(this);
    dc.SetFont(drawn);
    const int line = dc.GetTextExtent("Xy").y;
    int count = 1;
    for (const wxUniChar sign : lines) count += sign == '\n' ? 1 : 0;
    double y = box.y + std::max(0, (box.height - line * count) / 2);
    for (const wxString& one : wxSplit(lines, '\n', 0)) {
        context.DrawText(one, box.x, y);
        y += line;
    }
}

}  // namespace tidvane::view
