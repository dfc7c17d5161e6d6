// Keeps the state of windows in td_config.ini: one section a window, one key a control. The settings have no other
// home.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "settings/program.h"

namespace tidvane::settings {

// "C:\Program Files\Tidvane\td_config.ini": always beside the program.
std::string GetINIPath(const Program& program);

// What a "Dir" of one path finds: a file that is neither hidden nor a system file, and no folder.
bool plainFileExists(Program& program, const std::string& path);

// False: there is no file, nothing was touched, and the caller sets the values of a first start. Assigning a value
// raises the control's event, so the window's dependencies run during the walk.
// Throws base::RuntimeError (13, 6 or 380) at a value that cannot be assigned; the controls behind it keep their state.
bool LoadFormINI(Program& program, forms::Form& form);
// For the windows whose load handler passes over errors: the walk ends at the bad value and the answer is true, since
// the file was there.
bool LoadFormINISkippingErrors(Program& program, forms::Form& form);

// An empty value is never written: a text box that was emptied keeps its old key. The file is replaced once, as a
// whole or not at all; one that cannot be written is passed over in silence. A lone CR or LF is written as it is and
// ends the value when it is read again; a text whose next line would read as a section or a key of its own is not
// written, and the display tells it.
void SaveFormINI(Program& program, forms::Form& form);

// A text box that is empty now and will not be at the next load.
struct EmptiedBox {
    std::string caption;  // of the label or box that stands in front of it; its name where there is none
    std::string stored;   // what comes back, up to 254 characters
};
std::vector<EmptiedBox> emptiedBoxes(Program& program, const forms::Form& form);
// Before a save: the display tells the user of each.
void tellOfEmptiedBoxes(Program& program, const forms::Form& form);

// The key of a control: its name, and for a member of a control array its index in brackets.
std::string profileKey(const forms::Control& control);

// One key of any profile file, at most 254 characters. A missing key gives 255 NUL characters, as the buffer was:
// whoever makes a path of it gets one that does not exist.
std::string ReadINIKey(Program& program, const std::string& file, const std::string& section, const std::string& key);

// At most 254 characters; a missing key gives an empty text.
std::string ReadProfileValue(Program& program, const std::string& file, const std::string& section,
                             const std::string& key);
bool WriteProfileValue(Program& program, const std::string& file, const std::string& section, const std::string& key,
                       const std::string& value);

// One stored number of a window: where it stands and where it goes.
struct WindowNumber {
    std::string key;
    std::function<int()> read;
    std::function<void(int)> apply;
};

// Left, Top, Height, Width in twips, in the order in which they are stored.
std::vector<WindowNumber> rectangleOf(forms::Form& form);
// Left and Top alone.
std::vector<WindowNumber> positionOf(forms::Form& form);

// Reads and applies number by number. One that is missing, damaged or beyond 16 bits leaves its property alone.
void loadWindowNumbers(Program& program, const std::string& section, const std::vector<WindowNumber>& numbers,
                       bool minimized);
void saveWindowNumbers(Program& program, const std::string& section, const std::vector<WindowNumber>& numbers);

}  // namespace tidvane::settings
