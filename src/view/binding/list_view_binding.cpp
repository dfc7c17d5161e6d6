#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include <algorithm>

#include "view/binding/bindings.h"
#include "view/binding/cursor_row.h"
#include "view/icons.h"
#include "view/measures.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

constexpr int kIconPixels = 16;

// What the column was given by the program or by its user. The last one is drawn as wide as there is room, which is
// nobody's choice.
int givenWidth(const wxDataViewColumn& column) {
#ifdef __WXGTK__
    const int given = gtk_tree_view_column_get_fixed_width(GTK_TREE_VIEW_COLUMN(column.GetGtkHandle()));
    if (given > 0) return given;
#endif
    return column.GetWidth();
}

}  // namespace

class ListViewBinding::Rows final : public wxDataViewVirtualListModel {
public:
    Rows(const forms::ListView& list, bool icons) : list_(list), icons_(icons) {}

    void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
        const forms::ListItem* item = list_.item(static_cast<int>(row) + 1);
        if (item == nullptr || column >= list_.ColumnHeaders.size()) return;
        if (column > 0) {
            value = toNative(item->subItem(list_.ColumnHeaders[column].key));
        } else if (!icons_) {
            value = toNative(item->text);
        } else {
            const std::string name = "task-" + std::to_string(item->smallIcon);
            value << wxDataViewIconText(toNative(item->text), icon(name, wxSize(kIconPixels, kIconPixels)));
        }
    }
    bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

    // Tells the widget what has changed since the last time.
    void refresh() {
        const std::vector<forms::ListItem>& now = list_.items();
        if (now.size() != shown_.size()) {
            shown_ = now;
            Reset(static_cast<unsigned>(now.size()));
            return;
        }
        for (std::size_t row = 0; row < now.size(); ++row) {
            const bool same = now[row].text == shown_[row].text && now[row].smallIcon == shown_[row].smallIcon &&
                              now[row].subItems == shown_[row].subItems;
            if (same) continue;
            shown_[row] = now[row];
            RowChanged(static_cast<unsigned>(row));
        }
    }

private:
    const forms::ListView& list_;
    const bool icons_;
    std::vector<forms::ListItem> shown_;
};

ListViewBinding::ListViewBinding(View& view, forms::ListView& list, wxDataViewCtrl* widget, bool several, bool icons)
    : Binding(view), list_(list), widget_(widget), rows_(new Rows(list, icons)), several_(several) {
    widget->AssociateModel(rows_.get());
    for (unsigned column = 0; column < list.ColumnHeaders.size(); ++column) {
        const forms::ColumnHeader& header = list.ColumnHeaders[column];
        const int width = toPixels(header.width, widget);
        const wxString title = toNative(header.text);
        wxDataViewColumn* made = column == 0 && icons
                                     ? widget->AppendIconTextColumn(title, column, wxDATAVIEW_CELL_INERT, width)
                                     : widget->AppendTextColumn(title, column, wxDATAVIEW_CELL_INERT, width);
        made->SetResizeable(true);
        widths_.push_back({width, 0});
    }
    widget->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { push(); });
}

ListViewBinding::~ListViewBinding() = default;

void ListViewBinding::push() {
    if (view_.pulling()) return;
    view_.act([this] {
        if (!several_) {
            const wxDataViewItem item = widget_->GetSelection();
            if (item.IsOk()) list_.setSelected(static_cast<int>(rows_->GetRow(item)) + 1);
            return;
        }
        for (int row = 1; row <= list_.Count(); ++row) {
            list_.mark(row, widget_->IsSelected(rows_->GetItem(static_cast<unsigned>(row - 1))));
        }
    });
}

void ListViewBinding::pullSelection() {
    for (int row = 1; row <= list_.Count(); ++row) {
        const wxDataViewItem item = rows_->GetItem(static_cast<unsigned>(row - 1));
        const bool selected = list_.item(row)->selected;
        if (widget_->IsSelected(item) == selected) continue;
        if (!selected) {
            widget_->Unselect(item);
            continue;
        }
        widget_->Select(item);
        if (several_) continue;
        // The arrow keys go on from here.
        setCursorRow(*widget_, row - 1);
        widget_->EnsureVisible(item);
    }
}

void ListViewBinding::pull() {
    for (unsigned column = 0; column < list_.ColumnHeaders.size() && column < widget_->GetColumnCount(); ++column) {
        wxDataViewColumn* native = widget_->GetColumn(column);
        const wxString title = toNative(list_.ColumnHeaders[column].text);
        if (native->GetTitle() != title) native->SetTitle(title);
        // A width that the program has set since the widget's own was noted here.
        const int width = toPixels(list_.ColumnHeaders[column].width, widget_);
        if (column < widths_.size() && widths_[column].common != width) {
            native->SetWidth(width);
            widths_[column].common = width;
        }
    }
    rows_->refresh();
    pullSelection();
}

// Nobody tells when the user has drawn a column wider.
void ListViewBinding::sample() {
    if (!widget_->IsShownOnScreen()) return;
    for (unsigned column = 0; column < list_.ColumnHeaders.size() && column < widget_->GetColumnCount(); ++column) {
        const int width = givenWidth(*widget_->GetColumn(column));
        // A width that was set shows only once the widget is laid out.
        if (width <= 0 || width == widths_[column].seen) continue;
        widths_[column] = {width, width};
        forms::ColumnHeader& header = list_.ColumnHeaders[column];
        if (toPixels(header.width, widget_) != width) header.width = toTwips(width, widget_);
    }
}

}  // namespace tidvane::view
