#include "view/painters/explorer_pane.h"

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
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

using controls::GroupKind;
using controls::PaneTarget;

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
    // Told to this widget, which is deaf once its window goes: the pane's model may go with it.
    motion_.SetOwner(this);
    repeat_.SetOwner(this);
    Bind(
        wxEVT_TIMER, [this](wxTimerEvent&) { act_([this] { bar_.tick(); }); }, motion_.GetId());
    Bind(
        wxEVT_TIMER,
        [this](wxTimerEvent&) {
            act_([this] { bar_.tsbVertical.repeat(); });
            repeatLater();
        },
        repeat_.GetId());
    bar_.Sound.connect([weak = wxWeakRef<ExplorerPane>(this)](controls::PaneSound sound) {
        if (weak) playEmbeddedSound(sound == controls::PaneSound::GroupClicked ? "group" : "item");
    });
    // Only a handle to show for, as the models' users know it: nobody opens it.
    bar_.hWnd = bar_.tsbVertical.hWnd = static_cast<long>(reinterpret_cast<std::intptr_t>(GetHandle()));
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        act_([this] { styled(); });
    });
    bindMouse();
    bindKeys();
    styled();
}

void ExplorerPane::styled() {
    // The desktop draws in a style of its own on every system that this runs on today.
    bar_.setVisualStyle("Desktop", darkDesktop() ? "Dark" : "Light");
    sized();
}

void ExplorerPane::sized() {
    lines_.clear();
    pictures_.clear();
    controls::ExplorerMeasure measure;
    measure.text = [this](const std::string& text, bool bold, int width) { return textHeight(text, bold, width); };
    measure.picture = [](const std::string&) { return controls::Size{kPicture, kPicture}; };
    bar_.setView(toLogical(GetClientSize(), this), std::move(measure));
    Refresh();
}

void ExplorerPane::update() {
    if (bar_.animating()) {
        if (!motion_.IsRunning()) motion_.Start(controls::ExplorerBar::kTickInterval);
    } else if (motion_.IsRunning()) {
        motion_.Stop();
    }
    if (!bar_.animating()) pictures_.clear();
    showHot();
    tellReaders();
    Refresh();
}

// Pointer and tip belong to what is under the mouse now, whether the mouse has moved or the groups.
void ExplorerPane::showHot() {
    bar_.layout();
    const PaneTarget hot = bar_.hot();
    if (hot == shownHot_) return;
    shownHot_ = hot;
    SetCursor(hot.any() ? wxCursor(wxCURSOR_HAND) : wxNullCursor);
    const wxString tip = hot.any() ? toNative(bar_.toolTip(hot)) : wxString();
    if (tip.empty()) {
        UnsetToolTip();
    } else {
        SetToolTip(tip);
    }
}

// A reader hears where the keyboard is: the pane is one widget, its entries are drawn.
void ExplorerPane::tellReaders() {
    const PaneTarget target = bar_.focus();
    // A group says also whether it is open, in the signs of every list that folds: it may be called as its item is.
    const std::string words =
        target.header() ? bar_.GetGroupTitle(target.group) + (bar_.GetGroupWindowState(target.group) ? " [-]" : " [+]")
                        : bar_.GetItemCaption(target.group, target.item);
    if (words == spoken_) return;
    spoken_ = words;
    nameForReaders(this, words);
}

// --- mouse and keys

void ExplorerPane::bindMouse() {
    const auto point = [this](const wxMouseEvent& event) { return toLogical(event.GetPosition(), this); };
    const auto move = [this, point](wxMouseEvent& event) {
        const wxPoint at = point(event);
        act_([this, at, &event] { bar_.mouseMove(at.x, at.y, heldKeys(event)); });
    };
    Bind(wxEVT_MOTION, move);
    Bind(wxEVT_ENTER_WINDOW, move);
    const auto down = [this, point](controls::MouseButton button, const wxMouseEvent& event) {
        if (button == controls::MouseButton::Left) SetFocus();
        if (!HasCapture()) CaptureMouse();
        const wxPoint at = point(event);
        act_([this, button, at, keys = heldKeys(event)] { bar_.mouseDown(button, at.x, at.y, keys); });
        repeatLater();
    };
    const auto up = [this, point](controls::MouseButton button, const wxMouseEvent& event) {
        repeat_.Stop();
        const bool another = event.LeftIsDown() || event.MiddleIsDown() || event.RightIsDown();
        if (HasCapture() && !another) ReleaseMouse();
        const wxPoint at = point(event);
        const bool outside = !GetClientRect().Contains(event.GetPosition());
        act_([this, button, at, outside, another, keys = heldKeys(event)] {
            bar_.mouseUp(button, at.x, at.y, keys);
            if (outside && !another) bar_.mouseLeave();
        });
    };
    struct Row {
        controls::MouseButton button;
        wxEventTypeTag<wxMouseEvent> down;
        wxEventTypeTag<wxMouseEvent> again;
        wxEventTypeTag<wxMouseEvent> up;
    };
    using controls::MouseButton;
    for (const Row& row : {Row{MouseButton::Left, wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP},
                           Row{MouseButton::Right, wxEVT_RIGHT_DOWN, wxEVT_RIGHT_DCLICK, wxEVT_RIGHT_UP},
                           Row{MouseButton::Middle, wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_DCLICK, wxEVT_MIDDLE_UP}}) {
        const auto pressed = [down, button = row.button](wxMouseEvent& event) { down(button, event); };
        Bind(row.down, pressed);
        Bind(row.again, pressed);
        Bind(row.up, [up, button = row.button](wxMouseEvent& event) { up(button, event); });
    }
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) {
        if (!HasCapture()) act_([this] { bar_.mouseLeave(); });
    });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
        repeat_.Stop();
        act_([this] { bar_.cancelMode(); });
    });
    // A dialog that comes up hides from it that the pointer goes.
    whenDeactivated(this, [this] { act_([this] { bar_.mouseLeave(); }); });
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
        act_([this] { bar_.setFocus(true, focusByKeyboard()); });
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        act_([this] { bar_.setFocus(false); });
    });
    bindKeysTo(
        this, act_, [this](controls::Key key) { return bar_.keyDown(key); },
        [this](controls::Key key) { return bar_.keyUp(key); });
}

// --- texts

wxFont ExplorerPane::font(bool bold) const {
    wxFont font = GetFont();
    const controls::Font& own = bar_.Font.get();
    if (!own.name.empty()) font.SetFaceName(toNative(own.name));
    if (own.size > 0) font.SetFractionalPointSize(own.size);
    if (own.italic) font.MakeItalic();
    return bold || own.bold ? font.Bold() : font;
}

// Broken at this width, in the window's pixels: between words, and inside one that is longer than a line.
const ExplorerPane::Lines& ExplorerPane::broken(const std::string& text, bool bold, int width) const {
    const auto [place, isNew] = lines_.try_emplace({text, bold, width});
    Lines& lines = place->second;
    if (!isNew) return lines;
    wxClientDC dc(const_cast<ExplorerPane*>(this));
    dc.SetFont(font(bold));
    wxString line;
    const auto flush = [&] { lines.texts.push_back(std::exchange(line, wxString())); };
    wxString word;
    const auto take = [&] {
        if (word.empty()) return;
        if (!line.empty() && dc.GetTextExtent(line + ' ' + word).x <= width) {
            line += ' ' + word;
        } else {
            if (!line.empty()) flush();
            line = word;
        }
        word.clear();
        wxArrayInt ends;
        while (dc.GetTextExtent(line).x > width && line.length() > 1 && dc.GetPartialTextExtents(line, ends)) {
            std::size_t fitting = 1;
            while (fitting < line.length() && ends[fitting] <= width) ++fitting;
            if (fitting >= line.length()) break;
            lines.texts.push_back(line.Left(fitting));
            line = line.Mid(fitting);
        }
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
    lines.height = dc.GetTextExtent("Xy").y;
    return lines;
}

int ExplorerPane::textHeight(const std::string& text, bool bold, int width) const {
    const Lines& lines = broken(text, bold, FromDIP(width));
    // Rounded up: a row of pixels that is missing cuts a letter.
    const int height = lines.height * static_cast<int>(lines.texts.size());
    const int logical = ToDIP(height);
    return FromDIP(logical) < height ? logical + 1 : logical;
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
        fore = ownTexts() ? toColour(colours.fore)
                          : wxSystemSettings::GetColour(state.hot ? wxSYS_COLOUR_HOTLIGHT : wxSYS_COLOUR_WINDOWTEXT);
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
              state.hot ? fore : readable(fore, ground));
    paintArrow(context, place);
    if (state.focused) focusRing(context, box, FromDIP(static_cast<int>(kCorner)), ground);
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
    if (place.moving) {
        const wxRect content = toWindow(place.content, this);
        const bool fades = bar_.UseAlphaBlend && place.alpha < 255;
        if (fades) context.BeginLayer(place.alpha / 255.0);
        context.DrawBitmap(picture(context, place, ground), content.x, content.y, content.width, content.height);
        if (fades) context.EndLayer();
    } else {
        paintContent(context, place, ground);
    }
    context.PopState();
}

// All that the content of a group is drawn from, besides its size.
std::string ExplorerPane::lookOf(const controls::GroupPlace& place) const {
    std::string look;
    for (const controls::ItemPlace& item : place.items) {
        const controls::TargetState state = bar_.state({place.group, item.item});
        look += bar_.GetItemCaption(place.group, item.item) + '\n' + bar_.GetItemIcon(place.group, item.item) + '\n';
        for (const bool part : {bar_.GetItemCaptionBold(place.group, item.item), state.hot, state.pressed,
                                state.focused, bar_.GetItemEnabled(place.group, item.item)})
            look += part ? '1' : '0';
        look += std::to_string(bar_.itemColour(place.group, item.item)) + '\n';
    }
    if (place.kind == GroupKind::Detail) look += bar_.GetDetailCaption() + '\n' + bar_.GetDetailPicture();
    return look;
}

// The content of a group that moves is drawn once; its steps move and fade the picture.
const wxGraphicsBitmap& ExplorerPane::picture(wxGraphicsContext& screen, const controls::GroupPlace& place,
                                              const wxColour& ground) {
    const wxRect content = toWindow(place.content, this);
    Picture& kept = pictures_[place.group];
    std::string look = lookOf(place) + fromNative(ground.GetAsString());
    if (kept.size == content.GetSize() && kept.look == look && !kept.bitmap.IsNull()) return kept.bitmap;
    const double scale = GetContentScaleFactor();
    wxImage image(std::max(1, static_cast<int>(std::ceil(content.width * scale))),
                  std::max(1, static_cast<int>(std::ceil(content.height * scale))));
    image.InitAlpha();
    std::fill_n(image.GetAlpha(), static_cast<std::size_t>(image.GetWidth()) * image.GetHeight(), 0);
    {
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(image));
        context->Scale(scale, scale);
        context->Translate(-content.x, -content.y);
        paintContent(*context, place, ground);
    }
    kept = {content.GetSize(), std::move(look), screen.CreateBitmapFromImage(image)};
    ++picturesMade_;
    return kept.bitmap;
}

void ExplorerPane::paintContent(wxGraphicsContext& context, const controls::GroupPlace& place, const wxColour& ground) {
    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    if (place.kind == GroupKind::Detail) {
        if (!place.picture.empty()) paintIcon(context, bar_.GetDetailPicture(), place.picture);
        const wxColour words = ownTexts() ? toColour(bar_.colour("DetailsForeColor")) : text;
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
        const bool enabled = bar_.GetItemEnabled(place.group, item.item);
        paintIcon(context, bar_.GetItemIcon(place.group, item.item), item.icon, !enabled);
        wxColour words = ownTexts() ? toColour(bar_.itemColour(place.group, item.item)) : text;
        // The colour under the mouse is shown as it was chosen: it lasts a moment, and the line below says more.
        if (!state.hot) words = readable(words, ground);
        if (!enabled) words = mixed(words, ground, 0.5);
        paintText(context, bar_.GetItemCaption(place.group, item.item), item.text,
                  bar_.GetItemCaptionBold(place.group, item.item), words, state.hot);
        if (state.focused) focusRing(context, toWindow(item.box, this), FromDIP(3), ground);
    }
}

void ExplorerPane::paintIcon(wxGraphicsContext& context, const std::string& name, const controls::Rect& place,
                             bool grey) {
    if (name.empty() || place.empty()) return;
    const wxBitmapBundle bundle = icon(name, wxSize(place.width, place.height));
    if (!bundle.IsOk()) return;
    const wxRect box = toWindow(place, this);
    const wxBitmap bitmap = bundle.GetBitmapFor(this);
    context.DrawBitmap(grey ? greyed(bitmap) : bitmap, box.x, box.y, box.width, box.height);
}

void ExplorerPane::paintText(wxGraphicsContext& context, const std::string& text, const controls::Rect& place,
                             bool bold, const wxColour& colour, bool underlined) {
    if (text.empty() || place.empty()) return;
    const wxRect box = toWindow(place, this);
    wxFont drawn = font(bold);
    drawn.SetUnderlined(underlined);
    context.SetFont(drawn, colour);
    const Lines& lines = broken(text, bold, box.width);
    // Title bars of a fixed height may be lower than their titles.
    context.PushState();
    context.Clip(box.x, box.y, box.width, box.height);
    double y = box.y + std::max(0, (box.height - lines.height * static_cast<int>(lines.texts.size())) / 2);
    for (const wxString& line : lines.texts) {
        context.DrawText(line, box.x, y);
        y += lines.height;
    }
    context.PopState();
}

}  // namespace tidvane::view
