// The program's own push button on the screen.
#pragma once

#include <wx/control.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <string>

#include "controls/is_button.h"
#include "view/painters/painting.h"

class wxGraphicsContext;

namespace tidvane::view {

// Mouse and keys go to the model; the model says how it looks. The icon is the model's own, or else `iconName`.
// A wxEVT_BUTTON from outside (the default button of a window) is a click.
//
// There is always a style of the desktop: NonThemeStyle and RoundedBordersByTheme are kept and not drawn. Nor are
// MaskColor and UseMaskColor, for icons have a transparency of their own, Font and MousePointer, which no button of the
// program sets, and colours of its own under the desktop's look.
class ThemedButton final : public wxControl {
public:
    ThemedButton(wxWindow* parent, controls::isButton& button, std::string iconName, Act act);
    ~ThemedButton() override;
    // The button becomes what the model is, with the letter that is marked in `label`, its caption. True: its best size
    // may have changed.
    bool update(const wxString& label);

protected:
    wxSize DoGetBestClientSize() const override;

private:
    void bindMouse();
    void bindKeys();
    void paint();
    void paintBody(wxDC& dc, wxGraphicsContext& context, const wxRect& box);
    void paintIcon(wxDC& dc);
    void paintCaption(wxDC& dc, const controls::Rect& place);
    void showTip();
    void showOwnTip();
    void hideOwnTip();
    [[nodiscard]] controls::Size captionSize() const;
    [[nodiscard]] wxString caption() const;
    [[nodiscard]] bool isDefault() const;

    controls::isButton& button_;
    const std::string iconName_;
    const Act act_;
    wxString label_;  // with its letter marked
    wxString measured_;
    wxTimer tipTimer_;
    wxWeakRef<wxWindow> ownTip_;
};

}  // namespace tidvane::view
