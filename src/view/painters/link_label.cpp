#include "view/painters/link_label.h"

#include <wx/dcclient.h>
#include <wx/renderer.h>
#include <wx/settings.h>

namespace tidvane::view {

LinkLabel::LinkLabel(wxWindow* parent) {
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS);
    SetCanFocus(false);
    SetCursor(wxCursor(wxCURSOR_HAND));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { paint(); });
    Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { press(); });
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { SetFocus(); });
    const auto hover = [this](wxMouseEvent& event) {
        hot_ = event.Entering();
        Refresh();
    };
    Bind(wxEVT_ENTER_WINDOW, hover);
    Bind(wxEVT_LEAVE_WINDOW, hover);
    const auto focus = [this](wxFocusEvent& event) {
        Refresh();
        event.Skip();
    };
    Bind(wxEVT_SET_FOCUS, focus);
    Bind(wxEVT_KILL_FOCUS, focus);
    Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        switch (event.GetKeyCode()) {
            case WXK_RETURN:
            case WXK_NUMPAD_ENTER:
            case WXK_SPACE:
                press();
                break;
            case WXK_TAB:
                Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
                break;
            default:
                event.Skip();
        }
    });
}

void LinkLabel::SetLabel(const wxString& label) {
    wxControl::SetLabel(label);
    SetCanFocus(!label.empty());
    InvalidateBestSize();
    Refresh();
}

wxSize LinkLabel::DoGetBestClientSize() const {
    wxSize size = GetTextExtent(GetLabelText());
    size.IncBy(FromDIP(4), FromDIP(4));
    return size;
}

void LinkLabel::press() {
    if (!IsEnabled()) return;
    wxCommandEvent event(wxEVT_BUTTON, GetId());
    event.SetEventObject(this);
    ProcessWindowEvent(event);
}

void LinkLabel::paint() {
    // What lies behind it, the page of a book for one, stays seen.
    wxPaintDC dc(this);
    wxFont font = GetFont();
    font.SetUnderlined(hot_ || HasFocus());
    dc.SetFont(font);
    const wxColour colour = !IsEnabled()            ? wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT)
                            : UseForegroundColour() ? GetForegroundColour()
                                                    : wxSystemSettings::GetColour(wxSYS_COLOUR_HOTLIGHT);
    dc.SetTextForeground(colour);
    dc.DrawText(GetLabelText(), FromDIP(2), FromDIP(2));
    if (HasFocus()) wxRendererNative::Get().DrawFocusRect(this, dc, GetClientRect());
}

}  // namespace tidvane::view
