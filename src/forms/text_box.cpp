#include "forms/text_box.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace tidvane::forms {

TextBox::TextBox(Form& owner, std::string name, std::string text)
    : Control(owner, ControlKind::TextBox, std::move(name)) {
    design(std::move(text));
}

void TextBox::design(std::string text) {
    text_ = std::move(text);
    characters_ = base::characterCount(text_);
    selStart_ = selLength_ = 0;
}

void TextBox::setText(std::string text) {
    if (text == text_) return;
    design(std::move(text));
    viewChanged();
    Change();
}

void TextBox::select(std::size_t start, std::size_t length) {
    selStart_ = std::min(start, characters_);
    selLength_ = std::min(length, characters_ - selStart_);
    viewChanged();
}

void TextBox::caretToEnd() {
    selStart_ = characters_;
    selLength_ = 0;
    viewChanged();
}

std::size_t TextBox::offsetOf(std::size_t character) const {
    if (character >= characters_) return text_.size();
    return base::byteOffset(text_, character);
}

void TextBox::setSelText(std::string_view replacement) {
    const std::size_t added = base::characterCount(replacement);
    const std::size_t from = offsetOf(selStart_);
    const std::size_t to = selLength_ == 0 ? from : offsetOf(selStart_ + selLength_);
    text_.replace(from, to - from, replacement);
    characters_ = characters_ - selLength_ + added;
    selStart_ += added;
    selLength_ = 0;
    viewChanged();
    Change();
}

void TextBox::rewriteTail(std::size_t fromByte, std::string_view tail) {
    const std::size_t removed = base::characterCount(std::string_view(text_).substr(fromByte));
    text_.replace(fromByte, std::string::npos, tail);
    characters_ = characters_ - removed + base::characterCount(tail);
    selStart_ = selLength_ = 0;
    viewChanged();
    Change();
}

std::size_t TextBox::lineFromCaret() const {
    const std::string_view before = std::string_view(text_).substr(0, offsetOf(selStart_));
    return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

std::size_t TextBox::lineStart(std::size_t line) const {
    std::size_t byte = 0;
    for (; line > 0; --line) {
        const std::size_t end = text_.find('\n', byte);
        if (end == std::string::npos) return characters_;
        byte = end + 1;
    }
    return base::characterCount(std::string_view(text_).substr(0, byte));
}

std::size_t TextBox::lineLength(std::size_t line) const {
    const std::size_t from = offsetOf(lineStart(line));
    std::size_t to = text_.find('\n', from);
    if (to == std::string::npos) to = text_.size();
    if (to > from && text_[to - 1] == '\r') --to;
    return base::characterCount(std::string_view(text_).substr(from, to - from));
}

void TextBox::typeKey(char32_t key) {
    if (keyFilter && !keyFilter(key)) return;
    if (key == 8) {
        if (selLength_ == 0) {
            if (selStart_ == 0) return;
            select(selStart_ - 1, 1);
        }
        setSelText({});
        return;
    }
    if (key < 0x80) setSelText(std::string(1, static_cast<char>(key)));
}

bool numericKey(char32_t key) {
    return (key >= U'0' && key <= U'9') || key == U',' || key == 8;
}

}  // namespace tidvane::forms
