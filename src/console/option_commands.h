// The commands of the command line, each with its options. What was read lands in the options handed in.
#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <string>
#include <vector>

#include "console/options.h"

namespace tidvane::console {

inline constexpr const char* kStatusFooter =
    "--machine DIR and --program DIR may stand behind the command too.\n"
    "Exit status: 0 done, 2 usage, 3 stopped, 4 the machine cannot be used, or something could not be removed or "
    "stored.";

// The words of --method, by the rows of cboKillMethod.
inline constexpr std::array kMethods{"plain", "recycle", "overwrite"};

// option_commands.cpp
void addRun(CLI::App& app, Options& options);
void addSearch(CLI::App& app, Options& options);
void addTasks(CLI::App& app, Options& options);
void addSettings(CLI::App& app, Options& options);
void addMachine(CLI::App& app, Options& options);
// option_tools.cpp
void addLists(CLI::App& app, Options& options);
void addPlugins(CLI::App& app, Options& options);
void addCookies(CLI::App& app, Options& options);
void addCache(CLI::App& app, Options& options);

// A command of its own: chosen, it notes itself. Options of the program may stand behind it too.
CLI::App* addCommand(CLI::App& above, Options& options, Command command, const char* name, const char* description);

// Repeatable, one value each: what follows the value is never taken for a second one.
CLI::Option* addRepeated(CLI::App* command, const char* name, std::vector<std::string>& values, const char* type,
                         const char* description);

// Of a path. An empty one is never taken for "not given": most likely a variable of a script is not set.
CLI::Validator notEmpty();

// One of these words; the help names them once, by the type.
CLI::Validator oneOf(const std::vector<std::string>& words);

// The answer that is given to every question.
void addAnswer(CLI::App* command, Options& options);

}  // namespace tidvane::console
