// Menus: their entries are controls of the model too.
#include <wx/menu.h>

#include "view/form_window.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

// An entry without a caption would be taken for one of the toolkit's own.
wxString captionOf(const forms::Menu& entry) {
    const std::string& caption = entry.Caption;
    return toNative(caption.empty() ? entry.Name : caption);
}

}  // namespace

wxMenuItem* FormWindow::menuItem(wxMenu* menu, forms::Menu& entry) {
    if (fillingPopup_ && !entry.Visible) return nullptr;
    wxMenuItem* item = menu->Append(wxID_ANY, captionOf(entry));
    menu->Bind(
        wxEVT_MENU, [this, &entry](wxCommandEvent&) { view_.act([&entry] { entry.Click(); }); }, item->GetId());
    item->Enable(entry.Enabled);
    if (fillingPopup_) return item;
    whenever(entry, [item, &entry] {
        if (item->GetItemLabel() != captionOf(entry)) item->SetItemLabel(captionOf(entry));
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

wxMenu* FormWindow::barMenu(wxMenuBar* bar, forms::Menu& title) {
    auto* made = new wxMenu;
    barMenus_.push_back({&title, made});
    whenever(title, [this, bar, made, &title] {
        std::size_t place = 0;
        for (const BarMenu& other : barMenus_) {
            if (other.menu == made) break;
            if (other.control->Visible) ++place;
        }
        const int at = bar->FindMenu(made->GetTitle());
        const bool there = made->IsAttached();
        if (title.Visible && !there) {
            bar->Insert(std::min(place, bar->GetMenuCount()), made, captionOf(title));
        } else if (!title.Visible && there && at != wxNOT_FOUND) {
            bar->Remove(static_cast<std::size_t>(at));
        } else if (there && bar->GetMenuLabel(place) != captionOf(title)) {
            bar->SetMenuLabel(place, captionOf(title));
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
    native_->PopupMenu(&menu);
}

}  // namespace tidvane::view
