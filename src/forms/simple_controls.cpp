#include "forms/simple_controls.h"

#include "forms/form.h"

namespace tidvane::forms {

OptionButton::OptionButton(Form& owner, std::string name, std::string groupName, std::string caption)
    : Control(owner, ControlKind::OptionButton, std::move(name), std::move(caption)), group(std::move(groupName)) {}

void OptionButton::setValue(int value) {
    const int next = value != 0 ? -1 : 0;
    if (next == value_) return;
    value_ = next;
    viewChanged();
    if (next == 0) return;
    for (Control* other : form().Controls()) {
        if (other == this || other->kind != ControlKind::OptionButton) continue;
        auto& sister = static_cast<OptionButton&>(*other);
        if (sister.group != group || sister.value_ == 0) continue;
        sister.value_ = 0;
        sister.viewChanged();
    }
    Click();
}

TabStrip::TabStrip(Form& owner, std::string name, std::vector<std::string> captions)
    : Control(owner, ControlKind::TabStrip, std::move(name)) {
    for (std::string& caption : captions) tabs_.push_back({std::move(caption)});
}

void TabStrip::setTabCaption(int tab, std::string caption) {
    Page& page = tabs_.at(static_cast<std::size_t>(tab));
    if (page.caption == caption) return;
    page.caption = std::move(caption);
    viewChanged();
}

void TabStrip::setTabVisible(int tab, bool visible) {
    Page& page = tabs_.at(static_cast<std::size_t>(tab));
    if (page.visible == visible) return;
    page.visible = visible;
    viewChanged();
}

void TabStrip::setTabEnabled(int tab, bool enabled) {
    Page& page = tabs_.at(static_cast<std::size_t>(tab));
    if (page.enabled == enabled) return;
    page.enabled = enabled;
    viewChanged();
}

void TabStrip::offerOnly(int tab) {
    setTabVisible(tab, true);
    Tab = tab;
    for (int other = 0; other < Tabs(); ++other) {
        if (other != tab) setTabVisible(other, false);
    }
}

StatusBar::StatusBar(Form& owner, std::string name, int panels)
    : Control(owner, ControlKind::StatusBar, std::move(name)), panels_(static_cast<std::size_t>(panels)) {}

void StatusBar::setPanel(int panel, std::string text) {
    std::string& slot = panels_.at(static_cast<std::size_t>(panel - 1));
    if (slot == text) return;
    slot = std::move(text);
    viewChanged();
}

Timer::Timer(Form& owner, std::string name, int interval, bool enabled)
    : Control(owner, ControlKind::Timer, std::move(name)), Interval(interval, &viewChanged) {
    Enabled.design(enabled);
}

void Timer::fire() {
    if (!Enabled || inside_) return;
    struct Inside {
        bool& flag;
        explicit Inside(bool& f) : flag(f) { flag = true; }
        ~Inside() { flag = false; }
    } guard(inside_);
    Tick();
}

}  // namespace tidvane::forms
