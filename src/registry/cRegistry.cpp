#include "registry/cRegistry.h"

#include <algorithm>
#include <utility>

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "base/utf8.h"

namespace tidvane::registry {

namespace {

constexpr std::int32_t kSetFailed = 26001;
constexpr std::int32_t kWriteFailed = static_cast<std::int32_t>(0x800469A9);
constexpr std::int32_t kOutOfStack = 28;

constexpr long kMoreData = 234;
constexpr long kBadType = 13;
constexpr std::uint32_t kSubKeyRoom = 255;  // a subkey name as long as this ends the enumeration: intended

// A key that is open as long as this lives.
class OpenKey {
public:
    explicit OpenKey(platform::RegistryApi& registry) : registry_(registry) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() {
        if (handle_ != 0) (void)registry_.RegCloseKey(handle_);
    }
    bool open(platform::HKey parent, const std::string& path, std::uint32_t access) {
        return registry_.RegOpenKeyExA(parent, path, access, handle_) == 0;
    }
    bool create(platform::HKey parent, const std::string& path) {
        bool created = false;
        return registry_.RegCreateKeyExA(parent, path, platform::kKeyAllAccess, handle_, created) == 0;
    }
    [[nodiscard]] platform::HKey get() const { return handle_; }

private:
    platform::RegistryApi& registry_;
    platform::HKey handle_ = 0;
};

// A text with two percent signs that have something between them may name a variable.
bool mayHoldVariable(const std::string& text) {
    const std::size_t first = text.find('%');
    return first != std::string::npos && first + 2 < text.size() && text.find('%', first + 2) != std::string::npos;
}

std::uint32_t littleEndian(const std::string& bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4 && i < bytes.size(); ++i) {
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return number;
}

std::uint32_t reversedBytes(std::uint32_t number) {
    return (number >> 24) | ((number >> 8) & 0xFF00) | ((number << 8) & 0xFF0000) | (number << 24);
}

// A byte array that is taken for a text holds UTF-16.
std::string textOfBytes(const ByteArray& bytes) {
    std::string text;
    const auto unitAt = [&](std::size_t i) { return static_cast<char32_t>(bytes[i] | (bytes[i + 1] << 8)); };
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t point = unitAt(i);
        if (point >= 0xD800 && point < 0xDC00 && i + 3 < bytes.size() && (unitAt(i + 2) & 0xFC00) == 0xDC00) {
            point = 0x10000 + ((point - 0xD800) << 10) + (unitAt(i + 2) - 0xDC00);
            i += 2;
        }
        base::appendUtf8(text, point);
    }
    return text;
}

}  // namespace

void cRegistry::raise(std::int32_t number, const std::string& description) const {
    throw base::RuntimeError(number, services_.system.ExecutableName() + ".cRegistry", description);
}

std::string cRegistry::setFailure() const {
    // The hive shows as the signed number it is; the value shown is the one cached before, not the new one: intended.
    return "Failed to set registry value Key: '" +
           base::numberText(static_cast<std::int64_t>(static_cast<std::int32_t>(classKey_))) + "',Section: '" +
           sectionKey_ + "',Key: '" + valueKey_ + "' to value: '" + textOf(cached_) + "'";
}

void cRegistry::setMachine(const std::string& sMachine) {
    if (base::characterCount(sMachine) < 3) {
        machine_.clear();
    } else {
        machine_ = sMachine.starts_with("\\\\") ? sMachine : "\\\\" + sMachine;
    }
}

bool cRegistry::KeyExists() {
    OpenKey key(services_.registry);
    return key.open(classKey_, sectionKey_, platform::kKeyQueryValue);
}

bool cRegistry::CreateKey() {
    OpenKey key(services_.registry);
    // The quotation mark at the end is missing: intended.
    if (!key.create(classKey_, sectionKey_)) raise(kSetFailed, "Failed to create registry Key: '" + sectionKey_);
    return true;
}

bool cRegistry::DeleteKey() {
    return services_.registry.RegDeleteKeyA(classKey_, sectionKey_) == 0;
}

bool cRegistry::DeleteValue() {
    OpenKey key(services_.registry);
    return key.open(classKey_, sectionKey_, platform::kKeyAllAccess) &&
           services_.registry.RegDeleteValueA(key.get(), valueKey_) == 0;
}

std::string cRegistry::expanded(const std::string& text) {
    std::string result;
    const std::size_t needed = services_.environment.ExpandEnvironmentStringsA(text, 0, result);
    (void)services_.environment.ExpandEnvironmentStringsA(text, needed, result);
    return result;
}

RegistryVariant cRegistry::Value() {
    platform::RegistryApi& registry = services_.registry;
    if (!machine_.empty()) {
        platform::HKey remote = 0;
        if (registry.RegConnectRegistryA(machine_, classKey_, remote) != 0) return default_;
        // The connection is not used any further: the local registry is read.
        (void)registry.RegCloseKey(remote);
    }
    OpenKey key(registry);
    (void)key.open(classKey_, sectionKey_, platform::kKeyQueryValue);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const long asked = registry.RegQueryValueExA(key.get(), valueKey_, type, nullptr, size);
    if (asked != 0 && asked != kMoreData) return default_;

    valueType_ = type;
    std::string bytes;
    (void)registry.RegQueryValueExA(key.get(), valueKey_, type, &bytes, size);
    const auto text = [&] {
        // One character less than there are bytes; a text stored without its NUL loses its last one: intended.
        return base::CodePage(services_.system.codePage())
            .toUtf8(std::string_view(bytes).substr(0, bytes.empty() ? 0 : bytes.size() - 1));
    };
    switch (valueType_) {
        case platform::kRegSz:
        case platform::kRegMultiSz:
            return text();
        case platform::kRegExpandSz:
            return expanded(text());
        case platform::kRegDword:
            return static_cast<std::int32_t>(littleEndian(bytes));
        case platform::kRegDwordBigEndian:
            return static_cast<std::int32_t>(reversedBytes(littleEndian(bytes)));
        default:
            return ByteArray(bytes.begin(), bytes.end());
    }
}

std::string cRegistry::textOf(const RegistryVariant& value) const {
    const base::Locale& locale = services_.system.locale();
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? locale.trueText : locale.falseText;
    if (const auto* number = std::get_if<std::int16_t>(&value))
        return base::numberText(static_cast<std::int64_t>(*number));
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return base::numberText(static_cast<std::int64_t>(*number));
    if (const auto* number = std::get_if<double>(&value)) return base::numberText(*number, locale);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* bytes = std::get_if<ByteArray>(&value)) return textOfBytes(*bytes);
    return {};
}

long cRegistry::write(platform::HKey key, const RegistryVariant& vValue) {
    platform::RegistryApi& registry = services_.registry;
    switch (valueType_) {
        case platform::kRegSz:
        case platform::kRegExpandSz: {
            const std::string text = textOf(vValue);
            const std::uint32_t type = mayHoldVariable(text) ? platform::kRegExpandSz : platform::kRegSz;
            const std::string bytes = base::CodePage(services_.system.codePage()).fromUtf8(text) + '\0';
            return registry.RegSetValueExA(key, valueKey_, type, bytes);
        }
        case platform::kRegBinary: {
            const auto* const bytes = std::get_if<ByteArray>(&vValue);
            if (bytes == nullptr) raise(kSetFailed, "");
            return registry.RegSetValueExA(key, valueKey_, platform::kRegBinary,
                                           std::string(bytes->begin(), bytes->end()));
        }
        case platform::kRegDword:
        case platform::kRegDwordBigEndian: {
            std::int32_t number = 0;
            if (const auto* wide = std::get_if<std::int32_t>(&vValue)) {
                number = *wide;
            } else if (const auto* narrow = std::get_if<std::int16_t>(&vValue)) {
                number = *narrow;
            } else {
                return 0;  // nothing is written, and that counts as success: intended
            }
            std::string bytes;
            for (int shift = 0; shift < 32; shift += 8) {
                bytes += static_cast<char>((static_cast<std::uint32_t>(number) >> shift) & 0xFF);
            }
            // Type 4 also where 5 was asked for: intended.
            return registry.RegSetValueExA(key, valueKey_, platform::kRegDword, bytes);
        }
        default:
            return kBadType;
    }
}

void cRegistry::setValue(const RegistryVariant& vValue) {
    platform::RegistryApi& registry = services_.registry;
    if (!machine_.empty()) {
        platform::HKey remote = 0;
        if (registry.RegConnectRegistryA(machine_, classKey_, remote) != 0) {
            // The default would be assigned instead, fail in the same way and so on until the stack is used up.
            raise(kOutOfStack, "Out of stack space");
        }
        (void)registry.RegCloseKey(remote);
    }
    OpenKey key(registry);
    if (!key.create(classKey_, sectionKey_)) raise(kSetFailed, setFailure());
    // Only exactly -1 counts as a failure, so a failed write passes silently: intended.
    if (write(key.get(), vValue) == -1) raise(kWriteFailed, setFailure());
    cached_ = vValue;
}

bool cRegistry::EnumerateValues(std::vector<std::string>& sKeyNames, int& iKeyCount) {
    sKeyNames.clear();
    iKeyCount = 0;
    platform::RegistryApi& registry = services_.registry;
    OpenKey key(registry);
    if (!key.open(classKey_, sectionKey_, platform::kKeyQueryValue)) return true;
    platform::RegistryApi::KeyInfo info;
    if (registry.RegQueryInfoKeyA(key.get(), info) != 0) return true;
    std::string name;
    for (std::uint32_t i = 0; registry.RegEnumValueA(key.get(), i, info.longestValueName + 1, name) == 0; ++i) {
        sKeyNames.push_back(name);
        ++iKeyCount;
    }
    return true;
}

bool cRegistry::EnumerateSections(std::vector<std::string>& sSect, int& iSectCount) {
    sSect.clear();
    iSectCount = 0;
    platform::RegistryApi& registry = services_.registry;
    OpenKey key(registry);
    if (!key.open(classKey_, sectionKey_, platform::kKeyEnumerateSubKeys)) return true;
    std::string name;
    for (std::uint32_t i = 0; registry.RegEnumKeyA(key.get(), i, kSubKeyRoom, name) == 0; ++i) {
        sSect.push_back(name);
        ++iSectCount;
    }
    return true;
}

void cRegistry::position(platform::HKey eKey, const std::string& sSectionKey, const std::string& sValueKey,
                         std::uint32_t eValueType, const RegistryVariant& vDefault) {
    classKey_ = eKey;
    sectionKey_ = sSectionKey;
    valueKey_ = sValueKey;
    valueType_ = eValueType;
    default_ = vDefault;
}

RegistryVariant cRegistry::ValueEx(platform::HKey eKey, const std::string& sSectionKey, const std::string& sValueKey,
                                   std::uint32_t eValueType, const RegistryVariant& vDefault) {
    position(eKey, sSectionKey, sValueKey, eValueType, vDefault);
    return Value();
}

void cRegistry::setValueEx(platform::HKey eKey, const std::string& sSectionKey, const std::string& sValueKey,
                           std::uint32_t eValueType, const RegistryVariant& vDefault, const RegistryVariant& NewValue) {
    position(eKey, sSectionKey, sValueKey, eValueType, vDefault);
    const auto* const text = std::get_if<std::string>(&NewValue);
    setValue(eValueType == platform::kRegSz && text != nullptr && text->empty() ? vDefault : NewValue);
}

}  // namespace tidvane::registry
