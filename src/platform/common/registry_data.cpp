#include "platform/common/registry_data.h"

#include "platform/common/utf16.h"
#include "platform/registry_api.h"

namespace tidvane::platform {

bool isTextType(std::uint32_t type) {
    return type == kRegSz || type == kRegExpandSz || type == kRegMultiSz;
}

std::string storedData(std::uint32_t type, std::string_view ansi, const base::CodePage& codePage) {
    if (!isTextType(type)) return std::string(ansi);
    std::string stored = utf16leFromUtf8(codePage.toUtf8(ansi));
    if (!ansi.empty() && ansi.back() != '\0') stored.append(2, '\0');
    return stored;
}

std::string ansiData(std::uint32_t type, std::string_view stored, const base::CodePage& codePage) {
    if (!isTextType(type)) return std::string(stored);
    return codePage.fromUtf8(utf8FromUtf16le(stored));
}

}  // namespace tidvane::platform
