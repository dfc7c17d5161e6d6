#include "support/scripted_display.h"

#include <algorithm>

namespace tidvane::tests {

namespace {

template <class T>
T next(std::deque<T>& script, T otherwise) {
    if (script.empty()) return otherwise;
    T front = std::move(script.front());
    script.pop_front();
    return front;
}

}  // namespace

bool ScriptedDisplay::wasShown(const std::string& window) const {
    return std::any_of(shown.begin(), shown.end(), [&](const Shown& show) { return show.window == window; });
}

void ScriptedDisplay::Show(forms::Form& form, forms::Form* owner, bool modal) {
    shown.push_back({form.Name, owner == nullptr ? std::string() : owner->Name, modal});
    form.Visible = true;
    if (!modal) return;
    const auto act = inModal.find(form.Name);
    if (act != inModal.end() && act->second) act->second(form);
}

void ScriptedDisplay::Hide(forms::Form& form) {
    hidden.push_back(form.Name);
    form.Visible = false;
}

void ScriptedDisplay::Forget(forms::Form& form) {
    forgotten.push_back(form.Name);
}

void ScriptedDisplay::SetFocus(forms::Form& form, const std::string& control) {
    focused.emplace_back(form.Name, control);
}

int ScriptedDisplay::MsgBox(const std::string& text, int style, const std::string& title) {
    Box box{text, title, style, 0};
    if (whileBoxIsUp) whileBoxIsUp(box);
    constexpr int kButtons = 15;  // the low bits tell which buttons there are
    box.answer = next(answers, (style & kButtons) == forms::msgbox::YesNo ? questionAnswer : forms::msgbox::Ok);
    boxes.push_back(box);
    return box.answer;
}

std::string ScriptedDisplay::askFile(const forms::FileQuestion& question) {
    fileQuestions.push_back(question);
    return next(files, std::string());
}

std::string ScriptedDisplay::askFolder(forms::Form*, const std::string& title) {
    folderTitles.push_back(title);
    return next(folders, std::string());
}

std::optional<forms::FontChoice> ScriptedDisplay::askFont(const forms::FontChoice& current) {
    fontsOffered.push_back(current);
    return next(fonts, std::optional<forms::FontChoice>());
}

void ScriptedDisplay::clearClipboard() {
    ++clipboardClears;
    clipboard.clear();
}

void ScriptedDisplay::setClipboard(const std::string& text) {
    ++clipboardSets;
    clipboard = text;
}

void ScriptedDisplay::addTrayIcon(const std::string& tip) {
    trayTips.push_back(tip);
    if (!trayTip) trayTip = tip;  // a second one fails in silence
}

void ScriptedDisplay::removeTrayIcon() {
    ++trayRemovals;
    trayTip.reset();
}

void ScriptedDisplay::setTopmost(forms::Form& form, bool isTopmost) {
    topmost.emplace_back(form.Name, isTopmost);
}
void ScriptedDisplay::setPointer(int pointer) {
    pointers.push_back(pointer);
}
void ScriptedDisplay::popUpMenu(forms::Form& form, const std::string& menu) {
    menus.emplace_back(form.Name, menu);
}
void ScriptedDisplay::sndPlaySound(const std::string& file) {
    sounds.push_back(file);
}
void ScriptedDisplay::warn(const std::string& line) {
    warnings.push_back(line);
}
void ScriptedDisplay::endProgram() {
    ++ends;
}

}  // namespace tidvane::tests
