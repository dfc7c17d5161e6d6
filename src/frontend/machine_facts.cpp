#include "frontend/machine_facts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

#include "platform/machine/machine_system.h"
#include "platform/machine/wine_server.h"

namespace tidvane::frontend {

namespace {

namespace csidl = platform::csidl;

struct NamedFolder {
    const char* name;
    int number;
};
constexpr std::array kFolders{
    NamedFolder{"Application data", csidl::AppData},
    NamedFolder{"Local data", csidl::LocalAppData},
    NamedFolder{"Documents", csidl::Personal},
    NamedFolder{"Recent", csidl::Recent},
    NamedFolder{"Cookies", csidl::Cookies},
    NamedFolder{"History", csidl::History},
    NamedFolder{"Browser cache", csidl::InternetCache},
};

const char* driveTypeName(platform::DriveType type) {
    switch (type) {
        case platform::DriveType::Removable:
            return "removable";
        case platform::DriveType::Fixed:
            return "fixed";
        case platform::DriveType::Remote:
            return "network";
        case platform::DriveType::CdRom:
            return "CD-ROM";
        case platform::DriveType::RamDisk:
            return "RAM disk";
        default:
            return "unknown";
    }
}

struct WindowsName {
    const char* version;
    const char* name;
};
constexpr std::array kNames{
    WindowsName{"3.51", "NT 3.51"}, WindowsName{"4.0", "NT 4.0"}, WindowsName{"5.0", "2000"},
    WindowsName{"5.1", "XP"},       WindowsName{"5.2", "XP x64"}, WindowsName{"6.0", "Vista"},
    WindowsName{"6.1", "7"},        WindowsName{"6.2", "8"},      WindowsName{"6.3", "8.1"},
};
// Of those without NT.
constexpr std::array kOldNames{WindowsName{"4.0", "95"}, WindowsName{"4.10", "98"}, WindowsName{"4.90", "ME"}};

constexpr const char* kVersionKey = "Machine\\Software\\Microsoft\\Windows NT\\CurrentVersion";
constexpr int kTen = 10;
constexpr int kFirstBuildOfEleven = 22000;

template <class Names>
std::string named(const Names& names, const std::string& version) {
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const WindowsName& one) { return version == one.version; });
    return "Windows " + (found == names.end() ? version : std::string(found->name));
}

int numberOf(const std::string& text) {
    int number = 0;
    (void)std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

std::string windowsName(const platform::machine::MachineRegistry& registry) {
    const platform::WindowsVersion version = platform::machine::windowsVersion(registry);
    const std::string pack = version.servicePack.empty() ? std::string() : " " + version.servicePack;
    if (version.platformId == 1) {
        return named(kOldNames, std::to_string(version.major) + "." + std::to_string(version.minor)) + pack;
    }
    const int major = platform::machine::trueMajorVersion(registry);
    if (major < kTen) return named(kNames, registry.text(kVersionKey, "CurrentVersion").value_or("")) + pack;
    std::string build = registry.text(kVersionKey, "CurrentBuildNumber").value_or("");
    if (build.empty()) build = registry.text(kVersionKey, "CurrentBuild").value_or("");
    return "Windows " + std::to_string(numberOf(build) >= kFirstBuildOfEleven ? major + 1 : major) + pack;
}

std::string machineFacts(platform::machine::MachinePlatform& machine, const std::string& programFolder) {
    const platform::Platform services = machine.platform();
    platform::SystemInfo& system = services.system;
    const platform::WindowsVersion version = system.GetVersionExA();
    std::ostringstream out;
    out << "Directory:         " << machine.machine().directory() << "\n"
        << "Version:           " << version.major << "." << version.minor << " build " << version.build
        << (version.servicePack.empty() ? "" : ", " + version.servicePack) << " (as programs are told)\n"
        << "Major version:     " << platform::machine::trueMajorVersion(machine.machine().registry()) << "\n"
        << "User:              " << system.GetUserNameA() << "\n"
        << "Windows folder:    " << system.WindowsFolder() << "\n"
        << "Code page:         " << system.codePage() << "\n"
        << "Decimal sign:      " << system.locale().decimal << "\n"
        << "Temporary files:   " << services.shell.TemporaryFolder() << "\n";
    for (const NamedFolder& folder : kFolders) {
        const std::string name = std::string(folder.name) + ":";
        out << name << std::string(name.size() < 19 ? 19 - name.size() : 1, ' ')
            << services.shell.SpecialFolder(folder.number) << "\n";
    }
    for (const platform::Drive& drive : services.files.Drives()) {
        std::uint64_t free = 0;
        std::uint64_t total = 0;
        (void)services.files.GetDiskFreeSpaceExA(std::string{drive.letter, ':'}, free, total);
        out << "Drive " << drive.letter << ":           " << driveTypeName(drive.type) << ", " << free << " of "
            << total << " bytes free\n";
    }
    platform::RecycleBinInfo bin;
    (void)services.shell.SHQueryRecycleBinA("", bin);
    out << "Recycle bin:       " << bin.items << " item(s), " << bin.bytes << " bytes\n"
        << "Registry:          "
        << (platform::machine::hasWineServer(machine.machine().directory())
                ? "in use by a running Wine server; a run would be refused"
                : "not in use")
        << "\n"
        << "Program folder:    " << programFolder << ", seen as " << system.ApplicationPath() << "\n";
    return out.str();
}

}  // namespace tidvane::frontend
