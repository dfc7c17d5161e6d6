// The icon in whichever place there is: first the one that draws menus as the desktop does.
#include "view/tray/kinds.h"

namespace tidvane::view {

namespace {

class DesktopTray final : public Tray {
public:
    DesktopTray() {
#ifdef __WXGTK__
        kinds_.push_back(makeNotifierTray());
#endif
        kinds_.push_back(makeEmbeddedTray());
        for (const auto& kind : kinds_) {
            kind->onDoubleClick = [this] {
                if (onDoubleClick) onDoubleClick();
            };
            kind->onMenu = [this] {
                if (onMenu) onMenu();
            };
            kind->entries = [this] { return entries ? entries() : std::vector<TrayEntry>(); };
            kind->onEntry = [this](const std::string& name) {
                if (onEntry) onEntry(name);
            };
        }
    }

    bool add(const std::string& tip) override {
        if (shown_ != nullptr) return true;
        for (const auto& kind : kinds_) {
            if (!kind->add(tip)) continue;
            shown_ = kind.get();
            return true;
        }
        return false;
    }

    void remove() override {
        if (shown_ != nullptr) shown_->remove();
        shown_ = nullptr;
    }

    void menuChanged() override {
        if (shown_ != nullptr) shown_->menuChanged();
    }

private:
    std::vector<std::unique_ptr<Tray>> kinds_;
    Tray* shown_ = nullptr;
};

}  // namespace

std::unique_ptr<Tray> makeTray() {
    return std::make_unique<DesktopTray>();
}

}  // namespace tidvane::view
