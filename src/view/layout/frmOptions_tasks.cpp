// The pages of the options window that hold task boxes: Windows, the browsers, Office.
#include <wx/bookctrl.h>
#include <wx/statline.h>

#include <algorithm>
#include <array>
#include <climits>
#include <functional>
#include <utility>
#include <vector>

#include "view/layout/frmOptions_pages.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

using settings::frmOptions;
using settings::TaskBox;
using settings::TaskPage;

constexpr int kBoxGap = 6;             // between two boxes below one another, device-independent pixels
constexpr int kInDepth = 22;           // how far an in-depth box stands behind the box it depends on
constexpr std::size_t kOneColumn = 7;  // so many boxes and fewer stand in one column
const wxSize kPicture(16, 16);

// What stands to the right of a task box, made when its turn in the tab order comes. Null: nothing.
using Beside = std::function<wxSizer*(wxWindow* parent, const forms::CheckBox& box)>;
// What stands below the boxes. Null: nothing.
using Below = std::function<wxSizer*(wxWindow* parent)>;

// How many boxes stand in the left column: all, where they are few; otherwise about half, so that both columns together
// are narrow and no in-depth box begins the right one.
std::size_t leftColumn(const wxWindow* panel, const std::vector<TaskBox>& tasks) {
    if (tasks.size() <= kOneColumn) return tasks.size();
    const auto width = [&](std::size_t from, std::size_t to) {
        int widest = 0;
        for (std::size_t at = from; at < to; ++at) {
            widest = std::max(widest, panel->GetTextExtent(toNative(tasks[at].box->Caption.get())).x +
                                          (tasks[at].inDepth ? panel->FromDIP(kInDepth) : 0));
        }
        return widest;
    };
    const std::size_t half = (tasks.size() + 1) / 2;
    std::size_t best = half;
    int narrowest = INT_MAX;
    for (const std::size_t split : {half, half - 1, half + 1}) {
        const int both = width(0, split) + width(split, tasks.size());
        if (tasks[split].inDepth || both >= narrowest) continue;
        best = split;
        narrowest = both;
    }
    return best;
}

// A column of boxes; what stands beside them begins at one line.
wxSizer* boxes(FormWindow& window, wxWindow* panel, const std::vector<TaskBox>& tasks, std::size_t from, std::size_t to,
               const Beside& beside) {
    auto* grid = new wxFlexGridSizer(2, panel->FromDIP(kBoxGap), panel->FromDIP(kGap));
    for (std::size_t at = from; at < to; ++at) {
        const TaskBox& task = tasks[at];
        auto* line = new wxBoxSizer(wxHORIZONTAL);
        if (task.inDepth) line->AddSpacer(panel->FromDIP(kInDepth));
        line->Add(window.check(panel, *task.box), 0, wxALIGN_CENTRE_VERTICAL);
        grid->Add(line, 0, wxALIGN_CENTRE_VERTICAL);
        if (wxSizer* more = beside ? beside(panel, *task.box) : nullptr) {
            grid->Add(more, 0, wxALIGN_CENTRE_VERTICAL);
        } else {
            grid->AddSpacer(0);
        }
    }
    return grid;
}

// The master box, the boxes of the page in two columns, and what the page has besides.
void layTasks(FormWindow& window, frmOptions& form, wxPanel* page, forms::Frame& frame, TaskPage number,
              const Beside& beside = {}, const Below& below = {}) {
    const FormWindow::Section section = window.section(page, frame);
    wxPanel* panel = section.panel;
    const std::vector<TaskBox>& tasks = form.taskBoxes(number);
    const std::size_t left = leftColumn(panel, tasks);

    section.content->Add(window.check(panel, form.masterBox(number)));
    section.content->Add(new wxStaticLine(panel), 0, wxEXPAND | wxTOP | wxBOTTOM, panel->FromDIP(kGap));
    auto* columns = new wxFlexGridSizer(2, 0, panel->FromDIP(3 * kGap));
    columns->Add(boxes(window, panel, tasks, 0, left, beside));
    columns->Add(boxes(window, panel, tasks, left, tasks.size(), beside));
    section.content->Add(columns);
    if (wxSizer* more = below ? below(panel) : nullptr) {
        section.content->AddSpacer(panel->FromDIP(2 * kGap));
        section.content->Add(more);
    }
    fillPage(page, column(page, {fill(section.panel)}));
}

struct Browser {
    TaskPage page;
    forms::Frame& frame;
    controls::isButton& button;  // the folders of the browser, or how thoroughly it is cleaned
    const char* icon;
    forms::Image* found;  // pictures that tell whether there are such folders; null for none
    forms::Image* missing;
};

}  // namespace

void layWindowsTasks(FormWindow& window, frmOptions& form, wxPanel* page) {
    layTasks(window, form, page, form.frmWindows, TaskPage::Windows,
             [&](wxWindow* panel, const forms::CheckBox& box) -> wxSizer* {
                 if (&box == &form.chkTrash) {
                     return row(panel, {cell(window.label(panel, form.lblRecyclerFiles)),
                                        cell(window.label(panel, form.lblRecylcerSize))});
                 }
                 if (&box == &form.chkAlphabetizeStartMenu) {
                     return row(panel, {cell(signButton(window, panel, form.cmdAlphabetizeStartMenuManual))});
                 }
                 if (&box == &form.chkAlphabetizeFavorites) {
                     return row(panel, {cell(signButton(window, panel, form.cmdAlphabetizeFavoritesManual))});
                 }
                 return nullptr;
             });
}

void layBrowserTasks(FormWindow& window, frmOptions& form, wxPanel* page) {
    // clang-format off
    const std::array browsers{
        Browser{TaskPage::IE, form.frmBrowserIE, form.cmdIEInDepthClean, "settings", nullptr, nullptr},
        Browser{TaskPage::Mozilla, form.frmBrowserMozilla, form.cmdMozillaDir, "folder",
                &form.ImgMozillaSuccess, &form.ImgMozillaFail},
        Browser{TaskPage::Opera, form.frmBrowserOpera, form.cmdOperaDir, "folder",
                &form.ImgOperaSuccess, &form.ImgOperaFail},
        Browser{TaskPage::Chrome, form.frmBrowserChrome, form.cmdChromeDir, "folder",
                &form.ImgChromeSuccess, &form.ImgChromeFail},
        Browser{TaskPage::Safari, form.frmBrowserSafari, form.cmdSafariDir, "folder",
                &form.ImgSafariSuccess, &form.ImgSafariFail},
    };
    // clang-format on
    wxBookCtrlBase* book = window.tabs(page, form.SSTab5);
    for (const Browser& browser : browsers) {
        layTasks(window, form, window.page(book), browser.frame, browser.page, {}, [&](wxWindow* panel) -> wxSizer* {
            auto* line = row(panel, {cell(window.button(panel, browser.button, browser.icon))});
            for (forms::Image* image : {browser.found, browser.missing}) {
                if (image == nullptr) continue;
                line->Add(window.image(panel, *image, image->Name, kPicture), 0, wxALIGN_CENTRE_VERTICAL | wxLEFT,
                          panel->FromDIP(kGap));
            }
            return line;
        });
    }
    fillPage(page, column(page, {fill(book)}));
}

void layOfficeTasks(FormWindow& window, frmOptions& form, wxPanel* page) {
    layTasks(window, form, page, form.frmMSOffice, TaskPage::MsOffice);
}

}  // namespace tidvane::view
