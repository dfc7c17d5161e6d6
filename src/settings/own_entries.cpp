#include "settings/own_entries.h"

#include "base/wildcard.h"
#include "settings/frmOptions.h"
#include "settings/list_files.h"

namespace tidvane::settings {

bool matchesEveryName(std::string_view mask) {
    return base::Wildcard(mask).matchesEveryName();
}

std::vector<std::string> masksThatMatchEveryName(Program& program) {
    std::vector<std::string> masks;
    const forms::ListBox& list = program.get<frmOptions>().lstSearchMasks;
    for (int row = 0; row < list.ListCount(); ++row) {
        if (matchesEveryName(list.List(row))) masks.push_back(list.List(row));
    }
    return masks;
}

std::vector<SplitLine> splitLinesOfLists(Program& program) {
    std::vector<SplitLine> lines;
    for (const char* file : kListFiles) {
        ListItems content;
        if (!platform::ok(readListFile(program, program.inProgramFolder(file), content))) continue;
        for (const std::string& line : content.changedLines) lines.push_back({file, line, parseListItems(line).items});
    }
    return lines;
}

}  // namespace tidvane::settings
