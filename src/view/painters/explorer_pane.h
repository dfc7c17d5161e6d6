// The task pane on the screen.
#pragma once

#include <wx/control.h>

#include <functional>

#include "controls/explorer_bar.h"

namespace tidvane::view {

class ExplorerPane final : public wxControl {
public:
    // `act` runs what a user does.
    ExplorerPane(wxWindow* parent, controls::ExplorerBar& bar, std::function<void(const std::function<void()>&)> act);
    // The pane becomes what the model is.
    void update();

private:
    controls::ExplorerBar& bar_;
    std::function<void(const std::function<void()>&)> act_;
};

}  // namespace tidvane::view
