// A registry in memory with what its classes need around it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/common/environment_in_map.h"
#include "platform/common/registry_data.h"
#include "platform/common/registry_in_tree.h"
#include "platform/guard/guarded_registry.h"
#include "platform/memory/memory_system.h"
#include "registry/registry_services.h"

namespace tidvane::registry {

using platform::HKEY_CLASSES_ROOT_;
using platform::HKEY_CURRENT_USER_;
using platform::HKEY_LOCAL_MACHINE_;
using platform::HKEY_USERS_;

class RegistryFixture : public testing::Test {
protected:
    // Keys of the current user are written without their hive: key("Software\\X").
    static std::string userPath(const std::string& path) { return "User\\S-1-5-21-0-0-0-1000\\" + path; }
    platform::RegistryKeyPtr key(const std::string& path) { return tree.find(userPath(path)); }
    platform::RegistryKeyPtr make(const std::string& path) { return tree.make(userPath(path)); }
    bool has(const std::string& path) { return key(path) != nullptr; }
    // A value as the ANSI calls show it, "type:bytes"; "none" when it is missing.
    std::string stored(const platform::RegistryKeyPtr& where, const std::string& name) {
        const platform::RegistryValue* const value = where ? where->findValue(name) : nullptr;
        if (value == nullptr) return "none";
        return std::to_string(value->type) + ":" + platform::ansiData(value->type, value->data, base::CodePage(1252));
    }

    platform::RegistryTree tree;
    platform::RemovalCounter removed;
    platform::RegistryInTree registry{tree, removed};
    platform::EnvironmentInMap environment;
    platform::MemorySystem system;
    RegistryServices services{registry, environment, system};
};

}  // namespace tidvane::registry
