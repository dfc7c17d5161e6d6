#include "view/chooser/chooser.h"

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/dirdlg.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/utils.h>

#include <array>
#include <filesystem>
#include <initializer_list>
#include <system_error>
#include <utility>

#include "view/chooser/sample_dialog.h"
#include "view/form_window.h"
#include "view/icons.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

using frontend::SystemKind;

constexpr int kIconSide = 24;  // device-independent pixels
constexpr int kWarningSide = 24;
constexpr int kRowHeight = 32;
constexpr int kListHeight = 260;
constexpr int kMarkSide = 64;
constexpr int kTextWidth = 420;
constexpr int kProblemWidth = 760;

struct Column {
    SystemColumn column;
    Word title;
    int width;
};

// clang-format off
constexpr std::array kColumns{
    Column{SystemColumn::Name, Word::Name, 170},
    Column{SystemColumn::Kind, Word::Kind, 120},
    Column{SystemColumn::Windows, Word::Windows, 190},
    Column{SystemColumn::User, Word::User, 90},
    Column{SystemColumn::FreeSpace, Word::FreeSpace, 160},
    Column{SystemColumn::Folder, Word::Folder, 300},
};
// clang-format on

const char* iconOf(SystemKind kind) {
    switch (kind) {
        case SystemKind::Embedded:
            return "machine";
        case SystemKind::Volume:
            return "volume";
        default:
            return "prefix";
    }
}

}  // namespace

class Chooser::Model final : public wxDataViewVirtualListModel {
public:
    explicit Model(const SystemRows& rows) : wxDataViewVirtualListModel(rows.count()), rows_(rows) {}
    [[nodiscard]] unsigned GetColumnCount() const override { return kSystemColumns; }
    [[nodiscard]] wxString GetColumnType(unsigned column) const override {
        return column == 0 ? "wxDataViewIconText" : "string";
    }
    void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
        const int at = static_cast<int>(row);
        const wxString text = toNative(rows_.cell(at, kColumns.at(column).column));
        if (column == 0) {
            value << wxDataViewIconText(text, icon(iconOf(rows_.system(at).kind), wxSize(kIconSide, kIconSide)));
        } else {
            value = text;
        }
    }
    bool GetAttrByRow(unsigned row, unsigned /*column*/, wxDataViewItemAttr& look) const override {
        if (rows_.offered(static_cast<int>(row))) return false;
        look.SetColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        return true;
    }
    bool SetValueByRow(const wxVariant& /*value*/, unsigned /*row*/, unsigned /*column*/) override { return false; }

private:
    const SystemRows& rows_;
};

Chooser::Chooser(SystemRows rows, Tongue tongue, const std::string& last, std::string sampleFolder)
    : wxDialog(nullptr, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMINIMIZE_BOX),
      rows_(std::move(rows)),
      tongue_(tongue),
      last_(last),
      sampleFolder_(std::move(sampleFolder)) {
    SetTitle(say(Word::Title));
    SetName("chooser");
    SetIcons(programIcons());
    auto* question = new wxStaticText(this, wxID_ANY, say(Word::Question));
    question->SetFont(question->GetFont().Bold().Scaled(1.2F));
    makeList();
    makeEmptyState();
    warning_ = new wxStaticBitmap(this, wxID_ANY, icon("warning", wxSize(kWarningSide, kWarningSide)));
    problem_ = new wxStaticText(this, wxID_ANY, "\n");
    auto* remark = row(this, {cell(warning_), fill(problem_)});
    // The room of two lines stays, so that nothing moves while one looks through the rows.
    remark->SetMinSize(wxSize(-1, problem_->GetBestSize().y));
    auto* buttons = makeButtons();
    auto* content = column(this, {cell(question), fill(list_), fill(empty_), cell(remark), cell(buttons)});
    fillWindow(this, content);
    GetSizer()->SetSizeHints(this);

    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { cancel(); });
    SetEscapeId(wxID_CANCEL);
    rowsChanged();
    CentreOnScreen();
}

Chooser::~Chooser() {
    list_->AssociateModel(nullptr);
    model_->DecRef();
}

wxString Chooser::say(Word which) const {
    return toNative(word(tongue_, which));
}

void Chooser::makeList() {
    list_ = new wxDataViewCtrl(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE);
    list_->SetName("systems");
    nameForReaders(list_, word(tongue_, Word::Question));
    model_ = new Model(rows_);
    list_->AssociateModel(model_);
    int width = 0;
    for (std::size_t at = 0; at < kColumns.size(); ++at) {
        const Column& column = kColumns.at(at);
        const auto place = static_cast<unsigned>(at);
        const int wide = FromDIP(column.width);
        width += wide;
        if (at == 0) {
            list_->AppendIconTextColumn(say(column.title), place, wxDATAVIEW_CELL_INERT, wide);
        } else {
            list_->AppendTextColumn(say(column.title), place, wxDATAVIEW_CELL_INERT, wide);
        }
        list_->GetColumn(place)->SetResizeable(true);
        list_->GetColumn(place)->GetRenderer()->EnableEllipsize(wxELLIPSIZE_MIDDLE);
    }
    list_->SetRowHeight(FromDIP(kRowHeight));
    list_->SetMinSize(wxSize(width + FromDIP(2 * kGap), FromDIP(kListHeight)));
    list_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
        chosenByHand_ = chosenByHand_ || !selecting_;
        selectionChanged();
    });
    list_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { open(); });
}

// Instead of an empty list: what to do without any system.
void Chooser::makeEmptyState() {
    empty_ = new wxPanel(this);
    auto* mark = new wxStaticBitmap(empty_, wxID_ANY, icon("program", wxSize(kMarkSide, kMarkSide)));
    auto* heading = new wxStaticText(empty_, wxID_ANY, say(Word::NoneFound));
    heading->SetFont(heading->GetFont().Bold());
    auto* text = new wxStaticText(empty_, wxID_ANY, say(Word::WhatToDo));
    text->Wrap(FromDIP(kTextWidth));
    auto* middle = new wxBoxSizer(wxVERTICAL);
    middle->AddStretchSpacer();
    for (wxWindow* part : std::initializer_list<wxWindow*>{mark, heading, text}) {
        middle->Add(part, 0, wxALIGN_CENTRE_HORIZONTAL | wxBOTTOM, FromDIP(kGap));
    }
    middle->AddStretchSpacer();
    empty_->SetSizer(middle);
    empty_->SetMinSize(FromDIP(wxSize(kTextWidth + 4 * kGap, kListHeight)));
}

wxSizer* Chooser::makeButtons() {
    const auto button = [this](wxWindowID id, Word caption, const char* picture, void (Chooser::*press)()) {
        auto* made = new wxButton(this, id, say(caption));
        made->SetBitmap(icon(picture, wxSize(16, 16)));
        made->Bind(wxEVT_BUTTON, [this, press](wxCommandEvent&) { (this->*press)(); });
        return made;
    };
    sample_ = button(wxID_ANY, Word::CreateSample, "add", &Chooser::createSample);
    wxButton* other = button(wxID_ANY, Word::OtherFolder, "folder", &Chooser::openOther);
    wxButton* cancelled = button(wxID_CANCEL, Word::Cancel, "cancel", &Chooser::cancel);
    open_ = button(wxID_ANY, Word::Open, "ok", &Chooser::open);
    return row(this, {cell(sample_), cell(other), gap(2 * kGap), rest(), cell(cancelled), cell(open_)});
}

// Rows came: from an empty state to a list, or to a longer one.
void Chooser::rowsChanged() {
    const bool any = rows_.count() > 0;
    list_->Show(any);
    empty_->Show(!any);
    if (!chosenByHand_) select(rows_.suggested(last_));
    selectionChanged();
    Layout();
    // The list needs more room than the words in its place.
    GetSizer()->SetSizeHints(this);
    const wxSize least = GetMinSize();
    if (GetSize().x < least.x || GetSize().y < least.y) {
        SetSize(least);
        CentreOnScreen();
    }
    (any ? open_ : sample_)->SetDefault();
    (any ? static_cast<wxWindow*>(list_) : sample_)->SetFocus();
}

int Chooser::selected() const {
    const wxDataViewItem item = list_->GetSelection();
    return item.IsOk() ? static_cast<int>(model_->GetRow(item)) : -1;
}

void Chooser::select(int row) {
    if (row < 0 || row == selected()) return;
    selecting_ = true;
    const wxDataViewItem item = model_->GetItem(static_cast<unsigned>(row));
    list_->Select(item);
    list_->SetCurrentItem(item);
    list_->EnsureVisible(item);
    selecting_ = false;
    selectionChanged();
}

void Chooser::selectionChanged() {
    const int row = selected();
    const std::string problem = row < 0 ? std::string() : rows_.problem(row);
    warning_->Show(!problem.empty());
    problem_->SetLabelText(toNative(problem));
    problem_->Wrap(FromDIP(kProblemWidth));
    open_->Enable(row >= 0 && rows_.offered(row));
    Layout();
}

bool Chooser::describeNext() {
    const int row = rows_.describeNext();
    if (row < 0) return false;
    model_->RowChanged(static_cast<unsigned>(row));
    if (!chosenByHand_) select(rows_.suggested(last_));
    if (row == selected()) selectionChanged();
    return true;
}

void Chooser::open() {
    const int row = selected();
    if (row < 0 || !rows_.offered(row) || !onOpen) return;
    const std::string why = onOpen(rows_.system(row).directory);
    if (!why.empty()) wxMessageBox(toNative(why), say(Word::Title), wxOK | wxICON_ERROR, this);
}

void Chooser::cancel() {
    if (onCancel) onCancel();
}

void Chooser::addFolder(const std::string& directory, SystemKind kind, const std::string& name) {
    std::error_code problem;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(directory, problem);
    const int before = rows_.count();
    const int row = rows_.add(problem ? directory : whole.string(), kind, name);
    if (rows_.count() > before) model_->RowAppended();
    chosenByHand_ = true;
    rowsChanged();
    select(row);
    // Described at once: its user waits for this very row.
    while (describeNext()) {
    }
    open_->SetFocus();
}

void Chooser::openOther() {
    wxDirDialog choice(this, say(Word::ChooseFolder), wxGetHomeDir(), wxDD_DIR_MUST_EXIST);
    if (choice.ShowModal() != wxID_OK) return;
    const std::string directory = fromNative(choice.GetPath());
    addFolder(directory, frontend::kindOf(directory), {});
}

void Chooser::createSample() {
    if (!onCreateSample) return;
    const std::string made = createSampleByDialog(this, tongue_, sampleFolder_, onCreateSample);
    if (made.empty()) return;
    sampleFolder_.clear();
    addFolder(made, SystemKind::Embedded, word(tongue_, Word::Sample));
}

}  // namespace tidvane::view
