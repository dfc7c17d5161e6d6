// One plug-in on a machine in memory, with the folder C:\Data for what it is to remove.
#pragma once

#include <string>
#include <vector>

#include "plugins/dPlugCleaner.h"
#include "support/app_fixture.h"

namespace tidvane::tests {

struct PlugInFixture : AppFixture {
    const std::string file = inFolder("PlugIns\\a.tdp");
    plugins::dPlugCleaner cleaner{program};

    PlugInFixture() { machine.files.putFolder("C:\\Data"); }

    void put(const std::vector<std::string>& lines) {
        std::string bytes;
        for (const std::string& line : lines) bytes += line + "\r\n";
        machine.files.putFile(file, bytes);
        cleaner.setFilename(file);
    }
    void run(const std::vector<std::string>& lines) {
        start();
        put(lines);
        cleaner.PhasePlugInfo();
    }
    // One line below FILES.
    void runLine(const std::string& line) { run({"[FILES]", line}); }

    void putFiles(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) machine.files.putFile(path, "content");
    }
    bool has(const std::string& path) const { return machine.files.has(path); }
    std::vector<std::string> data() const { return machine.files.everythingBelow("C:\\Data"); }

    void chooseMethod(int row) {
        options().cboKillMethod.setListIndex(row);
        ASSERT_EQ(program.selectedKillMethod(), row);
    }
    // The words of the box are those of another language file.
    void loseMethod() {
        start();
        for (const int entry : {732, 733, 734}) program.LangText.set(entry, "other " + std::to_string(entry));
        ASSERT_EQ(program.selectedKillMethod(), -1);
    }
    std::string variable(const std::string& name) { return machine.environment.get(name).value_or("<none>"); }
    bool warnedOf(platform::WarningKind kind) const {
        for (const platform::Warning& warning : machine.warnings) {
            if (warning.kind == kind) return true;
        }
        return false;
    }
};

}  // namespace tidvane::tests
