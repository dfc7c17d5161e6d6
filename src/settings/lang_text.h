// The language table: 1000 texts by number, filled from language files.
#pragma once

#include <array>
#include <string>

namespace tidvane::settings {

class LangTable {
public:
    static constexpr int kSize = 1000;

    // Empty for a number outside 0 to 999.
    const std::string& operator()(int index) const {
        static const std::string none;
        return index < 0 || index >= kSize ? none : texts_[static_cast<std::size_t>(index)];
    }
    void set(int index, std::string text) {
        if (index >= 0 && index < kSize) texts_[static_cast<std::size_t>(index)] = std::move(text);
    }

private:
    std::array<std::string, kSize> texts_;
};

}  // namespace tidvane::settings
