#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/wildcard.h"
#include "removal/folder_sweep.h"
#include "removal/folder_walk.h"
#include "removal/mask_removal.h"
#include "removal/set_aside.h"
#include "settings/frmOptions.h"

namespace tidvane::removal {

namespace {

using platform::EntryKind;

// One walk. The masks are matched all at once against one listing of each folder; attributes are only asked for names
// that match.
class MaskSweep {
public:
    explicit MaskSweep(settings::Program& owner)
        : program_(owner),
          files_(owner.platform.files),
          masks_(owner.get<settings::frmOptions>().lstSearchMasks.rows()),
          names_(allMasks()) {}

    void tree(const std::string& top);

private:
    struct Name {
        std::string text;
        bool gone = false;
    };

    std::vector<std::string> allMasks() const;
    std::vector<std::string> read(const std::string& path);
    bool stillThere(const std::string& path);
    std::vector<std::string> matchesOf(std::size_t mask, const std::string& path);
    void setAside(const std::string& path);
    void workOnMask(std::size_t mask, const std::string& path, const std::vector<std::string>& matches);
    void restore(const std::string& path);

    settings::Program& program_;
    platform::FileSystem& files_;
    std::vector<std::string> masks_;
    base::MaskSet names_;
    // Of the folder in work: the names that some mask of the set wants, and which masks they are.
    std::vector<Name> wanted_;
    std::vector<std::vector<std::size_t>> byMask_;
    std::vector<std::size_t> touched_;
};

// The set holds the user's masks, then the test masks of the set-aside table, then the names to restore.
std::vector<std::string> MaskSweep::allMasks() const {
    std::vector<std::string> all = masks_;
    for (const SetAsideRow& row : kSetAside) all.emplace_back(row.testMask);
    for (const RestoreRow& row : kRestore) all.emplace_back(row.from);
    return all;
}

bool MaskSweep::stillThere(const std::string& path) {
    unsigned attributes = 0;
    return ok(files_.GetAttributes(path, attributes));
}

// What a fresh look-up of this mask would find now, sorted as a file system of Windows delivers names.
std::vector<std::string> MaskSweep::matchesOf(std::size_t mask, const std::string& path) {
    std::vector<std::string> found;
    for (const std::size_t index : byMask_[mask]) {
        const Name& name = wanted_[index];
        if (!name.gone && isFoundByLookUp(files_, path + name.text)) found.push_back(name.text);
    }
    std::sort(found.begin(), found.end(), base::NoCaseLess{});
    return found;
}

void MaskSweep::setAside(const std::string& path) {
    for (std::size_t row = 0; row < kSetAside.size(); ++row) {
        const SetAsideRow& spared = kSetAside[row];
        if (matchesOf(masks_.size() + row, path).empty()) continue;
        // A rename that finds nothing fails in silence; the row has fired all the same.
        if (ok(files_.RenameEntry(path + spared.from, path + spared.to))) {
            for (Name& name : wanted_) {
                if (base::equalNoCase(name.text, spared.from)) name.gone = true;
            }
            const std::size_t index = wanted_.size();
            wanted_.push_back({spared.to});
            names_.match(spared.to, [&](std::size_t mask) {
                byMask_[mask].push_back(index);
                touched_.push_back(mask);
            });
        }
        if (program_.get<settings::frmOptions>().chkMoreLogDetails.ticked()) {
            program_.report().AddLogLine(std::string(spared.logTag) + program_.LangText(spared.logKey) + ": " + path +
                                         spared.logName + program_.LangText(513) + " <OK>");
        }
        return;
    }
}

void MaskSweep::workOnMask(std::size_t mask, const std::string& path, const std::vector<std::string>& matches) {
    settings::RunReport& report = program_.report();
    const std::string& text = masks_[mask];
    report.setFirstRowStatus(program_.LangText(514) + " [" + text + "] " + program_.LangText(515) + "...");
    // Intended: one line a mask and not a file, and the name in it is the second match, or nothing.
    const std::string place = "[" + text + "] " + path + (matches.size() > 1 ? matches[1] : std::string());
    removeByMask(program_, path, text, matches,
                 {[&] { report.AddLogLine(place + " <OK>"); },
                  [&] { report.AddLogLine(place + " " + program_.LangText(516)); }});
    for (Name& name : wanted_) {
        if (!name.gone && base::wildcardMatch(text, name.text)) name.gone = !stillThere(path + name.text);
    }
}

void MaskSweep::restore(const std::string& path) {
    for (std::size_t row = 0; row < kRestore.size(); ++row) {
        for (const std::size_t index : byMask_[masks_.size() + kSetAside.size() + row]) {
            if (wanted_[index].gone) continue;
            // Ignored on purpose: a target that exists keeps its name and its content.
            (void)files_.RenameEntry(path + kRestore[row].from, path + kRestore[row].to);
        }
    }
}

// A stop is seen at the next folder, before anything is done or shown there.
void MaskSweep::tree(const std::string& top) {
    settings::RunReport& report = program_.report();
    FolderWalk walk(top);
    for (std::string path; !report.StopRequested() && walk.next(path);) {
        report.setPanel(1, program_.LangText(494) + " " + path);
        program_.platform.events.DoEvents();
        if (report.StopRequested()) return;
        std::vector<std::string> subFolders = read(path);
        if (!wanted_.empty()) {
            setAside(path);
            for (std::size_t mask = 0; mask < masks_.size(); ++mask) {
                if (byMask_[mask].empty()) continue;
                const std::vector<std::string> matches = matchesOf(mask, path);
                if (!matches.empty()) workOnMask(mask, path, matches);
            }
            restore(path);
        }
        std::erase_if(subFolders, [&](const std::string& name) { return isBinInUse(program_, path, name); });
        walk.descend(path, std::move(subFolders));
    }
}

// Sorts the folder's names by the masks that want them, and answers its subfolders.
std::vector<std::string> MaskSweep::read(const std::string& path) {
    std::vector<std::string> subFolders;
    std::vector<platform::FolderEntry> entries;
    (void)files_.ReadFolder(path, entries);  // a folder that cannot be read contributes nothing
    wanted_.clear();
    byMask_.resize(masks_.size() + kSetAside.size() + kRestore.size());
    for (const std::size_t mask : touched_) byMask_[mask].clear();
    touched_.clear();
    for (platform::FolderEntry& entry : entries) {
        if (entry.kind == EntryKind::Folder) {
            subFolders.push_back(std::move(entry.name));
            continue;
        }
        bool kept = false;
        names_.match(entry.name, [&](std::size_t mask) {
            byMask_[mask].push_back(wanted_.size());
            touched_.push_back(mask);
            kept = true;
        });
        if (kept) wanted_.push_back({std::move(entry.name)});
    }
    return subFolders;
}

}  // namespace

void SweepFolderByMasks(settings::Program& program, const std::string& Path) {
    if (program.report().StopRequested()) return;
    MaskSweep(program).tree(Path);
}

}  // namespace tidvane::removal
