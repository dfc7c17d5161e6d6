#include "view/painters/painting.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif
#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/image.h>
#include <wx/pen.h>
#include <wx/settings.h>
#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/is_button.h"

namespace tidvane::view {

wxRect toWindow(const controls::Rect& rect, const wxWindow* window) {
    // Edges are scaled, not sizes, so that neighbours stay neighbours.
    const wxPoint from = wxWindow::FromDIP(wxPoint(rect.x, rect.y), window);
    const wxPoint to = wxWindow::FromDIP(wxPoint(rect.right(), rect.bottom()), window);
    return {from.x, from.y, to.x - from.x, to.y - from.y};
}

controls::Size toLogical(wxSize size, const wxWindow* window) {
    const wxSize logical = wxWindow::ToDIP(size, window);
    return {logical.x, logical.y};
}

wxPoint toLogical(wxPoint point, const wxWindow* window) {
    return wxWindow::ToDIP(point, window);
}

int heldKeys(const wxKeyboardState& state) {
    return (state.ShiftDown() ? controls::kShift : 0) + (state.ControlDown() ? controls::kCtrl : 0) +
           (state.AltDown() ? controls::kAlt : 0);
}

std::optional<controls::Key> keyOf(const wxKeyEvent& event) {
    using controls::Key;
    switch (event.GetKeyCode()) {
        case WXK_UP:
        case WXK_NUMPAD_UP:
            return Key::Up;
        case WXK_DOWN:
        case WXK_NUMPAD_DOWN:
            return Key::Down;
        case WXK_LEFT:
        case WXK_NUMPAD_LEFT:
            return Key::Left;
        case WXK_RIGHT:
        case WXK_NUMPAD_RIGHT:
            return Key::Right;
        case WXK_PAGEUP:
        case WXK_NUMPAD_PAGEUP:
            return Key::PageUp;
        case WXK_PAGEDOWN:
        case WXK_NUMPAD_PAGEDOWN:
            return Key::PageDown;
        case WXK_HOME:
        case WXK_NUMPAD_HOME:
            return Key::Home;
        case WXK_END:
        case WXK_NUMPAD_END:
            return Key::End;
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER:
            return Key::Enter;
        case WXK_SPACE:
        case WXK_NUMPAD_SPACE:
            return Key::Space;
        case WXK_SHIFT:
            return Key::Shift;
        case WXK_CONTROL:
            return Key::Ctrl;
        case WXK_ALT:
            return Key::Alt;
        default:
            return std::nullopt;
    }
}

#ifdef __WXGTK__
// The toolkit tells the wrong window where the focus comes to another one before it has left this one, as it does while
// the pointer rests here. A widget whose window goes is deaf, and so is this.
void whenDeactivated(wxWindow* widget, std::function<void()> what) {
    struct Watch {
        wxWeakRef<wxWindow> widget;
        std::function<void()> what;
    };
    const auto tell = [](GtkWindow* window, GParamSpec*, gpointer data) {
        const auto* watch = static_cast<const Watch*>(data);
        const bool hears = watch->widget && watch->widget->GetEvtHandlerEnabled();
        if (hears && gtk_window_is_active(window) == 0) watch->what();
    };
    g_signal_connect_data(
        wxGetTopLevelParent(widget)->GetHandle(), "notify::is-active",
        G_CALLBACK(static_cast<void (*)(GtkWindow*, GParamSpec*, gpointer)>(tell)),
        new Watch{wxWeakRef<wxWindow>(widget), std::move(what)},
        [](gpointer data, GClosure*) { delete static_cast<Watch*>(data); }, GConnectFlags{});
}
#else
void whenDeactivated(wxWindow* widget, std::function<void()> what) {
    wxGetTopLevelParent(widget)->Bind(
        wxEVT_ACTIVATE, [weak = wxWeakRef<wxWindow>(widget), what = std::move(what)](wxActivateEvent& event) {
            event.Skip();
            if (!event.GetActive() && weak) what();
        });
}
#endif

void bindKeysTo(wxWindow* widget, Act act, std::function<bool(controls::Key)> down,
                std::function<bool(controls::Key)> up) {
    const auto told = [act = std::move(act)](wxKeyEvent& event, const std::function<bool(controls::Key)>& what) {
        bool taken = false;
        if (const auto key = keyOf(event)) act([&] { taken = what(*key); });
        if (!taken) event.Skip();
    };
    widget->Bind(wxEVT_KEY_DOWN, [widget, told, down = std::move(down)](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_TAB && !event.ControlDown()) {
            widget->Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
        } else if (event.AltDown() && event.GetKeyCode() != WXK_ALT) {
            event.Skip();
        } else {
            told(event, down);
        }
    });
    widget->Bind(wxEVT_KEY_UP, [told, up = std::move(up)](wxKeyEvent& event) { told(event, up); });
}

bool focusByKeyboard() {
    return !wxGetMouseState().LeftIsDown();
}

bool darkDesktop() {
    return wxSystemSettings::GetAppearance().IsUsingDarkBackground();
}

wxColour mixed(const wxColour& one, const wxColour& other, double share) {
    const auto part = [share](unsigned char a, unsigned char b) {
        return static_cast<unsigned char>(std::lround(a + (b - a) * share));
    };
    return {part(one.Red(), other.Red()), part(one.Green(), other.Green()), part(one.Blue(), other.Blue())};
}

wxColour readable(const wxColour& wish, const wxColour& ground) {
    constexpr double kEnough = 3.0;  // contrast, as the guidelines for large and for bold text have it
    const auto lightness = [](const wxColour& colour) {
        const auto linear = [](unsigned char value) {
            const double part = value / 255.0;
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.Red()) + 0.7152 * linear(colour.Green()) + 0.0722 * linear(colour.Blue());
    };
    const auto contrast = [&](const wxColour& one, const wxColour& other) {
        const double a = lightness(one) + 0.05;
        const double b = lightness(other) + 0.05;
        return std::max(a, b) / std::min(a, b);
    };
    if (contrast(wish, ground) >= kEnough) return wish;
    return contrast(*wxBLACK, ground) > contrast(*wxWHITE, ground) ? *wxBLACK : *wxWHITE;
}

wxBitmap greyed(const wxBitmap& bitmap) {
    wxImage image = bitmap.ConvertToImage();
    if (!image.HasAlpha()) image.InitAlpha();
    const std::size_t count = static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
    unsigned char* part = image.GetData();
    unsigned char* alpha = image.GetAlpha();
    for (std::size_t i = 0; i < count; ++i, part += 3) {
        const unsigned colour = part[0] | static_cast<unsigned>(part[1]) << 8 | static_cast<unsigned>(part[2]) << 16;
        part[0] = part[1] = part[2] = static_cast<unsigned char>(controls::isButton::PaintIconGrayscale(colour) & 0xFF);
        alpha[i] = static_cast<unsigned char>(alpha[i] / 2);
    }
    return wxBitmap(image, wxBITMAP_SCREEN_DEPTH, bitmap.GetScaleFactor());
}

void roundedBox(wxGraphicsContext& context, const wxRect& box, double radius, const wxBrush& fill,
                const wxColour& edge) {
    context.SetBrush(fill);
    if (edge.IsOk()) {
        context.SetPen(wxPen(edge, 1));
        context.DrawRoundedRectangle(box.x + 0.5, box.y + 0.5, box.width - 1, box.height - 1, radius);
    } else {
        context.SetPen(*wxTRANSPARENT_PEN);
        context.DrawRoundedRectangle(box.x, box.y, box.width, box.height, radius);
    }
}

void arrowHead(wxGraphicsContext& context, const wxRect& box, const wxColour& colour, bool up, double size) {
    const double middle = box.x + box.width / 2.0;
    const double centre = box.y + box.height / 2.0;
    const double tip = up ? centre - size / 2 : centre + size / 2;
    const double foot = up ? centre + size / 2 : centre - size / 2;
    wxGraphicsPath path = context.CreatePath();
    path.MoveToPoint(middle - size, foot);
    path.AddLineToPoint(middle, tip);
    path.AddLineToPoint(middle + size, foot);
    wxGraphicsPenInfo pen(colour, std::max(1.5, size / 2.2));
    pen.Cap(wxCAP_ROUND).Join(wxJOIN_ROUND);
    context.SetPen(context.CreatePen(pen));
    context.StrokePath(path);
}

void focusRing(wxGraphicsContext& context, const wxRect& box, double radius, const wxColour& ground) {
    context.SetBrush(*wxTRANSPARENT_BRUSH);
    context.SetPen(wxPen(readable(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), ground), 2));
    context.DrawRoundedRectangle(box.x + 1, box.y + 1, box.width - 2, box.height - 2, radius);
}

}  // namespace tidvane::view
