// A picture that is stretched over its place, with a line of white text on it.
#pragma once

#include <wx/window.h>

#include <string>

namespace tidvane::view {

class Banner final : public wxWindow {
public:
    Banner(wxWindow* parent, std::string picture, wxSize least);
    void setText(const wxString& text);
    bool AcceptsFocus() const override { return false; }

private:
    void paint();
    std::string picture_;
    wxString text_;
};

}  // namespace tidvane::view
