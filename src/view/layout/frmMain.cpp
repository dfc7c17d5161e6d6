#include "app/frmMain.h"

#include <wx/bookctrl.h>
#include <wx/frame.h>
#include <wx/statusbr.h>

#include <array>

#include "app/status_words.h"
#include "view/form_window.h"
#include "view/layout/all.h"
#include "view/layout/frmMain_parts.h"
#include "view/text.h"

namespace tidvane::view {

namespace {
constexpr int kPaneWidth = 224;  // device-independent pixels
constexpr int kPanels = 3;
}  // namespace

wxStaticText* makePageHeading(FormWindow& window, wxWindow* page, forms::Menu& entry) {
    auto* heading = new wxStaticText(page, wxID_ANY, {});
    heading->SetFont(heading->GetFont().Bold().Scaled(1.2F));
    window.whenever(entry, [heading, &entry] {
        const wxString name = wxControl::RemoveMnemonics(toNative(entry.Caption.get()));
        if (heading->GetLabelText() != name) heading->SetLabelText(name);
    });
    return heading;
}

wxStaticText* makeText(FormWindow& window, wxWindow* page, app::frmMain& form, int entry, forms::Control& spoken,
                       const char* behind) {
    auto* text = new wxStaticText(page, wxID_ANY, {});
    window.whenever(spoken, [text, &form, entry, behind] {
        const wxString words = linesToNative(form.program().LangText(entry) + behind);
        if (text->GetLabelText() != words) text->SetLabelText(words);
    });
    return text;
}

// Counts stand with the words for what they count, in panels as wide as these are.
void makeStatusBar(FormWindow& window, app::frmMain& form) {
    auto* frame = dynamic_cast<wxFrame*>(window.native());
    if (frame == nullptr) return;
    wxStatusBar* bar = frame->CreateStatusBar(kPanels);
    bar->SetName(form.StatusBar1.Name);
    // A menu that opens would blank the first panel and bring its old words back.
    frame->SetStatusBarPane(-1);
    window.whenever(form.StatusBar1, [bar, &form] {
        std::array<int, kPanels> widths{-1};
        for (int panel = 1; panel <= kPanels; ++panel) {
            const wxString text =
                toNative(app::statusWords(form.program().LangText, panel, form.StatusBar1.Panel(panel)));
            if (bar->GetStatusText(panel - 1) != text) bar->SetStatusText(text, panel - 1);
            if (panel == 1) continue;
            // The last one shares its room with the grip of the window's corner.
            const int around = panel == kPanels ? 5 * kGap : 3 * kGap;
            widths.at(static_cast<std::size_t>(panel) - 1) = bar->GetTextExtent(text).x + bar->FromDIP(around);
        }
        bool same = true;
        for (int panel = 2; panel <= kPanels; ++panel) {
            same = same && bar->GetStatusWidth(panel - 1) == widths.at(static_cast<std::size_t>(panel) - 1);
        }
        if (!same) bar->SetStatusWidths(kPanels, widths.data());
    });
}

void layoutFrmMain(FormWindow& window) {
    auto& form = static_cast<app::frmMain&>(window.form());
    makeMainMenus(window, form);
    wxPanel* body = window.body();
    wxWindow* pane = window.pane(body, form.ExplorerBar1);
    pane->SetMinSize(body->FromDIP(wxSize(kPaneWidth, -1)));
    auto* right = new wxPanel(body);
    wxWindow* notices = makeNoticeBar(window, form, right);
    wxBookCtrlBase* book = window.tabs(right, form.SSTab1, false);
    makeCleaningPage(window, form, window.page(book));
    makePlugInsPage(window, form, window.page(book));
    makeExtensionsPage(window, form, window.page(book));
    makeAboutPage(window, form, window.page(book));
    fillWindow(right, column(right, {wide(notices), fill(book)}, 0), 0);
    fillWindow(body, row(body, {fill(pane, 0), fill(right)}, 0), 0);
    makeStatusBar(window, form);
    makeMainKeys(window, form);

    window.on(body, wxEVT_MOTION, [&form, body](wxMouseEvent& event) {
        event.Skip();
        form.mouseMove(toTwips(event.GetX(), body), toTwips(event.GetY(), body));
    });
    window.onResize([&form] { form.resized(); });
}

}  // namespace tidvane::view
