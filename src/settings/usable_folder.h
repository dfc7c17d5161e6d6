// Whether tasks may work in the folder that a box of a browser's window names.
//
// The boxes come from the disk (a damaged profiles.ini, a stored text that was cut) or from a user's hand, and what
// tasks do there cannot be undone. So a folder that cannot be one of a profile counts as none.
#pragma once

#include <string>

#include "settings/browser_dir_form.h"

namespace tidvane::settings {

// The box's text where it may be used, an empty one otherwise; the display tells each refusal once. Refused are:
// - anything but a full path: relative, empty, with "." or ".." in it, with a sign that no path can hold;
// - a folder that the browser keeps its profiles in, and every one above;
// - for the cache box, the folder of the profile box, every one above, and one directly in a second box that is
// refused.
std::string usableFolder(Program& program, BrowserDirForm& form, BrowserBox box);

}  // namespace tidvane::settings
