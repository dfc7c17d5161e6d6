#include "console/console.h"

#include <filesystem>
#include <memory>

#include "console/commands.h"
#include "console/last_catch.h"
#include "console/machine_commands.h"
#include "console/options.h"
#include "frontend/open_machine.h"
#include "platform/machine/machine_platform.h"
#include "platform/machine/wine_server.h"

namespace tidvane::console {

namespace {

namespace machine = platform::machine;

int fail(std::ostream& err, const std::string& sentence) {
    err << sentence << std::endl;
    return exit_status::MachineUnusable;
}

using CommandFunction = int (*)(Session&, const Options&);

CommandFunction commandOf(const Options& options) {
    switch (options.command) {
        case Command::Tasks:
            return tasksCommand;
        case Command::Settings:
            return settingsCommand;
        case Command::Lists:
            return listsCommand;
        case Command::Plugins:
            return pluginsCommand;
        case Command::Search:
            return searchCommand;
        case Command::Cookies:
            return cookiesCommand;
        case Command::Cache:
            return cacheCommand;
        default:
            return runCommand;
    }
}

// Only what removes something changes the machine; all else looks, also while somebody else has it open.
machine::Machine::Access accessFor(const Options& options) {
    const bool removes =
        ((options.command == Command::Run || options.command == Command::Search) && !options.preview) ||
        options.manager.remove;
    return removes ? machine::Machine::Access::Write : machine::Machine::Access::Read;
}

// False: neither the options nor the environment tell where the machine and the program folder are.
bool fillInPlaces(Options& options) {
    if (options.machine.empty()) options.machine = frontend::defaultMachine();
    if (options.program.empty()) options.program = frontend::defaultProgramFolder();
    return !options.machine.empty() && !options.program.empty();
}

std::unique_ptr<machine::MachinePlatform> open(const Options& options, bool namedByUser, std::string& error) {
    std::error_code problem;
    if (!namedByUser && !std::filesystem::exists(options.machine, problem)) {
        error = "There is no machine in \"" + options.machine +
                "\" yet; create one with \"tidvane-console machine "
                "create '" +
                options.machine + "' --sample\", or name a Wine prefix with --machine.";
        return nullptr;
    }
    return frontend::openMachine(
        {options.machine, options.program, accessFor(options), options.arguments, options.preview}, error);
}

int dispatch(const Options& options, machine::MachinePlatform& platform, std::ostream& out, std::ostream& err) {
    if (options.command == Command::MachineInfo) return machineInfoCommand(platform, options.program, out);
    Session session{platform.platform(), platform.machine().directory(), out, err, {}, {}, options.preview};
    session.commit = [&platform](std::string& error) { return platform::ok(platform.commit(error)); };
    platform.setWarningSink([&session](const platform::Warning& warning) {
        // The registry's loss is what the command itself ends with.
        if (warning.kind != platform::WarningKind::RegistryLost && session.warn) session.warn(warning.text);
    });
    const int status = withLastCatch(session, [&] { return commandOf(options)(session, options); });
    platform.setWarningSink({});
    return status;
}

}  // namespace

int consoleMain(int count, const char* const* arguments, std::ostream& out, std::ostream& err) {
    Options options;
    if (const auto status = parseOptions(count, arguments, TIDVANE_VERSION, options, out, err)) return *status;
    if (options.command == Command::MachineCreate) return machineCreateCommand(options, out, err);
    const bool namedByUser = !options.machine.empty();
    if (!fillInPlaces(options)) {
        return fail(err, "Neither XDG_DATA_HOME nor HOME is set; name the places with --machine and --program.");
    }
    std::string error;
    const auto platform = open(options, namedByUser, error);
    if (platform == nullptr) return fail(err, error);
    if (options.preview && machine::hasWineServer(platform->machine().directory())) {
        err << "Warning: a running Wine server has the registry open; keys and values are shown as it stored them last."
            << std::endl;
    }
    return dispatch(options, *platform, out, err);
}

}  // namespace tidvane::console
