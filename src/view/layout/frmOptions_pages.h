// The pages of the options window, one function for each tab of SSTab1.
#pragma once

#include "settings/frmOptions.h"
#include "view/form_window.h"

namespace tidvane::view {

// Width of wrapped texts, device-independent pixels.
inline constexpr int kTextWidth = 560;

// A panel with the edge of a page around what `sizer` holds.
void fillPage(wxWindow* page, wxSizer* content);

// A button whose caption is a sign, no wider than that needs.
wxWindow* signButton(FormWindow& window, wxWindow* parent, controls::isButton& button);

void layWindowsTasks(FormWindow& window, settings::frmOptions& form, wxPanel* page);
void layBrowserTasks(FormWindow& window, settings::frmOptions& form, wxPanel* page);
void layOfficeTasks(FormWindow& window, settings::frmOptions& form, wxPanel* page);
void layOwnLists(FormWindow& window, settings::frmOptions& form, wxPanel* page);
void layAddOns(FormWindow& window, settings::frmOptions& form, wxPanel* page);
void laySettings(FormWindow& window, settings::frmOptions& form, wxPanel* page);

}  // namespace tidvane::view
