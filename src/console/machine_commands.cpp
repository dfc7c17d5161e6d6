#include "console/machine_commands.h"

#include <array>

#include "console/sample_machine.h"
#include "platform/machine/machine_system.h"
#include "platform/machine/wine_server.h"

namespace tidvane::console {

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

}  // namespace

int machineCreateCommand(const Options& options, std::ostream& out, std::ostream& err) {
    std::string error;
    const bool made = options.sample ? createSample(options.directory, options.program, error)
                                     : platform::machine::Machine::create(options.directory, error);
    if (!made) {
        err << error << std::endl;
        return exit_status::MachineUnusable;
    }
    out << (options.sample ? "Sample machine" : "Machine") << " created in " << options.directory << std::endl;
    if (options.sample && !options.program.empty()) {
        out << "Own lists and ticked plug-ins for it in " << options.program << std::endl;
    }
    return exit_status::Done;
}

int machineInfoCommand(platform::machine::MachinePlatform& machine, const std::string& programFolder,
                       std::ostream& out) {
    const platform::Platform services = machine.platform();
    platform::SystemInfo& system = services.system;
    const platform::WindowsVersion version = system.GetVersionExA();
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
        << "Program folder:    " << programFolder << ", seen as " << system.ApplicationPath() << std::endl;
    return exit_status::Done;
}

}  // namespace tidvane::console
