// td_flog.dat: the font of the log, in four lines.
#pragma once

#include <optional>

#include "forms/display.h"
#include "platform/status.h"
#include "settings/program.h"

namespace tidvane::settings {

// Name, size, bold, italic; the number and the two truth values in the words of the locale. The colour is not kept.
platform::Status writeLogFont(Program& program, const forms::FontChoice& font);

// Nothing when there is no file. A line that cannot be read, or a size that no text box takes, leaves its part as it is
// in `current`.
std::optional<forms::FontChoice> readLogFont(Program& program, const forms::FontChoice& current);

}  // namespace tidvane::settings
