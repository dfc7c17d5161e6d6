// The small text files of the options window's own lists: one entry a line, in the system's code page, lines ended by
// CR LF.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"
#include "settings/program.h"

namespace tidvane::settings {

// Folders; files and registry keys; masks. In the order in which they are written.
inline constexpr std::array kListFiles{"td_folders.dat", "td_fkeys.dat", "td_ftypes.dat"};

struct ListItems {
    std::vector<std::string> items;         // without empty ones
    std::vector<std::string> splitLines;    // lines of which more than one item came
    std::vector<std::string> changedLines;  // these, and lines whose one item differs from them in more than blanks
    bool lastLineIsOpen = false;            // the last item stands in a line without a line end
};

// Takes a text apart as list input does: a comma ends an item, a double quote opens a quoted item, blanks in front of
// an item are dropped. A line ends at CR or CR LF, and with it every item; a lone LF is text.
ListItems parseListItems(std::string_view text);

// Ok: read. NotFound: there is no such file, the list is empty. Anything else: it is there and cannot be read.
platform::Status readListFile(Program& program, const std::string& file, ListItems& content);

// False for a text with a character that the code page lacks: it would be stored as "?", which later stands for any
// character.
bool isStorable(const Program& program, const std::string& text);

// Rows as they stand, commas and quotes too: reading is not the reverse of writing, on purpose. A row that is not
// storable is left out.
platform::Status writeListFile(Program& program, const std::string& file, const std::vector<std::string>& rows);

}  // namespace tidvane::settings
