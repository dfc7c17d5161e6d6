#include <wx/settings.h>
#include <wx/taskbar.h>
#include <wx/time.h>

#include <utility>

#include "view/icons.h"
#include "view/text.h"
#include "view/tray/kinds.h"
#include "view/tray/owner_watch.h"

namespace tidvane::view {

namespace {

#ifdef __WXGTK__
const wxEventTypeTag<wxTaskBarIconEvent>& kMenuEvent = wxEVT_TASKBAR_CLICK;
constexpr int kUsualDoubleClick = 400;  // milliseconds
#else
const wxEventTypeTag<wxTaskBarIconEvent>& kMenuEvent = wxEVT_TASKBAR_RIGHT_UP;
#endif

class EmbeddedTray final : public Tray {
public:
    EmbeddedTray() {
        icon_.Bind(wxEVT_TASKBAR_LEFT_DCLICK, [this](wxTaskBarIconEvent&) {
            if (isDoubleClick() && onDoubleClick) onDoubleClick();
        });
        icon_.Bind(kMenuEvent, [this](wxTaskBarIconEvent&) {
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
    // Under GTK each click is told as a double one.
    bool isDoubleClick() {
#ifdef __WXGTK__
        const wxMilliClock_t now = wxGetLocalTimeMillis();
        const wxMilliClock_t before = std::exchange(lastClick_, now);
        const int within = wxSystemSettings::GetMetric(wxSYS_DCLICK_MSEC);
        if (now - before > (within > 0 ? within : kUsualDoubleClick)) return false;
        lastClick_ = 0;
#endif
        return true;
    }

    wxTaskBarIcon icon_;
    wxMilliClock_t lastClick_ = 0;
    std::unique_ptr<OwnerWatch> watch_;
};

}  // namespace

std::unique_ptr<Tray> makeEmbeddedTray() {
    return std::make_unique<EmbeddedTray>();
}

}  // namespace tidvane::view
