// The program's own task pane as a model: groups of clickable items.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "forms/control.h"

namespace tidvane::controls {

enum class GroupKind { Normal, Special, Detail };

struct ExplorerItem {
    std::string Caption;
    std::string Icon;
    std::string Tag;
};

struct ExplorerGroup {
    GroupKind kind = GroupKind::Normal;
    std::string Title;
    std::string Icon;
    std::string Tag;
    std::string Caption;  // of the detail group
    bool open = true;
    std::vector<ExplorerItem> items;
};

// Groups and items count from 0, in order of adding. At most 20 groups and 20 items in a group, at most one detail
// group.
class ExplorerBar : public forms::Control {
public:
    static constexpr int kLimit = 20;
    static constexpr int kNoSuchGroup = -1;
    static constexpr int kDetailGroupExists = -1;
    static constexpr int kDetailGroupTakesNoItems = -3;
    static constexpr int kFull = -20;

    ExplorerBar(forms::Form& form, std::string name);

    forms::Signal<int, int> ItemClick;    // group, item
    forms::Signal<int, bool> GroupClick;  // group, open
    forms::Property<bool> OpenOneGroupOnly{false, &viewChanged};
    forms::Property<bool> UseTheme{false, &viewChanged};

    // Each answers the number of the new group or item, or one of the codes above.
    int AddNormalGroup(const std::string& title, const std::string& icon = {}, const std::string& tag = {});
    int AddSpecialGroup(const std::string& title, const std::string& icon = {}, const std::string& tag = {});
    int AddDetailGroup(const std::string& title, const std::string& caption);
    int AddItem(int group, const std::string& caption, const std::string& icon = {}, const std::string& tag = {});
    void DeleteAllGroups();
    const std::vector<ExplorerGroup>& groups() const { return groups_; }

    // Colour properties by name ("BackColor", "NormalHeaderForeColor"); the names a theme may set.
    void setColour(const std::string& property, unsigned colour);
    unsigned colour(const std::string& property) const;  // 0xFFFFFFFF where none was set

    // A user's click on an item.
    void clickItem(int group, int item);

private:
    int add(ExplorerGroup group);
    std::vector<ExplorerGroup> groups_;
    std::map<std::string, unsigned> colours_;
};

}  // namespace tidvane::controls
