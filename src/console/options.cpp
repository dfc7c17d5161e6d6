#include "console/options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <map>

namespace tidvane::console {

namespace {

constexpr std::array kMethods{"plain", "recycle", "overwrite"};

constexpr const char* kFooter =
    "CONTROL is window.control (frmOptions.txtPurgeSpeed), or the control's name alone where only one window has it.\n"
    "GROUP is windows, ie, firefox, opera, chrome, safari, office, custom or search; NAME is a check box's name.\n"
    "Exit status: 0 done, 2 usage, 3 stopped, 4 the machine cannot be used.";

// Repeatable, one value each: what follows the value is never taken for a second one.
CLI::Option* addRepeated(CLI::App* command, const char* name, std::vector<std::string>& values, const char* type,
                         const char* description) {
    return command->add_option(name, values, description)
        ->type_name(type)
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

// An option that takes a path, as often as it was given.
struct Named {
    const char* name;
    std::size_t count;
    const std::string& value;
};

}  // namespace

const char* methodName(int row) {
    return row >= 0 && row < static_cast<int>(kMethods.size()) ? kMethods[static_cast<std::size_t>(row)] : "none";
}

std::optional<int> parseOptions(int count, const char* const* arguments, const std::string& version, Options& options,
                                std::ostream& out, std::ostream& err) {
    CLI::App app("Tidvane frees disk space and removes privacy traces from a Windows system.", "tidvane-console");
    app.footer(kFooter);
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", "tidvane-console " + version);
    app.add_option("--machine", options.machine, "The Windows system: a Wine prefix, or a machine made by this program")
        ->type_name("DIR");
    app.add_option("--program", options.program, "The program's own folder on this host")->type_name("DIR");
    app.add_option("--arguments", options.arguments, "Text that /AUTO and /SILENT are searched in")->type_name("TEXT");

    CLI::App* run = app.add_subcommand("run", "Clean: set the settings, then press the clean button");
    std::string method;
    run->add_option("--method", method, "How files are removed")
        ->check(CLI::IsMember(std::vector<std::string>(kMethods.begin(), kMethods.end())))
        ->type_name("plain|recycle|overwrite");
    addRepeated(run, "--set", options.set, "CONTROL=VALUE", "Give a control a value");
    addRepeated(run, "--tick", options.tick, "NAME|GROUP|all", "Tick tasks");
    addRepeated(run, "--untick", options.untick, "NAME|GROUP|all", "Untick tasks");
    std::string answer;
    run->add_option("--answer", answer, "Answer to every question (no if not given)")
        ->check(CLI::IsMember({"yes", "no"}))
        ->type_name("yes|no");
    run->add_flag("--save", options.save, "Store the settings");
    run->add_option("--json", options.json, "Write what really happened to a file")->type_name("FILE");
    run->add_flag("--quiet", options.quiet, "No log on standard output");

    CLI::App* tasks = app.add_subcommand("tasks", "List the steps of a run and their ticks");
    CLI::App* settings = app.add_subcommand("settings", "List every stored control with its value");
    addRepeated(settings, "--set", options.set, "CONTROL=VALUE", "Give a control a value first");
    settings->add_flag("--save", options.save, "Store the settings");

    CLI::App* machine = app.add_subcommand("machine", "Create a machine, or tell about one");
    machine->require_subcommand(1);
    CLI::App* create = machine->add_subcommand("create", "Make a machine in a directory");
    create->add_option("DIR", options.directory, "A directory that does not exist yet or is empty")->required();
    create->add_flag("--sample", options.sample, "With traces for every task, to try the program on");
    CLI::App* info = machine->add_subcommand("info", "Tell what a machine is");
    for (CLI::App* command : {run, tasks, settings, machine, create, info}) command->fallthrough();

    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& problem) {
        const int status = app.exit(problem, out, err);
        return status == 0 ? exit_status::Done : exit_status::Usage;
    }
    for (const Named& option : {Named{"--machine", app.count("--machine"), options.machine},
                                Named{"--program", app.count("--program"), options.program},
                                Named{"--json", run->count("--json"), options.json},
                                Named{"The directory", create->count("DIR"), options.directory}}) {
        if (option.count == 0 || !option.value.empty()) continue;
        // Never taken for "not given": most likely a variable of a script that is not set.
        err << option.name << " is empty; give a path, or leave it out where there is a default." << std::endl;
        return exit_status::Usage;
    }
    if (tasks->parsed()) options.command = Command::Tasks;
    if (settings->parsed()) options.command = Command::Settings;
    if (create->parsed()) options.command = Command::MachineCreate;
    if (info->parsed()) options.command = Command::MachineInfo;
    for (std::size_t row = 0; row < kMethods.size(); ++row) {
        if (method == kMethods[row]) options.method = static_cast<int>(row);
    }
    options.answerYes = answer == "yes";
    return std::nullopt;
}

}  // namespace tidvane::console
