// One machine on which the same steps are tried out in a preview and then really made.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/machine/machine_platform.h"
#include "platform/platform.h"
#include "settings/program.h"
#include "support/host_directory.h"
#include "support/scripted_display.h"

namespace tidvane::tests {

// The services of one opening of the machine, with a program on them.
class Opened {
public:
    Opened(const HostDirectory& host, bool preview);

    platform::Platform& services() { return services_; }
    settings::Program& program() { return program_; }
    void chooseMethod(int method);
    platform::Status commit(std::string& error) { return made_->commit(error); }

private:
    static std::unique_ptr<platform::machine::MachinePlatform> open(const HostDirectory& host, bool preview);

    std::unique_ptr<platform::machine::MachinePlatform> made_;
    platform::Platform services_;
    ScriptedDisplay display_;
    settings::Program program_;
};

// What a program does, and a line that says what came of it.
using Step = std::function<std::string(Opened&)>;

class PreviewTrial {
public:
    // An embedded machine in the directory, and the program's folder beside it.
    explicit PreviewTrial(const HostDirectory& host);
    // Takes the seals off wherever they went, for instance into the bin, so that the directory can be removed.
    ~PreviewTrial();
    PreviewTrial(const PreviewTrial&) = delete;
    PreviewTrial& operator=(const PreviewTrial&) = delete;

    // Where the trees of a trial lie: "C:\Case" and its place on the host.
    static constexpr const char* kCase = "C:\\Case";
    [[nodiscard]] std::string caseFolder() const { return host_ / "machine/drive_c/Case"; }
    // Puts the machine back to how it was made, with an empty case.
    void reset();
    // A text to be added to the user's registry.
    void addToRegistry(const std::string& sections);

    // Makes the steps three times: in a preview, in one that tells of each entry, and really. One line for everything
    // that differs; empty where all is well. `renames`: the steps give entries other names, so that what is gone
    // under its name was not all removed.
    std::string run(const std::vector<Step>& steps, bool renames);

private:
    struct Record {
        std::vector<std::string> lines;  // what the steps said, what was counted, and what was there then
        platform::RemovalTotals totals;
        std::multiset<std::string> told;
        std::map<platform::RemovedKind, std::uint64_t> toldOfKind;
    };

    static Record record(Opened& opened, const std::vector<Step>& steps, bool telling);
    static void list(platform::Platform& services, const std::string& folder, std::vector<std::string>& lines);
    // "C:\..." of every entry of the drive, and the keys and values of the user.
    [[nodiscard]] std::set<std::string> everything() const;

    const HostDirectory& host_;
    std::string registry_;
};

}  // namespace tidvane::tests
