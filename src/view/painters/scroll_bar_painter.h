// The program's own scroll bar on the screen.
#pragma once

#include <wx/gdicmn.h>

#include "controls/themed_scroll_bar.h"

class wxGraphicsContext;
class wxWindow;

namespace tidvane::view {

// `at`: where the bar's own pixels begin, in the window's.
void paintScrollBar(wxGraphicsContext& context, const wxWindow* window, wxPoint at,
                    const controls::ThemedScrollBar& bar);

}  // namespace tidvane::view
