// The user of display_fixture.h: his keyboard and his mouse.
#include <gtest/gtest.h>
#include <wx/defs.h>
#include <wx/uiaction.h>

#include <map>
#include <vector>

#include "view/display_fixture.h"

// The last ones: they give everyday words a meaning of their own.
#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <gdk/gdkx.h>

namespace tidvane::tests {

namespace {

// Letters and signs are their own keys.
const std::map<int, KeySym> kKeys{
    {WXK_BACK, XK_BackSpace},     {WXK_TAB, XK_Tab},       {WXK_RETURN, XK_Return}, {WXK_ESCAPE, XK_Escape},
    {WXK_DELETE, XK_Delete},      {WXK_HOME, XK_Home},     {WXK_END, XK_End},       {WXK_LEFT, XK_Left},
    {WXK_RIGHT, XK_Right},        {WXK_UP, XK_Up},         {WXK_DOWN, XK_Down},     {WXK_PAGEUP, XK_Page_Up},
    {WXK_PAGEDOWN, XK_Page_Down}, {WXK_INSERT, XK_Insert}, {WXK_MENU, XK_Menu},     {WXK_WINDOWS_MENU, XK_Menu},
};

KeySym symbolOf(int key) {
    if (const auto known = kKeys.find(key); known != kKeys.end()) return known->second;
    if (key >= WXK_F1 && key <= WXK_F12) return XK_F1 + static_cast<KeySym>(key - WXK_F1);
    return key > 0 && key < 256 ? static_cast<KeySym>(key) : NoSymbol;
}

// On the toolkit's own connection: what the screen answers to the press has arrived when this returns.
void press(KeySym symbol, int modifiers) {
    Display* display = GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
    const KeyCode key = XKeysymToKeycode(display, symbol);
    if (key == 0) {
        ADD_FAILURE() << "there is no key for " << symbol;
        return;
    }
    if (XkbKeycodeToKeysym(display, key, 0, 0) != symbol) modifiers |= wxMOD_SHIFT;
    std::vector<KeyCode> held;
    for (const auto& [modifier, name] :
         {std::pair{wxMOD_CONTROL, XK_Control_L}, std::pair{wxMOD_ALT, XK_Alt_L}, std::pair{wxMOD_SHIFT, XK_Shift_L}}) {
        if ((modifiers & modifier) != 0) held.push_back(XKeysymToKeycode(display, static_cast<KeySym>(name)));
    }
    for (const KeyCode modifier : held) XTestFakeKeyEvent(display, modifier, True, CurrentTime);
    XTestFakeKeyEvent(display, key, True, CurrentTime);
    XTestFakeKeyEvent(display, key, False, CurrentTime);
    for (std::size_t at = held.size(); at-- > 0;) XTestFakeKeyEvent(display, held[at], False, CurrentTime);
    XSync(display, False);
}

void pressAndWait(KeySym symbol, int modifiers) {
    const int before = keysPressed();
    press(symbol, modifiers);
    EXPECT_TRUE(letRunUntil([before] { return keysPressed() > before; })) << "no window got the key " << symbol;
    letSettle();
}

void clickAndWait(wxWindow* window, wxPoint at, int times) {
    wxUIActionSimulator user;
    user.MouseMove(window->ClientToScreen(at));
    letSettle();
    const int before = buttonsReleased();
    if (times == 2) {
        user.MouseDblClick();
    } else {
        user.MouseClick();
    }
    EXPECT_TRUE(letRunUntil([before, times] { return buttonsReleased() >= before + times; }))
        << "no window got the click";
    letSettle();
}

}  // namespace

void pressKey(int key, int modifiers) {
    // A capital stands for its key.
    press(symbolOf(key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key), modifiers);
}

void typeKey(int key, int modifiers) {
    pressAndWait(symbolOf(key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key), modifiers);
}

void typeText(const std::string& text) {
    for (const char letter : text) pressAndWait(static_cast<KeySym>(static_cast<unsigned char>(letter)), 0);
}

void click(wxWindow* window, wxPoint at) {
    clickAndWait(window, at, 1);
}

void clickMiddle(wxWindow* window) {
    const wxSize size = window->GetClientSize();
    click(window, wxPoint(size.x / 2, size.y / 2));
}

void doubleClick(wxWindow* window, wxPoint at) {
    clickAndWait(window, at, 2);
}

}  // namespace tidvane::tests
