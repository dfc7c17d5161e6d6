// The whole program on a machine in memory, with a scripted display.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
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

// A delivered file, bytes of the code page.
inline std::string deliveredFile(const std::string& name) {
    std::ifstream file(TIDVANE_SOURCE_DIR "/data/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
inline std::string englishLanguageFile() {
    return deliveredFile("English.lng");
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

    // A machine in German: its locale and the program's texts.
    void speakGerman() {
        machine.system.systemLocale = base::germanLocale();
        machine.files.take(inFolder("English.lng"));
        machine.files.putFile(inFolder("Deutsch (German).lng"), deliveredFile("languages/Deutsch (German).lng"));
    }

    // What td_config.ini holds when the program starts: "name=value" lines of a window.
    void store(const std::vector<std::string>& lines, const std::string& section = "frmOptions") {
        for (const std::string& line : lines) {
            const std::size_t sign = line.find('=');
            stored_[section][line.substr(0, sign)] = line.substr(sign + 1);
        }
        std::string file;
        for (const auto& [name, keys] : stored_) {
            file += "[" + name + "]\r\n";
            for (const auto& [key, value] : keys) file += key + "=" + value + "\r\n";
        }
        machine.files.putFile(inFolder("td_config.ini"), file);
    }
    std::string storedValue(const std::string& section, const std::string& key) {
        return machine.profiles.GetPrivateProfileStringA(section, key, "<none>", 4096, inFolder("td_config.ini"));
    }

    // A key of the user's registry, made with one value; its path below HKEY_CURRENT_USER.
    void putKey(const std::string& path, int values = 1) {
        platform::RegistryKeyPtr key = machine.registryTree.currentUser();
        for (const std::string& part : base::split(path, "\\")) key = key->findOrAdd(part);
        for (int i = 0; i < values; ++i) key->setText("value" + std::to_string(i), "data");
    }
    bool hasKey(const std::string& path) {
        platform::RegistryKeyPtr key = machine.registryTree.currentUser();
        for (const std::string& part : base::split(path, "\\")) {
            if (key != nullptr) key = key->find(part);
        }
        return key != nullptr;
    }

    app::frmMain& main() {
        started_ = true;
        return program.get<app::frmMain>();
    }
    // The main window starts the program: asked for later, it would be loaded from inside the load of another one.
    settings::frmOptions& options() {
        start();
        return program.get<settings::frmOptions>();
    }
    const std::string& text(int index) {
        start();
        return program.LangText(index);
    }
    // Once: a program that has ended is not started again.
    void start() {
        if (!started_) main();
    }

    // Lines without the time in front, so that tests read as the log does.
    app::frmMain& mainWithoutTimes() {
        options().chkLogTimestamp.Value = 1;
        return main();
    }

    std::vector<std::string> logLines() { return linesOf(main().txtLog.Text()); }
    static std::vector<std::string> linesOf(const std::string& text) {
        std::vector<std::string> lines = base::split(text, "\r\n");
        if (!lines.empty() && lines.back().empty()) lines.pop_back();
        return lines;
    }
    // The log from the first line that starts so.
    std::vector<std::string> logFrom(const std::string& start) {
        std::vector<std::string> lines = logLines();
        while (!lines.empty() && !lines.front().starts_with(start)) lines.erase(lines.begin());
        return lines;
    }
    const std::string& panel(int number) { return main().StatusBar1.Panel(number); }
    // A user's click on the button.
    void clean() { main().cmdClean.press(); }
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

private:
    std::map<std::string, std::map<std::string, std::string>> stored_;
    bool started_ = false;
};

// A further program for a test that compares several starts.
struct AppFixtureRun final : AppFixture {
    void TestBody() override {}
};

}  // namespace tidvane::tests
