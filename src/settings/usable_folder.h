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
// - for a cache box whose folder is emptied (all but Safari's, of which one file goes):
//   - the folder of the profile box, every one above, and one directly in a second box that is refused;
//   - a profile of another browser, or a further one of the same, where they commonly lie.
std::string usableFolder(Program& program, BrowserDirForm& form, BrowserBox box);

// The text of the cache box where all that lies in that folder may go: Safari's too must not hold the profile then.
std::string cacheToEmpty(Program& program, BrowserDirForm& form);

}  // namespace tidvane::settings
