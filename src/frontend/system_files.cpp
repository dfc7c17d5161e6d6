#include "frontend/system_files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "base/text.h"
#include "platform/machine/directory_handle.h"
#include "platform/machine/whole_file.h"

namespace tidvane::frontend {

namespace machine = platform::machine;

namespace {

// How many bytes the character at the front has; 0: that is no character.
std::size_t lengthOfCharacter(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) return 1;
    const std::size_t length = first >= 0xF0 && first < 0xF5 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first >= 0xF5 || text.size() < length) return 0;
    unsigned code = first & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at) {
        const auto next = static_cast<unsigned char>(text[at]);
        if ((next & 0xC0U) != 0x80U) return 0;
        code = code << 6 | (next & 0x3FU);
    }
    const bool tooLong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool half = code >= 0xD800 && code < 0xE000;
    return tooLong || half || code > 0x10FFFF ? 0 : length;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 2) return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
    return first < 0x20 || first == 0x7F;
}

// The words of a VDF text, quoted or bare; a brace is a word of its own.
class VdfWords {
public:
    explicit VdfWords(std::string_view text) : text_(text) {}

    struct Word {
        std::string text;
        bool isBrace = false;
    };

    // Nothing: the text is at its end, or a quotation mark has no second.
    std::optional<Word> next() {
        skipBlanks();
        if (at_ == text_.size()) return std::nullopt;
        const char first = text_[at_];
        if (first == '{' || first == '}') return Word{std::string(1, text_[at_++]), true};
        return first == '"' ? quoted() : bare();
    }

private:
    void skipBlanks() {
        for (; at_ < text_.size(); ++at_) {
            if (text_.substr(at_, 2) == "//") at_ = std::min(text_.find('\n', at_), text_.size() - 1);
            if (std::string_view(" \t\r\n").find(text_[at_]) == std::string_view::npos) return;
        }
    }

    std::optional<Word> quoted() {
        Word word;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == '"') {
                ++at_;
                return word;
            }
            if (text_[at_] == '\\' && at_ + 1 < text_.size()) ++at_;
            word.text += text_[at_];
        }
        return std::nullopt;
    }

    Word bare() {
        const std::size_t end = std::min(text_.find_first_of(" \t\r\n\"{}", at_), text_.size());
        const std::size_t begin = std::exchange(at_, end);
        return {std::string(text_.substr(begin, end - begin))};
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

// Names with a text for a value, in their order, whatever block they stand in.
template <class Visit>
void forEachPair(std::string_view content, Visit visit) {
    VdfWords words(content);
    std::optional<std::string> name;
    while (const auto word = words.next()) {
        if (word->isBrace) {
            name.reset();
        } else if (!name) {
            name = word->text;
        } else {
            if (!visit(*name, word->text)) return;
            name.reset();
        }
    }
}

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string scalarOfYaml(std::string_view text) {
    text = base::trimBlanks(text);
    if (text.empty()) return {};
    const char quote = text.front();
    if (quote != '\'' && quote != '"') {
        return std::string(base::trimBlanks(text.substr(0, text.find(" #"))));
    }
    std::string value;
    for (std::size_t at = 1; at < text.size(); ++at) {
        const bool twice = quote == '\'' && text.substr(at, 2) == "''";
        if (text[at] == quote && !twice) return value;
        if (twice || (quote == '"' && text[at] == '\\' && at + 1 < text.size())) ++at;
        value += text[at];
    }
    return {};
}

// "\040" is a blank.
std::string withoutOctal(std::string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto digit = [&](std::size_t place) { return at + place < text.size() ? text[at + place] - '0' : -1; };
        const bool octal = text[at] == '\\' && digit(1) >= 0 && digit(1) < 4 && digit(2) >= 0 && digit(2) < 8 &&
                           digit(3) >= 0 && digit(3) < 8;
        if (!octal) {
            out += text[at];
            continue;
        }
        out += static_cast<char>(digit(1) * 64 + digit(2) * 8 + digit(3));
        at += 3;
    }
    return out;
}

std::string_view lineAt(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

}  // namespace

std::string readSmallFile(const std::string& path, std::uint64_t limit) {
    const machine::Handle file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info {};
    std::string bytes;
    if (!file || ::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return bytes;
    if (!platform::ok(machine::readWholeFile(file.get(), bytes, limit))) bytes.clear();
    return bytes;
}

std::string shownText(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = lengthOfCharacter(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0 || isControl(character)) {
            out += '?';
        } else {
            out += character;
        }
        text.remove_prefix(character.size());
    }
    return out;
}

std::vector<std::string> pathsInLibraryList(std::string_view content) {
    std::vector<std::string> paths;
    forEachPair(content, [&](const std::string& name, const std::string& value) {
        if ((base::equalNoCase(name, "path") || isNumber(name)) && value.starts_with('/')) paths.push_back(value);
        return true;
    });
    return paths;
}

std::string valueInVdf(std::string_view content, std::string_view name) {
    std::string found;
    forEachPair(content, [&](const std::string& candidate, const std::string& value) {
        if (!base::equalNoCase(candidate, name)) return true;
        found = value;
        return false;
    });
    return found;
}

std::string valueInYaml(std::string_view content, std::string_view name, YamlLevel level) {
    while (!content.empty()) {
        std::string_view line = lineAt(content);
        const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
        if (level == YamlLevel::Top && indent > 0) continue;
        line.remove_prefix(indent);
        if (!line.starts_with(name) || line.substr(name.size(), 1) != ":") continue;
        std::string value = scalarOfYaml(line.substr(name.size() + 1));
        if (!value.empty()) return value;
    }
    return {};
}

// number, parent, device, root, place, options, further fields up to "-", then type, source, options.
std::vector<Mount> mountsInTable(std::string_view content) {
    constexpr std::size_t kPlace = 4;
    std::vector<Mount> mounts;
    while (!content.empty()) {
        const std::vector<std::string> fields = base::split(lineAt(content), " ");
        const auto dash =
            std::find(fields.begin() + static_cast<std::ptrdiff_t>(std::min(kPlace, fields.size())), fields.end(), "-");
        if (fields.end() - dash < 3) continue;
        mounts.push_back({withoutOctal(fields[kPlace]), dash[1], withoutOctal(dash[2])});
    }
    return mounts;
}

}  // namespace tidvane::frontend
