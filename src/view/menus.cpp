// Menus: their entries are controls of the model too.
#include <wx/control.h>
#include <wx/dataview.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/utils.h>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include <algorithm>

#include "view/form_window.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

// Where a row of a list box lies in it. The toolkit only answers the other way round.
wxRect placeOfRow(const wxListBox& list, int row) {
    wxRect place;
    const wxSize room = list.GetClientSize();
    if (row == wxNOT_FOUND) return place;
    for (int y = 0; y < room.y; ++y) {
        if (list.HitTest(wxPoint(1, y)) != row) continue;
        if (place.IsEmpty()) place = wxRect(0, y, room.x, 0);
        place.height = y - place.y + 1;
    }
    return place;
}

// An entry without a caption would be taken for one of the toolkit's own.
wxString captionOf(const forms::Menu& entry) {
    const std::string& caption = entry.Caption;
    // The entries of an array show names of folders and the like: a sign of theirs is no keyboard letter.
    if (entry.Index) return wxControl::EscapeMnemonics(toNative(caption));
    return toNative(caption.empty() ? entry.Name : caption);
}

// What a double click would do stands out.
void setBold(wxMenuItem* item) {
#ifdef __WXGTK__
    GtkWidget* label = gtk_bin_get_child(GTK_BIN(item->GetMenuItem()));
    if (!GTK_IS_LABEL(label)) return;
    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_weight_new(PANGO_WEIGHT_BOLD));
    gtk_label_set_attributes(GTK_LABEL(label), attributes);
    pango_attr_list_unref(attributes);
#else
    item->SetFont(item->GetFont().Bold());
#endif
}

}  // namespace

wxMenuItem* FormWindow::menuItem(wxMenu* menu, forms::Menu& entry) {
    if (fillingPopup_ && !entry.Visible) return nullptr;
    const auto labelOf = [this, &entry] {
        const std::string keys = shortcutOf && !fillingPopup_ ? shortcutOf(entry) : std::string();
        return keys.empty() ? captionOf(entry) : captionOf(entry) + "\t" + toNative(keys);
    };
    wxMenuItem* item = menu->Append(wxID_ANY, labelOf());
    menu->Bind(
        wxEVT_MENU,
        [this, &entry](wxCommandEvent&) {
            // Behind the key that chose it: its event would stay open while a window that it opens has its own loop,
            // and that window would hear no key.
            native_->CallAfter([this, &entry, weak = std::weak_ptr<bool>(alive_)] {
                if (!weak.expired()) view_.actSoon(weak, [&entry] { entry.Click(); });
            });
        },
        item->GetId());
    item->Enable(entry.Enabled);
    if (fillingPopup_) {
        if (entry.isDefault) setBold(item);
        return item;
    }
    whenever(entry, [item, &entry, labelOf] {
        if (item->GetItemLabel() != labelOf()) item->SetItemLabel(labelOf());
        if (item->IsEnabled() != entry.Enabled.get()) item->Enable(entry.Enabled);
    });
    return item;
}

wxMenu* FormWindow::subMenu(wxMenu* menu, forms::Menu& title) {
    auto* made = new wxMenu;
    wxMenuItem* item = menu->AppendSubMenu(made, captionOf(title));
    item->Enable(title.Enabled);
    if (fillingPopup_) return made;
    whenever(title, [item, &title] {
        if (item->GetItemLabel() != captionOf(title)) item->SetItemLabel(captionOf(title));
        if (item->IsEnabled() != title.Enabled.get()) item->Enable(title.Enabled);
    });
    return made;
}

void FormWindow::menuEntries(wxMenu* menu, const std::string& title) {
    const auto entriesOf = [this](const std::string& name) {
        std::vector<forms::Menu*> entries;
        for (forms::Control* control : form_.Controls()) {
            auto* entry = dynamic_cast<forms::Menu*>(control);
            if (entry != nullptr && entry->parent == name) entries.push_back(entry);
        }
        return entries;
    };
    for (forms::Menu* entry : entriesOf(title)) {
        if (fillingPopup_ && !entry->Visible) continue;
        if (entry->separatorBefore && menu->GetMenuItemCount() > 0) menu->AppendSeparator();
        if (entriesOf(entry->Name).empty()) {
            menuItem(menu, *entry);
        } else {
            menuEntries(subMenu(menu, *entry), entry->Name);
        }
    }
}

wxMenu* FormWindow::barMenu(wxMenuBar* bar, forms::Menu& title) {
    auto* made = new wxMenu;
    barMenus_.push_back({&title, made});
    whenever(title, [this, bar, made, &title] {
        const auto placeOf = [bar](const wxMenu* menu) {
            std::size_t at = 0;
            while (at < bar->GetMenuCount() && bar->GetMenu(at) != menu) ++at;
            return at;
        };
        const std::size_t at = placeOf(made);
        const bool there = at < bar->GetMenuCount();
        if (title.Visible && !there) {
            std::size_t behind = 0;
            for (const BarMenu& other : barMenus_) {
                if (other.menu == made) break;
                if (placeOf(other.menu) < bar->GetMenuCount()) ++behind;
            }
            bar->Insert(behind, made, captionOf(title));
        } else if (!title.Visible && there) {
            bar->Remove(at);
        } else if (there && bar->GetMenuLabel(at) != captionOf(title)) {
            bar->SetMenuLabel(at, captionOf(title));
        }
    });
    return made;
}

void FormWindow::popup(const std::string& name, std::function<void(wxMenu*)> fill) {
    popups_[name] = std::move(fill);
}

void FormWindow::popUp(const std::string& name) {
    const auto found = popups_.find(name);
    if (found == popups_.end() || native_ == nullptr) return;
    wxMenu menu;
    fillingPopup_ = true;
    found->second(&menu);
    fillingPopup_ = false;
    // By the menu key it comes up at what has the focus, wherever the pointer rests.
    wxPoint place = popupPlace_;
    wxWindow* focus = wxWindow::FindFocus();
    if (place == wxDefaultPosition && native_->IsShown() && focus != nullptr && wxGetTopLevelParent(focus) == native_ &&
        !focus->GetScreenRect().Contains(wxGetMousePosition())) {
        place = native_->ScreenToClient(focus->GetScreenPosition()) + native_->FromDIP(wxPoint(2 * kGap, 2 * kGap));
    }
    native_->PopupMenu(&menu, place);
}

void FormWindow::askForPopup(const wxWindow& list, const wxContextMenuEvent& event,
                             const std::function<wxRect()>& currentRow, const std::function<void()>& ask) {
    const bool byKey = event.GetPosition() == wxDefaultPosition;
    if (byKey) {
        const wxRect row = currentRow();
        const wxPoint inset = native_->FromDIP(wxPoint(2 * kGap, 2 * kGap));
        const bool seen = !row.IsEmpty() && list.GetClientRect().Intersects(row);
        const wxPoint place = seen ? wxPoint(std::max(row.x, 0) + inset.x, row.GetBottom() + 1) : inset;
        popupPlace_ = native_->ScreenToClient(list.ClientToScreen(place));
    } else {
        popupPlace_ = native_->ScreenToClient(event.GetPosition());
    }
    view_.act(ask);
    popupPlace_ = wxDefaultPosition;
}

void FormWindow::rowMenu(forms::ListBox& list, std::function<void()> ask) {
    auto* widget = dynamic_cast<wxListBox*>(widgetOf(list));
    on(widget, wxEVT_RIGHT_DOWN, [&list, widget](wxMouseEvent& event) {
        event.Skip();
        const int row = widget->HitTest(event.GetPosition());
        if (row == wxNOT_FOUND || row >= list.ListCount()) return;
        // Where several rows may be marked, one that is not among them stands alone from now on.
        if (!list.ticks && !list.Selected(row)) {
            list.selectAll(false);
            list.setSelected(row, true);
        }
        list.setListIndex(row);
    });
    widget->Bind(wxEVT_CONTEXT_MENU, [this, &list, widget, ask = std::move(ask)](wxContextMenuEvent& event) {
        askForPopup(
            *widget, event, [&] { return placeOfRow(*widget, list.ListIndex()); }, ask);
    });
}

void FormWindow::rowMenu(forms::ListView& list, std::function<void()> ask) {
    auto* widget = dynamic_cast<wxDataViewCtrl*>(widgetOf(list));
    on(widget, wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this, ask](wxDataViewEvent&) {
        popupPlace_ = native_->ScreenToClient(wxGetMousePosition());
        ask();
        popupPlace_ = wxDefaultPosition;
    });
    widget->Bind(wxEVT_CONTEXT_MENU, [this, widget, ask = std::move(ask)](wxContextMenuEvent& event) {
        const auto currentRow = [widget] {
            const wxDataViewItem item = widget->GetCurrentItem();
            return item.IsOk() ? widget->GetItemRect(item) : wxRect();
        };
        askForPopup(*widget, event, currentRow, ask);
    });
}

}  // namespace tidvane::view
