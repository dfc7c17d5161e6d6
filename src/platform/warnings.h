// Where the platform tells that it refused something. The front end shows each as one line; the log does not change.
#pragma once

#include <functional>
#include <string>

namespace tidvane::platform {

enum class WarningKind {
    ProtectedPlace,      // a purge or a tree removal of a place that no one may empty
    ProtectedKey,        // the same for a registry key
    NotAbsolute,         // a path without a drive or share, or with an empty last part
    RemovedForGood,      // a second attempt removed what the recycle bin had refused
    RegistryLost,        // the registry could not be written back
    SettingsUnreadable,  // a state file is there and cannot be read
    Other,
};

struct Warning {
    WarningKind kind;
    std::string target;  // the path or key as it was given
    std::string text;    // one sentence in English
};

using WarningSink = std::function<void(const Warning&)>;

}  // namespace tidvane::platform
