#include "view/painters/themed_button.h"

#include "view/icons.h"
#include "view/text.h"

namespace tidvane::view {

ThemedButton::ThemedButton(wxWindow* parent, controls::isButton& button, const std::string& iconName)
    : wxButton(parent, wxID_ANY, toNative(button.Caption.get())), button_(button) {
    if (!iconName.empty()) SetBitmap(icon(iconName, wxSize(16, 16)));
}

bool ThemedButton::update() {
    const wxString caption = toNative(button_.Caption.get());
    if (GetLabel() == caption) return false;
    SetLabel(caption);
    return true;
}

}  // namespace tidvane::view
