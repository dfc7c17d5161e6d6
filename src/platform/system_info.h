// What the machine says about itself.
#pragma once

#include <string>
#include <vector>

#include "base/locale.h"

namespace tidvane::platform {

// What GetVersionExA tells a program that does not announce itself for newer systems: nothing above 6.2.
struct WindowsVersion {
    int platformId = 2;  // 1: Windows 95, 98, ME; 2: NT
    int major = 0;
    int minor = 0;
    int build = 0;
    std::string servicePack;  // "Service Pack 3", or empty
};

class SystemInfo {
public:
    virtual ~SystemInfo() = default;
    virtual WindowsVersion GetVersionExA() = 0;
    // As the call fills its buffer, without the closing NUL; empty on failure.
    virtual std::string GetUserNameA() = 0;
    // Members of a local group, "WinNT://./<group>,group". False: the group cannot be bound.
    virtual bool groupMembers(const std::string& group, std::vector<std::string>& names) = 0;
    // "C:\Windows" and "C:\Windows\System32", without a trailing backslash.
    virtual std::string WindowsFolder() = 0;
    virtual std::string SystemFolder() = 0;
    // Where this program lies on the machine, without a trailing backslash, and its file name without ".exe".
    virtual std::string ApplicationPath() = 0;
    virtual std::string ExecutableName() = 0;
    // The raw argument text of this start.
    virtual std::string CommandArguments() = 0;
    virtual int codePage() = 0;
    virtual const base::Locale& locale() = 0;
    // GetCurrentThemeName: empty without a visual style.
    virtual std::string themeName() = 0;
};

}  // namespace tidvane::platform
