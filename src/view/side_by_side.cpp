#include <wx/sizer.h>
#include <wx/window.h>

#include "view/form_window.h"

namespace tidvane::view {

namespace {

void addCells(wxBoxSizer* box, const wxWindow* scale, std::initializer_list<Cell> cells, int gapBetween) {
    const bool horizontal = box->GetOrientation() == wxHORIZONTAL;
    bool first = true;
    for (const Cell& cell : cells) {
        if (cell.window == nullptr && cell.sizer == nullptr) {
            if (cell.space < 0) {
                box->AddStretchSpacer();
            } else {
                box->AddSpacer(wxWindow::FromDIP(cell.space, scale));
            }
            continue;
        }
        int flags = wxALIGN_LEFT;
        if (cell.wide) {
            flags = wxEXPAND;
        } else if (horizontal) {
            flags = wxALIGN_CENTRE_VERTICAL;
        }
        int border = 0;
        if (!first && gapBetween > 0) {
            flags |= horizontal ? wxLEFT : wxTOP;
            border = wxWindow::FromDIP(gapBetween, scale);
        }
        first = false;
        wxSizer* inner = cell.sizer;
        if (cell.indent > 0) {
            auto* line = new wxBoxSizer(wxHORIZONTAL);
            line->AddSpacer(wxWindow::FromDIP(cell.indent, scale));
            if (cell.window != nullptr) {
                line->Add(cell.window, cell.wide ? 1 : 0, wxALIGN_CENTRE_VERTICAL);
            } else {
                line->Add(cell.sizer, 1);
            }
            inner = line;
            if (!horizontal) flags |= wxEXPAND;
        }
        if (inner != nullptr) {
            box->Add(inner, cell.grow, flags, border);
        } else {
            box->Add(cell.window, cell.grow, flags, border);
        }
    }
}

}  // namespace

wxBoxSizer* row(const wxWindow* scale, std::initializer_list<Cell> cells, int gapBetween) {
    auto* box = new wxBoxSizer(wxHORIZONTAL);
    addCells(box, scale, cells, gapBetween);
    return box;
}

wxBoxSizer* column(const wxWindow* scale, std::initializer_list<Cell> cells, int gapBetween) {
    auto* box = new wxBoxSizer(wxVERTICAL);
    addCells(box, scale, cells, gapBetween);
    return box;
}

void fillWindow(wxWindow* window, wxSizer* content, int edge) {
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(content, 1, wxEXPAND | wxALL, window->FromDIP(edge));
    window->SetSizer(outer);
}

}  // namespace tidvane::view
