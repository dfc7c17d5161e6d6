#include "platform/common/registry_text_reader.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "platform/common/registry_text_values.h"
#include "platform/common/utf16.h"
#include "platform/registry_api.h"

namespace tidvane::platform {

namespace {

constexpr std::size_t kValuesToIndex = 16;  // below it a plain search is faster
constexpr std::size_t kCrowd = 1000;        // subkeys from which on one more is not put into its place at once
// More signs than the longest path of the deepest key can take.
constexpr std::size_t kLongestPath = kDeepestKey * (kLongestKeyName + 1) * 4;

std::string_view withoutLineEnd(std::string_view line) {
    if (line.ends_with('\n')) line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

void appendUnit(std::string& units, unsigned unit) {
    units.push_back(static_cast<char>(unit & 0xFF));
    units.push_back(static_cast<char>((unit >> 8) & 0xFF));
}

// One escape, `at` behind its backslash and moved behind the escape.
unsigned escapedUnit(std::string_view text, std::size_t& at) {
    const char letter = text[at++];
    switch (letter) {
        case 'a':
            return 7;
        case 'b':
            return 8;
        case 't':
            return 9;
        case 'n':
            return 10;
        case 'v':
            return 11;
        case 'f':
            return 12;
        case 'r':
            return 13;
        case 'e':
            return 27;
        case 'x': {
            unsigned unit = 0;
            std::size_t digits = 0;
            for (; digits < 4 && at < text.size() && hexValue(text[at]) >= 0; ++digits, ++at) {
                unit = unit * 16 + static_cast<unsigned>(hexValue(text[at]));
            }
            return digits == 0 ? 'x' : unit;
        }
        default:
            break;
    }
    if (letter < '0' || letter > '7') return static_cast<unsigned char>(letter);
    auto unit = static_cast<unsigned>(letter - '0');
    for (int digits = 1; digits < 3 && at < text.size() && text[at] >= '0' && text[at] <= '7'; ++digits, ++at) {
        unit = unit * 8 + static_cast<unsigned>(text[at] - '0');
    }
    return unit;
}

// Reads an escaped text up to the sign `end` into UTF-16LE and moves `at` behind that sign. False: the line has no end.
bool readEscaped(std::string_view line, std::size_t& at, char end, std::string& units) {
    while (at < line.size()) {
        if (line[at] == end) {
            ++at;
            return true;
        }
        if (line[at] == '\\') {
            if (++at >= line.size()) return false;
            appendUnit(units, escapedUnit(line, at));
        } else if (static_cast<unsigned char>(line[at]) < 0x80) {
            // Nearly all of a file is plain text: whole runs of it are widened at once.
            const char* const start = line.data() + at;
            const char* const lineEnd = line.data() + line.size();
            const char* run = start;
            while (run != lineEnd && *run != end && *run != '\\' && static_cast<unsigned char>(*run) < 0x80) ++run;
            const std::size_t before = units.size();
            units.resize(before + 2 * static_cast<std::size_t>(run - start), '\0');
            char* unit = units.data() + before;
            for (const char* sign = start; sign != run; ++sign, unit += 2) *unit = *sign;
            at += static_cast<std::size_t>(run - start);
        } else {
            const std::size_t start = at;
            (void)nextCodePoint(line, at);
            units += utf16leFromUtf8(line.substr(start, at - start));
        }
    }
    return false;
}

// The same into UTF-8. Names mostly have no escape and are taken as they are.
bool readEscapedName(std::string_view line, std::size_t& at, char end, std::string& name) {
    std::size_t plain = at;
    while (plain < line.size() && line[plain] != end && line[plain] != '\\' &&
           static_cast<unsigned char>(line[plain]) < 0x80) {
        ++plain;
    }
    if (plain < line.size() && line[plain] == end) {
        name = line.substr(at, plain - at);
        at = plain + 1;
        return true;
    }
    std::string units;
    if (!readEscaped(line, at, end, units)) return false;
    name = utf8FromUtf16le(units);
    return true;
}

std::optional<std::uint32_t> hexNumber(std::string_view digits) {
    std::uint32_t number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (failure != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

// "hex(b):" and "str(2):": the number in parentheses, and what stands behind the colon.
std::optional<std::uint32_t> typeInParentheses(std::string_view& rest) {
    const std::size_t close = rest.find("):");
    if (rest.empty() || rest.front() != '(' || close == std::string_view::npos) return std::nullopt;
    const auto type = hexNumber(rest.substr(1, close - 1));
    if (type) rest.remove_prefix(close + 2);
    return type;
}

}  // namespace

bool RegistryTextReader::fail(std::string text) {
    error_ = {line_, std::move(text)};
    return false;
}

std::string_view RegistryTextReader::takeLine() {
    const std::size_t end = text_.find('\n', at_);
    const std::size_t next = end == std::string_view::npos ? text_.size() : end + 1;
    const std::string_view line = text_.substr(at_, next - at_);
    at_ = next;
    ++line_;
    return line;
}

bool RegistryTextReader::read(RegistryTextError& error) {
    bool good = false;
    if (text_.find('\0') != std::string_view::npos || !readProlog()) {
        if (error_.text.empty()) fail("This is not a registry in text form.");
    } else if (text_.back() != '\n') {
        // Every writer of the format ends the last line: a file without that end lost its rest.
        line_ = static_cast<std::size_t>(std::count(text_.begin(), text_.end(), '\n')) + 1;
        fail("The file ends in the middle of a line.");
    } else {
        good = true;
        while (good && at_ < text_.size()) {
            const std::size_t start = at_;
            const std::string_view line = takeLine();
            const char first = line.front();
            if (first == '[') {
                good = readSectionHead(line);
            } else if (first == '"' || first == '@') {
                good = readValue(line);
                if (good) file_.items_.back().text = text_.substr(start, at_ - start);
            } else {
                if (withoutLineEnd(line) == "#link") key_->isLink = true;
                file_.items_.push_back({line, false, 0});
            }
        }
    }
    for (const auto& crowd : crowded_) crowd.first->sortChildren();
    error = error_;
    return good;
}

bool RegistryTextReader::readProlog() {
    if (withoutLineEnd(takeLine()) != kRegistryTextMark) return false;
    while (at_ < text_.size() && text_[at_] != '[') {
        const std::string_view line = withoutLineEnd(takeLine());
        constexpr std::string_view relative = ";; All keys relative to ";
        constexpr std::string_view architecture = "#arch=";
        if (line.starts_with(relative)) {
            const std::string_view place = line.substr(relative.size());
            std::size_t at = 0;
            std::string path;
            (void)readEscapedName(std::string(place) + '\n', at, '\n', path);
            // "\\Machine" and, since later versions, "REGISTRY\\Machine" as well.
            std::vector<std::string_view> parts = keyPathParts(path);
            if (!parts.empty() && foldedName(parts.front()) == "registry") parts.erase(parts.begin());
            for (const std::string_view part : parts) {
                if (!file_.place_.empty()) file_.place_ += '\\';
                file_.place_ += part;
            }
        } else if (line.starts_with(architecture)) {
            file_.architecture_ = line.substr(architecture.size());
        } else if (!line.empty() && line.front() != ';' && line.front() != '#') {
            return fail("There is a line before the first key that does not belong there.");
        }
    }
    file_.prolog_ = text_.substr(0, at_);
    return true;
}

bool RegistryTextReader::readSectionHead(std::string_view line) {
    std::size_t at = 1;
    std::string path;
    if (!readEscapedName(withoutLineEnd(line), at, ']', path)) return fail("A key has no closing bracket.");
    enterKey(path);
    if (!key_) return fail("A key lies deeper than the registry allows.");
    if (key_->origin == 0) {
        key_->origin = ++file_.keys_;
        sectionOfKey_.push_back(file_.sections_.size());
    } else {
        file_.sections_[sectionOfKey_[key_->origin]].lastOfKey = false;
        sectionOfKey_[key_->origin] = file_.sections_.size();
    }
    file_.sections_.push_back({line, key_->origin, file_.items_.size(), true});
    valueIndex_.clear();
    return true;
}

void RegistryTextReader::enterKey(const std::string& path) {
    const std::vector<std::string_view> parts =
        path.size() > kLongestPath ? std::vector<std::string_view>() : keyPathParts(path);
    if (path.size() > kLongestPath || parts.size() > kDeepestKey) {
        key_ = nullptr;
        return;
    }
    std::size_t shared = 0;
    while (shared < parts.size() && shared < way_.size() && parts[shared] == wayNames_[shared]) ++shared;
    way_.resize(shared);
    wayNames_.resize(shared);
    key_ = shared == 0 ? file_.root_ : way_.back();
    for (std::size_t i = shared; i < parts.size(); ++i) {
        key_ = child(*key_, parts[i]);
        way_.push_back(key_);
        wayNames_.emplace_back(parts[i]);
    }
}

RegistryKeyPtr RegistryTextReader::child(RegistryKey& parent, std::string_view name) {
    if (parent.children().size() < kCrowd) return parent.findOrAdd(name);
    auto& known = crowded_[&parent];
    if (known.empty()) {
        for (const RegistryKeyPtr& key : parent.children()) known.emplace(foldedName(key->name()), key);
    }
    RegistryKeyPtr& key = known[foldedName(name)];
    if (!key) key = parent.appendRead(std::string(name));
    return key;
}

bool RegistryTextReader::readValue(std::string_view line) {
    // The item is in place first: the value's origin is its number.
    file_.items_.push_back({line, false, 0});
    const std::string_view bare = withoutLineEnd(line);
    RegistryValue value;
    std::size_t at = 1;
    // A line that is no value after all is kept as it is.
    if (bare.front() == '"' && !readEscapedName(bare, at, '"', value.name)) return true;
    if (at >= bare.size() || bare[at] != '=') return true;
    bool known = true;
    if (!readData(bare.substr(at + 1), value, known)) return false;
    if (!known) {
        // Data in a form of a later version: the value can be listed and deleted, and is written back as it was.
        value.type = kRegNone;
        value.data.clear();
    }
    keepValue(std::move(value));
    return true;
}

bool RegistryTextReader::readData(std::string_view rest, RegistryValue& value, bool& known) {
    constexpr std::string_view dword = "dword:";
    if (rest.starts_with("hex")) {
        rest.remove_prefix(3);
        value.type = kRegBinary;
        if (rest.starts_with(':')) {
            rest.remove_prefix(1);
        } else if (const auto type = typeInParentheses(rest)) {
            value.type = *type;
        } else {
            known = false;
            return true;
        }
        return readHexData(rest, value.data, known);
    }
    if (rest.starts_with(dword)) {
        const auto number = hexNumber(rest.substr(dword.size()));
        known = number.has_value();
        value.type = kRegDword;
        for (int shift = 0; known && shift < 32; shift += 8)
            value.data.push_back(static_cast<char>((*number >> shift) & 0xFF));
        return true;
    }
    value.type = kRegSz;
    if (rest.starts_with("str")) {
        rest.remove_prefix(3);
        const auto type = typeInParentheses(rest);
        value.type = type.value_or(kRegSz);
        known = type.has_value();
    }
    std::size_t at = 1;
    value.data.reserve(rest.size() * 2);
    known = known && rest.starts_with('"') && readEscaped(rest, at, '"', value.data) && at == rest.size();
    value.data.append(2, '\0');
    return true;
}

bool RegistryTextReader::readHexData(std::string_view rest, std::string& data, bool& known) {
    for (;;) {
        bool goesOn = false;
        for (std::size_t i = 0; i < rest.size();) {
            if (rest[i] == ' ' || rest[i] == '\t' || rest[i] == ',') {
                ++i;
            } else if (rest[i] == '\\' && i + 1 == rest.size()) {
                goesOn = true;
                ++i;
            } else {
                const int high = hexValue(rest[i]);
                const int low = i + 1 < rest.size() ? hexValue(rest[i + 1]) : -1;
                if (high < 0) {
                    known = false;
                    i = rest.size() - (rest.ends_with('\\') && i + 1 < rest.size() ? 1 : 0);
                    continue;
                }
                data.push_back(static_cast<char>(low < 0 ? high : high * 16 + low));
                i += low < 0 ? 1 : 2;
            }
        }
        if (!goesOn) return true;
        if (at_ >= text_.size()) return fail("The file ends within a value.");
        rest = withoutLineEnd(takeLine());
    }
}

void RegistryTextReader::keepValue(RegistryValue value) {
    const auto number = static_cast<std::uint32_t>(file_.items_.size());
    file_.items_.back().isValue = true;
    value.origin = number;

    const auto& values = key_->values();
    std::size_t same = values.size();
    if (values.size() < kValuesToIndex) {
        if (const RegistryValue* const earlier = key_->findValue(value.name))
            same = static_cast<std::size_t>(earlier - values.data());
    } else {
        if (valueIndex_.empty()) {
            for (std::size_t i = 0; i < values.size(); ++i) valueIndex_.emplace(foldedName(values[i].name), i);
        }
        same = valueIndex_.try_emplace(foldedName(value.name), values.size()).first->second;
    }
    if (same == values.size()) {
        key_->addRead(std::move(value));
    } else {
        file_.items_[values[same].origin - 1].later = number - 1;
        key_->replaceRead(same, std::move(value));
    }
}

}  // namespace tidvane::platform
