#include "console/machine_commands.h"

#include "frontend/machine_facts.h"
#include "frontend/sample/sample_machine.h"

namespace tidvane::console {

int machineCreateCommand(const Options& options, std::ostream& out, std::ostream& err) {
    std::string error;
    const bool made = options.sample ? frontend::createSample(options.directory, options.program, error)
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
    out << frontend::machineFacts(machine, programFolder) << std::flush;
    return exit_status::Done;
}

}  // namespace tidvane::console
