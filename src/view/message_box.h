// A message box of our own: the toolkit's shows no picture on every desktop, and a warning has to look like one.
#pragma once

#include <wx/window.h>

#include <string>

namespace tidvane::view {

// `style` and the answer as forms::msgbox counts them. Closing the box, or Escape, answers a question with No.
int showMessageBox(wxWindow* owner, const std::string& text, int style, const std::string& title);

}  // namespace tidvane::view
