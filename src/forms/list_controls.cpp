#include "forms/list_controls.h"

#include <algorithm>
#include <string_view>

namespace tidvane::forms {

void ComboBox::AddItem(std::string text) {
    rows_.push_back(std::move(text));
    if (index_ < 0 && !text_.empty() && rows_.back() == text_) index_ = ListCount() - 1;
    viewChanged();
}

void ComboBox::Clear() {
    rows_.clear();
    assign(-1, {});
}

void ComboBox::setListIndex(int index) {
    if (index >= ListCount()) return;
    if (index < 0) {
        assign(-1, {});
    } else {
        assign(index, rows_[static_cast<std::size_t>(index)]);
    }
}

void ComboBox::setText(const std::string& text) {
    const auto row = std::find(rows_.begin(), rows_.end(), text);
    assign(row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin()), text);
}

void ComboBox::assign(int index, std::string text) {
    const bool rowChanged = index != index_;
    const bool textChanged = text != text_;
    if (!rowChanged && !textChanged) return;
    index_ = index;
    text_ = std::move(text);
    viewChanged();
    if (textChanged) Change();
    if (rowChanged) Click();
}

std::vector<std::string> ListBox::rows() const {
    std::vector<std::string> texts;
    texts.reserve(rows_.size());
    for (const Row& row : rows_) texts.push_back(row.text);
    return texts;
}

void ListBox::setList(int row, std::string text) {
    rows_.at(static_cast<std::size_t>(row)).text = std::move(text);
    viewChanged();
}

void ListBox::AddItem(std::string text) {
    rows_.push_back({std::move(text), false});
    viewChanged();
}

void ListBox::RemoveItem(int row) {
    if (row < 0 || row >= ListCount()) return;
    rows_.erase(rows_.begin() + row);
    if (index_ >= ListCount()) index_ = -1;
    viewChanged();
}

void ListBox::Clear() {
    rows_.clear();
    index_ = -1;
    viewChanged();
}

void ListBox::setSelected(int row, bool selected) {
    if (row < 0 || row >= ListCount()) return;
    Row& target = rows_[static_cast<std::size_t>(row)];
    if (target.selected == selected) return;
    target.selected = selected;
    viewChanged();
    if (ticks) ItemCheck();
}

// Counted anew at each row: what hears of a tick may change the list.
void ListBox::selectAll(bool selected) {
    for (int row = 0; row < ListCount(); ++row) setSelected(row, selected);
}

int ListBox::SelCount() const {
    return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; }));
}

void ListBox::setListIndex(int index) {
    if (index >= ListCount()) return;
    const int next = index < 0 ? -1 : index;
    if (next == index_) return;
    index_ = next;
    viewChanged();
    Click();
}

ColumnHeader* ListView::column(std::string_view key) {
    const auto found = std::find_if(ColumnHeaders.begin(), ColumnHeaders.end(),
                                    [&](const ColumnHeader& header) { return header.key == key; });
    return found == ColumnHeaders.end() ? nullptr : &*found;
}

int ListView::find(std::string_view key) const {
    if (key.empty()) return 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].key == key) return static_cast<int>(i) + 1;
    }
    return 0;
}

bool ListView::Add(int index, const std::string& key, const std::string& text, int smallIcon) {
    if (!key.empty() && !keys_.insert(key).second) return false;
    ListItem row;
    row.key = key;
    row.text = text;
    row.smallIcon = smallIcon;
    if (index >= 1 && index <= Count()) {
        items_.insert(items_.begin() + (index - 1), std::move(row));
    } else {
        items_.push_back(std::move(row));
    }
    viewChanged();
    return true;
}

bool ListView::Remove(const std::string& key) {
    return Remove(find(key));
}

bool ListView::Remove(int index) {
    if (index < 1 || index > Count()) return false;
    const auto row = items_.begin() + (index - 1);
    keys_.erase(row->key);
    items_.erase(row);
    viewChanged();
    return true;
}

void ListView::Clear() {
    items_.clear();
    keys_.clear();
    viewChanged();
}

const ListItem* ListView::item(std::string_view key) const {
    return item(find(key));
}

const ListItem* ListView::item(int index) const {
    return index < 1 || index > Count() ? nullptr : &items_[static_cast<std::size_t>(index - 1)];
}

bool ListView::setSubItem(std::string_view key, const std::string& column, std::string text) {
    return setSubItem(find(key), column, std::move(text));
}

bool ListView::setSubItem(int index, const std::string& column, std::string text) {
    if (index < 1 || index > Count()) return false;
    items_[static_cast<std::size_t>(index - 1)].subItems[column] = std::move(text);
    viewChanged();
    return true;
}

bool ListView::setSmallIcon(std::string_view key, int icon) {
    return setSmallIcon(find(key), icon);
}

bool ListView::setSmallIcon(int index, int icon) {
    if (index < 1 || index > Count()) return false;
    items_[static_cast<std::size_t>(index - 1)].smallIcon = icon;
    viewChanged();
    return true;
}

bool ListView::setSelected(std::string_view key) {
    return setSelected(find(key));
}

bool ListView::setSelected(int index) {
    if (index < 1 || index > Count()) return false;
    for (ListItem& row : items_) row.selected = false;
    items_[static_cast<std::size_t>(index - 1)].selected = true;
    viewChanged();
    return true;
}

bool ListView::mark(int index, bool selected) {
    if (index < 1 || index > Count()) return false;
    items_[static_cast<std::size_t>(index - 1)].selected = selected;
    viewChanged();
    return true;
}

void ListView::markAll(bool selected) {
    for (int row = 1; row <= Count(); ++row) mark(row, selected);
}

}  // namespace tidvane::forms
