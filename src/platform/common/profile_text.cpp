#include "platform/common/profile_text.h"

#include <algorithm>

namespace tidvane::platform {
namespace {

using Text = std::string_view;

// The sign that ended files in old days counts as white space.
bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

Text trimStart(Text text) {
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    return text;
}

Text trim(Text text) {
    text = trimStart(text);
    while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
    return text;
}

// Of blanks alone one is left.
Text trimEndBlanks(Text text) {
    while (text.size() > 1 && text.back() == ' ') text.remove_suffix(1);
    return text;
}

Text withoutQuotes(Text text) {
    const bool quoted =
        text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
    return quoted ? text.substr(1, text.size() - 2) : text;
}

enum class Kind { Blank, Header, Comment, Key };

struct Line {
    Kind kind = Kind::Blank;
    Text name;   // of the header or the key; of a comment the text in front of "="
    Text value;  // behind "="
    bool hasValue = false;
    std::size_t start = 0;
    std::size_t valueStart = 0;  // behind "=", or the end of what is seen of a line without one
    std::size_t end = 0;         // behind the last byte in front of the line end
    std::size_t next = 0;        // behind the line end
};

class Lines {
public:
    explicit Lines(Text file)
        : file_(file),
          nextLf_(std::min(file.find('\n'), file.size())),
          nextCr_(std::min(file.find('\r'), file.size())) {}

    bool next(Line& line) {
        if (position_ >= file_.size()) return false;
        line = Line{};
        line.start = position_;
        // Each sign is looked for once: a file may hold only one of them.
        if (nextLf_ < position_) nextLf_ = std::min(file_.find('\n', position_), file_.size());
        if (nextCr_ < position_) nextCr_ = std::min(file_.find('\r', position_), file_.size());
        std::size_t end = std::min(nextLf_, nextCr_);
        line.end = end;
        if (end < file_.size()) end += file_.substr(end, 2) == "\r\n" ? 2 : 1;
        line.next = end;
        position_ = end;
        read(line, file_.substr(line.start, line.end - line.start));
        return true;
    }

private:
    void read(Line& line, Text text) const {
        const std::size_t seen = std::min(text.find('\0'), text.size());
        text = trim(text.substr(0, seen));
        if (text.empty()) return;
        if (text.front() == '[') {
            const std::size_t close = text.rfind(']');
            if (close != Text::npos) {
                line.kind = Kind::Header;
                line.name = trim(text.substr(1, close - 1));
                return;
            }
        }
        line.kind = text.front() == ';' ? Kind::Comment : Kind::Key;
        const std::size_t sign = text.find('=');
        line.hasValue = sign != Text::npos;
        line.name = trim(text.substr(0, sign));
        line.valueStart = line.start + seen;
        if (!line.hasValue) return;
        line.value = trim(text.substr(sign + 1));
        line.valueStart = static_cast<std::size_t>(text.data() - file_.data()) + sign + 1;
    }

    Text file_;
    std::size_t position_ = 0;
    std::size_t nextLf_;
    std::size_t nextCr_;
};

bool equal(Text a, Text b) {
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return upper(x) == upper(y); });
}

// A text in a buffer that also takes the closing NUL.
std::string cutText(Text text, std::size_t size) {
    const Text inner = withoutQuotes(text);
    std::size_t room = size == 0 ? 0 : size - 1;
    // Intended: the closing quote takes the place of the last byte of a quoted text that would just fit.
    if (inner.size() != text.size() && inner.size() == room && room > 0) --room;
    return std::string(inner.substr(0, room));
}

// A list is cut to two bytes less than the buffer, and needs two bytes more than its length not to be cut.
std::string cutList(std::string list, std::size_t size) {
    if (list.size() + 1 >= size) list.resize(size < 2 ? 0 : size - 2);
    return list;
}

void addName(std::string& list, Text name) {
    list += name;
    list += '\0';
}

bool endsLine(Text file) {
    return file.empty() || file.back() == '\n' || file.back() == '\r';
}

// A file with `middle` in place of the bytes from `start` to `end`, and with a line end behind its last line.
std::string replaced(Text file, std::size_t start, std::size_t end, Text middle) {
    std::string result;
    result.reserve(file.size() - (end - start) + middle.size() + 2);
    result.append(file.substr(0, start)).append(middle).append(file.substr(end));
    if (!endsLine(result)) result += "\r\n";
    return result;
}

std::string withoutSection(Text file, Text section) {
    Lines lines(file);
    Line line;
    bool inside = section.empty();
    std::size_t start = 0;
    while (lines.next(line)) {
        if (line.kind != Kind::Header) continue;
        if (inside) return replaced(file, start, line.start, {});
        inside = equal(line.name, section);
        start = line.start;
    }
    return inside ? std::string(file.substr(0, start)) : std::string(file);
}

// Looks into later sections of the name too.
std::string withoutKey(Text file, Text section, Text key) {
    Lines lines(file);
    Line line;
    bool inside = section.empty();
    while (lines.next(line)) {
        if (line.kind == Kind::Header) {
            inside = equal(line.name, section);
        } else if (inside && line.kind != Kind::Blank && equal(line.name, key)) {
            return replaced(file, line.start, line.next, {});
        }
    }
    return std::string(file);
}

// New names lose their blanks in front alone.
std::string withValue(Text file, Text section, Text key, Text value) {
    Lines lines(file);
    Line line;
    bool inside = trim(section).empty();
    std::size_t insertAt = 0;  // behind the last line of the section that is not blank
    while (lines.next(line)) {
        if (line.kind == Kind::Header) {
            if (inside) break;
            inside = equal(line.name, trim(section));
            if (inside) insertAt = line.next;
        } else if (inside && line.kind != Kind::Blank) {
            insertAt = line.next;
            if (!equal(line.name, trim(key))) continue;
            if (line.hasValue && line.value == value) return std::string(file);
            return replaced(file, line.valueStart, line.end,
                            line.hasValue ? std::string(value) : "=" + std::string(value));
        }
    }
    if (!inside) insertAt = file.size();
    std::string entry;
    if (insertAt == file.size() && !endsLine(file)) entry += "\r\n";
    if (!inside) entry.append("[").append(trimStart(section)).append("]\r\n");
    entry.append(trimStart(key)).append("=").append(value).append("\r\n");
    return replaced(file, insertAt, insertAt, entry);
}

}  // namespace

std::string profileString(std::string_view file, const std::optional<std::string>& section,
                          const std::optional<std::string>& key, std::string_view fallback, std::size_t size) {
    Lines lines(file);
    Line line;
    if (!section) {
        std::string names;
        while (names.size() < size && lines.next(line)) {
            if (line.kind == Kind::Header && !line.name.empty()) addName(names, line.name);
        }
        return cutList(std::move(names), size);
    }
    // The name of a section whose keys are listed is taken as it is.
    const Text wanted = key ? trim(*section) : Text(*section);
    const Text wantedKey = key ? trim(*key) : Text();
    std::string names;
    bool inside = wanted.empty();
    while (names.size() < size && lines.next(line)) {
        if (line.kind == Kind::Header) {
            if (inside) break;
            inside = equal(line.name, wanted);
        } else if (inside && !key) {
            if (line.kind == Kind::Key && line.hasValue) addName(names, line.name);
        } else if (inside && line.kind != Kind::Blank && equal(line.name, wantedKey)) {
            if (line.hasValue) return cutText(line.value, size);
            break;
        }
    }
    names = cutList(std::move(names), size);
    if (!names.empty() && names.front() != '\0') return names;
    return cutText(key ? trimEndBlanks(fallback) : fallback, size);
}

std::string profileSection(std::string_view file, std::string_view section, std::size_t size) {
    Lines lines(file);
    Line line;
    std::string list;
    bool inside = section.empty();
    while (list.size() < size && lines.next(line)) {
        if (line.kind == Kind::Header) {
            if (inside) break;
            inside = equal(line.name, section);
        } else if (inside && line.kind == Kind::Key) {
            list += line.name;
            if (line.hasValue) {
                list += '=';
                list += line.value;
            }
            list += '\0';
        }
    }
    return cutList(std::move(list), size);
}

std::string withProfileString(std::string_view file, std::string_view section, const std::optional<std::string>& key,
                              const std::optional<std::string>& value) {
    // Names to be removed are taken as they are, names to be written without their blanks.
    if (!key) return withoutSection(file, section);
    if (!value) return withoutKey(file, section, *key);
    return withValue(file, section, *key, trimStart(*value));
}

}  // namespace tidvane::platform
