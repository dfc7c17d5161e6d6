// Putting a font on a log box.
#pragma once

#include "forms/display.h"
#include "forms/text_box.h"

namespace tidvane::app {

inline void applyFont(forms::TextBox& box, const forms::FontChoice& font) {
    box.FontName = font.name;
    box.FontSize = font.size;
    box.FontBold = font.bold;
    box.FontItalic = font.italic;
}

}  // namespace tidvane::app
