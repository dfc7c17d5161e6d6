#pragma once

#include <wx/dataview.h>
#include <wx/listbox.h>

namespace tidvane::view {

// The row of a list that the keyboard stands at, which a list of several marked rows does not tell by its marks.
// wxNOT_FOUND: none, or the toolkit has no such thing.
[[nodiscard]] int cursorRow(const wxListBox& list);
// Puts it there and brings the row into view; the marks stay as they are.
void setCursorRow(wxListBox& list, int row);
// The same of a list with one selected row, from 0: the toolkit takes that for the current one and moves nothing.
void setCursorRow(wxDataViewCtrl& list, int row);

}  // namespace tidvane::view
