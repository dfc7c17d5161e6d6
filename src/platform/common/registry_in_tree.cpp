#include "platform/common/registry_in_tree.h"

#include <algorithm>
#include <utility>

#include "platform/common/registry_data.h"
#include "platform/common/utf16.h"

namespace tidvane::platform {

namespace {

constexpr RegResult kOk = 0;
constexpr RegResult kNotFound = 2;
constexpr RegResult kDenied = 5;
constexpr RegResult kBadHandle = 6;
constexpr RegResult kNoNetworkPath = 53;
constexpr RegResult kBadParameter = 87;
constexpr RegResult kBadPath = 161;
constexpr RegResult kMoreData = 234;
constexpr RegResult kNoMoreItems = 259;
constexpr RegResult kKeyDeleted = 1018;

constexpr std::uint32_t kSetValue = 2;
constexpr std::uint32_t kFullAccess = 0xF003F;
// MAXIMUM_ALLOWED and GENERIC_ALL give all there is; the generic read and write rights stand for their specific ones.
constexpr std::uint32_t kMaximumAllowed = 0x02000000;
constexpr std::uint32_t kGenericAll = 0x10000000;
constexpr std::uint32_t kGenericWrite = 0x40000000;
constexpr std::uint32_t kGenericRead = 0x80000000;
constexpr std::uint32_t kKeyRead = 0x20019;
constexpr std::uint32_t kKeyWrite = 0x20006;

constexpr std::string_view kClassesPath = "Machine\\Software\\Classes";
constexpr std::string_view kCurrentConfigPath =
    "System\\CurrentControlSet\\Hardware Profiles\\Current";  // of the machine

constexpr int kMostLinks = 16;  // one after the other; more is a circle

std::uint32_t specificRights(std::uint32_t access) {
    if ((access & (kMaximumAllowed | kGenericAll)) != 0) access |= kFullAccess;
    if ((access & kGenericRead) != 0) access |= kKeyRead;
    if ((access & kGenericWrite) != 0) access |= kKeyWrite;
    return access;
}

// Predefined handles also come sign-extended, as 64-bit programs pass them.
HKey plainHandle(HKey handle) {
    return (handle >> 32) == 0xFFFFFFFFu ? handle & 0xFFFFFFFFu : handle;
}

bool isPredefined(HKey handle) {
    return (handle >= HKEY_CLASSES_ROOT_ && handle <= HKEY_USERS_) || handle == HKEY_CURRENT_CONFIG_;
}

bool tooLong(std::string_view name) {
    // Units are never more than bytes.
    return name.size() > kLongestKeyName && utf16Length(name) > kLongestKeyName;
}

// Machine\System\<control set>\Hardware Profiles\<one name>.
bool isHardwareProfile(const RegistryKey& key, const RegistryTree& tree) {
    const RegistryKey* const profiles = key.parent();
    if (profiles == nullptr || foldedName(profiles->name()) != "hardware profiles") return false;
    const RegistryKey* const controlSet = profiles->parent();
    if (controlSet == nullptr) return false;
    const std::string setName = foldedName(controlSet->name());
    if (setName != "currentcontrolset" && !setName.starts_with("controlset")) return false;
    const RegistryKey* const system = controlSet->parent();
    return system != nullptr && foldedName(system->name()) == "system" && system->parent() == tree.machine().get();
}

std::string_view untilNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

}  // namespace

void RegistryInTree::load() {
    if (load_) std::exchange(load_, nullptr)();
}

bool RegistryInTree::deny(HKey hive, const std::string& path, bool denied) {
    Place place;
    if (placeOf(hive, place) != kOk || walk(place, path, false, place) != kOk) return false;
    place.key->denied = denied;
    return true;
}

RegistryTree& RegistryInTree::addRemoteMachine(const std::string& name) {
    return remote_.try_emplace(foldedName(name)).first->second;
}

RegResult RegistryInTree::hivePlace(HKey hive, RegistryTree& tree, Place& place) {
    place = {nullptr, kFullAccess, false, &tree};
    switch (hive) {
        case HKEY_CLASSES_ROOT_:
            place.key = tree.find(kClassesPath);
            return place.key ? kOk : kNotFound;
        case HKEY_CURRENT_USER_:
            place.key = tree.currentUser();
            break;
        case HKEY_LOCAL_MACHINE_:
            place.key = tree.machine();
            break;
        case HKEY_USERS_:
            place.key = tree.users();
            break;
        case HKEY_CURRENT_CONFIG_: {
            place.key = tree.machine();
            const RegResult result = walk(place, kCurrentConfigPath, true, place);
            // The links on that way are the system's own as long as they lead to a profile and not out of them.
            if (result == kOk && isHardwareProfile(*place.key, tree)) place.throughLink = false;
            return result;
        }
        default:
            return kBadHandle;
    }
    return kOk;
}

// The path below the root, without it.
std::string RegistryInTree::pathBelowRoot(const RegistryKey& key) {
    if (key.parent() == nullptr) return {};
    return pathBelowRoot(*key.parent()) + "\\" + key.name();
}

void RegistryInTree::replaceTree(RegistryTree&& fresh) {
    for (auto& [handle, place] : handles_) {
        if (place.tree != &tree_ || place.key->deleted) continue;
        if (const RegistryKeyPtr same = fresh.find(pathBelowRoot(*place.key))) {
            place.key = same;
        } else {
            place.key = std::make_shared<RegistryKey>(place.key->name());
            place.key->deleted = true;
        }
    }
    tree_ = std::move(fresh);
}

ChangeLeave RegistryInTree::leaveFor(const Place& place) const {
    return ask_ && place.tree == &tree_ ? ask_() : ChangeLeave::Granted;
}

RegResult RegistryInTree::placeOf(HKey handle, Place& place) {
    load();
    handle = plainHandle(handle);
    if (isPredefined(handle)) return hivePlace(handle, tree_, place);
    const auto at = handles_.find(handle);
    if (at == handles_.end()) return kBadHandle;
    if (at->second.key->deleted) return kKeyDeleted;
    place = at->second;
    return kOk;
}

// Goes on from a link to the key it names: "\Registry\Machine\..." or "\Registry\User\...".
RegResult RegistryInTree::follow(Place& place) {
    for (int links = 0; place.key->isLink; ++links) {
        const RegistryValue* const target = place.key->findValue("SymbolicLinkValue");
        if (target == nullptr || links >= kMostLinks) return kNotFound;
        const std::string text = utf8FromUtf16le(target->data);
        std::vector<std::string_view> parts = keyPathParts(text);
        if (parts.empty() || foldedName(parts.front()) != "registry") return kNotFound;
        RegistryKeyPtr key = place.tree->root();
        for (std::size_t i = 1; i < parts.size(); ++i) {
            // A link in the middle of a link's own path is not followed.
            key = key->find(parts[i]);
            if (!key) return kNotFound;
        }
        place.key = std::move(key);
        place.throughLink = true;
    }
    return kOk;
}

RegResult RegistryInTree::walk(const Place& from, std::string_view path, bool followLast, Place& to) {
    Place place = from;
    path = untilNul(path);
    if (!path.empty() && path.front() == '\\') return kBadPath;
    const std::vector<std::string_view> parts = keyPathParts(path);
    if (std::any_of(parts.begin(), parts.end(), tooLong)) return kBadParameter;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        RegistryKeyPtr child = place.key->find(parts[i]);
        if (!child) return kNotFound;
        place.key = std::move(child);
        if (i + 1 < parts.size() || followLast) {
            if (const RegResult result = follow(place); result != kOk) return result;
        }
    }
    to = std::move(place);
    return kOk;
}

RegResult RegistryInTree::withRight(HKey handle, std::uint32_t right, Place& place) {
    if (const RegResult result = placeOf(handle, place); result != kOk) return result;
    return (place.access & right) == right ? kOk : kDenied;
}

HKey RegistryInTree::newHandle(Place place) {
    const HKey handle = nextHandle_;
    nextHandle_ += 4;
    if (nextHandle_ >= HKEY_CLASSES_ROOT_) nextHandle_ = 0x100000000;  // behind the predefined ones
    handles_.emplace(handle, std::move(place));
    return handle;
}

RegResult RegistryInTree::RegOpenKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key) {
    key = 0;
    Place place;
    if (const RegResult result = placeOf(parent, place); result != kOk) return result;
    if (const RegResult result = walk(place, path, true, place); result != kOk) return result;
    if (place.key->denied) return kDenied;
    place.access = specificRights(access);
    key = newHandle(std::move(place));
    return kOk;
}

RegResult RegistryInTree::RegCreateKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key,
                                          bool& created) {
    key = 0;
    created = false;
    Place place;
    load();
    if (plainHandle(parent) == HKEY_CLASSES_ROOT_) tree_.make(kClassesPath);  // made at need
    if (const RegResult result = placeOf(parent, place); result != kOk) return result;
    const std::string_view wanted = untilNul(path);
    if (!wanted.empty() && wanted.front() == '\\') return kBadPath;
    const std::vector<std::string_view> parts = keyPathParts(wanted);
    if (std::any_of(parts.begin(), parts.end(), tooLong)) return kBadParameter;

    std::size_t there = 0;
    for (; there < parts.size(); ++there) {
        RegistryKeyPtr child = place.key->find(parts[there]);
        if (!child) break;
        place.key = std::move(child);
        if (const RegResult result = follow(place); result != kOk) return result;
    }
    if (place.key->denied) return kDenied;
    if (there < parts.size()) {
        if (place.key->depth() + parts.size() - there > kDeepestKey) return kBadParameter;
        // Below the roots' common root only files are mounted.
        if (place.key == place.tree->users()) return kBadParameter;
        const ChangeLeave leave = leaveFor(place);
        if (leave == ChangeLeave::Denied) return kDenied;
        if (leave == ChangeLeave::ReadAnew) return RegCreateKeyExA(parent, path, access, key, created);
        for (; there < parts.size(); ++there) place.key = place.key->findOrAdd(parts[there]);
        place.key->markChanged();
        created = true;
    }
    place.access = specificRights(access);
    key = newHandle(std::move(place));
    return kOk;
}

RegResult RegistryInTree::RegCloseKey(HKey key) {
    if (isPredefined(plainHandle(key))) return kOk;
    return handles_.erase(key) == 1 ? kOk : kBadHandle;
}

RegResult RegistryInTree::RegConnectRegistryA(const std::string& machine, HKey hive, HKey& key) {
    key = 0;
    const auto at = remote_.find(foldedName(untilNul(machine)));
    if (at == remote_.end()) return kNoNetworkPath;
    Place place;
    if (const RegResult result = hivePlace(plainHandle(hive), at->second, place); result != kOk) return result;
    key = newHandle(std::move(place));
    return kOk;
}

// A target that was there and stays.
RegResult RegistryInTree::refused() {
    ++removed_.totals.failed;
    return kDenied;
}

void RegistryInTree::removeCounted(const RegistryKeyPtr& key, const RegistryTree& tree) {
    ++removed_.totals.keys;
    // What a link holds is where it leads, nothing of the user's.
    if (!key->isLink) removed_.totals.values += key->values().size();
    if (removed_.each) {
        const std::string path = shownPath(*key, tree);
        for (const RegistryValue& value : key->values()) {
            if (!key->isLink) tellValue(path, value.name);
        }
        removed_.each({RemovedKind::Key, path, 0});
    }
    key->remove();
}

void RegistryInTree::tellValue(const std::string& keyPath, const std::string& name) const {
    std::string path = keyPath;
    path.append("\\[").append(name).append("]");
    removed_.each({RemovedKind::Value, path, 0});
}

// As people name keys, whichever way one was come by.
std::string RegistryInTree::shownPath(const RegistryKey& key, const RegistryTree& tree) {
    if (&key == tree.currentUser().get()) return "HKEY_CURRENT_USER";
    if (&key == tree.machine().get()) return "HKEY_LOCAL_MACHINE";
    if (&key == tree.users().get()) return "HKEY_USERS";
    if (key.parent() == nullptr) return key.name();
    return shownPath(*key.parent(), tree) + "\\" + key.name();
}

RegResult RegistryInTree::RegDeleteKeyA(HKey parent, const std::string& path) {
    Place place;
    if (const RegResult result = placeOf(parent, place); result != kOk) return result;
    if (const RegResult result = walk(place, path, false, place); result != kOk) return result;
    if (place.throughLink || place.key->denied || place.key->isRoot || !place.key->children().empty()) return refused();
    const ChangeLeave leave = leaveFor(place);
    if (leave == ChangeLeave::Denied) return refused();
    if (leave == ChangeLeave::ReadAnew) return RegDeleteKeyA(parent, path);
    removeCounted(place.key, *place.tree);
    return kOk;
}

RegResult RegistryInTree::deleteTree(const RegistryKeyPtr& key, const RegistryTree& tree) {
    if (key->denied) return refused();
    while (!key->children().empty()) {
        // From the end: nothing has to be moved up.
        const RegistryKeyPtr child = key->children().back();
        if (const RegResult result = deleteTree(child, tree); result != kOk) return result;
    }
    if (key->isRoot) return refused();
    removeCounted(key, tree);
    return kOk;
}

RegResult RegistryInTree::SHDeleteKeyA(HKey parent, const std::string& path) {
    Place place;
    if (const RegResult result = placeOf(parent, place); result != kOk) return result;
    if (const RegResult result = walk(place, path, false, place); result != kOk) return result;
    if (place.throughLink) return refused();
    const ChangeLeave leave = leaveFor(place);
    if (leave == ChangeLeave::Denied) return refused();
    if (leave == ChangeLeave::ReadAnew) return SHDeleteKeyA(parent, path);
    return deleteTree(place.key, *place.tree);
}

RegResult RegistryInTree::RegDeleteValueA(HKey key, const std::string& name) {
    Place place;
    if (const RegResult result = placeOf(key, place); result != kOk) return result;
    const bool isThere = place.key->findValue(untilNul(name)) != nullptr;
    if ((place.access & kSetValue) == 0) return isThere ? refused() : kDenied;
    if (!isThere) return kNotFound;
    if (place.throughLink || place.key->denied) return refused();
    const ChangeLeave leave = leaveFor(place);
    if (leave == ChangeLeave::Denied) return refused();
    if (leave == ChangeLeave::ReadAnew) return RegDeleteValueA(key, name);
    if (removed_.each) tellValue(shownPath(*place.key, *place.tree), place.key->findValue(untilNul(name))->name);
    place.key->removeValue(untilNul(name));
    ++removed_.totals.values;
    return kOk;
}

RegResult RegistryInTree::RegQueryValueExA(HKey key, const std::string& name, std::uint32_t& type, std::string* data,
                                           std::uint32_t& size) {
    Place place;
    if (const RegResult result = withRight(key, kKeyQueryValue, place); result != kOk) return result;
    const RegistryValue* const value = place.key->findValue(untilNul(name));
    if (value == nullptr) return kNotFound;
    std::string bytes = ansiData(value->type, value->data, codePage_);
    type = value->type;
    const std::uint32_t room = size;
    size = static_cast<std::uint32_t>(bytes.size());
    if (data == nullptr) return kOk;
    if (room < size) return kMoreData;
    *data = std::move(bytes);
    return kOk;
}

RegResult RegistryInTree::RegSetValueExA(HKey key, const std::string& name, std::uint32_t type, std::string_view data) {
    Place place;
    if (const RegResult result = withRight(key, kSetValue, place); result != kOk) return result;
    if (place.key->denied) return kDenied;
    const std::string_view wanted = untilNul(name);
    if (wanted.size() > kLongestValueName && utf16Length(wanted) > kLongestValueName) return kBadParameter;
    std::string bytes = storedData(type, data, codePage_);
    const RegistryValue* const there = place.key->findValue(wanted);
    if (there != nullptr && there->type == type && there->data == bytes) return kOk;
    const ChangeLeave leave = leaveFor(place);
    if (leave == ChangeLeave::Denied) return kDenied;
    if (leave == ChangeLeave::ReadAnew) return RegSetValueExA(key, name, type, data);
    place.key->set(wanted, type, std::move(bytes));
    return kOk;
}

RegResult RegistryInTree::RegEnumKeyA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) {
    Place place;
    if (const RegResult result = withRight(key, kKeyEnumerateSubKeys, place); result != kOk) return result;
    if (index >= place.key->children().size()) return kNoMoreItems;
    const std::string& found = place.key->children()[index]->name();
    if (codePage_.encodedLength(found) + 1 > room) return kMoreData;
    name = found;
    return kOk;
}

RegResult RegistryInTree::RegEnumValueA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) {
    Place place;
    if (const RegResult result = withRight(key, kKeyQueryValue, place); result != kOk) return result;
    if (index >= place.key->values().size()) return kNoMoreItems;
    const std::string& found = place.key->values()[index].name;
    if (codePage_.encodedLength(found) + 1 > room) return kMoreData;
    name = found;
    return kOk;
}

RegResult RegistryInTree::RegQueryInfoKeyA(HKey key, KeyInfo& info) {
    info = {};
    Place place;
    // No right is asked for: the reference answers also on a handle that may neither query nor enumerate.
    if (const RegResult result = placeOf(key, place); result != kOk) return result;
    info.subKeys = static_cast<std::uint32_t>(place.key->children().size());
    for (const RegistryKeyPtr& child : place.key->children()) {
        info.longestSubKey = std::max(info.longestSubKey, static_cast<std::uint32_t>(utf16Length(child->name())));
    }
    info.values = static_cast<std::uint32_t>(place.key->values().size());
    for (const RegistryValue& value : place.key->values()) {
        info.longestValueName = std::max(info.longestValueName, static_cast<std::uint32_t>(utf16Length(value.name)));
        // Bytes of the stored form: a text counts two for each character, as Windows tells it.
        info.longestValue = std::max(info.longestValue, static_cast<std::uint32_t>(value.data.size()));
    }
    return kOk;
}

}  // namespace tidvane::platform
