// Letters of the keyboard for captions: the letter that reaches a control together with Alt.
//
// The texts of the languages have hardly any of their own, and which letters are free depends on what stands in a
// window together. So they are chosen here, for each window, once its widgets are made.
#pragma once

#include <wx/string.h>

#include <map>
#include <string>
#include <vector>

#include "forms/control.h"

class wxMenuBar;
class wxWindow;

namespace tidvane::view {

class Mnemonics {
public:
    // Controls that are pressed or ticked, in the order of their making; a letter is free again on another page of the
    // same book. A letter that a caption brings along ("&Open") stays its own, and so do those of the menu bar.
    void choose(const std::vector<std::pair<const forms::Control*, wxWindow*>>& widgets, const wxMenuBar* bar);

    // The caption with its letter marked for the toolkit; the caption as it is where there is none.
    [[nodiscard]] wxString marked(const forms::Control& control) const;
    // The widget that is seen, can be used, and has this letter (as a capital). Null for none.
    [[nodiscard]] wxWindow* widgetOf(int letter) const;

private:
    struct Choice {
        wxUniChar letter;
        wxWindow* widget;
    };
    std::map<const forms::Control*, Choice> choices_;
};

}  // namespace tidvane::view
