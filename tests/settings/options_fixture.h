// The options window on a machine in memory, with a display that records and a main window that is only ears.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "settings/frmChromeDir.h"
#include "settings/frmIEInDepthClean.h"
#include "settings/frmMoreToConfigure.h"
#include "settings/frmMozillaDir.h"
#include "settings/frmOperaDir.h"
#include "settings/frmOptions.h"
#include "settings/frmSafariDir.h"
#include "settings/frmStarter.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"
#include "support/scripted_display.h"

namespace tidvane::settings {

using tests::ScriptedDisplay;

inline std::vector<std::string> rows(const forms::ListBox& list) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(list.ListCount()));
    for (int row = 0; row < list.ListCount(); ++row) texts.push_back(list.List(row));
    return texts;
}

// What the main window was told, in order.
class RecordingReport final : public RunReport {
public:
    std::vector<std::string> calls;
    forms::FontChoice font{"Courier New", 9.5, true, false, 0};
    std::function<void(const std::string&)> onCall;

    void AppendLogText(const std::string&) override {}
    void AddLogLine(const std::string&) override {}
    void AddLogHeading(const std::string&) override {}
    void setPanel(int, const std::string&) override {}
    void setRowStatus(const std::string&, const std::string&) override {}
    void setRowIcon(const std::string&, int) override {}
    void selectRow(const std::string&) override {}
    void setFirstRowStatus(const std::string&) override {}
    void selectFirstRow() override {}
    bool StopRequested() const override { return false; }
    void rebuildTaskRows() override { record("rows"); }
    void clearTaskStatuses() override { record("statuses"); }
    void resetTaskIcons() override { record("icons"); }
    forms::FontChoice logFont() const override { return font; }
    void setLogFont(const forms::FontChoice& choice) override { font = choice; }

private:
    void record(const std::string& call) {
        calls.push_back(call);
        if (onCall) onCall(call);
    }
};

struct OptionsFixture {
    platform::MemoryPlatform machine;
    ScriptedDisplay display;
    Program program{machine.platform(), display};
    RecordingReport report;

    OptionsFixture() {
        // No language file lies on the machine, so these stand. Whole sentences are English then.
        constexpr int kFirstSentence = 933;
        for (int entry = 0; entry < kFirstSentence; ++entry) program.LangText.set(entry, "L" + std::to_string(entry));
        program.LangText.set(732, "Delete");
        program.LangText.set(733, "Recycle");
        program.LangText.set(734, "Overwrite");
        program.LangText.set(735, "About deleting");
        program.LangText.set(736, "About recycling");
        program.LangText.set(737, "About overwriting");
        program.setReport(&report);
        offer<frmOptions>();
        offer<frmMoreToConfigure>();
        offer<frmIEInDepthClean>();
        offer<frmMozillaDir>();
        offer<frmOperaDir>();
        offer<frmChromeDir>();
        offer<frmSafariDir>();
        offer<frmStarter>();
    }

    frmOptions& options() { return program.get<frmOptions>(); }
    platform::MemoryFiles& files() { return machine.files; }
    platform::MemorySystem& system() { return machine.system; }
    platform::Environment& environment() { return machine.environment; }

    static std::string inFolder(const std::string& name) { return "C:\\Program Files\\Tidvane\\" + name; }
    static std::string configFile() { return inFolder("td_config.ini"); }
    void putConfig(const std::string& text) { files().putFile(configFile(), text); }
    void putOptions(const std::vector<std::pair<std::string, std::string>>& keys) {
        std::string text = "[frmOptions]\r\n";
        for (const auto& [key, value] : keys) text.append(key).append("=").append(value).append("\r\n");
        putConfig(text);
    }
    std::string stored(const std::string& key, const std::string& section = "frmOptions") {
        return ReadProfileValue(program, configFile(), section, key);
    }
    void putBeside(const std::string& name, const std::string& bytes) { files().putFile(inFolder(name), bytes); }
    std::optional<std::string> beside(const std::string& name) { return files().bytesOf(inFolder(name)); }

private:
    template <class F>
    void offer() {
        program.windows.offer(F::kName, [this] { return std::make_unique<F>(program); });
    }
};

}  // namespace tidvane::settings
