// The registry files of a machine: read whole, written back whole, each replaced atomically.
#pragma once

#include <sys/stat.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/common/registry_text.h"
#include "platform/common/registry_tree.h"
#include "platform/machine/directory_handle.h"
#include "platform/status.h"

namespace tidvane::platform::machine {

class MachineRegistry {
public:
    // Reads system.reg, user.reg and, if it is there, userdef.reg of an open prefix directory. False: `error` is one
    // sentence.
    bool read(int directory, std::string& error);

    RegistryTree& tree() { return *tree_; }
    // Whether the files are still those that were read or written last.
    [[nodiscard]] bool isCurrent(int directory) const;
    // Reads them once more. What was changed and not written is dropped. `replace` puts the tree that was read in the
    // place of the contents of tree(), which itself stays the same object. False: nothing has changed here; `error` is
    // one sentence.
    bool readAnew(int directory, const std::function<void(RegistryTree&&)>& replace, std::string& error);
    // The SID of the user whose file this is.
    [[nodiscard]] const std::string& userSid() const { return tree_->userSid(); }
    [[nodiscard]] bool changed() const;

    // Writes what changed. Nothing is written when one of the files to be replaced is no longer the one that was read:
    // InUse. The new files are complete on the disk before the first one is put in its place, so that a full disk
    // leaves the whole registry as it was. A file stays whole whatever happens; what was not written is still changed
    // afterwards.
    Status write(int directory, std::string& error);

    // Null: there is no such key. The path goes from the root: "Machine\\...", "User\\<SID>\\...".
    [[nodiscard]] RegistryKeyPtr key(const std::string& path) const { return tree_->find(path); }
    // A text value of a key as it is stored, not expanded.
    [[nodiscard]] std::optional<std::string> text(const std::string& key, const std::string& name) const;

private:
    struct File {
        std::string name;
        struct stat read {};
        std::unique_ptr<RegistryTextFile> content;
    };

    bool readFile(int directory, const std::string& name, bool required, std::string& error);

    std::vector<File> files_;
    std::unique_ptr<RegistryTree> tree_;
};

// The text of a value, whatever its end looks like. Nothing if it is no text.
std::optional<std::string> valueText(const RegistryValue* value);

}  // namespace tidvane::platform::machine
