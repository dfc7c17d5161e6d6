#include "platform/common/clear_tracks_command.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "platform/common/ended_process.h"

namespace tidvane::platform {

namespace {

// Takes blanks off the front; false when there was none.
bool skipBlanks(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_not_of(" \t"), text.size());
    text.remove_prefix(end);
    return end > 0;
}

bool skipWord(std::string_view& text, std::string_view word) {
    if (!base::startsWithNoCase(text, word)) return false;
    text.remove_prefix(word.size());
    return true;
}

}  // namespace

std::optional<int> clearTracksNumber(std::string_view commandLine) {
    std::string_view text = commandLine;
    skipBlanks(text);
    if (!skipWord(text, "RunDll32")) return std::nullopt;
    (void)skipWord(text, ".exe");
    if (!skipBlanks(text) || !skipWord(text, "InetCpl.cpl")) return std::nullopt;
    skipBlanks(text);
    if (!skipWord(text, ",")) return std::nullopt;
    skipBlanks(text);
    if (!skipWord(text, "ClearMyTracksByProcess") || !skipBlanks(text)) return std::nullopt;

    if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;
    int number = 0;
    const auto [behind, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(behind - text.data()));
    skipBlanks(text);
    return text.empty() ? std::optional<int>(number) : std::nullopt;
}

std::unique_ptr<Process> runClearTracksCommand(std::string_view commandLine, BrowserCache& cache) {
    const std::optional<int> number = clearTracksNumber(commandLine);
    if (!number) return nullptr;
    (void)cache.ClearMyTracksByProcess(*number);
    return std::make_unique<EndedProcess>();
}

}  // namespace tidvane::platform
