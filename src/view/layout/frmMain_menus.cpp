// The menu bar of the main window, its pop-up menus and its keys.
#include <wx/accel.h>
#include <wx/frame.h>
#include <wx/menu.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "app/menu_table.h"
#include "app/shortcuts.h"
#include "view/layout/frmMain_parts.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr std::array kPopUps{"mnCleanPlugs", "mnExtensions", "mnExtraTask", "mnMain", "mnCustom"};

// The title moves to the right end of its bar, away from the commands.
void toRightEnd(wxMenuBar* bar, const wxMenu* menu) {
#ifdef __WXGTK__
    for (std::size_t at = 0; at < bar->GetMenuCount(); ++at) {
        if (bar->GetMenu(at) != menu) continue;
        GtkWidget* item = gtk_menu_get_attach_widget(GTK_MENU(menu->m_menu));
        if (item == nullptr) return;
        // Old, and still the only way to tell the bar.
        G_GNUC_BEGIN_IGNORE_DEPRECATIONS
        gtk_menu_item_set_right_justified(GTK_MENU_ITEM(item), TRUE);
        G_GNUC_END_IGNORE_DEPRECATIONS
    }
#else
    (void)bar;
    (void)menu;
#endif
}

// All buttons with keys lie on the page of the cleaning: its user sees what they do.
void pressFromAnyPage(app::frmMain& form, controls::isButton& button) {
    if (!button.Enabled) return;
    if (!button.Visible) form.menu("mnuCleaner").Click();
    button.press();
}

}  // namespace

void makeMainMenus(FormWindow& window, app::frmMain& form) {
    auto* frame = dynamic_cast<wxFrame*>(window.native());
    if (frame == nullptr) return;
    window.shortcutOf = [](const forms::Control& control) {
        return std::string(control.Index ? std::string_view() : app::shortcutOf(control.Name));
    };
    auto* bar = new wxMenuBar;
    // The last title of a bar alone can stand at its right end: those of the pages come in front of it.
    for (const bool atRightEnd : {false, true}) {
        for (const app::MenuRow& row : app::menuTable()) {
            if (*row.parent != '\0' || app::isPopUpTitle(row.name) || row.atRightEnd != atRightEnd) continue;
            forms::Menu& title = form.menu(row.name);
            wxMenu* menu = window.barMenu(bar, title);
            window.menuEntries(menu, row.name);
            if (atRightEnd) window.whenever(title, [bar, menu] { toRightEnd(bar, menu); });
        }
    }
    frame->SetMenuBar(bar);
    for (const char* name : kPopUps) {
        window.popup(name, [&window, name](wxMenu* menu) { window.menuEntries(menu, name); });
    }
}

void makeMainKeys(FormWindow& window, app::frmMain& form) {
    struct Key {
        wxAcceleratorEntry keys;
        controls::isButton* button;
    };
    auto table = std::make_shared<std::vector<Key>>();
    for (const app::Shortcut& row : app::shortcuts()) {
        auto* button = dynamic_cast<controls::isButton*>(form.control(row.control));
        wxAcceleratorEntry keys;
        if (button != nullptr && keys.FromString(toNative(std::string("\t") + row.keys))) {
            table->push_back({keys, button});
        }
    }
    window.native()->Bind(wxEVT_CHAR_HOOK, [&window, &form, table](wxKeyEvent& event) {
        constexpr int kKeyF5 = 116;  // of the model
        const int modifiers = (event.ControlDown() ? wxACCEL_CTRL : 0) | (event.ShiftDown() ? wxACCEL_SHIFT : 0) |
                              (event.AltDown() ? wxACCEL_ALT : 0);
        for (const Key& key : *table) {
            if (key.keys.GetKeyCode() != event.GetKeyCode() || key.keys.GetFlags() != modifiers) continue;
            window.act([&form, &key] { pressFromAnyPage(form, *key.button); });
            return;
        }
        const bool onPlugIns = form.SSTab1.Tab == app::frmMain::kPlugInsTab;
        if (onPlugIns && event.GetKeyCode() == WXK_F5 && modifiers == 0) {
            window.act([&form] { form.plugListKeyDown(kKeyF5); });
            return;
        }
        // The click into the search box, for who has no mouse at hand.
        if (onPlugIns && event.GetKeyCode() == 'F' && modifiers == wxACCEL_CTRL) {
            window.act([&window, &form] {
                window.setFocus(form.txtSearchPlugs.Name);
                form.searchBoxClick();
            });
            return;
        }
        event.Skip();
    });
}

}  // namespace tidvane::view
