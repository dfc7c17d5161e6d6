#include "app/last_run.h"

#include <cstdio>

#include "base/date_time.h"

namespace tidvane::app {

namespace {

constexpr const char* kFile = "td_last.dat";
constexpr std::uint64_t kReadLimit = 4096;  // two short lines; more is not ours

// The text between the first two number signs at or behind `from`; moves `from` behind it.
std::string quoted(const std::string& text, std::size_t& from) {
    const std::size_t start = text.find('#', from);
    if (start == std::string::npos) return {};
    const std::size_t end = text.find('#', start + 1);
    if (end == std::string::npos) return {};
    from = end + 1;
    return text.substr(start + 1, end - start - 1);
}

}  // namespace

LastRun readLastRun(settings::Program& program) {
    LastRun last;
    std::string text;
    const std::string file = program.inProgramFolder(kFile);
    last.exists = program.platform.files.FileExists(file);
    if (!last.exists || !ok(program.platform.files.ReadFileBytes(file, text, kReadLimit))) return last;

    base::DateTime moment;
    std::size_t from = 0;
    const std::string date = quoted(text, from);
    if (std::sscanf(date.c_str(), "%d-%d-%d", &moment.year, &moment.month, &moment.day) == 3 && moment.month >= 1 &&
        moment.month <= 12 && moment.day >= 1 && moment.day <= 31) {
        last.date = base::shortDateText(moment, program.locale());
    }
    const std::string time = quoted(text, from);
    if (std::sscanf(time.c_str(), "%d:%d:%d", &moment.hour, &moment.minute, &moment.second) == 3 && moment.hour >= 0 &&
        moment.hour < 24 && moment.minute >= 0 && moment.minute < 60 && moment.second >= 0 && moment.second < 60) {
        last.time = base::timeText(moment, program.locale());
    }
    return last;
}

void writeLastRun(settings::Program& program) {
    const base::DateTime now = program.platform.clock.now();
    char text[96];
    std::snprintf(text, sizeof text, "#%04d-%02d-%02d#\r\n#%02d:%02d:%02d#\r\n", now.year, now.month, now.day, now.hour,
                  now.minute, now.second);
    // Ignored on purpose: a folder that cannot be written to costs the date of the last run, and no more.
    (void)program.platform.files.WriteFileBytes(program.inProgramFolder(kFile), text);
}

}  // namespace tidvane::app
