// Simple case mapping: one character to one character, as file systems fold names.
#pragma once

namespace tidvane::base {

// Latin, Greek, Cyrillic, Armenian; every other character is its own capital, "ß" included. A mapped character takes as
// many bytes in UTF-8 as the original, so that folding never moves what stands behind it.
char32_t upperCharacter(char32_t character);
char32_t lowerCharacter(char32_t character);

}  // namespace tidvane::base
