#include "platform/guard/guarded_registry.h"

#include <algorithm>

#include "platform/common/protected_keys.h"

namespace tidvane::platform {

namespace {

constexpr RegResult kDenied = 5;
constexpr RegResult kBadHandle = 6;

// Predefined handles also come sign-extended, as 64-bit programs pass them.
HKey plainHandle(HKey handle) {
    return (handle >> 32) == 0xFFFFFFFFu ? handle & 0xFFFFFFFFu : handle;
}

std::string hiveName(HKey hive) {
    switch (hive) {
        case HKEY_CLASSES_ROOT_:
            return "HKEY_CLASSES_ROOT";
        case HKEY_CURRENT_USER_:
            return "HKEY_CURRENT_USER";
        case HKEY_LOCAL_MACHINE_:
            return "HKEY_LOCAL_MACHINE";
        case HKEY_CURRENT_CONFIG_:
            return "HKEY_CURRENT_CONFIG";
        default:
            return "HKEY_USERS";
    }
}

}  // namespace

GuardedRegistry::Place GuardedRegistry::placeOf(HKey parent, const std::string& path) const {
    Place place;
    if (const auto at = places_.find(parent); at != places_.end()) {
        place = at->second;
        place.path += '\\';
    } else {
        place.hive = plainHandle(parent);
    }
    place.path += path.substr(0, path.find('\0'));  // the calls see no further
    return place;
}

bool GuardedRegistry::isThere(const Place& place, const std::string* valueName) {
    HKey key = 0;
    const std::size_t start = std::min(place.path.find_first_not_of('\\'), place.path.size());
    if (registry_.RegOpenKeyExA(place.hive, place.path.substr(start), kKeyQueryValue, key) != 0) return false;
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const bool there = valueName == nullptr || registry_.RegQueryValueExA(key, *valueName, type, nullptr, size) == 0;
    (void)registry_.RegCloseKey(key);
    return there;
}

bool GuardedRegistry::refused(HKey parent, const std::string& path, const std::string* valueName) {
    const Place place = placeOf(parent, path);
    if (!isProtectedKey(place.hive, place.path)) return false;
    if (isThere(place, valueName)) ++counter_.totals.failed;
    // The path may have been joined with backslashes too many.
    std::string target = hiveName(place.hive);
    bool separated = false;
    for (const char c : place.path) {
        if (c == '\\') {
            separated = false;
            continue;
        }
        if (!separated) target += '\\';
        separated = true;
        target += c;
    }
    if (warn_)
        warn_({WarningKind::ProtectedKey, target, "This registry key is protected and was not removed: " + target});
    return true;
}

bool GuardedRegistry::mayClearTree(HKey hive, const std::string& path) {
    return !refused(hive, path) && registry_.mayClearTree(hive, path);
}

RegResult GuardedRegistry::RegOpenKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key) {
    const Place place = placeOf(parent, path);
    const RegResult result = registry_.RegOpenKeyExA(parent, path, access, key);
    if (result == 0) places_[key] = place;
    return result;
}

RegResult GuardedRegistry::RegCreateKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key,
                                           bool& created) {
    const Place place = placeOf(parent, path);
    const RegResult result = registry_.RegCreateKeyExA(parent, path, access, key, created);
    if (result == 0) places_[key] = place;
    return result;
}

RegResult GuardedRegistry::RegCloseKey(HKey key) {
    places_.erase(key);
    return registry_.RegCloseKey(key);
}

RegResult GuardedRegistry::RegConnectRegistryA(const std::string& machine, HKey hive, HKey& key) {
    const RegResult result = registry_.RegConnectRegistryA(machine, hive, key);
    // The other machine's keys are as precious as this one's.
    if (result == 0) places_[key] = {plainHandle(hive), ""};
    return result;
}

RegResult GuardedRegistry::RegDeleteKeyA(HKey parent, const std::string& path) {
    if (parent == 0) return kBadHandle;
    return refused(parent, path) ? kDenied : registry_.RegDeleteKeyA(parent, path);
}

RegResult GuardedRegistry::SHDeleteKeyA(HKey parent, const std::string& path) {
    if (parent == 0) return kBadHandle;
    return refused(parent, path) ? kDenied : registry_.SHDeleteKeyA(parent, path);
}

RegResult GuardedRegistry::RegDeleteValueA(HKey key, const std::string& name) {
    if (key == 0) return kBadHandle;
    return refused(key, "", &name) ? kDenied : registry_.RegDeleteValueA(key, name);
}

RegResult GuardedRegistry::RegQueryValueExA(HKey key, const std::string& name, std::uint32_t& type, std::string* data,
                                            std::uint32_t& size) {
    return registry_.RegQueryValueExA(key, name, type, data, size);
}

RegResult GuardedRegistry::RegSetValueExA(HKey key, const std::string& name, std::uint32_t type,
                                          std::string_view data) {
    return registry_.RegSetValueExA(key, name, type, data);
}

RegResult GuardedRegistry::RegEnumKeyA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) {
    return registry_.RegEnumKeyA(key, index, room, name);
}

RegResult GuardedRegistry::RegEnumValueA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) {
    return registry_.RegEnumValueA(key, index, room, name);
}

RegResult GuardedRegistry::RegQueryInfoKeyA(HKey key, KeyInfo& info) {
    return registry_.RegQueryInfoKeyA(key, info);
}

}  // namespace tidvane::platform
