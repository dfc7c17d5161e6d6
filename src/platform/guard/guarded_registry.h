// A registry in which the keys that no one may empty cannot be deleted or emptied: such a call answers 5, changes
// nothing and is reported. Keys below them are deleted as ever.
//
// It stands in front of every platform's registry. A delete on the null handle ends here, so that a failed open can
// never turn into the removal of something else.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>

#include "platform/registry_api.h"
#include "platform/removal_counter.h"
#include "platform/warnings.h"

namespace tidvane::platform {

class GuardedRegistry final : public RegistryApi {
public:
    // A refused target that is there counts as failed. The sink may be empty.
    GuardedRegistry(RegistryApi& registry, RemovalCounter& counter, WarningSink warn)
        : registry_(registry), counter_(counter), warn_(std::move(warn)) {}

    void setSink(WarningSink warn) { warn_ = std::move(warn); }

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
    bool mayClearTree(HKey hive, const std::string& path) override;

private:
    // Where a handle leads: a hive and the path below it.
    struct Place {
        HKey hive = 0;
        std::string path;
    };
    [[nodiscard]] Place placeOf(HKey parent, const std::string& path) const;
    // With `valueName` only that value was to go.
    [[nodiscard]] bool refused(HKey parent, const std::string& path, const std::string* valueName = nullptr);
    [[nodiscard]] bool isThere(const Place& place, const std::string* valueName);

    RegistryApi& registry_;
    RemovalCounter& counter_;
    WarningSink warn_;
    std::unordered_map<HKey, Place> places_;
};

}  // namespace tidvane::platform
