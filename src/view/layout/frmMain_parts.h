// The parts of the main window.
#pragma once

#include "app/frmMain.h"
#include "view/form_window.h"

class wxBookCtrlBase;
class wxScrolledWindow;

namespace tidvane::view {

void makeMainMenus(FormWindow& window, app::frmMain& form);
// The keys that press buttons; those of menu entries are the menus' own.
void makeMainKeys(FormWindow& window, app::frmMain& form);

// The pages, each into a panel of the book.
void makeCleaningPage(FormWindow& window, app::frmMain& form, wxPanel* page);
void makePlugInsPage(FormWindow& window, app::frmMain& form, wxPanel* page);
void makeExtensionsPage(FormWindow& window, app::frmMain& form, wxPanel* page);
void makeAboutPage(FormWindow& window, app::frmMain& form, wxPanel* page);

// The name of the page at its top, which is that of the menu entry that leads there.
wxStaticText* makePageHeading(FormWindow& window, wxWindow* page, forms::Menu& entry);
// A text of the language table that no control carries, with a sign behind it; looked up anew whenever `spoken` is
// given a caption.
wxStaticText* makeText(FormWindow& window, wxWindow* page, app::frmMain& form, int entry, forms::Control& spoken,
                       const char* behind = "");

// The bar above the pages with what the front end has to tell; there while there is something.
wxWindow* makeNoticeBar(FormWindow& window, app::frmMain& form, wxWindow* parent);
void makeStatusBar(FormWindow& window, app::frmMain& form);

}  // namespace tidvane::view
