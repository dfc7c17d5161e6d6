#include "removal/paths.h"

#include "base/text.h"

namespace tidvane::removal {

namespace {
// From 1, as the rules below count; 1 without a backslash.
std::size_t lastBackslash(const std::string& path) {
    const std::size_t found = path.rfind('\\');
    return found == std::string::npos ? 1 : found + 1;
}
}  // namespace

std::string FolderOf(const std::string& Path) {
    const std::size_t position = lastBackslash(Path);
    // The third character, as in "C:\x".
    const bool ofDrive = position > 1 && base::characterCount(Path.substr(0, position)) == 3;
    return Path.substr(0, ofDrive ? position : position - 1);
}

std::string FileNameOf(const std::string& Path) {
    if (Path.rfind('\\') == std::string::npos) return Path.substr(base::byteOffset(Path, 1));
    return Path.substr(lastBackslash(Path));
}

std::string JoinPath(const std::string& Folder, const std::string& Name) {
    return Folder.ends_with(":\\") ? Folder + Name : Folder + "\\" + Name;
}

bool IsDirectoryAttr(int Attributes) {
    if (Attributes < 16) return false;
    for (int power = 8; power >= 4; --power) {
        const int bit = 1 << power;
        if (bit > Attributes) continue;
        if (power == 4) return true;
        Attributes -= bit;
    }
    return false;
}

}  // namespace tidvane::removal
