// The system's ANSI code page: the form of texts in files, and what buffer limits count.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tidvane::base {

// One single-byte Windows code page (874, 1250 to 1258); another number behaves as 1252.
class CodePage {
public:
    explicit CodePage(int number = 1252);

    [[nodiscard]] int number() const;
    // Every byte has a character: bytes that the page leaves open become the control character of the same number, or
    // from 0xA0 on the private-use character that Windows gives them.
    [[nodiscard]] std::string toUtf8(std::string_view bytes) const;
    // A character that the page lacks becomes "?". A byte that is no UTF-8 stays as it is.
    [[nodiscard]] std::string fromUtf8(std::string_view text) const;
    // Bytes that fromUtf8 would give.
    [[nodiscard]] std::size_t encodedLength(std::string_view text) const;

private:
    std::size_t page_;  // its place in the table of pages
};

}  // namespace tidvane::base
