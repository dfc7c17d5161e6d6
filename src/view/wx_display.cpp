#include "view/wx_display.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/fontdlg.h>
#include <wx/utils.h>

#include <utility>

#include "view/binding/bindings.h"
#include "view/chooser/words.h"
#include "view/layouts.h"
#include "view/message_box.h"
#include "view/saved_name.h"
#include "view/sounds.h"
#include "view/text.h"

namespace tidvane::view {

WxDisplay::WxDisplay(View& view) : view_(view) {}
WxDisplay::~WxDisplay() = default;

FormWindow* WxDisplay::ifOpen(const std::string& name) const {
    for (const auto& [form, window] : open_) {
        if (form->Name == name) return window.get();
    }
    return nullptr;
}

wxWindow* WxDisplay::topWindow() const {
    wxWindow* active = wxGetTopLevelParent(wxGetActiveWindow());
    if (active != nullptr && active->IsShown()) return active;
    for (const auto& [form, window] : open_) {
        if (window->isShown()) return window->native();
    }
    return nullptr;
}

FormWindow* WxDisplay::windowOf(forms::Form& form, const forms::Form* ownedBy) {
    const auto found = open_.find(&form);
    if (found != open_.end()) return found->second.get();
    const WindowLayout* layout = layoutOf(form.Name);
    if (layout == nullptr) return nullptr;
    const View::Still still(view_);
    wxWindow* owner = nullptr;
    if (!layout->style.frame && !layout->style.bare) {
        const auto above = ownedBy == nullptr ? open_.end() : open_.find(ownedBy);
        const bool isThere = above != open_.end() && above->second->isShown();
        owner = isThere ? above->second->native() : topWindow();
        if (ownedBy != nullptr && !isThere) comeFirst_[&form] = ownedBy;
    }
    auto made = std::make_unique<FormWindow>(view_, form, layout->style, owner);
    FormWindow* window = made.get();
    open_[&form] = std::move(made);
    window->onClose = [this, &form] {
        if (windows_ != nullptr) windows_->unload(form, forms::UnloadMode::ControlMenu);
    };
    window->machinePathsOf = [this](const std::vector<std::string>& paths) { return droppedPlaces(paths); };
    layout->layout(*window);
    window->finish();
    applyTopmost(form, *window);
    return window;
}

void WxDisplay::Show(forms::Form& form, forms::Form* owner, bool modal) {
    FormWindow* window = windowOf(form, owner);
    if (window == nullptr) return;
    form.Visible = true;
    shownOnce_ = true;
    view_.settle();
    if (modal) {
        window->showModal();
        return;
    }
    window->show(true);
    for (const auto& [above, itsOwner] : comeFirst_) {
        const auto found = open_.find(above);
        if (itsOwner == &form && found != open_.end()) found->second->standAbove(*window);
    }
    std::erase_if(comeFirst_, [&form](const auto& pair) { return pair.second == &form; });
}

void WxDisplay::Hide(forms::Form& form) {
    form.Visible = false;
    const auto found = open_.find(&form);
    if (found != open_.end()) found->second->show(false);
}

void WxDisplay::Forget(forms::Form& form) {
    topmost_.erase(&form);
    std::erase_if(comeFirst_, [&form](const auto& pair) { return pair.first == &form || pair.second == &form; });
    const auto found = open_.find(&form);
    if (found == open_.end()) return;
    const std::unique_ptr<FormWindow> gone = std::move(found->second);
    open_.erase(found);
    gone->destroy();
}

void WxDisplay::SetFocus(forms::Form& form, const std::string& control) {
    const auto found = open_.find(&form);
    if (found == open_.end()) return;
    view_.settle();
    found->second->setFocus(control);
}

int WxDisplay::MsgBox(const std::string& text, int style, const std::string& title) {
    view_.settle();
    return showMessageBox(topWindow(), text, style, title);
}

std::string WxDisplay::hostFolder(const std::string& folder) const {
    if (!hostPathOf) return folder;
    const std::string host = folder.empty() ? std::string() : hostPathOf(folder);
    return host.empty() ? hostPathOf("C:\\") : host;
}

// What was chosen as the machine names it. Nothing: it lies outside of the machine, which is told.
std::optional<std::string> WxDisplay::chosenPlace(const wxString& path) {
    const std::string chosen = fromNative(path);
    if (!machinePathOf) return chosen;
    std::string place = machinePathOf(chosen);
    if (!place.empty()) return place;
    tellOfPlaceOutside();
    return std::nullopt;
}

std::vector<std::string> WxDisplay::droppedPlaces(const std::vector<std::string>& paths) {
    if (!machinePathOf) return paths;
    std::vector<std::string> places;
    for (const std::string& path : paths) {
        if (std::string place = machinePathOf(path); !place.empty()) places.push_back(std::move(place));
    }
    if (places.size() < paths.size()) tellOfPlaceOutside();
    return places;
}

void WxDisplay::tellOfPlaceOutside() {
    const Tongue tongue = tongueOfHost();
    (void)MsgBox(word(tongue, Word::OutsideTheSystem), forms::msgbox::Exclamation, word(tongue, Word::Title));
}

std::string WxDisplay::askFile(const forms::FileQuestion& question) {
    wxString filter = toNative(question.filter);
    // On this side of the world "*.*" is a mask like any other and would hide names without a dot.
    if (hostPathOf) filter.Replace("|*.*", "|*");
    const wxString title = question.title.empty()
                               ? toNative(word(tongueOfHost(), question.save ? Word::SaveAs : Word::ChooseFile))
                               : toNative(question.title);
    wxFileDialog dialog(topWindow(), title, toNative(hostFolder(question.initialFolder)), {},
                        filter.empty() ? wxString("*") : filter,
                        question.save ? wxFD_SAVE | wxFD_OVERWRITE_PROMPT : wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    while (dialog.ShowModal() == wxID_OK) {
        wxString path = dialog.GetPath();
        if (question.save && !completeName(path, question.filter, dialog.GetFilterIndex())) continue;
        if (const auto place = chosenPlace(path)) return *place;
    }
    return {};
}

// False: the dialog has to ask again. It has asked about a file of the name that was typed, not of the one made of it.
bool WxDisplay::completeName(wxString& path, const std::string& filter, int filterRow) {
    const wxString whole = toNative(withExtension(fromNative(path), filter, filterRow));
    if (whole == path) return true;
    path = whole;
    if (!wxFileName::Exists(whole)) return true;
    const Tongue tongue = tongueOfHost();
    return MsgBox(fromNative(wxFileName(whole).GetFullName()) + "\r\n" + word(tongue, Word::ReplaceFile),
                  forms::msgbox::YesNo | forms::msgbox::Question | forms::msgbox::DefaultButton2,
                  word(tongue, Word::SaveAs)) == forms::msgbox::Yes;
}

std::string WxDisplay::askFolder(forms::Form*, const std::string& title) {
    wxDirDialog dialog(topWindow(), toNative(title), toNative(hostFolder({})), wxDD_DIR_MUST_EXIST);
    while (dialog.ShowModal() == wxID_OK) {
        if (const auto place = chosenPlace(dialog.GetPath())) return *place;
    }
    return {};
}

std::optional<forms::FontChoice> WxDisplay::askFont(const forms::FontChoice& current) {
    wxFontData data;
    // The one that is seen, also where the design names another.
    wxFont seen = *wxNORMAL_FONT;
    if (current.name != kDesignedFont) seen.SetFaceName(toNative(current.name));
    seen.SetFractionalPointSize(shownPoints(current.size));
    seen.SetWeight(current.bold ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
    seen.SetStyle(current.italic ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL);
    data.SetInitialFont(seen);
    data.SetColour(toColour(current.colour));
    data.EnableEffects(true);
    wxFontDialog dialog(topWindow(), data);
    if (dialog.ShowModal() != wxID_OK) return std::nullopt;
    const wxFont font = dialog.GetFontData().GetChosenFont();
    const wxColour colour = dialog.GetFontData().GetColour();
    forms::FontChoice choice;
    choice.name = fromNative(font.GetFaceName());
    choice.size = font.GetFractionalPointSize();
    choice.bold = font.GetWeight() >= wxFONTWEIGHT_SEMIBOLD;
    choice.italic = font.GetStyle() == wxFONTSTYLE_ITALIC;
    choice.colour = colour.IsOk() ? static_cast<unsigned>(colour.Red()) | static_cast<unsigned>(colour.Green()) << 8U |
                                        static_cast<unsigned>(colour.Blue()) << 16U
                                  : current.colour;
    return choice;
}

void WxDisplay::clearClipboard() {
    if (!wxTheClipboard->Open()) return;
    wxTheClipboard->Clear();
    wxTheClipboard->Close();
}

void WxDisplay::setClipboard(const std::string& text) {
    if (!wxTheClipboard->Open()) return;
    wxTheClipboard->SetData(new wxTextDataObject(linesToNative(text)));
    wxTheClipboard->Flush();
    wxTheClipboard->Close();
}

void WxDisplay::addTrayIcon(const std::string& tip) {
    if (!tray_) {
        tray_ = makeTray();
        tray_->onDoubleClick = [this] {
            if (onTrayDoubleClick) view_.act(onTrayDoubleClick);
        };
        tray_->onMenu = [this] {
            if (onTrayMenu) view_.act(onTrayMenu);
        };
        tray_->entries = [this] { return trayEntries ? trayEntries() : std::vector<TrayEntry>(); };
        tray_->onEntry = [this](const std::string& name) {
            if (onTrayEntry) view_.act([this, &name] { onTrayEntry(name); });
        };
    }
    trayShown_ = tray_->add(tip);
}

void WxDisplay::removeTrayIcon() {
    trayShown_ = false;
    if (tray_) tray_->remove();
}

void WxDisplay::trayMenuChanged() {
    if (trayShown_) tray_->menuChanged();
}

std::uint64_t WxDisplay::windowHandle(forms::Form& form) {
    FormWindow* window = windowOf(form);
    if (window == nullptr || window->native() == nullptr) return 0;
    return reinterpret_cast<std::uintptr_t>(window->native()->GetHandle());
}

// A window may ask for it while it loads, long before anybody sees it.
void WxDisplay::setTopmost(forms::Form& form, bool topmost) {
    topmost_[&form] = topmost;
    const auto found = open_.find(&form);
    if (found != open_.end()) applyTopmost(form, *found->second);
}

void WxDisplay::applyTopmost(const forms::Form& form, FormWindow& window) {
    const auto wanted = topmost_.find(&form);
    wxTopLevelWindow* native = window.native();
    if (wanted == topmost_.end() || native == nullptr) return;
    const long style = native->GetWindowStyleFlag();
    native->SetWindowStyleFlag(wanted->second ? style | wxSTAY_ON_TOP : style & ~wxSTAY_ON_TOP);
}

void WxDisplay::setPointer(int pointer) {
    const bool busy = pointer == forms::pointer::Hourglass;
    if (busy == pointerBusy_) return;
    pointerBusy_ = busy;
    const wxCursor cursor(busy ? wxCURSOR_WAIT : wxCURSOR_ARROW);
    for (const auto& [form, window] : open_) {
        if (window->native() != nullptr) window->native()->SetCursor(busy ? cursor : wxNullCursor);
    }
}

void WxDisplay::popUpMenu(forms::Form& form, const std::string& menu) {
    view_.settle();
    if (FormWindow* window = windowOf(form)) window->popUp(menu);
}

void WxDisplay::sndPlaySound(const std::string& file) {
    playSoundFile(hostPathOf ? hostPathOf(file) : file);
}

void WxDisplay::warn(const std::string& line) {
    view_.notices.add(line);
    if (onWarning) onWarning(line);
}

void WxDisplay::endProgram() {
    ended_ = true;
    removeTrayIcon();
    if (onEnd) onEnd();
}

}  // namespace tidvane::view
