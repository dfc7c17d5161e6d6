#include "view/message_box.h"

#include <wx/button.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "forms/display.h"
#include "view/chooser/words.h"
#include "view/form_window.h"
#include "view/icons.h"
#include "view/modal_dialog.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

namespace msgbox = forms::msgbox;

constexpr int kButtons = 0x0F;
constexpr int kPictures = 0xF0;
constexpr int kPicture = 40;  // device-independent pixels
constexpr int kTextWidth = 440;

const char* pictureOf(int style) {
    switch (style & kPictures) {
        case msgbox::Critical:
            return "error";
        case msgbox::Question:
            return "question";
        case msgbox::Exclamation:
            return "warning";
        default:
            return "info";
    }
}

wxButton* answer(wxDialog& box, wxWindowID id, Word which) {
    auto* button = new wxButton(&box, id, toNative(word(tongueOfHost(), which)));
    button->Bind(wxEVT_BUTTON, [&box, id](wxCommandEvent&) { box.EndModal(id); });
    return button;
}

}  // namespace

int showMessageBox(wxWindow* owner, const std::string& text, int style, const std::string& title) {
    const bool question = (style & kButtons) == msgbox::YesNo;
    ModalDialog box(owner, toNative(title));
    auto* picture = new wxStaticBitmap(&box, wxID_ANY, icon(pictureOf(style), wxSize(kPicture, kPicture)));
    auto* words = new wxStaticText(&box, wxID_ANY, {});
    words->SetLabelText(linesToNative(text));
    words->Wrap(box.FromDIP(kTextWidth));
    wxBoxSizer* buttons = nullptr;
    wxButton* usual = nullptr;
    if (question) {
        wxButton* yes = answer(box, wxID_YES, Word::Yes);
        wxButton* no = answer(box, wxID_NO, Word::No);
        usual = (style & msgbox::DefaultButton2) != 0 ? no : yes;
        box.SetEscapeId(wxID_NO);
        buttons = row(&box, {rest(), cell(yes), cell(no)});
    } else {
        usual = answer(box, wxID_OK, Word::Ok);
        box.SetEscapeId(wxID_OK);
        buttons = row(&box, {rest(), cell(usual)});
    }
    fillWindow(&box, column(&box, {fill(row(&box, {Cell{picture}, fill(words)}, 2 * kGap)), cell(buttons)}, 2 * kGap));
    box.GetSizer()->SetSizeHints(&box);
    box.CentreOnParent();
    usual->SetDefault();
    usual->SetFocus();
    switch (box.ShowModal()) {
        case wxID_YES:
            return msgbox::Yes;
        case wxID_OK:
            return msgbox::Ok;
        default:
            return question ? msgbox::No : msgbox::Ok;
    }
}

}  // namespace tidvane::view
