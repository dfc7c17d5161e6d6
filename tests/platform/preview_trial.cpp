#include "platform/preview_trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "app/all_windows.h"
#include "base/text.h"
#include "settings/frmOptions.h"
#include "support/random_tree.h"
#include "support/tree_state.h"

namespace tidvane::tests {

namespace {

namespace fs = std::filesystem;
namespace machine = platform::machine;

const char* kindName(platform::EntryKind kind) {
    switch (kind) {
        case platform::EntryKind::File:
            return "file";
        case platform::EntryKind::Folder:
            return "folder";
        case platform::EntryKind::Link:
            return "link";
        case platform::EntryKind::Other:
            return "other";
    }
    return "";
}

bool isChance(char sign) {
    return (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9');
}

// The names in a bin are made by chance: "$R" or "$I" and six signs.
std::string withoutChance(const std::string& path) {
    std::string plain;
    for (std::size_t at = 0; at < path.size(); ++at) {
        plain += path[at];
        const bool isUnit = path[at] == '$' && at + 8 <= path.size() && (path[at + 1] == 'R' || path[at + 1] == 'I') &&
                            std::all_of(path.begin() + static_cast<std::ptrdiff_t>(at) + 2,
                                        path.begin() + static_cast<std::ptrdiff_t>(at) + 8, isChance);
        if (!isUnit) continue;
        plain += path[at + 1];
        at += 7;
    }
    return plain;
}

std::string textOf(const platform::RemovalTotals& totals) {
    std::ostringstream text;
    text << totals.files << " files " << totals.folders << " folders " << totals.bytes << " bytes " << totals.keys
         << " keys " << totals.values << " values " << totals.failed << " failed";
    return text.str();
}

void compare(const std::vector<std::string>& expected, const std::vector<std::string>& found, const std::string& what,
             std::string& problems) {
    for (std::size_t i = 0; i < std::max(expected.size(), found.size()); ++i) {
        const std::string really = i < expected.size() ? expected[i] : "<nothing>";
        const std::string told = i < found.size() ? found[i] : "<nothing>";
        if (really == told) continue;
        problems += what + ": \"" + told + "\" where really \"" + really + "\"\n";
        return;  // the rest follows from it
    }
}

// The keys of a registry file, "HKEY_CURRENT_USER\..." and "...\[name]".
void addRegistry(const std::string& text, std::set<std::string>& all) {
    std::istringstream lines(text);
    std::string key;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("[")) {
            const std::string inside = line.substr(1, line.rfind(']') - 1);
            key = "HKEY_CURRENT_USER";
            for (const std::string& part : base::split(inside, "\\\\")) {
                key += "\\" + part;
                all.insert(key);  // the keys above one that holds something are not always written
            }
        } else if (line.starts_with("@=")) {
            all.insert(key + "\\[]");
        } else if (line.starts_with("\"")) {
            all.insert(key + "\\[" + line.substr(1, line.find("\"=") - 1) + "]");
        }
    }
}

}  // namespace

// --- one opening -----------------------------------------------------------------------------------------------------

std::unique_ptr<machine::MachinePlatform> Opened::open(const HostDirectory& host, bool preview) {
    std::string error;
    const auto access = preview ? machine::Machine::Access::Read : machine::Machine::Access::Write;
    auto opened = machine::Machine::open(host / "machine", access, error);
    if (opened == nullptr) throw std::runtime_error(error);
    machine::MachineOptions options;
    options.programFolder = host / "program";
    options.preview = preview;
    auto made = machine::MachinePlatform::make(std::move(opened), options, error);
    if (made == nullptr) throw std::runtime_error(error);
    return made;
}

Opened::Opened(const HostDirectory& host, bool preview)
    : made_(open(host, preview)), services_(made_->platform()), program_(services_, display_) {
    services_.removed.wantBytes = true;
    app::offerAllWindows(program_);
}

void Opened::chooseMethod(int method) {
    program_.get<settings::frmOptions>().cboKillMethod.setListIndex(method);
}

// --- the trial -------------------------------------------------------------------------------------------------------

PreviewTrial::PreviewTrial(const HostDirectory& host) : host_(host) {
    std::string error;
    if (!machine::Machine::create(host / "machine", error)) throw std::runtime_error(error);
    host.folder("program");
    fs::copy_file(TIDVANE_SOURCE_DIR "/data/English.lng", host / "program/English.lng");
    registry_ = host.content("machine/user.reg");
    reset();
}

PreviewTrial::~PreviewTrial() {
    unseal(host_.path());
}

void PreviewTrial::reset() {
    unseal(host_.path());
    std::error_code ignored;
    fs::remove_all(caseFolder(), ignored);
    fs::remove_all(host_ / "machine/drive_c/$Recycle.Bin", ignored);
    fs::create_directory(caseFolder());
    addToRegistry("");
}

void PreviewTrial::addToRegistry(const std::string& sections) {
    std::ofstream(host_ / "machine/user.reg", std::ios::binary) << registry_ << sections;
}

void PreviewTrial::list(platform::Platform& services, const std::string& folder, std::vector<std::string>& lines) {
    std::vector<platform::FolderEntry> entries;
    const platform::Status status = services.files.ReadFolder(folder, entries);
    if (!ok(status)) lines.push_back(folder + " answers " + std::to_string(static_cast<int>(status)));
    for (const platform::FolderEntry& entry : entries) {
        const std::string path = folder + "\\" + entry.name;
        unsigned attributes = 0;
        std::uint64_t bytes = 0;
        (void)services.files.GetAttributes(path, attributes);
        (void)services.files.GetSize(path, bytes);
        lines.push_back(withoutChance(path) + " " + kindName(entry.kind) + " " + std::to_string(attributes) + " " +
                        std::to_string(bytes));
        if (entry.kind == platform::EntryKind::Folder) list(services, path, lines);
    }
}

PreviewTrial::Record PreviewTrial::record(Opened& opened, const std::vector<Step>& steps, bool telling) {
    Record record;
    platform::Platform& services = opened.services();
    if (telling) {
        services.removed.each = [&record](const platform::RemovedEntry& entry) {
            record.told.insert(entry.path);
            ++record.toldOfKind[entry.kind];
        };
    }
    for (const Step& step : steps) {
        record.lines.push_back(step(opened));
        record.lines.push_back(textOf(services.removed.totals));
        std::vector<std::string> there;
        list(services, kCase, there);
        if (services.files.FolderExists("C:\\$Recycle.Bin")) list(services, "C:\\$Recycle.Bin", there);
        std::sort(there.begin(), there.end());
        for (std::string& line : there) record.lines.push_back(std::move(line));
    }
    services.removed.each = nullptr;
    record.totals = services.removed.totals;
    return record;
}

std::set<std::string> PreviewTrial::everything() const {
    const std::string root = host_ / "machine/drive_c";
    std::set<std::string> all;
    for (const fs::path& entry : entriesBelow(root)) {
        std::string path = "C:" + entry.string().substr(root.size());
        std::replace(path.begin(), path.end(), '/', '\\');
        all.insert(path);
    }
    addRegistry(host_.content("machine/user.reg"), all);
    return all;
}

std::string PreviewTrial::run(const std::vector<Step>& steps, bool renames) {
    std::string problems;
    const std::set<std::string> before = everything();
    const TreeState untouched = treeState(host_.path());
    Record preview;
    Record telling;
    Record really;
    {
        Opened opened(host_, true);
        preview = record(opened, steps, false);
        std::string error;
        if (!ok(opened.commit(error))) problems += "the preview could not end: " + error + "\n";
    }
    {
        Opened opened(host_, true);
        telling = record(opened, steps, true);
    }
    problems += changesBetween(untouched, treeState(host_.path()));
    {
        Opened opened(host_, false);
        really = record(opened, steps, false);
        std::string error;
        if (!ok(opened.commit(error))) problems += "the registry was not stored: " + error + "\n";
    }
    compare(really.lines, preview.lines, "preview", problems);
    compare(really.lines, telling.lines, "preview with paths", problems);

    using platform::RemovedKind;
    const platform::RemovalTotals& totals = really.totals;
    const std::map<RemovedKind, std::uint64_t> counted{{RemovedKind::File, totals.files},
                                                       {RemovedKind::Folder, totals.folders},
                                                       {RemovedKind::Key, totals.keys},
                                                       {RemovedKind::Value, totals.values}};
    for (const auto& [kind, count] : counted) {
        const std::uint64_t told = telling.toldOfKind[kind];
        if (told != count)
            problems += "told of " + std::to_string(told) + " of kind " + std::to_string(static_cast<int>(kind)) +
                        ", removed " + std::to_string(count) + "\n";
    }
    if (renames || !problems.empty()) return problems;
    const std::set<std::string> after = everything();
    // A name that came back in capitals was set aside meanwhile, not removed.
    std::set<std::string> folded;
    for (const std::string& path : after) {
        if (!before.contains(path)) folded.insert(base::upperCase(path));
    }
    for (const std::string& path : before) {
        const bool gone = !after.contains(path) && !folded.contains(base::upperCase(path));
        const bool told = telling.told.contains(path);
        if (gone && !told) problems += "not told: " + path + "\n";
        if (told && !gone) problems += "told, but still there: " + path + "\n";
    }
    for (const std::string& path : telling.told) {
        if (!before.contains(path) && !path.starts_with("C:\\$Recycle.Bin\\")) problems += "never was: " + path + "\n";
    }
    return problems;
}

}  // namespace tidvane::tests
