#include "view/tray/model_tray.h"

#include <memory>

#include "app/frmMain.h"
#include "forms/simple_controls.h"
#include "view/measures.h"

namespace tidvane::view {

namespace {

constexpr const char* kTrayMenu = "mnMain";

app::frmMain* mainOf(settings::Program& program) {
    return static_cast<app::frmMain*>(program.windows.ifLoaded(app::frmMain::kName));
}

// The messages come as places of a pointer over PicSystrayIcon.
void tell(settings::Program& program, int message) {
    if (app::frmMain* main = mainOf(program)) main->trayMouseMove(message * kTwipsPerPixel, kTwipsPerPixel);
}

}  // namespace

std::vector<TrayEntry> entriesOf(const forms::Form& form, const std::string& menu) {
    std::vector<TrayEntry> entries;
    for (const forms::Control* control : form.Controls()) {
        const auto* entry = dynamic_cast<const forms::Menu*>(control);
        if (entry == nullptr || entry->parent != menu || !entry->Visible) continue;
        const std::string& caption = entry->Caption.get();
        entries.push_back({entry->Name, caption.empty() ? entry->Name : caption, entry->Enabled.get(),
                           entry->separatorBefore, entriesOf(form, entry->Name)});
    }
    return entries;
}

void connectTray(WxDisplay& display, settings::Program& program) {
    display.onTrayDoubleClick = [&program] { tell(program, app::TrayRecord::kLeftDoubleClick); };
    display.onTrayMenu = [&program] { tell(program, app::TrayRecord::kRightButtonUp); };
    // Changes are told from the first time on that somebody has asked for the menu.
    display.trayEntries = [&display, &program,
                           heard = std::make_shared<const forms::Form*>(nullptr)]() -> std::vector<TrayEntry> {
        const app::frmMain* main = mainOf(program);
        if (main == nullptr) return {};
        if (*heard != main) {
            *heard = main;
            for (forms::Control* control : main->Controls()) {
                if (control->kind != forms::ControlKind::Menu) continue;
                control->viewChanged.connect([&display] { display.trayMenuChanged(); });
            }
        }
        return entriesOf(*main, kTrayMenu);
    };
    // The menu on the screen may be older than the program's.
    display.onTrayEntry = [&program](const std::string& name) {
        app::frmMain* main = mainOf(program);
        auto* entry = main == nullptr ? nullptr : dynamic_cast<forms::Menu*>(main->control(name));
        if (entry != nullptr && entry->Enabled && entry->Visible) entry->Click();
    };
}

}  // namespace tidvane::view
