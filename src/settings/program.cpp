#include "settings/program.h"

#include <array>

#include "base/text.h"
#include "settings/frmOptions.h"

namespace tidvane::settings {

namespace {

// Where reports go while there is no main window.
class NoReport final : public RunReport {
public:
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
    void rebuildTaskRows() override {}
    void clearTaskStatuses() override {}
    void resetTaskIcons() override {}
    forms::FontChoice logFont() const override { return {}; }
    void setLogFont(const forms::FontChoice&) override {}
};

constexpr std::array kKillMethodTexts{732, 733, 734};

}  // namespace

Program::Program(platform::Platform services, forms::Display& screen)
    : platform(services),
      display(screen),
      windows(screen),
      codePage_(services.system.codePage()),
      programFolder_(base::withBackslash(services.system.ApplicationPath())) {}

RunReport& Program::report() {
    static NoReport none;
    return report_ != nullptr ? *report_ : none;
}

int Program::selectedKillMethod() {
    const std::string& chosen = get<frmOptions>().cboKillMethod.Text();
    for (std::size_t method = 0; method < kKillMethodTexts.size(); ++method) {
        if (chosen == LangText(kKillMethodTexts[method])) return static_cast<int>(method);
    }
    return -1;
}

void Program::UnloadAllForms() {
    windows.unloadAll("frmMain");
    end();
}

void Program::end() {
    if (ended_) return;  // the unload of the main window gets here on its own, and its caller behind it
    ended_ = true;
    display.endProgram();
}

int Program::MsgBox(const std::string& text, int style, const std::string& title) {
    if (!unattended) return display.MsgBox(text, style, title);
    constexpr int kButtons = 7;
    return (style & kButtons) == forms::msgbox::YesNo ? forms::msgbox::No : forms::msgbox::Ok;
}

}  // namespace tidvane::settings
