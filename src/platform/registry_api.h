// The registry, operation by operation, with the codes that Windows gives back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidvane::platform {

// A handle of a hive or of an opened key. 0 is never valid.
using HKey = std::uint64_t;

inline constexpr HKey HKEY_CLASSES_ROOT_ = 0x80000000u;
inline constexpr HKey HKEY_CURRENT_USER_ = 0x80000001u;
inline constexpr HKey HKEY_LOCAL_MACHINE_ = 0x80000002u;
inline constexpr HKey HKEY_USERS_ = 0x80000003u;
inline constexpr HKey HKEY_CURRENT_CONFIG_ = 0x80000005u;

inline constexpr std::uint32_t kRegNone = 0;
inline constexpr std::uint32_t kRegSz = 1;
inline constexpr std::uint32_t kRegExpandSz = 2;
inline constexpr std::uint32_t kRegBinary = 3;
inline constexpr std::uint32_t kRegDword = 4;
inline constexpr std::uint32_t kRegDwordBigEndian = 5;
inline constexpr std::uint32_t kRegLink = 6;
inline constexpr std::uint32_t kRegMultiSz = 7;
inline constexpr std::uint32_t kRegQword = 11;

// Access masks.
inline constexpr std::uint32_t kKeyQueryValue = 1;
inline constexpr std::uint32_t kKeyEnumerateSubKeys = 8;
inline constexpr std::uint32_t kKeyAllAccess = 63;

// Results: 0, or a Win32 error code. 2 not found, 5 denied, 6 bad handle, 87 bad parameter, 161 path with a leading
// backslash, 234 buffer too small, 259 no more entries, 1018 key marked for deletion.
using RegResult = long;

// Key paths and names are UTF-8 without a closing NUL. Value data are bytes as the ANSI calls see them: texts in the
// system's code page with their closing NUL. Names compare without regard to case. Values come in the order in which
// they were made, subkeys sorted.
class RegistryApi {
public:
    virtual ~RegistryApi() = default;

    virtual RegResult RegOpenKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key) = 0;
    virtual RegResult RegCreateKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key,
                                      bool& created) = 0;
    virtual RegResult RegCloseKey(HKey key) = 0;
    // `machine` with its two leading backslashes. 53: the machine cannot be reached.
    virtual RegResult RegConnectRegistryA(const std::string& machine, HKey hive, HKey& key) = 0;
    // One key without subkeys; 5 when it has some.
    virtual RegResult RegDeleteKeyA(HKey parent, const std::string& path) = 0;
    // The key with its whole tree; an empty path empties and removes the opened key itself.
    virtual RegResult SHDeleteKeyA(HKey parent, const std::string& path) = 0;
    virtual RegResult RegDeleteValueA(HKey key, const std::string& name) = 0;

    // Without `data` only type and size are asked for. `size`: in, room in bytes; out, bytes there are. 234: the room
    // is too small, nothing was copied.
    virtual RegResult RegQueryValueExA(HKey key, const std::string& name, std::uint32_t& type, std::string* data,
                                       std::uint32_t& size) = 0;
    virtual RegResult RegSetValueExA(HKey key, const std::string& name, std::uint32_t type, std::string_view data) = 0;

    // `room`: characters of the buffer, the NUL included. 234 when the name does not fit, 259 behind the last.
    virtual RegResult RegEnumKeyA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) = 0;
    virtual RegResult RegEnumValueA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) = 0;

    struct KeyInfo {
        std::uint32_t subKeys = 0;
        std::uint32_t longestSubKey = 0;  // characters, without the NUL
        std::uint32_t values = 0;
        std::uint32_t longestValueName = 0;  // characters, without the NUL
        std::uint32_t longestValue = 0;      // bytes
    };
    virtual RegResult RegQueryInfoKeyA(HKey key, KeyInfo& info) = 0;

    // Asked before a tree is emptied step by step, from its leaves up: the refusal of the last step, the key
    // itself, would come too late. False: nothing below this key may be touched (a protected place, already reported).
    virtual bool mayClearTree(HKey hive, const std::string& path) {
        (void)hive;
        (void)path;
        return true;
    }
};

}  // namespace tidvane::platform
