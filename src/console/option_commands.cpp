#include "console/option_commands.h"

#include <algorithm>

namespace tidvane::console {

namespace {

void addMethod(CLI::App* command, Options& options) {
    command
        ->add_option_function<std::string>(
            "--method",
            [&options](const std::string& word) {
                for (std::size_t row = 0; row < kMethods.size(); ++row) {
                    if (word == kMethods[row]) options.method = static_cast<int>(row);
                }
            },
            "How files are removed")
        ->check(oneOf({kMethods.begin(), kMethods.end()}))
        ->type_name("plain|recycle|overwrite");
}

// What a run and a search have in common.
void addReporting(CLI::App* command, Options& options) {
    addAnswer(command, options);
    command->add_flag("--preview", options.preview, "Remove nothing: show what would go, step by step");
    command->add_flag("--details", options.details, "With --preview: every path too");
    command->add_flag("--log", options.showLog, "With --preview: the log in front of the table");
    command->add_option("--json", options.json, "Write what really happened to a file")
        ->type_name("FILE")
        ->check(notEmpty());
    command->add_flag("--quiet", options.quiet, "Nothing on standard output");
}

}  // namespace

CLI::App* addCommand(CLI::App& above, Options& options, Command command, const char* name, const char* description) {
    CLI::App* added = above.add_subcommand(name, description);
    added->fallthrough();
    added->callback([&options, command] { options.command = command; });
    return added;
}

CLI::Option* addRepeated(CLI::App* command, const char* name, std::vector<std::string>& values, const char* type,
                         const char* description) {
    return command->add_option(name, values, description)
        ->type_name(type)
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Validator notEmpty() {
    return {[](const std::string& path) {
                return path.empty()
                           ? std::string("this is empty; give a path, or leave it out where there is a default.")
                           : std::string();
            },
            ""};
}

CLI::Validator oneOf(const std::vector<std::string>& words) {
    return {[words](const std::string& word) {
                if (std::find(words.begin(), words.end(), word) != words.end()) return std::string();
                std::string choices;
                for (const std::string& each : words) choices += (choices.empty() ? "" : ", ") + each;
                return "\"" + word + "\" is none of: " + choices + ".";
            },
            ""};
}

void addAnswer(CLI::App* command, Options& options) {
    command
        ->add_option_function<std::string>(
            "--answer", [&options](const std::string& word) { options.answerYes = word == "yes"; },
            "Answer to every question (no if not given)")
        ->check(oneOf({"yes", "no"}))
        ->type_name("yes|no");
}

void addRun(CLI::App& app, Options& options) {
    CLI::App* run =
        addCommand(app, options, Command::Run, "run", "Clean: set the settings, then press the clean button");
    addMethod(run, options);
    addRepeated(run, "--set", options.set, "CONTROL=VALUE", "Give a control a value");
    addRepeated(run, "--tick", options.tick, "NAME|GROUP|all", "Tick tasks");
    addRepeated(run, "--untick", options.untick, "NAME|GROUP|all", "Untick tasks");
    addRepeated(run, "--plugin", options.plugins, "NAME", "Tick a plug-in for this run alone");
    run->add_flag("--save", options.save, "Store the settings");
    run->add_flag("--force", options.force, "Search with masks that match every file name too");
    addReporting(run, options);
}

void addSearch(CLI::App& app, Options& options) {
    CLI::App* search = addCommand(app, options, Command::Search, "search",
                                  "Remove all files of one type below a folder, as the search wizard does");
    search->footer(kStatusFooter);
    search->add_option("MASK", options.search.mask, "\"*.\" and an extension, as \"*.tmp\"")->required();
    search->add_option("--in", options.search.folder, "The folder on the machine, as \"C:\\Data\"")
        ->required()
        ->type_name("FOLDER");
    addMethod(search, options);
    addReporting(search, options);
}

void addTasks(CLI::App& app, Options& options) {
    addCommand(app, options, Command::Tasks, "tasks", "List the steps of a run and their ticks");
}

void addSettings(CLI::App& app, Options& options) {
    CLI::App* settings =
        addCommand(app, options, Command::Settings, "settings", "List every stored control with its value");
    addRepeated(settings, "--set", options.set, "CONTROL=VALUE", "Give a control a value first");
    settings->add_flag("--save", options.save, "Store the settings");
}

void addMachine(CLI::App& app, Options& options) {
    CLI::App* machine = app.add_subcommand("machine", "Create a machine, or tell about one");
    machine->fallthrough();
    machine->require_subcommand(1);
    CLI::App* create = addCommand(*machine, options, Command::MachineCreate, "create", "Make a machine in a directory");
    create->add_option("DIR", options.directory, "A directory that does not exist yet or is empty")
        ->required()
        ->check(notEmpty());
    create->add_flag("--sample", options.sample, "With traces for every task, to try the program on");
    addCommand(*machine, options, Command::MachineInfo, "info", "Tell what a machine is");
}

}  // namespace tidvane::console
