#include "view/mnemonics.h"

#include <wx/bookctrl.h>
#include <wx/menu.h>

#include <algorithm>
#include <set>

#include "view/text.h"

namespace tidvane::view {

namespace {

using Letters = std::set<wxUint32>;

wxUint32 capital(wxUniChar sign) {
    return wxString(sign).Upper()[0].GetValue();
}

// The letter behind a single "&"; 0 for none.
wxUint32 ownLetter(const wxString& caption) {
    for (std::size_t at = 0; at + 1 < caption.length(); ++at) {
        if (caption[at] != '&') continue;
        if (caption[at + 1] != '&') return capital(caption[at + 1]);
        ++at;
    }
    return 0;
}

// The pages that a widget lies on, the outermost first.
std::vector<const wxWindow*> pagesOf(const wxWindow* widget) {
    std::vector<const wxWindow*> pages;
    for (const wxWindow* at = widget; at != nullptr && !at->IsTopLevel(); at = at->GetParent()) {
        if (dynamic_cast<const wxBookCtrlBase*>(at->GetParent()) != nullptr) pages.insert(pages.begin(), at);
    }
    return pages;
}

// First letters of words first, then any other.
wxUint32 freeLetter(const wxString& caption, const Letters& taken) {
    for (const bool firstOnly : {true, false}) {
        bool first = true;
        for (const wxUniChar sign : caption) {
            const bool usable = sign.IsAscii() && wxIsalnum(sign);
            if (usable && (first || !firstOnly) && taken.count(capital(sign)) == 0) return capital(sign);
            first = !wxIsalnum(sign);
        }
    }
    return 0;
}

}  // namespace

void Mnemonics::choose(const std::vector<std::pair<const forms::Control*, wxWindow*>>& widgets, const wxMenuBar* bar) {
    choices_.clear();
    Letters everywhere;
    if (bar != nullptr) {
        for (std::size_t menu = 0; menu < bar->GetMenuCount(); ++menu) {
            if (const wxUint32 letter = ownLetter(bar->GetMenuLabel(menu))) everywhere.insert(letter);
        }
    }
    struct Wanted {
        const forms::Control* control;
        wxWindow* widget;
        std::vector<const wxWindow*> pages;
        wxString caption;
    };
    std::vector<Wanted> wanted;
    for (const auto& [control, widget] : widgets) {
        const wxString caption = toNative(control->Caption.get());
        if (!caption.empty()) wanted.push_back({control, widget, pagesOf(widget), caption});
    }
    // What is seen together must differ: what stands outside of all pages is seen with every one of them.
    std::stable_sort(wanted.begin(), wanted.end(),
                     [](const Wanted& a, const Wanted& b) { return a.pages.size() < b.pages.size(); });
    std::map<const wxWindow*, Letters> ofPage;
    const auto take = [&](const Wanted& one, wxUint32 letter) {
        (one.pages.empty() ? everywhere : ofPage[one.pages.back()]).insert(letter);
        choices_[one.control] = {wxUniChar(letter), one.widget};
    };
    for (const Wanted& one : wanted) {
        if (const wxUint32 letter = ownLetter(one.caption)) take(one, letter);
    }
    for (const Wanted& one : wanted) {
        if (choices_.count(one.control) != 0) continue;
        Letters taken = everywhere;
        for (const wxWindow* page : one.pages) taken.insert(ofPage[page].begin(), ofPage[page].end());
        if (const wxUint32 letter = freeLetter(one.caption, taken)) take(one, letter);
    }
}

wxString Mnemonics::marked(const forms::Control& control) const {
    wxString caption = toNative(control.Caption.get());
    const auto found = choices_.find(&control);
    if (found == choices_.end() || ownLetter(caption) != 0) return caption;
    const auto mark = [&](std::size_t at) { return caption.substr(0, at) + '&' + caption.substr(at); };
    // The first letter of a word is the one that the eye looks for.
    for (const bool firstOnly : {true, false}) {
        bool first = true;
        for (std::size_t at = 0; at < caption.length(); ++at) {
            if (capital(caption[at]) == found->second.letter.GetValue() && (first || !firstOnly)) return mark(at);
            first = !wxIsalnum(caption[at]);
        }
    }
    return caption;
}

wxWindow* Mnemonics::widgetOf(int letter) const {
    for (const auto& [control, choice] : choices_) {
        if (static_cast<int>(choice.letter.GetValue()) != letter) continue;
        if (choice.widget->IsShownOnScreen() && choice.widget->IsEnabled()) return choice.widget;
    }
    return nullptr;
}

}  // namespace tidvane::view
