#include "contract/contract_platform.h"

#include <algorithm>

namespace tidvane::contract {

std::vector<std::string> Contract::listing(const std::string& folder) const {
    std::vector<platform::FolderEntry> entries;
    EXPECT_EQ(files.ReadFolder(folder, entries), platform::Status::Ok) << folder;
    std::vector<std::string> names;
    for (const platform::FolderEntry& entry : entries) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    return names;
}

unsigned Contract::attributesOf(const std::string& path) const {
    unsigned attributes = 0;
    EXPECT_EQ(files.GetAttributes(path, attributes), platform::Status::Ok) << path;
    return attributes;
}

bool Contract::warnedOf(platform::WarningKind kind) const {
    const std::vector<platform::Warning> told = machine->warnings();
    return std::any_of(told.begin(), told.end(), [kind](const platform::Warning& one) { return one.kind == kind; });
}

}  // namespace tidvane::contract
