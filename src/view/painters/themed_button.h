// The program's own push button on the screen.
#pragma once

#include <wx/button.h>

#include <string>

#include "controls/is_button.h"

namespace tidvane::view {

// Raises wxEVT_BUTTON on a click; the caller presses the model.
class ThemedButton final : public wxButton {
public:
    ThemedButton(wxWindow* parent, controls::isButton& button, const std::string& iconName);
    // The button becomes what the model is. True: its best size may have changed.
    bool update();

private:
    controls::isButton& button_;
};

}  // namespace tidvane::view
