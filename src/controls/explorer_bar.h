// The program's own task pane as a model: groups of clickable items, how they open and close, and what the mouse and
// the keys do to them.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "controls/explorer_colours.h"
#include "controls/explorer_groups.h"
#include "controls/explorer_layout.h"
#include "controls/geometry.h"
#include "controls/input.h"
#include "controls/stored_properties.h"
#include "controls/themed_scroll_bar.h"
#include "forms/control.h"
#include "forms/form.h"

namespace tidvane::controls {

enum class GroupState { Closed, Open, Opening, Closing };

enum class PaneSound { GroupClicked, ItemClicked };

// How a title bar or an item is to be drawn now.
struct TargetState {
    bool hot = false;
    bool pressed = false;
    bool focused = false;
    bool operator==(const TargetState&) const = default;
};

// The colours of a title bar in its state.
struct HeaderColours {
    unsigned back = 0;
    unsigned gradient = 0;  // at the other end of the bar
    unsigned fore = 0;
    unsigned arrow = 0;
    unsigned button = 0;      // the ring of the arrow button
    unsigned buttonBack = 0;  // what it is filled with
};

struct BodyColours {
    unsigned back = 0;
    unsigned gradient = 0;
    unsigned border = 0;
};

// Groups and items count from 0, in order of adding; deleting one moves up those behind it. At most 20 groups and 20
// items in a group, at most one detail group, which stands below the others. A number that names nothing is passed
// over by the writers and answered with an empty value by the readers.
//
// In one-group mode at most one group besides the detail group is open: when the mode is switched on the first open one
// stays so, and a group that is added while another is open begins closed.
class ExplorerBar : public forms::Control {
public:
    static constexpr int kLimit = 20;
    static constexpr int kNoSuchGroup = -1;
    static constexpr int kDetailGroupExists = -1;
    static constexpr int kGroupHasContainer = -2;
    static constexpr int kDetailGroupTakesNoItems = -3;
    static constexpr int kFull = -20;

    static constexpr int kHeightStep = 8;     // logical pixels a tick
    static constexpr int kTickInterval = 16;  // milliseconds: about as often as a display draws

    ExplorerBar(forms::Form& form, std::string name);

    // Group; the state has changed, by whomever.
    forms::Signal<int> Collapse;
    forms::Signal<int> Expand;
    forms::Signal<int, int> ErrorOpenFile;  // group, item
    forms::Signal<int, bool> GroupClick;    // group, open
    forms::Signal<int, int> ItemClick;      // group, item
    forms::Signal<int, int> ItemOpenFile;   // group, item
    // Button, keys held (kShift and so on), point.
    forms::Signal<MouseButton, int, int, int> MouseDown;
    forms::Signal<MouseButton, int, int, int> MouseUp;
    forms::Signal<int, int, int> MouseMove;  // keys held, point
    forms::Signal<int, int> MouseHover;      // group, item (-1: the title bar) that the mouse has come to
    forms::Signal<> MouseOut;                // the mouse has left the bar

    // What the model cannot do by itself: play a wave, open a file (false: it could not be opened).
    forms::Signal<PaneSound> Sound;
    std::function<bool(const std::string& file)> openFile;

    // Initial values stand in the table.
    forms::Property<int> Animation{0, &viewChanged};  // 0: groups open and close at once
    forms::Property<bool> DetailGroupButton{false, &reshaped_};
    forms::Property<controls::Font> Font{{}, &reshaped_};
    forms::Property<int> GradientStyle{0, &viewChanged};  // 0 none, 1 from left to right, 2 from top to bottom
    forms::Property<int> HeaderHeight{0, &reshaped_};     // 0: as high as the title needs
    forms::Property<bool> Locked{false, &viewChanged};    // the user opens and closes nothing
    forms::Property<bool> OpenOneGroupOnly{false, &viewChanged, &oneGroup_};
    forms::Property<bool> ShowBorder{false, &viewChanged};
    forms::Property<bool> SoundGroupClicked{false, &viewChanged};
    forms::Property<bool> SoundItemClicked{false, &viewChanged};
    forms::Property<bool> UseAlphaBlend{false, &viewChanged};
    forms::Property<int> UseTheme{0, &viewChanged};  // not 0: the system's visual style, where there is one
    forms::Property<bool> UseUserForeColors{false, &viewChanged};  // text colours of the properties under a style too
    // Drawn in place of the arrow button's own drawing.
    forms::Property<std::string> NormalButtonPictureDown{{}, &viewChanged};
    forms::Property<std::string> NormalButtonPictureHover{{}, &viewChanged};
    forms::Property<std::string> NormalButtonPictureUp{{}, &viewChanged};
    forms::Property<std::string> SpecialButtonPictureDown{{}, &viewChanged};
    forms::Property<std::string> SpecialButtonPictureHover{{}, &viewChanged};
    forms::Property<std::string> SpecialButtonPictureUp{{}, &viewChanged};
    static const std::array<StoredProperty<ExplorerBar>, 19>& properties();

    // Colour properties by name ("BackColor", "NormalHeaderForeColor"); a name that is not in paneColours() sets
    // nothing and reads as 0xFFFFFFFF.
    void setColour(const std::string& property, unsigned colour);
    unsigned colour(const std::string& property) const;

    // Each answers the number of the new group or item, or one of the codes above.
    int AddDetailGroup(const std::string& title, const std::string& caption, const std::string& picture = {});
    int AddItem(int group, const std::string& caption, bool captionBold = false, const std::string& icon = {},
                bool textOnly = false, const std::string& openFile = {}, const std::string& tag = {},
                const std::string& toolTipText = {});
    int AddNormalGroup(const std::string& title, const std::string& icon = {}, const std::string& tag = {},
                       const std::string& toolTipText = {}, bool titleBold = true, forms::Control* container = nullptr,
                       bool open = true);
    int AddSpecialGroup(const std::string& title, const std::string& icon = {}, const std::string& tag = {},
                        const std::string& toolTipText = {}, bool titleBold = true, forms::Control* container = nullptr,
                        bool open = true);
    // False: there was nothing to delete.
    bool DeleteGroup(int group);
    bool DeleteItem(int group, int item);
    bool DeleteAllGroupItems(int group);
    void DeleteAllGroups();
    // Whether the whole of a title (item -1) or of a caption is seen now: its group is open and still, nothing of it
    // lies outside the pane and no fixed height of the title bars cuts it.
    bool FullTextShowed(int group, int item = -1);

    std::string GetDetailCaption() const;
    std::string GetDetailPicture() const;
    std::string GetDetailTitle() const;
    forms::Control* GetGroupContainer(int group) const;
    std::string GetGroupIcon(int group) const;
    int GetGroupsCount() const { return static_cast<int>(groups_.size()); }
    // What is seen of the group now; GetGroupWindowState tells the state that a group in motion comes to.
    GroupState GetGroupState(int group) const;
    std::string GetGroupTag(int group) const;
    std::string GetGroupTitle(int group) const;
    bool GetGroupTitleBold(int group) const;
    std::string GetGroupToolTipText(int group) const;
    bool GetGroupWindowState(int group) const;  // open
    std::string GetItemCaption(int group, int item) const;
    bool GetItemCaptionBold(int group, int item) const;
    bool GetItemEnabled(int group, int item) const;
    std::string GetItemIcon(int group, int item) const;
    std::string GetItemOpenFile(int group, int item) const;
    int GetItemsCount(int group) const;
    std::string GetItemsBackgroundPicture(int group) const;
    std::string GetItemTag(int group, int item) const;
    bool GetItemTextOnly(int group, int item) const;
    std::string GetItemToolTipText(int group, int item) const;
    // The system's visual style and its colour variant while UseTheme is on: the name, and its number in knownStyles()
    // and knownStyleColours(), 0 for one that is not in it.
    int GetThemeMap() const;
    std::string GetThemeName() const;
    int GetThemeColorMap() const;
    std::string GetThemeColorName() const;
    static std::string GetVersion();
    long hWnd = 0;  // the view's handle of the window, 0 while there is none

    void SetDetailCaption(const std::string& caption);
    void SetDetailPicture(const std::string& picture);
    void SetDetailTitle(const std::string& title);
    void SetGroupContainer(int group, forms::Control* container);
    void SetGroupIcon(int group, const std::string& icon);
    // Open and Closed at once, Opening and Closing as by SetGroupWindowState.
    void SetGroupState(int group, GroupState state);
    void SetGroupTag(int group, const std::string& tag);
    void SetGroupTitle(int group, const std::string& title);
    void SetGroupTitleBold(int group, bool bold);
    void SetGroupToolTipText(int group, const std::string& text);
    void SetGroupWindowState(int group, bool open);  // with the animation
    void SetItemCaption(int group, int item, const std::string& caption);
    void SetItemCaptionBold(int group, int item, bool bold);
    void SetItemEnabled(int group, int item, bool enabled);
    void SetItemIcon(int group, int item, const std::string& icon);
    void SetItemOpenFile(int group, int item, const std::string& file);
    void SetItemsBackgroundPicture(int group, const std::string& picture);
    void SetItemTag(int group, int item, const std::string& tag);
    void SetItemTextOnly(int group, int item, bool textOnly);
    void SetItemToolTipText(int group, int item, const std::string& text);
    // Measures and places everything anew.
    void Refresh();

    const std::vector<ExplorerGroup>& groups() const { return groups_; }

    // A user's click. A detail group without a button has no title bar to click, a text line or a
    // disabled item is nothing to click.
    void clickHeader(int group);
    void clickItem(int group, int item);

    // --- For the view: size and measure, then the places. Logical pixels. Until a size is known nothing is animated.
    // Called when the size, the font or the display changes, not from a paint: it measures and draws everything anew.
    void setView(Size size, ExplorerMeasure measure);
    // Looks also what is hot now: groups move under a mouse that rests.
    const ExplorerLayout& layout();
    int scroll() const { return tsbVertical.Value; }
    void setScroll(int position);
    // Places of the scroll bar in the pane; empty when the stack fits.
    Rect scrollBar();
    // Its mouse comes through the pane; its repeats (repeatDelay, repeat) are asked for there. Not one of the window's
    // controls: it stands on a surface of the pane's own.
    forms::Form surface{"ExplorerBar"};
    ThemedScrollBar tsbVertical{surface, "tsbVertical"};
    // Told by the view at the start and when the system's style changes; empty without a visual style.
    void setVisualStyle(std::string name, std::string colours);
    bool usesVisualStyle() const { return UseTheme.get() != 0 && !styleName_.empty(); }

    // Motion. While animating() the view calls tick() every kTickInterval; otherwise nothing needs a tick, and one that
    // comes changes nothing. Answers animating().
    bool animating() const;
    bool tick();

    // The mouse, in the pane's own pixels. The view catches the mouse from press to release, and tells that it has left
    // also after a release outside; told again, it raises nothing.
    void mouseDown(MouseButton button, int x, int y, int keys = 0);
    void mouseMove(int x, int y, int keys = 0);
    void mouseUp(MouseButton button, int x, int y, int keys = 0);
    void mouseLeave();
    void cancelMode();
    bool wheel(int turn, WheelPlace place = WheelPlace::Container);

    // The keyboard. Up, Down, Home and End move through title bars and items, Left and Right close and open, Enter acts
    // at once and the space bar when it is let go. True: the key was for the pane.
    bool keyDown(Key key);
    bool keyUp(Key key);
    // From outside: by Tab (the first target gets it, or the one that last had it), by the mouse, or gone.
    void setFocus(bool has, bool byKeyboard = true);
    // What has the focus, or would have it if the pane had.
    PaneTarget focus();
    bool hasFocus() const { return hasFocus_; }
    PaneTarget hot() const { return hot_; }
    // All that the keyboard reaches, from top to bottom.
    std::vector<PaneTarget> targets();

    // For the painter.
    TargetState state(PaneTarget target) const;
    std::string toolTip(PaneTarget target) const;
    Gradient paneGradient() const;
    HeaderColours headerColours(int group) const;
    std::string buttonPicture(int group) const;  // empty: the arrow button is drawn
    BodyColours bodyColours(int group) const;
    unsigned itemColour(int group, int item) const;

private:
    int add(ExplorerGroup group);
    template <class T>
    void setDetail(T ExplorerGroup::*field, const T& value);
    ExplorerGroup* find(int group);
    const ExplorerGroup* find(int group) const;
    ExplorerItem* find(int group, int item);
    const ExplorerItem* find(int group, int item) const;
    const ExplorerGroup* detail() const;
    bool valid(PaneTarget target) const;
    bool reachable(PaneTarget target) const;
    // Everything is measured again at the next look.
    void changed();
    // Places only.
    void moved();
    template <class T>
    void set(T* field, const T& value);
    template <class G, class T>
    void setGroup(int group, T G::*field, const T& value);
    template <class T>
    void setItem(int group, int item, T ExplorerItem::*field, const T& value);

    // Opens or closes, with the others that one-group mode closes, and tells it.
    void setOpen(int group, bool open, bool animated);
    void turn(int group, bool open, bool animated);
    bool mayMove() const;
    void keepOneOpen();

    void arrange();
    void place(int width);
    PaneTarget at(int x, int y);
    // What has come under the mouse, or gone from under it, without a move of the mouse.
    void findHot();
    void setHot(PaneTarget target);
    void setPressed(PaneTarget target);
    void moveFocus(PaneTarget target);
    void showTarget(PaneTarget target);
    bool act(PaneTarget target);
    PaneShape shape(int width) const;
    unsigned lookColour(GroupKind look, const char* name) const;

    forms::Signal<> reshaped_;
    forms::Signal<> oneGroup_;
    std::vector<ExplorerGroup> groups_;
    std::array<unsigned, kPaneColours> colours_{};
    std::string styleName_;
    std::string styleColours_;

    Size view_;
    ExplorerMeasure measure_;
    std::vector<GroupHeights> heights_;
    ExplorerLayout layout_;
    int measuredWidth_ = -1;
    bool withScrollBar_ = false;
    bool dirtyHeights_ = true;
    bool dirtyPlaces_ = true;
    bool arranging_ = false;

    struct Point {
        int x = 0;
        int y = 0;
    };
    std::optional<Point> mouse_;  // nothing while it is elsewhere
    PaneTarget hot_;
    PaneTarget pressed_;
    bool overPressed_ = false;
    bool byKey_ = false;  // the space bar presses
    PaneTarget focus_;
    bool hasFocus_ = false;
    bool focusByKeyboard_ = false;  // only then it is shown: the mouse knows where it is
    bool scrolling_ = false;        // the scroll bar has the mouse
};

}  // namespace tidvane::controls
