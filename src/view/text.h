// Between the model's text (UTF-8, lines ended by CR LF, positions in UTF-16 units) and the toolkit's.
#pragma once

#include <wx/string.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace tidvane::view {

wxString toNative(std::string_view text);
std::string fromNative(const wxString& text);

// For a box with several lines: CR LF, and CR alone, become LF.
wxString linesToNative(std::string_view text);
std::string linesFromNative(const wxString& text);

// A position of the model in a text with CR LF, and the same place in the native box, which counts characters and a
// line end as one.
long positionToNative(std::string_view text, std::size_t position);
std::size_t positionFromNative(std::string_view text, long position);

}  // namespace tidvane::view
