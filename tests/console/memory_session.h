// A machine in memory with the delivered files beside the program, and a session of the console on it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "console/commands.h"
#include "platform/memory/memory_platform.h"

namespace tidvane::tests {

inline const std::string kProgramFolder = "C:\\Program Files\\Tidvane\\";

inline std::string delivered(const std::string& name) {
    std::ifstream file(std::string(TIDVANE_SOURCE_DIR "/data/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct MemorySession {
    MemorySession() {
        memory.files.putFile(kProgramFolder + "English.lng", delivered("English.lng"));
        memory.files.putFile(kProgramFolder + "td_ban.dat", delivered("td_ban.dat"));
    }

    int run(const console::Options& options) { return console::runCommand(session, options); }
    [[nodiscard]] std::string log() const { return out.str(); }
    [[nodiscard]] std::string messages() const { return err.str(); }
    [[nodiscard]] std::string storedSettings() const {
        return memory.files.bytesOf(kProgramFolder + "td_config.ini").value_or("");
    }

    platform::MemoryPlatform memory;
    std::ostringstream out;
    std::ostringstream err;
    console::Session session{memory.platform(), "memory", out, err, [](std::string&) { return true; }, {}};
};

inline bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace tidvane::tests
