#include "controls/explorer_layout.h"

#include <algorithm>

namespace tidvane::controls {

namespace {

using M = ExplorerMetrics;

constexpr int kLineWithoutDisplay = 16;

bool withArrow(const ExplorerGroup& group, const PaneShape& shape) {
    return group.kind != GroupKind::Detail || shape.detailButton;
}

bool anyIcon(const ExplorerGroup& group) {
    return std::any_of(group.items.begin(), group.items.end(),
                       [](const ExplorerItem& item) { return !item.TextOnly && !item.Icon.empty(); });
}

// Across the pane: where boxes begin and how wide they are. One place, for measuring and for placing.
struct Columns {
    explicit Columns(const PaneShape& shape)
        : width(std::max(0, shape.width - 2 * M::kMargin)), inside(std::max(0, width - 2 * M::kBodyPadding)) {}

    Rect title(const ExplorerGroup& group, const PaneShape& shape) const {
        int left = M::kMargin + M::kHeaderPadding;
        if (!group.Icon.empty()) left += M::kIcon + M::kIconGap;
        int right = M::kMargin + width - M::kHeaderInset;
        if (withArrow(group, shape)) right -= M::kArrow + M::kIconGap;
        return {left, 0, std::max(0, right - left), 0};
    }
    Rect itemText(const ExplorerGroup& group, const ExplorerItem& item) const {
        int left = insideLeft() + M::kItemInset;
        if (!item.TextOnly && anyIcon(group)) left += M::kIcon + M::kIconGap;
        return {left, 0, std::max(0, insideLeft() + inside - M::kItemInset - left), 0};
    }
    static int insideLeft() { return M::kMargin + M::kBodyPadding; }

    int width;   // of a group
    int inside;  // of what it holds
};

GroupHeights heightsOf(const ExplorerGroup& group, const PaneShape& shape, const ExplorerMeasure& measure) {
    const Columns columns(shape);
    const auto textHeight = [&](const std::string& text, bool bold, int width) {
        if (text.empty()) return 0;
        return measure.text ? std::max(0, measure.text(text, bold, std::max(1, width))) : kLineWithoutDisplay;
    };
    GroupHeights heights;
    heights.title = textHeight(group.Title, group.TitleBold, columns.title(group, shape).width);
    heights.header =
        shape.headerHeight > 0 ? shape.headerHeight : std::max(M::kHeader, heights.title + 2 * M::kHeaderInset);
    if (group.kind == GroupKind::Detail) {
        if (!group.Picture.empty() && measure.picture) heights.picture = measure.picture(group.Picture);
        // A picture that is too wide is drawn smaller, in its own proportions.
        if (heights.picture.width > columns.inside) {
            heights.picture.height = heights.picture.height * columns.inside / heights.picture.width;
            heights.picture.width = columns.inside;
        }
        heights.caption = textHeight(group.Caption, false, columns.inside);
        const int gap = heights.picture.height > 0 && heights.caption > 0 ? M::kBodyPadding : 0;
        heights.content = heights.picture.height + gap + heights.caption;
    } else if (group.Container != nullptr) {
        heights.content = measure.container ? std::max(0, measure.container(*group.Container, columns.inside)) : 0;
    } else {
        for (const ExplorerItem& item : group.items) {
            const int text = textHeight(item.Caption, item.CaptionBold, columns.itemText(group, item).width);
            heights.items.push_back(std::max(M::kItem, text + 2 * M::kItemInset));
            heights.content += heights.items.back();
        }
    }
    if (heights.content > 0) heights.content += 2 * M::kBodyPadding;
    return heights;
}

void placeContent(GroupPlace& place, const ExplorerGroup& group, const Columns& columns, const GroupHeights& heights) {
    const int left = Columns::insideLeft();
    int y = place.content.y + M::kBodyPadding;
    const int room = place.content.height - 2 * M::kBodyPadding;
    if (room <= 0) return;
    if (group.kind == GroupKind::Detail) {
        const Size picture = heights.picture;
        if (picture.width > 0 && picture.height > 0) {
            place.picture = {left + (columns.inside - picture.width) / 2, y, picture.width, picture.height};
            y += picture.height + M::kBodyPadding;
        }
        if (heights.caption > 0) place.caption = {left, y, columns.inside, heights.caption};
        return;
    }
    if (group.Container != nullptr) {
        place.container = {left, y, columns.inside, room};
        return;
    }
    for (std::size_t i = 0; i < group.items.size(); ++i) {
        const ExplorerItem& item = group.items[i];
        ItemPlace box;
        box.item = static_cast<int>(i);
        box.reacts = !item.TextOnly && item.Enabled;
        box.box = {left, y, columns.inside, heights.items[i]};
        box.text = columns.itemText(group, item);
        box.text.y = y + M::kItemInset;
        box.text.height = heights.items[i] - 2 * M::kItemInset;
        if (!item.TextOnly && !item.Icon.empty()) {
            // Beside the first line of a long caption, in the middle of a short one.
            box.icon = {left + M::kItemInset, y + (M::kItem - M::kIcon) / 2, M::kIcon, M::kIcon};
        }
        place.items.push_back(box);
        y += heights.items[i];
    }
}

}  // namespace

std::vector<GroupHeights> measureGroups(std::span<const ExplorerGroup> groups, const PaneShape& shape,
                                        const ExplorerMeasure& measure) {
    std::vector<GroupHeights> heights;
    heights.reserve(groups.size());
    for (const ExplorerGroup& group : groups) heights.push_back(heightsOf(group, shape, measure));
    return heights;
}

ExplorerLayout placeGroups(std::span<const ExplorerGroup> groups, const PaneShape& shape,
                           std::span<const GroupHeights> heights, int scroll) {
    const Columns columns(shape);
    ExplorerLayout layout;
    std::vector<std::size_t> order;
    for (const bool details : {false, true}) {
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if ((groups[i].kind == GroupKind::Detail) == details) order.push_back(i);
        }
    }
    int y = M::kMargin - scroll;
    int moved = 0;  // how much higher the stack is than it will be
    for (const std::size_t i : order) {
        const ExplorerGroup& group = groups[i];
        const GroupHeights& measured = heights[i];
        GroupPlace place;
        place.group = static_cast<int>(i);
        place.kind = group.kind;
        place.header = {M::kMargin, y, columns.width, measured.header};
        place.title = columns.title(group, shape);
        place.title.height = std::min(measured.title, measured.header);
        place.title.y = y + (measured.header - place.title.height) / 2;
        if (!group.Icon.empty()) {
            place.icon = {M::kMargin + M::kHeaderPadding, y + (measured.header - M::kIcon) / 2, M::kIcon, M::kIcon};
        }
        if (withArrow(group, shape)) {
            place.arrow = {M::kMargin + columns.width - M::kHeaderInset - M::kArrow,
                           y + (measured.header - M::kArrow) / 2, M::kArrow, M::kArrow};
        }
        y += measured.header;
        const int resting = group.open ? measured.content : 0;
        int seen = resting;
        if (group.motion) {
            place.moving = true;
            place.alpha = group.motion->alpha;
            seen = std::clamp(group.motion->height, 0, measured.content);
        }
        place.content = {M::kMargin, y, columns.width, measured.content};
        place.body = {M::kMargin, y, columns.width, seen};
        if (seen > 0) placeContent(place, group, columns, measured);
        y += seen + M::kGroupGap;
        moved += seen - resting;
        layout.groups.push_back(std::move(place));
    }
    if (!order.empty()) y -= M::kGroupGap;
    layout.height = y + scroll + M::kMargin;
    layout.restingHeight = layout.height - moved;
    return layout;
}

PaneTarget ExplorerLayout::at(int x, int y) const {
    for (const GroupPlace& place : groups) {
        if (place.header.contains(x, y)) return place.arrow.empty() ? PaneTarget{} : PaneTarget{place.group, -1};
        if (!place.body.contains(x, y)) continue;
        for (const ItemPlace& item : place.items) {
            if (item.reacts && item.box.contains(x, y)) return {place.group, item.item};
        }
    }
    return {};
}

const GroupPlace* ExplorerLayout::group(int number) const {
    for (const GroupPlace& place : groups) {
        if (place.group == number) return &place;
    }
    return nullptr;
}

const ItemPlace* ExplorerLayout::item(int group, int number) const {
    const GroupPlace* place = this->group(group);
    if (place == nullptr) return nullptr;
    for (const ItemPlace& item : place->items) {
        if (item.item == number) return &item;
    }
    return nullptr;
}

}  // namespace tidvane::controls
