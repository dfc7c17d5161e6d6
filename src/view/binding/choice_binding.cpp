#include "view/binding/bindings.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

wxArrayString texts(const std::vector<std::string>& rows) {
    wxArrayString all;
    for (const std::string& row : rows) all.Add(toNative(row));
    return all;
}

void setRows(wxItemContainer* widget, const std::vector<std::string>& rows) {
    const wxArrayString wanted = texts(rows);
    if (widget->GetStrings() == wanted) return;
    widget->Clear();
    if (!wanted.empty()) widget->Append(wanted);
}

}  // namespace

ChoiceBinding::ChoiceBinding(View& view, forms::ComboBox& box, wxItemContainer* rows, wxWindow& widget)
    : Binding(view), box_(box), rows_(rows), typed_(dynamic_cast<wxComboBox*>(&widget)) {
    const auto chosen = [this](wxCommandEvent& event) {
        if (view_.pulling()) return;
        const int row = event.GetSelection();
        view_.act([this, row] { box_.setListIndex(row); });
    };
    if (typed_ == nullptr) {
        widget.Bind(wxEVT_CHOICE, chosen);
    } else {
        widget.Bind(wxEVT_COMBOBOX, chosen);
        widget.Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
            if (view_.pulling()) return;
            view_.act([this] { box_.setText(fromNative(typed_->GetValue())); });
        });
    }
}

void ChoiceBinding::pull() {
    setRows(rows_, box_.rows());
    if (typed_ != nullptr) {
        const wxString text = toNative(box_.Text());
        if (typed_->GetValue() != text) typed_->ChangeValue(text);
    } else if (rows_->GetSelection() != box_.ListIndex()) {
        rows_->SetSelection(box_.ListIndex() < 0 ? wxNOT_FOUND : box_.ListIndex());
    }
}

DriveBinding::DriveBinding(View& view, forms::DriveList& list, wxChoice* widget)
    : Binding(view), list_(list), widget_(widget) {
    widget->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        if (view_.pulling()) return;
        const int row = event.GetSelection();
        view_.act([this, row] { list_.ListIndex = row; });
    });
}

void DriveBinding::pull() {
    setRows(widget_, list_.List);
    if (widget_->GetSelection() != list_.ListIndex.get()) widget_->SetSelection(list_.ListIndex);
}

}  // namespace tidvane::view
