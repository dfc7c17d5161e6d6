// Tells when the tray of an X11 desktop goes away.
#pragma once

#include <wx/event.h>

#include <functional>

typedef struct _GdkWindow GdkWindow;

namespace tidvane::view {

class OwnerWatch final : public wxEvtHandler {
public:
    // Watches the tray that there is now. `onGone` is called later, from the loop of events.
    explicit OwnerWatch(std::function<void()> onGone);
    ~OwnerWatch() override;
    OwnerWatch(const OwnerWatch&) = delete;
    OwnerWatch& operator=(const OwnerWatch&) = delete;

    void ownerGone();

private:
    std::function<void()> onGone_;
    GdkWindow* owner_ = nullptr;
};

}  // namespace tidvane::view
