#include <wx/taskbar.h>
#include <wx/thread.h>

#include "view/icons.h"
#include "view/text.h"
#include "view/tray/kinds.h"
#include "view/tray/owner_watch.h"

namespace tidvane::view {

namespace {

class EmbeddedTray final : public Tray {
public:
    EmbeddedTray() {
        icon_.Bind(wxEVT_TASKBAR_LEFT_DCLICK, [this](wxTaskBarIconEvent&) {
            if (onDoubleClick) onDoubleClick();
        });
        icon_.Bind(wxEVT_TASKBAR_RIGHT_UP, [this](wxTaskBarIconEvent&) {
            if (onMenu) onMenu();
        });
    }

    bool add(const std::string& tip) override {
        if (icon_.IsIconInstalled()) return true;
        if (!wxTaskBarIcon::IsAvailable()) return false;
        if (!icon_.SetIcon(icon("PicSystrayIcon"), toNative(tip).Trim(false))) return false;
        watch_ = std::make_unique<OwnerWatch>([this] {
            if (onDoubleClick) onDoubleClick();
        });
        return true;
    }

    void remove() override {
        watch_.reset();
        if (icon_.IsIconInstalled()) icon_.RemoveIcon();
    }

private:
    wxTaskBarIcon icon_;
    std::unique_ptr<OwnerWatch> watch_;
};

}  // namespace

std::unique_ptr<Tray> makeEmbeddedTray() {
    return std::make_unique<EmbeddedTray>();
}

}  // namespace tidvane::view
