// The log: a text box that everything reports to, line by line, with a pause behind each line.
#pragma once

#include <string>

#include "forms/signal.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::app {

class Log {
public:
    Log(settings::Program& program, forms::TextBox& box);

    // The raw append, without a pause. Longer than txtLogAutoTruncated, the log first loses its oldest 5000 characters;
    // a mark stands in their place.
    void AppendLogText(const std::string& text);
    // With the time in front unless chkLogTimestamp is ticked (it switches the stamp off: intended), and with the
    // pause.
    void AddLogLine(const std::string& text);
    // Never with a time; with the pause.
    void AddLogHeading(const std::string& text);

    void empty();

    // What has just come to the log's end, as the box holds it.
    forms::Signal<const std::string&> appended;

private:
    void textChanged();

    settings::Program& program_;
    forms::TextBox& box_;
    // Where the text begins that may hold letters to replace. Everything before was looked at while the option was on.
    std::size_t unreplacedFrom_ = 0;
};

// Ä becomes Ae, ß ss, and so on: seven letters.
std::string replaceUmlauts(std::string_view text);

}  // namespace tidvane::app
