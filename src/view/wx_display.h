// The display of the windows.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/display.h"
#include "forms/windows.h"
#include "view/form_window.h"
#include "view/tray.h"
#include "view/view.h"

namespace tidvane::view {

class WxDisplay final : public forms::Display {
public:
    explicit WxDisplay(View& view);
    ~WxDisplay() override;

    // The list of windows that closes them; told once, before anything is shown.
    void setWindows(forms::Windows& windows) { windows_ = &windows; }
    // The native window of a form, made at its first use. Null for a form without a layout.
    FormWindow* windowOf(forms::Form& form, const forms::Form* ownedBy = nullptr);
    FormWindow* ifOpen(const std::string& form) const;
    // True once a window is or was on the screen.
    [[nodiscard]] bool shownOnce() const { return shownOnce_; }
    [[nodiscard]] bool ended() const { return ended_; }
    // Behind the end of the program.
    std::function<void()> onEnd;
    // The two gestures of the tray icon.
    std::function<void()> onTrayDoubleClick;
    std::function<void()> onTrayMenu;
    // Its menu, for desktops that draw it themselves, and the name of the entry that was chosen there.
    std::function<std::vector<TrayEntry>()> trayEntries;
    std::function<void(const std::string&)> onTrayEntry;
    void trayMenuChanged();
    // What the last warnings were; the front end shows them beside the log.
    std::function<void(const std::string&)> onWarning;

    void Show(forms::Form& form, forms::Form* owner, bool modal) override;
    void Hide(forms::Form& form) override;
    void Forget(forms::Form& form) override;
    void SetFocus(forms::Form& form, const std::string& control) override;
    int MsgBox(const std::string& text, int style, const std::string& title) override;
    std::string askFile(const forms::FileQuestion& question) override;
    std::string askFolder(forms::Form* owner, const std::string& title) override;
    std::optional<forms::FontChoice> askFont(const forms::FontChoice& current) override;
    void clearClipboard() override;
    void setClipboard(const std::string& text) override;
    void addTrayIcon(const std::string& tip) override;
    void removeTrayIcon() override;
    bool hasTray() override { return trayShown_; }
    std::uint64_t windowHandle(forms::Form& form) override;
    void setTopmost(forms::Form& form, bool topmost) override;
    void setPointer(int pointer) override;
    void popUpMenu(forms::Form& form, const std::string& menu) override;
    void sndPlaySound(const std::string& file) override;
    void warn(const std::string& line) override;
    void endProgram() override;

    // Between paths of the machine and paths of the host, for the dialogs; identity where both are the same.
    std::function<std::string(const std::string&)> hostPathOf;
    std::function<std::string(const std::string&)> machinePathOf;

private:
    wxWindow* topWindow() const;
    [[nodiscard]] std::string hostFolder(const std::string& folder) const;
    // Gives the name an extension; asks where a file of that name is there.
    bool completeName(wxString& path, const std::string& filter, int filterRow);
    std::optional<std::string> chosenPlace(const wxString& path);
    // The same of what was dropped: what lies inside, and one word about the rest.
    std::vector<std::string> droppedPlaces(const std::vector<std::string>& paths);
    void tellOfPlaceOutside();
    void applyTopmost(const forms::Form& form, FormWindow& window);

    View& view_;
    forms::Windows* windows_ = nullptr;
    std::map<const forms::Form*, std::unique_ptr<FormWindow>> open_;
    std::map<const forms::Form*, bool> topmost_;
    // Dialogs that came up before the window they belong to, with that window.
    std::map<const forms::Form*, const forms::Form*> comeFirst_;
    std::unique_ptr<Tray> tray_;
    bool trayShown_ = false;
    bool pointerBusy_ = false;
    bool shownOnce_ = false;
    bool ended_ = false;
};

}  // namespace tidvane::view
