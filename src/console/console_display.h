// A display for a terminal: message boxes become lines with the answer that the options gave, windows stay unseen.
#pragma once

#include <ostream>

#include "forms/display.h"

namespace tidvane::console {

class ConsoleDisplay final : public forms::Display {
public:
    // `answerYes` answers every question; boxes with one button get that button.
    // Warnings of a `preview` tell what would happen, and say so.
    ConsoleDisplay(std::ostream& err, bool answerYes, bool preview = false)
        : err_(err), answerYes_(answerYes), preview_(preview) {}

    // True once the program has said that it ends.
    [[nodiscard]] bool ended() const { return ended_; }

    int MsgBox(const std::string& text, int style, const std::string& title) override;
    void warn(const std::string& line) override;
    void endProgram() override { ended_ = true; }

    // Nothing is chosen where nobody can choose.
    std::string askFile(const forms::FileQuestion&) override { return {}; }
    std::string askFolder(forms::Form*, const std::string&) override { return {}; }
    std::optional<forms::FontChoice> askFont(const forms::FontChoice&) override { return std::nullopt; }

    // A terminal shows no window, has no tray, and the clipboard of the host is none of the machine's business.
    void Show(forms::Form&, forms::Form*, bool) override {}
    void Hide(forms::Form&) override {}
    void Forget(forms::Form&) override {}
    void SetFocus(forms::Form&, const std::string&) override {}
    void clearClipboard() override {}
    void setClipboard(const std::string&) override {}
    void addTrayIcon(const std::string&) override {}
    void removeTrayIcon() override {}
    void setTopmost(forms::Form&, bool) override {}
    void setPointer(int) override {}
    void popUpMenu(forms::Form&, const std::string&) override {}
    void sndPlaySound(const std::string&) override {}

private:
    std::ostream& err_;
    bool answerYes_;
    bool preview_;
    bool ended_ = false;
};

// Line ends of the log and of texts (CR LF, and CR alone) as this host writes them.
std::string withHostLineEnds(const std::string& text);

// One line for a terminal: whatever a name holds, it stays on its line and moves no cursor. A control character, also
// one of U+0080 to U+009F, becomes a question mark.
std::string printable(const std::string& text);

// The same for several lines: their ends, as this host writes them, and tabs stay.
std::string printableLines(const std::string& text);

}  // namespace tidvane::console
