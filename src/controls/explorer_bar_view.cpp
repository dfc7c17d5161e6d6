// What a task pane shows and how it reacts: places, mouse, keyboard, colours.
#include <algorithm>
#include <utility>

#include "controls/explorer_bar.h"

namespace tidvane::controls {

namespace {

constexpr int kWheelStep = 3 * ExplorerMetrics::kItem;

}  // namespace

// --- Places

void ExplorerBar::changed() {
    dirtyHeights_ = true;
    viewChanged();
}

void ExplorerBar::moved() {
    dirtyPlaces_ = true;
    if (!arranging_) viewChanged();
}

void ExplorerBar::Refresh() {
    changed();
}

void ExplorerBar::setView(Size size, ExplorerMeasure measure) {
    view_ = size;
    measure_ = std::move(measure);
    changed();
}

PaneShape ExplorerBar::shape(int width) const {
    return {width, HeaderHeight, DetailGroupButton};
}

void ExplorerBar::place(int width) {
    if (dirtyHeights_ || width != measuredWidth_) {
        heights_ = measureGroups(groups_, shape(width), measure_);
        measuredWidth_ = width;
        dirtyHeights_ = false;
    }
    layout_ = placeGroups(groups_, shape(width), heights_, tsbVertical.Value);
}

void ExplorerBar::arrange() {
    if (arranging_ || (!dirtyHeights_ && !dirtyPlaces_)) return;
    arranging_ = true;
    dirtyPlaces_ = false;
    const int narrow = std::max(0, view_.width - ExplorerMetrics::kScrollBar);
    // The stack at rest decides, so that nothing changes its width while a group opens.
    const bool measured = !dirtyHeights_;
    place(measured && withScrollBar_ ? narrow : view_.width);
    if (!withScrollBar_ || !measured) {
        withScrollBar_ = layout_.restingHeight > view_.height;
        if (withScrollBar_) place(narrow);
    } else if (layout_.restingHeight <= view_.height) {
        // At the whole width texts need no more lines than beside the bar.
        withScrollBar_ = false;
        place(view_.width);
    }
    tsbVertical.Min = 0;
    tsbVertical.Max = std::max(0, layout_.height - view_.height);
    tsbVertical.LargeChange = std::max(1, view_.height);
    tsbVertical.SmallChange = kWheelStep;
    const int fitting = std::clamp(tsbVertical.Value.get(), 0, tsbVertical.Max.get());
    if (fitting != tsbVertical.Value.get()) {
        tsbVertical.Value = fitting;
        place(measuredWidth_);
    }
    tsbVertical.Visible = withScrollBar_;
    tsbVertical.setSize(withScrollBar_ ? Size{ExplorerMetrics::kScrollBar, view_.height} : Size{},
                        ExplorerMetrics::kScrollBar);
    dirtyPlaces_ = false;
    arranging_ = false;
}

const ExplorerLayout& ExplorerBar::layout() {
    arrange();
    findHot();
    return layout_;
}

Rect ExplorerBar::scrollBar() {
    arrange();
    if (!withScrollBar_) return {};
    return {view_.width - ExplorerMetrics::kScrollBar, 0, ExplorerMetrics::kScrollBar, view_.height};
}

void ExplorerBar::setScroll(int position) {
    arrange();
    tsbVertical.Value = std::clamp(position, 0, tsbVertical.Max.get());
}

bool ExplorerBar::FullTextShowed(int group, int item) {
    arrange();
    const GroupPlace* place = layout_.group(group);
    if (place == nullptr || find(group) == nullptr) return false;
    const auto inView = [&](const Rect& box) { return !box.empty() && box.y >= 0 && box.bottom() <= view_.height; };
    if (item < 0) return inView(place->title) && heights_[static_cast<std::size_t>(group)].title <= place->title.height;
    const ItemPlace* row = layout_.item(group, item);
    return row != nullptr && !place->moving && inView(row->text);
}

// --- Targets

bool ExplorerBar::valid(PaneTarget target) const {
    return target.item < 0 ? find(target.group) != nullptr : find(target.group, target.item) != nullptr;
}

bool ExplorerBar::reachable(PaneTarget target) const {
    if (!valid(target)) return false;
    const ExplorerGroup& group = *find(target.group);
    if (target.header()) return group.kind != GroupKind::Detail || DetailGroupButton;
    const ExplorerItem& item = *find(target.group, target.item);
    return group.open && group.Container == nullptr && !item.TextOnly && item.Enabled;
}

std::vector<PaneTarget> ExplorerBar::targets() {
    std::vector<PaneTarget> all;
    for (const bool details : {false, true}) {
        for (int group = 0; group < GetGroupsCount(); ++group) {
            if ((find(group)->kind == GroupKind::Detail) != details) continue;
            for (int item = -1; item < GetItemsCount(group); ++item) {
                if (reachable({group, item})) all.push_back({group, item});
            }
        }
    }
    return all;
}

PaneTarget ExplorerBar::at(int x, int y) {
    arrange();
    if (x < 0 || y < 0 || x >= view_.width || y >= view_.height || scrollBar().contains(x, y)) return {};
    return layout_.at(x, y);
}

void ExplorerBar::findHot() {
    if (!mouse_ || !Enabled || !Visible || scrolling_ || (pressed_.any() && !byKey_)) return;
    setHot(at(mouse_->x, mouse_->y));
}

void ExplorerBar::setHot(PaneTarget target) {
    if (target == hot_) return;
    hot_ = target;
    viewChanged();
    if (target.any()) MouseHover(target.group, target.item);
}

void ExplorerBar::setPressed(PaneTarget target) {
    overPressed_ = target.any();
    if (target == pressed_) return;
    pressed_ = target;
    viewChanged();
}

bool ExplorerBar::act(PaneTarget target) {
    if (!target.any()) return false;
    if (target.header())
        clickHeader(target.group);
    else
        clickItem(target.group, target.item);
    return true;
}

// --- Mouse

void ExplorerBar::mouseDown(MouseButton button, int x, int y, int keys) {
    mouse_ = {x, y};
    if (!Enabled || !Visible) return;
    const Rect bar = scrollBar();
    if (button == MouseButton::Left && bar.contains(x, y)) {
        scrolling_ = true;
        tsbVertical.mouseDown(x - bar.x, y - bar.y);
        return;
    }
    if (button == MouseButton::Left) {
        const PaneTarget target = at(x, y);
        byKey_ = false;
        focusByKeyboard_ = false;
        setHot(target);
        setPressed(target);
        if (target.any()) focus_ = target;
    }
    MouseDown(button, keys, x, y);
}

void ExplorerBar::mouseMove(int x, int y, int keys) {
    mouse_ = {x, y};
    if (!Enabled || !Visible) return;
    const Rect bar = scrollBar();
    if (scrolling_ || (bar.contains(x, y) && !pressed_.any())) {
        if (!scrolling_) setHot({});
        tsbVertical.mouseMove(x - bar.x, y - bar.y);
        return;
    }
    tsbVertical.mouseLeave();
    const PaneTarget target = at(x, y);
    if (pressed_.any() && !byKey_) {
        // While a button is held only its target reacts.
        const bool over = target == pressed_;
        if (over != overPressed_) {
            overPressed_ = over;
            viewChanged();
        }
    } else {
        setHot(target);
    }
    MouseMove(keys, x, y);
}

void ExplorerBar::mouseUp(MouseButton button, int x, int y, int keys) {
    mouse_ = {x, y};
    if (button == MouseButton::Left && scrolling_) {
        scrolling_ = false;
        tsbVertical.mouseUp();
        return;
    }
    if (!Enabled || !Visible) {
        cancelMode();
        return;
    }
    PaneTarget clicked;
    if (button == MouseButton::Left && !byKey_) {
        const PaneTarget target = at(x, y);
        if (pressed_.any() && target == pressed_) clicked = target;
        setPressed({});
        setHot(target);
    }
    MouseUp(button, keys, x, y);
    act(clicked);
}

void ExplorerBar::mouseLeave() {
    if (!mouse_) return;
    mouse_.reset();
    tsbVertical.mouseLeave();
    setHot({});
    MouseOut();
}

void ExplorerBar::cancelMode() {
    scrolling_ = false;
    tsbVertical.cancelMode();
    byKey_ = false;
    setPressed({});
}

bool ExplorerBar::wheel(int turn, WheelPlace place) {
    arrange();
    if (!Enabled || !withScrollBar_) return false;
    return tsbVertical.wheel(turn, place);
}

// --- Keyboard

PaneTarget ExplorerBar::focus() {
    // A group that has closed keeps the focus on its title bar.
    if (!reachable(focus_) && reachable({focus_.group, -1})) focus_.item = -1;
    if (!reachable(focus_)) {
        const std::vector<PaneTarget> all = targets();
        focus_ = all.empty() ? PaneTarget{} : all.front();
    }
    return focus_;
}

void ExplorerBar::setFocus(bool has, bool byKeyboard) {
    if (has == hasFocus_) return;
    hasFocus_ = has;
    focusByKeyboard_ = has && byKeyboard;
    if (has)
        showTarget(focus());
    else if (byKey_)
        cancelMode();
    viewChanged();
}

void ExplorerBar::moveFocus(PaneTarget target) {
    if (!target.any()) return;
    focus_ = target;
    showTarget(target);
    viewChanged();
}

void ExplorerBar::showTarget(PaneTarget target) {
    arrange();
    if (!withScrollBar_ || !target.any()) return;
    const ItemPlace* item = target.header() ? nullptr : layout_.item(target.group, target.item);
    const GroupPlace* group = layout_.group(target.group);
    if (group == nullptr) return;
    const Rect box = item != nullptr ? item->box : group->header;
    if (box.y < 0)
        setScroll(scroll() + box.y - ExplorerMetrics::kMargin);
    else if (box.bottom() > view_.height)
        setScroll(scroll() + box.bottom() - view_.height + ExplorerMetrics::kMargin);
}

bool ExplorerBar::keyDown(Key key) {
    tsbVertical.keyDown(key, true);
    if (!Enabled || !Visible) return false;
    const PaneTarget now = focus();
    if (!now.any()) return false;
    const bool modifier = key == Key::Shift || key == Key::Ctrl || key == Key::Alt;
    if (!modifier && !std::exchange(focusByKeyboard_, true)) viewChanged();
    const std::vector<PaneTarget> all = targets();
    const auto place = std::find(all.begin(), all.end(), now);
    switch (key) {
        case Key::Up:
            if (place != all.begin()) moveFocus(*(place - 1));
            return true;
        case Key::Down:
            if (place + 1 != all.end()) moveFocus(*(place + 1));
            return true;
        case Key::Home:
            moveFocus(all.front());
            return true;
        case Key::End:
            moveFocus(all.back());
            return true;
        case Key::PageUp:
        case Key::PageDown:
            tsbVertical.keyDown(key);
            return true;
        case Key::Left:
            moveFocus({now.group, -1});
            if (find(now.group)->open) clickHeader(now.group);
            return true;
        case Key::Right:
            if (!find(now.group)->open) clickHeader(now.group);
            return true;
        case Key::Enter:
            return act(now);
        case Key::Space:
            byKey_ = true;
            setPressed(now);
            return true;
        case Key::Shift:
        case Key::Ctrl:
        case Key::Alt:
            break;
    }
    return false;
}

bool ExplorerBar::keyUp(Key key) {
    tsbVertical.keyUp(key);
    if (key != Key::Space || !byKey_) return false;
    const PaneTarget target = pressed_;
    byKey_ = false;
    setPressed({});
    if (reachable(target)) act(target);
    return true;
}

// --- Colours

void ExplorerBar::setVisualStyle(std::string name, std::string colours) {
    styleName_ = std::move(name);
    styleColours_ = std::move(colours);
    viewChanged();
}

TargetState ExplorerBar::state(PaneTarget target) const {
    if (!target.any()) return {};
    TargetState state;
    const bool pressed = pressed_ == target;
    state.hot = Enabled && hot_ == target && (!pressed_.any() || byKey_ || (pressed && overPressed_));
    state.pressed = Enabled && pressed && overPressed_;
    state.focused = hasFocus_ && focusByKeyboard_ && focus_ == target;
    return state;
}

std::string ExplorerBar::toolTip(PaneTarget target) const {
    return target.header() ? GetGroupToolTipText(target.group) : GetItemToolTipText(target.group, target.item);
}

Gradient ExplorerBar::paneGradient() const {
    if (usesVisualStyle()) {
        if (const auto known = styleGradient(styleName_, styleColours_)) return *known;
    }
    return {BackColor, colour("GradientBackColor")};
}

unsigned ExplorerBar::lookColour(GroupKind look, const char* name) const {
    return colour(std::string(look == GroupKind::Special ? "Special" : "Normal") + name);
}

HeaderColours ExplorerBar::headerColours(int group) const {
    const ExplorerGroup* found = find(group);
    if (found == nullptr) return {};
    const GroupKind look = found->kind;
    const TargetState now = state({group, -1});
    HeaderColours colours;
    colours.back = lookColour(look, "HeaderBackColor");
    colours.gradient =
        colour(look == GroupKind::Special ? "GradientSpecialHeaderBackColor" : "GradientNormalHeaderBackColor");
    colours.fore = lookColour(look, now.hot ? "HeaderHoverColor" : "HeaderForeColor");
    colours.arrow = lookColour(look, now.pressed ? "ArrowDownColor" : now.hot ? "ArrowHoverColor" : "ArrowUpColor");
    colours.button = lookColour(look, now.pressed ? "ButtonDownColor" : now.hot ? "ButtonHoverColor" : "ButtonUpColor");
    colours.buttonBack = lookColour(look, "ButtonBackColor");
    return colours;
}

std::string ExplorerBar::buttonPicture(int group) const {
    const ExplorerGroup* found = find(group);
    if (found == nullptr) return {};
    const TargetState now = state({group, -1});
    if (found->kind == GroupKind::Special) {
        if (now.pressed) return SpecialButtonPictureDown;
        return now.hot ? SpecialButtonPictureHover : SpecialButtonPictureUp;
    }
    if (now.pressed) return NormalButtonPictureDown;
    return now.hot ? NormalButtonPictureHover : NormalButtonPictureUp;
}

BodyColours ExplorerBar::bodyColours(int group) const {
    const ExplorerGroup* found = find(group);
    if (found == nullptr) return {};
    const bool special = found->kind == GroupKind::Special;
    return {lookColour(found->kind, "ItemBackColor"),
            colour(special ? "GradientSpecialItemBackColor" : "GradientNormalItemBackColor"),
            lookColour(found->kind, "ItemBorderColor")};
}

unsigned ExplorerBar::itemColour(int group, int item) const {
    const ExplorerGroup* found = find(group);
    if (found == nullptr) return 0;
    if (found->kind == GroupKind::Detail) return colour("DetailsForeColor");
    return lookColour(found->kind, state({group, item}).hot ? "ItemHoverColor" : "ItemForeColor");
}

}  // namespace tidvane::controls
