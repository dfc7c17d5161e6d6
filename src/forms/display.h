// What needs a screen. The front ends implement it; the logic never asks which one it has.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tidvane::forms {

class Form;

// The parts of a message box's style, and its answers.
namespace msgbox {
inline constexpr int OkOnly = 0;
inline constexpr int YesNo = 4;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int DefaultButton2 = 256;
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
}  // namespace msgbox

namespace pointer {
inline constexpr int Default = 0;
inline constexpr int Arrow = 1;
inline constexpr int Hourglass = 11;
}  // namespace pointer

struct FileQuestion {
    std::string title;
    std::string filter;  // "Alle Dateien (*.*)|*.*"
    std::string initialFolder;
    bool save = false;
};

struct FontChoice {
    std::string name;
    double size = 8.25;
    bool bold = false;
    bool italic = false;
    unsigned colour = 0x80000008u;
};

class Display {
public:
    virtual ~Display() = default;

    // Shows a window in front of the others; a modal one returns when it is hidden or unloaded.
    virtual void Show(Form& form, Form* owner, bool modal) = 0;
    virtual void Hide(Form& form) = 0;
    // Called when a window's state is destroyed: whatever showed it lets go.
    virtual void Forget(Form& form) = 0;
    virtual void SetFocus(Form& form, const std::string& control) = 0;

    // The answer of the user, one of msgbox::Ok, Yes, No, ...
    virtual int MsgBox(const std::string& text, int style, const std::string& title) = 0;
    // Empty: cancelled.
    virtual std::string askFile(const FileQuestion& question) = 0;
    virtual std::string askFolder(Form* owner, const std::string& title) = 0;
    virtual std::optional<FontChoice> askFont(const FontChoice& current) = 0;

    virtual void clearClipboard() = 0;
    virtual void setClipboard(const std::string& text) = 0;

    // One tray icon for the whole program. Adding a second one fails in silence.
    virtual void addTrayIcon(const std::string& tip) = 0;
    virtual void removeTrayIcon() = 0;
    // Whether the desktop shows tray icons at all. Where it does not, a window that would hide behind one is minimised.
    virtual bool hasTray() { return true; }

    // The system's handle of a window; 0 where there is none.
    virtual std::uint64_t windowHandle(Form&) { return 0; }
    virtual void setTopmost(Form& form, bool topmost) = 0;
    virtual void setPointer(int pointer) = 0;
    virtual void popUpMenu(Form& form, const std::string& menu) = 0;
    // Asynchronous; a missing file is silent.
    virtual void sndPlaySound(const std::string& file) = 0;
    // One line of the front end beside the log: a place that was protected, a removal for good.
    virtual void warn(const std::string& line) = 0;
    // The process ends now, as far as the program is concerned.
    virtual void endProgram() = 0;
};

}  // namespace tidvane::forms
