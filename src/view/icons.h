// The pictures of the windows, drawn at whatever scale a screen asks for.
#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include <string>
#include <vector>

namespace tidvane::view {

// The picture of a use of data/icons/icons.tsv, or else the file of that name. The size is that at 100%; by default the
// one of the table, and 24 x 24 for a file without a row. A picture asked for in another shape than its own is
// stretched. Empty for an unknown name, and for what the program paints itself.
wxBitmapBundle icon(const std::string& name, wxSize logicalSize = wxDefaultSize);

// The program's mark in the sizes that window managers and task bars ask for.
wxIconBundle programIcons();

// Names that were asked for in vain since the start: a picture that nobody sees missing is found by looking here.
const std::vector<std::string>& unknownIcons();

}  // namespace tidvane::view
