// The whole program on a machine in memory, with a scripted display.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "app/all_windows.h"
#include "app/frmMain.h"
#include "base/text.h"
#include "platform/memory/memory_platform.h"
#include "settings/frmOptions.h"
#include "settings/program.h"
#include "support/scripted_display.h"

namespace tidvane::tests {

// The English texts as they are delivered, bytes of the code page.
inline std::string englishLanguageFile() {
    std::ifstream file(TIDVANE_SOURCE_DIR "/data/English.lng", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Nothing is loaded before a test asks for a window, so a test can furnish the machine first.
struct AppFixture : testing::Test {
    platform::MemoryPlatform machine;
    ScriptedDisplay display;
    settings::Program program{machine.platform(), display};

    AppFixture() {
        machine.files.putFile(inFolder("English.lng"), englishLanguageFile());
        machine.files.putFile(inFolder("td_last.dat"), "#2009-11-02#\r\n#07:05:09#\r\n");
        app::offerAllWindows(program);
    }

    static std::string inFolder(const std::string& name) { return "C:\\Program Files\\Tidvane\\" + name; }

    app::frmMain& main() { return program.get<app::frmMain>(); }
    settings::frmOptions& options() { return program.get<settings::frmOptions>(); }
    const std::string& text(int index) { return program.LangText(index); }

    // Lines without the time in front, so that tests read as the log does.
    app::frmMain& mainWithoutTimes() {
        options().chkLogTimestamp.Value = 1;
        return main();
    }

    std::vector<std::string> logLines() {
        std::vector<std::string> lines = base::split(main().txtLog.Text(), "\r\n");
        if (!lines.empty() && lines.back().empty()) lines.pop_back();
        return lines;
    }
    int countOf(const std::string& line) {
        int count = 0;
        for (const std::string& candidate : logLines()) count += candidate == line ? 1 : 0;
        return count;
    }
    bool logHas(const std::string& line) { return countOf(line) > 0; }
    std::string status(const std::string& key) {
        const forms::ListItem* row = main().lstTasks.item(key);
        return row == nullptr ? std::string("(no row)") : row->subItem("Status");
    }
    int icon(const std::string& key) {
        const forms::ListItem* row = main().lstTasks.item(key);
        return row == nullptr ? -1 : row->smallIcon;
    }
    // Ticks a gate as the options window's OK does.
    void tick(forms::CheckBox& box, int value = 1) {
        box.Value = value;
        main().rebuildTaskRows();
    }
};

}  // namespace tidvane::tests
