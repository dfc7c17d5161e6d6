#include "view/text.h"

namespace tidvane::view {

namespace {

// How many bytes the character at this place has, and how many UTF-16 units it is. Broken UTF-8 counts bytewise.
struct Step {
    std::size_t bytes = 1;
    std::size_t units = 1;
};

Step stepAt(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    std::size_t bytes = 1;
    if (first >= 0xF0) {
        bytes = 4;
    } else if (first >= 0xE0) {
        bytes = 3;
    } else if (first >= 0xC0) {
        bytes = 2;
    }
    if (at + bytes > text.size()) return {};
    return {bytes, bytes == 4 ? std::size_t{2} : std::size_t{1}};
}

bool isLineEndPair(std::string_view text, std::size_t at) {
    return text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
}

}  // namespace

wxString toNative(std::string_view text) {
    wxString native = wxString::FromUTF8(text.data(), text.size());
    // Names of files may hold bytes that are no UTF-8; better a wrong letter than no text.
    if (native.empty() && !text.empty()) native = wxString(text.data(), wxConvISO8859_1, text.size());
    return native;
}

std::string fromNative(const wxString& text) {
    const wxScopedCharBuffer bytes = text.utf8_str();
    return {bytes.data(), bytes.length()};
}

wxString linesToNative(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r') {
            lines += text[at];
        } else {
            lines += '\n';
            if (isLineEndPair(text, at)) ++at;
        }
    }
    return toNative(lines);
}

std::string linesFromNative(const wxString& text) {
    const std::string lines = fromNative(text);
    std::string out;
    out.reserve(lines.size());
    for (const char sign : lines) {
        if (sign == '\n') out += '\r';
        out += sign;
    }
    return out;
}

long positionToNative(std::string_view text, std::size_t position) {
    long native = 0;
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size() && units < position; ++native) {
        if (isLineEndPair(text, at)) {
            at += 2;
            units += 2;
            continue;
        }
        const Step step = stepAt(text, at);
        at += step.bytes;
        units += step.units;
    }
    return native;
}

std::size_t positionFromNative(std::string_view text, long position) {
    std::size_t units = 0;
    std::size_t at = 0;
    for (long native = 0; at < text.size() && native < position; ++native) {
        if (isLineEndPair(text, at)) {
            at += 2;
            units += 2;
            continue;
        }
        const Step step = stepAt(text, at);
        at += step.bytes;
        units += step.units;
    }
    return units;
}

}  // namespace tidvane::view
