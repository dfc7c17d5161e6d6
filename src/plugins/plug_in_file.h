// Reads a plug-in file: its sections in the order of the text, the keys of a section, and values.
#pragma once

#include <string>
#include <vector>

#include "settings/program.h"

namespace tidvane::plugins {

// Names of all headers in the order of the text, duplicates included. Lines end at CR or CR LF. A header is a line that
// has "[" first and "]" last when its outer blanks are dropped, so one with a comment behind it is none; the name is
// what stands between, blanks included. A file that cannot be read has no sections.
std::vector<std::string> ListSections(settings::Program& program, const std::string& file);

// Names of the keys of a section, as many as 8190 bytes of the code page hold; the last one may be cut. A section
// without keys gives the one name "Err".
std::vector<std::string> ListKeys(settings::Program& program, const std::string& file, const std::string& section);

// At most 1023 bytes of the code page, without outer blanks and one pair of quotes. A missing key, and a value of
// exactly "{ERR}", gives `fallback`; an empty value is empty whatever the fallback.
std::string ReadPlugValue(settings::Program& program, const std::string& file, const std::string& section,
                          const std::string& key, const std::string& fallback);

}  // namespace tidvane::plugins
