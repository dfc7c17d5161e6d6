// Reads the text form of a registry into a RegistryTextFile.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/common/registry_text.h"

namespace tidvane::platform {

class RegistryTextReader {
public:
    explicit RegistryTextReader(RegistryTextFile& file) : file_(file), text_(file.source_) {}

    bool read(RegistryTextError& error);

private:
    bool fail(std::string text);
    std::string_view takeLine();
    bool readProlog();
    bool readSectionHead(std::string_view line);
    void enterKey(const std::string& path);
    RegistryKeyPtr child(RegistryKey& parent, std::string_view name);
    bool readValue(std::string_view line);
    bool readData(std::string_view rest, RegistryValue& value, bool& known);
    bool readHexData(std::string_view rest, std::string& data, bool& known);
    void keepValue(RegistryValue value);

    RegistryTextFile& file_;
    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 0;
    RegistryTextError error_;

    // The key of the section being read, and the way to it: the next section mostly shares its beginning.
    RegistryKeyPtr key_;
    std::vector<RegistryKeyPtr> way_;
    std::vector<std::string> wayNames_;
    std::vector<std::size_t> sectionOfKey_{0};  // by origin: its last section
    // Subkeys by folded name, of keys that have very many. They are put in order at the end.
    std::unordered_map<RegistryKey*, std::unordered_map<std::string, RegistryKeyPtr>> crowded_;
    // Folded names of the key's values and their positions, once there are many.
    std::unordered_map<std::string, std::size_t> valueIndex_;
};

}  // namespace tidvane::platform
