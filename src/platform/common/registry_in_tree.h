// The registry operations on a registry in memory, with the codes of Windows. What fills the tree and writes it back (a
// file format, a test) is the business of whoever owns it.
//
// HKEY_CLASSES_ROOT is HKEY_LOCAL_MACHINE\Software\Classes; the user's own classes are reached through
// HKEY_CURRENT_USER. HKEY_CURRENT_CONFIG is the current hardware profile below HKEY_LOCAL_MACHINE\System, and missing
// (2) where the machine has none: a hive that no running system has linked yet. Symbolic links are followed when a key
// is opened or read. Nothing is deleted through one: a key or value that was reached over a link is refused with 5, and
// the removal of a tree takes a link in it as a leaf. The links on the way to HKEY_CURRENT_CONFIG count as none where
// they end at a hardware profile of one of the control sets.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>

#include "base/code_page.h"
#include "platform/common/registry_tree.h"
#include "platform/registry_api.h"
#include "platform/removal_counter.h"

namespace tidvane::platform {

// What the owner of the tree says to a change: it must not be; it may be; it may be, of a tree that was read anew.
enum class ChangeLeave { Denied, Granted, ReadAnew };

class RegistryInTree : public RegistryApi {
public:
    RegistryInTree(RegistryTree& tree, RemovalCounter& removed, int codePage = 1252)
        : tree_(tree), removed_(removed), codePage_(codePage) {}

    // Called once, before the first operation on a key: large files are read when somebody asks for them.
    void loadOnFirstUse(std::function<void()> load) { load_ = std::move(load); }
    void setCodePage(int number) { codePage_ = base::CodePage(number); }
    // Asked in front of every change of the local tree, once it is clear that there is something to change. Denied: 5,
    // and nothing has changed.
    void askBeforeChange(std::function<ChangeLeave()> ask) { ask_ = std::move(ask); }
    // Puts another tree in the place of this one. Open handles lead to the keys of the same paths; to a deleted key
    // where there is none any more.
    void replaceTree(RegistryTree&& fresh);

    // Faults for tests: a key that no one may open, change or delete. True: it was there.
    bool deny(HKey hive, const std::string& path, bool denied = true);
    // Makes a remote machine reachable; `name` with its two leading backslashes.
    RegistryTree& addRemoteMachine(const std::string& name);

    RegResult RegOpenKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key) override;
    RegResult RegCreateKeyExA(HKey parent, const std::string& path, std::uint32_t access, HKey& key,
                              bool& created) override;
    RegResult RegCloseKey(HKey key) override;
    RegResult RegConnectRegistryA(const std::string& machine, HKey hive, HKey& key) override;
    RegResult RegDeleteKeyA(HKey parent, const std::string& path) override;
    RegResult SHDeleteKeyA(HKey parent, const std::string& path) override;
    RegResult RegDeleteValueA(HKey key, const std::string& name) override;
    RegResult RegQueryValueExA(HKey key, const std::string& name, std::uint32_t& type, std::string* data,
                               std::uint32_t& size) override;
    RegResult RegSetValueExA(HKey key, const std::string& name, std::uint32_t type, std::string_view data) override;
    RegResult RegEnumKeyA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) override;
    RegResult RegEnumValueA(HKey key, std::uint32_t index, std::uint32_t room, std::string& name) override;
    RegResult RegQueryInfoKeyA(HKey key, KeyInfo& info) override;

private:
    // A key and how it was come by.
    struct Place {
        RegistryKeyPtr key;
        std::uint32_t access = 0;
        bool throughLink = false;
        RegistryTree* tree = nullptr;
    };

    void load();
    RegResult placeOf(HKey handle, Place& place);
    static RegResult hivePlace(HKey hive, RegistryTree& tree, Place& place);
    static RegResult walk(const Place& from, std::string_view path, bool followLast, Place& to);
    static RegResult follow(Place& place);
    RegResult withRight(HKey handle, std::uint32_t right, Place& place);
    RegResult deleteTree(const RegistryKeyPtr& key, const RegistryTree& tree);
    void removeCounted(const RegistryKeyPtr& key, const RegistryTree& tree);
    void tellValue(const std::string& keyPath, const std::string& name) const;
    static std::string pathBelowRoot(const RegistryKey& key);
    static std::string shownPath(const RegistryKey& key, const RegistryTree& tree);
    RegResult refused();
    [[nodiscard]] ChangeLeave leaveFor(const Place& place) const;
    HKey newHandle(Place place);

    RegistryTree& tree_;
    RemovalCounter& removed_;
    base::CodePage codePage_;
    std::function<void()> load_;
    std::function<ChangeLeave()> ask_;
    std::unordered_map<HKey, Place> handles_;
    HKey nextHandle_ = 0x100;
    std::map<std::string, RegistryTree> remote_;
};

}  // namespace tidvane::platform
