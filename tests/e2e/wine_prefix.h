// A real Windows system to clean: a prefix of Debian's Wine, spoken to with Wine's own programs.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "e2e/process.h"

namespace tidvane::tests {

class WinePrefix {
public:
    // Whether the user said that there is no Wine here, by TIDVANE_NO_WINE=1. Without it a missing Wine is a failure.
    static bool isDispensed();

    // A prefix of the test's own. Making one takes half a minute: it is made once for a build directory, beside the
    // console, and copied from then on.
    WinePrefix();
    ~WinePrefix();
    WinePrefix(const WinePrefix&) = delete;
    WinePrefix& operator=(const WinePrefix&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string drive() const { return path_ + "/drive_c"; }
    [[nodiscard]] std::string content(const std::string& below) const;

    // Runs "wine" with the arguments, for programs that end by themselves.
    [[nodiscard]] ProcessResult wine(const std::vector<std::string>& arguments) const;
    // A program that goes on until the answer goes.
    [[nodiscard]] std::unique_ptr<Process> startWine(const std::vector<std::string>& arguments) const;
    // The server alone, as a child of the test that stays until it is killed.
    [[nodiscard]] std::unique_ptr<Process> startServer() const;
    // Ends all programs of the prefix; behind it the registry is in its files.
    void stop() const;

private:
    [[nodiscard]] ProcessOptions options() const;

    std::string path_;
};

}  // namespace tidvane::tests
