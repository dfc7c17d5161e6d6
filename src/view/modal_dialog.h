#pragma once

#include <wx/dialog.h>

#include <optional>

namespace tidvane::view {

// A dialog that may be ended while others stand modally above it. The toolkit lets only the innermost loop end: told to
// an outer one it hides the dialog and leaves its loop running, for ever.
class ModalDialog final : public wxDialog {
public:
    ModalDialog(wxWindow* owner, const wxString& title, long look = wxDEFAULT_DIALOG_STYLE);

    // Ends at once where nothing stands above it, else as soon as what does has ended. Nothing if it is not modal.
    void endSoon(int code);
    // Hiding a modal dialog ends it.
    bool Show(bool show = true) override;
    // Nothing stands above it any more.
    void uncovered();

private:
    std::optional<int> code_;  // what it ends with once it can
};

}  // namespace tidvane::view
