// A program on a machine in memory, with a scripted display and all windows on offer; none is loaded yet.
#pragma once

#include <functional>
#include <string>

#include "app/all_windows.h"
#include "platform/memory/memory_platform.h"
#include "settings/program.h"
#include "support/scripted_display.h"

namespace tidvane::tests {

class ProgramFixture {
public:
    // `prepare` runs before the program is made: it asks the machine for its folder and code page only once.
    explicit ProgramFixture(const std::function<void(platform::MemoryPlatform&)>& prepare = {})
        : prepared_(prepare), program(machine.platform(), display) {
        app::offerAllWindows(program);
    }

private:
    struct Prepared {
        explicit Prepared(const std::function<void(platform::MemoryPlatform&)>& prepare) {
            if (prepare) prepare(machine);
        }
        platform::MemoryPlatform machine;
    };
    Prepared prepared_;

public:
    platform::MemoryPlatform& machine = prepared_.machine;
    ScriptedDisplay display;
    settings::Program program;

    // A file in the program's own folder.
    void putBeside(const std::string& name, std::string_view bytes) {
        machine.files.putFile(program.inProgramFolder(name), bytes);
    }
    // The value of a key of td_config.ini as it was stored, "<none>" when there is no such key.
    std::string storedValue(const std::string& section, const std::string& key) {
        return machine.profiles.GetPrivateProfileStringA(section, key, "<none>", 4096,
                                                         program.inProgramFolder("td_config.ini"));
    }
};

}  // namespace tidvane::tests
