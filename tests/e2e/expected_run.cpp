#include "e2e/expected_run.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <utility>

#include "base/text.h"

namespace tidvane::tests {

namespace {

struct Placeholder {
    const char* text;
    const char* pattern;
};
constexpr std::array kPlaceholders{
    Placeholder{"{number}", "[0-9]+(\\.[0-9]+)?"},
    Placeholder{"{version}", "[0-9]+\\.[0-9]+\\.[0-9]+"},
    Placeholder{"{date and time}", "[0-9]{1,2}/[0-9]{1,2}/[0-9]{4} [0-9]{1,2}:[0-9]{2}:[0-9]{2} [AP]M"},
};

bool matches(const std::string& expected, const std::string& line) {
    if (expected.find('{') == std::string::npos) return expected == line;
    std::string pattern = std::regex_replace(expected, std::regex("[.^$|()\\[\\]{}*+?\\\\]"), "\\$&");
    for (const Placeholder& placeholder : kPlaceholders) {
        const std::string escaped = std::regex_replace(std::string(placeholder.text), std::regex("[{}]"), "\\$&");
        pattern = base::replaceAll(pattern, escaped, placeholder.pattern);
    }
    return std::regex_match(line, std::regex(pattern));
}

// Takes "@word " off the front as long as there is one. False: one of the words does not hold.
bool takeConditions(std::string& line, const std::set<std::string>& holding, std::set<std::string>& taken) {
    while (line.starts_with('@')) {
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(1, blank - 1);
        line.erase(0, blank + 1);
        if (word != "plug-ins" && holding.count(word) == 0) return false;
        taken.insert(word);
    }
    return true;
}

ExpectedStep stepFrom(const std::string& line) {
    const std::vector<std::string> cells = base::split(line, " | ");
    if (cells.size() != 4) throw std::runtime_error("no step: " + line);
    return {std::stoi(cells[0]), cells[1], cells[2], std::stoi(cells[3])};
}

}  // namespace

ExpectedRun readExpectedRun(const std::string& file, const RunConditions& conditions) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error(file + " cannot be read");
    const std::string count = std::to_string(conditions.plugInTitles.size());
    ExpectedRun run;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        if (line.starts_with("== ")) {
            if (line != "== start" && line != "== head" && line != "== end")
                run.steps.push_back(stepFrom(line.substr(3)));
            continue;
        }
        std::set<std::string> words;
        if (!takeConditions(line, conditions.holding, words)) continue;
        line = base::replaceAll(line, "{plug-ins}", count);
        if (words.count("plug-ins") == 0) {
            run.lines.push_back({line, words.count("details") == 0});
            continue;
        }
        for (const std::string& title : conditions.plugInTitles) {
            run.lines.push_back({base::replaceAll(line, "{title}", title)});
        }
    }
    return run;
}

std::string differences(const std::vector<ExpectedLine>& expected, const std::vector<std::string>& log) {
    std::vector<std::string> wanted;
    std::vector<std::string> found = log;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        wanted.push_back(expected[i].text);
        if (expected[i].inOrder || (i + 1 < expected.size() && !expected[i + 1].inOrder)) continue;
        // The end of some lines in any order: both sides are sorted there.
        std::size_t first = i;
        while (first > 0 && !expected[first - 1].inOrder) --first;
        const auto sortFrom = [&](std::vector<std::string>& lines) {
            if (lines.size() <= i) return;
            const auto begin = lines.begin();
            std::sort(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(i) + 1);
        };
        sortFrom(wanted);
        sortFrom(found);
    }
    std::string text;
    for (std::size_t i = 0; i < std::max(wanted.size(), found.size()); ++i) {
        const std::string want = i < wanted.size() ? wanted[i] : "(nothing)";
        const std::string have = i < found.size() ? found[i] : "(nothing)";
        if (i < wanted.size() && i < found.size() && matches(want, have)) continue;
        text += "line " + std::to_string(i + 1) + "\n  expected: " + want + "\n  found:    " + have + "\n";
        if (text.size() > 4000) return text + "...\n";
    }
    return text;
}

}  // namespace tidvane::tests
