// What the memory machine says about itself: every answer is a field.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/system_info.h"

namespace tidvane::platform {

class MemorySystem final : public SystemInfo {
public:
    WindowsVersion version{2, 6, 1, 7601, "Service Pack 1"};
    std::string userName = "Anna";
    std::map<std::string, std::vector<std::string>> groups;  // a group that is missing here cannot be bound
    std::string windowsFolder = "C:\\Windows";
    std::string systemFolder = "C:\\Windows\\System32";
    std::string applicationPath = "C:\\Program Files\\Tidvane";
    std::string executableName = "Tidvane";
    std::string commandArguments;
    int codePageNumber = 1252;
    base::Locale systemLocale = base::englishLocale();
    std::string theme;

    WindowsVersion GetVersionExA() override { return version; }
    std::string GetUserNameA() override { return userName; }
    bool groupMembers(const std::string& group, std::vector<std::string>& names) override {
        const auto found = groups.find(group);
        if (found == groups.end()) return false;
        names = found->second;
        return true;
    }
    std::string WindowsFolder() override { return windowsFolder; }
    std::string SystemFolder() override { return systemFolder; }
    std::string ApplicationPath() override { return applicationPath; }
    std::string ExecutableName() override { return executableName; }
    std::string CommandArguments() override { return commandArguments; }
    int codePage() override { return codePageNumber; }
    const base::Locale& locale() override { return systemLocale; }
    std::string themeName() override { return theme; }
};

}  // namespace tidvane::platform
