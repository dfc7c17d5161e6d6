// What a whole run has to say, from a file that a person can read: tests/e2e/full_run/*.txt. Their form stands in
// sample.txt.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace tidvane::tests {

struct ExpectedStep {
    int number = 0;
    std::string row;
    std::string status;
    int icon = 0;
};

struct ExpectedLine {
    std::string text;     // with its placeholders
    bool inOrder = true;  // false: among such lines next to it in any order
};

struct ExpectedRun {
    std::vector<ExpectedStep> steps;
    std::vector<ExpectedLine> lines;
};

// What the lines of the file depend on.
struct RunConditions {
    std::set<std::string> holding;          // the words behind "@"
    std::vector<std::string> plugInTitles;  // of all that are delivered, in the order of the list
};

// Throws when the file cannot be read or has a broken line.
ExpectedRun readExpectedRun(const std::string& file, const RunConditions& conditions);

// One line for every line of the log that is not as expected; empty when all are.
std::string differences(const std::vector<ExpectedLine>& expected, const std::vector<std::string>& log);

}  // namespace tidvane::tests
