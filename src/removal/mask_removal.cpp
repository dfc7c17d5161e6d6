#include "removal/mask_removal.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/wildcard.h"
#include "removal/modKillMethod.h"

namespace tidvane::removal {

namespace {

namespace attribute = platform::attribute;

// Folders of the recycle bins at the root of a drive, by generation.
constexpr std::array kBins{"$Recycle.Bin", "RECYCLER", "RECYCLED"};

bool isThere(platform::FileSystem& files, const std::string& path) {
    unsigned attributes = 0;
    return ok(files.GetAttributes(path, attributes));
}

void recycleByMask(platform::Platform& platform, const std::string& folder, const std::string& mask,
                   const std::vector<std::string>& matches) {
    // In a folder that no one may empty the bin refuses a mask that leaves no name out, and the second attempt would
    // take for good what was meant for the bin.
    if (base::Wildcard(mask).matchesEveryName()) {
        for (const std::string& name : matches) KillFile(platform, folder + name, KillRecycle, false);
        return;
    }
    // Where case matters to the host, a mask without a wildcard may name a file by one spelling and a folder by
    // another: the bin would take the folder whole.
    if (!platform.files.FolderExists(folder + mask)) KillFile(platform, folder + mask, KillRecycle, false);
}

}  // namespace

bool isFoundByLookUp(platform::FileSystem& files, const std::string& path) {
    unsigned attributes = 0;
    if (!ok(files.GetAttributes(path, attributes))) return false;
    return (attributes & (attribute::Hidden | attribute::System | attribute::Directory)) == 0;
}

bool isBinInUse(settings::Program& program, const std::string& folder, const std::string& name) {
    constexpr std::size_t kDriveRoot = 3;  // "C:\"
    if (folder.size() != kDriveRoot || program.selectedKillMethod() != KillRecycle) return false;
    return std::any_of(kBins.begin(), kBins.end(), [&](const char* bin) { return base::equalNoCase(name, bin); });
}

void removeByMask(settings::Program& program, const std::string& folder, const std::string& mask,
                  const std::vector<std::string>& matches, const MaskLines& log) {
    platform::FileSystem& files = program.platform.files;
    const int method = program.selectedKillMethod();
    if (method >= 0) {
        if (method == KillRecycle) {
            recycleByMask(program.platform, folder, mask, matches);
        } else {
            KillFile(program.platform, folder + mask, method, false);
        }
        log.removed();
    }
    std::vector<std::string> refused;
    if (method == KillRecycle) {
        for (const std::string& name : matches) {
            if (isThere(files, folder + name)) refused.push_back(name);
        }
    }
    // Always plain, whatever the user chose: intended. It reports success in any case.
    if (!KillFile(program.platform, folder + mask, KillPlain, true)) log.failed();
    for (const std::string& name : refused) program.removedForGood += isThere(files, folder + name) ? 0 : 1;
}

}  // namespace tidvane::removal
