#include "platform/machine/machine_system.h"

#include <charconv>

#include "platform/machine/machine_environment.h"

namespace tidvane::platform::machine {

namespace {

constexpr const char* kNt = "Machine\\Software\\Microsoft\\Windows NT\\CurrentVersion";

// The leading number of a text; 0 if there is none.
int numberIn(std::string_view text) {
    int number = 0;
    (void)std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

int minorIn(const std::string& version) {
    const std::size_t dot = version.find('.');
    return dot == std::string::npos ? 0 : numberIn(std::string_view(version).substr(dot + 1));
}

void takeSign(const MachineRegistry& registry, const std::string& key, const char* name, char& sign) {
    const std::string text = registry.text(key, name).value_or("");
    if (text.size() == 1) sign = text[0];
}

void takeText(const MachineRegistry& registry, const std::string& key, const char* name, std::string& text) {
    const std::string found = registry.text(key, name).value_or("");
    if (!found.empty()) text = found;
}

}  // namespace

int trueMajorVersion(const MachineRegistry& registry) {
    const RegistryKeyPtr key = registry.key(kNt);
    const RegistryValue* major = key ? key->findValue("CurrentMajorVersionNumber") : nullptr;
    if (major != nullptr && major->type == 4 && major->data.size() == 4)
        return static_cast<unsigned char>(major->data[0]);
    return numberIn(registry.text(kNt, "CurrentVersion").value_or(""));
}

WindowsVersion windowsVersion(const MachineRegistry& registry) {
    WindowsVersion version;
    const std::string text = registry.text(kNt, "CurrentVersion").value_or("");
    if (text.empty()) {
        // Windows 95, 98 and ME keep their number elsewhere: "4.10.2222".
        const std::string old =
            registry.text("Machine\\Software\\Microsoft\\Windows\\CurrentVersion", "VersionNumber").value_or("");
        if (!old.empty()) {
            version.platformId = 1;
            version.major = numberIn(old);
            version.minor = minorIn(old);
            const std::size_t last = old.rfind('.');
            version.build = numberIn(std::string_view(old).substr(last == std::string::npos ? old.size() : last + 1));
            return version;
        }
    }
    version.major = trueMajorVersion(registry);
    version.minor = version.major > 6 ? 0 : minorIn(text);
    std::string build = registry.text(kNt, "CurrentBuildNumber").value_or("");
    if (build.empty()) build = registry.text(kNt, "CurrentBuild").value_or("");
    version.build = numberIn(build);
    version.servicePack = registry.text(kNt, "CSDVersion").value_or("");
    if (version.major > 6 || (version.major == 6 && version.minor > 2)) {
        version.major = 6;
        version.minor = 2;
        version.build = 9200;
    }
    return version;
}

int ansiCodePage(const MachineRegistry& registry) {
    const int number =
        numberIn(registry.text("Machine\\System\\CurrentControlSet\\Control\\Nls\\CodePage", "ACP").value_or(""));
    return number != 0 ? number : 1252;
}

base::Locale userLocale(const MachineRegistry& registry) {
    const std::string key = userKey(registry, "Control Panel\\International");
    std::string name = registry.text(key, "LocaleName").value_or("");
    if (name.empty()) name = registry.text(key, "Locale").value_or("");
    base::Locale locale = base::localeByName(name);
    // What the user changed by hand.
    takeSign(registry, key, "sDecimal", locale.decimal);
    takeSign(registry, key, "sThousand", locale.thousands);
    takeText(registry, key, "sShortDate", locale.shortDate);
    takeText(registry, key, "sTimeFormat", locale.longTime);
    takeText(registry, key, "sDate", locale.dateSeparator);
    takeText(registry, key, "sTime", locale.timeSeparator);
    takeText(registry, key, "s1159", locale.am);
    takeText(registry, key, "s2359", locale.pm);
    if (const std::string order = registry.text(key, "iDate").value_or(""); !order.empty()) {
        locale.dayBeforeMonth = order == "1";
        locale.yearFirst = order == "2";
    }
    return locale;
}

MachineSystem::MachineSystem(const MachineRegistry& registry, Environment& environment, std::string applicationPath,
                             std::string arguments)
    : applicationPath_(std::move(applicationPath)),
      arguments_(std::move(arguments)),
      version_(windowsVersion(registry)),
      userName_(environment.get("USERNAME").value_or("")),
      windows_(environment.get("SystemRoot").value_or("C:\\Windows")),
      codePage_(ansiCodePage(registry)),
      locale_(userLocale(registry)) {}

bool MachineSystem::groupMembers(const std::string& /*group*/, std::vector<std::string>& names) {
    names.clear();
    return false;
}

}  // namespace tidvane::platform::machine
