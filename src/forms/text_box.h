// A text box: its text, the selection and the caret, and the lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "forms/control.h"

namespace tidvane::forms {

// Positions and lengths count characters (UTF-16 units, CR LF as two), as the edit control of the system counts them.
// Appending at the end costs the appended text, however long the text is.
class TextBox : public Control {
public:
    TextBox(Form& form, std::string name, std::string text = {});

    Signal<> Change;    // after every change of the text, also to an equal one through the selection
    Signal<> GotFocus;  // the user enters the box

    const std::string& Text() const { return text_; }
    // An equal text changes nothing. The caret goes to the start.
    void setText(std::string text);
    void design(std::string text);

    std::size_t length() const { return characters_; }  // characters
    std::size_t SelStart() const { return selStart_; }
    std::size_t SelLength() const { return selLength_; }
    void select(std::size_t start, std::size_t length);
    void caretToEnd();
    // Replaces the selection (or inserts at the caret) and puts the caret behind what was inserted.
    void setSelText(std::string_view replacement);

    // The line of the caret, from 0, and the bounds of a line: what messages 201, 187 and 193 of an edit control tell.
    std::size_t lineFromCaret() const;
    std::size_t lineStart(std::size_t line) const;
    std::size_t lineLength(std::size_t line) const;

    // Rewrites the text in place from this byte on and moves the caret to the start: for a change handler that replaces
    // characters and knows that nothing before `fromByte` has any.
    void rewriteTail(std::size_t fromByte, std::string_view tail);

    // Which keys get in: by default all. A filter answers false to cancel the key.
    std::function<bool(char32_t)> keyFilter;
    // A user's key press, through the filter. 8 is backspace.
    void typeKey(char32_t key);

    Property<std::string> FontName{"MS Sans Serif", &viewChanged};
    Property<double> FontSize{8.25, &viewChanged};
    Property<bool> FontBold{false, &viewChanged};
    Property<bool> FontItalic{false, &viewChanged};

private:
    std::size_t offsetOf(std::size_t character) const;

    std::string text_;
    std::size_t characters_ = 0;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

// The key filter of number boxes: digits, comma and backspace.
bool numericKey(char32_t key);

}  // namespace tidvane::forms
