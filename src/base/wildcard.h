// Masks of file names, as a directory look-up of Windows understands them on long names.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tidvane::base {

bool hasWildcard(std::string_view name);  // "*" or "?"

// "*.*" is "*"; "?" matches one character, or nothing before a dot or at the end; a dot before "?" or "*" also matches
// the end of the name; a mask that ends in "*." matches names without an extension; trailing dots and blanks of a mask
// are dropped; case is ignored. Short (8.3) names are never looked at. A mask of which nothing is left matches no name.
bool wildcardMatch(std::string_view mask, std::string_view name);

// One mask, read once and matched often.
class Wildcard {
public:
    explicit Wildcard(std::string_view mask);
    [[nodiscard]] bool matches(std::string_view name) const;
    // True for "*", "*.*", "?*", "*.?" and all others that leave no name out.
    [[nodiscard]] bool matchesEveryName() const;

private:
    friend class MaskSet;

    enum class Kind : std::uint8_t {
        Nothing,  // matches no name
        Literal,  // an ASCII text
        Affix,    // an ASCII text, "*", an ASCII text: either may be empty
        General,
    };

    [[nodiscard]] bool endsFit(std::string_view name) const;
    [[nodiscard]] bool matchesTokens(std::string_view name) const;

    Kind kind_ = Kind::Nothing;
    std::u32string tokens_;  // capitals, and the signs of wildcard.cpp
    std::string prefix_;     // every match begins with these capitals
    std::string suffix_;     // and ends with these
};

// Many masks against many names: the cost of a name hardly grows with the number of masks.
class MaskSet {
public:
    explicit MaskSet(const std::vector<std::string>& masks);

    // Calls found(index) for each mask that matches, in rising order.
    template <class Found>
    void match(std::string_view name, Found found) const {
        const Ends ends = endsOf(name);
        for (std::size_t word = 0; word < words_; ++word) {
            for (std::uint64_t left = candidates(word, ends); left != 0; left &= left - 1) {
                const std::size_t index = word * 64 + static_cast<std::size_t>(std::countr_zero(left));
                if (matches(index, name, ends)) found(index);
            }
        }
    }

    [[nodiscard]] bool any(std::string_view name) const;

private:
    // The first and the last four bytes of a name as capitals; shorter names are filled up with zeros.
    struct Ends {
        std::uint32_t first;
        std::uint32_t last;
    };

    struct Entry {
        Wildcard wildcard;
        std::uint32_t firstMask;  // bytes of Ends::first that the mask fixes
        std::uint32_t first;
        std::uint32_t lastMask;
        std::uint32_t last;
    };

    static Ends endsOf(std::string_view name);
    [[nodiscard]] std::uint64_t candidates(std::size_t word, Ends ends) const {
        return always_[word] | byFirst_[(ends.first & 0xFF) * words_ + word] |
               byLast_[(ends.last & 0xFF) * words_ + word];
    }
    [[nodiscard]] bool matches(std::size_t index, std::string_view name, Ends ends) const;

    std::size_t words_;  // 64 masks a word, one bit each
    std::vector<Entry> entries_;
    // Each mask stands in one of these: with its last byte, with its first byte, or among those that fix neither.
    std::vector<std::uint64_t> byLast_;
    std::vector<std::uint64_t> byFirst_;
    std::vector<std::uint64_t> always_;
};

}  // namespace tidvane::base
