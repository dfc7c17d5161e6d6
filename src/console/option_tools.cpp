#include "console/option_commands.h"

namespace tidvane::console {

namespace {

const std::vector<std::string> kLists{"folders", "files", "masks"};

void addListAction(CLI::App* lists, Options& options, ListsAction action, const char* name, const char* description) {
    CLI::App* command = addCommand(*lists, options, Command::Lists, name, description);
    command->callback([&options, action] {
        options.command = Command::Lists;
        options.lists.action = action;
    });
    CLI::Option* list = command->add_option("LIST", options.lists.list, "folders, files (registry keys too) or masks")
                            ->check(oneOf(kLists))
                            ->type_name("");
    if (action == ListsAction::Show) return;
    list->required();
    command->add_option("TEXT", options.lists.texts, "The entries")->required()->type_name("");
    addAnswer(command, options);
}

struct ManagerWords {
    Command command;
    const char* name;
    const char* description;
    const char* list;
    const char* remove;
    const char* positional;
    const char* shown;
    const char* all;
};

CLI::App* addManager(CLI::App& app, Options& options, const ManagerWords& words) {
    CLI::App* manager = app.add_subcommand(words.name, words.description);
    manager->fallthrough();
    manager->require_subcommand(1);
    manager->footer(kStatusFooter);
    addCommand(*manager, options, words.command, "list", words.list);
    CLI::App* remove = addCommand(*manager, options, words.command, "delete", words.remove);
    remove->callback([&options, &words] {
        options.command = words.command;
        options.manager.remove = true;
    });
    remove->add_option(words.positional, options.manager.names, words.shown)->type_name("");
    remove->add_flag("--all", options.manager.all, words.all);
    return remove;
}

constexpr ManagerWords kCookies{Command::Cookies,
                                "cookies",
                                "The cookie files of Internet Explorer",
                                "List them",
                                "Remove some of them, or all",
                                "NAME",
                                "As the command \"list\" shows it",
                                "All of them"};
constexpr ManagerWords kCache{Command::Cache,
                              "cache",
                              "The cache entries of Internet Explorer",
                              "List them: time of the last access (UTC), a bar, the address",
                              "Remove some of them, or all",
                              "URL",
                              "The address, which \"list\" shows behind the bar",
                              "All of them, those of cookies only with --cookies"};

}  // namespace

void addLists(CLI::App& app, Options& options) {
    CLI::App* lists = app.add_subcommand("lists", "The own folders, files and masks that a run removes");
    lists->fallthrough();
    lists->require_subcommand(1);
    lists->footer(
        std::string("A run cleans a list while its step is ticked: chkActivateOwnFolder, chkActivateOwnFiles, "
                    "chkSearchTasks.\n") +
        kStatusFooter);
    addListAction(lists, options, ListsAction::Show, "show", "Show one list, or all of them");
    addListAction(lists, options, ListsAction::Add, "add", "Add entries; stored at once, all of them or none");
    addListAction(lists, options, ListsAction::Remove, "remove", "Remove entries by their text; stored at once");
}

void addPlugins(CLI::App& app, Options& options) {
    CLI::App* plugins = addCommand(app, options, Command::Plugins, "plugins",
                                   "List the plug-ins with their ticks, change the ticks, or tell about one");
    plugins->footer(
        std::string("A tick is stored at once and holds for all later runs; \"run --plugin NAME\" ticks for "
                    "one run alone.\n") +
        kStatusFooter);
    addRepeated(plugins, "--tick", options.pluginList.tick, "NAME|all", "Tick a plug-in and store that");
    addRepeated(plugins, "--untick", options.pluginList.untick, "NAME|all", "Untick a plug-in and store that");
    addRepeated(plugins, "--info", options.pluginList.info, "NAME", "Show title, author, description and warning");
}

void addCookies(CLI::App& app, Options& options) {
    addManager(app, options, kCookies);
}

void addCache(CLI::App& app, Options& options) {
    CLI::App* remove = addManager(app, options, kCache);
    remove->add_flag("--cookies", options.manager.cookies, "With --all: the entries of cookies too");
}

}  // namespace tidvane::console
