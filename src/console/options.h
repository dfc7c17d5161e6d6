// The command line of tidvane-console, read and checked as far as it can be without a machine.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tidvane::console {

// What the process answers with.
namespace exit_status {
inline constexpr int Done = 0;
inline constexpr int Usage = 2;
inline constexpr int Stopped = 3;
inline constexpr int MachineUnusable = 4;
}  // namespace exit_status

enum class Command { Run, Search, Lists, Plugins, Cookies, Cache, Tasks, Settings, MachineCreate, MachineInfo };

enum class ListsAction { Show, Add, Remove };

// lists
struct ListsOptions {
    ListsAction action = ListsAction::Show;
    std::string list;  // "folders", "files", "masks"; empty: all of them
    std::vector<std::string> texts;
};

// plugins
struct PluginsOptions {
    std::vector<std::string> tick;
    std::vector<std::string> untick;
    std::vector<std::string> info;
};

// search
struct SearchOptions {
    std::string mask;
    std::string folder;
};

// cookies, cache
struct ManagerOptions {
    bool remove = false;             // else: list
    std::vector<std::string> names;  // of cookies; addresses of cache entries
    bool all = false;
    bool cookies = false;  // cache: entries of cookies too
};

struct Options {
    Command command = Command::Run;

    // Common. Empty: the place in the user's data directory.
    std::string machine;
    std::string program;
    std::string arguments;  // the raw text that the documented switches are searched in

    // run; `set` and `save` for settings too, `method`, `answerYes`, `quiet`, `json` and the preview for search too.
    std::optional<int> method;  // a row of cboKillMethod
    std::vector<std::string> set;
    std::vector<std::string> tick;
    std::vector<std::string> untick;
    bool answerYes = false;
    bool save = false;
    bool quiet = false;
    std::string json;
    std::vector<std::string> plugins;  // ticked for this run alone
    bool force = false;                // with masks that match every name too
    bool preview = false;
    bool details = false;
    bool showLog = false;  // of a preview

    ListsOptions lists;
    PluginsOptions pluginList;
    SearchOptions search;
    ManagerOptions manager;

    // machine create
    std::string directory;
    bool sample = false;
};

// The words of --method, by the rows of cboKillMethod.
const char* methodName(int row);

// Nothing: go on with `options`. Otherwise the process ends with this status, and what there was to say is said.
std::optional<int> parseOptions(int count, const char* const* arguments, const std::string& version, Options& options,
                                std::ostream& out, std::ostream& err);

}  // namespace tidvane::console
