// Reader and interpreter of one plug-in file: a cleaning rule that a user wrote.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "settings/program.h"

namespace tidvane::plugins {

// Nothing in a plug-in file is an error that anybody is told of: a bad line is a line without effect. The rules have no
// conditions, no log lines, and are not tested against the protected locations of the user (td_ban.dat).
class dPlugCleaner {
public:
    explicit dPlugCleaner(settings::Program& program) : program_(program) {}

    // Deletes a folder with everything in it, read-only content too, for good under every kill method: intended.
    void DelFolder(const std::string& path);

    // Full path of the plug-in file. Setting it looks at nothing.
    const std::string& Filename() const { return filename_; }
    void setFilename(const std::string& path) { filename_ = path; }

    // Executes the sections VARIABLES, REGISTRY and FILES in the order of the file; a section that stands twice runs
    // twice, on the first one's lines. Variables live while the file runs and are then deleted, not restored: intended.
    // One whose value expands to nothing (more than 255 bytes) is not set, and what refers to it counts as empty.
    // Throws base::RuntimeError 9 at an empty value in FILES (a section FILES without keys included): what ran so far
    // has run, and the variables stay set; the next run of this object deletes them with its own. Intended.
    // Nothing more happens once the program has ended.
    void PhasePlugInfo();

    // A file that is neither hidden nor a system file.
    bool IsLoaded();

    // Section Info; empty where there is no such key or the file is not loaded.
    std::string PlugTitle() { return info("Title"); }
    std::string PlugDescription() { return info("Description"); }
    std::string PlugDescriptionEnglish() { return info("Description2"); }
    std::string PlugAuthor() { return info("Author"); }
    std::string PlugWarning() { return info("Warning"); }
    std::string PlugWarningEnglish() { return info("Warning2"); }

private:
    std::string info(const char* key);

    void ApplyVariables(const std::string& section);
    void ApplyRegistryLines(const std::string& section);
    void ApplyFileLines(const std::string& section);
    bool refersToLost(const std::string& text) const;
    std::string ExpandVars(const std::string& text);
    bool DeleteRegistryEntry(platform::HKey root, const std::string& subkey, const std::string* valueName);

    // The commands of FILES, with their expanded argument.
    void DeleteFileSpec(const std::string& spec);
    void RunLine(const std::string& argument);
    void deleteFolder(const std::string& folder);
    void clearFolder(const std::string& folder);
    struct Command;
    static const Command kCommands[];

    // What lies directly in a folder, files first.
    template <class Visit>
    void forEachItem(const std::string& folder, Visit visit);
    void ClearFolderItems(const std::string& folder);
    void RemoveFolderItems(const std::string& folder);

    // By the user's kill method, asked for at each path. The method; -1 where none is chosen and nothing happened.
    int kill(const std::string& path);

    settings::Program& program_;
    std::string filename_;
    std::vector<std::string> variables_;
    std::set<std::string, base::NoCaseLess> lost_;  // variables of this file that could not be set
};

}  // namespace tidvane::plugins
