// What a machine in a directory says about itself, from its registry.
#pragma once

#include <string>
#include <vector>

#include "platform/environment.h"
#include "platform/machine/machine_registry.h"
#include "platform/system_info.h"

namespace tidvane::platform::machine {

class MachineSystem final : public SystemInfo {
public:
    // `environment` is the machine's own. `applicationPath`: where the program's folder is mounted.
    MachineSystem(const MachineRegistry& registry, Environment& environment, std::string applicationPath,
                  std::string arguments);

    // What a program without a manifest gets: 6.2, build 9200, for everything newer.
    WindowsVersion GetVersionExA() override { return version_; }
    std::string GetUserNameA() override { return userName_; }
    // The members of local groups lie in a hive that a prefix does not have: no group can be bound.
    bool groupMembers(const std::string& group, std::vector<std::string>& names) override;
    std::string WindowsFolder() override { return windows_; }
    std::string SystemFolder() override { return windows_ + "\\System32"; }
    std::string ApplicationPath() override { return applicationPath_; }
    std::string ExecutableName() override { return "Tidvane"; }
    std::string CommandArguments() override { return arguments_; }
    int codePage() override { return codePage_; }
    const base::Locale& locale() override { return locale_; }
    std::string themeName() override { return {}; }

private:
    std::string applicationPath_;
    std::string arguments_;
    WindowsVersion version_;
    std::string userName_;
    std::string windows_;
    int codePage_ = 1252;
    base::Locale locale_;
};

WindowsVersion windowsVersion(const MachineRegistry& registry);
// The version as the registry has it, without the limit of what programs are told; 10.0 for Windows 10 and 11.
int trueMajorVersion(const MachineRegistry& registry);
int ansiCodePage(const MachineRegistry& registry);
base::Locale userLocale(const MachineRegistry& registry);

}  // namespace tidvane::platform::machine
