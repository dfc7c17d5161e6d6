#include "view/modal_dialog.h"

#include <wx/modalhook.h>

#include <algorithm>
#include <vector>

namespace tidvane::view {

namespace {

// Every dialog that stands modally, the toolkit's own ones too; the innermost last.
class Standing final : public wxModalDialogHook {
public:
    // As long as the program: the toolkit's list of hooks goes before or behind anything that ends with it.
    static Standing& all() {
        static auto* standing = [] {
            auto* made = new Standing;
            made->Register();
            return made;
        }();
        return *standing;
    }

    [[nodiscard]] bool isInnermost(const wxDialog& dialog) const {
        return !dialogs_.empty() && dialogs_.back() == &dialog;
    }

protected:
    int Enter(wxDialog* dialog) override {
        dialogs_.push_back(dialog);
        return wxID_NONE;
    }
    void Exit(wxDialog* dialog) override {
        const auto last = std::find(dialogs_.rbegin(), dialogs_.rend(), dialog);
        if (last != dialogs_.rend()) dialogs_.erase(std::next(last).base());
        if (dialogs_.empty()) return;
        if (auto* outer = dynamic_cast<ModalDialog*>(dialogs_.back())) outer->uncovered();
    }

private:
    std::vector<wxDialog*> dialogs_;
};

}  // namespace

ModalDialog::ModalDialog(wxWindow* owner, const wxString& title, long look)
    : wxDialog(owner, wxID_ANY, title, wxDefaultPosition, wxDefaultSize, look) {
    Standing::all();
}

void ModalDialog::endSoon(int code) {
    if (!IsModal()) return;
    if (Standing::all().isInnermost(*this)) {
        code_.reset();
        EndModal(code);
        return;
    }
    code_ = code;
    // The parent's own hiding would end the loop, which is what does not work here.
    wxTopLevelWindow::Show(false);  // NOLINT(bugprone-parent-virtual-call)
}

void ModalDialog::uncovered() {
    if (code_) endSoon(*code_);
}

bool ModalDialog::Show(bool show) {
    if (show || !IsModal() || Standing::all().isInnermost(*this)) return wxDialog::Show(show);
    endSoon(wxID_CANCEL);
    return true;
}

}  // namespace tidvane::view
