// A label that is clicked: underlined, in the colour of links, reached and pressed by the keyboard.
#pragma once

#include <wx/control.h>

namespace tidvane::view {

// Raises wxEVT_BUTTON.
class LinkLabel final : public wxControl {
public:
    explicit LinkLabel(wxWindow* parent);
    void SetLabel(const wxString& label) override;
    // Without words there is nothing to click.
    bool AcceptsFocus() const override { return !GetLabel().empty() && wxControl::AcceptsFocus(); }
    // Its place in the order of the keyboard is found before it has its words, and stays.
    bool AcceptsFocusFromKeyboard() const override { return wxControl::AcceptsFocus(); }

protected:
    wxSize DoGetBestClientSize() const override;

private:
    void paint();
    void press();
    bool hot_ = false;
};

}  // namespace tidvane::view
