// Where everything in a task pane lies. All numbers are logical pixels; rectangles count from the top left corner of
// the pane's visible area, so that scrolling is in them already.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "controls/explorer_groups.h"
#include "controls/geometry.h"

namespace tidvane::controls {

// What only the display can measure. A function that is missing counts as 16 for a line of text and as nothing else.
struct ExplorerMeasure {
    // Height of a text that is wrapped at this width.
    std::function<int(const std::string& text, bool bold, int width)> text;
    // Height that a control in place of items wants at this width.
    std::function<int(const forms::Control& container, int width)> container;
    std::function<Size(const std::string& picture)> picture;
};

// The pane's measures. A painter needs no other number of its own.
struct ExplorerMetrics {
    static constexpr int kMargin = 12;         // around the groups
    static constexpr int kGroupGap = 12;       // between a group and the next
    static constexpr int kHeader = 25;         // at least
    static constexpr int kHeaderPadding = 10;  // left of the title
    static constexpr int kHeaderInset = 4;     // above and below the title, right of the arrow button
    static constexpr int kArrow = 17;          // the button's side
    static constexpr int kIcon = 16;           // of title bars and items
    static constexpr int kIconGap = 6;
    static constexpr int kBodyPadding = 8;  // inside a group, all around
    static constexpr int kItem = 24;        // at least
    static constexpr int kItemInset = 4;    // above and below an item's caption, left of its icon, right of its text
    static constexpr int kScrollBar = 17;
};

struct ItemPlace {
    int item = 0;
    Rect box;            // what reacts on the mouse
    Rect icon;           // empty without one
    Rect text;           // a caption that is lower than this stands in the middle
    bool reacts = true;  // on mouse and keyboard
};

struct GroupPlace {
    int group = 0;
    GroupKind kind = GroupKind::Normal;
    Rect header;
    Rect icon;  // empty without one
    Rect title;
    Rect arrow;  // empty on a detail group without a button
    // What is seen of the group's content now; empty when it is closed. Everything below lies in `content` and is
    // clipped to `body`.
    Rect body;
    Rect content;
    int alpha = 255;  // of the content, while the group moves
    bool moving = false;
    std::vector<ItemPlace> items;
    Rect container;  // of the control in place of items
    Rect picture;    // of the detail group, as is caption
    Rect caption;
};

struct PaneTarget {
    int group = -1;  // -1: nothing
    int item = -1;   // -1: the group's title bar
    bool any() const { return group >= 0; }
    bool header() const { return group >= 0 && item < 0; }
    bool operator==(const PaneTarget&) const = default;
};

struct ExplorerLayout {
    std::vector<GroupPlace> groups;  // from top to bottom: the detail group last
    int height = 0;                  // of the whole stack, margins included
    int restingHeight = 0;           // the same when nothing moves any more

    // The title bar or item at a point. Text lines and what is clipped away are nothing, and so is a detail group's
    // title bar without a button.
    PaneTarget at(int x, int y) const;
    const GroupPlace* group(int number) const;
    const ItemPlace* item(int group, int number) const;
};

struct GroupHeights {
    int header = 0;
    int title = 0;
    int content = 0;
    std::vector<int> items;
    Size picture;
    int caption = 0;
    bool operator==(const GroupHeights&) const = default;
};

struct PaneShape {
    int width = 0;         // that the groups and their margins have
    int headerHeight = 0;  // of all title bars; 0: as high as the title needs
    bool detailButton = false;
    bool operator==(const PaneShape&) const = default;
};

// Two steps, so that a move or a scroll measures no text again: the heights at a width, in order of the groups, and
// from them the places at a scroll position.
std::vector<GroupHeights> measureGroups(std::span<const ExplorerGroup> groups, const PaneShape& shape,
                                        const ExplorerMeasure& measure);
ExplorerLayout placeGroups(std::span<const ExplorerGroup> groups, const PaneShape& shape,
                           std::span<const GroupHeights> heights, int scroll);

}  // namespace tidvane::controls
