#include "frontend/window_arguments.h"

#include <array>
#include <cstddef>

namespace tidvane::frontend {

namespace {

constexpr const char* kMachine = "--machine";
constexpr const char* kProgram = "--program";

struct Place {
    const char* option;
    std::string WindowArguments::*where;
};
constexpr std::array kPlaces{Place{kMachine, &WindowArguments::machine}, Place{kProgram, &WindowArguments::program}};

struct Switch {
    const char* option;
    bool WindowArguments::*what;
};
constexpr std::array kSwitches{Switch{"--help", &WindowArguments::help}, Switch{"-h", &WindowArguments::help},
                               Switch{"--version", &WindowArguments::version}};

}  // namespace

WindowArguments readWindowArguments(const std::vector<std::string>& words) {
    WindowArguments read;
    // False: the word at this place is no option.
    const auto takeOption = [&](std::size_t& at) {
        const std::string& word = words[at];
        for (const Switch& known : kSwitches) {
            if (word == known.option) return read.*known.what = true;
        }
        for (const Place& known : kPlaces) {
            const std::string joined = std::string(known.option) + "=";
            if (word == known.option) {
                const bool named = at + 1 < words.size();
                if (named) read.*known.where = words[++at];
            } else if (word.starts_with(joined)) {
                read.*known.where = word.substr(joined.size());
            } else {
                continue;
            }
            if ((read.*known.where).empty()) read.error = std::string(known.option) + " needs a folder behind it.";
            return true;
        }
        if (word.starts_with("--")) {
            read.error = "There is no option \"" + word + "\"; --help lists those that there are.";
            return true;
        }
        return false;
    };
    bool options = true;
    for (std::size_t at = 0; at < words.size() && read.error.empty(); ++at) {
        if (options && words[at] == "--") {
            options = false;
        } else if (!options || !takeOption(at)) {
            read.arguments += (read.arguments.empty() ? "" : " ") + words[at];
        }
    }
    return read;
}

const char* windowHelp() {
    return "Tidvane frees disk space and removes privacy traces from a Windows system.\n"
           "Usage: tidvane [--machine DIR] [--program DIR] [SWITCH]...\n"
           "\n"
           "  --machine DIR   The Windows system: a Wine prefix, or a machine made by this program. Without it a\n"
           "                  first window lists those that are found.\n"
           "  --program DIR   The program's own folder on this host, with its settings.\n"
           "  --help          Shows this text and ends.\n"
           "  --version       Shows the version and ends.\n"
           "  --              What follows are switches, whatever it looks like.\n"
           "\n"
           "All other words are the text that /AUTO and /SILENT are searched in.\n"
           "Status: 0 done, 2 wrong options, 4 the machine cannot be used.\n";
}

std::vector<std::string> wordsOfRestart(const std::string& machine, const std::string& program) {
    return {kMachine, machine, kProgram, program};
}

}  // namespace tidvane::frontend
