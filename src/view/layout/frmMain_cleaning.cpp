// The page of the cleaning: the tasks, the log under them, and the buttons.
#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/statbmp.h>

#include <algorithm>
#include <array>
#include <memory>

#include "app/shortcuts.h"
#include "forms/system_colours.h"
#include "view/binding/bindings.h"
#include "view/icons.h"
#include "view/layout/frmMain_parts.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr int kWelcome = 150;
constexpr int kDrive = 319;
constexpr int kLogPaneHeight = 3180;  // twips, where the window has the room for it; the list takes the rest
constexpr int kLeastLog = 60;         // device-independent pixels
constexpr int kLeastList = 80;
constexpr int kWelcomeWidth = 440;

struct LogButton {
    controls::isButton app::frmMain::*button;
    const char* icon;
};
constexpr std::array kLogButtons{
    LogButton{&app::frmMain::cmdClearLog, "clear-log"},
    LogButton{&app::frmMain::cmdCopyLog, "copy-log"},
    LogButton{&app::frmMain::cmdSaveLog, "save-log"},
    LogButton{&app::frmMain::cmdViewLog, "view-log"},
};

// What it does and the keys for it; a button that shows no words has them here.
void tellKeys(FormWindow& window, wxWindow* widget, controls::isButton& button) {
    window.whenever(button, [widget, &button] {
        wxString tip = wxControl::RemoveMnemonics(toNative(button.Caption.get()));
        if (const auto keys = app::shortcutOf(button.Name); !keys.empty()) {
            tip += " (" + toNative(std::string(keys)) + ")";
        }
        if (widget->GetToolTipText() != tip) widget->SetToolTip(tip);
    });
}

// The same button without words, for a window that is too narrow for them.
wxWindow* smallButton(FormWindow& window, wxWindow* parent, controls::isButton& button, const char* name) {
    auto* widget = new wxButton(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
    widget->SetName(button.Name);
    widget->SetBitmap(icon(name, wxSize(16, 16)));
    window.on(widget, wxEVT_BUTTON, [&button](wxCommandEvent&) { button.press(); });
    window.whenever(button, [widget, &button] {
        if (widget->IsThisEnabled() != button.Enabled.get()) widget->Enable(button.Enabled);
        if (widget->IsShown() != button.Visible.get()) widget->Show(button.Visible);
        nameForReaders(widget, button.Caption);
    });
    tellKeys(window, widget, button);
    return widget;
}

// The page's own measures: the words of the log's buttons go where there is no room for them, and the log gives way to
// the list in a low window.
class CleaningPage {
public:
    CleaningPage(FormWindow& window, app::frmMain& form, wxPanel* page)
        : window_(window), form_(form), page_(page), welcome_(new wxPanel(page)) {}

    void make();
    void arrange();

private:
    void makeWelcome();
    void makeButtons();

    FormWindow& window_;
    app::frmMain& form_;
    wxPanel* page_;
    wxPanel* welcome_;
    wxWindow* list_ = nullptr;
    wxPanel* listHolder_ = nullptr;
    wxWindow* log_ = nullptr;
    unsigned logColour_ = forms::kWindowText;
    wxPanel* words_ = nullptr;
    wxPanel* pictures_ = nullptr;
    wxSizer* buttons_ = nullptr;
};

// Stands in the place of an empty list, and says how it is filled.
void CleaningPage::makeWelcome() {
    auto* text = new wxStaticText(welcome_, wxID_ANY, {});
    wxWindow* choose = window_.button(welcome_, form_.menu("mnuManageCleaningJobs"), "lists");
    // The entry itself only opens a sub-menu.
    choose->Bind(wxEVT_BUTTON,
                 [this](wxCommandEvent&) { window_.act([this] { form_.menu("mnuCleaningJobWindows").Click(); }); });
    window_.whenever(form_.menu("mnuManageCleaningJobs"), [this, text, shown = std::make_shared<wxString>()] {
        const wxString words = linesToNative(form_.program().LangText(kWelcome));
        if (*shown == words) return;
        *shown = words;
        text->SetLabelText(words);
        text->Wrap(text->FromDIP(kWelcomeWidth));
    });
    auto* middle = new wxBoxSizer(wxVERTICAL);
    middle->AddStretchSpacer();
    middle->Add(text, 0, wxALIGN_CENTRE_HORIZONTAL);
    middle->AddSpacer(page_->FromDIP(kEdge));
    middle->Add(choose, 0, wxALIGN_CENTRE_HORIZONTAL);
    middle->AddStretchSpacer();
    welcome_->SetSizer(middle);
}

void CleaningPage::makeButtons() {
    wxWindow* clean = window_.button(page_, form_.cmdClean, "clean");
    window_.defaultButton(clean);
    wxWindow* stop = window_.button(page_, form_.cmdStop, "stop");
    tellKeys(window_, clean, form_.cmdClean);
    tellKeys(window_, stop, form_.cmdStop);
    words_ = new wxPanel(page_);
    pictures_ = new wxPanel(page_);
    auto* wordRow = new wxBoxSizer(wxHORIZONTAL);
    auto* pictureRow = new wxBoxSizer(wxHORIZONTAL);
    for (const LogButton& row : kLogButtons) {
        controls::isButton& button = form_.*row.button;
        wxWindow* small = smallButton(window_, pictures_, button, row.icon);
        wxWindow* large = window_.button(words_, button, row.icon);
        tellKeys(window_, large, button);
        const int border = page_->FromDIP(kGap);
        wordRow->Add(large, 0, wxALIGN_CENTRE_VERTICAL | (wordRow->IsEmpty() ? 0 : wxLEFT), border);
        pictureRow->Add(small, 0, wxALIGN_CENTRE_VERTICAL | (pictureRow->IsEmpty() ? 0 : wxLEFT), border / 2);
        window_.whenever(button, [this] { arrange(); });
    }
    words_->SetSizer(wordRow);
    pictures_->SetSizer(pictureRow);
    words_->Hide();
    buttons_ = row(page_, {cell(clean), cell(stop), rest(), cell(words_), cell(pictures_)});
}

void CleaningPage::make() {
    wxWindow* heading = makePageHeading(window_, page_, form_.menu("mnuCleaner"));
    makeWelcome();
    listHolder_ = new wxPanel(page_);
    list_ = window_.listView(listHolder_, form_.lstTasks, false, true, &form_.menu("mnuManageCleaningJobs"));
    list_->SetMinSize(page_->FromDIP(wxSize(200, kLeastList)));
    if (auto* native = dynamic_cast<wxDataViewCtrl*>(list_); native != nullptr && native->GetColumnCount() > 0) {
        native->GetColumn(0)->GetRenderer()->EnableEllipsize(wxELLIPSIZE_END);
    }
    fillWindow(listHolder_, column(listHolder_, {fill(list_)}), 0);
    log_ = window_.lines(page_, form_.txtLog, {.readOnly = true, .selection = true}, &form_.menu("mnuOptionsLog"));
    log_->SetMinSize(page_->FromDIP(wxSize(200, kLeastLog)));
    window_.whenever(form_.txtLog, [this] {
        const unsigned colour = form_.txtLog.ForeColor;
        if (colour == logColour_) return;
        logColour_ = colour;
        log_->SetForegroundColour(colour == forms::kWindowText ? wxNullColour : toColour(colour));
        log_->Refresh();
    });
    makeButtons();
    wxStaticText* driveName = makeText(window_, page_, form_, kDrive, form_.menu("mnuCleaner"), ":");
    wxWindow* drive = window_.drives(page_, form_.drvDiskSizeDrive);
    fillWindow(page_, column(page_, {cell(row(page_, {cell(heading), rest(), cell(driveName), cell(drive)})),
                                     fill(welcome_), fill(listHolder_), wide(log_), cell(buttons_)}));

    const auto menu = [this] { form_.taskListRightClick(); };
    window_.rowMenu(form_.lstTasks, menu);
    window_.on(welcome_, wxEVT_CONTEXT_MENU, [menu](wxContextMenuEvent&) { menu(); });
    window_.on(page_, wxEVT_MOTION, [this](wxMouseEvent& event) {
        event.Skip();
        form_.mouseMove(toTwips(event.GetX(), page_), toTwips(event.GetY(), page_));
    });
    window_.whenever(form_.lstTasks, [this] {
        const bool empty = form_.lstTasks.Count() == 0;
        if (welcome_->IsShown() == empty && listHolder_->IsShown() != empty) return;
        welcome_->Show(empty);
        listHolder_->Show(!empty);
        arrange();
        page_->Layout();
    });
    page_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        arrange();
        event.Skip();
    });
}

void CleaningPage::arrange() {
    const wxSize room = page_->GetClientSize();
    if (buttons_ == nullptr || room.x <= 1) return;
    const int spare = room.x - 2 * page_->FromDIP(kEdge) - buttons_->GetMinSize().x +
                      (words_->IsShown() ? words_ : pictures_)->GetBestSize().x;
    const bool worded = words_->GetBestSize().x <= spare;
    if (words_->IsShown() != worded) {
        words_->Show(worded);
        pictures_->Show(!worded);
        page_->Layout();
    }
    const int others = page_->GetSizer()->GetMinSize().y - log_->GetMinSize().y;
    const int full = toPixels(kLogPaneHeight, page_);
    const int height = std::clamp(room.y - others, page_->FromDIP(kLeastLog), full);
    if (log_->GetMinSize().y != height) log_->SetMinSize(wxSize(log_->GetMinSize().x, height));
}

}  // namespace

void makeCleaningPage(FormWindow& window, app::frmMain& form, wxPanel* page) {
    // Lives as long as the page that calls it.
    auto made = std::make_shared<CleaningPage>(window, form, page);
    made->make();
    page->Bind(wxEVT_DESTROY, [made](wxWindowDestroyEvent& event) { event.Skip(); });
}

}  // namespace tidvane::view
