// What the subsystems tell the main window: log lines, the status panel, the rows of the task list. Declared here,
// below everybody who speaks; the main window implements it.
#pragma once

#include <string>

#include "forms/display.h"

namespace tidvane::settings {

class RunReport {
public:
    virtual ~RunReport() = default;

    // The three ways into the log: raw; a line with optional time and the pause; a line without time, with the pause.
    virtual void AppendLogText(const std::string& text) = 0;
    virtual void AddLogLine(const std::string& text) = 0;
    virtual void AddLogHeading(const std::string& text) = 0;

    // Panel of the main window's status bar, from 1.
    virtual void setPanel(int panel, const std::string& text) = 0;

    // Rows of the task list by key; a missing row makes the write do nothing. The status goes to the column with the
    // key "Status".
    virtual void setRowStatus(const std::string& key, const std::string& status) = 0;
    virtual void setRowIcon(const std::string& key, int icon) = 0;
    virtual void selectRow(const std::string& key) = 0;
    // The row at index 1, whatever it is: the junk search has no key of its own to look for.
    virtual void setFirstRowStatus(const std::string& status) = 0;
    virtual void selectFirstRow() = 0;

    // True while a stop is asked for.
    virtual bool StopRequested() const = 0;

    // After the options were stored: rows added and removed by their gates, every status emptied, icons set.
    virtual void rebuildTaskRows() = 0;
    virtual void clearTaskStatuses() = 0;
    virtual void resetTaskIcons() = 0;

    // The log's font: read and set by the options window, stored in td_flog.dat.
    virtual forms::FontChoice logFont() const = 0;
    virtual void setLogFont(const forms::FontChoice& font) = 0;
};

}  // namespace tidvane::settings
