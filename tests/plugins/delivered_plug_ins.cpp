#include "plugins/delivered_plug_ins.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/text.h"
#include "platform/file_system.h"

namespace tidvane::tests {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFolder = TIDVANE_SOURCE_DIR "/data/PlugIns";
constexpr const char* kTable = TIDVANE_SOURCE_DIR "/tests/plugins/delivered_plug_ins.tsv";
constexpr std::string_view kUserHive = "HKEY_CURRENT_USER";

TraceRow rowOf(const std::string& line) {
    const auto broken = [&line](const std::string& why) {
        return std::runtime_error("delivered_plug_ins.tsv, " + why + ": " + line);
    };
    const std::vector<std::string> fields = base::split(line, "\t");
    if (fields.size() < 4 || fields.size() > 5) throw broken("4 or 5 columns wanted");
    TraceRow row;
    row.plugIn = fields[0];
    row.system = fields[1];
    row.text = line;
    if (fields[2] != "goes" && fields[2] != "stays") throw broken("goes or stays wanted");
    row.goes = fields[2] == "goes";
    row.path = fields[3];
    if (row.path.starts_with("HKEY_")) {
        const std::vector<std::string> parts = base::split(row.path, "|");
        if (parts.size() < 2 || parts.size() > 3 || parts[0] != kUserHive) throw broken("no key or value of the user");
        row.kind = parts.size() == 2 ? TraceRow::Kind::Key : TraceRow::Kind::Value;
        row.path = parts[1];
        if (parts.size() == 3) row.value = parts[2];
    } else if (row.path.ends_with("\\")) {
        row.kind = TraceRow::Kind::Folder;
        row.path.pop_back();
    }
    if (fields.size() == 5) {
        if (row.kind != TraceRow::Kind::File) throw broken("attributes are for files");
        if (fields[4] == "hidden") {
            row.attributes = platform::attribute::Hidden;
        } else if (fields[4] == "readonly") {
            row.attributes = platform::attribute::ReadOnly;
        } else {
            throw broken("unknown attribute");
        }
    }
    return row;
}

}  // namespace

std::vector<std::string> deliveredPlugIns() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(kFolder)) {
        if (entry.path().extension() == ".tdp") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string deliveredPlugIn(const std::string& name) {
    std::ifstream file(fs::path(kFolder) / (name + ".tdp"), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<PlugInLine> linesOfPlugIn(const std::string& bytes) {
    std::vector<PlugInLine> lines;
    std::string section;
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t lineEnd = std::min(bytes.find("\r\n", start), bytes.size());
        const std::string line = bytes.substr(start, lineEnd - start);
        const std::size_t next = std::min(lineEnd + 2, bytes.size());
        const std::size_t sign = line.find('=');
        if (line.starts_with("[") && line.ends_with("]")) {
            section = line.substr(1, line.size() - 2);
        } else if (!line.empty()) {
            const std::string value = sign == std::string::npos ? std::string() : line.substr(sign + 1);
            lines.push_back({section, line.substr(0, sign), value, start, next});
        }
        start = next;
    }
    return lines;
}

std::vector<TraceRow> deliveredTraces() {
    std::ifstream file(kTable, std::ios::binary);
    if (!file) throw std::runtime_error("delivered_plug_ins.tsv cannot be read");
    std::vector<TraceRow> rows;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.front() != '#') rows.push_back(rowOf(line));
    }
    return rows;
}

}  // namespace tidvane::tests
