#include "support/reference.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

namespace tidvane::tests {

namespace {

constexpr std::size_t kFailuresShown = 20;

const char* otherDirectory() {
    const char* directory = std::getenv("TIDVANE_REFERENCE");
    return directory != nullptr && *directory != '\0' ? directory : nullptr;
}

int hexDigit(char sign) {
    if (sign >= '0' && sign <= '9') return sign - '0';
    if (sign >= 'a' && sign <= 'f') return sign - 'a' + 10;
    if (sign >= 'A' && sign <= 'F') return sign - 'A' + 10;
    return -1;
}

ReferenceRow::Field unescape(std::string_view raw) {
    if (raw == "\\N") return {"", true};
    ReferenceRow::Field field;
    for (std::size_t at = 0; at < raw.size(); ++at) {
        if (raw[at] != '\\') {
            field.text += raw[at];
            continue;
        }
        const char kind = ++at < raw.size() ? raw[at] : '\0';
        if (kind == 't') {
            field.text += '\t';
        } else if (kind == 'r') {
            field.text += '\r';
        } else if (kind == 'n') {
            field.text += '\n';
        } else if (kind == '\\') {
            field.text += '\\';
        } else if (kind == 'x' && at + 2 < raw.size() && hexDigit(raw[at + 1]) >= 0 && hexDigit(raw[at + 2]) >= 0) {
            field.text += static_cast<char>(hexDigit(raw[at + 1]) * 16 + hexDigit(raw[at + 2]));
            at += 2;
        } else if (kind == 'N') {
            field.text += "\\N";  // a null inside a longer field: its reader takes it apart
        } else {
            throw std::runtime_error("bad escape in: " + std::string(raw));
        }
    }
    return field;
}

std::vector<std::string_view> split(std::string_view line) {
    std::vector<std::string_view> fields;
    for (std::size_t start = 0;;) {
        const std::size_t end = line.find('\t', start);
        fields.push_back(line.substr(start, end - start));
        if (end == std::string_view::npos) return fields;
        start = end + 1;
    }
}

std::vector<ReferenceRow> readTable(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    if (!file || !std::getline(file, line) || !line.starts_with("# ")) {
        throw std::runtime_error("no reference table: " + path.string());
    }
    auto columns = std::make_shared<ReferenceRow::Columns>();
    for (const std::string_view name : split(std::string_view(line).substr(2))) {
        columns->emplace(name, columns->size());
    }
    std::vector<ReferenceRow> rows;
    while (std::getline(file, line)) {
        std::vector<ReferenceRow::Field> fields;
        for (const std::string_view raw : split(line)) fields.push_back(unescape(raw));
        if (fields.size() != columns->size()) throw std::runtime_error(path.string() + ": broken line: " + line);
        rows.emplace_back(columns, std::move(fields));
    }
    return rows;
}

}  // namespace

const ReferenceRow::Field& ReferenceRow::field(std::string_view column) const {
    const auto it = columns_->find(column);
    if (it == columns_->end()) throw std::out_of_range("no column " + std::string(column));
    return fields_[it->second];
}

bool otherReferenceInUse() {
    return otherDirectory() != nullptr;
}

std::vector<ReferenceRow> readReference(std::string_view file, std::string_view directory) {
    const char* other = otherDirectory();
    return readTable(std::filesystem::path(other != nullptr ? std::string_view(other) : directory) / file);
}

Decisions::Decisions(std::string_view file, std::string_view directory) {
    const std::filesystem::path path = std::filesystem::path(directory) / file;
    if (!std::filesystem::exists(path)) return;
    for (const ReferenceRow& row : readTable(path)) {
        if (row["reason"].empty()) throw std::runtime_error("decision without reason: " + row.id());
        if (!expected_.emplace(row.id(), row["expected"]).second) {
            throw std::runtime_error("decided twice: " + row.id());
        }
    }
}

const std::string* Decisions::expected(std::string_view id) const {
    const auto it = expected_.find(id);
    return it == expected_.end() ? nullptr : &it->second;
}

std::string Decisions::unknownIds(const std::vector<ReferenceRow>& rows) const {
    if (otherReferenceInUse()) return {};
    std::set<std::string_view> known;
    for (const ReferenceRow& row : rows) known.insert(row.id());
    std::string unknown;
    for (const auto& [id, expected] : expected_) {
        if (!known.contains(id)) unknown += "no row " + id + "\n";
    }
    return unknown;
}

void ReferenceCheck::compare(const ReferenceRow& row, const std::string& recorded, const std::string& actual) {
    ++compared_;
    const std::string* decided = decisions_.expected(row.id());
    if (decided != nullptr && equal_(recorded, *decided)) {
        failures_.push_back(row.id() + ": the decision agrees with the row");
        return;
    }
    const std::string& expected = decided != nullptr ? *decided : recorded;
    if (equal_(expected, actual)) return;
    failures_.push_back(row.id() + ": expected '" + escaped(expected) + "' got '" + escaped(actual) + "'" +
                        (decided != nullptr ? " (decided)" : "") + (row.note().empty() ? "" : " note: " + row.note()));
}

std::string ReferenceCheck::report() const {
    if (compared_ == 0) return "no row was compared";
    if (failures_.empty()) return {};
    std::string text = std::to_string(failures_.size()) + " of " + std::to_string(compared_) + " rows disagree:\n";
    const std::size_t shown = std::getenv("TIDVANE_ALL_FAILURES") != nullptr ? failures_.size() : kFailuresShown;
    for (std::size_t i = 0; i < failures_.size() && i < shown; ++i) text += failures_[i] + "\n";
    return text;
}

std::string escaped(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char sign : bytes) {
        const auto byte = static_cast<unsigned char>(sign);
        if (sign == '\\') {
            text += "\\\\";
        } else if (sign == '\t') {
            text += "\\t";
        } else if (sign == '\r') {
            text += "\\r";
        } else if (sign == '\n') {
            text += "\\n";
        } else if (byte < 0x20 || byte > 0x7E) {
            text += "\\x";
            text += digits[byte / 16];
            text += digits[byte % 16];
        } else {
            text += sign;
        }
    }
    return text;
}

}  // namespace tidvane::tests
