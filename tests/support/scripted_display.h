// A display without a screen: it answers from a script and keeps everything that came up.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/display.h"
#include "forms/form.h"

namespace tidvane::tests {

class ScriptedDisplay final : public forms::Display {
public:
    struct Box {
        std::string text;
        std::string title;
        int style = 0;
        int answer = 0;
    };
    struct Shown {
        std::string window;
        std::string owner;  // empty without one
        bool modal = false;
    };

    // --- the script: what the user will do -------------------------------------------------------------------------

    // Answers to message boxes, one each, in order; after them every question gets `questionAnswer` and every other box
    // Ok.
    std::deque<int> answers;
    int questionAnswer = forms::msgbox::Yes;
    std::deque<std::string> files;    // answers of file dialogs; cancelled when none is left
    std::deque<std::string> folders;  // answers of folder dialogs; cancelled when none is left
    std::deque<std::optional<forms::FontChoice>> fonts;
    // What the user does in a modal window of this name before it closes, once per showing.
    std::map<std::string, std::function<void(forms::Form&)>> inModal;
    // Called when a box is up, before it is answered.
    std::function<void(const Box&)> whileBoxIsUp;

    // --- the record: what the user has seen ------------------------------------------------------------------------

    std::vector<Box> boxes;
    std::vector<Shown> shown;
    std::vector<std::string> hidden;
    std::vector<std::string> forgotten;
    std::vector<std::pair<std::string, std::string>> focused;  // window, control
    std::vector<forms::FileQuestion> fileQuestions;
    std::vector<std::string> folderTitles;
    std::vector<forms::FontChoice> fontsOffered;
    std::string clipboard;
    int clipboardClears = 0;
    int clipboardSets = 0;
    std::optional<std::string> trayTip;  // of the icon that stands
    std::vector<std::string> trayTips;   // of every icon asked for
    int trayRemovals = 0;
    bool tray = true;  // whether the desktop shows tray icons
    std::vector<std::pair<std::string, bool>> topmost;
    std::vector<int> pointers;
    std::vector<std::pair<std::string, std::string>> menus;  // window, menu
    std::vector<std::string> sounds;
    std::vector<std::string> warnings;
    int ends = 0;

    [[nodiscard]] bool wasShown(const std::string& window) const;

    // --- forms::Display --------------------------------------------------------------------------------------------

    void Show(forms::Form& form, forms::Form* owner, bool modal) override;
    void Hide(forms::Form& form) override;
    void Forget(forms::Form& form) override;
    void SetFocus(forms::Form& form, const std::string& control) override;
    int MsgBox(const std::string& text, int style, const std::string& title) override;
    std::string askFile(const forms::FileQuestion& question) override;
    std::string askFolder(forms::Form* owner, const std::string& title) override;
    std::optional<forms::FontChoice> askFont(const forms::FontChoice& current) override;
    void clearClipboard() override;
    void setClipboard(const std::string& text) override;
    void addTrayIcon(const std::string& tip) override;
    void removeTrayIcon() override;
    bool hasTray() override { return tray; }
    void setTopmost(forms::Form& form, bool topmost) override;
    void setPointer(int pointer) override;
    void popUpMenu(forms::Form& form, const std::string& menu) override;
    void sndPlaySound(const std::string& file) override;
    void warn(const std::string& line) override;
    void endProgram() override;
};

}  // namespace tidvane::tests
