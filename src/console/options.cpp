#include "console/options.h"

#include "console/option_commands.h"

namespace tidvane::console {

namespace {

constexpr const char* kWordsFooter =
    "CONTROL is window.control (frmOptions.txtPurgeSpeed), or the control's name alone where only one window has it.\n"
    "GROUP is windows, ie, firefox, opera, chrome, safari, office, custom or search; NAME is a check box's name.\n"
    "A group that ticks chkIEINDepthCleanAll asks about it, since that clears all of Internet Explorer.\n";

struct Misuse {
    bool is;
    const char* sentence;
};

// What no option can tell by itself; the first that holds is said. Null: all is well.
const char* misuseOf(const Options& options) {
    const bool removes = options.command == Command::Cookies || options.command == Command::Cache;
    const ManagerOptions& manager = options.manager;
    const bool named = !manager.names.empty();
    for (const Misuse& misuse :
         {Misuse{options.preview && options.save, "A preview stores nothing; leave out --save or --preview."},
          Misuse{options.details && !options.preview, "--details is for a preview; add --preview or leave it out."},
          Misuse{options.showLog && !options.preview, "--log is for a preview; add --preview or leave it out."},
          Misuse{removes && manager.remove && !named && !manager.all, "Name what is to go, or give --all."},
          Misuse{removes && named && manager.all, "Give names or --all, not both."},
          Misuse{manager.cookies && !manager.all,
                 "--cookies is for --all; an entry that is named goes whatever it is."}}) {
        if (misuse.is) return misuse.sentence;
    }
    return nullptr;
}

// Empty: the words of the command line are none the less the problem. Where a command is missing and another word
// stands in its place, that word is what its user has to hear of.
std::string unknownCommand(const CLI::App& app, const CLI::ParseError& problem) {
    if (dynamic_cast<const CLI::RequiredError*>(&problem) == nullptr) return {};
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
    if (command->get_require_subcommand_min() == 0) return {};
    const std::vector<std::string> words = app.remaining(true);
    return words.empty() || words.front().starts_with('-') ? std::string() : words.front();
}

}  // namespace

const char* methodName(int row) {
    return row >= 0 && row < static_cast<int>(kMethods.size()) ? kMethods[static_cast<std::size_t>(row)] : "none";
}

std::optional<int> parseOptions(int count, const char* const* arguments, const std::string& version, Options& options,
                                std::ostream& out, std::ostream& err) {
    CLI::App app("Tidvane frees disk space and removes privacy traces from a Windows system.", "tidvane-console");
    app.footer(std::string(kWordsFooter) + kStatusFooter);
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", "tidvane-console " + version);
    app.add_option("--machine", options.machine, "The Windows system: a Wine prefix, or a machine made by this program")
        ->type_name("DIR")
        ->check(notEmpty());
    app.add_option("--program", options.program, "The program's own folder on this host")
        ->type_name("DIR")
        ->check(notEmpty());
    app.add_option("--arguments", options.arguments, "Text that /AUTO and /SILENT are searched in")->type_name("TEXT");

    for (const auto add :
         {addRun, addSearch, addLists, addPlugins, addCookies, addCache, addTasks, addSettings, addMachine}) {
        add(app, options);
    }

    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& problem) {
        if (const std::string word = unknownCommand(app, problem); !word.empty()) {
            err << "There is no command \"" << word << "\"; --help lists those that there are." << std::endl;
            return exit_status::Usage;
        }
        const int status = app.exit(problem, out, err);
        return status == 0 ? exit_status::Done : exit_status::Usage;
    }
    if (const char* sentence = misuseOf(options)) {
        err << sentence << std::endl;
        return exit_status::Usage;
    }
    return std::nullopt;
}

}  // namespace tidvane::console
