#include "view/chooser/sample_dialog.h"

#include <wx/button.h>
#include <wx/dirdlg.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include "view/form_window.h"
#include "view/icons.h"
#include "view/modal_dialog.h"
#include "view/text.h"

namespace tidvane::view {

namespace {
constexpr int kTextWidth = 480;  // device-independent pixels
}  // namespace

std::string createSampleByDialog(wxWindow* owner, Tongue tongue, const std::string& proposed,
                                 const CreateSample& create) {
    const auto say = [tongue](Word which) { return toNative(word(tongue, which)); };
    ModalDialog dialog(owner, say(Word::SampleTitle), wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
    dialog.SetName("sample");
    auto* about = new wxStaticText(&dialog, wxID_ANY, say(Word::SampleAbout));
    about->Wrap(dialog.FromDIP(kTextWidth));
    auto* label = new wxStaticText(&dialog, wxID_ANY, say(Word::SampleFolder));
    auto* folder = new wxTextCtrl(&dialog, wxID_ANY, toNative(proposed));
    folder->SetMinSize(dialog.FromDIP(wxSize(kTextWidth * 2 / 3, -1)));
    nameForReaders(folder, word(tongue, Word::SampleFolder));
    auto* browse = new wxButton(&dialog, wxID_ANY, say(Word::Browse));
    browse->SetBitmap(icon("folder", wxSize(16, 16)));
    auto* cancel = new wxButton(&dialog, wxID_CANCEL, say(Word::Cancel));
    auto* make = new wxButton(&dialog, wxID_OK, say(Word::Create));
    cancel->SetBitmap(icon("cancel", wxSize(16, 16)));
    make->SetBitmap(icon("ok", wxSize(16, 16)));
    make->SetDefault();
    dialog.SetAffirmativeId(wxID_OK);
    dialog.SetEscapeId(wxID_CANCEL);

    std::string made;
    browse->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) {
        wxDirDialog choice(&dialog, say(Word::SampleTitle), {}, wxDD_DEFAULT_STYLE);
        if (choice.ShowModal() == wxID_OK) folder->SetValue(choice.GetPath());
    });
    make->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) {
        const std::string directory = fromNative(folder->GetValue());
        std::string why;
        {
            const wxBusyCursor busy;
            why = create(directory);
        }
        if (why.empty()) {
            made = directory;
            dialog.EndModal(wxID_OK);
        } else {
            wxMessageBox(toNative(why), say(Word::SampleTitle), wxOK | wxICON_ERROR, &dialog);
            folder->SetFocus();
        }
    });
    folder->Bind(wxEVT_TEXT, [make, folder](wxCommandEvent&) { make->Enable(!folder->GetValue().Trim().empty()); });
    make->Enable(!proposed.empty());

    fillWindow(&dialog, column(&dialog, {cell(about), cell(row(&dialog, {cell(label), fill(folder), cell(browse)})),
                                         gap(kGap), cell(row(&dialog, {rest(), cell(cancel), cell(make)}))}));
    dialog.GetSizer()->SetSizeHints(&dialog);
    dialog.CentreOnParent();
    folder->SetFocus();
    dialog.ShowModal();
    return made;
}

}  // namespace tidvane::view
