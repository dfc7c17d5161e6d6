// What a task pane holds: groups and their items, as they were added.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tidvane::forms {
class Control;
}

namespace tidvane::controls {

enum class GroupKind { Normal, Special, Detail };

struct ExplorerItem {
    std::string Caption;
    std::string Icon;  // name of the picture, empty for none
    std::string Tag;
    bool CaptionBold = false;
    bool TextOnly = false;  // a line to read: without icon, and nothing to click
    std::string OpenFile;   // opened by a click, empty for none
    std::string ToolTipText;
    bool Enabled = true;  // false: grey, and nothing to click
};

// A group that opens or closes.
struct GroupMotion {
    bool opening = true;
    int height = 0;  // how much of the content is seen, logical pixels
    int alpha = 0;   // 0 not seen, 255 opaque
};

struct ExplorerGroup {
    GroupKind kind = GroupKind::Normal;
    std::string Title;
    bool TitleBold = true;
    std::string Icon;
    std::string Tag;
    std::string ToolTipText;
    forms::Control* Container = nullptr;  // shown in place of items
    std::string ItemsBackgroundPicture;
    std::string Caption;  // of the detail group, as is Picture
    std::string Picture;
    bool open = true;                   // WindowState; a group in motion has its new state already
    std::optional<GroupMotion> motion;  // nothing while the group stands still
    std::vector<ExplorerItem> items;
};

}  // namespace tidvane::controls
