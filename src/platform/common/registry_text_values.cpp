#include "platform/common/registry_text_values.h"

#include <array>

#include "platform/common/registry_data.h"
#include "platform/common/utf16.h"
#include "platform/registry_api.h"

namespace tidvane::platform {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kLineWidth = 77;  // where hexadecimal data go on in the next line

// The letter behind the backslash for the control characters that have one; 0 for the others.
char escapeLetter(unsigned unit) {
    switch (unit) {
        case 7:
            return 'a';
        case 8:
            return 'b';
        case 9:
            return 't';
        case 10:
            return 'n';
        case 11:
            return 'v';
        case 12:
            return 'f';
        case 13:
            return 'r';
        case 27:
            return 'e';
        default:
            return 0;
    }
}

bool isHexDigit(unsigned unit) {
    return (unit >= '0' && unit <= '9') || (unit >= 'a' && unit <= 'f') || (unit >= 'A' && unit <= 'F');
}

// Escapes must not swallow what follows: they are padded when the next character could be one of their digits.
void appendEscapedUnits(std::string& out, std::string_view units, std::string_view special) {
    const auto unitAt = [&](std::size_t at) {
        return at + 1 < units.size()
                   ? static_cast<unsigned char>(units[at]) | (static_cast<unsigned char>(units[at + 1]) << 8)
                   : 0;
    };
    for (std::size_t at = 0; at + 1 < units.size(); at += 2) {
        const unsigned unit = static_cast<unsigned>(unitAt(at));
        const unsigned next = static_cast<unsigned>(unitAt(at + 2));
        if (unit >= 0x7F) {
            std::string digits = hexadecimal(unit);
            if (isHexDigit(next)) digits.insert(0, 4 - digits.size(), '0');
            out += "\\x" + digits;
        } else if (unit >= 0x20) {
            if (unit == '\\' || special.find(static_cast<char>(unit)) != std::string_view::npos) out += '\\';
            out += static_cast<char>(unit);
        } else if (const char letter = escapeLetter(unit); letter != 0) {
            out += '\\';
            out += letter;
        } else {
            const bool padded = next >= '0' && next <= '7';
            out += '\\';
            if (padded) out += '0';
            if (padded || unit >= 8) out += static_cast<char>('0' + (unit >> 3));
            out += static_cast<char>('0' + (unit & 7));
        }
    }
}

bool isClosedText(const RegistryValue& value) {
    const std::string& data = value.data;
    return isTextType(value.type) && data.size() >= 2 && data.size() % 2 == 0 && data[data.size() - 1] == '\0' &&
           data[data.size() - 2] == '\0';
}

void appendHexData(std::string& out, std::string_view data, std::size_t lineStart) {
    for (std::size_t i = 0; i < data.size(); ++i) {
        const auto byte = static_cast<unsigned char>(data[i]);
        out += kHexDigits[byte >> 4];
        out += kHexDigits[byte & 15];
        if (i + 1 == data.size()) break;
        out += ',';
        if (out.size() - lineStart >= kLineWidth) {
            out += "\\\n";
            lineStart = out.size();
            out += "  ";
        }
    }
}

}  // namespace

std::string hexadecimal(std::uint64_t number) {
    std::string digits;
    do {
        digits.insert(digits.begin(), kHexDigits[number & 15]);
        number >>= 4;
    } while (number != 0);
    return digits;
}

void appendEscaped(std::string& out, std::string_view text, std::string_view special) {
    appendEscapedUnits(out, utf16leFromUtf8(text), special);
}

void appendValueLine(std::string& out, const RegistryValue& value) {
    const std::size_t lineStart = out.size();
    if (value.name.empty()) {
        out += "@=";
    } else {
        out += '"';
        appendEscaped(out, value.name, "\"");
        out += "\"=";
    }
    if (isClosedText(value)) {
        if (value.type != kRegSz) out += "str(" + hexadecimal(value.type) + "):";
        out += '"';
        appendEscapedUnits(out, std::string_view(value.data).substr(0, value.data.size() - 2), "\"");
        out += '"';
    } else if (value.type == kRegDword && value.data.size() == 4) {
        out += "dword:";
        for (std::size_t i = 4; i-- > 0;) {
            const auto byte = static_cast<unsigned char>(value.data[i]);
            out += kHexDigits[byte >> 4];
            out += kHexDigits[byte & 15];
        }
    } else {
        out += value.type == kRegBinary ? std::string("hex:") : "hex(" + hexadecimal(value.type) + "):";
        appendHexData(out, value.data, lineStart);
    }
    out += '\n';
}

}  // namespace tidvane::platform
