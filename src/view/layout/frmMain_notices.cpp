// The bar with what the front end has to tell. It blocks nobody: it stands above the page until it is put away.
#include <wx/bmpbuttn.h>
#include <wx/settings.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "view/icons.h"
#include "view/layout/frmMain_parts.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr int kMostLines = 4;  // shown at once; the others are scrolled to
constexpr int kPleaseNote = 369;
constexpr int kClose = 845;
constexpr int kIcon = 20;  // device-independent pixels

struct Colours {
    wxColour back;
    wxColour text;
};

Colours noticeColours() {
    if (wxSystemSettings::GetAppearance().IsUsingDarkBackground()) return {{0x4A, 0x3B, 0x10}, {0xFF, 0xEE, 0xC2}};
    return {{0xFF, 0xF4, 0xCE}, {0x3B, 0x2F, 0x00}};
}

// Lines of the text at this width, wrapped ones counted as often as they are.
int linesAt(const wxTextCtrl* box, const std::vector<std::string>& lines, int width) {
    int count = 0;
    for (const std::string& line : lines) {
        count += 1 + box->GetTextExtent(toNative(line)).x / std::max(width, 1);
    }
    return count;
}

}  // namespace

wxWindow* makeNoticeBar(FormWindow& window, app::frmMain& form, wxWindow* parent) {
    Notices& notices = window.view().notices;
    auto* bar = new wxPanel(parent);
    const Colours colours = noticeColours();
    bar->SetBackgroundColour(colours.back);
    auto* picture = new wxStaticBitmap(bar, wxID_ANY, icon("warning", wxSize(kIcon, kIcon)));
    auto* box = new wxTextCtrl(bar, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxTE_MULTILINE | wxTE_READONLY | wxTE_NO_VSCROLL | wxBORDER_NONE);
    box->SetName("notices");
    box->SetBackgroundColour(colours.back);
    box->SetForegroundColour(colours.text);
    auto* close = new wxBitmapButton(bar, wxID_CLOSE, icon("cancel", wxSize(16, 16)), wxDefaultPosition, wxDefaultSize,
                                     wxBORDER_NONE);
    close->SetName("closeNotices");
    close->SetBackgroundColour(colours.back);
    const auto dismiss = [&window, &notices] { window.act([&notices] { notices.dismiss(); }); };
    close->Bind(wxEVT_BUTTON, [dismiss](wxCommandEvent&) { dismiss(); });
    bar->Bind(wxEVT_CHAR_HOOK, [dismiss](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers()) {
            dismiss();
        } else {
            event.Skip();
        }
    });
    window.whenever(form.menu("mnuCleaner"), [&form, box, close] {
        nameForReaders(box, form.program().LangText(kPleaseNote));
        nameForReaders(close, form.program().LangText(kClose));
        const wxString tip = toNative(form.program().LangText(kClose));
        if (close->GetToolTipText() != tip) close->SetToolTip(tip);
    });
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    const int gapHere = bar->FromDIP(kGap);
    line->Add(picture, 0, wxALL, gapHere);
    line->Add(box, 1, wxEXPAND | wxTOP | wxBOTTOM, gapHere);
    line->Add(close, 0, wxALL, gapHere / 2);
    bar->SetSizer(line);
    bar->Hide();

    const auto fit = [&notices, bar, box, parent] {
        const int inner = std::max(parent->GetClientSize().x - bar->FromDIP(5 * kGap + kIcon + 24), bar->FromDIP(120));
        const int lines = std::clamp(linesAt(box, notices.lines(), inner), 1, kMostLines);
        const wxSize wanted(-1, lines * box->GetCharHeight() + bar->FromDIP(4));
        if (box->GetMinSize() == wanted) return;
        box->SetMinSize(wanted);
        parent->Layout();
    };
    parent->Bind(wxEVT_SIZE, [fit, bar](wxSizeEvent& event) {
        if (bar->IsShown()) fit();
        event.Skip();
    });
    window.whenever(notices.changed, [&notices, bar, box, parent, fit] {
        const wxString text = linesToNative(notices.text());
        if (box->GetValue() != text) box->ChangeValue(text);
        if (!notices.empty()) {
            fit();
            box->ShowPosition(box->GetLastPosition());
        }
        if (bar->IsShown() == notices.empty()) {
            bar->Show(!notices.empty());
            parent->Layout();
        }
    });
    return bar;
}

}  // namespace tidvane::view
