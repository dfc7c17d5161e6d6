#include "controls/explorer_bar.h"

#include <algorithm>
#include <utility>

namespace tidvane::controls {

namespace {

constexpr unsigned kNoColour = 0xFFFFFFFFu;
constexpr std::string_view kBackColor = "BackColor";

}  // namespace

const std::array<StoredProperty<ExplorerBar>, 19>& ExplorerBar::properties() {
    using Bar = ExplorerBar;
    // clang-format off
    static const std::array<StoredProperty<Bar>, 19> rows{{
        {"Animation",                 "Animation",                 &Bar::Animation,                 1},
        {"DetailGroupButton",         "DetailGroupButton",         &Bar::DetailGroupButton,         false},
        {"Font",                      "Font",                      &Bar::Font,                      controls::Font()},
        {"GradientStyle",             "GradientStyle",             &Bar::GradientStyle,             2},
        {"HeaderHeight",              "HeaderHeight",              &Bar::HeaderHeight,              0},
        {"Locked",                    "Locked",                    &Bar::Locked,                    false},
        {"OpenOneGroupOnly",          "OpenOneGroupOnly",          &Bar::OpenOneGroupOnly,          false},
        {"ShowBorder",                "ShowBorder",                &Bar::ShowBorder,                false},
        {"SoundGroupClicked",         "SoundGroupClicked",         &Bar::SoundGroupClicked,         false},
        {"SoundItemClicked",          "SoundItemClicked",          &Bar::SoundItemClicked,          false},
        {"UseAlphaBlend",             "UseAlphaBlend",             &Bar::UseAlphaBlend,             true},
        {"UseTheme",                  "UseTheme",                  &Bar::UseTheme,                  0},
        {"UseUserForeColors",         "UseUserForeColors",         &Bar::UseUserForeColors,         false},
        {"NormalButtonPictureDown",   "NormalButtonPictureDown",   &Bar::NormalButtonPictureDown,   std::string_view()},
        {"NormalButtonPictureHover",  "NormalButtonPictureHover",  &Bar::NormalButtonPictureHover,  std::string_view()},
        {"NormalButtonPictureUp",     "NormalButtonPictureUp",     &Bar::NormalButtonPictureUp,     std::string_view()},
        {"SpecialButtonPictureDown",  "SpecialButtonPictureDown",  &Bar::SpecialButtonPictureDown,  std::string_view()},
        {"SpecialButtonPictureHover", "SpecialButtonPictureHover", &Bar::SpecialButtonPictureHover, std::string_view()},
        {"SpecialButtonPictureUp",    "SpecialButtonPictureUp",    &Bar::SpecialButtonPictureUp,    std::string_view()},
    }};
    // clang-format on
    return rows;
}

ExplorerBar::ExplorerBar(forms::Form& owner, std::string name)
    : forms::Control(owner, forms::ControlKind::ExplorerBar, std::move(name)) {
    designFrom(properties(), *this);
    for (std::size_t i = 0; i < kPaneColours; ++i) colours_[i] = paneColours()[i].initial;
    BackColor.design(colours_[*paneColourIndex(kBackColor)]);
    reshaped_.connect([this] { changed(); });
    oneGroup_.connect([this] { keepOneOpen(); });
    tsbVertical.MouseWheelInContainer.design(true);
    // It tells its look before its events, so that a new position is drawn once.
    tsbVertical.viewChanged.connect([this] {
        if (arranging_) return;
        dirtyPlaces_ = true;
        viewChanged();
    });
}

void ExplorerBar::setColour(const std::string& property, unsigned value) {
    const auto index = paneColourIndex(property);
    if (!index) return;
    colours_[*index] = value;
    // The one colour that every control has.
    if (property == kBackColor) BackColor = value;
    viewChanged();
}

unsigned ExplorerBar::colour(const std::string& property) const {
    if (property == kBackColor) return BackColor;
    const auto index = paneColourIndex(property);
    return index ? colours_[*index] : kNoColour;
}

ExplorerGroup* ExplorerBar::find(int group) {
    return group >= 0 && group < GetGroupsCount() ? &groups_[static_cast<std::size_t>(group)] : nullptr;
}

const ExplorerGroup* ExplorerBar::find(int group) const {
    return group >= 0 && group < GetGroupsCount() ? &groups_[static_cast<std::size_t>(group)] : nullptr;
}

ExplorerItem* ExplorerBar::find(int group, int item) {
    ExplorerGroup* found = find(group);
    if (found == nullptr || item < 0 || item >= static_cast<int>(found->items.size())) return nullptr;
    return &found->items[static_cast<std::size_t>(item)];
}

const ExplorerItem* ExplorerBar::find(int group, int item) const {
    const ExplorerGroup* found = find(group);
    if (found == nullptr || item < 0 || item >= static_cast<int>(found->items.size())) return nullptr;
    return &found->items[static_cast<std::size_t>(item)];
}

const ExplorerGroup* ExplorerBar::detail() const {
    for (const ExplorerGroup& group : groups_) {
        if (group.kind == GroupKind::Detail) return &group;
    }
    return nullptr;
}

int ExplorerBar::add(ExplorerGroup group) {
    if (groups_.size() >= kLimit) return kFull;
    const bool otherOpen = std::any_of(groups_.begin(), groups_.end(), [](const ExplorerGroup& other) {
        return other.kind != GroupKind::Detail && other.open;
    });
    if (OpenOneGroupOnly && otherOpen && group.kind != GroupKind::Detail) group.open = false;
    groups_.push_back(std::move(group));
    changed();
    return GetGroupsCount() - 1;
}

int ExplorerBar::AddNormalGroup(const std::string& title, const std::string& icon, const std::string& tag,
                                const std::string& toolTipText, bool titleBold, forms::Control* container, bool open) {
    return add({GroupKind::Normal, title, titleBold, icon, tag, toolTipText, container, {}, {}, {}, open, {}, {}});
}

int ExplorerBar::AddSpecialGroup(const std::string& title, const std::string& icon, const std::string& tag,
                                 const std::string& toolTipText, bool titleBold, forms::Control* container, bool open) {
    return add({GroupKind::Special, title, titleBold, icon, tag, toolTipText, container, {}, {}, {}, open, {}, {}});
}

int ExplorerBar::AddDetailGroup(const std::string& title, const std::string& caption, const std::string& picture) {
    if (detail() != nullptr) return kDetailGroupExists;
    ExplorerGroup group;
    group.kind = GroupKind::Detail;
    group.Title = title;
    group.Caption = caption;
    group.Picture = picture;
    return add(std::move(group));
}

int ExplorerBar::AddItem(int group, const std::string& caption, bool captionBold, const std::string& icon,
                         bool textOnly, const std::string& file, const std::string& tag,
                         const std::string& toolTipText) {
    ExplorerGroup* target = find(group);
    if (target == nullptr) return kNoSuchGroup;
    if (target->Container != nullptr) return kGroupHasContainer;
    if (target->kind == GroupKind::Detail) return kDetailGroupTakesNoItems;
    if (target->items.size() >= kLimit) return kFull;
    target->items.push_back({caption, icon, tag, captionBold, textOnly, file, toolTipText});
    changed();
    return GetItemsCount(group) - 1;
}

bool ExplorerBar::DeleteGroup(int group) {
    if (find(group) == nullptr) return false;
    groups_.erase(groups_.begin() + group);
    hot_ = pressed_ = focus_ = {};
    changed();
    return true;
}

bool ExplorerBar::DeleteItem(int group, int item) {
    if (find(group, item) == nullptr) return false;
    ExplorerGroup& target = *find(group);
    target.items.erase(target.items.begin() + item);
    hot_ = pressed_ = focus_ = {};
    changed();
    return true;
}

bool ExplorerBar::DeleteAllGroupItems(int group) {
    ExplorerGroup* target = find(group);
    if (target == nullptr) return false;
    target->items.clear();
    hot_ = pressed_ = focus_ = {};
    changed();
    return true;
}

void ExplorerBar::DeleteAllGroups() {
    groups_.clear();
    hot_ = pressed_ = focus_ = {};
    changed();
}

std::string ExplorerBar::GetDetailCaption() const {
    return detail() == nullptr ? std::string() : detail()->Caption;
}

std::string ExplorerBar::GetDetailPicture() const {
    return detail() == nullptr ? std::string() : detail()->Picture;
}

std::string ExplorerBar::GetDetailTitle() const {
    return detail() == nullptr ? std::string() : detail()->Title;
}

forms::Control* ExplorerBar::GetGroupContainer(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? nullptr : found->Container;
}

std::string ExplorerBar::GetGroupIcon(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? std::string() : found->Icon;
}

GroupState ExplorerBar::GetGroupState(int group) const {
    const ExplorerGroup* found = find(group);
    if (found == nullptr) return GroupState::Closed;
    if (found->motion) return found->motion->opening ? GroupState::Opening : GroupState::Closing;
    return found->open ? GroupState::Open : GroupState::Closed;
}

std::string ExplorerBar::GetGroupTag(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? std::string() : found->Tag;
}

std::string ExplorerBar::GetGroupTitle(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? std::string() : found->Title;
}

bool ExplorerBar::GetGroupTitleBold(int group) const {
    const ExplorerGroup* found = find(group);
    return found != nullptr && found->TitleBold;
}

std::string ExplorerBar::GetGroupToolTipText(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? std::string() : found->ToolTipText;
}

bool ExplorerBar::GetGroupWindowState(int group) const {
    const ExplorerGroup* found = find(group);
    return found != nullptr && found->open;
}

std::string ExplorerBar::GetItemCaption(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found == nullptr ? std::string() : found->Caption;
}

bool ExplorerBar::GetItemCaptionBold(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found != nullptr && found->CaptionBold;
}

bool ExplorerBar::GetItemEnabled(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found != nullptr && found->Enabled;
}

std::string ExplorerBar::GetItemIcon(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found == nullptr ? std::string() : found->Icon;
}

std::string ExplorerBar::GetItemOpenFile(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found == nullptr ? std::string() : found->OpenFile;
}

int ExplorerBar::GetItemsCount(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? 0 : static_cast<int>(found->items.size());
}

std::string ExplorerBar::GetItemsBackgroundPicture(int group) const {
    const ExplorerGroup* found = find(group);
    return found == nullptr ? std::string() : found->ItemsBackgroundPicture;
}

std::string ExplorerBar::GetItemTag(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found == nullptr ? std::string() : found->Tag;
}

bool ExplorerBar::GetItemTextOnly(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found != nullptr && found->TextOnly;
}

std::string ExplorerBar::GetItemToolTipText(int group, int item) const {
    const ExplorerItem* found = find(group, item);
    return found == nullptr ? std::string() : found->ToolTipText;
}

namespace {

int numberIn(std::span<const std::string_view> names, const std::string& name) {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

}  // namespace

std::string ExplorerBar::GetThemeName() const {
    return UseTheme.get() != 0 ? styleName_ : std::string();
}

std::string ExplorerBar::GetThemeColorName() const {
    return UseTheme.get() != 0 ? styleColours_ : std::string();
}

int ExplorerBar::GetThemeMap() const {
    return numberIn(knownStyles(), GetThemeName());
}

int ExplorerBar::GetThemeColorMap() const {
    return numberIn(knownStyleColours(), GetThemeColorName());
}

std::string ExplorerBar::GetVersion() {
    return std::string("ExplorerBar") + " - v" + "3.00";
}

template <class T>
void ExplorerBar::set(T* field, const T& value) {
    if (field == nullptr || *field == value) return;
    *field = value;
    changed();
}

template <class G, class T>
void ExplorerBar::setGroup(int group, T G::*field, const T& value) {
    ExplorerGroup* found = find(group);
    if (found != nullptr) set(&(found->*field), value);
}

template <class T>
void ExplorerBar::setItem(int group, int item, T ExplorerItem::*field, const T& value) {
    ExplorerItem* found = find(group, item);
    if (found != nullptr) set(&(found->*field), value);
}

template <class T>
void ExplorerBar::setDetail(T ExplorerGroup::*field, const T& value) {
    for (ExplorerGroup& group : groups_) {
        if (group.kind == GroupKind::Detail) set(&(group.*field), value);
    }
}

void ExplorerBar::SetDetailCaption(const std::string& caption) {
    setDetail(&ExplorerGroup::Caption, caption);
}

void ExplorerBar::SetDetailPicture(const std::string& picture) {
    setDetail(&ExplorerGroup::Picture, picture);
}

void ExplorerBar::SetDetailTitle(const std::string& title) {
    setDetail(&ExplorerGroup::Title, title);
}

void ExplorerBar::SetGroupContainer(int group, forms::Control* container) {
    const ExplorerGroup* found = find(group);
    if (found == nullptr || found->kind == GroupKind::Detail) return;
    setGroup(group, &ExplorerGroup::Container, container);
}

void ExplorerBar::SetGroupIcon(int group, const std::string& icon) {
    setGroup(group, &ExplorerGroup::Icon, icon);
}

void ExplorerBar::SetGroupState(int group, GroupState state) {
    const bool open = state == GroupState::Open || state == GroupState::Opening;
    setOpen(group, open, state == GroupState::Opening || state == GroupState::Closing);
}

void ExplorerBar::SetGroupTag(int group, const std::string& tag) {
    setGroup(group, &ExplorerGroup::Tag, tag);
}

void ExplorerBar::SetGroupTitle(int group, const std::string& title) {
    setGroup(group, &ExplorerGroup::Title, title);
}

void ExplorerBar::SetGroupTitleBold(int group, bool bold) {
    setGroup(group, &ExplorerGroup::TitleBold, bold);
}

void ExplorerBar::SetGroupToolTipText(int group, const std::string& text) {
    setGroup(group, &ExplorerGroup::ToolTipText, text);
}

void ExplorerBar::SetGroupWindowState(int group, bool open) {
    setOpen(group, open, true);
}

void ExplorerBar::SetItemCaption(int group, int item, const std::string& caption) {
    setItem(group, item, &ExplorerItem::Caption, caption);
}

void ExplorerBar::SetItemCaptionBold(int group, int item, bool bold) {
    setItem(group, item, &ExplorerItem::CaptionBold, bold);
}

void ExplorerBar::SetItemEnabled(int group, int item, bool enabled) {
    setItem(group, item, &ExplorerItem::Enabled, enabled);
}

void ExplorerBar::SetItemIcon(int group, int item, const std::string& icon) {
    setItem(group, item, &ExplorerItem::Icon, icon);
}

void ExplorerBar::SetItemOpenFile(int group, int item, const std::string& file) {
    setItem(group, item, &ExplorerItem::OpenFile, file);
}

void ExplorerBar::SetItemsBackgroundPicture(int group, const std::string& picture) {
    setGroup(group, &ExplorerGroup::ItemsBackgroundPicture, picture);
}

void ExplorerBar::SetItemTag(int group, int item, const std::string& tag) {
    setItem(group, item, &ExplorerItem::Tag, tag);
}

void ExplorerBar::SetItemTextOnly(int group, int item, bool textOnly) {
    setItem(group, item, &ExplorerItem::TextOnly, textOnly);
}

void ExplorerBar::SetItemToolTipText(int group, int item, const std::string& text) {
    setItem(group, item, &ExplorerItem::ToolTipText, text);
}

// --- Opening and closing

bool ExplorerBar::mayMove() const {
    return Animation.get() != 0 && Visible && view_.width > 0 && view_.height > 0;
}

void ExplorerBar::turn(int group, bool open, bool animated) {
    ExplorerGroup& target = *find(group);
    // What is open when the view last looked is where the motion begins.
    const int full = heights_.size() == groups_.size() ? heights_[static_cast<std::size_t>(group)].content : 0;
    target.open = open;
    if (!animated || full <= 0) {
        target.motion.reset();
    } else if (target.motion) {
        target.motion->opening = open;  // back from where it is
    } else {
        const int alpha = open && UseAlphaBlend ? 0 : 255;
        target.motion = GroupMotion{open, open ? 0 : full, alpha};
    }
}

void ExplorerBar::setOpen(int group, bool open, bool animated) {
    const ExplorerGroup* target = find(group);
    if (target == nullptr) return;
    const bool moves = animated && mayMove();
    if (target->open == open) {
        // Only the way there may end.
        if (!moves && target->motion) {
            turn(group, open, false);
            moved();
        }
        return;
    }
    if (moves) arrange();
    std::vector<int> closed;
    if (open && OpenOneGroupOnly && target->kind != GroupKind::Detail) {
        for (int other = 0; other < GetGroupsCount(); ++other) {
            if (other == group || find(other)->kind == GroupKind::Detail || !find(other)->open) continue;
            turn(other, false, moves);
            closed.push_back(other);
        }
    }
    turn(group, open, moves);
    moved();
    // Listeners may take the groups away: nothing of them is read from here on.
    for (const int other : closed) Collapse(other);
    if (open)
        Expand(group);
    else
        Collapse(group);
}

void ExplorerBar::keepOneOpen() {
    if (!OpenOneGroupOnly) return;
    std::vector<int> closed;
    bool seen = false;
    for (int group = 0; group < GetGroupsCount(); ++group) {
        const ExplorerGroup& found = *find(group);
        if (found.kind == GroupKind::Detail || !found.open) continue;
        if (seen) {
            turn(group, false, false);
            closed.push_back(group);
        }
        seen = true;
    }
    if (closed.empty()) return;
    moved();
    for (const int group : closed) Collapse(group);
}

bool ExplorerBar::animating() const {
    return std::any_of(groups_.begin(), groups_.end(),
                       [](const ExplorerGroup& group) { return group.motion.has_value(); });
}

bool ExplorerBar::tick() {
    if (!animating()) return false;
    arrange();
    for (int i = 0; i < GetGroupsCount(); ++i) {
        ExplorerGroup& group = *find(i);
        if (!group.motion) continue;
        GroupMotion& motion = *group.motion;
        const int full = heights_[static_cast<std::size_t>(i)].content;
        const int sign = motion.opening ? 1 : -1;
        motion.height += sign * kHeightStep;
        if (UseAlphaBlend) motion.alpha = std::clamp(motion.alpha + sign * (full / kHeightStep), 0, 255);
        if (motion.opening ? motion.height >= full : motion.height <= 0) group.motion.reset();
    }
    moved();
    return animating();
}

void ExplorerBar::clickHeader(int group) {
    const ExplorerGroup* target = find(group);
    if (target == nullptr || !Enabled || !Visible || Locked) return;
    if (target->kind == GroupKind::Detail && !DetailGroupButton) return;
    const bool open = !target->open;
    setOpen(group, open, true);
    if (SoundGroupClicked) Sound(PaneSound::GroupClicked);
    GroupClick(group, open);
}

void ExplorerBar::clickItem(int group, int item) {
    const ExplorerItem* target = find(group, item);
    if (target == nullptr || target->TextOnly || !target->Enabled || !Enabled || !Visible) return;
    const std::string file = target->OpenFile;
    if (SoundItemClicked) Sound(PaneSound::ItemClicked);
    if (!file.empty()) {
        if (openFile && openFile(file))
            ItemOpenFile(group, item);
        else
            ErrorOpenFile(group, item);
    }
    ItemClick(group, item);
}

}  // namespace tidvane::controls
