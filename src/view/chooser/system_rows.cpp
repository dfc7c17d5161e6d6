#include "view/chooser/system_rows.h"

#include <algorithm>
#include <utility>

namespace tidvane::view {

using frontend::FoundSystem;

SystemRows::SystemRows(std::vector<FoundSystem> systems, Tongue tongue, std::string home, Describe describe)
    : tongue_(tongue), home_(std::move(home)), describe_(std::move(describe)) {
    for (FoundSystem& system : systems) rows_.push_back({std::move(system), {}, false});
}

std::string SystemRows::cell(int row, SystemColumn column) const {
    const Row& shown = at(row);
    const frontend::SystemDetails& details = shown.details;
    switch (column) {
        case SystemColumn::Name:
            return shown.system.name;
        case SystemColumn::Kind:
            return kindWord(tongue_, shown.system.kind);
        case SystemColumn::Windows:
            if (!shown.described) return word(tongue_, Word::Reading);
            return details.canBeOpened ? details.version : word(tongue_, Word::CannotBeOpened);
        case SystemColumn::User:
            return details.user;
        case SystemColumn::FreeSpace:
            if (details.totalBytes == 0) return {};
            return sizeWords(tongue_, details.freeBytes) + " " + word(tongue_, Word::Of) + " " +
                   sizeWords(tongue_, details.totalBytes);
        case SystemColumn::Folder:
            return !home_.empty() && shown.system.directory.starts_with(home_ + "/")
                       ? "~" + shown.system.directory.substr(home_.size())
                       : shown.system.directory;
    }
    return {};
}

bool SystemRows::offered(int row) const {
    return !at(row).described || at(row).details.canBeOpened;
}

int SystemRows::describeNext() {
    const auto next = std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return !row.described; });
    if (next == rows_.end()) return -1;
    next->details = describe_(next->system);
    next->described = true;
    return static_cast<int>(next - rows_.begin());
}

int SystemRows::add(const std::string& directory, frontend::SystemKind kind, const std::string& name) {
    const auto known =
        std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.system.directory == directory; });
    if (known != rows_.end()) {
        // Something may have changed there since it was looked at.
        known->described = false;
        return static_cast<int>(known - rows_.begin());
    }
    rows_.push_back(
        {{kind, directory, name.empty() ? directory.substr(directory.find_last_of('/') + 1) : name}, {}, false});
    return count() - 1;
}

int SystemRows::suggested(const std::string& last) const {
    int first = -1;
    for (int row = 0; row < count(); ++row) {
        if (!offered(row)) continue;
        if (!last.empty() && system(row).directory == last) return row;
        if (first < 0) first = row;
    }
    return first;
}

}  // namespace tidvane::view
