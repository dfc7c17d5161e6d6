#include "plugins/dPlugCleaner.h"

#include <array>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/common/directory_lookup.h"
#include "plugins/plug_in_file.h"
#include "plugins/startable_file.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/modFormINI.h"
#include "settings/sentences.h"

namespace tidvane::plugins {

namespace {

constexpr const char* kFieldSeparator = "|";
constexpr std::size_t kExpansionBuffer = 256;  // bytes, the closing NUL included

struct RootKey {
    const char* name;
    platform::HKey handle;
};
// Full names only: there are no short forms.
constexpr std::array kRootKeys{
    RootKey{"HKEY_CLASSES_ROOT", platform::HKEY_CLASSES_ROOT_},
    RootKey{"HKEY_CURRENT_USER", platform::HKEY_CURRENT_USER_},
    RootKey{"HKEY_LOCAL_MACHINE", platform::HKEY_LOCAL_MACHINE_},
    RootKey{"HKEY_USERS", platform::HKEY_USERS_},
    RootKey{"HKEY_CURRENT_CONFIG", platform::HKEY_CURRENT_CONFIG_},
};

// 0, which opens nothing, for any other name; blanks around it count.
platform::HKey RootKeyOfName(const std::string& name) {
    const std::string upper = base::upperCase(name);
    for (const RootKey& root : kRootKeys) {
        if (upper == root.name) return root.handle;
    }
    return 0;
}

// Up to and including the last backslash, and what stands behind it. A path without one is both: intended.
std::string FolderOfPath(const std::string& path) {
    return path.substr(0, path.rfind('\\') == std::string::npos ? path.size() : path.rfind('\\') + 1);
}

std::string NameOfPath(const std::string& path) {
    return path.substr(path.rfind('\\') == std::string::npos ? 0 : path.rfind('\\') + 1);
}

}  // namespace

// Both spellings of a command behave alike.
struct dPlugCleaner::Command {
    const char* name;
    const char* oldName;
    void (dPlugCleaner::*run)(const std::string& argument);
};
const dPlugCleaner::Command dPlugCleaner::kCommands[] = {
    {"DEL_FILE", "DELETEFILE", &dPlugCleaner::DeleteFileSpec},
    {"RUN_FILE", "RUNFILE", &dPlugCleaner::RunLine},
    {"DEL_FOLDER", "DELETEALLREMOVESELF", &dPlugCleaner::deleteFolder},
    {"CLEAR_FOLDER", "DELETEALLBELOW", &dPlugCleaner::clearFolder},
};

bool dPlugCleaner::IsLoaded() {
    return settings::plainFileExists(program_, filename_);
}

std::string dPlugCleaner::info(const char* key) {
    return IsLoaded() ? ReadPlugValue(program_, filename_, "Info", key, "") : std::string();
}

void dPlugCleaner::PhasePlugInfo() {
    lost_.clear();
    for (const std::string& section : ListSections(program_, filename_)) {
        const std::string name = base::upperCase(section);
        if (name == "VARIABLES") ApplyVariables(section);
        if (name == "REGISTRY") ApplyRegistryLines(section);
        if (name == "FILES") ApplyFileLines(section);
    }
    for (const std::string& variable : variables_) program_.platform.environment.remove(variable);
    variables_.clear();
}

void dPlugCleaner::ApplyVariables(const std::string& section) {
    for (const std::string& key : ListKeys(program_, filename_, section)) {
        const std::string value(base::trimBlanks(ReadPlugValue(program_, filename_, section, key, "")));
        if (value.empty()) continue;
        variables_.push_back(key);
        const std::string expanded = ExpandVars(value);
        // Set to nothing, it would make C:\Data\%NAME% the folder above; left alone, it may be another's of that name.
        if (expanded.empty()) lost_.insert(key);
        if (!expanded.empty()) program_.platform.environment.set(key, expanded);
    }
}

// No field is trimmed and nothing is expanded here: intended.
void dPlugCleaner::ApplyRegistryLines(const std::string& section) {
    for (const std::string& key : ListKeys(program_, filename_, section)) {
        const auto fields = base::split(ReadPlugValue(program_, filename_, section, key, ""), kFieldSeparator);
        if (fields.size() != 2 && fields.size() != 3) continue;
        DeleteRegistryEntry(RootKeyOfName(fields[0]), fields[1], fields.size() == 3 ? &fields[2] : nullptr);
    }
}

// One key, which must have no subkeys, or one value of it. A deletion that fails leaves the key open: intended.
bool dPlugCleaner::DeleteRegistryEntry(platform::HKey root, const std::string& subkey, const std::string* valueName) {
    platform::RegistryApi& registry = program_.platform.registry;
    platform::HKey key = 0;
    if (registry.RegOpenKeyExA(root, subkey, platform::kKeyAllAccess, key) != 0) return false;
    const platform::RegResult result =
        valueName == nullptr ? registry.RegDeleteKeyA(root, subkey) : registry.RegDeleteValueA(key, *valueName);
    if (result != 0) return false;
    (void)registry.RegCloseKey(key);
    return true;
}

void dPlugCleaner::ApplyFileLines(const std::string& section) {
    for (const std::string& key : ListKeys(program_, filename_, section)) {
        if (program_.ended()) return;
        const std::string line(base::trimBlanks(ReadPlugValue(program_, filename_, section, key, "")));
        // An empty text has no fields at all, and the first one is asked for before they are counted: intended.
        if (line.empty()) throw base::RuntimeError(9, "dPlugCleaner", "Subscript out of range");
        const auto fields = base::split(line, kFieldSeparator);
        if (fields.size() != 2) continue;
        const std::string name = base::upperCase(base::trimBlanks(fields[0]));
        for (const Command& command : kCommands) {
            if (name == command.name || name == command.oldName) (this->*command.run)(ExpandVars(fields[1]));
        }
    }
}

// Whatever stands between two percent signs counts as a name, also where the expansion pairs the signs otherwise.
bool dPlugCleaner::refersToLost(const std::string& text) const {
    const std::vector<std::string> parts = base::split(text, "%");
    for (std::size_t i = 1; i + 1 < parts.size(); ++i) {
        if (lost_.contains(parts[i])) return true;
    }
    return false;
}

// Empty where the expansion does not fit, or refers to a variable whose own did not: a path without a part of it would
// name something else.
std::string dPlugCleaner::ExpandVars(const std::string& text) {
    if (refersToLost(text)) return {};
    std::string expanded;
    const std::size_t needed =
        program_.platform.environment.ExpandEnvironmentStringsA(text, kExpansionBuffer, expanded);
    if (needed == 0 || needed > kExpansionBuffer) return {};
    return expanded.substr(0, expanded.find('\0'));
}

template <class Visit>
void dPlugCleaner::forEachItem(const std::string& folder, Visit visit) {
    std::vector<platform::FolderEntry> entries;
    // A path that cannot be opened has no items; it never falls back on a folder of before.
    if (!ok(program_.platform.files.ReadFolderToEmpty(folder, entries))) return;
    const std::string prefix = base::withBackslash(folder);
    for (const bool folders : {false, true}) {
        for (const platform::FolderEntry& entry : entries) {
            if ((entry.kind == platform::EntryKind::Folder) == folders) visit(entry, prefix + entry.name);
        }
    }
}

int dPlugCleaner::kill(const std::string& path) {
    const int method = program_.selectedKillMethod();
    if (method >= 0) removal::KillFile(program_.platform, path, method, false);
    return method;
}

void dPlugCleaner::DeleteFileSpec(const std::string& spec) {
    const std::string folder = FolderOfPath(spec);
    const std::string name = NameOfPath(spec);
    platform::FileSystem& files = program_.platform.files;
    // Only "*." in front makes a mask that is walked; any other wildcard is left to the kill method.
    if (!name.starts_with("*.")) {
        (void)files.SetAttributes(folder + name, platform::attribute::Normal);
        kill(folder + name);
        return;
    }
    for (const std::string& match : platform::findMatches(files, folder + name)) {
        if (program_.ended()) return;
        (void)files.SetAttributes(folder + match, platform::attribute::Normal);
        kill(folder + match);
        program_.platform.events.DoEvents();
    }
}

void dPlugCleaner::RunLine(const std::string& argument) {
    const std::size_t end = argument.rfind('?');
    // Without the sign there is no program, and the shell starts nothing by an empty name.
    if (end == std::string::npos) return;
    const std::string name = argument.substr(0, end);
    const std::string file = startableFile(program_, name);
    if (file.empty()) {
        program_.display.warn(settings::sentence(program_, settings::Sentence::ProgramNotStarted, {name}));
        return;
    }
    (void)program_.platform.shell.ShellExecuteA("open", file, argument.substr(end + 1), "", 1);
}

void dPlugCleaner::DelFolder(const std::string& path) {
    removal::DelAll(program_.platform, path);
}

// Both ask first: each of their steps would tell of a refused place again.
void dPlugCleaner::deleteFolder(const std::string& folder) {
    if (!program_.platform.files.mayEmpty(folder)) return;
    // With a backslash at its end the path names no folder to delete, and the walk alone empties it.
    if (!folder.ends_with('\\') && !folder.ends_with('/')) DelFolder(folder);
    RemoveFolderItems(folder);
}

void dPlugCleaner::clearFolder(const std::string& folder) {
    if (!program_.platform.files.mayEmpty(folder)) return;
    ClearFolderItems(folder);
    RemoveFolderItems(folder);
}

void dPlugCleaner::ClearFolderItems(const std::string& folder) {
    forEachItem(folder, [this](const platform::FolderEntry&, const std::string& path) { kill(path); });
}

void dPlugCleaner::RemoveFolderItems(const std::string& folder) {
    forEachItem(folder, [this](const platform::FolderEntry& entry, const std::string& path) {
        const int method = kill(path);
        if (method != removal::KillPlain && method != removal::KillOverwrite) return;
        DelFolder(path);
        // A link to a folder stands among the items too and goes as the link it is.
        if (entry.kind == platform::EntryKind::Link) (void)program_.platform.files.RemoveFile(path);
    });
}

}  // namespace tidvane::plugins
