#include "platform/machine/machine_environment.h"

#include <array>

#include "base/text.h"

namespace tidvane::platform::machine {

namespace {

constexpr const char* kNt = "Machine\\Software\\Microsoft\\Windows NT\\CurrentVersion";
constexpr const char* kWindows = "Machine\\Software\\Microsoft\\Windows\\CurrentVersion";
constexpr const char* kProfiles = "Machine\\Software\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";
constexpr const char* kSystem = "Machine\\System\\CurrentControlSet\\Control\\Session Manager\\Environment";
constexpr const char* kComputer = "Machine\\System\\CurrentControlSet\\Control\\ComputerName\\ComputerName";

// Variables that no key of the user's may change.
bool isFixed(const std::string& name) {
    constexpr std::array kFixed = {"SystemDrive", "SystemRoot", "USERPROFILE", "USERNAME", "COMPUTERNAME"};
    for (const char* fixed : kFixed) {
        if (base::equalNoCase(name, fixed)) return true;
    }
    return false;
}

// The plain values first, then those that refer to them.
void takeKey(const MachineRegistry& registry, const std::string& path, Environment& environment) {
    const RegistryKeyPtr key = registry.key(path);
    if (!key) return;
    for (const std::uint32_t type : {1u, 2u}) {
        for (const RegistryValue& value : key->values()) {
            if (value.type != type || isFixed(value.name)) continue;
            std::string text = valueText(&value).value_or("");
            if (type == 2) text = expanded(environment, text);
            // The user's path goes behind the system's.
            if (base::equalNoCase(value.name, "PATH")) {
                const std::string before = environment.get("PATH").value_or("");
                if (!before.empty()) text.insert(0, ";").insert(0, before);
            }
            environment.set(value.name, text);
        }
    }
}

void setFolder(Environment& environment, const std::string& name, const std::string& registered,
               const std::string& usual) {
    environment.set(name, base::withoutBackslash(registered.empty() ? usual : registered));
}

std::string lastPart(const std::string& path) {
    return path.substr(path.find_last_of('\\') + 1);
}

}  // namespace

std::string userKey(const MachineRegistry& registry, const std::string& path) {
    return "User\\" + registry.userSid() + "\\" + path;
}

std::string expanded(Environment& environment, const std::string& text) {
    if (text.find('%') == std::string::npos) return text;
    std::string result;
    constexpr std::size_t kRoom = 32UL * 1024;
    return environment.ExpandEnvironmentStringsA(text, kRoom, result) <= kRoom ? result : text;
}

std::string expandedValue(const MachineRegistry& registry, Environment& environment, const std::string& key,
                          const std::string& name) {
    const std::string text = expanded(environment, registry.text(key, name).value_or(""));
    return text.find('%') == std::string::npos ? text : std::string();
}

void fillEnvironment(const MachineRegistry& registry, Environment& environment) {
    const auto value = [&](const std::string& key, const std::string& name) {
        return expandedValue(registry, environment, key, name);
    };
    setFolder(environment, "SystemRoot", registry.text(kNt, "SystemRoot").value_or(""), "C:\\Windows");
    environment.set("SystemDrive", environment.get("SystemRoot").value_or("C:").substr(0, 2));
    environment.set("windir", environment.get("SystemRoot").value_or(""));
    const std::string drive = environment.get("SystemDrive").value_or("C:");

    setFolder(environment, "ProgramFiles", value(kWindows, "ProgramFilesDir"), drive + "\\Program Files");
    if (const std::string x86 = value(kWindows, "ProgramFilesDir (x86)"); !x86.empty()) {
        environment.set("ProgramFiles(x86)", x86);
        environment.set("ProgramW6432", environment.get("ProgramFiles").value_or(""));
    }
    setFolder(environment, "CommonProgramFiles", value(kWindows, "CommonFilesDir"),
              environment.get("ProgramFiles").value_or("") + "\\Common Files");
    environment.set("COMPUTERNAME", value(kComputer, "ComputerName"));

    const bool vista = registry.text(kNt, "CurrentVersion").value_or("6") >= "6";
    const std::string profiles = value(kProfiles, "ProfilesDirectory");
    const std::string users =
        base::withoutBackslash(!profiles.empty() ? profiles : drive + (vista ? "\\Users" : "\\Documents and Settings"));
    const std::string allUsers = vista ? drive + "\\ProgramData" : users + "\\All Users";
    setFolder(environment, "ALLUSERSPROFILE", value(kProfiles, "ProgramData"), allUsers);
    if (vista) {
        environment.set("ProgramData", environment.get("ALLUSERSPROFILE").value_or(""));
        setFolder(environment, "PUBLIC", value(kProfiles, "Public"), users + "\\Public");
    }

    takeKey(registry, kSystem, environment);

    // Who the user is: what the last logon left, else the name of the profile's folder.
    const std::string session = userKey(registry, "Volatile Environment");
    std::string profile = value(std::string(kProfiles) + "\\" + registry.userSid(), "ProfileImagePath");
    if (profile.empty()) profile = value(session, "USERPROFILE");
    std::string user = value(session, "USERNAME");
    if (user.empty())
        user = value(userKey(registry, "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer"), "Logon User Name");
    if (user.empty()) user = lastPart(base::withoutBackslash(profile));
    if (profile.empty() && !user.empty()) profile = users + "\\" + user;
    profile = base::withoutBackslash(profile);
    environment.set("USERNAME", user);
    if (!profile.empty()) {
        environment.set("USERPROFILE", profile);
        environment.set("HOMEDRIVE", profile.substr(0, 2));
        environment.set("HOMEPATH", profile.size() > 2 ? profile.substr(2) : "\\");
        environment.set("APPDATA", profile + (vista ? "\\AppData\\Roaming" : "\\Application Data"));
        if (vista) environment.set("LOCALAPPDATA", profile + "\\AppData\\Local");
    }
    takeKey(registry, session, environment);
    takeKey(registry, userKey(registry, "Environment"), environment);
}

}  // namespace tidvane::platform::machine
