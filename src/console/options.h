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

enum class Command { Run, Tasks, Settings, MachineCreate, MachineInfo };

struct Options {
    Command command = Command::Run;

    // Common. Empty: the place in the user's data directory.
    std::string machine;
    std::string program;
    std::string arguments;  // the raw text that the documented switches are searched in

    // run; `set` and `save` for settings too.
    std::optional<int> method;  // a row of cboKillMethod
    std::vector<std::string> set;
    std::vector<std::string> tick;
    std::vector<std::string> untick;
    bool answerYes = false;
    bool save = false;
    bool quiet = false;
    std::string json;

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
