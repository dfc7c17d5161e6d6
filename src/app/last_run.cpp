#include "app/last_run.h"

#include <cstdio>

#include "base/calendar.h"
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

bool isTime(const base::DateTime& time) {
    return time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60 && time.second >= 0 &&
           time.second < 60;
}

}  // namespace

LastRun readLastRun(settings::Program& program) {
    LastRun last;
    std::string text;
    const std::string file = program.inProgramFolder(kFile);
    last.exists = program.platform.files.FileExists(file);
    if (!last.exists || !ok(program.platform.files.ReadFileBytes(file, text, kReadLimit))) return last;

    std::size_t from = 0;
    base::DateTime day;
    if (std::sscanf(quoted(text, from).c_str(), "%4d-%2d-%2d", &day.year, &day.month, &day.day) == 3 &&
        base::isDate(day.year, day.month, day.day)) {
        last.date = base::shortDateText(day, program.locale());
    }
    base::DateTime time;
    if (std::sscanf(quoted(text, from).c_str(), "%2d:%2d:%2d", &time.hour, &time.minute, &time.second) == 3 &&
        isTime(time)) {
        last.time = base::timeText(time, program.locale());
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
