#include "app/status_words.h"

#include <algorithm>
#include <array>

namespace tidvane::app {

namespace {
constexpr int kNone = -1;
constexpr std::array kWhatIsCounted{kNone, 491, 576};  // of the panels: nothing, rows of tasks, ticked plug-ins
}  // namespace

std::string statusWords(const settings::LangTable& texts, int panel, const std::string& text) {
    const auto isDigit = [](char sign) { return sign >= '0' && sign <= '9'; };
    if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) return text;
    if (panel < 1 || panel > static_cast<int>(kWhatIsCounted.size())) return text;
    const int word = kWhatIsCounted[static_cast<std::size_t>(panel) - 1];
    return word == kNone || texts(word).empty() ? text : texts(word) + ": " + text;
}

}  // namespace tidvane::app
