// What a preview has changed, kept for the folders in which it did: nothing is held for the others.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/file_system.h"

namespace tidvane::platform {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// A file that was written: either its bytes, or the file below whose copy it is.
struct PreviewContent {
    std::string bytes;
    std::string copyOf;
    std::uint64_t length = 0;
    FileTimes times;
};

// One entry of which something was changed, or in which something was.
class PreviewNode {
public:
    using Names = std::unordered_set<std::string, TextHash, std::equal_to<>>;
    using Nodes = std::unordered_map<std::string, std::unique_ptr<PreviewNode>, TextHash, std::equal_to<>>;

    PreviewNode(std::string entryName, EntryKind entryKind, std::string pathBelow)
        : name(std::move(entryName)), kind(entryKind), below(std::move(pathBelow)) {}

    std::string name;
    EntryKind kind;
    // Where the files below have it; empty: they have nothing of it.
    std::string below;
    // It was put here: the files below have it at another place, or nowhere.
    bool own = false;
    std::optional<unsigned> attributes;  // as they were set
    std::optional<PreviewContent> content;
    PreviewNode* parent = nullptr;

    [[nodiscard]] bool isFolder() const { return kind == EntryKind::Folder; }
    [[nodiscard]] std::optional<bool> readOnly() const;
    // How people are told of it: an entry that only got another name goes by the one that it really has.
    [[nodiscard]] std::string shownName() const;
    // The same of its whole path, without a trailing backslash.
    [[nodiscard]] std::string path() const;

    // --- a folder's content. Names are as the volume spells them. ----------------------------------------------------

    // Whether an entry that the files below have is to be seen no more.
    [[nodiscard]] bool isGone(std::string_view entryName) const { return hollow_ != names_.contains(entryName); }
    // Whether nothing is gone: what the files below list is there.
    [[nodiscard]] bool isWhole() const { return !hollow_ && names_.empty(); }
    void markGone(const std::string& entryName);
    // All is gone that the files below have here but these.
    void hollowOut(std::vector<std::string> left);
    // What is left of a hollow folder; null for any other.
    [[nodiscard]] const Names* left() const { return hollow_ ? &names_ : nullptr; }

    [[nodiscard]] const Nodes& nodes() const { return nodes_; }
    [[nodiscard]] PreviewNode* find(std::string_view entryName) const;
    // Some node whose name differs in case at most.
    [[nodiscard]] PreviewNode* findFolded(std::string_view entryName) const;
    PreviewNode& attach(std::unique_ptr<PreviewNode> node);
    std::unique_ptr<PreviewNode> detach(std::string_view entryName);

    // Names of the files below that differ in case alone, where a volume has such: filled at the first question.
    std::optional<std::vector<std::string>> twins;

private:
    // The names that are gone, or, in a hollow folder, those that are left.
    Names names_;
    bool hollow_ = false;
    Nodes nodes_;
    std::unordered_multimap<std::string, PreviewNode*> folded_;
};

// The path of an entry in a folder, which may be a root with its backslash.
[[nodiscard]] std::string joined(const std::string& folder, std::string_view name);

}  // namespace tidvane::platform
