#include "view/painters/tip_window.h"

#include <wx/artprov.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <array>

#include "view/binding/bindings.h"
#include "view/measures.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

// By the number of the icon; 0 has none.
constexpr std::array<const char*, 4> kIcons{"", wxART_INFORMATION, wxART_WARNING, wxART_ERROR};

}  // namespace

TipWindow::TipWindow(wxWindow* button, const controls::ButtonTip& tip) : wxPopupWindow(button, wxBORDER_SIMPLE) {
    const wxColour back = toColour(tip.backColor);
    const wxColour fore = toColour(tip.foreColor);
    SetBackgroundColour(back);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const int gap = FromDIP(kGap);
    if (tip.icon > 0 && tip.icon < static_cast<int>(kIcons.size())) {
        const auto picture = wxArtProvider::GetBitmapBundle(kIcons[static_cast<std::size_t>(tip.icon)], wxART_MENU);
        row->Add(new wxStaticBitmap(this, wxID_ANY, picture), 0, wxLEFT | wxTOP, gap);
    }
    auto* words = new wxBoxSizer(wxVERTICAL);
    for (const bool heading : {true, false}) {
        const std::string& text = heading ? tip.title : tip.text;
        if (text.empty()) continue;
        auto* line = new wxStaticText(this, wxID_ANY, wxControl::EscapeMnemonics(toNative(text)));
        line->SetForegroundColour(fore);
        line->SetBackgroundColour(back);
        if (heading) line->SetFont(line->GetFont().Bold());
        words->Add(line, 0, wxBOTTOM, gap / 2);
    }
    row->Add(words, 0, wxALL, gap);
    SetSizerAndFit(row);
    Position(button->ClientToScreen(wxPoint(0, 0)), button->GetSize());
}

}  // namespace tidvane::view
