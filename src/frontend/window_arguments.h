// The command line of the front end with windows.
#pragma once

#include <string>
#include <vector>

namespace tidvane::frontend {

struct WindowArguments {
    std::string machine;  // empty: none is named, the user chooses
    std::string program;  // empty: the user's own place
    // The raw argument text of this start, in which /AUTO and /SILENT are searched: all words that are no option, with
    // a blank between two.
    std::string arguments;
    bool help = false;
    bool version = false;
    std::string error;  // one sentence; empty: all is well
};

// The words behind the program's name. Behind "--" no word is an option.
WindowArguments readWindowArguments(const std::vector<std::string>& words);

// What --help tells, several lines.
const char* windowHelp();

// The words of a start that opens the same machine with the same program folder, and nothing else: what was asked of
// this start alone is not asked of the next one.
std::vector<std::string> wordsOfRestart(const std::string& machine, const std::string& program);

}  // namespace tidvane::frontend
