// One file of a registry in text form ("WINE REGISTRY Version 2"): system.reg, user.reg, userdef.reg of a prefix.
//
// The format: a first line that names it, a comment that tells where its keys belong, then sections
//   [Software\\Some Name] 1685112345      the time of the last change in seconds since 1970
//   #time=1d98f5e1a2b3c4d                 the same as a FILETIME; also #class="..." and #link
//   "name"="text"                         @= is the default value
//   "name"=dword:0000002a   hex:01,02   hex(b):...   str(2):"expanded text"   str(7):"one\0two\0"
// in plain ASCII with the escapes \\ \" \[ \] \a \b \e \f \n \r \t \v, octal, and \x with up to four hexadecimal digits
// for a UTF-16 unit. Only hexadecimal data go on in a next line, after a "\" at the end.
//
// Writing is lossless: what was not changed, lines of unknown meaning, class and time stamps included, is written byte
// for byte as it was read and where it was read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common/registry_tree.h"

namespace tidvane::platform {

struct RegistryTextError {
    std::size_t line = 0;  // from 1
    std::string text;      // one sentence in English
};

class RegistryTextFile {
public:
    RegistryTextFile();
    RegistryTextFile(const RegistryTextFile&) = delete;  // its lines point into its own text
    RegistryTextFile& operator=(const RegistryTextFile&) = delete;

    // A file without keys. `place`: "Machine", "User\.Default"; `architecture`: "win64", "win32" or empty.
    void create(std::string_view place, std::string_view architecture);

    // Takes a file's content. False: it is not in the format or was cut off; the tree is then empty and must not be
    // written over the file.
    bool read(std::string bytes, RegistryTextError& error);

    [[nodiscard]] const RegistryKeyPtr& root() const { return root_; }
    // Where the file's keys belong, from its own comment: "Machine", "User\S-1-5-21-0-0-0-1000".
    [[nodiscard]] const std::string& place() const { return place_; }
    [[nodiscard]] const std::string& architecture() const { return architecture_; }

    [[nodiscard]] bool changed() const { return root_->changed; }
    // The whole file as it has to be now. `now` is the FILETIME given to new keys; 0 leaves it out.
    [[nodiscard]] std::string serialize(std::uint64_t now = 0) const;
    void markWritten() { root_->changed = false; }

private:
    friend class RegistryTextReader;

    // A line, or a value of several lines.
    struct Item {
        std::string_view text;  // with its line end
        bool isValue = false;
        std::uint32_t later = 0;  // number of the later line that sets the same value again; 0: none
    };
    struct Section {
        std::string_view head;
        std::uint32_t key = 0;  // RegistryKey::origin
        std::size_t firstItem = 0;
        bool lastOfKey = true;  // a key may have several; new values go to the last
    };
    struct Living;

    void clear();
    void collect(const RegistryKey& key, Living& living) const;
    void writeSection(std::size_t number, const Living& living, std::string& out) const;

    std::string source_;
    std::string_view prolog_;
    std::string place_;
    std::string architecture_;
    std::vector<Section> sections_;
    std::vector<Item> items_;
    std::uint32_t keys_ = 0;  // keys that have a section
    RegistryKeyPtr root_;
};

}  // namespace tidvane::platform
