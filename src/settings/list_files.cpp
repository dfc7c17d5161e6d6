#include "settings/list_files.h"

#include <algorithm>

#include "base/line_input.h"
#include "base/text.h"

namespace tidvane::settings {

namespace {

// What stands right behind a closing quote is the next item. A quote that is never closed ends with its line, so that
// one damaged line does not swallow the rest of the file.
std::string_view takeItem(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    std::string_view item;
    if (!rest.empty() && rest.front() == '"') {
        rest.remove_prefix(1);
        const std::size_t close = rest.find('"');
        item = rest.substr(0, close);
        rest.remove_prefix(close == std::string_view::npos ? rest.size() : close + 1);
        const std::size_t next = rest.find_first_not_of(' ');
        rest.remove_prefix(std::min(next, rest.size()));
        if (!rest.empty() && rest.front() == ',') rest.remove_prefix(1);
        return item;
    }
    const std::size_t comma = rest.find(',');
    item = rest.substr(0, comma);
    rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
    return item;
}

}  // namespace

ListItems parseListItems(std::string_view text) {
    ListItems content;
    const bool open = !text.empty() && text.back() != '\r' && text.back() != '\n';
    while (!text.empty()) {
        const std::string_view line = base::takeLine(text);
        const std::size_t before = content.items.size();
        for (std::string_view rest = line; !rest.empty();) {
            const std::string_view item = takeItem(rest);
            if (!item.empty()) content.items.emplace_back(item);
        }
        const std::size_t came = content.items.size() - before;
        if (came > 1) content.splitLines.emplace_back(line);
        if (came > 1 || (came == 1 && base::trimBlanks(content.items.back()) != base::trimBlanks(line))) {
            content.changedLines.emplace_back(line);
        }
        content.lastLineIsOpen = open && text.empty() && came > 0;
    }
    return content;
}

platform::Status readListFile(Program& program, const std::string& file, ListItems& content) {
    content = {};
    std::string bytes;
    const platform::Status status = program.platform.files.ReadFileBytes(file, bytes);
    if (status == platform::Status::PathNotFound) return platform::Status::NotFound;
    if (platform::ok(status)) content = parseListItems(program.codePage().toUtf8(bytes));
    return status;
}

bool isStorable(const Program& program, const std::string& text) {
    const base::CodePage& page = program.codePage();
    return page.toUtf8(page.fromUtf8(text)) == text;
}

platform::Status writeListFile(Program& program, const std::string& file, const std::vector<std::string>& rows) {
    std::string text;
    for (const std::string& row : rows) {
        if (isStorable(program, row)) text += row + "\r\n";
    }
    return program.platform.files.WriteFileBytes(file, program.codePage().fromUtf8(text));
}

}  // namespace tidvane::settings
