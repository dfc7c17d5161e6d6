// Combo boxes, list boxes and the list view.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace tidvane::forms {

// Rows and a text. The row and the text agree: choosing a row sets the text, and a text that equals a row chooses it;
// any other text stands with no row (-1).
class ComboBox : public Control {
public:
    ComboBox(Form& form, std::string name) : Control(form, ControlKind::ComboBox, std::move(name)) {}
    Signal<> Click;   // the chosen row has changed
    Signal<> Change;  // the text has changed

    int ListCount() const { return static_cast<int>(rows_.size()); }
    const std::vector<std::string>& rows() const { return rows_; }
    void AddItem(std::string text);
    // Also empties the text.
    void Clear();
    int ListIndex() const { return index_; }
    // Below 0 clears choice and text; past the end is ignored.
    void setListIndex(int index);
    const std::string& Text() const { return text_; }
    void setText(const std::string& text);

private:
    void assign(int index, std::string text);
    std::vector<std::string> rows_;
    int index_ = -1;
    std::string text_;
};

class ListBox : public Control {
public:
    ListBox(Form& form, std::string name, bool withTicks = false)
        : Control(form, ControlKind::ListBox, std::move(name)), ticks(withTicks) {}
    Signal<> Click;     // the current row has changed
    Signal<> DblClick;  // a user's double click
    Signal<> ItemCheck;

    const bool ticks;  // rows carry a tick; Selected is then the tick
    Property<double> FontSize{8.25, &viewChanged};

    int ListCount() const { return static_cast<int>(rows_.size()); }
    const std::string& List(int row) const { return rows_.at(static_cast<std::size_t>(row)).text; }
    std::vector<std::string> rows() const;  // the texts of all
    void setList(int row, std::string text);
    void AddItem(std::string text);
    void RemoveItem(int row);
    void Clear();
    bool Selected(int row) const { return rows_.at(static_cast<std::size_t>(row)).selected; }
    void setSelected(int row, bool selected);
    void selectAll(bool selected);
    int SelCount() const;
    int ListIndex() const { return index_; }
    void setListIndex(int index);

private:
    struct Row {
        std::string text;
        bool selected = false;
    };
    std::vector<Row> rows_;
    int index_ = -1;
};

struct ColumnHeader {
    std::string key;
    std::string text;
    int width = 1440;  // twips
};

// One row of a list view. Sub-items are found by the key of their column.
struct ListItem {
    std::string key;
    std::string text;
    int smallIcon = 0;
    bool selected = false;
    std::map<std::string, std::string, std::less<>> subItems;

    std::string subItem(std::string_view column) const {
        const auto found = subItems.find(column);
        return found == subItems.end() ? std::string() : found->second;
    }
};

// Rows count from 1, as the control counts them. Nothing here fails loudly: a missing row makes a write do nothing.
class ListView : public Control {
public:
    ListView(Form& form, std::string name) : Control(form, ControlKind::ListView, std::move(name)) {}

    std::vector<ColumnHeader> ColumnHeaders;
    Property<bool> HideColumnHeaders{false, &viewChanged};
    ColumnHeader* column(std::string_view key);

    int Count() const { return static_cast<int>(items_.size()); }
    // False and nothing added: another row has this key already. Rows with an empty key may be many. Index 0: at the
    // end.
    bool Add(int index, const std::string& key, const std::string& text, int smallIcon);
    bool Remove(const std::string& key);  // an empty key finds nothing
    bool Remove(int index);
    void Clear();
    // The pointer holds until the list changes. Null when there is none; an empty key finds nothing.
    const ListItem* item(std::string_view key) const;
    const ListItem* item(int index) const;

    bool setSubItem(std::string_view key, const std::string& column, std::string text);
    bool setSubItem(int index, const std::string& column, std::string text);
    bool setSmallIcon(std::string_view key, int icon);
    bool setSmallIcon(int index, int icon);
    // One row is selected at a time; selecting one scrolls to it.
    bool setSelected(std::string_view key);
    bool setSelected(int index);
    // The mark of one row alone, for lists in which several rows may be selected.
    bool mark(int index, bool selected);
    void markAll(bool selected);
    const std::vector<ListItem>& items() const { return items_; }

private:
    int find(std::string_view key) const;  // from 1; 0 for none
    std::vector<ListItem> items_;
    std::unordered_set<std::string> keys_;  // of all rows that have one: a list may be filled with very many
};

}  // namespace tidvane::forms
