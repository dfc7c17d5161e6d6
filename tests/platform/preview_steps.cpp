#include "platform/preview_steps.h"

#include <array>
#include <memory>
#include <utility>

#include "base/text.h"
#include "registry/clear_registry_tree.h"
#include "registry/delete_all_keys.h"
#include "registry/registry_services.h"
#include "removal/delete_older_than.h"
#include "removal/folder_stats.h"
#include "removal/folder_sweep.h"
#include "removal/modKillMethod.h"
#include "settings/frmOptions.h"

namespace tidvane::tests {

namespace {

constexpr std::array kMasks{"*",     "*.*",       "*.tmp",     "*.bak", "*.old", "a*",      "?.tmp",
                            "*cat*", "opa12.bak", "cacert.*",  "*.log", "*.txt", "log.txt", "*_copy",
                            "sub",   "*.001",     "INDEX.DAT", "x.tmp", "",      "*.dat"};

std::string said(platform::Status status) {
    return std::to_string(static_cast<int>(status));
}

std::string allOf(const std::vector<std::string>& masks) {
    std::string text;
    for (const std::string& mask : masks) text += (text.empty() ? "" : ", ") + mask;
    return text;
}

class Drawer {
public:
    Drawer(std::mt19937& random, const std::vector<std::string>& folders, const std::vector<std::string>& files)
        : random_(random), folders_(folders), files_(files) {}

    DrawnSteps drawn;

    void draw();

private:
    int below(std::size_t limit) { return static_cast<int>(random_() % limit); }
    bool once(int in) { return below(static_cast<std::size_t>(in)) == 0; }

    std::string spelled(std::string path) {
        // Names compare without regard to case.
        return once(6) ? path.substr(0, 3) + base::upperCase(path.substr(3)) : path;
    }
    std::string folder() { return spelled(folders_[static_cast<std::size_t>(below(folders_.size()))]); }
    std::string file() {
        return files_.empty() ? "C:\\Case\\none" : spelled(files_[static_cast<std::size_t>(below(files_.size()))]);
    }
    std::string any() { return once(3) ? folder() : file(); }
    std::string mask() { return kMasks[static_cast<std::size_t>(below(kMasks.size()))]; }

    void add(const std::string& label, Step step) {
        drawn.labels.push_back(label);
        drawn.steps.push_back([label, step = std::move(step)](Opened& opened) { return label + ": " + step(opened); });
    }
    void addFileStep(int kind);
    void addSingleStep(int kind);
    void addChange(int kind);
    void addRegistryStep();

    std::mt19937& random_;
    const std::vector<std::string>& folders_;
    const std::vector<std::string>& files_;
};

void Drawer::draw() {
    const int kind = below(20);
    if (kind < 9) {
        addFileStep(kind);
    } else if (kind < 14) {
        addSingleStep(kind);
    } else if (kind < 17) {
        addChange(below(6));
    } else {
        addRegistryStep();
    }
}

// What tasks, plug-ins and the search do.
void Drawer::addFileStep(int kind) {
    const int method = below(3);
    const std::string how = " by method " + std::to_string(method);
    if (kind < 3) {
        const std::string target = folder();
        const bool measured = !once(3);
        add("purge " + target + how + (measured ? ", measured first" : ""), [=](Opened& opened) {
            opened.chooseMethod(method);
            removal::FolderCounters counters;
            if (measured) removal::FolderStats(opened.services().files, target, counters);
            removal::PurgeFolder(opened.program(), target);
            return std::to_string(counters.folders) + " folders, " + std::to_string(counters.files) + " files, " +
                   std::to_string(counters.bytes) + " bytes";
        });
    } else if (kind < 5) {
        const std::string target = folder();
        std::vector<std::string> masks;
        for (int i = below(4); i >= 0; --i) masks.push_back(mask());
        add("sweep " + target + " for " + allOf(masks) + how, [=](Opened& opened) {
            opened.chooseMethod(method);
            auto& list = opened.program().get<settings::frmOptions>().lstSearchMasks;
            list.Clear();
            for (const std::string& one : masks) list.AddItem(one);
            removal::SweepFolderByMasks(opened.program(), target);
            return std::string();
        });
    } else if (kind == 5) {
        const std::string target = folder();
        const auto days = static_cast<std::int16_t>(below(40));
        add("delete in " + target + " what is older than " + std::to_string(days), [=](Opened& opened) {
            removal::DeleteOlderThan(opened.services(), target, days);
            return std::string();
        });
    } else if (kind == 6) {
        const std::string target = once(4) ? any() : folder();
        add("DelAll " + target, [=](Opened& opened) {
            removal::DelAll(opened.services(), target);
            return std::string();
        });
    } else {
        const std::string target = once(3) ? any() : folder() + "\\" + mask();
        const bool ignore = once(2);
        add("kill " + target + how, [=](Opened& opened) {
            return std::string(removal::KillFile(opened.services(), target, method, ignore) ? "done" : "failed");
        });
    }
}

void Drawer::addSingleStep(int kind) {
    const std::string target = any();
    switch (kind) {
        case 9:
            add("RemoveFile " + target,
                [=](Opened& opened) { return said(opened.services().files.RemoveFile(target)); });
            break;
        case 10:
            add("RemoveFolder " + target,
                [=](Opened& opened) { return said(opened.services().files.RemoveFolder(target)); });
            break;
        case 11: {
            const std::string all = once(2) ? folder() + "\\" + mask() : target;
            const bool force = once(2);
            add("DeleteFolder " + all + (force ? " by force" : ""),
                [=](Opened& opened) { return said(opened.services().files.DeleteFolder(all, force)); });
            break;
        }
        case 12:
            add("empty the bin", [](Opened& opened) {
                return std::to_string(
                    opened.services().shell.SHEmptyRecycleBinA(0, "", platform::kSherbNoConfirmation));
            });
            break;
        default:
            add("ask for the bin", [](Opened& opened) {
                platform::RecycleBinInfo info;
                const long answer = opened.services().shell.SHQueryRecycleBinA("C:", info);
                return std::to_string(answer) + ", " + std::to_string(info.items) + " items, " +
                       std::to_string(info.bytes) + " bytes";
            });
    }
}

// What changes the machine in other ways, and is seen by what follows.
void Drawer::addChange(int kind) {
    const std::string target = any();
    if (kind == 0) {
        static constexpr std::array kSets{0U, 1U, 2U, 4U, 0x20U, 3U};
        const unsigned bits = kSets[static_cast<std::size_t>(below(kSets.size()))];
        add("give " + target + " attributes " + std::to_string(bits),
            [=](Opened& opened) { return said(opened.services().files.SetAttributes(target, bits)); });
        return;
    }
    drawn.renames = true;
    if (kind == 1) {
        const std::string place = once(2) ? folder() + "\\moved" + std::to_string(below(5)) : any();
        add("rename " + target + " to " + place,
            [=](Opened& opened) { return said(opened.services().files.RenameEntry(target, place)); });
    } else if (kind == 2) {
        const std::string place = folder() + "\\made" + std::to_string(below(3));
        add("make " + place, [=](Opened& opened) { return said(opened.services().files.MakeFolder(place)); });
    } else if (kind == 3) {
        const std::string place = once(2) ? target : folder() + "\\written.tmp";
        const std::string bytes(static_cast<std::size_t>(below(300)), 'w');
        add("write " + place, [=](Opened& opened) {
            const platform::Status status = opened.services().files.WriteFileBytes(place, bytes);
            std::string back;
            (void)opened.services().files.ReadFileBytes(place, back);
            return said(status) + " " + std::to_string(back.size());
        });
    } else if (kind == 4) {
        const std::string place = once(2) ? any() : folder() + "\\copied.bak";
        add("copy " + target + " to " + place,
            [=](Opened& opened) { return said(opened.services().files.CopyFileBytes(target, place)); });
    } else {
        const std::string place = folder() + "\\profile.ini";
        add("write the profile " + place, [=](Opened& opened) {
            platform::ProfileFiles& profiles = opened.services().profiles;
            const bool written = profiles.WritePrivateProfileStringA("section", "key", "value", place);
            return (written ? "written " : "not written ") +
                   profiles.GetPrivateProfileStringA("section", "key", "none", 100, place);
        });
    }
}

void Drawer::addRegistryStep() {
    static constexpr std::array kKeys{"Software\\Case\\One",   "Software\\Case\\One\\Deep",
                                      "Software\\Case\\Two",   "Software\\Case\\Two\\a\\b",
                                      "Software\\Case\\Three", "Software\\Case",
                                      "Software\\Case\\None",  "Software",
                                      "Software\\Case\\Two\\a"};
    const std::string key = kKeys[static_cast<std::size_t>(below(kKeys.size()))];
    switch (below(5)) {
        case 0:
            add("DeleteAllKeys " + key, [=](Opened& opened) {
                long result = 0;
                const std::size_t cut = key.rfind('\\');
                const std::string above = cut == std::string::npos ? std::string() : key.substr(0, cut);
                registry::DeleteAllKeys(opened.services().registry, platform::HKEY_CURRENT_USER_, above,
                                        key.substr(cut + 1), result);
                return std::to_string(result);
            });
            break;
        case 1:
            add("ClearRegistryTree " + key, [=](Opened& opened) {
                registry::ClearRegistryTree(opened.services(), "HKEY_CURRENT_USER\\" + key);
                return std::string();
            });
            break;
        case 2:
            add("RegDeleteKeyA " + key, [=](Opened& opened) {
                return std::to_string(opened.services().registry.RegDeleteKeyA(platform::HKEY_CURRENT_USER_, key));
            });
            break;
        case 3:
            add("RegDelete the value a of " + key, [=](Opened& opened) {
                return std::string(
                    opened.services().scriptHost.RegDelete("HKEY_CURRENT_USER\\" + key + "\\a") ? "done" : "failed");
            });
            break;
        default:
            add("look at " + key, [=](Opened& opened) {
                platform::RegistryApi& registry = opened.services().registry;
                platform::HKey handle = 0;
                platform::RegistryApi::KeyInfo info;
                const long found =
                    registry.RegOpenKeyExA(platform::HKEY_CURRENT_USER_, key, platform::kKeyAllAccess, handle);
                (void)registry.RegQueryInfoKeyA(handle, info);
                (void)registry.RegCloseKey(handle);
                return std::to_string(found) + " " + std::to_string(info.subKeys) + " " + std::to_string(info.values);
            });
    }
}

}  // namespace

DrawnSteps drawSteps(std::mt19937& random, const std::vector<std::string>& folders,
                     const std::vector<std::string>& files, std::size_t count) {
    Drawer drawer(random, folders, files);
    while (drawer.drawn.steps.size() < count) drawer.draw();
    return std::move(drawer.drawn);
}

}  // namespace tidvane::tests
