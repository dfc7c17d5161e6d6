#include "platform/common/windows_path.h"

#include <algorithm>

#include "base/text.h"

namespace tidvane::platform {
namespace {

bool isSeparator(char sign) {
    return sign == '\\' || sign == '/';
}

bool isLetter(char sign) {
    return (sign >= 'A' && sign <= 'Z') || (sign >= 'a' && sign <= 'z');
}

char upperLetter(char sign) {
    return sign >= 'a' && sign <= 'z' ? static_cast<char>(sign - 'a' + 'A') : sign;
}

bool startsWithSeparators(std::string_view path) {
    return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

// Takes the next name off the front of `rest`, with the separators around it.
std::string_view takeName(std::string_view& rest) {
    while (!rest.empty() && isSeparator(rest.front())) rest.remove_prefix(1);
    std::size_t end = 0;
    while (end < rest.size() && !isSeparator(rest[end])) ++end;
    const std::string_view name = rest.substr(0, end);
    rest.remove_prefix(end);
    return name;
}

bool onlyBlanksAndDots(std::string_view name) {
    return name.find_first_not_of(" .") == std::string_view::npos;
}

}  // namespace

std::string WindowsPath::text() const {
    std::string result = root;
    if (names.empty()) return result + "\\";
    for (const std::string& name : names) result.append("\\").append(name);
    return result;
}

Status parseWindowsPath(std::string_view path, WindowsPath& parsed) {
    parsed = {};
    std::string_view rest = path;
    if (startsWithSeparators(rest)) {
        const std::string_view server = takeName(rest);
        const std::string_view name = takeName(rest);
        // "?" and "." lead to devices.
        if (server.empty() || server == "?" || onlyBlanksAndDots(server)) return Status::PathNotFound;
        if (name.empty() || onlyBlanksAndDots(name)) return Status::PathNotFound;
        parsed.root.append("\\\\").append(server).append("\\").append(name);
    } else {
        if (rest.size() < 3 || !isLetter(rest[0]) || rest[1] != ':' || !isSeparator(rest[2])) {
            return Status::PathNotFound;
        }
        parsed.root = {upperLetter(rest[0]), ':'};
        rest.remove_prefix(2);
    }
    parsed.emptyLastPart = rest.empty() || isSeparator(rest.back());
    while (!rest.empty()) {
        const std::string_view name = takeName(rest);
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (!parsed.names.empty()) parsed.names.pop_back();
        } else {
            parsed.names.emplace_back(name);
            if (rest.empty() && onlyBlanksAndDots(name)) parsed.emptyLastPart = true;
        }
    }
    // "C:\x\.." has come back to the root, which has no last part.
    if (parsed.names.empty()) parsed.emptyLastPart = true;
    return Status::Ok;
}

std::string comparableName(std::string_view name) {
    const std::size_t last = name.find_last_not_of(" .");
    return base::upperCase(name.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

bool isListable(std::string_view name) {
    return name.find_first_of("\\:*?") == std::string_view::npos;
}

bool isListable(const WindowsPath& path) {
    return std::all_of(path.names.begin(), path.names.end(),
                       [](const std::string& name) { return isListable(std::string_view(name)); });
}

bool isCreatableName(std::string_view name) {
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char sign) {
        return static_cast<unsigned char>(sign) < 0x20 ||
               std::string_view("<>:\"/\\|?*").find(sign) != std::string_view::npos;
    });
}

}  // namespace tidvane::platform
