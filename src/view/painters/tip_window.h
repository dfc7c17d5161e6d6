// The tip of a button that has an icon or colours of its own. Others have the desktop's.
#pragma once

#include <wx/popupwin.h>

#include <string>

#include "controls/is_button.h"

namespace tidvane::view {

// Stands below its button until it is destroyed. A balloon is drawn as a box like any other: intended.
class TipWindow final : public wxPopupWindow {
public:
    TipWindow(wxWindow* button, const controls::ButtonTip& tip);
};

}  // namespace tidvane::view
