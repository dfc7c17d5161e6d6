#include "base/wildcard.h"

#include <algorithm>

#include "base/upper_case.h"
#include "base/utf8.h"

namespace tidvane::base {
namespace {

// Signs among the characters of a mask, beyond the last character there is.
constexpr char32_t star = 0x200000;       // any characters
constexpr char32_t starNoDot = 0x200001;  // any characters but a dot
constexpr char32_t one = 0x200002;        // one character, or nothing before a dot or at the end
constexpr char32_t dotOrEnd = 0x200003;
// A byte that is no UTF-8 is only equal to itself, not to the character of its number.
constexpr char32_t rawByte = 0x300000;

char upperByte(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

struct Folded {
    char32_t value;
    std::size_t size;
};

Folded foldedAt(std::string_view text, std::size_t position) {
    const Utf8Character c = utf8At(text, position);
    return {c.valid ? upperCharacter(c.value) : rawByte + c.value, c.size};
}

bool isStar(char32_t token) {
    return token == star || token == starNoDot;
}

std::u32string compile(std::string_view mask) {
    const std::size_t last = mask.find_last_not_of(". ");
    if (last == std::string_view::npos) return {};
    const bool closingDot = mask.back() == '.';
    mask = mask.substr(0, last + 1);

    std::u32string tokens;
    for (std::size_t i = 0; i < mask.size();) {
        const char c = mask[i];
        const char next = i + 1 < mask.size() ? mask[i + 1] : '\0';
        if (c == '*') {
            tokens += star;
            ++i;
        } else if (c == '?') {
            tokens += one;
            ++i;
        } else if (c == '.' && (next == '*' || next == '?')) {
            tokens += dotOrEnd;
            ++i;
        } else {
            const Folded folded = foldedAt(mask, i);
            tokens += folded.value;
            i += folded.size;
        }
    }
    if (closingDot && tokens.back() == star) tokens.back() = starNoDot;

    // What a star in front can take over: further stars, and at the end of the mask ".*", since the dot may be the end.
    std::u32string shorter;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool afterStar = !shorter.empty() && shorter.back() == star;
        const bool closingDotStar = i + 2 == tokens.size() && tokens[i] == dotOrEnd && isStar(tokens[i + 1]);
        if (afterStar && closingDotStar) break;
        if (!afterStar || !isStar(tokens[i])) shorter += tokens[i];
    }
    return shorter;
}

bool isAscii(char32_t token) {
    return token < 0x80;
}

bool beginsWith(std::string_view name, std::string_view capitals) {
    for (std::size_t i = 0; i < capitals.size(); ++i) {
        if (upperByte(name[i]) != capitals[i]) return false;
    }
    return true;
}

std::uint32_t byteMask(std::size_t bytes) {
    return bytes >= 4 ? 0xFFFFFFFFU : (1U << (8 * bytes)) - 1;
}

}  // namespace

bool hasWildcard(std::string_view name) {
    return name.find_first_of("*?") != std::string_view::npos;
}

bool wildcardMatch(std::string_view mask, std::string_view name) {
    return Wildcard(mask).matches(name);
}

Wildcard::Wildcard(std::string_view mask) : tokens_(compile(mask)) {
    if (tokens_.empty()) return;
    const auto literalEnd = std::find_if_not(tokens_.begin(), tokens_.end(), isAscii);
    for (auto it = tokens_.begin(); it != literalEnd; ++it) prefix_ += static_cast<char>(*it);
    if (literalEnd == tokens_.end()) {
        kind_ = Kind::Literal;
        return;
    }
    const auto literalStart = std::find_if_not(tokens_.rbegin(), tokens_.rend(), isAscii).base();
    for (auto it = literalStart; it != tokens_.end(); ++it) suffix_ += static_cast<char>(*it);
    kind_ = literalStart - literalEnd == 1 && *literalEnd == star ? Kind::Affix : Kind::General;
}

// ASCII stands for itself in UTF-8 and never inside another character, so ends are compared byte by byte.
bool Wildcard::endsFit(std::string_view name) const {
    return name.size() >= prefix_.size() + suffix_.size() && beginsWith(name, prefix_) &&
           beginsWith(name.substr(name.size() - suffix_.size()), suffix_);
}

bool Wildcard::matches(std::string_view name) const {
    switch (kind_) {
        case Kind::Nothing:
            return false;
        case Kind::Literal:
            return name.size() == prefix_.size() && endsFit(name);
        case Kind::Affix:
            return endsFit(name);
        case Kind::General:
            return endsFit(name) && matchesTokens(name);
    }
    return false;
}

// A star takes a whole name, and everything behind it that is no character of its own matches at the end. In front of
// it only what may also match nothing wherever it stands.
bool Wildcard::matchesEveryName() const {
    const std::size_t firstStar = tokens_.find(star);
    if (firstStar == std::u32string::npos) return false;
    const auto takesNothing = [](char32_t token) {
        return token == one || token == dotOrEnd || token == star || token == starNoDot;
    };
    return std::all_of(tokens_.begin(), tokens_.begin() + static_cast<std::ptrdiff_t>(firstStar),
                       [](char32_t token) { return token == one; }) &&
           std::all_of(tokens_.begin() + static_cast<std::ptrdiff_t>(firstStar), tokens_.end(), takesNothing);
}

// Between two stars the tokens take a stretch of the name that depends on where they start alone, and a later start
// never ends earlier; so the first place that fits is the best, and going back to the last star is enough.
bool Wildcard::matchesTokens(std::string_view name) const {
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t token = 0;
    std::size_t position = 0;
    std::size_t starToken = none;
    std::size_t starPosition = 0;
    while (true) {
        if (token < tokens_.size() && tokens_[token] == star) {
            starToken = token++;
            starPosition = position;
            continue;
        }
        const bool atEnd = position == name.size();
        if (token == tokens_.size()) {
            if (atEnd) return true;
        } else if (tokens_[token] == starNoDot) {
            // Always the last one.
            if (name.find('.', position) == std::string_view::npos) return true;
        } else if (tokens_[token] == one) {
            if (!atEnd && name[position] != '.') position += utf8At(name, position).size;
            ++token;
            continue;
        } else if (atEnd) {
            if (tokens_[token] == dotOrEnd) {
                ++token;
                continue;
            }
        } else {
            const Folded c = foldedAt(name, position);
            if (c.value == tokens_[token] || (tokens_[token] == dotOrEnd && c.value == U'.')) {
                position += c.size;
                ++token;
                continue;
            }
        }
        if (starToken == none || starPosition == name.size()) return false;
        starPosition += utf8At(name, starPosition).size;
        position = starPosition;
        token = starToken + 1;
    }
}

MaskSet::MaskSet(const std::vector<std::string>& masks)
    : words_((masks.size() + 63) / 64), byLast_(256 * words_), byFirst_(256 * words_), always_(words_) {
    entries_.reserve(masks.size());
    for (std::size_t i = 0; i < masks.size(); ++i) {
        Entry entry{Wildcard(masks[i]), 0, 0, 0, 0};
        const Wildcard& wildcard = entry.wildcard;
        const std::uint64_t bit = std::uint64_t{1} << (i % 64);
        if (wildcard.kind_ != Wildcard::Kind::Nothing) {
            if (!wildcard.suffix_.empty()) {
                byLast_[static_cast<unsigned char>(wildcard.suffix_.back()) * words_ + i / 64] |= bit;
            } else if (!wildcard.prefix_.empty()) {
                byFirst_[static_cast<unsigned char>(wildcard.prefix_.front()) * words_ + i / 64] |= bit;
            } else {
                always_[i / 64] |= bit;
            }
            entry.firstMask = byteMask(wildcard.prefix_.size());
            entry.first = endsOf(wildcard.prefix_).first & entry.firstMask;
            entry.lastMask = byteMask(wildcard.suffix_.size());
            entry.last = endsOf(wildcard.suffix_).last & entry.lastMask;
        }
        entries_.push_back(std::move(entry));
    }
}

bool MaskSet::any(std::string_view name) const {
    const Ends ends = endsOf(name);
    for (std::size_t word = 0; word < words_; ++word) {
        for (std::uint64_t left = candidates(word, ends); left != 0; left &= left - 1) {
            if (matches(word * 64 + static_cast<std::size_t>(std::countr_zero(left)), name, ends)) return true;
        }
    }
    return false;
}

MaskSet::Ends MaskSet::endsOf(std::string_view name) {
    Ends ends{0, 0};
    const std::size_t count = std::min<std::size_t>(name.size(), 4);
    for (std::size_t i = 0; i < count; ++i) {
        ends.first |= static_cast<std::uint32_t>(static_cast<unsigned char>(upperByte(name[i]))) << (8 * i);
        const char fromEnd = upperByte(name[name.size() - 1 - i]);
        ends.last |= static_cast<std::uint32_t>(static_cast<unsigned char>(fromEnd)) << (8 * i);
    }
    return ends;
}

bool MaskSet::matches(std::size_t index, std::string_view name, Ends ends) const {
    const Entry& entry = entries_[index];
    if ((ends.first & entry.firstMask) != entry.first || (ends.last & entry.lastMask) != entry.last) return false;
    return entry.wildcard.matches(name);
}

}  // namespace tidvane::base
