// The plug-ins that are delivered with the program, and the table of what they remove.
#pragma once

#include <string>
#include <vector>

namespace tidvane::tests {

// File names without ".tdp", sorted.
std::vector<std::string> deliveredPlugIns();

// The bytes of one of them.
std::string deliveredPlugIn(const std::string& name);

// A line "key=value" of a plug-in, in the code page, as it stands.
struct PlugInLine {
    std::string section;
    std::string key;
    std::string value;
    std::size_t start = 0;  // of its bytes in the file, line end included
    std::size_t end = 0;
};
std::vector<PlugInLine> linesOfPlugIn(const std::string& bytes);

// One row of delivered_plug_ins.tsv, which tells what the columns mean.
struct TraceRow {
    enum class Kind { File, Folder, Key, Value };

    std::string plugIn;
    std::string system;
    bool goes = false;
    Kind kind = Kind::File;
    std::string path;   // without the backslash of a folder; of a key below HKEY_CURRENT_USER
    std::string value;  // the name of a value
    unsigned attributes = 0;
    std::string text;  // the row as it stands
};
// Throws when the table cannot be read or has a broken row.
std::vector<TraceRow> deliveredTraces();

}  // namespace tidvane::tests
