// The script host's registry operations, carried out through the registry calls.
#pragma once

#include <string>

#include "base/code_page.h"
#include "platform/registry_api.h"
#include "platform/script_host.h"

namespace tidvane::platform {

// Full names begin with a hive, long or short (HKCU, HKLM, HKCR), in any case, and a backslash; what is behind the last
// backslash names the value. A name that ends in a backslash means the key: its default value when writing.
class ScriptHostOnRegistry final : public ScriptHost {
public:
    ScriptHostOnRegistry(RegistryApi& registry, int codePage) : registry_(registry), codePage_(codePage) {}

    // Writes a REG_SZ and makes the key.
    bool RegWrite(const std::string& fullName, const std::string& text) override;
    // A key goes only when it has no subkeys.
    bool RegDelete(const std::string& fullName) override;

private:
    RegistryApi& registry_;
    base::CodePage codePage_;
};

}  // namespace tidvane::platform
