// A registry in memory: keys, values and their data as they lie on disk. It knows nothing of handles; RegistryInTree
// does.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tidvane::platform {

// Windows allows no key deeper than this, and no key name longer.
inline constexpr std::size_t kDeepestKey = 512;
inline constexpr std::size_t kLongestKeyName = 255;      // characters
inline constexpr std::size_t kLongestValueName = 16383;  // characters

struct RegistryValue {
    std::string name;  // UTF-8, empty for the default value
    std::uint32_t type = 0;
    std::string data;          // as on disk: UTF-16LE for texts, the bytes themselves for all else
    std::uint32_t origin = 0;  // the place in the file it was read from; 0 for a value made since
    bool changed = false;      // set anew since it was read
};

class RegistryKey;
using RegistryKeyPtr = std::shared_ptr<RegistryKey>;

class RegistryKey {
public:
    explicit RegistryKey(std::string name = {});

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] RegistryKey* parent() const { return parent_; }
    [[nodiscard]] std::size_t depth() const;

    // Sorted by name without regard to case.
    [[nodiscard]] const std::vector<RegistryKeyPtr>& children() const { return children_; }
    [[nodiscard]] RegistryKeyPtr find(std::string_view childName) const;
    // The child of this name, made when it is missing. Does not count as a change: readers of files use it.
    RegistryKeyPtr findOrAdd(std::string_view childName);
    // Takes over what the other key holds, with all below it. This one must be empty.
    void fillFrom(const RegistryKey& other);
    // Puts a whole tree below this key, in the place of a child of the same name.
    void attach(RegistryKeyPtr child, std::string childName);
    // Takes the key with its tree out of its parent; handles on any of them see it as deleted.
    void remove();

    // In the order in which they were made.
    [[nodiscard]] const std::vector<RegistryValue>& values() const { return values_; }
    [[nodiscard]] const RegistryValue* findValue(std::string_view valueName) const;
    // Sets a value as a program does: an existing one keeps its place and its spelling.
    void set(std::string_view valueName, std::uint32_t type, std::string data);
    // Text types take UTF-8 without a closing NUL, which is added.
    void setText(std::string_view valueName, std::string_view text, std::uint32_t type = 1);
    bool removeValue(std::string_view valueName);
    // For readers of files, who see to it that no name comes twice. Keys added so are out of order until they are
    // sorted, and cannot be found before: a large file would take hours if each went to its place.
    RegistryKeyPtr appendRead(std::string childName);
    void sortChildren();
    // Adds a value, or replaces one by position.
    void addRead(RegistryValue value) { values_.push_back(std::move(value)); }
    void replaceRead(std::size_t index, RegistryValue value) { values_[index] = std::move(value); }

    // Tells the file this key belongs to that it has to be written.
    void markChanged();

    bool isRoot = false;   // the top of a hive or of a file: it cannot be deleted
    bool changed = false;  // of a root: something in its file changed
    bool isLink = false;   // a symbolic link; its value SymbolicLinkValue tells where to
    bool denied = false;   // a scripted fault: no one may open or delete it
    bool deleted = false;
    std::uint32_t origin = 0;  // the place in the file it was read from; 0 for a key made since

private:
    [[nodiscard]] std::size_t position(std::string_view folded) const;
    void markDeleted();

    std::string name_;
    std::string folded_;  // the name as it is compared
    RegistryKey* parent_ = nullptr;
    std::vector<RegistryKeyPtr> children_;
    std::vector<RegistryValue> values_;
};

// The form in which names are compared and sorted.
std::string foldedName(std::string_view name);

// The parts of a key path; empty parts are dropped, and what follows a NUL is not seen.
std::vector<std::string_view> keyPathParts(std::string_view path);

// All of it: "Machine" (HKEY_LOCAL_MACHINE) and "User" (HKEY_USERS), as the kernel names them.
class RegistryTree {
public:
    explicit RegistryTree(std::string userSid = "S-1-5-21-0-0-0-1000");

    RegistryKeyPtr root() { return root_; }
    [[nodiscard]] const RegistryKeyPtr& machine() const { return machine_; }
    [[nodiscard]] const RegistryKeyPtr& users() const { return users_; }
    [[nodiscard]] const RegistryKeyPtr& currentUser() const { return currentUser_; }
    [[nodiscard]] const std::string& userSid() const { return userSid_; }

    // The same keys and values once more. Nothing of it belongs to a file.
    [[nodiscard]] RegistryTree copy() const;

    // Lets a tree read from a file take the place of a key: mount("Machine", ...), mount("User\\.Default", ...),
    // mount("Machine\\Software", ...). Above a deeper one the shallower must be mounted first.
    void mount(std::string_view path, const RegistryKeyPtr& fileRoot);

    // The key of a path below the root, without following links; null when it is missing.
    RegistryKeyPtr find(std::string_view path);
    // The key of a path below the root, made when it is missing.
    RegistryKeyPtr make(std::string_view path);

private:
    void refresh();

    std::string userSid_;
    RegistryKeyPtr root_;
    RegistryKeyPtr machine_;
    RegistryKeyPtr users_;
    RegistryKeyPtr currentUser_;
};

}  // namespace tidvane::platform
