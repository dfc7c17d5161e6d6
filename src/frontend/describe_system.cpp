#include <sys/statvfs.h>

#include "base/code_page.h"
#include "frontend/find_systems.h"
#include "frontend/machine_facts.h"
#include "platform/common/environment_in_map.h"
#include "platform/machine/machine.h"
#include "platform/machine/machine_environment.h"
#include "platform/machine/machine_system.h"

namespace tidvane::frontend {

namespace machine = platform::machine;

namespace {

void measure(const std::string& folder, SystemDetails& details) {
    struct statvfs volume {};
    if (::statvfs(folder.c_str(), &volume) != 0) return;
    details.freeBytes = std::uint64_t{volume.f_bavail} * volume.f_frsize;
    details.totalBytes = std::uint64_t{volume.f_blocks} * volume.f_frsize;
}

}  // namespace

SystemDetails describe(const FoundSystem& system) {
    SystemDetails details;
    measure(system.directory, details);
    if (system.kind == SystemKind::Volume) {
        details.problem = "This version cleans Wine prefixes and machines of its own; a Windows volume it only finds.";
        return details;
    }
    const auto opened = machine::Machine::open(system.directory, machine::Machine::Access::Read, details.problem);
    if (opened == nullptr) return details;
    details.canBeOpened = true;
    for (const machine::MachineDrive& drive : opened->drives()) {
        if (drive.letter == 'C') measure(drive.hostFolder, details);
    }
    const machine::MachineRegistry& registry = opened->registry();
    platform::EnvironmentInMap environment{base::CodePage(machine::ansiCodePage(registry))};
    machine::fillEnvironment(registry, environment);
    details.version = windowsName(registry);
    details.user = machine::MachineSystem(registry, environment, {}, {}).GetUserNameA();
    details.problem = opened->whyNotTaken();
    details.canBeCleaned = details.problem.empty();
    return details;
}

}  // namespace tidvane::frontend
