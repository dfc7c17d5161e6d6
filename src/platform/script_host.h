// The script host object "Wscript.Shell": registry values by full path.
#pragma once

#include <string>

namespace tidvane::platform {

class ScriptHost {
public:
    virtual ~ScriptHost() = default;
    // "HKEY_CURRENT_USER\...\name"; the key is created. False: not written.
    virtual bool RegWrite(const std::string& fullName, const std::string& text) = 0;
    // A missing value is false; a name that ends in a backslash is a key.
    virtual bool RegDelete(const std::string& fullName) = 0;
};

}  // namespace tidvane::platform
